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
#include "camera_device.h"
#include "demo_io.h"
#include "frame_stream.h"
#include "message_link.h"

#include <poll.h>

#include <array>
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
using demo::Received;

constexpr const char* kWho = "camera";
constexpr std::size_t kMaxConnections = 8;
constexpr std::chrono::seconds kSilenceLimit{30};

struct Options
{
    std::uint16_t port = 0;
    int clients = 0; /**< 0: any number */
    int idleSeconds = 60;
};

struct Connection
{
    demo::Socket socket;
    demo::FrameReader reader;
    int reads = 0; /**< that the frame under way has taken so far */
    bool cipherKnown = false;
    Cipher cipher;
    demo::Session session;
    bool leaving = false;
    Clock::time_point lastHeard;
};

struct Camera
{
    demo::Service service;
    demo::Socket searches;
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

void sendTo(Camera& camera, Connection& client, const Composed& message)
{
    demo::printSent(kWho, message, "");
    camera.failed = camera.failed || message.status != 0;
    if (message.status != 0 || !demo::sendAll(client.socket, message.bytes.data(), message.bytes.size())) {
        demo::printNote(kWho, "nothing could be sent: closed");
        client.leaving = true;
    }
}

/** Alarms go to everybody who is logged in, whoever moved the camera. */
void sendAlarms(Camera& camera)
{
    const std::vector<demo::Face> faces = std::exchange(camera.service.device.newFaces, {});
    for (const demo::Face& face : faces)
        for (Connection& client : camera.connections)
            if (!client.session.id.empty() && !client.leaving)
                sendTo(camera, client, demo::faceAlarm(face, client.cipher));
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
        demo::printNote(kWho, "plain and enciphered frames on one connection: closed");
        client.leaving = true;
        return;
    }

    const Received request = demo::analyseFrame(frame, client.cipher);
    std::string note;
    if (client.reads != 1)
        note = client.reads == 0 ? "joined with the one before"
                                 : "in " + std::to_string(client.reads) + " reads";
    demo::printReceived(kWho, request, note);
    if (!isReadable(request)) {
        demo::printNote(kWho, "unreadable message: closed");
        client.leaving = true;
        return;
    }

    camera.service.connections = camera.connections.size();
    sendTo(camera, client, demo::answerMessage({camera.service, client.session, request, client.cipher}));
    client.leaving = client.leaving || client.session.closing;
    sendAlarms(camera);
}

/** A search is a bare text in a datagram of its own. What isn't one gets no answer. */
void handleSearch(Camera& camera)
{
    std::vector<char> datagram(demo::kDatagramBytes);
    std::size_t count = 0;
    sockaddr_in from{};
    if (demo::receiveDatagram(camera.searches, datagram.data(), datagram.size(), 0, count, from) !=
        demo::ReceiveState::Data)
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

/** Called when something is there to read. */
void readFrom(Camera& camera, Connection& client)
{
    std::array<char, 16 * 1024> buffer;
    std::size_t count = 0;
    const demo::ReceiveState state = demo::receiveSome(client.socket, buffer.data(), buffer.size(), 0, count);
    if (state == demo::ReceiveState::Timeout)
        return;
    if (state == demo::ReceiveState::Closed) {
        client.leaving = true;
        return;
    }
    client.lastHeard = Clock::now();
    ++client.reads;
    demo::addReceived(client.reader, buffer.data(), count);

    demo::Frame frame;
    demo::FrameState found = demo::FrameState::NeedMore;
    bool answered = false;
    while (!client.leaving && (found = demo::nextFrame(client.reader, frame)) == demo::FrameState::Complete) {
        handleFrame(camera, client, frame);
        client.reads = 0;
        answered = true;
    }
    if (found == demo::FrameState::Refused) {
        demo::printNote(kWho, "no frame, or one of a wrong length: closed");
        client.leaving = true;
    } else if (answered && demo::waitingBytes(client.reader) > 0) {
        client.reads = 1;
    }
}

void acceptClient(Camera& camera)
{
    Connection client;
    client.socket = demo::acceptFrom(camera.listener);
    client.lastHeard = Clock::now();
    if (!client.socket.isOpen())
        return;
    demo::printNote(kWho, "connected");
    camera.connections.push_back(std::move(client));
}

void dropLeaving(Camera& camera)
{
    std::vector<Connection> staying;
    for (Connection& client : camera.connections) {
        if (!client.leaving && Clock::now() - client.lastHeard < kSilenceLimit) {
            staying.push_back(std::move(client));
            continue;
        }
        demo::printNote(kWho, client.session.id.empty() ? "left without a login" : "client left");
        if (!client.session.id.empty())
            ++camera.clientsServed;
    }
    camera.connections = std::move(staying);
}

/** One turn: waits a moment for something to read and deals with it. */
void turn(Camera& camera)
{
    std::vector<pollfd> wanted;
    for (const Connection& client : camera.connections)
        wanted.push_back({client.socket.fd, POLLIN, 0});
    wanted.push_back({camera.searches.fd, POLLIN, 0});
    if (camera.connections.size() < kMaxConnections)
        wanted.push_back({camera.listener.fd, POLLIN, 0});
    if (::poll(wanted.data(), wanted.size(), 200) <= 0) {
        dropLeaving(camera);
        return;
    }

    const std::size_t served = camera.connections.size();
    for (std::size_t i = 0; i < served; ++i)
        if (wanted[i].revents != 0)
            readFrom(camera, camera.connections[i]);
    if (wanted[served].revents != 0)
        handleSearch(camera);
    if (wanted.size() > served + 1 && wanted[served + 1].revents != 0)
        acceptClient(camera);
    dropLeaving(camera);
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
