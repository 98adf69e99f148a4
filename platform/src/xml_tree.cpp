/*
 * Stage two: from the places where names and values end to elements and attributes.
 *
 * It walks along the list of stage one over a private copy of the text. Most attributes are a name, the two
 * bytes =" and a value of letters and digits: their four places are known without a look at a byte in
 * between, and that the value holds neither reference nor quotation mark is then proven. Whatever else there
 * is takes a slower way of the same outcome.
 *
 * Elements and attributes lie in one row, in the order of the text and in one block with it. What is counted
 * before bounds the row, so nothing grows while reading. It reads elements, attributes, text, CDATA,
 * references, comments and processing instructions; a document type is refused. Names may hold any byte that
 * can't end one.
 */
#include "xml_tree.h"

#include <new>

#include "xml_references.h"
#include "xml_stops.h"
#include "xml_text.h"
#include "zel_platform/xml_memory.h"

namespace zelxml {

namespace {

constexpr int kMaxDepth = 64;

/* What most texts begin with. */
constexpr char kDeclaration[] = "?xml version=\"1.0\" encoding=\"GB2312\" ?>";
constexpr std::size_t kDeclarationSize = sizeof kDeclaration - 1;

bool isEqualsAndQuote(const char* at) noexcept
{
    const char wanted[] = {'=', '"'};
    return load<std::uint16_t>(at) == load<std::uint16_t>(wanted);
}

/* One run over the text. Each step returns where it stopped, or null for a text that isn't well-formed. */
class Reader
{
public:
    Reader(Document& document, std::uint32_t length) noexcept
        : base(document.text), size(length), root(document.root()), row(root), stops(base, length),
          stop(stops.begin())
    {}

    bool read() noexcept
    {
        char* at = base;
        if (std::strncmp(at, "\xEF\xBB\xBF", 3) == 0)
            at += 3;
        for (;;) {
            char* const text = at;
            at = skipSpace(at);
            if (*at != '<') {
                at = takeText(text);
                if (!at)
                    return false;
                if (at == base + size)
                    break;
            }
            at = readMarkup(at + 1);
            if (!at)
                return false;
        }
        return depth == 0 && row != root;
    }

    /* Equals signs that a quotation mark is known to follow. */
    std::size_t quoted() const noexcept
    {
        return quotedSigns;
    }

private:
    std::uint32_t placeOf(const char* at) const noexcept
    {
        return static_cast<std::uint32_t>(at - base);
    }

    /* What stands before the next tag, or at the end of all. */
    [[gnu::noinline]] char* takeText(char* text) noexcept
    {
        char* const end = findEither(text, '<', '<');
        /* A zero byte ends the text too early, wherever else it stands. */
        if (!*end)
            return end == base + size ? end : nullptr;
        *end = '\0';
        if (!resolveReferences(text))
            return nullptr;
        keepText(text);
        return end;
    }

    void keepText(const char* text) noexcept
    {
        if (depth > 0 && open[depth - 1]->text == 0 && *skipSpace(text))
            open[depth - 1]->text = placeOf(text);
    }

    char* readMarkup(char* at) noexcept
    {
        switch (*at) {
        case '/':
            return readCloseTag(at + 1);
        case '!':
            return readDeclaration(at + 1);
        case '?':
            return readInstruction(at);
        default:
            return readOpenTag(at);
        }
    }

    char* readInstruction(char* at) noexcept
    {
        if (size - placeOf(at) > kDeclarationSize && isSame(at, kDeclaration, kDeclarationSize)) {
            quotedSigns += 2;
            return at + kDeclarationSize;
        }
        char* const end = std::strstr(at + 1, "?>");
        return end ? end + 2 : nullptr;
    }

    /* Comments, CDATA, and what is refused. */
    [[gnu::noinline]] char* readDeclaration(char* at) noexcept
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
            keepText(text);
            return end + 3;
        }
        return nullptr;
    }

    char* readCloseTag(char* at) noexcept
    {
        if (depth == 0)
            return nullptr;
        const Span name = open[depth - 1]->name;
        if (size - placeOf(at) < name.size || !isSame(base + name.place, at, name.size))
            return nullptr;
        at = skipSpace(at + name.size);
        if (*at != '>')
            return nullptr;
        --depth;
        return at + 1;
    }

    char* readOpenTag(char* at) noexcept
    {
        if (!is(*at, kStartsName) || depth == kMaxDepth)
            return nullptr;
        stop = stops.from(stop, placeOf(at));
        Node& node = addNode({placeOf(at), *stop - placeOf(at)});
        at = skipSpace(base + *stop);
        ++stop;
        if (is(*at, kStartsName)) {
            at = readAttributes(at, node);
            if (!at)
                return nullptr;
        }
        if (*at == '/') {
            ++at;
        } else {
            lastChild[depth] = nullptr;
            open[depth++] = &node;
        }
        return *at == '>' ? at + 1 : nullptr;
    }

