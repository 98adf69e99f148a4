// Elements around attributes, in the same manner: an element is open for as long as its object lives, and is
// false where there is none to read.
//
//     if (const Element time = element(side, "NTPConfig")) {
//         attribute(side, "ServerIP", record.ServerIP);
//     }
#ifndef ZEL_CORE_ELEMENTS_H
#define ZEL_CORE_ELEMENTS_H

#include "core/attributes.h"

namespace zel {

struct TextWriter;

// How an element is written: its name, each attribute and its close on lines of their own, or in these ways.
// One that is read may have any.
enum Tags : uint8_t
{
    kAttributes = 0,
    kElements = 1,        // <Name> and </Name> around elements
    kBoth = 2,            // attributes, then elements(), then </Name>
    kBlankBehindName = 4, // <Name and a blank
    kOnLine = 8,          // the first attribute stands on the tag's line, and the tag ends there
    kAtQuote = 16,        // the tag ends directly behind the last quote
    kBlankAtEnd = 32,     // a blank before the tag's end
    kNoLineFeed = 64,     // no line feed behind the tag
    kCarriageReturn = 128 // the name's line ends in a carriage return and a line feed
};

constexpr Tags operator|(Tags a, Tags b)
{
    return static_cast<Tags>(static_cast<uint8_t>(a) | static_cast<uint8_t>(b));
}

// Opens an element and closes it; `outer` is where a reader goes on behind it, null if there is no element.
void* openElement(Side& side, Name name, Tags tags);
void* openElement(Side& side, Name name); // kAttributes
void closeElement(Side& side, Name name, Tags tags, void* outer);
void closeElement(Side& side, void* outer); // kAttributes
void beginElements(Side& side, Tags tags);

// All of it is inlined, so that what a list says of an element needs no place in memory.
class [[nodiscard]] Element
{
public:
    Element(Side& side, Name name, Tags tags)
        : side_(side), name_(name), tags_(tags),
          outer_(tags == kAttributes ? openElement(side, name) : openElement(side, name, tags))
    {}
    // None.
    explicit Element(Side& side) : side_(side), name_(""), tags_(kAttributes), outer_(nullptr) {}
    ~Element()
    {
        if (!outer_)
            return;
        if (tags_ == kAttributes)
            closeElement(side_, outer_);
        else
            closeElement(side_, name_, tags_, outer_);
    }
    Element(const Element&) = delete;
    Element& operator=(const Element&) = delete;

    explicit operator bool() const
    {
        return outer_ != nullptr;
    }

    // Behind the attributes of an element that has elements too.
    void elements() const
    {
        beginElements(side_, tags_);
    }

private:
    Side& side_;
    const Name name_;
    const Tags tags_;
    void* const outer_;
};

inline Element element(Side& side, Name name, Tags tags = kAttributes)
{
    return Element(side, name, tags);
}

inline Element container(Side& side, Name name)
{
    return Element(side, name, kElements);
}

// Written only if the condition holds; read always.
inline Element elementIf(bool condition, Side& side, Name name, Tags tags = kAttributes)
{
    return side.takes(condition) ? Element(side, name, tags) : Element(side);
}

struct Rows;

// Elements one behind the other, each closed by the next one or by the object's end. The first is looked for
// among the children, any other one behind the one before.
class Siblings
{
public:
    explicit Siblings(Side& side, Tags tags = kAttributes) : side_(side), tags_(tags), name_("") {}
    ~Siblings();
    Siblings(const Siblings&) = delete;
    Siblings& operator=(const Siblings&) = delete;

