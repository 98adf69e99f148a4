#include "zel_platform/default_layer.h"
#include "zel_platform/log.h"

#include <cerrno>
#include <chrono>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

#include <gtest/gtest.h>
#include <unistd.h>

namespace {

/* What one call of each function prints at a level. */
std::string printedAt(ZEL_PLATFORM_LOG_LEVEL level)
{
    ZelPlatformSetLogLevel(level);
    testing::internal::CaptureStderr();
    ZelProtocolLogDebug("d %d\n", 1);
    ZelProtocolLogInfo("i %s\n", "two");
    ZelProtocolLogError("e %u", 3U);
    const std::string printed = testing::internal::GetCapturedStderr();
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
    return printed;
}

std::string printedError(const char* text)
{
    testing::internal::CaptureStderr();
    ZelProtocolLogError("%s", text);
    return testing::internal::GetCapturedStderr();
}

} // namespace

TEST(Log, OnlyErrorsAreThereAtTheStart)
{
    testing::internal::CaptureStderr();
    ZelProtocolLogDebug("d");
    ZelProtocolLogInfo("i");
    ZelProtocolLogError("e");
    EXPECT_EQ("zel error: e\n", testing::internal::GetCapturedStderr());
}

TEST(Log, EachLevelPrintsItselfAndWhatIsGraver)
{
    EXPECT_EQ("", printedAt(ZEL_PLATFORM_LOG_NONE));
    EXPECT_EQ("zel error: e 3\n", printedAt(ZEL_PLATFORM_LOG_ERRORS));
    EXPECT_EQ("zel info: i two\nzel error: e 3\n", printedAt(ZEL_PLATFORM_LOG_INFO));
    EXPECT_EQ("zel debug: d 1\nzel info: i two\nzel error: e 3\n", printedAt(ZEL_PLATFORM_LOG_DEBUG));
}

TEST(Log, AWholeMessageIsNeverPrinted)
{
    const char* const message = "Password=\"secret\"";
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_DEBUG);
    testing::internal::CaptureStderr();
    ZelProtocolLogDebug("msgbuf:%s", message);
    ZelProtocolLogInfo("put msglen:%d msgbuf:%s \n", 17, message);
    ZelProtocolLogError("get msgbuf:%s\n", message);
    const std::string printed = testing::internal::GetCapturedStderr();
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
    EXPECT_EQ("zel debug: message text withheld\nzel info: message text withheld\n"
              "zel error: message text withheld\n",
              printed);
}

TEST(Log, LongTextsAreCutAndLinesCannotBeForged)
{
    EXPECT_EQ("zel error: " + std::string(1024 - 11 - 1, 'x') + "\n",
              printedError(std::string(5000, 'x').c_str()));
    EXPECT_EQ("zel error: a?zel error: b?[31m?\n", printedError("a\nzel error: b\x1B[31m\x7F\n"));
    EXPECT_EQ("zel error: a??31m\n", printedError("a\xC2\x9B"
                                                  "31m\n"));
    EXPECT_EQ("zel error: \n", printedError(""));
}

// Whatever the threads and the clock do, each line is printed or counted as left out.
TEST(Log, EachSecondHasItsLimitAndNoLineGetsLost)
{
    constexpr int kThreads = 8;
    constexpr int kLines = 500;
    constexpr int kLimit = 40;
    // The lines of other tests are in another second.
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    ZelPlatformSetLogLimit(kLimit);
    testing::internal::CaptureStderr();
    ZelProtocolLogError("begin");
    const auto begin = std::chrono::steady_clock::now();
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t)
        threads.emplace_back([] {
            for (int i = 0; i < kLines; ++i)
                ZelProtocolLogError("line %d", i);
        });
    for (std::thread& thread : threads)
        thread.join();
    const auto seconds =
        std::chrono::duration_cast<std::chrono::seconds>(std::chrono::steady_clock::now() - begin).count();
    std::this_thread::sleep_for(std::chrono::milliseconds(1100));
    ZelProtocolLogError("end");
    std::istringstream printed(testing::internal::GetCapturedStderr());
    ZelPlatformSetLogLimit(100);

    int lines = 0;
    int leftOut = 0;
    std::string last;
    for (std::string line; std::getline(printed, line); last = line) {
        int count = 0;
        lines += line.find("zel error: line ") == 0;
        if (sscanf(line.c_str(), "zel error: %d lines left out", &count) == 1)
            leftOut += count;
    }
    EXPECT_EQ(lines + leftOut, kThreads * kLines);
    EXPECT_GT(lines, 0);
    EXPECT_LE(lines, kLimit * (seconds + 2));
    EXPECT_EQ(last, "zel error: end");
}

TEST(Log, ALimitOfNoneLetsEverythingThrough)
{
    ZelPlatformSetLogLimit(0);
    testing::internal::CaptureStderr();
    for (int i = 0; i < 1000; ++i)
        ZelProtocolLogError("x");
    const std::string printed = testing::internal::GetCapturedStderr();
    ZelPlatformSetLogLimit(100);
    EXPECT_EQ(printed.size(), 1000 * std::string("zel error: x\n").size());
}

TEST(Log, LeavesErrnoAloneWhenNobodyListens)
{
    const int kept = dup(STDERR_FILENO);
    ASSERT_GE(kept, 0);
    close(STDERR_FILENO);
    errno = EDOM;
    ZelProtocolLogError("%s", "x");
    const int after = errno;
    dup2(kept, STDERR_FILENO);
    close(kept);
    EXPECT_EQ(EDOM, after);
}
