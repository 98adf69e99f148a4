/*
 * Memory service on the standard allocator.
 */
#include "zel_platform/memory.h"

#include <cstdlib>

void* ZelProtocolMalloc(size_t size)
{
    return std::malloc(size);
}

void ZelProtocolFree(void* block)
{
    std::free(block);
}
