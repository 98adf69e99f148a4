#include "zel_platform/default_layer.h"
#include "zel_platform/log.h"

#include <cerrno>
#include <string>

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
