// The families as the entry points know them. A new family gets its line here and its place in the table of
// families.cpp.
#ifndef ZEL_CORE_FAMILIES_H
#define ZEL_CORE_FAMILIES_H

#include "core/rows.h"

namespace zel {

extern const Family kHeartbeatFamily;
extern const Family kTransparentFamily;
extern const Family kUserAuthFamily;
extern const Family kSystemEncryptFamily;
extern const Family kSearchFamily;
extern const Family kLiveStreamFamily;
extern const Family kMediaDataFamily;
extern const Family kNvrReplayFamily;
extern const Family kReverseAudioFamily;
extern const Family kPtzControlFamily;
extern const Family kAlarmReportFamily;
extern const Family kSystemControlFamily;
extern const Family kSystemConfigFamily;
extern const Family kIotCameraFamily;
extern const Family kIpcRepairFamily;
extern const Family kNvrInternalFamily;
extern const Family kProduceTestFamily;
extern const Family kReplayControlFamily;
extern const Family kDeviceReportFamily;
extern const Family kDebugFamily;
extern const Family kSystemLogFamily;
extern const Family kDebugSwitchFamily;

// All of them, in the order in which a header's type is looked up.
struct FamilyTable
{
    const Family* const* begin_;
    size_t count;

    const Family* const* begin() const
    {
        return begin_;
    }
    const Family* const* end() const
    {
        return begin_ + count;
    }
};
extern const FamilyTable kFamilies;

// The family of a header, or null.
const Family* findFamily(std::string_view type, std::string_view code);

} // namespace zel

#endif
