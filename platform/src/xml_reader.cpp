/*
 * XML service: a reader for the texts of this protocol.
 *
 * One pass over a private copy of the text, in place: names and values are terminated where they stand,
 * elements and attributes lie in two arrays beside the copy, all in one block. What is counted before the
 * pass bounds both arrays, so nothing grows while reading. It reads elements, attributes, text, CDATA,
 * references, comments and processing instructions; a document type is refused. Names may hold any byte that
 * can't end one.
 */
#include "zel_platform/xml.h"

#include <charconv>
#include <climits>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <new>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

#include "zel_platform/xml_memory.h"

namespace {

constexpr int kMaxDepth = 64;

/* Zero bytes behind the copy, so that a block may be looked at from each of its bytes. */
constexpr std::size_t kBlock = 16;

/* Places in the copy. Nothing stands at 0 but the first byte of the text, which is never a name or a value.
 */
struct Attribute
{
    std::uint32_t name;
    std::uint32_t value;
};

struct Node
{
    std::uint32_t name;
    std::uint32_t text; /* 0: none */
    std::uint32_t firstAttribute;
    std::uint32_t attributeCount;
    std::uint32_t firstChild; /* 0: none; the first node is nobody's child or sibling */
    std::uint32_t nextSibling;
};

struct Document : ZelXMLDocument
{
    char* text;
    Node* nodes;
    Attribute* attributes;
    /* The search starts behind the attribute that was found last: most are read in the order of writing. */
    const Node* lastNode;
    const Attribute* next;
    const Attribute* end;
};

/* --- Characters ------------------------------------------------------------------------------------ */

constexpr unsigned char kSpace = 1;
constexpr unsigned char kStartsName = 2;
constexpr unsigned char kInName = 4;

struct Classes
{
    unsigned char of[256];
};

constexpr Classes makeClasses() noexcept
{
    Classes classes{};
    for (int c = 0; c < 256; ++c) {
        const bool starts =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' || c >= 0x80;
        const bool inside = starts || (c >= '0' && c <= '9') || c == '-' || c == '.';
        const bool space = c == ' ' || (c >= '\t' && c <= '\r');
        classes.of[c] = static_cast<unsigned char>((space ? kSpace : 0) | (starts ? kStartsName : 0) |
                                                   (inside ? kInName : 0));
    }
    return classes;
}

constexpr Classes kClasses = makeClasses();

bool is(char c, unsigned char what) noexcept
{
    return (kClasses.of[static_cast<unsigned char>(c)] & what) != 0;
}

const char* skipSpace(const char* at) noexcept
{
    while (is(*at, kSpace))
        ++at;
    return at;
}

char* skipSpace(char* at) noexcept
{
    while (is(*at, kSpace))
        ++at;
    return at;
}

/*
 * Byte by byte, on purpose: the processor guesses where a name or a value ends and goes on, while a wide
 * comparison makes it wait for the place it computes.
 */

/* The first byte that can't stand in a name. */
[[gnu::always_inline]] inline char* nameEnd(char* at) noexcept
{
    for (;; at += 4) {
        if (!is(at[0], kInName))
            return at;
        if (!is(at[1], kInName))
            return at + 1;
        if (!is(at[2], kInName))
            return at + 2;
        if (!is(at[3], kInName))
            return at + 3;
    }
}

/* The first of that character, or the end of the text. */
[[gnu::always_inline]] inline char* findOrEnd(char* at, char wanted) noexcept
{
    for (;; at += 4) {
        if (at[0] == wanted || !at[0])
            return at;
        if (at[1] == wanted || !at[1])
            return at + 1;
        if (at[2] == wanted || !at[2])
            return at + 2;
        if (at[3] == wanted || !at[3])
            return at + 3;
    }
}

/* What the arrays need room for, and what a text may or may not hold. */
struct Census
{
    std::size_t openings;
    std::size_t equals;
    bool hasReference;
    bool hasNul;
};

Census count(const char* text, std::size_t size) noexcept
{
    Census census{0, 0, false, false};
    std::size_t done = 0;
#if defined(__SSE2__)
    const __m128i zero = _mm_setzero_si128();
    __m128i references = zero;
    __m128i nuls = zero;
    while (size - done >= kBlock) {
        /* The counters are bytes: as many blocks as they can count. */
        __m128i openings = zero;
        __m128i equals = zero;
        for (int blocks = 0; blocks < 255 && size - done >= kBlock; ++blocks, done += kBlock) {
            const __m128i block = _mm_loadu_si128(reinterpret_cast<const __m128i*>(text + done));
            const auto same = [block](char c) { return _mm_cmpeq_epi8(block, _mm_set1_epi8(c)); };
            openings = _mm_sub_epi8(openings, same('<'));
            equals = _mm_sub_epi8(equals, same('='));
            references = _mm_or_si128(references, same('&'));
            nuls = _mm_or_si128(nuls, same('\0'));
        }
        const auto sum = [zero](__m128i counters) {
            const __m128i halves = _mm_sad_epu8(counters, zero);
            return static_cast<std::size_t>(_mm_cvtsi128_si32(halves) + _mm_extract_epi16(halves, 4));
        };
        census.openings += sum(openings);
        census.equals += sum(equals);
    }
    census.hasReference = _mm_movemask_epi8(references) != 0;
    census.hasNul = _mm_movemask_epi8(nuls) != 0;
#endif
    for (; done < size; ++done) {
        census.openings += text[done] == '<';
        census.equals += text[done] == '=';
        census.hasReference |= text[done] == '&';
        census.hasNul |= text[done] == '\0';
    }
    return census;
}

/* --- References ------------------------------------------------------------------------------------ */

char* putUtf8(char* to, std::uint32_t code) noexcept
{
    const auto put = [&to](std::uint32_t byte) { *to++ = static_cast<char>(byte); };
    if (code < 0x80) {
        put(code);
    } else if (code < 0x800) {
        put(0xC0 | code >> 6);
        put(0x80 | (code & 0x3F));
    } else if (code < 0x10000) {
        put(0xE0 | code >> 12);
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    } else {
        put(0xF0 | code >> 18);
        put(0x80 | (code >> 12 & 0x3F));
        put(0x80 | (code >> 6 & 0x3F));
        put(0x80 | (code & 0x3F));
    }
    return to;
}

/* Reads the number of a character reference behind its #. False if it is none, which leaves it as it stands.
 */
bool takeCode(const char*& at, std::uint32_t& code) noexcept
{
    constexpr std::uint32_t kTooLarge = 0x110000;
    const bool hexadecimal = *at == 'x';
    if (hexadecimal)
        ++at;
    const char* const digits = at;
    code = 0;
    for (;; ++at) {
        const auto decimal = static_cast<unsigned int>(*at - '0');
        const auto letter = static_cast<unsigned int>((*at | 0x20) - 'a');
        if (decimal <= 9)
            code = code * (hexadecimal ? 16 : 10) + decimal;
        else if (hexadecimal && letter <= 5)
            code = code * 16 + letter + 10;
        else
            break;
        if (code > kTooLarge)
            code = kTooLarge;
    }
    return at != digits && *at++ == ';';
}

/* Replaces references in a terminated text. False for a character that may not be: NUL, or beyond the last.
 */
bool resolveReferences(char* text) noexcept
{
    struct Entity
    {
        const char* name;
        std::size_t size;
        char character;
    };
    constexpr Entity kEntities[] = {
        {"amp;", 4, '&'}, {"lt;", 3, '<'}, {"gt;", 3, '>'}, {"quot;", 5, '"'}, {"apos;", 5, '\''}};

    char* to = std::strchr(text, '&');
    if (!to)
        return true;
    for (const char* at = to; *at;) {
        if (*at != '&') {
            *to++ = *at++;
            continue;
        }
        const char* behind = at + 1;
        std::uint32_t code = 0;
        if (*behind == '#' && takeCode(++behind, code)) {
            if (code == 0 || code > 0x10FFFF)
                return false;
            to = putUtf8(to, code);
            at = behind;
            continue;
        }
        char character = '&';
        std::size_t size = 0;
        for (const Entity& entity : kEntities) {
            if (std::strncmp(at + 1, entity.name, entity.size) == 0) {
                character = entity.character;
                size = entity.size;
            }
        }
        *to++ = character;
        at += 1 + size;
    }
    *to = '\0';
    return true;
}

/* --- Reading --------------------------------------------------------------------------------------- */

/* One run over the text. Each step returns where it stopped, or null for a text that isn't well-formed. */
struct Reader
{
    Reader(Document& into, char* text, bool withReferences) noexcept
        : document(into), base(text), hasReferences(withReferences)
    {}

