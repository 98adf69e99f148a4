#include "config/ipc_settings_msg.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void timeConfig(Side& side, SYSTEM_CONFIG_GET_202_PARAM& record)
{
    if (const Element time = element(side, "TimeConfig", kBoth)) {
        attribute(side, "TimeMode", record.TimeMode);
        attribute(side, "TimeZone", record.TimeZone);
        attributeIfSet(side, "Time", record.Time);
        time.elements();
        if (const Element server = element(side, "NTPConfig")) {
            attribute(side, "ServerIP", record.ServerIP);
            attribute(side, "ServerPort", record.ServerPort);
            attribute(side, "RefreshInterval", record.RefreshInterval);
        }
        if (const Element daylight = element(side, "DST")) {
            attribute(side, "Enable", record.Enable);
            attribute(side, "StartTime", record.StartTime);
            attribute(side, "EndTime", record.EndTime);
            attribute(side, "Delta", record.Delta);
        }
    }
}

void accountAttributes(Side& side, SYSTEM_CONFIG_ACCOUNT_ROW& account)
{
    attribute(side, "Username", account.Username);
    attribute(side, "Password", account.Password);
    attribute(side, "Group", account.Group);
    attribute(side, "Status", account.Status);
}

bool isNamed(const SYSTEM_CONFIG_ACCOUNT_ROW& account)
{
    return isSet(account.Username);
}

void userConfig(Side& side, SYSTEM_CONFIG_GET_203_PARAM& record)
{
    if (const Element users = container(side, "UserConfig"))
        usedRowElements<accountAttributes, isNamed>(side, "Account", record.stAccount,
                                                    std::size(record.stAccount), kBlankBehindName);
}

template <class Lan>
void addressAttributes(Side& side, Lan& lan)
{
    attribute(side, "MacAddress", lan.MacAddress);
    attribute(side, "DHCP", lan.DHCP);
    attribute(side, "IPAddress", lan.IPAddress);
    attribute(side, "Netmask", lan.Netmask);
    attribute(side, "Gateway", lan.Gateway);
    attribute(side, "DNS1", lan.DNS1);
    attribute(side, "DNS2", lan.DNS2);
    attribute(side, "MTU", lan.MTU);
}

void pptpAttributes(Side& side, SYSTEM_CONFIG_PPTP_CONFIG& pptp)
{
    attribute(side, "Enable", pptp.Enable);
    attribute(side, "Server", pptp.Server);
    attribute(side, "Username", pptp.Username);
    attribute(side, "Password", pptp.Password);
    attribute(side, "MTU", pptp.MTU);
    attribute(side, "MPPE", pptp.MPPE);
}

void p2pConfig(Side& side, SYSTEM_CONFIG_GET_315_PARAM& record)
{
    if (const Element p2p = element(side, "P2PConfig")) {
        attribute(side, "Enable", record.Enable);
        attribute(side, "SyncTime", record.SyncTime);
        attribute(side, "User", record.User);
        attribute(side, "Passwd", record.Passwd);
    }
}

void p2pConfigIfSet(Side& side, SYSTEM_CONFIG_GET_315_PARAM& record)
{
    if (const Element p2p = element(side, "P2PConfig")) {
        attributeIfSet(side, "Enable", record.Enable);
        attributeIfSet(side, "SyncTime", record.SyncTime);
        attributeIfSet(side, "User", record.User);
        attributeIfSet(side, "Passwd", record.Passwd);
    }
}

void gb28181Attributes(Side& side, SYSTEM_CONFIG_GB28181_CONFIG& gb28181)
{
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
}

void networkConfig(Side& side, SYSTEM_CONFIG_GET_300_PARAM& record)
{
    if (const Element network = container(side, "NetworkConfig")) {
        if (const Element lan = element(side, "LANConfig")) {
            attribute(side, "AllNetConnectEnable", record.AllNetConnectEnable);
            addressAttributes(side, record.stLanConfig);
        }
        if (const Element wire = element(side, "WireConfig")) {
            attribute(side, "AllNetConnectEnable", record.stWireConfig.AllNetConnectEnable);
            addressAttributes(side, record.stWireConfig);
        }
        if (const Element pptp = element(side, "PPTPConfig")) {
            pptpAttributes(side, record.stPptpConfig);
        }
        p2pConfig(side, record.stP2pConfig);
        if (const Element gb28181 = element(side, "GB28181")) {
            gb28181Attributes(side, record.stGb28181Config);
        }
    }
}

