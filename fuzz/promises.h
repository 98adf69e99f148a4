// The two entry points with the promises that hold for every call of them, whatever it is given.
#ifndef ZEL_FUZZ_PROMISES_H
#define ZEL_FUZZ_PROMISES_H

#include <memory>
#include <string>

#include "require.h"
#include "services.h"
#include "support/catalogue.h"

namespace fuzz {

// How a message travels.
struct Codec
{
    int mode; // below zero: plain
    void* arg;
};

Codec plainCodec();
Codec sharedKeyCodec();
Codec p2pCodec();

// One of the three.
Codec codecOf(unsigned number);

// The text as a peer with the same key would send it; plain text for the plain codec.
std::string enciphered(const Codec& codec, const std::string& text);

struct FreeRecord
{
    void operator()(void* record) const;
};

struct Analysed
{
    int status;
    ZEL_PROTOCOL_HEADER header;
    std::unique_ptr<void, FreeRecord> record; // null if the message has none
};

// Analyses the payload in a buffer of exactly its size, twice over different memory.
Analysed analyse(const std::string& payload, const Codec& codec, const Supply& supply = {});

// Makes sure of what a function that gives a record owes its caller. `untouched` is what the slot held
// before.
void requireResult(int status, const void* result, const void* untouched, const Memory& memory);

// Block and record alike: the bytes, with pointers into the block as offsets.
std::string contentOf(const void* record);

struct Composed
{
    int status;
    std::string bytes; // as far as they lie in the buffer
    std::string text;  // plain; empty in an enciphered frame
    uint32_t extra;    // what the head counts beyond the payload
};

// Composes into a buffer of exactly `outLen` bytes.
Composed compose(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind, const Codec& codec,
                 int outLen, const Supply& supply = {});

// Room for any message.
constexpr int kAmple = 1 << 17;

bool isBare(const ZEL_PROTOCOL_HEADER& header);

// A number for an entry that other entries don't change, so that an input goes on meaning the same message,
// and the entry for any number. Numbers below kNoEntry are free.
constexpr uint16_t kNoEntry = 16;
uint16_t numberOf(const test::CatalogueEntry& entry);
const test::CatalogueEntry& entryOf(uint16_t number);

// A record of fuzzed content, and what the catalogue says of it.
enum class Fill
{
    kFresh,   // absent values
    kFull,    // every text filled to its last byte
    kCompact, // small numbers, texts of one letter
    kZero
};

// A block of exactly the record's size. `complete` sets what can't be any bytes; without it there is no
// extension.
using Record = std::unique_ptr<char[]>;
Record makeRecord(const test::CatalogueEntry& entry, Fill fill, const std::string& content, bool complete);

} // namespace fuzz

#endif
