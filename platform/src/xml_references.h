/* Character references and the five entities that every text may use. */
#ifndef ZEL_PLATFORM_XML_REFERENCES_H
#define ZEL_PLATFORM_XML_REFERENCES_H

#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zelxml {

inline char* putUtf8(char* to, std::uint32_t code) noexcept
{
    const auto put = [&to](std::uint32_t byte) { *to++ = static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
    return to;
}

/* Reads the number of a character reference behind its #. False if it is none, which leaves it as it stands.
 */
inline bool takeCode(const char*& at, std::uint32_t& code) noexcept
{
    constexpr std::uint32_t kTooLarge = 0x110000;
    const bool hexadecimal = *at == 'x';
    if (hexadecimal)
        ++at;
    const char* const digits = at;
    code = 0;
    for (;; ++at) {
        const auto decimal = static_cast<unsigned int>(*at - '0');
        const auto letter = static_cast<unsigned int>((*at | 0x20) - 'a');
        if (decimal <= 9)
            code = code * (hexadecimal ? 16 : 10) + decimal;
        else if (hexadecimal && letter <= 5)
            code = code * 16 + letter + 10;
        else
            break;
        if (code > kTooLarge)
            code = kTooLarge;
    }
    return at != digits && *at++ == ';';
}

/* Replaces references in a terminated text. Returns its new end, or null for a character that may not be:
 * NUL, or beyond the last. */
inline char* resolveReferences(char* text) noexcept
{
    struct Entity
    {
        const char* name;
        std::size_t size;
        char character;
    };
    constexpr Entity kEntities[] = {
        {"amp;", 4, '&'}, {"lt;", 3, '<'}, {"gt;", 3, '>'}, {"quot;", 5, '"'}, {"apos;", 5, '\''}};

    char* to = std::strchr(text, '&');
    if (!to)
        return text + std::strlen(text);
    for (const char* at = to; *at;) {
        if (*at != '&') {
            *to++ = *at++;
            continue;
        }
        const char* behind = at + 1;
        std::uint32_t code = 0;
        if (*behind == '#' && takeCode(++behind, code)) {
            if (code == 0 || code > 0x10FFFF)
                return nullptr;
            to = putUtf8(to, code);
            at = behind;
            continue;
        }
        char character = '&';
        std::size_t size = 0;
        for (const Entity& entity : kEntities) {
            if (std::strncmp(at + 1, entity.name, entity.size) == 0) {
                character = entity.character;
                size = entity.size;
            }
        }
        *to++ = character;
        at += 1 + size;
    }
    *to = '\0';
    return to;
}

} // namespace zelxml

#endif
