#include <iostream>
#include <memory>
#include <set>

#include "inspect/command.h"
#include "inspect/talk.h"

namespace inspect {

namespace {

struct SearchOptions
{
    std::string peer;
    std::string vendor;
    double wait = 2;
};

void show(const Endpoint& from, const Message& message, const Common& common)
{
    if (common.json) {
        Json line = {{"from", nameOf(from)}};
        line.update(toJson(message, common.jsonOptions()));
        std::cout << line.dump() << '\n';
        return;
    }
    std::cout << nameOf(from) << "  ";
    print(std::cout, message, common.jsonOptions());
    std::cout << std::flush;
}

void runSearch(Common& common, const SearchOptions& options)
{
    const HostPort peer = splitHostPort(options.peer);
    Message question = makeMessage(findMessage("SYSTEM_SEARCHIPC_MESSAGE/1"), ZEL_KIND_REQUEST);
    setField(question, "VendorId", options.vendor, common.jsonOptions());
    // The question is sent more than once.
    std::set<std::pair<std::string, std::string>> known; // by address and code
    common.result = tellFailure([&] {
        searchAt(peer, question, deadlineAfter(options.wait),
                 [&](const Endpoint& from, const Analysed& answer) {
                     if (known.emplace(nameOf(from), textOf(answer.message.header.Msg_code)).second)
                         show(from, answer.message, common);
                     return true;
                 });
        if (known.empty())
            throw LinkError("no device answers");
    });
}

} // namespace

void addSearch(CLI::App& zel, Common& common)
{
    CLI::App& command = *zel.add_subcommand("search", "Find devices: print what answers a search by UDP");
    const auto options = std::make_shared<SearchOptions>();
    command
        .add_option("PORT", options->peer,
                    "Where devices listen: everybody's in the network, or HOST:PORT of one")
        ->type_name("")
        ->required();
    command.add_option("--vendor", options->vendor, "Only devices of this VendorId")->type_name("NAME");
    addWaitOption(command, options->wait);
    addOutputOptions(command, common);
    command.callback([&common, options] { runSearch(common, *options); });
}

} // namespace inspect
