#include "core/families.h"

namespace zel {

namespace {

// The usual ones first; the heartbeat's code goes before the other messages of its types. ZEL_FAMILIES of the
// build leaves some out.
constexpr const Family* kAll[] = {
    &kHeartbeatFamily,
#ifndef ZEL_WITHOUT_SESSION
    &kUserAuthFamily,
#endif
#ifndef ZEL_WITHOUT_EVENTS
    &kAlarmReportFamily,
#endif
#ifndef ZEL_WITHOUT_CONFIG
    &kSystemConfigFamily,
#endif
#ifndef ZEL_WITHOUT_CONTROL
    &kSystemControlFamily,
#endif
#ifndef ZEL_WITHOUT_LIVE
    &kLiveStreamFamily,    &kMediaDataFamily,     &kReverseAudioFamily,
#endif
#ifndef ZEL_WITHOUT_PTZ
    &kPtzControlFamily,
#endif
#ifndef ZEL_WITHOUT_PLAYBACK
    &kNvrReplayFamily,     &kReplayControlFamily,
#endif
#ifndef ZEL_WITHOUT_DISCOVERY
    &kSearchFamily,
#endif
#ifndef ZEL_WITHOUT_SESSION
    &kSystemEncryptFamily,
#endif
    &kTransparentFamily,
#ifndef ZEL_WITHOUT_IOT
    &kIotCameraFamily,
#endif
#ifndef ZEL_WITHOUT_FACTORY
    &kIpcRepairFamily,     &kNvrInternalFamily,   &kProduceTestFamily,
#endif
#ifndef ZEL_WITHOUT_EVENTS
    &kDeviceReportFamily,
#endif
#ifndef ZEL_WITHOUT_SESSION
    &kDebugFamily,         &kSystemLogFamily,
#endif
    &kDebugSwitchFamily,
};

// Types are compared in words that may overlap, in place of a call.
bool isSame(Name name, std::string_view text)
{
    constexpr size_t kWord = 8;
    const auto differs = [&](size_t at) {
        uint64_t one;
        uint64_t other;
        memcpy(&one, name.text + at, kWord);
        memcpy(&other, text.data() + at, kWord);
        return one != other;
    };
    if (name.length != text.size() || name.length < kWord)
        return false;
    for (size_t at = 0; at + kWord < name.length; at += kWord)
        if (differs(at))
            return false;
    return !differs(name.length - kWord);
}

bool isOf(const Family& family, std::string_view type)
{
    for (const Name& name : family.types)
        if (isSame(name, type))
            return true;
    return false;
}

} // namespace

const FamilyTable kFamilies = {kAll, sizeof kAll / sizeof *kAll};

const Family* findFamily(std::string_view type, std::string_view code)
{
    for (const Family* const family : kFamilies)
        if ((family->lengths & Family::bitOf(type.size())) != 0 && isOf(*family, type) &&
            (family->code.length == 0 || isSame(family->code, code)))
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
