#include <cstdlib>
#include <deque>
#include <iostream>
#include <memory>
#include <stdexcept>
#include <utility>

#include "inspect/command.h"
#include "inspect/link.h"
#include "inspect/talk.h"
#include "zel_protocol/user_auth.h"

namespace inspect {

namespace {

struct CallOptions
{
    std::string peer;
    MessageOptions message;
    LoginOptions login;
    double wait = 5;
    bool encipher = false;
};

// A connection on which one message after the other is sent and answered.
class Conversation
{
public:
    Conversation(const HostPort& peer, const Cipher& cipher, Clock::time_point deadline)
        : m_cipher(cipher), m_deadline(deadline), m_socket(connectTo(peer, deadline)),
          m_splitter([this](const Found& found) { take(found); }, kLongestAnswer)
    {}

    void send(const Message& message)
    {
        Composed composed = compose(message, m_cipher);
        if (composed.status < 0)
            throw std::runtime_error(
                "the message can't be composed: " +
                (composed.problem.empty() ? ZelProtocolStatusText(composed.status) : composed.problem));
        sendAll(m_socket, composed.bytes, m_deadline);
    }

    // The next message of that type and code; others are told of on standard error.
    Analysed answerTo(const Message& question, const JsonOptions& options)
    {
        for (;;) {
            while (m_received.empty()) {
                const std::string bytes = receive(m_socket, m_deadline);
                if (bytes.empty())
                    throw LinkError("the peer closed the connection without an answer");
                m_splitter.take(bytes);
                if (m_splitter.isAstray())
                    throw LinkError("the answer is damaged: no message starts where one should");
            }
            Analysed answer = std::move(m_received.front());
            m_received.pop_front();
            if (isAnswer(answer.message, question))
                return answer;
            std::cerr << "zel: meanwhile: ";
            print(std::cerr, answer.message, options);
        }
    }

private:
    static constexpr std::size_t kLongestAnswer = 16u << 20;

    void take(const Found& found)
    {
        if (!found.damage.empty())
            throw LinkError("the answer is damaged: " + std::string(found.damage));
        Cipher plain;
        Analysed answer = analyse(found.payload, found.isEnciphered ? m_cipher : plain);
        if (answer.status < 0 && !answer.isHeaderAlone() && answer.status != ZEL_ERR_UNKNOWN_MSG)
            throw LinkError(std::string("the answer can't be read: ") + ZelProtocolStatusText(answer.status));
        m_received.push_back(std::move(answer));
    }

    static bool isAnswer(const Message& answer, const Message& question)
    {
        return textOf(answer.header.Msg_type) == textOf(question.header.Msg_type) &&
               textOf(answer.header.Msg_code) == textOf(question.header.Msg_code);
    }

    Cipher m_cipher;
    Clock::time_point m_deadline;
    Socket m_socket;
    FrameSplitter m_splitter;
    std::deque<Analysed> m_received;
};

void logIn(Conversation& conversation, const LoginOptions& login, const JsonOptions& options)
{
    Message question = makeMessage(findMessage("USER_AUTH_MESSAGE"), ZEL_KIND_REQUEST);
    JsonOptions openly = options;
    openly.showSecrets = true;
    setField(question, "Username", login.user, openly);
    setField(question, "Password", passwordOf(login), openly);
    conversation.send(question);
    const Analysed answer = conversation.answerTo(question, options);
    const auto* const welcome =
        static_cast<const USER_AUTH_CMD_USER_AUTH_PARAM*>(answer.message.record.get());
    if (!welcome || welcome->Sessionid[0] == '\0')
        throw LinkError("the login was refused" +
                        (answer.message.header.Msg_flag[0] == '\0'
                             ? std::string()
                             : ": " + quotedText(textOf(answer.message.header.Msg_flag))));
}

void show(const Message& message, const Common& common)
{
    if (common.json)
        std::cout << toJson(message, common.jsonOptions()).dump() << '\n';
    else
        print(std::cout, message, common.jsonOptions());
}

void callByDatagram(const HostPort& peer, const Message& question, const Common& common,
                    Clock::time_point deadline)
{
    bool isAnswered = false;
    searchAt(peer, question, deadline, [&](const Endpoint&, const Analysed& answer) {
        show(answer.message, common);
        isAnswered = true;
        return false;
    });
    if (!isAnswered)
        throw LinkError("no answer in time");
}

// Without a word of its parameters a query has none, even if the catalogue knows them for its answer.
Message questionOf(const MessageOptions& options, const JsonOptions& jsonOptions)
{
    std::vector<Message> described = describedMessages(options, jsonOptions);
    if (described.size() != 1)
        throw std::invalid_argument(options.file + " holds " + std::to_string(described.size()) +
                                    " messages, and one is sent");
    Message question = std::move(described.front());
    const bool isPlain = options.fields.empty() && options.file.empty() && options.kind.empty();
    if (isPlain && question.kind == ZEL_KIND_RESPONSE) {
        question.record = nullptr;
        question.rawData.clear();
    }
    return question;
}

void runCall(Common& common, const CallOptions& options)
{
    const HostPort peer = splitHostPort(options.peer);
    if (peer.host.empty())
        throw std::invalid_argument(options.peer + ": a device is HOST:PORT");
    const Message question = questionOf(options.message, common.jsonOptions());
    Cipher cipher;
    if (options.encipher || !common.keyFile.empty())
        cipher = common.cipher();
    const Clock::time_point deadline = deadlineAfter(options.wait);
    common.result = tellFailure([&] {
        if (question.entry.is_bare)
            return callByDatagram(peer, question, common, deadline);
        Conversation conversation(peer, cipher, deadline);
        if (!options.login.user.empty())
            logIn(conversation, options.login, common.jsonOptions());
        conversation.send(question);
        show(conversation.answerTo(question, common.jsonOptions()).message, common);
    });
}

} // namespace

void addCall(CLI::App& zel, Common& common)
{
    CLI::App& command = *zel.add_subcommand("call", "Send a message to a device and print its answer");
    const auto options = std::make_shared<CallOptions>();
    command.add_option("DEVICE", options->peer, "Where it is, HOST:PORT")->type_name("")->required();
    addMessageOptions(command, options->message, "--body");
    addLoginOptions(command, options->login);
    addWaitOption(command, options->wait);
    command.add_flag("--encipher", options->encipher, "Encipher what is sent; with a key file it always is");
    addOutputOptions(command, common);
    addCipherOptions(command, common);
    command.callback([&common, options] { runCall(common, *options); });
}

} // namespace inspect
