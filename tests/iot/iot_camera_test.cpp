#include "support/fields.h"

using namespace test;

namespace {

using Light = IOT_CAMERA_1520_PARAM;
using Human = IOT_CAMERA_1522_PARAM;

const std::string kType = "IOT_CAMERA_MESSAGE";

TEST(IotCamera, Ageing)
{
    auto ageing = fresh(IOT_CAMERA_1205_PARAM_init);
    expectRequest(kType, "1205", ageing, "<REQUEST_PARAM|MaxUptimeConfig='-1'|/>|");
    ageing.MaxUptimeConfig = 11;
    expectRequest(kType, "1205", ageing, "<REQUEST_PARAM|MaxUptimeConfig='11'|/>|");
}

TEST(IotCamera, Light)
{
    Light light = fresh(IOT_CAMERA_1521_PARAM_init);
    expectResponse(
        kType, "1520", light,
        "<RESPONSE_PARAM|IotLightMode='255'|IotTimingStart='00:00:00'|IotTimingEnd='00:00:00'|"
        "IotLightOnSensitivity='255'|IotLightOffSensitivity='255'|NetworkIndicatorEnable='255'|"
        "DefIotLightMode='255'|DefIotLightOnSensitivity='255'|DefIotLightOffSensitivity='255'|/>|");
    expectRequest(kType, "1521", light,
                  "<IotLightControl|IotLightMode='255'|IotTimingStart='00:00:00'|IotTimingEnd='00:00:00'|"
                  "IotLightOnSensitivity='255'|IotLightOffSensitivity='255'|/>|");
    number(11, light.IotLightMode, light.IotLightOnSensitivity, light.IotLightOffSensitivity,
           light.NetworkIndicatorEnable);
    light.stIotTimingStart = {1, 2, 3};
    light.stIotTimingEnd = {14, 15, 16};
    const std::string both =
        "|IotLightMode='11'|IotTimingStart='01:02:03'|IotTimingEnd='14:15:16'|IotLightOnSensitivity='12'|"
        "IotLightOffSensitivity='13'|NetworkIndicatorEnable='14'|";
    const std::string defaults =
        "DefIotLightMode='15'|DefIotLightOnSensitivity='16'|DefIotLightOffSensitivity='17'|/>|";
    expectRequest(kType, "1521", light, "<IotLightControl" + both + "/>|");
    expectRead(kType, "1521", "<IotLightControl" + both + defaults, light);
    number(15, light.DefIotLightMode, light.DefIotLightOnSensitivity, light.DefIotLightOffSensitivity);
    expectResponse(kType, "1520", light, "<RESPONSE_PARAM" + both + defaults);
    EXPECT_EQ(bodyOf(kType, "1521", &light, 0), wire("<IotLightControl" + both + "/>|"));

    // Times as they scan.
    light = fresh(IOT_CAMERA_1520_PARAM_init);
    light.stIotTimingStart = {1, 2, 0};
    light.stIotTimingEnd = {14, -1, 100};
    const std::string times = " IotTimingStart='1:2' IotTimingEnd='14:-1:100'/>";
    expectRead(kType, "1520", "<RESPONSE_PARAM" + times, light);
    expectRead(kType, "1521", "<IotLightControl" + times, light);
    EXPECT_NE(bodyOf(kType, "1521", &light, 0).find(wire("='01:02:00'|IotTimingEnd='14:-1:100'|")),
              std::string::npos);
}

// What a change carries, then what only an answer does.
Human changed()
{
    auto human = fresh(IOT_CAMERA_1523_PARAM_init);
    number(11, human.HumanAlarm_Enable, human.DetectionSens, human.OfflinePush, human.AlarmShow,
           human.LightAlarm_Enable, human.duration, human.LightAlarm_ScheduleMode, human.AudioAlarm_Enable,
           human.AlarmTimes, human.AudioAlarm_ScheduleMode, human.TrackAlarm_Enable, human.Time,
           human.TrackMode, human.CenterMode, human.showPtzTrack, human.TrackAlarm_ScheduleMode,
           human.TrackAlarm_AlarmPeriodNum, human.AlarmPushTime_ScheduleMode);
    int32_t hour = 0;
    for (auto* periods :
         {&human.stLightPeriods, &human.stAudioPeriods, &human.stTrackPeriods, &human.stPushPeriods})
        for (IOT_CAMERA_ALARM_PERIOD& period : *periods) {
            period = {{hour, 12, 13}, {hour + 1, 45, 46}};
            hour += 2;
        }
    return human;
}

void addAnswer(Human& human)
{
    number(41, human.HumanAlarm_DefEnable, human.DefDetectionSens, human.DefDetectionSensRange[0],
           human.DefDetectionSensRange[1], human.DefOfflinePush, human.DefAlarmShow,
           human.LightAlarm_DefEnable, human.DefDuration, human.DefDurationRange[0],
           human.DefDurationRange[1], human.LightAlarm_DefScheduleMode, human.LightAlarm_AlarmPeriodNum,
           human.AudioAlarm_DefEnable, human.DefAlarmTimes, human.DefAlarmTimesRange[0],
           human.DefAlarmTimesRange[1], human.AudioAlarm_DefScheduleMode, human.AudioAlarm_AlarmPeriodNum,
           human.TrackAlarm_DefEnable, human.TrackAlarm_DefScheduleMode, human.AlarmPushTime_DefScheduleMode,
           human.AlarmPushTime_AlarmPeriodNum);
}

// The first pair has no number where the list is mixed.
const std::string kLightTimes =
    "AlarmStartTime0='00:12:13'|AlarmEndTime0='01:45:46'|AlarmStartTime1='02:12:13'|AlarmEndTime1='03:45:46'|"
    "AlarmStartTime2='04:12:13'|AlarmEndTime2='05:45:46'|AlarmStartTime3='06:12:13'|AlarmEndTime3='07:45:46'"
    "|";
const std::string kAudioTimes =
    "AlarmStartTime0='08:12:13'|AlarmEndTime0='09:45:46'|AlarmStartTime1='10:12:13'|AlarmEndTime1='11:45:46'|"
    "AlarmStartTime2='12:12:13'|AlarmEndTime2='13:45:46'|AlarmStartTime3='14:12:13'|AlarmEndTime3='15:45:46'"
    "|";
const std::string kTrackTimes =
    "AlarmStartTime='16:12:13'|AlarmEndTime='17:45:46'|AlarmStartTime1='18:12:13'|AlarmEndTime1='19:45:46'|"
    "AlarmStartTime2='20:12:13'|AlarmEndTime2='21:45:46'|AlarmStartTime3='22:12:13'|AlarmEndTime3='23:45:46'"
    "|";
const std::string kPushTimes =
    "AlarmStartTime='24:12:13'|AlarmEndTime='25:45:46'|AlarmStartTime1='26:12:13'|AlarmEndTime1='27:45:46'|"
    "AlarmStartTime2='28:12:13'|AlarmEndTime2='29:45:46'|AlarmStartTime3='30:12:13'|AlarmEndTime3='31:45:46'"
    "|";

const std::string kSet =
    "<HumanAlarmConfig>|<HumanAlarm|Enable='11'|DetectionSens='12'|OfflinePush='13'|AlarmShow='14'|/>|"
    "<LightAlarm|Enable='15'|duration='16'|ScheduleMode='17'|" +
    kLightTimes + "/>|<AudioAlarm|Enable='18'|AlarmTimes='19'|ScheduleMode='20'|" + kAudioTimes +
    "/>|<TrackAlarm|Enable='21'|Time='22'|TrackMode='23'|CenterMode='24'|showPtzTrack='25'|ScheduleMode='26'|"
    "AlarmPeriodNum='27'|" +
    kTrackTimes + "/>|<AlarmPushTime|ScheduleMode='28'|" + kPushTimes + "/>|</HumanAlarmConfig>|";
const std::string kGet =
    "<HumanAlarmConfig>|<HumanAlarm|Enable='11'|DefEnable='41'|DetectionSens='12'|DefDetectionSens='42'|"
    "DefDetectionSensRange='43,44'|OfflinePush='13'|DefOfflinePush='45'|AlarmShow='14'|DefAlarmShow='46'|/>|"
    "<LightAlarm|Enable='15'|DefEnable='47'|duration='16'|DefDuration='48'|DefDurationRange='49,50'|"
    "ScheduleMode='17'|DefScheduleMode='51'|AlarmPeriodNum='52'|" +
    kLightTimes +
    "/>|<AudioAlarm|Enable='18'|DefEnable='53'|AlarmTimes='19'|DefAlarmTimes='54'|"
    "DefAlarmTimesRange='55,56'|ScheduleMode='20'|DefScheduleMode='57'|AlarmPeriodNum='58'|" +
    kAudioTimes +
    "/>|<TrackAlarm|Enable='21'|DefEnable='59'|Time='22'|TrackMode='23'|CenterMode='24'|showPtzTrack='25'|"
    "ScheduleMode='26'|DefScheduleMode='60'|AlarmPeriodNum='27'|" +
    kTrackTimes + "/>|<AlarmPushTime|ScheduleMode='28'|DefScheduleMode='61'|AlarmPeriodNum='62'|" +
    kPushTimes + "/>|</HumanAlarmConfig>|";

TEST(IotHumanDetection, BothWays)
{
    Human human = changed();
    expectRequest(kType, "1523", human, kSet);
    addAnswer(human);
    expectResponse(kType, "1522", human, kGet);
    EXPECT_EQ(bodyOf(kType, "1523", &human, 2), wire(kSet));

    // Of the defaults, a change takes two of tracking.
    human = changed();
    human.TrackAlarm_DefEnable = 59;
    human.TrackAlarm_DefScheduleMode = 60;
    expectRead(kType, "1523", kGet, human);
}

// A change without a schedule has no times of tracking; an answer has them in any case.
TEST(IotHumanDetection, FreshRecord)
{
    const Human absent = fresh(IOT_CAMERA_1522_PARAM_init);
    for (const char* code : {"1522", "1523"})
        expectRead(kType, code, "<HumanAlarmConfig/><HumanAlarm Enable='1'/>", absent);
    const auto ends = [&](const char* code, int kind, const std::string& end) {
        const std::string text = bodyOf(kType, code, &absent, kind);
        EXPECT_EQ(text.substr(text.find("showPtzTrack")), wire(end));
    };
    const std::string times = "AlarmStartTime='00:00:00'|AlarmEndTime='00:00:00'|AlarmStartTime1='00:00:00'|"
                              "AlarmEndTime1='00:00:00'|AlarmStartTime2='00:00:00'|AlarmEndTime2='00:00:00'|"
                              "AlarmStartTime3='00:00:00'|AlarmEndTime3='00:00:00'|/>|";
    ends("1523", 0,
         "showPtzTrack='255'|ScheduleMode='255'|AlarmPeriodNum='255'|/>|<AlarmPushTime|ScheduleMode='255'|" +
             times + "</HumanAlarmConfig>|");
    const std::string schedule = "ScheduleMode='255'|DefScheduleMode='255'|AlarmPeriodNum='255'|" + times;
    ends("1522", 1, "showPtzTrack='255'|" + schedule + "<AlarmPushTime|" + schedule + "</HumanAlarmConfig>|");
}

// A list finds its first pair under its own name alone.
TEST(IotHumanDetection, TimesAndRangesAsRead)
{
    Human human = fresh(IOT_CAMERA_1522_PARAM_init);
    const std::string first = " AlarmStartTime0='1:2:3' AlarmEndTime='4:5:6' AlarmStartTime4='7:8:9'";
    human.stLightPeriods[0].stStart = human.stAudioPeriods[0].stStart = {1, 2, 3};
    human.stTrackPeriods[0].stEnd = human.stPushPeriods[0].stEnd = {4, 5, 6};
    human.stAudioPeriods[3].stEnd = {10, 11, 0};
    const std::string body = "<HumanAlarmConfig><LightAlarm" + first + "/><AudioAlarm" + first +
                             " AlarmEndTime3='10:11'/><TrackAlarm" + first + "/><AlarmPushTime" + first +
                             "/><HumanAlarm DefDetectionSensRange='12'/></HumanAlarmConfig>";
    expectRead(kType, "1523", body, human);
    human.DefDetectionSensRange[0] = 12;
    expectRead(kType, "1522", body, human);
}

TEST(IotCamera, RequiredElements)
{
    const char* const all[][3] = {
        {"1205", "SetIpcDeviceToAge", "REQUEST_PARAM"},
        {"1520", "GetIpcLightConfig", "RESPONSE_PARAM"},
        {"1521", "SetIpcLightConfig", "IotLightControl"},
        {"1522", "GetHumanDetectionConfig", "HumanAlarmConfig"},
        {"1523", "SetHumanDetectionConfig", "HumanAlarmConfig"},
    };
    for (const auto& [code, leaf, element] : all)
        expectMissing(kType, code, std::string("IOTCamera_") + leaf, element, "<HumanAlarm/>");
}

TEST(IotCamera, Dispatch)
{
    char out[16] = "";
    void* result = nullptr;
    resetServices();
    for (const auto& [code, log] :
         {std::pair("1524", "unknow msg_cdoe : 1524\n"), std::pair("x", "unknow msg_cdoe : 0\n")}) {
        EXPECT_EQ(IOTCameraMessageCompose(out, 1, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(std::string("IOT_CAMERA_MESSAGE deal a ") + log));
        EXPECT_EQ(IOTCameraMessageAnalysis("<a/>", code, &result), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(std::string("IOT_CAMERA_MESSAGE deal a ") + log));
    }
    EXPECT_EQ(IOTCameraMessageCompose(out, 1, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("IOT_CAMERA_MESSAGE put a empty Param\n"));
    EXPECT_EQ(IOTCameraMessageAnalysis("<a/>", "1520", nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("IOT_CAMERA_MESSAGE put a empty Param\n"));
}

} // namespace
