/**
 * Configuration of the analysis algorithms that can be installed on a device: codes 1428 to 1430 of the
 * configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_ALGORITHM_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_ALGORITHM_H

#include "zel_protocol/smart_rule.h"

#ifdef __cplusplus
extern "C" {
#endif

/** An installable algorithm. One without an algorithmId is a free row. */
typedef struct SYSTEM_CONFIG_ALGORITHM_ROW
{
    char algorithmId[16];
    char version[32];
    int32_t install;   /**< whether it is installed */
    int32_t useStatus; /**< whether it is in use */
    int32_t isBuildIn; /**< whether it came with the firmware */
} SYSTEM_CONFIG_ALGORITHM_ROW;

/**
 * 1428: the algorithms of a device, a response without a parameter in its request. The values are the texts
 * of elements. Rows go out up to the first free one; rows beyond the array are passed over.
 */
typedef struct SYSTEM_CONFIG_GET_1428_PARAM
{
    char DevSn[32]; /**< the device's serial number; its element may not be missing */
    char FirmwareVersion[256];
    int32_t AvailableSize; /**< free space for algorithms */
    SYSTEM_CONFIG_ALGORITHM_ROW stAlgorithm[16];
} SYSTEM_CONFIG_GET_1428_PARAM;

/**
 * 1429: the settings of the algorithm named by algorithmId. The request carries algorithmId alone.
 *
 * The response of "HA", detection of what falls from a height, has DetectionSens with its default and range,
 * ShowTrackLine, and, as the next, Enable, DefEnable, ShowAlarmLine, the resolution and the line. That of
 * "LP", recognition of license plates, has all but DetectionSens with its default and range, ShowTrackLine
 * and the range as bytes. Any other response is empty behind its algorithmId. An analysis takes what is
 * there, whatever algorithmId says; of fields that came for both, those of "LP" stand.
 *
 * `Def...` is the device's default of the setting of that name, `...Range` its two bounds. A `...Num` counts
 * the entries of its list, which ends at the array's end whatever the number says, 255 included.
 */
typedef struct SYSTEM_CONFIG_GET_1429_PARAM
{
    uint8_t Enable; /**< of the detection, 0 or 1 */
    uint8_t DefEnable;
    uint8_t DetectionSens; /**< sensitivity */
    uint8_t DefDetectionSens;
    uint8_t ShowTrackLine; /**< draw the track of what falls, 0 or 1 */
    uint8_t ShowAlarmLine; /**< draw the line, 0 or 1 */
    uint8_t ucReserved;    /**< not on the wire */
    char algorithmId[16];  /**< "HA" or "LP" */
    int32_t DefDetectionSensRange[2];
    int32_t StrongLightSupprSensRange[2]; /**< 1429 writes it, 1429 and 1430 read it */
    uint8_t LightAlarmEnable;             /**< 0 or 1 */
    uint8_t DefLightAlarmEnable;
    uint8_t LightAlarmPeriodNum;
    uint8_t AudioAlarmEnable; /**< 0 or 1 */
    uint8_t DefAudioAlarmEnable;
    uint8_t AudioAlarmPeriodNum;
    uint8_t VirtualLoopEnable; /**< the virtual detection loop in the picture, 0 or 1 */
    uint8_t DefVirtualLoopEnable;
    uint8_t AlarmTime; /**< duration of an alarm */
    uint8_t DefAlarmTime;
    uint8_t StrongLightSupprSens; /**< how far strong light is suppressed */
    uint8_t AnalysisPeriodNum;
    uint8_t DefStrongLightSupprSens;
    uint8_t ucStrongLightSupprSensMin; /**< StrongLightSupprSensRange of 1404, as the next */
    uint8_t ucStrongLightSupprSensMax;
    uint8_t MaxCoordinateCapability; /**< points that the device can take */
    uint8_t LineCoordinatesNum;
    uint8_t strongLightDebug; /**< 1429 and 1404 write it, 1405 if it isn't 255, all four read it */
    TIME_PERIOD AudioAlarmPeriod[4];
    TIME_PERIOD LightAlarmPeriod[4];
    TIME_PERIOD AnalysisPeriod[4]; /**< when the algorithm runs */
    COORDINATE LineCoordinates[8];
    int32_t VideoResolution[2]; /**< width and height that the coordinates refer to */
} SYSTEM_CONFIG_GET_1429_PARAM;

/**
 * 1430: sets what 1429 gets. Request only; without defaults, StrongLightSupprSensRange and strongLightDebug,
 * of which the last two are read all the same.
 */
typedef SYSTEM_CONFIG_GET_1429_PARAM SYSTEM_CONFIG_SET_1430_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1428_PARAM_init(SYSTEM_CONFIG_GET_1428_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_1429_PARAM_init(SYSTEM_CONFIG_GET_1429_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1430_PARAM_init(SYSTEM_CONFIG_SET_1430_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getAlgorithmicList_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getAlgorithmicConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setAlgorithmicConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
