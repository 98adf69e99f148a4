// The messages of the small settings of analytics, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_SMART_MSG_H
#define ZEL_ANALYTICS_SMART_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_smart.h"

namespace zel {

extern const MessageRow kGetLightAudioAlarmConfig;
extern const MessageRow kSetLightAudioAlarmConfig;
extern const MessageRow kGetHumanAlarmConfig;
extern const MessageRow kSetHumanAlarmConfig;
extern const MessageRow kGetSmartDetectionConfig;
extern const MessageRow kSetSmartDetectionConfig;

} // namespace zel

#endif
