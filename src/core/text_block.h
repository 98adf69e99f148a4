// Texts that end at a terminator or at their field's end, sixteen bytes at a time: most are short.
#ifndef ZEL_CORE_TEXT_BLOCK_H
#define ZEL_CORE_TEXT_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <cstring>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace zel {

constexpr size_t kBlock = 16;

// Moves a block. Returns how many of its bytes stand in front of its terminator.
inline size_t moveBlock(char* to, const char* from)
{
#if defined(__SSE2__)
    const __m128i bytes = _mm_loadu_si128(reinterpret_cast<const __m128i_u*>(from));
    _mm_storeu_si128(reinterpret_cast<__m128i_u*>(to), bytes);
    const int zeros = _mm_movemask_epi8(_mm_cmpeq_epi8(bytes, _mm_setzero_si128()));
    return static_cast<size_t>(__builtin_ctz(static_cast<unsigned int>(zeros) | 1U << kBlock));
#elif __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    for (size_t done = 0; done < kBlock; done += 8) {
        constexpr uint64_t kOnes = 0x0101010101010101;
        uint64_t word;
        memcpy(&word, from + done, 8);
        memcpy(to + done, &word, 8);
        const uint64_t zeros = (word - kOnes) & ~word & kOnes << 7;
        if (zeros != 0)
            return done + static_cast<size_t>(__builtin_ctzll(zeros) / 8);
    }
    return kBlock;
#else
    memcpy(to, from, kBlock);
    return strnlen(from, kBlock);
#endif
}

} // namespace zel

#endif
