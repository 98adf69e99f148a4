/**
 * Reports of a device: family "DEVICE_REPORT_MESSAGE". The code is decimal text. All kinds have the same
 * body.
 */
#ifndef ZEL_PROTOCOL_DEVICE_REPORT_H
#define ZEL_PROTOCOL_DEVICE_REPORT_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 3900: state of the device's channels. The texts aren't looked into; each is an element of its own, and none
 * is written when empty or required.
 */
typedef struct DEVICE_REPORT_3900_PARAM
{
    char Ipcs_stat[256];   /**< state of the cameras */
    char streamstat[256];  /**< state of their streams */
    char IpcAbility1[256]; /**< abilities of the cameras */
    char IpcProtoCol[256]; /**< protocols that they are connected with */
    char ChnFeature[2048]; /**< features of the channels */
    char ChnDevbind[2048]; /**< devices bound to the channels */
} DEVICE_REPORT_3900_PARAM;

/** 3901: the position of a camera that pans and tilts. All fields are written absent or not. */
typedef struct DEVICE_REPORT_3901_PARAM
{
    int32_t x;      /**< horizontal position */
    int32_t y;      /**< vertical position */
    int32_t mul;    /**< zoom factor */
    int32_t maxMul; /**< largest zoom factor */
    int32_t linkage;
} DEVICE_REPORT_3901_PARAM;

ZEL_API int DEVICE_REPORT_3900_PARAM_init(DEVICE_REPORT_3900_PARAM* param);
ZEL_API int DEVICE_REPORT_3901_PARAM_init(DEVICE_REPORT_3901_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param kind    any; the text is the same for all.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int DeviceReportMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`; a text without a body is refused before the code is. */
ZEL_API int DeviceReportMessageAnalysis(const char* text, const char* code, void** result);

#ifdef __cplusplus
}
#endif

#endif
