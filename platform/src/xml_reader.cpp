/*
 * XML service: a reader for the texts of this protocol, in two stages: xml_stops.h finds where names and
 * values end, xml_tree.cpp makes elements and attributes of that. Here is what looks them up and reads their
 * values.
 */
#include "zel_platform/xml.h"

#include <climits>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "float_text.h"
#include "xml_text.h"
#include "xml_tree.h"
#include "zel_platform/xml_memory.h"

namespace {

using namespace zelxml;

/* --- Looking up ------------------------------------------------------------------------------------ */

Document& documentOf(ZelXMLDocument* document) noexcept
{
    return *static_cast<Document*>(document);
}

[[gnu::always_inline]] inline bool isNamed(const Document& document, Span own, const char* name,
                                           std::size_t length) noexcept
{
    return own.size == length && isSame(document.text + own.place, name, length);
}

void* findNamed(Document& document, Node* node, const char* name, std::size_t length) noexcept
{
    while (!isNamed(document, node->name, name, length)) {
        if (node->nextSibling == 0)
            return nullptr;
        node = document.at(node->nextSibling);
    }
    return node;
}

void* firstChild(ZelXMLDocument* document, void* parent, const char* name, std::size_t length) noexcept
{
    auto* const node = static_cast<Node*>(parent);
    return node && node->hasChild ? findNamed(documentOf(document), node->firstChild(), name, length)
                                  : nullptr;
}

void* nextSibling(ZelXMLDocument* document, void* sibling, const char* name, std::size_t length) noexcept
{
    Document& all = documentOf(document);
    auto* const node = static_cast<Node*>(sibling);
    return node && node->nextSibling != 0 ? findNamed(all, all.at(node->nextSibling), name, length) : nullptr;
}

[[gnu::noinline]] const Attribute* searchAttribute(Document& document, const Node& node, const char* name,
                                                   std::size_t length) noexcept
{
    const Attribute* const begin = node.attributes();
    const Attribute* const end = begin + node.attributeCount;
    const Attribute* at = document.lastNode == &node ? document.next : begin;
    for (std::uint32_t tried = 0; tried < node.attributeCount; ++tried, ++at) {
        if (at == end)
            at = begin;
        if (isNamed(document, at->name, name, length)) {
            document.lastNode = &node;
            document.next = at + 1;
            document.end = end;
            return at;
        }
    }
    return nullptr;
}

/* Mostly it is the next one. */
[[gnu::always_inline]] inline const Attribute* findAttribute(Document& document, const Node& node,
                                                             const char* name, std::size_t length) noexcept
{
    const Attribute* const next = document.next;
    if (document.lastNode != &node || next == document.end || !isNamed(document, next->name, name, length))
        return searchAttribute(document, node, name, length);
    document.next = next + 1;
    return next;
}

const char* attribute(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                      std::size_t* size) noexcept
{
    if (!node)
        return nullptr;
    Document& all = documentOf(document);
    const Attribute* const found = findAttribute(all, *static_cast<Node*>(node), name, length);
    if (!found)
        return nullptr;
    *size = found->value.size;
    return all.text + found->value.place;
}

/* --- Values ---------------------------------------------------------------------------------------- */

/*
 * Number is the destination's unsigned type. What a signed or an unsigned reading of its width can hold is
 * taken and stored by its bits.
 */
template <class Number>
bool readInteger(const char* text, Number& value) noexcept
{
    constexpr std::uint64_t kHighest = static_cast<Number>(-1);
    constexpr std::uint64_t kLowest = kHighest / 2 + 1;

    if (!text)
        return false;
    text = skipSpace(text);
    const bool negative = *text == '-';
    if (negative || *text == '+')
        ++text;

    auto digit = static_cast<unsigned int>(*text - '0');
    if (digit > 9)
        return false;
    std::uint64_t magnitude = 0;
    do {
        if (sizeof(Number) < sizeof magnitude) {
            magnitude = magnitude * 10 + digit;
            if (magnitude > kHighest)
                return false;
        } else {
            if (magnitude > (kHighest - digit) / 10)
                return false;
            magnitude = magnitude * 10 + digit;
        }
        digit = static_cast<unsigned int>(*++text - '0');
    } while (digit <= 9);

    if (negative && magnitude > kLowest)
        return false;
    value = static_cast<Number>(negative ? 0 - magnitude : magnitude);
    return true;
}

/* The same of a text of that size, which no digit follows. */
template <class Number>
bool readInteger(const char* text, [[maybe_unused]] std::size_t size, Number& value) noexcept
{
#if defined(__BYTE_ORDER__) && __BYTE_ORDER__ == __ORDER_LITTLE_ENDIAN__
    /* Most are one to four digits: all at once, the last one highest. */
    if (size - 1 < 4) {
        std::uint32_t digits = (load<std::uint32_t>(text) ^ 0x30303030) << (32 - 8 * size);
        if (((digits | (digits + 0x76767676)) & 0x80808080) == 0) {
            digits = digits * 10 + (digits >> 8);
            const std::uint32_t number = (digits & 0xFF) * 100 + (digits >> 16 & 0xFF);
            if (number > static_cast<Number>(-1))
                return false;
            value = static_cast<Number>(number);
            return true;
        }
    }
#endif
    return readInteger(text, value);
}

/* Most values are short: two moves that may overlap, in place of a call. */
inline void copyShort(char* to, const char* from, std::size_t size) noexcept
{
    if (size > 16) {
        std::memcpy(to, from, size);
    } else if (size >= 8) {
        const auto first = load<std::uint64_t>(from);
        const auto last = load<std::uint64_t>(from + size - 8);
        std::memcpy(to, &first, 8);
        std::memcpy(to + size - 8, &last, 8);
    } else if (size >= 4) {
        const auto first = load<std::uint32_t>(from);
        const auto last = load<std::uint32_t>(from + size - 4);
        std::memcpy(to, &first, 4);
        std::memcpy(to + size - 4, &last, 4);
    } else {
        for (std::size_t i = 0; i < size; ++i)
            to[i] = from[i];
    }
}

int readInt(const char* text, int* value) noexcept
{
    unsigned int bits = 0;
    if (!value || !readInteger(text, bits))
        return -1;
    std::memcpy(value, &bits, sizeof bits);
    return 0;
}

int readString(const char* text, char* value, int limit) noexcept
{
    if (!text || !value || limit < 1)
        return -1;
    const std::size_t length = strnlen(text, static_cast<std::size_t>(limit) - 1);
    std::memcpy(value, text, length);
    value[length] = '\0';
    return 0;
}

} // namespace

