// A camera's audio: rows of the configuration family.
#ifndef ZEL_CONFIG_AUDIO_CONFIG_MSG_H
#define ZEL_CONFIG_AUDIO_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_audio.h"

namespace zel {

extern const MessageRow kGetMediaAudioconfig;
extern const MessageRow kSetMediaAudioconfig;

} // namespace zel

#endif
