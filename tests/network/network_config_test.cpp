#include "config/config_message.h"

using namespace test;

namespace {

using Network = SYSTEM_CONFIG_GET_2000_PARAM;
using Platform = SYSTEM_CONFIG_GET_2015_PARAM;

struct Pair
{
    const char* get;
    const char* set;
};

constexpr Pair kNetwork = {"2000", "2020"};
constexpr Pair kLan = {"2005", "2025"};
constexpr Pair kServer = {"2010", "2030"};
constexpr Pair kPlatform = {"2015", "2035"};

// One text for what the get answers and the set asks for.
void expectOut(const Pair& codes, const void* record, const std::string& text)
{
    expectBodies(kConfig, codes.get, record, "", text);
    expectBodies(kConfig, codes.set, record, text, "");
}

template <class Record>
void expectIn(const Pair& codes, const Record& record, const std::string& text)
{
    expectRead(kConfig, codes.get, text, record);
    expectRead(kConfig, codes.set, text, record);
}

const std::string kFirst =
    "<LANConfig|DHCP='12'|IPAddress='ip'|Netmask='mask'|Gateway='gate'|MacAddress='mac'|DNS1='dns'|"
    "DNS2='second'|Login='11'|CloundID='cloud'|MTU='14'|ConflictSelfAda='15'|/>|";
const std::string kEnable = "<NetworkServerConfig|Enable='13'|/>|";
const std::string kMode = "<NetworkLanMode|Mode='18'|DefaultGateWayIndex='17'|/>|";
const std::string kSecond = kMode + "<LAN1Config|DHCP='19'|IPAddress='ip1'|Netmask='mask1'|Gateway='gate1'|"
                                    "MacAddress='mac1'|ConflictSelfAda='16'|/>|";

std::string inNetwork(const std::string& text)
{
    return "<NetworkConfig>|" + text + "</NetworkConfig>|";
}

TEST(NetworkConfig, BothWays)
{
    Network network = fresh(SYSTEM_CONFIG_SET_2020_PARAM_init);
    const std::string absent =
        "<LANConfig|DHCP='-1'|IPAddress=''|Netmask=''|Gateway=''|MacAddress=''|DNS1=''|DNS2=''|Login='-1'|"
        "CloundID=''|MTU='-1'|ConflictSelfAda='-1'|/>|";
    expectOut(kNetwork, &network, inNetwork(absent + "<NetworkServerConfig|Enable='-1'|/>|"));
    expectOut(kLan, &network, absent);

    network = {"mac", "ip", "mask", "gate", "dns", "second", "cloud", 11,      12,      13,
               14,    15,   16,     17,     18,    19,       "",      "mask1", "gate1", "mac1"};
    expectOut(kNetwork, &network, inNetwork(kFirst + kEnable));
    expectOut(kLan, &network, kFirst);
    set(network.Lan1IPAddress, "ip1");
    expectOut(kNetwork, &network, inNetwork(kFirst + kEnable + kSecond));
    expectOut(kLan, &network, kFirst + kSecond);
    expectIn(kNetwork, network, inNetwork(kFirst + kEnable + kSecond));
}

// Either part of the second port is read by itself; what belongs to the other messages is passed over.
TEST(NetworkConfig, PartsOnTheWayIn)
{
    Network network = fresh(SYSTEM_CONFIG_GET_2005_PARAM_init);
    expectIn(kNetwork, network, "<NetworkConfig/>" + kFirst + kSecond + kEnable);
    expectIn(kLan, network, "<LANConfig>" + kSecond + "</LANConfig>" + kEnable + inNetwork(kFirst));
    network.Mode = 18;
    network.DefaultGateWayIndex = 17;
    expectIn(kLan, network, kMode + "<LANConfig/>");
    expectIn(kNetwork, network, inNetwork(kMode));
    network = fresh(SYSTEM_CONFIG_GET_2005_PARAM_init);
    network.Lan1DHCP = 19;
    const std::string second = "<LANConfig/><LAN1Config DHCP='19'/>";
    expectIn(kLan, network, second);
    expectIn(kNetwork, network, inNetwork(second));
}

TEST(NetworkConfig, Server)
{
    auto server = fresh(SYSTEM_CONFIG_SET_2030_PARAM_init);
    expectOut(kServer, &server, "<NetworkServerConfig|Enable='-1'|/>|");
    server.Enable = 13;
    expectIn(kServer, server, kEnable);
}

TEST(PlatformConfig, BothWays)
{
    Platform platform = fresh(SYSTEM_CONFIG_SET_2035_PARAM_init);
    const std::string absent =
        "<GB28181Config|Enable='-1'|StreamType='-1'|LocalPort=''|SipServerID=''|SipServerDomain=''|"
        "SipServerIP=''|SipServerPort=''|SipUserID=''|SipUserPassword=''|SipRegExpires=''|"
        "SipHeartBeatCycle=''|SipHeartBeatTimeOutNum=''|/>|";
    expectOut(kPlatform, &platform, absent);
    platform.AlarmInputIDNum = 0;
    expectOut(kPlatform, &platform, absent + "<AlarmInputID|AlarmInputIDNum='0'|/>|");

    platform = {11,    14,      13,    12,    -1,      3,         "sport",  "sid", "domain",
                "sip", "lport", "uid", "cyc", "timeo", "expires", "secret", {},    {}};
    for (int32_t i = 0; i < 64; ++i)
        platform.stChannel[i].iReport = platform.stAlarmIn[i].iReport = -1;
    set(platform.stChannel[0].SipDeviceID, "c1");
    set(platform.stChannel[2].SipDeviceID, "c3");
    set(platform.stAlarmIn[1].SipDeviceID, "a2");
    const std::string text =
        "<GB28181Config|Enable='11'|ProtoCol='13'|StreamType='12'|DefaultLanIndex='14'|LocalPort='lport'|"
        "SipServerID='sid'|SipServerDomain='domain'|SipServerIP='sip'|SipServerPort='sport'|"
        "SipUserID='uid'|SipUserPassword='secret'|SipRegExpires='expires'|SipHeartBeatCycle='cyc'|"
        "SipHeartBeatTimeOutNum='timeo'|ch1_SipDeviceID='c1'|ch2_SipDeviceID=''|ch3_SipDeviceID='c3'|/>|"
        "<AlarmInputID|AlarmInputIDNum='3'|AlarmIn_1=''|AlarmIn_2='a2'|AlarmIn_3=''|/>|";
    expectIn(kPlatform, platform, text);
    platform.iChannelNum = 3;
    expectOut(kPlatform, &platform, text);
}

// One digit for each entry, by the first entry's leave.
TEST(PlatformConfig, ReportsOnTheWayOut)
{
    struct Case
    {
        int32_t count;
        std::vector<int32_t> reports;
        std::vector<std::string> mask; // what it says, if it is there
    };
    const Case cases[] = {
        {3, {-1, 1, 1}, {}},
        {4, {0, -1, 10, 0x1B}, {"0fab"}},
        {0, {1}, {""}},
        {65, {1}, {"1" + std::string(63, 'f')}},
    };
    Platform platform;
    for (const Case& test : cases) {
        platform = fresh(SYSTEM_CONFIG_GET_2015_PARAM_init);
        platform.iChannelNum = platform.AlarmInputIDNum = test.count;
        for (size_t i = 0; i < test.reports.size(); ++i)
            platform.stChannel[i].iReport = platform.stAlarmIn[i].iReport = test.reports[i];
        const std::string text = bodyOf(kConfig, "2015", &platform, 1);
        EXPECT_EQ(valuesOf(text, "\nch_SipDeviceReport"), test.mask);
        EXPECT_EQ(valuesOf(text, "\nAlarmIn_SipDeviceReport"), test.mask);
        EXPECT_EQ(valuesOf(text, "_SipDeviceID").size(), static_cast<size_t>(std::min(test.count, 64)));
    }
    platform.iChannelNum = platform.AlarmInputIDNum = 1;
    const std::string text = bodyOf(kConfig, "2035", &platform, 0);
    EXPECT_EQ(text.substr(text.find("ch1_")),
              wire("ch1_SipDeviceID=''|ch_SipDeviceReport='1'|/>|<AlarmInputID|AlarmInputIDNum='1'|"
                   "AlarmIn_1=''|AlarmIn_SipDeviceReport='1'|/>|"));
}

TEST(PlatformConfig, EntriesOnTheWayIn)
{
    for (const std::string& mask :
         {std::string("10"), std::string(), "f1a 1" + std::string(58, '0') + "11"}) {
        Platform platform = fresh(SYSTEM_CONFIG_GET_2015_PARAM_init);
        for (size_t i = 0; i < 64; ++i)
            platform.stChannel[i].iReport = i < mask.size() && mask[i] == '1' ? 1 : 0;
        set(platform.stChannel[1].SipDeviceID, "2");
        set(platform.stChannel[63].SipDeviceID, "64");
        const std::string channels = "<GB28181Config ch0_SipDeviceID='0' ch65_SipDeviceID='65' "
                                     "ch64_SipDeviceID='64' ch2_SipDeviceID='2' ch_SipDeviceReport='" +
                                     mask + "'/>";
        expectIn(kPlatform, platform, channels);
        std::copy(std::begin(platform.stChannel), std::end(platform.stChannel), platform.stAlarmIn);
        expectIn(kPlatform, platform,
                 "<AlarmInputID AlarmIn_0='0' AlarmIn_65='65' AlarmIn_64='64' AlarmIn_2='2' "
                 "AlarmIn_SipDeviceReport='" +
                     mask + "'/>" + channels);
    }
}

TEST(NetworkConfig, RequiredElements)
{
    expectRequired({{"2000", "getNetconfig", "NetworkConfig"},
                    {"2020", "setNetconfig", "NetworkConfig"},
                    {"2005", "getNetLanconfig", "LANConfig"},
                    {"2025", "setNetLanconfig", "LANConfig"},
                    {"2010", "getNetServerconfig", "NetworkServerConfig"},
                    {"2030", "setNetServerconfig", "NetworkServerConfig"},
                    {"2015", "getNetGB28181Config", "GB28181Config"},
                    {"2035", "setNetGB28181Config", "GB28181Config"}});
}
} // namespace
