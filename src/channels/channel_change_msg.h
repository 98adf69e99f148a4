// Changes of a recorder's channels and of its cameras' addresses: rows of the configuration family.
#ifndef ZEL_CHANNELS_CHANNEL_CHANGE_MSG_H
#define ZEL_CHANNELS_CHANNEL_CHANGE_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_channel.h"

namespace zel {

extern const MessageRow kNvrChannelDelChannel;
extern const MessageRow kNvrChannelSwitchChannel;
extern const MessageRow kNvrChannelPicsSelect;
extern const MessageRow kNvrChannelPicsPageChange;
extern const MessageRow kNvrChannelModifyIpcIp;
extern const MessageRow kNvrChannelBatchModifyIpcIp;
extern const MessageRow kNvrChannelBatchDelIpc;
extern const MessageRow kNvrChannelBatchModifyIpcIpV2;

} // namespace zel

#endif
