#include "services.h"

#include <sanitizer/allocator_interface.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "require.h"
#include "zel_platform/log.h"
#include "zel_platform/memory.h"
#include "zel_platform/xml_memory.h"

namespace fuzz {

namespace {

thread_local bool watching = false;
Memory memory;
Supply left;
uint8_t blockFill = 0;

void noteTaken(const volatile void*, size_t size)
{
    if (!watching)
        return;
    ++memory.live;
    memory.bytes += size;
    memory.highest = std::max(memory.highest, memory.bytes);
}

void noteGivenBack(const volatile void* block)
{
    if (!watching || !block)
        return;
    --memory.live;
    memory.bytes -= __sanitizer_get_allocated_size(const_cast<const void*>(block));
}

bool isGranted(int& supply)
{
    if (supply == 0) {
        memory.refused = true;
        return false;
    }
    if (supply > 0)
        --supply;
    return true;
}

__attribute__((format(printf, 1, 0))) void readArguments(const char* format, va_list arguments)
{
    char line[4096];
    vsnprintf(line, sizeof line, format, arguments);
}

} // namespace

void startWatching(const Supply& supply)
{
    static const bool isHooked = __sanitizer_install_malloc_and_free_hooks(noteTaken, noteGivenBack) != 0;
    require(isHooked, "the fuzzer sees the heap");
    memory = {};
    left = supply;
    watching = true;
}

Memory stopWatching()
{
    watching = false;
    left = {};
    return memory;
}

void setBlockFill(uint8_t fill)
{
    blockFill = fill;
}

} // namespace fuzz

void* ZelProtocolMalloc(size_t size)
{
    if (!fuzz::isGranted(fuzz::left.library))
        return nullptr;
    ++fuzz::memory.taken;
    void* block = malloc(size);
    if (block)
        memset(block, fuzz::blockFill, size);
    return block;
}

void ZelProtocolFree(void* block)
{
    free(block);
}

void* ZelXMLMalloc(size_t size)
{
    void* block = fuzz::isGranted(fuzz::left.reader) ? malloc(size) : nullptr;
    if (block)
        memset(block, fuzz::blockFill, size);
    return block;
}

void ZelXMLFree(void* block)
{
    free(block);
}

void ZelProtocolLogDebug(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    fuzz::readArguments(format, arguments);
    va_end(arguments);
}

void ZelProtocolLogInfo(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    fuzz::readArguments(format, arguments);
    va_end(arguments);
}

void ZelProtocolLogError(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    fuzz::readArguments(format, arguments);
    va_end(arguments);
}
