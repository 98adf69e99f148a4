#include "inspect/charset.h"

#include <cerrno>
#include <stdexcept>

#include <iconv.h>

namespace inspect {

namespace {

constexpr char32_t kFirstStandIn = 0xF780; // of the byte 0x80
constexpr char32_t kLastStandIn = 0xF7FF;

unsigned byteOf(char byte)
{
    return static_cast<unsigned char>(byte);
}

bool isContinuation(char byte)
{
    return (byteOf(byte) & 0xC0) == 0x80;
}

struct Character
{
    char32_t code = 0;
    std::size_t size = 0; // bytes; 0: none starts here
};

std::size_t announcedSize(unsigned first)
{
    if (first < 0x80)
        return 1;
    if (first >= 0xC2 && first < 0xE0)
        return 2;
    if (first >= 0xE0 && first < 0xF0)
        return 3;
    return first >= 0xF0 && first < 0xF5 ? 4 : 0;
}

Character firstOf(std::string_view text)
{
    const unsigned first = byteOf(text.front());
    const std::size_t size = announcedSize(first);
    if (size == 0 || size > text.size())
        return {};
    char32_t code = size == 1 ? first : first & (0x7Fu >> size);
    for (std::size_t i = 1; i < size; ++i) {
        if (!isContinuation(text[i]))
            return {};
        code = code << 6 | (byteOf(text[i]) & 0x3F);
    }
    constexpr char32_t kLeast[] = {0, 0, 0x80, 0x800, 0x10000};
    const bool isSurrogate = code >= 0xD800 && code < 0xE000;
    return code < kLeast[size] || code > 0x10FFFF || isSurrogate ? Character{} : Character{code, size};
}

void append(std::string& text, char32_t code)
{
    const auto put = [&](char32_t bits) { text += static_cast<char>(bits); };
    const auto putRest = [&](int shift) { put(0x80 | (code >> shift & 0x3F)); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        putRest(0);
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        putRest(6);
        putRest(0);
    } else {
        put(0xF0 | code >> 18);
        putRest(12);
        putRest(6);
        putRest(0);
    }
}

bool isStandIn(char32_t code)
{
    return code >= kFirstStandIn && code <= kLastStandIn;
}

void appendStandIn(std::string& text, char byte)
{
    append(text, kFirstStandIn + (byteOf(byte) - 0x80));
}

// One direction of a conversion, one character at a time.
class Converter
{
public:
    Converter(const char* to, const char* from) : m_handle(iconv_open(to, from))
    {
        if (m_handle == reinterpret_cast<iconv_t>(-1))
            throw std::runtime_error("this machine's iconv doesn't know GB18030");
    }
    Converter(const Converter&) = delete;
    Converter& operator=(const Converter&) = delete;
    ~Converter()
    {
        iconv_close(m_handle);
    }

    // Empty where the bytes aren't whole characters of the charset.
    std::string operator()(std::string_view bytes)
    {
        char out[16];
        char* to = out;
        std::size_t room = sizeof out;
        auto* from = const_cast<char*>(bytes.data()); // iconv only reads it
        std::size_t rest = bytes.size();
        iconv(m_handle, nullptr, nullptr, nullptr, nullptr);
        const std::size_t result = iconv(m_handle, &from, &rest, &to, &room);
        return result == 0 && rest == 0 ? std::string(out, to) : std::string();
    }

private:
    iconv_t m_handle;
};

std::string gb18030Of(std::string_view character)
{
    thread_local Converter convert("GB18030", "UTF-8");
    return convert(character);
}

// One character in UTF-8, and only if it becomes the same bytes again.
std::string decodeGb18030(std::string_view bytes)
{
    thread_local Converter convert("UTF-8", "GB18030");
    std::string text = convert(bytes);
    const bool isOne = !text.empty() && firstOf(text).size == text.size();
    return isOne && !isStandIn(firstOf(text).code) && gb18030Of(text) == bytes ? text : std::string();
}

// Appends the first character, or the stand-in of its first byte, and returns its bytes.
std::size_t appendGb18030(std::string& text, std::string_view rest)
{
    for (const std::size_t size : {std::size_t{2}, std::size_t{4}})
        if (size <= rest.size())
            if (const std::string character = decodeGb18030(rest.substr(0, size)); !character.empty()) {
                text += character;
                return size;
            }
    appendStandIn(text, rest.front());
    return 1;
}

std::size_t appendUtf8(std::string& text, std::string_view rest)
{
    const Character character = firstOf(rest);
    // What looks like a stand-in isn't one: each of its bytes gets its own.
    if (character.size == 0 || isStandIn(character.code)) {
        appendStandIn(text, rest.front());
        return 1;
    }
    text.append(rest, 0, character.size);
    return character.size;
}

// A text that was cut to fit its field may end within a character.
bool isCutCharacter(std::string_view rest)
{
    if (rest.size() >= announcedSize(byteOf(rest.front())))
        return false;
    for (const char byte : rest.substr(1))
        if (!isContinuation(byte))
            return false;
    return true;
}

} // namespace

Charset guess(std::string_view bytes)
{
    bool hasOthers = false;
    for (std::size_t at = 0; at < bytes.size();) {
        const Character character = firstOf(bytes.substr(at));
        if (character.size == 0)
            return hasOthers && isCutCharacter(bytes.substr(at)) ? Charset::kUtf8 : Charset::kGb2312;
        hasOthers |= character.size > 1;
        at += character.size;
    }
    return hasOthers ? Charset::kUtf8 : Charset::kGuessed;
}

std::string toUtf8(std::string_view bytes, Charset charset)
{
    const bool isGb2312 = (charset == Charset::kGuessed ? guess(bytes) : charset) == Charset::kGb2312;
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::string_view rest = bytes.substr(at);
        if (byteOf(rest.front()) < 0x80) {
            text += rest.front();
            ++at;
        } else {
            at += isGb2312 ? appendGb18030(text, rest) : appendUtf8(text, rest);
        }
    }
    return text;
}

std::optional<std::string> fromUtf8(std::string_view text, Charset charset)
{
    std::string bytes;
    while (!text.empty()) {
        const Character character = firstOf(text);
        if (character.size == 0)
            return std::nullopt;
        const std::string_view one = text.substr(0, character.size);
        if (isStandIn(character.code)) {
            bytes += static_cast<char>(character.code - kFirstStandIn + 0x80);
        } else if (charset != Charset::kGb2312 || character.size == 1) {
            bytes += one;
        } else {
            const std::string converted = gb18030Of(one);
            if (converted.empty())
                return std::nullopt;
            bytes += converted;
        }
        text.remove_prefix(character.size);
    }
    return bytes;
}

} // namespace inspect
