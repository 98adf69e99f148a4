// The default layer's codecs and log, and what the log shows of a message.
#include <sanitizer/common_interface_defs.h>
#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <memory>

#include "require.h"
#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"
#include "zel_platform/log.h"
#include "zel_protocol/zel_protocol.h"

namespace {

using namespace fuzz;

// Nonce and tag of the default layer's cipher.
constexpr int kAdded = 40;
constexpr size_t kLongestLine = 1024;

// A pair of the service's functions with its mode and key.
struct Pair
{
    bool isShared;
    int mode;
    ZEL_PLATFORM_KEY key;

    int encode(const char* source, int length, char* destination, int capacity)
    {
        return isShared ? ZelProtocolEncode(mode, source, length, destination, capacity, &key)
                        : P2pProtocolEncode(mode, source, length, destination, capacity);
    }

    int decode(const char* source, int length, char* destination, int capacity)
    {
        return isShared ? ZelProtocolDecode(mode, source, length, destination, capacity, &key)
                        : P2pProtocolDecode(0, source, length, destination, capacity);
    }
};

// Buffers of exactly their size.
std::unique_ptr<char[]> exactly(const std::string& bytes)
{
    std::unique_ptr<char[]> copy(new char[bytes.size()]);
    std::copy(bytes.begin(), bytes.end(), copy.get());
    return copy;
}

int encode(Pair pair, const std::string& text, int capacity, std::string& out)
{
    const auto source = exactly(text);
    const auto room = static_cast<size_t>(std::max(capacity, 0));
    const std::unique_ptr<char[]> destination(new char[room]);
    const int length = pair.encode(source.get(), static_cast<int>(text.size()), destination.get(), capacity);
    require(std::equal(text.begin(), text.end(), source.get()), "an encoder leaves its source as it was");
    if (length >= 0) {
        require(length <= capacity, "an encoder stays within its capacity");
        out.assign(destination.get(), static_cast<size_t>(length));
    }
    return length;
}

int decode(Pair pair, const std::string& bytes, int capacity, std::string& out)
{
    const auto source = exactly(bytes);
    const auto room = static_cast<size_t>(std::max(capacity, 0));
    const std::unique_ptr<char[]> destination(new char[room]);
    memset(destination.get(), 0x77, room);
    const int length = pair.decode(source.get(), static_cast<int>(bytes.size()), destination.get(), capacity);
    require(std::equal(bytes.begin(), bytes.end(), source.get()), "a decoder leaves its source as it was");
    if (length >= 0) {
        require(length < capacity && destination[static_cast<size_t>(length)] == '\0',
                "a decoder ends its text within its capacity");
        out.assign(destination.get(), static_cast<size_t>(length));
    }
    return length;
}

void requireRefused(const Pair& pair, const std::string& bytes, const char* promise)
{
    std::string out;
    require(decode(pair, bytes, static_cast<int>(bytes.size()) + 1, out) < 0, promise);
}

void goRound(const Pair& pair, const std::string& text, Input& choice)
{
    const int length = static_cast<int>(text.size());
    std::string bytes;
    std::string out;
    const int shortage = choice.byte() % 64;
    require((encode(pair, text, length + kAdded - shortage, bytes) < 0) == (shortage > 0),
            "a text is enciphered exactly where it fits");
    std::string again;
    require(encode(pair, text, length + kAdded + choice.byte(), again) == length + kAdded,
            "a text grows by nonce and tag");
    require(again != bytes, "the same text is never enciphered alike");
    require(again.find(text) == std::string::npos || length < 8, "ciphertext doesn't show its text");

    const int missing = choice.byte() % 8;
    require((decode(pair, again, length + 1 - missing, out) < 0) == (missing > 0),
            "a text is deciphered exactly where it fits");
    require(missing > 0 || out == text, "what is deciphered is what was enciphered");

    std::string broken = again;
    broken[choice.word() % broken.size()] ^= static_cast<char>(1 << choice.byte() % 8);
    requireRefused(pair, broken, "one changed bit is refused");
    requireRefused(pair, again.substr(0, choice.word() % again.size()), "a cut text is refused");
    requireRefused(pair, again + "x", "a longer text is refused");

    Pair other = pair;
    other.isShared = !pair.isShared;
    requireRefused(other, again, "the text of one pair is refused by the other");
    other = pair;
    other.mode += choice.byte() + 1;
    if (pair.isShared)
        requireRefused(other, again, "the text of one mode is refused in another");
    else
        require(decode(other, again, length + 1, out) == length && out == text,
                "the P2p pair deciphers without the mode");
    other = pair;
    other.key.bytes[choice.byte() % ZEL_PLATFORM_KEY_BYTES] ^= 0x40;
    if (!pair.isShared)
        ZelPlatformSetP2pKey(&other.key);
    requireRefused(other, again, "another key is refused");
}

void refuseNonsense(Pair pair)
{
    char byte = 'x';
    for (const int length : {-1, INT32_MIN})
        require(pair.encode(&byte, length, &byte, 1) < 0 && pair.encode(&byte, 1, &byte, length) < 0 &&
                    pair.decode(&byte, length, &byte, 1) < 0 && pair.decode(&byte, 1, &byte, length) < 0,
                "lengths below zero are refused");
    require(pair.encode(nullptr, 1, &byte, 1) < 0 && pair.encode(&byte, 1, nullptr, 1) < 0 &&
                pair.decode(nullptr, 1, &byte, 1) < 0 && pair.decode(&byte, 1, nullptr, 1) < 0 &&
                ZelProtocolEncode(1, &byte, 1, &byte, 1, nullptr) < 0 &&
                ZelProtocolDecode(1, &byte, 1, &byte, 1, nullptr) < 0 && ZelPlatformSetP2pKey(nullptr) < 0,
            "null arguments are refused");
}

// What goes to standard error while `act` runs.
template <class Act>
std::string captured(Act act)
{
    static const int original = [] {
        const int copy = dup(STDERR_FILENO);
        __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(copy)));
        return copy;
    }();
    static const int sink = memfd_create("log", 0);
    require(ftruncate(sink, 0) == 0 && lseek(sink, 0, SEEK_SET) == 0 && dup2(sink, STDERR_FILENO) >= 0,
            "the log can be caught");
    act();
    dup2(original, STDERR_FILENO);
    std::string text(static_cast<size_t>(lseek(sink, 0, SEEK_CUR)), '\0');
    require(pread(sink, text.data(), text.size(), 0) == static_cast<ssize_t>(text.size()),
            "the log can be read");
    return text;
}

