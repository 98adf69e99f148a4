/**
 * What a device answers: it keeps a record for every message of the catalogue, gives it to whoever asks, and
 * takes over what it is told.
 */
#ifndef ZEL_INSPECT_DEVICE_H
#define ZEL_INSPECT_DEVICE_H

#include <map>
#include <optional>
#include <string>

#include "inspect/message.h"

namespace inspect {

// What one connection is to the device.
struct Session
{
    bool isLoggedIn = false;
};

class Device
{
public:
    // Whoever may log in; without a name anybody may, and needn't.
    std::string user, password;
    // Fresh records have plausible values in place of absent ones.
    bool hasSamples = false;
    // What an answer to a search says of it.
    std::string address;
    int port = 0;

    // Keeps the record of a message, as the answer to questions of its type and code.
    void keep(Message message);

    // The answer, or nothing where none is due. A refusal has "FAIL" in its Msg_flag, as a login that fails.
    std::optional<Message> answer(const Analysed& question, Session& session);

private:
    Message& kept(int index);
    Message answerTo(const Message& question, int index);
    Message header(const Message& question, const char* flag) const;
    std::optional<Message> logIn(const Message& question, Session& session);
    std::optional<Message> unwrap(const Message& question, Session& session);
    std::optional<Message> foundBy(const Message& question);
    void takeOver(const Message& setting);

    std::map<int, Message> m_kept; // made as they are asked for
};

} // namespace inspect

#endif
