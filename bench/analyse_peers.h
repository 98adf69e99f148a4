// Analysing by hand, over each XML library in the way its manual shows.
//
// Each finds the closing tag, terminates the text there, parses it once, reads the header, chooses by type
// and code, and fills a record in a block from malloc; 0, or -1. As in the library, the payload itself is
// otherwise left as it is: a parser that works in place gets a copy.
#ifndef ZEL_BENCH_ANALYSE_PEERS_H
#define ZEL_BENCH_ANALYSE_PEERS_H

#include "zel_protocol/zel_protocol.h"

namespace bench {

int analyseWithPugixml(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result);
int analyseWithTinyxml2(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result);
int analyseWithRapidxml(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result);
int analyseWithLibxml2(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result);

// Fills new blocks with ones, as the library does, so that whole blocks can be compared. Off while time is
// taken.
extern bool fillNewBlocks;

} // namespace bench

#endif
