// What strangers may try on the example camera, against the program itself on loopback. A user who is logged
// in, or wants to be, must not notice.
#include <gtest/gtest.h>

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <memory>
#include <string>
#include <thread>
#include <vector>

#include "examples/camera_connection.h"
#include "examples/client_link.h"
#include "examples/send_queue.h"
#include "examples/source_limit.h"

using namespace demo;
using namespace std::chrono_literals;

namespace {

using std::chrono::milliseconds;

// What a user may notice at most, on a machine that does something else as well.
constexpr milliseconds kPromptly = 1500ms;

milliseconds since(Clock::time_point begin)
{
    return std::chrono::duration_cast<milliseconds>(Clock::now() - begin);
}

class CameraUnderAttack : public testing::Test
{
protected:
    void SetUp() override
    {
        transcript_.reset(std::tmpfile());
        ASSERT_TRUE(transcript_);
        pid_ = ::fork();
        if (pid_ == 0) {
            ::prctl(PR_SET_PDEATHSIG, SIGKILL);
            ::dup2(::fileno(transcript_.get()), STDOUT_FILENO);
            ::execl(CAMERA_PROGRAM, CAMERA_PROGRAM, "--idle", "60", nullptr);
            ::_exit(127);
        }
        ASSERT_GT(pid_, 0);
        const Clock::time_point begin = Clock::now();
        while (transcript().find('\n') == std::string::npos && since(begin) < 5s)
            std::this_thread::sleep_for(10ms);
        unsigned port = 0;
        unsigned searchPort = 0;
        ASSERT_EQ(std::sscanf(transcript().c_str(),
                              "camera listens on 127.0.0.1:%u, to searches on 127.0.0.1:%u", &port,
                              &searchPort),
                  2);
        port_ = static_cast<std::uint16_t>(port);
        searchPort_ = static_cast<std::uint16_t>(searchPort);
    }

    // The camera has no reason to end before it is told to.
    void TearDown() override
    {
        if (pid_ <= 0)
            return;
        int status = 0;
        EXPECT_EQ(::waitpid(pid_, &status, WNOHANG), 0) << "the camera ended: " << status << transcript();
        ::kill(pid_, SIGKILL);
        ::waitpid(pid_, &status, 0);
    }

    std::string transcript() const
    {
        std::string text(1 << 20, '\0');
        const ssize_t count = ::pread(::fileno(transcript_.get()), text.data(), text.size(), 0);
        text.resize(count > 0 ? static_cast<std::size_t>(count) : 0);
        return text;
    }

    Client clientOf(const Cipher& cipher = {}) const
    {
        Client client;
        client.camera.port = port_;
        client.cipher = cipher;
        client.link.socket = connectTo(port_);
        return client;
    }

    bool entersPromptly(Client& client) const
    {
        const Clock::time_point begin = Clock::now();
        Received answer;
        return logIn(client, "admin", "correct horse", answer) && hasFlag(answer, kOk) &&
               since(begin) < kPromptly;
    }

    static bool isServedPromptly(Client& client)
    {
        const Clock::time_point begin = Clock::now();
        Received answer;
        const Composed request = composeHeartbeat(client, client.cipher);
        return exchange(client, request, answer) && isHeartbeatAnswer(answer, request) &&
               since(begin) < kPromptly;
    }

    std::size_t connections() const
    {
        SYSTEM_SEARCHIPC_1_PARAM record;
        SYSTEM_SEARCHIPC_1_PARAM_init(&record);
        Cipher plain;
        const Composed request = composeMessage(makeHeader(kSearch, "1"), &record, ZEL_KIND_REQUEST, plain);
        std::uint16_t port = 0;
        const Socket socket = datagramsOn(port);
        sendDatagram(socket, loopbackAddress(searchPort_), request.bytes.data(), request.bytes.size());
        std::vector<char> datagram(kDatagramBytes);
        std::size_t count = 0;
        sockaddr_in from{};
        if (receiveDatagram(socket, datagram.data(), datagram.size(), 1000, count, from) !=
            ReceiveState::Data)
            return SIZE_MAX;
        const Received answer = analyseMessage(datagram.data(), static_cast<int>(count), plain);
        const auto* found = recordIn<SYSTEM_SEARCHIPC_3_PARAM>(answer);
        return found ? static_cast<std::size_t>(found->stDevice.Count[0]) : SIZE_MAX;
    }

