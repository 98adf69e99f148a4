#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

template <class Record>
Record fresh(int (*init)(Record*))
{
    Record record;
    init(&record);
    return record;
}

template <class Record>
std::string body(const std::string& code, const Record& record, int kind)
{
    const std::string text = compose(headerOf(kType, code), &record, kind).text;
    const size_t start = text.find("<MESSAGE_BODY>\n") + sizeof("<MESSAGE_BODY>\n") - 1;
    return text.substr(start, text.find("</MESSAGE_BODY>") - start);
}

template <class Record>
bool readsAs(const std::string& code, const std::string& body, const Record& expected)
{
    const Analysed analysed = analyse(envelope(kType, code, body));
    return analysed.result == 0 && memcmp(analysed.record.get(), &expected, sizeof expected) == 0;
}

// --- Time ----------------------------------------------------------------------------------------

TEST(IpcTime, Written)
{
    auto time = fresh(SYSTEM_CONFIG_GET_202_PARAM_init);
    EXPECT_EQ(body("202", time, 1),
              "<TimeConfig\nTimeMode=\"\"\nTimeZone=\"\"\n>\n"
              "<NTPConfig\nServerIP=\"\"\nServerPort=\"-1\"\nRefreshInterval=\"-1\"\n/>\n"
              "<DST\nEnable=\"-1\"\nStartTime=\"\"\nEndTime=\"\"\nDelta=\"-1\"\n/>\n"
              "</TimeConfig>\n\n");
    set(time.TimeMode, "mode");
    set(time.TimeZone, "zone");
    set(time.Time, "time");
    set(time.ServerIP, "server");
    time.ServerPort = 1;
    time.RefreshInterval = 2;
    time.Enable = 3;
    time.Delta = 4;
    set(time.StartTime, "start");
    set(time.EndTime, "end");
    const std::string whole = "<TimeConfig\nTimeMode=\"mode\"\nTimeZone=\"zone\"\nTime=\"time\"\n>\n"
                              "<NTPConfig\nServerIP=\"server\"\nServerPort=\"1\"\nRefreshInterval=\"2\"\n/>\n"
                              "<DST\nEnable=\"3\"\nStartTime=\"start\"\nEndTime=\"end\"\nDelta=\"4\"\n/>\n"
                              "</TimeConfig>\n\n";
    EXPECT_EQ(body("5007", time, 3), whole);
    EXPECT_EQ(body("222", time, 2), whole);
    for (const char* code : {"202", "5007", "222"})
        EXPECT_TRUE(
            readsAs(code,
                    "<TimeConfig Time=\"time\" TimeZone=\"zone\" TimeMode=\"mode\">"
                    "<DST Delta=\"4\" EndTime=\"end\" StartTime=\"start\" Enable=\"3\"/>"
                    "<NTPConfig RefreshInterval=\"2\" ServerPort=\"1\" ServerIP=\"server\"/></TimeConfig>",
                    time));
}

TEST(IpcTime, ChildrenAreOptional)
{
    auto time = fresh(SYSTEM_CONFIG_SET_222_PARAM_init);
    EXPECT_TRUE(readsAs("222", "<TimeConfig/>", time));
    set(time.TimeMode, std::string(31, 'm'));
    time.Delta = 60;
    EXPECT_TRUE(readsAs(
        "222", "<TimeConfig TimeMode=\"" + std::string(40, 'm') + "\"><DST Delta=\"60\"/></TimeConfig>",
        time));
}

// --- Accounts ------------------------------------------------------------------------------------

TEST(IpcAccounts, FreeRowsAreLeftOut)
{
    auto users = fresh(SYSTEM_CONFIG_GET_203_PARAM_init);
    EXPECT_EQ(body("203", users, 1), "<UserConfig>\n</UserConfig>\n\n");
    EXPECT_TRUE(readsAs("203", "<UserConfig>\n</UserConfig>\n", users));
    users.stAccount[0] = {"u1", "p1", "g1", "s1"};
    users.stAccount[1] = {"", "lost", "lost", "lost"};
    users.stAccount[39] = {"u2", "p2", "g2", ""};
    set(users.stAccount[39].Status, "12345678"); // without a terminator
    const std::string text =
        "<UserConfig>\n<Account \nUsername=\"u1\"\nPassword=\"p1\"\nGroup=\"g1\"\nStatus=\"s1\"\n/>\n"
        "<Account "
        "\nUsername=\"u2\"\nPassword=\"p2\"\nGroup=\"g2\"\nStatus=\"12345678\"\n/>\n</UserConfig>\n\n";
    EXPECT_EQ(body("203", users, 3), text);
    EXPECT_EQ(body("223", users, 0), text);

    auto moved = fresh(SYSTEM_CONFIG_SET_223_PARAM_init);
    moved.stAccount[0] = users.stAccount[0];
    moved.stAccount[1] = {"u2", "p2", "g2", "1234567"};
    EXPECT_TRUE(readsAs("223", text, moved));
}

TEST(IpcAccounts, SurplusIsPassedOver)
{
    auto users = fresh(SYSTEM_CONFIG_GET_203_PARAM_init);
    std::string text = "<UserConfig><Other Username=\"o\"/>";
    for (size_t i = 0; i <= 40; ++i) {
        text += "<Account Status=\"on\" Username=\"u" + std::to_string(i) + "\"/>";
        if (i < 40) {
            set(users.stAccount[i].Username, "u" + std::to_string(i));
            set(users.stAccount[i].Status, "on");
        }
    }
    EXPECT_TRUE(readsAs("203", text + "</UserConfig>", users));
}

// --- Network -------------------------------------------------------------------------------------

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

