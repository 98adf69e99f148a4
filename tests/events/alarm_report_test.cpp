#include "zel_protocol/alarm_report.h"

#include <algorithm>
#include <cstddef>

#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "ALARM_REPORT_MESSAGE";
const std::string kCode = "CMD_REPORT_ALARM";

using Alarm = ALARM_REPORT_CMD_RPEORT_ALARM_PARAM;
using Face = ALARM_REPORT_HUMANFACE_INFO;
using Animal = ALARM_REPORT_ANIMAL_INFO;
using CrossBorder = ALARM_REPORT_CROSSBORDER_INFO;

const std::string kBare =
    "<ALARM_INFO\nAlarm_code=\"-1\"\nAlarm_flag=\"-1\"\nAlarm_level=\"-1\"\nAlarm_data=\"\"\n/>\n";

Alarm fresh()
{
    Alarm alarm;
    ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init(&alarm);
    return alarm;
}

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
    return "<ALARM_REPORT_PARAM>\n" + source + "<ALARM_ITEM>\n" + item +
           "</ALARM_ITEM>\n</ALARM_REPORT_PARAM>\n";
}

void expectBody(const Alarm& alarm, int kind, const std::string& body, uint32_t extra)
{
    const Composed composed = compose(headerOf(kType, kCode), &alarm, kind);
    EXPECT_EQ(composed.text, envelope(kType, kCode, body));
    EXPECT_EQ(composed.announced - composed.text.size(), extra);
}

Analysed received(const std::string& item, const std::string& behind = "")
{
    return analyse(envelope(kType, kCode, whole("", item)) + behind);
}

template <class Extension>
const Extension& extensionOf(const Analysed& analysed)
{
    return *static_cast<const Extension*>(analysed.as<Alarm>().pExData);
}

TEST(AlarmReport, Compose)
{
    for (const int kind : {0, 2}) {
        expectBody(
            kFull, kind,
            whole("<SRC_INFO\nSrc=\"10\"\nChannelId=\"11\"\n/>\n",
                  "<ALARM_INFO\nAlarm_code=\"7\"\nAlarm_flag=\"8\"\nAlarm_level=\"9\"\nAlarm_data=\"data\"\n"
                  "Alarm_absTime=\"-2\"\n/>\n<ALARM_TIME\nYear=\"2024\"\nMonth=\"1\"\nDay=\"2\"\nWDay=\"3\"\n"
                  "Hour=\"4\"\nMinute=\"5\"\nSecond=\"6\"\n/>\n"),
            0);
        expectBody(fresh(), kind, whole("", kBare), 0);
    }
    resetServices();
    Face face = kFace;
    Alarm alarm = kFull;
    alarm.Alarm_code = 38;
    alarm.pExData = &face;
    for (const int kind : {1, 3})
        expectBody(alarm, kind, "", 0);
    EXPECT_EQ(std::count(services().infos.begin(), services().infos.end(),
                         "ALARM_REPORT_MESSAGE response message Not have Body, please check msgtype\n"),
              2);
}

