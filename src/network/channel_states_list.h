// The states of a recorder's channels, which are asked for and reported in the same form.
#ifndef ZEL_NETWORK_CHANNEL_STATES_LIST_H
#define ZEL_NETWORK_CHANNEL_STATES_LIST_H

#include "core/elements.h"

namespace zel {

// Texts that nobody here looks into, each an element of the body.
template <class Record>
void channelStates(Side& side, Record& record)
{
    textElementIfSet(side, "Ipcs_stat", record.Ipcs_stat);
    textElementIfSet(side, "streamstat", record.streamstat);
    textElementIfSet(side, "IpcAbility1", record.IpcAbility1);
    textElementIfSet(side, "IpcProtoCol", record.IpcProtoCol);
    textElementIfSet(side, "ChnFeature", record.ChnFeature);
    textElementIfSet(side, "ChnDevbind", record.ChnDevbind);
}

} // namespace zel

#endif
