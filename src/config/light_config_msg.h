// A camera's light: rows of the configuration family.
#ifndef ZEL_CONFIG_LIGHT_CONFIG_MSG_H
#define ZEL_CONFIG_LIGHT_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_light.h"

namespace zel {

extern const MessageRow kGetLightConfig;
extern const MessageRow kSetLightConfig;

} // namespace zel

#endif
