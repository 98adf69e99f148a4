// Devices are found, asked and stood in for, over loopback and bounded in time.
#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <functional>
#include <thread>

#include <gtest/gtest.h>

#include "inspect/device.h"
#include "inspect/json.h"
#include "inspect/link.h"
#include "inspect/sample.h"
#include "run_zel.h"
#include "zel_protocol/zel_protocol.h"

namespace {

using namespace inspect;
using test::Folder;
using test::Ran;
using test::runZel;

// A program that runs beside the test, until its end.
class Running
{
public:
    explicit Running(const std::string& command)
        : m_out(::popen(("echo $$; exec " + command + " 2>&1").c_str(), "r"))
    {
        m_pid = std::atoi(line().c_str());
    }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;
    ~Running()
    {
        stop(SIGKILL);
    }

    std::string line()
    {
        char text[4096] = "";
        return m_out && std::fgets(text, sizeof text, m_out) ? text : "";
    }

    // Its exit status.
    int stop(int signal)
    {
        if (!m_out)
            return -1;
        ::kill(m_pid, signal);
        while (!line().empty()) { // all that it has to say
        }
        const int status = ::pclose(m_out);
        m_out = nullptr;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

private:
    std::FILE* m_out;
    int m_pid = 0;
};

std::string afterLast(const std::string& text, char sign)
{
    return text.substr(text.rfind(sign) + 1);
}

// zel serve, and where it is.
struct Serving
{
    Running program;
    std::string at;

