#include "support/services.h"

#include <cstdarg>
#include <cstdio>
#include <cstdlib>

#include "zel_platform/log.h"
#include "zel_platform/memory.h"
#include "zel_platform/xml_memory.h"

namespace test {

Services& services()
{
    thread_local Services all;
    return all;
}

void resetServices()
{
    services() = {};
}

bool loggedOnly(const std::string& text)
{
    const bool only = services().errors == std::vector<std::string>{text};
    services().errors.clear();
    return only;
}

namespace {

__attribute__((format(printf, 2, 0))) void keep(std::vector<std::string>& lines, const char* format,
                                                va_list arguments)
{
    va_list again;
    va_copy(again, arguments);
    const int length = vsnprintf(nullptr, 0, format, again);
    va_end(again);
    std::string line(static_cast<size_t>(length) + 1, '\0');
    vsnprintf(line.data(), line.size(), format, arguments);
    line.pop_back();
    lines.push_back(line);
}

} // namespace

} // namespace test

void* ZelProtocolMalloc(size_t size)
{
    test::Services& services = test::services();
    if (services.failAfter == 0)
        return nullptr;
    if (services.failAfter > 0)
        --services.failAfter;
    ++services.blocks;
    ++services.held;
    return malloc(size);
}

void ZelProtocolFree(void* block)
{
    if (block)
        --test::services().held;
    free(block);
}

void* ZelXMLMalloc(size_t size)
{
    test::Services& services = test::services();
    if (services.readerFailAfter == 0)
        return nullptr;
    if (services.readerFailAfter > 0)
        --services.readerFailAfter;
    ++services.readerBlocks;
    return malloc(size);
}

void ZelXMLFree(void* block)
{
    --test::services().readerBlocks;
    free(block);
}

void ZelProtocolLogDebug(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    test::keep(test::services().debugs, format, arguments);
    va_end(arguments);
}

void ZelProtocolLogInfo(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    test::keep(test::services().infos, format, arguments);
    va_end(arguments);
}

void ZelProtocolLogError(const char* format, ...)
{
    va_list arguments;
    va_start(arguments, format);
    test::keep(test::services().errors, format, arguments);
    va_end(arguments);
}
