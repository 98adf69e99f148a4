/**
 * Alarm report: family "ALARM_REPORT_MESSAGE", code "CMD_REPORT_ALARM". A device tells of one alarm; there is
 * no response body.
 */
#ifndef ZEL_PROTOCOL_ALARM_REPORT_H
#define ZEL_PROTOCOL_ALARM_REPORT_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * An alarm and, in pExData, what its kind adds. Every field belongs to the request; there is no response.
 *
 * Composing, pExData is borrowed, and Alarm_code says what it is: 38 or 39 an ALARM_REPORT_HUMANFACE_INFO, 44
 * or 45 an ALARM_REPORT_ANIMAL_INFO, 32 an ALARM_REPORT_CROSSBORDER_INFO; with any other code it isn't looked
 * at. After an analysis it points behind the record inside the same block, and iExDataType says what it is.
 * NULL for none.
 */
typedef struct ALARM_REPORT_CMD_RPEORT_ALARM_PARAM
{
    int32_t iReserved;   /**< not on the wire */
    int32_t iExDataType; /**< after an analysis: 38 a face, 44 an animal, 32 a border crossing, -1 none */
    int32_t Year;        /**< time of the alarm; none of the seven is written when Year is absent */
    int32_t Month;
    int32_t Day;  /**< of the month */
    int32_t WDay; /**< of the week */
    int32_t Hour;
    int32_t Minute;
    int32_t Second;
    int32_t Alarm_code;    /**< these three are written absent or not */
    int32_t Alarm_flag;    /**< as the device numbers it */
    int32_t Alarm_level;   /**< severity, as the device numbers it */
    int32_t Alarm_absTime; /**< a received unsigned number is kept by its bits */
    int32_t Src;           /**< neither this nor ChannelId is written when Src is absent */
    int32_t ChannelId;     /**< of the source */
    char Alarm_data[128];  /**< a text of the device's */
    void* pExData;
} ALARM_REPORT_CMD_RPEORT_ALARM_PARAM;

/*
 * The records behind pExData have no init. After an analysis, what the message lacks is 0.
 */

/**
 * A face. Its feature block travels behind the envelope and an end code of four zero bytes: 512 bytes if
 * AlgVer is 1, else 1024. Composing announces both in the frame's head and doesn't read aucFeatureData: the
 * application sends them itself, directly behind the frame. Under a cipher that can't be read: frame.h tells
 * what works.
 *
 * An analysis copies the block if anything was received behind the envelope, whatever the value of the end
 * code; fewer bytes than end code and block together give ZEL_ERR_BAD_CONTENT. If nothing was received behind
 * it, or the function was called with a text alone, the block stays zero.
 */
typedef struct ALARM_REPORT_HUMANFACE_INFO
{
    uint8_t Age;                  /**< years, an estimate */
    uint8_t Gender;               /**< as the device numbers it */
    uint8_t IsGlasses;            /**< 0 or 1 */
    uint8_t IsHat;                /**< 0 or 1 */
    uint8_t IsMask;               /**< 0 or 1 */
    uint8_t AlgVer;               /**< decides the length of the feature block */
    uint32_t SerialNum;           /**< of the face in the list of faces */
    uint32_t SimilarityThreshold; /**< from which on two faces count as one */
    uint32_t DataLen;             /**< a number only: it doesn't decide the length of the feature block */
    int32_t ErrorCode;            /**< of the device's detection */
    uint32_t absTime;             /**< written signed */
    float faceQualityScore;       /**< of the picture */
    float HsvAreaScore;           /**< of the picture */
    float BlurSMD;                /**< of the picture: its sharpness */
    uint8_t aucFeatureData[1024]; /**< filled by an analysis; bytes behind the block are zero */
    char uniqueIndex[128];        /**< the device's name for this detection */
} ALARM_REPORT_HUMANFACE_INFO;

/** An animal. */
typedef struct ALARM_REPORT_ANIMAL_INFO
{
    uint8_t Animal_type; /**< as the device numbers it */
} ALARM_REPORT_ANIMAL_INFO;

/** A border crossing. */
typedef struct ALARM_REPORT_CROSSBORDER_INFO
{
    uint8_t CrowdFlowStatEnable; /**< switch: passers-by are counted */
    int32_t CrowdFlowNum;        /**< passers-by so far */
} ALARM_REPORT_CROSSBORDER_INFO;

/** Also sets pExData to NULL. */
ZEL_API int ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init(ALARM_REPORT_CMD_RPEORT_ALARM_PARAM* param);

/**
 * Composes the body alone.
 *
 * @param record     an ALARM_REPORT_CMD_RPEORT_ALARM_PARAM; NULL leaves the buffer alone.
 * @param kind       0 or 2; any other gives an empty body.
 * @param buf        receives the terminated text; stays as it was where there is nothing to write.
 * @param iExtraLen  grows by 4 and the length of the feature block if the message announces one.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int AlarmReportMessageCompose(const void* record, int kind, char* buf, int len, int* iExtraLen);

/** Analyses a text into an ALARM_REPORT_CMD_RPEORT_ALARM_PARAM and its extension, without a feature block. */
ZEL_API int AlarmReportMessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
