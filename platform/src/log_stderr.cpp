/*
 * Log service on standard error: one line and one write for each call, up to a number of lines in each
 * second.
 */
#include "zel_platform/default_layer.h"
#include "zel_platform/log.h"

#include <atomic>
#include <cerrno>
#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <cstring>

#include <time.h>
#include <unistd.h>

namespace {

constexpr std::size_t kLineBytes = 1024;

std::atomic<int> highestLevel{ZEL_PLATFORM_LOG_ERRORS};

/* Peers cause lines as fast as they send: without a limit they fill a disk. 0: none. */
std::atomic<unsigned> mostLines{100};

/* What is counted, and in which second of the steady clock. */
std::atomic<unsigned> linesAsked{0};
std::atomic<unsigned> secondOfLines{0};

bool isPrinted(ZEL_PLATFORM_LOG_LEVEL level) noexcept
{
    return level <= highestLevel.load(std::memory_order_relaxed);
}

unsigned currentSecond() noexcept
{
    timespec now{};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return static_cast<unsigned>(now.tv_sec);
}

/*
 * Counts a line. Exact without a lock: the one thread that begins a second takes the count of the last one
 * with it, so each line is counted once, in whichever second. Sets leftOut to it.
 */
bool isWithinLimit(unsigned& leftOut) noexcept
{
    const unsigned most = mostLines.load(std::memory_order_relaxed);
    if (most == 0)
        return true;
    const unsigned now = currentSecond();
    unsigned last = secondOfLines.load(std::memory_order_relaxed);
    if (static_cast<int>(now - last) > 0 && secondOfLines.compare_exchange_strong(last, now)) {
        const unsigned asked = linesAsked.exchange(0);
        leftOut = asked > most ? asked - most : 0;
    }
    return linesAsked.fetch_add(1) < most;
}

void writeLine(char* line, std::size_t length) noexcept
{
    line[length++] = '\n';
    const ssize_t written = write(STDERR_FILENO, line, length);
    static_cast<void>(written);
}

#if defined(__GNUC__)
__attribute__((format(printf, 2, 0)))
#endif
void printLine(const char* prefix, const char* format, va_list arguments) noexcept
{
    const int callersErrno = errno;
    char line[kLineBytes];
    unsigned leftOut = 0;
    const bool isWithin = isWithinLimit(leftOut);
    if (leftOut != 0)
        writeLine(line, static_cast<std::size_t>(
                            std::snprintf(line, sizeof line, "zel error: %u lines left out", leftOut)));
    if (!isWithin) {
        errno = callersErrno;
        return;
    }
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
    writeLine(line, length);
    errno = callersErrno;
}

} // namespace

void ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_LEVEL level)
{
    highestLevel.store(level, std::memory_order_relaxed);
}

void ZelPlatformSetLogLimit(int linesInASecond)
{
    mostLines.store(linesInASecond > 0 ? static_cast<unsigned>(linesInASecond) : 0,
                    std::memory_order_relaxed);
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
