// Absent values of records.
#ifndef ZEL_CORE_RECORDS_H
#define ZEL_CORE_RECORDS_H

#include <cstring>
#include <type_traits>

namespace zel {

// Clears texts, and whatever else starts at zero.
template <class... Fields>
void clear(Fields&... fields)
{
    (memset(&fields, 0, sizeof(Fields)), ...);
}

// Sets all bits of numbers, or of blocks of numbers: the absent value of every width.
template <class... Fields>
void setAbsent(Fields&... fields)
{
    static_assert((!std::is_pointer_v<Fields> && ...));
    (memset(&fields, 0xFF, sizeof(Fields)), ...);
}

// The body of most inits: all numbers absent, then the rest by `clearTexts`.
template <class Record, class ClearTexts>
int initRecord(Record* record, ClearTexts clearTexts)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    if (!record)
        return -1;
    memset(record, 0xFF, sizeof *record);
    clearTexts(*record);
    return 0;
}

// The init of a record that starts with zero bytes throughout.
template <class Record>
int startAtZero(Record* record)
{
    return initRecord(record, [](Record& all) { clear(all); });
}

template <class Record>
int initRecord(Record* record)
{
    return initRecord(record, [](Record&) {});
}

} // namespace zel

#endif
