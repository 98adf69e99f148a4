/**
 * Small settings of analytics: the alarm by light and sound, the switches of smart detection and the human
 * alarm. Codes 1492 to 1499 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_SMART_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_SMART_H

#include "zel_protocol/smart_rule.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 1492: the alarm by light and sound, a response without a parameter in its request. */
typedef struct SYSTEM_CONFIG_GET_1492_PARAM
{
    int32_t LightAudioAlarmEnable; /**< 0 or 1 */
} SYSTEM_CONFIG_GET_1492_PARAM;

/** 1493: sets what 1492 gets. Request only. */
typedef SYSTEM_CONFIG_GET_1492_PARAM SYSTEM_CONFIG_SET_1493_PARAM;

/**
 * 1494, 1496: the human alarm, a response without a parameter in its request. It is written whole. What
 * belongs to the light and the sound stands in an element each, under names without "Light" and "Audio".
 *
 * A `...Num` counts the entries of its list, which ends at the array's end whatever the number says, its
 * absent value included. A written list is cut after 255 bytes.
 */
typedef struct SYSTEM_CONFIG_GET_1494_PARAM
{
    uint8_t DetectionSens;           /**< sensitivity */
    uint8_t Enable;                  /**< of the detection, 0 or 1 */
    uint8_t ShowAlarmCount;          /**< 0 or 1 */
    uint8_t ShowAlarmLine;           /**< draw the line, 0 or 1 */
    uint8_t MaxCoordinateCapability; /**< points that the device can take; not in 1495 */
    uint8_t LineCoordinatesNum;
    int32_t DefDetectionSensRange[2]; /**< bounds of DetectionSens; not in 1495 */
    int32_t VideoResolution[2];       /**< width and height that the coordinates refer to */
    uint8_t LightEnable;              /**< "Enable", 0 or 1 */
    uint8_t Lightduration;            /**< "duration": how long the light is on */
    uint8_t ucLightReserved;          /**< not on the wire */
    uint8_t LightScheduleMode;        /**< "ScheduleMode" */
    uint32_t LightAlarmPeriodNum;     /**< "AlarmPeriodNum"; written signed */
    int32_t DefLightdurationRange[2]; /**< bounds of Lightduration; not in 1495 */
    TIME_PERIOD LightAlarmPeriod[4];  /**< "AlarmPeriod" */
    uint8_t AudioEnable;              /**< "Enable", 0 or 1 */
    uint8_t Audioduration;            /**< not on the wire */
    uint8_t AudioAlarmTimes;          /**< "AlarmTimes": how often the sound is played */
    uint8_t AudioScheduleMode;        /**< "ScheduleMode" */
    uint32_t AudioAlarmPeriodNum;     /**< "AlarmPeriodNum"; written signed */
    int32_t DefAudioRange[2];         /**< "DefLightdurationRange": bounds of AudioAlarmTimes; not in 1495 */
    TIME_PERIOD AudioAlarmPeriod[4];  /**< "AlarmPeriod" */
    COORDINATE LineCoordinates[8];
} SYSTEM_CONFIG_GET_1494_PARAM;

/** 1495, 1497: set what 1494 gets. Requests only. */
typedef SYSTEM_CONFIG_GET_1494_PARAM SYSTEM_CONFIG_SET_1495_PARAM;
typedef SYSTEM_CONFIG_GET_1494_PARAM SYSTEM_CONFIG_GET_1496_PARAM;
typedef SYSTEM_CONFIG_GET_1494_PARAM SYSTEM_CONFIG_SET_1497_PARAM;

/** 1498: the switches of smart detection, a response without a parameter in its request. */
typedef struct SYSTEM_CONFIG_GET_1498_PARAM
{
    int32_t RegionDetectionEnable;        /**< 0 or 1 */
    int32_t CrossBoundaryDetectionEnable; /**< 0 or 1 */
    int32_t iElementForm; /**< 1: the element is SmartDetection1, else SmartDetection; never read */
} SYSTEM_CONFIG_GET_1498_PARAM;

/** 1499: sets what 1498 gets. Request only. */
typedef SYSTEM_CONFIG_GET_1498_PARAM SYSTEM_CONFIG_SET_1499_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1492_PARAM_init(SYSTEM_CONFIG_GET_1492_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1493_PARAM_init(SYSTEM_CONFIG_SET_1493_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1494_PARAM_init(SYSTEM_CONFIG_GET_1494_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1495_PARAM_init(SYSTEM_CONFIG_SET_1495_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1496_PARAM_init(SYSTEM_CONFIG_GET_1496_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1497_PARAM_init(SYSTEM_CONFIG_SET_1497_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1498_PARAM_init(SYSTEM_CONFIG_GET_1498_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1499_PARAM_init(SYSTEM_CONFIG_SET_1499_PARAM* param);

/* Each analyses a text into the record of its codes. */
ZEL_API int SystemConfig_getLightAudioAlarmConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setLightAudioAlarmConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanAlarmConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanAlarmConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getSmartDetectionConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setSmartDetectionConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
