/**
 * Configuration of a camera's light: codes 1300 and 1301 of the configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_LIGHT_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_LIGHT_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 1300: the light. Response only; it is written whole, absent values as -1. */
typedef struct SYSTEM_CONFIG_GET_1300_PARAM
{
    int32_t LightMode;         /**< kind of light */
    int32_t LightCtrl;         /**< how it is switched */
    int32_t LightVal;          /**< brightness */
    int32_t DefLightMode;      /**< the device's default of LightMode; 1300 only */
    int32_t LightModeRange[3]; /**< the device's values of LightMode; 1300 only */
} SYSTEM_CONFIG_GET_1300_PARAM;

/* 1301: sets the first three. Request only; the rest is neither written nor read. */
typedef SYSTEM_CONFIG_GET_1300_PARAM SYSTEM_CONFIG_SET_1301_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1300_PARAM_init(SYSTEM_CONFIG_GET_1300_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1301_PARAM_init(SYSTEM_CONFIG_SET_1301_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getLightConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setLightConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
