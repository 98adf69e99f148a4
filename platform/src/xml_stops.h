/*
 * Stage one: where names and values end.
 *
 * A stop is a byte that can't stand in a name. The list has the places where runs of stops begin: two for an
 * attribute, at its equals sign and at its closing quote. It is made of 64 bytes at once, as bits of a word,
 * and for about a kilobyte ahead of stage two.
 *
 * Three forms of the same functions; the compiler's target decides. ZEL_XML_SCALAR asks for the one that any
 * machine has.
 */
#ifndef ZEL_PLATFORM_XML_STOPS_H
#define ZEL_PLATFORM_XML_STOPS_H

#include <cstddef>
#include <cstdint>

#include "xml_text.h"

#if defined(ZEL_XML_SCALAR)
#elif defined(__SSE2__)
#define ZEL_XML_SSE2
#include <emmintrin.h>
#elif defined(__aarch64__) && defined(__ARM_NEON) && !defined(__AARCH64EB__)
#define ZEL_XML_NEON
#include <arm_neon.h>
#endif

namespace zelxml {

/* Bytes that are looked at together. As many zero bytes follow a text. */
constexpr std::size_t kBlock = 64;

struct Signs
{
    std::size_t openings; /* < */
    std::size_t equals;   /* = */
};

#if defined(ZEL_XML_SSE2)

inline __m128i bytesAt(const char* at) noexcept
{
    return _mm_loadu_si128(static_cast<const __m128i*>(static_cast<const void*>(at)));
}

inline __m128i same(__m128i bytes, char c) noexcept
{
    return _mm_cmpeq_epi8(bytes, _mm_set1_epi8(c));
}

/* Those from that byte on, as many: shifted so that the range begins at the lowest signed byte. */
inline __m128i within(__m128i bytes, int first, int count) noexcept
{
    return _mm_cmplt_epi8(_mm_add_epi8(bytes, _mm_set1_epi8(static_cast<char>(0x80 - first))),
                          _mm_set1_epi8(static_cast<char>(count - 0x80)));
}

inline std::uint64_t bitsOf(__m128i bytes) noexcept
{
    return static_cast<std::uint64_t>(static_cast<unsigned int>(_mm_movemask_epi8(bytes)));
}

/* The block's stops as bits, the first byte's lowest. */
inline std::uint64_t stopsOf(const char* block) noexcept
{
    const auto namesIn = [block](std::size_t from) {
        const __m128i bytes = bytesAt(block + from);
        const __m128i letters = within(_mm_or_si128(bytes, _mm_set1_epi8(0x20)), 'a', 26);
        const __m128i digits = _mm_andnot_si128(same(bytes, '/'), within(bytes, '-', ':' - '-' + 1));
        /* Only the highest bit counts, which bytes above 0x7F have. */
        const __m128i others = _mm_or_si128(bytes, same(bytes, '_'));
        return bitsOf(_mm_or_si128(_mm_or_si128(letters, digits), others)) << from;
    };
    return ~(namesIn(0) | namesIn(16) | namesIn(32) | namesIn(48));
}

/* Counts in whole sixteens, 255 at most: the counters are bytes. */
inline Signs countSixteens(const char* text, const char* end) noexcept
{
    const __m128i zero = _mm_setzero_si128();
    __m128i openings = zero;
    __m128i equals = zero;
    for (; text != end; text += 16) {
        const __m128i bytes = bytesAt(text);
        openings = _mm_sub_epi8(openings, same(bytes, '<'));
        equals = _mm_sub_epi8(equals, same(bytes, '='));
    }
    const auto sum = [zero](__m128i counters) {
        const __m128i halves = _mm_sad_epu8(counters, zero);
        return static_cast<std::size_t>(_mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4));
    };
    return {sum(openings), sum(equals)};
}

#elif defined(ZEL_XML_NEON)

inline uint8x16_t bytesAt(const char* at) noexcept
{
    return vld1q_u8(reinterpret_cast<const std::uint8_t*>(at));
}

inline uint8x16_t same(uint8x16_t bytes, char c) noexcept
{
    return vceqq_u8(bytes, vdupq_n_u8(static_cast<std::uint8_t>(c)));
}

/* Those from that byte on, as many. */
inline uint8x16_t within(uint8x16_t bytes, int first, int count) noexcept
{
    return vcltq_u8(vsubq_u8(bytes, vdupq_n_u8(static_cast<std::uint8_t>(first))),
                    vdupq_n_u8(static_cast<std::uint8_t>(count)));
}

