// Numbers out of texts, as the standard library's functions read them, but without a locale and with a
// defined result where a number is too large.
#ifndef ZEL_CORE_SCAN_H
#define ZEL_CORE_SCAN_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace zel {

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
