#include "zel_protocol/searchipc.h"

#include <iterator>

#include "core/families.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "SYSTEM_SEARCHIPC_MESSAGE";

using DeviceInfo = SYSTEM_SEARCHIPC_DEVICE_INFO;
using LanConfig = SYSTEM_SEARCHIPC_LAN_CONFIG;
using StreamAccess = SYSTEM_SEARCHIPC_STREAM_ACCESS;
using SearchRequest = SYSTEM_SEARCHIPC_1_PARAM;
using SearchResponse = SYSTEM_SEARCHIPC_3_PARAM;
using SearchIotResponse = SYSTEM_SEARCHIPC_21_PARAM;

int unknownSearchCode(int32_t code)
{
    ZelProtocolLogError("%s deal a unknow msg_code:%d \n", kFamily, code);
    return ZEL_ERR_UNKNOWN_MSG;
}

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto deviceType = [](auto& side, auto& device) {
    attribute(side, "DeviceType", device.DeviceType);
    attributeIfSet(side, "SalesArea", device.SalesArea);
    attributeIfSet(side, "DeviceModule", device.DeviceModule);
    attributeIfSet(side, "BindMode", device.BindMode);
    attributeIfSet(side, "DevSubType", device.DevSubType);
    if (!kWrites<decltype(side)> || isSet(device.Feature))
        signedAttribute(side, "Feature", device.Feature);
};

constexpr auto serialNumber = [](auto& side, auto& device) {
    attribute(side, "SerialNumber", device.SerialNumber);
    attribute(side, "DevID", device.DevID);
};

constexpr auto lanAddresses = [](auto& side, auto& lan) {
    attribute(side, "MacAddress", lan.MacAddress);
    attribute(side, "DHCP", lan.DHCP);
    attribute(side, "IPAddress", lan.IPAddress);
    attribute(side, "Netmask", lan.Netmask);
    attribute(side, "Gateway", lan.Gateway);
};

constexpr auto lanAddressesAndNames = [](auto& side, auto& lan) {
    lanAddresses(side, lan);
    attribute(side, "DNS1", lan.DNS1);
    attribute(side, "DNS2", lan.DNS2);
};

constexpr auto lanConfig = [](auto& side, auto& record) {
    lanAddressesAndNames(side, record.stLan);
    attributeIfSet(side, "AllNetConnectEnable", record.AllNetConnectEnable);
    attributeIfSet(side, "IPAddressVirtual", record.IPAddressVirtual);
    attributeIfSet(side, "MTU", record.stLan.MTU);
    if constexpr (kWrites<decltype(side)>)
        attributeIfSet(side, "DEV", record.stLan.DEV);
};

constexpr auto accountAttributes = [](auto& side, auto& account) {
    attribute(side, "Group", account.Group);
    attribute(side, "Status", account.Status);
    if (!kWrites<decltype(side)> || isSet(account.Username)) {
        attribute(side, "Username", account.Username);
        attribute(side, "Password", account.Password);
    }
};

constexpr auto streamAccess = [](auto& side, auto& stream) {
    attribute(side, "Auth", stream.Auth);
    attribute(side, "VideoPort", stream.VideoPort);
    attribute(side, "RTPOverRTSP", stream.RTPOverRTSP);
    attribute(side, "PTZPort", stream.PTZPort);
    attribute(side, "WEBPort", stream.WEBPort);
    attributeIfSet(side, "RTSPClientNumber", stream.RTSPClientNumber);
    attributeIfSet(side, "RTPPacketSize", stream.RTPPacketSize);
};

// Two attributes are read under other names than they are written under.
constexpr auto iotInfo = [](auto& side, auto& record) {
    attributeWritten(side, "DeviceType", record.DeviceType);
    attributeRead(side, "DevType", record.DeviceType);
    attributeIfSet(side, "DeviceModule", record.DeviceModule);
    attributeIfSet(side, "BindStatus", record.BindStatus);
    if constexpr (kWrites<decltype(side)>)
        attributeIfSet(side, "DevSubType", record.DevSubType);
    else
        attribute(side, "BindNetType", record.DevSubType);
    attributeIfSet(side, "RegStatus", record.RegStatus);
};

// --- Elements ------------------------------------------------------------------------------------

