#include <algorithm>
#include <csignal>
#include <filesystem>
#include <iostream>
#include <memory>
#include <vector>

#include "inspect/command.h"
#include "inspect/server.h"
#include "inspect/talk.h"

namespace inspect {

namespace {

struct ServeOptions
{
    std::string address = "127.0.0.1";
    int port = 0;
    std::string folder;
    LoginOptions login;
    bool sample = false;
};

volatile std::sig_atomic_t isEnding = 0;

void end(int)
{
    isEnding = 1;
}

// Signals come while the server waits and at no other time.
sigset_t blockSignals()
{
    struct sigaction action = {};
    action.sa_handler = end;
    sigset_t blocked;
    sigset_t before;
    sigemptyset(&blocked);
    for (const int signal : {SIGINT, SIGTERM}) {
        ::sigaction(signal, &action, nullptr);
        sigaddset(&blocked, signal);
    }
    ::pthread_sigmask(SIG_BLOCK, &blocked, &before);
    sigdelset(&before, SIGINT);
    sigdelset(&before, SIGTERM);
    return before;
}

// What reading or composing with --json prints, a message in each file.
void keepFolder(Device& device, const std::string& folder, const JsonOptions& options)
{
    std::vector<std::filesystem::path> files;
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".json")
            files.push_back(entry.path());
    std::sort(files.begin(), files.end());
    for (const auto& file : files) {
        try {
            device.keep(fromJson(parseJson(readWhole(file.string())), options));
        } catch (const JsonError& error) {
            throw std::runtime_error(file.string() + ": " + error.what());
        }
    }
}

void tell(const Event& event, const Common& common)
{
    if (common.json) {
        Json line = {{event.isSent ? "to" : "from", event.peer}};
        if (!event.note.empty())
            line["note"] = event.note;
        if (event.message)
            line.update(toJson(*event.message, common.jsonOptions()));
        std::cout << line.dump(-1, ' ', false, Json::error_handler_t::replace) << std::endl;
        return;
    }
    std::cout << (event.isSent ? "-> " : "<- ") << event.peer;
    if (event.message)
        std::cout << ' ' << headline(*event.message);
    if (!event.note.empty())
        std::cout << ": " << event.note;
    std::cout << std::endl;
}

void runServe(Common& common, const ServeOptions& options)
{
    Device device;
    device.hasSamples = options.sample;
    if (!options.login.user.empty()) {
        device.user = options.login.user;
        device.password = passwordOf(options.login);
    }
    if (!options.folder.empty())
        keepFolder(device, options.folder, common.jsonOptions());
    const sigset_t mask = blockSignals();
    common.result = tellFailure([&] {
        Server server(device, {options.address, std::to_string(options.port)}, common.cipher(),
                      [&](const Event& event) { tell(event, common); });
        std::cerr << "zel: serving at " << options.address << ':' << server.port() << ", searches by UDP too"
                  << std::endl;
        server.run(isEnding, mask);
    });
}

} // namespace

void addServe(CLI::App& zel, Common& common)
{
    CLI::App& command =
        *zel.add_subcommand("serve", "Be a device that keeps a record for every message and answers with it");
    const auto options = std::make_shared<ServeOptions>();
    command.add_option("--address", options->address, "Of this machine; 0.0.0.0 for all networks")
        ->type_name("HOST")
        ->capture_default_str();
    command.add_option("--port", options->port, "For connections and searches; 0: a free one")
        ->type_name("PORT")
        ->check(CLI::Range(0, 65535))
        ->capture_default_str();
    command.add_option("--records", options->folder, "A folder of *.json, each a message to answer with")
        ->type_name("FOLDER")
        ->check(CLI::ExistingDirectory);
    command.add_flag("--sample", options->sample,
                     "Other records have plausible values instead of absent ones");
    addLoginOptions(command, options->login);
    addOutputOptions(command, common);
    addCipherOptions(command, common);
    command.callback([&common, options] { runServe(common, *options); });
}

} // namespace inspect
