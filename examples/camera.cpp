/**
 * A small camera: it takes connections, lets users log in and answers their messages.
 *
 *   camera [port] [--once | --clients N] [--idle SECONDS]
 *
 * Without a port, or with 0, it takes a free one and prints it. It ends when N clients have logged in and
 * left (--once: one), or when nobody has been connected for the idle time (60 seconds). The exit status is 0
 * if all of these clients came and every answer could be composed.
 *
 * It listens on the loopback interface only.
 */
#include "demo_io.h"
#include "frame_stream.h"
#include "message_link.h"

#include <poll.h>
#include <sys/random.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

using demo::Cipher;
using demo::Composed;
using demo::Received;
using Clock = std::chrono::steady_clock;

constexpr const char* kWho = "camera";
constexpr std::size_t kMaxConnections = 8;
constexpr int kMaxWrongPasswords = 3;
constexpr std::chrono::seconds kSilenceLimit{30};

struct Options
{
    std::uint16_t port = 0;
    int clients = 0; /**< 0: any number */
    int idleSeconds = 60;
};

/** A product keeps a salted hash in place of the password. */
struct User
{
    std::string name;
    std::string password;
    std::string group;
};

struct Connection
{
    demo::Socket socket;
    demo::FrameReader reader;
    int reads = 0; /**< that the frame under way has taken so far */
    bool cipherKnown = false;
    Cipher cipher;
    std::string session; /**< empty before the login */
    int wrongPasswords = 0;
    bool leaving = false;
    Clock::time_point lastHeard;
};

struct Camera
{
    std::vector<User> users;
    int channels = 1;
    demo::Socket listener;
    std::vector<Connection> connections;
    Clock::time_point lastBusy;
    int clientsServed = 0;
    bool failed = false; /**< an answer could not be composed */
};

/** Looks at every byte of both texts, so that the time taken tells nothing about where they differ. */
bool sameSecret(std::string_view expected, std::string_view given)
{
    unsigned difference = expected.size() == given.size() ? 0 : 1;
    for (std::size_t i = 0; i < given.size() && !expected.empty(); ++i)
        difference |= static_cast<unsigned char>(given[i] ^ expected[i % expected.size()]);
    return difference == 0;
}

const User* findUser(const Camera& camera, std::string_view name, std::string_view password)
{
    for (const User& user : camera.users)
        if (user.name == name && sameSecret(user.password, password))
            return &user;
    return nullptr;
}

/** Empty when the system gave no random bytes. */
std::string newSession()
{
    std::array<unsigned char, 12> random;
    if (::getentropy(random.data(), random.size()) != 0)
        return {};
    std::string session;
    for (const unsigned char byte : random) {
        session += "0123456789abcdef"[byte >> 4];
        session += "0123456789abcdef"[byte & 15];
    }
    return session;
}

/** The request's own type, code and Msg_uuid: with it a client tells which answer belongs to which request.
 */
ZEL_PROTOCOL_HEADER answerHeader(const Received& request, std::string_view flag)
{
    ZEL_PROTOCOL_HEADER header = demo::makeHeader("", "");
    demo::echoField(header.Msg_type, request.header.Msg_type);
    demo::echoField(header.Msg_code, request.header.Msg_code);
    demo::echoField(header.Msg_uuid, request.header.Msg_uuid);
    demo::echoField(header.Msg_chn, request.header.Msg_chn);
    demo::setField(header.Msg_flag, flag);
    return header;
}

Composed refuse(const Received& request, Cipher& cipher)
{
    return demo::composeMessage(answerHeader(request, demo::kFail), nullptr, demo::kResponse, cipher);
}

/** A wrong password is answered like an unknown user: "FAIL", and neither a session nor a number of channels.
 */
Composed onLogin(Camera& camera, Connection& client, const Received& request, Cipher& cipher)
{
    const auto& login = demo::recordOf<USER_AUTH_CMD_USER_AUTH_PARAM>(request);
    const User* user = findUser(camera, demo::fieldText(login.Username), demo::fieldText(login.Password));
    const std::string session = user ? newSession() : std::string();
    if (session.empty()) {
        client.leaving = ++client.wrongPasswords == kMaxWrongPasswords;
        return refuse(request, cipher);
    }
    client.session = session;

    USER_AUTH_CMD_USER_AUTH_PARAM answer;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&answer);
    answer.MAXChannels = camera.channels;
    answer.Version = 1;
    demo::setField(answer.Sessionid, client.session);
    demo::setField(answer.Group, user->group);
    return demo::composeMessage(answerHeader(request, demo::kOk), &answer, demo::kResponse, cipher);
}

