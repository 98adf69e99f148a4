// Search and list of a recorder's channels: the leaves that the configuration family's dispatchers call.
#ifndef ZEL_CHANNELS_CHANNEL_LIST_MSG_H
#define ZEL_CHANNELS_CHANNEL_LIST_MSG_H

#include "core/body.h"
#include "core/message.h"
#include "zel_protocol/system_config_channel.h"

namespace zel {

int SystemConfig_NvrChannelStartSearchipc_MessageCompose(TextWriter& out,
                                                         const SYSTEM_CONFIG_GET_3801_PARAM& record,
                                                         int kind);
int SystemConfig_NvrChannelStartSearchipc_MessageAnalysis(Message& message, void** result);
int SystemConfig_NvrChannelGetChannelList_MessageCompose(TextWriter& out,
                                                         const SYSTEM_CONFIG_GET_3803_PARAM& record,
                                                         int kind);
int SystemConfig_NvrChannelGetChannelList_MessageAnalysis(Message& message, void** result);
int SystemConfig_NvrChannelAddChannel_MessageCompose(TextWriter& out,
                                                     const SYSTEM_CONFIG_SET_3804_PARAM& record, int kind);
int SystemConfig_NvrChannelAddChannel_MessageAnalysis(Message& message, void** result);

} // namespace zel

#endif
