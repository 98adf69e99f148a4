#include "core/text_writer.h"

#include <charconv>

namespace zel {

void TextWriter::appendPart(const char* text, size_t size)
{
    const size_t fits = left();
    memcpy(cursor, text, fits);
    cursor += fits;
    lost += size - fits;
}

void TextWriter::appendPieces(const char* first, size_t firstSize, const char* second, size_t secondSize,
                              const char* third, size_t thirdSize)
{
    append(first, firstSize);
    append(second, secondSize);
    append(third, thirdSize);
}

char* printNumber(char* at, int32_t value)
{
    return std::to_chars(at, at + kLongestNumber, value).ptr;
}

char* printNumber(char* at, uint32_t value)
{
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

char* printHex(char* at, uint32_t value)
{
    return std::to_chars(at, at + kLongestNumber, value, 16).ptr;
}

char* printFloat(char* at, float value)
{
    // printf knows no float: it prints the double of the same value.
    return std::to_chars(at, at + kLongestFloat, static_cast<double>(value), std::chars_format::fixed, 6).ptr;
}

void appendNumber(TextWriter& out, int32_t value)
{
    char digits[kLongestNumber];
    out.append(digits, static_cast<size_t>(printNumber(digits, value) - digits));
}

} // namespace zel
