// The two header elements of a received message.
#ifndef ZEL_CORE_HEADER_H
#define ZEL_CORE_HEADER_H

#include "core/message.h"

namespace zel {

int GetMessageHeader(Message& message, ZEL_PROTOCOL_HEADER& header);

// ZEL_ERR_NO_ELEMENT is the normal case and isn't logged.
int findTransparentHeader(Message& message, ElementReader& element);
void readTransparentHeader(const ElementReader& element, TRANSPARENT_HEADER& header);

} // namespace zel

#endif