namespace {

template <class Number>
bool readNumber(ZelXMLDocument* document, void* node, const char* name, std::size_t length,
                Number* value) noexcept
{
    std::size_t size = 0;
    const char* const text = attribute(document, node, name, length, &size);
    return text && readInteger(text, size, *value);
}

bool readInt(ZelXMLDocument* document, void* node, const char* name, std::size_t length, int* value) noexcept
{
    unsigned int bits = 0;
    if (!readNumber(document, node, name, length, &bits))
        return false;
    std::memcpy(value, &bits, sizeof bits);
    return true;
}

bool readString(ZelXMLDocument* document, void* node, const char* name, std::size_t length, char* value,
                std::size_t limit) noexcept
{
    std::size_t size = 0;
    const char* const text = attribute(document, node, name, length, &size);
    if (!text || limit == 0)
        return false;
    if (size >= limit)
        size = limit - 1;
    copyShort(value, text, size);
    value[size] = '\0';
    return true;
}

constexpr ZelXMLLookups kLookups = {firstChild,
                                    nextSibling,
                                    attribute,
                                    readInt,
                                    readNumber<unsigned int>,
                                    readNumber<unsigned char>,
                                    readNumber<unsigned long long>,
                                    readString};

/* The end of a value is marked only for those who ask for a terminated one. */
char* terminated(ZelXMLDocument* document, void* node, const char* name) noexcept
{
    std::size_t size = 0;
    if (!document || !node || !name || !attribute(document, node, name, std::strlen(name), &size))
        return nullptr;
    Document& all = documentOf(document);
    char* const value = all.text + (all.next - 1)->value.place;
    value[size] = '\0';
    return value;
}

} // namespace