void lanConfig(Side& side, SYSTEM_CONFIG_SET_325_PARAM& record)
{
    if (const Element lan = element(side, "LANConfig")) {
        attribute(side, "AllNetConnectEnable", record.AllNetConnectEnable);
        // Without an address the message sets nothing but the line above; what is there is read all the same.
        if (side.takes(isSet(record.stLanConfig.IPAddress)))
            addressAttributes(side, record.stLanConfig);
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetIpcTimeset =
    message<SYSTEM_CONFIG_GET_202_PARAM_init>("SystemConfig_getIpcTimeset_MessageAnalysis",
                                              over<timeConfig>("TimeConfig", Kinds::kResponses))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetIpcTimeset =
    message<SYSTEM_CONFIG_SET_222_PARAM_init>("SystemConfig_setIpcTimeset_MessageAnalysis",
                                              over<timeConfig>("TimeConfig", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kGetIpcUserCfg =
    message<SYSTEM_CONFIG_GET_203_PARAM_init>("SystemConfig_getIpcUserCfg_MessageAnalysis",
                                              over<userConfig>("UserConfig", Kinds::kResponses))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetIpcUserCfg =
    message<SYSTEM_CONFIG_SET_223_PARAM_init>("SystemConfig_setIpcUserCfg_MessageAnalysis",
                                              over<userConfig>("UserConfig", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kGetIpcNetconfig = message<SYSTEM_CONFIG_GET_300_PARAM_init>(
    "SystemConfig_getIpcNetconfig_MessageAnalysis", over<networkConfig>("NetworkConfig", Kinds::kResponses));
extern constexpr MessageRow kGetIpcP2Pconfig =
    message<SYSTEM_CONFIG_GET_315_PARAM_init>("SystemConfig_getIpcP2Pconfig_MessageAnalysis",
                                              over<p2pConfigIfSet>("P2PConfig", Kinds::kResponses))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetIpcLanconfig =
    message<SYSTEM_CONFIG_SET_325_PARAM_init>("SystemConfig_setIpcLanconfig_MessageAnalysis",
                                              over<lanConfig>("LANConfig", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetIpcP2Pconfig =
    message<SYSTEM_CONFIG_SET_335_PARAM_init>("SystemConfig_setIpcP2Pconfig_MessageAnalysis",
                                              over<p2pConfig>("P2PConfig", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");

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

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_222_PARAM, SYSTEM_CONFIG_GET_202_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_223_PARAM, SYSTEM_CONFIG_GET_203_PARAM)

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

ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_305_PARAM, SYSTEM_CONFIG_SET_325_PARAM)

int SYSTEM_CONFIG_GET_315_PARAM_init(SYSTEM_CONFIG_GET_315_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.User, record.Passwd); });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_320_PARAM, SYSTEM_CONFIG_GET_300_PARAM)

int SYSTEM_CONFIG_SET_325_PARAM_init(SYSTEM_CONFIG_SET_325_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        auto& lan = record.stLanConfig;
        zel::clear(lan);
        zel::setAbsent(lan.DHCP, lan.MTU);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_335_PARAM, SYSTEM_CONFIG_GET_315_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getIpcTimeset, kGetIpcTimeset)
ZEL_EXPORT_ANALYSIS(SystemConfig_setIpcTimeset, kSetIpcTimeset)
ZEL_EXPORT_ANALYSIS(SystemConfig_getIpcUserCfg, kGetIpcUserCfg)
ZEL_EXPORT_ANALYSIS(SystemConfig_setIpcUserCfg, kSetIpcUserCfg)
ZEL_EXPORT_ANALYSIS(SystemConfig_getIpcNetconfig, kGetIpcNetconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getIpcP2Pconfig, kGetIpcP2Pconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setIpcP2Pconfig, kSetIpcP2Pconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setIpcLanconfig, kSetIpcLanconfig)
