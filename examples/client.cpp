/**
 * A client that visits the camera and checks every answer.
 *
 *   client PORT [--cipher]
 *
 * The camera is sought at the loopback interface. With --cipher every message is enciphered. The exit status
 * is 0 only if every exchange went as expected.
 */
#include "demo_io.h"
#include "frame_stream.h"
#include "message_link.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace {

using demo::Cipher;
using demo::Composed;
using demo::Received;

constexpr const char* kWho = "client";
constexpr int kAnswerMs = 3000;

struct Link
{
    demo::Socket socket;
    demo::FrameReader reader;
};

struct Client
{
    std::uint16_t port = 0;
    Cipher cipher;
    Link link;
    std::string session;
    int requests = 0; /**< numbered in Msg_uuid */
};

ZEL_PROTOCOL_HEADER requestHeader(Client& client, std::string_view type, std::string_view code)
{
    ZEL_PROTOCOL_HEADER header = demo::makeHeader(type, code);
    demo::setField(header.Msg_uuid, "request-" + std::to_string(++client.requests));
    return header;
}

Composed composeHeartbeat(Client& client, Cipher& cipher)
{
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM heartbeat;
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(&heartbeat);
    demo::setField(heartbeat.streamstat, "idle");
    return demo::composeMessage(requestHeader(client, demo::kHeartbeat, "CMD_HEARTBEAT"), &heartbeat,
                                demo::kRequest, cipher);
}

bool sendMessage(const Link& link, const Composed& message)
{
    demo::printSent(kWho, message, "");
    return message.status == 0 && demo::sendAll(link.socket, message.bytes.data(), message.bytes.size());
}

bool receiveMessage(Link& link, Cipher& cipher, Received& message)
{
    std::array<char, 4096> buffer;
    demo::Frame frame;
    for (;;) {
        const demo::FrameState found = demo::nextFrame(link.reader, frame);
        if (found == demo::FrameState::Complete)
            break;
        std::size_t count = 0;
        if (found == demo::FrameState::Refused ||
            demo::receiveSome(link.socket, buffer.data(), buffer.size(), kAnswerMs, count) !=
                demo::ReceiveState::Data)
            return false;
        demo::addReceived(link.reader, buffer.data(), count);
    }
    if (frame.enciphered != (cipher.mode >= 0))
        return false;
    message = demo::analyseFrame(frame, cipher);
    demo::printReceived(kWho, message, "");
    return message.result >= 0;
}

/** Whether `answer` has the request's type, code and number. */
bool belongsTo(const Received& answer, const Composed& request)
{
    return demo::fieldText(answer.header.Msg_type) == demo::fieldText(request.header.Msg_type) &&
           demo::fieldText(answer.header.Msg_code) == demo::fieldText(request.header.Msg_code) &&
           demo::fieldText(answer.header.Msg_uuid) == demo::fieldText(request.header.Msg_uuid);
}

bool exchange(Client& client, const Composed& request, Received& answer)
{
    return sendMessage(client.link, request) && receiveMessage(client.link, client.cipher, answer) &&
           belongsTo(answer, request);
}

bool isHeartbeatAnswer(const Received& answer, const Composed& request)
{
    return answer.result == 0 && belongsTo(answer, request) && demo::hasFlag(answer, demo::kOk) &&
           demo::fieldText(demo::recordOf<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM>(answer).Ipcs_stat) == "ready";
}

bool receiveHeartbeatAnswer(Client& client, const Composed& request)
{
    Received answer;
    return receiveMessage(client.link, client.cipher, answer) && isHeartbeatAnswer(answer, request);
}

bool logIn(Client& client, std::string_view password, Received& answer)
{
    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    login.Version = 1;
    demo::setField(login.Username, "admin");
    demo::setField(login.Password, password);
    const Composed request = demo::composeMessage(requestHeader(client, demo::kUserAuth, "CMD_USER_AUTH"),
                                                  &login, demo::kRequest, client.cipher);
    return exchange(client, request, answer) && answer.result == 0;
}

