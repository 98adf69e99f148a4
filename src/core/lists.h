// Value forms of the records that share TIME_PERIOD and COORDINATE, overloaded on the text side like those of
// attributes.h: the two lists of groups in brackets, and a time of day in three fields.
#ifndef ZEL_CORE_LISTS_H
#define ZEL_CORE_LISTS_H

#include "core/elements.h"
#include "zel_protocol/smart_rule.h"

namespace zel {

constexpr size_t kPeriods = 4;
constexpr size_t kCoordinates = 8;

// Each entry as "[%02d:%02d:%02d-%02d:%02d:%02d]," or "[%d,%d],".
char* printPeriods(char* at, const TIME_PERIOD* periods, size_t count);
char* printCoordinates(char* at, const COORDINATE* coordinates, size_t count);

// One entry for each group in brackets, whatever stands between the groups, until the text or the count ends.
// Of a group the first 32 bytes are read, as sscanf does; what doesn't convert keeps what it held.
void readPeriods(const ElementReader& in, const char* name, TIME_PERIOD* periods, size_t count);
void readCoordinates(const ElementReader& in, const char* name, COORDINATE* coordinates, size_t count);

// `count` is the list's own field, any number or absent: the array bounds it both ways.
template <size_t N>
[[gnu::noinline]] void periodListAttribute(TextWriter& out, const char (&name)[N],
                                           const TIME_PERIOD (&periods)[kPeriods], uint32_t count)
{
    constexpr size_t kLongest = kPeriods * (sizeof("[::-::],") - 1 + 6 * kLongestNumber);
    writeLine<kLongest>(out, name, kLongest,
                        [&](char* at) { return printPeriods(at, periods, clampCount(count, kPeriods)); });
}
inline void periodListAttribute(const ElementReader& in, const char* name, TIME_PERIOD (&periods)[kPeriods],
                                uint32_t count)
{
    readPeriods(in, name, periods, clampCount(count, kPeriods));
}

template <size_t N>
[[gnu::noinline]] void coordinateListAttribute(TextWriter& out, const char (&name)[N],
                                               const COORDINATE (&coordinates)[kCoordinates], uint32_t count)
{
    constexpr size_t kLongest = kCoordinates * (sizeof("[,],") - 1 + 2 * kLongestNumber);
    writeLine<kLongest>(out, name, kLongest, [&](char* at) {
        return printCoordinates(at, coordinates, clampCount(count, kCoordinates));
    });
}
inline void coordinateListAttribute(const ElementReader& in, const char* name,
                                    COORDINATE (&coordinates)[kCoordinates], uint32_t count)
{
    readCoordinates(in, name, coordinates, clampCount(count, kCoordinates));
}

// A time of day, %02d:%02d:%02d, in three fields.
template <size_t N>
void timeAttribute(TextWriter& out, const char (&name)[N], const int32_t& hour, const int32_t& minute,
                   const int32_t& second)
{
    const int32_t time[] = {hour, minute, second};
    timeAttribute(out, name, time);
}
void timeAttribute(const ElementReader& in, const char* name, int32_t& hour, int32_t& minute,
                   int32_t& second);

// A period as two attributes.
template <class Side, size_t S, size_t E, class Period>
void periodAttributes(Side& side, const char (&startName)[S], const char (&endName)[E], Period& period)
{
    timeAttribute(side, startName, period.StartHour, period.StartMinute, period.StartSecond);
    timeAttribute(side, endName, period.EndHour, period.EndMinute, period.EndSecond);
}

} // namespace zel

#endif
