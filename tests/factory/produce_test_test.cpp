#include "support/fields.h"

using namespace test;

namespace {

using Result = NVR_PRODUCE_TEST_RESULT;

const std::string kType = "NVR_PRODUCE_TEST_MESSAGE";

TEST(ProduceTest, Lamps)
{
    auto lamp = fresh(NVR_PRODUCE_TEST_4002_PARAM_init);
    expectRead(kType, "4002", "<LedControl/>", lamp);
    lamp = {11, 12};
    expectRequest(kType, "4002", lamp, "<LedControl|Switch='11'|Color='12'|/>|");
}

// Both directions have one element, and all of it is read in either.
TEST(ProduceTest, Sound)
{
    auto sound = fresh(NVR_PRODUCE_TEST_4003_PARAM_init);
    expectBodies(kType, "4003", &sound, "<AudioControl|Soundtrack='-1'|/>|",
                 "<AudioControl|format=''|frequency='-1'|method='-1'|/>|");
    sound = {11, 12, 13, "mp3"};
    const std::string response = "<AudioControl|format='mp3'|frequency='12'|method='13'|/>|";
    expectBodies(kType, "4003", &sound, "<AudioControl|Soundtrack='11'|/>|", response);
    expectRead(kType, "4003", replaced(response, "format", "Soundtrack='11' format"), sound);
}

TEST(ProduceTest, Screens)
{
    for (const char* code : {"4004", "4005"}) {
        auto screen = fresh(NVR_PRODUCE_TEST_4005_PARAM_init);
        const std::string least =
            "<VideoControl|channel='-1'|view_layout='-1'|decode_status='ffffffffffffffff'|/>|";
        expectBodies(kType, code, &screen, "<ScreenControl|Screen='-1'|/>|", least);
        expectRead(kType, code, least, screen);
        expectRead(kType, code, "<VideoControl Screen='11' decode_status='x'/>", screen);
        screen.channel = 12;
        screen.view_layout = 13;
        screen.decode_status = 255;
        const std::string response = "<VideoControl|channel='12'|view_layout='13'|decode_status='ff'|/>|";
        expectRead(kType, code, response, screen);
        expectRead(kType, code, replaced(response, "'ff'", "' 0XFFx'"), screen);
        screen.Screen = 11;
        const std::string request = "<ScreenControl|Screen='11'|/>|";
        expectBodies(kType, code, &screen, request, response);
        screen = fresh(NVR_PRODUCE_TEST_4004_PARAM_init);
        screen.Screen = 11;
        expectRead(kType, code, response + request, screen);
    }
}

// The results, in the order of the whole test; the device's own has the first half.
void setResult(Result& result, bool whole)
{
    set(result.DevType, "type");
    set(result.DevVer, "version");
    set(result.SerialNum, "serial");
    number(11, result.DevTypeResult, result.DevVerResult, result.SnResult, result.UsbResult,
           result.DiskResult, result.AgingTime, result.AgingTimeResult, result.AgingAvgTemp,
           result.AgingAvgTempResult, result.AgingAvgDuration, result.AgingAvgDurationResult,
           result.AlarmInputResult, result.AlarmOutputResult, result.PanelUsbResult, result.EsataResult);
    if (!whole)
        return;
    set(result.RtcTime, "time");
    number(31, result.RtcTimeResult, result.VGAResult, result.HDMIResult, result.VideoDecodeResult,
           result.AudioDecodeResult, result.PilotLampResult, result.DevCurrent, result.DevCurrentResult,
           result.DevStartUpResult, result.EthPortResult, result.RS232Result, result.RS485Result,
           result.FanResult, result.CheckTotalResult);
}

const std::string kOwn =
    "DevType='type'|DevTypeResult='11'|DevVer='version'|DevVerResult='12'|SerialNum='serial'|SnResult='13'|"
    "UsbResult='14'|DiskResult='15'|AgingTime='16'|AgingTimeResult='17'|AgingAvgTemp='18'|"
    "AgingAvgTempResult='19'|AgingAvgDuration='20'|AgingAvgDurationResult='21'|AlarmInputResult='22'|"
    "AlarmOutputResult='23'|PanelUsbResult='24'|EsataResult='25'|";
const std::string kTester = "TesterName='tester'|RtcTime='time'|RtcTimeResult='31'|";
const std::string kRest =
    "VGAResult='32'|HDMIResult='33'|VideoDecodeResult='34'|AudioDecodeResult='35'|PilotLampResult='36'|"
    "DevCurrent='37'|DevCurrentResult='38'|DevStartUpResult='39'|EthPortResult='40'|RS232Result='41'|"
    "RS485Result='42'|FanResult='43'|CheckTotalResult='44'|";

TEST(ProduceTest, OwnResult)
{
    auto report = fresh(NVR_PRODUCE_TEST_4006_PARAM_init);
    expectRead(kType, "4006", "<SelfTestResult/>", report);
    EXPECT_NE(bodyOf(kType, "4006", &report, 1).find(wire("|AgingTime='-1'|AgingTimeResult='-1'|")),
              std::string::npos);
    setResult(report.stTestResult, false);
    expectResponse(kType, "4006", report, "<SelfTestResult|" + kOwn + "/>");
    expectRead(kType, "4006", "<SelfTestResult " + kTester + kOwn + kRest + "/>", report);

    // Two numbers are unsigned, but not on the way out.
    report.stTestResult.AgingTime = 4294967295U - 9;
    report.stTestResult.AgingAvgDuration = 4294967295U - 19;
    const std::string negative = "<SelfTestResult|" +
                                 replaced(replaced(kOwn, "AgingTime='16'", "AgingTime='-10'"),
                                          "AgingAvgDuration='20'", "AgingAvgDuration='-20'") +
                                 "/>";
    expectResponse(kType, "4006", report, negative);
    setResult(report.stTestResult, true);
    EXPECT_EQ(bodyOf(kType, "4006", &report, 1), wire("<SelfTestResult|" + kOwn + "/>"));
}

TEST(ProduceTest, WholeResult)
{
    auto report = fresh(NVR_PRODUCE_TEST_4008_PARAM_init);
    setResult(report.stTestResult, true);
    set(report.TesterName, "tester");
    const std::string text = "<TestResult|" + kTester + kOwn + kRest + "/>";
    expectRequest(kType, "4008", report, text);
    set(report.TesterName, std::string(35, 'n'));
    expectRead(kType, "4008", replaced(text, "tester", std::string(36, 'n')), report);

    // Empty texts are there, missing attributes are not.
    memset(&report.TesterName, 0, sizeof report.TesterName);
    expectRead(kType, "4008", replaced(text, "tester"), report);
    const std::string error = "NvrProduceTest_SendTestReuslt_MessageAnalysis get TestResult error\n";
    int attributes = 0;
    for (size_t at = text.find('|'); text[at + 1] != '/'; at = text.find('|', at + 1)) {
        ++attributes;
        std::string less = text;
        less.erase(at + 1, text.find('|', at + 1) - at);
        resetServices();
        EXPECT_EQ(analyseBody(kType, "4008", less).result, ZEL_ERR_BAD_CONTENT) << less;
        EXPECT_EQ(services().blocks, 0);
        EXPECT_TRUE(loggedOnly(error));
    }
    EXPECT_EQ(attributes, 34);
    EXPECT_EQ(analyseBody(kType, "4008", replaced(text, "'43'", "'x'")).result, ZEL_ERR_BAD_CONTENT);
}

TEST(ProduceTest, Abilities)
{
    auto ability = fresh(NVR_PRODUCE_TEST_4010_PARAM_init);
    set(ability.DevType, "type");
    set(ability.PilotLampList, "lamps");
    number(11, ability.DevTypeTest, ability.DevVerTest, ability.SnTest, ability.RtcTimeTest, ability.USBTest,
           ability.DiskTest, ability.AgingTest, ability.VGATest, ability.HDMITest, ability.VideoDecodeTest,
           ability.AudioDecodeTest, ability.PilotLampTest, ability.PilotLampNum, ability.DevCurrentTest,
           ability.DevStartUpTest, ability.EthPortTest, ability.AlarmInputTest, ability.AlarmOutputTest,
           ability.RS232Test, ability.RS485Test, ability.IPConflictEnable, ability.PanelUsbTest,
           ability.FanTest, ability.EsataTest);
    const std::string text =
        "<ProductAbility|DevType='type'|DevTypeTest='11'|DevVerTest='12'|SnTest='13'|RtcTimeTest='14'|"
        "USBTest='15'|DiskTest='16'|AgingTest='17'|VGATest='18'|HDMITest='19'|VideoDecodeTest='20'|"
        "AudioDecodeTest='21'|PilotLampTest='22'|PilotLampNum='23'|PilotLampList='lamps'|"
        "DevCurrentTest='24'|DevStartUpTest='25'|EthPortTest='26'|AlarmInputTest='27'|"
        "AlarmOutputTest='28'|RS232Test='29'|RS485Test='30'|IPConflictEnable='31'|PanelUsbTest='32'|"
        "FanTest='33'|EsataTest='34'|/>";
    expectResponse(kType, "4010", ability, text);
}

TEST(ProduceTest, ClockAndSerialNumber)
{
    auto clock = fresh(NVR_PRODUCE_TEST_4007_PARAM_init);
    expectResponse(kType, "4007", clock, "<RtcTime|seconds='4294967295'|/>");
    clock.seconds = 4000000000;
    expectResponse(kType, "4007", clock, "<RtcTime|seconds='4000000000'|/>");

    auto serial = fresh(NVR_PRODUCE_TEST_4011_PARAM_init);
    expectResponse(kType, "4011", serial, "<MiscInfo|SerialNumber=''|/>");
    set(serial.SerialNumber, "serial");
    expectResponse(kType, "4011", serial, "<MiscInfo|SerialNumber='serial'|/>");
}

TEST(ProduceTest, RequiredElements)
{
    const char* const all[][3] = {
        {"4002", "LedControl", "LedControl"},       {"4003", "AudioTest", "AudioControl"},
        {"4006", "ReportResult", "SelfTestResult"}, {"4007", "GetNvrSystemTime", "RtcTime"},
        {"4008", "SendTestReuslt", "TestResult"},   {"4010", "GetNvrTestAbality", "ProductAbility"},
        {"4011", "GetOtherParam", "MiscInfo"},
    };
    for (const auto& [code, leaf, element] : all)
        expectMissing(kType, code, std::string("NvrProduceTest_") + leaf, element, "<REQUEST_PARAM/>");
    expectMissing(kType, "4005", "NvrProduceTest_VGA_HMDI_Test", "VideoControl");
}

TEST(ProduceTest, Dispatch)
{
    const int any = 0;
    expectBodies(kType, "4009", &any, "", "");
    const Analysed nothing = analyseBody(kType, "4009", "<LedControl/>");
    EXPECT_EQ(nothing.result, 0);
    EXPECT_EQ(nothing.record, nullptr);

    char out[16] = "";
    void* result = nullptr;
    resetServices();
    for (const char* code : {"4001", "4012", "CMD_HEARTBEAT", "CMD"}) {
        const std::string log =
            "NVR_PRODUCE_TEST_MESSAGE deal a unknow msg_code:" + std::to_string(atoi(code)) + "\n";
        EXPECT_EQ(NvrProduceTestMessageCompose(&any, 0, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        EXPECT_EQ(NvrProduceTestMessageAnalysis("<a/>", code, &result), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
    }
    EXPECT_EQ(NvrProduceTestMessageCompose(&any, 0, "4002", out, 0), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("NVR_PRODUCE_TEST_MESSAGE put a empty Param\n"));
    EXPECT_EQ(NvrProduceTestMessageAnalysis("<a/>", nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("NvrProduceTestMessageAnalysis put a empty Param\n"));
}

} // namespace
