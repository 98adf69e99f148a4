#include "zel_protocol/system_control.h"

#include "control/identity_msg.h"
#include "core/families.h"

namespace zel {

namespace {

constexpr char kFamily[] = "SYSTEM_CONTROL_MESSAGE";

// These messages have neither a body nor a record.
bool isCodeAlone(int32_t code)
{
    switch (code) {
    case 828:
    case 1001:
    case 1002:
    case 1007:
    case 1025:
    case 1027:
    case 1096:
    case 1097:
    case 1100:
    case 3010:
    case 3021:
    case 3022:
    case 5010:
    case 5011:
        return true;
    default:
        return false;
    }
}

} // namespace

int SystemControlMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code)
{
    switch (const int32_t number = numberOf(code)) {
    case 1012:
        return SystemControl_GetIpcSysVersion_MessageCompose(out, as<SYSTEM_CONTROL_1012_PARAM>(record),
                                                             kind);
    case 1019:
        return SystemControl_GetIpcSN_MessageCompose(out, as<SYSTEM_CONTROL_1019_PARAM>(record), kind);
    case 1020:
        return SystemControl_GetSysAbality_MessageCompose(out, as<SYSTEM_CONTROL_1020_PARAM>(record), kind);
    case 1030:
        return SystemControl_GetDeviceType_MessageCompose(out, as<SYSTEM_CONTROL_1030_PARAM>(record), kind);
    case 1031:
        return SystemControl_GetMediaAbality_MessageCompose(out, as<SYSTEM_CONTROL_1031_PARAM>(record), kind);
    case 1032:
        return SystemControl_GetIpcKeyFrame_MessageCompose(out, as<SYSTEM_CONTROL_1032_PARAM>(record), kind);
    case 1033:
        return SystemControl_SetIpcUserdevdata_MessageCompose(out, as<SYSTEM_CONTROL_1033_PARAM>(record),
                                                              kind);
    case 1034:
        return SystemControl_GetIpcUserdevdata_MessageCompose(out, as<SYSTEM_CONTROL_1034_PARAM>(record),
                                                              kind);
    case 3000:
        return SystemControl_GetNvrSystemConfig_MessageCompose(out, as<SYSTEM_CONTROL_3000_PARAM>(record),
                                                               kind);
    default:
        return isCodeAlone(number) ? 0 : unknownCode(kFamily, number);
    }
}

int SystemControlMessageAnalysis(Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(kFamily);
    switch (const int32_t number = numberOf(code)) {
    case 1012:
        return SystemControl_GetIpcSysVersion_MessageAnalysis(message, result);
    case 1019:
        return SystemControl_GetIpcSN_MessageAnalysis(message, result);
    case 1020:
        return SystemControl_GetSysAbality_MessageAnalysis(message, result);
    case 1030:
        return SystemControl_GetDeviceType_MessageAnalysis(message, result);
    case 1031:
        return SystemControl_GetMediaAbality_MessageAnalysis(message, result);
    case 1032:
        return SystemControl_GetIpcKeyFrame_MessageAnalysis(message, result);
    case 1033:
        return SystemControl_SetIpcUserdevdata_MessageAnalysis(message, result);
    case 1034:
        return SystemControl_GetIpcUserdevdata_MessageAnalysis(message, result);
    case 3000:
        return SystemControl_GetNvrSystemConfig_MessageAnalysis(message, result);
    default:
        return isCodeAlone(number) ? 0 : unknownCode(kFamily, number);
    }
}

} // namespace zel

int SystemControlMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeCode<zel::SystemControlMessageCompose>(zel::kFamily, record, kind, code, buf, len);
}

int SystemControlMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseCode<zel::SystemControlMessageAnalysis>(text, code, result);
}
