/** What the commands that talk to devices share. */
#ifndef ZEL_INSPECT_TALK_H
#define ZEL_INSPECT_TALK_H

#include <functional>
#include <string>

#include "inspect/command.h"
#include "inspect/link.h"

namespace inspect {

struct LoginOptions
{
    std::string user;
    std::string passwordFile;
};

// Adds --user, --password-file.
void addLoginOptions(CLI::App& command, LoginOptions& options);
// Adds --wait.
void addWaitOption(CLI::App& command, double& seconds);

// The first line of the file, else what the environment names ZEL_PASSWORD; throws a CLI::ValidationError
// without either. A password among the arguments could be seen by everybody on the machine.
std::string passwordOf(const LoginOptions& options);

Clock::time_point deadlineAfter(double seconds);

// kFine, or kFound where a LinkError says why on standard error.
int tellFailure(const std::function<void()>& talk);

// Sends a bare text by a datagram, until the deadline again and again as datagrams get lost, and gives each
// answer to `receive`, which tells whether it wants more. A host that isn't named is everybody in the
// network.
void searchAt(HostPort peer, const Message& question, Clock::time_point deadline,
              const std::function<bool(const Endpoint& from, const Analysed& answer)>& receive);

} // namespace inspect

#endif
