/* A parsed text: what stage two leaves and the lookups use. */
#ifndef ZEL_PLATFORM_XML_TREE_H
#define ZEL_PLATFORM_XML_TREE_H

#include <cstddef>
#include <cstdint>

#include "zel_platform/xml.h"

namespace zelxml {

/* A run of bytes in the document's text. */
struct Span
{
    std::uint32_t place;
    std::uint32_t size;
};

struct Attribute
{
    Span name;
    Span value; /* a quotation mark or a zero byte follows it */
};

/* Its attributes follow it, and then its first child, if it has one. */
struct Node
{
    Span name;
    std::uint32_t text; /* its place; 0: none, as the text's first byte is never an element's */
    std::uint32_t attributeCount;
    std::uint32_t hasChild;
    std::uint32_t nextSibling; /* how many units behind the root; 0: none */

    Attribute* attributes() noexcept
    {
        return static_cast<Attribute*>(static_cast<void*>(this + 1));
    }
    const Attribute* attributes() const noexcept
    {
        return static_cast<const Attribute*>(static_cast<const void*>(this + 1));
    }
    Node* firstChild() noexcept
    {
        return static_cast<Node*>(static_cast<void*>(attributes() + attributeCount));
    }
};

constexpr std::size_t kUnit = 8;
static_assert(sizeof(Attribute) % kUnit == 0 && sizeof(Node) % kUnit == 0);

inline std::uint32_t unitsBetween(const Node* from, const Node* to) noexcept
{
    return static_cast<std::uint32_t>(
        static_cast<std::size_t>(reinterpret_cast<const char*>(to) - reinterpret_cast<const char*>(from)) /
        kUnit);
}

struct Document : ZelXMLDocument
{
    char* text;
    /* The search starts behind the attribute that was found last: most are read in the order of writing. */
    const Node* lastNode;
    const Attribute* next;
    const Attribute* end;

    /* Directly behind the document. */
    Node* root() noexcept
    {
        return static_cast<Node*>(static_cast<void*>(this + 1));
    }
    Node* at(std::uint32_t units) noexcept
    {
        return static_cast<Node*>(static_cast<void*>(reinterpret_cast<char*>(root()) + units * kUnit));
    }
};

/* Null for a text that isn't well-formed, or without memory. */
[[gnu::visibility("hidden")]] Document* makeDocument(const char* text, std::size_t size) noexcept;

} // namespace zelxml

#endif
