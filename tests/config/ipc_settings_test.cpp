#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

// What a request to change and an answer to a question have in common: one text, out and in.
template <class Record>
void expectBoth(const std::string& code, const Record& record, const std::string& text)
{
    const bool isSet = code == "222" || code == "223" || code == "325" || code == "335";
    expectBodies(kType, code, &record, isSet ? text : "", isSet ? "" : text);
    expectRead(kType, code, text, record);
}

TEST(IpcSettings, Time)
{
    auto time = fresh(SYSTEM_CONFIG_GET_202_PARAM_init);
    expectRead(kType, "222", "<TimeConfig/>", time);
    expectBoth(
        "202", time,
        "<TimeConfig|TimeMode=''|TimeZone=''|>|<NTPConfig|ServerIP=''|ServerPort='-1'|"
        "RefreshInterval='-1'|/>|<DST|Enable='-1'|StartTime=''|EndTime=''|Delta='-1'|/>|</TimeConfig>|");
    time.ServerPort = 1;
    time.RefreshInterval = 2;
    time.Enable = 3;
    time.Delta = 4;
    set(time.TimeMode, std::string(31, 'm'));
    set(time.TimeZone, "zone");
    set(time.Time, "time");
    set(time.ServerIP, "server");
    set(time.StartTime, "start");
    set(time.EndTime, "end");
    const std::string whole = "<TimeConfig|TimeMode='" + std::string(31, 'm') +
                              "'|TimeZone='zone'|Time='time'|>|"
                              "<NTPConfig|ServerIP='server'|ServerPort='1'|RefreshInterval='2'|/>|"
                              "<DST|Enable='3'|StartTime='start'|EndTime='end'|Delta='4'|/>|</TimeConfig>|";
    for (const char* code : {"202", "5007", "222"})
        expectBoth(code, time, whole);
    std::string longer = whole;
    expectRead(kType, "222", longer.insert(longer.find('m', 15), 9, 'm'), time);
}

TEST(IpcSettings, AccountsWithoutFreeRows)
{
    auto users = fresh(SYSTEM_CONFIG_GET_203_PARAM_init);
    expectBoth("203", users, "<UserConfig>|</UserConfig>|");
    users.stAccount[0] = {"u1", "p1", "g1", "s1"};
    users.stAccount[1] = {"", "lost", "lost", "lost"};
    users.stAccount[39] = {"u2", "p2", "g2", ""};
    set(users.stAccount[39].Status, "12345678"); // without a terminator
    const std::string text = "<UserConfig>|<Account |Username='u1'|Password='p1'|Group='g1'|Status='s1'|/>|"
                             "<Account |Username='u2'|Password='p2'|Group='g2'|Status='12345678'|/>|"
                             "</UserConfig>|";
    EXPECT_EQ(bodyOf(kType, "203", &users, 3), wire(text));
    EXPECT_EQ(bodyOf(kType, "223", &users, 0), wire(text));

    auto moved = fresh(SYSTEM_CONFIG_SET_223_PARAM_init);
    moved.stAccount[0] = users.stAccount[0];
    moved.stAccount[1] = {"u2", "p2", "g2", "1234567"};
    expectRead(kType, "223", text, moved);

    // More than there is room for is passed over.
    std::string rows = "<UserConfig><Other Username='o'/>";
    for (size_t i = 0; i <= 40; ++i) {
        rows += "<Account Status='on' Username='u" + std::to_string(i) + "'/>";
        if (i < 40) {
            users.stAccount[i] = {"", "", "", "on"};
            set(users.stAccount[i].Username, "u" + std::to_string(i));
        }
    }
    expectRead(kType, "203", rows + "</UserConfig>", users);
}