int ZelXMLParser::Parse(const char* text) noexcept
{
    const std::size_t length = text ? std::strlen(text) : 0;
    return Parse(text, length <= INT_MAX ? static_cast<int>(length) : -1);
}

int ZelXMLParser::Parse(const char* text, int length) noexcept
{
    /* The old document goes last: the new text may lie in it. */
    ZelXMLParser old;
    old.document_ = document_;
    document_ = nullptr;
    if (text && length > 0)
        document_ = makeDocument(text, static_cast<std::size_t>(length));
    if (!document_)
        return -1;
    document_->lookups = &kLookups;
    return 0;
}

void ZelXMLParser::release(ZelXMLDocument* document) noexcept
{
    ZelXMLFree(static_cast<Document*>(document));
}

void* ZelXMLParser::RootElement() const noexcept
{
    return document_ ? documentOf(document_).root() : nullptr;
}

void* ZelXMLParser::FirstChildElement(void* node, const char* name) const noexcept
{
    return document_ && name ? firstChild(document_, node, name, std::strlen(name)) : nullptr;
}

void* ZelXMLParser::NextSiblingElement(void* node, const char* name) const noexcept
{
    return document_ && name ? nextSibling(document_, node, name, std::strlen(name)) : nullptr;
}

char* ZelXMLParser::Attribute(void* node, const char* name) const noexcept
{
    return terminated(document_, node, name);
}

const char* ZelXMLParser::GetText(void* node) const noexcept
{
    if (!document_ || !node)
        return nullptr;
    const std::uint32_t text = static_cast<const Node*>(node)->text;
    return text != 0 ? documentOf(document_).text + text : nullptr;
}
int getXmlIntTypeParamAttribute(ZelXMLParser parser, void* node, const char* name, int* value) noexcept
{
    return readInt(parser.Attribute(node, name), value);
}

int getXmlUIntTypeParamAttribute(ZelXMLParser parser, void* node, const char* name,
                                 unsigned int* value) noexcept
{
    return value && readInteger(parser.Attribute(node, name), *value) ? 0 : -1;
}

int getXmlUCharTypeParamAttribute(ZelXMLParser parser, void* node, const char* name,
                                  unsigned char* value) noexcept
{
    return value && readInteger(parser.Attribute(node, name), *value) ? 0 : -1;
}

int getXmlFloatTypeParamAttribute(ZelXMLParser parser, void* node, const char* name, float* value) noexcept
{
    const char* text = parser.Attribute(node, name);
    if (!text || !value)
        return -1;
    text = skipSpace(text);
    if (*text == '+' && *++text == '-')
        return -1;
    return readFloat(text, *value) ? 0 : -1;
}

int getXmlUllTypeParamAttribute(ZelXMLParser parser, void* node, const char* name,
                                unsigned long long* value) noexcept
{
    return value && readInteger(parser.Attribute(node, name), *value) ? 0 : -1;
}

int getXmlStringTypeParamAttribute(ZelXMLParser parser, void* node, const char* name, char* value,
                                   int limit) noexcept
{
    return readString(parser.Attribute(node, name), value, limit);
}

int getXmlIntTypeParamByGetText(ZelXMLParser parser, void* node, int* value) noexcept
{
    return readInt(parser.GetText(node), value);
}

int getXmlStringTypeParamByGetText(ZelXMLParser parser, void* node, char* value, int limit) noexcept
{
    return readString(parser.GetText(node), value, limit);
}
