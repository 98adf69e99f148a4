#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <deque>
#include <future>
#include <iostream>
#include <memory>
#include <sstream>
#include <string>
#include <system_error>
#include <thread>
#include <unistd.h>
#include <utility>
#include <vector>

#include "inspect/command.h"
#include "inspect/source.h"

namespace inspect {

namespace {

struct ReadOptions : FileOptions
{
    std::vector<std::string> types;
    std::vector<std::string> codes;
    std::vector<std::string> addresses;
};

bool isAmong(const std::vector<std::string>& wanted, std::string_view one)
{
    return wanted.empty() || std::find(wanted.begin(), wanted.end(), one) != wanted.end();
}

// "10.0.0.5" names all ports of "10.0.0.5:8000".
bool isAt(std::string_view end, std::string_view address)
{
    if (end == address)
        return true;
    std::string_view host = end.substr(0, end.rfind(':'));
    if (!host.empty() && host.front() == '[')
        host = host.substr(1, host.size() - 2);
    return !host.empty() && host == address;
}

// Whether an analysis may find one of these words in a header: it stands in the text as it is, unless
// references make it up, or the message is a transparent one, whose type isn't in it.
bool mayHave(const std::vector<std::string>& wanted, std::string_view payload)
{
    const auto isThere = [&](std::string_view word) { return payload.find(word) != std::string_view::npos; };
    return wanted.empty() || std::any_of(wanted.begin(), wanted.end(), isThere) || isThere("&") ||
           isThere("TRANSPARENT_HEADER");
}

// How far the reading is, where it takes long: a line that renews itself on a terminal, one now and then
// elsewhere.
class ProgressLine
{
public:
    void update(std::uint64_t done, std::uint64_t total)
    {
        const auto now = std::chrono::steady_clock::now();
        // What comes through a pipe may come for ever.
        if (now < m_next || (total == 0 && !m_isTerminal))
            return;
        m_next = now + (m_isTerminal ? std::chrono::milliseconds(250) : std::chrono::seconds(2));
        std::fprintf(stderr, m_isTerminal ? "\r%llu" : "zel: %llu",
                     static_cast<unsigned long long>(done >> 20));
        if (total > 0)
            std::fprintf(stderr, " of %llu", static_cast<unsigned long long>(total >> 20));
        std::fputs(m_isTerminal ? " MB\x1b[K" : " MB\n", stderr);
        m_isThere = m_isTerminal;
    }

    void clear()
    {
        if (std::exchange(m_isThere, false))
            std::fputs("\r\x1b[K", stderr);
    }

private:
    bool m_isTerminal = isatty(STDERR_FILENO) != 0;
    bool m_isThere = false;
    std::chrono::steady_clock::time_point m_next = std::chrono::steady_clock::now() + std::chrono::seconds(1);
};

// Messages that wait to be shown together, with all that their views name.
class Batch
{
public:
    explicit Batch(std::string file, std::size_t room)
        : m_file(std::move(file)), m_size(room), m_bytes(new char[room])
    {}

    bool hasRoomFor(const Found& found) const
    {
        return sizeOf(found) <= m_size - m_used;
    }

    void add(Found found)
    {
        for (std::string_view* const view : {&found.payload, &found.from, &found.to, &found.damage})
            *view = keep(*view);
        m_found.push_back(found);
    }

    const std::string& file() const
    {
        return m_file;
    }

    const std::vector<Found>& found() const
    {
        return m_found;
    }

    static std::size_t sizeOf(const Found& found)
    {
        return found.payload.size() + found.from.size() + found.to.size() + found.damage.size();
    }

private:
    std::string_view keep(std::string_view view)
    {
        char* const to = m_bytes.get() + m_used;
        view.copy(to, view.size());
        m_used += view.size();
        return {to, view.size()};
    }

