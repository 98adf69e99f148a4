/* Floats out of texts, beside the C library's own reading of the same texts. */
#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <random>
#include <string>

#include "float_text.h"

namespace {

using zelxml::readFloat;

std::string decimal(double value, int places)
{
    char text[512];
    std::snprintf(text, sizeof text, "%.*f", places, value);
    return text;
}

std::string scientific(double value, int places)
{
    char text[32];
    std::snprintf(text, sizeof text, "%.*e", places, value);
    return text;
}

void expectAsTheLibrary(const std::string& text)
{
    const float expected = std::strtof(text.c_str(), nullptr);
    float value = 7;
    ASSERT_TRUE(readFloat(text.c_str(), value)) << text;
    ASSERT_EQ(expected, value) << text;
    ASSERT_EQ(std::signbit(expected), std::signbit(value)) << text;
}

float fromBits(std::uint32_t bits)
{
    float value;
    std::memcpy(&value, &bits, sizeof value);
    return value;
}

} // namespace

/* Of every exponent, the subnormal numbers' too. */
TEST(FloatText, EveryFloatComesBackFromItsDigits)
{
    std::mt19937 random(1);
    for (std::uint32_t exponent = 0; exponent < 255; ++exponent) {
        for (int i = 0; i < 200; ++i) {
            const std::uint32_t fraction = i == 0 ? 0x7FFFFF : random() & 0x7FFFFF;
            const std::uint32_t sign = random() & 0x80000000;
            const auto value =
                static_cast<double>(fromBits(sign | exponent << 23 | (fraction | (exponent == 0))));
            expectAsTheLibrary(scientific(value, 8));
            expectAsTheLibrary(decimal(value, 160));
        }
    }
}

/* Where the digits of a double or of its quotient aren't enough: the middle of two floats goes to the even
 * one, what lies a trifle beside it doesn't. */
TEST(FloatText, TheMiddleOfTwoFloatsIsRoundedOnce)
{
    std::mt19937 random(2);
    for (std::uint32_t exponent = 1; exponent < 254; ++exponent) {
        for (int i = 0; i < 40; ++i) {
            const std::uint32_t bits = exponent << 23 | (random() & 0x7FFFFF);
            const double middle =
                (static_cast<double>(fromBits(bits)) + static_cast<double>(fromBits(bits + 1))) / 2;
            const std::string exact = decimal(middle, 150);
            expectAsTheLibrary(exact);
            expectAsTheLibrary(exact + "0000000000000000000000000001");
            /* Not the middle, but some are so near that a quotient of doubles is. */
            expectAsTheLibrary(scientific(middle, 14));
            std::string below = exact;
            below.resize(below.find_last_not_of('0') + 1);
            if (below.back() != '.') {
                --below.back();
                expectAsTheLibrary(below + "9999999999");
            }
        }
    }
    /* Few digits, and yet the quotient of doubles lies in the middle. */
    for (const char* text :
         {"8388608.5", "8388609.5", "16777217", "16777219", "0.000030517578125", "9007199254740993",
          "1.00000005960464477539062499999999999", "1.00000005960464477539062500000000001"})
        expectAsTheLibrary(text);
}

TEST(FloatText, EndsWhereTheNumberEnds)
{
    const struct
    {
        const char* text;
        float value;
    } cases[] = {{"5.x", 5},       {"00000000000000000000000000000000000000000001", 1},
                 {"0x10", 0},      {"1e+", 1},
                 {"1E-1", 0.1F},   {"0.00000000000000000000000000000000000000000000000001e50", 1},
                 {"-0", -0.0F},    {"0e99999999999", 0},
                 {"-.0e-9", 0},    {"100000000000000000000000000000000000000000000000000e-50", 1},
                 {"1e-45", 1e-45F}};
    for (const auto& each : cases) {
        float value = 7;
        EXPECT_TRUE(readFloat(each.text, value)) << each.text;
        EXPECT_EQ(each.value, value) << each.text;
    }
    for (const char* text :
         {"", "-", ".", "-.", "e5", ".e5", "+1", "--1", "inf", "nan", " 1", "1e39", "3.4028236e38", "1e-46",
          "-1e99999999999999999999", "1e-99999999999999999999", "1e2147483648"}) {
        float value = 7;
        EXPECT_FALSE(readFloat(text, value)) << text;
        EXPECT_EQ(7, value) << text;
    }
}