    Document& document;
    char* const base;
    const bool hasReferences;
    std::uint32_t nodeCount = 0;
    std::uint32_t attributeCount = 0;
    int depth = 0;
    Node* open[kMaxDepth];      /* the elements that are open, from the root on */
    Node* lastChild[kMaxDepth]; /* of each */

    std::uint32_t placeOf(const char* at) const noexcept
    {
        return static_cast<std::uint32_t>(at - base);
    }

    bool resolve(char* text) const noexcept
    {
        return !hasReferences || resolveReferences(text);
    }

    Node* addNode(const char* name) noexcept
    {
        Node* const node = document.nodes + nodeCount;
        *node = {placeOf(name), 0, attributeCount, 0, 0, 0};
        if (depth > 0) {
            Node*& last = lastChild[depth - 1];
            (last ? last->nextSibling : open[depth - 1]->firstChild) = nodeCount;
            last = node;
        }
        ++nodeCount;
        return node;
    }

    void addText(const char* text) noexcept
    {
        if (depth == 0 || open[depth - 1]->text != 0)
            return;
        for (const char* at = text; *at; ++at) {
            if (!is(*at, kSpace)) {
                open[depth - 1]->text = placeOf(text);
                return;
            }
        }
    }

    char* readAttribute(char* at) noexcept
    {
        char* const name = at;
        char* const behindName = nameEnd(at);
        at = behindName;
        /* Hardly ever does white space stand around the equals sign. */
        if (*at != '=' && *(at = skipSpace(at)) != '=')
            return nullptr;
        char quote = *++at;
        if (quote != '"' && quote != '\'') {
            at = skipSpace(at);
            quote = *at;
            if (quote != '"' && quote != '\'')
                return nullptr;
        }
        char* const value = at + 1;
        at = findOrEnd(value, quote);
        if (!*at)
            return nullptr;
        *behindName = '\0';
        *at = '\0';
        if (!resolve(value))
            return nullptr;
        document.attributes[attributeCount++] = {placeOf(name), placeOf(value)};
        /* White space must part it from the next one. */
        ++at;
        return is(*at, kStartsName) ? nullptr : skipSpace(at);
    }

