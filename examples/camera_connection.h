/**
 * The camera's connections and what bounds each of them. Whoever can reach the port may try everything here,
 * so nothing that one of them does, or leaves undone, may hold up the others.
 */
#ifndef EXAMPLES_CAMERA_CONNECTION_H
#define EXAMPLES_CAMERA_CONNECTION_H

#include "camera_answers.h"
#include "demo_io.h"
#include "frame_stream.h"
#include "message_link.h"
#include "send_queue.h"

#include <chrono>
#include <cstddef>
#include <string>
#include <vector>

namespace demo {

constexpr std::size_t kMaxConnections = 8;

/** Fewer than all, so that strangers can't take every place. */
constexpr std::size_t kMaxStrangers = 4;

/** From the connection to the login, whatever comes in between. */
constexpr std::chrono::seconds kLoginLimit{4};

/** So long a stranger keeps its place when another one waits for it. */
constexpr std::chrono::milliseconds kStrangersGrace{500};

/** A client that is logged in sends a whole message, a heartbeat say, at least as often. */
constexpr std::chrono::seconds kSilenceLimit{30};

/** No message before the login is longer; afterwards kMaxPayloadBytes holds. */
constexpr int kMaxPayloadOfStranger = 4 * 1024;

struct Connection
{
    Socket socket;
    in_addr_t source = 0;
    FrameReader reader;
    SendQueue sending;
    int reads = 0; /**< that the frame under way has taken so far */
    bool cipherKnown = false;
    Cipher cipher;
    Session session;
    std::string whyClosed; /**< empty while it stands; the rest of what is queued is lost */
    Clock::time_point connectedAt;
    Clock::time_point lastMessage;

    bool isOpen() const
    {
        return whyClosed.empty();
    }
    bool isLoggedIn() const
    {
        return !session.id.empty();
    }
    /** The next message is taken when the answer to the last one has been sent. */
    bool takesMessages() const
    {
        return isOpen() && !session.closing && isIdle(sending);
    }
};

/** Queues a message and sends what can be sent at once. */
void sendTo(Connection& client, Composed message);

/** Goes on sending; for when the socket can be written to. */
void continueSending(Connection& client);

/** Takes what has come in; for when the socket can be read. */
void receiveFrom(Connection& client);

/** The next whole message of a client that takesMessages; false if there is none. It closes what isn't a
 * frame. */
bool nextMessage(Connection& client, Frame& frame);

/** Closes connections that are over one of their limits, and ends those that said their last. */
void closeOverdue(std::vector<Connection>& connections, Clock::time_point now);

/**
 * Whether a new connection may be taken now. If all places for strangers are taken, one must give way: of the
 * address that holds the most of them, the oldest, once its grace is over. So a crowd from one address
 * displaces itself, and somebody else gets in. (Against a crowd from everywhere no limit of this program
 * helps.)
 *
 * @param giveWay closed if it isn't null.
 */
bool hasPlace(std::vector<Connection>& connections, Clock::time_point now, Connection*& giveWay);

} // namespace demo

#endif
