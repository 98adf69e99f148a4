#include <cstddef>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "ALARM_REPORT_MESSAGE";
const std::string kCode = "CMD_REPORT_ALARM";

using Alarm = ALARM_REPORT_CMD_RPEORT_ALARM_PARAM;
using Face = ALARM_REPORT_HUMANFACE_INFO;
using Animal = ALARM_REPORT_ANIMAL_INFO;
using CrossBorder = ALARM_REPORT_CROSSBORDER_INFO;

const std::string kBare = "<ALARM_INFO|Alarm_code='-1'|Alarm_flag='-1'|Alarm_level='-1'|Alarm_data=''|/>|";
const std::string kFaceText =
    "<HumanFaceInfo|Age='200'|Gender='2'|IsGlasses='3'|IsMask='5'|IsHat='4'|DataLen='8'|"
    "SimilarityThreshold='7'|SerialNum='4000000000'|AlgVer='1'|uniqueIndex='index'|absTime='-294967296'|"
    "faceQualityScore='0.500000'|HsvAreaScore='-1.250000'|BlurSMD='2.000000'|ErrorCode='-9'|/>|";

const Alarm kFull{-1, -1, 2024, 1, 2, 3, 4, 5, 6, 7, 8, 9, -2, 10, 11, "data", nullptr};
const Face kFace{200, 2, 3, 4, 5, 1, 4000000000U, 7, 8, -9, 4000000000U, 0.5F, -1.25F, 2, {}, "index"};

// Without the gaps between fields.
bool isSame(const Alarm& a, const Alarm& b)
{
    return memcmp(&a, &b, offsetof(Alarm, Alarm_data) + sizeof a.Alarm_data) == 0 && a.pExData == b.pExData;
}

bool isSame(const Face& a, const Face& b)
{
    const size_t numbers = offsetof(Face, SerialNum);
    return memcmp(&a, &b, 6) == 0 && memcmp(&a.SerialNum, &b.SerialNum, sizeof a - numbers) == 0;
}

std::string whole(const std::string& source, const std::string& item)
{
    return "<ALARM_REPORT_PARAM>|" + source + "<ALARM_ITEM>|" + item + "</ALARM_ITEM>|</ALARM_REPORT_PARAM>|";
}

Alarm alarmWith(int32_t code, void* extension)
{
    auto alarm = fresh(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init);
    alarm.Alarm_code = code;
    alarm.pExData = extension;
    return alarm;
}

// Bytes that the message announces behind its text.
uint32_t extraOf(const Alarm& alarm)
{
    const Composed composed = compose(headerOf(kType, kCode), &alarm, 0);
    return composed.announced - static_cast<uint32_t>(composed.text.size());
}

Analysed received(const std::string& item, const std::string& behind = "")
{
    return analyse(envelope(kType, kCode, wire(whole("", item))) + behind);
}

template <class Extension>
const Extension& extensionOf(const Analysed& analysed)
{
    return *static_cast<const Extension*>(analysed.as<Alarm>().pExData);
}

TEST(AlarmReport, BothWays)
{
    const std::string source = "<SRC_INFO|Src='10'|ChannelId='11'|/>|";
    const std::string item =
        "<ALARM_INFO|Alarm_code='7'|Alarm_flag='8'|Alarm_level='9'|Alarm_data='data'|Alarm_absTime='-2'|/>|"
        "<ALARM_TIME|Year='2024'|Month='1'|Day='2'|WDay='3'|Hour='4'|Minute='5'|Second='6'|/>|";
    expectBodies(kType, kCode, &kFull, whole(source, item), "");
    const Analysed analysed = analyseBody(
        kType, "ANY",
        whole(source, item + "</ALARM_ITEM><ALARM_ITEM><ALARM_INFO Alarm_code='99'/><ANIMAL_INFO/>"));
    ASSERT_EQ(analysed.result, 0);
    EXPECT_TRUE(isSame(analysed.as<Alarm>(), kFull));
    const Analysed unsignedTime = received("<ALARM_INFO Alarm_absTime='4294967294'/>");
    EXPECT_EQ(unsignedTime.as<Alarm>().Alarm_absTime, kFull.Alarm_absTime);

    const auto absent = fresh(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init);
    expectBodies(kType, kCode, &absent, whole("", kBare), "");
    const Analysed empty = received("");
    ASSERT_EQ(empty.result, 0);
    EXPECT_TRUE(isSame(empty.as<Alarm>(), absent));

    // A response has no body, nor anything behind it.
    Face face = kFace;
    const Alarm alarm = alarmWith(38, &face);
    resetServices();
    const Composed composed = compose(headerOf(kType, kCode), &alarm, 1);
    EXPECT_EQ(composed.announced, composed.text.size());
    EXPECT_EQ(services().infos.front(),
              "ALARM_REPORT_MESSAGE response message Not have Body, please check msgtype\n");
}

