/**
 * Every message of the catalogue goes over the loopback interface: a client sends it in each kind that has a
 * body, a camera answers with the other kind where there is one, plain and enciphered. Each side fills the
 * same record by itself and compares it with what came. Searches and repairs are datagrams; raw data stands
 * behind its text.
 *
 *   roll_call
 *
 * Prints a line for each family and a count. The exit status is 0 only if every message was understood.
 */
#include "client_link.h"
#include "sample.h"

#include <sys/wait.h>

#include <array>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

namespace {

using namespace demo;

/** What this side sends over, and where its datagrams go. */
struct Line
{
    const char* who;
    Link link;
    Socket datagrams;
    sockaddr_in peer{};
    Cipher cipher;
};

struct Tally
{
    int messages = 0; /**< of the catalogue */
    int sent = 0;
    int answered = 0; /**< with a body */
    int failed = 0;
};

std::string nameOf(const CatalogueMessage& message)
{
    std::string name = std::string(message.entry.Msg_type) + " " + message.entry.Msg_code;
    if (message.entry.word)
        name += std::string(" ") + message.entry.word;
    return name + (message.kind == ZEL_KIND_REQUEST ? " request" : " response");
}

/** The kinds to send; a message without a body is sent once. */
std::vector<int> kindsOf(const ZEL_CATALOGUE_ENTRY& entry)
{
    std::vector<int> kinds;
    for (const int kind : {ZEL_KIND_REQUEST, ZEL_KIND_RESPONSE})
        if ((entry.kinds >> kind & 1) != 0)
            kinds.push_back(kind);
    return kinds.empty() ? std::vector<int>{ZEL_KIND_REQUEST} : kinds;
}

/** The library counts this one's raw data before it deciphers, so data that was enciphered with it is
 * refused. */
bool isPlainOnly(const ZEL_CATALOGUE_ENTRY& entry)
{
    return entry.Msg_type == kMediaData && std::string_view(entry.Msg_code) == "3";
}

bool send(Line& line, const CatalogueMessage& message, bool hasBody)
{
    ZEL_PROTOCOL_HEADER header = makeHeader(message.entry.Msg_type, message.entry.Msg_code);
    setField(header.Msg_flag, kOk);
    Sample sample = hasBody ? makeSample(message, message.index) : Sample();
    const Composed composed = hasBody ? composeSample(header, message, sample, line.cipher)
                                      : composeMessage(header, nullptr, message.kind, line.cipher);
    const std::vector<char>& bytes = composed.bytes;
    if (composed.status != 0)
        printNote(line.who, nameOf(message) + ": status " + std::to_string(composed.status));
    return composed.status == 0 &&
           (message.entry.is_bare ? sendDatagram(line.datagrams, line.peer, bytes.data(), bytes.size())
                                  : sendAll(line.link.socket, bytes.data(), bytes.size()));
}

bool receiveBare(Line& line, Received& received)
{
    std::vector<char> datagram(kDatagramBytes);
    std::size_t count = 0;
    if (receiveDatagram(line.datagrams, datagram.data(), datagram.size(), kAnswerMs, count, line.peer) !=
        ReceiveState::Data)
        return false;
    Cipher plain;
    received = analyseMessage(datagram.data(), static_cast<int>(count), plain);
    return true;
}

bool receiveFramed(Line& line, Received& received)
{
    std::array<char, 16 * 1024> buffer;
    Frame frame;
    for (;;) {
        const FrameState state = nextFrame(line.link.reader, frame);
        std::size_t count = 0;
        if (state == FrameState::Complete)
            break;
        if (state == FrameState::Refused || receiveSome(line.link.socket, buffer.data(), buffer.size(),
                                                        kAnswerMs, count) != ReceiveState::Data)
            return false;
        addReceived(line.link.reader, buffer.data(), count);
    }
    received = analyseFrame(frame, line.cipher);
    return frame.enciphered == (line.cipher.mode >= 0);
}

/** Whether the message came, and as it was sent. A transparent one has no header but its own. */
bool expect(Line& line, const CatalogueMessage& message, bool hasBody)
{
    Received received;
    if (!(message.entry.is_bare ? receiveBare(line, received) : receiveFramed(line, received)))
        return false;
    const bool isNamed = received.result > 0 || (hasType(received, message.entry.Msg_type) &&
                                                 hasCode(received, message.entry.Msg_code));
    Sample sample = hasBody ? makeSample(message, message.index) : Sample();
    const bool isSame = isNamed && (!hasBody || equals(message, sample, received));
    if (!isSame)
        printNote(line.who,
                  nameOf(message) + ": not what was sent, result " + std::to_string(received.result));
    return isSame;
}

/** The other kind, if it has a body, answers; else a header alone. */
bool hasOther(const CatalogueMessage& message)
{
    return (message.entry.kinds >> (1 - message.kind) & 1) != 0;
}

/** Calls with each message in each kind; ends at the first that fails, because the two sides keep step. */
template <class Step>
bool callRoll(Line& line, Step step)
{
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        CatalogueMessage message;
        message.index = index;
        ZelProtocolCatalogueEntry(index, &message.entry);
        if (line.cipher.mode >= 0 && isPlainOnly(message.entry))
            continue;
        for (const int kind : kindsOf(message.entry)) {
            message.kind = kind;
            CatalogueMessage other = message;
            other.kind = 1 - kind;
            if (!step(message, other))
                return false;
        }
    }
    return true;
}

