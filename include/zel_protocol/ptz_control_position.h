/**
 * Position and locating: extension records of the family "PTZ_CONTROL_MESSAGE".
 */
#ifndef ZEL_PROTOCOL_PTZ_CONTROL_POSITION_H
#define ZEL_PROTOCOL_PTZ_CONTROL_POSITION_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * getCurPos: the current position. The request carries channelid and needs no extension. The response carries
 * all four and no channelid. Request and response are read alike, channelid included.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM
{
    int32_t x;      /**< horizontal position */
    int32_t y;      /**< vertical position */
    int32_t mul;    /**< zoom factor */
    int32_t maxMul; /**< largest zoom factor; neither written nor read by setCurPos */
} PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM;

/** setCurPos: go to a position. Request only, without a channelid. */
typedef PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM PTZ_CONTROL_PTZ_CMD_SETCURPOS_PARAM;

/**
 * GetLocateCfg: settings of locating. The request carries channelid and needs no extension. The response
 * carries all six as attributes, without a channelid or a cmd. Numbers are written signed and read by their
 * bits. A message that has both forms is read as a request, and leaves the extension absent.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM
{
    uint8_t status;            /**< of locating */
    uint8_t track_time_enable; /**< 0 off, 1 on; this and the next three: GetLocateCfg only */
    uint32_t time_min;         /**< range and step of the time, and the one that is set */
    uint32_t time_max;
    uint32_t time_step;
    uint32_t time_now;
} PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM;

/**
 * SetLocateCfg: sets status and time_now, as attributes. Request only, without a channelid or a cmd. An
 * analysed record has its cmd from the element's name, and an empty one if that is missing.
 */
typedef PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM PTZ_CONTROL_PTZ_CMD_SETLOCATECFG_PARAM;

/**
 * ManualLocate: locate what a rectangle of the picture shows, as attributes. Request only, without a
 * channelid or a cmd; the latter as with SetLocateCfg.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM
{
    uint8_t status;      /**< of locating */
    uint32_t left_top_x; /**< corners of the rectangle, within the frame */
    uint32_t left_top_y;
    uint32_t right_down_x;
    uint32_t right_down_y;
    uint32_t width; /**< of the frame that the corners refer to */
    uint32_t height;
} PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM;

ZEL_API int PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_SETCURPOS_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETCURPOS_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_SETLOCATECFG_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETLOCATECFG_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM_init(PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM* param);

/* Each analyses a text into a PTZ_CONTROL_PTZ_CMD_PARAM with the extension of its command. */
ZEL_API int PtzControlgetCurPos_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlsetCurPos_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlGetLocateCfg_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlSetLocateCfg_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlManualLocate_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
