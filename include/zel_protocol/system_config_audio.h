/**
 * Configuration of a camera's audio: codes 502, 522 and 527 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_AUDIO_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_AUDIO_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 502: the audio configuration. Response only; what it carries is written whole, absent values as 255 and -1.
 * Channels and BitsPerSample are neither written nor read.
 */
typedef struct SYSTEM_CONFIG_GET_502_PARAM
{
    uint8_t Enable;            /**< 0/1: audio in the stream */
    uint8_t Capture_Volume;    /**< of the microphone */
    uint8_t Capture_DefVolume; /**< and the device's default; 502 only */
    uint8_t Play_Volume;       /**< of the loudspeaker */
    uint8_t Play_DefVolume;    /**< and the device's default; 502 only */
    int32_t Channels;          /**< 1 mono, 2 stereo; 522 only, left out when absent */
    uint32_t SampleRate;
    uint32_t BitRate;
    uint32_t BitsPerSample; /**< 522 only, left out when absent */
    char EncodeType[32];    /**< name of the coding */
} SYSTEM_CONFIG_GET_502_PARAM;

/*
 * 522, 527: set what 502 gets, two codes for one message. Requests only, without the defaults. SampleRate
 * goes out twice, with the capture only when it isn't absent; on the way in that of the encoder wins.
 */
typedef SYSTEM_CONFIG_GET_502_PARAM SYSTEM_CONFIG_SET_522_PARAM;
typedef SYSTEM_CONFIG_GET_502_PARAM SYSTEM_CONFIG_SET_527_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_502_PARAM_init(SYSTEM_CONFIG_GET_502_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_522_PARAM_init(SYSTEM_CONFIG_SET_522_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_527_PARAM_init(SYSTEM_CONFIG_SET_527_PARAM* param);

/* Each analyses a text into the record of its codes. */
ZEL_API int SystemConfig_getMediaAudioconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setMediaAudioconfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
