// The intelligent event, and with it the lists and the schedule of alarm pushes that all of analytics shares.
#include <climits>

#include "analytics/intelligent_event_msg.h"
#include "analytics/push_time.h"
#include "core/records.h"
#include "support/wire.h"

using namespace test;

namespace {

using Event = SYSTEM_CONFIG_GET_1402_PARAM;

Event freshEvent()
{
    return fresh(SYSTEM_CONFIG_GET_1402_PARAM_init);
}

std::string composed(const zel::MessageRow& row, Event event, int kind, size_t capacity = 16384)
{
    const auto buffer = std::make_unique<char[]>(capacity);
    zel::TextWriter out(buffer.get(), capacity);
    zel::Outbound outbound{out, &event, kind, {}};
    EXPECT_EQ(compose(row, outbound), 0);
    return {buffer.get(), out.kept()};
}

const zel::MessageRow& composeGet = zel::kGetIntelligentEvent;
const zel::MessageRow& composeSet = zel::kSetIntelligentEvent;
const auto analyseGet = ::SystemConfig_getIntelligentEvent_MessageAnalysis;
const auto analyseSet = ::SystemConfig_setIntelligentEvent_MessageAnalysis;

Event analysed(int (*leaf)(const char*, void**), const std::string& body)
{
    void* result = nullptr;
    EXPECT_EQ(leaf(envelope("SYSTEM_CONFIG_GET_MESSAGE", "1402", body).c_str(), &result), 0) << body;
    const std::unique_ptr<void, FreeRecord> owner(result);
    return result ? *static_cast<Event*>(result) : freshEvent();
}

bool same(const Event& left, const Event& right)
{
    return memcmp(&left, &right, sizeof left) == 0;
}

template <class... Fields>
void number(int32_t first, Fields&... fields)
{
    ((fields = static_cast<Fields>(first++)), ...);
}

// The region has a value of its own in each field, the boundary the same but for some of what only goes out
// if set.
Event full()
{
    Event event = freshEvent();
    SMART_RULE_PARAM& rule = event.stRegion;
    number(1, rule.Enable, rule.DefEnable, rule.DetectionAttr, rule.DetectionSens, rule.DefDetectionSens,
           rule.DefDetectionSensRange[0], rule.DefDetectionSensRange[1], rule.ShowAlarmCount,
           rule.ShowAlarmLine, rule.VideoResolution[0], rule.VideoResolution[1],
           rule.MaxCoordinateCapability);
    rule.LineCoordinatesNum = 2;
    rule.LineCoordinates[0] = {13, -14};
    rule.LineCoordinates[1] = {15, 16};
    number(17, rule.LightAlarmEnable, rule.DefLightAlarmEnable, rule.Lightduration, rule.DefLightduration,
           rule.DefLightdurationRange[0], rule.DefLightdurationRange[1], rule.LightScheduleMode,
           rule.DefLightScheduleMode, rule.EmailAlarmEnable, rule.Emailduration,
           rule.DefEmaildurationRange[0], rule.DefEmaildurationRange[1], rule.EmailScheduleMode,
           rule.AudioAlarmEnable, rule.DefAudioAlarmEnable, rule.AudioAlarmTimes, rule.DefAudioAlarmTimes,
           rule.DefAudioAlarmTimesRange[0], rule.DefAudioAlarmTimesRange[1], rule.AudioScheduleMode,
           rule.DefAudioScheduleMode);
    number(7, rule.LightAudioAlarmStartTime[0], rule.LightAudioAlarmStartTime[1],
           rule.LightAudioAlarmStartTime[2], rule.LightAudioAlarmEndTime[0], rule.LightAudioAlarmEndTime[1],
           rule.LightAudioAlarmEndTime[2]);
    number(38, rule.AlarmTime, rule.TrackEnable, rule.DefTrackEnable, rule.CrowdFlowStatEnable,
           rule.DefCrowdFlowStatEnable);
    rule.LightAlarmPeriodNum = 1;
    rule.LightAlarmPeriod[0] = {1, 2, 3, 14, 15, 16};
    rule.AudioAlarmPeriodNum = 2;
    rule.AudioAlarmPeriod[0] = {0, 0, 0, 12, 0, 0};
    rule.AudioAlarmPeriod[1] = {13, 0, 0, 23, 59, 59};
    rule.EmailAlarmPeriodNum = 0;
    event.stCrossBoundary = rule;
    SMART_RULE_PARAM& bare = event.stCrossBoundary;
    bare.Enable = 0;
    zel::setAbsent(bare.CrowdFlowStatEnable, bare.DefCrowdFlowStatEnable, bare.LightAudioAlarmStartTime[0],
                   bare.TrackEnable, bare.LightAlarmPeriodNum, bare.LightAlarmPeriod,
                   bare.EmailAlarmPeriodNum);
    return event;
}

// An event's text, from its rules' attributes with blanks in between.
std::string eventText(const std::string& region, const std::string& boundary)
{
    std::string text = "<RegionDetection " + region + " /> <CrossBoundaryDetection " + boundary + " />";
    std::replace(text.begin(), text.end(), ' ', '\n');
    return "<SmartConfig>\n" + text + "\n</SmartConfig>\n";
}

const std::string kLight = R"( LightAlarmPeriodNum="1" LightAlarmPeriod="[01:02:03-14:15:16],")";
const std::string kAudio =
    R"( AudioAlarmPeriodNum="2" AudioAlarmPeriod="[00:00:00-12:00:00],[13:00:00-23:59:59],")";

// Behind Enable, up to the times of day.
const std::string kGet =
    R"(DefEnable="2" DetectionAttr="3" DetectionSens="4" DefDetectionSens="5" DefDetectionSensRange="6,7" )"
    R"(ShowAlarmCount="8" ShowAlarmLine="9" VideoResolution="10*11" MaxCoordinateCapability="12" )"
    R"(LineCoordinatesNum="2" LineCoordinates="[13,-14],[15,16]," LightAlarmEnable="17" )"
    R"(DefLightAlarmEnable="18" Lightduration="19" DefLightduration="20" DefLightdurationRange="21,22" )"
    R"(LightScheduleMode="23" DefLightScheduleMode="24" EmailAlarmEnable="25" Emailduration="26" )"
    R"(DefEmaildurationRange="27,28" EmailScheduleMode="29" AudioAlarmEnable="30" DefAudioAlarmEnable="31" )"
    R"(AudioAlarmTimes="32" DefAudioAlarmTimes="33" DefAudioAlarmTimesRange="34,35" AudioScheduleMode="36" )"
    R"(DefAudioScheduleMode="37" )";

const std::string kSet =
    R"(DetectionAttr="3" DetectionSens="4" ShowAlarmCount="8" ShowAlarmLine="9" VideoResolution="10*11" )"
    R"(MaxCoordinateCapability="12" LineCoordinatesNum="2" LineCoordinates="[13,-14],[15,16]," )"
    R"(LightAlarmEnable="17" Lightduration="19" LightScheduleMode="23" AudioAlarmEnable="30" )"
    R"(AudioAlarmTimes="32" AudioScheduleMode="36")";

const std::string kTimes = R"(LightAudioAlarmStartTime="07:08:09" LightAudioAlarmEndTime="10:11:12" )";

const std::string kGetRegion =
    R"(Enable="1" )" + kGet + kTimes +
    R"(AlarmTime="38" TrackEnable="39" DefTrackEnable="40" CrowdFlowStatEnable="41" DefCrowdFlowStatEnable="42")" +
    kLight + kAudio + R"( EmailAlarmPeriodNum="0" EmailAlarmPeriod="")";
const std::string kGetBoundary = R"(Enable="0" )" + kGet +
                                 R"(LightAudioAlarmStartTime="-1:08:09" LightAudioAlarmEndTime="10:11:12" )"
                                 R"(AlarmTime="38" TrackEnable="255" DefTrackEnable="40")" +
                                 kAudio;
const std::string kSetRegion = R"(Enable="1" )" + kSet + R"( CrowdFlowStatEnable="41" )" + kTimes +
                               R"(AlarmTime="38" TrackEnable="39")" + kLight + kAudio;
const std::string kSetBoundary = R"(Enable="0" )" + kSet + R"( AlarmTime="38")" + kAudio;

TEST(IntelligentEvent, Out)
{
    Event event = full();
    event.stRegion.ucAlarmTimeIn = 99;
    for (const int kind : {0, 2}) {
        EXPECT_EQ(composed(composeGet, full(), kind), "");
        EXPECT_EQ(composed(composeSet, event, kind), eventText(kSetRegion, kSetBoundary));
    }
    for (const int kind : {1, 3}) {
        EXPECT_EQ(composed(composeGet, full(), kind), eventText(kGetRegion, kGetBoundary));
        EXPECT_EQ(composed(composeSet, event, kind), "");
    }
    EXPECT_NE(composed(composeGet, freshEvent(), 1)
                  .find("\nLineCoordinatesNum=\"255\"\nLineCoordinates=\"[-1,-1],[-1,-1],[-1,-1],[-1,-1],"
                        "[-1,-1],[-1,-1],[-1,-1],[-1,-1],\"\nLightAlarmEnable=\"255\"\n"),
              std::string::npos);
}

// All that an answer carries, to both analyses: a change takes only what is its own.
TEST(IntelligentEvent, In)
{
    const std::string body = eventText(kGetRegion, kGetBoundary);
    Event expected = full();
    for (SMART_RULE_PARAM* rule : {&expected.stRegion, &expected.stCrossBoundary})
        std::swap(rule->AlarmTime, rule->ucAlarmTimeIn);
    EXPECT_TRUE(same(analysed(analyseGet, body), expected));
    for (SMART_RULE_PARAM* rule : {&expected.stRegion, &expected.stCrossBoundary})
        zel::setAbsent(rule->DefEnable, rule->DefDetectionSens, rule->DefDetectionSensRange,
                       rule->DefLightAlarmEnable, rule->DefLightduration, rule->DefLightdurationRange,
                       rule->DefLightScheduleMode, rule->EmailAlarmEnable, rule->Emailduration,
                       rule->DefEmaildurationRange, rule->EmailScheduleMode, rule->DefAudioAlarmEnable,
                       rule->DefAudioAlarmTimes, rule->DefAudioAlarmTimesRange, rule->DefAudioScheduleMode,
                       rule->DefCrowdFlowStatEnable, rule->EmailAlarmPeriodNum);
    EXPECT_TRUE(same(analysed(analyseSet, body), expected));
}

TEST(IntelligentEvent, MissingPartsStayAbsent)
{
    for (const auto leaf : {analyseGet, analyseSet}) {
        EXPECT_TRUE(same(analysed(leaf, "<SmartConfig/>"), freshEvent()));
        Event expected = freshEvent();
        expected.stCrossBoundary.VideoResolution[0] = 704;
        const std::string open = "<SmartConfig><CrossBoundaryDetection ";
        EXPECT_TRUE(same(analysed(leaf, open + "VideoResolution=\"704x576\"/></SmartConfig>"), expected));
        expected.stCrossBoundary.VideoResolution[0] = 1600;
        expected.stCrossBoundary.VideoResolution[1] = 900;
        EXPECT_TRUE(same(analysed(leaf, open + "/></SmartConfig>"), expected));

        resetServices();
        void* result = nullptr;
        EXPECT_EQ(leaf(envelope("", "", "<RegionDetection/>").c_str(), &result), ZEL_ERR_NO_ELEMENT);
        EXPECT_EQ(result, nullptr);
        EXPECT_TRUE(loggedOnly(std::string("SystemConfig_") + (leaf == analyseGet ? "get" : "set") +
                               "IntelligentEvent_MessageAnalysis get SmartConfig error\n"));
    }
}

// --- Lists ---------------------------------------------------------------------------------------

TEST(Lists, PeriodsAsRead)
{
    const TIME_PERIOD absent{-1, -1, -1, -1, -1, -1};
    const TIME_PERIOD a{1, 2, 3, 4, 5, 6};
    const TIME_PERIOD start{1, 2, 3, -1, -1, -1};
    const TIME_PERIOD b{7, 8, 9, 10, 11, 12};
    const std::string inA = "[1:2:3-4:5:6]";
    const std::string inB = "[07:08:09-10:11:12]";
    const struct
    {
        uint8_t count; // 255: not sent
        std::string list;
        std::vector<TIME_PERIOD> entries;
    } cases[] = {
        {2, inA + "," + inB + "," + inA, {a, b}},
        {3, inA, {a}},
        {255, "x" + inA + "; -" + inB + "]", {a, b}},
        {0, inA, {}},
        {200, inA + inB + inA + inB + inB, {a, b, a, b}},
        {4, inA + "[" + inB + inA, {a, absent, a}}, // the group runs from the first bracket that opens
        {4, "]" + inA + "[]" + inB + "[1:2:3-4:5:6", {a, absent, b}},
        {4, "[1:2:3][1:2:3 -4:5:6][1:2-3:4:5]", {start, start, {1, 2, -1, -1, -1, -1}}},
        {4, "[ 1:\t2:+3- 4:5:6z]", {a}},
        {4, "[" + std::string(21, '0') + "1:2:3-4:5:678]", {a}}, // cut behind its 32nd byte
    };
    for (const auto& row : cases) {
        Event expected = freshEvent();
        expected.stRegion.LightAlarmPeriodNum = row.count;
        std::copy(row.entries.begin(), row.entries.end(), expected.stRegion.LightAlarmPeriod);
        const std::string count =
            row.count == 255 ? "" : " LightAlarmPeriodNum=\"" + std::to_string(row.count) + "\"";
        const std::string rule = "VideoResolution=\"\" LightAlarmPeriod=\"" + row.list + "\"" + count;
        const std::string body = "<SmartConfig><RegionDetection " + rule + "/></SmartConfig>";
        EXPECT_TRUE(same(analysed(analyseSet, body), expected)) << body;
    }
}

TEST(Lists, CoordinatesAsRead)
{
    std::string ten;
    Event expected = freshEvent();
    for (int i = 0; i < 10; ++i)
        ten += "[" + std::to_string(i) + ",-" + std::to_string(i) + "] ";
    for (int i = 0; i < 8; ++i)
        expected.stCrossBoundary.LineCoordinates[i] = {i, -i};
    const auto read = [](const std::string& attributes) {
        return analysed(analyseGet, "<SmartConfig><CrossBoundaryDetection VideoResolution=\"\" " +
                                        attributes + "/></SmartConfig>");
    };
    EXPECT_TRUE(same(read("LineCoordinates=\"" + ten + "\""), expected));
    expected.stCrossBoundary.LineCoordinatesNum = 10;
    EXPECT_TRUE(same(read("LineCoordinatesNum=\"10\" LineCoordinates=\"" + ten + "\""), expected));

    expected = freshEvent();
    expected.stCrossBoundary.LineCoordinatesNum = 3;
    expected.stCrossBoundary.LineCoordinates[0] = {5, -1};
    expected.stCrossBoundary.LineCoordinates[1] = {1, 23}; // cut behind its 32nd byte
    expected.stCrossBoundary.LineCoordinates[2] = {6, 7};
    EXPECT_TRUE(same(read("LineCoordinatesNum=\"3\" LineCoordinates=\"[5;6][" + std::string(28, '0') +
                          "1,234][6,7][8,9]\""),
                     expected));
}

// The longest numbers, more entries announced than there are, and every place where the text can be cut.
TEST(Lists, LongestAtEverySize)
{
    Event event = freshEvent();
    SMART_RULE_PARAM& rule = event.stRegion;
    rule.LightAlarmPeriodNum = 5;
    rule.LineCoordinatesNum = 9;
    std::string coordinates = "|LineCoordinatesNum='9'|LineCoordinates='";
    for (COORDINATE& point : rule.LineCoordinates) {
        point = {INT_MIN, INT_MIN};
        coordinates += "[-2147483648,-2147483648],";
    }
    std::string periods = "|LightAlarmPeriodNum='5'|LightAlarmPeriod='";
    for (TIME_PERIOD& period : rule.LightAlarmPeriod) {
        period = {INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN};
        periods += "[-2147483648:-2147483648:-2147483648--2147483648:-2147483648:-2147483648],";
    }
    const std::string whole = composed(composeSet, event, 0);
    EXPECT_NE(whole.find(wire(coordinates + "'|")), std::string::npos);
    EXPECT_NE(whole.find(wire(periods + "'|")), std::string::npos);
    for (size_t capacity = 0; capacity < whole.size(); ++capacity)
        EXPECT_EQ(composed(composeSet, event, 0, capacity), whole.substr(0, capacity)) << capacity;
}

// --- The schedule of alarm pushes ----------------------------------------------------------------

TEST(PushTime, OutAndIn)
{
    const auto written = [](ALARM_PUSH_TIME_PARAM push) {
        char buffer[1024];
        zel::TextWriter out(buffer, sizeof buffer);
        zel::pushTimeAttributes(out, push);
        return std::string(buffer, out.kept());
    };
    const auto read = [](const std::string& attributes) {
        ZelXMLParser parser;
        EXPECT_EQ(parser.Parse(("<e " + attributes + "/>").c_str()), 0);
        ALARM_PUSH_TIME_PARAM push;
        EXPECT_EQ(ALARM_PUSH_TIME_PARAM_init(&push), 0);
        zel::TreeReader side({&parser, parser.RootElement()});
        zel::pushTimeAttributes(side, push);
        return push;
    };
    const std::string full =
        wire("OfflinePush='1'|ScheduleMode='2'|AlarmStartTime='01:02:03'|AlarmEndTime='04:05:06'|"
             "AlarmStartTime1='11:12:13'|AlarmEndTime1='14:15:16'|AlarmStartTime2='21:22:23'|"
             "AlarmEndTime2='24:25:26'|AlarmStartTime3='31:32:33'|AlarmEndTime3='34:35:36'|");
    ALARM_PUSH_TIME_PARAM expected{1, 2, {{1, 2, 3, 4, 5, 6}, {11, 12, 13, 14, 15, 16}}};
    expected.stAlarmTime[2] = {21, 22, 23, 24, 25, 26};
    expected.stAlarmTime[3] = {31, 32, 33, 34, 35, 36};
    EXPECT_EQ(written(expected), full);
    const ALARM_PUSH_TIME_PARAM back = read(full);
    EXPECT_EQ(memcmp(&back, &expected, sizeof back), 0);

    // Absent times stay zero, and go out.
    const std::string zero = "='00:00:00'|";
    EXPECT_EQ(written(read("AlarmEndTime0=\"1:1:1\" AlarmEndTime2=\"9:8\"")),
              wire("AlarmStartTime" + zero + "AlarmEndTime" + zero + "AlarmStartTime1" + zero +
                   "AlarmEndTime1" + zero + "AlarmStartTime2" + zero +
                   "AlarmEndTime2='09:08:00'|AlarmStartTime3" + zero + "AlarmEndTime3" + zero));
}

} // namespace
