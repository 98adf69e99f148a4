/**
 * Firmware update of a device or of one of a recorder's channels: messages of the family
 * "SYSTEM_CONTROL_MESSAGE". Nothing is fetched or checked here.
 *
 * The channel of 1090 and 1092 has three states, as that of 1012: a number; an attribute without a number,
 * when ChannelId is -1 and bChannelIdEmpty isn't; no attribute, when both are -1.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONTROL_UPDATE_H
#define ZEL_PROTOCOL_SYSTEM_CONTROL_UPDATE_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 1090: orders an update. The response carries the channel alone. */
typedef struct SYSTEM_CONTROL_1090_PARAM
{
    int32_t ChannelId;
    int32_t bChannelIdEmpty; /**< not -1: there is a ChannelId, even without a number; read as 1 */
    char url[512];           /**< request: where the firmware is to be had */
    char md5[64];            /**< request: digest of the firmware, as a text */
} SYSTEM_CONTROL_1090_PARAM;

/** 1092: asks for the progress of an update. The request carries the channel alone. */
typedef struct SYSTEM_CONTROL_1092_PARAM
{
    int32_t ChannelId;
    int32_t State;           /**< response */
    int32_t Progress;        /**< response: percent */
    int32_t bChannelIdEmpty; /**< not -1: there is a ChannelId, even without a number; read as 1. 1092 only */
} SYSTEM_CONTROL_1092_PARAM;

/** 1093: cancels an update. Request and response carry ChannelId alone, absent or not. */
typedef SYSTEM_CONTROL_1092_PARAM SYSTEM_CONTROL_1093_PARAM;

ZEL_API int SYSTEM_CONTROL_1090_PARAM_init(SYSTEM_CONTROL_1090_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1092_PARAM_init(SYSTEM_CONTROL_1092_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1093_PARAM_init(SYSTEM_CONTROL_1093_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemControl_SendUpdateCmd_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetUpdateStatus_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_CancelUpdate_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