    std::uint16_t port_ = 0;
    std::uint16_t searchPort_ = 0;

private:
    struct CloseFile
    {
        void operator()(std::FILE* file) const
        {
            std::fclose(file);
        }
    };
    std::unique_ptr<std::FILE, CloseFile> transcript_;
    pid_t pid_ = -1;
};

// How long it takes until the camera is done with a connection, whose bytes nobody needs; `limit` if it
// isn't.
milliseconds untilClosed(const Socket& socket, milliseconds limit)
{
    const Clock::time_point begin = Clock::now();
    std::vector<char> buffer(1 << 16);
    std::size_t count = 0;
    while (since(begin) < limit)
        if (receiveSome(socket, buffer.data(), buffer.size(), 50, count) == ReceiveState::Closed)
            return since(begin);
    return limit;
}

// All that comes until the camera closes the connection or is silent.
std::string everythingFrom(const Socket& socket, bool& closed)
{
    std::string all;
    std::vector<char> buffer(1 << 16);
    std::size_t count = 0;
    ReceiveState state = ReceiveState::Data;
    while ((state = receiveSome(socket, buffer.data(), buffer.size(), 500, count)) == ReceiveState::Data)
        all.append(buffer.data(), count);
    closed = state == ReceiveState::Closed;
    return all;
}

// --- Who doesn't read ----------------------------------------------------------------------------

TEST_F(CameraUnderAttack, AReaderThatIsSlowHoldsNobodyUp)
{
    Client user = clientOf();
    ASSERT_TRUE(entersPromptly(user));
    // Reads too little, or nothing at all.
    for (const std::size_t sip : {1U, 0U}) {
        Client greedy;
        greedy.link.socket = Socket(::socket(AF_INET, SOCK_STREAM | SOCK_CLOEXEC, 0));
        const int window = 4096;
        ::setsockopt(greedy.link.socket.fd, SOL_SOCKET, SO_RCVBUF, &window, sizeof window);
        const sockaddr_in address = loopbackAddress(port_);
        ASSERT_EQ(
            ::connect(greedy.link.socket.fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
        ASSERT_TRUE(entersPromptly(greedy));
        MEDIA_DATA_2_PARAM wanted;
        MEDIA_DATA_2_PARAM_init(&wanted);
        setField(wanted.RemoteFileName, "/recordings/2026-03-18-0930.rec");
        wanted.StartPos = 0;
        wanted.ErrorCode = 0;
        const Composed request =
            composeMessage(requestHeader(greedy, kMediaData, "2"), &wanted, ZEL_KIND_RESPONSE, greedy.cipher);
        ASSERT_EQ(request.status, 0);
        std::vector<char> requests;
        for (int i = 0; i < 100; ++i)
            requests.insert(requests.end(), request.bytes.begin(), request.bytes.end());
        ASSERT_TRUE(sendAll(greedy.link.socket, requests.data(), requests.size()));

        const Clock::time_point begin = Clock::now();
        milliseconds closedAfter = 0ms;
        char byte = 0;
        while (closedAfter == 0ms && since(begin) < kSendLimit + 3s) {
            EXPECT_TRUE(isServedPromptly(user));
            Client other = clientOf();
            EXPECT_TRUE(entersPromptly(other));
            std::this_thread::sleep_for(50ms);
            pollfd state = {greedy.link.socket.fd, 0, 0};
            if (::poll(&state, 1, 0) > 0)
                closedAfter = since(begin);
            else
                ::recv(greedy.link.socket.fd, &byte, sip, MSG_DONTWAIT);
        }
        EXPECT_TRUE(closedAfter > kSendLimit / 2 && closedAfter < kSendLimit + 2s)
            << sip << ' ' << closedAfter.count();
    }
    EXPECT_NE(transcript().find("reads too slowly: closed"), std::string::npos);
}

// The queue itself, over a pair of sockets and with a clock of its own.
TEST(SendQueue, HasABoundAndADeadlineForEachMessage)
{
    int ends[2];
    ASSERT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_NONBLOCK, 0, ends), 0);
    const Socket camera(ends[0]);
    const Socket peer(ends[1]);
    const Clock::time_point start{};
    const auto messageOf = [](char letter) { return std::vector<char>(1000, letter); };

    SendQueue queue;
    std::size_t count = 0;
    while (enqueue(queue, messageOf(static_cast<char>('a' + count % 26)), start))
        ++count;
    EXPECT_EQ(count, kMaxQueuedBytes / 1000);
    EXPECT_FALSE(enqueue(queue, std::vector<char>(kMaxQueuedBytes + 1), start));

    std::string received;
    std::vector<char> buffer(700);
    while (!isIdle(queue)) {
        ASSERT_TRUE(sendQueued(queue, camera, start + kSendLimit - 1ms));
        std::size_t got = 0;
        while (receiveSome(peer, buffer.data(), buffer.size(), 0, got) == ReceiveState::Data)
            received.append(buffer.data(), got);
    }
    ASSERT_EQ(received.size(), count * 1000);
    for (std::size_t i = 0; i < received.size(); ++i)
        ASSERT_EQ(received[i], static_cast<char>('a' + i / 1000 % 26)) << i;
    EXPECT_EQ(queue.bytes, 0U);

    // A new message has a new deadline, and time passes for it although some of it leaves.
    ASSERT_TRUE(enqueue(queue, std::vector<char>(kMaxQueuedBytes), start + 10s));
    EXPECT_TRUE(sendQueued(queue, camera, start + 10s + kSendLimit - 1ms));
    EXPECT_GT(queue.firstSent, 0U);
    EXPECT_FALSE(sendQueued(queue, camera, start + 10s + kSendLimit));
}

// --- Messages that don't belong in a frame -------------------------------------------------------

std::vector<char> frameOf(std::string text, Cipher& cipher)
{
    Composed message;
    message.bytes.resize(ZEL_FRAME_HEAD_SIZE);
    message.bytes.insert(message.bytes.end(), text.begin(), text.end());
    ZelProtocolFrameHeadWrite(message.bytes.data(), ZEL_FRAME_PLAIN, static_cast<std::uint32_t>(text.size()));
    if (cipher.mode >= 0)
        encipherFrame(message, cipher);
    return message.bytes;
}

std::string textOf(const std::string& type, const std::string& behindHeader)
{
    return "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<MESSAGE_HEADER Msg_type=\"" + type +
           "\" Msg_code=\"1\" Msg_flag=\"0\"/>\n" + behindHeader + "</XML_ZELMAR>";
}

// Of a type that is never framed, and the same with a transparent element, which is another way to the
// answer.
TEST_F(CameraUnderAttack, BareTextsInFramesAreNotAnswered)
{
    const std::string body = "<MESSAGE_BODY>\n<SEARCH_PARAM VendorId=\"DemoWorks\"/></MESSAGE_BODY>\n";
    for (Cipher cipher : {Cipher(), exampleCipher()})
        for (const bool isUser : {false, true})
            for (const std::string& type :
                 {std::string("SYSTEM_SEARCHIPC_MESSAGE"), std::string("IPC_REPAIR_MESSAGE")}) {
                const std::string wrapped =
                    "<TRANSPARENT_HEADER Trans_Type=\"" + type + "\"/><MESSAGE_HEADER/>\n";
                for (const std::string& behind : {body, wrapped}) {
                    Client client = clientOf(cipher);
                    ASSERT_TRUE(!isUser || entersPromptly(client));
                    const std::vector<char> frame = frameOf(textOf(type, behind), cipher);
                    ASSERT_TRUE(sendAll(client.link.socket, frame.data(), frame.size()));
                    bool closed = false;
                    EXPECT_EQ(everythingFrom(client.link.socket, closed), "") << type << isUser << behind;
                    EXPECT_TRUE(closed) << type << isUser << behind;
                }
            }
}

// Wrapped in a transparent message, which a user may send, it gets an answer, but none in the clear.
TEST_F(CameraUnderAttack, BareTextsInTransparentMessagesAreRefused)
{
    Client client = clientOf(exampleCipher());
    Received login;
    ASSERT_TRUE(logIn(client, "admin", "correct horse", login));
    Cipher plain;
    const Composed inner{makeHeader(kTransparent, ""), 0,
                         frameOf(textOf("SYSTEM_SEARCHIPC_MESSAGE", ""), plain)};
    TRANSPARENT_HEADER outer;
    TRANSPARENT_HEADER_init(&outer);
    setField(outer.Trans_Type, kTransparent);
    setField(outer.Session_ID, fieldText(recordOf<USER_AUTH_CMD_USER_AUTH_PARAM>(login).Sessionid));
    ASSERT_TRUE(wrapMessage(outer, inner));
    ASSERT_TRUE(sendMessage(
        client.link, composeMessage(makeHeader(kTransparent, ""), &outer, ZEL_KIND_REQUEST, client.cipher)));
    Received answer;
    receiveMessage(client.link, client.cipher, answer);
    EXPECT_TRUE(hasType(answer, kTransparent) && hasFlag(answer, kFail));
}

// --- Who doesn't log in --------------------------------------------------------------------------

TEST_F(CameraUnderAttack, SilentConnectionsLockNobodyOut)
{
    Client user = clientOf();
    ASSERT_TRUE(entersPromptly(user));
    std::vector<Socket> silent;
    for (std::size_t i = 0; i < kMaxConnections; ++i)
        silent.push_back(connectTo(port_));
    const Clock::time_point begin = Clock::now();
    // The answer to a search tells how many connections there are: not all places are for strangers.
    EXPECT_LE(connections(), kMaxStrangers + 1);
    Client other = clientOf();
    Received answer;
    EXPECT_TRUE(logIn(other, "admin", "correct horse", answer) && hasFlag(answer, kOk));
    // Those that came before it are let in and out again in groups.
    EXPECT_LT(since(begin), 3 * kStrangersGrace + kPromptly);
    EXPECT_TRUE(isServedPromptly(user));
    for (const Socket& socket : silent)
        EXPECT_LT(untilClosed(socket, kLoginLimit + 3s), kLoginLimit + 3s);
    EXPECT_TRUE(isServedPromptly(other));
}

// Neither bytes nor whole messages win time.
TEST_F(CameraUnderAttack, OnlyALoginKeepsAPlace)
{
    Client talker = clientOf();
    Client dripper = clientOf();
    const Clock::time_point begin = Clock::now();
    std::vector<char> head(ZEL_FRAME_HEAD_SIZE);
    ZelProtocolFrameHeadWrite(head.data(), ZEL_FRAME_PLAIN, kMaxPayloadOfStranger);
    ASSERT_TRUE(sendAll(dripper.link.socket, head.data(), head.size()));
    milliseconds talkerGone = 0ms;
    milliseconds dripperGone = 0ms;
    while ((talkerGone == 0ms || dripperGone == 0ms) && since(begin) < kLoginLimit + 3s) {
        Received answer;
        if (talkerGone == 0ms && !exchange(talker, composeHeartbeat(talker, talker.cipher), answer))
            talkerGone = since(begin);
        if (dripperGone == 0ms &&
            (!sendAll(dripper.link.socket, "x", 1) || untilClosed(dripper.link.socket, 100ms) < 100ms))
            dripperGone = since(begin);
    }
    for (const milliseconds gone : {talkerGone, dripperGone}) {
        EXPECT_TRUE(gone > kLoginLimit - 1s && gone < kLoginLimit + 2s) << gone.count();
    }

    // Nor does the camera wait for a long message of a stranger.
    ZelProtocolFrameHeadWrite(head.data(), ZEL_FRAME_PLAIN, kMaxPayloadOfStranger + 1);
    const Client liar = clientOf();
    ASSERT_TRUE(sendAll(liar.link.socket, head.data(), head.size()));
    EXPECT_LT(untilClosed(liar.link.socket, kPromptly), kPromptly);
}

// --- Searches ------------------------------------------------------------------------------------

Socket datagramsFrom(std::uint32_t hostAddress)
{
    Socket socket(::socket(AF_INET, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(hostAddress);
    EXPECT_EQ(::bind(socket.fd, reinterpret_cast<const sockaddr*>(&address), sizeof address), 0);
    return socket;
}

int answersTo(const Socket& socket, int timeoutMs)
{
    std::vector<char> datagram(kDatagramBytes);
    std::size_t count = 0;
    sockaddr_in from{};
    int answers = 0;
    while (receiveDatagram(socket, datagram.data(), datagram.size(), timeoutMs, count, from) ==
           ReceiveState::Data)
        ++answers;
    return answers;
}

TEST_F(CameraUnderAttack, AFloodOfSearchesIsAnsweredAtABoundedRate)
{
    SYSTEM_SEARCHIPC_1_PARAM record;
    SYSTEM_SEARCHIPC_1_PARAM_init(&record);
    Cipher plain;
    const Composed request = composeMessage(makeHeader(kSearch, "1"), &record, ZEL_KIND_REQUEST, plain);
    const Socket victim = datagramsFrom(INADDR_LOOPBACK);
    const Socket bystander = datagramsFrom(INADDR_LOOPBACK + 1);
    const auto search = [&](const Socket& socket) {
        sendDatagram(socket, loopbackAddress(searchPort_), request.bytes.data(), request.bytes.size());
    };

    const Clock::time_point begin = Clock::now();
    int answers = 0;
    while (since(begin) < 2s) {
        for (int i = 0; i < 10; ++i)
            search(victim);
        answers += answersTo(victim, 5);
    }
    search(bystander);
    EXPECT_EQ(answersTo(bystander, 300), 1);
    // Five for each second that has begun, wherever the camera's seconds begin.
    EXPECT_GE(answers, 5);
    EXPECT_LE(answers, 5 * (since(begin) / 1s + 2));
    EXPECT_NE(transcript().find("searches beyond the limit"), std::string::npos);
}

TEST(SourceLimit, BoundsEachSourceAndTheirNumber)
{
    const Clock::time_point start = Clock::time_point() + 10s;
    SourceLimit limit{2, 3, {}, {}, 0};
    renewLimit(limit, start);
    for (const in_addr_t address : {1U, 2U, 3U})
        for (const bool expected : {true, true, false})
            EXPECT_EQ(takeShare(limit, address), expected) << address;
    EXPECT_FALSE(takeShare(limit, 4));
    EXPECT_EQ(renewLimit(limit, start + 999ms), 0);
    EXPECT_FALSE(takeShare(limit, 1));
    EXPECT_EQ(renewLimit(limit, start + 1s), 5);
    EXPECT_TRUE(takeShare(limit, 4));
}

} // namespace
