#include "inspect/server.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <optional>
#include <poll.h>
#include <unistd.h>
#include <utility>
#include <vector>

namespace inspect {

namespace {

constexpr std::size_t kMostConnections = 64;
constexpr std::size_t kLongestMessage = 4u << 20;
constexpr std::size_t kMostQueued = 8u << 20; // bytes that wait for a client that doesn't read
constexpr std::chrono::seconds kSendLimit{10};
constexpr std::chrono::seconds kMessageLimit{30}; // from a message's first byte to its last

// An answer is longer than the search, and its source is whatever the sender wrote there: who forges it must
// not have this device shoot at somebody else.
constexpr int kSearchesForEach = 10;
constexpr std::size_t kSearchers = 64;
constexpr std::size_t kLongestSearch = 4096;

} // namespace

struct Server::Connection
{
    Socket socket;
    std::string peer;
    Session session;
    std::unique_ptr<FrameSplitter> splitter;
    std::string queue;
    Clock::time_point sendBy{};
    Clock::time_point wholeBy{};
    bool isClosed = false;

    Connection(Socket taken, std::string name) : socket(std::move(taken)), peer(std::move(name)) {}
};

Server::Server(Device& device, const HostPort& own, const Cipher& cipher,
               std::function<void(const Event&)> tell)
    : m_device(device), m_cipher(cipher), m_tell(std::move(tell)), m_listener(listenOn(own))
{
    const Endpoint end = ownEnd(m_listener);
    const HostPort taken = splitHostPort(nameOf(end));
    m_device.port = std::stoi(taken.port);
    m_device.address = taken.host;
    m_searches = datagramsOn({own.host, taken.port});
}

Server::~Server() = default;

void Server::run(const volatile std::sig_atomic_t& isEnding, const sigset_t& mask)
{
    while (isEnding == 0) {
        std::vector<pollfd> wanted = {{m_listener.fd(), POLLIN, 0}, {m_searches.fd(), POLLIN, 0}};
        for (const Connection& client : m_connections)
            wanted.push_back({client.socket.fd(),
                              static_cast<short>(client.queue.empty() ? POLLIN : POLLIN | POLLOUT), 0});
        const timespec tick = {1, 0};
        if (::ppoll(wanted.data(), wanted.size(), &tick, &mask) < 0)
            continue;
        std::size_t i = 2;
        for (Connection& client : m_connections) {
            const short happened = wanted[i++].revents;
            if ((happened & POLLOUT) != 0)
                send(client);
            if ((happened & (POLLIN | POLLHUP | POLLERR)) != 0 && !client.isClosed)
                receiveFrom(client);
        }
        if (wanted[0].revents != 0)
            acceptClient();
        if (wanted[1].revents != 0)
            answerSearch();
        dropOverdue();
    }
}

void Server::acceptClient()
{
    Endpoint from;
    from.size = sizeof from.address;
    Socket socket(::accept4(m_listener.fd(), reinterpret_cast<sockaddr*>(&from.address), &from.size,
                            SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket.fd() < 0)
        return;
    if (m_connections.size() == kMostConnections) {
        m_tell({nameOf(from), false, nullptr, "turned away: there are connections enough"});
        return;
    }
    const auto place = m_connections.emplace(m_connections.end(), std::move(socket), nameOf(from));
    place->splitter = std::make_unique<FrameSplitter>(
        [this, place](const Found& found) { take(*place, found); }, kLongestMessage);
    m_tell({place->peer, false, nullptr, "connected"});
}

void Server::receiveFrom(Connection& client)
{
    char bytes[1 << 16];
    const ssize_t count = ::recv(client.socket.fd(), bytes, sizeof bytes, 0);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return;
    if (count <= 0)
        return close(client, client.splitter->isWithin() ? "closed within a message" : "closed");
    const bool wasWaiting = client.splitter->isWithin();
    client.splitter->take(std::string_view(bytes, static_cast<std::size_t>(count)));
    if (!wasWaiting)
        client.wholeBy = Clock::now() + kMessageLimit;
    if (client.splitter->isAstray() && !client.isClosed)
        close(client, "no message starts where one should");
    if (!client.isClosed)
        send(client);
}

void Server::take(Connection& client, const Found& found)
{
    if (client.isClosed)
        return;
    if (!found.damage.empty())
        return close(client, std::string(found.damage));
    client.wholeBy = Clock::now() + kMessageLimit;
    Cipher plain;
    const Analysed question = analyse(found.payload, found.isEnciphered ? m_cipher : plain);
    m_tell({client.peer, false, question.message.header.Msg_type[0] == '\0' ? nullptr : &question.message,
            question.status < 0 && !question.isHeaderAlone() ? ZelProtocolStatusText(question.status) : ""});
    const bool isBare = found.isBare || question.message.entry.is_bare != 0;
    if (isBare || question.status == ZEL_ERR_CODEC)
        return close(client, isBare ? "a datagram's message" : "can't be deciphered");
    const std::optional<Message> answer = m_device.answer(question, client.session);
    if (!answer)
        return;
    const Composed composed = compose(*answer, found.isEnciphered ? m_cipher : plain);
    m_tell(
        {client.peer, true, &*answer, composed.status < 0 ? "can't be composed: " + composed.problem : ""});
    if (composed.status < 0)
        return;
    if (client.queue.empty())
        client.sendBy = Clock::now() + kSendLimit;
    client.queue += composed.bytes;
    if (client.queue.size() > kMostQueued)
        close(client, "doesn't read its answers");
}

void Server::send(Connection& client)
{
    const ssize_t sent = ::send(client.socket.fd(), client.queue.data(), client.queue.size(), MSG_NOSIGNAL);
    if (sent < 0 && errno != EAGAIN && errno != EINTR)
        return close(client, "gone");
    client.queue.erase(0, static_cast<std::size_t>(std::max<ssize_t>(sent, 0)));
    if (sent > 0)
        client.sendBy = Clock::now() + kSendLimit;
}

void Server::close(Connection& client, const std::string& why)
{
    client.isClosed = true;
    m_tell({client.peer, false, nullptr, why});
}

bool Server::takesShare(const std::string& host)
{
    const Clock::time_point now = Clock::now();
    if (now - m_second > std::chrono::seconds(1)) {
        m_second = now;
        m_searchers.clear();
    }
    if (m_searchers.size() == kSearchers && m_searchers.count(host) == 0)
        return false;
    return ++m_searchers[host] <= kSearchesForEach;
}

void Server::answerSearch()
{
    Endpoint from;
    const std::string datagram = receiveDatagram(m_searches, from);
    if (datagram.empty() || datagram.size() > kLongestSearch || !takesShare(hostOf(from)))
        return;
    Cipher plain;
    const Analysed question = analyse(datagram, plain);
    if (question.message.entry.is_bare == 0)
        return;
    Session nobody;
    const std::optional<Message> answer = m_device.answer(question, nobody);
    m_tell({nameOf(from), false, &question.message, ""});
    const Composed composed = answer ? compose(*answer, plain) : Composed{ZEL_ERR_UNKNOWN_MSG, {}, {}};
    if (composed.status < 0)
        return;
    m_tell({nameOf(from), true, &*answer, ""});
    try {
        sendDatagram(m_searches, from, composed.bytes);
    } catch (const LinkError& error) {
        m_tell({nameOf(from), true, nullptr, error.what()});
    }
}

void Server::dropOverdue()
{
    const Clock::time_point now = Clock::now();
    for (Connection& client : m_connections) {
        if (client.isClosed)
            continue;
        if (!client.queue.empty() && now > client.sendBy)
            close(client, "doesn't read its answers");
        else if (client.splitter->isWithin() && now > client.wholeBy)
            close(client, "doesn't send the rest of a message");
    }
    m_connections.remove_if([](const Connection& client) { return client.isClosed; });
}

} // namespace inspect
