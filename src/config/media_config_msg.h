// A camera's media: rows of the configuration family.
#ifndef ZEL_CONFIG_MEDIA_CONFIG_MSG_H
#define ZEL_CONFIG_MEDIA_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_media.h"

namespace zel {

extern const MessageRow kGetMediaconfig;
extern const MessageRow kSetMediaconfig;

} // namespace zel

#endif
