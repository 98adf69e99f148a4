/**
 * Configuration, the intelligent event: detection in a region and at a crossed boundary. Family
 * "SYSTEM_CONFIG_GET_MESSAGE" and "SYSTEM_CONFIG_SET_MESSAGE".
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_INTELLIGENT_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_INTELLIGENT_H

#include "zel_protocol/smart_rule.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 1402: both detection rules, a response without a parameter in its request.
 *
 * An analysed rule without a resolution has 1600 and 900; a rule that didn't come at all has its absent
 * values.
 */
typedef struct SYSTEM_CONFIG_GET_1402_PARAM
{
    int32_t ErrorCode;   /**< 1426 only */
    int32_t iResultFlag; /**< 1426 only */
    SMART_RULE_PARAM stRegion;
    SMART_RULE_PARAM stCrossBoundary;
} SYSTEM_CONFIG_GET_1402_PARAM;

/** 1403: change of both rules, a request. Carries no defaults and nothing of the e-mail alarm. */
typedef SYSTEM_CONFIG_GET_1402_PARAM SYSTEM_CONFIG_SET_1403_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_1402_PARAM_init(SYSTEM_CONFIG_GET_1402_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_1403_PARAM_init(SYSTEM_CONFIG_SET_1403_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getIntelligentEvent_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setIntelligentEvent_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
