/**
 * A key for the peer: family "SYSTEM_ENCRYPT_MESSAGE". The code isn't looked at; the record is named after
 * the usual one, 150. The library only carries the key: it neither makes nor uses it.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_ENCRYPT_H
#define ZEL_PROTOCOL_SYSTEM_ENCRYPT_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** The key; request and response are alike, and both fields are always written. */
typedef struct SYSTEM_ENCRYPT_150_PARAM
{
    int32_t KeyLen;     /**< bytes of the key; not compared with KeyValue. Received without a number: 0 */
    char KeyValue[256]; /**< the key as a text; an analysed one may fill the field without a terminator */
} SYSTEM_ENCRYPT_150_PARAM;

ZEL_API int SYSTEM_ENCRYPT_150_PARAM_init(SYSTEM_ENCRYPT_150_PARAM* param);

/**
 * Composes the body alone.
 *
 * @param record  a SYSTEM_ENCRYPT_150_PARAM; NULL gives an empty body.
 * @param kind    any; the text is the same for all.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemEncryptMessageCompose(const void* record, int kind, char* buf, int len);

/** Analyses a text into a SYSTEM_ENCRYPT_150_PARAM; a body without the key is a success. */
ZEL_API int SystemEncryptMessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
