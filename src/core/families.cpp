#include "core/families.h"

namespace zel {

namespace {

constexpr const Family* kAll[] = {
    &kHeartbeatFamily,    &kTransparentFamily,   &kUserAuthFamily,     &kSystemEncryptFamily,
    &kSearchFamily,       &kLiveStreamFamily,    &kMediaDataFamily,    &kNvrReplayFamily,
    &kReverseAudioFamily, &kPtzControlFamily,    &kAlarmReportFamily,  &kSystemControlFamily,
    &kSystemConfigFamily, &kIotCameraFamily,     &kIpcRepairFamily,    &kNvrInternalFamily,
    &kProduceTestFamily,  &kReplayControlFamily, &kDeviceReportFamily, &kDebugFamily,
    &kSystemLogFamily,    &kDebugSwitchFamily,
};

bool isOf(const Family& family, std::string_view type)
{
    for (const Name& name : family.types)
        if (name.length == type.size() && name.length != 0 &&
            memcmp(name.text, type.data(), name.length) == 0)
            return true;
    return false;
}

} // namespace

const FamilyTable kFamilies = {kAll, sizeof kAll / sizeof *kAll};

const Family* findFamily(std::string_view type, std::string_view code)
{
    for (const Family* const family : kFamilies)
        if ((family->lengths & Family::bitOf(type.size())) != 0 && isOf(*family, type) &&
            (!family->code || code == family->code))
            return family;
    return nullptr;
}

// --- Messages of the core ------------------------------------------------------------------------

namespace {

// What switches a device's debug channel on and off has neither record nor body.
constexpr CodeRow kDebugSwitches[] = {{0, nullptr, nullptr, 0, ""}, {1, nullptr, nullptr, 1, ""}};

int composeNothing(const Family&, Outbound&)
{
    return 0;
}

int analyseNothing(const Family&, Message&, std::string_view, void**)
{
    return 0;
}

} // namespace

extern constexpr Family kDebugSwitchFamily =
    Family("OPEN_DBG_MESSAGE", kDebugSwitches, composeNothing, analyseNothing).alsoNamed("CLOSE_DBG_MESSAGE");

} // namespace zel
