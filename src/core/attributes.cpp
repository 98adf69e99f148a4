#include "core/attributes.h"

#include "core/element_reader.h"
#include "core/scan.h"
#include "core/text_block.h"
#include "core/text_writer.h"

namespace zel {

namespace {

constexpr bool kSkipped = true;
constexpr size_t kAround = sizeof("=\"\"\n") - 1;

// --- Writing -------------------------------------------------------------------------------------

inline char* putOpening(char* at, Name name)
{
    at = putName(at, name);
    memcpy(at, "=\"", 2);
    return at + 2;
}

// The same for forms that few messages have: smaller, not faster.
[[gnu::noinline]] char* openLine(const Side& side, Name name)
{
    return putOpening(side.cursor, name);
}

inline void putClosing(Side& side, char* at)
{
    memcpy(at, "\"\n", 2);
    side.cursor = at + 2;
}

// Whether a line whose value has `longest` bytes at most goes out in one step.
inline bool hasRoom(const Side& side, Name name, size_t longest)
{
    return likely(side.left() >= name.length + kAround + longest);
}

// What may not fit is put together piece by piece.
void appendPieces(TextWriter& out, Name name, const char* value, size_t length)
{
    out.append(name.text, name.length);
    out.append("=\"");
    out.append(value, length);
    out.append("\"\n");
}

// Most numbers fit a byte: their digits, and how many.
struct ByteDigits
{
    char digits[3];
    uint8_t count;
};

struct ByteTable
{
    ByteDigits of[256];
};

constexpr ByteTable makeByteTable()
{
    ByteTable table{};
    for (unsigned int value = 0; value < 256; ++value) {
        ByteDigits& entry = table.of[value];
        entry.count = value < 10 ? 1 : value < 100 ? 2 : 3;
        unsigned int rest = value;
        for (unsigned int i = entry.count; i > 0; --i, rest /= 10)
            entry.digits[i - 1] = static_cast<char>('0' + rest % 10);
    }
    return table;
}

constexpr ByteTable kBytes = makeByteTable();

// May write a byte too many.
inline char* putByte(char* at, uint8_t value)
{
    const ByteDigits& entry = kBytes.of[value];
    memcpy(at, &entry, sizeof entry);
    return at + entry.count;
}

inline char* putNumber(char* at, int32_t value)
{
    if (likely(static_cast<uint32_t>(value) < 256))
        return putByte(at, static_cast<uint8_t>(value));
    return printNumber(at, value);
}

// What is left of a text, whatever it is, and the line's end.
[[gnu::noinline]] void putRest(Side& side, char* at, const char* text, size_t size)
{
    for (int blocks = 0; blocks < 4 && size >= kBlock; ++blocks) {
        const size_t moved = moveBlock(at, text);
        if (moved < kBlock)
            return putClosing(side, at + moved);
        at += kBlock;
        text += kBlock;
        size -= kBlock;
    }
    const size_t length = strnlen(text, size);
    memcpy(at, text, length);
    putClosing(side, at + length);
}

// A text up to its terminator and the line's end, where there is room for its whole field: most are short.
inline void putText(Side& side, char* at, const char* text, size_t size)
{
    if (size < kBlock)
        return putRest(side, at, text, size);
    const size_t moved = moveBlock(at, text);
    if (moved < kBlock)
        putClosing(side, at + moved);
    else
        putRest(side, at + kBlock, text + kBlock, size - kBlock);
}

// --- Whatever doesn't go out in one step ---------------------------------------------------------

// A line near the buffer's end, put together beside it.
template <size_t longest, class Print>
[[gnu::cold, gnu::noinline]] void writeSlowly(Side& side, Name name, const Print& print)
{
    char value[longest];
    appendPieces(writerOf(side), name, value, static_cast<size_t>(print(value) - value));
}

template <size_t longest, class Print>
inline void writeShort(Side& side, Name name, const Print& print)
{
    if (hasRoom(side, name, longest))
        putClosing(side, print(openLine(side, name)));
    else
        writeSlowly<longest>(side, name, print);
}

// Reads by `read`, or shows the field to a visitor; tells whether there was a value.
template <class Read>
inline bool readOrSee(Side& side, const FieldSeen& seen, Read read)
{
    if (likely(isTree(side)))
        return read(readerOf(side).at);
    Visitor& visitor = visitorOf(side);
    return visitor.see(visitor, seen);
}

bool readNumber(const ElementReader& in, Name name, int32_t& field)
{
    return in.parser->ReadInt(in.node, name.text, name.length, &field);
}
bool readNumber(const ElementReader& in, Name name, uint32_t& field)
{
    return in.parser->ReadUInt(in.node, name.text, name.length, &field);
}
bool readNumber(const ElementReader& in, Name name, uint8_t& field)
{
    return in.parser->ReadUChar(in.node, name.text, name.length, &field);
}
bool readNumber(const ElementReader& in, Name name, uint64_t& field)
{
    unsigned long long value = field;
    const bool found = in.parser->ReadUll(in.node, name.text, name.length, &value);
    field = value;
    return found;
}
bool readNumber(const ElementReader& in, Name name, float& field)
{
    return getXmlFloatTypeParamAttribute(*in.parser, in.node, name.text, &field) == 0;
}

template <class Number>
[[gnu::noinline]] bool readOrSeeNumber(Side& side, Name name, Number& field, ZEL_FORM form, bool isSkipped)
{
    return readOrSee(side, {name, form, isSkipped, &field, sizeof field},
                     [&](const ElementReader& in) { return readNumber(in, name, field); });
}

// Where a number doesn't go out in one step.
template <class Number>
[[gnu::noinline]] void numberElsewhere(Side& side, Name name, Number& field, bool isSkipped)
{
    if (likely(isTree(side)))
        readNumber(readerOf(side).at, name, field);
    else if (!isText(side))
        readOrSeeNumber(side, name, field, ZEL_FORM_NUMBER, isSkipped);
    else if (!isSkipped || isSet(field))
        writeSlowly<kLongestNumber>(side, name, [&](char* at) { return printNumber(at, int32_t{field}); });
}

// A number of more digits than most.
template <class Number>
void longNumberAttribute(Side& side, Name name, Number& field, bool isSkipped)
{
    if (!isText(side))
        readOrSeeNumber(side, name, field, ZEL_FORM_NUMBER, isSkipped);
    else if (!isSkipped || isSet(field))
        writeShort<kLongestNumber>(side, name, [&](char* at) { return printNumber(at, field); });
}

bool readWhole(const ElementReader& in, Name name, char* field, size_t size)
{
    const std::string_view value = in.value(name);
    if (!value.data())
        return false;
    const size_t length = value.size() < size ? value.size() : size;
    memcpy(field, value.data(), length);
    memset(field + length, 0, size - length);
    return true;
}

bool readText(const ElementReader& in, Name name, char* field, size_t size)
{
    return in.parser->ReadString(in.node, name.text, name.length, field, size);
}

[[gnu::noinline]] void textElsewhere(Side& side, Name name, char* field, size_t size, bool isSkipped)
{
    if (likely(isTree(side)))
        readText(readerOf(side).at, name, field, size);
    else if (isText(side))
        appendPieces(writerOf(side), name, field, strnlen(field, size));
    else
        visitorOf(side).see(visitorOf(side), {name, ZEL_FORM_TEXT, isSkipped, field, size});
}

void readWholeText(Side& side, Name name, char* field, size_t size, bool isSkipped)
{
    readOrSee(side, {name, ZEL_FORM_WHOLE_TEXT, isSkipped, field, size},
              [&](const ElementReader& in) { return readWhole(in, name, field, size); });
}

inline void putTextLine(Side& side, Name name, const char* field, size_t size)
{
    putText(side, putOpening(side.cursor, name), field, size);
}

template <class Number>
void hexForm(Side& side, Name name, Number& field, bool isSkipped)
{
    if (!isText(side))
        readOrSee(side, {name, ZEL_FORM_HEX, isSkipped, &field, sizeof field}, [&](const ElementReader& in) {
            const std::string_view value = in.value(name);
            return value.data() && scanHex(value, field);
        });
    else if (!isSkipped || isSet(field))
        writeShort<kLongestNumber>(side, name, [&](char* at) {
            return printHex(at, static_cast<std::make_unsigned_t<Number>>(field));
        });
}

void atoiForm(Side& side, Name name, int32_t& field, bool isSkipped)
{
    if (!isText(side))
        readOrSee(side, {name, ZEL_FORM_ATOI, isSkipped, &field, sizeof field}, [&](const ElementReader& in) {
            const std::string_view value = in.value(name);
            if (value.data())
                field = numberOf(value);
            return value.data() != nullptr;
        });
    else if (!isSkipped || isSet(field))
        attribute(side, name, field);
}

} // namespace

// --- The type's own form -------------------------------------------------------------------------

[[gnu::noinline]] void attribute(Side& side, Name name, int32_t& field)
{
    if (hasRoom(side, name, kLongestNumber))
        putClosing(side, putNumber(putOpening(side.cursor, name), field));
    else
        numberElsewhere(side, name, field, !kSkipped);
}

[[gnu::noinline]] void attribute(Side& side, Name name, uint8_t& field)
{
    if (hasRoom(side, name, kLongestNumber))
        putClosing(side, putByte(putOpening(side.cursor, name), field));
    else
        numberElsewhere(side, name, field, !kSkipped);
}

void attribute(Side& side, Name name, uint32_t& field)
{
    if (hasRoom(side, name, kLongestNumber))
        putClosing(side, printNumber(putOpening(side.cursor, name), field));
    else
        longNumberAttribute(side, name, field, !kSkipped);
}

void attribute(Side& side, Name name, uint64_t& field)
{
    longNumberAttribute(side, name, field, !kSkipped);
}

void attribute(Side& side, Name name, float& field)
{
    if (isText(side))
        writeShort<kLongestFloat>(side, name, [&](char* at) { return printFloat(at, field); });
    else
        readOrSeeNumber(side, name, field, ZEL_FORM_FLOAT, !kSkipped);
}

[[gnu::noinline]] void textAttribute(Side& side, Name name, char* field, size_t size)
{
    if (hasRoom(side, name, size))
        putTextLine(side, name, field, size);
    else
        textElsewhere(side, name, field, size, !kSkipped);
}

void attributeIfSet(Side& side, Name name, int32_t& field)
{
    if (!isText(side))
        numberElsewhere(side, name, field, kSkipped);
    else if (isSet(field))
        attribute(side, name, field);
}

void attributeIfSet(Side& side, Name name, uint8_t& field)
{
    if (!isText(side))
        numberElsewhere(side, name, field, kSkipped);
    else if (isSet(field))
        attribute(side, name, field);
}

void attributeIfSet(Side& side, Name name, uint32_t& field)
{
    longNumberAttribute(side, name, field, kSkipped);
}

void attributeIfSet(Side& side, Name name, uint64_t& field)
{
    longNumberAttribute(side, name, field, kSkipped);
}

void textAttributeIfSet(Side& side, Name name, char* field, size_t size)
{
    if (!isText(side))
        textElsewhere(side, name, field, size, kSkipped);
    else if (*field)
        textAttribute(side, name, field, size);
}

bool readAttribute(Side& side, Name name, int32_t& field)
{
    return !side.writes() && readOrSeeNumber(side, name, field, ZEL_FORM_NUMBER, !kSkipped);
}

bool readAttribute(Side& side, Name name, uint8_t& field)
{
    return !side.writes() && readOrSeeNumber(side, name, field, ZEL_FORM_NUMBER, !kSkipped);
}

bool readTextAttribute(Side& side, Name name, char* field, size_t size)
{
    return !side.writes() &&
           readOrSee(side, {name, ZEL_FORM_TEXT, !kSkipped, field, size},
                     [&](const ElementReader& in) { return readText(in, name, field, size); });
}

// --- Other forms of one number or text -----------------------------------------------------------

void signedAttribute(Side& side, Name name, uint32_t& field)
{
    if (isText(side))
        writeShort<kLongestNumber>(side, name,
                                   [&](char* at) { return printNumber(at, static_cast<int32_t>(field)); });
    else
        readOrSeeNumber(side, name, field, ZEL_FORM_SIGNED, !kSkipped);
}

void signedAttribute(Side& side, Name name, uint64_t& field)
{
    if (!isText(side)) {
        readOrSeeNumber(side, name, field, ZEL_FORM_SIGNED, !kSkipped);
        return;
    }
    // -1 at most: an int64 prints like its magnitude.
    writeShort<kLongestNumber + 1>(side, name, [&](char* at) {
        const bool negative = field >> 63 != 0;
        if (negative)
            *at++ = '-';
        return printNumber(at, negative ? 0 - field : field);
    });
}

void signedAttributeIfSet(Side& side, Name name, uint32_t& field)
{
    if (!isText(side))
        readOrSeeNumber(side, name, field, ZEL_FORM_SIGNED, kSkipped);
    else if (isSet(field))
        signedAttribute(side, name, field);
}

void signedAttributeIfSet(Side& side, Name name, uint64_t& field)
{
    if (!isText(side))
        readOrSeeNumber(side, name, field, ZEL_FORM_SIGNED, kSkipped);
    else if (isSet(field))
        signedAttribute(side, name, field);
}

void hexAttribute(Side& side, Name name, int32_t& field)
{
    hexForm(side, name, field, !kSkipped);
}

void hexAttribute(Side& side, Name name, uint64_t& field)
{
    hexForm(side, name, field, !kSkipped);
}

void hexAttributeIfSet(Side& side, Name name, int32_t& field)
{
    hexForm(side, name, field, kSkipped);
}

void atoiAttribute(Side& side, Name name, int32_t& field)
{
    atoiForm(side, name, field, !kSkipped);
}

void atoiAttributeIfSet(Side& side, Name name, int32_t& field)
{
    atoiForm(side, name, field, kSkipped);
}

void wholeTextAttribute(Side& side, Name name, char* field, size_t size)
{
    if (isText(side))
        textAttribute(side, name, field, size);
    else
        readWholeText(side, name, field, size, !kSkipped);
}

void wholeTextAttributeIfSet(Side& side, Name name, char* field, size_t size)
{
    if (!isText(side))
        readWholeText(side, name, field, size, kSkipped);
    else if (*field)
        textAttribute(side, name, field, size);
}

void attributeBehindBlank(Side& side, Name name, int32_t& field)
{
    if (isText(side)) {
        writerOf(side).append(name.text, name.length);
        attribute(side, " ", field);
    } else {
        attribute(side, name, field);
    }
}

void textAttributeBehindBlank(Side& side, Name name, char* field, size_t size)
{
    if (hasRoom(side, name, size + 1)) {
        char* const at = putName(side.cursor, name);
        memcpy(at, " =\"", 3);
        putText(side, at + 3, field, size);
    } else if (isText(side)) {
        writerOf(side).append(name.text, name.length);
        textAttribute(side, " ", field, size);
    } else {
        textAttribute(side, name, field, size);
    }
}

void attributeAs(Side& side, Name name, int32_t& field, int32_t written)
{
    attribute(side, name, isText(side) ? written : field);
}

// --- Odd places ----------------------------------------------------------------------------------

void appendRaw(Side& side, Name text)
{
    if (isText(side))
        writerOf(side).append(text.text, text.length);
}

void onSameLine(Side& side)
{
    endAtQuote(side);
    appendRaw(side, " ");
}

void endAtQuote(Side& side)
{
    if (isText(side))
        writerOf(side).takeBack();
}

NumberedName::NumberedName(Name before, size_t number, Name behind)
{
    char* at = putName(text, before);
    at = putByte(at, static_cast<uint8_t>(number));
    at = putName(at, behind);
    *at = '\0';
    length = static_cast<size_t>(at - text);
}

// --- Several values in one -----------------------------------------------------------------------

bool valueAttribute(Side& side, Name name, const ValueForm& form, void* items, size_t size, size_t count)
{
    if (hasRoom(side, name, form.longest * count)) {
        putClosing(side, form.print(openLine(side, name), items, count));
        return false;
    }
    if (isText(side)) {
        writeSlowly<kLongestValue>(side, name, [&](char* at) { return form.print(at, items, count); });
        return false;
    }
    return readOrSee(side, {name, form.form, !kSkipped, items, size}, [&](const ElementReader& in) {
        const std::string_view value = in.value(name);
        if (value.data())
            form.scan(value, items, count);
        return value.data() != nullptr;
    });
}

bool readValue(Side& side, Name name, ZEL_FORM form, void* field, size_t size, std::string_view& value)
{
    return !side.writes() &&
           readOrSee(side, {name, form, !kSkipped, field, size}, [&](const ElementReader& in) {
               const std::string_view text = in.value(name);
               if (text.data())
                   value = text;
               return text.data() != nullptr;
           });
}

namespace {

using Print = char*(char* at, int32_t value);

// Numbers with a separator between them. They may be the members of a structure.
template <Print print, char separator>
char* printAll(char* at, const void* items, size_t count)
{
    const auto* bytes = static_cast<const char*>(items);
    for (size_t i = 0; i < count; ++i, bytes += sizeof(int32_t)) {
        int32_t number;
        memcpy(&number, bytes, sizeof number);
        if (i > 0)
            *at++ = separator;
        at = print(at, number);
    }
    return at;
}

template <char separator>
void scanAll(std::string_view value, void* items, size_t count)
{
    scanNumbers(value, separator, static_cast<int32_t*>(items), count);
}

// As sscanf does with %2d for each: no number has more than two bytes.
void scanWeek(std::string_view value, void* items, size_t count)
{
    auto* numbers = static_cast<int32_t*>(items);
    for (size_t i = 0; i < count; ++i) {
        if (i > 0) {
            if (value.empty() || value.front() != ':')
                return;
            value.remove_prefix(1);
        }
        const size_t blanks = value.find_first_not_of(" \t\n\v\f\r");
        if (blanks == std::string_view::npos)
            return;
        value.remove_prefix(blanks);
        std::string_view digits(value.data(), value.size() < 2 ? value.size() : 2);
        const size_t length = digits.size();
        if (scanNumbers(digits, ':', numbers + i, 1) == 0)
            return;
        value.remove_prefix(length - digits.size());
    }
}

char* printBrackets(char* at, const void* items, size_t count)
{
    *at++ = '[';
    at = printAll<printNumber, ','>(at, items, count);
    *at++ = ']';
    return at;
}

void scanBrackets(std::string_view value, void* items, size_t count)
{
    if (value.empty() || value.front() != '[')
        return;
    value.remove_prefix(1);
    scanAll<','>(value, items, count);
}

} // namespace

// A number and what stands beside it.
constexpr size_t kLongestItem = kLongestNumber + 2;

const ValueForm kClock = {ZEL_FORM_CLOCK, kLongestItem, printAll<printTwoDigits, ':'>, scanAll<':'>};
const ValueForm kPlainClock = {ZEL_FORM_PLAIN_CLOCK, kLongestItem, printAll<printNumber, ':'>, scanAll<':'>};
const ValueForm kWeekClock = {ZEL_FORM_WEEK_CLOCK, kLongestItem, printAll<printTwoPlaces, ':'>, scanWeek};
const ValueForm kNumbers = {ZEL_FORM_NUMBERS, kLongestItem, printAll<printNumber, ','>, scanAll<','>};
const ValueForm kBrackets = {ZEL_FORM_BRACKETS, kLongestItem, printBrackets, scanBrackets};
const ValueForm kResolution = {ZEL_FORM_RESOLUTION, kLongestItem, printAll<printNumber, '*'>, scanAll<'*'>};

} // namespace zel