    std::string m_file;
    std::size_t m_size;
    std::unique_ptr<char[]> m_bytes; // never moves, as views go into it
    std::size_t m_used = 0;
    std::vector<Found> m_found;
};

// What is to be printed, in order.
struct Output
{
    struct Part
    {
        bool isError;
        std::string text;
    };
    std::vector<Part> parts;
    int result = kFine;

    void add(bool isError, std::string text)
    {
        if (!text.empty())
            parts.push_back({isError, std::move(text)});
    }
};

// Analyses and shows the messages of one batch.
class Formatter
{
public:
    Formatter(const ReadOptions& options, const Common& common, const Cipher& cipher, const Batch& batch)
        : m_options(options), m_common(common), m_json(common.jsonOptions()), m_cipher(cipher), m_batch(batch)
    {
        m_json.rawData = false; // its length will do
    }

    Output run()
    {
        for (const Found& found : m_batch.found()) {
            if (found.damage.empty())
                show(found);
            else
                tell(found, std::string(found.damage));
        }
        m_output.add(false, m_out.str());
        return std::move(m_output);
    }

private:
    void show(const Found& found)
    {
        Cipher plain;
        Analysed analysed = analyse(found.payload, found.isEnciphered ? m_cipher : plain);
        Message& message = analysed.message;
        if (!isAmong(m_options.types, message.header.Msg_type) ||
            !isAmong(m_options.codes, message.header.Msg_code))
            return;
        const std::string note = noteOf(analysed, found);
        if (m_common.json)
            showJson(found, message, note);
        else
            showText(found, message, note);
    }

    // Why there is no record, where that is so. What is wrong is told.
    std::string noteOf(const Analysed& analysed, const Found& found)
    {
        if (analysed.status >= 0)
            return {};
        if (analysed.isHeaderAlone())
            return "no parameters";
        if (analysed.status == ZEL_ERR_UNKNOWN_MSG)
            return "not in the catalogue";
        if (analysed.status == ZEL_ERR_CODEC && m_common.keyFile.empty())
            return "no key";
        const std::string status = ZelProtocolStatusText(analysed.status);
        tell(found, status);
        return status;
    }

    void showText(const Found& found, const Message& message, const std::string& note)
    {
        if (found.time > 0)
            m_out << timeText(found.time) << "  ";
        if (!found.from.empty())
            m_out << found.from << " > " << found.to << "  ";
        m_out << "byte " << found.offset << ", " << found.payload.size() << " bytes";
        if (found.isBare)
            m_out << " without a frame";
        if (found.isEnciphered)
            m_out << ", enciphered";
        if (!message.rawData.empty())
            m_out << ", " << message.rawData.size() << " of raw data";
        if (!note.empty())
            m_out << ": " << note;
        m_out << '\n';
        if (message.header.Msg_type[0] != '\0')
            print(m_out, message, m_json);
        m_out << '\n';
    }

    void showJson(const Found& found, const Message& message, const std::string& note)
    {
        Json line = Json::object();
        addPlace(line, m_options.files.size() > 1 ? m_batch.file() : "", found);
        line["size"] = found.payload.size();
        if (found.isBare)
            line["bare"] = true;
        if (found.isEnciphered)
            line["enciphered"] = true;
        if (!note.empty())
            line["note"] = note;
        if (message.header.Msg_type[0] != '\0')
            line.update(toJson(message, m_json));
        m_out << line.dump(-1, ' ', false, Json::error_handler_t::replace) << '\n';
    }

    // On standard error, in step with what is on standard output.
    void tell(const Found& found, const std::string& what)
    {
        m_output.add(false, std::exchange(m_out, std::ostringstream()).str());
        m_output.add(true, "zel: " + placeOf(m_batch.file(), found) + ": " + what + '\n');
        m_output.result = kFound;
    }

