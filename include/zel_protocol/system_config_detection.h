/**
 * Configuration of the detection of vehicles, human forms and animals: codes 1412 to 1417, 1426 and 1427 of
 * the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_DETECTION_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_DETECTION_H

#include "zel_protocol/smart_rule.h"
#include "zel_protocol/system_config_intelligent.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 1412: detection of a vehicle's shape, a response without a parameter in its request; it is written whole.
 *
 * Nothing of the e-mail alarm, the alarm's time and times of day, tracking and the counting of passers-by is
 * written; the last is read from the boundary alone. The init leaves ucAlarmTimeIn and the six fields of the
 * e-mail alarm as they were. An analysed rule without a resolution has 1600 and 900; a rule that didn't come
 * at all has its absent values.
 */
typedef struct SYSTEM_CONFIG_GET_1412_PARAM
{
    SMART_RULE_PARAM stRegion;
    SMART_RULE_PARAM stCrossBoundary;
    ALARM_PUSH_TIME_PARAM stPushTime;
} SYSTEM_CONFIG_GET_1412_PARAM;

/** 1413: sets what 1412 gets. Request only, without defaults and the counting of passers-by. */
typedef SYSTEM_CONFIG_GET_1412_PARAM SYSTEM_CONFIG_SET_1413_PARAM;

/**
 * 1417: detection of a human form, a response without a parameter in its request. The push time is read only
 * if the detection itself came.
 *
 * `Def...` is the device's default of the setting of that name, `Def...Range` are its two bounds. A `...Num`
 * counts the entries of its list, which ends at the array's end whatever the number says, 255 included.
 */
typedef struct SYSTEM_CONFIG_GET_1417_PARAM
{
    uint8_t Enable; /**< 0 or 1 */
    uint8_t DefEnable;
    uint8_t DetectionSens; /**< sensitivity */
    uint8_t DefDetectionSens;
    uint8_t LightAlarmEnable; /**< 0 or 1 */
    uint8_t DefLightAlarmEnable;
    uint8_t Lightduration; /**< how long the light is on */
    uint8_t LightScheduleMode;
    uint8_t DefLightScheduleMode;
    uint8_t LightAlarmPeriodNum;
    uint8_t AudioAlarmEnable; /**< 0 or 1 */
    uint8_t DefAudioAlarmEnable;
    int32_t DefAudioAlarmTimes;
    int32_t DefLightduration;
    uint8_t AudioAlarmTimes; /**< how often the sound is played */
    uint8_t AudioScheduleMode;
    uint8_t DefAudioScheduleMode;
    uint8_t AudioAlarmPeriodNum;
    uint8_t ucReserved[3]; /**< not on the wire */
    uint8_t ShowAlarmCount;
    int32_t AudioAlarmFileSize; /**< bytes; left out when absent, never in 1414 and 1416 */
    int32_t DefDetectionSensRange[2];
    int32_t DefAudioAlarmTimesRange[2];
    int32_t DefLightdurationRange[2];
    TIME_PERIOD AudioAlarmPeriod[4];
    TIME_PERIOD LightAlarmPeriod[4];
    ALARM_PUSH_TIME_PARAM stPushTime;
} SYSTEM_CONFIG_GET_1417_PARAM;

/** 1416: sets what 1417 gets. Request only, without defaults. */
typedef SYSTEM_CONFIG_GET_1417_PARAM SYSTEM_CONFIG_SET_1416_PARAM;

/** 1415: detection of a vehicle, as 1417. The push time is read whether or not the detection came. */
typedef SYSTEM_CONFIG_GET_1417_PARAM SYSTEM_CONFIG_GET_1415_PARAM;

/** 1414: sets what 1415 gets. Request only, without defaults. */
typedef SYSTEM_CONFIG_GET_1417_PARAM SYSTEM_CONFIG_SET_1414_PARAM;

/**
 * 1426: detection of animals, a response without a parameter in its request, or a result code in place of it.
 *
 * With an iResultFlag of -1 both rules go out, with the fields of 1412; with any other ErrorCode alone. An
 * analysis sets the flag to 1 if the code alone came. Neither rule has the counting of passers-by.
 */
typedef SYSTEM_CONFIG_GET_1402_PARAM SYSTEM_CONFIG_GET_1426_PARAM;

/** 1427: sets what 1426 gets. Request only, with the fields of 1413, whatever iResultFlag is. */
typedef SYSTEM_CONFIG_GET_1402_PARAM SYSTEM_CONFIG_SET_1427_PARAM;

/** Leaves ucAlarmTimeIn and what belongs to the e-mail alarm as they were, in both rules; as the next. */
ZEL_API int SYSTEM_CONFIG_GET_1412_PARAM_init(SYSTEM_CONFIG_GET_1412_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1413_PARAM_init(SYSTEM_CONFIG_SET_1413_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1414_PARAM_init(SYSTEM_CONFIG_SET_1414_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1415_PARAM_init(SYSTEM_CONFIG_GET_1415_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1416_PARAM_init(SYSTEM_CONFIG_SET_1416_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1417_PARAM_init(SYSTEM_CONFIG_GET_1417_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1426_PARAM_init(SYSTEM_CONFIG_GET_1426_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1427_PARAM_init(SYSTEM_CONFIG_SET_1427_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getVehicleFormIntelligent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setVehicleFormIntelligent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setVehicleDetection_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getVehicleDetection_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanDetection_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanDetection_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getAnimaldetecIntelligent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setAnimaldetecIntelligent_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
