/**
 * The whole public interface of the message codec.
 */
#ifndef ZEL_PROTOCOL_ZEL_PROTOCOL_H
#define ZEL_PROTOCOL_ZEL_PROTOCOL_H

#include "zel_protocol/alarm_report.h"
#include "zel_protocol/catalogue.h"
#include "zel_protocol/core.h"
#include "zel_protocol/debug_log.h"
#include "zel_protocol/device_report.h"
#include "zel_protocol/frame.h"
#include "zel_protocol/iot_camera.h"
#include "zel_protocol/ipc_repair.h"
#include "zel_protocol/live_stream.h"
#include "zel_protocol/media_data.h"
#include "zel_protocol/nvr_internal.h"
#include "zel_protocol/nvr_produce_test.h"
#include "zel_protocol/nvr_replay.h"
#include "zel_protocol/ptz_control.h"
#include "zel_protocol/replay_control.h"
#include "zel_protocol/reverse_audio.h"
#include "zel_protocol/searchipc.h"
#include "zel_protocol/system_config.h"
#include "zel_protocol/system_control.h"
#include "zel_protocol/system_encrypt.h"
#include "zel_protocol/user_auth.h"
#include "zel_protocol/version.h"

#endif