TEST(AlarmReport, ComposeExtensions)
{
    Face face = kFace;
    Animal animal{12};
    CrossBorder crossing{1, -1};
    const std::string animalText = "<ANIMAL_INFO|Animal_type='12'|/>|";
    const struct
    {
        int32_t code;
        void* extension;
        std::string text;
        uint32_t extra;
    } cases[] = {
        {38, &face, kFaceText, 516},
        {39, &face, kFaceText, 516},
        {38, nullptr, "", 0},
        {44, &animal, animalText, 0},
        {45, &animal, animalText, 0},
        {32, &crossing, "<CROSSBORDER_INFO|CrowdFlowStatEnable='1'|CrowdFlowNum='-1'|/>|", 0},
        {100, &face, "", 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.code);
        resetServices();
        const Alarm alarm = alarmWith(each.code, each.extension);
        std::string info = kBare;
        info.replace(info.find("-1"), 2, std::to_string(each.code));
        EXPECT_EQ(bodyOf(kType, kCode, &alarm, 0), wire(whole("", info + each.text)));
        EXPECT_EQ(extraOf(alarm), each.extra);
        EXPECT_TRUE(services().errors.empty());
    }
    EXPECT_EQ(services().debugs.front(),
              "ALARM_REPORT_MESSAGE message deal alarm_code:100 , code has pExData, but unknow "
              "type to use\n");
    face.AlgVer = 2;
    EXPECT_EQ(extraOf(alarmWith(38, &face)), 1028U);
}

TEST(AlarmReport, AnalysisOfExtensions)
{
    const Analysed both = received("<CROSSBORDER_INFO/><ANIMAL_INFO Animal_type='1'/>" + kFaceText +
                                   "<ALARM_INFO Alarm_code='44'/>");
    ASSERT_EQ(both.result, 0);
    EXPECT_EQ(both.as<Alarm>().iExDataType, 38);
    EXPECT_EQ(both.as<Alarm>().pExData, &both.as<Alarm>() + 1);
    EXPECT_TRUE(isSame(extensionOf<Face>(both), kFace));

    const Analysed animal = received("<CROSSBORDER_INFO/><ANIMAL_INFO Animal_type='12'/>");
    EXPECT_EQ(animal.as<Alarm>().iExDataType, 44);
    EXPECT_EQ(extensionOf<Animal>(animal).Animal_type, 12);
    const Analysed crossing = received("<CROSSBORDER_INFO CrowdFlowNum='-5'/>");
    EXPECT_EQ(crossing.as<Alarm>().iExDataType, 32);
    EXPECT_EQ(extensionOf<CrossBorder>(crossing).CrowdFlowNum, -5);
    EXPECT_EQ(extensionOf<CrossBorder>(crossing).CrowdFlowStatEnable, 0);
    EXPECT_EQ(crossing.as<Alarm>().Alarm_code, -1);
}

// Every number of received bytes, for both lengths of the block.
TEST(AlarmReport, FeatureBlock)
{
    for (const size_t length : {size_t{512}, size_t{1024}}) {
        std::string behind = "code";
        for (size_t i = 0; i < length + 3; ++i)
            behind += static_cast<char>(i % 251 + 1);
        const std::string item = length == 512 ? "<HumanFaceInfo AlgVer='1' DataLen='9'/>"
                                               : "<HumanFaceInfo AlgVer='0' DataLen='512'/>";
        for (const size_t size :
             {size_t{0}, size_t{1}, size_t{4}, length, length + 3, length + 4, length + 7}) {
            SCOPED_TRACE(size);
            resetServices();
            const Analysed analysed = received(item, behind.substr(0, size));
            if (size > 0 && size < length + 4) {
                EXPECT_EQ(analysed.result, ZEL_ERR_BAD_CONTENT);
                EXPECT_EQ(services().blocks, 0);
                continue;
            }
            ASSERT_EQ(analysed.result, 0);
            std::string expected = size == 0 ? "" : behind.substr(4, length);
            expected.resize(1024);
            EXPECT_EQ(memcmp(extensionOf<Face>(analysed).aucFeatureData, expected.data(), expected.size()),
                      0);
        }
    }
    EXPECT_EQ(received("<ANIMAL_INFO/>", "xyz").result, 0);
}

// A peer may name one kind of alarm and send the extension of another: composing it again stays in the block.
TEST(AlarmReport, ExtensionOfAnotherKind)
{
    const Analysed analysed = received("<ALARM_INFO Alarm_code='38'/><ANIMAL_INFO Animal_type='7'/>");
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(analysed.as<Alarm>().iExDataType, 44);
    const std::string again = bodyOf(kType, kCode, analysed.record.get(), 0);
    EXPECT_NE(again.find("<HumanFaceInfo\nAge=\"7\"\nGender=\"0\"\n"), std::string::npos);
}

TEST(AlarmReport, Failures)
{
    resetServices();
    EXPECT_EQ(analyseBody(kType, kCode, "<ALARM_ITEM/>").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("AlarmReportMessageAnalysis get ALARM_REPORT_PARAM error\n"));
    EXPECT_EQ(analyseBody(kType, kCode, "<ALARM_REPORT_PARAM/><ALARM_ITEM/>").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("AlarmReportMessageAnalysis get ALARM_ITEM error\n"));
    EXPECT_EQ(compose(headerOf(kType, "CMD_OTHER"), &kFull, 0).result, ZEL_ERR_UNKNOWN_MSG);
}

TEST(AlarmReport, ExportedPair)
{
    Face face = kFace;
    const Alarm alarm = alarmWith(39, &face);
    char out[2048];
    int extra = 100;
    EXPECT_EQ(AlarmReportMessageCompose(&alarm, 0, out, sizeof out, &extra), 0);
    EXPECT_EQ(extra, 616);

    // A text alone says nothing about what lies behind it.
    void* result = nullptr;
    ASSERT_EQ(AlarmReportMessageAnalysis(envelope(kType, kCode, wire(whole("", kFaceText))).c_str(), &result),
              0);
    EXPECT_TRUE(isSame(*static_cast<Face*>(static_cast<Alarm*>(result)->pExData), kFace));
    ZelProtocolMSGAnalysisStop(&result);
}

} // namespace
