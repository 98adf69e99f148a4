/**
 * Pan, tilt and zoom: family "PTZ_CONTROL_MESSAGE", code "PTZ_CMD". A command word in the record says what
 * the message does.
 */
#ifndef ZEL_PROTOCOL_PTZ_CONTROL_H
#define ZEL_PROTOCOL_PTZ_CONTROL_H

#include "zel_protocol/core.h"
#include "zel_protocol/ptz_control_orbit.h"
#include "zel_protocol/ptz_control_position.h"
#include "zel_protocol/ptz_control_preset.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Every command. Its extension record, if it has one, hangs on pExData: the type follows from the command
 * word. All begin with PTZ_CONTROL_PTZ_CMD_ and end in _PARAM; the dash is a command without an extension.
 *
 * | cmd | extension | composing a request | composing a response | analysed |
 * |---|---|---|---|---|
 * | getCurPos | GETCURPOS | not looked at | required | always there |
 * | setCurPos | SETCURPOS | required | no body | always there |
 * | GetLocateCfg | GETLOCATECFG | not looked at | required | always there |
 * | SetLocateCfg | SETLOCATECFG | required | no body | always there |
 * | ManualLocate | MANUALLOCATE | required | no body | always there |
 * | setpreset | SETPRESET | required | no body | always there |
 * | clearpreset | CLEARPRESET | required | no body | always there |
 * | callpreset | CALLPRESET | required | no body | always there |
 * | GetPresetList | GETPRESETLIST | not looked at | required | in a response |
 * | GetPresetListEx | GETPRESETLISTEX | not looked at | required | always there |
 * | SetPresetListEx | SETPRESETLISTEX | required | no body | always there |
 * | SetWatchGuard | SETWATCHGUARD | required | no body | always there |
 * | GetWatchGuard | GETWATCHGUARD | required | no body | always there |
 * | DeleteWatchGuard, CallWatchGuard, StopOrbit, StopLocus | - | not looked at | no body | never there |
 * | ScanBegin, ScanEnd, ScanOn, ScanOff | - | not looked at | no body | not known |
 * | GetOrbitList | GETORBITLIST | not looked at | required | in a response |
 * | AutoOrbit | AUTOORBIT | required | no body | always there |
 * | AddOrbit | ADDORBIT | required | no body | always there |
 * | ClearOrbit | CLEARORBIT | required | no body | always there |
 * | GetLocusList | GETLOCUSLIST | not looked at | required | in a response |
 * | SetLocus | SETLOCUS | required | no body | always there |
 * | trans | TRANS | required | no body | always there |
 * | RecordLocus, StartLocus | RECORDLOCUS | required | no body | always there |
 * | StopRecordLocus | STOPRECORDLOCUS | required | no body | always there |
 * | the motion commands, see there | OUTHERCTRL | optional | optional | always there |
 *
 * Composing borrows the extension and only reads it; a required one that is NULL gives ZEL_ERR_BAD_PARAM.
 * Analysis puts it behind the record in the same block, so that ZelProtocolMSGAnalysisStop releases both, and
 * a plain copy of the record still points into that block.
 *
 * An analysis takes the first command word of its order that stands anywhere in the text, in a value too, and
 * fills that command's extension; cmd is what the message itself says. The two agree unless a value holds a
 * word of that order, and nothing in the record tells when they don't. So the block of an analysed record
 * with an extension has room for that of the command that cmd names too, and what wasn't filled is zero:
 * following cmd reads nothing beyond the block, as long as cmd is the received one. pExData is still to be
 * tested: it is NULL where the text's command has no extension.
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
 * stop, ptz_reset. It may be missing on the way out, and is always there on the way in. All kinds are alike.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM
{
    int32_t panspeed; /**< speed of turning and of tilting; both are written even when -1 */
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
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
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
