#include "network/network_config_msg.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void firstPort(Side& side, SYSTEM_CONFIG_GET_2000_PARAM& record)
{
    if (const Element lan = element(side, "LANConfig")) {
        attribute(side, "DHCP", record.DHCP);
        attribute(side, "IPAddress", record.IPAddress);
        attribute(side, "Netmask", record.Netmask);
        attribute(side, "Gateway", record.Gateway);
        attribute(side, "MacAddress", record.MacAddress);
        attribute(side, "DNS1", record.DNS1);
        attribute(side, "DNS2", record.DNS2);
        attribute(side, "Login", record.Login);
        attribute(side, "CloundID", record.CloundID);
        attribute(side, "MTU", record.MTU);
        attribute(side, "ConflictSelfAda", record.ConflictSelfAda);
    }
}

// A port without an address isn't written, but either of its elements is read by itself.
void secondPort(Side& side, SYSTEM_CONFIG_GET_2000_PARAM& record)
{
    const bool isThere = isSet(record.Lan1IPAddress);
    if (const Element mode = elementIf(isThere, side, "NetworkLanMode")) {
        attribute(side, "Mode", record.Mode);
        attribute(side, "DefaultGateWayIndex", record.DefaultGateWayIndex);
    }
    if (const Element lan = elementIf(isThere, side, "LAN1Config")) {
        attribute(side, "DHCP", record.Lan1DHCP);
        attribute(side, "IPAddress", record.Lan1IPAddress);
        attribute(side, "Netmask", record.Lan1Netmask);
        attribute(side, "Gateway", record.Lan1Gateway);
        attribute(side, "MacAddress", record.Lan1MacAddress);
        attribute(side, "ConflictSelfAda", record.Lan1ConflictSelfAda);
    }
}

void networkConfig(Side& side, SYSTEM_CONFIG_GET_2000_PARAM& record)
{
    if (const Element network = container(side, "NetworkConfig")) {
        firstPort(side, record);
        if (const Element server = element(side, "NetworkServerConfig"))
            attribute(side, "Enable", record.Enable);
        secondPort(side, record);
    }
}

void ports(Side& side, SYSTEM_CONFIG_GET_2005_PARAM& record)
{
    firstPort(side, record);
    secondPort(side, record);
}

void networkServer(Side& side, SYSTEM_CONFIG_GET_2010_PARAM& record)
{
    attribute(side, "Enable", record.Enable);
}

// --- Devices at the platform ---------------------------------------------------------------------

constexpr size_t kDevices = 64;

// The lowest hexadecimal digit of each report.
char* printReports(char* at, const void* items, size_t count)
{
    const auto* const devices = static_cast<const SYSTEM_CONFIG_SIP_DEVICE*>(items);
    for (size_t i = 0; i < count; ++i)
        *at++ = "0123456789abcdef"[devices[i].iReport & 0xF];
    return at;
}

// Nothing but a 1 is one, also behind the text's end.
void scanReports(std::string_view value, void* items, size_t count)
{
    auto* const devices = static_cast<SYSTEM_CONFIG_SIP_DEVICE*>(items);
    for (size_t i = 0; i < count; ++i)
        devices[i].iReport = i < value.size() && value[i] == '1' ? 1 : 0;
}

constexpr ValueForm kReports = {ZEL_FORM_OWN, 1, printReports, scanReports};

// An attribute for each of the devices that are counted, and one for all their reports.
void sipDevices(Side& side, Name beforeNumber, Name behindNumber, Name reports,
                SYSTEM_CONFIG_SIP_DEVICE (&devices)[kDevices], int32_t counted)
{
    const size_t count = countedRows(side, counted, devices);
    for (size_t i = 0; i < count; ++i)
        attribute(side, NumberedName(beforeNumber, i + 1, behindNumber), devices[i].SipDeviceID);
    if (side.takes(isSet(devices[0].iReport)))
        valueAttribute(side, reports, kReports, devices, sizeof devices, count);
}

