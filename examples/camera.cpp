/**
 * A small camera: it answers searches, takes connections, lets users log in and answers their messages, and
 * reports a face whenever it has been moved.
 *
 *   camera [port] [--once | --clients N] [--idle SECONDS]
 *
 * Without a port for connections, or with 0, it takes a free one. It prints that port and the one for
 * searches, which is a free one in any case. It ends when N clients have logged in and left (--once: one), or
 * when nobody has been connected for the idle time (60 seconds). The exit status is 0 if all of these clients
 * came and every answer could be composed.
 *
 * It listens on the loopback interface only.
 */
#include "camera_answers.h"
#include "camera_connection.h"
#include "camera_device.h"
#include "demo_io.h"
#include "frame_stream.h"
#include "message_link.h"
#include "source_limit.h"

#include <poll.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace {

using demo::Cipher;
using demo::Clock;
using demo::Composed;
using demo::Connection;
using demo::Received;

constexpr const char* kWho = "camera";

/** What the system keeps for a client that doesn't read, on top of the queue of its connection. */
constexpr int kSystemBufferBytes = 128 * 1024;

/**
 * Searches that are read, for each address and for how many addresses in a second.
 *
 * An answer is seven times as long as its question, and a datagram's source is whatever its sender wrote
 * there. So whoever forges it has this camera shoot at somebody else with seven times his own force. A client
 * searches now and then; with these limits nobody gets more than a few kilobytes in a second from here,
 * wanted or not, and a flood of questions costs no more than its reception. Nothing is remembered for an
 * address beyond the second.
 */
constexpr int kSearchesForEach = 5;
constexpr std::size_t kSearchingSources = 32;

/** No search is longer. */
constexpr std::size_t kMaxSearchBytes = 4 * 1024;

struct Options
{
    std::uint16_t port = 0;
    int clients = 0; /**< 0: any number */
    int idleSeconds = 60;
};

struct Camera
{
    demo::Service service;
    demo::Socket searches;
    demo::SourceLimit searchLimit{kSearchesForEach, kSearchingSources, {}, {}, 0};
    demo::Socket listener;
    std::vector<Connection> connections;
    Clock::time_point lastBusy;
    int clientsServed = 0;
    bool failed = false; /**< a message could not be composed */
};

/** A message that can't be read, or isn't enciphered as agreed, ends the connection. */
bool isReadable(const Received& request)
{
    return request.result >= 0 || request.result == ZEL_ERR_UNKNOWN_MSG || demo::isHeaderAlone(request);
}

void sendComposed(Camera& camera, Connection& client, Composed message)
{
    camera.failed = camera.failed || message.status != 0;
    demo::sendTo(client, std::move(message));
}

/** Alarms go to everybody who is logged in, whoever moved the camera. */
void sendAlarms(Camera& camera)
{
    const std::vector<demo::Face> faces = std::exchange(camera.service.device.newFaces, {});
    for (const demo::Face& face : faces)
        for (Connection& client : camera.connections)
            if (client.isLoggedIn() && client.isOpen())
                sendComposed(camera, client, demo::faceAlarm(face, client.cipher));
}

/** How many reads it took to get the message. */
std::string readsNote(const Connection& client)
{
    if (client.reads == 1)
        return "";
    return client.reads == 0 ? "joined with the one before" : "in " + std::to_string(client.reads) + " reads";
}

void handleFrame(Camera& camera, Connection& client, const demo::Frame& frame)
{
    if (!client.cipherKnown) {
        // The client chooses. A camera in a foreign network would take enciphered frames only.
        if (frame.enciphered)
            client.cipher = demo::exampleCipher();
        client.cipherKnown = true;
    }
    if (frame.enciphered != (client.cipher.mode >= 0)) {
        client.whyClosed = "plain and enciphered frames on one connection: closed";
        return;
    }

    const Received request = demo::analyseFrame(frame, client.cipher);
    demo::printReceived(kWho, request, readsNote(client));
    if (!isReadable(request)) {
        client.whyClosed = "unreadable message: closed";
        return;
    }
    // Its answer would be the bare text of a datagram, in the clear whatever this connection agreed on.
    if (demo::isBare(request.header)) {
        client.whyClosed = "a datagram's message in a frame: closed";
        return;
    }

    camera.service.connections = camera.connections.size();
    sendComposed(camera, client,
                 demo::answerMessage({camera.service, client.session, request, client.cipher}));
    sendAlarms(camera);
}

/** Stops where an answer has to wait, and goes on when it has left. */
void handleFrames(Camera& camera, Connection& client)
{
    demo::Frame frame;
    bool answered = false;
    while (demo::nextMessage(client, frame)) {
        handleFrame(camera, client, frame);
        client.reads = 0;
        answered = true;
    }
    if (answered && demo::waitingBytes(client.reader) > 0)
        client.reads = 1;
}

/** A search is a bare text in a datagram of its own. What isn't one gets no answer. */
void handleSearch(Camera& camera)
{
    std::vector<char> datagram(demo::kDatagramBytes);
    std::size_t count = 0;
    sockaddr_in from{};
    if (demo::receiveDatagram(camera.searches, datagram.data(), datagram.size(), 0, count, from) !=
            demo::ReceiveState::Data ||
        !demo::takeShare(camera.searchLimit, from.sin_addr.s_addr) || count > kMaxSearchBytes)
        return;
    Cipher plain;
    const Received request = demo::analyseMessage(datagram.data(), static_cast<int>(count), plain);
    demo::printReceived(kWho, request, "datagram");
    camera.service.connections = camera.connections.size();
    const Composed answer = demo::answerSearch(camera.service, request);
    camera.failed = camera.failed || answer.status != 0;
    if (answer.bytes.empty())
        return;
    demo::printSent(kWho, answer, "datagram");
    demo::sendDatagram(camera.searches, from, answer.bytes.data(), answer.bytes.size());
}

