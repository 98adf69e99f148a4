// Composing by hand: peers that print text, and one that builds a tree.
//
// Each makes the whole frame in `out` and returns its length, or -1 when there is no room.
#ifndef ZEL_BENCH_COMPOSE_PEERS_H
#define ZEL_BENCH_COMPOSE_PEERS_H

#include "samples.h"

namespace bench {

int composeWithSnprintf(const Sample& sample, char* out, size_t size);
int composeWithFmt(const Sample& sample, char* out, size_t size);
int composeWithCompiledFmt(const Sample& sample, char* out, size_t size);
int composeWithPugixml(const Sample& sample, char* out, size_t size);

} // namespace bench

#endif
