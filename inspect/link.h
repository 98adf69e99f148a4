/** Sockets that never wait longer than they are told to: what search, call and serve talk over. */
#ifndef ZEL_INSPECT_LINK_H
#define ZEL_INSPECT_LINK_H

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>
#include <sys/socket.h>

namespace inspect {

using Clock = std::chrono::steady_clock;

// A peer or the network that doesn't do as it should.
struct LinkError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// Owns a descriptor. None of its calls waits.
class Socket
{
public:
    Socket() = default;
    explicit Socket(int owned) : m_fd(owned) {}
    Socket(Socket&& other) noexcept;
    Socket& operator=(Socket&& other) noexcept;
    ~Socket();

    int fd() const
    {
        return m_fd;
    }

private:
    int m_fd = -1;
};

struct Endpoint
{
    sockaddr_storage address{};
    socklen_t size = 0;
};

std::string nameOf(const Endpoint& endpoint); // "10.0.0.5:8000", "[::1]:8000"
std::string hostOf(const Endpoint& endpoint); // "10.0.0.5"

struct HostPort
{
    std::string host; // empty: none was told
    std::string port;
};

// "10.0.0.5:8000", "[::1]:8000", "camera:8000" or "8000"; throws a std::invalid_argument.
HostPort splitHostPort(const std::string& text);

// All of these throw a LinkError that says what couldn't be done, and with whom.
Endpoint resolve(const HostPort& target, int type); // SOCK_STREAM or SOCK_DGRAM
Socket connectTo(const HostPort& target, Clock::time_point deadline);
Socket listenOn(const HostPort& own);
Socket datagramsOn(const HostPort& own);
Socket datagramsTo(const Endpoint& peer); // of its kind of addresses, broadcasts allowed
Endpoint ownEnd(const Socket& socket);
void sendDatagram(const Socket& socket, const Endpoint& to, std::string_view bytes);
void sendAll(const Socket& socket, std::string_view bytes, Clock::time_point deadline);

// Whether there is something to receive before the deadline.
bool waitToReceive(const Socket& socket, Clock::time_point deadline);

// What came: nothing if the peer closed the connection. Throws a LinkError, also where nothing came in time.
std::string receive(const Socket& socket, Clock::time_point deadline);

// A datagram and who sent it.
std::string receiveDatagram(const Socket& socket, Endpoint& from);

// Milliseconds until then, for poll.
int millisecondsUntil(Clock::time_point deadline);

} // namespace inspect

#endif