    explicit Serving(const std::string& options) : program("'" ZEL_PROGRAM "' serve " + options)
    {
        const std::string line = program.line();
        const std::size_t begin = line.find("127.0.0.1:");
        EXPECT_NE(begin, std::string::npos) << line;
        if (begin != std::string::npos)
            at = line.substr(begin, line.find(',') - begin);
    }
};

TEST(Device, AnswersTheWholeCatalogue)
{
    Device device;
    device.hasSamples = true;
    Session session;
    Cipher plain;
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        SCOPED_TRACE(nameOf(index));
        const Message sample = sampleMessage(index, ZEL_KIND_REQUEST);
        const Bytes bytes = compose(sample, plain).bytes;
        const Analysed question =
            analyse(bytes.substr(sample.entry.is_bare != 0 ? 0 : ZEL_FRAME_HEAD_SIZE), plain);
        const std::optional<Message> answer = device.answer(question, session);
        const std::string_view code = textOf(sample.header.Msg_code);
        const bool isFound = std::string_view(sample.entry.Msg_type) == "SYSTEM_SEARCHIPC_MESSAGE" &&
                             (code == "3" || code == "21");
        ASSERT_EQ(answer.has_value(), !isFound);
        if (!answer)
            continue;
        const Composed composed = compose(*answer, plain);
        EXPECT_EQ(composed.status, 0) << composed.problem;
        EXPECT_EQ(textOf(answer->header.Msg_type), sample.entry.Msg_type);
    }
}

TEST(Device, TakesOverWhatItIsTold)
{
    Device device;
    device.user = "admin";
    device.password = "horse";
    Session session;
    const auto ask = [&](const Message& message) {
        Cipher plain;
        return *device.answer(analyse(compose(message, plain).bytes.substr(ZEL_FRAME_HEAD_SIZE), plain),
                              session);
    };
    const auto login = [&](const char* password) {
        Message message = makeMessage(findMessages("USER_AUTH_MESSAGE").front(), ZEL_KIND_REQUEST);
        setField(message, "Username", "admin", {});
        setField(message, "Password", password, {});
        return ask(message);
    };
    Message setting = makeMessage(findMessages("SYSTEM_CONFIG_SET_MESSAGE/520").front(), ZEL_KIND_REQUEST);
    setField(setting, "Title", "door", {});
    Message query = makeMessage(findMessages("SYSTEM_CONFIG_GET_MESSAGE/500").front(), ZEL_KIND_REQUEST);
    query.record = nullptr;

    EXPECT_EQ(textOf(ask(setting).header.Msg_flag), "FAIL");
    EXPECT_EQ(textOf(login("cow").header.Msg_flag), "FAIL");
    EXPECT_EQ(textOf(ask(query).header.Msg_flag), "FAIL");
    const Message welcome = login("horse");
    EXPECT_EQ(textOf(welcome.header.Msg_flag), "OK");
    EXPECT_EQ(toJson(welcome, {})["record"]["Sessionid"], "***");
    EXPECT_EQ(textOf(ask(setting).header.Msg_flag), "OK");
    EXPECT_EQ(toJson(ask(query), {})["record"]["Title"], "door");
}

// Absent values of a setting leave what there is, and the last row that it has is the last one there is.
TEST(Device, KeepsWhatASettingDoesNotTell)
{
    Device device;
    device.hasSamples = true;
    Session session;
    const auto ask = [&](const Message& message) {
        Cipher plain;
        return toJson(*device.answer(
                          analyse(compose(message, plain).bytes.substr(ZEL_FRAME_HEAD_SIZE), plain), session),
                      {})["record"];
    };
    const auto messageOf = [](const char* name) {
        return makeMessage(findMessages(name).front(), ZEL_KIND_REQUEST);
    };
    Message query = messageOf("SYSTEM_CONFIG_GET_MESSAGE/500");
    query.record = nullptr;
    Json expected = ask(query);
    ASSERT_EQ(expected["stMaskRows"].size(), 2u);
    Message setting = messageOf("SYSTEM_CONFIG_SET_MESSAGE/520");
    setField(setting, "Title", "door", {});
    setField(setting, "WDRStartTime[1]", "30", {});
    setField(setting, "stMaskRows[0].Area2PosX", "7", {});
    ask(setting);
    expected["Title"] = "door";
    expected["WDRStartTime"] = {nullptr, 30};
    expected["stMaskRows"].erase(1);
    expected["stMaskRows"][0]["Area2PosX"] = 7;
    EXPECT_EQ(ask(query), expected);
}

TEST(ZelServe, AnswersCallsPlainAndEnciphered)
{
    const Folder folder;
    folder.write("key", std::string(64, 'a'));
    folder.write("version.json",
                 R"({"type":"SYSTEM_CONTROL_MESSAGE","code":"1012","record":{"KernelVersion":"V9"}})");
    Serving serving("--json --key-file '" + (folder.path / "key").string() + "' --records '" +
                    folder.path.string() + "'");
    const std::string call = "call --json " + serving.at + " SYSTEM_CONTROL_MESSAGE/1012";
    for (const char* const cipher : {"", " --key-file key"}) {
        const Ran ran = runZel(folder, call + cipher);
        EXPECT_EQ(ran.status, 0) << ran.err;
        EXPECT_EQ(parseJson(ran.out)["record"]["KernelVersion"], "V9") << ran.out;
    }
    EXPECT_EQ(runZel(folder, "call " + serving.at + " SYSTEM_CONFIG_SET_MESSAGE/520 Title=door").status, 0);
    const Ran changed = runZel(folder, "call --json " + serving.at + " SYSTEM_CONFIG_GET_MESSAGE/500");
    EXPECT_EQ(parseJson(changed.out)["record"]["Title"], "door");

    const Ran found = runZel(folder, "search --json --wait 0.3 " + serving.at);
    EXPECT_EQ(parseJson(found.out)["record"]["stDevice"]["Name"], "zel");
    EXPECT_EQ(found.status, 0) << found.err;
    EXPECT_EQ(std::to_string(parseJson(found.out)["record"]["stStream"]["PTZPort"].get<int>()),
              afterLast(serving.at, ':'));

    // The other key, and a message that isn't one.
    folder.write("other", std::string(64, 'b'));
    const Ran foreign = runZel(folder, call + " --wait 2 --key-file other");
    EXPECT_EQ(foreign.status, 1);
    EXPECT_NE(foreign.err.find("closed the connection"), std::string::npos) << foreign.err;
    EXPECT_EQ(serving.program.stop(SIGTERM), 0);
    EXPECT_EQ(runZel(folder, call + " --wait 1").status, 1);
}

TEST(Link, HostsAndPorts)
{
    EXPECT_EQ(splitHostPort("[::1]:80").host, "::1");
    EXPECT_EQ(splitHostPort("camera:80").host, "camera");
    EXPECT_EQ(splitHostPort("9000").host, "");
    for (const char* const wrong : {"", "camera", "camera:", "camera:65536", "::1:80", "camera:8o"})
        EXPECT_THROW(splitHostPort(wrong), std::invalid_argument) << wrong;
}

TEST(ZelServe, SaysWhatIsWrong)
{
    const Folder folder;
    folder.write("bad.json", R"({"type":"SYSTEM_CONTROL_MESSAGE","code":"1012","record":{"Kernel":1}})");
    const Ran wrong = runZel(folder, "serve --records .");
    EXPECT_EQ(wrong.status, 2);
    EXPECT_NE(wrong.err.find("bad.json: record.Kernel"), std::string::npos) << wrong.err;
    EXPECT_EQ(runZel(folder, "serve --address 203.0.113.1").status, 1);
    EXPECT_EQ(runZel(folder, "serve --user admin").status, 2) << "without a password";
}

TEST(ZelServe, ManyConnectionsAndBrokenOnesHurtNobody)
{
    const Folder folder;
    Serving serving("--json");
    const HostPort target = splitHostPort(serving.at);
    const Clock::time_point deadline = Clock::now() + std::chrono::seconds(5);
    std::vector<Socket> silent;
    for (std::size_t i = 0; i < 40; ++i) {
        silent.push_back(connectTo(target, deadline));
        const char head[] = "\x58\x91\x58\x51\xFF\xFF";
        sendAll(silent.back(), std::string_view(head, i % 7), deadline);
    }
    const Socket broken = connectTo(target, deadline);
    sendAll(broken, "GET / HTTP/1.1\r\n\r\n", deadline);
    EXPECT_EQ(receive(broken, deadline), "");
    Cipher plain;
    const Bytes search =
        compose(sampleMessage(findMessages("SYSTEM_SEARCHIPC_MESSAGE/1").front(), ZEL_KIND_REQUEST), plain)
            .bytes;
    std::string head(ZEL_FRAME_HEAD_SIZE, '\0');
    ZelProtocolFrameHeadWrite(head.data(), ZEL_FRAME_PLAIN, static_cast<std::uint32_t>(search.size()));
    for (const std::string& bytes : {search, head + search}) {
        const Socket bare = connectTo(target, deadline);
        sendAll(bare, bytes, deadline);
        EXPECT_EQ(receive(bare, deadline), "") << "a datagram's message";
    }
    const Ran ran = runZel(folder, "call " + serving.at + " SYSTEM_CONTROL_MESSAGE/1012");
    EXPECT_EQ(ran.status, 0) << ran.err;
}

// A device that does this with the first connection.
class Misbehaving
{
public:
    explicit Misbehaving(std::function<void(const Socket&)> behave)
        : m_listener(listenOn({"127.0.0.1", "0"})), at(nameOf(ownEnd(m_listener))),
          m_thread([this, behave = std::move(behave)] {
              if (!waitToReceive(m_listener, Clock::now() + std::chrono::seconds(10)))
                  return;
              const Socket client(::accept(m_listener.fd(), nullptr, nullptr));
              try {
                  behave(client);
              } catch (const LinkError&) { // the client has enough
              }
          })
    {}
    ~Misbehaving()
    {
        m_thread.join();
    }

private:
    Socket m_listener;

public:
    const std::string at;

private:
    std::thread m_thread;
};

TEST(ZelCall, EndsInTimeWhateverTheDeviceDoes)
{
    const Folder folder;
    const auto in10 = [] { return Clock::now() + std::chrono::seconds(10); };
    const auto question = [&](const Socket& client) { receive(client, in10()); };
    const std::string heartbeat = [] {
        Cipher plain;
        return compose(makeMessage(findMessages("ZEL_HEARTBEAT_MESSAGE").front(), ZEL_KIND_RESPONSE), plain)
            .bytes;
    }();
    const struct
    {
        std::function<void(const Socket&)> behave;
        const char* said;
    } devices[] = {
        {[&](const Socket& client) { question(client); }, "closed the connection without an answer"},
        {[&](const Socket& client) {
             waitToReceive(client, in10()), receive(client, in10()), receive(client, in10());
         },
         "no answer in time"},
        {[&](const Socket& client) {
             question(client), sendAll(client, "HTTP/1.1 400 Bad Request\r\n\r\n", in10()),
                 receive(client, in10());
         },
         "damaged"},
        {[&](const Socket& client) {
             question(client),
                 sendAll(client, std::string("\x58\x91\x58\x51\xFF\xFF\xFF\x7F<?xml", 13), in10()),
                 receive(client, in10());
         },
         ""},
        {[&](const Socket& client) {
             for (question(client);;)
                 sendAll(client, heartbeat, in10());
         },
         "no answer in time"},
    };
    for (const auto& device : devices) {
        Misbehaving peer(device.behave);
        const auto begin = Clock::now();
        const Ran ran = runZel(folder, "call --wait 0.5 " + peer.at + " SYSTEM_CONTROL_MESSAGE/1012");
        EXPECT_EQ(ran.status, 1) << device.said;
        EXPECT_LT(Clock::now() - begin, std::chrono::seconds(5)) << device.said;
        EXPECT_NE(afterLast(ran.err.substr(0, ran.err.size() - 1), '\n').find(device.said), std::string::npos)
            << ran.err.substr(0, 500);
    }
}

// One host may stand for several devices, and say the same more than once.
TEST(ZelSearch, PrintsEveryAnswerOnce)
{
    const Folder folder;
    const Socket devices = datagramsOn({"127.0.0.1", "0"});
    std::thread answering([&] {
        Cipher plain;
        Endpoint from;
        if (!waitToReceive(devices, Clock::now() + std::chrono::seconds(10)))
            return;
        receiveDatagram(devices, from);
        for (const char* const code : {"3", "21", "3"})
            sendDatagram(
                devices, from,
                compose(sampleMessage(findMessages("SYSTEM_SEARCHIPC_MESSAGE/" + std::string(code)).front(),
                                      ZEL_KIND_RESPONSE),
                        plain)
                    .bytes);
    });
    const Ran ran = runZel(folder, "search --json --wait 1 " + nameOf(ownEnd(devices)));
    answering.join();
    EXPECT_EQ(ran.status, 0) << ran.err;
    EXPECT_EQ(std::count(ran.out.begin(), ran.out.end(), '\n'), 2) << ran.out;
}

TEST(ZelCall, SaysHowItWasUsedWrongly)
{
    const Folder folder;
    for (const char* const arguments :
         {"", "127.0.0.1", "9000 1012", "127.0.0.1:99999 1012", "::1:80 1012", "127.0.0.1:80 nothing",
          "127.0.0.1:80 --user admin SYSTEM_CONTROL_MESSAGE/1012 --wait soon"})
        EXPECT_EQ(runZel(folder, std::string("call ") + arguments).status, 2) << arguments;
    EXPECT_EQ(runZel(folder, "search 127.0.0.1:9 --wait 0.1").status, 1);
}

#ifdef ZEL_DEMO_FOLDER

// As far as a device comes that takes every setting.
TEST(ZelServe, StandsInForTheDemosCamera)
{
    const Folder folder;
    folder.write(
        "found.json",
        R"({"type":"SYSTEM_SEARCHIPC_MESSAGE","code":"3","record":{"VendorId":"DemoWorks",)"
        R"("stDevice":{"SerialNumber":"SN-1","DeviceModule":"M1","FileSystemVersion":"F1","Feature":5}}})");
    folder.write("login.json", R"({"type":"USER_AUTH_MESSAGE","code":"","kind":"response",)"
                               R"("record":{"MAXChannels":1,"Group":"Administrators"}})");
    folder.write("heartbeat.json", R"({"type":"ZEL_HEARTBEAT_MESSAGE","code":"CMD_HEARTBEAT",)"
                                   R"("record":{"Ipcs_stat":"ready","streamstat":"0","IpcAbility1":"0,0"}})");
    folder.write("version.json", R"({"type":"SYSTEM_CONTROL_MESSAGE","code":"1012",)"
                                 R"("record":{"FileSystemVersion":"F1","DeviceIdentify":"M1"}})");
    folder.write("serial.json",
                 R"({"type":"SYSTEM_CONTROL_MESSAGE","code":"1019","record":{"SerialNumber":"SN-1"}})");
    folder.write("type.json", R"({"type":"SYSTEM_CONTROL_MESSAGE","code":"1030","record":{"Feature":5}})");
    folder.write("password", "correct horse\n");
    const std::string at = folder.path.string();
    Serving serving("--user admin --password-file '" + at + "/password' --records '" + at + "'");
    Running client("timeout 10 '" ZEL_DEMO_FOLDER "/client' " + afterLast(serving.at, ':'));
    std::string steps;
    for (std::string line = client.line(); !line.empty(); line = client.line())
        if (const std::size_t step = line.find("ok: "); step != std::string::npos)
            steps += line.substr(step);
    EXPECT_EQ(steps.substr(0, steps.find("ok: its abilities")),
              "ok: the camera is found by a search\n"
              "ok: the camera takes the connection\n"
              "ok: a heartbeat before the login is refused\n"
              "ok: a wrong password is refused\n"
              "ok: the right password logs in\n"
              "ok: a heartbeat is answered\n"
              "ok: the camera is the one that was found\n");
}

TEST(ZelCall, TalksToTheDemosCamera)
{
    const Folder folder;
    Running camera("'" ZEL_DEMO_FOLDER "/camera' 0 --idle 10");
    const std::string searchPort = std::to_string(std::atoi(afterLast(camera.line(), ':').c_str()));
    const Ran found = runZel(folder, "search --json --wait 0.3 127.0.0.1:" + searchPort);
    ASSERT_EQ(found.status, 0) << found.err;
    const std::string port = std::to_string(parseJson(found.out)["record"]["stStream"]["PTZPort"].get<int>());
    folder.write("password", "correct horse\n");
    std::string key;
    for (int i = 0; i < 32; ++i)
        key += static_cast<char>(0x3b + 7 * i);
    folder.write("key", key);
    for (const char* const cipher : {"", " --key-file key"}) {
        const Ran ran =
            runZel(folder, "call --json 127.0.0.1:" + port +
                               " SYSTEM_CONTROL_MESSAGE/1019 --user admin --password-file password" + cipher);
        EXPECT_EQ(ran.status, 0) << ran.err;
        EXPECT_EQ(parseJson(ran.out)["record"]["SerialNumber"],
                  parseJson(found.out)["record"]["stDevice"]["SerialNumber"])
            << ran.out;
    }
    folder.write("password", "wrong\n");
    EXPECT_EQ(runZel(folder, "call 127.0.0.1:" + port +
                                 " SYSTEM_CONTROL_MESSAGE/1019 --user admin --password-file password")
                  .status,
              1);
}

#endif

} // namespace
