/**
 * Debugging and logs: families "DBG_CMD_MESSAGE", "SYSTEM_LOG_MESSAGE" and "SYSTEM_LOG_DATA". No code is
 * looked at. "OPEN_DBG_MESSAGE" and "CLOSE_DBG_MESSAGE" have neither a body nor a record.
 */
#ifndef ZEL_PROTOCOL_DEBUG_LOG_H
#define ZEL_PROTOCOL_DEBUG_LOG_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * "DBG_CMD_MESSAGE": one text as the whole body, the same for all kinds. It is carried as it stands between
 * the tags: a received one has the line feeds that the envelope puts around a body, and its references aren't
 * resolved. An empty text comes back as one line feed.
 */
typedef struct DBG_CMD_PARAM
{
    char acText[8192]; /**< bytes behind the terminator are of no use after an analysis */
} DBG_CMD_PARAM;

/**
 * "SYSTEM_LOG_MESSAGE", "SYSTEM_LOG_DATA": a piece of a file, or a command and its response.
 *
 * A request with a Filename is a piece of that file: Filename, XmlLen, StartPos and DataLen go out, absent or
 * not, and nothing else does. Without a Filename a request is the command in acCmd, and empty without that.
 *
 * A response whose iRespDataLen isn't -1 is the status text in acCmd and that number. Otherwise it is
 * RespStr, and without that the bare text in acData.
 *
 * Raw data, DataLen bytes of a piece or iRespDataLen bytes of a response, stands behind the envelope and an
 * end code of four zero bytes. Composing announces both in the frame's head, a piece also with a DataLen
 * that is absent, and never writes them: the application sends them itself, directly behind the frame.
 *
 * An analysed record has the four fields of a piece; or the status text or the RespStr line in acData, with
 * iRespDataLen if there is one; or the command in acCmd; or the body's bare text in acData, line feeds of the
 * envelope included. RespStr is never filled. The raw data of a piece is copied to acData, that of a response
 * isn't. Announced data that runs past the received bytes is refused with ZEL_ERR_BAD_CONTENT, and more than
 * acData holds with ZEL_ERR_BUFFER_SMALL. Received data without an end code in front of it isn't looked for:
 * DataLen bytes are then taken from the start of the text.
 */
typedef struct SYSTEM_LOG_PARAM
{
    int32_t XmlLen;       /**< a number of the application's */
    int32_t StartPos;     /**< of the piece within the file, in bytes */
    int32_t DataLen;      /**< bytes of raw data behind a piece */
    int32_t iRespDataLen; /**< response: RESPONSE_DATA_LEN, bytes of raw data; -1: no such response */
    char Filename[256];
    char acCmd[256];    /**< request: cmd, a command; response with data: RESPONSE_PARAM, a status text */
    char RespStr[256];  /**< response; written, never read */
    char acData[40960]; /**< a text, or raw data that may fill it without a terminator */
} SYSTEM_LOG_PARAM;

ZEL_API int DBG_CMD_PARAM_init(DBG_CMD_PARAM* param);
ZEL_API int SYSTEM_LOG_PARAM_init(SYSTEM_LOG_PARAM* param);

/**
 * Analyses a text into a DBG_CMD_PARAM. It isn't parsed: what stands between the first opening and the first
 * closing tag of MESSAGE_BODY is the record.
 *
 * @param iBufLen  must be above 0 and not below the length of what stands between the tags; otherwise, and
 * for a text that doesn't fit the record with its terminator, the result is ZEL_ERR_BUFFER_SMALL.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int DebugLogMessageAnalysis(const char* text, int iBufLen, void** result);

/**
 * Composes the body alone.
 *
 * @param record     a SYSTEM_LOG_PARAM; NULL leaves the buffer alone.
 * @param buf        receives the terminated text; stays as it was where there is nothing to write.
 * @param iExtraLen  grows by 4 and the length of the raw data if the message announces any; must not be NULL.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemLogMessageCompose(const void* record, int kind, char* buf, int len, int* iExtraLen);

/** Analyses a text into a SYSTEM_LOG_PARAM. A text alone has no raw data behind it: none is copied. */
ZEL_API int SystemLogMessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
