#include <cstddef>

#include "support/wire.h"

using namespace test;

namespace {

using NetStatus = SYSTEM_CONTROL_1026_PARAM;

const std::string kType = "SYSTEM_CONTROL_MESSAGE";

TEST(Status, ShortCommands)
{
    auto refresh = fresh(SYSTEM_CONTROL_1004_PARAM_init);
    refresh.FileType = 11;
    expectRequest(kType, "1004", refresh, "<REQUEST_PARAM|FileType='11'|/>|");

    auto time = fresh(SYSTEM_CONTROL_1005_PARAM_init);
    time = {"time", "zone"};
    expectRequest(kType, "1005", time, "<REQUEST_PARAM|Time='time'|TimeZone='zone'|/>|");

    auto adding = fresh(SYSTEM_CONTROL_1006_PARAM_init);
    adding = {11, 12};
    expectRequest(kType, "1006", adding, "<REQUEST_PARAM|CrtlEnable='11'|ChnAddCfg='12'|/>|");

    auto filter = fresh(SYSTEM_CONTROL_1046_PARAM_init);
    set(filter.Mode, "mode");
    expectRequest(kType, "1046", filter, "<REQUEST_PARAM|Mode='mode'|/>|");
}

// Without the bytes behind the last field.
void expectStatus(const std::string& text, const NetStatus& expected)
{
    const Analysed analysed = analyseBody(kType, "1026", text);
    ASSERT_EQ(analysed.result, 0) << text;
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, offsetof(NetStatus, Url) + sizeof expected.Url), 0)
        << text;
}

TEST(Status, Network)
{
    NetStatus status = fresh(SYSTEM_CONTROL_1026_PARAM_init);
    const std::string least =
        "<RESPONSE_PARAM>|<WIRE_NETWORK|MacAddress=''|IPType=''|IPAddress=''|Netmask=''|Gateway=''|Dns1=''|"
        "Dns2=''|MTU='-1'|/>|<CLOUD|LoginStatus='-1'|ID=''|/>|<QRCODE_URL|Url=''|/>|</RESPONSE_PARAM>|";
    expectBodies(kType, "1026", &status, "", least);
    expectStatus("<RESPONSE_PARAM/>", status);
    set(status.WirelessIPAddress, "w");
    EXPECT_NE(bodyOf(kType, "1026", &status, 1).find(wire("|LinkQuality='255'|SignalLevel='-1'|Noise='-1'|")),
              std::string::npos);

    status = {-1,      -1,     "mac",  "type", "ip",    "gate",   "mask", "dns1",  "dns2",  -1,
              11,      -1,     12,     13,     14,      200,      "wip",  "wgate", "wmask", "wmac",
              "essid", "mode", "rate", "freq", "point", "cipher", "id",   "url"};
    const std::string wired = "<WIRE_NETWORK|MacAddress='mac'|IPType='type'|IPAddress='ip'|Netmask='mask'|"
                              "Gateway='gate'|Dns1='dns1'|Dns2='dns2'|MTU='11'|/>|";
    const std::string wireless =
        "<WIRELESS_NETWORK|MacAddress='wmac'|IPAddress='wip'|Netmask='wmask'|Gateway='wgate'|ESSID='essid'|"
        "OperationMode='mode'|AccessPoint='point'|Bitrate='rate'|Frequency='freq'|EncrptType='cipher'|"
        "LinkQuality='200'|SignalLevel='12'|Noise='13'|/>|";
    const std::string rest = "<CLOUD|LoginStatus='14'|ID='id'|/>|<QRCODE_URL|Url='url'|/>|</RESPONSE_PARAM>|";
    expectBodies(kType, "1026", &status, "", "<RESPONSE_PARAM>|" + wired + wireless + rest);
    expectStatus("<RESPONSE_PARAM>" + wireless + wired + rest, status);
}

// A get and its set share a text, the get's response under the name of a request.
TEST(Status, RestartAndDisplay)
{
    auto restart = fresh(SYSTEM_CONTROL_3025_PARAM_init);
    restart = {11, 12, "time"};
    const std::string text = "<REQUEST_PARAM |Enable='11'|Day='12'|Time='time'|/>|";
    expectResponse(kType, "3020", restart, text);
    expectRequest(kType, "3025", restart, text);

    auto display = fresh(SYSTEM_CONTROL_3320_PARAM_init);
    display = {11, 12, 13, 14};
    const std::string all = "<DisplayConfig |Brightness='11'|Contrast='12'|Saturation='13'|Chroma='14'|/>|";
    expectResponse(kType, "3300", display, all);
    expectRequest(kType, "3320", display, all);
}

TEST(Status, SalesAreaAndSmallSettings)
{
    auto area = fresh(SYSTEM_CONTROL_3023_PARAM_init);
    set(area.SalesArea, "area");
    expectRequest(kType, "3023", area, "<SalesArea|SalesArea='area'|/>|");

    auto custom = fresh(SYSTEM_CONTROL_3026_PARAM_init);
    expectRequest(kType, "3026", custom, "<REQUEST_PARAM |/>|");
    custom = {11, 12, 13, 14, "pass"};
    expectRequest(kType, "3026", custom,
                  "<REQUEST_PARAM |CtrlBuzzerEnable='11'|Language='12'|AsDefLanguage='13'|LanguageNum='14'|"
                  "InProjectPwd='pass'|/>|");
}

TEST(Status, NetworkCheck)
{
    const auto absent = fresh(SYSTEM_CONTROL_3027_PARAM_init);
    expectBodies(kType, "3027", &absent,
                 "<REQUEST_PARAM |DiagnosticType='-1'|TotalPackets='-1'|DomainName=''|ChannelId='-1'|/>|",
                 "<RESPONSE_PARAM |Result='-1'|IPAddress=''|SumPacket='-1'|SkipPacket='-1'|"
                 "SkipPacketRatio='-1.000000'|MinTime='-1.000000'|AveTime='-1.000000'|"
                 "MaxTime='-1.000000'|/>|");
    const SYSTEM_CONTROL_3027_PARAM all = {11,   12,    13,    14,     15,       16,
                                           0.5F, 1.25F, 2.25F, 1000.F, "domain", "ip"};
    const std::string request =
        "<REQUEST_PARAM |DiagnosticType='11'|TotalPackets='12'|DomainName='domain'|ChannelId='13'|/>|";
    const std::string response =
        "<RESPONSE_PARAM |Result='14'|IPAddress='ip'|SumPacket='15'|SkipPacket='16'|"
        "SkipPacketRatio='0.500000'|MinTime='1.250000'|AveTime='2.250000'|MaxTime='1000.000000'|/>|";
    expectBodies(kType, "3027", &all, request, response);
    auto asked = absent;
    asked.DiagnosticType = 11;
    asked.TotalPackets = 12;
    asked.ChannelId = 13;
    set(asked.DomainName, "domain");
    expectRead(kType, "3027", response + request, asked);
    auto answered = all;
    answered.DiagnosticType = answered.TotalPackets = answered.ChannelId = -1;
    set(answered.DomainName, "");
    expectRead(kType, "3027", response, answered);
}

} // namespace
