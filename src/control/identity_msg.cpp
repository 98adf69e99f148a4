#include "control/identity_msg.h"

#include "control/channel_state.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void versions(Side& side, SYSTEM_CONTROL_1012_PARAM& record)
{
    attribute(side, "KernelVersion", record.KernelVersion);
    attribute(side, "FileSystemVersion", record.FileSystemVersion);
    attribute(side, "DeviceIdentify", record.DeviceIdentify);
    channelStateAttribute(side, record.ChannelId, record.bChannelIdEmpty);
    attributeIfSet(side, "FileSystemIdentify", record.FileSystemIdentify);
    attributeIfSet(side, "HardVersion", record.HardVersion);
}

void systemInfo(Side& side, SYSTEM_CONTROL_3000_PARAM& info)
{
    attribute(side, "ProductModel", info.ProductModel);
    attribute(side, "CloudID", info.CloudID);
    attribute(side, "ChannelNum", info.ChannelNum);
    attribute(side, "HdNum", info.HdNum);
    attribute(side, "AlarmIn", info.AlarmIn);
    attribute(side, "AlarmOut", info.AlarmOut);
    attribute(side, "SerialNumber", info.SerialNumber);
    attribute(side, "SoftwareVersion", info.SoftwareVersion);
    attribute(side, "HardwareVersion", info.HardwareVersion);
    attribute(side, "ReleaseTime", info.ReleaseTime);
    attribute(side, "TelnetPort", info.TelnetPort);
}

void versionsOfRecorder(Side& side, SYSTEM_CONTROL_1012_PARAM& record)
{
    systemInfo(side, record.stSystemInfo);
}

void versionsRequest(Side& side, SYSTEM_CONTROL_1012_PARAM& record)
{
    channelStateAttribute(side, record.ChannelId, record.bChannelIdEmpty);
}

void serialNumber(Side& side, SYSTEM_CONTROL_1019_PARAM& record)
{
    attribute(side, "SerialNumber", record.SerialNumber);
}

void remoteAuthority(Side& side, SYSTEM_CONTROL_1020_PARAM& record)
{
    attribute(side, "RemotePreview", record.RemotePreview);
    attribute(side, "RemotePlayback", record.RemotePlayback);
    attribute(side, "PTZControl", record.PTZControl);
    attribute(side, "SystemSettings", record.SystemSettings);
    attribute(side, "RemoteUpgrade", record.RemoteUpgrade);
    attribute(side, "TalkingEnble", record.TalkingEnble);
    attribute(side, "ShutDownSystem", record.ShutDownSystem);
}

void abilities(Side& side, SYSTEM_CONTROL_1020_PARAM& record)
{
    if (const Element response = element(side, "RESPONSE_PARAM"))
        attribute(side, "SystemConfigString", record.SystemConfigString);
    if (const Element authority = elementIf(record.bRemoteAuthority == 0, side, "REMOTE_AUTHORITY"))
        remoteAuthority(side, record);
    if (const Element algorithm = elementIf(isSet(record.algorithmId), side, "AvailableAlId", kOnLine))
        attribute(side, "algorithmId", record.algorithmId);
    if (const Element service =
            elementIf(isSet(record.vaSeviceId), side, "va_service", kOnLine | kBlankAtEnd))
        attribute(side, "vaSeviceId", record.vaSeviceId);
}

// Some devices answer with a bare text in place of all elements.
void bareAbilities(Side& side, SYSTEM_CONTROL_1020_PARAM& record)
{
    ownText(side, record.SystemConfigString, sizeof record.SystemConfigString);
}

void deviceType(Side& side, SYSTEM_CONTROL_1030_PARAM& record)
{
    attribute(side, "IPC_Type", record.IPC_Type);
    attribute(side, "DevMType", record.DevMType);
    attribute(side, "DevType", record.DevType);
    attribute(side, "SdkType", record.SdkType);
    attribute(side, "Feature", record.Feature);
}

