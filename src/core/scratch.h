// Work memory of one call: on the stack where it fits, else a block that goes back with it.
#ifndef ZEL_CORE_SCRATCH_H
#define ZEL_CORE_SCRATCH_H

#include <cstddef>

#include "zel_platform/log.h"
#include "zel_platform/memory.h"

namespace zel {

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
