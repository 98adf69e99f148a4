/**
 * Orbits, which are tours over presets, loci, which are recorded movements, and transparent data: extension
 * records of the family "PTZ_CONTROL_MESSAGE".
 */
#ifndef ZEL_PROTOCOL_PTZ_CONTROL_ORBIT_H
#define ZEL_PROTOCOL_PTZ_CONTROL_ORBIT_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A stop of an orbit. */
typedef struct PTZ_CONTROL_ORBIT_POINT
{
    int32_t time;       /**< how long it stays there */
    char name[32];      /**< never written; a received preset_id serves as name too */
    char preset_id[64]; /**< number of the preset, as a text; empty: the line ends here. Read as a number */
} PTZ_CONTROL_ORBIT_POINT;

/** An orbit. */
typedef struct PTZ_CONTROL_ORBIT_LINE
{
    int32_t iLineId; /**< number of the orbit; -1: the list ends here */
    PTZ_CONTROL_ORBIT_POINT stPoint[24];
} PTZ_CONTROL_ORBIT_LINE;

/**
 * GetOrbitList: the orbits. The request carries channelid and needs no extension, nor has an analysed one
 * any. The response carries everything as attributes, without cmd or channelid. Numbers are written signed
 * and read by their bits.
 *
 * Lines beyond the sixteenth, and points beyond the 24th of a line, are passed over. Of a point "preset:time"
 * the first 11 characters are read. A number of a point that can't be read is that of the point before it in
 * its list, be it in the line before, and 0 at first.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM
{
    uint32_t time_min; /**< bounds of a point's time */
    uint32_t time_max;
    uint32_t normal_line_max; /**< normal orbits that the device can keep */
    uint32_t preset_max;      /**< presets that an orbit can have */
    uint32_t track_line_max;  /**< tracking orbits that the device can keep */
    uint32_t track_time_min;  /**< bounds and step of a point's time in a tracking orbit */
    uint32_t track_time_max;
    uint32_t tarck_time_step;
    PTZ_CONTROL_ORBIT_LINE stNormalLine[16];
    PTZ_CONTROL_ORBIT_LINE stTrackLine[16];
} PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM;

/**
 * AutoOrbit: starts an orbit, by orbit_id and orbit_type. Request only, without a channelid. A byte takes the
 * low 8 bits of a received number.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM
{
    uint8_t orbit_id;     /**< number of the orbit */
    uint8_t orbit_type;   /**< which kind of orbit */
    uint8_t preset_id;    /**< number of a preset to add; AddOrbit only */
    uint8_t preset_index; /**< place of the point in the orbit; ClearOrbit only */
    uint32_t time;        /**< how long to stay at the point; AddOrbit only. Read by its bits */
} PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM;

/** AddOrbit: adds a point to an orbit, with preset_id and time; otherwise as AutoOrbit. */
typedef PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM PTZ_CONTROL_PTZ_CMD_ADDORBIT_PARAM;

/** ClearOrbit: takes a point out of an orbit, by preset_index; otherwise as AutoOrbit. */
typedef PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM PTZ_CONTROL_PTZ_CMD_CLEARORBIT_PARAM;

/** A locus; the three numbers of a list's item, in their order. */
typedef struct PTZ_CONTROL_LOCUS_LINE
{
    int32_t iLocusValue0;
    uint8_t ucLocusValue1; /**< the bytes take the low 8 bits of a received number */
    uint8_t ucLocusValue2;
} PTZ_CONTROL_LOCUS_LINE;

/**
 * GetLocusList: the loci. The request needs no extension, nor has an analysed one any. The response carries
 * everything as attributes, without a cmd. Neither has a channelid. A number that a received line lacks stays
 * at its absent value.
 */
typedef struct PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM
{
    uint32_t
        line_max; /**< lines to write; absent or above 16: all 16. As received, however many lines came */
    PTZ_CONTROL_LOCUS_LINE stLine[16];
} PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM;

/** SetLocus: sets a locus. Request only, without a channelid. */
typedef struct PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM
{
    int32_t locus_id;   /**< number of the locus */
    int32_t locus_type; /**< SetLocus only */
} PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM;

/** RecordLocus and StartLocus: record and play the locus locus_id. Requests only, with channelid. */
typedef PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM PTZ_CONTROL_PTZ_CMD_RECORDLOCUS_PARAM;

/** StopRecordLocus: ends the recording of the locus locus_id. Request only, with channelid. */
typedef PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM PTZ_CONTROL_PTZ_CMD_STOPRECORDLOCUS_PARAM;

/** trans: a text for the camera's drive. Request only, without a channelid. */
typedef struct PTZ_CONTROL_PTZ_CMD_TRANS_PARAM
{
    char data[2048]; /**< must not hold another command word: the peer would take it for that command */
} PTZ_CONTROL_PTZ_CMD_TRANS_PARAM;

ZEL_API int PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM_init(PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_ADDORBIT_PARAM_init(PTZ_CONTROL_PTZ_CMD_ADDORBIT_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_CLEARORBIT_PARAM_init(PTZ_CONTROL_PTZ_CMD_CLEARORBIT_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_RECORDLOCUS_PARAM_init(PTZ_CONTROL_PTZ_CMD_RECORDLOCUS_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_STOPRECORDLOCUS_PARAM_init(PTZ_CONTROL_PTZ_CMD_STOPRECORDLOCUS_PARAM* param);
ZEL_API int PTZ_CONTROL_PTZ_CMD_TRANS_PARAM_init(PTZ_CONTROL_PTZ_CMD_TRANS_PARAM* param);

/* Each analyses a text into a PTZ_CONTROL_PTZ_CMD_PARAM with the extension of its commands. */
ZEL_API int PtzControlAutoOrbit_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlAddOrbit_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlClearOrbit_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlSetLocus_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlTrans_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlLocusCmd_MessageAnalysis(const char* text, void** result);

/* The same; the extension is there for a response alone, which is a text without `xml`. */
ZEL_API int PtzControlGetOrbitList_MessageAnalysis(const char* text, void** result);
ZEL_API int PtzControlGetLocusList_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
