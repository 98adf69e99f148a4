#include "control/channel_state.h"

#include "core/attributes.h"
#include "core/scan.h"

namespace zel {

void channelStateAttribute(Side& side, int32_t& channel, int32_t& isThere)
{
    if (side.writes()) {
        if (side.takes(isSet(channel)))
            attribute(side, "ChannelId", channel);
        else if (isSet(isThere))
            appendRaw(side, "ChannelId=\"\"\n");
        return;
    }
    std::string_view value;
    if (!readValue(side, "ChannelId", ZEL_FORM_NUMBER, &channel, sizeof channel, value))
        return;
    isThere = 1;
    if (!value.empty())
        channel = numberOf(value);
}

} // namespace zel
