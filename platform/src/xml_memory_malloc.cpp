/*
 * Memory of the XML reader: the standard allocator.
 */
#include <cstdlib>

#include "zel_platform/xml_memory.h"

void* ZelXMLMalloc(size_t size)
{
    return std::malloc(size);
}

void ZelXMLFree(void* block)
{
    std::free(block);
}