/** Sends a plain frame's message inside a transparent one and takes the answer apart. */
bool exchangeTransparent(Client& client, const Composed& inner, TRANSPARENT_HEADER& outerAnswer)
{
    TRANSPARENT_HEADER outer;
    TRANSPARENT_HEADER_init(&outer);
    demo::setField(outer.Trans_Type, demo::kTransparent);
    demo::setField(outer.Channel_ID, "1");
    demo::setField(outer.Source_Type, "CLIENT");
    demo::setField(outer.Session_ID, client.session);
    if (inner.status != 0 || !demo::wrapMessage(outer, inner))
        return false;
    demo::printSent(kWho, inner, "inside");
    const Composed request =
        demo::composeMessage(demo::makeHeader(demo::kTransparent, ""), &outer, demo::kRequest, client.cipher);
    Received answer;
    if (!sendMessage(client.link, request) || !receiveMessage(client.link, client.cipher, answer) ||
        answer.result <= 0 || !demo::hasType(answer, demo::kTransparent))
        return false;
    outerAnswer = demo::recordOf<TRANSPARENT_HEADER>(answer);
    return demo::fieldText(outerAnswer.Channel_ID) == "1" &&
           demo::fieldText(outerAnswer.Session_ID) == client.session;
}

bool connects(Client& client)
{
    client.link.socket = demo::connectTo(client.port);
    return client.link.socket.isOpen();
}

bool heartbeatNeedsLogin(Client& client)
{
    Received answer;
    return exchange(client, composeHeartbeat(client, client.cipher), answer) &&
           demo::hasFlag(answer, demo::kFail);
}

bool wrongPasswordIsRefused(Client& client)
{
    Received answer;
    if (!logIn(client, "wrong horse", answer))
        return false;
    const auto& record = demo::recordOf<USER_AUTH_CMD_USER_AUTH_PARAM>(answer);
    return demo::hasFlag(answer, demo::kFail) && demo::fieldText(record.Sessionid).empty() &&
           record.MAXChannels == -1;
}

bool rightPasswordLogsIn(Client& client)
{
    Received answer;
    if (!logIn(client, "correct horse", answer))
        return false;
    const auto& record = demo::recordOf<USER_AUTH_CMD_USER_AUTH_PARAM>(answer);
    client.session = demo::fieldText(record.Sessionid);
    return demo::hasFlag(answer, demo::kOk) && !client.session.empty() && record.MAXChannels == 1 &&
           demo::fieldText(record.Group) == "Administrators";
}

bool heartbeatIsAnswered(Client& client)
{
    Received answer;
    const Composed request = composeHeartbeat(client, client.cipher);
    return exchange(client, request, answer) && isHeartbeatAnswer(answer, request);
}

bool transparentIsUnwrapped(Client& client)
{
    Cipher plain;
    const Composed inner = composeHeartbeat(client, plain);
    TRANSPARENT_HEADER outer;
    if (!exchangeTransparent(client, inner, outer))
        return false;
    const Received innerAnswer = demo::unwrapMessage(outer);
    demo::printReceived(kWho, innerAnswer, "inside");
    return demo::fieldText(outer.Trans_Result) == demo::kOk && isHeartbeatAnswer(innerAnswer, inner);
}

/** A message that stays transparent however often it is unwrapped. */
bool endlessWrappingIsRefused(Client& client)
{
    constexpr std::string_view text = "<MESSAGE_HEADER\nMsg_type=\"ZEL_HEARTBEAT_MESSAGE\"\n"
                                      "Msg_code=\"CMD_HEARTBEAT\"\n/>\n<TRANSPARENT_HEADER\n"
                                      "Trans_Type=\"TRANSPARENT_CHANNEL_MSG\"\n/>\n</XML_ZELMAR>";
    const Composed inner{demo::makeHeader(demo::kTransparent, ""), 0, {text.begin(), text.end()}};
    TRANSPARENT_HEADER outer;
    return exchangeTransparent(client, inner, outer) && demo::fieldText(outer.Trans_Result) == demo::kFail;
}

/** The pauses make the network deliver the pieces one by one: inside the magic, the length and the text. */
bool splitWritesAreJoined(Client& client)
{
    const Composed request = composeHeartbeat(client, client.cipher);
    demo::printSent(kWho, request, "in 4 writes");
    if (request.status != 0)
        return false;
    const std::size_t total = request.bytes.size();
    const std::array<std::size_t, 5> cuts = {0, 3, 6, total / 2, total};
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        if (!demo::sendAll(client.link.socket, request.bytes.data() + cuts[i], cuts[i + 1] - cuts[i]))
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return receiveHeartbeatAnswer(client, request);
}

bool joinedWritesAreSplit(Client& client)
{
    const Composed first = composeHeartbeat(client, client.cipher);
    const Composed second = composeHeartbeat(client, client.cipher);
    demo::printSent(kWho, first, "in 1 write with the next");
    demo::printSent(kWho, second, "");
    std::vector<char> both = first.bytes;
    both.insert(both.end(), second.bytes.begin(), second.bytes.end());
    return first.status == 0 && second.status == 0 &&
           demo::sendAll(client.link.socket, both.data(), both.size()) &&
           receiveHeartbeatAnswer(client, first) && receiveHeartbeatAnswer(client, second);
}

