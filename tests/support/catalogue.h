// The library's catalogue as the tests, fuzzers and the cost sheet loop over it: each message with what
// completes a record of it.
#ifndef ZEL_TESTS_SUPPORT_CATALOGUE_H
#define ZEL_TESTS_SUPPORT_CATALOGUE_H

#include <cstring>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "zel_protocol/zel_protocol.h"

namespace test {

struct CatalogueEntry
{
    int index; // in the library's catalogue
    std::string_view type;
    std::string_view code;
    std::string_view word; // empty: none
    std::string_view record;
    std::vector<int> kinds; // of 0 and 1: those with a body
    size_t size;            // of the record
    int (*init)(void* record);
    size_t pointerAt; // place of the record's pointer; 0: it has none
    size_t extensionSize;
    int32_t alarmCode;
    ZEL_BEHIND behind;
    bool bare;

    std::string name() const
    {
        std::string all(type);
        all.append(" ").append(code);
        if (!word.empty())
            all.append(" ").append(word);
        if (alarmCode != -1)
            all.append(" ").append(std::to_string(alarmCode));
        return all;
    }
    bool isBare() const
    {
        return bare;
    }
};

// Every message that has a record and goes through the entry points by its type.
const std::vector<CatalogueEntry>& catalogue();

// A record's bytes, aligned as a block from malloc is.
using RecordBytes = std::vector<long double>;

// Whether an init leaves fields here and there, which untouched_fields.txt names one by one.
bool initLeavesFields(std::string_view record);

RecordBytes freshRecord(const CatalogueEntry& entry);

// Every number set and every text filled to its last byte, then completed: command words, extensions, and
// what can't be any bytes.
RecordBytes fullRecord(const CatalogueEntry& entry);
void completeRecord(const CatalogueEntry& entry, void* record);

ZEL_PROTOCOL_HEADER catalogueHeader(const CatalogueEntry& entry);

// Calls back for each element and attribute of a message.
void describe(const CatalogueEntry& entry, int kind, const std::function<void(const ZEL_DESCRIPTION&)>& see);

} // namespace test

#endif
