// A message as one row, a family as a table of rows, and the one function for each direction that serves all
// of them. What a row can't say stays a leaf in plain code, which the row names.
#ifndef ZEL_CORE_ROWS_H
#define ZEL_CORE_ROWS_H

#include <string_view>

#include "core/message.h"
#include "core/scan.h"
#include "core/text_writer.h"

namespace zel {

inline bool isRequest(int kind)
{
    return kind == 0 || kind == 2;
}
inline bool isResponse(int kind)
{
    return kind == 1 || kind == 3;
}

// A header's text: ends at its terminator or at the field's end.
template <size_t N>
std::string_view textOf(const char (&field)[N])
{
    return {field, textLength(field)};
}

// A text and its length for a printf form's %.*s.
inline int printedLength(std::string_view text)
{
    return static_cast<int>(text.size());
}

// --- One message ---------------------------------------------------------------------------------

// The kinds that a part of a message is written for: a bit for each of 0 to 3, and one for all other numbers,
// which are no request and no response.
enum class Kinds : uint8_t
{
    kNone = 0,
    kRequests = 0x05,
    kResponses = 0x0A,
    kNotRequests = 0x1A,
    kNotResponses = 0x15,
    kAll = 0x1F,
    kZero = 0x01,
    kNotZero = 0x1E
};

inline bool includes(Kinds kinds, int kind)
{
    const unsigned int bit = kind >= 0 && kind < 4 ? static_cast<unsigned int>(kind) : 4;
    return (static_cast<unsigned int>(kinds) >> bit & 1) != 0;
}

// What stands behind a record in its block: an extension, or data.
enum class Tail : uint8_t
{
    kNone,
    kOptional,
    kNeeded
};

// A message has a part for each direction, or one alone.
struct Part
{
    constexpr Part() = default;
    constexpr Part(List all, Name name, Kinds writtenFor, Tags tagsAround, bool runsWithin, bool isLookedFor)
        : list(all), elementText(name.length != 0 ? name.text : nullptr),
          elementLength(static_cast<uint8_t>(name.length)), kinds(writtenFor), tags(tagsAround),
          isWithin(runsWithin), isRead(isLookedFor)
    {}

    // Its record has an extension or data behind it in the same block; on the way out it may lack that, or
    // not.
    constexpr Part withTail() const
    {
        return with(Tail::kOptional);
    }
    constexpr Part needingTail() const
    {
        return with(Tail::kNeeded);
    }

    // Has to be there in what is received; empty: anything will do.
    constexpr Name element() const
    {
        return {elementText, elementLength};
    }

    List list = nullptr; // null: there is no such part
    const char* elementText = nullptr;
    uint8_t elementLength = 0;
    Kinds kinds = Kinds::kNone;
    Tags tags = kAttributes;
    bool isWithin = false; // the list runs within the element, else over the body, and writes the element
    bool isRead = true;    // false: an analysis doesn't look for it
    Tail tail = Tail::kNone;

private:
    constexpr Part with(Tail kind) const
    {
        Part part = *this;
        part.tail = kind;
        return part;
    }
};

// The list runs within one element below the body.
template <auto list>
constexpr Part within(Name element, Kinds kinds, Tags tags = kAttributes)
{
    return {Erased<list>::call, element, kinds, tags, true, true};
}
template <auto list>
constexpr Part request(Kinds kinds = Kinds::kRequests, Tags tags = kAttributes)
{
    return within<list>("REQUEST_PARAM", kinds, tags);
}
template <auto list>
constexpr Part response(Kinds kinds = Kinds::kResponses, Tags tags = kAttributes)
{
    return within<list>("RESPONSE_PARAM", kinds, tags);
}

// The list runs over the body. The element, which it opens by itself, has to be there in what is received.
template <auto list>
constexpr Part over(Name element, Kinds kinds)
{
    return {Erased<list>::call, element, kinds, kAttributes, false, true};
}

// The list runs over the body, whatever that holds.
template <auto list>
constexpr Part body(Kinds kinds = Kinds::kAll)
{
    return over<list>("", kinds);
}

// Written, but not looked for in what is received: another part reads it.
template <auto list>
constexpr Part written(Kinds kinds)
{
    return {Erased<list>::call, "", kinds, kAttributes, false, false};
}

struct MessageRow;

// A message on its way out. extraLength counts raw bytes that it announces.
struct Outbound
{
    TextWriter& out;
    const void* record;
    int kind;
    std::string_view code;
    int extraLength = 0;
};

using ComposeRow = int (*)(const MessageRow& row, Outbound& outbound);
using AnalyseRow = int (*)(const MessageRow& row, Message& message, void** result);

// The ways of an ordinary message: the first part that is written for the kind; the first part whose element
// is there.
int composeParts(const MessageRow& row, Outbound& outbound);
int analyseParts(const MessageRow& row, Message& message, void** result);

struct MessageRow
{
    constexpr MessageRow(const char* exported, RecordType type, Part first, Part second, Part third)
        : leaf{exported}, record(type), parts{first, second, third}
    {}

