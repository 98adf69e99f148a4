/**
 * Configuration of overlays and encoders of a recorder's channels: codes 2550, 2555, 2560, 2561 and 2565 of
 * the configuration family.
 *
 * The requests of 2550, 2560 and 2561 carry the record's own ChannelId alone, also when it is -1; 255 goes
 * out as "0xff", and comes in from that or from the number. When a text has a request's element, nothing else
 * of it is read.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_OSD_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_OSD_H

#include "zel_protocol/core.h"
#include "zel_protocol/system_config_media.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Overlays of a channel. The first free row ends the rows on the way out. */
typedef struct SYSTEM_CONFIG_OSD_CHANNEL
{
    int32_t ChannelId; /**< -1: a free row */
    int32_t Enable;    /**< 0/1 */
    int32_t Transparency;
    int32_t TimeOverlay_PosX;  /**< place of the time in the picture */
    int32_t TimeOverlay_PosY;  /**< place of the time in the picture */
    int32_t WeekDisplayEn;     /**< 0/1: the day of the week beside the time */
    char Format[32];           /**< of the time */
    int32_t TitleOverlay_PosX; /**< place of the title in the picture */
    int32_t TitleOverlay_PosY; /**< place of the title in the picture */
    char OsdTitle[512];
    char DefaultOsdTitle[512]; /**< the device's default of the title; 2550 only */
} SYSTEM_CONFIG_OSD_CHANNEL;

/** 2550: overlays of the channels. A response needs a row to be read; rows beyond the last are passed over.
 */
typedef struct SYSTEM_CONFIG_GET_2550_PARAM
{
    int32_t ChannelCount; /**< 2555 only; left out when absent. What is written of it isn't read back */
    int32_t ChannelId;    /**< of the request */
    SYSTEM_CONFIG_OSD_CHANNEL stOsdChannel[64];
} SYSTEM_CONFIG_GET_2550_PARAM;

/* 2555: sets what 2550 gets. Request only, and without a ChannelId of its own. */
typedef SYSTEM_CONFIG_GET_2550_PARAM SYSTEM_CONFIG_SET_2555_PARAM;

/** Encoders of a channel. The first free row ends the rows on the way out. */
typedef struct SYSTEM_CONFIG_ENCODE_CHANNEL
{
    int32_t ChannelId;                          /**< -1: a free row */
    int32_t LockPara;                           /**< 0/1: the settings are locked */
    SYSTEM_CONFIG_ENCODE_ROW stEncodeConfig[2]; /**< both are always written */
} SYSTEM_CONFIG_ENCODE_CHANNEL;

/** 2560: encoders of the channels. A response needs a row to be read; rows beyond the last are passed over.
 */
typedef struct SYSTEM_CONFIG_GET_2560_PARAM
{
    int32_t ChannelId; /**< of the request */
    SYSTEM_CONFIG_ENCODE_CHANNEL stEncodeChannel[64];
} SYSTEM_CONFIG_GET_2560_PARAM;

/* 2565: sets what 2560 gets. Request only, and without a ChannelId of its own. */
typedef SYSTEM_CONFIG_GET_2560_PARAM SYSTEM_CONFIG_SET_2565_PARAM;

/** 2561: abilities of a channel's encoders. The lists aren't looked into. */
typedef struct SYSTEM_CONFIG_GET_2561_PARAM
{
    int32_t ChannelId;                     /**< of request and response; in a response 255 is a number */
    char VideoCap_CapList[4096];           /**< what the encoders can do */
    char VideoBestParameter_CapList[2048]; /**< what suits them best */
} SYSTEM_CONFIG_GET_2561_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_2550_PARAM_init(SYSTEM_CONFIG_GET_2550_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2555_PARAM_init(SYSTEM_CONFIG_SET_2555_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2560_PARAM_init(SYSTEM_CONFIG_GET_2560_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2561_PARAM_init(SYSTEM_CONFIG_GET_2561_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2565_PARAM_init(SYSTEM_CONFIG_SET_2565_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getVideoOsdConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setVideoOsdConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getMediaVideoConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getMediaCapability_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaVideoConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
