#include "zel_protocol/nvr_produce_test.h"

#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

using TestResult = NVR_PRODUCE_TEST_RESULT;
using SoundTest = NVR_PRODUCE_TEST_4003_PARAM;
using ScreenTest = NVR_PRODUCE_TEST_4004_PARAM;
using OwnResult = NVR_PRODUCE_TEST_4006_PARAM;
using WholeResult = NVR_PRODUCE_TEST_4008_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void lampControl(Side& side, NVR_PRODUCE_TEST_4002_PARAM& record)
{
    attribute(side, "Switch", record.Switch);
    attribute(side, "Color", record.Color);
}

void soundFormat(Side& side, SoundTest& record)
{
    attribute(side, "format", record.format);
    attribute(side, "frequency", record.frequency);
    attribute(side, "method", record.method);
}

// Both directions have one element, of which all is read.
void soundRequest(Side& side, SoundTest& record)
{
    attribute(side, "Soundtrack", record.Soundtrack);
    if (!side.writes())
        soundFormat(side, record);
}

void soundResponse(Side& side, SoundTest& record)
{
    if (const Element audio = element(side, "AudioControl"))
        soundFormat(side, record);
}

void screenControl(Side& side, ScreenTest& record)
{
    attribute(side, "Screen", record.Screen);
}

void screenStatus(Side& side, ScreenTest& record)
{
    attribute(side, "channel", record.channel);
    attribute(side, "view_layout", record.view_layout);
    hexAttribute(side, "decode_status", record.decode_status);
}

// What a device finds of itself.
void ownResults(Side& side, TestResult& result)
{
    attribute(side, "DevType", result.DevType);
    attribute(side, "DevTypeResult", result.DevTypeResult);
    attribute(side, "DevVer", result.DevVer);
    attribute(side, "DevVerResult", result.DevVerResult);
    attribute(side, "SerialNum", result.SerialNum);
    attribute(side, "SnResult", result.SnResult);
    attribute(side, "UsbResult", result.UsbResult);
    attribute(side, "DiskResult", result.DiskResult);
    signedAttribute(side, "AgingTime", result.AgingTime);
    attribute(side, "AgingTimeResult", result.AgingTimeResult);
    attribute(side, "AgingAvgTemp", result.AgingAvgTemp);
    attribute(side, "AgingAvgTempResult", result.AgingAvgTempResult);
    signedAttribute(side, "AgingAvgDuration", result.AgingAvgDuration);
    attribute(side, "AgingAvgDurationResult", result.AgingAvgDurationResult);
    attribute(side, "AlarmInputResult", result.AlarmInputResult);
    attribute(side, "AlarmOutputResult", result.AlarmOutputResult);
    attribute(side, "PanelUsbResult", result.PanelUsbResult);
    attribute(side, "EsataResult", result.EsataResult);
}

void ownResult(Side& side, OwnResult& record)
{
    ownResults(side, record.stTestResult);
}

void wholeResult(Side& side, WholeResult& record)
{
    TestResult& result = record.stTestResult;
    attribute(side, "TesterName", record.TesterName);
    attribute(side, "RtcTime", result.RtcTime);
    attribute(side, "RtcTimeResult", result.RtcTimeResult);
    ownResults(side, result);
    attribute(side, "VGAResult", result.VGAResult);
    attribute(side, "HDMIResult", result.HDMIResult);
    attribute(side, "VideoDecodeResult", result.VideoDecodeResult);
    attribute(side, "AudioDecodeResult", result.AudioDecodeResult);
    attribute(side, "PilotLampResult", result.PilotLampResult);
    attribute(side, "DevCurrent", result.DevCurrent);
    attribute(side, "DevCurrentResult", result.DevCurrentResult);
    attribute(side, "DevStartUpResult", result.DevStartUpResult);
    attribute(side, "EthPortResult", result.EthPortResult);
    attribute(side, "RS232Result", result.RS232Result);
    attribute(side, "RS485Result", result.RS485Result);
    attribute(side, "FanResult", result.FanResult);
    attribute(side, "CheckTotalResult", result.CheckTotalResult);
}

void clock(Side& side, NVR_PRODUCE_TEST_4007_PARAM& record)
{
    attribute(side, "seconds", record.seconds);
}