void acceptClient(Camera& camera)
{
    Connection* giveWay = nullptr;
    if (!demo::hasPlace(camera.connections, Clock::now(), giveWay))
        return;
    Connection client;
    sockaddr_in from{};
    client.socket = demo::acceptFrom(camera.listener, kSystemBufferBytes, from);
    if (!client.socket.isOpen())
        return;
    if (giveWay)
        giveWay->whyClosed = "gives way to another client: closed";
    client.source = from.sin_addr.s_addr;
    client.connectedAt = client.lastMessage = Clock::now();
    demo::printNote(kWho, "connected");
    camera.connections.push_back(std::move(client));
}

void dropClosed(Camera& camera)
{
    demo::closeOverdue(camera.connections, Clock::now());
    std::vector<Connection> staying;
    for (Connection& client : camera.connections) {
        if (client.isOpen()) {
            staying.push_back(std::move(client));
            continue;
        }
        demo::printNote(kWho, client.whyClosed);
        if (!demo::isIdle(client.sending))
            demo::abortStream(client.socket);
        if (client.isLoggedIn())
            ++camera.clientsServed;
    }
    camera.connections = std::move(staying);
}

/** One turn: waits a moment until something can be read or sent, and deals with it. Nothing else here waits.
 */
void turn(Camera& camera)
{
    std::vector<pollfd> wanted;
    for (const Connection& client : camera.connections)
        wanted.push_back(
            {client.socket.fd, static_cast<short>(demo::isIdle(client.sending) ? POLLIN : POLLOUT), 0});
    wanted.push_back({camera.searches.fd, POLLIN, 0});
    Connection* giveWay = nullptr;
    if (demo::hasPlace(camera.connections, Clock::now(), giveWay))
        wanted.push_back({camera.listener.fd, POLLIN, 0});
    if (::poll(wanted.data(), wanted.size(), 100) > 0) {
        const std::size_t served = camera.connections.size();
        for (std::size_t i = 0; i < served; ++i) {
            Connection& client = camera.connections[i];
            if (wanted[i].revents == 0 || !client.isOpen())
                continue;
            if (demo::isIdle(client.sending))
                demo::receiveFrom(client);
            else
                demo::continueSending(client);
        }
        // All of them: an answer that had to wait may have left with somebody else's alarm.
        for (Connection& client : camera.connections)
            handleFrames(camera, client);
        if (wanted[served].revents != 0)
            handleSearch(camera);
        if (wanted.size() > served + 1 && wanted[served + 1].revents != 0)
            acceptClient(camera);
    }
    if (const int dropped = demo::renewLimit(camera.searchLimit, Clock::now()))
        demo::printNote(kWho, "searches beyond the limit: " + std::to_string(dropped));
    dropClosed(camera);
}

bool isDone(Camera& camera, const Options& options)
{
    if (!camera.connections.empty()) {
        camera.lastBusy = Clock::now();
        return false;
    }
    if (options.clients > 0 && camera.clientsServed >= options.clients)
        return true;
    return Clock::now() - camera.lastBusy >= std::chrono::seconds(options.idleSeconds);
}

bool readOptions(int argc, char** argv, Options& options)
{
    for (int i = 1; i < argc; ++i) {
        const std::string_view option = argv[i];
        const std::string_view value = i + 1 < argc ? argv[i + 1] : "";
        int number = 0;
        if (option == "--once") {
            options.clients = 1;
        } else if (option == "--clients" && demo::readNumber(value, 1000, options.clients)) {
            ++i;
        } else if (option == "--idle" && demo::readNumber(value, 24 * 3600, options.idleSeconds)) {
            ++i;
        } else if (demo::readNumber(option, 65535, number)) {
            options.port = static_cast<std::uint16_t>(number);
        } else {
            return false;
        }
    }
    return true;
}

} // namespace

int main(int argc, char** argv)
{
    Options options;
    if (!readOptions(argc, argv, options)) {
        std::fprintf(stderr, "usage: camera [port] [--once | --clients N] [--idle SECONDS]\n");
        return 2;
    }

    // The transcript has the status of every message; the log would call each query without parameters an
    // error.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);

    Camera camera;
    camera.service.device = demo::makeDevice();
    camera.service.users = {{"admin", "correct horse", "Administrators", true},
                            {"guest", "battery staple", "Viewers", false}};
    std::uint16_t searchPort = 0;
    camera.listener = demo::listenOn(options.port);
    camera.searches = demo::datagramsOn(searchPort);
    if (!camera.listener.isOpen() || !camera.searches.isOpen()) {
        std::perror("camera: can't listen");
        return 1;
    }
    camera.service.port = options.port;
    demo::printLine("camera listens on 127.0.0.1:" + std::to_string(options.port) +
                    ", to searches on 127.0.0.1:" + std::to_string(searchPort));

    camera.lastBusy = Clock::now();
    while (!isDone(camera, options))
        turn(camera);

    const bool allCame = camera.clientsServed >= options.clients;
    demo::printNote(kWho, "ends after " + std::to_string(camera.clientsServed) + " clients" +
                              (allCame ? "" : ", too few came") +
                              (camera.failed ? ", an answer failed" : ""));
    return allCame && !camera.failed ? 0 : 1;
}