void mediaAbilities(Side& side, SYSTEM_CONTROL_1031_PARAM& record)
{
    if (const Element video = element(side, "VideoCap", kAtQuote)) {
        attribute(side, "CapList", record.VideoCapList);
        attributeIfSet(side, "CapListV2", record.VideoCapListV2);
    }
    if (const Element audio = element(side, "AudioCap", kAtQuote)) {
        attribute(side, "CapList", record.AudioCapList);
    }
    if (const Element best = element(side, "VideoBestParameter", kAtQuote)) {
        attribute(side, "CapList", record.VideoBestParameterList);
    }
}

// The name of each number is found out by itself, and 0 is never set.
void keyFrame(Side& side, SYSTEM_CONTROL_1032_PARAM& record)
{
    if (side.writes()) {
        if (side.takes(record.bSendIpc == 0)) {
            attribute(side, "ChannelId", record.ChannelId);
            attribute(side, "StreamIndex", record.StreamIndex);
        }
        if (side.takes(record.bSendIpc == 1)) {
            attribute(side, "Camera", record.ChannelId);
            attribute(side, "Stream", record.StreamIndex);
        }
        return;
    }
    if (!readAttribute(side, "ChannelId", record.ChannelId)) {
        attribute(side, "Camera", record.ChannelId);
        record.bSendIpc = 1;
    }
    if (!readAttribute(side, "StreamIndex", record.StreamIndex)) {
        attribute(side, "Stream", record.StreamIndex);
        record.bSendIpc = 1;
    }
}

void userData(Side& side, SYSTEM_CONTROL_1033_PARAM& record)
{
    attribute(side, "UserDevData", record.UserDevData);
}

// --- Leaves --------------------------------------------------------------------------------------

int composeVersions(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<SYSTEM_CONTROL_1012_PARAM>(outbound.record);
    if (isResponse(outbound.kind))
        writePart(row.parts[isSet(record.bSystemInfo) ? 2 : 0], outbound);
    return 0;
}

int analyseAbilities(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    const bool hasElement = static_cast<bool>(body.child("RESPONSE_PARAM"));
    if (!hasElement && !body.text())
        return missingElement(row.leaf, "RESPONSE_PARAM");
    return givePart(row, row.parts[hasElement ? 0 : 1], message, body, result);
}

int composeKeyFrame(const MessageRow& row, Outbound& outbound)
{
    const int32_t names = as<SYSTEM_CONTROL_1032_PARAM>(outbound.record).bSendIpc;
    if (!isRequest(outbound.kind) || names == 0 || names == 1)
        return composeParts(row, outbound);
    ZelProtocolLogInfo("SystemControl_GetIpcKeyFrame_MessageCompose unknow bSendIpc:%d\n", names);
    return 0;
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

// The request is a peer's: this side never writes one.
extern constexpr MessageRow kGetIpcSysVersion =
    message<SYSTEM_CONTROL_1012_PARAM_init>(
        "SystemControl_GetIpcSysVersion_MessageAnalysis", response<versions>(),
        request<versionsRequest>(Kinds::kNone),
        within<versionsOfRecorder>("SystemInfo", Kinds::kResponses, kBlankBehindName))
        .quiet()
        .composedBy(composeVersions);
extern constexpr MessageRow kGetIpcSN =
    message<SYSTEM_CONTROL_1019_PARAM_init>("SystemControl_GetIpcSN_MessageAnalysis",
                                            response<serialNumber>())
        .quiet();
extern constexpr MessageRow kGetSysAbality =
    message<SYSTEM_CONTROL_1020_PARAM_init>("SystemControl_GetSysAbality_MessageAnalysis",
                                            over<abilities>("RESPONSE_PARAM", Kinds::kResponses),
                                            body<bareAbilities>(Kinds::kNone))
        .quiet()
        .analysedBy(analyseAbilities);
extern constexpr MessageRow kGetDeviceType =
    message<SYSTEM_CONTROL_1030_PARAM_init>("SystemControl_GetDeviceType_MessageAnalysis",
                                            response<deviceType>())
        .quiet();
extern constexpr MessageRow kGetMediaAbality =
    message<SYSTEM_CONTROL_1031_PARAM_init>("SystemControl_GetMediaAbality_MessageAnalysis",
                                            response<mediaAbilities>(Kinds::kResponses, kElements))
        .quiet();
extern constexpr MessageRow kGetIpcKeyFrame =
    message<SYSTEM_CONTROL_1032_PARAM_init>("SystemControl_GetIpcKeyFrame_MessageAnalysis",
                                            request<keyFrame>())
        .quiet()
        .composedBy(composeKeyFrame);
extern constexpr MessageRow kSetIpcUserdevdata =
    message<SYSTEM_CONTROL_1033_PARAM_init>("SystemControl_SetIpcUserdevdata_MessageAnalysis",
                                            request<userData>())
        .quiet();
extern constexpr MessageRow kGetIpcUserdevdata =
    message<SYSTEM_CONTROL_1034_PARAM_init>("SystemControl_GetIpcUserdevdata_MessageAnalysis",
                                            response<userData>(Kinds::kNotRequests))
        .quiet();
extern constexpr MessageRow kGetNvrSystemConfig =
    message<SYSTEM_CONTROL_3000_PARAM_init>(
        "SystemControl_GetNvrSystemConfig_MessageAnalysis",
        within<systemInfo>("SystemInfo", Kinds::kResponses, kBlankBehindName))
        .quiet();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONTROL_1012_PARAM_init(SYSTEM_CONTROL_1012_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.KernelVersion, record.FileSystemVersion, record.DeviceIdentify,
                   record.FileSystemIdentify, record.HardVersion);
        SYSTEM_CONTROL_3000_PARAM_init(&record.stSystemInfo);
    });
}

