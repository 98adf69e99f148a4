/**
 * Talk-back, audio from a client to a device: family "REVERSE_AUDIO_MESSAGE". The code is a symbolic word, or
 * its number: 544 for the start, 545 for the stop.
 */
#ifndef ZEL_PROTOCOL_REVERSE_AUDIO_H
#define ZEL_PROTOCOL_REVERSE_AUDIO_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * "CMD_RA_START", 544: start of a session. Request and response carry all fields, four of them under names of
 * their own in the response. All but Sessionid are written absent or not.
 */
typedef struct REVERSE_AUDIO_CMD_RA_START_PARAM
{
    int32_t Channels;    /**< number of the audio's channels */
    int32_t ConnectType; /**< the transport; ConnectionType in a response */
    int32_t SampleRate;
    char AudioForamt[32]; /**< name of the audio codec; AudioCodec in a response */
    char Sessionid[64];   /**< not written when empty */
    int32_t Bitrate;      /**< BitsPerSample in a response: bits of one sample */
    int32_t RTPSendPort;  /**< port that the client sends from; RTPRecvPort in a response: the device's */
} REVERSE_AUDIO_CMD_RA_START_PARAM;

/** "CMD_RA_STOP", 545: end of a session. There is no response body. */
typedef struct REVERSE_AUDIO_CMD_RA_STOP_PARAM
{
    char Sessionid[64]; /**< empty: no body, which the peer's analysis refuses. An analysed one may fill it */
} REVERSE_AUDIO_CMD_RA_STOP_PARAM;

ZEL_API int REVERSE_AUDIO_CMD_RA_START_PARAM_init(REVERSE_AUDIO_CMD_RA_START_PARAM* param);
ZEL_API int REVERSE_AUDIO_CMD_RA_STOP_PARAM_init(REVERSE_AUDIO_CMD_RA_STOP_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int ReverseAudioMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/**
 * Analyses a text into the record of `code`. A text without MESSAGE_BODY gives ZEL_ERR_NO_ELEMENT, and the
 * code is only looked at when there is one. A start with both a request and a response is read as the
 * request.
 */
ZEL_API int ReverseAudioMessageAnalysis(const char* text, const char* code, void** result);

#ifdef __cplusplus
}
#endif

#endif
