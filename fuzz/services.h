// The memory and log services of the fuzzers. They see every block of the heap that a call takes and gives
// back, the XML reader's included, refuse blocks on demand, and read every argument of a log text.
#ifndef ZEL_FUZZ_SERVICES_H
#define ZEL_FUZZ_SERVICES_H

#include <cstddef>
#include <cstdint>

namespace fuzz {

// What the library did since startWatching.
struct Memory
{
    int taken = 0;      // blocks of ZelProtocolMalloc
    int live = 0;       // blocks of any allocator that weren't given back
    size_t bytes = 0;   // in live blocks
    size_t highest = 0; // most bytes at any time
    bool refused = false;
};

// Blocks that the next watched call gets before it is refused one; below zero: all that it wants.
struct Supply
{
    int library = -1;
    int reader = -1;
};

// Nothing else may use the heap between these two.
void startWatching(const Supply& supply);
Memory stopWatching();

// The byte that new library blocks are filled with.
void setBlockFill(uint8_t fill);

} // namespace fuzz

#endif
