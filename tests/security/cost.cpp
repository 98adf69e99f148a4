#include "security/cost.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>

#include <gtest/gtest.h>
#include <malloc.h>

#include "zel_platform/memory.h"
#include "zel_platform/xml_memory.h"
#include "zel_protocol/zel_protocol.h"

namespace test {

namespace {

// The stated multiple of docs/security.md.
constexpr size_t kBytesForEach = 16;
constexpr size_t kBytesAtLeast = 256 * 1024;

// Below this a clock and a cold cache tell more than the analysis does.
constexpr double kLeastSeconds = 50e-6;

bool taken(int& left)
{
    if (left == 0)
        return false;
    if (left > 0)
        --left;
    return true;
}

double processorSeconds()
{
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

} // namespace

Memory& memory()
{
    thread_local Memory all;
    return all;
}

void keepMemory()
{
    // Memory that goes back to the system with each call costs more than the analysis, and not in proportion.
    mallopt(M_MMAP_MAX, 0);
    mallopt(M_TRIM_THRESHOLD, 1 << 30);
    mallopt(M_TOP_PAD, 64 << 20);
}

Cost costOf(const std::string& payload, int mode, void* arg, int repetitions)
{
    const auto bytes = std::make_unique<char[]>(payload.size());
    Cost cost{1e9, 0, 0};
    for (int i = 0; i < repetitions; ++i) {
        memcpy(bytes.get(), payload.data(), payload.size());
        ZEL_PROTOCOL_HEADER header;
        ZEL_PROTOCOL_HEADER_init(&header);
        void* record = nullptr;
        memory() = {};
        const double begin = processorSeconds();
        cost.result = ZelProtocolMSGAnalysisStart(bytes.get(), static_cast<int>(payload.size()), mode, arg,
                                                  &header, &record);
        ZelProtocolMSGAnalysisStop(&record);
        cost.seconds = std::min(cost.seconds, processorSeconds() - begin);
        cost.bytes = memory().bytes;
    }
    return cost;
}

bool isWithinMultiple(size_t bytes, size_t length)
{
    return bytes <= kBytesForEach * length + kBytesAtLeast;
}

bool isSlower(const Cost& small, const Cost& large)
{
    return large.seconds >= 8 * std::max(small.seconds, kLeastSeconds);
}

void compareCosts(const Cost& small, const Cost& large, size_t smallLength, size_t largeLength)
{
    EXPECT_FALSE(isSlower(small, large)) << small.seconds << " s, " << large.seconds << " s";
    EXPECT_LT(large.bytes, 5 * std::max(small.bytes, kBytesAtLeast)) << small.bytes;
    EXPECT_TRUE(isWithinMultiple(small.bytes, smallLength)) << small.bytes << " for " << smallLength;
    EXPECT_TRUE(isWithinMultiple(large.bytes, largeLength)) << large.bytes << " for " << largeLength;
    EXPECT_EQ(small.result, large.result);
}

namespace {

void* takeBlock(size_t size)
{
    Memory& taken = memory();
    void* const block = malloc(size);
    taken.requested += size;
    taken.inUse += malloc_usable_size(block);
    taken.bytes = std::max(taken.bytes, taken.inUse);
    return block;
}

void giveBack(void* block)
{
    memory().inUse -= malloc_usable_size(block);
    free(block);
}

} // namespace

} // namespace test

void* ZelProtocolMalloc(size_t size)
{
    test::Memory& memory = test::memory();
    if (!test::taken(memory.libraryBlocks))
        return nullptr;
    ++memory.blocks;
    return test::takeBlock(size);
}

void ZelProtocolFree(void* block)
{
    test::Memory& memory = test::memory();
    if (block && memory.secret &&
        memmem(block, malloc_usable_size(block), memory.secret, strlen(memory.secret)))
        ++memory.revealed;
    test::giveBack(block);
}

void* ZelXMLMalloc(size_t size)
{
    test::Memory& memory = test::memory();
    if (!test::taken(memory.readerBlocks))
        return nullptr;
    return test::takeBlock(size);
}

void ZelXMLFree(void* block)
{
    test::giveBack(block);
}
