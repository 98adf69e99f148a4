// Overlays and encoders of a recorder's channels: rows of the configuration family.
#ifndef ZEL_CONFIG_OSD_CONFIG_MSG_H
#define ZEL_CONFIG_OSD_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_osd.h"

namespace zel {

extern const MessageRow kGetVideoOsdConfig;
extern const MessageRow kSetVideoOsdConfig;
extern const MessageRow kGetMediaVideoConfig;
extern const MessageRow kSetMediaVideoConfig;
extern const MessageRow kGetMediaCapability;

} // namespace zel

#endif
