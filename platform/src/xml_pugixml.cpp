/*
 * XML service on pugixml.
 */
#include "zel_platform/xml.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <new>

#include <pugixml.hpp>

namespace {

constexpr int kMaxDepth = 64;
constexpr int kMaxKnown = 64;

struct KnownAttribute
{
    const char* name;
    char* value;
};

/*
 * The attributes of the node that was asked for last, gathered as far as a search has come. pugixml is called
 * once for each of them; the searches themselves stay here.
 */
struct KnownAttributes
{
    void* owner;
    pugi::xml_attribute rest; /* the first that isn't among the items */
    int count;
    int next; /* behind the one that was found last: messages are mostly read in the order they were written
               */
    KnownAttribute items[kMaxKnown];
};

/* Lies at the start of one block; the text that pugixml parses in place follows it. */
struct Document : ZelXMLDocument
{
    pugi::xml_document tree;
    KnownAttributes known;
};

pugi::xml_node nodeOf(void* node) noexcept
{
    return pugi::xml_node(static_cast<pugi::xml_node_struct*>(node));
}

/*
 * pugixml counts in 32 bits without looking at an overflow, and writes whatever comes out, a NUL too, which
 * would end the value early.
 */
bool hasBadReference(const char* text) noexcept
{
    constexpr std::uint32_t kLastCharacter = 0x10FFFF;

    while ((text = std::strchr(text, '&')) != nullptr) {
        ++text;
        if (*text != '#')
            continue;
        ++text;
        const std::uint32_t base = *text == 'x' ? 16 : 10;
        if (base == 16)
            ++text;
        const char* const digits = text;
        std::uint32_t code = 0;
        for (;; ++text) {
            const auto decimal = static_cast<unsigned int>(*text - '0');
            const auto letter = static_cast<unsigned int>((*text | ' ') - 'a');
            if (decimal <= 9)
                code = code * base + decimal;
            else if (base == 16 && letter <= 5)
                code = code * base + letter + 10;
            else
                break;
            if (code > kLastCharacter)
                code = kLastCharacter + 1;
        }
        if (*text == ';' && text != digits && (code == 0 || code > kLastCharacter))
            return true;
    }
    return false;
}

/* No document type, and no element too deep. The walk keeps no stack, so depth itself can't hurt it. */
bool isAcceptable(const pugi::xml_document& tree) noexcept
{
    int depth = 1;
    pugi::xml_node node = tree.first_child();
    while (node) {
        const pugi::xml_node_type type = node.type();
        if (type == pugi::node_doctype || (type == pugi::node_element && depth > kMaxDepth))
            return false;
        pugi::xml_node next = node.first_child();
        if (next) {
            ++depth;
        } else {
            next = node.next_sibling();
            while (!next && depth > 1) {
                node = node.parent();
                --depth;
                next = node.next_sibling();
            }
        }
        node = next;
    }
    return true;
}

/* A parsed value always lies in the document's own copy of the text. */
char* valueOf(const pugi::xml_attribute& attribute) noexcept
{
    return const_cast<char*>(attribute.value());
}

/* Names are short, and mostly equal at the first try: a call of strcmp costs more than this. */
bool isSame(const char* a, const char* b) noexcept
{
    for (; *a == *b; ++a, ++b) {
        if (!*a)
            return true;
    }
    return false;
}

char* findKnown(KnownAttributes& known, int from, int end, const char* name) noexcept
{
    for (int i = from; i < end; ++i) {
        if (isSame(known.items[i].name, name)) {
            known.next = i + 1;
            return known.items[i].value;
        }
    }
    return nullptr;
}

char* findAttribute(KnownAttributes& known, void* node, const char* name) noexcept
{
    if (known.owner != node) {
        known.owner = node;
        known.rest = nodeOf(node).first_attribute();
        known.count = 0;
        known.next = 0;
    }

    const int start = known.next;
    if (char* const value = findKnown(known, start, known.count, name))
        return value;

    /* Only an attribute that isn't there has an empty name. */
    while (known.count < kMaxKnown) {
        const char* const nextName = known.rest.name();
        if (!*nextName)
            break;
        char* const value = valueOf(known.rest);
        known.items[known.count++] = {nextName, value};
        known.rest = known.rest.next_attribute();
        if (isSame(nextName, name)) {
            known.next = known.count;
            return value;
        }
    }

    if (char* const value = findKnown(known, 0, start, name))
        return value;

    for (pugi::xml_attribute attribute = known.rest; attribute; attribute = attribute.next_attribute()) {
        if (isSame(attribute.name(), name))
            return valueOf(attribute);
    }
    return nullptr;
}

bool isSpace(char c) noexcept
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

const char* skipSpace(const char* text) noexcept
{
    while (isSpace(*text))
        ++text;
    return text;
}

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

    if (!text || length < 1)
        return -1;
    const auto size = static_cast<std::size_t>(length);
    if (std::memchr(text, '\0', size))
        return -1;

    void* const block = pugi::get_memory_allocation_function()(sizeof(Document) + size + 1);
    if (!block)
        return -1;
    auto* const document = new (block) Document;
    document->references = 1;
    document->known.owner = nullptr;
    document_ = document;

    char* const copy = static_cast<char*>(block) + sizeof(Document);
    std::memcpy(copy, text, size);
    copy[size] = '\0';

    unsigned int options = pugi::parse_cdata | pugi::parse_doctype;
    bool good = true;
    if (std::memchr(copy, '&', size)) {
        options |= pugi::parse_escapes;
        good = !hasBadReference(copy);
    }
    good = good && document->tree.load_buffer_inplace(copy, size, options, pugi::encoding_utf8) &&
           isAcceptable(document->tree);
    if (good)
        return 0;

    document_ = nullptr;
    release(document);
    return -1;
}

void ZelXMLParser::release(ZelXMLDocument* document) noexcept
{
    auto* const mine = static_cast<Document*>(document);
    mine->~Document();
    pugi::get_memory_deallocation_function()(mine);
}

void* ZelXMLParser::RootElement() const noexcept
{
    return document_ ? static_cast<Document*>(document_)->tree.document_element().internal_object() : nullptr;
}

/* With these parse options only elements have names. */

void* ZelXMLParser::FirstChildElement(void* node, const char* name) const noexcept
{
    return document_ && node && name ? nodeOf(node).child(name).internal_object() : nullptr;
}

void* ZelXMLParser::NextSiblingElement(void* node, const char* name) const noexcept
{
    return document_ && node && name ? nodeOf(node).next_sibling(name).internal_object() : nullptr;
}

char* ZelXMLParser::Attribute(void* node, const char* name) const noexcept
{
    if (!document_ || !node || !name)
        return nullptr;
    return findAttribute(static_cast<Document*>(document_)->known, node, name);
}

const char* ZelXMLParser::GetText(void* node) const noexcept
{
    if (!document_ || !node)
        return nullptr;
    const char* const text = nodeOf(node).child_value();
    return *skipSpace(text) ? text : nullptr;
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
    float number = 0;
    const std::from_chars_result result = std::from_chars(text, text + std::strlen(text), number);
    if (result.ec != std::errc() || !std::isfinite(number))
        return -1;
    *value = number;
    return 0;
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
