/* What the XML reader's parts share: kinds of characters, and words of a text. */
#ifndef ZEL_PLATFORM_XML_TEXT_H
#define ZEL_PLATFORM_XML_TEXT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zelxml {

constexpr unsigned char kSpace = 1;
constexpr unsigned char kStartsName = 2;
constexpr unsigned char kInName = 4;

struct Classes
{
    unsigned char of[256];
};

constexpr Classes makeClasses() noexcept
{
    Classes classes{};
    for (int c = 0; c < 256; ++c) {
        const bool starts =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || c >= 0x80;
        const bool inside = starts || (c >= '0' && c <= '9') || c == '-' || c == '.';
        const bool space = c == ' ' || (c >= '\t' && c <= '\r');
        classes.of[c] = static_cast<unsigned char>((space ? kSpace : 0) | (starts ? kStartsName : 0) |
                                                   (inside ? kInName : 0));
    }
    return classes;
}

[[gnu::visibility("hidden")]] inline constexpr Classes kClasses = makeClasses();

inline bool is(char c, unsigned char what) noexcept
{
    return (kClasses.of[static_cast<unsigned char>(c)] & what) != 0;
}

template <class Char>
[[gnu::visibility("hidden")]] Char* skipSpace(Char* at) noexcept
{
    while (is(*at, kSpace))
        ++at;
    return at;
}

template <class Word>
[[gnu::visibility("hidden")]] Word load(const char* at) noexcept
{
    Word word;
    std::memcpy(&word, at, sizeof word);
    return word;
}

/* Two texts of that size. Words that overlap: most names have less than three. */
[[gnu::always_inline]] inline bool isSame(const char* a, const char* b, std::size_t size) noexcept
{
    using std::uint32_t;
    using std::uint64_t;
    if (size >= 8) {
        uint64_t unlike = (load<uint64_t>(a) ^ load<uint64_t>(b)) |
                          (load<uint64_t>(a + size - 8) ^ load<uint64_t>(b + size - 8));
        for (std::size_t i = 8; i + 8 < size && unlike == 0; i += 8)
            unlike = load<uint64_t>(a + i) ^ load<uint64_t>(b + i);
        return unlike == 0;
    }
    if (size >= 4)
        return ((load<uint32_t>(a) ^ load<uint32_t>(b)) |
                (load<uint32_t>(a + size - 4) ^ load<uint32_t>(b + size - 4))) == 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (a[i] != b[i])
            return false;
    }
    return true;
}

} // namespace zelxml

#endif
