/**
 * IoT cameras: family "IOT_CAMERA_MESSAGE". The code is decimal text.
 */
#ifndef ZEL_PROTOCOL_IOT_CAMERA_H
#define ZEL_PROTOCOL_IOT_CAMERA_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A time of day. Absent times are zero. */
typedef struct IOT_CAMERA_TIME
{
    int32_t iHour;
    int32_t iMinute;
    int32_t iSecond;
} IOT_CAMERA_TIME;

/** A period of the day. */
typedef struct IOT_CAMERA_ALARM_PERIOD
{
    IOT_CAMERA_TIME stStart;
    IOT_CAMERA_TIME stEnd;
} IOT_CAMERA_ALARM_PERIOD;

/** 1205: ageing of the device, a request. */
typedef struct IOT_CAMERA_1205_PARAM
{
    int32_t MaxUptimeConfig; /**< how long the device has to run */
} IOT_CAMERA_1205_PARAM;

/**
 * 1520: light of the camera, a response without a request body. It is written whole. `Def...` is the device's
 * default of the setting of that name.
 */
typedef struct IOT_CAMERA_1520_PARAM
{
    uint8_t IotLightMode;
    uint8_t IotLightOnSensitivity;
    uint8_t IotLightOffSensitivity;
    uint8_t NetworkIndicatorEnable; /**< lamp that shows the network's state, 0 or 1; 1521 leaves 255 out */
    uint8_t DefIotLightMode;
    uint8_t DefIotLightOnSensitivity;
    uint8_t DefIotLightOffSensitivity;
    IOT_CAMERA_TIME stIotTimingStart; /**< when the light goes on and off by the clock */
    IOT_CAMERA_TIME stIotTimingEnd;
} IOT_CAMERA_1520_PARAM;

/** 1521: sets what 1520 gets. A request, without defaults. */
typedef IOT_CAMERA_1520_PARAM IOT_CAMERA_1521_PARAM;

/**
 * 1522: what a detected human sets off, a response without a request body. It is written whole: an
 * `AlarmPeriodNum` is a number only, four periods stand on the wire whatever it says. The members of each
 * element stand together, in the record's order, not the wire's. `Def...` is the device's default of the
 * setting of that name, `Def...Range` are its two bounds.
 */
typedef struct IOT_CAMERA_1522_PARAM
{
    uint8_t HumanAlarm_Enable; /**< 0 or 1 */
    uint8_t HumanAlarm_DefEnable;
    uint8_t DetectionSens; /**< sensitivity */
    uint8_t DefDetectionSens;
    uint8_t OfflinePush; /**< push of an alarm to a client that is offline, 0 or 1 */
    uint8_t DefOfflinePush;
    uint8_t AlarmShow; /**< 0 or 1 */
    uint8_t DefAlarmShow;
    uint8_t LightAlarm_Enable; /**< 0 or 1 */
    uint8_t LightAlarm_DefEnable;
    uint8_t duration; /**< how long the light is on */
    uint8_t DefDuration;
    uint8_t LightAlarm_ScheduleMode;
    uint8_t LightAlarm_DefScheduleMode;
    uint8_t LightAlarm_AlarmPeriodNum; /**< not in 1523 */
    uint8_t AudioAlarm_Enable;         /**< 0 or 1 */
    uint8_t AudioAlarm_DefEnable;
    uint8_t AlarmTimes; /**< how often the sound is played */
    uint8_t DefAlarmTimes;
    uint8_t AudioAlarm_ScheduleMode;
    uint8_t AudioAlarm_DefScheduleMode;
    uint8_t AudioAlarm_AlarmPeriodNum; /**< not in 1523 */
    uint8_t TrackAlarm_Enable;         /**< 0 or 1 */
    uint8_t TrackAlarm_DefEnable;
    uint8_t TrackMode;
    uint8_t CenterMode;
    uint8_t showPtzTrack;            /**< 0 or 1 */
    uint8_t Time;                    /**< of tracking */
    uint8_t TrackAlarm_ScheduleMode; /**< 1523: without it stTrackPeriods is left out */
    uint8_t TrackAlarm_DefScheduleMode;
    uint8_t TrackAlarm_AlarmPeriodNum;
    uint8_t AlarmPushTime_ScheduleMode;
    uint8_t AlarmPushTime_DefScheduleMode;
    uint8_t AlarmPushTime_AlarmPeriodNum; /**< not in 1523 */
    int32_t DefDetectionSensRange[2];
    int32_t DefDurationRange[2]; /**< s */
    int32_t DefAlarmTimesRange[2];
    IOT_CAMERA_ALARM_PERIOD stAudioPeriods[4];
    IOT_CAMERA_ALARM_PERIOD stLightPeriods[4];
    IOT_CAMERA_ALARM_PERIOD stTrackPeriods[4];
    IOT_CAMERA_ALARM_PERIOD stPushPeriods[4];
} IOT_CAMERA_1522_PARAM;

/**
 * 1523: sets what 1522 gets. A request, without defaults, of which it reads TrackAlarm_DefEnable and
 * TrackAlarm_DefScheduleMode all the same.
 */
typedef IOT_CAMERA_1522_PARAM IOT_CAMERA_1523_PARAM;

ZEL_API int IOT_CAMERA_1205_PARAM_init(IOT_CAMERA_1205_PARAM* param);
ZEL_API int IOT_CAMERA_1520_PARAM_init(IOT_CAMERA_1520_PARAM* param);
ZEL_API int IOT_CAMERA_1521_PARAM_init(IOT_CAMERA_1521_PARAM* param);
ZEL_API int IOT_CAMERA_1522_PARAM_init(IOT_CAMERA_1522_PARAM* param);
ZEL_API int IOT_CAMERA_1523_PARAM_init(IOT_CAMERA_1523_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int IOTCameraMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`. */
ZEL_API int IOTCameraMessageAnalysis(const char* text, const char* code, void** result);

/* Each analyses a text into the record of its code. */
ZEL_API int IOTCamera_SetIpcDeviceToAge_MessageAnalysis(const char* text, void** result);
ZEL_API int IOTCamera_GetIpcLightConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int IOTCamera_SetIpcLightConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int IOTCamera_GetHumanDetectionConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int IOTCamera_SetHumanDetectionConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
