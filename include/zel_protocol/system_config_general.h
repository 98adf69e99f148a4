/**
 * General settings of a recorder, its clock, accounts, pushes and cloud password, and the states of its
 * channels: codes 2500 to 2535 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_GENERAL_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_GENERAL_H

#include "zel_protocol/core.h"
#include "zel_protocol/device_report.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 2500: general settings. Response only; absent values are written as -1. */
typedef struct SYSTEM_CONFIG_GET_2500_PARAM
{
    int32_t Language;
    int32_t Transparency; /**< of the recorder's menus */
    int32_t GuideEnable;  /**< 0/1: the guide after switching on */
    char DevID[32];
    char Resolution[32];      /**< of the recorder's screen */
    char ResolutionList[256]; /**< the device's values of Resolution; 2500 only */
    char LanguageList[256];   /**< the device's values of Language; 2500 only */
} SYSTEM_CONFIG_GET_2500_PARAM;

/* 2520: sets what 2500 gets. Request only; the two lists are neither written nor read. */
typedef SYSTEM_CONFIG_GET_2500_PARAM SYSTEM_CONFIG_SET_2520_PARAM;

/** 2505: clock and daylight saving time. Response only; absent values are written as -1. */
typedef struct SYSTEM_CONFIG_GET_2505_PARAM
{
    int32_t Format;   /**< of dates */
    int32_t Enable;   /**< 0/1 */
    uint8_t Timezone; /**< number of the zone; written as 255 when absent */
    char Time[32];
    int32_t SummerEnable; /**< Enable of SummerTime: 0/1 */
    int32_t OffSet;       /**< of SummerTime */
    /* Five numbers; only those of at most two digits are read back. */
    int32_t aiWeekStartTime[5]; /**< WeekStartTime */
    int32_t aiWeekEndTime[5];   /**< WeekEndTime */
} SYSTEM_CONFIG_GET_2505_PARAM;

/* 2525: sets what 2505 gets. Request only. */
typedef SYSTEM_CONFIG_GET_2505_PARAM SYSTEM_CONFIG_SET_2525_PARAM;

/** An account of a recorder. */
typedef struct SYSTEM_CONFIG_ACCOUNT
{
    char Username[32];
    char Password[48];
    char Status[8];        /**< a text, not a number */
    int32_t OperationType; /**< what is to be done with the account; 2530 only */
    int32_t LoginStat;     /**< 0/1: logged in */
    char Email[256];
    char LocalAuthority[32];  /**< rights at the device itself */
    char RemoteAuthority[32]; /**< rights over the network */
} SYSTEM_CONFIG_ACCOUNT;

/** 2510: accounts. Response only. Accounts beyond the last row are passed over. */
typedef struct SYSTEM_CONFIG_GET_2510_PARAM
{
    /** Rows in use. Of an analysed record, what the peer said, or else the rows that came; -1: neither. */
    int32_t UserNum;
    int32_t MaxUserNum; /**< accounts that the device can take */
    SYSTEM_CONFIG_ACCOUNT stAccount[40];
} SYSTEM_CONFIG_GET_2510_PARAM;

/* 2530: sets what 2510 gets. Request only; the two numbers aren't written, but they are read. */
typedef SYSTEM_CONFIG_GET_2510_PARAM SYSTEM_CONFIG_SET_2530_PARAM;

/** 2511: whether a lost channel is pushed. The request carries ChannelId alone; absent values go out as -1.
 */
typedef struct SYSTEM_CONFIG_GET_2511_PARAM
{
    int32_t ChannelId;
    int32_t PushOfflineEnable; /**< 0/1; response */
} SYSTEM_CONFIG_GET_2511_PARAM;

/* 2531: sets what 2511 gets. Request only, with both. */
typedef SYSTEM_CONFIG_GET_2511_PARAM SYSTEM_CONFIG_SET_2531_PARAM;

/** 2515: the password for the cloud. Response only. The init leaves the three numbers as they were. */
typedef struct SYSTEM_CONFIG_GET_2515_PARAM
{
    int32_t bFactoryReset; /**< 1: FactoryResetNotify goes out too; -1 or, if that came in, 1 when analysed */
    int32_t PasswdEncode;  /**< how Passwd is encoded */
    int32_t FactoryResetNotify; /**< 0/1 */
    char Passwd[48]; /**< CloudPasswd beside FactoryResetNotify; both names are read, Passwd wins */
} SYSTEM_CONFIG_GET_2515_PARAM;

/* 2535: sets Passwd, the only field that it writes and reads. Request only. */
typedef SYSTEM_CONFIG_GET_2515_PARAM SYSTEM_CONFIG_SET_2535_PARAM;

/* 2532: the states of all channels, as a device reports them too. Response only. */
typedef DEVICE_REPORT_3900_PARAM SYSTEM_CONFIG_GET_2532_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_2500_PARAM_init(SYSTEM_CONFIG_GET_2500_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2505_PARAM_init(SYSTEM_CONFIG_GET_2505_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2510_PARAM_init(SYSTEM_CONFIG_GET_2510_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2511_PARAM_init(SYSTEM_CONFIG_GET_2511_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2520_PARAM_init(SYSTEM_CONFIG_SET_2520_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2525_PARAM_init(SYSTEM_CONFIG_SET_2525_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2530_PARAM_init(SYSTEM_CONFIG_SET_2530_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2531_PARAM_init(SYSTEM_CONFIG_SET_2531_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2532_PARAM_init(SYSTEM_CONFIG_GET_2532_PARAM* param);

/** Clears Passwd and leaves the three numbers as they were. */
ZEL_API int SYSTEM_CONFIG_GET_2515_PARAM_init(SYSTEM_CONFIG_GET_2515_PARAM* param);

/** Clears Passwd and leaves the three numbers as they were. */
ZEL_API int SYSTEM_CONFIG_SET_2535_PARAM_init(SYSTEM_CONFIG_SET_2535_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getGeneralConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getTimeConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getUserConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getPushOfflineConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getCloudConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setGeneralConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setTimeConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setUserConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setPushOfflineConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getAllChannelInfo_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setCloudConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
