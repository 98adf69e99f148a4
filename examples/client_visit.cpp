#include "client_steps.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace demo {

namespace {

bool receiveHeartbeatAnswer(Client& client, const Composed& request)
{
    Received answer;
    return receiveAnswer(client, answer) && isHeartbeatAnswer(answer, request);
}

/** Sends a plain frame's message inside a transparent one and takes the answer apart. */
bool exchangeTransparent(Client& client, const Composed& inner, TRANSPARENT_HEADER& outerAnswer)
{
    TRANSPARENT_HEADER outer;
    TRANSPARENT_HEADER_init(&outer);
    setField(outer.Trans_Type, kTransparent);
    setField(outer.Channel_ID, "1");
    setField(outer.Source_Type, "CLIENT");
    setField(outer.Session_ID, client.session);
    if (inner.status != 0 || !wrapMessage(outer, inner))
        return false;
    printSent(kClientName, inner, "inside");
    const Composed request =
        composeMessage(makeHeader(kTransparent, ""), &outer, ZEL_KIND_REQUEST, client.cipher);
    Received answer;
    if (!sendMessage(client.link, request) || !receiveMessage(client.link, client.cipher, answer) ||
        answer.result <= 0 || !hasType(answer, kTransparent))
        return false;
    outerAnswer = recordOf<TRANSPARENT_HEADER>(answer);
    return fieldText(outerAnswer.Channel_ID) == "1" && fieldText(outerAnswer.Session_ID) == client.session;
}

/** Whether the camera closes the connection without sending another byte. */
bool isClosedByCamera(const Link& link)
{
    char byte = 0;
    std::size_t count = 0;
    return receiveSome(link.socket, &byte, 1, kAnswerMs, count) == ReceiveState::Closed;
}

/** Sends `bytes` on a connection of its own. */
bool isRefused(const Client& client, const std::vector<char>& bytes, const char* what)
{
    Link link;
    link.socket = connectTo(client.camera.port);
    printNote(kClientName, "sends " + std::to_string(bytes.size()) + " bytes: " + what);
    return link.socket.isOpen() && sendAll(link.socket, bytes.data(), bytes.size()) && isClosedByCamera(link);
}

/** Takes over what an answer to a search says. */
bool readFound(const Received& answer, FoundCamera& found)
{
    const auto* record = recordIn<SYSTEM_SEARCHIPC_3_PARAM>(answer);
    if (!record || !hasType(answer, kSearch) || !hasCode(answer, "3") ||
        fieldText(record->stLan.IPAddress) != "127.0.0.1" || record->stStream.PTZPort < 1 ||
        record->stStream.PTZPort > 65535)
        return false;
    found.serial = fieldText(record->stDevice.SerialNumber);
    found.model = fieldText(record->stDevice.DeviceModule);
    found.firmware = fieldText(record->stDevice.FileSystemVersion);
    found.features = record->stDevice.Feature;
    found.port = static_cast<std::uint16_t>(record->stStream.PTZPort);
    return record->iAccountNum == -1;
}

/** One search; false if no answer to it comes. Searches and their answers are bare text, enciphered never. */
bool search(Client& client, const Socket& socket, std::string_view vendor, int timeoutMs, Received& answer)
{
    SYSTEM_SEARCHIPC_1_PARAM record;
    SYSTEM_SEARCHIPC_1_PARAM_init(&record);
    setField(record.VendorId, vendor);
    Cipher plain;
    const Composed request =
        composeMessage(requestHeader(client, kSearch, "1"), &record, ZEL_KIND_REQUEST, plain);
    printSent(kClientName, request, "datagram");
    std::vector<char> datagram(kDatagramBytes);
    std::size_t count = 0;
    sockaddr_in from{};
    if (request.status != 0 ||
        !sendDatagram(socket, loopbackAddress(client.searchPort), request.bytes.data(), request.bytes.size()))
        return false;
    while (receiveDatagram(socket, datagram.data(), datagram.size(), timeoutMs, count, from) ==
           ReceiveState::Data) {
        answer = analyseMessage(datagram.data(), static_cast<int>(count), plain);
        printReceived(kClientName, answer, "datagram");
        // An answer to an earlier search may still come.
        if (fieldText(answer.header.Msg_uuid) == fieldText(request.header.Msg_uuid))
            return true;
    }
    return false;
}

} // namespace

/** Datagrams may get lost, so a search is repeated. Devices of other vendors keep silent. */
bool findsCamera(Client& client)
{
    constexpr int kTries = 3;
    constexpr int kPatienceMs = 500;
    constexpr int kSilenceMs = 100;

    std::uint16_t port = 0;
    const Socket socket = datagramsOn(port);
    Received answer;
    for (int i = 0; i < kTries && socket.isOpen(); ++i)
        if (search(client, socket, "DemoWorks", kPatienceMs, answer))
            return readFound(answer, client.camera) &&
                   !search(client, socket, "SomebodyElse", kSilenceMs, answer);
    return false;
}

