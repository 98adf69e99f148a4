// The messages of alarm scenes and their sounds, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_SCENE_MSG_H
#define ZEL_ANALYTICS_SCENE_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_scene.h"

namespace zel {

extern const MessageRow kGetHumanAlarmsceneAudio;
extern const MessageRow kSetHumanAlarmsceneAudio;
extern const MessageRow kGetHumanAlarmscene;
extern const MessageRow kSetHumanAlarmscene;

} // namespace zel

#endif
