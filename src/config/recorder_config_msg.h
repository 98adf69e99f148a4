// A recorder's system log, storage strategy and recording schedules: rows of the configuration family.
#ifndef ZEL_CONFIG_RECORDER_CONFIG_MSG_H
#define ZEL_CONFIG_RECORDER_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_recorder.h"

namespace zel {

extern const MessageRow kGetNvrSystemLog;
extern const MessageRow kGetStrategyConfig;
extern const MessageRow kSetStrategyConfig;
extern const MessageRow kGetRecoedConfig;
extern const MessageRow kSetRecoedConfig;

} // namespace zel

#endif