    // An element, or one of a number of rows.
    bool next(Name name, size_t index = 0, const Rows* rows = nullptr);

private:
    Side& side_;
    const Tags tags_;
    Name name_;
    void* outer_ = nullptr;
};

// --- Rows ----------------------------------------------------------------------------------------

// A list for any record.
using List = void (*)(Side& side, void* record);

// An ordinary list as one for any record, and an init likewise.
template <auto function>
struct Erased;
template <class Record, void (*list)(Side&, Record&)>
struct Erased<list>
{
    using Type = Record;
    static void call(Side& side, void* record)
    {
        list(side, *static_cast<Record*>(record));
    }
};
template <class Record, int (*init)(Record*)>
struct Erased<init>
{
    using Type = Record;
    static int call(void* record)
    {
        return init(static_cast<Record*>(record));
    }
};
template <class Row, bool (*test)(const Row&)>
struct Erased<test>
{
    using Type = Row;
    static bool call(const void* row)
    {
        return test(*static_cast<const Row*>(row));
    }
};

// A count from a record or a message, as an index range of an array.
template <class Count>
size_t clampCount(Count count, size_t size)
{
    if (count < 0)
        return 0;
    return static_cast<size_t>(count) < size ? static_cast<size_t>(count) : size;
}

// The rows that are written by a count of the record's own. The count bounds no reading.
template <class Count, class Row, size_t N>
size_t countedRows(const Side& side, Count count, const Row (&)[N])
{
    return side.takes(false) ? N : clampCount(count, N);
}

// The same where the count bounds reading too.
template <class Count, class Row, size_t N>
size_t boundedRows(const Side& side, Count count, const Row (&)[N])
{
    return side.kind == Side::Kind::kVisitor ? N : clampCount(count, N);
}

// The rows that are written up to the first that isn't in use.
template <class Row, size_t N>
size_t rowsInUse(const Side& side, const Row (&rows)[N], bool (*isUsed)(const Row&), size_t most = N)
{
    size_t count = 0;
    while (count < most && (side.takes(false) || isUsed(rows[count])))
        ++count;
    return count;
}

struct Rows
{
    void* first;
    size_t size;
    size_t count; // how many at most
    List list;
    bool (*isWritten)(const void* row); // null: every one is
};

// An element for each row: all of a number that are written, or as many as there are to read. Returns how
// many there were.
size_t walkRows(Side& side, Name name, const Rows& rows, Tags tags);

// The first `count` rows of an array.
template <auto list, class Row, size_t N>
size_t rowElements(Side& side, Name name, Row (&rows)[N], size_t count = N, Tags tags = kAttributes)
{
    return walkRows(side, name, {rows, sizeof(Row), count, Erased<list>::call, nullptr}, tags);
}

// The same; rows that aren't in use don't go out.
template <auto list, auto isUsed, class Row, size_t N>
size_t usedRowElements(Side& side, Name name, Row (&rows)[N], size_t count = N, Tags tags = kAttributes)
{
    return walkRows(side, name, {rows, sizeof(Row), count, Erased<list>::call, Erased<isUsed>::call}, tags);
}

// --- Elements that hold a text -------------------------------------------------------------------

// A child element with a number or a text, on a line of its own.
void textElement(Side& side, Name name, int32_t& field, Tags tags = kAttributes);
void textElement(Side& side, Name name, uint32_t& field); // read as a signed one, by its bits
void textElement(Side& side, Name name, uint8_t& field);  // takes the low 8 bits of what is read
void textElement(Side& side, Name name, char* field, size_t size, Tags tags = kAttributes);
template <size_t Size>
void textElement(Side& side, Name name, char (&field)[Size], Tags tags = kAttributes)
{
    textElement(side, name, field, Size, tags);
}

// The same, written only if the field isn't empty.
template <size_t Size>
void textElementIfSet(Side& side, Name name, char (&field)[Size])
{
    if (side.takes(isSet(field)))
        textElement(side, name, field, Size);
}

// The text of the element itself.
void ownText(Side& side, char* field, size_t size);

// A text of any length that functions put together from a record, and take apart.
struct TextForm
{
    void (*write)(TextWriter& out, const void* record);
    void (*read)(std::string_view text, void* record);
};

// The same elements for such a text. A visitor is shown the field that holds most of it.
void textElement(Side& side, Name name, const TextForm& form, void* record, void* field, size_t size);
void ownText(Side& side, const TextForm& form, void* record, void* field, size_t size);

} // namespace zel

#endif
