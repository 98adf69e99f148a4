#include "core/search.h"

#include <cstring>

namespace zel {

size_t find(std::string_view text, const Needle& needle)
{
    const size_t behind = needle.text.size() - needle.rare;
    for (size_t at = needle.rare; at + behind <= text.size(); ++at) {
        const void* hit = memchr(text.data() + at, needle.text[needle.rare], text.size() - behind + 1 - at);
        if (!hit)
            break;
        at = static_cast<size_t>(static_cast<const char*>(hit) - text.data());
        if (memcmp(text.data() + at - needle.rare, needle.text.data(), needle.text.size()) == 0)
            return at - needle.rare;
    }
    return std::string_view::npos;
}

} // namespace zel
