/**
 * Configuration of license plate recognition: codes 1404 to 1406 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_PLATE_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_PLATE_H

#include "zel_protocol/system_config_algorithm.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 1404: license plate recognition, a response without a parameter in its request; it is written whole.
 *
 * The range of StrongLightSupprSens is in ucStrongLightSupprSensMin and ucStrongLightSupprSensMax.
 * DetectionSens and what belongs to it, ShowTrackLine, algorithmId and the StrongLightSupprSensRange of the
 * record aren't on the wire.
 */
typedef SYSTEM_CONFIG_GET_1429_PARAM SYSTEM_CONFIG_GET_1404_PARAM;

/** 1405: sets what 1404 gets. Request only; without defaults and range, which aren't read either. */
typedef SYSTEM_CONFIG_GET_1429_PARAM SYSTEM_CONFIG_SET_1405_PARAM;

/** 1406: asks for the picture of a plate. Request only. */
typedef struct SYSTEM_CONFIG_SET_1406_PARAM
{
    int32_t MaxBytesPerPacket; /**< bytes */
    uint32_t Timestamp;        /**< of the picture */
    char LicensePlate[256];
} SYSTEM_CONFIG_SET_1406_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1404_PARAM_init(SYSTEM_CONFIG_GET_1404_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1405_PARAM_init(SYSTEM_CONFIG_SET_1405_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1406_PARAM_init(SYSTEM_CONFIG_SET_1406_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getLicensePlateEvent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setLicensePlateEvent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getLicensePlateImage_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
