// What an attribute list runs over: a text that is written, an element that is read, or a visitor. Lists take
// it by reference and are compiled once.
#ifndef ZEL_CORE_SIDE_H
#define ZEL_CORE_SIDE_H

#include <cstddef>
#include <cstdint>

#include "zel_protocol/catalogue.h"

namespace zel {

// The name of an element or attribute, with its length.
struct Name
{
    template <size_t N>
    constexpr Name(const char (&literal)[N]) : text(literal), length(N - 1)
    {}
    constexpr Name(const char* name, size_t size) : text(name), length(size) {}

    const char* text; // terminated
    size_t length;
};

// A TextWriter, a TreeReader or a Visitor.
struct Side
{
    enum class Kind : uint8_t
    {
        kText,
        kTree,
        kVisitor
    };

    // Whether values go out of the record: for the places where the directions differ. A list changes its
    // record only where they don't.
    bool writes() const
    {
        return writing;
    }

    // Whether what follows belongs to the message: while writing, if the condition holds. A reader takes what
    // there is, and a description covers everything.
    bool takes(bool condition) const
    {
        return condition || takesAll;
    }

    size_t left() const
    {
        return static_cast<size_t>(end - cursor);
    }

    // Where a text goes on, and where its buffer ends. Any other side has no room at all: whoever writes
    // looks for room first, and learns with that one test that it has to look closer.
    char* cursor;
    char* end;
    const Kind kind;

protected:
    Side(Kind which, bool isWriting, bool unconditional, char* buffer, size_t capacity)
        : cursor(buffer), end(buffer + capacity), kind(which), writing(isWriting), takesAll(unconditional)
    {}
    ~Side() = default;
    Side(const Side&) = delete;
    Side& operator=(const Side&) = delete;

    const bool writing;
    const bool takesAll;
};

// A field that a list comes by.
struct FieldSeen
{
    Name name; // of its attribute; empty: it is the element's text
    ZEL_FORM form;
    bool isSkipped; // not written at its absent value
    void* field;
    size_t size;
};

// An element that a list opens, or one of a number of rows.
struct ElementSeen
{
    Name name;
    size_t index; // of the row
    size_t rows;  // how many there may be; 0: it isn't a row
    size_t rowSize;
};

// Any other side. The functions are plain ones, so that the library needs no C++ runtime.
struct Visitor : Side
{
    using See = bool (*)(Visitor& visitor, const FieldSeen& seen);
    using Enter = bool (*)(Visitor& visitor, const ElementSeen& seen);
    using Leave = void (*)(Visitor& visitor);

    Visitor(bool isWriting, bool unconditional, See onField, Enter onEnter, Leave onLeave)
        : Side(Kind::kVisitor, isWriting, unconditional, nullptr, 0), see(onField), enter(onEnter),
          leave(onLeave)
    {}

    const See see;     // false: there was none to read
    const Enter enter; // false: there is none
    const Leave leave; // the element that was entered last
};

} // namespace zel

#endif
