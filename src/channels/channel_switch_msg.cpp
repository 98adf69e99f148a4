#include "channels/channel_switch_msg.h"

#include <iterator>

#include "core/lists.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void addMode(Side& side, SYSTEM_CONFIG_GET_3813_PARAM& record)
{
    attribute(side, "SearchMode", record.SearchMode);
}

bool isMode(const int32_t& mode)
{
    return isSet(mode);
}

void addModes(Side& side, SYSTEM_CONFIG_GET_3813_PARAM& record)
{
    auto& modes = record.SearchModeList;
    joinedListAttribute(side, "SearchModeList", modes, std::size(modes), rowsInUse(side, modes, isMode));
    addMode(side, record);
}

void smartSwitch(Side& side, SYSTEM_CONFIG_GET_3820_PARAM& record)
{
    attribute(side, "OffAllSmartModify", record.OffAllSmartModify);
}

void alarmSwitch(Side& side, SYSTEM_CONFIG_GET_3822_PARAM& record)
{
    attribute(side, "OffAllAlarm", record.OffAllAlarm);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kNvrChannelGetAddMode = message<SYSTEM_CONFIG_GET_3813_PARAM_init>(
    "SystemConfig_NvrChannelGetAddMode_MessageAnalysis", within<addModes>("SearchIPCCfg", Kinds::kResponses));
extern constexpr MessageRow kNvrChannelSetAddMode = message<SYSTEM_CONFIG_SET_3814_PARAM_init>(
    "SystemConfig_NvrChannelSetAddMode_MessageAnalysis", within<addMode>("SearchIPCCfg", Kinds::kRequests));
// What the log calls the elements of the switches isn't their name.
extern constexpr MessageRow kNvrGetOffAllSmartChanges =
    message<SYSTEM_CONFIG_GET_3820_PARAM_init>("SystemConfig_NvrGetOffAllSmartChanges_MessageAnalysis",
                                               within<smartSwitch>("AdvancedSetCfg", Kinds::kResponses))
        .reporting("param");
extern constexpr MessageRow kNvrSetOffAllSmartChanges =
    message<SYSTEM_CONFIG_SET_3821_PARAM_init>("SystemConfig_NvrSetOffAllSmartChanges_MessageAnalysis",
                                               within<smartSwitch>("AdvancedSetCfg", Kinds::kRequests))
        .reporting("param");
extern constexpr MessageRow kNvrGetOffAllAlarm =
    message<SYSTEM_CONFIG_GET_3822_PARAM_init>("SystemConfig_NvrGetOffAllAlarm_MessageAnalysis",
                                               within<alarmSwitch>("AlarmSetCfg", Kinds::kResponses))
        .reporting("REQUEST_PARAM");
extern constexpr MessageRow kNvrSetOffAllAlarm =
    message<SYSTEM_CONFIG_SET_3823_PARAM_init>("SystemConfig_NvrSetOffAllAlarm_MessageAnalysis",
                                               within<alarmSwitch>("AlarmSetCfg", Kinds::kRequests))
        .reporting("REQUEST_PARAM");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_3813_PARAM_init(SYSTEM_CONFIG_GET_3813_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_3820_PARAM_init(SYSTEM_CONFIG_GET_3820_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_3822_PARAM_init(SYSTEM_CONFIG_GET_3822_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_3814_PARAM, SYSTEM_CONFIG_GET_3813_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_3821_PARAM, SYSTEM_CONFIG_GET_3820_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_3823_PARAM, SYSTEM_CONFIG_GET_3822_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelGetAddMode, kNvrChannelGetAddMode)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelSetAddMode, kNvrChannelSetAddMode)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrGetOffAllSmartChanges, kNvrGetOffAllSmartChanges)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrSetOffAllSmartChanges, kNvrSetOffAllSmartChanges)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrGetOffAllAlarm, kNvrGetOffAllAlarm)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrSetOffAllAlarm, kNvrSetOffAllAlarm)
