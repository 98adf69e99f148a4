#include "control/status_msg.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void refresh(Side& side, SYSTEM_CONTROL_1004_PARAM& record)
{
    attribute(side, "FileType", record.FileType);
}

void clockTime(Side& side, SYSTEM_CONTROL_1005_PARAM& record)
{
    attribute(side, "Time", record.Time);
    attribute(side, "TimeZone", record.TimeZone);
}

void channelAdding(Side& side, SYSTEM_CONTROL_1006_PARAM& record)
{
    attribute(side, "CrtlEnable", record.CrtlEnable);
    attribute(side, "ChnAddCfg", record.ChnAddCfg);
}

void wiredNetwork(Side& side, SYSTEM_CONTROL_1026_PARAM& record)
{
    attribute(side, "MacAddress", record.MacAddress);
    attribute(side, "IPType", record.IPType);
    attribute(side, "IPAddress", record.IPAddress);
    attribute(side, "Netmask", record.Netmask);
    attribute(side, "Gateway", record.Gateway);
    attribute(side, "Dns1", record.Dns1);
    attribute(side, "Dns2", record.Dns2);
    attribute(side, "MTU", record.MTU);
}

void wirelessNetwork(Side& side, SYSTEM_CONTROL_1026_PARAM& record)
{
    attribute(side, "MacAddress", record.WirelessMacAddress);
    attribute(side, "IPAddress", record.WirelessIPAddress);
    attribute(side, "Netmask", record.WirelessNetmask);
    attribute(side, "Gateway", record.WirelessGateway);
    attribute(side, "ESSID", record.ESSID);
    attribute(side, "OperationMode", record.OperationMode);
    attribute(side, "AccessPoint", record.AccessPoint);
    attribute(side, "Bitrate", record.Bitrate);
    attribute(side, "Frequency", record.Frequency);
    attribute(side, "EncrptType", record.EncrptType);
    attribute(side, "LinkQuality", record.LinkQuality);
    attribute(side, "SignalLevel", record.SignalLevel);
    attribute(side, "Noise", record.Noise);
}

void networkStatus(Side& side, SYSTEM_CONTROL_1026_PARAM& record)
{
    if (const Element wired = element(side, "WIRE_NETWORK"))
        wiredNetwork(side, record);
    if (const Element wireless = elementIf(isSet(record.WirelessIPAddress), side, "WIRELESS_NETWORK"))
        wirelessNetwork(side, record);
    if (const Element cloud = element(side, "CLOUD")) {
        attribute(side, "LoginStatus", record.LoginStatus);
        attribute(side, "ID", record.ID);
    }
    if (const Element code = element(side, "QRCODE_URL"))
        attribute(side, "Url", record.Url);
}

void infraredFilter(Side& side, SYSTEM_CONTROL_1046_PARAM& record)
{
    attribute(side, "Mode", record.Mode);
}

void timedRestart(Side& side, SYSTEM_CONTROL_3020_PARAM& record)
{
    attribute(side, "Enable", record.Enable);
    attribute(side, "Day", record.Day);
    attribute(side, "Time", record.Time);
}

void salesArea(Side& side, SYSTEM_CONTROL_3023_PARAM& record)
{
    attribute(side, "SalesArea", record.SalesArea);
}

void simpleCustom(Side& side, SYSTEM_CONTROL_3026_PARAM& record)
{
    attributeIfSet(side, "CtrlBuzzerEnable", record.CtrlBuzzerEnable);
    attributeIfSet(side, "Language", record.Language);
    attributeIfSet(side, "AsDefLanguage", record.AsDefLanguage);
    attributeIfSet(side, "LanguageNum", record.LanguageNum);
    attributeIfSet(side, "InProjectPwd", record.InProjectPwd);
}

void networkCheckRequest(Side& side, SYSTEM_CONTROL_3027_PARAM& record)
{
    attribute(side, "DiagnosticType", record.DiagnosticType);
    attribute(side, "TotalPackets", record.TotalPackets);
    attribute(side, "DomainName", record.DomainName);
    attribute(side, "ChannelId", record.ChannelId);
}

void networkCheckResponse(Side& side, SYSTEM_CONTROL_3027_PARAM& record)
{
    attribute(side, "Result", record.Result);
    attribute(side, "IPAddress", record.IPAddress);
    attribute(side, "SumPacket", record.SumPacket);
    attribute(side, "SkipPacket", record.SkipPacket);
    attribute(side, "SkipPacketRatio", record.SkipPacketRatio);
    attribute(side, "MinTime", record.MinTime);
    attribute(side, "AveTime", record.AveTime);
    attribute(side, "MaxTime", record.MaxTime);
}

