#include "core/text_writer.h"

#include <charconv>
#include <cstdio>

namespace zel {

void TextWriter::appendPart(const char* text, size_t size)
{
    const size_t fits = left();
    memcpy(cursor, text, fits);
    cursor += fits;
    lost += size - fits;
}

char* printNumber(char* at, int32_t value)
{
    if (value >= 0)
        return printNumber(at, static_cast<uint32_t>(value));
    *at++ = '-';
    return printNumber(at, 0 - static_cast<uint32_t>(value));
}

char* printNumber(char* at, uint32_t value)
{
    // Most settings have one digit or two.
    if (value < 100) {
        if (value >= 10)
            *at++ = static_cast<char>('0' + value / 10);
        *at++ = static_cast<char>('0' + value % 10);
        return at;
    }
    return std::to_chars(at, at + kLongestNumber, value).ptr;
}

char* printNumber(char* at, uint64_t value)
{
    return std::to_chars(at, at + kLongestNumber, value).ptr;
}

char* printTwoDigits(char* at, int32_t value)
{
    if (value >= 0 && value < 10)
        *at++ = '0';
    return printNumber(at, value);
}

char* printTwoPlaces(char* at, int32_t value)
{
    if (value >= 0 && value < 10)
        *at++ = ' ';
    return printNumber(at, value);
}

char* printHex(char* at, uint64_t value)
{
    return std::to_chars(at, at + kLongestNumber, value, 16).ptr;
}

char* printFloat(char* at, float value)
{
    uint32_t bits;
    memcpy(&bits, &value, sizeof bits);
    const uint32_t exponent = bits >> 23 & 0xFF;
    // A float is a whole number of 24 bits, shifted. Where its millionths fit 64 bits they are found exactly,
    // and rounded as printf rounds them: to the nearest, a tie to the even one.
    constexpr uint32_t kWhole = 127 + 23; // exponent without a shift
    if (exponent >= kWhole - 63 && exponent <= kWhole) {
        const uint32_t shift = kWhole - exponent;
        const uint64_t scaled = uint64_t{(bits & 0x7FFFFF) | 0x800000} * 1000000;
        uint64_t millionths = scaled >> shift;
        const uint64_t twice = (scaled - (millionths << shift)) << 1;
        const uint64_t one = uint64_t{1} << shift;
        millionths += twice > one || (twice == one && millionths % 2 != 0);
        if (bits >> 31 != 0)
            *at++ = '-';
        at = printNumber(at, static_cast<uint32_t>(millionths / 1000000));
        *at++ = '.';
        const auto places = static_cast<uint32_t>(millionths % 1000000);
        const uint32_t pairs[] = {places / 10000, places / 100 % 100, places % 100};
        for (const uint32_t pair : pairs) {
            *at++ = static_cast<char>('0' + pair / 10);
            *at++ = static_cast<char>('0' + pair % 10);
        }
        return at;
    }
    // What remains are whole numbers and what is too small to show. Neither asks the locale for its point.
    at += snprintf(at, kLongestFloat, "%.0f", static_cast<double>(value));
    constexpr char kPlaces[] = ".000000";
    const size_t places = exponent == 0xFF ? 0 : sizeof kPlaces - 1;
    memcpy(at, kPlaces, places);
    return at + places;
}

void appendNumber(TextWriter& out, int32_t value)
{
    char digits[kLongestNumber];
    out.append(digits, static_cast<size_t>(printNumber(digits, value) - digits));
}

} // namespace zel