bool answerAll(Line& line)
{
    return callRoll(line, [&](const CatalogueMessage& message, const CatalogueMessage& other) {
        return expect(line, message, true) && send(line, other, hasOther(message));
    });
}

using Families = std::vector<std::pair<std::string, Tally>>;

Tally& tallyOf(Families& families, std::string_view type)
{
    for (auto& [name, tally] : families)
        if (name == type)
            return tally;
    return families.emplace_back(type, Tally()).second;
}

bool sendAllMessages(Line& line, Families& families)
{
    int last = -1;
    return callRoll(line, [&](const CatalogueMessage& message, const CatalogueMessage& other) {
        Tally& tally = tallyOf(families, message.entry.Msg_type);
        tally.messages += last != message.index;
        last = message.index;
        ++tally.sent;
        tally.answered += hasOther(message);
        const bool good = send(line, message, true) && expect(line, other, hasOther(message));
        tally.failed += !good;
        return good;
    });
}

std::string inColumn(std::string text, std::size_t width)
{
    text.resize(std::max(text.size(), width), ' ');
    return text;
}

void printTally(const std::string& name, const Tally& tally)
{
    printLine("roll call  " + inColumn(name, 28) +
              inColumn(std::to_string(tally.messages) + " messages", 14) +
              inColumn(std::to_string(tally.sent) + " sent", 10) + std::to_string(tally.answered) +
              " answered" + (tally.failed != 0 ? "  FAILED" : ""));
}

bool runClient(Line& line)
{
    Families families;
    const bool good = sendAllMessages(line, families);
    Tally all;
    for (const auto& [name, tally] : families) {
        printTally(name, tally);
        all = {all.messages + tally.messages, all.sent + tally.sent, all.answered + tally.answered,
               all.failed + tally.failed};
    }
    printTally(line.cipher.mode < 0 ? "all, plain" : "all, enciphered", all);
    return good;
}

/** The two sides in two processes, each with its sockets. */
bool runBoth(const Cipher& cipher)
{
    std::uint16_t port = 0;
    const Socket listener = listenOn(port);
    std::uint16_t cameraPort = 0;
    std::uint16_t clientPort = 0;
    Line camera{"camera", {}, datagramsOn(cameraPort), {}, cipher};
    Line client{"client", {}, datagramsOn(clientPort), loopbackAddress(cameraPort), cipher};
    client.link.socket = connectTo(port);
    sockaddr_in from{};
    camera.link.socket = acceptFrom(listener, 1 << 20, from);
    if (!client.link.socket.isOpen() || !camera.link.socket.isOpen() || !camera.datagrams.isOpen() ||
        !client.datagrams.isOpen())
        return false;

    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(answerAll(camera) ? 0 : 1);
    const bool good = child > 0 && runClient(client);
    client.link.socket = Socket();
    int status = 1;
    return child > 0 && ::waitpid(child, &status, 0) == child && status == 0 && good;
}

} // namespace

int main()
{
    // Headers without parameters answer here, which the log would call errors.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    const bool plain = runBoth(Cipher());
    const bool enciphered = runBoth(exampleCipher());
    return plain && enciphered ? 0 : 1;
}
