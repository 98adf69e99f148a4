#include "core/element_reader.h"

namespace zel {

ElementReader ElementReader::child(Name name) const
{
    return {parser, parser->FirstChildElement(node, name.text, name.length)};
}

ElementReader ElementReader::next(Name name) const
{
    return {parser, parser->NextSiblingElement(node, name.text, name.length)};
}

std::string_view ElementReader::value(Name name) const
{
    size_t size = 0;
    const char* const data = parser->Attribute(node, name.text, name.length, &size);
    return {data, size};
}

} // namespace zel
