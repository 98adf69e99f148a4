// The installable algorithms, and the license plates, whose settings are those of one of them.
#include "support/fields.h"

using namespace test;

namespace {

using Algorithm = SYSTEM_CONFIG_GET_1429_PARAM;

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

TEST(AlgorithmList, BothWays)
{
    auto list = fresh(SYSTEM_CONFIG_GET_1428_PARAM_init);
    expectResponse(kType, "1428", list,
                   "<DevSn></DevSn>|<FirmwareVersion></FirmwareVersion>|<AvailableSize>-1</AvailableSize>|"
                   "<Algorithms>|</Algorithms>|");
    expectRead(kType, "1428", "<DevSn/>", list);
    set(list.DevSn, "sn");
    set(list.FirmwareVersion, "fw");
    list.AvailableSize = 11;
    list.stAlgorithm[0] = {"HA", "v1", 12, 13, 14};
    const std::string text =
        "<DevSn>sn</DevSn>|<FirmwareVersion>fw</FirmwareVersion>|<AvailableSize>11</AvailableSize>|"
        "<Algorithms>|<ls>|<algorithmId>HA</algorithmId>|<install>12</install>|<useStatus>13</useStatus>|"
        "<version>v1</version>|<isBuildIn>14</isBuildIn>|</ls>|</Algorithms>|";
    expectResponse(kType, "1428", list, text);
    list.stAlgorithm[2] = {"lost", "", 0, 0, 0};
    EXPECT_EQ(bodyOf(kType, "1428", &list, 1), wire(text));
}

TEST(AlgorithmList, Sixteen)
{
    auto list = fresh(SYSTEM_CONFIG_GET_1428_PARAM_init);
    std::string rows;
    for (int32_t i = 0; i <= 16; ++i) {
        // Rows without a name take their places too.
        rows += "<ls><install>" + std::to_string(i) + "</install></ls><Other/>";
        if (i < 16)
            list.stAlgorithm[i].install = i;
    }
    expectRead(kType, "1428", "<DevSn/><Algorithms>" + rows + "</Algorithms>", list);
    for (auto& row : list.stAlgorithm)
        set(row.algorithmId, std::string(16, 'i'));
    const std::string text = bodyOf(kType, "1428", &list, 1);
    EXPECT_NE(text.find("i</algorithmId>\n<install>15</install>"), std::string::npos);
    EXPECT_EQ(text.substr(text.rfind("</ls>")), "</ls>\n</Algorithms>\n");
}

Algorithm named(const std::string& id)
{
    auto record = fresh(SYSTEM_CONFIG_GET_1429_PARAM_init);
    set(record.algorithmId, id);
    return record;
}

// What a change carries, then what only an answer does.
Algorithm parabolic(bool withDefaults)
{
    Algorithm record = named("HA");
    number(11, record.Enable, record.DetectionSens, record.ShowTrackLine, record.ShowAlarmLine,
           record.VideoResolution[0], record.VideoResolution[1], record.MaxCoordinateCapability);
    setPoints(record.LineCoordinatesNum, record.LineCoordinates);
    if (withDefaults)
        number(41, record.DefEnable, record.DefDetectionSens, record.DefDetectionSensRange[0],
               record.DefDetectionSensRange[1]);
    return record;
}

Algorithm plate(const std::string& id, bool withDefaults)
{
    Algorithm record = named(id);
    number(11, record.Enable, record.VirtualLoopEnable, record.LightAlarmEnable, record.AudioAlarmEnable,
           record.VideoResolution[0], record.VideoResolution[1], record.AlarmTime, record.ShowAlarmLine,
           record.MaxCoordinateCapability, record.StrongLightSupprSens, record.strongLightDebug);
    setPoints(record.LineCoordinatesNum, record.LineCoordinates);
    setPeriods(record.AnalysisPeriodNum, record.AnalysisPeriod, 1);
    setPeriods(record.LightAlarmPeriodNum, record.LightAlarmPeriod, 2);
    setPeriods(record.AudioAlarmPeriodNum, record.AudioAlarmPeriod, 3);
    if (withDefaults)
        number(41, record.DefEnable, record.DefLightAlarmEnable, record.DefAudioAlarmEnable,
               record.DefAlarmTime, record.DefVirtualLoopEnable, record.DefStrongLightSupprSens);
    return record;
}

std::string config(const std::string& id, const std::string& child, const std::string& attributes)
{
    return "<config algorithmId='" + id + "'>|<" + child + "|" + attributes + "/>|</config>|";
}

const std::string kParabolic = config("HA", "highAltitudeParabolic",
                                      "Enable='11'|DefEnable='41'|DetectionSens='12'|DefDetectionSens='42'|"
                                      "DefDetectionSensRange='43,44'|ShowTrackLine='13'|ShowAlarmLine='14'|"
                                      "VideoResolution='15*16'|MaxCoordinateCapability='17'|"
                                      "LineCoordinatesNum='2'|LineCoordinates='" +
                                          kPoints + "'|");
const std::string kPlate =
    "Enable='11'|VirtualLoopEnable='12'|AnalysisPeriodNum='1'|LightAlarmEnable='13'|LightAlarmPeriodNum='2'|"
    "AudioAlarmEnable='14'|AudioAlarmPeriodNum='3'|VideoResolution='15*16'|AlarmTime='17'|"
    "ShowAlarmLine='18'|LineCoordinates='" +
    kPoints + "'|MaxCoordinateCapability='19'|LineCoordinatesNum='2'|StrongLightSupprSens='20'|";
const std::string kRange = "StrongLightSupprSensRange='51,52'|";
const std::string kDebug = "strongLightDebug='21'|";
const std::string kDefaults = "DefEnable='41'|DefLightAlarmEnable='42'|DefAudioAlarmEnable='43'|"
                              "DefAlarmTime='44'|DefVirtualLoopEnable='45'|";
const std::string kDefSens = "DefStrongLightSupprSens='46'|";
const std::string kLists = "AnalysisPeriod='" + kPeriods1 + "'|LightAlarmPeriod='" + kPeriods2 +
                           "'|AudioAlarmPeriod='" + kPeriods3 + "'|";
const std::string kListNames = "LineCoordinates AnalysisPeriod LightAlarmPeriod AudioAlarmPeriod";

std::string plateConfig(const std::string& answer)
{
    return config("LP", "licensePlateRecognition", kPlate + answer + kLists);
}

TEST(AlgorithmConfig, Change)
{
    expectRequest(kType, "1430", parabolic(false), withoutDefaults(kParabolic));
    expectRead(kType, "1430", kParabolic, parabolic(false));

    // Two of an answer's attributes are read, though a change never has them.
    Algorithm record = plate("LP", false);
    expectBodies(kType, "1430", &record, plateConfig(""), "");
    number(51, record.StrongLightSupprSensRange[0], record.StrongLightSupprSensRange[1]);
    expectRead(kType, "1430", plateConfig(kRange + kDebug + kDefaults + kDefSens), record);
    record = named("HAP");
    expectRequest(kType, "1430", record, "<config algorithmId='HAP'>|</config>|");
}

TEST(AlgorithmConfig, QuestionAndAnswer)
{
    Algorithm record = plate("LP", true);
    number(51, record.StrongLightSupprSensRange[0], record.StrongLightSupprSensRange[1]);
    const std::string answer = plateConfig(kRange + kDebug + kDefaults + kDefSens);
    const std::string question = "<REQUEST_PARAM algorithmId='LP'/>|";
    expectBodies(kType, "1429", &record, question, answer);
    expectRead(kType, "1429", question + answer, record);
    expectRead(kType, "1429", question, named("LP"));
    expectRead(kType, "1429", kParabolic, parabolic(true));
    record = parabolic(true);
    expectBodies(kType, "1429", &record, "<REQUEST_PARAM algorithmId='HA'/>|", kParabolic);
}

// The name says nothing; each child has its own attributes alone, and of both that of the plates stands.
TEST(AlgorithmConfig, ChildrenAsTheyCome)
{
    const std::string children =
        "<licensePlateRecognition Enable='11' LineCoordinates='[1,2],[3,4]' LineCoordinatesNum='1' "
        "DetectionSens='9' DefDetectionSens='9' ShowTrackLine='9' "
        "DefDetectionSensRange='9,9' algorithmId='LP'/>|<highAltitudeParabolic Enable='12' "
        "ShowAlarmLine='13' VirtualLoopEnable='9' AnalysisPeriodNum='9' AnalysisPeriod='[1:2:3]' "
        "AlarmTime='9' StrongLightSupprSens='9' strongLightDebug='9' StrongLightSupprSensRange='9,9'/>";
    Algorithm record = named("");
    number(11, record.Enable);
    number(13, record.ShowAlarmLine);
    number(1, record.LineCoordinatesNum);
    record.LineCoordinates[0] = {1, 2};
    for (const char* code : {"1429", "1430"})
        expectRead(kType, code, "<config>" + children + "</config>", record);
}

TEST(AlgorithmConfig, ListsEndWithTheirArrays)
{
    for (const auto& [code, kind] : {std::pair("1429", 1), std::pair("1430", 0)}) {
        Algorithm record = named("HA");
        expectWholeLists(kType, code, &record, kind, "LineCoordinates");
        record = named("LP");
        expectWholeLists(kType, code, &record, kind, kListNames);
    }
}

// --- License plates ------------------------------------------------------------------------------

std::string plateEvent(const std::string& answer)
{
    return "<VehicleAnalysis|" + kPlate + answer + kLists + "/>|";
}

TEST(LicensePlate, Answer)
{
    Algorithm record = plate("", true);
    number(51, record.ucStrongLightSupprSensMin, record.ucStrongLightSupprSensMax);
    expectResponse(kType, "1404", record, plateEvent(kDefSens + kRange + kDebug + kDefaults));

    record = fresh(SYSTEM_CONFIG_GET_1404_PARAM_init);
    expectWholeLists(kType, "1404", &record, 1, kListNames);
    EXPECT_NE(bodyOf(kType, "1404", &record, 1)
                  .find(wire("|StrongLightSupprSensRange='255,255'|strongLightDebug='255'|")),
              std::string::npos);
    expectRead(kType, "1404",
               "<VehicleAnalysis StrongLightSupprSensRange='x,12' DetectionSens='9' ShowTrackLine='9' "
               "DefDetectionSensRange='9,9' algorithmId='LP'/>",
               record);
    record.ucStrongLightSupprSensMin = 12;
    expectRead(kType, "1404", "<VehicleAnalysis StrongLightSupprSensRange='268'/>", record);
}

TEST(LicensePlate, Change)
{
    Algorithm record = plate("", false);
    expectRequest(kType, "1405", record, plateEvent(kDebug));
    expectRead(kType, "1405", plateEvent(kDefSens + kRange + kDebug + kDefaults), record);
    record.strongLightDebug = 255;
    expectRequest(kType, "1405", record, plateEvent(""));
    record = fresh(SYSTEM_CONFIG_SET_1405_PARAM_init);
    expectWholeLists(kType, "1405", &record, 0, kListNames);
}

TEST(LicensePlate, Picture)
{
    auto picture = fresh(SYSTEM_CONFIG_SET_1406_PARAM_init);
    expectRequest(kType, "1406", picture,
                  "<LicensePlatePicture|MaxBytesPerPacket='-1'|LicensePlate=''|Timestamp='4294967295'|/>|");
    picture = {11, 4000000000, "plate"};
    expectRequest(
        kType, "1406", picture,
        "<LicensePlatePicture|MaxBytesPerPacket='11'|LicensePlate='plate'|Timestamp='4000000000'|/>|");
}

TEST(Algorithms, RequiredElements)
{
    expectMissing(kType, "1404", "SystemConfig_getLicensePlateEvent", "VehicleAnalysis");
    expectMissing(kType, "1405", "SystemConfig_setLicensePlateEvent", "VehicleAnalysis");
    expectMissing(kType, "1406", "SystemConfig_getLicensePlateImage", "LicensePlatePicture");
    expectMissing(kType, "1428", "SystemConfig_getAlgorithmicList", "Algorithms", "<Algorithms/>");
    EXPECT_EQ(analyseBody(kType, "1429", "<highAltitudeParabolic/>").result, ZEL_ERR_NO_ELEMENT);
    expectMissing(kType, "1430", "SystemConfig_setAlgorithmicConfig", "config", "<REQUEST_PARAM/>");
}

} // namespace
