/**
 * Configuration of a camera's motion detection and alarms: codes 802, 820 and 822 of the configuration
 * family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_ALARM_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_ALARM_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A line of a schedule. */
typedef struct SYSTEM_CONFIG_WORKDAY_ROW
{
    int32_t Day;          /**< day of the week; -1: a free row. On the way in that of TimeSpan wins */
    int32_t StartTime[3]; /**< hours, minutes, seconds; 0, not -1, when absent */
    int32_t EndTime[3];   /**< the same */
} SYSTEM_CONFIG_WORKDAY_ROW;

/**
 * 802: motion detection, its schedule and what an alarm sets off. Response only; it is written whole, absent
 * values as -1.
 *
 * The init leaves Alarmtime, SoundAlarm and LightAlarm as they were; an analysed record holds -1 in what the
 * peer didn't send of them.
 */
typedef struct SYSTEM_CONFIG_GET_802_PARAM
{
    int32_t MotionDetectAlarm_Enable; /**< 0/1 */
    int32_t BlockCount;               /**< blocks that the picture is divided into */
    char BlockConfig[256];            /**< which of them are watched; not looked into */
    int32_t Sensitivity;
    int32_t AlarmThreshold;
    int32_t NightSensitivity;
    int32_t NightAlarmThreshold;
    int32_t NightStartTime[3]; /**< hours, minutes, seconds */
    int32_t NightEndTime[3];   /**< the same */
    int32_t DayNightSwitch;    /**< 0/1: the night has values of its own */
    /**
     * Rows in use, free ones among them; -1 as 0. Of an analysed record, the rows that came; -1: no
     * schedule. 822 doesn't look at it on the way out: there the first free row ends the rows.
     */
    int32_t iWorkdayCount;
    int32_t AlarmOutputAction_Enable; /**< 0/1: alarm output, as the next four */
    int32_t PortIndex;                /**< number of the output */
    char ChannelType[32];
    char TriggerType[32];
    int32_t Duration;   /**< s */
    int32_t Alarmtime;  /**< of sound and light; the init leaves it, as the next two */
    int32_t SoundAlarm; /**< 0/1 */
    int32_t LightAlarm; /**< 0/1 */
    SYSTEM_CONFIG_WORKDAY_ROW stWorkday[8];
} SYSTEM_CONFIG_GET_802_PARAM;

/* 822: sets what 802 gets. Request only. */
typedef SYSTEM_CONFIG_GET_802_PARAM SYSTEM_CONFIG_SET_822_PARAM;

/**
 * 820: sets all alarms: motion detection, the switches of an IoT camera, push and e-mail. Request only; it is
 * written whole, absent values as -1. No message reads these settings.
 *
 * The init leaves Alarmtime, SoundAlarm and LightAlarm as they were; an analysed record holds -1 in what the
 * peer didn't send of them.
 */
typedef struct SYSTEM_CONFIG_SET_820_PARAM
{
    int32_t OFFLINE_MSG_PUSH_Enable;  /**< 0/1: messages are pushed to absent clients */
    int32_t MotionDetectAlarm_Enable; /**< 0/1 */
    int32_t IotAlarmTime;             /**< of IotDriveAway, as the next three */
    int32_t IotAlarmLightEnable;      /**< 0/1 */
    int32_t IotAlarmSoundEnable;      /**< 0/1 */
    int32_t IotAlarmStart;            /**< 0/1 */
    int32_t DefenseSet;               /**< of IotDefense: 0/1 */
    int32_t BlockCount;               /**< blocks that the picture is divided into */
    char BlockConfig[256];            /**< which of them are watched; not looked into */
    int32_t Sensitivity;
    int32_t AlarmThreshold;
    int32_t NightSensitivity;
    int32_t NightAlarmThreshold;
    int32_t NightStartTime[3]; /**< hours, minutes, seconds; written without leading zeros */
    int32_t NightEndTime[3];   /**< the same */
    char ChannelType[32];      /**< of the alarm output, as the next */
    char TriggerType[32];
    int32_t DayNightSwitch;           /**< 0/1: the night has values of its own */
    int32_t AlarmOutputAction_Enable; /**< 0/1: alarm output, as the next two */
    int32_t PortIndex;                /**< number of the output */
    int32_t Duration;                 /**< s */
    int32_t Alarmtime;                /**< of sound and light; the init leaves it, as the next two */
    int32_t SoundAlarm;               /**< 0/1 */
    int32_t LightAlarm;               /**< 0/1 */
    int32_t Port;           /**< of the e-mail server, as all up to the receiver are of the e-mail */
    int32_t Authentication; /**< 0/1: the server wants name and password */
    int32_t Interval;       /**< between two e-mails */
    char Username[32];
    char Password[32];
    char Sender[128];      /**< address */
    char SMTPServer[128];  /**< name or address of the server */
    char Title[128];       /**< subject line */
    char Receiver[128];    /**< address */
    int32_t iWorkdayCount; /**< rows in use, free ones among them; -1 as 0. As in 802 on the way in */
    SYSTEM_CONFIG_WORKDAY_ROW stWorkday[8];
} SYSTEM_CONFIG_SET_820_PARAM;

/** Alarmtime, SoundAlarm and LightAlarm stay as they were. */
ZEL_API int SYSTEM_CONFIG_GET_802_PARAM_init(SYSTEM_CONFIG_GET_802_PARAM* param);

/** Alarmtime, SoundAlarm and LightAlarm stay as they were. */
ZEL_API int SYSTEM_CONFIG_SET_820_PARAM_init(SYSTEM_CONFIG_SET_820_PARAM* param);

/** Alarmtime, SoundAlarm and LightAlarm stay as they were. */
ZEL_API int SYSTEM_CONFIG_SET_822_PARAM_init(SYSTEM_CONFIG_SET_822_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getMotiondetectAlarm_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setIpcAlarmConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMotiondetectAlarm_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
