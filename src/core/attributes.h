// Attributes, one function for each value form: it appends the attribute's line, reads the value into the
// field (which stays as it was if there is none), or shows the field to a visitor. So a list of attributes is
// written down and compiled once and serves whatever runs over it.
//
// The field's type decides the form: int32_t %d, uint32_t %u, uint8_t %u, uint64_t %llu, float %f, char[N]
// text of at most N bytes. A form that isn't the type's own has a name of its own.
#ifndef ZEL_CORE_ATTRIBUTES_H
#define ZEL_CORE_ATTRIBUTES_H

#include <string_view>

#include "core/side.h"

namespace zel {

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

// Whether any field of several is.
template <class... Fields>
bool isAnySet(const Fields&... fields)
{
    return (isSet(fields) || ...);
}

// A get and its set are one document but for a few places: defaults, lists of choices.
enum class Form
{
    kGet,
    kSet
};

// --- The type's own form -------------------------------------------------------------------------

void attribute(Side& side, Name name, int32_t& field);
void attribute(Side& side, Name name, uint32_t& field);
void attribute(Side& side, Name name, uint8_t& field);
void attribute(Side& side, Name name, uint64_t& field);
void attribute(Side& side, Name name, float& field);

void textAttribute(Side& side, Name name, char* field, size_t size);
template <size_t Size>
void attribute(Side& side, Name name, char (&field)[Size])
{
    textAttribute(side, name, field, Size);
}

// Written only if the field isn't at its absent value; read always.
void attributeIfSet(Side& side, Name name, int32_t& field);
void attributeIfSet(Side& side, Name name, uint32_t& field);
void attributeIfSet(Side& side, Name name, uint8_t& field);
void attributeIfSet(Side& side, Name name, uint64_t& field);

void textAttributeIfSet(Side& side, Name name, char* field, size_t size);
template <size_t Size>
void attributeIfSet(Side& side, Name name, char (&field)[Size])
{
    textAttributeIfSet(side, name, field, Size);
}

// Written by us, never read.
template <class Field>
void attributeWritten(Side& side, Name name, Field& field)
{
    if (side.writes())
        attribute(side, name, field);
}

// Read from a peer, never written by us.
template <class Field>
void attributeRead(Side& side, Name name, Field& field)
{
    if (!side.writes())
        attribute(side, name, field);
}

// The same, and tells whether there was one. While nothing is read there is none.
bool readAttribute(Side& side, Name name, int32_t& field);
bool readAttribute(Side& side, Name name, uint8_t& field);

bool readTextAttribute(Side& side, Name name, char* field, size_t size);
template <size_t Size>
bool readAttribute(Side& side, Name name, char (&field)[Size])
{
    return readTextAttribute(side, name, field, Size);
}

// --- Other forms of one number or text -----------------------------------------------------------

// An unsigned field that goes out as %d or %lld.
void signedAttribute(Side& side, Name name, uint32_t& field);
void signedAttribute(Side& side, Name name, uint64_t& field);

// %x or %llx, read with sscanf's.
void hexAttribute(Side& side, Name name, int32_t& field);
void hexAttribute(Side& side, Name name, uint64_t& field);

// A number that is read with atoi: a text without one is 0, not absent.
void atoiAttribute(Side& side, Name name, int32_t& field);

// A text that is read with strncpy: a long one fills its field to the last byte, without a terminator.
void wholeTextAttribute(Side& side, Name name, char* field, size_t size);
template <size_t Size>
void wholeFieldAttribute(Side& side, Name name, char (&field)[Size])
{
    wholeTextAttribute(side, name, field, Size);
}

void signedAttributeIfSet(Side& side, Name name, uint32_t& field);
void signedAttributeIfSet(Side& side, Name name, uint64_t& field);
void hexAttributeIfSet(Side& side, Name name, int32_t& field);
void atoiAttributeIfSet(Side& side, Name name, int32_t& field);

void wholeTextAttributeIfSet(Side& side, Name name, char* field, size_t size);
template <size_t Size>
void wholeFieldAttributeIfSet(Side& side, Name name, char (&field)[Size])
{
    wholeTextAttributeIfSet(side, name, field, Size);
}

// Written with a blank in front of the equals sign.
void attributeBehindBlank(Side& side, Name name, int32_t& field);
void textAttributeBehindBlank(Side& side, Name name, char* field, size_t size);
template <size_t Size>
void attributeBehindBlank(Side& side, Name name, char (&field)[Size])
{
    textAttributeBehindBlank(side, name, field, Size);
}

// Written with another value than the field's own.
void attributeAs(Side& side, Name name, int32_t& field, int32_t written);

// --- Odd places ----------------------------------------------------------------------------------

// A text that only goes out, as it stands.
void appendRaw(Side& side, Name text);

// The next attribute goes to the line of the one before.
void onSameLine(Side& side);

// Takes back the line feed behind an attribute: the tag goes on directly behind its quote.
void endAtQuote(Side& side);

// A name with a number in it, from 0 to 255, for as long as the object lives.
struct NumberedName
{
    NumberedName(Name before, size_t number, Name behind = "");

    operator Name() const
    {
        return {text, length};
    }

    char text[48];
    size_t length;
};

// --- Several values in one -----------------------------------------------------------------------

// A form of `count` items that lie one behind the other.
struct ValueForm
{
    ZEL_FORM form;
    size_t longest; // bytes that an item may have when it is printed
    char* (*print)(char* at, const void* items, size_t count);
    void (*scan)(std::string_view value, void* items, size_t count);
};

// Room for whatever a form prints.
constexpr size_t kLongestValue = 1024;

// While nothing is written it tells whether there was a value to read.
bool valueAttribute(Side& side, Name name, const ValueForm& form, void* items, size_t size, size_t count);

// Where a value is read in plain code: the text of an attribute, if there is one.
bool readValue(Side& side, Name name, ZEL_FORM form, void* field, size_t size, std::string_view& value);

extern const ValueForm kClock;      // %02d:%02d:%02d
extern const ValueForm kPlainClock; // %d:%d:%d
extern const ValueForm kWeekClock;  // %2d:%2d:%2d:%2d:%2d
extern const ValueForm kNumbers;    // %d,%d and longer
extern const ValueForm kBrackets;   // [%d,%d]
extern const ValueForm kResolution; // %d*%d

// All members of an array, or of a structure of numbers alone.
template <class Numbers>
bool numbersAttribute(Side& side, Name name, const ValueForm& form, Numbers& numbers)
{
    static_assert(sizeof numbers % sizeof(int32_t) == 0);
    return valueAttribute(side, name, form, &numbers, sizeof numbers, sizeof numbers / sizeof(int32_t));
}

// A time of day: hour, minute and second.
template <class Time>
void timeAttribute(Side& side, Name name, Time& time)
{
    static_assert(sizeof time == 3 * sizeof(int32_t));
    numbersAttribute(side, name, kClock, time);
}
template <class Time>
void plainTimeAttribute(Side& side, Name name, Time& time)
{
    static_assert(sizeof time == 3 * sizeof(int32_t));
    numbersAttribute(side, name, kPlainClock, time);
}

// Two bounds, or any list of fixed length.
template <class Range>
void rangeAttribute(Side& side, Name name, Range& range)
{
    numbersAttribute(side, name, kNumbers, range);
}

// Width and height. Tells whether there was one to read.
inline bool resolutionAttribute(Side& side, Name name, int32_t (&resolution)[2])
{
    return numbersAttribute(side, name, kResolution, resolution);
}

} // namespace zel

#endif
