#include "control/identity_msg.h"

#include "control/channel_state.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto versions = [](auto& side, auto& record) {
    attribute(side, "KernelVersion", record.KernelVersion);
    attribute(side, "FileSystemVersion", record.FileSystemVersion);
    attribute(side, "DeviceIdentify", record.DeviceIdentify);
    channelStateAttribute(side, record.ChannelId, record.bChannelIdEmpty);
    attributeIfSet(side, "FileSystemIdentify", record.FileSystemIdentify);
    attributeIfSet(side, "HardVersion", record.HardVersion);
};

constexpr auto systemInfo = [](auto& side, auto& info) {
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
};

constexpr auto serialNumber = [](auto& side, auto& record) {
    attribute(side, "SerialNumber", record.SerialNumber);
};

constexpr auto abilities = [](auto& side, auto& record) {
    attribute(side, "SystemConfigString", record.SystemConfigString);
};

constexpr auto remoteAuthority = [](auto& side, auto& record) {
    attribute(side, "RemotePreview", record.RemotePreview);
    attribute(side, "RemotePlayback", record.RemotePlayback);
    attribute(side, "PTZControl", record.PTZControl);
    attribute(side, "SystemSettings", record.SystemSettings);
    attribute(side, "RemoteUpgrade", record.RemoteUpgrade);
    attribute(side, "TalkingEnble", record.TalkingEnble);
    attribute(side, "ShutDownSystem", record.ShutDownSystem);
};

constexpr auto deviceType = [](auto& side, auto& record) {
    attribute(side, "IPC_Type", record.IPC_Type);
    attribute(side, "DevMType", record.DevMType);
    attribute(side, "DevType", record.DevType);
    attribute(side, "SdkType", record.SdkType);
    attribute(side, "Feature", record.Feature);
};

constexpr auto mediaAbilities = [](auto& side, auto& record) {
    elementClosedAtQuote(side, "VideoCap", [&](auto& video) {
        attribute(video, "CapList", record.VideoCapList);
        attributeIfSet(video, "CapListV2", record.VideoCapListV2);
    });
    elementClosedAtQuote(side, "AudioCap",
                         [&](auto& audio) { attribute(audio, "CapList", record.AudioCapList); });
    elementClosedAtQuote(side, "VideoBestParameter",
                         [&](auto& best) { attribute(best, "CapList", record.VideoBestParameterList); });
};

constexpr auto userData = [](auto& side, auto& record) {
    attribute(side, "UserDevData", record.UserDevData);
};

void composeSystemInfo(TextWriter& out, const SYSTEM_CONTROL_3000_PARAM& info)
{
    // A name with a blank behind it.
    element(out, "SystemInfo ", [&](TextWriter& side) { systemInfo(side, info); });
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

int SystemControl_GetIpcSysVersion_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1012_PARAM& record,
                                                  int kind)
{
    if (!isResponse(kind))
        return 0;
    if (isSet(record.bSystemInfo))
        composeSystemInfo(out, record.stSystemInfo);
    else
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { versions(side, record); });
    return 0;
}

// The request is a peer's: this side never writes one.
int SystemControl_GetIpcSysVersion_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__, true};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader response = body.child("RESPONSE_PARAM");
    const ElementReader request = body.child("REQUEST_PARAM");
    const ElementReader info = body.child("SystemInfo");
    if (!response && !request && !info)
        return missingElement(leaf, "RESPONSE_PARAM");
    return giveRecord(result, SYSTEM_CONTROL_1012_PARAM_init, [&](auto& record) {
        if (response)
            versions(response, record);
        else if (request)
            channelStateAttribute(request, record.ChannelId, record.bChannelIdEmpty);
        else
            systemInfo(info, record.stSystemInfo);
    });
}

int SystemControl_GetIpcSN_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1019_PARAM& record, int kind)
{
    if (isResponse(kind))
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { serialNumber(side, record); });
    return 0;
}

int SystemControl_GetIpcSN_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "RESPONSE_PARAM", SYSTEM_CONTROL_1019_PARAM_init,
                          serialNumber);
}

int SystemControl_GetSysAbality_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1020_PARAM& record,
                                               int kind)
{
    if (!isResponse(kind))
        return 0;
    element(out, "RESPONSE_PARAM", [&](TextWriter& side) { abilities(side, record); });
    if (record.bRemoteAuthority == 0)
        element(out, "REMOTE_AUTHORITY", [&](TextWriter& side) { remoteAuthority(side, record); });
    if (isSet(record.algorithmId)) {
        out.append("<AvailableAlId algorithmId=\"");
        appendText(out, record.algorithmId);
        out.append("\"/>\n");
    }
    if (isSet(record.vaSeviceId)) {
        out.append("<va_service vaSeviceId=\"");
        appendNumber(out, record.vaSeviceId);
        out.append("\" />\n");
    }
    return 0;
}

