/**
 * Sockets on the loopback interface and the transcript: what the example programs need besides messages.
 */
#ifndef EXAMPLES_DEMO_IO_H
#define EXAMPLES_DEMO_IO_H

#include <arpa/inet.h>
#include <netinet/in.h>
#include <netinet/tcp.h>
#include <poll.h>
#include <sys/socket.h>
#include <unistd.h>

#include <cerrno>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>

namespace demo {

using Clock = std::chrono::steady_clock;

/** Owns a descriptor. */
struct Socket
{
    int fd = -1;

    Socket() = default;
    explicit Socket(int owned) : fd(owned) {}
    Socket(Socket&& other) noexcept : fd(std::exchange(other.fd, -1)) {}
    Socket& operator=(Socket&& other) noexcept
    {
        std::swap(fd, other.fd);
        return *this;
    }
    Socket(const Socket&) = delete;
    Socket& operator=(const Socket&) = delete;
    ~Socket()
    {
        if (fd >= 0)
            ::close(fd);
    }

    bool isOpen() const
    {
        return fd >= 0;
    }
};

inline sockaddr_in loopbackAddress(std::uint16_t port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_port = htons(port);
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    return address;
}

/** Small writes leave at once. */
inline void prepareStream(const Socket& socket)
{
    const int on = 1;
    ::setsockopt(socket.fd, IPPROTO_TCP, TCP_NODELAY, &on, sizeof on);
}

/** Takes a port, or a free one if it is 0; `port` becomes the real one. */
inline bool bindTo(const Socket& socket, std::uint16_t& port)
{
    sockaddr_in address = loopbackAddress(port);
    socklen_t size = sizeof address;
    if (!socket.isOpen() || ::bind(socket.fd, reinterpret_cast<const sockaddr*>(&address), size) != 0 ||
        ::getsockname(socket.fd, reinterpret_cast<sockaddr*>(&address), &size) != 0)
        return false;
    port = ntohs(address.sin_port);
    return true;
}

/** Listens on a port as bindTo takes it. The socket is closed after a failure. */
inline Socket listenOn(std::uint16_t& port)
{
    Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
    const int on = 1;
    ::setsockopt(socket.fd, SOL_SOCKET, SO_REUSEADDR, &on, sizeof on);
    if (!bindTo(socket, port) || ::listen(socket.fd, 8) != 0)
        return Socket();
    return socket;
}

/** A socket for datagrams on a port as bindTo takes it. Closed after a failure. */
inline Socket datagramsOn(std::uint16_t& port)
{
    Socket socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!bindTo(socket, port))
        return Socket();
    return socket;
}

/**
 * Closed if nobody waits. No call on the socket waits for the peer, and the system keeps no more for it than
 * `bufferBytes` or so. `from` becomes the peer's address.
 */
inline Socket acceptFrom(const Socket& listener, int bufferBytes, sockaddr_in& from)
{
    socklen_t size = sizeof from;
    Socket socket(
        ::accept4(listener.fd, reinterpret_cast<sockaddr*>(&from), &size, SOCK_CLOEXEC | SOCK_NONBLOCK));
    if (socket.isOpen()) {
        prepareStream(socket);
        ::setsockopt(socket.fd, SOL_SOCKET, SO_SNDBUF, &bufferBytes, sizeof bufferBytes);
    }
    return socket;
}

/** What was sent and not yet received is lost, and the system keeps nothing more for the peer. */
inline void abortStream(Socket& socket)
{
    const linger atOnce = {1, 0};
    ::setsockopt(socket.fd, SOL_SOCKET, SO_LINGER, &atOnce, sizeof atOnce);
    socket = Socket();
}

