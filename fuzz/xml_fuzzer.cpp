// The XML service alone, against its header. pugixml, asked node by node, says what a document holds; numbers
// are read once more here.
#include <algorithm>
#include <cmath>
#include <cstring>
#include <memory>
#include <set>
#include <vector>

#include <pugixml.hpp>

#include "require.h"
#include "services.h"
#include "zel_platform/xml.h"

namespace {

using namespace fuzz;

// Comparing searches through siblings time and again.
constexpr int kMostNodes = 400;
constexpr int kDeepest = 64;

bool isSpace(char c)
{
    return c == ' ' || (c >= '\t' && c <= '\r');
}

// The bits of the number that a text starts with, if it fits the width; signed or unsigned.
bool numberIn(const char* text, unsigned bits, uint64_t& value)
{
    while (isSpace(*text))
        ++text;
    const bool negative = *text == '-';
    if (negative || *text == '+')
        ++text;
    if (*text < '0' || *text > '9')
        return false;
    const __uint128_t limit = static_cast<__uint128_t>(1) << bits;
    __uint128_t number = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        number = std::min<__uint128_t>(number * 10 + static_cast<unsigned>(*text - '0'), limit);
    if (number >= limit || (negative && number > limit / 2))
        return false;
    value = static_cast<uint64_t>(negative ? limit - number : number) & static_cast<uint64_t>(limit - 1);
    return true;
}

// A reader of numbers: what is expected is stored, and what isn't there leaves the destination alone.
template <class Number, class Read>
void requireNumber(const char* text, Read read)
{
    Number value;
    memset(&value, 0x77, sizeof value);
    const Number before = value;
    const int status = read(&value);
    uint64_t expected = 0;
    const bool isThere = text && numberIn(text, sizeof value * 8, expected);
    require((status == 0) == isThere, "a number is read exactly where the text has one that fits");
    if (isThere)
        require(memcmp(&value, &expected, sizeof value) == 0, "a number is stored by its bits");
    else
        require(value == before, "a destination that isn't read into stays as it was");
}

void requireFloat(const char* text, const ZelXMLParser& parser, void* node, const char* name)
{
    float value = -777.0F;
    const int status = getXmlFloatTypeParamAttribute(parser, node, name, &value);
    if (status != 0)
        require(value == -777.0F, "a float that isn't read into stays as it was");
    else
        require(text && std::isfinite(value), "a float that is read is a number");
    if (!text)
        return;
    while (isSpace(*text))
        ++text;
    const bool isDecimal = *text >= '0' && *text <= '9' && text[1] != 'x' && text[1] != 'X';
    const float expected = isDecimal ? strtof(text, nullptr) : 0;
    // A number too small for any float is refused here and 0 there.
    if (isDecimal && std::isfinite(expected) && expected > 1e-37F)
        require(status == 0 && value == expected, "a float is the nearest to its text");
}

template <class Read>
void requireString(const char* text, int limit, Read read)
{
    const auto size = static_cast<size_t>(std::max(limit, 0));
    const std::unique_ptr<char[]> value(new char[size]);
    memset(value.get(), 0x77, size);
    const int status = read(value.get(), limit);
    require((status == 0) == (text && limit > 0), "a text is read where there is one, and room");
    if (status == 0) {
        const size_t length = strnlen(text, size - 1);
        require(value[length] == '\0' && memcmp(value.get(), text, length) == 0,
                "a text is cut to leave room for its terminator");
    } else {
        for (size_t i = 0; i < size; ++i)
            require(value[i] == 0x77, "a destination that isn't read into stays as it was");
    }
}

void requireReaders(const ZelXMLParser& parser, void* node, const char* name, const char* text, int limit)
{
    requireNumber<int>(text,
                       [&](int* value) { return getXmlIntTypeParamAttribute(parser, node, name, value); });
    requireNumber<unsigned int>(
        text, [&](unsigned int* value) { return getXmlUIntTypeParamAttribute(parser, node, name, value); });
    requireNumber<unsigned char>(
        text, [&](unsigned char* value) { return getXmlUCharTypeParamAttribute(parser, node, name, value); });
    requireNumber<unsigned long long>(text, [&](unsigned long long* value) {
        return getXmlUllTypeParamAttribute(parser, node, name, value);
    });
    requireFloat(text, parser, node, name);
    requireString(text, limit, [&](char* value, int room) {
        return getXmlStringTypeParamAttribute(parser, node, name, value, room);
    });
}

// The same by the name's length.
void requireReadersByLength(const ZelXMLParser& parser, void* node, const char* name, const char* text,
                            int limit)
{
    const size_t length = strlen(name);
    requireNumber<int>(text, [&](int* value) { return parser.ReadInt(node, name, length, value) ? 0 : -1; });
    requireNumber<unsigned int>(
        text, [&](unsigned int* value) { return parser.ReadUInt(node, name, length, value) ? 0 : -1; });
    requireNumber<unsigned char>(
        text, [&](unsigned char* value) { return parser.ReadUChar(node, name, length, value) ? 0 : -1; });
    requireNumber<unsigned long long>(
        text, [&](unsigned long long* value) { return parser.ReadUll(node, name, length, value) ? 0 : -1; });
    requireString(text, limit, [&](char* value, int room) {
        const auto size = static_cast<size_t>(std::max(room, 0));
        return parser.ReadString(node, name, length, value, size) ? 0 : -1;
    });
    size_t size = 0;
    const char* const value = parser.Attribute(node, name, length, &size);
    require((value == nullptr) == (text == nullptr), "a value is found by its name's length");
    require(!text || (size == strlen(text) && memcmp(value, text, size) == 0), "a value comes with its size");
}

// The parser's handle of a node, and the node itself.
struct Pair
{
    void* node;
    pugi::xml_node reference;
};

// Its attributes in three orders. The first of equal names is the one that counts where names aren't unique,
// and that depends on the order, so only unique ones are compared.
void requireAttributes(const ZelXMLParser& parser, const Pair& pair, int limit)
{
    std::vector<pugi::xml_attribute> unique;
    std::set<std::string> seen;
    std::set<std::string> repeated;
    for (const pugi::xml_attribute& attribute : pair.reference.attributes())
        if (!seen.insert(attribute.name()).second)
            repeated.insert(attribute.name());
    for (const pugi::xml_attribute& attribute : pair.reference.attributes()) {
        if (repeated.count(attribute.name()) == 0)
            unique.push_back(attribute);
        else
            require(parser.Attribute(pair.node, attribute.name()) != nullptr,
                    "a repeated attribute is found");
    }
    const auto requireValue = [&](const pugi::xml_attribute& attribute) {
        const char* const value = parser.Attribute(pair.node, attribute.name());
        require(value && strcmp(value, attribute.value()) == 0, "an attribute is found in any order");
    };
    std::for_each(unique.rbegin(), unique.rend(), requireValue);
    for (size_t i = 0; i < unique.size(); ++i)
        requireValue(unique[i * 7 % unique.size()]);
    for (const pugi::xml_attribute& attribute : unique) {
        requireReadersByLength(parser, pair.node, attribute.name(), attribute.value(), limit);
        requireValue(attribute);
        requireReaders(parser, pair.node, attribute.name(), attribute.value(), limit);
    }
    if (seen.count("absent") == 0) {
        requireReaders(parser, pair.node, "absent", nullptr, limit);
        requireReadersByLength(parser, pair.node, "absent", nullptr, limit);
    }
}

// The first of an element's texts that isn't white space.
const char* textOf(const pugi::xml_node& element)
{
    for (const pugi::xml_node& child : element.children()) {
        const char* const text = child.value();
        const bool isText = child.type() == pugi::node_pcdata || child.type() == pugi::node_cdata;
        if (isText && !std::all_of(text, text + strlen(text), isSpace))
            return text;
    }
    return nullptr;
}

void requireText(const ZelXMLParser& parser, const Pair& pair, int limit)
{
    const char* const text = parser.GetText(pair.node);
    const char* const expected = textOf(pair.reference);
    require((text == nullptr) == (expected == nullptr), "an element has a text unless it is white space");
    require(!text || strcmp(text, expected) == 0, "an element's text is its own");
    requireNumber<int>(text,
                       [&](int* value) { return getXmlIntTypeParamByGetText(parser, pair.node, value); });
    requireString(text, limit, [&](char* value, int room) {
        return getXmlStringTypeParamByGetText(parser, pair.node, value, room);
    });
}

// Every child, through the chains of those that bear one name.
void pairChildren(const ZelXMLParser& parser, const Pair& pair, std::vector<Pair>& pairs)
{
    std::set<std::string> names;
    for (const pugi::xml_node& child : pair.reference.children()) {
        const char* const name = child.name();
        if (child.type() != pugi::node_element || !names.insert(name).second)
            continue;
        void* node = parser.FirstChildElement(pair.node, name);
        require(node == parser.FirstChildElement(pair.node, name, strlen(name)),
                "a length finds the same child");
        for (pugi::xml_node same = child; same; same = same.next_sibling(name)) {
            require(node != nullptr, "each child is found by its name");
            pairs.push_back({node, same});
            void* const next = parser.NextSiblingElement(node, name);
            require(next == parser.NextSiblingElement(node, name, strlen(name)),
                    "a length finds the same sibling");
            node = next;
        }
        require(node == nullptr, "only the children of that name are found");
    }
}

void requireSame(const ZelXMLParser& parser, const pugi::xml_document& reference, int limit)
{
    std::vector<Pair> pairs = {{parser.RootElement(), reference.document_element()}};
    require((pairs[0].node == nullptr) == !pairs[0].reference, "a document has the root that it has");
    for (size_t i = 0; i < pairs.size() && i < kMostNodes; ++i) {
        const Pair pair = pairs[i];
        requireAttributes(parser, pair, limit);
        requireText(parser, pair, limit);
        pairChildren(parser, pair, pairs);
    }
}

int depthOf(pugi::xml_node node)
{
    int deepest = 0;
    int depth = 0;
    for (; node; node = node.first_child() ? (++depth, node.first_child()) : node) {
        deepest = std::max(deepest, depth + (node.type() == pugi::node_element ? 1 : 0));
        if (node.first_child())
            continue;
        while (node && !node.next_sibling()) {
            node = node.parent();
            --depth;
        }
        if (!node)
            break;
        node = node.next_sibling();
        deepest = std::max(deepest, depth + (node.type() == pugi::node_element ? 1 : 0));
        while (node && !node.first_child() && node.next_sibling()) {
            node = node.next_sibling();
            deepest = std::max(deepest, depth + (node.type() == pugi::node_element ? 1 : 0));
        }
    }
    return deepest;
}

// What an object may be put through without harm to the others of its document.
void useCopies(ZelXMLParser& parser, const std::string& text, const pugi::xml_node& rootReference)
{
    void* const root = parser.RootElement();
    const auto copy = std::make_unique<ZelXMLParser>(parser);
    {
        const ZelXMLParser passing = *copy;
        require(passing.RootElement() == root, "a copy shares the document");
    }
    const ZelXMLParser& same = parser;
    parser = same;
    require(parser.RootElement() == root, "an object assigned to itself keeps its document");
    ZelXMLParser other;
    require(other.RootElement() == nullptr && other.Parse(text.data(), 0) != 0,
            "an empty object has no root");
    other = *copy;
    require(parser.Parse("<other/>") == 0 && parser.RootElement() != root, "an object can be used again");
    require(other.RootElement() == root && copy->RootElement() == root, "copies keep the old document");
    parser = other;

    const auto attributes = rootReference.attributes();
    if (std::count_if(attributes.begin(), attributes.end(),
                      [](const pugi::xml_attribute& one) { return strcmp(one.name(), "a") == 0; }) != 1)
        return;
    char* const value = parser.Attribute(root, "a");
    const std::string before = value;
    std::fill(value, value + before.size(), '<');
    require(parser.Attribute(root, "a") == value && strlen(value) == before.size(),
            "a value may be written to");
    ZelXMLParser own(parser);
    own.Parse(value);
    require(parser.Attribute(root, "a") == value, "a document's own text may be parsed");
}

void useNothing(const ZelXMLParser& parser)
{
    int value = 5;
    char text[4] = {'a', 'b', 'c', 'd'};
    void* const root = parser.RootElement();
    require(!parser.FirstChildElement(nullptr, "a") && !parser.NextSiblingElement(nullptr, "a") &&
                !parser.Attribute(nullptr, "a") && !parser.GetText(nullptr) &&
                !parser.Attribute(root, nullptr) && !parser.FirstChildElement(root, nullptr) &&
                !parser.NextSiblingElement(root, nullptr),
            "nothing is found without a node or a name");
    require(getXmlIntTypeParamAttribute(parser, nullptr, "a", &value) != 0 && value == 5 &&
                getXmlStringTypeParamAttribute(parser, nullptr, "a", text, 4) != 0 && text[0] == 'a' &&
                getXmlIntTypeParamAttribute(parser, root, "a", nullptr) != 0 &&
                getXmlStringTypeParamAttribute(parser, root, "a", nullptr, 4) != 0,
            "nothing is read without a node or a destination");
}

int parseWatched(ZelXMLParser& parser, const char* text, int length, const Supply& supply, Memory& memory)
{
    startWatching(supply);
    const int status = parser.Parse(text, length);
    memory = stopWatching();
    return status;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input{data, size};
    const int limit = input.byte() % 80 - 2;
    Supply supply;
    supply.reader = input.byte() - 1;
    const std::string text = input.rest();
    const std::unique_ptr<char[]> exact(new char[text.size()]);
    std::copy(text.begin(), text.end(), exact.get());
    const int length = static_cast<int>(text.size());

    ZelXMLParser parser;
    Memory memory;
    const int scarce = parseWatched(parser, exact.get(), length, supply, memory);
    require(scarce == 0 || memory.live == 0, "a failed parse keeps no block");
    const int status = parseWatched(parser, exact.get(), length, {}, memory);
    require(scarce == status || supply.reader >= 0, "parsing depends on the text alone");
    require(std::equal(text.begin(), text.end(), exact.get()), "a parsed text stays as it was");

    pugi::xml_document reference;
    const bool isReferenceGood = reference.load_buffer(
        text.data(), text.size(), pugi::parse_escapes | pugi::parse_cdata | pugi::parse_doctype,
        pugi::encoding_utf8);
    if (status != 0) {
        require(!parser.RootElement(), "a failed parse leaves no root");
        useNothing(parser);
        return 0;
    }
    require(text.find('\0') == std::string::npos, "a text with a NUL is refused");
    for (size_t at = parser.IsQuoted() ? text.find('=') : std::string::npos; at != std::string::npos;
         at = text.find('=', at + 1))
        require(text.compare(at + 1, 1, "\"") == 0,
                "a text is quoted only if each equals sign is followed by one");
    useNothing(parser);
    // The service takes some texts that no document is; they can't be compared.
    if (!isReferenceGood)
        return 0;
    require(std::none_of(reference.begin(), reference.end(),
                         [](const pugi::xml_node& node) { return node.type() == pugi::node_doctype; }),
            "a document type is refused");
    require(depthOf(reference.first_child()) <= kDeepest, "deep nesting is refused");
    requireSame(parser, reference, limit);

    ZelXMLParser terminated;
    require(terminated.Parse(text.c_str()) == 0, "a terminated text is parsed like one of stated length");
    requireSame(terminated, reference, limit);
    useCopies(terminated, text, reference.document_element());
    requireSame(parser, reference, limit);
    return 0;
}
