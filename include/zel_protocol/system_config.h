/**
 * Device configuration: families "SYSTEM_CONFIG_GET_MESSAGE" and "SYSTEM_CONFIG_SET_MESSAGE". The code is
 * decimal text and alone selects the message: either type carries any of them. The records are in the headers
 * of the groups.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_H

#include "zel_protocol/core.h"
#include "zel_protocol/system_config_alarm.h"
#include "zel_protocol/system_config_algorithm.h"
#include "zel_protocol/system_config_audio.h"
#include "zel_protocol/system_config_channel.h"
#include "zel_protocol/system_config_detection.h"
#include "zel_protocol/system_config_encode.h"
#include "zel_protocol/system_config_face.h"
#include "zel_protocol/system_config_general.h"
#include "zel_protocol/system_config_intelligent.h"
#include "zel_protocol/system_config_ipc.h"
#include "zel_protocol/system_config_light.h"
#include "zel_protocol/system_config_media.h"
#include "zel_protocol/system_config_network.h"
#include "zel_protocol/system_config_osd.h"
#include "zel_protocol/system_config_plate.h"
#include "zel_protocol/system_config_recorder.h"
#include "zel_protocol/system_config_scene.h"
#include "zel_protocol/system_config_smart.h"
#include "zel_protocol/system_config_video.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Composes the body alone, of the message that `code` names.
 *
 * Code 1020 takes the record of the control family's message of that code; 3802 has neither record nor body.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemConfigMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`; 3802 succeeds without one. */
ZEL_API int SystemConfigMessageAnalysis(const char* text, const char* code, void** result);

#ifdef __cplusplus
}
#endif

#endif
