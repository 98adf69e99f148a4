#include <climits>

#include "support/fields.h"

using namespace test;

namespace {

using Human = SYSTEM_CONFIG_GET_1494_PARAM;

const std::string kType = "SYSTEM_CONFIG_SET_MESSAGE";

TEST(SmartSwitches, BothWays)
{
    auto alarm = fresh(SYSTEM_CONFIG_SET_1493_PARAM_init);
    alarm.LightAudioAlarmEnable = 11;
    expectResponse(kType, "1492", alarm, "<LightAudioAlarm|LightAudioAlarmEnable='11'|/>|");
    expectRequest(kType, "1493", alarm, "<LightAudioAlarm|LightAudioAlarmEnable='11'|/>|");

    auto smart = fresh(SYSTEM_CONFIG_SET_1499_PARAM_init);
    expectRead(kType, "1498", "<SmartDetection1 RegionDetectionEnable='9'/><SmartDetection/>", smart);
    number(11, smart.RegionDetectionEnable, smart.CrossBoundaryDetectionEnable);
    for (const int32_t form : {-1, 0, 1, 2}) {
        const std::string text = std::string(form == 1 ? "<SmartDetection1" : "<SmartDetection") +
                                 "|RegionDetectionEnable='11'|CrossBoundaryDetectionEnable='12'|/>|";
        smart.iElementForm = form;
        expectBodies(kType, "1498", &smart, "", text);
        expectBodies(kType, "1499", &smart, text, "");
        // Which form it was isn't kept.
        smart.iElementForm = -1;
        expectRead(kType, "1498", text, smart);
        expectRead(kType, "1499", text, smart);
    }
}

Human human()
{
    auto record = fresh(SYSTEM_CONFIG_SET_1497_PARAM_init);
    number(11, record.Enable, record.DetectionSens, record.LightEnable, record.Lightduration,
           record.LightScheduleMode, record.AudioEnable, record.AudioAlarmTimes, record.AudioScheduleMode,
           record.ShowAlarmCount, record.ShowAlarmLine, record.VideoResolution[0], record.VideoResolution[1]);
    setPeriods(record.LightAlarmPeriodNum, record.LightAlarmPeriod, 1);
    setPeriods(record.AudioAlarmPeriodNum, record.AudioAlarmPeriod, 2);
    setPoints(record.LineCoordinatesNum, record.LineCoordinates);
    return record;
}

const std::string kLightEnd = "ScheduleMode='15'|AlarmPeriodNum='1'|AlarmPeriod='" + kPeriods1 + "'|/>|";
const std::string kAudioEnd = "ScheduleMode='18'|AlarmPeriodNum='2'|AlarmPeriod='" + kPeriods2 + "'|/>|";
const std::string kLine = "LineCoordinatesNum='2'|LineCoordinates='" + kPoints + "'|/>|";
const std::string kHumanSet = "<HumanAlarmConfig>|<HumanAlarm|Enable='11'|DetectionSens='12'|/"
                              ">|<LightAlarm|Enable='13'|duration='14'|" +
                              kLightEnd + "<AudioAlarm|Enable='16'|AlarmTimes='17'|" + kAudioEnd +
                              "<DrawLine|ShowAlarmCount='19'|ShowAlarmLine='20'|VideoResolution='21*22'|" +
                              kLine + "</HumanAlarmConfig>|";
const std::string kHumanGet =
    "<HumanAlarmConfig>|<HumanAlarm|Enable='11'|DetectionSens='12'|DefDetectionSensRange='31,32'|/>|"
    "<LightAlarm|Enable='13'|duration='14'|DefLightdurationRange='33,34'|" +
    kLightEnd + "<AudioAlarm|Enable='16'|AlarmTimes='17'|DefLightdurationRange='35,36'|" + kAudioEnd +
    "<DrawLine|ShowAlarmCount='19'|ShowAlarmLine='20'|VideoResolution='21*22'|MaxCoordinateCapability='37'|" +
    kLine + "</HumanAlarmConfig>|";

TEST(HumanAlarm, BothWays)
{
    Human record = human();
    for (const char* code : {"1495", "1497"}) {
        expectRequest(kType, code, record, kHumanSet);
        expectRead(kType, code, kHumanGet, record);
    }
    number(31, record.DefDetectionSensRange[0], record.DefDetectionSensRange[1],
           record.DefLightdurationRange[0], record.DefLightdurationRange[1], record.DefAudioRange[0],
           record.DefAudioRange[1], record.MaxCoordinateCapability);
    for (const char* code : {"1494", "1496"})
        expectResponse(kType, code, record, kHumanGet);
    // Neither of these two is on the wire.
    expectRead(kType, "1494", replaced(kHumanGet, "AlarmTimes", "duration='9' AlarmTimes"), record);
    record.ucLightReserved = record.Audioduration = 41;
    EXPECT_EQ(bodyOf(kType, "1494", &record, 1), wire(kHumanGet));
}

// A list's count is of four bytes; the array bounds it whatever it is.
TEST(HumanAlarm, ListsIn)
{
    for (const char* code : {"1494", "1495"}) {
        auto record = fresh(SYSTEM_CONFIG_GET_1496_PARAM_init);
        setPeriods(record.LightAlarmPeriodNum, record.LightAlarmPeriod, 4);
        setPeriods(record.AudioAlarmPeriodNum, record.AudioAlarmPeriod, 4);
        record.LightAlarmPeriodNum = UINT32_MAX;
        record.AudioAlarmPeriodNum = 5;
        expectRead(kType, code,
                   "<HumanAlarmConfig><LightAlarm AlarmPeriod='" + kPeriods4 + kPeriods1 +
                       "'/><AudioAlarm AlarmPeriodNum='5' AlarmPeriod='" + kPeriods4 + kPeriods1 +
                       "'/></HumanAlarmConfig>",
                   record);
    }
}

TEST(HumanAlarm, ListsOut)
{
    auto record = fresh(SYSTEM_CONFIG_GET_1494_PARAM_init);
    record.AudioAlarmPeriodNum = 0;
    const auto expectText = [&](const std::string& part) {
        for (const auto& [code, kind] : {std::pair("1494", 1), std::pair("1495", 0)})
            EXPECT_NE(bodyOf(kType, code, &record, kind).find(wire(part)), std::string::npos) << part;
    };
    expectText("|AlarmPeriodNum='-1'|AlarmPeriod='" + kNoPeriods + "'|/>|<AudioAlarm|");
    expectText("|AlarmPeriodNum='0'|AlarmPeriod=''|/>|<DrawLine|");

    // The longest periods are cut behind 255 characters.
    for (TIME_PERIOD& period : record.LightAlarmPeriod)
        period = {INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN, INT_MIN};
    const std::string one = "[-2147483648:-2147483648:-2147483648--2147483648:-2147483648:-2147483648],";
    expectText("|AlarmPeriod='" + (one + one + one + one).substr(0, 255) + "'|/>|<AudioAlarm|");
}

TEST(SmartSettings, RequiredElements)
{
    const char* const all[][3] = {
        {"1492", "getLightAudioAlarmConfig", "LightAudioAlarm"},
        {"1493", "setLightAudioAlarmConfig", "LightAudioAlarm"},
        {"1494", "getHumanAlarmConfig", "HumanAlarmConfig"},
        {"1495", "setHumanAlarmConfig", "HumanAlarmConfig"},
        {"1496", "getHumanAlarmConfig", "HumanAlarmConfig"},
        {"1497", "setHumanAlarmConfig", "HumanAlarmConfig"},
        {"1498", "getSmartDetectionConfig", "SmartDetection"},
    };
    for (const auto& [code, leaf, element] : all)
        expectMissing(kType, code, std::string("SystemConfig_") + leaf, element, "<HumanAlarm/>");
    EXPECT_EQ(analyseBody(kType, "1499", "<SmartDetection2/>").result, ZEL_ERR_NO_ELEMENT);
}

} // namespace
