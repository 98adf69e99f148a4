#include "core/scan.h"

namespace zel {

namespace {

bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
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

// strtol on 64 bits: stops at its largest value and is then cut to the field's width.
bool takeNumber(std::string_view& text, int32_t& field)
{
    std::string_view rest = text;
    skipSpace(rest);
    const bool negative = takeSign(rest);
    const uint64_t largest = negative ? uint64_t{1} << 63 : (uint64_t{1} << 63) - 1;
    uint64_t magnitude = 0;
    const size_t before = rest.size();
    while (!rest.empty() && rest.front() >= '0' && rest.front() <= '9') {
        const auto digit = static_cast<uint64_t>(rest.front() - '0');
        magnitude = magnitude > (largest - digit) / 10 ? largest : magnitude * 10 + digit;
        rest.remove_prefix(1);
    }
    if (rest.size() == before)
        return false;
    field = static_cast<int32_t>(static_cast<uint32_t>(negative ? 0 - magnitude : magnitude));
    text = rest;
    return true;
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
    takeNumber(text, value);
    return value;
}

size_t scanNumbers(std::string_view& text, char separator, int32_t* numbers, size_t count)
{
    for (size_t done = 0; done < count; ++done) {
        if (done > 0) {
            if (text.empty() || text.front() != separator)
                return done;
            text.remove_prefix(1);
        }
        if (!takeNumber(text, numbers[done]))
            return done;
    }
    return count;
}

bool scanHex(std::string_view text, int32_t& field)
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
    field = static_cast<int32_t>(static_cast<uint32_t>(negative && value != kLargest ? 0 - value : value));
    return true;
}

} // namespace zel
