/** A device at its sockets: connections and datagrams, none of which can make it wait. */
#ifndef ZEL_INSPECT_SERVER_H
#define ZEL_INSPECT_SERVER_H

#include <csignal>
#include <functional>
#include <list>
#include <map>
#include <string>

#include "inspect/device.h"
#include "inspect/link.h"
#include "inspect/source.h"

namespace inspect {

// What the server tells of, as it happens. Without a message something is wrong, or worth to be known.
struct Event
{
    std::string peer;
    bool isSent = false;
    const Message* message = nullptr;
    std::string note;
};

class Server
{
public:
    // Takes the port for connections and the same one for searches; 0: whichever is free. Throws a LinkError.
    Server(Device& device, const HostPort& own, const Cipher& cipher, std::function<void(const Event&)> tell);

    ~Server();
    Server(const Server&) = delete;
    Server& operator=(const Server&) = delete;

    int port() const
    {
        return m_device.port;
    }

    // Until `isEnding` is set, by a handler of a signal that is blocked but while this waits with `mask`.
    void run(const volatile std::sig_atomic_t& isEnding, const sigset_t& mask);

private:
    struct Connection;

    void acceptClient();
    void receiveFrom(Connection& client);
    void take(Connection& client, const Found& found);
    void send(Connection& client);
    void close(Connection& client, const std::string& why);
    void answerSearch();
    bool takesShare(const std::string& host);
    void dropOverdue();

    Device& m_device;
    Cipher m_cipher;
    std::function<void(const Event&)> m_tell;
    Socket m_listener;
    Socket m_searches;
    std::list<Connection> m_connections;
    // Searches of this second, by their sender's word.
    Clock::time_point m_second{};
    std::map<std::string, int> m_searchers;
};

} // namespace inspect

#endif
