// Firmware update, as the control family's dispatcher reaches it.
#ifndef ZEL_CONTROL_UPDATE_MSG_H
#define ZEL_CONTROL_UPDATE_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_control_update.h"

namespace zel {

extern const MessageRow kSendUpdateCmd;
extern const MessageRow kGetUpdateStatus;
extern const MessageRow kCancelUpdate;

} // namespace zel

#endif
