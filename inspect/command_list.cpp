#include <algorithm>
#include <iomanip>
#include <iostream>
#include <memory>

#include "inspect/command.h"

namespace inspect {

namespace {

// "request, response", of the two kinds that everybody uses.
std::string kindsOf(const ZEL_CATALOGUE_ENTRY& entry)
{
    std::string kinds;
    for (const int kind : {ZEL_KIND_REQUEST, ZEL_KIND_RESPONSE})
        if ((entry.kinds >> kind & 1) != 0)
            kinds.append(kinds.empty() ? "" : ", ").append(nameOfKind(kind));
    return !kinds.empty() ? kinds : entry.record ? "in the header" : "header alone";
}

void printTable(const std::vector<int>& messages)
{
    std::size_t width = 0;
    for (const int index : messages)
        width = std::max(width, nameOf(index).size());
    for (const int index : messages) {
        ZEL_CATALOGUE_ENTRY entry;
        ZelProtocolCatalogueEntry(index, &entry);
        std::cout << std::left << std::setw(static_cast<int>(width)) << nameOf(index) << "  " << std::setw(17)
                  << kindsOf(entry) << "  " << (entry.operation ? entry.operation : "-") << '\n';
    }
}

std::vector<int> chosen(const std::string& filter)
{
    if (!filter.empty()) {
        std::vector<int> found = findMessages(filter);
        if (found.empty())
            found = similarMessages(filter);
        if (found.empty())
            throw CLI::ValidationError(filter + " is in no name that the catalogue knows");
        return found;
    }
    std::vector<int> all(static_cast<std::size_t>(ZelProtocolCatalogueCount()));
    for (std::size_t i = 0; i < all.size(); ++i)
        all[i] = static_cast<int>(i);
    return all;
}

void runList(const Common& common, const std::string& filter)
{
    const std::vector<int> messages = chosen(filter);
    if (!common.json)
        return printTable(messages);
    for (const int index : messages)
        std::cout << entryToJson(index).dump() << '\n';
}

} // namespace

void addList(CLI::App& zel, Common& common)
{
    CLI::App* const command = zel.add_subcommand("list", "List the messages of the catalogue");
    const auto filter = std::make_shared<std::string>();
    command
        ->add_option("NAME", *filter,
                     "Only those of this type, code, word, operation or record, or with a part of its name")
        ->type_name("");
    addJsonOption(*command, common);
    command->callback([&common, filter] { runList(common, *filter); });
}

} // namespace inspect
