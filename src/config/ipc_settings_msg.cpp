#include "config/ipc_settings_msg.h"

#include "core/records.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto timeConfig = [](auto& side, auto& record) {
    containerWithAttributes(
        side, "TimeConfig",
        [&](auto& time) {
            attribute(time, "TimeMode", record.TimeMode);
            attribute(time, "TimeZone", record.TimeZone);
            attributeIfSet(time, "Time", record.Time);
        },
        [&](auto& time) {
            element(time, "NTPConfig", [&](auto& server) {
                attribute(server, "ServerIP", record.ServerIP);
                attribute(server, "ServerPort", record.ServerPort);
                attribute(server, "RefreshInterval", record.RefreshInterval);
            });
            element(time, "DST", [&](auto& daylight) {
                attribute(daylight, "Enable", record.Enable);
                attribute(daylight, "StartTime", record.StartTime);
                attribute(daylight, "EndTime", record.EndTime);
                attribute(daylight, "Delta", record.Delta);
            });
        });
};

constexpr auto accountAttributes = [](auto& side, auto& account) {
    attribute(side, "Username", account.Username);
    attribute(side, "Password", account.Password);
    attribute(side, "Group", account.Group);
    attribute(side, "Status", account.Status);
};

constexpr auto userConfig = [](auto& side, auto& record) {
    container(side, "UserConfig", [&](auto& users) {
        if constexpr (kWrites<decltype(users)>) {
            // Written with a blank behind the name.
            for (const auto& account : record.stAccount)
                if (isSet(account.Username))
                    element(users, "Account ", [&](auto& row) { accountAttributes(row, account); });
        } else {
            rowElements(users, "Account", record.stAccount, accountAttributes);
        }
    });
};

constexpr auto addressAttributes = [](auto& side, auto& lan) {
    attribute(side, "MacAddress", lan.MacAddress);
    attribute(side, "DHCP", lan.DHCP);
    attribute(side, "IPAddress", lan.IPAddress);
    attribute(side, "Netmask", lan.Netmask);
    attribute(side, "Gateway", lan.Gateway);
    attribute(side, "DNS1", lan.DNS1);
    attribute(side, "DNS2", lan.DNS2);
    attribute(side, "MTU", lan.MTU);
};

constexpr auto pptpAttributes = [](auto& side, auto& pptp) {
    attribute(side, "Enable", pptp.Enable);
    attribute(side, "Server", pptp.Server);
    attribute(side, "Username", pptp.Username);
    attribute(side, "Password", pptp.Password);
    attribute(side, "MTU", pptp.MTU);
    attribute(side, "MPPE", pptp.MPPE);
};

constexpr auto p2pConfig = [](auto& side, auto& record) {
    element(side, "P2PConfig", [&](auto& p2p) {
        attribute(p2p, "Enable", record.Enable);
        attribute(p2p, "SyncTime", record.SyncTime);
        attribute(p2p, "User", record.User);
        attribute(p2p, "Passwd", record.Passwd);
    });
};

constexpr auto p2pConfigIfSet = [](auto& side, auto& record) {
    element(side, "P2PConfig", [&](auto& p2p) {
        attributeIfSet(p2p, "Enable", record.Enable);
        attributeIfSet(p2p, "SyncTime", record.SyncTime);
        attributeIfSet(p2p, "User", record.User);
        attributeIfSet(p2p, "Passwd", record.Passwd);
    });
};

constexpr auto gb28181Attributes = [](auto& side, auto& gb28181) {
    attribute(side, "Enable", gb28181.Enable);
    attribute(side, "DevPort", gb28181.DevPort);
    attribute(side, "ServerID", gb28181.ServerID);
    attribute(side, "ServerName", gb28181.ServerName);
    attribute(side, "ServerIP", gb28181.ServerIP);
    attribute(side, "ServerPort", gb28181.ServerPort);
    attribute(side, "DevName", gb28181.DevName);
    attribute(side, "DevID", gb28181.DevID);
    attribute(side, "Passwd", gb28181.Passwd);
    attribute(side, "Expires", gb28181.Expires);
    attribute(side, "KeepAlive", gb28181.KeepAlive);
    attribute(side, "KeepAliveNum", gb28181.KeepAliveNum);
    attribute(side, "StreamIdx", gb28181.StreamIdx);
    attribute(side, "AlarmID", gb28181.AlarmID);
};

