// A recorder's general settings, clock, accounts, pushes, cloud password and channel states: rows of the
// configuration family.
#ifndef ZEL_NETWORK_GENERAL_CONFIG_MSG_H
#define ZEL_NETWORK_GENERAL_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_general.h"

namespace zel {

extern const MessageRow kGetGeneralConfig;
extern const MessageRow kSetGeneralConfig;
extern const MessageRow kGetTimeConfig;
extern const MessageRow kSetTimeConfig;
extern const MessageRow kGetUserConfig;
extern const MessageRow kSetUserConfig;
extern const MessageRow kGetPushOfflineConfig;
extern const MessageRow kSetPushOfflineConfig;
extern const MessageRow kGetAllChannelInfo;
extern const MessageRow kGetCloudConfig;
extern const MessageRow kSetCloudConfig;

} // namespace zel

#endif
