/**
 * Recorded playback: family "NVR_REPLAY_MESSAGE". The code is decimal text.
 */
#ifndef ZEL_PROTOCOL_NVR_REPLAY_H
#define ZEL_PROTOCOL_NVR_REPLAY_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 3001: query of a day's recordings. */
typedef struct NVR_REPLAY_3001_PARAM
{
    int32_t ChannelId; /**< of the recorder, as in all records of this family */
    char Time[32];     /**< a text of the application's, as in all records of this family */
    char Stream[1441]; /**< response: the day's recordings */
} NVR_REPLAY_3001_PARAM;

/** 3002, 3013: start of a replay stream. The response carries ChannelId alone. */
typedef struct NVR_REPLAY_3002_PARAM
{
    int32_t ChannelId;   /**< both directions */
    char Time[32];       /**< where to start; request */
    int32_t RecType;     /**< bit mask of recording types; hexadecimal on the wire */
    int32_t AudioEnable; /**< switch; request; not written when absent */
} NVR_REPLAY_3002_PARAM;

/** 3003, 3005, 3006, 3009, 3011, 3014, 3015: control of a stream; the code says what is to be done. */
typedef struct NVR_REPLAY_3003_PARAM
{
    int32_t ChannelId; /**< both directions */
} NVR_REPLAY_3003_PARAM;

/** 3004, 3007, 3008: speed. */
typedef struct NVR_REPLAY_3004_PARAM
{
    int32_t ChannelId; /**< both directions */
    int32_t Speed;     /**< as the recorder numbers its speeds; both directions */
    int32_t FrameType; /**< request only */
} NVR_REPLAY_3004_PARAM;

/** 3010: jump to a time. The response carries ChannelId alone. */
typedef struct NVR_REPLAY_3010_PARAM
{
    int32_t ChannelId; /**< both directions */
    char Time[32];     /**< where to go on; request */
} NVR_REPLAY_3010_PARAM;

/** 3012: the stream's parameters, a response without a request. */
typedef struct NVR_REPLAY_3012_PARAM
{
    int32_t ChannelId;      /**< not written when absent */
    int32_t iVideoParamSet; /**< neither 0 nor -1: VideoParam is written; stays -1 in an analysed record */
    int32_t iAudioParamSet; /**< the same for AudioParam */
    int32_t VideoSeconds;   /**< s; written absent or not */
    char VideoParam[1024];  /**< as the two ends agreed */
    char AudioParam[1024];  /**< as the two ends agreed */
} NVR_REPLAY_3012_PARAM;

/** 3016: days of a month that have recordings. */
typedef struct NVR_REPLAY_3016_PARAM
{
    int32_t ChannelId;   /**< both directions */
    char Time[32];       /**< the month; both directions */
    char RecordData[64]; /**< response */
} NVR_REPLAY_3016_PARAM;

/** 3017: recordings by the second, in numbered packets. */
typedef struct NVR_REPLAY_3017_PARAM
{
    char Time[32];            /**< both directions */
    int32_t ChannelId;        /**< both directions */
    int32_t TotalPacketNum;   /**< response */
    int32_t CurrentPacket;    /**< response */
    int32_t SequenceNumber;   /**< both directions */
    char TimeSliceInfo[2048]; /**< response */
} NVR_REPLAY_3017_PARAM;

typedef NVR_REPLAY_3003_PARAM NVR_REPLAY_3005_PARAM;
typedef NVR_REPLAY_3003_PARAM NVR_REPLAY_3006_PARAM;
typedef NVR_REPLAY_3004_PARAM NVR_REPLAY_3007_PARAM;
typedef NVR_REPLAY_3004_PARAM NVR_REPLAY_3008_PARAM;
typedef NVR_REPLAY_3003_PARAM NVR_REPLAY_3009_PARAM;
typedef NVR_REPLAY_3003_PARAM NVR_REPLAY_3011_PARAM;
typedef NVR_REPLAY_3002_PARAM NVR_REPLAY_3013_PARAM;
typedef NVR_REPLAY_3003_PARAM NVR_REPLAY_3014_PARAM;
typedef NVR_REPLAY_3003_PARAM NVR_REPLAY_3015_PARAM;

ZEL_API int NVR_REPLAY_3001_PARAM_init(NVR_REPLAY_3001_PARAM* param);
ZEL_API int NVR_REPLAY_3002_PARAM_init(NVR_REPLAY_3002_PARAM* param);
ZEL_API int NVR_REPLAY_3003_PARAM_init(NVR_REPLAY_3003_PARAM* param);
ZEL_API int NVR_REPLAY_3004_PARAM_init(NVR_REPLAY_3004_PARAM* param);
ZEL_API int NVR_REPLAY_3005_PARAM_init(NVR_REPLAY_3005_PARAM* param);
ZEL_API int NVR_REPLAY_3006_PARAM_init(NVR_REPLAY_3006_PARAM* param);
ZEL_API int NVR_REPLAY_3007_PARAM_init(NVR_REPLAY_3007_PARAM* param);
ZEL_API int NVR_REPLAY_3008_PARAM_init(NVR_REPLAY_3008_PARAM* param);
ZEL_API int NVR_REPLAY_3009_PARAM_init(NVR_REPLAY_3009_PARAM* param);
ZEL_API int NVR_REPLAY_3010_PARAM_init(NVR_REPLAY_3010_PARAM* param);
ZEL_API int NVR_REPLAY_3011_PARAM_init(NVR_REPLAY_3011_PARAM* param);
ZEL_API int NVR_REPLAY_3012_PARAM_init(NVR_REPLAY_3012_PARAM* param);
ZEL_API int NVR_REPLAY_3013_PARAM_init(NVR_REPLAY_3013_PARAM* param);
ZEL_API int NVR_REPLAY_3014_PARAM_init(NVR_REPLAY_3014_PARAM* param);
ZEL_API int NVR_REPLAY_3015_PARAM_init(NVR_REPLAY_3015_PARAM* param);
ZEL_API int NVR_REPLAY_3016_PARAM_init(NVR_REPLAY_3016_PARAM* param);
ZEL_API int NVR_REPLAY_3017_PARAM_init(NVR_REPLAY_3017_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int NvrReplayMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`. */
ZEL_API int NvrReplayMessageAnalysis(const char* text, const char* code, void** result);

/* Each analyses a text into the record of its codes. */
ZEL_API int NvrReplay_RecQuery_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_StreamStart_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_StreamControl_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_SpeedControl_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_PlayJump_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_VedioParam_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_QueryByMonth_MessageAnalysis(const char* text, void** result);
ZEL_API int NvrReplay_QueryBySencond_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
