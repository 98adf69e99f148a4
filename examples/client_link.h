/**
 * The client's connection: requests out, answers in, alarms whenever they come.
 */
#ifndef EXAMPLES_CLIENT_LINK_H
#define EXAMPLES_CLIENT_LINK_H

#include "demo_io.h"
#include "frame_stream.h"
#include "message_link.h"

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

constexpr const char* kClientName = "client";
constexpr int kAnswerMs = 3000;         /**< for a whole message, however its bytes come */
constexpr std::size_t kMaxAlarms = 100; /**< that wait while an answer is awaited */

struct Link
{
    Socket socket;
    FrameReader reader;
    std::FILE* recording = nullptr; /**< gets all that is received */
    bool isQuiet = false;           /**< leaves the messages out of the transcript */
};

/** What a search found. */
struct FoundCamera
{
    std::string serial;
    std::string model;
    std::string firmware;
    std::uint64_t features = 0;
    std::uint16_t port = 0; /**< for connections */
};

struct Client
{
    std::uint16_t searchPort = 0;
    FoundCamera camera;
    Cipher cipher;
    Link link;
    std::string session;
    int requests = 0;                     /**< numbered in Msg_uuid */
    std::vector<std::string> resolutions; /**< that the camera's abilities name */
    std::vector<Received> alarms;         /**< that came while an answer was awaited */
};

ZEL_PROTOCOL_HEADER requestHeader(Client& client, std::string_view type, std::string_view code);

/** With a number of its own. `record` is null for a query without parameters. */
Composed composeRequest(Client& client, std::string_view type, std::string_view code, const void* record);

bool sendMessage(const Link& link, const Composed& message);

/** Takes the next message, whatever it is; false if none comes, or it can't be read. */
bool receiveMessage(Link& link, Cipher& cipher, Received& message);

/** Takes the next message that isn't an alarm; alarms are put aside. */
bool receiveAnswer(Client& client, Received& answer);

/** Takes the first alarm that was put aside, or waits for one. */
bool receiveAlarm(Client& client, Received& alarm);

/** Whether `answer` has the request's type, code and number. */
bool belongsTo(const Received& answer, const Composed& request);

/** Sends a request and receives what belongs to it. */
bool exchange(Client& client, const Composed& request, Received& answer);

/** The same with an answer that says OK and has a record. */
bool ask(Client& client, std::string_view type, std::string_view code, const void* record, Received& answer);

/** Tries to log in; the answer tells whether it went well. */
bool logIn(Client& client, std::string_view user, std::string_view password, Received& answer);

Composed composeHeartbeat(Client& client, Cipher& cipher);
bool isHeartbeatAnswer(const Received& answer, const Composed& request);

} // namespace demo

#endif
