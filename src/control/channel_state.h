// A channel that has three states: a number, there but without one, and absent.
#ifndef ZEL_CONTROL_CHANNEL_STATE_H
#define ZEL_CONTROL_CHANNEL_STATE_H

#include "core/attributes.h"

namespace zel {

inline void channelStateAttribute(TextWriter& out, const int32_t& channel, const int32_t& isThere)
{
    if (isSet(channel))
        attribute(out, "ChannelId", channel);
    else if (isSet(isThere))
        out.append("ChannelId=\"\"\n");
}

inline void channelStateAttribute(const ElementReader& in, int32_t& channel, int32_t& isThere)
{
    if (const char* value = in.value("ChannelId")) {
        isThere = 1;
        if (*value)
            channel = numberOf(value);
    }
}

} // namespace zel

#endif
