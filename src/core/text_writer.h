// The writing side: text appended to a buffer of fixed size.
#ifndef ZEL_CORE_TEXT_WRITER_H
#define ZEL_CORE_TEXT_WRITER_H

#include <cstring>

#include "core/side.h"

namespace zel {

// What doesn't fit is counted but not kept, so that nobody who appends needs to look. The bytes kept are
// always the first of the whole text.
struct TextWriter : Side
{
    TextWriter(char* buffer, size_t capacity)
        : Side(Kind::kText, true, false, buffer, capacity), begin(buffer)
    {}

    size_t kept() const
    {
        return static_cast<size_t>(cursor - begin);
    }
    size_t length() const
    {
        return kept() + lost;
    }
    bool overflowed() const
    {
        return lost != 0;
    }

    void append(const char* text, size_t size)
    {
        if (left() >= size) {
            memcpy(cursor, text, size);
            cursor += size;
        } else {
            appendPart(text, size);
        }
    }
    template <size_t N>
    void append(const char (&text)[N])
    {
        append(text, N - 1);
    }

    // Takes the last byte back: for closings that stand directly behind an attribute's quote.
    void takeBack()
    {
        if (lost != 0)
            --lost;
        else
            --cursor;
    }

    char* const begin;
    size_t lost = 0;

private:
    void appendPart(const char* text, size_t size);
};

inline bool isText(const Side& side)
{
    return side.kind == Side::Kind::kText;
}
inline TextWriter& writerOf(Side& side)
{
    return static_cast<TextWriter&>(side);
}

inline bool likely(bool condition)
{
    return __builtin_expect(condition, true);
}

// Names have a few bytes to some thirty: moves that may overlap, in place of a call.
inline char* putName(char* at, Name name)
{
    char* const end = at + name.length;
    if (name.length >= 8) {
        memcpy(at, name.text, 8);
        for (size_t done = 8; done + 8 < name.length; done += 8)
            memcpy(at + done, name.text + done, 8);
        memcpy(end - 8, name.text + name.length - 8, 8);
    } else if (name.length >= 4) {
        memcpy(at, name.text, 4);
        memcpy(end - 4, name.text + name.length - 4, 4);
    } else {
        for (size_t i = 0; i < name.length; ++i)
            at[i] = name.text[i];
    }
    return end;
}

// Prints like %d and %u (or PRIu64). At most 20 bytes; returns the end.
char* printNumber(char* at, int32_t value);
char* printNumber(char* at, uint32_t value);
char* printNumber(char* at, uint64_t value);
constexpr size_t kLongestNumber = 20;

// Prints like %02d, %2d, %x and %f. At most kLongestNumber bytes, for a float at most kLongestFloat.
char* printTwoDigits(char* at, int32_t value);
char* printTwoPlaces(char* at, int32_t value);
char* printHex(char* at, uint64_t value);
char* printFloat(char* at, float value);
constexpr size_t kLongestFloat = 64;

// Appends a bare number.
void appendNumber(TextWriter& out, int32_t value);

// A field's text ends at its terminator or at the field's end.
template <size_t N>
size_t textLength(const char (&field)[N])
{
    return strnlen(field, N);
}

template <size_t N>
void appendText(TextWriter& out, const char (&field)[N])
{
    out.append(field, textLength(field));
}

} // namespace zel

#endif
