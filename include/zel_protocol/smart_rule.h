/**
 * What the records of intelligent analytics share: schedules, coordinates, the detection rule, the schedule
 * of alarm pushes.
 */
#ifndef ZEL_PROTOCOL_SMART_RULE_H
#define ZEL_PROTOCOL_SMART_RULE_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A period of the day. */
typedef struct TIME_PERIOD
{
    int32_t StartHour;
    int32_t StartMinute;
    int32_t StartSecond;
    int32_t EndHour;
    int32_t EndMinute;
    int32_t EndSecond;
} TIME_PERIOD;

/** A point of a line or of a region's border, within the rule's video resolution. */
typedef struct COORDINATE
{
    int32_t X;
    int32_t Y;
} COORDINATE;

/**
 * A detection rule and what an alarm of it sets off. `Def...` is the device's default of the setting of that
 * name, `Def...Range` are its two bounds: only a device's answers carry them. All else goes both ways unless
 * its comment says otherwise: in the answer to a query, and in the request that changes the settings.
 *
 * A `...Num` counts the entries of its list. An analysed record keeps the number that was received, which may
 * be larger than the list that came with it or than the array, and 255 if a list came without a number. On
 * the way out a list ends at the array's end whatever its number says.
 */
typedef struct SMART_RULE_PARAM
{
    uint8_t Enable; /**< switch of the whole rule */
    uint8_t DefEnable;
    uint8_t DetectionAttr;       /**< what is looked for, as the device numbers it */
    uint8_t CrowdFlowStatEnable; /**< counting of passers-by */
    uint8_t DefCrowdFlowStatEnable;
    uint8_t DetectionSens; /**< sensitivity */
    uint8_t DefDetectionSens;
    uint8_t LightAlarmEnable; /**< switch */
    uint8_t DefLightAlarmEnable;
    uint8_t Lightduration;       /**< how long the light stays on */
    uint8_t ucAlarmTimeIn;       /**< the received AlarmTime; never written */
    uint8_t EmailAlarmEnable;    /**< switch; device's answers only, as all of the e-mail */
    uint8_t Emailduration;       /**< of the e-mail alarm */
    uint8_t EmailScheduleMode;   /**< as the device numbers it */
    uint8_t EmailAlarmPeriodNum; /**< periods used */
    int32_t DefEmaildurationRange[2];
    int32_t DefDetectionSensRange[2];
    int32_t LightAudioAlarmStartTime[3]; /**< hour, minute, second */
    int32_t LightAudioAlarmEndTime[3];   /**< the same */
    int32_t DefLightdurationRange[2];
    TIME_PERIOD LightAlarmPeriod[4]; /**< when the light may go on */
    int32_t DefAudioAlarmTimesRange[2];
    uint8_t LightScheduleMode; /**< as the device numbers it */
    uint8_t DefLightScheduleMode;
    uint8_t LightAlarmPeriodNum; /**< periods used */
    uint8_t AudioAlarmEnable;    /**< switch */
    uint8_t DefAudioAlarmEnable;
    uint8_t AudioAlarmTimes;   /**< how often the sound is played */
    uint8_t AudioScheduleMode; /**< as the device numbers it */
    uint8_t DefAudioScheduleMode;
    int32_t DefAudioAlarmTimes;
    int32_t DefLightduration;
    uint8_t AudioAlarmPeriodNum;     /**< periods used */
    uint8_t AlarmTime;               /**< the AlarmTime to send; never read */
    uint8_t ShowAlarmCount;          /**< switch: the count is on the picture */
    uint8_t ShowAlarmLine;           /**< switch: the line is on the picture */
    uint8_t MaxCoordinateCapability; /**< points that the device can take */
    uint8_t LineCoordinatesNum;      /**< points used */
    uint8_t DefTrackEnable;          /**< read from a change of settings too */
    uint8_t TrackEnable;             /**< switch: the camera follows what it found */
    COORDINATE LineCoordinates[8];   /**< the line, or the region's border */
    TIME_PERIOD AudioAlarmPeriod[4]; /**< when the sound may be played */
    int32_t VideoResolution[2];      /**< width and height that the coordinates refer to */
    TIME_PERIOD EmailAlarmPeriod[4]; /**< when e-mails may be sent */
} SMART_RULE_PARAM;

/** When alarms are pushed. */
typedef struct ALARM_PUSH_TIME_PARAM
{
    int32_t OfflinePush;        /**< switch; not written when absent */
    int32_t ScheduleMode;       /**< as the device numbers it; not written when absent */
    TIME_PERIOD stAlarmTime[4]; /**< zero, not -1, when absent */
} ALARM_PUSH_TIME_PARAM;

ZEL_API int ALARM_PUSH_TIME_PARAM_init(ALARM_PUSH_TIME_PARAM* param);

#ifdef __cplusplus
}
#endif

#endif
