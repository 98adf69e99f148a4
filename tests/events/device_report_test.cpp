#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "DEVICE_REPORT_MESSAGE";

// One text for all kinds, out and in.
template <class Record>
void expectSame(const std::string& code, const Record& record, const std::string& text)
{
    expectBodies(kType, code, &record, text, text);
    expectRead(kType, code, text, record);
}

TEST(DeviceReport, Channels)
{
    auto channels = fresh(DEVICE_REPORT_3900_PARAM_init);
    expectSame("3900", channels, "");
    channels = {"a", "b", "c", "d", "e", "f"};
    expectSame("3900", channels,
               "<Ipcs_stat>a</Ipcs_stat>|<streamstat>b</streamstat>|<IpcAbility1>c</IpcAbility1>|"
               "<IpcProtoCol>d</IpcProtoCol>|<ChnFeature>e</ChnFeature>|<ChnDevbind>f</ChnDevbind>|");
    set(channels.IpcProtoCol, std::string(255, 'd'));
    set(channels.ChnDevbind, std::string(2047, 'f'));
    expectRead(kType, "3900",
               "<ChnFeature>e</ChnFeature><ChnDevbind>" + std::string(2050, 'f') +
                   "</ChnDevbind><Ipcs_stat>a</Ipcs_stat><streamstat>b</streamstat><IpcProtoCol>" +
                   std::string(260, 'd') + "</IpcProtoCol><IpcAbility1>c</IpcAbility1>",
               channels);
}

TEST(DeviceReport, Position)
{
    auto position = fresh(DEVICE_REPORT_3901_PARAM_init);
    const std::string cmd = "<xml>|<cmd>getCurPos</cmd>|";
    position = {11, 12, 13, 14, -1};
    const std::string text = "<x>11</x>|<y>12</y>|<mul>13</mul>|<maxMul>14</maxMul>|";
    expectRead(kType, "3901", "<xml>" + text + "<cmd>AddOrbit</cmd></xml>", position);
    position.linkage = 15;
    expectSame("3901", position, cmd + text + "<linkage>15</linkage>|</xml>|");
    resetServices();
    EXPECT_EQ(analyseBody(kType, "3901", "<x>11</x>").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("DeviceReportMessageAnalysis get xml error\n"));
}

TEST(DeviceReport, Failures)
{
    const DEVICE_REPORT_3901_PARAM position{};
    char out[8];
    void* result = nullptr;
    const std::string unknown = "DEVICE_REPORT_MESSAGE deal a unknow msg_cdoe : 3902\n";
    resetServices();
    EXPECT_EQ(DeviceReportMessageCompose(&position, 0, "3902", out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly(unknown));
    EXPECT_EQ(analyseBody(kType, "3902", "").result, ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly(unknown));
    EXPECT_EQ(DeviceReportMessageCompose(&position, 0, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("DEVICE_REPORT_MESSAGE put a empty Param\n"));
    EXPECT_EQ(DeviceReportMessageAnalysis("<a/>", nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("DeviceReportMessageAnalysis put a empty Param\n"));
    // The document comes before the code.
    EXPECT_EQ(DeviceReportMessageAnalysis("<a", "3902", &result), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(loggedOnly("DeviceReportMessageAnalysis Parse MsgBuf error\n"));
    EXPECT_EQ(DeviceReportMessageAnalysis("<a/>", "3902", &result), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(loggedOnly("DeviceReportMessageAnalysis get MESSAGE_BODY error\n"));
}

} // namespace
