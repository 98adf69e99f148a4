/** Between the bytes of a device's texts and UTF-8. */
#ifndef ZEL_INSPECT_CHARSET_H
#define ZEL_INSPECT_CHARSET_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace inspect {

enum class Charset : std::uint8_t
{
    kGuessed, // UTF-8 where a text is that, else GB18030, which GB2312 is a part of
    kUtf8,
    kGb2312 // taken as GB18030
};

// Bytes that the charset doesn't have come out as U+DC80 to U+DCFF's stand-ins "\xNN" written by the private
// code points U+F780 to U+F7FF, one for each byte, which fromUtf8 turns back.
std::string toUtf8(std::string_view bytes, Charset charset);

// Nothing where a character isn't in the charset.
std::optional<std::string> fromUtf8(std::string_view text, Charset charset);

} // namespace inspect

#endif
