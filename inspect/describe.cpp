#include "inspect/describe.h"

#include <algorithm>
#include <iterator>
#include <utility>

#include "inspect/sample.h"

namespace inspect {

namespace {

struct Context
{
    const Record* record;
    const Record* extension;
    std::vector<Described> all;
};

void see(void* context, const ZEL_DESCRIPTION* seen)
{
    auto& [record, extension, all] = *static_cast<Context*>(context);
    Described one;
    one.path = seen->path;
    one.isElement = !seen->attribute;
    if (one.isElement) {
        one.rows = seen->rows;
    } else {
        one.attribute = seen->attribute;
        one.direction = seen->direction;
        one.form = seen->form;
        one.inExtension = seen->in_extension != 0;
        one.isSkipped = seen->is_skipped != 0;
        if (const Record* const holder = one.inExtension ? extension : record)
            one.place = fieldAt(*holder, seen->offset);
    }
    all.push_back(std::move(one));
}

std::string_view typeName(Type type)
{
    constexpr std::string_view kNames[] = {"int8_t",   "uint8_t", "int16_t",  "uint16_t", "int32_t",
                                           "uint32_t", "int64_t", "uint64_t", "float",    "double",
                                           "char",     "void*",   "struct"};
    return kNames[static_cast<std::size_t>(type)];
}

} // namespace

std::vector<Described> describe(int index, int kind)
{
    ZEL_CATALOGUE_ENTRY entry{};
    ZelProtocolCatalogueEntry(index, &entry);
    Context context{entry.record ? findRecord(entry.record) : nullptr,
                    entry.extension ? findRecord(entry.extension) : nullptr,
                    {}};
    ZelProtocolCatalogueDescribe(index, kind, see, &context);
    return std::move(context.all);
}

std::vector<Form> formsOf(int index)
{
    ZEL_CATALOGUE_ENTRY entry{};
    ZelProtocolCatalogueEntry(index, &entry);
    std::vector<Form> all;
    for (int kind = 0; kind < 4; ++kind) {
        const bool isHeadOnly = entry.kinds == 0 && entry.record && kind == 0;
        if ((entry.kinds >> kind & 1) == 0 && !isHeadOnly)
            continue;
        std::vector<Described> parts = describe(index, kind);
        const auto known =
            std::find_if(all.begin(), all.end(), [&](const Form& one) { return one.parts == parts; });
        if (known == all.end())
            all.push_back({kind, std::move(parts), {}});
        else
            known->same.push_back(kind);
    }
    return all;
}

std::string sampleText(int index, int kind)
{
    Cipher plain;
    const Composed composed = compose(sampleMessage(index, kind), plain);
    return std::string(textOf(composed));
}

bool operator==(const Described& one, const Described& other)
{
    return one.path == other.path && one.isElement == other.isElement && one.attribute == other.attribute &&
           one.direction == other.direction && one.form == other.form && one.place.path == other.place.path;
}

std::string_view nameOf(ZEL_FORM form)
{
    switch (form) {
    case ZEL_FORM_NUMBER:
        return "number";
    case ZEL_FORM_SIGNED:
        return "signed number";
    case ZEL_FORM_HEX:
        return "hexadecimal number";
    case ZEL_FORM_ATOI:
        return "number, else 0";
    case ZEL_FORM_FLOAT:
        return "decimal";
    case ZEL_FORM_TEXT:
        return "text";
    case ZEL_FORM_WHOLE_TEXT:
        return "whole text";
    case ZEL_FORM_CLOCK:
        return "hh:mm:ss";
    case ZEL_FORM_PLAIN_CLOCK:
        return "h:m:s";
    case ZEL_FORM_WEEK_CLOCK:
        return "five numbers with colons";
    case ZEL_FORM_NUMBERS:
        return "numbers with commas";
    case ZEL_FORM_BRACKETS:
        return "[number,number]";
    case ZEL_FORM_RESOLUTION:
        return "width*height";
    case ZEL_FORM_PERIODS:
        return "[hh:mm:ss-hh:mm:ss] for each";
    case ZEL_FORM_COORDINATES:
        return "[x,y] for each";
    case ZEL_FORM_LIST:
        return "number and comma for each";
    case ZEL_FORM_JOINED_LIST:
        return "numbers, commas between them";
    case ZEL_FORM_TEXT_LIST:
        return "text and comma for each";
    case ZEL_FORM_OWN:
        break;
    }
    return "a form of its own";
}

std::string_view nameOf(ZEL_DIRECTION direction)
{
    return direction == ZEL_ONLY_WRITTEN ? "only written" : direction == ZEL_ONLY_READ ? "only read" : "";
}

std::string declarationOf(const Field& field)
{
    std::string name(field.name);
    for (const std::size_t size : {field.rows, field.columns})
        if (size != 0)
            name.append("[").append(std::to_string(size)).append("]");
    return declarationOf(field, name);
}

std::string declarationOf(const Field& field, const std::string& path)
{
    std::string text(field.nested ? field.nested->name : typeName(field.type));
    text.append(" ").append(path);
    if (field.type == Type::kText)
        text.append("[").append(std::to_string(field.size)).append("]");
    return text;
}

} // namespace inspect