/* The block's stops as bits, the first byte's lowest. */
inline std::uint64_t stopsOf(const char* block) noexcept
{
    const std::uint8_t eight[] = {1, 2, 4, 8, 16, 32, 64, 128, 1, 2, 4, 8, 16, 32, 64, 128};
    const uint8x16_t weights = vld1q_u8(eight);
    const auto stopsIn = [block, weights](std::size_t from) {
        const uint8x16_t bytes = bytesAt(block + from);
        const uint8x16_t letters = within(vorrq_u8(bytes, vdupq_n_u8(0x20)), 'a', 26);
        const uint8x16_t digits = vbicq_u8(within(bytes, '-', ':' - '-' + 1), same(bytes, '/'));
        const uint8x16_t others = vorrq_u8(vcgeq_u8(bytes, vdupq_n_u8(0x80)), same(bytes, '_'));
        return vbicq_u8(weights, vorrq_u8(vorrq_u8(letters, digits), others));
    };
    /* Each sum of neighbours makes one byte of two, until eight of them hold all bits. */
    uint8x16_t bits = vpaddq_u8(vpaddq_u8(stopsIn(0), stopsIn(16)), vpaddq_u8(stopsIn(32), stopsIn(48)));
    bits = vpaddq_u8(bits, bits);
    return vgetq_lane_u64(vreinterpretq_u64_u8(bits), 0);
}

/* Counts in whole sixteens, 255 at most: the counters are bytes. */
inline Signs countSixteens(const char* text, const char* end) noexcept
{
    uint8x16_t openings = vdupq_n_u8(0);
    uint8x16_t equals = openings;
    for (; text != end; text += 16) {
        const uint8x16_t bytes = bytesAt(text);
        openings = vsubq_u8(openings, same(bytes, '<'));
        equals = vsubq_u8(equals, same(bytes, '='));
    }
    return {vaddlvq_u8(openings), vaddlvq_u8(equals)};
}

#else

/* A word of bytes; what is found in a byte is its highest bit. */
using Bytes = std::size_t;

constexpr Bytes each(int c) noexcept
{
    return ~Bytes{0} / 0xFF * static_cast<unsigned char>(c);
}

constexpr Bytes kHighBits = each(0x80);

/* The first byte lowest, whatever the machine's order. */
inline Bytes bytesAt(const char* at) noexcept
{
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    return load<Bytes>(at);
#else
    Bytes bytes = 0;
    for (std::size_t i = 0; i < sizeof bytes; ++i)
        bytes |= static_cast<Bytes>(static_cast<unsigned char>(at[i])) << 8 * i;
    return bytes;
#endif
}

/* Of bytes below 0x80: those that aren't below that one. */
constexpr Bytes from(Bytes bytes, int first) noexcept
{
    return bytes + each(0x80 - first);
}

constexpr Bytes same(Bytes bytes, char c) noexcept
{
    const Bytes low = bytes & ~kHighBits;
    return (from(low, c) ^ from(low, c + 1)) & ~bytes & kHighBits;
}

/* The block's stops as bits, the first byte's lowest. */
inline std::uint64_t stopsOf(const char* block) noexcept
{
    /* Moves the highest bits of a word's bytes together, at its upper end. */
    constexpr Bytes kGather = sizeof(Bytes) == 8 ? static_cast<Bytes>(0x0002040810204081) : 0x00204081;
    std::uint64_t stops = 0;
    for (std::size_t i = 0; i < kBlock; i += sizeof(Bytes)) {
        const Bytes bytes = bytesAt(block + i);
        const Bytes low = bytes & ~kHighBits;
        const Bytes folded = low | each(0x20);
        /* In and out again at the borders of each range. */
        const Bytes names = from(folded, 'a') ^ from(folded, 'z' + 1) ^ from(low, '-') ^ from(low, '.' + 1) ^
                            from(low, '0') ^ from(low, ':' + 1) ^ from(low, '_') ^ from(low, '_' + 1);
        const Bytes found = ~(names | bytes) & kHighBits;
        stops |= static_cast<std::uint64_t>(found * kGather >> (8 * sizeof(Bytes) - sizeof(Bytes))) << i;
    }
    return stops;
}

/* Counts in whole sixteens, 255 at most: the counters are bytes. */
inline Signs countSixteens(const char* text, const char* end) noexcept
{
    Signs all{0, 0};
    while (text != end) {
        Bytes openings = 0;
        Bytes equals = 0;
        for (const char* const stop = end - text > 128 ? text + 128 : end; text != stop;
             text += sizeof(Bytes)) {
            const Bytes bytes = bytesAt(text);
            openings += same(bytes, '<') >> 7;
            equals += same(bytes, '=') >> 7;
        }
        /* Neighbours added up to pairs of bytes, those by a product. */
        const auto sum = [](Bytes counters) {
            constexpr Bytes kPairs = ~Bytes{0} / 0xFFFF;
            const Bytes pairs = (counters & kPairs * 0xFF) + (counters >> 8 & kPairs * 0xFF);
            return static_cast<std::size_t>(pairs * kPairs >> (8 * sizeof(Bytes) - 16));
        };
        all.openings += sum(openings);
        all.equals += sum(equals);
    }
    return all;
}

#endif

inline Signs count(const char* text, std::size_t size) noexcept
{
    constexpr std::size_t kMost = 255 * 16;
    Signs all{0, 0};
    while (size >= 16) {
        const std::size_t part = size < kMost ? size & ~std::size_t{15} : kMost;
        const Signs some = countSixteens(text, text + part);
        all.openings += some.openings;
        all.equals += some.equals;
        text += part;
        size -= part;
    }
    for (; size > 0; --size, ++text) {
        all.openings += *text == '<';
        all.equals += *text == '=';
    }
    return all;
}

