#include <vector>

#include <rapidxml/rapidxml.hpp>

#include "analyse_text.h"

namespace bench {

namespace {

struct Node
{
    const rapidxml::xml_node<>* node = nullptr;

    explicit operator bool() const
    {
        return node != nullptr;
    }
    Node child(std::string_view name) const
    {
        return {node->first_node(name.data(), name.size())};
    }
    Node next(std::string_view name) const
    {
        return {node->next_sibling(name.data(), name.size())};
    }
    const char* value(std::string_view name) const
    {
        const rapidxml::xml_attribute<>* attribute = node->first_attribute(name.data(), name.size());
        return attribute ? attribute->value() : nullptr;
    }
    template <class Number>
    void read(std::string_view name, Number& field) const
    {
        if (const char* text = value(name))
            convert(text, field);
    }
};

// Parses in place, so it has a copy of its own.
struct Document
{
    std::vector<char> copy;
    rapidxml::xml_document<> document;

    bool parse(const char* text, size_t size)
    {
        copy.reserve(size + 1);
        copy.assign(text, text + size);
        copy.push_back('\0');
        try {
            document.parse<0>(copy.data());
        } catch (const rapidxml::parse_error&) {
            return false;
        }
        return true;
    }
    Node root() const
    {
        return {document.first_node()};
    }
};

} // namespace

int analyseWithRapidxml(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result)
{
    return analyseText<Document>(payload, size, header, result);
}

} // namespace bench
