#include "support/fields.h"

using namespace test;

namespace {

using Vehicle = SYSTEM_CONFIG_GET_1412_PARAM;
using Animal = SYSTEM_CONFIG_GET_1426_PARAM;
using Detection = SYSTEM_CONFIG_GET_1417_PARAM;

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

// --- What all of them have -----------------------------------------------------------------------

template <class Rule>
void setAlarms(Rule& rule, bool withDefaults)
{
    number(11, rule.Enable, rule.ShowAlarmCount, rule.DetectionSens, rule.LightAlarmEnable,
           rule.Lightduration, rule.LightScheduleMode, rule.AudioAlarmEnable, rule.AudioAlarmTimes,
           rule.AudioScheduleMode);
    setPeriods(rule.LightAlarmPeriodNum, rule.LightAlarmPeriod, 1);
    setPeriods(rule.AudioAlarmPeriodNum, rule.AudioAlarmPeriod, 2);
    if (withDefaults)
        number(21, rule.DefEnable, rule.DefDetectionSens, rule.DefDetectionSensRange[0],
               rule.DefDetectionSensRange[1], rule.DefLightAlarmEnable, rule.DefLightduration,
               rule.DefLightdurationRange[0], rule.DefLightdurationRange[1], rule.DefLightScheduleMode,
               rule.DefAudioAlarmEnable, rule.DefAudioAlarmTimes, rule.DefAudioAlarmTimesRange[0],
               rule.DefAudioAlarmTimesRange[1], rule.DefAudioScheduleMode);
}

const std::string kEnable = "Enable='11'|DefEnable='21'|";
const std::string kCount = "ShowAlarmCount='12'|";
const std::string kSens = "DetectionSens='13'|DefDetectionSens='22'|DefDetectionSensRange='23,24'|";
const std::string kAlarms =
    "LightAlarmEnable='14'|DefLightAlarmEnable='25'|Lightduration='15'|DefLightduration='26'|"
    "DefLightdurationRange='27,28'|LightScheduleMode='16'|DefLightScheduleMode='29'|LightAlarmPeriodNum='1'|"
    "AudioAlarmEnable='17'|DefAudioAlarmEnable='30'|AudioAlarmTimes='18'|DefAudioAlarmTimes='31'|"
    "DefAudioAlarmTimesRange='32,33'|AudioScheduleMode='19'|DefAudioScheduleMode='34'|"
    "AudioAlarmPeriodNum='2'|";
const std::string kPeriods = "LightAlarmPeriod='" + kPeriods1 + "'|AudioAlarmPeriod='" + kPeriods2 + "'|/>|";

const std::string kPush =
    "OfflinePush='61'|ScheduleMode='62'|AlarmStartTime='01:02:03'|AlarmEndTime='04:05:06'|"
    "AlarmStartTime1='11:12:13'|AlarmEndTime1='14:15:16'|AlarmStartTime2='00:00:00'|"
    "AlarmEndTime2='00:00:00'|AlarmStartTime3='00:00:00'|AlarmEndTime3='00:00:00'|/>|";
constexpr ALARM_PUSH_TIME_PARAM kPushTime{61, 62, {{1, 2, 3, 4, 5, 6}, {11, 12, 13, 14, 15, 16}}};

// --- Two rules -----------------------------------------------------------------------------------

// The two differ in their attributes and resolutions.
void setRule(SMART_RULE_PARAM& rule, int32_t first, bool withDefaults)
{
    setAlarms(rule, withDefaults);
    number(first, rule.DetectionAttr, rule.ShowAlarmLine, rule.VideoResolution[0], rule.VideoResolution[1],
           rule.MaxCoordinateCapability);
    setPoints(rule.LineCoordinatesNum, rule.LineCoordinates);
}

std::string ruleOf(const std::string& tens)
{
    return kEnable + "DetectionAttr='" + tens + "1'|" + kSens + kCount + "ShowAlarmLine='" + tens +
           "2'|VideoResolution='" + tens + "3*" + tens + "4'|MaxCoordinateCapability='" + tens +
           "5'|LineCoordinatesNum='2'|LineCoordinates='" + kPoints + "'|" + kAlarms + kPeriods;
}

// None of these belongs to the messages here.
const std::string kForeign =
    "AlarmTime='51' TrackEnable='52' DefTrackEnable='53' LightAudioAlarmStartTime='1:2:3' "
    "LightAudioAlarmEndTime='4:5:6' EmailAlarmEnable='54' Emailduration='55' EmailScheduleMode='56' "
    "DefEmaildurationRange='57,58' EmailAlarmPeriodNum='1' EmailAlarmPeriod='[1:2:3-4:5:6]' "
    "CrowdFlowStatEnable='12' DefCrowdFlowStatEnable='13' ";

// As an analysis begins it: what the init leaves alone holds ones.
Vehicle freshVehicle()
{
    Vehicle vehicle;
    memset(&vehicle, 0xFF, sizeof vehicle);
    EXPECT_EQ(SYSTEM_CONFIG_GET_1412_PARAM_init(&vehicle), 0);
    return vehicle;
}

Vehicle fullVehicle(bool withDefaults)
{
    Vehicle vehicle = freshVehicle();
    setRule(vehicle.stRegion, 41, withDefaults);
    setRule(vehicle.stCrossBoundary, 51, withDefaults);
    vehicle.stPushTime = kPushTime;
    return vehicle;
}

TEST(VehicleForm, BothWays)
{
    const std::string get = "<SmartConfig>|<VehicleRegion|" + ruleOf("4") + "<VehicleCrossBoundary|" +
                            ruleOf("5") + "<VehicleShapeAlarmPushTime|" + kPush + "</SmartConfig>|";
    Vehicle vehicle = fullVehicle(true);
    expectResponse(kType, "1412", vehicle, get);
    // What is received of these isn't written.
    for (SMART_RULE_PARAM* rule : {&vehicle.stRegion, &vehicle.stCrossBoundary})
        number(12, rule->CrowdFlowStatEnable, rule->DefCrowdFlowStatEnable, rule->AlarmTime,
               rule->ucAlarmTimeIn, rule->TrackEnable, rule->LightAudioAlarmStartTime[0]);
    expectBodies(kType, "1412", &vehicle, "", get);
    expectBodies(kType, "1413", &vehicle, withoutDefaults(get), "");
    for (const std::string& text : {withoutDefaults(get), get})
        expectRead(kType, "1413", text, fullVehicle(false));
}

TEST(VehicleForm, InitLeavesTheEmailAlarm)
{
    for (const auto init : {SYSTEM_CONFIG_GET_1412_PARAM_init, SYSTEM_CONFIG_SET_1413_PARAM_init}) {
        const Vehicle vehicle = fresh(init);
        const SMART_RULE_PARAM& rule = vehicle.stRegion;
        EXPECT_EQ(rule.ucAlarmTimeIn, 0x11);
        constexpr size_t kGap = 1;
        const auto* const bytes = reinterpret_cast<const char*>(&vehicle);
        EXPECT_EQ(static_cast<size_t>(std::count(bytes, bytes + sizeof vehicle, 0x11)),
                  2 * (5 + kGap + sizeof rule.DefEmaildurationRange + sizeof rule.EmailAlarmPeriod));
        expectWholeLists(kType, "1413", &vehicle, 0, "LineCoordinates LightAlarmPeriod AudioAlarmPeriod");
    }
}

// Each child stands for itself; passers-by are counted at the boundary of an answer alone.
TEST(VehicleForm, PartsAsTheyCome)
{
    for (const char* code : {"1412", "1413"}) {
        Vehicle vehicle = freshVehicle();
        expectRead(kType, code, "<SmartConfig/><VehicleRegion Enable='1'/>", vehicle);
        vehicle.stPushTime = kPushTime;
        expectRead(kType, code, "<SmartConfig><VehicleShapeAlarmPushTime " + kPush + "</SmartConfig>",
                   vehicle);
        vehicle = freshVehicle();
        number(1600, vehicle.stRegion.VideoResolution[0]);
        number(900, vehicle.stRegion.VideoResolution[1]);
        expectRead(kType, code, "<SmartConfig><VehicleRegion " + kForeign + "/></SmartConfig>", vehicle);
        vehicle = freshVehicle();
        vehicle.stCrossBoundary.VideoResolution[0] = 16;
        if (code[3] == '2')
            number(12, vehicle.stCrossBoundary.CrowdFlowStatEnable,
                   vehicle.stCrossBoundary.DefCrowdFlowStatEnable);
        expectRead(kType, code,
                   "<SmartConfig><VehicleCrossBoundary VideoResolution='16' " + kForeign + "/></SmartConfig>",
                   vehicle);
    }
}

TEST(Animals, BothWays)
{
    const std::string get = "<SmartConfig>|<AnimalRegion|" + ruleOf("4") + "<AnimalCrossBoundary|" +
                            ruleOf("5") + "</SmartConfig>|";
    for (const bool isGet : {false, true}) {
        auto animal = fresh(SYSTEM_CONFIG_SET_1427_PARAM_init);
        setRule(animal.stRegion, 41, isGet);
        setRule(animal.stCrossBoundary, 51, isGet);
        expectRead(kType, isGet ? "1426" : "1427", "<FACE_FEATURE_RESULT ErrorCode='11'/>" + get, animal);
        if (isGet)
            expectBodies(kType, "1426", &animal, "", get);
        animal.iResultFlag = 0;
        expectBodies(kType, "1427", &animal, withoutDefaults(get), "");
    }
    auto animal = fresh(SYSTEM_CONFIG_GET_1426_PARAM_init);
    number(1600, animal.stCrossBoundary.VideoResolution[0]);
    number(900, animal.stCrossBoundary.VideoResolution[1]);
    for (const char* code : {"1426", "1427"})
        expectRead(kType, code, "<SmartConfig><AnimalCrossBoundary " + kForeign + "/></SmartConfig>", animal);
}

TEST(Animals, ResultCodeAlone)
{
    auto animal = fresh(SYSTEM_CONFIG_GET_1426_PARAM_init);
    animal.iResultFlag = 0;
    expectBodies(kType, "1426", &animal, "", "<FACE_FEATURE_RESULT|ErrorCode='-1'|/>|");
    animal.iResultFlag = 1;
    expectRead(kType, "1426", "<FACE_FEATURE_RESULT/><AnimalRegion/>", animal);
    animal.ErrorCode = 12;
    expectResponse(kType, "1426", animal, "<FACE_FEATURE_RESULT|ErrorCode='12'|/>|");
}

// --- Vehicles and human forms --------------------------------------------------------------------

struct Message
{
    const char* code;
    bool isGet;
    bool isHuman;
    int (*init)(Detection*);
};

constexpr Message kMessages[] = {{"1414", false, false, SYSTEM_CONFIG_SET_1414_PARAM_init},
                                 {"1415", true, false, SYSTEM_CONFIG_GET_1415_PARAM_init},
                                 {"1416", false, true, SYSTEM_CONFIG_SET_1416_PARAM_init},
                                 {"1417", true, true, SYSTEM_CONFIG_GET_1417_PARAM_init}};

TEST(Detection, BothWays)
{
    for (const auto& [code, isGet, isHuman, init] : kMessages) {
        auto record = fresh(init);
        expectWholeLists(kType, code, &record, isGet ? 1 : 0, "LightAlarmPeriod AudioAlarmPeriod");
        setAlarms(record, isGet);
        record.stPushTime = kPushTime;
        // The place of ShowAlarmCount tells the two apart.
        const std::string text =
            std::string("<SmartConfig>|<") + (isHuman ? "HumanForm" : "Vehicle") + "Detection|" + kEnable +
            (isHuman ? "" : kCount) + kSens + kAlarms + (isHuman ? kCount : "") + kPeriods +
            (isHuman ? "<HumanDetect" : "<VehicleShape") + "AlarmPushTime|" + kPush + "</SmartConfig>|";
        const std::string withSize =
            replaced(text, "|LightAlarmPeriod=", "|AudioAlarmFileSize='35'|LightAlarmPeriod=");
        expectRead(kType, code, isGet ? text : withSize, record);
        expectBodies(kType, code, &record, isGet ? "" : withoutDefaults(text), isGet ? text : "");
        record.AudioAlarmFileSize = 35;
        expectBodies(kType, code, &record, isGet ? "" : withoutDefaults(text), isGet ? withSize : "");
        if (isGet)
            expectRead(kType, code, withSize, record);
    }
}

// Pushes need the detection of a human form, but not that of a vehicle.
TEST(Detection, PushTimeAlone)
{
    for (const auto& [code, isGet, isHuman, init] : kMessages) {
        auto record = fresh(init);
        expectRead(kType, code, "<SmartConfig><HumanDetectAlarmPushTime " + kPush + "</SmartConfig>", record);
        if (!isHuman)
            record.stPushTime = kPushTime;
        expectRead(kType, code, "<SmartConfig><VehicleShapeAlarmPushTime " + kPush + "</SmartConfig>",
                   record);
    }
}

TEST(Detection, RequiredElements)
{
    const char* const all[][2] = {
        {"1412", "getVehicleFormIntelligent"}, {"1413", "setVehicleFormIntelligent"},
        {"1414", "setVehicleDetection"},       {"1415", "getVehicleDetection"},
        {"1416", "setHumanDetection"},         {"1417", "getHumanDetection"},
        {"1427", "setAnimaldetecIntelligent"},
    };
    for (const auto& [code, leaf] : all)
        expectMissing(kType, code, std::string("SystemConfig_") + leaf, "SmartConfig",
                      "<FACE_FEATURE_RESULT/>");
    EXPECT_EQ(analyseBody(kType, "1426", "<AnimalRegion/>").result, ZEL_ERR_NO_ELEMENT);
}

} // namespace