template <class Lan>
void setLan(Lan& lan, const std::string& mark, int32_t number)
{
    lan.DHCP = number;
    lan.MTU = number + 1;
    set(lan.MacAddress, "mac" + mark);
    set(lan.IPAddress, "ip" + mark);
    set(lan.Netmask, "mask" + mark);
    set(lan.Gateway, "gate" + mark);
    set(lan.DNS1, "dns" + mark);
    set(lan.DNS2, "second" + mark);
}

const std::string kLan =
    "<LANConfig|AllNetConnectEnable='1'|MacAddress='macA'|DHCP='2'|IPAddress='ipA'|Netmask='maskA'|"
    "Gateway='gateA'|DNS1='dnsA'|DNS2='secondA'|MTU='3'|/>|";

TEST(IpcSettings, Network)
{
    auto network = fresh(SYSTEM_CONFIG_SET_320_PARAM_init);
    expectRead(kType, "300", "<NetworkConfig/>", network);
    network.AllNetConnectEnable = 1;
    setLan(network.stLanConfig, "A", 2);
    expectRead(kType, "300", "<NetworkConfig><Other/>" + kLan + "</NetworkConfig>", network);
    network.stWireConfig.AllNetConnectEnable = 4;
    setLan(network.stWireConfig, "B", 5);
    network.stPptpConfig = {7, 8, 9, "pptp", "user", "pass"};
    network.stP2pConfig = {10, 11, "p2p", "pass2"};
    network.stGb28181Config = {12,    13,      14,    15,    16,      17,      18,
                               "sid", "sname", "sip", "did", "dname", "pass3", "alarm"};
    expectBoth("300", network,
               "<NetworkConfig>|" + kLan +
                   "<WireConfig|AllNetConnectEnable='4'|MacAddress='macB'|DHCP='5'|IPAddress='ipB'|"
                   "Netmask='maskB'|Gateway='gateB'|DNS1='dnsB'|DNS2='secondB'|MTU='6'|/>|<PPTPConfig|"
                   "Enable='7'|Server='pptp'|Username='user'|Password='pass'|MTU='8'|MPPE='9'|/>|"
                   "<P2PConfig|Enable='10'|SyncTime='11'|User='p2p'|Passwd='pass2'|/>|<GB28181|Enable='12'|"
                   "DevPort='13'|ServerID='sid'|ServerName='sname'|ServerIP='sip'|ServerPort='14'|"
                   "DevName='dname'|DevID='did'|Passwd='pass3'|Expires='15'|KeepAlive='16'|KeepAliveNum='17'|"
                   "StreamIdx='18'|AlarmID='alarm'|/>|</NetworkConfig>|");
}

TEST(IpcSettings, AddressOnlyWithAnAddress)
{
    auto lan = fresh(SYSTEM_CONFIG_SET_325_PARAM_init);
    expectBoth("325", lan, "<LANConfig|AllNetConnectEnable='-1'|/>|");
    lan.AllNetConnectEnable = 1;
    setLan(lan.stLanConfig, "A", 2);
    expectBoth("325", lan, kLan);
    set(lan.stLanConfig.IPAddress, "");
    EXPECT_EQ(bodyOf(kType, "325", &lan, 0), wire("<LANConfig|AllNetConnectEnable='1'|/>|"));
    std::string noAddress = kLan;
    expectRead(kType, "325", noAddress.replace(noAddress.find("IPAddress='ipA'"), 15, ""), lan);
}

TEST(IpcSettings, OnlyTheP2pGetLeavesOut)
{
    auto p2p = fresh(SYSTEM_CONFIG_SET_335_PARAM_init);
    expectBoth("315", p2p, "<P2PConfig|/>|");
    expectBoth("335", p2p, "<P2PConfig|Enable='-1'|SyncTime='-1'|User=''|Passwd=''|/>|");
    p2p = {0, 1, "user", "pass"};
    for (const char* code : {"315", "335"})
        expectBoth(code, p2p, "<P2PConfig|Enable='0'|SyncTime='1'|User='user'|Passwd='pass'|/>|");
}

} // namespace
