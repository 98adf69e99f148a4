#include "core/elements.h"

#include "core/element_reader.h"
#include "core/text_writer.h"

namespace zel {

namespace {

// What stands around a name, and the name in pieces where not all of it may fit.
void openTag(TextWriter& out, Name name, Tags tags)
{
    out.append("<");
    out.append(name.text, name.length);
    if ((tags & kElements) != 0)
        out.append(">");
    if ((tags & (kBlankBehindName | kOnLine)) != 0)
        out.append(" ");
    if ((tags & kCarriageReturn) != 0)
        out.append("\r");
    if ((tags & kOnLine) == 0)
        out.append("\n");
}

// The end of a tag behind its attributes, but for the bracket.
void endAttributes(TextWriter& out, Tags tags)
{
    if ((tags & (kAtQuote | kOnLine)) != 0)
        out.takeBack();
    if ((tags & kBlankAtEnd) != 0)
        out.append(" ");
}

void closeTag(TextWriter& out, Name name, Tags tags)
{
    out.append("</");
    out.append(name.text, name.length);
    out.append(">\n", (tags & kNoLineFeed) != 0 ? 1 : 2);
}

void endElement(TextWriter& out, Name name, Tags tags)
{
    if (tags == kAttributes) {
        out.append("/>\n");
    } else if ((tags & (kElements | kBoth)) != 0) {
        closeTag(out, name, tags);
    } else {
        endAttributes(out, tags);
        out.append("/>\n", (tags & kNoLineFeed) != 0 ? 2 : 3);
    }
}

// Goes to an element that is to be read, and returns where it stands in; null if there is none.
void* goTo(TreeReader& reader, const ElementReader& found)
{
    void* const outer = reader.at.node;
    if (!found)
        return nullptr;
    reader.at = found;
    return outer;
}

[[gnu::noinline]] void* enterElsewhere(Side& side, Name name, Tags tags, size_t index, const Rows* rows)
{
    if (isTree(side))
        return goTo(readerOf(side), readerOf(side).at.child(name));
    if (isText(side)) {
        openTag(writerOf(side), name, tags);
        return &side;
    }
    Visitor& visitor = visitorOf(side);
    const ElementSeen seen = {name, index, rows ? rows->count : 0, rows ? rows->size : 0};
    return visitor.enter(visitor, seen) ? &side : nullptr;
}

[[gnu::noinline]] void leaveElsewhere(Side& side, Name name, Tags tags, void* outer)
{
    if (isTree(side)) {
        readerOf(side).at.node = outer;
    } else if (isText(side)) {
        endElement(writerOf(side), name, tags);
    } else {
        Visitor& visitor = visitorOf(side);
        visitor.leave(visitor);
    }
}

// The most that stands around a name.
constexpr size_t kAroundName = sizeof("</>\r\n");

// Opens an element; null if there is none.
inline void* enter(Side& side, Name name, Tags tags, size_t index = 0, const Rows* rows = nullptr)
{
    if (!likely(side.left() >= name.length + kAroundName))
        return enterElsewhere(side, name, tags, index, rows);
    char* at = side.cursor;
    *at++ = '<';
    at = putName(at, name);
    if ((tags & kElements) != 0)
        *at++ = '>';
    if ((tags & (kBlankBehindName | kOnLine)) != 0)
        *at++ = ' ';
    if ((tags & kCarriageReturn) != 0)
        *at++ = '\r';
    if ((tags & kOnLine) == 0)
        *at++ = '\n';
    side.cursor = at;
    return &side;
}

inline void leave(Side& side, Name name, Tags tags, void* outer)
{
    if (!likely(side.left() >= name.length + kAroundName)) {
        leaveElsewhere(side, name, tags, outer);
        return;
    }
    char* at = side.cursor;
    if ((tags & (kElements | kBoth)) != 0) {
        memcpy(at, "</", 2);
        at = putName(at + 2, name);
        memcpy(at, ">\n", 2);
    } else {
        if ((tags & (kAtQuote | kOnLine)) != 0)
            --at; // What has room now lost nothing before.
        if ((tags & kBlankAtEnd) != 0)
            *at++ = ' ';
        memcpy(at, "/>\n", 3);
        ++at;
    }
    side.cursor = at + ((tags & kNoLineFeed) != 0 ? 1 : 2);
}

// A text element's content: write() while writing, read(element) or what a visitor sees otherwise.
template <class Write, class Read>
void contentElement(Side& side, Name name, Tags tags, const FieldSeen& seen, Write write, Read read)
{
    if (isText(side)) {
        TextWriter& out = writerOf(side);
        out.append("<");
        out.append(name.text, name.length);
        out.append(">");
        write(out);
        closeTag(out, name, tags);
    } else if (const Element content = element(side, name)) {
        if (isTree(side)) {
            read(readerOf(side).at);
        } else {
            Visitor& visitor = visitorOf(side);
            visitor.see(visitor, seen);
        }
    }
}

// An integer's text as a field of another type; its low bits if there is one to read.
template <class Number>
void numberElement(Side& side, Name name, Number& field)
{
    contentElement(
        side, name, kAttributes, {"", ZEL_FORM_NUMBER, false, &field, sizeof field},
        [&](TextWriter& out) {
            char digits[kLongestNumber];
            out.append(digits, static_cast<size_t>(printNumber(digits, uint32_t{field}) - digits));
        },
        [&](const ElementReader& in) {
            int32_t value;
            if (getXmlIntTypeParamByGetText(*in.parser, in.node, &value) == 0)
                field = static_cast<Number>(value);
        });
}

void readForm(const ElementReader& in, const TextForm& form, void* record)
{
    if (const char* const text = in.text())
        form.read(text, record);
}

bool readOwnText(const ElementReader& in, char* field, size_t size)
{
    return getXmlStringTypeParamByGetText(*in.parser, in.node, field, static_cast<int>(size)) == 0;
}

} // namespace

void* openElement(Side& side, Name name, Tags tags)
{
    return enter(side, name, tags);
}

void* openElement(Side& side, Name name)
{
    return enter(side, name, kAttributes);
}

void closeElement(Side& side, Name name, Tags tags, void* outer)
{
    leave(side, name, tags, outer);
}

void closeElement(Side& side, void* outer)
{
    leave(side, "", kAttributes, outer);
}

void beginElements(Side& side, Tags tags)
{
    if (isText(side)) {
        endAttributes(writerOf(side), tags);
        writerOf(side).append(">\n");
    }
}

bool Siblings::next(Name name, size_t index, const Rows* rows)
{
    if (isTree(side_) && outer_) {
        TreeReader& reader = readerOf(side_);
        const ElementReader found = reader.at.next(name);
        if (found)
            reader.at = found;
        return static_cast<bool>(found);
    }
    if (outer_)
        leave(side_, name_, tags_, outer_);
    name_ = name;
    outer_ = enter(side_, name, tags_, index, rows);
    return outer_ != nullptr;
}

Siblings::~Siblings()
{
    if (outer_)
        leave(side_, name_, tags_, outer_);
}

size_t walkRows(Side& side, Name name, const Rows& rows, Tags tags)
{
    Siblings elements(side, tags);
    size_t count = 0;
    auto* row = static_cast<char*>(rows.first);
    for (size_t i = 0; i < rows.count; ++i, row += rows.size) {
        if (side.writes() && rows.isWritten && !side.takes(rows.isWritten(row)))
            continue;
        if (!elements.next(name, i, &rows))
            break;
        rows.list(side, row);
        ++count;
    }
    return count;
}

void textElement(Side& side, Name name, int32_t& field, Tags tags)
{
    contentElement(
        side, name, tags, {"", ZEL_FORM_NUMBER, false, &field, sizeof field},
        [&](TextWriter& out) { appendNumber(out, field); },
        [&](const ElementReader& in) { getXmlIntTypeParamByGetText(*in.parser, in.node, &field); });
}

void textElement(Side& side, Name name, uint32_t& field)
{
    numberElement(side, name, field);
}

void textElement(Side& side, Name name, uint8_t& field)
{
    numberElement(side, name, field);
}

void textElement(Side& side, Name name, char* field, size_t size, Tags tags)
{
    contentElement(
        side, name, tags, {"", ZEL_FORM_TEXT, false, field, size},
        [&](TextWriter& out) { out.append(field, strnlen(field, size)); },
        [&](const ElementReader& in) { readOwnText(in, field, size); });
}

void ownText(Side& side, char* field, size_t size)
{
    if (isText(side)) {
        writerOf(side).append(field, strnlen(field, size));
    } else if (isTree(side)) {
        readOwnText(readerOf(side).at, field, size);
    } else {
        Visitor& visitor = visitorOf(side);
        visitor.see(visitor, {"", ZEL_FORM_TEXT, false, field, size});
    }
}

void textElement(Side& side, Name name, const TextForm& form, void* record, void* field, size_t size)
{
    contentElement(
        side, name, kAttributes, {"", ZEL_FORM_OWN, false, field, size},
        [&](TextWriter& out) { form.write(out, record); },
        [&](const ElementReader& in) { readForm(in, form, record); });
}

void ownText(Side& side, const TextForm& form, void* record, void* field, size_t size)
{
    if (isText(side))
        form.write(writerOf(side), record);
    else if (isTree(side))
        readForm(readerOf(side).at, form, record);
    else
        visitorOf(side).see(visitorOf(side), {"", ZEL_FORM_OWN, false, field, size});
}

} // namespace zel
