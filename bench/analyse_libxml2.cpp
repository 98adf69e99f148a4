#include <climits>
#include <memory>

#include <libxml/parser.h>
#include <libxml/tree.h>

#include "analyse_text.h"

namespace bench {

namespace {

const xmlChar* xmlText(std::string_view name)
{
    return reinterpret_cast<const xmlChar*>(name.data());
}

xmlNode* firstOfName(xmlNode* node, std::string_view name)
{
    while (node && (node->type != XML_ELEMENT_NODE || !xmlStrEqual(node->name, xmlText(name))))
        node = node->next;
    return node;
}

// As in libxml2's tutorial: each value is a copy, to be given back. Reading the tree's text nodes in their
// place was measured too, and makes no difference: what takes the time is the parse.
struct Node
{
    struct Value
    {
        std::unique_ptr<xmlChar, void (*)(void*)> text;

        operator const char*() const
        {
            return reinterpret_cast<const char*>(text.get());
        }
    };

    xmlNode* node = nullptr;

    explicit operator bool() const
    {
        return node != nullptr;
    }
    Node child(std::string_view name) const
    {
        return {firstOfName(node->children, name)};
    }
    Node next(std::string_view name) const
    {
        return {firstOfName(node->next, name)};
    }
    Value value(std::string_view name) const
    {
        return {{xmlGetProp(node, xmlText(name)), xmlFree}};
    }
    template <class Number>
    void read(std::string_view name, Number& field) const
    {
        if (const Value text = value(name))
            convert(text, field);
    }
};

struct Document
{
    std::unique_ptr<xmlDoc, void (*)(xmlDoc*)> document{nullptr, xmlFreeDoc};

    // By the encoding that the message declares. Another given here would refuse the texts that it really
    // has.
    bool parse(const char* text, size_t size)
    {
        if (size > INT_MAX)
            return false;
        document.reset(xmlReadMemory(text, static_cast<int>(size), nullptr, nullptr,
                                     XML_PARSE_NONET | XML_PARSE_NOBLANKS | XML_PARSE_COMPACT |
                                         XML_PARSE_NOERROR | XML_PARSE_NOWARNING));
        return document != nullptr;
    }
    Node root() const
    {
        return {xmlDocGetRootElement(document.get())};
    }
};

} // namespace

int analyseWithLibxml2(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result)
{
    return analyseText<Document>(payload, size, header, result);
}

} // namespace bench
