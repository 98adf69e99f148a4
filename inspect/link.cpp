#include "inspect/link.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <memory>
#include <netdb.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <unistd.h>
#include <utility>

namespace inspect {

namespace {

constexpr std::size_t kLargestDatagram = 65536;

[[noreturn]] void fail(const std::string& what)
{
    throw LinkError(what + ": " + std::strerror(errno));
}

std::string nameOf(const HostPort& target)
{
    return target.host.find(':') == std::string::npos ? target.host + ":" + target.port
                                                      : "[" + target.host + "]:" + target.port;
}

bool waitFor(const Socket& socket, short events, Clock::time_point deadline)
{
    for (;;) {
        pollfd wanted = {socket.fd(), events, 0};
        const int ready = ::poll(&wanted, 1, millisecondsUntil(deadline));
        if (ready > 0)
            return true;
        if (ready == 0 || errno != EINTR)
            return false;
    }
}

Socket makeSocket(const Endpoint& endpoint, int type)
{
    Socket socket(::socket(endpoint.address.ss_family, type | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    if (socket.fd() < 0)
        fail("no socket");
    return socket;
}

void setOption(const Socket& socket, int level, int option)
{
    const int on = 1;
    ::setsockopt(socket.fd(), level, option, &on, sizeof on);
}

const sockaddr* addressOf(const Endpoint& endpoint)
{
    return reinterpret_cast<const sockaddr*>(&endpoint.address);
}

Socket bindTo(const HostPort& own, int type)
{
    const Endpoint endpoint = resolve(own, type);
    Socket socket = makeSocket(endpoint, type);
    if (type == SOCK_STREAM)
        setOption(socket, SOL_SOCKET, SO_REUSEADDR);
    if (::bind(socket.fd(), addressOf(endpoint), endpoint.size) != 0)
        fail(nameOf(own));
    return socket;
}

std::string numericName(const Endpoint& endpoint, bool wantsPort)
{
    char host[NI_MAXHOST];
    char port[NI_MAXSERV];
    if (::getnameinfo(addressOf(endpoint), endpoint.size, host, sizeof host, port, sizeof port,
                      NI_NUMERICHOST | NI_NUMERICSERV) != 0)
        return "somebody";
    return wantsPort ? nameOf(HostPort{host, port}) : host;
}

} // namespace

Socket::Socket(Socket&& other) noexcept : m_fd(std::exchange(other.m_fd, -1)) {}

Socket& Socket::operator=(Socket&& other) noexcept
{
    std::swap(m_fd, other.m_fd);
    return *this;
}

Socket::~Socket()
{
    if (m_fd >= 0)
        ::close(m_fd);
}

std::string nameOf(const Endpoint& endpoint)
{
    return numericName(endpoint, true);
}

std::string hostOf(const Endpoint& endpoint)
{
    return numericName(endpoint, false);
}

HostPort splitHostPort(const std::string& text)
{
    const std::size_t colon = text.rfind(':');
    HostPort parts;
    parts.port = colon == std::string::npos ? text : text.substr(colon + 1);
    parts.host = colon == std::string::npos ? "" : text.substr(0, colon);
    if (parts.host.size() > 2 && parts.host.front() == '[' && parts.host.back() == ']')
        parts.host = parts.host.substr(1, parts.host.size() - 2);
    else if (parts.host.find(':') != std::string::npos)
        throw std::invalid_argument(text + ": an address with colons has to stand in brackets, [" + text +
                                    "]:PORT");
    const bool isNumber = !parts.port.empty() && parts.port.size() <= 5 &&
                          parts.port.find_first_not_of("0123456789") == std::string::npos;
    if (!isNumber || std::stoi(parts.port) > 65535)
        throw std::invalid_argument(text + ": a port is a number from 0 to 65535");
    return parts;
}

Endpoint resolve(const HostPort& target, int type)
{
    addrinfo hints{};
    hints.ai_socktype = type;
    hints.ai_flags = AI_NUMERICSERV;
    addrinfo* found = nullptr;
    if (const int error = ::getaddrinfo(target.host.c_str(), target.port.c_str(), &hints, &found))
        throw LinkError(target.host + ": " + ::gai_strerror(error));
    const std::unique_ptr<addrinfo, decltype(&::freeaddrinfo)> all(found, ::freeaddrinfo);
    Endpoint endpoint;
    endpoint.size = all->ai_addrlen;
    std::memcpy(&endpoint.address, all->ai_addr, all->ai_addrlen);
    return endpoint;
}

Socket connectTo(const HostPort& target, Clock::time_point deadline)
{
    const Endpoint peer = resolve(target, SOCK_STREAM);
    Socket socket = makeSocket(peer, SOCK_STREAM);
    if (::connect(socket.fd(), addressOf(peer), peer.size) != 0 && errno != EINPROGRESS)
        fail(nameOf(target));
    if (!waitFor(socket, POLLOUT, deadline))
        throw LinkError(nameOf(target) + ": doesn't take the connection in time");
    socklen_t size = sizeof errno;
    if (::getsockopt(socket.fd(), SOL_SOCKET, SO_ERROR, &errno, &size) != 0 || errno != 0)
        fail(nameOf(target));
    setOption(socket, IPPROTO_TCP, TCP_NODELAY);
    return socket;
}

Socket listenOn(const HostPort& own)
{
    Socket socket = bindTo(own, SOCK_STREAM);
    if (::listen(socket.fd(), 16) != 0)
        fail(nameOf(own));
    return socket;
}

Socket datagramsOn(const HostPort& own)
{
    return bindTo(own, SOCK_DGRAM);
}

Socket datagramsTo(const Endpoint& peer)
{
    Socket socket = makeSocket(peer, SOCK_DGRAM);
    setOption(socket, SOL_SOCKET, SO_BROADCAST);
    return socket;
}

Endpoint ownEnd(const Socket& socket)
{
    Endpoint own;
    own.size = sizeof own.address;
    if (::getsockname(socket.fd(), reinterpret_cast<sockaddr*>(&own.address), &own.size) != 0)
        fail("no address");
    return own;
}

void sendDatagram(const Socket& socket, const Endpoint& to, std::string_view bytes)
{
    if (::sendto(socket.fd(), bytes.data(), bytes.size(), 0, addressOf(to), to.size) < 0)
        fail(nameOf(to));
}

void sendAll(const Socket& socket, std::string_view bytes, Clock::time_point deadline)
{
    while (!bytes.empty()) {
        const ssize_t sent = ::send(socket.fd(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
        if (sent >= 0)
            bytes.remove_prefix(static_cast<std::size_t>(sent));
        else if (errno != EAGAIN && errno != EINTR)
            fail("the peer");
        else if (!waitFor(socket, POLLOUT, deadline))
            throw LinkError("the peer doesn't take the message in time");
    }
}

bool waitToReceive(const Socket& socket, Clock::time_point deadline)
{
    return waitFor(socket, POLLIN, deadline);
}

std::string receive(const Socket& socket, Clock::time_point deadline)
{
    char bytes[1 << 16];
    for (;;) {
        if (Clock::now() >= deadline || !waitFor(socket, POLLIN, deadline))
            throw LinkError("no answer in time");
        const ssize_t count = ::recv(socket.fd(), bytes, sizeof bytes, 0);
        if (count >= 0)
            return std::string(bytes, static_cast<std::size_t>(count));
        if (errno != EAGAIN && errno != EINTR)
            fail("the peer");
    }
}

std::string receiveDatagram(const Socket& socket, Endpoint& from)
{
    std::string bytes(kLargestDatagram, '\0');
    from.size = sizeof from.address;
    const ssize_t count = ::recvfrom(socket.fd(), bytes.data(), bytes.size(), 0,
                                     reinterpret_cast<sockaddr*>(&from.address), &from.size);
    bytes.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return bytes;
}

int millisecondsUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now()).count();
    return static_cast<int>(std::clamp<decltype(left)>(left, 0, 1 << 30));
}

} // namespace inspect
