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

namespace {

struct PairTable
{
    char of[100][2];
};

constexpr PairTable makePairTable()
{
    PairTable table{};
    for (int value = 0; value < 100; ++value) {
        table.of[value][0] = static_cast<char>('0' + value / 10);
        table.of[value][1] = static_cast<char>('0' + value % 10);
    }
    return table;
}

constexpr PairTable kPairs = makePairTable();

inline char* putPair(char* at, uint32_t value)
{
    memcpy(at, kPairs.of[value], 2);
    return at + 2;
}

// With all leading zeros.
inline char* putFourDigits(char* at, uint32_t value)
{
    return putPair(putPair(at, value / 100), value % 100);
}

inline char* putUpToFourDigits(char* at, uint32_t value)
{
    if (value >= 1000)
        return putFourDigits(at, value);
    if (value >= 100) {
        *at = static_cast<char>('0' + value / 100);
        return putPair(at + 1, value % 100);
    }
    if (value >= 10)
        return putPair(at, value);
    *at = static_cast<char>('0' + value);
    return at + 1;
}

} // namespace

char* printNumber(char* at, int32_t value)
{
    if (value >= 0)
        return printNumber(at, static_cast<uint32_t>(value));
    *at++ = '-';
    return printNumber(at, 0 - static_cast<uint32_t>(value));
}

char* printNumber(char* at, uint32_t value)
{
    constexpr uint32_t kFour = 10000;
    if (value < kFour)
        return putUpToFourDigits(at, value);
    if (value < kFour * kFour)
        return putFourDigits(putUpToFourDigits(at, value / kFour), value % kFour);
    at = putUpToFourDigits(at, value / (kFour * kFour));
    value %= kFour * kFour;
    return putFourDigits(putFourDigits(at, value / kFour), value % kFour);
}

char* printNumber(char* at, uint64_t value)
{
    if (value <= UINT32_MAX)
        return printNumber(at, static_cast<uint32_t>(value));
    constexpr uint32_t kNine = 1000000000;
    const auto last = static_cast<uint32_t>(value % kNine);
    at = printNumber(at, value / kNine);
    *at = static_cast<char>('0' + last / 100000000);
    const uint32_t eight = last % 100000000;
    return putFourDigits(putFourDigits(at + 1, eight / 10000), eight % 10000);
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
        return putPair(putFourDigits(at, places / 100), places % 100);
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