    // What the log calls an element that is missing, if that isn't the only part's, and RESPONSE_PARAM where
    // there are two.
    constexpr MessageRow reporting(const char* element) const
    {
        MessageRow row = *this;
        row.missing = element;
        return row;
    }
    // A text that doesn't parse isn't logged.
    constexpr MessageRow quiet() const
    {
        MessageRow row = *this;
        row.leaf.quietParse = true;
        return row;
    }
    // A leaf in plain code in place of the ordinary way.
    constexpr MessageRow composedBy(ComposeRow function) const
    {
        MessageRow row = *this;
        row.compose = function;
        return row;
    }
    constexpr MessageRow analysedBy(AnalyseRow function) const
    {
        MessageRow row = *this;
        row.analyse = function;
        return row;
    }
    template <auto init>
    constexpr MessageRow extendedBy(size_t pointerAt) const
    {
        MessageRow row = *this;
        row.extension = recordOf<init>();
        row.record.pointerAt = static_cast<uint16_t>(pointerAt);
        return row;
    }
    // Attributes of MESSAGE_HEADER that belong to the record, and the kinds that they are written for.
    template <auto list>
    constexpr MessageRow headedBy(Kinds kinds) const
    {
        MessageRow row = *this;
        row.header = Erased<list>::call;
        row.headerKinds = kinds;
        return row;
    }
    // What follows the text; the record's pointer to it, where it has one.
    constexpr MessageRow followedBy(ZEL_BEHIND what, size_t pointerAt = 0) const
    {
        MessageRow row = *this;
        row.behind = what;
        row.record.pointerAt = static_cast<uint16_t>(pointerAt);
        return row;
    }
    constexpr MessageRow leavingFields() const
    {
        MessageRow row = *this;
        row.record.initLeavesFields = true;
        return row;
    }

    Leaf leaf; // the exported analysis
    RecordType record;
    RecordType extension;  // hangs on the record's pExData
    Part parts[3];         // in the order in which an analysis looks for them
    List header = nullptr; // over MESSAGE_HEADER
    Kinds headerKinds = Kinds::kNone;
    const char* missing = nullptr;
    ComposeRow compose = nullptr; // null: the ordinary way
    AnalyseRow analyse = nullptr;
    ZEL_BEHIND behind = ZEL_BEHIND_NOTHING;
};

// A message's own way, or else the ordinary one.
inline int compose(const MessageRow& row, Outbound& outbound)
{
    return row.compose ? row.compose(row, outbound) : composeParts(row, outbound);
}
inline int analyse(const MessageRow& row, Message& message, void** result)
{
    return row.analyse ? row.analyse(row, message, result) : analyseParts(row, message, result);
}

template <auto init>
constexpr MessageRow message(const char* exported, Part first, Part second = {}, Part third = {})
{
    return {exported, recordOf<init>(), first, second, third};
}

// The usual message of two directions: the response if there is one, else the request.
template <auto init, auto requestList, auto responseList>
constexpr MessageRow either(const char* exported)
{
    return message<init>(exported, response<responseList>(Kinds::kNotRequests), request<requestList>());
}

// A record that is composed, as the type that its code stands for.
template <class Record>
const Record& as(const void* record)
{
    return *static_cast<const Record*>(record);
}

// Runs a part's list over a body: within its element, or as it is.
void runPart(const Part& part, Side& side, void* record);
void writePart(const Part& part, Outbound& outbound);

// The steps behind openBody: the first part whose element is there fills a record, from MESSAGE_HEADER too
// where the message has attributes in it.
int giveParts(const MessageRow& row, Message& message, const ElementReader& body, void** result);
ElementReader findPart(const Part& part, const ElementReader& body);
int givePart(const MessageRow& row, const Part& part, Message& message, const ElementReader& place,
             void** result);

// The exported analysis of one message.
int analyse(const MessageRow& row, const char* text, void** result);

// --- Families ------------------------------------------------------------------------------------

// A message in its family's table. Codes of one message stand there each, with an init of its own name.
struct CodeRow
{
    int32_t code;          // a number; of an alarm its own
    const MessageRow* row; // null: a code without record and body
    int (*init)(void* record) =
        nullptr;                // of the record, or of the extension where it has one; null: the row's
    uint8_t type = 0;           // of the family's types
    const char* text = nullptr; // Msg_code where that is a word
    const char* word = nullptr; // the command that the record names
};

struct Family;

using ComposeFamily = int (*)(const Family& family, Outbound& outbound);
using AnalyseFamily = int (*)(const Family& family, Message& message, std::string_view code, void** result);
using ComposeHeader = void (*)(TextWriter& out, const void* record, int kind, std::string_view code);
using UnknownCode = int (*)(const Family& family, std::string_view code);

// The usual family selects by a number, before anything else is looked at.
int composeCode(const Family& family, Outbound& outbound);
int analyseCode(const Family& family, Message& message, std::string_view code, void** result);
int unknownCode(const Family& family, std::string_view code);

// The same of a family that looks for the body before it looks at the code.
int analyseBodyFirst(const Family& family, Message& message, std::string_view code, void** result);

// A family whose codes are words, or numbers for the same.
int composeWord(const Family& family, Outbound& outbound);
const CodeRow* findWord(const Family& family, std::string_view code);
int unknownWord(const char* name, std::string_view code);

// A family whose type alone selects the message: the first of its table.
int composeOnly(const Family& family, Outbound& outbound);
int analyseOnly(const Family& family, Message& message, std::string_view code, void** result);

// The code's row, or null.
const CodeRow* findCode(const Family& family, int32_t code);

struct Family
{
    template <size_t N>
    constexpr Family(Name type, const CodeRow (&all)[N], ComposeFamily composeBy = composeCode,
                     AnalyseFamily analyseBy = analyseCode, UnknownCode reportUnknown = unknownCode)
        : types{type, "", ""}, codes(all), count(N), compose(composeBy), analyse(analyseBy),
          unknown(reportUnknown), name(type.text), analysisName(type.text), lengths(bitOf(type.length))
    {}