Composed onHeartbeat(const Camera& camera, const Received& request, Cipher& cipher)
{
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM answer;
    ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(&answer);
    demo::setField(answer.Ipcs_stat, "ready");
    demo::setField(answer.streamstat, std::to_string(camera.connections.size()) + " connected");
    return demo::composeMessage(answerHeader(request, demo::kOk), &answer, demo::kResponse, cipher);
}

/** Finds the function for a message. All but the login needs a session. */
Composed answerMessage(Camera& camera, Connection& client, const Received& request, Cipher& cipher)
{
    if (request.result != 0)
        return refuse(request, cipher);
    if (demo::hasType(request, demo::kUserAuth))
        return onLogin(camera, client, request, cipher);
    if (client.session.empty())
        return refuse(request, cipher);
    if (demo::hasType(request, demo::kHeartbeat))
        return onHeartbeat(camera, request, cipher);
    return refuse(request, cipher);
}

/**
 * Answers the message inside a transparent one and wraps the answer likewise.
 *
 * The inner message is never unwrapped once more: one that brings a transparent header of its own would wrap
 * itself without end. answerMessage refuses it, because its result isn't 0.
 */
Composed onTransparent(Camera& camera, Connection& client, const Received& request, Cipher& cipher)
{
    const auto& outer = demo::recordOf<TRANSPARENT_HEADER>(request);
    const bool allowed = !client.session.empty() && demo::fieldText(outer.Session_ID) == client.session;

    const Received inner = demo::unwrapMessage(outer);
    demo::printReceived(kWho, inner, "inside");
    Cipher plain;
    const Composed innerAnswer = allowed ? answerMessage(camera, client, inner, plain) : refuse(inner, plain);
    demo::printSent(kWho, innerAnswer, "inside");

    TRANSPARENT_HEADER answer;
    TRANSPARENT_HEADER_init(&answer);
    demo::setField(answer.Trans_Type, demo::kTransparent);
    demo::echoField(answer.Channel_ID, outer.Channel_ID);
    demo::echoField(answer.Session_ID, outer.Session_ID);
    demo::setField(answer.Source_Type, "CAMERA");
    demo::setField(answer.Trans_Result, demo::fieldText(innerAnswer.header.Msg_flag));
    if (!demo::wrapMessage(answer, innerAnswer))
        return refuse(request, cipher);
    return demo::composeMessage(demo::makeHeader(demo::kTransparent, ""), &answer, demo::kResponse, cipher);
}

/** A message that can't be read, or isn't enciphered as agreed, ends the connection. */
bool isReadable(const Received& request)
{
    return request.result >= 0 || request.result == ZEL_ERR_UNKNOWN_MSG;
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

    const Composed answer = request.result > 0 ? onTransparent(camera, client, request, client.cipher)
                                               : answerMessage(camera, client, request, client.cipher);
    demo::printSent(kWho, answer, "");
    camera.failed = camera.failed || answer.status != 0;
    if (answer.status != 0 || !demo::sendAll(client.socket, answer.bytes.data(), answer.bytes.size())) {
        demo::printNote(kWho, "no answer could be sent: closed");
        client.leaving = true;
    }
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
        demo::printNote(kWho, client.session.empty() ? "left without a login" : "client left");
        if (!client.session.empty())
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
    if (wanted.size() > served && wanted[served].revents != 0)
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

    Camera camera;
    camera.users = {{"admin", "correct horse", "Administrators"}, {"guest", "battery staple", "Viewers"}};
    camera.listener = demo::listenOn(options.port);
    if (!camera.listener.isOpen()) {
        std::perror("camera: can't listen");
        return 1;
    }
    demo::printLine("camera listens on 127.0.0.1:" + std::to_string(options.port));

    camera.lastBusy = Clock::now();
    while (!isDone(camera, options))
        turn(camera);

    const bool allCame = camera.clientsServed >= options.clients;
    demo::printNote(kWho, "ends after " + std::to_string(camera.clientsServed) + " clients" +
                              (allCame ? "" : ", too few came") +
                              (camera.failed ? ", an answer failed" : ""));
    return allCame && !camera.failed ? 0 : 1;
}
