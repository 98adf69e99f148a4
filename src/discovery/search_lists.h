// What the messages of the search have in common.
#ifndef ZEL_DISCOVERY_SEARCH_LISTS_H
#define ZEL_DISCOVERY_SEARCH_LISTS_H

#include "core/elements.h"
#include "zel_protocol/searchipc.h"

namespace zel {

void vendorParam(Side& side, char (&vendorId)[40]);

void lanAddresses(Side& side, SYSTEM_SEARCHIPC_LAN_CONFIG& lan);
void lanAddressesAndNames(Side& side, SYSTEM_SEARCHIPC_LAN_CONFIG& lan);
void clearLanTexts(SYSTEM_SEARCHIPC_LAN_CONFIG& lan);

enum class StreamForm
{
    kPorts,
    kWithClients
};
void mediaStreamConfig(Side& side, SYSTEM_SEARCHIPC_STREAM_ACCESS& stream, StreamForm form);

} // namespace zel

#endif
