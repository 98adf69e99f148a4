// State, short commands and a recorder's settings, as the control family's dispatcher reaches them.
#ifndef ZEL_CONTROL_STATUS_MSG_H
#define ZEL_CONTROL_STATUS_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_control_status.h"

namespace zel {

extern const MessageRow kSetRefleshCHBKG;
extern const MessageRow kSetIpcTime;
extern const MessageRow kSetNvrChannelAdd;
extern const MessageRow kGetNetStatus;
extern const MessageRow kSetIpcIrcut;
extern const MessageRow kGetNvrTimedRestartConfig;
extern const MessageRow kSetNvrSalesarea;
extern const MessageRow kSetNvrTimedRestartConfig;
extern const MessageRow kSetNvrSimpleCustomConfig;
extern const MessageRow kSetNvrStartNetworkCheck;
extern const MessageRow kGetNvrDisplayConfig;
extern const MessageRow kSetNvrDisplayConfig;

} // namespace zel

#endif
