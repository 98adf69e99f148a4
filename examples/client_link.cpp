#include "client_link.h"

#include <array>
#include <chrono>
#include <utility>

namespace demo {

namespace {

bool isAlarm(const Received& message)
{
    return hasType(message, kAlarm) && message.result == 0;
}

} // namespace

ZEL_PROTOCOL_HEADER requestHeader(Client& client, std::string_view type, std::string_view code)
{
    ZEL_PROTOCOL_HEADER header = makeHeader(type, code);
    setField(header.Msg_uuid, "request-" + std::to_string(++client.requests));
    return header;
}

Composed composeRequest(Client& client, std::string_view type, std::string_view code, const void* record)
{
    return composeMessage(requestHeader(client, type, code), record, ZEL_KIND_REQUEST, client.cipher);
}

bool sendMessage(const Link& link, const Composed& message)
{
    if (!link.isQuiet)
        printSent(kClientName, message, "");
    return message.status == 0 && sendAll(link.socket, message.bytes.data(), message.bytes.size());
}

bool receiveMessage(Link& link, Cipher& cipher, Received& message)
{
    std::array<char, 16 * 1024> buffer;
    Frame frame;
    const Clock::time_point deadline = Clock::now() + std::chrono::milliseconds(kAnswerMs);
    for (;;) {
        const FrameState found = nextFrame(link.reader, frame);
        if (found == FrameState::Complete)
            break;
        std::size_t count = 0;
        if (found == FrameState::Refused ||
            receiveSome(link.socket, buffer.data(), buffer.size(), millisecondsUntil(deadline), count) !=
                ReceiveState::Data)
            return false;
        addReceived(link.reader, buffer.data(), count);
        if (link.recording && std::fwrite(buffer.data(), 1, count, link.recording) != count)
            return false;
    }
    if (frame.enciphered != (cipher.mode >= 0))
        return false;
    message = analyseFrame(frame, cipher);
    if (!link.isQuiet)
        printReceived(kClientName, message, "");
    return message.result >= 0 || isHeaderAlone(message);
}

bool receiveAnswer(Client& client, Received& answer)
{
    while (receiveMessage(client.link, client.cipher, answer)) {
        if (!isAlarm(answer))
            return true;
        if (client.alarms.size() == kMaxAlarms)
            return false;
        client.alarms.push_back(std::move(answer));
    }
    return false;
}

bool receiveAlarm(Client& client, Received& alarm)
{
    if (client.alarms.empty())
        return receiveMessage(client.link, client.cipher, alarm) && isAlarm(alarm);
    alarm = std::move(client.alarms.front());
    client.alarms.erase(client.alarms.begin());
    return true;
}

bool belongsTo(const Received& answer, const Composed& request)
{
    return fieldText(answer.header.Msg_type) == fieldText(request.header.Msg_type) &&
           fieldText(answer.header.Msg_code) == fieldText(request.header.Msg_code) &&
           fieldText(answer.header.Msg_uuid) == fieldText(request.header.Msg_uuid);
}

bool exchange(Client& client, const Composed& request, Received& answer)
{
    return sendMessage(client.link, request) && receiveAnswer(client, answer) && belongsTo(answer, request);
}

bool ask(Client& client, std::string_view type, std::string_view code, const void* record, Received& answer)
{
    return exchange(client, composeRequest(client, type, code, record), answer) && hasFlag(answer, kOk) &&
           answer.result == 0 && answer.record;
}

bool logIn(Client& client, std::string_view user, std::string_view password, Received& answer)
{
    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    login.Version = 1;
    setField(login.Username, user);
    setField(login.Password, password);
    return exchange(client, composeRequest(client, kUserAuth, "CMD_USER_AUTH", &login), answer) &&
           answer.result == 0;
}

Composed composeHeartbeat(Client& client, Cipher& cipher)
{
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM heartbeat;
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(&heartbeat);
    setField(heartbeat.streamstat, "idle");
    return composeMessage(requestHeader(client, kHeartbeat, "CMD_HEARTBEAT"), &heartbeat, ZEL_KIND_REQUEST,
                          cipher);
}

bool isHeartbeatAnswer(const Received& answer, const Composed& request)
{
    return answer.result == 0 && belongsTo(answer, request) && hasFlag(answer, kOk) &&
           fieldText(recordOf<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM>(answer).Ipcs_stat) == "ready";
}

} // namespace demo
