#include "float_text.h"

#include <climits>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

namespace zelxml {

namespace {

/* The middle between two floats has at most 112 digits: behind these only matters whether there is more. */
constexpr int kMostDigits = 120;

/* So many make a whole number that a double holds. */
constexpr int kFewDigits = 15;

/* 0.d1 d2 d3 ... times a power of ten; the first digit isn't 0. */
struct Decimal
{
    bool isNegative = false;
    bool isMore = false; /* digits other than 0 follow those that are kept */
    int count = 0;
    int exponent = 0;
    std::uint64_t whole = 0; /* of the first kFewDigits */
    char digits[kMostDigits];
};

bool isDigit(char c) noexcept
{
    return c >= '0' && c <= '9';
}

/* Nothing that stands in a text has that many digits; whoever writes such an exponent means 0 or too much. */
constexpr int kFar = 1000000;

int limited(int exponent) noexcept
{
    return exponent > kFar ? kFar : exponent;
}

void keep(Decimal& decimal, char digit) noexcept
{
    if (decimal.count < kFewDigits)
        decimal.whole = decimal.whole * 10 + static_cast<std::uint64_t>(digit - '0');
    if (decimal.count < kMostDigits)
        decimal.digits[decimal.count++] = digit;
    else
        decimal.isMore |= digit != '0';
}

/* Returns where the digits end; null where there are none. */
const char* scanDigits(const char* at, Decimal& decimal) noexcept
{
    const char* const begin = at;
    for (; isDigit(*at); ++at) {
        if (decimal.count == 0 && *at == '0')
            continue;
        keep(decimal, *at);
        decimal.exponent = limited(decimal.exponent + 1);
    }
    auto digits = at - begin;
    if (*at == '.') {
        const char* const places = ++at;
        for (; isDigit(*at); ++at) {
            if (decimal.count == 0 && *at == '0')
                decimal.exponent = -limited(1 - decimal.exponent);
            else
                keep(decimal, *at);
        }
        digits += at - places;
    }
    return digits != 0 ? at : nullptr;
}

/* What may follow the digits; without a number behind the letter it is none. */
void scanExponent(const char* at, Decimal& decimal) noexcept
{
    if (*at != 'e' && *at != 'E')
        return;
    ++at;
    const bool isNegative = *at == '-';
    at += isNegative || *at == '+';
    int exponent = 0;
    for (; isDigit(*at); ++at)
        exponent = limited(exponent * 10 + (*at - '0'));
    decimal.exponent += isNegative ? -exponent : exponent;
}

/*
 * Up to kFewDigits and 22 places a double's division is rounded once. Its result then rounds to the right
 * float too, unless it lies in the very middle of two: there the first rounding may have taken it.
 */
bool readShort(const Decimal& decimal, float& value) noexcept
{
    static constexpr double kPowers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                         1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                         1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    const int places = decimal.count - decimal.exponent;
    if (decimal.count > kFewDigits || places < 0 || places > 22)
        return false;
    const double number = static_cast<double>(decimal.whole) / kPowers[places];
    std::uint64_t bits;
    std::memcpy(&bits, &number, sizeof bits);
    if ((bits & 0x1FFFFFFF) == 0x10000000)
        return false;
    value = static_cast<float>(number);
    return true;
}

/* The C library reads what the above can't, from a text without the point that its locale decides about. */
bool readLong(const Decimal& decimal, float& value) noexcept
{
    char text[kMostDigits + 16];
    std::memcpy(text, decimal.digits, static_cast<std::size_t>(decimal.count));
    char* at = text + decimal.count;
    int exponent = decimal.exponent - decimal.count;
    if (decimal.isMore) {
        *at++ = '1';
        --exponent;
    }
    std::snprintf(at, 16, "e%d", exponent);
    const float number = std::strtof(text, nullptr);
    /* Beyond the range stand infinity and 0, which no other number comes to. */
    if (number == 0 || number > 3.4028235e38F)
        return false;
    value = number;
    return true;
}

} // namespace

bool readFloat(const char* text, float& value) noexcept
{
    Decimal decimal;
    decimal.isNegative = *text == '-';
    const char* const behind = scanDigits(text + decimal.isNegative, decimal);
    if (!behind)
        return false;
    scanExponent(behind, decimal);
    float magnitude = 0;
    if (decimal.count != 0 && !readShort(decimal, magnitude) && !readLong(decimal, magnitude))
        return false;
    value = decimal.isNegative ? -magnitude : magnitude;
    return true;
}

} // namespace zelxml