    const ReadOptions& m_options;
    const Common& m_common;
    JsonOptions m_json;
    Cipher m_cipher;
    const Batch& m_batch;
    std::ostringstream m_out;
    Output m_output;
};

// Reads on while other processors make text of what was read, and prints it in the order of the files.
class Reader
{
public:
    Reader(const ReadOptions& options, const Common& common)
        : m_options(options), m_common(common), m_cipher(common.cipher())
    {}

    int run()
    {
        for (const std::string& file : m_options.files) {
            m_batch = std::make_unique<Batch>(file, kBatchBytes);
            std::string why;
            Output failure;
            failure.result = readOrTell(
                file, m_options.format, [this](const Found& found) { take(found); },
                [this](std::uint64_t done, std::uint64_t total) {
                    m_isLive = total == 0;
                    m_progress.update(done, total);
                },
                why);
            failure.add(true, why);
            submit(0);
            finish(0);
            write(failure);
        }
        return m_result;
    }

private:
    static constexpr std::size_t kBatchBytes = 1u << 20;
    static constexpr std::size_t kBatchMessages = 2048;

    void take(const Found& found)
    {
        const auto isOfFound = [&](const std::string& address) {
            return isAt(found.from, address) || isAt(found.to, address);
        };
        const std::vector<std::string>& addresses = m_options.addresses;
        if (!addresses.empty() && std::none_of(addresses.begin(), addresses.end(), isOfFound))
            return;
        if (!found.isEnciphered && found.damage.empty() &&
            !(mayHave(m_options.types, found.payload) && mayHave(m_options.codes, found.payload)))
            return;
        if (!m_batch->hasRoomFor(found))
            submit(Batch::sizeOf(found));
        m_batch->add(found);
        // Whoever waits at a pipe wants to see what came.
        if (m_isLive || m_batch->found().size() >= kBatchMessages)
            submit(0);
    }

    void submit(std::size_t needed)
    {
        const std::shared_ptr<const Batch> batch = std::move(m_batch);
        m_batch = std::make_unique<Batch>(batch->file(), std::max(needed, kBatchBytes));
        if (batch->found().empty())
            return;
        const auto policy = m_isLive ? std::launch::deferred : std::launch::async;
        m_running.push_back(std::async(
            policy, [this, batch] { return Formatter(m_options, m_common, m_cipher, *batch).run(); }));
        finish(m_isLive ? 0 : m_most);
    }

    // Waits until no more than so many are running.
    void finish(std::size_t most)
    {
        while (m_running.size() > most) {
            write(m_running.front().get());
            m_running.pop_front();
        }
    }

    void write(const Output& output)
    {
        if (!output.parts.empty())
            m_progress.clear();
        for (const auto& [isError, text] : output.parts) {
            (isError ? std::cerr : std::cout) << text;
            if (!isError)
                std::cout.flush();
        }
        m_result = std::max(m_result, output.result);
    }

    const ReadOptions& m_options;
    const Common& m_common;
    Cipher m_cipher;
    std::unique_ptr<Batch> m_batch;
    std::deque<std::future<Output>> m_running;
    std::size_t m_most = std::max(1u, std::thread::hardware_concurrency());
    bool m_isLive = false;
    ProgressLine m_progress;
    int m_result = kFine;
};

} // namespace

void addRead(CLI::App& zel, Common& common)
{
    const auto options = std::make_shared<ReadOptions>();
    CLI::App& command =
        *zel.add_subcommand("read", "Show the messages of captures, streams, texts and hex dumps");
    addFileOptions(command, *options);
    command.add_option("--type", options->types, "Only messages of this Msg_type")->expected(1)->take_all();
    command.add_option("--code", options->codes, "Only messages of this Msg_code")->expected(1)->take_all();
    command.add_option("--address", options->addresses, "Only from or to this ADDRESS or ADDRESS:PORT")
        ->expected(1)
        ->take_all();
    addOutputOptions(command, common);
    addCipherOptions(command, common);
    command.callback([options, &common] { common.result = Reader(*options, common).run(); });
}

} // namespace inspect