constexpr auto networkConfig = [](auto& side, auto& record) {
    container(side, "NetworkConfig", [&](auto& network) {
        element(network, "LANConfig", [&](auto& lan) {
            attribute(lan, "AllNetConnectEnable", record.AllNetConnectEnable);
            addressAttributes(lan, record.stLanConfig);
        });
        element(network, "WireConfig", [&](auto& wire) {
            attribute(wire, "AllNetConnectEnable", record.stWireConfig.AllNetConnectEnable);
            addressAttributes(wire, record.stWireConfig);
        });
        element(network, "PPTPConfig", [&](auto& pptp) { pptpAttributes(pptp, record.stPptpConfig); });
        p2pConfig(network, record.stP2pConfig);
        element(network, "GB28181",
                [&](auto& gb28181) { gb28181Attributes(gb28181, record.stGb28181Config); });
    });
};

constexpr auto lanConfig = [](auto& side, auto& record) {
    element(side, "LANConfig", [&](auto& lan) {
        attribute(lan, "AllNetConnectEnable", record.AllNetConnectEnable);
        // Without an address the message sets nothing but the line above; what is there is read all the same.
        if (!kWrites<decltype(lan)> || isSet(record.stLanConfig.IPAddress))
            addressAttributes(lan, record.stLanConfig);
    });
};

} // namespace

// --- Messages ------------------------------------------------------------------------------------

int SystemConfig_getIpcTimeset_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_202_PARAM& record,
                                              int kind)
{
    if (isResponse(kind))
        timeConfig(out, record);
    return 0;
}

int SystemConfig_getIpcTimeset_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "TimeConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_GET_202_PARAM_init, timeConfig);
}

int SystemConfig_setIpcTimeset_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_222_PARAM& record,
                                              int kind)
{
    if (isRequest(kind))
        timeConfig(out, record);
    return 0;
}

int SystemConfig_setIpcTimeset_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "TimeConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_SET_222_PARAM_init, timeConfig);
}

int SystemConfig_getIpcUserCfg_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_203_PARAM& record,
                                              int kind)
{
    if (isResponse(kind))
        userConfig(out, record);
    return 0;
}

int SystemConfig_getIpcUserCfg_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "UserConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_GET_203_PARAM_init, userConfig);
}

int SystemConfig_setIpcUserCfg_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_223_PARAM& record,
                                              int kind)
{
    if (isRequest(kind))
        userConfig(out, record);
    return 0;
}

int SystemConfig_setIpcUserCfg_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "UserConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_SET_223_PARAM_init, userConfig);
}

int SystemConfig_getIpcNetconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_300_PARAM& record,
                                                int kind)
{
    if (isResponse(kind))
        networkConfig(out, record);
    return 0;
}

int SystemConfig_getIpcNetconfig_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "NetworkConfig", "NetworkConfig",
                           SYSTEM_CONFIG_GET_300_PARAM_init, networkConfig);
}

int SystemConfig_getIpcP2Pconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_315_PARAM& record,
                                                int kind)
{
    if (isResponse(kind))
        p2pConfigIfSet(out, record);
    return 0;
}

int SystemConfig_getIpcP2Pconfig_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "P2PConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_GET_315_PARAM_init, p2pConfig);
}

int SystemConfig_setIpcP2Pconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_335_PARAM& record,
                                                int kind)
{
    if (isRequest(kind))
        p2pConfig(out, record);
    return 0;
}

int SystemConfig_setIpcP2Pconfig_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "P2PConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_SET_335_PARAM_init, p2pConfig);
}

