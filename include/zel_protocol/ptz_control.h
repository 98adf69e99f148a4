/**
 * Pan, tilt and zoom: family "PTZ_CONTROL_MESSAGE", code "PTZ_CMD". A command word in the record says what
 * the message does.
 */
#ifndef ZEL_PROTOCOL_PTZ_CONTROL_H
#define ZEL_PROTOCOL_PTZ_CONTROL_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Every command. Its extension record, if it has one, hangs on pExData: the type follows from the command
 * word.
 *
 * Composing borrows the extension and only reads it. Analysis puts it behind the record in the same block, so
 * that ZelProtocolMSGAnalysisStop releases both, and a plain copy of the record still points into that block.
 *
 * An analysis takes the first command word of its order that stands anywhere in the text, in a value too, and
 * fills that command's extension; cmd is what the cmd element says. From an honest peer the two agree. Don't
 * follow pExData on the word of cmd alone: it is NULL where the text's command has no extension.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_PARAM
{
    int32_t channelid; /**< not written when -1 */
    char cmd[32];      /**< the command word */
    void* pExData;     /**< NULL: none */
} PTZ_CONTROL_PTZ_CMD_PARAM;

/**
 * The extension of the motion commands: zoomtele, zoomwide, FocusNearAutoOff, FocusFarAutoOff,
 * IrisOpenAutoOff, IrisCloseAutoOff, up, down, left, right, left_up, right_up, left_down, right_down, auto,
 * stop, ptz_reset. It may be missing on the way out, and is always there on the way in.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM
{
    int32_t panspeed; /**< both are written even when -1 */
    int32_t tiltspeed;
} PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM;

/** Sets channelid to -1, clears cmd, and sets pExData to NULL. */
ZEL_API int PTZ_CONTROL_PTZ_CMD_PARAM_init(PTZ_CONTROL_PTZ_CMD_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM_init(PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM* param);

/**
 * Composes the body alone, of the command that the record names. A command without a response leaves the body
 * of a response empty.
 *
 * @param record  a PTZ_CONTROL_PTZ_CMD_PARAM; NULL leaves the buffer alone.
 * @param buf     receives the terminated text.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int PtzControlMessageCompose(const void* record, int kind, char* buf, int len);

/**
 * Analyses a text into a PTZ_CONTROL_PTZ_CMD_PARAM. The first command word, in an order of precedence, that
 * stands anywhere in the text selects the analysis; the record's cmd is then what the message itself says.
 */
ZEL_API int PtzControlMessageAnalysis(const char* text, void** result);

/** Analyses a text into a PTZ_CONTROL_PTZ_CMD_PARAM without an extension. */
ZEL_API int PtzControlptzCmd_MessageAnalysis(const char* text, void** result);

/** Analyses a text into a PTZ_CONTROL_PTZ_CMD_PARAM with a PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM. */
ZEL_API int PtzControlptzControl_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