// The one element that stands on a single line.
template <size_t N>
void vendorParam(TextWriter& out, const char (&vendorId)[N])
{
    if (!isSet(vendorId))
        return;
    out.append("<VENDOR_PARAM ");
    attribute(out, "VendorId", vendorId);
    out.takeBack();
    closeElement(out);
}
template <size_t N>
void vendorParam(const ElementReader& body, char (&vendorId)[N])
{
    element(body, "VENDOR_PARAM", [&](auto& side) { attribute(side, "VendorId", vendorId); });
}

void userConfig(TextWriter& out, const SearchResponse& record)
{
    if (!isSet(record.iAccountNum))
        return;
    container(out, "UserConfig", [&](TextWriter& users) {
        const size_t count = clampCount(record.iAccountNum, std::size(record.stAccounts));
        for (size_t i = 0; i < count; ++i)
            element(users, "Account",
                    [&](TextWriter& side) { accountAttributes(side, record.stAccounts[i]); });
    });
}
void userConfig(const ElementReader& body, SearchResponse& record)
{
    container(body, "UserConfig", [&](auto& users) {
        record.iAccountNum =
            static_cast<int32_t>(readRows(users, "Account", record.stAccounts, accountAttributes));
    });
}

void mediaStreamConfig(TextWriter& out, const StreamAccess& stream)
{
    if (!isSet(stream.Auth))
        return;
    container(out, "MediaStreamConfig", [&](TextWriter& side) {
        side.append("<StreamAccess\r\n"); // the only line that ends so
        streamAccess(side, stream);
        closeElement(side);
    });
}
void mediaStreamConfig(const ElementReader& body, StreamAccess& stream)
{
    container(body, "MediaStreamConfig", [&](auto& media) {
        element(media, "StreamAccess", [&](auto& side) { streamAccess(side, stream); });
    });
}

void connectionCount(TextWriter& out, const DeviceInfo& device)
{
    if (!isSet(device.iConnectionCountValid))
        return;
    element(out, "ConnectionCount", [&](TextWriter& side) {
        side.append("Count=\"");
        for (const int16_t count : device.Count) {
            appendNumber(side, count);
            side.append(",");
        }
        side.append("\"\n");
    });
}
// Only a number with a comma behind it counts.
void connectionCount(const ElementReader& body, DeviceInfo& device)
{
    element(body, "ConnectionCount", [&](auto& side) {
        device.iConnectionCountValid = 1;
        char text[1024] = "";
        attribute(side, "Count", text);
        std::string_view rest = text;
        for (int16_t& count : device.Count) {
            const size_t comma = rest.find(',');
            if (comma == std::string_view::npos)
                return;
            count = static_cast<int16_t>(numberOf(rest.substr(0, comma)));
            rest.remove_prefix(comma + 1);
        }
    });
}

// --- Bodies, for both directions -----------------------------------------------------------------

constexpr auto searchRequest = [](auto& side, auto& record) { vendorParam(side, record.VendorId); };

constexpr auto searchResponse = [](auto& side, auto& record) {
    auto& device = record.stDevice;
    vendorParam(side, record.VendorId);
    element(side, "DEVICE_TYPE", [&](auto& type) { deviceType(type, device); });
    element(side, "IPC_SERIALNUMBER", [&](auto& serial) { serialNumber(serial, device); });
    element(side, "LANConfig", [&](auto& lan) { lanConfig(lan, record); });
    elementIf(isSet(record.stLan1.IPAddress), side, "LAN1Config",
              [&](auto& lan) { lanAddresses(lan, record.stLan1); });
    userConfig(side, record);
    mediaStreamConfig(side, record.stStream);
    elementIf(isSet(device.OsdStr), side, "OSD", [&](auto& osd) { attribute(osd, "OsdStr", device.OsdStr); });
    elementIf(isSet(device.FileSystemVersion), side, "VERSION",
              [&](auto& version) { attribute(version, "FileSystemVersion", device.FileSystemVersion); });
    elementIf(isSet(device.Name), side, "Manufacturer",
              [&](auto& manufacturer) { attribute(manufacturer, "Name", device.Name); });
    connectionCount(side, device);
};

constexpr auto searchIotResponse = [](auto& side, auto& record) {
    element(side, "IOTInfo", [&](auto& info) { iotInfo(info, record); });
    element(side, "IPC_SERIALNUMBER", [&](auto& serial) { serialNumber(serial, record.stDevice); });
    element(side, "LANConfig", [&](auto& lan) {
        lanAddressesAndNames(lan, record.stLan);
        attribute(lan, "MTU", record.stLan.MTU);
    });
};

