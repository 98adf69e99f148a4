#include <CLI/CLI.hpp>
#include <exception>
#include <iostream>
#include <string>

#include "inspect/command.h"
#include "zel_protocol/version.h"

namespace {

void addCommands(CLI::App& zel, inspect::Common& common)
{
    inspect::addList(zel, common);
    inspect::addShow(zel, common);
    inspect::addRead(zel, common);
    inspect::addCheck(zel, common);
    inspect::addCompose(zel, common);
    inspect::addSearch(zel, common);
    inspect::addCall(zel, common);
    inspect::addServe(zel, common);
}

bool hasCommand(const CLI::App& zel, const std::string& name)
{
    const auto commands = zel.get_subcommands([&](const CLI::App* one) { return one->get_name() == name; });
    return !commands.empty();
}

int fail(const char* why)
{
    std::cout.flush();
    std::cerr << "zel: " << why << '\n';
    return inspect::kMisused;
}

} // namespace

int main(int count, char** arguments)
{
    using namespace inspect;
    // What the codec has to say of a message is in its status.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    CLI::App zel("See, check, make and answer messages of the surveillance device control protocol.", "zel");
    zel.set_version_flag("--version", std::string("zel ") + ZelProtocolVersion());
    zel.require_subcommand(1);
    zel.failure_message([](const CLI::App*, const CLI::Error& error) {
        return std::string("zel: ") + error.what() + "\nzel COMMAND --help tells how it is used.\n";
    });
    Common common;
    addCommands(zel, common);
    if (count > 1 && arguments[1][0] != '-' && !hasCommand(zel, arguments[1]))
        return fail((std::string(arguments[1]) + " is no command; zel --help lists them").c_str());
    try {
        zel.parse(count, arguments);
    } catch (const CLI::ParseError& error) {
        return zel.exit(error) == 0 ? kFine : kMisused;
    } catch (const std::exception& error) {
        return fail(error.what());
    }
    std::cout.flush();
    if (!std::cout)
        return fail("the output can't be written");
    return common.result;
}
