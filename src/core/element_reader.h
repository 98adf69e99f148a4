// The reading side: one element of a parsed text.
#ifndef ZEL_CORE_ELEMENT_READER_H
#define ZEL_CORE_ELEMENT_READER_H

#include <cstddef>
#include <cstdint>

#include "zel_platform/xml.h"

namespace zel {

// Refers to an element, or to none. The parsed message outlives it.
struct ElementReader
{
    explicit operator bool() const
    {
        return node != nullptr;
    }

    ElementReader child(const char* name) const;
    ElementReader next(const char* name) const;

    // The attribute's value, or null.
    char* value(const char* name) const
    {
        return parser->Attribute(node, name);
    }

    // The element's own text, or null.
    const char* text() const
    {
        return parser->GetText(node);
    }

    const ZelXMLParser* parser = nullptr;
    void* node = nullptr;
};

// Each reads one attribute, leaves the field as it was if there is none, and tells whether there was.
bool readNumber(const ElementReader& in, const char* name, int32_t& field);
bool readNumber(const ElementReader& in, const char* name, uint32_t& field);
bool readNumber(const ElementReader& in, const char* name, uint8_t& field);
bool readNumber(const ElementReader& in, const char* name, uint64_t& field);
bool readNumber(const ElementReader& in, const char* name, float& field);
bool readText(const ElementReader& in, const char* name, char* field, size_t size);

// The same for the element's own text.
bool readOwnNumber(const ElementReader& in, int32_t& field);
bool readOwnText(const ElementReader& in, char* field, size_t size);

} // namespace zel

#endif
