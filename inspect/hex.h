/**
 * Bytes out of their hexadecimal digits: the dumps of xxd, hexdump -C, od and tcpdump -x, those that a
 * network analyser exports, and plain digits as in a log or a source.
 */
#ifndef ZEL_INSPECT_HEX_H
#define ZEL_INSPECT_HEX_H

#include <string_view>

#include "inspect/input.h"

namespace inspect {

// Whether this is how a hex dump begins.
bool isHexDump(std::string_view beginning);

// Packets in a dump are taken as those of a capture. Damage is told with its line.
void readHex(Input& input, const Receive& receive);

} // namespace inspect

#endif
