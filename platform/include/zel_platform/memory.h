/**
 * Memory service: the allocator behind every block that the codec library takes.
 *
 * An application replaces it by defining both functions itself. They may be called from several threads at
 * once.
 */
#ifndef ZEL_PLATFORM_MEMORY_H
#define ZEL_PLATFORM_MEMORY_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Takes a block of `size` bytes, aligned as malloc aligns. It needs no clearing.
 *
 * A block that holds a result is given back with the standard `free` (by ZelProtocolMSGAnalysisStop), so it
 * must be memory that `free` accepts.
 *
 * @return the block, or NULL when there is none.
 */
void* ZelProtocolMalloc(size_t size);

/** Gives back a work block of the library. NULL is allowed. Results never come here. */
void ZelProtocolFree(void* block);

#ifdef __cplusplus
}
#endif

#endif
