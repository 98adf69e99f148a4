// A received message on its way through dispatcher and leaf, and what every leaf does with it.
#ifndef ZEL_CORE_MESSAGE_H
#define ZEL_CORE_MESSAGE_H

#include <string_view>

#include "core/element_reader.h"
#include "core/elements.h"
#include "core/records.h"
#include "zel_protocol/core.h"

namespace zel {

// Parsed once, by the first that needs it: the entry point, or the exported function that was called with a
// text.
struct Message
{
    // A terminated text, or null, from an application. Nothing is known of what lies behind it.
    explicit Message(const char* terminated);

    // A text that lies at the start of `receivedBytes` bytes, which were `sourceBytes` before deciphering.
    Message(std::string_view envelope, size_t receivedBytes, int sourceBytes)
        : text(envelope), received(receivedBytes), sourceLength(sourceBytes)
    {}

    bool isNull() const
    {
        return text.data() == nullptr;
    }

    std::string_view text; // through the closing root tag; no terminator is needed behind it
    size_t received;       // bytes that may be read from the text's start on
    int sourceLength;      // -1 when unknown, as `received` then goes no further than the text

    enum class State
    {
        kUnparsed,
        kParsed,
        kBroken
    };
    State state = State::kUnparsed;
    ZelXMLParser parser;
    ElementReader root;
};

// Parses unless that is done already. False if the text doesn't parse; a text may parse and have no root.
bool parse(Message& message);

// How a leaf reports. The name is that of the exported function.
struct Leaf
{
    const char* name;
    bool quietParse = false; // a text that doesn't parse isn't logged
};

// The steps that all leaves share, each with its log text; 0 or the status.
int testArguments(const Message& message, void** result, const Leaf& leaf);
int findRoot(Message& message, const Leaf& leaf);
int findBody(Message& message, const Leaf& leaf, ElementReader& body);
int missingElement(const Leaf& leaf, const char* element);

// testArguments, findRoot and findBody in turn.
int openBody(Message& message, void** result, const Leaf& leaf, ElementReader& body);

// A record as an analysis makes it.
struct RecordType
{
    int (*init)(void* record) = nullptr;
    uint32_t size = 0;
    uint16_t pointerAt = 0;        // of its pExData or pData; 0: it has none
    bool initLeavesFields = false; // true of a few; elsewhere the init sets every byte, gaps included
};

template <auto init>
constexpr RecordType recordOf()
{
    return {Erased<init>::call, sizeof(typename Erased<init>::Type)};
}

// A record at its absent values, at the start of a new block with room for a tail; null when there is no
// memory, which has been logged.
void* takeRecord(const RecordType& type, size_t tailSize = 0);

// The same with an extension behind it in the same block, which the record's pointer refers to. A peer may
// name one kind of extension and send another, so the block has `room` for either: an application that
// follows the name reads zero bytes at worst.
void* takeExtended(const RecordType& type, const RecordType& extension, size_t room);

// A result that can't fail any more: the record is filled by what runs over an element that is there.
int giveRecord(void** result, const RecordType& type, Side& side, List list);

// What every dispatcher refuses. A code without data stands for a null pointer.
bool lacksArgument(const Message& message, std::string_view code, void** result);

} // namespace zel

#endif
