#include <tinyxml2.h>

#include "analyse_text.h"

namespace bench {

namespace {

struct Node
{
    const tinyxml2::XMLElement* element = nullptr;

    explicit operator bool() const
    {
        return element != nullptr;
    }
    Node child(std::string_view name) const
    {
        return {element->FirstChildElement(name.data())};
    }
    Node next(std::string_view name) const
    {
        return {element->NextSiblingElement(name.data())};
    }
    const char* value(std::string_view name) const
    {
        return element->Attribute(name.data());
    }
    void read(std::string_view name, int32_t& field) const
    {
        element->QueryIntAttribute(name.data(), &field);
    }
    void read(std::string_view name, uint32_t& field) const
    {
        element->QueryUnsignedAttribute(name.data(), &field);
    }
    void read(std::string_view name, uint8_t& field) const
    {
        unsigned int value = field;
        element->QueryUnsignedAttribute(name.data(), &value);
        field = static_cast<uint8_t>(value);
    }
    void read(std::string_view name, uint64_t& field) const
    {
        element->QueryUnsigned64Attribute(name.data(), &field);
    }
    void read(std::string_view name, float& field) const
    {
        element->QueryFloatAttribute(name.data(), &field);
    }
};

struct Document
{
    tinyxml2::XMLDocument document;

    bool parse(const char* text, size_t size)
    {
        return document.Parse(text, size) == tinyxml2::XML_SUCCESS;
    }
    Node root() const
    {
        return {document.RootElement()};
    }
};

} // namespace

int analyseWithTinyxml2(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result)
{
    return analyseText<Document>(payload, size, header, result);
}

} // namespace bench