    char* readOpenTag(char* at) noexcept
    {
        if (!is(*at, kStartsName) || depth == kMaxDepth)
            return nullptr;
        Node* const node = addNode(at);
        char* const behindName = nameEnd(at);
        at = skipSpace(behindName);
        if (at == behindName && *at != '/' && *at != '>')
            return nullptr;
        while (is(*at, kStartsName)) {
            at = readAttribute(at);
            if (!at)
                return nullptr;
        }
        node->attributeCount = attributeCount - node->firstAttribute;
        if (*at == '/') {
            ++at;
        } else {
            lastChild[depth] = nullptr;
            open[depth++] = node;
        }
        if (*at != '>')
            return nullptr;
        *behindName = '\0';
        return at + 1;
    }

    char* readCloseTag(char* at) noexcept
    {
        if (depth == 0)
            return nullptr;
        const char* name = base + open[depth - 1]->name;
        for (; *name; ++name, ++at) {
            if (*at != *name)
                return nullptr;
        }
        at = skipSpace(at);
        if (*at != '>')
            return nullptr;
        --depth;
        return at + 1;
    }

    /* Comments, CDATA, and what is refused. */
    char* readDeclaration(char* at) noexcept
    {
        if (std::strncmp(at, "--", 2) == 0) {
            char* const end = std::strstr(at + 2, "-->");
            return end ? end + 3 : nullptr;
        }
        if (std::strncmp(at, "[CDATA[", 7) == 0) {
            char* const text = at + 7;
            char* const end = std::strstr(text, "]]>");
            if (!end)
                return nullptr;
            *end = '\0';
            addText(text);
            return end + 3;
        }
        return nullptr;
    }

    char* readMarkup(char* at) noexcept
    {
        switch (*at) {
        case '/':
            return readCloseTag(at + 1);
        case '!':
            return readDeclaration(at + 1);
        case '?': {
            char* const end = std::strstr(at + 1, "?>");
            return end ? end + 2 : nullptr;
        }
        default:
            return readOpenTag(at);
        }
    }

