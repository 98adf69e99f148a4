// Search for a fixed text: as strstr within stated bounds, paced by the text's rarest letter.
#ifndef ZEL_CORE_SEARCH_H
#define ZEL_CORE_SEARCH_H

#include <cstddef>
#include <string_view>

namespace zel {

struct Needle
{
    constexpr Needle(std::string_view what, char rareLetter) : text(what), rare(what.find(rareLetter)) {}

    std::string_view text;
    size_t rare; // place of a letter that few messages use
};

constexpr Needle kClosingTag("</XML_ZELMAR>", 'Z');
constexpr Needle kMessageHeaderTag("<MESSAGE_HEADER", 'H');
constexpr Needle kConfigGetType("SYSTEM_CONFIG_GET_MESSAGE", 'Y');
constexpr Needle kChannelIdName("ChannelId=", 'I');

// The first place of the needle, or npos.
size_t find(std::string_view text, const Needle& needle);

} // namespace zel

#endif
