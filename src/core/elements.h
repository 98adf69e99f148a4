// Elements around attributes, in the same manner: towards a TextWriter an element's tags are appended around
// what fill(side) appends, towards an ElementReader fill(element) is called if the element is there.
#ifndef ZEL_CORE_ELEMENTS_H
#define ZEL_CORE_ELEMENTS_H

#include "core/attributes.h"

namespace zel {

template <size_t N>
[[gnu::noinline]] void openElement(TextWriter& out, const char (&name)[N])
{
    out.append("<", name, "\n");
}
[[gnu::noinline]] inline void closeElement(TextWriter& out)
{
    out.append("/>\n");
}
template <size_t N>
[[gnu::noinline]] void openTag(TextWriter& out, const char (&name)[N])
{
    out.append("<", name, ">\n");
}
template <size_t N>
[[gnu::noinline]] void closeTag(TextWriter& out, const char (&name)[N])
{
    out.append("</", name, ">\n");
}

// An element of attributes: its name, each attribute and its close on lines of their own.
template <size_t N, class Fill>
void element(TextWriter& out, const char (&name)[N], Fill fill)
{
    openElement(out, name);
    fill(out);
    closeElement(out);
}
template <class Fill>
void element(const ElementReader& parent, const char* name, Fill fill)
{
    if (const ElementReader found = parent.child(name))
        fill(found);
}

// The same, but closed directly behind the last attribute's quote.
template <size_t N, class Fill>
void elementClosedAtQuote(TextWriter& out, const char (&name)[N], Fill fill)
{
    openElement(out, name);
    fill(out);
    out.takeBack();
    closeElement(out);
}
template <class Fill>
void elementClosedAtQuote(const ElementReader& parent, const char* name, Fill fill)
{
    element(parent, name, fill);
}

// Written only if there is something to write; read always.
template <class Side, size_t N, class Fill>
void elementIf(bool written, Side& side, const char (&name)[N], Fill fill)
{
    if (!kWrites<Side> || written)
        element(side, name, fill);
}

// An element of elements: opening and closing tag on lines of their own.
template <size_t N, class Fill>
void container(TextWriter& out, const char (&name)[N], Fill fill)
{
    openTag(out, name);
    fill(out);
    closeTag(out, name);
}
template <class Fill>
void container(const ElementReader& parent, const char* name, Fill fill)
{
    element(parent, name, fill);
}

// An element with attributes first and elements in it: the open tag is finished by > alone on its line.
template <size_t N, class Attributes, class Fill>
void containerWithAttributes(TextWriter& out, const char (&name)[N], Attributes attributes, Fill fill)
{
    openElement(out, name);
    attributes(out);
    out.append(">\n");
    fill(out);
    closeTag(out, name);
}
template <class Attributes, class Fill>
void containerWithAttributes(const ElementReader& parent, const char* name, Attributes attributes, Fill fill)
{
    if (const ElementReader found = parent.child(name)) {
        attributes(found);
        fill(found);
    }
}

// A count from a record or a message, as an index range of an array.
template <class Count>
size_t clampCount(Count count, size_t size)
{
    if (count < 0)
        return 0;
    return static_cast<size_t>(count) < size ? static_cast<size_t>(count) : size;
}

// Reads rows from the children of that name, in document order, until the array is full. Returns how many.
template <class Row, size_t N, class Fill>
size_t readRows(const ElementReader& parent, const char* name, Row (&rows)[N], Fill fill)
{
    size_t count = 0;
    for (ElementReader row = parent.child(name); row && count < N; row = row.next(name))
        fill(row, rows[count++]);
    return count;
}

// All rows of an array, each an element of attributes: fill(side, row).
template <size_t L, class Row, size_t N, class Fill>
void rowElements(TextWriter& out, const char (&name)[L], const Row (&rows)[N], Fill fill)
{
    for (const Row& row : rows)
        element(out, name, [&](TextWriter& side) { fill(side, row); });
}
template <class Row, size_t N, class Fill>
void rowElements(const ElementReader& parent, const char* name, Row (&rows)[N], Fill fill)
{
    readRows(parent, name, rows, fill);
}

// A child element that holds a number or a text, on a line of its own.
template <size_t N>
void textElement(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    out.append("<");
    out.append(name);
    out.append(">");
    appendNumber(out, field);
    closeTag(out, name);
}
template <size_t N, size_t Size>
void textElement(TextWriter& out, const char (&name)[N], const char (&field)[Size])
{
    out.append("<");
    out.append(name);
    out.append(">");
    appendText(out, field);
    closeTag(out, name);
}
inline void textElement(const ElementReader& parent, const char* name, int32_t& field)
{
    readOwnNumber(parent.child(name), field);
}
template <size_t Size>
void textElement(const ElementReader& parent, const char* name, char (&field)[Size])
{
    readOwnText(parent.child(name), field, Size);
}

} // namespace zel

#endif