void requireLines(const std::string& log, ZEL_PLATFORM_LOG_LEVEL level)
{
    require(level != ZEL_PLATFORM_LOG_NONE || log.empty(), "a silent log is silent");
    require(log.empty() || log.back() == '\n', "a log ends with a whole line");
    for (size_t begin = 0; begin < log.size();) {
        const size_t end = log.find('\n', begin);
        require(end - begin < kLongestLine, "a line of the log is short");
        require(log.compare(begin, 4, "zel ") == 0, "no argument makes a line of its own");
        for (size_t i = begin; i < end; ++i)
            require(static_cast<unsigned char>(log[i]) >= 0x20 && log[i] != 0x7F,
                    "nothing in a log steers a terminal");
        begin = end + 1;
    }
}

// A login with its password, and anything at all, through the library and into the log.
void logMessages(const Pair& pair, const std::string& text, ZEL_PLATFORM_LOG_LEVEL level)
{
    constexpr char kPassword[] = "correct horse battery";
    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    strcpy(login.Password, kPassword);
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    strcpy(header.Msg_type, "USER_AUTH_MESSAGE");
    text.copy(header.Msg_flag, sizeof header.Msg_flag);

    ZelPlatformSetLogLevel(level);
    ZelPlatformSetLogLimit(0);
    const std::string log = captured([&] {
        ZelProtocolLogError("%.*s", static_cast<int>(text.size()), text.data());
        ZelProtocolLogInfo("%s\n", text.c_str());
        ZelProtocolLogDebug("%d%s", pair.mode, text.c_str());

        char frame[8192];
        const int length = ZelProtocolXMLCompose(&header, &login, 0, -1, nullptr, frame, sizeof frame);
        for (const int cut : {length - 8, length - 9, 700}) {
            void* result = nullptr;
            ZelProtocolMSGAnalysisStart(frame + 8, std::max(cut, 1), -1, nullptr, &header, &result);
            ZelProtocolMSGAnalysisStop(&result);
        }
        void* result = nullptr;
        std::string payload = text;
        if (!payload.empty())
            ZelProtocolMSGAnalysisStart(payload.data(), static_cast<int>(payload.size()), -1, nullptr,
                                        &header, &result);
        ZelProtocolMSGAnalysisStop(&result);
    });
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
    requireLines(log, level);
    require(log.find(kPassword) == std::string::npos || text.find(kPassword) != std::string::npos,
            "no password reaches the log");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input{data, size};
    const uint8_t form = input.byte();
    Pair pair{(form & 1) != 0, input.word(), {}};
    const std::string seed = input.bytes(8);
    std::copy(seed.begin(), seed.end(), pair.key.bytes);
    ZelPlatformSetP2pKey(&pair.key);
    Input choice{input.data, std::min<size_t>(input.size, 12)};
    const std::string text = input.rest();

    requireRefused(pair, text, "nobody without the key makes a text");
    std::string out;
    require(decode(pair, text, form, out) < 0, "nobody without the key makes a text");
    goRound(pair, text, choice);
    refuseNonsense(pair);
    logMessages(pair, text, static_cast<ZEL_PLATFORM_LOG_LEVEL>(form >> 1 & 3));
    return 0;
}
