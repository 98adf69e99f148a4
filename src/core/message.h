// A received message on its way through dispatcher and leaf, and what every leaf does with it.
#ifndef ZEL_CORE_MESSAGE_H
#define ZEL_CORE_MESSAGE_H

#include <string_view>

#include "core/element_reader.h"
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

// A block for a result, or null, which has been logged.
void* takeBlock(size_t recordSize, size_t tailSize);

// True of the few records whose init leaves fields as they are. Elsewhere it sets every byte, gaps included.
template <class Record>
constexpr bool kInitLeavesFields = false;
template <>
inline constexpr bool kInitLeavesFields<TRANSPARENT_HEADER> = true;

// A record at its absent values, at the start of a new block with room for a tail; null when there is no
// memory.
template <class Record>
Record* takeRecord(int (*init)(Record*), size_t tailSize = 0)
{
    auto* record = static_cast<Record*>(takeBlock(sizeof(Record), tailSize));
    if (!record)
        return nullptr;
    // What the init leaves must not be somebody else's memory.
    if (kInitLeavesFields<Record>)
        setAbsent(*record);
    init(record);
    return record;
}

// A result that is complete but for its block's content: fill(*record) can't fail.
template <class Record, class Fill>
int giveRecord(void** result, int (*init)(Record*), Fill fill)
{
    if (!result)
        return ZEL_ERR_BAD_PARAM;
    Record* record = takeRecord(init);
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    fill(*record);
    *result = record;
    return 0;
}

// A result whose pExData points at its extension, behind it in the same block: fill(record, extension) can't
// fail. A peer may name one kind of extension and send another, so the block has `room` for the family's
// largest: an application that follows the name reads zero bytes at worst.
template <size_t room, class Record, class Extension, class Fill>
int giveExtended(void** result, int (*init)(Record*), int (*initExtension)(Extension*), Fill fill)
{
    static_assert(sizeof(Record) % alignof(Extension) == 0 && sizeof(Extension) <= room);
    if (!result)
        return ZEL_ERR_BAD_PARAM;
    Record* record = takeRecord(init, room);
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    memset(record + 1, 0, room);
    auto* extension = reinterpret_cast<Extension*>(record + 1);
    initExtension(extension);
    record->pExData = extension;
    fill(*record, *extension);
    *result = record;
    return 0;
}

// A leaf whose whole message is one required element below the body: fill(element, record).
template <class Record, class Fill>
int analyseElement(Message& message, void** result, const Leaf& leaf, const char* name, int (*init)(Record*),
                   Fill fill)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader element = body.child(name);
    if (!element)
        return missingElement(leaf, name);
    return giveRecord(result, init, [&](Record& record) { fill(element, record); });
}

// The same for a list that begins with the required element itself: fill(body, record). `reported` is what
// the log calls the element when it is missing.
template <class Record, class Fill>
int analyseDocument(Message& message, void** result, const Leaf& leaf, const char* name, const char* reported,
                    int (*init)(Record*), Fill fill)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    if (!body.child(name))
        return missingElement(leaf, reported);
    return giveRecord(result, init, [&](Record& record) { fill(body, record); });
}

// A leaf whose elements below the body are all optional: fill(body, record).
template <class Record, class Fill>
int analyseBody(Message& message, void** result, const Leaf& leaf, int (*init)(Record*), Fill fill)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    return giveRecord(result, init, [&](Record& record) { fill(body, record); });
}

// A leaf that serves both directions: the response if there is one, else the request.
template <class Record, class Request, class Response>
int analyseEither(Message& message, void** result, const Leaf& leaf, int (*init)(Record*), Request request,
                  Response response)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    if (const ElementReader element = body.child("RESPONSE_PARAM"))
        return giveRecord(result, init, [&](Record& record) { response(element, record); });
    if (const ElementReader element = body.child("REQUEST_PARAM"))
        return giveRecord(result, init, [&](Record& record) { request(element, record); });
    return missingElement(leaf, "RESPONSE_PARAM");
}

// What every dispatcher refuses. A code without data stands for a null pointer.
bool lacksArgument(const Message& message, std::string_view code, void** result);

// The exported form of a dispatcher.
template <int (*dispatcher)(Message&, std::string_view, void**)>
int analyseCode(const char* text, const char* code, void** result)
{
    Message message(text);
    return dispatcher(message, code ? std::string_view(code) : std::string_view(), result);
}

// The exported form of a leaf.
template <int (*leaf)(Message&, void**)>
int analyseText(const char* text, void** result)
{
    Message message(text);
    return leaf(message, result);
}

} // namespace zel

#endif