const char kLan[] =
    "<LANConfig\nAllNetConnectEnable=\"1\"\nMacAddress=\"macA\"\nDHCP=\"2\"\nIPAddress=\"ipA\"\n"
    "Netmask=\"maskA\"\nGateway=\"gateA\"\nDNS1=\"dnsA\"\nDNS2=\"secondA\"\nMTU=\"3\"\n/>\n";
const char kShuffledLan[] =
    "<LANConfig MTU=\"3\" DNS2=\"secondA\" DNS1=\"dnsA\" Gateway=\"gateA\" Netmask=\"maskA\" "
    "IPAddress=\"ipA\" DHCP=\"2\" MacAddress=\"macA\" AllNetConnectEnable=\"1\"/>";

TEST(IpcNetwork, Whole)
{
    auto network = fresh(SYSTEM_CONFIG_GET_300_PARAM_init);
    network.AllNetConnectEnable = 1;
    setLan(network.stLanConfig, "A", 2);
    network.stWireConfig.AllNetConnectEnable = 4;
    setLan(network.stWireConfig, "B", 5);
    network.stPptpConfig = {7, 8, 9, "pptp", "user", "pass"};
    network.stP2pConfig = {10, 11, "p2p", "pass2"};
    network.stGb28181Config = {12,    13,      14,    15,    16,      17,      18,
                               "sid", "sname", "sip", "did", "dname", "pass3", "alarm"};
    const std::string text =
        std::string("<NetworkConfig>\n") + kLan +
        "<WireConfig\nAllNetConnectEnable=\"4\"\nMacAddress=\"macB\"\nDHCP=\"5\"\nIPAddress=\"ipB\"\n"
        "Netmask=\"maskB\"\nGateway=\"gateB\"\nDNS1=\"dnsB\"\nDNS2=\"secondB\"\nMTU=\"6\"\n/>\n"
        "<PPTPConfig\nEnable=\"7\"\nServer=\"pptp\"\nUsername=\"user\"\nPassword=\"pass\"\nMTU=\"8\"\nMPPE="
        "\"9\"\n/>\n"
        "<P2PConfig\nEnable=\"10\"\nSyncTime=\"11\"\nUser=\"p2p\"\nPasswd=\"pass2\"\n/>\n"
        "<GB28181\nEnable=\"12\"\nDevPort=\"13\"\nServerID=\"sid\"\nServerName=\"sname\"\nServerIP=\"sip\"\n"
        "ServerPort=\"14\"\nDevName=\"dname\"\nDevID=\"did\"\nPasswd=\"pass3\"\nExpires=\"15\"\nKeepAlive="
        "\"16\"\n"
        "KeepAliveNum=\"17\"\nStreamIdx=\"18\"\nAlarmID=\"alarm\"\n/>\n</NetworkConfig>\n\n";
    EXPECT_EQ(body("300", network, 1), text);
    EXPECT_TRUE(readsAs("300", text, network));
}

TEST(IpcNetwork, ChildrenAreOptional)
{
    auto network = fresh(SYSTEM_CONFIG_SET_320_PARAM_init);
    EXPECT_TRUE(readsAs("300", "<NetworkConfig/>", network));
    network.AllNetConnectEnable = 1;
    setLan(network.stLanConfig, "A", 2);
    network.stGb28181Config.StreamIdx = 0;
    EXPECT_TRUE(readsAs(
        "300", "<NetworkConfig><GB28181 StreamIdx=\"0\"/>" + std::string(kShuffledLan) + "</NetworkConfig>",
        network));
}

TEST(IpcNetwork, AddressOnlyWithAnAddress)
{
    auto lan = fresh(SYSTEM_CONFIG_SET_325_PARAM_init);
    EXPECT_EQ(body("325", lan, 0), "<LANConfig\nAllNetConnectEnable=\"-1\"\n/>\n\n");
    EXPECT_TRUE(readsAs("325", "<LANConfig\nAllNetConnectEnable=\"-1\"\n/>\n", lan));
    lan.AllNetConnectEnable = 1;
    setLan(lan.stLanConfig, "A", 2);
    EXPECT_EQ(body("325", lan, 2), std::string(kLan) + "\n");
    EXPECT_TRUE(readsAs("325", kShuffledLan, lan));
    set(lan.stLanConfig.IPAddress, "");
    EXPECT_EQ(body("325", lan, 0), "<LANConfig\nAllNetConnectEnable=\"1\"\n/>\n\n");
    std::string noAddress = kShuffledLan;
    EXPECT_TRUE(readsAs("325", noAddress.replace(noAddress.find(" IPAddress=\"ipA\""), 16, ""), lan));
}

TEST(IpcP2p, OnlyTheGetLeavesOut)
{
    auto p2p = fresh(SYSTEM_CONFIG_SET_335_PARAM_init);
    EXPECT_EQ(body("315", p2p, 1), "<P2PConfig\n/>\n\n");
    EXPECT_EQ(body("335", p2p, 0),
              "<P2PConfig\nEnable=\"-1\"\nSyncTime=\"-1\"\nUser=\"\"\nPasswd=\"\"\n/>\n\n");
    p2p = {0, 1, "user", "pass"};
    const std::string text =
        "<P2PConfig\nEnable=\"0\"\nSyncTime=\"1\"\nUser=\"user\"\nPasswd=\"pass\"\n/>\n\n";
    EXPECT_EQ(body("315", p2p, 3), text);
    EXPECT_EQ(body("335", p2p, 2), text);
    for (const char* code : {"315", "335"})
        EXPECT_TRUE(
            readsAs(code, "<P2PConfig Passwd=\"pass\" User=\"user\" SyncTime=\"1\" Enable=\"0\"/>", p2p));
}

} // namespace