bool connects(Client& client)
{
    client.link.socket = connectTo(client.camera.port);
    return client.link.socket.isOpen();
}

bool heartbeatNeedsLogin(Client& client)
{
    Received answer;
    return exchange(client, composeHeartbeat(client, client.cipher), answer) && hasFlag(answer, kFail);
}

bool wrongPasswordIsRefused(Client& client)
{
    Received answer;
    if (!logIn(client, "admin", "wrong horse", answer))
        return false;
    const auto& record = recordOf<USER_AUTH_CMD_USER_AUTH_PARAM>(answer);
    return hasFlag(answer, kFail) && fieldText(record.Sessionid).empty() && record.MAXChannels == -1;
}

bool rightPasswordLogsIn(Client& client)
{
    Received answer;
    if (!logIn(client, "admin", "correct horse", answer))
        return false;
    const auto& record = recordOf<USER_AUTH_CMD_USER_AUTH_PARAM>(answer);
    client.session = fieldText(record.Sessionid);
    return hasFlag(answer, kOk) && !client.session.empty() && record.MAXChannels == 1 &&
           fieldText(record.Group) == "Administrators";
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
    const Received innerAnswer = unwrapMessage(outer);
    printReceived(kClientName, innerAnswer, "inside");
    return fieldText(outer.Trans_Result) == kOk && isHeartbeatAnswer(innerAnswer, inner);
}

/** A message that stays transparent however often it is unwrapped. */
bool endlessWrappingIsRefused(Client& client)
{
    constexpr std::string_view text = "<MESSAGE_HEADER\nMsg_type=\"ZEL_HEARTBEAT_MESSAGE\"\n"
                                      "Msg_code=\"CMD_HEARTBEAT\"\n/>\n<TRANSPARENT_HEADER\n"
                                      "Trans_Type=\"TRANSPARENT_CHANNEL_MSG\"\n/>\n</XML_ZELMAR>";
    const Composed inner{makeHeader(kTransparent, ""), 0, {text.begin(), text.end()}};
    TRANSPARENT_HEADER outer;
    return exchangeTransparent(client, inner, outer) && fieldText(outer.Trans_Result) == kFail;
}

/** The pauses make the network deliver the pieces one by one: inside the magic, the length and the text. */
bool splitWritesAreJoined(Client& client)
{
    const Composed request = composeHeartbeat(client, client.cipher);
    printSent(kClientName, request, "in 4 writes");
    if (request.status != 0)
        return false;
    const std::size_t total = request.bytes.size();
    const std::array<std::size_t, 5> cuts = {0, 3, 6, total / 2, total};
    for (std::size_t i = 0; i + 1 < cuts.size(); ++i) {
        if (!sendAll(client.link.socket, request.bytes.data() + cuts[i], cuts[i + 1] - cuts[i]))
            return false;
        std::this_thread::sleep_for(std::chrono::milliseconds(50));
    }
    return receiveHeartbeatAnswer(client, request);
}

bool joinedWritesAreSplit(Client& client)
{
    const Composed first = composeHeartbeat(client, client.cipher);
    const Composed second = composeHeartbeat(client, client.cipher);
    printSent(kClientName, first, "in 1 write with the next");
    printSent(kClientName, second, "");
    std::vector<char> both = first.bytes;
    both.insert(both.end(), second.bytes.begin(), second.bytes.end());
    return first.status == 0 && second.status == 0 && sendAll(client.link.socket, both.data(), both.size()) &&
           receiveHeartbeatAnswer(client, first) && receiveHeartbeatAnswer(client, second);
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
    const int type = client.cipher.mode >= 0 ? ZEL_FRAME_ENCIPHERED : ZEL_FRAME_PLAIN;
    std::vector<char> head(ZEL_FRAME_HEAD_SIZE);
    ZelProtocolFrameHeadWrite(head.data(), type, 0);
    if (!isRefused(client, head, "a frame of no length"))
        return false;
    ZelProtocolFrameHeadWrite(head.data(), type, 0xffffffff);
    return isRefused(client, head, "a frame of 4 gigabytes");
}

bool wrongKeyIsRefused(Client& client)
{
    Cipher other = exampleCipher();
    other.key.bytes[0] ^= 1;
    return isRefused(client, composeHeartbeat(client, other).bytes, "a message under another key");
}

/** A connection stays plain or enciphered, as its first frame was. */
bool changeOfCipherIsRefused(Client& client)
{
    Link link;
    link.socket = connectTo(client.camera.port);
    Cipher other = client.cipher.mode < 0 ? exampleCipher() : Cipher();
    Received answer;
    return link.socket.isOpen() && sendMessage(link, composeHeartbeat(client, client.cipher)) &&
           receiveMessage(link, client.cipher, answer) &&
           sendMessage(link, composeHeartbeat(client, other)) && isClosedByCamera(link);
}

} // namespace demo
