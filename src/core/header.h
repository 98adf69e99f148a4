// The two header elements of a message.
#ifndef ZEL_CORE_HEADER_H
#define ZEL_CORE_HEADER_H

#include "core/rows.h"

namespace zel {

extern const MessageRow kTransparent;

void messageHeader(Side& side, ZEL_PROTOCOL_HEADER& header);
void transparentHeader(Side& side, TRANSPARENT_HEADER& header);

int GetMessageHeader(Message& message, ZEL_PROTOCOL_HEADER& header);

// ZEL_ERR_NO_ELEMENT is the normal case and isn't logged.
int findTransparentHeader(Message& message, ElementReader& element);
void readTransparentHeader(const ElementReader& element, TRANSPARENT_HEADER& header);

} // namespace zel

#endif
