// Value forms of the records that share TIME_PERIOD and COORDINATE, and lists of numbers.
#ifndef ZEL_CORE_LISTS_H
#define ZEL_CORE_LISTS_H

#include "core/elements.h"
#include "zel_protocol/smart_rule.h"

namespace zel {

constexpr size_t kPeriods = 4;
constexpr size_t kCoordinates = 8;

// Each entry as "[%02d:%02d:%02d-%02d:%02d:%02d]," or "[%d,%d],". `count` is the list's own field, any number
// or absent: the array bounds it both ways.
//
// One entry is read for each group in brackets, whatever stands between the groups, until the text or the
// count ends. Of a group the first 32 bytes are read, as sscanf does; what doesn't convert keeps what it
// held.
void periodListAttribute(Side& side, Name name, TIME_PERIOD (&periods)[kPeriods], uint32_t count);
void coordinateListAttribute(Side& side, Name name, COORDINATE (&coordinates)[kCoordinates], uint32_t count);

// The same, of which at most 255 bytes go out.
void cutPeriodListAttribute(Side& side, Name name, TIME_PERIOD (&periods)[kPeriods], uint32_t count);

// A period as two times of day.
void periodAttributes(Side& side, Name startName, Name endName, TIME_PERIOD& period);

// A number of int32_t, each with a comma behind it. They are read as strtok and atoi do: empty pieces are
// passed over, and the surplus is dropped.
void listAttribute(Side& side, Name name, int32_t* numbers, size_t size, size_t count);

// The same with commas between them alone.
void joinedListAttribute(Side& side, Name name, int32_t* numbers, size_t size, size_t count);

} // namespace zel

#endif