/* The first of two characters below 0x80, or a zero byte. */
[[gnu::always_inline]] inline char* findEither(char* at, char one, char other) noexcept
{
#if defined(ZEL_XML_SSE2)
    for (;; at += 16) {
        const __m128i bytes = bytesAt(at);
        const std::uint64_t found =
            bitsOf(_mm_or_si128(_mm_or_si128(same(bytes, one), same(bytes, other)), same(bytes, '\0')));
        if (found != 0)
            return at + __builtin_ctzll(found);
    }
#elif defined(ZEL_XML_NEON)
    for (;; at += 16) {
        const uint8x16_t bytes = bytesAt(at);
        const uint8x16_t found = vorrq_u8(vorrq_u8(same(bytes, one), same(bytes, other)), vceqzq_u8(bytes));
        /* Four bits for each byte. */
        const uint8x8_t fours = vshrn_n_u16(vreinterpretq_u16_u8(found), 4);
        const std::uint64_t bits = vget_lane_u64(vreinterpret_u64_u8(fours), 0);
        if (bits != 0)
            return at + __builtin_ctzll(bits) / 4;
    }
#else
    for (;; at += sizeof(Bytes)) {
        const Bytes bytes = bytesAt(at);
        const Bytes found = same(bytes, one) | same(bytes, other) | same(bytes, '\0');
        if (found != 0)
            return at + static_cast<unsigned int>(__builtin_ctzll(found)) / 8;
    }
#endif
}

inline unsigned int bitsIn(std::uint64_t bits) noexcept
{
#if defined(__POPCNT__) || defined(__aarch64__)
    return static_cast<unsigned int>(__builtin_popcountll(bits));
#else
    bits -= bits >> 1 & 0x5555555555555555;
    bits = (bits & 0x3333333333333333) + (bits >> 2 & 0x3333333333333333);
    bits = (bits + (bits >> 4)) & 0x0F0F0F0F0F0F0F0F;
    return static_cast<unsigned int>(bits * 0x0101010101010101 >> 56);
#endif
}

/* The list. The place of the text's end stands twice behind its last entry. */
class Stops
{
public:
    Stops(const char* bytes, std::uint32_t length) noexcept : text(bytes), size(length)
    {
        close(places);
    }

    const std::uint32_t* begin() const noexcept
    {
        return places;
    }

    bool isUsedUp(const std::uint32_t* entry) const noexcept
    {
        return entry == end;
    }

    /* From an entry on, the first that lies at a place or behind it. */
    const std::uint32_t* from(const std::uint32_t* entry, std::uint32_t place) noexcept
    {
        while (*entry < place)
            ++entry;
        return isUsedUp(entry) ? fromNext(entry, place) : entry;
    }

    /* The same once the list is used up: makes it anew, of the bytes that follow. At the text's end it stays.
     */
    [[gnu::noinline]] const std::uint32_t* fromNext(const std::uint32_t* entry, std::uint32_t place) noexcept
    {
        while (seen < size && isUsedUp(entry)) {
            lookOn();
            entry = places;
            while (*entry < place)
                ++entry;
        }
        return entry;
    }

private:
    static constexpr std::uint32_t kAhead = 1024;
    static constexpr unsigned int kUsual = 8; /* entries of a block */

    void lookOn() noexcept
    {
        std::uint32_t* out = places;
        std::uint32_t place = seen;
        const std::uint32_t target = size - place > kAhead ? place + kAhead : size;
        std::uint64_t before = stopsBefore;
        for (; place < target; place += kBlock) {
            const std::uint64_t stops = stopsOf(text + place);
            out = append(out, stops & ~(stops << 1 | before), place);
            before = stops >> 63;
        }
        stopsBefore = before;
        seen = place;
        close(out);
    }

    /* The usual ones without a branch, at the price of some that are overwritten. */
    static std::uint32_t* append(std::uint32_t* out, std::uint64_t starts, std::uint32_t place) noexcept
    {
        constexpr std::uint64_t kAny = std::uint64_t{1} << 63;
        const unsigned int count = bitsIn(starts);
        for (unsigned int i = 0; i < kUsual; ++i, starts &= starts - 1)
            out[i] = place + static_cast<std::uint32_t>(__builtin_ctzll(starts | kAny));
        for (unsigned int i = kUsual; i < count; ++i, starts &= starts - 1)
            out[i] = place + static_cast<std::uint32_t>(__builtin_ctzll(starts));
        return out + count;
    }

    void close(std::uint32_t* at) noexcept
    {
        at[0] = size;
        at[1] = size;
        end = at;
    }

    const char* const text;
    const std::uint32_t size;
    std::uint32_t seen = 0;
    std::uint64_t stopsBefore = 0;
    const std::uint32_t* end;
    /* Every other byte begins a run; a block's usual ones are written before they are counted. */
    std::uint32_t places[kAhead / 2 + kUsual + 2];
};

} // namespace zelxml

#endif
