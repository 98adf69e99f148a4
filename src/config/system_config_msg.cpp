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

// The type that a code belongs to; a message of the other type is understood all the same.
constexpr uint8_t kGet = 0;
constexpr uint8_t kSet = 1;

constexpr CodeRow kCodes[] = {
    {202, &kGetIpcTimeset, nullptr, kGet},
    {203, &kGetIpcUserCfg, nullptr, kGet},
    {222, &kSetIpcTimeset, nullptr, kSet},
    {223, &kSetIpcUserCfg, nullptr, kSet},
    {300, &kGetIpcNetconfig, nullptr, kGet},
    {315, &kGetIpcP2Pconfig, nullptr, kGet},
    {325, &kSetIpcLanconfig, nullptr, kSet},
    {335, &kSetIpcP2Pconfig, nullptr, kSet},
    {500, &kGetMediaconfig, nullptr, kGet},
    {520, &kSetMediaconfig, nullptr, kSet},
    {1020, &kGetSysAbality, nullptr, kGet},
    {1402, &kGetIntelligentEvent, nullptr, kGet},
    {1403, &kSetIntelligentEvent, nullptr, kSet},
    {3801, &kNvrChannelStartSearchipc, nullptr, kGet},
    {3802, nullptr, nullptr, kGet},
    {3803, &kNvrChannelGetChannelList, nullptr, kGet},
    {3804, &kNvrChannelAddChannel, nullptr, kSet},
    {5007, &kGetIpcTimeset, nullptr, kGet},
};
static_assert(isAscending(kCodes));

int emptyParamOf(const char* function, std::string_view code)
{
    if (!code.data())
        code = "(null)";
    ZelProtocolLogError("%s deal Msg_code:%.*s, put a empty Param\n", function, printedLength(code),
                        code.data());
    return ZEL_ERR_BAD_PARAM;
}

int analyseConfig(const Family& family, Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParamOf("SystemConfigMessageAnalysis", code);
    return analyseCode(family, message, code, result);
}

} // namespace

extern constexpr Family kSystemConfigFamily =
    Family("SYSTEM_CONFIG_GET_MESSAGE", kCodes, composeCode, analyseConfig)
        .alsoNamed("SYSTEM_CONFIG_SET_MESSAGE")
        .loggedAs("SYSTEM_CONFIG_MESSAGE", "SYSTEM_CONFIG_MESSAGE");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SystemConfigMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    if (!buf || len < 1 || !code)
        return zel::emptyParamOf(__func__, code ? std::string_view(code) : std::string_view());
    return zel::composeBody(zel::kSystemConfigFamily, record, kind, code, buf, len);
}

int SystemConfigMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kSystemConfigFamily, text, code, result);
}
