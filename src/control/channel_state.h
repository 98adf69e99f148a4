// A channel that has three states: a number, there but without one, and absent.
#ifndef ZEL_CONTROL_CHANNEL_STATE_H
#define ZEL_CONTROL_CHANNEL_STATE_H

#include "core/side.h"

namespace zel {

void channelStateAttribute(Side& side, int32_t& channel, int32_t& isThere);

} // namespace zel

#endif
