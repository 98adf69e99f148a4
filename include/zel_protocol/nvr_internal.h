/**
 * Messages between recorders and their cameras: family "NVR_INTERNAL_MESSAGES". The code is decimal text.
 */
#ifndef ZEL_PROTOCOL_NVR_INTERNAL_H
#define ZEL_PROTOCOL_NVR_INTERNAL_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** The encoding of a stream. */
typedef struct NVR_INTERNAL_STREAM_CONFIG
{
    char Resolution[32];
    uint8_t FrameRate; /**< frames/s */
    uint8_t Initquant; /**< quantisation to begin with */
    uint8_t Stream;    /**< 1 or 2 */
    uint32_t BitRate;  /**< kbit/s */
    char BitRateControl[16];
    char EncodeFormat[16];
} NVR_INTERNAL_STREAM_CONFIG;

/**
 * 4001: locks a camera's streams. One form for all kinds; it is written whole.
 *
 * An analysis needs two streams whose Stream is 1 or 2, and gives ZEL_ERR_BAD_DOCUMENT without them. It puts
 * each where its Stream says, in whatever order they come. Of two with the same Stream the later one stays.
 */
typedef struct NVR_INTERNAL_4001_PARAM
{
    char SN[32]; /**< the camera's serial number */
    char IPAddress[16];
    int32_t MulticularChn; /**< channel of a camera that has several */
    NVR_INTERNAL_STREAM_CONFIG stStream1;
    NVR_INTERNAL_STREAM_CONFIG stStream2;
} NVR_INTERNAL_4001_PARAM;

/**
 * 4002: addresses of the channels that a source has. The request carries acSrcIp alone. Composing gives
 * ZEL_ERR_BAD_PARAM where that is empty, and for a response without a count.
 *
 * What goes out of the rows below the count is what isn't empty: they may be fewer than the count says. An
 * analysed record counts the rows that were read; it has none, and a count of -1, if the text had no count.
 */
typedef struct NVR_INTERNAL_4002_PARAM
{
    int32_t iChannelCount; /**< "ChannelCount": rows in use; a number below 0 that isn't -1 is read as 0 */
    char acSrcIp[32];      /**< "SrcIp" */
    char SN[32];           /**< serial number */
    char acIpAddr[64][32]; /**< "IpAddr", one for each channel */
} NVR_INTERNAL_4002_PARAM;

ZEL_API int NVR_INTERNAL_4001_PARAM_init(NVR_INTERNAL_4001_PARAM* param);
ZEL_API int NVR_INTERNAL_4002_PARAM_init(NVR_INTERNAL_4002_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int NvrInternalMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`. The text is parsed before the code is looked at. */
ZEL_API int NvrInternalMessageAnalysis(const char* text, const char* code, void** result);

#ifdef __cplusplus
}
#endif

#endif