int SystemConfig_setIpcLanconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_325_PARAM& record,
                                                int kind)
{
    if (isRequest(kind))
        lanConfig(out, record);
    return 0;
}

int SystemConfig_setIpcLanconfig_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "LANConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_SET_325_PARAM_init, lanConfig);
}

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_202_PARAM_init(SYSTEM_CONFIG_GET_202_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.TimeMode, record.TimeZone, record.Time, record.ServerIP, record.StartTime,
                   record.EndTime);
    });
}

int SYSTEM_CONFIG_GET_203_PARAM_init(SYSTEM_CONFIG_GET_203_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.stAccount); });
}

int SYSTEM_CONFIG_SET_222_PARAM_init(SYSTEM_CONFIG_SET_222_PARAM* param)
{
    return SYSTEM_CONFIG_GET_202_PARAM_init(param);
}

int SYSTEM_CONFIG_SET_223_PARAM_init(SYSTEM_CONFIG_SET_223_PARAM* param)
{
    return SYSTEM_CONFIG_GET_203_PARAM_init(param);
}

int SYSTEM_CONFIG_GET_300_PARAM_init(SYSTEM_CONFIG_GET_300_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        auto& p2p = record.stP2pConfig;
        auto& lan = record.stLanConfig;
        auto& wire = record.stWireConfig;
        auto& pptp = record.stPptpConfig;
        auto& gb28181 = record.stGb28181Config;
        zel::clear(p2p, lan, wire, pptp, gb28181);
        zel::setAbsent(p2p.Enable, p2p.SyncTime, lan.DHCP, lan.MTU, wire.AllNetConnectEnable, wire.DHCP,
                       wire.MTU, pptp.Enable, pptp.MTU, pptp.MPPE);
        zel::setAbsent(gb28181.Enable, gb28181.DevPort, gb28181.ServerPort, gb28181.Expires,
                       gb28181.KeepAlive, gb28181.KeepAliveNum, gb28181.StreamIdx);
    });
}

int SYSTEM_CONFIG_GET_305_PARAM_init(SYSTEM_CONFIG_GET_305_PARAM* param)
{
    return SYSTEM_CONFIG_SET_325_PARAM_init(param);
}

int SYSTEM_CONFIG_GET_315_PARAM_init(SYSTEM_CONFIG_GET_315_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.User, record.Passwd); });
}

int SYSTEM_CONFIG_SET_320_PARAM_init(SYSTEM_CONFIG_SET_320_PARAM* param)
{
    return SYSTEM_CONFIG_GET_300_PARAM_init(param);
}

int SYSTEM_CONFIG_SET_325_PARAM_init(SYSTEM_CONFIG_SET_325_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        auto& lan = record.stLanConfig;
        zel::clear(lan);
        zel::setAbsent(lan.DHCP, lan.MTU);
    });
}

int SYSTEM_CONFIG_SET_335_PARAM_init(SYSTEM_CONFIG_SET_335_PARAM* param)
{
    return SYSTEM_CONFIG_GET_315_PARAM_init(param);
}

int SystemConfig_getIpcTimeset_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_getIpcTimeset_MessageAnalysis>(text, result);
}

int SystemConfig_setIpcTimeset_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_setIpcTimeset_MessageAnalysis>(text, result);
}

int SystemConfig_getIpcUserCfg_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_getIpcUserCfg_MessageAnalysis>(text, result);
}

int SystemConfig_setIpcUserCfg_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_setIpcUserCfg_MessageAnalysis>(text, result);
}

int SystemConfig_getIpcNetconfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_getIpcNetconfig_MessageAnalysis>(text, result);
}

int SystemConfig_getIpcP2Pconfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_getIpcP2Pconfig_MessageAnalysis>(text, result);
}

int SystemConfig_setIpcP2Pconfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_setIpcP2Pconfig_MessageAnalysis>(text, result);
}

int SystemConfig_setIpcLanconfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_setIpcLanconfig_MessageAnalysis>(text, result);
}
