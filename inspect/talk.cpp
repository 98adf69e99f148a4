#include "inspect/talk.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <iostream>

namespace inspect {

void addLoginOptions(CLI::App& command, LoginOptions& options)
{
    command.add_option("--user", options.user, "Log in as this user")->type_name("NAME");
    command
        .add_option("--password-file", options.passwordFile,
                    "The password is its first line; else that of ZEL_PASSWORD in the environment")
        ->type_name("FILE");
}

void addWaitOption(CLI::App& command, double& seconds)
{
    command.add_option("--wait", seconds, "How many seconds to wait for all of it")
        ->type_name("SECONDS")
        ->check(CLI::Range(0.0, 86400.0))
        ->capture_default_str();
}

std::string passwordOf(const LoginOptions& options)
{
    std::string password;
    if (!options.passwordFile.empty()) {
        std::ifstream file(options.passwordFile);
        if (!std::getline(file, password))
            throw CLI::ValidationError("--password-file",
                                       options.passwordFile + " can't be read or is empty");
        return password;
    }
    const char* const told = std::getenv("ZEL_PASSWORD");
    if (!told)
        throw CLI::ValidationError("--user", "needs --password-file, or ZEL_PASSWORD in the environment");
    return told;
}

Clock::time_point deadlineAfter(double seconds)
{
    return Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
}

int tellFailure(const std::function<void()>& talk)
{
    try {
        talk();
        return kFine;
    } catch (const LinkError& error) {
        std::cout.flush();
        std::cerr << "zel: " << error.what() << '\n';
        return kFound;
    }
}

void searchAt(HostPort peer, const Message& question, Clock::time_point deadline,
              const std::function<bool(const Endpoint& from, const Analysed& answer)>& receive)
{
    constexpr std::chrono::milliseconds kBetween{500};
    if (peer.host.empty())
        peer.host = "255.255.255.255";
    Cipher plain;
    const Composed composed = compose(question, plain);
    if (composed.status != 0)
        throw std::runtime_error("the message can't be composed: " + composed.problem);
    const Endpoint to = resolve(peer, SOCK_DGRAM);
    const Socket socket = datagramsTo(to);
    while (Clock::now() < deadline) {
        sendDatagram(socket, to, composed.bytes);
        const Clock::time_point next = std::min(deadline, Clock::now() + kBetween);
        while (waitToReceive(socket, next)) {
            Endpoint from;
            const std::string datagram = receiveDatagram(socket, from);
            const Analysed answer = analyse(datagram, plain);
            const bool isMessage = answer.status == 0 || answer.isHeaderAlone();
            if (isMessage && !receive(from, answer))
                return;
        }
    }
}

} // namespace inspect