    Node& addNode(Span name) noexcept
    {
        Node* const node = new (row) Node{name, 0, 0, 0, 0};
        if (depth > 0) {
            Node*& last = lastChild[depth - 1];
            if (last)
                last->nextSibling = unitsBetween(root, node);
            else
                open[depth - 1]->hasChild = 1;
            last = node;
        }
        row = node + 1;
        return *node;
    }

    /* From the first byte of a name on. Returns the first byte that is no attribute's. */
    char* readAttributes(char* name, Node& node) noexcept
    {
        char* const text = base;
        std::uint32_t at = placeOf(name);
        Attribute* to = node.attributes();
        const std::uint32_t* next = stop;
        for (;;) {
            std::uint32_t sign = next[0];
            std::uint32_t end = next[1];
            const std::uint32_t nameSize = sign - at;
            bool isRead = false;
            /* Some peers put a blank before the sign. */
            if (isEqualsAndQuote(text + sign) || (text[sign] == ' ' && isEqualsAndQuote(text + ++sign))) {
                const std::uint32_t value = sign + 2;
                /* Letters and digits alone are a value that ends where they do. */
                if (text[end] == '"' && is(text[value], kInName)) {
                    next += 2;
                    isRead = true;
                } else {
                    end = placeOf(findEither(text + value, '"', '&'));
                    isRead = text[end] == '"';
                    if (isRead)
                        next = stops.from(next, end + 1);
                }
                new (to) Attribute{{at, nameSize}, {value, end - value}};
            } else if (stops.isUsedUp(next)) {
                next = stops.fromNext(next, at);
                if (!stops.isUsedUp(next))
                    continue;
            }
            if (!isRead) {
                const char* const behind = readOddAttribute(text + at, to);
                if (!behind)
                    return nullptr;
                end = placeOf(behind);
                next = stops.from(next, end + 1);
            }
            ++to;
            /* White space must part it from the next one. */
            at = end + 1;
            if (!is(text[at], kSpace)) {
                if (is(text[at], kStartsName))
                    return nullptr;
                break;
            }
            ++at;
            if (is(text[at], kStartsName))
                continue;
            at = placeOf(skipSpace(text + at));
            if (!is(text[at], kStartsName))
                break;
        }
        stop = next;
        row = to;
        node.attributeCount = static_cast<std::uint32_t>(to - node.attributes());
        quotedSigns += node.attributeCount;
        return text + at;
    }

    /* Any attribute there may be. Returns its closing quotation mark. */
    [[gnu::noinline]] char* readOddAttribute(char* const name, Attribute* to) noexcept
    {
        char* at = name;
        while (is(*at, kInName))
            ++at;
        const auto nameSize = static_cast<std::uint32_t>(at - name);
        at = skipSpace(at);
        if (*at != '=')
            return nullptr;
        quotedSigns -= at[1] != '"';
        at = skipSpace(at + 1);
        const char quote = *at;
        if (quote != '"' && quote != '\'')
            return nullptr;
        char* const value = at + 1;
        char* const behind = findEither(value, quote, quote);
        if (!*behind)
            return nullptr;
        *behind = '\0';
        const char* const end = resolveReferences(value);
        if (!end)
            return nullptr;
        new (to)
            Attribute{{placeOf(name), nameSize}, {placeOf(value), static_cast<std::uint32_t>(end - value)}};
        return behind;
    }

    char* const base;
    const std::uint32_t size;
    Node* const root;
    void* row; /* its end */
    std::size_t quotedSigns = 0;
    int depth = 0;
    Node* open[kMaxDepth];      /* the elements that are open, from the root on */
    Node* lastChild[kMaxDepth]; /* of each */
    Stops stops;
    const std::uint32_t* stop; /* the next */
};

} // namespace

Document* makeDocument(const char* text, std::size_t size) noexcept
{
    if (size > SIZE_MAX / 16)
        return nullptr;
    /* No element is shorter than <a/>, but for those that stay open, and no attribute shorter than a="". */
    const Signs signs = count(text, size);
    const std::size_t counted = signs.openings * sizeof(Node) + signs.equals * sizeof(Attribute);
    const std::size_t most = size / 4 * sizeof(Node) + (kMaxDepth + 2) * sizeof(Node);
    const std::size_t row = counted < most ? counted : most;
    void* const block = ZelXMLMalloc(sizeof(Document) + row + size + kBlock);
    if (!block)
        return nullptr;
    auto* const document = new (block) Document;
    document->references = 1;
    document->text = static_cast<char*>(block) + sizeof(Document) + row;
    document->lastNode = nullptr;
    document->next = nullptr;
    document->end = nullptr;
    std::memcpy(document->text, text, size);
    std::memset(document->text + size, 0, kBlock);

    Reader reader(*document, static_cast<std::uint32_t>(size));
    if (reader.read()) {
        document->isQuoted = reader.quoted() == signs.equals;
        return document;
    }
    ZelXMLFree(block);
    return nullptr;
}

} // namespace zelxml
