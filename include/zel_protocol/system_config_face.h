/**
 * Configuration of face recognition: codes 1407 to 1411, 1418, 1419, 1424 and 1425 of the configuration
 * family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_FACE_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_FACE_H

#include "zel_protocol/alarm_report.h"
#include "zel_protocol/smart_rule.h"

#ifdef __cplusplus
extern "C" {
#endif

/** An alarm scene that a face can set off. */
typedef struct SYSTEM_CONFIG_SCENE_ROW
{
    uint8_t SceneIndex;  /**< 255: a free row */
    uint8_t SceneEnable; /**< 0 or 1 */
    char SceneAlias[128];
} SYSTEM_CONFIG_SCENE_ROW;

/**
 * 1407: face recognition with its schedules, a response without a parameter in its request; it is written
 * whole.
 *
 * `Def...` is the device's default of the setting of that name. A `...Num` counts the entries of its list,
 * which ends at the array's end whatever the number says, 255 included.
 */
typedef struct SYSTEM_CONFIG_GET_1407_PARAM
{
    uint8_t DetectionSens; /**< sensitivity */
    uint8_t DefDetectionSens;
    uint8_t Enable; /**< 0 or 1 */
    uint8_t DefEnable;
    uint8_t AnalysisPeriodNum; /**< "AnalysisriodNum" in 1408; this and the next five not in 1418, 1419 */
    uint8_t LightAlarmEnable;  /**< 0 or 1 */
    uint8_t LightAlarmPeriodNum;
    uint8_t AudioAlarmEnable; /**< 0 or 1 */
    uint8_t AudioAlarmPeriodNum;
    uint8_t AlarmTime;               /**< duration of an alarm */
    uint8_t ShowFaceBox;             /**< draw a box around a face, 0 or 1 */
    uint8_t ShowAlarmLine;           /**< draw the line, 0 or 1 */
    uint8_t MaxCoordinateCapability; /**< points that the device can take */
    uint8_t LineCoordinatesNum;
    uint8_t ucDefEnableSceneNum; /**< 1418: values in DefEnableScene */
    uint8_t ucSceneTagNum;       /**< 1418: rows in use; of an analysed 1418 or 1419, rows that were read */
    int32_t DefEnableScene[5];   /**< 1418: the scenes that are on by default */
    SYSTEM_CONFIG_SCENE_ROW stScene[5]; /**< 1418, 1419: written up to the first free row */
    TIME_PERIOD AnalysisPeriod[4];      /**< when faces are looked for */
    TIME_PERIOD AudioAlarmPeriod[4];
    TIME_PERIOD LightAlarmPeriod[4];
    COORDINATE LineCoordinates[8];
    int32_t VideoResolution[2]; /**< width and height that the coordinates refer to */
} SYSTEM_CONFIG_GET_1407_PARAM;

/** 1408: sets what 1407 gets. Request only, without defaults. */
typedef SYSTEM_CONFIG_GET_1407_PARAM SYSTEM_CONFIG_SET_1408_PARAM;

/**
 * 1418: face recognition with alarm scenes in place of schedules, a response without a parameter in its
 * request. Without ShowAlarmLine neither the resolution nor the line goes out; they are read in any case. Of
 * DefEnableScene a value is read if a comma stands behind it, as one does when it was written here.
 */
typedef SYSTEM_CONFIG_GET_1407_PARAM SYSTEM_CONFIG_GET_1418_PARAM;

/**
 * 1419: sets what 1418 gets. Request only, without defaults; ShowFaceBox is left out when absent, and
 * ucSceneTagNum doesn't count for what goes out.
 */
typedef SYSTEM_CONFIG_GET_1407_PARAM SYSTEM_CONFIG_SET_1419_PARAM;

/** 1409: asks for the picture of a face. Request only. */
typedef struct SYSTEM_CONFIG_SET_1409_PARAM
{
    int32_t MaxBytesPerPacket; /**< bytes */
    uint32_t Timestamp;        /**< of the picture */
    uint32_t SerialNum;        /**< of the face */
    char HumanFace[256];
} SYSTEM_CONFIG_SET_1409_PARAM;

/** 1410: how like two faces have to be, a response without a parameter in its request. */
typedef struct SYSTEM_CONFIG_GET_1410_PARAM
{
    int32_t SimilarityThreshold;
    int32_t DefaultThreshold;
    int32_t SimilarityRange[2]; /**< bounds of the threshold; in brackets on the wire */
} SYSTEM_CONFIG_GET_1410_PARAM;

/** 1411: sets what 1410 gets. Request only; it carries all that 1410 does. */
typedef SYSTEM_CONFIG_GET_1410_PARAM SYSTEM_CONFIG_SET_1411_PARAM;

/** A database of faces. */
typedef struct SYSTEM_CONFIG_FACE_DATABASE_ROW
{
    int32_t ListType; /**< which database it is; -1: a free row */
    int32_t Amount;   /**< faces in it */
    int32_t Capacity; /**< faces that it can hold */
    int32_t addAllow; /**< whether faces can be added */
} SYSTEM_CONFIG_FACE_DATABASE_ROW;

/**
 * 1424: how full the face databases are, a response without a parameter in its request. Rows go out up to the
 * first free one, and at least one has to come in.
 */
typedef struct SYSTEM_CONFIG_GET_1424_PARAM
{
    SYSTEM_CONFIG_FACE_DATABASE_ROW stFaceDatabase[3];
} SYSTEM_CONFIG_GET_1424_PARAM;

/**
 * 1425: the result of importing a face into a database. Request only. All but ListType and SerialNum is zero
 * when absent.
 *
 * Composing writes no feature block and announces none. An analysis takes one from behind the envelope as
 * that of an alarm does: see ALARM_REPORT_HUMANFACE_INFO.
 */
typedef struct SYSTEM_CONFIG_GET_1425_PARAM
{
    int32_t ListType;   /**< the database */
    uint32_t SerialNum; /**< of the face; never written, and read only if ListType's element is there */
    ALARM_REPORT_HUMANFACE_INFO stFace; /**< its SerialNum and SimilarityThreshold aren't on the wire */
    char ErrorMsg[256];                 /**< written as "Time", read as "ErrorMsg" */
    char Alias[256];                    /**< the name of the person */
    char BatchChanel[256];              /**< the channels of a batch */
    char Trans_Type[32]; /**< these five are the message's own and don't make it a transparent one */
    char Channel_ID[32];
    char Source_Type[32];
    char Session_ID[32];
    char Trans_Result[32]; /**< written as "Trans_flag", read as "Trans_Result" */
} SYSTEM_CONFIG_GET_1425_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1407_PARAM_init(SYSTEM_CONFIG_GET_1407_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1408_PARAM_init(SYSTEM_CONFIG_SET_1408_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1409_PARAM_init(SYSTEM_CONFIG_SET_1409_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1410_PARAM_init(SYSTEM_CONFIG_GET_1410_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1411_PARAM_init(SYSTEM_CONFIG_SET_1411_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1418_PARAM_init(SYSTEM_CONFIG_GET_1418_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1419_PARAM_init(SYSTEM_CONFIG_SET_1419_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1424_PARAM_init(SYSTEM_CONFIG_GET_1424_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1425_PARAM_init(SYSTEM_CONFIG_GET_1425_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getHumanFaceEvent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanFaceEvent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanFaceImage_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanFaceAdvanced_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanFaceAdvanced_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanFaceV2_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setHumanFaceV2_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getHumanFaceCapacity_MessageAnalysis(const char* text, void** result);

/** Analyses a text into the record of 1425, without a feature block. */
ZEL_API int SystemConfig_FaceYuvImportResult_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