void abilities(Side& side, NVR_PRODUCE_TEST_4010_PARAM& record)
{
    attribute(side, "DevType", record.DevType);
    attribute(side, "DevTypeTest", record.DevTypeTest);
    attribute(side, "DevVerTest", record.DevVerTest);
    attribute(side, "SnTest", record.SnTest);
    attribute(side, "RtcTimeTest", record.RtcTimeTest);
    attribute(side, "USBTest", record.USBTest);
    attribute(side, "DiskTest", record.DiskTest);
    attribute(side, "AgingTest", record.AgingTest);
    attribute(side, "VGATest", record.VGATest);
    attribute(side, "HDMITest", record.HDMITest);
    attribute(side, "VideoDecodeTest", record.VideoDecodeTest);
    attribute(side, "AudioDecodeTest", record.AudioDecodeTest);
    attribute(side, "PilotLampTest", record.PilotLampTest);
    attribute(side, "PilotLampNum", record.PilotLampNum);
    attribute(side, "PilotLampList", record.PilotLampList);
    attribute(side, "DevCurrentTest", record.DevCurrentTest);
    attribute(side, "DevStartUpTest", record.DevStartUpTest);
    attribute(side, "EthPortTest", record.EthPortTest);
    attribute(side, "AlarmInputTest", record.AlarmInputTest);
    attribute(side, "AlarmOutputTest", record.AlarmOutputTest);
    attribute(side, "RS232Test", record.RS232Test);
    attribute(side, "RS485Test", record.RS485Test);
    attribute(side, "IPConflictEnable", record.IPConflictEnable);
    attribute(side, "PanelUsbTest", record.PanelUsbTest);
    attribute(side, "FanTest", record.FanTest);
    attribute(side, "EsataTest", record.EsataTest);
}

void serialNumber(Side& side, NVR_PRODUCE_TEST_4011_PARAM& record)
{
    attribute(side, "SerialNumber", record.SerialNumber);
}

// --- Absent values -------------------------------------------------------------------------------

void clearTexts(TestResult& result)
{
    clear(result.DevType, result.SerialNum, result.RtcTime, result.DevVer);
}

// --- Leaf ----------------------------------------------------------------------------------------

// Reads an element's attributes, and notes whether one of them couldn't be read.
struct StrictReader : Visitor
{
    explicit StrictReader(const ElementReader& element)
        : Visitor(
              false, true, onField, [](Visitor&, const ElementSeen&) { return false; }, [](Visitor&) {}),
          in(element)
    {}

    static bool onField(Visitor& visitor, const FieldSeen& seen);

    TreeReader in;
    bool isWhole = true;
};

// In the forms that a test result has.
bool readField(TreeReader& in, const FieldSeen& seen)
{
    if (seen.form == ZEL_FORM_TEXT)
        return readTextAttribute(in, seen.name, static_cast<char*>(seen.field), seen.size);
    if (seen.form == ZEL_FORM_NUMBER)
        return readAttribute(in, seen.name, *static_cast<int32_t*>(seen.field));
    return in.at.parser->ReadUInt(in.at.node, seen.name.text, seen.name.length,
                                  static_cast<uint32_t*>(seen.field));
}

bool StrictReader::onField(Visitor& visitor, const FieldSeen& seen)
{
    auto& self = static_cast<StrictReader&>(visitor);
    const bool isRead = readField(self.in, seen);
    self.isWhole &= isRead;
    return isRead;
}

// The one message that has to be whole, before there is a block for it.
int analyseWholeResult(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    const ElementReader place = findPart(row.parts[0], body);
    if (!place)
        return missingElement(row.leaf, row.parts[0].elementText);
    WholeResult whole;
    NVR_PRODUCE_TEST_4008_PARAM_init(&whole);
    StrictReader side(place);
    wholeResult(side, whole);
    if (!side.isWhole) {
        missingElement(row.leaf, row.parts[0].elementText);
        return ZEL_ERR_BAD_CONTENT;
    }
    void* const record = takeRecord(row.record);
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    memcpy(record, &whole, sizeof whole);
    *result = record;
    return 0;
}

// --- Messages ------------------------------------------------------------------------------------

constexpr MessageRow kLedControl = message<NVR_PRODUCE_TEST_4002_PARAM_init>(
    "NvrProduceTest_LedControl_MessageAnalysis", within<lampControl>("LedControl", Kinds::kRequests));
constexpr MessageRow kAudioTest = message<NVR_PRODUCE_TEST_4003_PARAM_init>(
    "NvrProduceTest_AudioTest_MessageAnalysis", within<soundRequest>("AudioControl", Kinds::kRequests),
    written<soundResponse>(Kinds::kResponses));
constexpr MessageRow kScreenTest =
    message<NVR_PRODUCE_TEST_4004_PARAM_init>("NvrProduceTest_VGA_HMDI_Test_MessageAnalysis",
                                              within<screenControl>("ScreenControl", Kinds::kRequests),
                                              within<screenStatus>("VideoControl", Kinds::kResponses))
        .reporting("VideoControl");
