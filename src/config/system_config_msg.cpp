#include "zel_protocol/system_config.h"

#include "analytics/algorithm_msg.h"
#include "analytics/detection_msg.h"
#include "analytics/face_msg.h"
#include "analytics/intelligent_event_msg.h"
#include "analytics/scene_msg.h"
#include "analytics/smart_msg.h"
#include "channels/channel_change_msg.h"
#include "channels/channel_list_msg.h"
#include "channels/channel_switch_msg.h"
#include "config/alarm_config_msg.h"
#include "config/audio_config_msg.h"
#include "config/encode_config_msg.h"
#include "config/ipc_settings_msg.h"
#include "config/light_config_msg.h"
#include "config/media_config_msg.h"
#include "config/osd_config_msg.h"
#include "config/recorder_config_msg.h"
#include "config/video_config_msg.h"
#include "control/identity_msg.h"
#include "core/families.h"
#include "network/general_config_msg.h"
#include "network/network_config_msg.h"
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
    {501, &kGetMediaVideoconfig, nullptr, kGet},
    {502, &kGetMediaAudioconfig, nullptr, kGet},
    {520, &kSetMediaconfig, nullptr, kSet},
    {521, &kSetMediaVideoconfig, nullptr, kSet},
    {522, &kSetMediaAudioconfig, nullptr, kSet},
    {523, &kSetMediaVideoencode, nullptr, kSet},
    {524, &kSetMediaCapture, nullptr, kSet},
    {525, &kSetMediaVideoOsd, nullptr, kSet},
    {527, &kSetMediaAudioconfig, nullptr, kSet},
    {542, &kSetMediaDrop, nullptr, kSet},
    {802, &kGetMotiondetectAlarm, nullptr, kGet},
    {820, &kSetIpcAlarmConfig, nullptr, kSet},
    {822, &kSetMotiondetectAlarm, nullptr, kSet},
    {1020, &kGetSysAbality, nullptr, kGet},
    {1300, &kGetLightConfig, nullptr, kGet},
    {1301, &kSetLightConfig, nullptr, kSet},
#ifndef ZEL_WITHOUT_ANALYTICS
    {1402, &kGetIntelligentEvent, nullptr, kGet},
    {1403, &kSetIntelligentEvent, nullptr, kSet},
    {1404, &kGetLicensePlateEvent, nullptr, kGet},
    {1405, &kSetLicensePlateEvent, nullptr, kSet},
    {1406, &kGetLicensePlateImage, nullptr, kSet},
    {1407, &kGetHumanFaceEvent, nullptr, kGet},
    {1408, &kSetHumanFaceEvent, nullptr, kSet},
    {1409, &kGetHumanFaceImage, nullptr, kSet},
    {1410, &kGetHumanFaceAdvanced, nullptr, kGet},
    {1411, &kSetHumanFaceAdvanced, nullptr, kSet},
    {1412, &kGetVehicleFormIntelligent, nullptr, kGet},
    {1413, &kSetVehicleFormIntelligent, nullptr, kSet},
    {1414, &kSetVehicleDetection, nullptr, kSet},
    {1415, &kGetVehicleDetection, nullptr, kGet},
    {1416, &kSetHumanDetection, nullptr, kSet},
    {1417, &kGetHumanDetection, nullptr, kGet},
    {1418, &kGetHumanFaceV2, nullptr, kGet},
    {1419, &kSetHumanFaceV2, nullptr, kSet},
    {1420, &kGetHumanAlarmsceneAudio, nullptr, kGet},
    {1421, &kSetHumanAlarmsceneAudio, nullptr, kSet},
    {1422, &kGetHumanAlarmscene, nullptr, kGet},
    {1423, &kSetHumanAlarmscene, nullptr, kSet},
    {1424, &kGetHumanFaceCapacity, nullptr, kGet},
    {1425, &kFaceYuvImportResult, nullptr, kGet},
    {1426, &kGetAnimaldetecIntelligent, nullptr, kGet},
    {1427, &kSetAnimaldetecIntelligent, nullptr, kSet},
    {1428, &kGetAlgorithmicList, nullptr, kGet},
    {1429, &kGetAlgorithmicConfig, nullptr, kGet},
    {1430, &kSetAlgorithmicConfig, nullptr, kSet},
    {1492, &kGetLightAudioAlarmConfig, nullptr, kGet},
    {1493, &kSetLightAudioAlarmConfig, nullptr, kSet},
    {1494, &kGetHumanAlarmConfig, nullptr, kGet},
    {1495, &kSetHumanAlarmConfig, nullptr, kSet},
    {1496, &kGetHumanAlarmConfig, Erased<SYSTEM_CONFIG_GET_1496_PARAM_init>::call, kGet},
    {1497, &kSetHumanAlarmConfig, Erased<SYSTEM_CONFIG_SET_1497_PARAM_init>::call, kSet},
    {1498, &kGetSmartDetectionConfig, nullptr, kGet},
    {1499, &kSetSmartDetectionConfig, nullptr, kSet},
