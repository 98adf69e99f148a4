/**
 * Presets, which are stored positions, and the watch guard: extension records of the family
 * "PTZ_CONTROL_MESSAGE".
 */
#ifndef ZEL_PROTOCOL_PTZ_CONTROL_PRESET_H
#define ZEL_PROTOCOL_PTZ_CONTROL_PRESET_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** setpreset: stores a position. Request only, with channelid; both fields are written absent or not. */
typedef struct PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM
{
    int32_t preset; /**< number of the preset */
    int32_t flag;   /**< a number of the application's */
} PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM;

/** clearpreset: forgets a preset; otherwise as setpreset. */
typedef PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM PTZ_CONTROL_PTZ_CMD_CLEARPRESET_PARAM;

/** callpreset: goes to a preset; otherwise as setpreset. */
typedef PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM PTZ_CONTROL_PTZ_CMD_CALLPRESET_PARAM;

/** SetPresetListEx: names a preset. Request only, without a channelid. Also a row of the preset lists. */
typedef struct PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM
{
    char name[32];
    char preset_id[64]; /**< number of the preset, as a text */
} PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM;

/**
 * GetPresetList: list of presets. The request carries channelid and needs no extension, nor has an analysed
 * one any. The response is a bare text without cmd or channelid, each item with a `^` behind it: the count
 * and then each preset_id. A text in the place of the rows, acPresetList, goes out as it is; with neither,
 * the body is empty.
 *
 * A received preset_id is read as a number, one that is no number as 0, and serves as name too. An item
 * without a `^` behind it is dropped.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM
{
    int32_t guard;        /**< the watch guard; GetPresetListEx only */
    int32_t iPresetCount; /**< rows to write, at most 256; -1: acPresetList instead. Kept as received */
    PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM stPreset[256];
    char acPresetList[1024]; /**< a list that is ready to be sent; GetPresetList only, and never read */
} PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM;

/**
 * GetPresetListEx: list of presets with their names. The request is as that of GetPresetList, but an analysed
 * one has its extension. The response carries the rows' preset_id in one list with the count in front of it,
 * their names in another, and guard; no channelid. A count of -1 gives lists without rows. Received lists are
 * read independently of each other, each up to 256 rows.
 */
typedef PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM PTZ_CONTROL_PTZ_CMD_GETPRESETLISTEX_PARAM;

/** SetWatchGuard: sets the watch guard. Request only, with channelid. */
typedef struct PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM
{
    char acReserved[32]; /**< not on the wire */
    char guard[64];      /**< a text, unlike that of GetPresetListEx */
} PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM;

/** GetWatchGuard: asks for it; otherwise as SetWatchGuard, the extension included. */
typedef PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM PTZ_CONTROL_PTZ_CMD_GETWATCHGUARD_PARAM;

ZEL_API int PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_CLEARPRESET_PARAM_init(PTZ_CONTROL_PTZ_CMD_CLEARPRESET_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_CALLPRESET_PARAM_init(PTZ_CONTROL_PTZ_CMD_CALLPRESET_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_GETPRESETLISTEX_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETPRESETLISTEX_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_GETWATCHGUARD_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETWATCHGUARD_PARAM* param);

/* Each analyses a text into a PTZ_CONTROL_PTZ_CMD_PARAM with the extension of its commands. */
ZEL_API int PtzControlpresetCmd_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlGetPresetListEx_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlSetPresetListEx_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlWatchGuard_MessageAnalysis(const char* text, void** result);

/** The same; the extension is there for a response alone, which is a text with a `^` and without `xml`. */
ZEL_API int PtzControlGetPresetList_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