int SYSTEM_CONTROL_1019_PARAM_init(SYSTEM_CONTROL_1019_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record); });
}

int SYSTEM_CONTROL_1020_PARAM_init(SYSTEM_CONTROL_1020_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.SystemConfigString, record.RemotePreview, record.PTZControl, record.RemotePlayback,
                   record.algorithmId);
    });
}

int SYSTEM_CONTROL_1030_PARAM_init(SYSTEM_CONTROL_1030_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONTROL_1031_PARAM_init(SYSTEM_CONTROL_1031_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record); });
}

int SYSTEM_CONTROL_1032_PARAM_init(SYSTEM_CONTROL_1032_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONTROL_1033_PARAM_init(SYSTEM_CONTROL_1033_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record); });
}

ZEL_EXPORT_INIT(SYSTEM_CONTROL_1034_PARAM, SYSTEM_CONTROL_1033_PARAM)

int SYSTEM_CONTROL_3000_PARAM_init(SYSTEM_CONTROL_3000_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.ProductModel, record.TelnetPort, record.CloudID, record.SerialNumber,
                   record.SoftwareVersion, record.HardwareVersion, record.ReleaseTime);
    });
}

int SystemControl_GetSysAbality_MessageCompose(const SYSTEM_CONTROL_1020_PARAM* record, int kind, char* buf,
                                               int len)
{
    if (!record || !buf || len < 1) {
        ZelProtocolLogInfo("%s put a empty Param\n", __func__);
        return ZEL_ERR_BAD_PARAM;
    }
    zel::TextWriter out(buf, static_cast<size_t>(len) - 1);
    zel::Outbound outbound{out, record, kind, {}};
    return zel::finishBody(out, zel::compose(zel::kGetSysAbality, outbound));
}

ZEL_EXPORT_ANALYSIS(SystemControl_GetIpcSysVersion, kGetIpcSysVersion)
ZEL_EXPORT_ANALYSIS(SystemControl_GetIpcSN, kGetIpcSN)
ZEL_EXPORT_ANALYSIS(SystemControl_GetSysAbality, kGetSysAbality)
ZEL_EXPORT_ANALYSIS(SystemControl_GetDeviceType, kGetDeviceType)
ZEL_EXPORT_ANALYSIS(SystemControl_GetMediaAbality, kGetMediaAbality)
ZEL_EXPORT_ANALYSIS(SystemControl_GetIpcKeyFrame, kGetIpcKeyFrame)
ZEL_EXPORT_ANALYSIS(SystemControl_SetIpcUserdevdata, kSetIpcUserdevdata)
ZEL_EXPORT_ANALYSIS(SystemControl_GetIpcUserdevdata, kGetIpcUserdevdata)
ZEL_EXPORT_ANALYSIS(SystemControl_GetNvrSystemConfig, kGetNvrSystemConfig)