void display(Side& side, SYSTEM_CONTROL_3300_PARAM& record)
{
    attribute(side, "Brightness", record.Brightness);
    attribute(side, "Contrast", record.Contrast);
    attribute(side, "Saturation", record.Saturation);
    attribute(side, "Chroma", record.Chroma);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kSetRefleshCHBKG =
    message<SYSTEM_CONTROL_1004_PARAM_init>("SystemControl_SetRefleshCHBKG_MessageAnalysis",
                                            request<refresh>())
        .quiet();
extern constexpr MessageRow kSetIpcTime =
    message<SYSTEM_CONTROL_1005_PARAM_init>("SystemControl_SetIpcTime_MessageAnalysis", request<clockTime>())
        .quiet();
extern constexpr MessageRow kSetNvrChannelAdd =
    message<SYSTEM_CONTROL_1006_PARAM_init>("SystemControl_SetNvrChannelAdd_MessageAnalysis",
                                            request<channelAdding>())
        .quiet();
extern constexpr MessageRow kGetNetStatus =
    message<SYSTEM_CONTROL_1026_PARAM_init>("SystemControl_GetNetStatus_MessageAnalysis",
                                            response<networkStatus>(Kinds::kNotRequests, kElements))
        .quiet();
extern constexpr MessageRow kSetIpcIrcut =
    message<SYSTEM_CONTROL_1046_PARAM_init>("SystemControl_SetIpcIrcut_MessageAnalysis",
                                            request<infraredFilter>())
        .quiet();
// The response, too, is called a request.
extern constexpr MessageRow kGetNvrTimedRestartConfig =
    message<SYSTEM_CONTROL_3020_PARAM_init>("SystemControl_GetNvrTimedRestartConfig_MessageAnalysis",
                                            request<timedRestart>(Kinds::kResponses, kBlankBehindName))
        .quiet();
extern constexpr MessageRow kSetNvrSalesarea =
    message<SYSTEM_CONTROL_3023_PARAM_init>("SystemControl_SetNvrSalesarea_MessageAnalysis",
                                            within<salesArea>("SalesArea", Kinds::kNotResponses))
        .quiet();
extern constexpr MessageRow kSetNvrTimedRestartConfig =
    message<SYSTEM_CONTROL_3025_PARAM_init>("SystemControl_SetNvrTimedRestartConfig_MessageAnalysis",
                                            request<timedRestart>(Kinds::kNotResponses, kBlankBehindName))
        .quiet();
extern constexpr MessageRow kSetNvrSimpleCustomConfig =
    message<SYSTEM_CONTROL_3026_PARAM_init>("SystemControl_SetNvrSimpleCustomConfig_MessageAnalysis",
                                            request<simpleCustom>(Kinds::kRequests, kBlankBehindName))
        .quiet();
// Unlike in most messages the request is looked for first.
extern constexpr MessageRow kSetNvrStartNetworkCheck =
    message<SYSTEM_CONTROL_3027_PARAM_init>(
        "SystemControl_SetNvrStartNetworkCheck_MessageAnalysis",
        request<networkCheckRequest>(Kinds::kNotResponses, kBlankBehindName),
        response<networkCheckResponse>(Kinds::kResponses, kBlankBehindName))
        .reporting("REQUEST_PARAM")
        .quiet();
extern constexpr MessageRow kGetNvrDisplayConfig =
    message<SYSTEM_CONTROL_3300_PARAM_init>(
        "SystemControl_GetNvrDisplayConfig_MessageAnalysis",
        within<display>("DisplayConfig", Kinds::kResponses, kBlankBehindName))
        .quiet();
extern constexpr MessageRow kSetNvrDisplayConfig =
    message<SYSTEM_CONTROL_3320_PARAM_init>(
        "SystemControl_SetNvrDisplayConfig_MessageAnalysis",
        within<display>("DisplayConfig", Kinds::kNotResponses, kBlankBehindName))
        .quiet();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONTROL_1004_PARAM_init(SYSTEM_CONTROL_1004_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONTROL_1005_PARAM_init(SYSTEM_CONTROL_1005_PARAM* param)
{
    return zel::startAtZero(param);
}

int SYSTEM_CONTROL_1006_PARAM_init(SYSTEM_CONTROL_1006_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONTROL_1026_PARAM_init(SYSTEM_CONTROL_1026_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record);
        zel::setAbsent(record.iReserved, record.iReserved1, record.iReserved2, record.MTU, record.iReserved3,
                       record.SignalLevel, record.Noise, record.LoginStatus, record.LinkQuality);
    });
}

int SYSTEM_CONTROL_1046_PARAM_init(SYSTEM_CONTROL_1046_PARAM* param)
{
    return zel::startAtZero(param);
}

int SYSTEM_CONTROL_3020_PARAM_init(SYSTEM_CONTROL_3020_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time); });
}

int SYSTEM_CONTROL_3023_PARAM_init(SYSTEM_CONTROL_3023_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONTROL_3025_PARAM, SYSTEM_CONTROL_3020_PARAM)

int SYSTEM_CONTROL_3026_PARAM_init(SYSTEM_CONTROL_3026_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.InProjectPwd); });
}

int SYSTEM_CONTROL_3027_PARAM_init(SYSTEM_CONTROL_3027_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        record.SkipPacketRatio = record.MinTime = record.AveTime = record.MaxTime = -1.0F;
        zel::clear(record.DomainName, record.IPAddress);
    });
}

int SYSTEM_CONTROL_3300_PARAM_init(SYSTEM_CONTROL_3300_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONTROL_3320_PARAM, SYSTEM_CONTROL_3300_PARAM)

ZEL_EXPORT_ANALYSIS(SystemControl_SetRefleshCHBKG, kSetRefleshCHBKG)
ZEL_EXPORT_ANALYSIS(SystemControl_SetIpcTime, kSetIpcTime)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrChannelAdd, kSetNvrChannelAdd)
ZEL_EXPORT_ANALYSIS(SystemControl_GetNetStatus, kGetNetStatus)
ZEL_EXPORT_ANALYSIS(SystemControl_SetIpcIrcut, kSetIpcIrcut)
ZEL_EXPORT_ANALYSIS(SystemControl_GetNvrTimedRestartConfig, kGetNvrTimedRestartConfig)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrSalesarea, kSetNvrSalesarea)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrTimedRestartConfig, kSetNvrTimedRestartConfig)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrSimpleCustomConfig, kSetNvrSimpleCustomConfig)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrStartNetworkCheck, kSetNvrStartNetworkCheck)
ZEL_EXPORT_ANALYSIS(SystemControl_GetNvrDisplayConfig, kGetNvrDisplayConfig)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrDisplayConfig, kSetNvrDisplayConfig)
