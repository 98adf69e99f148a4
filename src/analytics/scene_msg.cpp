#include "analytics/scene_msg.h"

#include "analytics/smart_rule_list.h"
#include "core/lists.h"

namespace zel {

namespace {

using Scene = SYSTEM_CONFIG_GET_1422_PARAM;

// Of the alarm types that a record has room for.
constexpr size_t kWrittenTypes = 5;

// --- Sounds --------------------------------------------------------------------------------------

void soundAttributes(Side& side, SYSTEM_CONFIG_ALARM_AUDIO_ROW& sound)
{
    attribute(side, "AlarmAudioIndex", sound.AlarmAudioIndex);
    attribute(side, "AlarmAudioName", sound.AlarmAudioName);
    attribute(side, "AlarmAudioEnable", sound.AlarmAudioEnable);
}

bool isSound(const SYSTEM_CONFIG_ALARM_AUDIO_ROW& sound)
{
    return isSet(sound.AlarmAudioEnable);
}

void sounds(Side& side, SYSTEM_CONFIG_GET_1420_PARAM& record)
{
    rowElements<soundAttributes>(side, "AlarmAudio", record.stAlarmAudio,
                                 rowsInUse(side, record.stAlarmAudio, isSound));
}

void soundOperation(Side& side, SYSTEM_CONFIG_SET_1421_PARAM& record)
{
    attribute(side, "AlarmAudioIndex", record.AlarmAudioIndex);
    attribute(side, "AlarmAudioOperation", record.AlarmAudioOperation);
}

// --- Scenes --------------------------------------------------------------------------------------

void alarmType(Side& side, SYSTEM_CONFIG_ALARM_TYPE_ROW& type)
{
    attribute(side, "AlarmTypeIndex", type.AlarmTypeIndex);
    attribute(side, "AlarmTypeName", type.AlarmTypeName);
    attribute(side, "AlarmTypeEnable", type.AlarmTypeEnable);
}

bool isAlarmType(const SYSTEM_CONFIG_ALARM_TYPE_ROW& type)
{
    return isSet(type.AlarmTypeIndex);
}

// Returns how many there were.
size_t alarmTypes(Side& side, Scene& scene)
{
    auto& types = scene.stAlarmType;
    return rowElements<alarmType>(
        side, "AlarmType", types,
        rowsInUse(side, types, isAlarmType, countedRows(side, kWrittenTypes, types)));
}

void light(Side& side, Scene& scene, Defaults defaults)
{
    lightSchedule(side, scene, defaults);
    attribute(side, "LightAlarmPeriodNum", scene.LightAlarmPeriodNum);
    periodListAttribute(side, "LightAlarmPeriod", scene.LightAlarmPeriod, scene.LightAlarmPeriodNum);
}

void audio(Side& side, Scene& scene, Defaults defaults)
{
    audioSchedule(side, scene, defaults);
    attribute(side, "AudioAlarmPeriodNum", scene.AudioAlarmPeriodNum);
    periodListAttribute(side, "AudioAlarmPeriod", scene.AudioAlarmPeriod, scene.AudioAlarmPeriodNum);
}

void sound(Side& side, Scene& scene, Defaults defaults)
{
    attribute(side, "AlarmAudioIndex", scene.AlarmAudioIndex);
    if (defaults == Defaults::kWith)
        attribute(side, "DefAlarmAudioIndex", scene.DefAlarmAudioIndex);
    attribute(side, "AlarmAudioName", scene.AlarmAudioName);
    if (defaults == Defaults::kWith)
        attribute(side, "DefAlarmAudioName", scene.DefAlarmAudioName);
}

void output(Side& side, Scene& scene, Defaults defaults)
{
    attribute(side, "IoAlarmLevel", scene.IoAlarmLevel);
    if (defaults == Defaults::kWith)
        attribute(side, "DefIoAlarmLevel", scene.DefIoAlarmLevel);
    attribute(side, "IoDuration", scene.IoDuration);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefIoDuration", scene.DefIoDuration);
        rangeAttribute(side, "DefIoDurationRange", scene.DefIoDurationRange);
    }
    attribute(side, "IoScheduleMode", scene.IoScheduleMode);
    if (defaults == Defaults::kWith)
        attribute(side, "DefIoScheduleMode", scene.DefIoScheduleMode);
    attribute(side, "IoAlarmPeriodNum", scene.IoAlarmPeriodNum);
    periodListAttribute(side, "IoAlarmPeriod", scene.IoAlarmPeriod, scene.IoAlarmPeriodNum);
}

// What follows an answer's switch, or a change's operation. A mode stands for its alarm.
void sceneAttributes(Side& side, Scene& scene, Defaults defaults)
{
    attribute(side, "SceneIndex", scene.SceneIndex);
    attribute(side, "SceneAlias", scene.SceneAlias);
    attribute(side, "ScenePeriodNum", scene.ScenePeriodNum);
    periodListAttribute(side, "ScenePeriod", scene.ScenePeriod, scene.ScenePeriodNum);
    if (side.takes(isSet(scene.LightScheduleMode)))
        light(side, scene, defaults);
    if (side.takes(isSet(scene.AudioScheduleMode)))
        audio(side, scene, defaults);
    sound(side, scene, defaults);
    if (side.takes(isSet(scene.IoScheduleMode)))
        output(side, scene, defaults);
}

void sceneRequest(Side& side, SYSTEM_CONFIG_GET_1422_PARAM& scene)
{
    attribute(side, "SceneIndex", scene.SceneIndex);
}

// It reads a request too: that has the same element.
void getScene(Side& side, SYSTEM_CONFIG_GET_1422_PARAM& scene)
{
    attributeRead(side, "SceneIndex", scene.SceneIndex);
    if (const Element totals = element(side, "SceneAlarmParam")) {
        attribute(side, "SceneTotal", scene.SceneTotal);
        attribute(side, "SceneTotalMax", scene.SceneTotalMax);
        attribute(side, "NextSceneIndex", scene.NextSceneIndex);
    }
    const size_t count = alarmTypes(side, scene);
    if (!side.writes())
        scene.ucAlarmTypeNum = static_cast<uint8_t>(count);
    if (const Element info = element(side, "SceneAlarmInfo")) {
        attribute(side, "SceneEnable", scene.SceneEnable);
        sceneAttributes(side, scene, Defaults::kWith);
    }
}

void setScene(Side& side, SYSTEM_CONFIG_SET_1423_PARAM& scene)
{
    alarmTypes(side, scene);
    if (const Element info = element(side, "SceneAlarmInfo")) {
        attribute(side, "SceneOperation", scene.SceneOperation);
        sceneAttributes(side, scene, Defaults::kWithout);
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetHumanAlarmsceneAudio =
    message<SYSTEM_CONFIG_GET_1420_PARAM_init>("SystemConfig_getHumanAlarmsceneAudio_MessageAnalysis",
                                               within<sounds>("SceneAudio", Kinds::kNotRequests, kElements));
extern constexpr MessageRow kSetHumanAlarmsceneAudio =
    message<SYSTEM_CONFIG_SET_1421_PARAM_init>("SystemConfig_setHumanAlarmsceneAudio_MessageAnalysis",
                                               within<soundOperation>("AlarmAudioCfg", Kinds::kRequests));
extern constexpr MessageRow kGetHumanAlarmscene =
    message<SYSTEM_CONFIG_GET_1422_PARAM_init>("SystemConfig_getHumanAlarmscene_MessageAnalysis",
                                               within<getScene>("SceneAlarm", Kinds::kNotRequests, kElements),
                                               within<sceneRequest>("SceneAlarm", Kinds::kRequests))
        .reporting("SceneAlarm");
extern constexpr MessageRow kSetHumanAlarmscene =
    message<SYSTEM_CONFIG_SET_1423_PARAM_init>("SystemConfig_setHumanAlarmscene_MessageAnalysis",
                                               within<setScene>("SceneAlarm", Kinds::kRequests, kElements));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1420_PARAM_init(SYSTEM_CONFIG_GET_1420_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (SYSTEM_CONFIG_ALARM_AUDIO_ROW& sound : record.stAlarmAudio)
            zel::clear(sound.AlarmAudioName);
    });
}

int SYSTEM_CONFIG_GET_1422_PARAM_init(SYSTEM_CONFIG_GET_1422_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.AlarmAudioName, record.DefAlarmAudioName, record.SceneAlias, record.stAlarmType);
        for (size_t i = 0; i < zel::kWrittenTypes; ++i)
            zel::setAbsent(record.stAlarmType[i].AlarmTypeIndex, record.stAlarmType[i].AlarmTypeEnable);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1421_PARAM, SYSTEM_CONFIG_GET_1420_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1423_PARAM, SYSTEM_CONFIG_GET_1422_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanAlarmsceneAudio, kGetHumanAlarmsceneAudio)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanAlarmsceneAudio, kSetHumanAlarmsceneAudio)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanAlarmscene, kGetHumanAlarmscene)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanAlarmscene, kSetHumanAlarmscene)
