// Failing memory in the calls that take more than a record: deciphering, enciphering and the repaired copy.
// The catalogue's own test walks through the plain ones.
#include <gtest/gtest.h>

#include "security/cost.h"
#include "support/catalogue.h"
#include "support/wire.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

constexpr int kFrameSize = 1 << 17;

ZEL_PLATFORM_KEY testKey()
{
    ZEL_PLATFORM_KEY key;
    memset(key.bytes, 0x5A, sizeof key.bytes);
    return key;
}

int analyseInto(std::string payload, int mode, void* arg, void*& result)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    return ZelProtocolMSGAnalysisStart(payload.data(), static_cast<int>(payload.size()), mode, arg, &header,
                                       &result);
}

// Fails each block in turn until the analysis succeeds. Returns how many there were.
int expectEachFails(const std::string& payload, int mode, void* arg, int Memory::*left, int status)
{
    for (int failed = 0; failed < 64; ++failed) {
        int slot = 0;
        void* result = &slot;
        memory() = {};
        memory().*left = failed;
        const int got = analyseInto(payload, mode, arg, result);
        memory() = {};
        if (got == 0) {
            if (result != &slot)
                ZelProtocolMSGAnalysisStop(&result);
            return failed;
        }
        EXPECT_EQ(got, status);
        EXPECT_EQ(result, &slot);
    }
    ADD_FAILURE() << "no end of blocks";
    return -1;
}

class FailingMemory : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        keepMemory();
        ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    }
    static void TearDownTestSuite()
    {
        ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
    }
};

TEST_F(FailingMemory, EncipheredBothWays)
{
    ZEL_PLATFORM_KEY key = testKey();
    for (const CatalogueEntry& entry : catalogue()) {
        if (entry.isBare())
            continue;
        const ZEL_PROTOCOL_HEADER header = catalogueHeader(entry);
        const RecordBytes record = fullRecord(entry);
        for (const int mode : {0, 1}) {
            memory() = {};
            memory().libraryBlocks = 0;
            EXPECT_EQ(test::compose(header, record.data(), 0, kFrameSize, mode, mode ? &key : nullptr).result,
                      ZEL_ERR_NO_MEMORY)
                << entry.name();
            memory() = {};
            const Composed frame =
                test::compose(header, record.data(), 0, kFrameSize, mode, mode ? &key : nullptr);
            EXPECT_EQ(memory().blocks, 1) << entry.name();
            ASSERT_GT(frame.result, 0) << entry.name();

            void* result = nullptr;
            const int good = analyseInto(frame.text, mode, &key, result);
            const bool hasRecord = result != nullptr;
            ZelProtocolMSGAnalysisStop(&result);
            if (good != 0)
                continue;
            const int scratch = 2 * frame.text.size() > 8192 ? 1 : 0;
            EXPECT_EQ(expectEachFails(frame.text, mode, &key, &Memory::libraryBlocks, ZEL_ERR_NO_MEMORY),
                      scratch + (hasRecord ? 1 : 0))
                << entry.name();
            EXPECT_GE(expectEachFails(frame.text, mode, &key, &Memory::readerBlocks, ZEL_ERR_NO_HEADER), 1)
                << entry.name();
        }
    }
}

TEST_F(FailingMemory, RepairedCopy)
{
    const auto unquoted = [](size_t blanks) {
        std::string text = envelope("SYSTEM_CONFIG_GET_MESSAGE", "3803",
                                    "<!--501-->" + std::string(blanks, ' ') + "<ChannelInfo ChannelId=3/>");
        return text;
    };
    EXPECT_EQ(expectEachFails(unquoted(10), -1, nullptr, &Memory::libraryBlocks, ZEL_ERR_NO_MEMORY), 1);
    EXPECT_EQ(expectEachFails(unquoted(9000), -1, nullptr, &Memory::libraryBlocks, ZEL_ERR_NO_MEMORY), 2);
    EXPECT_GE(expectEachFails(unquoted(9000), -1, nullptr, &Memory::readerBlocks, ZEL_ERR_NO_HEADER), 1);
}

TEST_F(FailingMemory, Transparent)
{
    const std::string text = "<XML_ZELMAR><TRANSPARENT_HEADER/><MESSAGE_HEADER/></XML_ZELMAR>";
    int slot = 0;
    void* result = &slot;
    memory() = {};
    memory().libraryBlocks = 0;
    EXPECT_EQ(analyseInto(text, -1, nullptr, result), ZEL_ERR_NO_MEMORY);
    EXPECT_EQ(result, &slot);
    memory() = {};
}

} // namespace
