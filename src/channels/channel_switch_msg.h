// How a recorder adds cameras, and its switches for all channels: rows of the configuration family.
#ifndef ZEL_CHANNELS_CHANNEL_SWITCH_MSG_H
#define ZEL_CHANNELS_CHANNEL_SWITCH_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_channel.h"

namespace zel {

extern const MessageRow kNvrChannelGetAddMode;
extern const MessageRow kNvrChannelSetAddMode;
extern const MessageRow kNvrGetOffAllSmartChanges;
extern const MessageRow kNvrSetOffAllSmartChanges;
extern const MessageRow kNvrGetOffAllAlarm;
extern const MessageRow kNvrSetOffAllAlarm;

} // namespace zel

#endif