/** Whether the camera closes the connection without sending another byte. */
bool isClosedByCamera(const Link& link)
{
    char byte = 0;
    std::size_t count = 0;
    return demo::receiveSome(link.socket, &byte, 1, kAnswerMs, count) == demo::ReceiveState::Closed;
}

/** Sends `bytes` on a connection of its own. */
bool isRefused(const Client& client, const std::vector<char>& bytes, const char* what)
{
    Link link;
    link.socket = demo::connectTo(client.port);
    demo::printNote(kWho, "sends " + std::to_string(bytes.size()) + " bytes: " + what);
    return link.socket.isOpen() && demo::sendAll(link.socket, bytes.data(), bytes.size()) &&
           isClosedByCamera(link);
}

bool garbageIsRefused(Client& client)
{
    std::vector<char> bytes = {'\r', '\n'};
    const Composed request = composeHeartbeat(client, client.cipher);
    bytes.insert(bytes.end(), request.bytes.begin(), request.bytes.end());
    return isRefused(client, bytes, "garbage before a good frame");
}

bool wrongLengthsAreRefused(Client& client)
{
    std::vector<char> head = composeHeartbeat(client, client.cipher).bytes;
    head.resize(demo::kFrameHeadBytes);
    std::vector<char> none = head;
    std::fill(none.begin() + 4, none.end(), '\0');
    std::vector<char> endless = head;
    std::fill(endless.begin() + 4, endless.end(), '\xff');
    return isRefused(client, none, "a frame of no length") &&
           isRefused(client, endless, "a frame of 4 gigabytes");
}

bool wrongKeyIsRefused(Client& client)
{
    Cipher other = demo::exampleCipher();
    other.key.bytes[0] ^= 1;
    return isRefused(client, composeHeartbeat(client, other).bytes, "a message under another key");
}

/** A connection stays plain or enciphered, as its first frame was. */
bool changeOfCipherIsRefused(Client& client)
{
    Link link;
    link.socket = demo::connectTo(client.port);
    Cipher other = client.cipher.mode < 0 ? demo::exampleCipher() : Cipher();
    Received answer;
    return link.socket.isOpen() && sendMessage(link, composeHeartbeat(client, client.cipher)) &&
           receiveMessage(link, client.cipher, answer) &&
           sendMessage(link, composeHeartbeat(client, other)) && isClosedByCamera(link);
}

bool passed(bool outcome, const char* step)
{
    demo::printNote(kWho, std::string(outcome ? "ok: " : "FAILED: ") + step);
    return outcome;
}

/** Stops at the first step that fails: the later ones build on it. */
bool runSteps(Client& client)
{
    return passed(connects(client), "the camera takes the connection") &&
           passed(heartbeatNeedsLogin(client), "a heartbeat before the login is refused") &&
           passed(wrongPasswordIsRefused(client), "a wrong password is refused") &&
           passed(rightPasswordLogsIn(client), "the right password logs in") &&
           passed(heartbeatIsAnswered(client), "a heartbeat is answered") &&
           passed(transparentIsUnwrapped(client), "a transparent message is unwrapped") &&
           passed(endlessWrappingIsRefused(client), "a message that wraps itself is refused") &&
           passed(splitWritesAreJoined(client), "a message in four writes is put together") &&
           passed(joinedWritesAreSplit(client), "two messages in one write are told apart") &&
           passed(garbageIsRefused(client), "garbage is refused") &&
           passed(wrongLengthsAreRefused(client), "wrong lengths are refused") &&
           passed(wrongKeyIsRefused(client), "a wrong key is refused") &&
           passed(changeOfCipherIsRefused(client), "a change of the cipher is refused") &&
           passed(heartbeatIsAnswered(client), "the first connection still stands");
}

} // namespace

int main(int argc, char** argv)
{
    Client client;
    int port = 0;
    const bool enciphered = argc == 3 && std::string_view(argv[2]) == "--cipher";
    if ((argc != 2 && !enciphered) || !demo::readNumber(argv[1], 65535, port) || port == 0) {
        std::fprintf(stderr, "usage: client PORT [--cipher]\n");
        return 2;
    }
    client.port = static_cast<std::uint16_t>(port);
    if (enciphered)
        client.cipher = demo::exampleCipher();

    demo::printNote(kWho, enciphered ? "every message enciphered" : "every message plain");
    return runSteps(client) ? 0 : 1;
}