constexpr MessageRow kReportResult = message<NVR_PRODUCE_TEST_4006_PARAM_init>(
    "NvrProduceTest_ReportResult_MessageAnalysis",
    within<ownResult>("SelfTestResult", Kinds::kResponses, kNoLineFeed));
constexpr MessageRow kGetNvrSystemTime =
    message<NVR_PRODUCE_TEST_4007_PARAM_init>("NvrProduceTest_GetNvrSystemTime_MessageAnalysis",
                                              within<clock>("RtcTime", Kinds::kResponses, kNoLineFeed));
constexpr MessageRow kSendTestReuslt = message<NVR_PRODUCE_TEST_4008_PARAM_init>(
                                           "NvrProduceTest_SendTestReuslt_MessageAnalysis",
                                           within<wholeResult>("TestResult", Kinds::kRequests, kNoLineFeed))
                                           .analysedBy(analyseWholeResult);
constexpr MessageRow kGetNvrTestAbality = message<NVR_PRODUCE_TEST_4010_PARAM_init>(
    "NvrProduceTest_GetNvrTestAbality_MessageAnalysis",
    within<abilities>("ProductAbility", Kinds::kResponses, kNoLineFeed));
constexpr MessageRow kGetOtherParam = message<NVR_PRODUCE_TEST_4011_PARAM_init>(
    "NvrProduceTest_GetOtherParam_MessageAnalysis",
    within<serialNumber>("MiscInfo", Kinds::kResponses, kNoLineFeed));

// The code without a row has neither a body nor a record.
constexpr CodeRow kCodes[] = {
    {4002, &kLedControl},        {4003, &kAudioTest},
    {4004, &kScreenTest},        {4005, &kScreenTest, Erased<NVR_PRODUCE_TEST_4005_PARAM_init>::call},
    {4006, &kReportResult},      {4007, &kGetNvrSystemTime},
    {4008, &kSendTestReuslt},    {4009, nullptr},
    {4010, &kGetNvrTestAbality}, {4011, &kGetOtherParam},
};
static_assert(isAscending(kCodes));

int unknownTestCode(const Family& family, std::string_view code)
{
    ZelProtocolLogError("%s deal a unknow msg_code:%d\n", family.name, numberOf(code));
    return ZEL_ERR_UNKNOWN_MSG;
}

} // namespace

extern constexpr Family kProduceTestFamily =
    Family("NVR_PRODUCE_TEST_MESSAGE", kCodes, composeCode, analyseCode, unknownTestCode)
        .loggedAs("NVR_PRODUCE_TEST_MESSAGE", "NvrProduceTestMessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int NVR_PRODUCE_TEST_4002_PARAM_init(NVR_PRODUCE_TEST_4002_PARAM* param)
{
    return zel::initRecord(param);
}

int NVR_PRODUCE_TEST_4003_PARAM_init(NVR_PRODUCE_TEST_4003_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.format); });
}

int NVR_PRODUCE_TEST_4004_PARAM_init(NVR_PRODUCE_TEST_4004_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(NVR_PRODUCE_TEST_4005_PARAM, NVR_PRODUCE_TEST_4004_PARAM)

int NVR_PRODUCE_TEST_4006_PARAM_init(NVR_PRODUCE_TEST_4006_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clearTexts(record.stTestResult); });
}

int NVR_PRODUCE_TEST_4007_PARAM_init(NVR_PRODUCE_TEST_4007_PARAM* param)
{
    return zel::initRecord(param);
}

int NVR_PRODUCE_TEST_4008_PARAM_init(NVR_PRODUCE_TEST_4008_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.TesterName);
        zel::clearTexts(record.stTestResult);
    });
}

int NVR_PRODUCE_TEST_4010_PARAM_init(NVR_PRODUCE_TEST_4010_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.PilotLampList, record.DevType); });
}

int NVR_PRODUCE_TEST_4011_PARAM_init(NVR_PRODUCE_TEST_4011_PARAM* param)
{
    return zel::startAtZero(param);
}

int NvrProduceTestMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kProduceTestFamily, record, kind, code, buf, len);
}

int NvrProduceTestMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kProduceTestFamily, text, code, result);
}

ZEL_EXPORT_ANALYSIS(NvrProduceTest_LedControl, kLedControl)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_AudioTest, kAudioTest)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_VGA_HMDI_Test, kScreenTest)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_ReportResult, kReportResult)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_GetNvrSystemTime, kGetNvrSystemTime)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_SendTestReuslt, kSendTestReuslt)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_GetNvrTestAbality, kGetNvrTestAbality)
ZEL_EXPORT_ANALYSIS(NvrProduceTest_GetOtherParam, kGetOtherParam)
