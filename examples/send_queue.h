/**
 * What waits to be sent on one connection. A server that waits in `send` serves nobody else meanwhile, and a
 * peer that reads a byte now and then can make it wait for ever. So nothing here waits: what the system
 * doesn't take at once stays in a queue of bounded size, and each message has a deadline. A peer for whom
 * either is exceeded is to be cut off.
 */
#ifndef EXAMPLES_SEND_QUEUE_H
#define EXAMPLES_SEND_QUEUE_H

#include "demo_io.h"

#include <chrono>
#include <cstddef>
#include <deque>
#include <utility>
#include <vector>

namespace demo {

/** Room for the largest answer, and then for some hundred alarms. */
constexpr std::size_t kMaxQueuedBytes = 512 * 1024;

/** From the moment that a message is queued until the system has taken its last byte. */
constexpr std::chrono::seconds kSendLimit{3};

struct QueuedMessage
{
    std::vector<char> bytes;
    Clock::time_point deadline;
};

struct SendQueue
{
    std::deque<QueuedMessage> messages;
    std::size_t firstSent = 0; /**< bytes of the first message that are on their way */
    std::size_t bytes = 0;     /**< of all messages, sent or not */
};

inline bool isIdle(const SendQueue& queue)
{
    return queue.messages.empty();
}

/** @return false, with nothing queued, if too much would wait. */
inline bool enqueue(SendQueue& queue, std::vector<char> message, Clock::time_point now)
{
    if (message.size() > kMaxQueuedBytes - queue.bytes)
        return false;
    queue.bytes += message.size();
    queue.messages.push_back({std::move(message), now + kSendLimit});
    return true;
}

/** Sends what the system takes now. @return false if the connection is gone or a deadline is over. */
inline bool sendQueued(SendQueue& queue, const Socket& socket, Clock::time_point now)
{
    while (!queue.messages.empty()) {
        const QueuedMessage& first = queue.messages.front();
        const ssize_t sent =
            sendSome(socket, first.bytes.data() + queue.firstSent, first.bytes.size() - queue.firstSent);
        if (sent < 0)
            return false;
        queue.firstSent += static_cast<std::size_t>(sent);
        if (queue.firstSent < first.bytes.size())
            return now < first.deadline;
        queue.bytes -= first.bytes.size();
        queue.firstSent = 0;
        queue.messages.pop_front();
    }
    return true;
}

} // namespace demo

#endif
