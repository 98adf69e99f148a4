#include <cstring>

#include "core/search.h"
#include "zel_protocol/core.h"

namespace zel {

namespace {

bool changesDocument(char character)
{
    const auto byte = static_cast<unsigned char>(character);
    return byte < 0x20 || byte == '"' || byte == '&' || byte == '<';
}

} // namespace

} // namespace zel

int ZelProtocolTextIsWritable(const char* text, int size)
{
    using namespace zel;
    if (!text || size < 0)
        return 0;
    const std::string_view value(text, strnlen(text, static_cast<size_t>(size)));
    for (const char character : value) {
        if (changesDocument(character))
            return 0;
    }
    // A receiver takes it for a channel without quotes, and puts some into the value.
    return find(value, kChannelIdName) == std::string_view::npos;
}
