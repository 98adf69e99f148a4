#include "core/scan.h"

namespace zel {

namespace {

bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

void skipSpace(std::string_view& text)
{
    while (!text.empty() && isSpace(text.front()))
        text.remove_prefix(1);
}

bool takeSign(std::string_view& text)
{
    const bool negative = !text.empty() && text.front() == '-';
    if (negative || (!text.empty() && text.front() == '+'))
        text.remove_prefix(1);
    return negative;
}

// strtol on 64 bits: stops at its largest value and is then cut to the field's
// width. Returns where it stopped, or null without a number.
[[gnu::noinline]] const char* takeAnyNumber(const char* at, const char* end, int32_t& field)
{
    while (at != end && isSpace(*at))
        ++at;
    const bool negative = at != end && *at == '-';
    if (negative || (at != end && *at == '+'))
        ++at;
    const char* const digits = at;
    uint64_t magnitude = 0;
    // No number of so few digits is too large.
    const char* const safe = end - at > 18 ? at + 18 : end;
    for (; at != safe && isDigit(*at); ++at)
        magnitude = magnitude * 10 + static_cast<uint64_t>(*at - '0');
    if (at == digits)
        return nullptr;
    if (at == safe && at != end) {
        const uint64_t largest = negative ? uint64_t{1} << 63 : (uint64_t{1} << 63) - 1;
        for (; at != end && isDigit(*at); ++at) {
            const auto digit = static_cast<uint64_t>(*at - '0');
            magnitude = magnitude > (largest - digit) / 10 ? largest : magnitude * 10 + digit;
        }
    }
    field = static_cast<int32_t>(static_cast<uint32_t>(negative ? 0 - magnitude : magnitude));
    return at;
}

// The same; most are one to three digits alone.
inline const char* takeNumber(const char* at, const char* end, int32_t& field)
{
    const char* const most = end - at > 3 ? at + 3 : end;
    const char* behind = at;
    uint32_t number = 0;
    while (behind != most && isDigit(*behind))
        number = number * 10 + static_cast<uint32_t>(*behind++ - '0');
    if (behind == at || (behind != end && isDigit(*behind)))
        return takeAnyNumber(at, end, field);
    field = static_cast<int32_t>(number);
    return behind;
}

int hexDigit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'a' && c <= 'f')
        return c - 'a' + 10;
    if (c >= 'A' && c <= 'F')
        return c - 'A' + 10;
    return -1;
}

} // namespace

int32_t numberOf(std::string_view text)
{
    int32_t value = 0;
    takeNumber(text.data(), text.data() + text.size(), value);
    return value;
}

size_t scanNumbers(std::string_view& text, char separator, int32_t* numbers, size_t count)
{
    const char* at = text.data();
    const char* const end = at + text.size();
    size_t done = 0;
    for (; done < count; ++done) {
        if (done > 0) {
            if (at == end || *at != separator)
                break;
            ++at;
        }
        const char* const behind = takeNumber(at, end, numbers[done]);
        if (!behind)
            break;
        at = behind;
    }
    text.remove_prefix(static_cast<size_t>(at - text.data()));
    return done;
}

bool scanHex(std::string_view text, int32_t& field)
{
    uint64_t value = 0;
    if (!scanHex(text, value))
        return false;
    field = static_cast<int32_t>(static_cast<uint32_t>(value));
    return true;
}

bool scanHex(std::string_view text, uint64_t& field)
{
    skipSpace(text);
    const bool negative = takeSign(text);
    if (text.size() > 2 && text[0] == '0' && (text[1] | 0x20) == 'x' && hexDigit(text[2]) >= 0)
        text.remove_prefix(2);
    constexpr uint64_t kLargest = UINT64_MAX;
    uint64_t value = 0;
    const size_t before = text.size();
    while (!text.empty() && hexDigit(text.front()) >= 0) {
        const auto digit = static_cast<uint64_t>(hexDigit(text.front()));
        value = value > kLargest >> 4 ? kLargest : value << 4 | digit;
        text.remove_prefix(1);
    }
    if (text.size() == before)
        return false;
    field = negative && value != kLargest ? 0 - value : value;
    return true;
}

} // namespace zel
