/**
 * Memory of the default XML reader.
 *
 * An application replaces it by defining both functions itself. They may be called from several threads at
 * once. An application that brings an XML service of its own doesn't need them.
 */
#ifndef ZEL_PLATFORM_XML_MEMORY_H
#define ZEL_PLATFORM_XML_MEMORY_H

#include <stddef.h>

#ifdef __cplusplus
extern "C" {
#endif

/**
 * Takes a block of `size` bytes, aligned as malloc aligns. It needs no clearing. The reader takes one for
 * each text, and gives it back before the call of the library that took it returns.
 *
 * @return the block, or NULL when there is none.
 */
void* ZelXMLMalloc(size_t size);

/** Gives a block back. NULL is allowed. */
void ZelXMLFree(void* block);

#ifdef __cplusplus
}
#endif

#endif
