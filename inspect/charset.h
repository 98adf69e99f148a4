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

// What a text seems to be written in; kGuessed if nothing tells, as all of it is ASCII.
Charset guess(std::string_view bytes);

// Always UTF-8, whatever the bytes are, and fromUtf8 of the same charset gives the same bytes again: one that
// the charset doesn't have is one of the private code points U+F780 to U+F7FF, for 0x80 to 0xFF.
std::string toUtf8(std::string_view bytes, Charset charset);

// A guessed charset is UTF-8. Nothing where a character isn't in the charset, or the text isn't UTF-8.
std::optional<std::string> fromUtf8(std::string_view text, Charset charset);

} // namespace inspect

#endif
