// Any bytes as a payload, plain and enciphered, and as a text for the exported functions.
#include <cstring>

#include "promises.h"
#include "support/exported.h"

namespace {

using namespace fuzz;

enum class Way
{
    kPlain,
    kForged,     // taken for ciphertext
    kEnciphered, // enciphered first, with the shared key
    kP2p
};

void analysePayload(Way way, const Supply& supply, const std::string& bytes)
{
    switch (way) {
    case Way::kPlain:
        analyse(bytes, plainCodec(), supply);
        break;
    case Way::kForged:
        for (const Codec& codec : {sharedKeyCodec(), p2pCodec(), Codec{7, nullptr}}) {
            const int status = analyse(bytes, codec, supply).status;
            require(status == ZEL_ERR_CODEC || status == ZEL_ERR_NO_MEMORY || bytes.empty(),
                    "nobody without the key makes a message");
        }
        break;
    case Way::kEnciphered:
    case Way::kP2p: {
        const Codec codec = way == Way::kP2p ? p2pCodec() : sharedKeyCodec();
        const std::string payload = enciphered(codec, bytes);
        const Analysed plain = analyse(bytes, plainCodec());
        const Analysed deciphered = analyse(payload, codec, supply);
        // The intercom's message compares with what was received, so ciphertext doesn't read like plain text.
        if (supply.library < 0 && supply.reader < 0 && !bytes.empty() &&
            strcmp(plain.header.Msg_type, "MEDIA_DATA_MESSAGE") != 0)
            require(plain.status == deciphered.status, "an enciphered message reads like the plain one");
        break;
    }
    }
}

// `call` is one of the exported functions.
template <class Call>
int requireExported(const Supply& supply, Call call)
{
    int slot = 0;
    void* const untouched = &slot;
    void* result = untouched;
    startWatching(supply);
    const int status = call(&result);
    requireResult(status, result, untouched, stopWatching());
    require(status <= 0, "an exported analysis gives 0 or a status");
    if (result != untouched)
        FreeRecord()(result);
    return status;
}

void analyseText(uint8_t number, const Supply& supply, const std::string& bytes)
{
    const std::unique_ptr<char[]> text(new char[bytes.size() + 1]);
    memcpy(text.get(), bytes.c_str(), bytes.size() + 1);
    const char* const start = text.get();

    const auto leaf = test::kLeaves[number % test::kLeafCount].analyse;
    requireExported(supply, [&](void** result) { return leaf(start, result); });

    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    startWatching(supply);
    const int status = GetMessageHeader(start, &header);
    TRANSPARENT_HEADER transparent;
    TRANSPARENT_HEADER_init(&transparent);
    GetTransparentHeader(start, &transparent);
    require(stopWatching().live == 0, "reading a header keeps no block");
    require(transparent.iTransDataLen == -1, "reading a transparent header leaves the data alone");
    if (status != 0)
        return;

    const std::string type = header.Msg_type;
    const char* const code = header.Msg_code;
    const int size = static_cast<int>(bytes.size());
    if (type == "MEDIA_DATA_MESSAGE") {
        for (const int received : {0, size})
            requireExported(supply, [&](void** result) {
                return MediaDataMessageAnalysis(start, code, received, result);
            });
    } else if (type == "SYSTEM_SEARCHIPC_MESSAGE") {
        requireExported(supply,
                        [&](void** result) { return SystemSearchipcMessageAnalysis(start, code, result); });
    } else if (type == "LIVE_STREAM_MESSAGE") {
        requireExported(supply,
                        [&](void** result) { return LiveStreamMessageAnalysis(start, code, result); });
    } else if (type == "NVR_REPLAY_MESSAGE") {
        requireExported(supply, [&](void** result) { return NvrReplayMessageAnalysis(start, code, result); });
    } else if (type == "SYSTEM_CONTROL_MESSAGE") {
        requireExported(supply,
                        [&](void** result) { return SystemControlMessageAnalysis(start, code, result); });
    } else if (type == "SYSTEM_CONFIG_GET_MESSAGE" || type == "SYSTEM_CONFIG_SET_MESSAGE") {
        requireExported(supply,
                        [&](void** result) { return SystemConfigMessageAnalysis(start, code, result); });
    }
}

// What an application may forget.
void requireArguments(uint8_t number, const std::string& bytes)
{
    const int size = static_cast<int>(bytes.size());
    std::string payload = bytes;
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    int slot = 0;
    void* result = &slot;
    const auto leaf = test::kLeaves[number % test::kLeafCount].analyse;
    startWatching({});
    const int withoutSlot = ZelProtocolMSGAnalysisStart(payload.data(), size, -1, nullptr, &header, nullptr);
    const int statuses[] = {ZelProtocolMSGAnalysisStart(nullptr, size, -1, nullptr, &header, &result),
                            ZelProtocolMSGAnalysisStart(payload.data(), -size, -1, nullptr, &header, &result),
                            ZelProtocolMSGAnalysisStart(payload.data(), size, -1, nullptr, nullptr, &result),
                            leaf(nullptr, &result),
                            MediaDataMessageAnalysis(nullptr, "1", 1, &result),
                            MediaDataMessageAnalysis("", nullptr, 1, &result),
                            SystemSearchipcMessageAnalysis("", nullptr, &result),
                            LiveStreamMessageAnalysis("", nullptr, &result),
                            NvrReplayMessageAnalysis("", nullptr, &result),
                            SystemControlMessageAnalysis("", nullptr, &result),
                            SystemConfigMessageAnalysis("", nullptr, &result)};
    // Some read their text first.
    const int leafWithoutSlot = leaf(bytes.c_str(), nullptr);
    const Memory memory = stopWatching();
    // A long text that needs the repair takes a work block before the missing slot shows.
    require(memory.live == 0 && result == &slot, "a call without an argument keeps nothing");
    require(withoutSlot <= 0 && leafWithoutSlot < 0, "without a slot there is no record");
    for (const int status : statuses)
        require(status == ZEL_ERR_BAD_PARAM, "a missing argument is told");
    require(GetMessageHeader(nullptr, &header) == -1 && GetMessageHeader("", nullptr) == -1 &&
                GetTransparentHeader(nullptr, nullptr) == ZEL_ERR_BAD_DOCUMENT &&
                ZelProtocolMSGAnalysisStop(nullptr) == 0,
            "a missing header is told");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input{data, size};
    const uint8_t way = input.byte();
    const uint8_t leaf = input.byte();
    // 0: all memory that is wanted; else an odd number makes the library's blocks fail, an even one the
    // reader's.
    const uint8_t shortage = input.byte();
    Supply supply;
    if (shortage != 0)
        (shortage % 2 ? supply.library : supply.reader) = (shortage - 1) / 2;
    const std::string bytes = input.rest();
    analysePayload(static_cast<Way>(way % 4), supply, bytes);
    analyseText(leaf, supply, bytes);
    requireArguments(leaf, bytes);
    return 0;
}
