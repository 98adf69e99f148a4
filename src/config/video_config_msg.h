// A camera's video: rows of the configuration family.
#ifndef ZEL_CONFIG_VIDEO_CONFIG_MSG_H
#define ZEL_CONFIG_VIDEO_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_video.h"

namespace zel {

extern const MessageRow kGetMediaVideoconfig;
extern const MessageRow kSetMediaVideoconfig;

} // namespace zel

#endif