// --- Messages ------------------------------------------------------------------------------------

int SystemSearchipc_SearchRequest_MessageCompose(TextWriter& out, const SearchRequest& record, int)
{
    searchRequest(out, record);
    return 0;
}

int SystemSearchipc_SearchRequest_MessageAnalysis(Message& message, void** result)
{
    return analyseBody(message, result, {__func__}, SYSTEM_SEARCHIPC_1_PARAM_init, searchRequest);
}

int SystemSearchipc_SearchResponse_MessageCompose(TextWriter& out, const SearchResponse& record, int)
{
    searchResponse(out, record);
    return 0;
}

int SystemSearchipc_SearchResponse_MessageAnalysis(Message& message, void** result)
{
    return analyseBody(message, result, {__func__}, SYSTEM_SEARCHIPC_3_PARAM_init, searchResponse);
}

int SystemSearchipc_SearchIotResponse_MessageCompose(TextWriter& out, const SearchIotResponse& record, int)
{
    searchIotResponse(out, record);
    return 0;
}

int SystemSearchipc_SearchIotResponse_MessageAnalysis(Message& message, void** result)
{
    return analyseBody(message, result, {__func__}, SYSTEM_SEARCHIPC_21_PARAM_init, searchIotResponse);
}

// --- Absent values -------------------------------------------------------------------------------

void clearTexts(DeviceInfo& device)
{
    clear(device.SerialNumber, device.DeviceType, device.DeviceModule, device.DevID, device.OsdStr,
          device.FileSystemVersion, device.Name, device.Count, device.SalesArea);
}

void clearTexts(LanConfig& lan)
{
    clear(lan.MacAddress, lan.IPAddress, lan.Netmask, lan.Gateway, lan.DNS1, lan.DNS2, lan.DEV);
}

} // namespace

// --- Dispatch ------------------------------------------------------------------------------------

int SystemSearchipcMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code)
{
    switch (const int32_t number = numberOf(code)) {
    case 1:
        return SystemSearchipc_SearchRequest_MessageCompose(out, as<SearchRequest>(record), kind);
    case 3:
        return SystemSearchipc_SearchResponse_MessageCompose(out, as<SearchResponse>(record), kind);
    case 9:
    case 10:
    case 11:
    case 20:
        return 0;
    case 21:
        return SystemSearchipc_SearchIotResponse_MessageCompose(out, as<SearchIotResponse>(record), kind);
    default:
        return unknownSearchCode(number);
    }
}

int SystemSearchipcMessageAnalysis(Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(kFamily);
    switch (const int32_t number = numberOf(code)) {
    case 1:
        return SystemSearchipc_SearchRequest_MessageAnalysis(message, result);
    case 3:
        return SystemSearchipc_SearchResponse_MessageAnalysis(message, result);
    case 9:
    case 10:
    case 11:
    case 20:
        return 0;
    case 21:
        return SystemSearchipc_SearchIotResponse_MessageAnalysis(message, result);
    default:
        return unknownSearchCode(number);
    }
}

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_SEARCHIPC_1_PARAM_init(SYSTEM_SEARCHIPC_1_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.VendorId); });
}

int SYSTEM_SEARCHIPC_3_PARAM_init(SYSTEM_SEARCHIPC_3_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.VendorId, record.IPAddressVirtual, record.stAccounts);
        zel::clearTexts(record.stDevice);
        zel::clearTexts(record.stLan);
        zel::clearTexts(record.stLan1);
    });
}

int SYSTEM_SEARCHIPC_21_PARAM_init(SYSTEM_SEARCHIPC_21_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.DeviceModule);
        zel::clearTexts(record.stDevice);
        zel::clearTexts(record.stLan);
    });
}

int SystemSearchipcMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeCode<zel::SystemSearchipcMessageCompose>(zel::kFamily, record, kind, code, buf, len);
}

int SystemSearchipcMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseCode<zel::SystemSearchipcMessageAnalysis>(text, code, result);
}

int SystemSearchipc_SearchRequest_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemSearchipc_SearchRequest_MessageAnalysis>(text, result);
}

int SystemSearchipc_SearchResponse_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemSearchipc_SearchResponse_MessageAnalysis>(text, result);
}

int SystemSearchipc_SearchIotResponse_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemSearchipc_SearchIotResponse_MessageAnalysis>(text, result);
}