    // A set of lengths, each by its low bits: most families aren't looked at any closer.
    static constexpr uint32_t bitOf(size_t length)
    {
        return uint32_t{1} << length % 32;
    }

    constexpr Family alsoNamed(Name second, Name third = "") const
    {
        Family family = *this;
        family.types[1] = second;
        family.types[2] = third;
        family.lengths |= bitOf(second.length) | bitOf(third.length);
        return family;
    }
    // What its log texts begin with.
    constexpr Family loggedAs(const char* anywhere, const char* whileAnalysing) const
    {
        Family family = *this;
        family.name = anywhere;
        family.analysisName = whileAnalysing;
        return family;
    }
    // Writes into MESSAGE_HEADER too.
    constexpr Family withHeader(ComposeHeader function) const
    {
        Family family = *this;
        family.composeHeader = function;
        return family;
    }
    // Other codes of its type belong to a family further down.
    constexpr Family ofCode(Name onlyCode) const
    {
        Family family = *this;
        family.code = onlyCode;
        return family;
    }
    // Goes out without a frame.
    constexpr Family bare() const
    {
        Family family = *this;
        family.isBare = true;
        return family;
    }

    Name types[3];        // the Msg_type, and others of the same messages; empty where there are none
    const CodeRow* codes; // in ascending order
    size_t count;
    ComposeFamily compose;
    AnalyseFamily analyse;
    UnknownCode unknown;
    const char* name;
    const char* analysisName;
    uint32_t lengths; // of its types
    ComposeHeader composeHeader = nullptr;
    Name code = ""; // empty: any
    bool isBare = false;
};

template <size_t N>
constexpr bool isAscending(const CodeRow (&codes)[N])
{
    for (size_t i = 1; i < N; ++i)
        if (codes[i - 1].code >= codes[i].code)
            return false;
    return true;
}

int emptyParam(const char* name);

// The exported functions of a family: test their arguments, then select. iExtraLen is of the families that
// announce raw data, null in the others.
int composeBody(const Family& family, const void* record, int kind, const char* code, char* buf, int len);
int composeAnnouncing(const Family& family, const void* record, int kind, const char* code, char* buf,
                      int len, int* iExtraLen);
int analyseText(const Family& family, const char* text, const char* code, void** result);

// Ends a body's text in its buffer, which stays as it was where there is none; 0, the status so far, or
// ZEL_ERR_BUFFER_SMALL.
int finishBody(TextWriter& out, int status);

} // namespace zel

// --- Exported functions --------------------------------------------------------------------------

// The exported analysis of a message: ZEL_EXPORT_ANALYSIS(NvrReplay_RecQuery, kRecQuery)
#define ZEL_EXPORT_ANALYSIS(operation, row)                          \
    int operation##_MessageAnalysis(const char* text, void** result) \
    {                                                                \
        return zel::analyse(zel::row, text, result);                 \
    }

// The init of a record with the layout of another: ZEL_EXPORT_INIT(NVR_REPLAY_3005_PARAM,
// NVR_REPLAY_3003_PARAM)
#define ZEL_EXPORT_INIT(record, original) \
    int record##_init(record* param)      \
    {                                     \
        return original##_init(param);    \
    }

#endif
