// Changes of a device, what it tells everybody, and the time, as the search's dispatcher reaches them.
#ifndef ZEL_DISCOVERY_ADDRESS_CHANGE_MSG_H
#define ZEL_DISCOVERY_ADDRESS_CHANGE_MSG_H

#include "core/rows.h"
#include "zel_protocol/searchipc.h"

namespace zel {

extern const MessageRow kModifyBySerialNumber;
extern const MessageRow kRestoreConfig;
extern const MessageRow kBroadcastDeviceInfo;
extern const MessageRow kSendTime;

} // namespace zel

#endif
