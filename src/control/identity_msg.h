// The device's identity and abilities, as the dispatchers of the control and configuration families reach
// them.
#ifndef ZEL_CONTROL_IDENTITY_MSG_H
#define ZEL_CONTROL_IDENTITY_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_control_identity.h"

namespace zel {

extern const MessageRow kGetIpcSysVersion;
extern const MessageRow kGetIpcSN;
extern const MessageRow kGetSysAbality;
extern const MessageRow kGetDeviceType;
extern const MessageRow kGetMediaAbality;
extern const MessageRow kGetIpcKeyFrame;
extern const MessageRow kSetIpcUserdevdata;
extern const MessageRow kGetIpcUserdevdata;
extern const MessageRow kGetNvrSystemConfig;

} // namespace zel

#endif
