/**
 * Configuration of alarm scenes for the detection of humans, and of their sounds: codes 1420 to 1423 of the
 * configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_SCENE_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_SCENE_H

#include "zel_protocol/smart_rule.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A sound that an alarm can play. */
typedef struct SYSTEM_CONFIG_ALARM_AUDIO_ROW
{
    int32_t AlarmAudioIndex;
    int32_t AlarmAudioEnable; /**< 0 or 1; -1: a free row */
    char AlarmAudioName[256];
} SYSTEM_CONFIG_ALARM_AUDIO_ROW;

/**
 * 1420: the sounds of alarms, a response without a parameter in its request. It carries the rows up to the
 * first free one, and neither of the first two fields.
 */
typedef struct SYSTEM_CONFIG_GET_1420_PARAM
{
    int32_t AlarmAudioIndex;     /**< 1421 only, as the next: the sound */
    int32_t AlarmAudioOperation; /**< and what is to be done with it */
    SYSTEM_CONFIG_ALARM_AUDIO_ROW stAlarmAudio[6];
} SYSTEM_CONFIG_GET_1420_PARAM;

/** 1421: operates on one sound. Request only; it carries the first two fields alone. */
typedef SYSTEM_CONFIG_GET_1420_PARAM SYSTEM_CONFIG_SET_1421_PARAM;

/** A kind of alarm that a scene can apply to. */
typedef struct SYSTEM_CONFIG_ALARM_TYPE_ROW
{
    uint8_t AlarmTypeIndex;  /**< 255: a free row */
    uint8_t AlarmTypeEnable; /**< 0 or 1 */
    char AlarmTypeName[128];
} SYSTEM_CONFIG_ALARM_TYPE_ROW;

/**
 * 1422: an alarm scene. The request carries SceneIndex alone, the response all but SceneOperation.
 *
 * The fields of the light alarm, from Lightduration to its periods, go out only if LightScheduleMode isn't
 * absent; those of the sound alarm and of the alarm output likewise. They are read in any case.
 *
 * `Def...` is the device's default of the setting of that name, `Def...Range` are its two bounds. A `...Num`
 * counts the entries of its list, which ends at the array's end whatever the number says, 255 included.
 */
typedef struct SYSTEM_CONFIG_GET_1422_PARAM
{
    int32_t NextSceneIndex;
    uint8_t SceneOperation; /**< 1423 only: what is to be done with the scene */
    uint8_t SceneTotal;     /**< scenes that there are */
    uint8_t SceneTotalMax;  /**< scenes that there can be */
    uint8_t SceneIndex;
    uint8_t SceneEnable; /**< 0 or 1; not in 1423 */
    uint8_t ScenePeriodNum;
    uint8_t LightScheduleMode;
    uint8_t DefLightScheduleMode;
    uint8_t Lightduration; /**< how long the light is on */
    uint8_t DefLightduration;
    uint8_t LightAlarmPeriodNum;
    uint8_t AudioScheduleMode;
    uint8_t DefAudioScheduleMode;
    uint8_t AudioAlarmTimes; /**< how often the sound is played */
    uint8_t DefAudioAlarmTimes;
    uint8_t AudioAlarmPeriodNum;
    uint8_t IoScheduleMode;
    uint8_t DefIoScheduleMode;
    uint8_t IoAlarmLevel; /**< level of the alarm output */
    uint8_t DefIoAlarmLevel;
    uint8_t IoDuration; /**< how long the alarm output is on */
    uint8_t DefIoDuration;
    uint8_t IoAlarmPeriodNum;
    uint8_t AlarmAudioIndex; /**< the sound, as AlarmAudioName; both go out in any case */
    uint8_t DefAlarmAudioIndex;
    uint8_t ucAlarmTypeNum; /**< rows of stAlarmType that an analysis of 1422 read; not on the wire */
    int32_t DefLightdurationRange[2];
    int32_t DefAudioAlarmTimesRange[2];
    int32_t DefIoDurationRange[2];
    char AlarmAudioName[128];
    char DefAlarmAudioName[128];
    char SceneAlias[128];
    TIME_PERIOD LightAlarmPeriod[4];
    TIME_PERIOD ScenePeriod[4]; /**< when the scene applies */
    TIME_PERIOD IoAlarmPeriod[4];
    TIME_PERIOD AudioAlarmPeriod[4];
    /** The first five at most go out, up to the first free row; all fifteen are read. The numbers of the last
        ten are 0 when absent. */
    SYSTEM_CONFIG_ALARM_TYPE_ROW stAlarmType[15];
} SYSTEM_CONFIG_GET_1422_PARAM;

/**
 * 1423: operates on a scene. Request only; without defaults, SceneEnable, NextSceneIndex and the numbers of
 * scenes. SceneIndex is that of its Param element, and ucAlarmTypeNum isn't set by its analysis.
 */
typedef SYSTEM_CONFIG_GET_1422_PARAM SYSTEM_CONFIG_SET_1423_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1420_PARAM_init(SYSTEM_CONFIG_GET_1420_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1421_PARAM_init(SYSTEM_CONFIG_SET_1421_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1422_PARAM_init(SYSTEM_CONFIG_GET_1422_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1423_PARAM_init(SYSTEM_CONFIG_SET_1423_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getHumanAlarmsceneAudio_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanAlarmsceneAudio_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanAlarmscene_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanAlarmscene_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