// Some devices answer with a bare text in place of all elements.
int SystemControl_GetSysAbality_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__, true};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader response = body.child("RESPONSE_PARAM");
    if (!response && !body.text())
        return missingElement(leaf, "RESPONSE_PARAM");
    return giveRecord(result, SYSTEM_CONTROL_1020_PARAM_init, [&](auto& record) {
        if (!response) {
            readOwnText(body, record.SystemConfigString, sizeof record.SystemConfigString);
            return;
        }
        abilities(response, record);
        element(body, "REMOTE_AUTHORITY", [&](auto& side) { remoteAuthority(side, record); });
        element(body, "AvailableAlId",
                [&](auto& side) { attribute(side, "algorithmId", record.algorithmId); });
        element(body, "va_service", [&](auto& side) { attribute(side, "vaSeviceId", record.vaSeviceId); });
    });
}

int SystemControl_GetDeviceType_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1030_PARAM& record,
                                               int kind)
{
    if (isResponse(kind))
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { deviceType(side, record); });
    return 0;
}

int SystemControl_GetDeviceType_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "RESPONSE_PARAM", SYSTEM_CONTROL_1030_PARAM_init,
                          deviceType);
}

int SystemControl_GetMediaAbality_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1031_PARAM& record,
                                                 int kind)
{
    if (isResponse(kind))
        container(out, "RESPONSE_PARAM", [&](TextWriter& side) { mediaAbilities(side, record); });
    return 0;
}

int SystemControl_GetMediaAbality_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "RESPONSE_PARAM", SYSTEM_CONTROL_1031_PARAM_init,
                          mediaAbilities);
}

int SystemControl_GetIpcKeyFrame_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1032_PARAM& record,
                                                int kind)
{
    if (!isRequest(kind))
        return 0;
    if (record.bSendIpc != 0 && record.bSendIpc != 1) {
        ZelProtocolLogInfo("%s unknow bSendIpc:%d\n", __func__, record.bSendIpc);
        return 0;
    }
    element(out, "REQUEST_PARAM", [&](TextWriter& side) {
        if (record.bSendIpc == 0) {
            attribute(side, "ChannelId", record.ChannelId);
            attribute(side, "StreamIndex", record.StreamIndex);
        } else {
            attribute(side, "Camera", record.ChannelId);
            attribute(side, "Stream", record.StreamIndex);
        }
    });
    return 0;
}

// The name of each number is found out by itself, and 0 is never set.
int SystemControl_GetIpcKeyFrame_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "REQUEST_PARAM", SYSTEM_CONTROL_1032_PARAM_init,
                          [](auto& side, auto& record) {
                              if (!readNumber(side, "ChannelId", record.ChannelId)) {
                                  attribute(side, "Camera", record.ChannelId);
                                  record.bSendIpc = 1;
                              }
                              if (!readNumber(side, "StreamIndex", record.StreamIndex)) {
                                  attribute(side, "Stream", record.StreamIndex);
                                  record.bSendIpc = 1;
                              }
                          });
}

int SystemControl_SetIpcUserdevdata_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1033_PARAM& record,
                                                   int kind)
{
    if (isRequest(kind))
        element(out, "REQUEST_PARAM", [&](TextWriter& side) { userData(side, record); });
    return 0;
}

int SystemControl_SetIpcUserdevdata_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "REQUEST_PARAM", SYSTEM_CONTROL_1033_PARAM_init,
                          userData);
}

int SystemControl_GetIpcUserdevdata_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1034_PARAM& record,
                                                   int kind)
{
    if (!isRequest(kind))
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { userData(side, record); });
    return 0;
}

int SystemControl_GetIpcUserdevdata_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "RESPONSE_PARAM", SYSTEM_CONTROL_1034_PARAM_init,
                          userData);
}

int SystemControl_GetNvrSystemConfig_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_3000_PARAM& record,
                                                    int kind)
{
    if (isResponse(kind))
        composeSystemInfo(out, record);
    return 0;
}

int SystemControl_GetNvrSystemConfig_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__, true}, "SystemInfo", SYSTEM_CONTROL_3000_PARAM_init,
                          systemInfo);
}

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

int SYSTEM_CONTROL_1034_PARAM_init(SYSTEM_CONTROL_1034_PARAM* param)
{
    return SYSTEM_CONTROL_1033_PARAM_init(param);
}

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
    return zel::finishBody(out, zel::SystemControl_GetSysAbality_MessageCompose(out, *record, kind));
}

int SystemControl_GetIpcSysVersion_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetIpcSysVersion_MessageAnalysis>(text, result);
}

int SystemControl_GetIpcSN_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetIpcSN_MessageAnalysis>(text, result);
}

int SystemControl_GetSysAbality_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetSysAbality_MessageAnalysis>(text, result);
}

int SystemControl_GetDeviceType_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetDeviceType_MessageAnalysis>(text, result);
}

int SystemControl_GetMediaAbality_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetMediaAbality_MessageAnalysis>(text, result);
}

int SystemControl_GetIpcKeyFrame_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetIpcKeyFrame_MessageAnalysis>(text, result);
}

int SystemControl_SetIpcUserdevdata_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_SetIpcUserdevdata_MessageAnalysis>(text, result);
}

int SystemControl_GetIpcUserdevdata_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetIpcUserdevdata_MessageAnalysis>(text, result);
}

int SystemControl_GetNvrSystemConfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemControl_GetNvrSystemConfig_MessageAnalysis>(text, result);
}
