// Work memory of one call: on the stack where it fits, else a block that goes back with it. What was in it, a
// deciphered text say, is wiped before.
#ifndef ZEL_CORE_SCRATCH_H
#define ZEL_CORE_SCRATCH_H

#include <cstddef>
#include <cstring>

#include "zel_platform/log.h"
#include "zel_platform/memory.h"

namespace zel {

// The compiler would leave out a plain memset of what nobody reads any more.
inline void wipe(char* bytes, size_t size)
{
    memset(bytes, 0, size);
    __asm__ __volatile__("" : : "r"(bytes) : "memory");
}

struct Scratch
{
    // Without memory for it `bytes` is null, which has been logged.
    explicit Scratch(size_t wanted)
        : bytes(wanted <= kOnStack ? onStack : static_cast<char*>(ZelProtocolMalloc(wanted))),
          size(wanted <= kOnStack ? kOnStack : wanted)
    {
        if (!bytes)
            ZelProtocolLogError("ZelProtocolMalloc faile!!\n");
    }
    ~Scratch()
    {
        if (bytes)
            wipe(bytes, size);
        if (bytes != onStack)
            ZelProtocolFree(bytes);
    }
    Scratch(const Scratch&) = delete;
    Scratch& operator=(const Scratch&) = delete;

    static constexpr size_t kOnStack = 8192;
    char onStack[kOnStack];
    char* const bytes;
    const size_t size;
};

} // namespace zel

#endif
