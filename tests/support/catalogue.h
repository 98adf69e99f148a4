// Every message of the library, for the loops over all of them: tests, fuzzers and the cost sheet.
#ifndef ZEL_TESTS_SUPPORT_CATALOGUE_H
#define ZEL_TESTS_SUPPORT_CATALOGUE_H

#include <cstring>
#include <string>
#include <vector>

#include "zel_protocol/zel_protocol.h"

namespace test {

struct CatalogueEntry
{
    const char* type;
    const char* code;
    std::vector<int> kinds; // of 0 and 1: those with a body
    size_t size;            // of the record
    int (*init)(void* record);
    void (*complete)(void* record) = nullptr; // sets what can't be any bytes: command words, extensions
    size_t pointerAt = 0;                     // place of the record's pointer; 0: it has none

    std::string name() const
    {
        return std::string(type) + " " + code;
    }
    bool isBare() const
    {
        return strcmp(type, "SYSTEM_SEARCHIPC_MESSAGE") == 0;
    }
};

const std::vector<CatalogueEntry>& catalogue();

// A record's bytes, aligned as a block from malloc is.
using RecordBytes = std::vector<long double>;

RecordBytes freshRecord(const CatalogueEntry& entry);

// Every number set and every text filled to its last byte, then completed.
RecordBytes fullRecord(const CatalogueEntry& entry);

ZEL_PROTOCOL_HEADER catalogueHeader(const CatalogueEntry& entry);

} // namespace test

#endif
