/**
 * Live stream control: family "LIVE_STREAM_MESSAGE". The code is a symbolic word, or 1062 for the start.
 */
#ifndef ZEL_PROTOCOL_LIVE_STREAM_H
#define ZEL_PROTOCOL_LIVE_STREAM_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Parameters of a stream's video; response. */
typedef struct LIVE_STREAM_VIDEO_PARAM
{
    int32_t iReserved; /**< not on the wire */
    int32_t Width;
    int32_t Height;
    int32_t Framerate; /**< frames a second */
    int32_t Bitrate;   /**< kbit/s */
    char Encoder[16];  /**< name of the coding */
    char Config[512];  /**< the decoder's parameters, as the two ends agreed */
} LIVE_STREAM_VIDEO_PARAM;

/** Parameters of a stream's audio; response. */
typedef struct LIVE_STREAM_AUDIO_PARAM
{
    int32_t iReserved;   /**< not on the wire */
    int32_t SampleRate;  /**< samples a second */
    int32_t SampleWidth; /**< bits of a sample */
    int32_t Channels;    /**< of the sound, 1 for mono */
    int32_t Bitrate;     /**< kbit/s */
    char Encoder[16];    /**< name of the coding */
} LIVE_STREAM_AUDIO_PARAM;

/**
 * "CMD_STREAM_START": start of a channel's stream.
 *
 * The request carries ChannelId, VideoStream, AudioEnable, VideoPort, AudioPort, Multicast, UseTcp and
 * FrameType. The response carries the transport, the video parameters and, with audio, those of the audio;
 * its ChannelId, StreamID, ConnectNum and StreamNum are also attributes of MESSAGE_HEADER, and ChannelId is
 * read from there alone.
 */
typedef struct LIVE_STREAM_CMD_STREAM_START_PARAM
{
    int32_t ChannelId;   /**< of the device; both directions */
    int32_t VideoStream; /**< which stream of the channel; -1 in a response: it has no body */
    int32_t ConnectNum;  /**< response; -1: nothing goes into the header */
    int32_t AudioEnable; /**< in a response anything above 0 goes out as 1, the rest as 0 */
    int32_t StreamNum;   /**< response */
    int32_t VideoPort;   /**< in a response without TCP only, as are the other port and the multicast data */
    int32_t AudioPort;   /**< in a response with audio only */
    int32_t Multicast;   /**< switch */
    int32_t UseTcp;      /**< neither 0 nor -1: the stream comes over TCP */
    int32_t FrameType;   /**< request */
    int32_t iReserved;   /**< not on the wire */
    int32_t StreamID;    /**< response */
    int32_t EnableChangeStream;      /**< response */
    char MulticastAddress[32];       /**< response */
    LIVE_STREAM_VIDEO_PARAM stVideo; /**< response */
    LIVE_STREAM_AUDIO_PARAM stAudio; /**< response, with audio only */
} LIVE_STREAM_CMD_STREAM_START_PARAM;

/** "CMD_STREAM_STOP": end of a stream. One form for all kinds; what is absent isn't written. */
typedef struct LIVE_STREAM_CMD_STREAM_STOP_PARAM
{
    int32_t ChannelId; /**< of the device */
    int32_t StreamID;  /**< from the response to the start */
    int32_t FrameType; /**< quality only */
    int32_t UseTcp;    /**< stop only */
} LIVE_STREAM_CMD_STREAM_STOP_PARAM;

/** 1062: another code for the start. */
typedef LIVE_STREAM_CMD_STREAM_START_PARAM LIVE_STREAM_1062_PARAM;

/** "CMD_STREAM_QUALITY": change of a running stream. */
typedef LIVE_STREAM_CMD_STREAM_STOP_PARAM LIVE_STREAM_CMD_STREAM_QUALITY_PARAM;

ZEL_API int LIVE_STREAM_CMD_STREAM_START_PARAM_init(LIVE_STREAM_CMD_STREAM_START_PARAM* param);
ZEL_API int LIVE_STREAM_1062_PARAM_init(LIVE_STREAM_1062_PARAM* param);
ZEL_API int LIVE_STREAM_CMD_STREAM_STOP_PARAM_init(LIVE_STREAM_CMD_STREAM_STOP_PARAM* param);
ZEL_API int LIVE_STREAM_CMD_STREAM_QUALITY_PARAM_init(LIVE_STREAM_CMD_STREAM_QUALITY_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names, and the attributes of a start response's header.
 *
 * @param record    the record of that code; NULL leaves both buffers alone.
 * @param buf       receives the terminated text of the body; stays as it was where there is nothing to write.
 * @param headBuf   receives the header's attributes, terminated, behind what it holds. It isn't looked at by
 * a message without any.
 * @param headSize  size of headBuf.
 * @param headUsed  bytes of headBuf in use.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int LiveStreamMessageCompose(const void* record, int kind, const char* code, char* buf, int len,
                                     char* headBuf, int headSize, int headUsed);

/** Analyses a text into the record of `code`. */
ZEL_API int LiveStreamMessageAnalysis(const char* text, const char* code, void** result);

/* Each analyses a text into the record of its code. */
ZEL_API int LiveStreamCmdStartMessageAnalysis(const char* text, void** result);
ZEL_API int LiveStreamCmdStopMessageAnalysis(const char* text, void** result);
ZEL_API int LiveStreamCmdQualityMessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
