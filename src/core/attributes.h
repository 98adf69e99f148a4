// Attributes, one function for each value form, overloaded on the text side: towards a TextWriter it appends
// the attribute's line, towards an ElementReader it reads into the field and leaves it as it was if the
// attribute is missing. So a list of attributes is written down once and serves both directions.
//
// The field's type decides the form: int32_t %d, uint32_t %u, uint8_t %u, uint64_t %llu, float %f, char[N]
// text of at most N bytes. A form that isn't the type's own has a name of its own.
#ifndef ZEL_CORE_ATTRIBUTES_H
#define ZEL_CORE_ATTRIBUTES_H

#include <type_traits>

#include "core/element_reader.h"
#include "core/scan.h"
#include "core/text_writer.h"

namespace zel {

// True where a shared list writes: for the few places where the directions differ.
template <class Side>
constexpr bool kWrites = std::is_same_v<std::remove_cv_t<std::remove_reference_t<Side>>, TextWriter>;

// --- The absent value ----------------------------------------------------------------------------

inline bool isSet(int32_t value)
{
    return value != -1;
}
inline bool isSet(uint32_t value)
{
    return value != UINT32_MAX;
}
inline bool isSet(uint8_t value)
{
    return value != UINT8_MAX;
}
inline bool isSet(uint64_t value)
{
    return value != UINT64_MAX;
}
template <size_t N>
bool isSet(const char (&text)[N])
{
    return text[0] != '\0';
}

// --- Lines ---------------------------------------------------------------------------------------

// Appends Name="value" and a line feed, or what fits of it.
void appendLine(TextWriter& out, const char* name, size_t nameLength, const char* value, size_t length);

// The same in one step; print(at) prints the value in at most `longest` bytes, no more than Room, and returns
// its end.
template <size_t Room = 128, size_t N, class Print>
void writeLine(TextWriter& out, const char (&name)[N], size_t longest, Print print)
{
    constexpr size_t kAround = N - 1 + sizeof("=\"\"\n") - 1;
    if (out.left() >= kAround + longest) {
        char* at = out.cursor;
        memcpy(at, name, N - 1);
        at += N - 1;
        *at++ = '=';
        *at++ = '"';
        at = print(at);
        *at++ = '"';
        *at++ = '\n';
        out.cursor = at;
    } else {
        char value[Room];
        appendLine(out, name, N - 1, value, static_cast<size_t>(print(value) - value));
    }
}

// One body for each length of a name, shared by all attributes that have it.
template <size_t N, class Number>
[[gnu::noinline]] void writeNumber(TextWriter& out, const char (&name)[N], Number value)
{
    writeLine(out, name, kLongestNumber, [value](char* at) { return printNumber(at, value); });
}

// Most values are short: two moves that may overlap, in place of a call.
inline void copyShort(char* to, const char* from, size_t size)
{
    if (size > 16) {
        memcpy(to, from, size);
    } else if (size >= 8) {
        uint64_t parts[2];
        memcpy(&parts[0], from, 8);
        memcpy(&parts[1], from + size - 8, 8);
        memcpy(to, &parts[0], 8);
        memcpy(to + size - 8, &parts[1], 8);
    } else {
        for (size_t i = 0; i < size; ++i)
            to[i] = from[i];
    }
}

template <size_t N>
[[gnu::noinline]] void writeText(TextWriter& out, const char (&name)[N], const char* value, size_t length)
{
    constexpr size_t kAround = N - 1 + sizeof("=\"\"\n") - 1;
    if (out.left() >= kAround && out.left() - kAround >= length) {
        char* at = out.cursor;
        memcpy(at, name, N - 1);
        at += N - 1;
        *at++ = '=';
        *at++ = '"';
        copyShort(at, value, length);
        at += length;
        *at++ = '"';
        *at++ = '\n';
        out.cursor = at;
    } else {
        appendLine(out, name, N - 1, value, length);
    }
}

template <size_t N>
void writeField(TextWriter& out, const char (&name)[N], const char* value, size_t size)
{
    writeText(out, name, value, strnlen(value, size));
}

// --- The type's own form -------------------------------------------------------------------------

template <size_t N>
void attribute(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    writeNumber(out, name, field);
}
template <size_t N>
void attribute(TextWriter& out, const char (&name)[N], const uint32_t& field)
{
    writeNumber(out, name, field);
}
template <size_t N>
void attribute(TextWriter& out, const char (&name)[N], const uint8_t& field)
{
    // Shares a body with int32_t: a byte prints alike.
    writeNumber(out, name, int32_t{field});
}
template <size_t N>
void attribute(TextWriter& out, const char (&name)[N], const uint64_t& field)
{
    writeNumber(out, name, field);
}
template <size_t N>
[[gnu::noinline]] void attribute(TextWriter& out, const char (&name)[N], const float& field)
{
    writeLine(out, name, kLongestFloat, [field](char* at) { return printFloat(at, field); });
}
template <size_t N, size_t Size>
void attribute(TextWriter& out, const char (&name)[N], const char (&field)[Size])
{
    writeField(out, name, field, Size);
}

template <class Number>
void attribute(const ElementReader& in, const char* name, Number& field)
{
    readNumber(in, name, field);
}
template <size_t Size>
void attribute(const ElementReader& in, const char* name, char (&field)[Size])
{
    readText(in, name, field, Size);
}

// Written only if the field isn't at its absent value; read always.
template <size_t N, class Field>
void attributeIfSet(TextWriter& out, const char (&name)[N], const Field& field)
{
    if (isSet(field))
        attribute(out, name, field);
}
template <class Field>
void attributeIfSet(const ElementReader& in, const char* name, Field& field)
{
    attribute(in, name, field);
}

// Written by us, never read.
template <size_t N, class Field>
void attributeWritten(TextWriter& out, const char (&name)[N], const Field& field)
{
    attribute(out, name, field);
}
template <class Field>
void attributeWritten(const ElementReader&, const char*, Field&)
{}

// Read from a peer, never written by us.
template <class Field>
void attributeRead(TextWriter&, const char*, const Field&)
{}
template <class Field>
void attributeRead(const ElementReader& in, const char* name, Field& field)
{
    attribute(in, name, field);
}

// --- Other forms of one number or text -----------------------------------------------------------

// An unsigned field that goes out as %d.
template <size_t N>
void signedAttribute(TextWriter& out, const char (&name)[N], const uint32_t& field)
{
    writeNumber(out, name, static_cast<int32_t>(field));
}
inline void signedAttribute(const ElementReader& in, const char* name, uint32_t& field)
{
    readNumber(in, name, field);
}
template <size_t N>
void signedAttribute(TextWriter& out, const char (&name)[N], const uint64_t& field)
{
    // -1 at most: an int64 prints like its magnitude.
    writeLine(out, name, kLongestNumber + 1, [field](char* at) {
        const bool negative = field >> 63 != 0;
        if (negative)
            *at++ = '-';
        return printNumber(at, negative ? 0 - field : field);
    });
}
inline void signedAttribute(const ElementReader& in, const char* name, uint64_t& field)
{
    readNumber(in, name, field);
}

// %x, read with sscanf's %x.
template <size_t N>
void hexAttribute(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    writeLine(out, name, kLongestNumber,
              [field](char* at) { return printHex(at, static_cast<uint32_t>(field)); });
}
void hexAttribute(const ElementReader& in, const char* name, int32_t& field);

template <size_t N>
void hexAttributeIfSet(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    if (isSet(field))
        hexAttribute(out, name, field);
}
inline void hexAttributeIfSet(const ElementReader& in, const char* name, int32_t& field)
{
    hexAttribute(in, name, field);
}

// A number that is read with atoi: a text without one is 0, not absent.
template <size_t N>
void atoiAttribute(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    writeNumber(out, name, field);
}
void atoiAttribute(const ElementReader& in, const char* name, int32_t& field);

template <size_t N>
void atoiAttributeIfSet(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    attributeIfSet(out, name, field);
}
inline void atoiAttributeIfSet(const ElementReader& in, const char* name, int32_t& field)
{
    atoiAttribute(in, name, field);
}

// A text that is read with strncpy: a long one fills its field to the last byte, without a terminator.
void readWholeField(const ElementReader& in, const char* name, char* field, size_t size);

template <size_t N, size_t Size>
void wholeFieldAttribute(TextWriter& out, const char (&name)[N], const char (&field)[Size])
{
    writeField(out, name, field, Size);
}
template <size_t Size>
void wholeFieldAttribute(const ElementReader& in, const char* name, char (&field)[Size])
{
    readWholeField(in, name, field, Size);
}
template <size_t N, size_t Size>
void wholeFieldAttributeIfSet(TextWriter& out, const char (&name)[N], const char (&field)[Size])
{
    attributeIfSet(out, name, field);
}
template <size_t Size>
void wholeFieldAttributeIfSet(const ElementReader& in, const char* name, char (&field)[Size])
{
    readWholeField(in, name, field, Size);
}

// --- Several numbers in one value, read with sscanf ----------------------------------------------

// A number, how it is printed, and what stands between it and the one before.
enum class Digits
{
    kPlain,
    kTwo
};

char* printNumbers(char* at, Digits digits, char separator, const int32_t* numbers, size_t count);
// Tells whether the attribute is there.
bool readNumbers(const ElementReader& in, const char* name, char separator, int32_t* numbers, size_t count);

template <size_t N, size_t Count>
void numbersAttribute(TextWriter& out, const char (&name)[N], Digits digits, char separator,
                      const int32_t (&numbers)[Count])
{
    constexpr size_t kLongest = Count * (kLongestNumber + 1);
    writeLine<kLongest>(out, name, kLongest,
                        [&](char* at) { return printNumbers(at, digits, separator, numbers, Count); });
}
template <size_t Count>
void numbersAttribute(const ElementReader& in, const char* name, Digits, char separator,
                      int32_t (&numbers)[Count])
{
    readNumbers(in, name, separator, numbers, Count);
}

// A time of day: hour, minute, second as %02d:%02d:%02d.
template <class Side, size_t N, class Time>
void timeAttribute(Side& side, const char (&name)[N], Time& time)
{
    numbersAttribute(side, name, Digits::kTwo, ':', time);
}

// The same as %d:%d:%d.
template <class Side, size_t N, class Time>
void plainTimeAttribute(Side& side, const char (&name)[N], Time& time)
{
    numbersAttribute(side, name, Digits::kPlain, ':', time);
}

// Two bounds, or any list of fixed length, as %d,%d.
template <class Side, size_t N, class Range>
void rangeAttribute(Side& side, const char (&name)[N], Range& range)
{
    numbersAttribute(side, name, Digits::kPlain, ',', range);
}

// Width and height as %d*%d.
template <class Side, size_t N, class Resolution>
void resolutionAttribute(Side& side, const char (&name)[N], Resolution& resolution)
{
    numbersAttribute(side, name, Digits::kPlain, '*', resolution);
}

} // namespace zel

#endif
