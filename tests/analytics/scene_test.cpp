#include "support/fields.h"

using namespace test;

namespace {

using Scene = SYSTEM_CONFIG_GET_1422_PARAM;

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

TEST(SceneAudio, BothWays)
{
    auto audio = fresh(SYSTEM_CONFIG_GET_1420_PARAM_init);
    expectResponse(kType, "1420", audio, "<SceneAudio>|</SceneAudio>|");
    audio.stAlarmAudio[0] = {11, 12, "first"};
    audio.stAlarmAudio[1].AlarmAudioEnable = 13;
    const std::string text =
        "<SceneAudio>|<AlarmAudio|AlarmAudioIndex='11'|AlarmAudioName='first'|AlarmAudioEnable='12'|/>|"
        "<AlarmAudio|AlarmAudioIndex='-1'|AlarmAudioName=''|AlarmAudioEnable='13'|/>|</SceneAudio>|";
    expectResponse(kType, "1420", audio, text);
    expectRead(kType, "1420", replaced(text, "<SceneAudio>", "<SceneAudio AlarmAudioIndex='9'>"), audio);
    audio.stAlarmAudio[3] = {14, 15, "lost"};
    audio.AlarmAudioIndex = 16;
    EXPECT_EQ(bodyOf(kType, "1420", &audio, 1), wire(text));

    audio = fresh(SYSTEM_CONFIG_SET_1421_PARAM_init);
    number(11, audio.AlarmAudioIndex, audio.AlarmAudioOperation);
    expectRequest(kType, "1421", audio, "<AlarmAudioCfg|AlarmAudioIndex='11'|AlarmAudioOperation='12'|/>|");
}

// What a change carries, then what only an answer does.
Scene changed()
{
    auto scene = fresh(SYSTEM_CONFIG_SET_1423_PARAM_init);
    number(11, scene.SceneOperation, scene.SceneIndex, scene.Lightduration, scene.LightScheduleMode,
           scene.AudioAlarmTimes, scene.AudioScheduleMode, scene.AlarmAudioIndex, scene.IoAlarmLevel,
           scene.IoDuration, scene.IoScheduleMode);
    set(scene.SceneAlias, "scene");
    set(scene.AlarmAudioName, "audio");
    setPeriods(scene.ScenePeriodNum, scene.ScenePeriod, 1);
    setPeriods(scene.LightAlarmPeriodNum, scene.LightAlarmPeriod, 2);
    setPeriods(scene.AudioAlarmPeriodNum, scene.AudioAlarmPeriod, 3);
    setPeriods(scene.IoAlarmPeriodNum, scene.IoAlarmPeriod, 4);
    scene.stAlarmType[0] = {21, 22, "first"};
    scene.stAlarmType[1] = {23, 24, "second"};
    return scene;
}

Scene answered()
{
    Scene scene = changed();
    scene.SceneOperation = 255;
    scene.ucAlarmTypeNum = 2;
    number(31, scene.SceneTotal, scene.SceneTotalMax, scene.NextSceneIndex, scene.SceneEnable,
           scene.DefLightduration, scene.DefLightdurationRange[0], scene.DefLightdurationRange[1],
           scene.DefLightScheduleMode, scene.DefAudioAlarmTimes, scene.DefAudioAlarmTimesRange[0],
           scene.DefAudioAlarmTimesRange[1], scene.DefAudioScheduleMode, scene.DefAlarmAudioIndex,
           scene.DefIoAlarmLevel, scene.DefIoDuration, scene.DefIoDurationRange[0],
           scene.DefIoDurationRange[1], scene.DefIoScheduleMode);
    set(scene.DefAlarmAudioName, "default");
    return scene;
}

const std::string kTypes = "<AlarmType|AlarmTypeIndex='21'|AlarmTypeName='first'|AlarmTypeEnable='22'|/>|"
                           "<AlarmType|AlarmTypeIndex='23'|AlarmTypeName='second'|AlarmTypeEnable='24'|/>|";
const std::string kHead =
    "SceneIndex='12'|SceneAlias='scene'|ScenePeriodNum='1'|ScenePeriod='" + kPeriods1 + "'|";
const std::string kLightLists = "LightAlarmPeriodNum='2'|LightAlarmPeriod='" + kPeriods2 + "'|";
const std::string kAudioLists = "AudioAlarmPeriodNum='3'|AudioAlarmPeriod='" + kPeriods3 + "'|";
const std::string kIoLists = "IoAlarmPeriodNum='4'|IoAlarmPeriod='" + kPeriods4 + "'|";

const std::string kLightSet = "Lightduration='13'|LightScheduleMode='14'|" + kLightLists;
const std::string kAudioSet = "AudioAlarmTimes='15'|AudioScheduleMode='16'|" + kAudioLists;
const std::string kIoSet = "IoAlarmLevel='18'|IoDuration='19'|IoScheduleMode='20'|" + kIoLists;
const std::string kSet = "<SceneAlarm>|" + kTypes + "<SceneAlarmInfo|SceneOperation='11'|" + kHead +
                         kLightSet + kAudioSet + "AlarmAudioIndex='17'|AlarmAudioName='audio'|" + kIoSet +
                         "/>|</SceneAlarm>|";

const std::string kLightGet = "Lightduration='13'|DefLightduration='35'|DefLightdurationRange='36,37'|"
                              "LightScheduleMode='14'|DefLightScheduleMode='38'|" +
                              kLightLists;
const std::string kAudioGet = "AudioAlarmTimes='15'|DefAudioAlarmTimes='39'|DefAudioAlarmTimesRange='40,41'|"
                              "AudioScheduleMode='16'|DefAudioScheduleMode='42'|" +
                              kAudioLists;
const std::string kIoGet = "IoAlarmLevel='18'|DefIoAlarmLevel='44'|IoDuration='19'|DefIoDuration='45'|"
                           "DefIoDurationRange='46,47'|IoScheduleMode='20'|DefIoScheduleMode='48'|" +
                           kIoLists;
const std::string kGet =
    "<SceneAlarm>|<SceneAlarmParam|SceneTotal='31'|SceneTotalMax='32'|NextSceneIndex='33'|/>|" + kTypes +
    "<SceneAlarmInfo|SceneEnable='34'|" + kHead + kLightGet + kAudioGet +
    "AlarmAudioIndex='17'|DefAlarmAudioIndex='43'|AlarmAudioName='audio'|DefAlarmAudioName='default'|" +
    kIoGet + "/>|</SceneAlarm>|";

TEST(AlarmScene, BothWays)
{
    const Scene scene = answered();
    expectBodies(kType, "1422", &scene, "<SceneAlarm|SceneIndex='12'|/>|", kGet);
    // An operation is none of an answer's, and an answer's own attributes are none of a change's.
    expectRead(kType, "1422", replaced(kGet, "SceneEnable", "SceneOperation='9' SceneEnable"), scene);
    expectRequest(kType, "1423", changed(), kSet);
    expectRead(kType, "1423",
               replaced(replaced(kGet, "<SceneAlarm>", "<SceneAlarm SceneIndex='99'>"), "SceneEnable",
                        "SceneOperation='11' SceneEnable"),
               changed());
}

// A mode stands for its group on the way out; what comes is read in any case.
TEST(AlarmScene, Groups)
{
    const struct
    {
        uint8_t Scene::*mode;
        std::string get, set, attribute;
    } groups[] = {
        {&Scene::LightScheduleMode, kLightGet, kLightSet, "LightScheduleMode='14'|"},
        {&Scene::AudioScheduleMode, kAudioGet, kAudioSet, "AudioScheduleMode='16'|"},
        {&Scene::IoScheduleMode, kIoGet, kIoSet, "IoScheduleMode='20'|"},
    };
    for (const auto& group : groups) {
        Scene scene = answered();
        scene.*group.mode = 255;
        EXPECT_EQ(bodyOf(kType, "1422", &scene, 1), wire(replaced(kGet, group.get)));
        expectRead(kType, "1422", replaced(kGet, "|" + group.attribute, "|"), scene);
        scene = changed();
        scene.*group.mode = 255;
        EXPECT_EQ(bodyOf(kType, "1423", &scene, 0), wire(replaced(kSet, group.set)));
        expectRead(kType, "1423", replaced(kSet, "|" + group.attribute, "|"), scene);
    }
}

// The index of a question, over which that of an answer goes.
TEST(AlarmScene, Questions)
{
    auto scene = fresh(SYSTEM_CONFIG_GET_1422_PARAM_init);
    scene.SceneIndex = 12;
    expectRead(kType, "1423", "<SceneAlarm><SceneAlarmInfo SceneIndex='12'/></SceneAlarm>", scene);
    scene.ucAlarmTypeNum = 0;
    expectRead(kType, "1422", "<SceneAlarm|SceneIndex='12'|/>|", scene);
    expectRead(kType, "1422", "<SceneAlarm SceneIndex='12'><SceneAlarmInfo/></SceneAlarm>", scene);
    expectRead(kType, "1422", "<SceneAlarm SceneIndex='9'><SceneAlarmInfo SceneIndex='12'/></SceneAlarm>",
               scene);
}

// Fifteen kinds of alarms come in, five go out.
TEST(AlarmScene, AlarmTypes)
{
    auto scene = fresh(SYSTEM_CONFIG_GET_1422_PARAM_init);
    EXPECT_EQ(scene.stAlarmType[4].AlarmTypeIndex, 255);
    EXPECT_EQ(scene.stAlarmType[5].AlarmTypeIndex, 0);
    std::string rows;
    for (uint8_t i = 0; i <= 15; ++i) {
        rows += "<AlarmType AlarmTypeIndex='" + std::to_string(i + 31) + "'/><Other/>";
        if (i < 15)
            scene.stAlarmType[i].AlarmTypeIndex = static_cast<uint8_t>(i + 31);
    }
    expectRead(kType, "1423", "<SceneAlarm>" + rows + "</SceneAlarm>", scene);
    scene.ucAlarmTypeNum = 15;
    expectRead(kType, "1422", "<SceneAlarm>" + rows + "</SceneAlarm>", scene);
    const auto expectLast = [&](const std::string& index) {
        for (const auto& [code, kind] : {std::pair("1422", 1), std::pair("1423", 0)})
            EXPECT_NE(bodyOf(kType, code, &scene, kind)
                          .find(wire("'" + index +
                                     "'|AlarmTypeName=''|AlarmTypeEnable='255'|/>|"
                                     "<SceneAlarmInfo|")),
                      std::string::npos);
    };
    expectLast("35");
    scene.stAlarmType[2].AlarmTypeIndex = 255;
    expectLast("32");
}

TEST(AlarmScene, RequiredElements)
{
    expectMissing(kType, "1420", "SystemConfig_getHumanAlarmsceneAudio", "SceneAudio", "<AlarmAudio/>");
    expectMissing(kType, "1421", "SystemConfig_setHumanAlarmsceneAudio", "AlarmAudioCfg");
    expectMissing(kType, "1422", "SystemConfig_getHumanAlarmscene", "SceneAlarm", "<SceneAlarmInfo/>");
    expectMissing(kType, "1423", "SystemConfig_setHumanAlarmscene", "SceneAlarm", "<SceneAlarmInfo/>");
}

} // namespace
