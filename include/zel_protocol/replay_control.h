/**
 * Replay of a recorded file by its name: family "REPLAY_CONTROL_MESSAGE". The code, a decimal number from 0
 * to 12, says what is to be done; a text without a number counts as 0.
 */
#ifndef ZEL_PROTOCOL_REPLAY_CONTROL_H
#define ZEL_PROTOCOL_REPLAY_CONTROL_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** Every code, 0 to 12. All kinds have the same body, and all fields are written absent or not. */
typedef struct REPLAY_CONTROL_PARAM
{
    char FileName[256];
    int32_t StartPos;  /**< where in the file */
    int32_t PlayParam; /**< what the code needs */
} REPLAY_CONTROL_PARAM;

ZEL_API int REPLAY_CONTROL_PARAM_init(REPLAY_CONTROL_PARAM* param);

/**
 * Composes the body alone.
 *
 * @param record  a REPLAY_CONTROL_PARAM; NULL leaves the buffer alone.
 * @param kind    any; the text is the same for all.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int ReplayControlMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into a REPLAY_CONTROL_PARAM; a text without a body is refused before the code is. */
ZEL_API int ReplayControlMessageAnalysis(const char* text, const char* code, void** result);

#ifdef __cplusplus
}
#endif

#endif