    bool read() noexcept
    {
        char* at = base;
        if (std::strncmp(at, "\xEF\xBB\xBF", 3) == 0)
            at += 3;
        while (*at) {
            char* const text = at;
            at = findOrEnd(skipSpace(at), '<');
            if (!*at)
                break;
            *at = '\0';
            if (at != text) {
                if (!resolve(text))
                    return false;
                addText(text);
            }
            at = readMarkup(at + 1);
            if (!at)
                return false;
        }
        return depth == 0 && nodeCount > 0;
    }
};

std::size_t atMost(std::size_t value, std::size_t most) noexcept
{
    return value < most ? value : most;
}

Document* makeDocument(const char* text, std::size_t size) noexcept
{
    const Census census = count(text, size);
    if (census.hasNul)
        return nullptr;
    /* No element is shorter than <a/>, but for those that stay open, and no attribute shorter than a="". */
    const std::size_t nodes = atMost(census.openings, size / 4 + kMaxDepth + 1) * sizeof(Node);
    const std::size_t attributes = atMost(census.equals, size / 5 + 1) * sizeof(Attribute);
    const std::size_t arrays = sizeof(Document) + nodes + attributes;
    if (size > SIZE_MAX / 16)
        return nullptr;
    auto* const block = static_cast<char*>(ZelXMLMalloc(arrays + size + kBlock));
    if (!block)
        return nullptr;
    auto* const document = new (block) Document;
    document->references = 1;
    document->nodes = reinterpret_cast<Node*>(block + sizeof(Document));
    document->attributes = reinterpret_cast<Attribute*>(block + sizeof(Document) + nodes);
    document->text = block + arrays;
    document->lastNode = nullptr;
    document->next = nullptr;
    document->end = nullptr;
    std::memcpy(document->text, text, size);
    std::memset(document->text + size, 0, kBlock);

    Reader reader(*document, document->text, census.hasReference);
    if (reader.read())
        return document;
    ZelXMLFree(block);
    return nullptr;
}

/* --- Looking up ------------------------------------------------------------------------------------ */

bool isSame(const char* a, const char* b) noexcept
{
    return *a == *b && std::strcmp(a, b) == 0;
}

const Document& documentOf(const ZelXMLDocument* document) noexcept
{
    return *static_cast<const Document*>(document);
}

void* findSibling(const Document& document, std::uint32_t first, const char* name) noexcept
{
    for (std::uint32_t i = first; i != 0; i = document.nodes[i].nextSibling) {
        if (isSame(document.text + document.nodes[i].name, name))
            return document.nodes + i;
    }
    return nullptr;
}

[[gnu::noinline]] char* searchAttribute(Document& document, const Node& node, const char* name) noexcept
{
    const Attribute* const begin = document.attributes + node.firstAttribute;
    const Attribute* const end = begin + node.attributeCount;
    const Attribute* at = document.lastNode == &node ? document.next : begin;
    for (std::uint32_t tried = 0; tried < node.attributeCount; ++tried, ++at) {
        if (at == end)
            at = begin;
        if (isSame(document.text + at->name, name)) {
            document.lastNode = &node;
            document.next = at + 1;
            document.end = end;
            return document.text + at->value;
        }
    }
    return nullptr;
}

char* findAttribute(Document& document, const Node& node, const char* name) noexcept
{
    /* Mostly it is the next one. */
    const Attribute* const next = document.next;
    if (document.lastNode == &node && next != document.end && isSame(document.text + next->name, name)) {
        document.next = next + 1;
        return document.text + next->value;
    }
    return searchAttribute(document, node, name);
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
    if (text && length > 0)
        document_ = makeDocument(text, static_cast<std::size_t>(length));
    return document_ ? 0 : -1;
}

void ZelXMLParser::release(ZelXMLDocument* document) noexcept
{
    ZelXMLFree(static_cast<Document*>(document));
}

void* ZelXMLParser::RootElement() const noexcept
{
    return document_ ? documentOf(document_).nodes : nullptr;
}

void* ZelXMLParser::FirstChildElement(void* node, const char* name) const noexcept
{
    if (!document_ || !node || !name)
        return nullptr;
    return findSibling(documentOf(document_), static_cast<const Node*>(node)->firstChild, name);
}

void* ZelXMLParser::NextSiblingElement(void* node, const char* name) const noexcept
{
    if (!document_ || !node || !name)
        return nullptr;
    return findSibling(documentOf(document_), static_cast<const Node*>(node)->nextSibling, name);
}

char* ZelXMLParser::Attribute(void* node, const char* name) const noexcept
{
    if (!document_ || !node || !name)
        return nullptr;
    return findAttribute(*static_cast<Document*>(document_), *static_cast<const Node*>(node), name);
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