#endif
#ifndef ZEL_WITHOUT_NETWORK
    {2000, &kGetNetconfig, nullptr, kGet},
    {2005, &kGetNetLanconfig, nullptr, kGet},
    {2010, &kGetNetServerconfig, nullptr, kGet},
    {2015, &kGetNetGB28181Config, nullptr, kGet},
    {2020, &kSetNetconfig, nullptr, kSet},
    {2025, &kSetNetLanconfig, nullptr, kSet},
    {2030, &kSetNetServerconfig, nullptr, kSet},
    {2035, &kSetNetGB28181Config, nullptr, kSet},
    {2500, &kGetGeneralConfig, nullptr, kGet},
    {2505, &kGetTimeConfig, nullptr, kGet},
    {2510, &kGetUserConfig, nullptr, kGet},
    {2511, &kGetPushOfflineConfig, nullptr, kGet},
    {2515, &kGetCloudConfig, nullptr, kGet},
    {2520, &kSetGeneralConfig, nullptr, kSet},
    {2525, &kSetTimeConfig, nullptr, kSet},
    {2530, &kSetUserConfig, nullptr, kSet},
    {2531, &kSetPushOfflineConfig, nullptr, kSet},
    {2532, &kGetAllChannelInfo, nullptr, kGet},
    {2535, &kSetCloudConfig, nullptr, kSet},
#endif
    {2550, &kGetVideoOsdConfig, nullptr, kGet},
    {2555, &kSetVideoOsdConfig, nullptr, kSet},
    {2560, &kGetMediaVideoConfig, nullptr, kGet},
    {2561, &kGetMediaCapability, nullptr, kGet},
    {2565, &kSetMediaVideoConfig, nullptr, kSet},
    {3028, &kGetNvrSystemLog, nullptr, kGet},
    {3502, &kGetStrategyConfig, nullptr, kGet},
    {3503, &kSetStrategyConfig, nullptr, kSet},
    {3600, &kGetRecoedConfig, nullptr, kGet},
    {3601, &kSetRecoedConfig, nullptr, kSet},
#ifndef ZEL_WITHOUT_CHANNELS
    {3801, &kNvrChannelStartSearchipc, nullptr, kGet},
    {3802, nullptr, nullptr, kGet},
    {3803, &kNvrChannelGetChannelList, nullptr, kGet},
    {3804, &kNvrChannelAddChannel, nullptr, kSet},
    {3805, &kNvrChannelDelChannel, nullptr, kSet},
    {3806, &kNvrChannelSwitchChannel, nullptr, kSet},
    {3807, &kNvrChannelPicsSelect, nullptr, kSet},
    {3808, &kNvrChannelPicsPageChange, nullptr, kSet},
    {3809, &kNvrChannelModifyIpcIp, nullptr, kSet},
    {3810, &kNvrChannelBatchModifyIpcIp, nullptr, kSet},
    {3811, &kNvrChannelBatchDelIpc, nullptr, kSet},
    {3812, &kNvrChannelBatchModifyIpcIpV2, nullptr, kSet},
    {3813, &kNvrChannelGetAddMode, nullptr, kGet},
    {3814, &kNvrChannelSetAddMode, nullptr, kSet},
    {3820, &kNvrGetOffAllSmartChanges, nullptr, kGet},
    {3821, &kNvrSetOffAllSmartChanges, nullptr, kSet},
    {3822, &kNvrGetOffAllAlarm, nullptr, kGet},
    {3823, &kNvrSetOffAllAlarm, nullptr, kSet},
#endif
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
