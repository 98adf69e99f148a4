#include "support/wire.h"

using namespace test;

namespace {

using Response = SYSTEM_SEARCHIPC_3_PARAM;

const std::string kType = "SYSTEM_SEARCHIPC_MESSAGE";

constexpr uint64_t kFeature = (uint64_t{1} << 63) + 1;
constexpr int16_t kCounts[12] = {-3, -2, 1, 6, 13, 22, 33, 46, 61, 78, 97, 118};
constexpr SYSTEM_SEARCHIPC_LAN_CONFIG kLan = {4,      1500,   "mac",  "10.0.0.2", "mask",
                                              "gate", "dns1", "dns2", "eth0"};

Response full()
{
    auto response = fresh(SYSTEM_SEARCHIPC_3_PARAM_init);
    set(response.VendorId, "vendor");
    set(response.IPAddressVirtual, "10.0.0.9");
    response.AllNetConnectEnable = 1;
    response.stDevice = {"serial", "type", "module", "id",   "osd", "v2", "maker",
                         1,        {},     kFeature, "area", 2,     3};
    memcpy(response.stDevice.Count, kCounts, sizeof kCounts);
    response.iAccountNum = 2;
    response.stAccounts[0] = {"user", "pass", "admin", "on"};
    set(response.stAccounts[1].Group, "guest");
    response.stStream = {0, 11, 12, 13, 14, 15, 16};
    response.stLan = kLan;
    response.stLan1 = {5, -1, "mac1", "10.0.1.2", "mask1", "gate1", "", "", ""};
    return response;
}

// That record's body; DEV is written, but never read.
std::string fullBody(const std::string& dev, const std::string& lan1 = "")
{
    return "<VENDOR_PARAM VendorId='vendor'/>|<DEVICE_TYPE|DeviceType='type'|SalesArea='area'|"
           "DeviceModule='module'|BindMode='3'|DevSubType='2'|Feature='-9223372036854775807'|/>|"
           "<IPC_SERIALNUMBER|SerialNumber='serial'|DevID='id'|/>|<LANConfig|MacAddress='mac'|DHCP='4'|"
           "IPAddress='10.0.0.2'|Netmask='mask'|Gateway='gate'|DNS1='dns1'|DNS2='dns2'|"
           "AllNetConnectEnable='1'|IPAddressVirtual='10.0.0.9'|MTU='1500'|" +
           dev +
           "/>|<LAN1Config|MacAddress='mac1'|DHCP='5'|IPAddress='10.0.1.2'|Netmask='mask1'|Gateway='gate1'|" +
           lan1 +
           "/>|<UserConfig>|<Account|Group='admin'|Status='on'|Username='user'|Password='pass'|/>|"
           "<Account|Group='guest'|Status=''|/>|</UserConfig>|"
           "<MediaStreamConfig>|<StreamAccess\r|Auth='0'|VideoPort='11'|RTPOverRTSP='12'|PTZPort='13'|"
           "WEBPort='14'|RTSPClientNumber='15'|RTPPacketSize='16'|/>|</MediaStreamConfig>|"
           "<OSD|OsdStr='osd'|/>|<VERSION|FileSystemVersion='v2'|/>|<Manufacturer|Name='maker'|/>|"
           "<ConnectionCount|Count='-3,-2,1,6,13,22,33,46,61,78,97,118,'|/>|";
}

TEST(DeviceSearch, Response)
{
    const Response response = full();
    for (const int kind : {0, 1, 2, 3}) // bare text, never enciphered
        EXPECT_EQ(compose(headerOf(kType, "3"), &response, kind, 65536, 0).bytes,
                  envelope(kType, "3", wire(fullBody("DEV='eth0'|"))));
    std::string text = fullBody("DEV='x'|", "DNS1='x'|MTU='9'|");
    text.insert(text.find("118,'") + 4, "4,5");
    text.replace(text.find("-9223372036854775807"), 20, "9223372036854775809");
    const Analysed analysed = analyseBody(kType, "3", text);
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(bodyOf(kType, "3", analysed.record.get(), 1), wire(fullBody("")));
    EXPECT_EQ(analysed.as<Response>().stLan1.MTU, -1);
    EXPECT_STREQ(analysed.as<Response>().stLan1.DNS1, "");
}

TEST(DeviceSearch, ResponseLeavesOutWhatIsNotSet)
{
    auto response = fresh(SYSTEM_SEARCHIPC_3_PARAM_init);
    const std::string least = "<DEVICE_TYPE|DeviceType=''|/>|<IPC_SERIALNUMBER|SerialNumber=''|DevID=''|/>|"
                              "<LANConfig|MacAddress=''|DHCP='-1'|IPAddress=''|Netmask=''|Gateway=''|DNS1=''|"
                              "DNS2=''|/>|";
    const Analysed empty = analyseBody(kType, "3", "");
    EXPECT_EQ(bodyOf(kType, "3", empty.record.get(), 1), wire(least));

    response.stDevice.Count[0] = 1;
    response.stStream.VideoPort = 1;
    set(response.stLan1.MacAddress, "mac1");
    EXPECT_EQ(bodyOf(kType, "3", &response, 1), wire(least));
    response.stStream.Auth = 0;
    response.iAccountNum = 0;
    response.stDevice.iConnectionCountValid = 0;
    const std::string more =
        wire(least + "<UserConfig>|</UserConfig>|<MediaStreamConfig>|<StreamAccess\r|Auth='0'|VideoPort='1'|"
                     "RTPOverRTSP='-1'|PTZPort='-1'|WEBPort='-1'|/>|</MediaStreamConfig>|"
                     "<ConnectionCount|Count='1,0,0,0,0,0,0,0,0,0,0,0,'|/>|");
    EXPECT_EQ(bodyOf(kType, "3", &response, 1), more);
    EXPECT_EQ(bodyOf(kType, "3", analyseBody(kType, "3", more).record.get(), 1), more);
}

TEST(DeviceSearch, AccountsEndAtForty)
{
    std::string accounts;
    for (int i = 0; i < 41; ++i)
        accounts += "<Account Username='u" + std::to_string(i) + "'/><Other/>";
    const Analysed analysed = analyseBody(kType, "3", "<UserConfig>" + accounts + "</UserConfig>");
    auto response = analysed.as<Response>();
    EXPECT_EQ(response.iAccountNum, 40);
    EXPECT_STREQ(response.stAccounts[39].Username, "u39");
    EXPECT_EQ(response.stStream.Auth, -1);

    const std::string forty = bodyOf(kType, "3", &response, 1);
    response.iAccountNum = INT32_MAX;
    EXPECT_EQ(bodyOf(kType, "3", &response, 1), forty);
    response.iAccountNum = INT32_MIN;
    EXPECT_NE(bodyOf(kType, "3", &response, 1).find("<UserConfig>\n</UserConfig>\n"), std::string::npos);
}

TEST(DeviceSearch, ConnectionCountsNeedTheirCommas)
{
    const std::string zeros(1019, '0');
    const struct
    {
        std::string attribute;
        int16_t counts[3];
    } cases[] = {
        {"", {0, 0, 0}},
        {"Count='7'", {0, 0, 0}},
        {"Count='7,8,9'", {7, 8, 0}},
        {"Count='7,, -9x,'", {7, 0, -9}},
        {"Count='5," + zeros + "6,7,'", {5, 6, 0}}, // 1023 bytes of it are looked at
        {"Count='5," + zeros + "06,7,'", {5, 0, 0}},
    };
    for (const auto& each : cases) {
        const Analysed analysed = analyseBody(kType, "3", "<ConnectionCount " + each.attribute + "/>");
        const auto& device = analysed.as<Response>().stDevice;
        EXPECT_EQ(device.iConnectionCountValid, 1) << each.attribute;
        EXPECT_EQ(memcmp(device.Count, each.counts, sizeof each.counts), 0) << each.attribute;
    }
}

TEST(DeviceSearch, Request)
{
    EXPECT_EQ(bodyOf(kType, "1", analyseBody(kType, "1", "").record.get(), 0), "");
    const Analysed analysed =
        analyseBody(kType, "1", "<VENDOR_PARAM VendorId='" + std::string(40, 'v') + "'/>");
    EXPECT_EQ(bodyOf(kType, "1", analysed.record.get(), 1),
              wire("<VENDOR_PARAM VendorId='" + std::string(39, 'v') + "'/>|"));
}

// What is written as DeviceType and DevSubType isn't read, and the other way round.
TEST(DeviceSearch, IotResponseReadsOtherNames)
{
    auto iot = fresh(SYSTEM_SEARCHIPC_21_PARAM_init);
    iot.stDevice = full().stDevice;
    iot.stLan = kLan;
    const std::string rest = "<IPC_SERIALNUMBER|SerialNumber='serial'|DevID='id'|/>|"
                             "<LANConfig|MacAddress='mac'|DHCP='4'|IPAddress='10.0.0.2'|Netmask='mask'|"
                             "Gateway='gate'|DNS1='dns1'|DNS2='dns2'|MTU='1500'|/>|";
    EXPECT_EQ(bodyOf(kType, "21", &iot, 1), wire("<IOTInfo|DeviceType='-1'|/>|" + rest));
    iot.DeviceType = 4;
    iot.DevSubType = 5;
    iot.BindStatus = 6;
    iot.RegStatus = 7;
    set(iot.DeviceModule, "module");
    const std::string own =
        wire("<IOTInfo|DeviceType='4'|DeviceModule='module'|BindStatus='6'|DevSubType='5'|"
             "RegStatus='7'|/>|" +
             rest);
    EXPECT_EQ(bodyOf(kType, "21", &iot, 1), own);
    EXPECT_EQ(bodyOf(kType, "21", analyseBody(kType, "21", own).record.get(), 1),
              wire("<IOTInfo|DeviceType='-1'|DeviceModule='module'|BindStatus='6'|RegStatus='7'|/>|" + rest));
    const Analysed peers = analyseBody(
        kType, "21",
        rest + "<IOTInfo RegStatus='7' BindNetType='5' BindStatus='6' DevType='4' DeviceModule='module'/>");
    EXPECT_EQ(bodyOf(kType, "21", peers.record.get(), 1), own);
}

TEST(DeviceSearch, CodesWithoutRecordAndUnknownOnes)
{
    const Response response = full();
    for (const char* code : {"9", "10", "11", "20"}) {
        EXPECT_EQ(bodyOf(kType, code, &response, 1), "");
        const Analysed analysed = analyseBody(kType, code, "<VENDOR_PARAM/>");
        EXPECT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.record, nullptr);
    }
    void* record = nullptr;
    char out[1];
    resetServices();
    EXPECT_EQ(SystemSearchipcMessageCompose(&response, 0, "22", out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly("SYSTEM_SEARCHIPC_MESSAGE deal a unknow msg_code:22 \n"));
    EXPECT_EQ(SystemSearchipcMessageAnalysis("<a/>", "x", &record), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly("SYSTEM_SEARCHIPC_MESSAGE deal a unknow msg_code:0 \n"));
}

} // namespace
