/*
 * Log service on standard error: one line and one write for each call.
 */
#include "zel_platform/default_layer.h"
#include "zel_platform/log.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include <unistd.h>

namespace {

constexpr std::size_t kLineBytes = 1024;

std::atomic<int> highestLevel{ZEL_PLATFORM_LOG_ERRORS};

bool isPrinted(ZEL_PLATFORM_LOG_LEVEL level) noexcept
{
    return level <= highestLevel.load(std::memory_order_relaxed);
}

#if defined(__GNUC__)
__attribute__((format(printf, 2, 0)))
#endif
void printLine(const char* prefix, const char* format, va_list arguments) noexcept
{
    const int callersErrno = errno;
    char line[kLineBytes];
    const std::size_t start = std::strlen(prefix);
    std::memcpy(line, prefix, start);
    const std::size_t room = sizeof line - start;

    /* The line feed takes the terminator's place. */
    std::size_t length = 0;
    if (std::strstr(format, "msgbuf:")) {
        constexpr char kNote[] = "message text withheld";
        length = sizeof kNote - 1;
        std::memcpy(line + start, kNote, length);
    } else {
        const int wanted = std::vsnprintf(line + start, room, format, arguments);
        if (wanted > 0)
            length = static_cast<std::size_t>(wanted) < room ? static_cast<std::size_t>(wanted) : room - 1;
    }
    length += start;
    while (length > start && line[length - 1] == '\n')
        --length;

    /* Arguments come from the network: they must not drive a terminal or forge a line. */
    for (std::size_t i = start; i < length; ++i) {
        const auto c = static_cast<unsigned char>(line[i]);
        if (c < 0x20 || c >= 0x7F)
            line[i] = '?';
    }
    line[length++] = '\n';
    const ssize_t written = write(STDERR_FILENO, line, length);
    static_cast<void>(written);
    errno = callersErrno;
}

} // namespace

void ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_LEVEL level)
{
    highestLevel.store(level, std::memory_order_relaxed);
}

void ZelProtocolLogDebug(const char* format, ...)
{
    if (!isPrinted(ZEL_PLATFORM_LOG_DEBUG))
        return;
    va_list arguments;
    va_start(arguments, format);
    printLine("zel debug: ", format, arguments);
    va_end(arguments);
}

void ZelProtocolLogInfo(const char* format, ...)
{
    if (!isPrinted(ZEL_PLATFORM_LOG_INFO))
        return;
    va_list arguments;
    va_start(arguments, format);
    printLine("zel info: ", format, arguments);
    va_end(arguments);
}

void ZelProtocolLogError(const char* format, ...)
{
    if (!isPrinted(ZEL_PLATFORM_LOG_ERRORS))
        return;
    va_list arguments;
    va_start(arguments, format);
    printLine("zel error: ", format, arguments);
    va_end(arguments);
}