TEST(AlarmReport, ComposeExtensions)
{
    Face face = kFace;
    Animal animal{12};
    CrossBorder crossing{1, -1};
    const std::string faceText =
        "<HumanFaceInfo\nAge=\"200\"\nGender=\"2\"\nIsGlasses=\"3\"\nIsMask=\"5\"\nIsHat=\"4\"\nDataLen="
        "\"8\"\n"
        "SimilarityThreshold=\"7\"\nSerialNum=\"4000000000\"\nAlgVer=\"1\"\nuniqueIndex=\"index\"\n"
        "absTime=\"-294967296\"\nfaceQualityScore=\"0.500000\"\nHsvAreaScore=\"-1.250000\"\nBlurSMD=\"2."
        "000000\"\n"
        "ErrorCode=\"-9\"\n/>\n";
    const std::string animalText = "<ANIMAL_INFO\nAnimal_type=\"12\"\n/>\n";
    const struct
    {
        int32_t code;
        void* extension;
        std::string text;
        uint32_t extra;
    } cases[] = {
        {38, &face, faceText, 516},
        {39, &face, faceText, 516},
        {38, nullptr, "", 0},
        {44, &animal, animalText, 0},
        {45, &animal, animalText, 0},
        {32, &crossing, "<CROSSBORDER_INFO\nCrowdFlowStatEnable=\"1\"\nCrowdFlowNum=\"-1\"\n/>\n", 0},
        {100, &face, "", 0},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.code);
        resetServices();
        Alarm alarm = fresh();
        alarm.Alarm_code = each.code;
        alarm.pExData = each.extension;
        std::string info = kBare;
        info.replace(info.find("-1"), 2, std::to_string(each.code));
        expectBody(alarm, 0, whole("", info + each.text), each.extra);
        EXPECT_TRUE(services().errors.empty());
    }
    EXPECT_EQ(services().debugs,
              std::vector<std::string>{
                  "ALARM_REPORT_MESSAGE message deal alarm_code:100 , code has pExData, but unknow "
                  "type to use\n"});
    face.AlgVer = 2;
    Alarm alarm = fresh();
    alarm.Alarm_code = 38;
    alarm.pExData = &face;
    const Composed other = compose(headerOf(kType, kCode), &alarm, 0);
    EXPECT_EQ(other.announced - other.text.size(), 1028U);
}

TEST(AlarmReport, Analysis)
{
    const Analysed analysed = analyse(envelope(
        kType, "ANY",
        whole(
            "<SRC_INFO ChannelId=\"11\" Src=\"10\"/>",
            "<ALARM_TIME Second=\"6\" Minute=\"5\" Hour=\"4\" WDay=\"3\" Day=\"2\" Month=\"1\" "
            "Year=\"2024\"/>"
            "<ALARM_INFO Alarm_absTime=\"4294967294\" Alarm_data=\"data\" Alarm_level=\"9\" Alarm_flag=\"8\" "
            "Alarm_code=\"7\"/></ALARM_ITEM><ALARM_ITEM><ALARM_INFO Alarm_code=\"99\"/><ANIMAL_INFO/>")));
    ASSERT_EQ(analysed.result, 0);
    EXPECT_TRUE(isSame(analysed.as<Alarm>(), kFull));

    const Analysed empty = received("");
    ASSERT_EQ(empty.result, 0);
    EXPECT_TRUE(isSame(empty.as<Alarm>(), fresh()));
}

TEST(AlarmReport, AnalysisOfExtensions)
{
    const Analysed both = received(
        "<CROSSBORDER_INFO/><ANIMAL_INFO Animal_type=\"1\"/><HumanFaceInfo ErrorCode=\"-9\" BlurSMD=\"2\" "
        "HsvAreaScore=\"-1.25\" faceQualityScore=\"0.5\" absTime=\"-294967296\" uniqueIndex=\"index\" "
        "AlgVer=\"1\" SerialNum=\"4000000000\" SimilarityThreshold=\"7\" DataLen=\"8\" IsHat=\"4\" "
        "IsMask=\"5\" "
        "IsGlasses=\"3\" Gender=\"2\" Age=\"200\"/><ALARM_INFO Alarm_code=\"44\"/>");
    ASSERT_EQ(both.result, 0);
    EXPECT_EQ(both.as<Alarm>().iExDataType, 38);
    EXPECT_EQ(both.as<Alarm>().pExData, &both.as<Alarm>() + 1);
    EXPECT_TRUE(isSame(extensionOf<Face>(both), kFace));

    const Analysed animal = received("<CROSSBORDER_INFO/><ANIMAL_INFO Animal_type=\"12\"/>");
    EXPECT_EQ(animal.as<Alarm>().iExDataType, 44);
    EXPECT_EQ(extensionOf<Animal>(animal).Animal_type, 12);
    const Analysed crossing = received("<CROSSBORDER_INFO CrowdFlowNum=\"-5\"/>");
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
        const std::string item = length == 512 ? "<HumanFaceInfo AlgVer=\"1\" DataLen=\"9\"/>"
                                               : "<HumanFaceInfo AlgVer=\"0\" DataLen=\"512\"/>";
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
    const std::string body = "<ALARM_REPORT_PARAM><ALARM_ITEM><ALARM_INFO Alarm_code=\"38\"/>"
                             "<ANIMAL_INFO Animal_type=\"7\"/></ALARM_ITEM></ALARM_REPORT_PARAM>";
    const Analysed analysed = analyse(envelope(kType, kCode, body));
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(analysed.as<Alarm>().iExDataType, 44);
    const std::string again = compose(headerOf(kType, kCode), analysed.record.get(), 0).text;
    EXPECT_NE(again.find("<HumanFaceInfo\nAge=\"7\"\nGender=\"0\"\n"), std::string::npos);
}

