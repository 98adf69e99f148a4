// A device's network, its server and its platform: rows of the configuration family.
#ifndef ZEL_NETWORK_NETWORK_CONFIG_MSG_H
#define ZEL_NETWORK_NETWORK_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_network.h"

namespace zel {

extern const MessageRow kGetNetconfig;
extern const MessageRow kSetNetconfig;
extern const MessageRow kGetNetLanconfig;
extern const MessageRow kSetNetLanconfig;
extern const MessageRow kGetNetServerconfig;
extern const MessageRow kSetNetServerconfig;
extern const MessageRow kGetNetGB28181Config;
extern const MessageRow kSetNetGB28181Config;

} // namespace zel

#endif
