// What an analysis costs: processor time, and every byte that the library and its XML reader take.
#ifndef ZEL_TESTS_SECURITY_COST_H
#define ZEL_TESTS_SECURITY_COST_H

#include <cstddef>
#include <string>

namespace test {

// The services of this test program count what they hand out, and may fail.
struct Memory
{
    size_t bytes = 0; // in use at once, at most, since the last reset
    size_t inUse = 0;
    size_t requested = 0;   // in all blocks together
    int blocks = 0;         // of the library
    int libraryBlocks = -1; // that still succeed; below zero: all
    int readerBlocks = -1;  // of the XML reader, likewise

    const char* secret = nullptr; // to look for in what the library gives back
    int revealed = 0;             // blocks that had it
};

// Of this thread.
Memory& memory();

// Keeps memory with the process, so that times tell of the analysis. Once for each test program.
void keepMemory();

struct Cost
{
    double seconds; // the least of several analyses
    size_t bytes;   // in use at once during one analysis, at most
    int result;
};

// Analyses a text with its raw data `repetitions` times.
Cost costOf(const std::string& payload, int mode, void* arg, int repetitions);

// Expects that the analysis of make(4 * n) takes less than 8 times as long as that of make(n), and less than
// 5 times as much memory; that the memory is within the stated multiple of the length; and returns the
// result, the same for both.
template <class Make>
int expectLinear(Make make, size_t n, int mode = -1, void* arg = nullptr);

// Tells whether so much may be taken for a payload of that length.
bool isWithinMultiple(size_t bytes, size_t length);

void compareCosts(const Cost& small, const Cost& large, size_t smallLength, size_t largeLength);
bool isSlower(const Cost& small, const Cost& large);

template <class Make>
int expectLinear(Make make, size_t n, int mode, void* arg)
{
    const std::string small = make(n);
    const std::string large = make(4 * n);
    Cost smallCost = costOf(small, mode, arg, 3);
    Cost largeCost = costOf(large, mode, arg, 3);
    // What else this machine does only ever adds time: measure again before saying that it grows too fast.
    for (int again = 0; again < 40 && isSlower(smallCost, largeCost); ++again) {
        const Cost least = costOf(large, mode, arg, 3);
        if (least.seconds < largeCost.seconds)
            largeCost.seconds = least.seconds;
    }
    compareCosts(smallCost, largeCost, small.size(), large.size());
    return largeCost.result;
}

} // namespace test

#endif