TEST(AlarmReport, Failures)
{
    const std::pair<const char*, const char*> cases[] = {
        {"<ALARM_ITEM/>", "AlarmReportMessageAnalysis get ALARM_REPORT_PARAM error\n"},
        {"<ALARM_REPORT_PARAM><SRC_INFO/></ALARM_REPORT_PARAM><ALARM_ITEM/>",
         "AlarmReportMessageAnalysis get ALARM_ITEM error\n"},
    };
    for (const auto& each : cases) {
        resetServices();
        EXPECT_EQ(analyse(envelope(kType, kCode, each.first)).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(each.second));
    }
    resetServices();
    services().failAfter = 0;
    EXPECT_EQ(received("<ANIMAL_INFO/>").result, ZEL_ERR_NO_MEMORY);
    EXPECT_TRUE(loggedOnly("Malloc Memory failed!\n"));
    resetServices();
    EXPECT_EQ(compose(headerOf(kType, "CMD_OTHER"), &cases, 0).result, ZEL_ERR_UNKNOWN_MSG);
}

TEST(AlarmReport, ExportedPair)
{
    Face face = kFace;
    Alarm alarm = kFull;
    alarm.Alarm_code = 39;
    alarm.pExData = &face;
    std::vector<char> out(2048);
    int extra = 100;
    EXPECT_EQ(AlarmReportMessageCompose(&alarm, 0, out.data(), 2048, &extra), 0);
    EXPECT_EQ(extra, 616);
    const std::string body = out.data();
    EXPECT_EQ(AlarmReportMessageCompose(&alarm, 0, out.data(), static_cast<int>(body.size()), &extra),
              ZEL_ERR_BUFFER_SMALL);
    extra = 100;
    EXPECT_EQ(AlarmReportMessageCompose(nullptr, 0, out.data(), 1, &extra), 0);
    EXPECT_EQ(extra, 100);
    resetServices();
    EXPECT_EQ(AlarmReportMessageCompose(nullptr, 0, out.data(), 1, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("ALARM_REPORT_MESSAGE put a empty Param\n"));

    // A text alone says nothing about what lies behind it.
    void* result = nullptr;
    ASSERT_EQ(AlarmReportMessageAnalysis(envelope(kType, kCode, body).c_str(), &result), 0);
    EXPECT_TRUE(isSame(*static_cast<Face*>(static_cast<Alarm*>(result)->pExData), kFace));
    ZelProtocolMSGAnalysisStop(&result);
    resetServices();
    EXPECT_EQ(AlarmReportMessageAnalysis(nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("ALARM_REPORT_MESSAGE put a empty Param\n"));
    EXPECT_EQ(AlarmReportMessageAnalysis("<a/>", nullptr), ZEL_ERR_BAD_PARAM);
}

} // namespace
