// Search and list of a recorder's channels: rows of the configuration family.
#ifndef ZEL_CHANNELS_CHANNEL_LIST_MSG_H
#define ZEL_CHANNELS_CHANNEL_LIST_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_channel.h"

namespace zel {

extern const MessageRow kNvrChannelStartSearchipc;
extern const MessageRow kNvrChannelGetChannelList;
extern const MessageRow kNvrChannelAddChannel;

} // namespace zel

#endif
