#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_SEARCHIPC_MESSAGE";

// One text for all kinds, out and in.
template <class Record>
void expectSame(const std::string& code, const Record& record, const std::string& text)
{
    expectBodies(kType, code, &record, text, text);
    expectRead(kType, code, text, record);
}

const std::string kSerial = "<IPC_SERIALNUMBER|SerialNumber='serial'|";
const std::string kLan = "<LANConfig|MacAddress='mac'|DHCP='11'|IPAddress='ip'|Netmask='mask'|Gateway='gate'|"
                         "DNS1='dns1'|DNS2='dns2'|";
const std::string kStream = "<MediaStreamConfig>|<StreamAccess\r|Auth='12'|VideoPort='13'|RTPOverRTSP='14'|"
                            "PTZPort='15'|WEBPort='16'|";
const std::string kStreamEnd = "/>|</MediaStreamConfig>|";

TEST(AddressChange, ModifyBySerialNumber)
{
    for (const char* code : {"2", "5"}) {
        auto change = fresh(*code == '2' ? SYSTEM_SEARCHIPC_2_PARAM_init : SYSTEM_SEARCHIPC_5_PARAM_init);
        expectRead(kType, code, "", change);
        expectSame(code, change, "<IPC_SERIALNUMBER|SerialNumber=''|/>|");
        set(change.SerialNumber, "serial");
        set(change.DevID, "id");
        set(change.VendorId, "vendor");
        change.stLan.DHCP = 11;
        set(change.stLan.MacAddress, "mac");
        set(change.stLan.IPAddress, "ip");
        set(change.stLan.Netmask, "mask");
        set(change.stLan.Gateway, "gate");
        set(change.stLan.DNS1, "dns1");
        set(change.stLan.DNS2, "dns2");
        const std::string first = "<VENDOR_PARAM VendorId='vendor'/>|" + kSerial + "DevID='id'|/>|";
        expectSame(code, change, first + kLan + "/>|");
        change.AllNetConnectEnable = 17;
        change.stStream = {12, 13, 14, 15, 16, -1, -1};
        expectSame(code, change, first + kLan + "AllNetConnectEnable='17'|/>|" + kStream + kStreamEnd);

        // What a search response carries on top is neither written nor read.
        const std::string more = "MTU='18'|DEV='dev'|IPAddressVirtual='ip2'|AllNetConnectEnable='17'|/>|";
        const std::string clients = "RTSPClientNumber='19'|RTPPacketSize='20'|";
        expectRead(kType, code, kStream + clients + kStreamEnd + kLan + more + first, change);
        change.stLan.MTU = 18;
        set(change.stLan.DEV, "dev");
        change.stStream.RTSPClientNumber = 19;
        change.stStream.RTPPacketSize = 20;
        EXPECT_EQ(bodyOf(kType, code, &change, 0),
                  wire(first + kLan + "AllNetConnectEnable='17'|/>|" + kStream + kStreamEnd));

        // No address, no network; no Auth, no stream.
        set(change.stLan.IPAddress, "");
        change.stStream.Auth = -1;
        EXPECT_EQ(bodyOf(kType, code, &change, 0), wire(first));
    }
}

TEST(AddressChange, RestoreAndBroadcast)
{
    for (const char* code : {"4", "6", "8"}) {
        auto restore = fresh(*code == '4'   ? SYSTEM_SEARCHIPC_4_PARAM_init
                             : *code == '6' ? SYSTEM_SEARCHIPC_6_PARAM_init
                                            : SYSTEM_SEARCHIPC_8_PARAM_init);
        expectRead(kType, code, "", restore);
        set(restore.SerialNumber, "serial");
        expectSame(code, restore, kSerial + "/>|");
    }
    auto device = fresh(SYSTEM_SEARCHIPC_7_PARAM_init);
    expectRead(kType, "7", "", device);
    device = {"serial", "ip", "rand", "list", "serial2", "ip2", "rand2"};
    expectSame("7", device,
               "<IPC_DEVINFO|SerialNumber='serial'|ipaddr='ip'|randStr='rand'|IPList='list'|"
               "SerialNumberBrother='serial2'|ipaddrBrother='ip2'|randStrBrother='rand2'|/>|");
}

// The one element of the family that has to be there, with a closing tag of its own.
TEST(AddressChange, Time)
{
    auto time = fresh(SYSTEM_SEARCHIPC_101_PARAM_init);
    time = {11, 12, "format", "time"};
    expectSame("101", time,
               "<TimeConfig|Enable='11'|Timezone='12'|Format='format'|Time='time'|>|</TimeConfig>|");
    resetServices();
    EXPECT_EQ(analyseBody(kType, "101", "<Time/>").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("SystemSearchipc_UDPSendTime_MessageAnalysis get TimeConfig error\n"));
}

} // namespace
