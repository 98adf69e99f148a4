// The reading side: one element of a parsed text.
#ifndef ZEL_CORE_ELEMENT_READER_H
#define ZEL_CORE_ELEMENT_READER_H

#include <string_view>

#include "core/side.h"
#include "zel_platform/xml.h"

namespace zel {

// Refers to an element, or to none. The parsed message outlives it.
struct ElementReader
{
    explicit operator bool() const
    {
        return node != nullptr;
    }

    ElementReader child(Name name) const;
    ElementReader next(Name name) const;

    // The attribute's value, or one without data.
    std::string_view value(Name name) const;

    // The element's own text, or null.
    const char* text() const
    {
        return parser->GetText(node);
    }

    const ZelXMLParser* parser = nullptr;
    void* node = nullptr;
};

// The element that a list stands in.
struct TreeReader : Side
{
    explicit TreeReader(const ElementReader& element)
        : Side(Kind::kTree, false, true, nullptr, 0), at(element)
    {}

    ElementReader at;
};

inline bool isTree(const Side& side)
{
    return side.kind == Side::Kind::kTree;
}
inline TreeReader& readerOf(Side& side)
{
    return static_cast<TreeReader&>(side);
}
inline Visitor& visitorOf(Side& side)
{
    return static_cast<Visitor&>(side);
}

} // namespace zel

#endif
