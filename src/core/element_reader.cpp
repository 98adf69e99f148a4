#include "core/element_reader.h"

namespace zel {

ElementReader ElementReader::child(const char* name) const
{
    return {parser, parser->FirstChildElement(node, name)};
}

ElementReader ElementReader::next(const char* name) const
{
    return {parser, parser->NextSiblingElement(node, name)};
}

bool readNumber(const ElementReader& in, const char* name, int32_t& field)
{
    return getXmlIntTypeParamAttribute(*in.parser, in.node, name, &field) == 0;
}

bool readNumber(const ElementReader& in, const char* name, uint32_t& field)
{
    return getXmlUIntTypeParamAttribute(*in.parser, in.node, name, &field) == 0;
}

bool readNumber(const ElementReader& in, const char* name, uint8_t& field)
{
    return getXmlUCharTypeParamAttribute(*in.parser, in.node, name, &field) == 0;
}

bool readNumber(const ElementReader& in, const char* name, uint64_t& field)
{
    unsigned long long value = field;
    const bool found = getXmlUllTypeParamAttribute(*in.parser, in.node, name, &value) == 0;
    field = value;
    return found;
}

bool readNumber(const ElementReader& in, const char* name, float& field)
{
    return getXmlFloatTypeParamAttribute(*in.parser, in.node, name, &field) == 0;
}

bool readText(const ElementReader& in, const char* name, char* field, size_t size)
{
    return getXmlStringTypeParamAttribute(*in.parser, in.node, name, field, static_cast<int>(size)) == 0;
}

bool readOwnNumber(const ElementReader& in, int32_t& field)
{
    return getXmlIntTypeParamByGetText(*in.parser, in.node, &field) == 0;
}

bool readOwnText(const ElementReader& in, char* field, size_t size)
{
    return getXmlStringTypeParamByGetText(*in.parser, in.node, field, static_cast<int>(size)) == 0;
}

} // namespace zel
