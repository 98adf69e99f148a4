/**
 * Control of a device: family "SYSTEM_CONTROL_MESSAGE". The code is decimal text.
 *
 * The codes 828, 1001, 1002, 1007, 1025, 1027, 1096, 1097, 1100, 3010, 3021, 3022, 5010 and 5011 have no
 * record: they go out without a body, and come in as a success without a result. The records of the others
 * are in the headers of the groups.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONTROL_H
#define ZEL_PROTOCOL_SYSTEM_CONTROL_H

#include "zel_protocol/core.h"
#include "zel_protocol/system_control_identity.h"
#include "zel_protocol/system_control_status.h"
#include "zel_protocol/system_control_storage.h"
#include "zel_protocol/system_control_update.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemControlMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`. */
ZEL_API int SystemControlMessageAnalysis(const char* text, const char* code, void** result);

#ifdef __cplusplus
}
#endif

#endif
