/**
 * System log, storage strategy and recording schedules of a recorder: codes 3028, 3502, 3503, 3600 and 3601
 * of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_RECORDER_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_RECORDER_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** An entry of the system log. */
typedef struct SYSTEM_CONFIG_LOG_ROW
{
    uint32_t LogMode;  /**< kind of entry */
    uint32_t UserType; /**< kind of user */
    uint32_t LogId;    /**< number of the entry */
    char RecordTimeStamp[32];
    char UserName[32];
    char Detail[256];
} SYSTEM_CONFIG_LOG_ROW;

/** 3028: query of the system log by pages. The response carries LogCount and the rows, the request the rest.
 */
typedef struct SYSTEM_CONFIG_GET_3028_PARAM
{
    int32_t LogMode;  /**< kind of entries asked for */
    int32_t UserType; /**< kind of user asked for */
    int32_t LogId;    /**< entry to start from */
    int32_t PageSize; /**< entries asked for */
    /** Rows in use; of an analysed record, what the peer said: no more are read, and none when it is -1. */
    int32_t LogCount;
    char QueryDate[32]; /**< day asked for */
    SYSTEM_CONFIG_LOG_ROW stLogInfo[10];
} SYSTEM_CONFIG_GET_3028_PARAM;

/** 3502: the storage strategy. Response only. */
typedef struct SYSTEM_CONFIG_GET_3502_PARAM
{
    int32_t StoragePolicy;
    int32_t iStorageCapCount;  /**< numbers in use; -1 in an analysed record: set it to write them again */
    int32_t StorageCapSet[16]; /**< the policies that the device can take; surplus numbers are dropped */
} SYSTEM_CONFIG_GET_3502_PARAM;

/* 3503: sets StoragePolicy. Request only; the rest is neither written nor read. */
typedef SYSTEM_CONFIG_GET_3502_PARAM SYSTEM_CONFIG_SET_3503_PARAM;

/** Recording schedule of a channel. */
typedef struct SYSTEM_CONFIG_CHANNEL_DETAIL
{
    int32_t ID;         /**< the channel */
    char Schedule[336]; /**< not looked into */
} SYSTEM_CONFIG_CHANNEL_DETAIL;

/** 3600: recording schedules. Response only. Rows beyond the last are passed over. */
typedef struct SYSTEM_CONFIG_GET_3600_PARAM
{
    int32_t ChannelNum; /**< rows in use; of an analysed record, what the peer said, not the rows that came */
    SYSTEM_CONFIG_CHANNEL_DETAIL stChannelDetail[64];
} SYSTEM_CONFIG_GET_3600_PARAM;

/* 3601: sets what 3600 gets. Request only. */
typedef SYSTEM_CONFIG_GET_3600_PARAM SYSTEM_CONFIG_SET_3601_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_3028_PARAM_init(SYSTEM_CONFIG_GET_3028_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3502_PARAM_init(SYSTEM_CONFIG_GET_3502_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3503_PARAM_init(SYSTEM_CONFIG_SET_3503_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3600_PARAM_init(SYSTEM_CONFIG_GET_3600_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3601_PARAM_init(SYSTEM_CONFIG_SET_3601_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getNvrSystemLog_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getStrategyConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setStrategyConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getRecoedConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setRecoedConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
