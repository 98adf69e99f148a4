#include "camera_connection.h"

#include <algorithm>
#include <array>
#include <utility>

namespace demo {

namespace {

constexpr const char* kWho = "camera";

std::size_t strangersFrom(const std::vector<Connection>& connections, in_addr_t source)
{
    return static_cast<std::size_t>(
        std::count_if(connections.begin(), connections.end(),
                      [&](const Connection& one) { return !one.isLoggedIn() && one.source == source; }));
}

const char* leftNote(const Connection& client)
{
    return client.isLoggedIn() ? "client left" : "left without a login";
}

const char* overdue(const Connection& client, Clock::time_point now)
{
    if (!client.isLoggedIn() && now - client.connectedAt >= kLoginLimit)
        return "no login in time: closed";
    if (now - client.lastMessage >= kSilenceLimit)
        return "nothing heard for long: closed";
    if (!isIdle(client.sending) && now >= client.sending.messages.front().deadline)
        return "reads too slowly: closed";
    if (client.session.closing && isIdle(client.sending))
        return "too many wrong passwords: closed";
    return "";
}

} // namespace

void continueSending(Connection& client)
{
    const Clock::time_point now = Clock::now();
    if (!sendQueued(client.sending, client.socket, now))
        client.whyClosed =
            now < client.sending.messages.front().deadline ? leftNote(client) : "reads too slowly: closed";
}

void sendTo(Connection& client, Composed message)
{
    printSent(kWho, message, "");
    // Some types are never framed. Whatever a client asks for, nothing else goes out here.
    if (message.status != 0 || !isFrame(message.bytes, client.cipher.mode >= 0))
        client.whyClosed = "nothing could be sent: closed";
    else if (!enqueue(client.sending, std::move(message.bytes), Clock::now()))
        client.whyClosed = "too much waits to be sent: closed";
    else
        continueSending(client);
}

void receiveFrom(Connection& client)
{
    std::array<char, 16 * 1024> buffer;
    std::size_t count = 0;
    const ReceiveState state = receiveSome(client.socket, buffer.data(), buffer.size(), 0, count);
    if (state == ReceiveState::Closed)
        client.whyClosed = leftNote(client);
    if (state != ReceiveState::Data)
        return;
    ++client.reads;
    addReceived(client.reader, buffer.data(), count);
}

bool nextMessage(Connection& client, Frame& frame)
{
    if (!client.takesMessages() || waitingBytes(client.reader) == 0)
        return false;
    client.reader.maxPayload = client.isLoggedIn() ? kMaxPayloadBytes : kMaxPayloadOfStranger;
    const FrameState found = nextFrame(client.reader, frame);
    if (found == FrameState::Refused)
        client.whyClosed = "no frame, or one of a wrong length: closed";
    if (found != FrameState::Complete)
        return false;
    client.lastMessage = Clock::now();
    return true;
}

void closeOverdue(std::vector<Connection>& connections, Clock::time_point now)
{
    for (Connection& client : connections)
        if (client.isOpen())
            client.whyClosed = overdue(client, now);
}

bool hasPlace(std::vector<Connection>& connections, Clock::time_point now, Connection*& giveWay)
{
    giveWay = nullptr;
    std::size_t strangers = 0;
    std::size_t most = 0;
    for (Connection& client : connections) {
        if (client.isLoggedIn())
            continue;
        ++strangers;
        // They stand in the order in which they came.
        const std::size_t ofSource = strangersFrom(connections, client.source);
        if (ofSource > most) {
            most = ofSource;
            giveWay = &client;
        }
    }
    if (strangers < kMaxStrangers && connections.size() < kMaxConnections) {
        giveWay = nullptr;
        return true;
    }
    return giveWay && now - giveWay->connectedAt >= kStrangersGrace;
}

} // namespace demo