/** Closed if nobody listens there. */
inline Socket connectTo(std::uint16_t port)
{
    Socket socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const sockaddr_in address = loopbackAddress(port);
    if (!socket.isOpen() ||
        ::connect(socket.fd, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return Socket();
    prepareStream(socket);
    return socket;
}

/** Sends as much as the system takes without waiting: how much, or below zero if the connection is gone. */
inline ssize_t sendSome(const Socket& socket, const char* data, std::size_t count)
{
    const ssize_t sent = ::send(socket.fd, data, count, MSG_NOSIGNAL | MSG_DONTWAIT);
    if (sent < 0 && (errno == EAGAIN || errno == EINTR))
        return 0;
    return sent;
}

/** Milliseconds until then, rounded up; 0 if it is over. */
inline int millisecondsUntil(Clock::time_point deadline)
{
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
    return static_cast<int>(left.count() > 0 ? left.count() : 0);
}

/** For a program with one peer: waits until all is sent, 2 seconds at most however the peer reads. */
inline bool sendAll(const Socket& socket, const char* data, std::size_t count)
{
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(2);
    while (count > 0) {
        const ssize_t sent = sendSome(socket, data, count);
        if (sent < 0)
            return false;
        data += sent;
        count -= static_cast<std::size_t>(sent);
        pollfd wanted = {socket.fd, POLLOUT, 0};
        if (count > 0 && ::poll(&wanted, 1, millisecondsUntil(deadline)) == 0)
            return false;
    }
    return true;
}

enum class ReceiveState
{
    Data,
    Closed, /**< by the peer, orderly or not */
    Timeout
};

/** Takes what is there, waiting for it if nothing is. */
inline ReceiveState receiveSome(const Socket& socket, char* buffer, std::size_t size, int timeoutMs,
                                std::size_t& received)
{
    received = 0;
    pollfd wanted = {socket.fd, POLLIN, 0};
    if (::poll(&wanted, 1, timeoutMs) <= 0)
        return ReceiveState::Timeout;
    const ssize_t count = ::recv(socket.fd, buffer, size, MSG_DONTWAIT);
    if (count < 0 && (errno == EAGAIN || errno == EINTR))
        return ReceiveState::Timeout;
    if (count <= 0)
        return ReceiveState::Closed;
    received = static_cast<std::size_t>(count);
    return ReceiveState::Data;
}

/** The largest datagram. */
constexpr std::size_t kDatagramBytes = 65507;

inline bool sendDatagram(const Socket& socket, const sockaddr_in& to, const char* data, std::size_t count)
{
    return ::sendto(socket.fd, data, count, MSG_NOSIGNAL | MSG_DONTWAIT,
                    reinterpret_cast<const sockaddr*>(&to), sizeof to) == static_cast<ssize_t>(count);
}

/** Takes one datagram, waiting for it if none is there; `from` is where an answer goes. */
inline ReceiveState receiveDatagram(const Socket& socket, char* buffer, std::size_t size, int timeoutMs,
                                    std::size_t& received, sockaddr_in& from)
{
    received = 0;
    pollfd wanted = {socket.fd, POLLIN, 0};
    if (::poll(&wanted, 1, timeoutMs) <= 0)
        return ReceiveState::Timeout;
    socklen_t addressSize = sizeof from;
    const ssize_t count =
        ::recvfrom(socket.fd, buffer, size, MSG_DONTWAIT, reinterpret_cast<sockaddr*>(&from), &addressSize);
    if (count < 0)
        return ReceiveState::Timeout;
    received = static_cast<std::size_t>(count);
    return ReceiveState::Data;
}

/** Reads a whole decimal number within 0 and `limit`. */
inline bool readNumber(std::string_view text, int limit, int& number)
{
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error != std::errc() || end != text.data() + text.size() || value < 0 || value > limit)
        return false;
    number = value;
    return true;
}

/** What comes from a peer must not move the terminal's cursor. */
inline std::string printable(std::string_view text)
{
    std::string result(text);
    for (char& c : result)
        if (c < 0x20 || c > 0x7e)
            c = '?';
    return result;
}

/** One line in one write, so that the lines of two programs don't mix. */
inline void printLine(const std::string& line)
{
    std::fputs((line + "\n").c_str(), stdout);
    std::fflush(stdout);
}

inline void printNote(const char* who, const std::string& note)
{
    printLine(std::string(who) + "  --  " + note);
}

/** One message: `direction` is "->" or "<-", `bytes` counts the frame with its head. */
inline void printMessage(const char* who, const char* direction, std::string_view type, std::string_view code,
                         std::size_t bytes, int status, std::string_view note)
{
    std::string line = std::string(who) + "  " + direction;
    for (const std::string_view name : {type, code})
        line += "  " + (name.empty() ? "-" : printable(name));
    line += "  " + std::to_string(bytes) + " bytes  status " + std::to_string(status);
    if (!note.empty())
        line += "  " + printable(note);
    printLine(line);
}

} // namespace demo

#endif
