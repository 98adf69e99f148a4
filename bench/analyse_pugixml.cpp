#include <pugixml.hpp>

#include "analyse_text.h"

namespace bench {

namespace {

struct Node
{
    pugi::xml_node node;

    explicit operator bool() const
    {
        return static_cast<bool>(node);
    }
    Node child(std::string_view name) const
    {
        return {node.child(name.data())};
    }
    Node next(std::string_view name) const
    {
        return {node.next_sibling(name.data())};
    }
    const char* value(std::string_view name) const
    {
        const pugi::xml_attribute attribute = node.attribute(name.data());
        return attribute ? attribute.value() : nullptr;
    }
    void read(std::string_view name, int32_t& field) const
    {
        field = node.attribute(name.data()).as_int(field);
    }
    void read(std::string_view name, uint32_t& field) const
    {
        field = node.attribute(name.data()).as_uint(field);
    }
    void read(std::string_view name, uint8_t& field) const
    {
        field = static_cast<uint8_t>(node.attribute(name.data()).as_uint(field));
    }
    void read(std::string_view name, uint64_t& field) const
    {
        field = node.attribute(name.data()).as_ullong(field);
    }
    void read(std::string_view name, float& field) const
    {
        field = node.attribute(name.data()).as_float(field);
    }
};

struct Document
{
    pugi::xml_document document;

    bool parse(const char* text, size_t size)
    {
        return static_cast<bool>(document.load_buffer(text, size));
    }
    Node root() const
    {
        return {document.document_element()};
    }
};

} // namespace

int analyseWithPugixml(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result)
{
    return analyseText<Document>(payload, size, header, result);
}

} // namespace bench
