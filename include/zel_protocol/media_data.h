/**
 * Raw data behind the envelope: family "MEDIA_DATA_MESSAGE". The code is decimal text.
 *
 * A message describes one chunk of a larger whole. The chunk itself, `DataLen` bytes, stands behind the
 * envelope and an end code of four zero bytes. The composing side announces both in the frame's head and
 * never reads `pData`: the application sends end code and data itself, directly behind the frame. That are
 * the head's length + 8 - the result of ZelProtocolXMLCompose bytes. With a cipher the peer can't read data
 * behind the frame (ZEL_ERR_CODEC): encipher text, end code and data together, as frame.h tells.
 *
 * The analysing side copies the data into the record's block, so `pData` lives and dies with the record; it
 * is NULL when no data was announced.
 *
 * Announced data that runs past the received bytes is refused with ZEL_ERR_BAD_CONTENT. Received data without
 * an end code in front of it isn't looked for: `DataLen` bytes are then taken from the start of the text.
 *
 * Each init also sets `pData` to NULL.
 */
#ifndef ZEL_PROTOCOL_MEDIA_DATA_H
#define ZEL_PROTOCOL_MEDIA_DATA_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 1: upload of a file. A chunk as request; the response carries Type alone. */
typedef struct MEDIA_DATA_1_PARAM
{
    int32_t StartPos; /**< of the chunk within the whole, in bytes, as in all records of this family */
    int32_t DataLen;  /**< bytes of raw data; announced with its value, absent or not */
    int32_t Type;     /**< response; when absent, nothing is written */
    char* pData;      /**< the chunk, after an analysis; as in all records of this family */
} MEDIA_DATA_1_PARAM;

/** 2: download of a file. A chunk as request; the response carries all but DataLen. */
typedef struct MEDIA_DATA_2_PARAM
{
    int32_t StartPos;         /**< both directions */
    int32_t DataLen;          /**< request */
    int32_t ErrorCode;        /**< response, as the two texts */
    char RemoteFileName[256]; /**< the file's name at the device */
    char LocalFileName[256];  /**< and at the client */
    char* pData;              /**< request */
} MEDIA_DATA_2_PARAM;

/**
 * 3: intercom audio, a request without a response. The length of the text, the end code and DataLen must add
 * up to what was received before any deciphering, or the message is refused with ZEL_ERR_BAD_CONTENT. An
 * enciphered one never does: the application deciphers it first.
 */
typedef struct MEDIA_DATA_3_PARAM
{
    int32_t StartPos; /**< of the chunk, in bytes */
    int32_t DataLen;  /**< bytes of sound */
    int32_t XmlLen;   /**< a number of the application's, as in all records of this family */
    char* pData;      /**< the sound */
} MEDIA_DATA_3_PARAM;

/**
 * 4: pictures of the detectors.
 *
 * A request describes a picture and carries a chunk. A response with ChannelId -1 only describes one; any
 * other carries a chunk, and the ChannelId too unless it is 255. A text with neither is refused by the
 * analysis.
 */
typedef struct MEDIA_DATA_4_PARAM
{
    int32_t ChannelId;    /**< response */
    int32_t DataType;     /**< kind of picture; this and what else describes one: see above */
    int32_t DataTotalLen; /**< bytes of the whole picture */
    int32_t StartPos;     /**< of the chunk */
    int32_t DataLen;      /**< of the chunk */
    int32_t XmlLen;       /**< response */
    uint32_t Timestamp;   /**< when it was taken */
    uint32_t SerialNum;   /**< of the picture */
    char DataName[1024];  /**< name of the picture */
    char* pData;          /**< the chunk */
} MEDIA_DATA_4_PARAM;

/** 5: export of a face list. The response carries ChannelId and a chunk, each only if it is set. */
typedef struct MEDIA_DATA_5_PARAM
{
    int32_t ChannelId;  /**< response */
    int32_t StartPos;   /**< both directions */
    int32_t DataLen;    /**< both directions */
    int32_t XmlLen;     /**< response */
    uint32_t SerialNum; /**< request, as what follows */
    char Alias[128];    /**< name of the face */
    int32_t DataNum;    /**< faces */
    int32_t ListType;   /**< which list of the device */
    char* pData;        /**< the chunk */
} MEDIA_DATA_5_PARAM;

/** A face of 6 and 7. */
typedef struct stHumanFaceInfo
{
    uint32_t SerialNum; /**< absent behind the last face of a list */
    int32_t iReserved;  /**< not on the wire */
    char Alias[128];    /**< name of the face */
} stHumanFaceInfo;

/** 6: faces to delete; a request without a response. No raw data. */
typedef struct MEDIA_DATA_6_PARAM
{
    int32_t TotalData; /**< 7 only */
    int32_t DataNum; /**< faces to write, at most 100; as received, whatever the number of faces that came */
    int32_t iReserved;            /**< not on the wire */
    int32_t ListType;             /**< which list of the device */
    stHumanFaceInfo stFaces[100]; /**< 6: request; 7: response */
} MEDIA_DATA_6_PARAM;

/** 7: query of the face list; the faces are in the response. No raw data. */
typedef MEDIA_DATA_6_PARAM MEDIA_DATA_7_PARAM;

/** 8: thumbnails of alarms. A request names several times, a response carries a chunk of one picture. */
typedef struct MEDIA_DATA_8_PARAM
{
    int32_t TotalLen; /**< of the picture, in bytes */
    int32_t StartPos; /**< of the chunk; response, as TotalLen and DataLen */
    int32_t DataLen;  /**< of the chunk */
    char Time[20]
             [16]; /**< up to the first empty one; 16 characters have no terminator. Response: the first */
    char Duration[20][16];  /**< request; read, never written */
    char EventType[20][16]; /**< request; read, never written */
    char* pData;            /**< the chunk */
} MEDIA_DATA_8_PARAM;

ZEL_API int MEDIA_DATA_1_PARAM_init(MEDIA_DATA_1_PARAM* param);
ZEL_API int MEDIA_DATA_2_PARAM_init(MEDIA_DATA_2_PARAM* param);
ZEL_API int MEDIA_DATA_3_PARAM_init(MEDIA_DATA_3_PARAM* param);
ZEL_API int MEDIA_DATA_4_PARAM_init(MEDIA_DATA_4_PARAM* param);
ZEL_API int MEDIA_DATA_5_PARAM_init(MEDIA_DATA_5_PARAM* param);
ZEL_API int MEDIA_DATA_6_PARAM_init(MEDIA_DATA_6_PARAM* param);
ZEL_API int MEDIA_DATA_7_PARAM_init(MEDIA_DATA_7_PARAM* param);
ZEL_API int MEDIA_DATA_8_PARAM_init(MEDIA_DATA_8_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record     the record of that code; NULL leaves the buffer alone.
 * @param buf        receives the terminated text; stays as it was where there is nothing to write.
 * @param iExtraLen  grows by 4 and DataLen if the message announces data.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int MediaDataMessageCompose(const void* record, int kind, const char* code, char* buf, int len,
                                    int* iExtraLen);

/**
 * Analyses a text into the record of `code`.
 *
 * @param srcLen  bytes received from the text's start on, end code and data included; nothing beyond them is
 * read, so a text that goes on is cut there. Below 1, whatever the number, when that isn't known: the text
 * then ends at its terminator, nothing is looked for behind it, and code 3 is refused.
 */
ZEL_API int MediaDataMessageAnalysis(const char* text, const char* code, int srcLen, void** result);

#ifdef __cplusplus
}
#endif

#endif
