// The two text sides: every value form out and in, and the writer at every buffer size.
#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>
#include <functional>
#include <memory>

#include "core/element_reader.h"
#include "core/elements.h"
#include "core/search.h"
#include "core/text_writer.h"

using namespace zel;

namespace {

std::string written(const std::function<void(TextWriter&)>& fill, size_t capacity = 4096)
{
    const auto buffer = std::make_unique<char[]>(capacity);
    TextWriter out(buffer.get(), capacity);
    fill(out);
    EXPECT_EQ(out.overflowed(), out.length() > capacity);
    return {buffer.get(), out.kept()};
}

// Reads one attribute `a` of that value.
template <class Field, class Read>
Field readFrom(const std::string& value, Field field, Read read)
{
    ZelXMLParser parser;
    EXPECT_EQ(parser.Parse(("<e a=\"" + value + "\"/>").c_str()), 0);
    TreeReader side({&parser, parser.RootElement()});
    read(side, field);
    return field;
}

struct Everything
{
    int32_t number = -12;
    uint32_t unsignedNumber = 4000000000U;
    uint8_t byte = 200;
    uint64_t large = 18446744073709551614U;
    float real = 0.1F;
    char text[4] = {'f', 'u', 'l', 'l'};
    int32_t time[3] = {1, -1, 123};
    int32_t pair[2] = {INT_MIN, INT_MAX};
};

void everything(Side& side, Everything& record)
{
    attribute(side, "Number", record.number);
    attribute(side, "Unsigned", record.unsignedNumber);
    attribute(side, "Byte", record.byte);
    attribute(side, "Large", record.large);
    attribute(side, "Real", record.real);
    attribute(side, "Text", record.text);
    signedAttribute(side, "Signed", record.unsignedNumber);
    signedAttribute(side, "SignedLarge", record.large);
    hexAttribute(side, "Hex", record.number);
    timeAttribute(side, "Time", record.time);
    plainTimeAttribute(side, "PlainTime", record.time);
    rangeAttribute(side, "Range", record.pair);
    resolutionAttribute(side, "Resolution", record.pair);
    wholeFieldAttribute(side, "Whole", record.text);
    atoiAttribute(side, "Atoi", record.number);
    numbersAttribute(side, "Week", kWeekClock, record.time);
    numbersAttribute(side, "Brackets", kBrackets, record.pair);
    hexAttribute(side, "LargeHex", record.large);
    attribute(side, NumberedName("Number", 7, "th"), record.number);
}

const std::string kEverything =
    "Number=\"-12\"\nUnsigned=\"4000000000\"\nByte=\"200\"\n"
    "Large=\"18446744073709551614\"\nReal=\"0.100000\"\nText=\"full\"\n"
    "Signed=\"-294967296\"\nSignedLarge=\"-2\"\nHex=\"fffffff4\"\n"
    "Time=\"01:-1:123\"\nPlainTime=\"1:-1:123\"\nRange=\"-2147483648,2147483647\"\n"
    "Resolution=\"-2147483648*2147483647\"\nWhole=\"full\"\nAtoi=\"-12\"\n"
    "Week=\" 1:-1:123\"\nBrackets=\"[-2147483648,2147483647]\"\nLargeHex=\"fffffffffffffffe\"\n"
    "Number7th=\"-12\"\n";

TEST(TextSides, EveryFormOutAndIn)
{
    Everything record;
    EXPECT_EQ(written([&](TextWriter& out) { everything(out, record); }), kEverything);

    ZelXMLParser parser;
    ASSERT_EQ(parser.Parse(("<e " + kEverything + "/>").c_str()), 0);
    Everything read{0, 0, 0, 0, 0, {}, {}, {}};
    TreeReader root({&parser, parser.RootElement()});
    everything(root, read);
    EXPECT_EQ(read.time[2], 12); // no more than two places of a week's time
    read.time[2] = 123;
    EXPECT_EQ(written([&](TextWriter& out) { everything(out, read); }), kEverything);
}

// The bytes kept are always the first of the whole text, at every size, and the length is that of the whole.
TEST(TextSides, WriterAtEverySize)
{
    Everything record;
    const std::string whole = "<Element\n" + kEverything +
                              "/>\n<Closed\nNumber=\"-12\"/>\n<Line Number=\"-12\" Byte=\"200\" >\n"
                              "<Child \nNumber =\"-12\"\nText =\"full\"\n/></Line>\n<Text>-12</Text>";
    const auto fill = [&](TextWriter& out) {
        if (const Element plain = element(out, "Element"))
            everything(out, record);
        if (const Element closed = element(out, "Closed", kAtQuote))
            attribute(out, "Number", record.number);
        if (const Element line = element(out, "Line", kBoth | kOnLine | kBlankAtEnd)) {
            attribute(out, "Number", record.number);
            onSameLine(out);
            attribute(out, "Byte", record.byte);
            line.elements();
            if (const Element child = element(out, "Child", kBlankBehindName | kNoLineFeed)) {
                attributeBehindBlank(out, "Number", record.number);
                attributeBehindBlank(out, "Text", record.text);
            }
        }
        textElement(out, "Text", record.number, kNoLineFeed);
        EXPECT_EQ(out.length(), whole.size());
    };
    EXPECT_EQ(written(fill), whole);
    for (size_t capacity = 0; capacity <= whole.size(); ++capacity)
        EXPECT_EQ(written(fill, capacity), whole.substr(0, capacity)) << capacity;
}

TEST(TextSides, NumbersAsPrintfPrintsThem)
{
    const auto check = [](auto value) {
        char printed[kLongestNumber];
        EXPECT_EQ(std::string(printed, static_cast<size_t>(printNumber(printed, value) - printed)),
                  std::to_string(value));
    };
    uint64_t power = 1;
    for (int digits = 1; digits <= 20; ++digits, power *= 10) {
        for (const uint64_t value : {power - 1, power, power + 1, 7 * power + 5, 0 - power}) {
            check(value);
            check(static_cast<uint32_t>(value));
            check(static_cast<int32_t>(value));
        }
    }
    check(INT32_MIN);
    check(UINT32_MAX);
}

// Up to its terminator or its field's end, whatever stands behind that.
TEST(TextSides, TextsOfEveryLength)
{
    for (const size_t size : std::vector<size_t>{1, 7, 8, 15, 16, 17, 31, 32, 48, 63, 64, 65, 80, 81, 200}) {
        for (size_t length = 0; length <= size; ++length) {
            const auto field = std::make_unique<char[]>(size);
            memset(field.get(), '#', size);
            memset(field.get(), 'x', length);
            if (length < size)
                field[length] = '\0';
            const std::string expected = "Name=\"" + std::string(length, 'x') + "\"\n";
            for (const size_t room : {expected.size(), size + 20})
                EXPECT_EQ(
                    written([&](TextWriter& out) { textAttribute(out, "Name", field.get(), size); }, room),
                    expected)
                    << size << " " << length;
        }
    }
}

// As printf prints them: near powers of two, ties, and any bits that make a number.
TEST(TextSides, FloatsAsPrintfPrintsThem)
{
    const auto check = [](float value) {
        char expected[64];
        snprintf(expected, sizeof expected, "%f", static_cast<double>(value));
        char printed[kLongestFloat];
        EXPECT_EQ(std::string(printed, static_cast<size_t>(printFloat(printed, value) - printed)), expected);
    };
    for (const float value : {0.0F, -0.0F, 0.5F, 0.1F, 1e-7F, 5e-7F, 16777215.0F, 16777216.0F, 3e38F, 1e-45F})
        check(value);
    for (int exponent = -60; exponent < 60; ++exponent) {
        check(std::ldexp(1.0F, exponent));
        check(std::ldexp(-16777215.0F, exponent));
    }
    uint32_t bits = 1;
    for (int i = 0; i < 20000; ++i, bits = bits * 1664525 + 1013904223) {
        float value;
        memcpy(&value, &bits, sizeof value);
        if (std::isfinite(value))
            check(value);
    }
}

TEST(TextSides, NumbersAsTheStandardFunctionsReadThem)
{
    const auto atoiOf = [](const std::string& value) {
        return readFrom(value, 7, [](Side& in, int32_t& field) { atoiAttribute(in, "a", field); });
    };
    EXPECT_EQ(atoiOf(" \t+12x"), 12);
    EXPECT_EQ(atoiOf("-5"), -5);
    EXPECT_EQ(atoiOf("x"), 0);
    EXPECT_EQ(atoiOf(""), 0);
    EXPECT_EQ(atoiOf("99999999999999999999"), -1);

    const auto hexOf = [](const std::string& value) {
        return readFrom(value, 7, [](Side& in, int32_t& field) { hexAttribute(in, "a", field); });
    };
    EXPECT_EQ(hexOf("ff"), 255);
    EXPECT_EQ(hexOf(" 0xFFg"), 255);
    EXPECT_EQ(hexOf("0x"), 0);
    EXPECT_EQ(hexOf("-1"), -1);
    EXPECT_EQ(hexOf("g"), 7);

    const std::pair<const char*, std::array<int32_t, 3>> times[] = {
        {"08:05:09", {8, 5, 9}}, {" 8: 5:\n9z", {8, 5, 9}}, {"8:5", {8, 5, -1}},
        {"8 :5:9", {8, -1, -1}}, {":5:9", {-1, -1, -1}},    {"4294967295:4294967296:1", {-1, 0, 1}}};
    for (const auto& [text, parts] : times) {
        int32_t read[3] = {-1, -1, -1};
        readFrom(text, 0, [&](Side& in, int) { timeAttribute(in, "a", read); });
        EXPECT_EQ(memcmp(read, parts.data(), sizeof read), 0) << text;
    }

    // Two places at most for each.
    const std::pair<const char*, std::array<int32_t, 3>> weeks[] = {
        {" 8: 5:\n9z", {8, 5, 9}}, {"-8:123:4", {-8, 12, -1}}, {"8;5:9", {8, -1, -1}},
        {"8:", {8, -1, -1}},       {"8: ", {8, -1, -1}},       {":5", {-1, -1, -1}}};
    for (const auto& [text, parts] : weeks) {
        int32_t read[3] = {-1, -1, -1};
        readFrom(text, 0, [&](Side& in, int) { numbersAttribute(in, "a", kWeekClock, read); });
        EXPECT_EQ(memcmp(read, parts.data(), sizeof read), 0) << text;
    }
}

// strncpy fills a field to its last byte, the service's reader keeps room for the terminator.
TEST(TextSides, TextsAtTheirLimit)
{
    struct Field
    {
        char text[4];
    };
    const auto whole = [](Side& in, Field& field) { wholeFieldAttribute(in, "a", field.text); };
    const auto terminated = [](Side& in, Field& field) { attribute(in, "a", field.text); };
    EXPECT_EQ(std::string(readFrom("abcdef", Field{"xyz"}, whole).text, 4), "abcd");
    EXPECT_EQ(std::string(readFrom("a", Field{"xyz"}, whole).text, 4), std::string("a\0\0\0", 4));
    EXPECT_STREQ(readFrom("abcdef", Field{"xyz"}, terminated).text, "abc");
    EXPECT_STREQ(readFrom("", Field{"xyz"}, terminated).text, "");
}

TEST(TextSides, FindIsStrstrWithinBounds)
{
    const Needle needle("</XML_ZELMAR>", 'Z');
    for (const std::string& text :
         {std::string("</XML_ZELMAR>"), std::string("ZZ</XML_ZELMAR></XML_ZELMAR>"),
          std::string("_Z</XML_Z</XML_ZELMA</XML_ZELMAR>Z"), std::string("</XML_ZELMAR")}) {
        const auto exact = std::make_unique<char[]>(text.size());
        memcpy(exact.get(), text.data(), text.size());
        for (size_t length = 0; length <= text.size(); ++length)
            EXPECT_EQ(find({exact.get(), length}, needle), text.substr(0, length).find(needle.text))
                << text << length;
    }
}

} // namespace