void platformConfig(Side& side, SYSTEM_CONFIG_GET_2015_PARAM& record)
{
    if (const Element platform = element(side, "GB28181Config")) {
        attribute(side, "Enable", record.Enable);
        attributeIfSet(side, "ProtoCol", record.ProtoCol);
        attribute(side, "StreamType", record.StreamType);
        attributeIfSet(side, "DefaultLanIndex", record.DefaultLanIndex);
        attribute(side, "LocalPort", record.LocalPort);
        attribute(side, "SipServerID", record.SipServerID);
        attribute(side, "SipServerDomain", record.SipServerDomain);
        attribute(side, "SipServerIP", record.SipServerIP);
        attribute(side, "SipServerPort", record.SipServerPort);
        attribute(side, "SipUserID", record.SipUserID);
        attribute(side, "SipUserPassword", record.SipUserPassword);
        attribute(side, "SipRegExpires", record.SipRegExpires);
        attribute(side, "SipHeartBeatCycle", record.SipHeartBeatCycle);
        attribute(side, "SipHeartBeatTimeOutNum", record.SipHeartBeatTimeOutNum);
        sipDevices(side, "ch", "_SipDeviceID", "ch_SipDeviceReport", record.stChannel, record.iChannelNum);
    }
    if (const Element inputs = elementIf(isSet(record.AlarmInputIDNum), side, "AlarmInputID")) {
        attribute(side, "AlarmInputIDNum", record.AlarmInputIDNum);
        sipDevices(side, "AlarmIn_", "", "AlarmIn_SipDeviceReport", record.stAlarmIn, record.AlarmInputIDNum);
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetNetconfig = message<SYSTEM_CONFIG_GET_2000_PARAM_init>(
    "SystemConfig_getNetconfig_MessageAnalysis", over<networkConfig>("NetworkConfig", Kinds::kNotRequests));
extern constexpr MessageRow kSetNetconfig = message<SYSTEM_CONFIG_SET_2020_PARAM_init>(
    "SystemConfig_setNetconfig_MessageAnalysis", over<networkConfig>("NetworkConfig", Kinds::kRequests));
extern constexpr MessageRow kGetNetLanconfig = message<SYSTEM_CONFIG_GET_2005_PARAM_init>(
    "SystemConfig_getNetLanconfig_MessageAnalysis", over<ports>("LANConfig", Kinds::kNotRequests));
extern constexpr MessageRow kSetNetLanconfig = message<SYSTEM_CONFIG_SET_2025_PARAM_init>(
    "SystemConfig_setNetLanconfig_MessageAnalysis", over<ports>("LANConfig", Kinds::kRequests));
extern constexpr MessageRow kGetNetServerconfig = message<SYSTEM_CONFIG_GET_2010_PARAM_init>(
    "SystemConfig_getNetServerconfig_MessageAnalysis",
    within<networkServer>("NetworkServerConfig", Kinds::kNotRequests));
extern constexpr MessageRow kSetNetServerconfig = message<SYSTEM_CONFIG_SET_2030_PARAM_init>(
    "SystemConfig_setNetServerconfig_MessageAnalysis",
    within<networkServer>("NetworkServerConfig", Kinds::kRequests));
extern constexpr MessageRow kGetNetGB28181Config =
    message<SYSTEM_CONFIG_GET_2015_PARAM_init>("SystemConfig_getNetGB28181Config_MessageAnalysis",
                                               over<platformConfig>("GB28181Config", Kinds::kNotRequests));
extern constexpr MessageRow kSetNetGB28181Config =
    message<SYSTEM_CONFIG_SET_2035_PARAM_init>("SystemConfig_setNetGB28181Config_MessageAnalysis",
                                               over<platformConfig>("GB28181Config", Kinds::kRequests));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_2000_PARAM_init(SYSTEM_CONFIG_GET_2000_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.MacAddress, record.IPAddress, record.Netmask, record.Gateway, record.DNS1,
                   record.DNS2, record.CloundID, record.Lan1IPAddress, record.Lan1Netmask, record.Lan1Gateway,
                   record.Lan1MacAddress);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_2005_PARAM, SYSTEM_CONFIG_GET_2000_PARAM)

int SYSTEM_CONFIG_GET_2010_PARAM_init(SYSTEM_CONFIG_GET_2010_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_2015_PARAM_init(SYSTEM_CONFIG_GET_2015_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.SipServerPort, record.SipServerID, record.SipServerDomain, record.SipServerIP,
                   record.LocalPort, record.SipUserID, record.SipHeartBeatCycle,
                   record.SipHeartBeatTimeOutNum, record.SipRegExpires, record.SipUserPassword);
        for (auto* const devices : {&record.stChannel, &record.stAlarmIn})
            for (auto& device : *devices)
                zel::clear(device.SipDeviceID);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2020_PARAM, SYSTEM_CONFIG_GET_2000_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2025_PARAM, SYSTEM_CONFIG_GET_2000_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2030_PARAM, SYSTEM_CONFIG_GET_2010_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2035_PARAM, SYSTEM_CONFIG_GET_2015_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getNetconfig, kGetNetconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getNetLanconfig, kGetNetLanconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getNetServerconfig, kGetNetServerconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getNetGB28181Config, kGetNetGB28181Config)
ZEL_EXPORT_ANALYSIS(SystemConfig_setNetconfig, kSetNetconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setNetLanconfig, kSetNetLanconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setNetServerconfig, kSetNetServerconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setNetGB28181Config, kSetNetGB28181Config)
