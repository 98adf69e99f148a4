#include "zel_protocol/system_config.h"

#include "analytics/intelligent_event_msg.h"
#include "channels/channel_list_msg.h"
#include "config/ipc_settings_msg.h"
#include "config/media_config_msg.h"
#include "control/identity_msg.h"
#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "SYSTEM_CONFIG_MESSAGE";

int emptyParamOf(const char* function, std::string_view code)
{
    if (!code.data())
        code = "(null)";
    ZelProtocolLogError("%s deal Msg_code:%.*s, put a empty Param\n", function, printedLength(code),
                        code.data());
    return ZEL_ERR_BAD_PARAM;
}

} // namespace

// --- Dispatch ------------------------------------------------------------------------------------

int SystemConfigMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code)
{
    switch (const int32_t number = numberOf(code)) {
    case 202:
    case 5007:
        return SystemConfig_getIpcTimeset_MessageCompose(out, as<SYSTEM_CONFIG_GET_202_PARAM>(record), kind);
    case 203:
        return SystemConfig_getIpcUserCfg_MessageCompose(out, as<SYSTEM_CONFIG_GET_203_PARAM>(record), kind);
    case 222:
        return SystemConfig_setIpcTimeset_MessageCompose(out, as<SYSTEM_CONFIG_SET_222_PARAM>(record), kind);
    case 223:
        return SystemConfig_setIpcUserCfg_MessageCompose(out, as<SYSTEM_CONFIG_SET_223_PARAM>(record), kind);
    case 300:
        return SystemConfig_getIpcNetconfig_MessageCompose(out, as<SYSTEM_CONFIG_GET_300_PARAM>(record),
                                                           kind);
    case 315:
        return SystemConfig_getIpcP2Pconfig_MessageCompose(out, as<SYSTEM_CONFIG_GET_315_PARAM>(record),
                                                           kind);
    case 325:
        return SystemConfig_setIpcLanconfig_MessageCompose(out, as<SYSTEM_CONFIG_SET_325_PARAM>(record),
                                                           kind);
    case 335:
        return SystemConfig_setIpcP2Pconfig_MessageCompose(out, as<SYSTEM_CONFIG_SET_335_PARAM>(record),
                                                           kind);
    case 500:
        return SystemConfig_getMediaconfig_MessageCompose(out, as<SYSTEM_CONFIG_GET_500_PARAM>(record), kind);
    case 520:
        return SystemConfig_setMediaconfig_MessageCompose(out, as<SYSTEM_CONFIG_SET_520_PARAM>(record), kind);
    case 1020:
        return SystemControl_GetSysAbality_MessageCompose(out, as<SYSTEM_CONTROL_1020_PARAM>(record), kind);
    case 1402:
        return SystemConfig_getIntelligentEvent_MessageCompose(out, as<SYSTEM_CONFIG_GET_1402_PARAM>(record),
                                                               kind);
    case 1403:
        return SystemConfig_setIntelligentEvent_MessageCompose(out, as<SYSTEM_CONFIG_SET_1403_PARAM>(record),
                                                               kind);
    case 3801:
        return SystemConfig_NvrChannelStartSearchipc_MessageCompose(
            out, as<SYSTEM_CONFIG_GET_3801_PARAM>(record), kind);
    case 3802:
        return 0;
    case 3803:
        return SystemConfig_NvrChannelGetChannelList_MessageCompose(
            out, as<SYSTEM_CONFIG_GET_3803_PARAM>(record), kind);
    case 3804:
        return SystemConfig_NvrChannelAddChannel_MessageCompose(out, as<SYSTEM_CONFIG_SET_3804_PARAM>(record),
                                                                kind);
    default:
        return unknownCode(kFamily, number);
    }
}

int SystemConfigMessageAnalysis(Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParamOf(__func__, code);
    switch (const int32_t number = numberOf(code)) {
    case 202:
    case 5007:
        return SystemConfig_getIpcTimeset_MessageAnalysis(message, result);
    case 203:
        return SystemConfig_getIpcUserCfg_MessageAnalysis(message, result);
    case 222:
        return SystemConfig_setIpcTimeset_MessageAnalysis(message, result);
    case 223:
        return SystemConfig_setIpcUserCfg_MessageAnalysis(message, result);
    case 300:
        return SystemConfig_getIpcNetconfig_MessageAnalysis(message, result);
    case 315:
        return SystemConfig_getIpcP2Pconfig_MessageAnalysis(message, result);
    case 325:
        return SystemConfig_setIpcLanconfig_MessageAnalysis(message, result);
    case 335:
        return SystemConfig_setIpcP2Pconfig_MessageAnalysis(message, result);
    case 500:
        return SystemConfig_getMediaconfig_MessageAnalysis(message, result);
    case 520:
        return SystemConfig_setMediaconfig_MessageAnalysis(message, result);
    case 1020:
        return SystemControl_GetSysAbality_MessageAnalysis(message, result);
    case 1402:
        return SystemConfig_getIntelligentEvent_MessageAnalysis(message, result);
    case 1403:
        return SystemConfig_setIntelligentEvent_MessageAnalysis(message, result);
    case 3801:
        return SystemConfig_NvrChannelStartSearchipc_MessageAnalysis(message, result);
    case 3802:
        return 0;
    case 3803:
        return SystemConfig_NvrChannelGetChannelList_MessageAnalysis(message, result);
    case 3804:
        return SystemConfig_NvrChannelAddChannel_MessageAnalysis(message, result);
    default:
        return unknownCode(kFamily, number);
    }
}

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SystemConfigMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    if (!buf || len < 1 || !code)
        return zel::emptyParamOf(__func__, code ? std::string_view(code) : std::string_view());
    return zel::composeCode<zel::SystemConfigMessageCompose>(zel::kFamily, record, kind, code, buf, len);
}

int SystemConfigMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseCode<zel::SystemConfigMessageAnalysis>(text, code, result);
}
