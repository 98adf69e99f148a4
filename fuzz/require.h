// How a fuzzer tells of a broken promise, and how it reads its input.
#ifndef ZEL_FUZZ_REQUIRE_H
#define ZEL_FUZZ_REQUIRE_H

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size);

namespace fuzz {

inline void require(bool kept, const char* promise)
{
    if (kept)
        return;
    fprintf(stderr, "BROKEN PROMISE: %s\n", promise);
    abort();
}

// Numbers from the front of the input; zero behind its end.
struct Input
{
    const uint8_t* data;
    size_t size;

    uint8_t byte()
    {
        if (size == 0)
            return 0;
        --size;
        return *data++;
    }

    uint16_t word()
    {
        const uint8_t low = byte();
        return static_cast<uint16_t>(low | byte() << 8);
    }

    std::string bytes(size_t count)
    {
        count = std::min(count, size);
        const std::string taken(reinterpret_cast<const char*>(data), count);
        data += count;
        size -= count;
        return taken;
    }

    std::string rest()
    {
        return bytes(size);
    }
};

} // namespace fuzz

#endif
