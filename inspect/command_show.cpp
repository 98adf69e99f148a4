#include <algorithm>
#include <iostream>
#include <memory>
#include <set>

#include "inspect/command.h"
#include "inspect/describe.h"

namespace inspect {

namespace {

// --- For programs --------------------------------------------------------------------------------

Json partToJson(const Described& part)
{
    Json json = {{"path", part.path}};
    if (part.isElement) {
        if (part.rows != 0)
            json["rows"] = part.rows;
        return json;
    }
    json["attribute"] = part.attribute;
    json["form"] = nameOf(part.form);
    if (part.direction != ZEL_WRITTEN_AND_READ)
        json["direction"] = nameOf(part.direction);
    if (part.place.field) {
        json["field"] = part.place.path;
        json["type"] = declarationOf(*part.place.field, part.place.path);
        json["comment"] = part.place.field->comment;
        json["secret"] = part.place.field->isSecret;
    }
    if (part.inExtension)
        json["extension"] = true;
    return json;
}

Json pageToJson(int index, const std::vector<Form>& kinds)
{
    Json json = entryToJson(index);
    json["forms"] = Json::array();
    for (const Form& shown : kinds) {
        Json form = {{"kinds", {nameOfKind(shown.kind)}}, {"parts", Json::array()}};
        for (const int same : shown.same)
            form["kinds"].push_back(nameOfKind(same));
        for (const Described& part : shown.parts)
            form["parts"].push_back(partToJson(part));
        form["sample"] = sampleText(index, shown.kind);
        json["forms"].push_back(std::move(form));
    }
    return json;
}

// --- For people ----------------------------------------------------------------------------------

std::string indentOf(const std::string& path)
{
    const auto depth = path.empty() ? 0 : std::count(path.begin(), path.end(), '/') + 1;
    return std::string(2 * static_cast<std::size_t>(depth), ' ');
}

void printElement(const Described& element)
{
    std::cout << indentOf(element.path) << '<' << element.path.substr(element.path.rfind('/') + 1) << '>';
    if (element.rows != 0)
        std::cout << "  up to " << element.rows;
    std::cout << '\n';
}

std::string padded(std::string text, std::size_t width)
{
    text.resize(std::max(text.size() + 1, width), ' ');
    return text;
}

void printLine(const std::string& line)
{
    std::cout << line.substr(0, line.find_last_not_of(' ') + 1) << '\n';
}

void printAttribute(const Described& part)
{
    std::string line =
        padded(indentOf(part.path) + "  " + (part.attribute.empty() ? "(text)" : part.attribute), 34);
    line += padded(std::string(nameOf(part.form)), 20);
    std::string notes;
    const auto note = [&](std::string_view text) {
        if (!text.empty())
            notes.append(notes.empty() ? "" : "; ").append(text);
    };
    if (const Field* const field = part.place.field) {
        line += padded(declarationOf(*field, part.place.path), 36);
        note(field->comment);
        if (field->isSecret)
            note("a secret");
    }
    note(nameOf(part.direction));
    printLine(line + notes);
}

void printHead(int index, const ZEL_CATALOGUE_ENTRY& entry)
{
    std::cout << nameOf(index) << '\n';
    if (entry.operation)
        std::cout << "operation  " << entry.operation << '\n';
    if (entry.record) {
        std::cout << "record     " << entry.record << ", " << entry.record_size << " bytes\n";
        if (const std::string_view note = findRecord(entry.record)->comment; !note.empty())
            std::cout << "           " << note << '\n';
    }
    if (entry.extension)
        std::cout << "extension  " << entry.extension << ", " << entry.extension_size << " bytes\n";
    if (entry.behind == ZEL_BEHIND_RAW_DATA)
        std::cout << "raw data   as long as the record announces\n";
    if (entry.behind == ZEL_BEHIND_FEATURE_BLOCK)
        std::cout << "raw data   a face's features, 512 or 1024 bytes\n";
    if (entry.is_bare)
        std::cout << "frame      none: a bare text\n";
}

// Fields that no kind has on the wire tell how the others are meant.
void printOthers(const char* name, bool isExtension, const std::vector<Form>& kinds)
{
    const Record* const record = name ? findRecord(name) : nullptr;
    if (!record)
        return;
    std::set<std::string> onWire;
    for (const Form& shown : kinds)
        for (const Described& part : shown.parts)
            if (part.inExtension == isExtension)
                onWire.insert(part.place.path.substr(0, part.place.path.find_first_of(".[")));
    bool isFirst = true;
    for (const Field& field : record->fields) {
        if (onWire.count(std::string(field.name)) != 0)
            continue;
        if (isFirst)
            std::cout << "\nFields of " << record->name << " beside these\n";
        isFirst = false;
        printLine(padded("  " + declarationOf(field), 54).append(field.comment));
    }
}

void printPage(int index, const ZEL_CATALOGUE_ENTRY& entry, const std::vector<Form>& kinds)
{
    printHead(index, entry);
    for (const Form& shown : kinds) {
        std::cout << '\n' << (entry.kinds == 0 ? "any kind" : nameOfKind(shown.kind));
        for (const int same : shown.same)
            std::cout << ", " << nameOfKind(same);
        std::cout << '\n';
        for (const Described& part : shown.parts)
            part.isElement ? printElement(part) : printAttribute(part);
        std::cout << "\n" << sampleText(index, shown.kind) << '\n';
    }
    printOthers(entry.record, false, kinds);
    printOthers(entry.extension, true, kinds);
}

void runShow(const Common& common, const std::string& name)
{
    const int index = findMessage(name);
    ZEL_CATALOGUE_ENTRY entry;
    ZelProtocolCatalogueEntry(index, &entry);
    const std::vector<Form> kinds = formsOf(index);
    if (common.json)
        std::cout << pageToJson(index, kinds).dump() << '\n';
    else
        printPage(index, entry, kinds);
}

} // namespace

void addShow(CLI::App& zel, Common& common)
{
    CLI::App* const command = zel.add_subcommand(
        "show", "Show a message: elements, attributes, forms, fields and a sample of each kind");
    const auto name = std::make_shared<std::string>();
    command->add_option("MESSAGE", *name, "Its name, or a part that no other message has")
        ->type_name("")
        ->required();
    addJsonOption(*command, common);
    command->callback([&common, name] { runShow(common, *name); });
}

} // namespace inspect
