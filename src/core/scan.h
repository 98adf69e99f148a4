// Parts of texts, and numbers out of them: as the standard library's functions read them, but without a
// locale and with a defined result where a number is too large.
#ifndef ZEL_CORE_SCAN_H
#define ZEL_CORE_SCAN_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zel {

// The part of a text that begins there, of `count` bytes or of as many as there are. A string_view's own asks
// the C++ runtime to throw where the text doesn't reach so far.
constexpr std::string_view partOf(std::string_view text, size_t begin, size_t count = std::string_view::npos)
{
    const size_t start = begin < text.size() ? begin : text.size();
    const size_t rest = text.size() - start;
    return {text.data() + start, count < rest ? count : rest};
}

// As atoi does on a machine with a 64-bit long; 0 without a number.
int32_t numberOf(std::string_view text);

// As sscanf does with `count` times %d or %u and the separator in between. Numbers that don't convert keep
// what they held. Returns how many did; `text` then begins behind the last of them.
size_t scanNumbers(std::string_view& text, char separator, int32_t* numbers, size_t count);

// As sscanf does with %x and %llx. Tells whether there was a number.
bool scanHex(std::string_view text, int32_t& field);
bool scanHex(std::string_view text, uint64_t& field);

} // namespace zel

#endif
