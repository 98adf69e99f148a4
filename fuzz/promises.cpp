#include "promises.h"

#include <sanitizer/allocator_interface.h>

#include <cstring>
#include <map>

#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

namespace fuzz {

namespace {

constexpr char kClosingTag[] = "</XML_ZELMAR>";
constexpr size_t kClosingTagLength = sizeof kClosingTag - 1;
constexpr size_t kHeadSize = 8;

// What docs/security.md promises.
constexpr size_t kHeapForEachByte = 16;
constexpr size_t kHeapForAnyMessage = 256 * 1024;

// One for deciphering, one for the repair of a text, one for the result.
constexpr int kMostBlocks = 3;

ZEL_PLATFORM_KEY sharedKey = {{1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,
                               1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16}};

bool isStatus(int result)
{
    switch (result) {
    case ZEL_ERR_UNKNOWN_MSG:
    case ZEL_ERR_BAD_PARAM:
    case ZEL_ERR_NO_MEMORY:
    case ZEL_ERR_BAD_DOCUMENT:
    case ZEL_ERR_NO_ELEMENT:
    case ZEL_ERR_NO_HEADER:
    case ZEL_ERR_BAD_CONTENT:
    case ZEL_ERR_BUFFER_SMALL:
    case ZEL_ERR_CODEC:
    case ZEL_ERR_NO_ENVELOPE:
        return true;
    default:
        return false;
    }
}

template <size_t N>
bool isTerminated(const char (&text)[N])
{
    return memchr(text, 0, N) != nullptr;
}

// A plain payload with the NUL that the analysis sets.
std::string closedBehindText(std::string payload)
{
    const size_t tag = payload.find(kClosingTag);
    if (tag != std::string::npos && memchr(payload.data(), 0, tag) == nullptr &&
        tag + kClosingTagLength < payload.size())
        payload[tag + kClosingTagLength] = '\0';
    return payload;
}

void requireTransparent(const Analysed& analysed, const std::string& payload, const Codec& codec)
{
    require(analysed.record != nullptr, "a result above zero comes with a record");
    const auto& transparent = *static_cast<const TRANSPARENT_HEADER*>(analysed.record.get());
    require(transparent.iTransDataLen == analysed.status,
            "a result above zero is the wrapped message's length");
    require(static_cast<size_t>(analysed.status) <= sizeof transparent.acTransData,
            "a wrapped message fits its field");
    require(isTerminated(transparent.Trans_Type) && isTerminated(transparent.Channel_ID) &&
                isTerminated(transparent.Source_Type) && isTerminated(transparent.Session_ID) &&
                isTerminated(transparent.Trans_Result),
            "texts of a transparent header are terminated");
    if (codec.mode < 0) {
        const auto length = static_cast<size_t>(analysed.status);
        require(length <= payload.size() &&
                    memcmp(payload.data() + payload.size() - length, transparent.acTransData, length) == 0,
                "a wrapped message is what was received from its header on");
    }
}

Analysed analyseOnce(const std::string& payload, const Codec& codec, const Supply& supply)
{
    const size_t size = payload.size();
    const auto bytes = std::make_unique<char[]>(size);
    std::copy(payload.begin(), payload.end(), bytes.get());
    const auto header = std::make_unique<ZEL_PROTOCOL_HEADER>();
    ZEL_PROTOCOL_HEADER_init(header.get());
    void* const untouched = header.get();
    void* result = untouched;

    startWatching(supply);
    const int status = ZelProtocolMSGAnalysisStart(bytes.get(), static_cast<int>(size), codec.mode, codec.arg,
                                                   header.get(), &result);
    const Memory memory = stopWatching();

    Analysed analysed{status, *header, nullptr};
    if (result != untouched)
        analysed.record.reset(result);
    requireResult(status, result, untouched, memory);
    require(memory.highest <= kHeapForAnyMessage + kHeapForEachByte * size,
            "an analysis takes no more memory than the stated multiple of what was received");
    require(isTerminated(header->Msg_type) && isTerminated(header->Msg_code) &&
                isTerminated(header->Msg_flag) && isTerminated(header->Msg_uuid) &&
                isTerminated(header->Msg_chn),
            "texts of an analysed header are terminated");
    const std::string left(bytes.get(), size);
    require(left == (codec.mode < 0 ? closedBehindText(payload) : payload),
            "a payload is left as it was, but for the NUL behind the closing tag");
    if (status > 0)
        requireTransparent(analysed, left, codec);
    return analysed;
}

bool announces(const std::string& text, int32_t length)
{
    const std::string number = std::to_string(length);
    return text.find("DataLen=\"" + number + "\"") != std::string::npos ||
           text.find("<RESPONSE_DATA_LEN>\n" + number + "\n") != std::string::npos;
}

void requireFrame(const ZEL_PROTOCOL_HEADER& header, const void* record, const Codec& codec,
                  const Composed& composed)
{
    const char* const magic = codec.mode < 0 ? "\x58\x91\x58\x51" : "\x57\x81\x59\x52";
    require(composed.bytes.size() > kHeadSize, "a frame has a head and a payload");
    require(memcmp(composed.bytes.data(), magic, 4) == 0, "a frame starts with the magic of its kind");
    const std::string type(header.Msg_type, strnlen(header.Msg_type, sizeof header.Msg_type));
    if (type == "ALARM_REPORT_MESSAGE")
        require(composed.extra == 0 || composed.extra == 516 || composed.extra == 1028,
                "an alarm's frame counts its feature block");
    else if (type == "MEDIA_DATA_MESSAGE" || type == "SYSTEM_LOG_MESSAGE" || type == "SYSTEM_LOG_DATA")
        require(composed.extra == 0 || codec.mode >= 0 ||
                    announces(composed.text, static_cast<int32_t>(composed.extra - 4)),
                "a frame counts the end code and the data that its text announces");
    else
        require(composed.extra == 0, "a frame counts its payload");
    if (type == "TRANSPARENT_CHANNEL_MSG" && record)
        return;
    if (codec.mode < 0)
        require(composed.text.size() > kClosingTagLength &&
                    composed.text.compare(composed.text.size() - kClosingTagLength, kClosingTagLength,
                                          kClosingTag) == 0 &&
                    composed.text.find('\0') == std::string::npos,
                "a composed text ends with its closing tag and holds no NUL");
    else
        require(composed.bytes.find("<XML_ZELMAR>") == std::string::npos,
                "an enciphered frame shows nothing of its text");
}

} // namespace

Codec plainCodec()
{
    return {-1, nullptr};
}

Codec sharedKeyCodec()
{
    return {1, &sharedKey};
}

Codec p2pCodec()
{
    return {0, nullptr};
}

Codec codecOf(unsigned number)
{
    switch (number % 3) {
    case 0:
        return plainCodec();
    case 1:
        return sharedKeyCodec();
    default:
        return p2pCodec();
    }
}

std::string enciphered(const Codec& codec, const std::string& text)
{
    if (codec.mode < 0)
        return text;
    std::string out(text.size() + 64, '\0');
    const int source = static_cast<int>(text.size());
    const int capacity = static_cast<int>(out.size());
    const int length =
        codec.arg ? ZelProtocolEncode(codec.mode, text.data(), source, out.data(), capacity, codec.arg)
                  : P2pProtocolEncode(codec.mode, text.data(), source, out.data(), capacity);
    require(length > 0, "any text can be enciphered");
    out.resize(static_cast<size_t>(length));
    return out;
}

void FreeRecord::operator()(void* record) const
{
    void* slot = record;
    require(ZelProtocolMSGAnalysisStop(&slot) == 0 && slot == nullptr,
            "a released record leaves an empty slot");
}

void requireResult(int status, const void* result, const void* untouched, const Memory& memory)
{
    require(status >= 0 || isStatus(status), "a result is success or a status of the table");
    require(status != ZEL_ERR_NO_MEMORY || memory.refused, "memory is only missed where it was refused");
    require(status >= 0 || result == untouched, "a failure leaves the result as it was");
    require(result != nullptr, "a success gives a record or leaves the result as it was");
    require(memory.live == (result == untouched ? 0 : 1), "all blocks but the result's are given back");
    require(memory.taken <= kMostBlocks, "an analysis takes few blocks");
    if (result != untouched)
        require(__sanitizer_get_allocated_size(result) == memory.bytes, "a result is a block of its own");
}

std::string contentOf(const void* record)
{
    if (!record)
        return {};
    const auto begin = reinterpret_cast<uintptr_t>(record);
    const size_t size = __sanitizer_get_allocated_size(record);
    std::string content(static_cast<const char*>(record), size);
    for (size_t at = 0; at + sizeof begin <= size; at += sizeof begin) {
        uintptr_t pointer = 0;
        memcpy(&pointer, content.data() + at, sizeof pointer);
        if (pointer < begin || pointer > begin + size)
            continue;
        pointer -= begin;
        memcpy(content.data() + at, &pointer, sizeof pointer);
    }
    return content;
}

Analysed analyse(const std::string& payload, const Codec& codec, const Supply& supply)
{
    setBlockFill(0x5A);
    Analysed first = analyseOnce(payload, codec, supply);
    setBlockFill(0xA5);
    const Analysed second = analyseOnce(payload, codec, supply);
    require(first.status == second.status &&
                contentOf(first.record.get()) == contentOf(second.record.get()) &&
                memcmp(&first.header, &second.header, sizeof first.header) == 0,
            "an analysis depends on its arguments alone and fills its whole record");
    return first;
}

bool isBare(const ZEL_PROTOCOL_HEADER& header)
{
    return strncmp(header.Msg_type, "SYSTEM_SEARCHIPC_MESSAGE", sizeof header.Msg_type) == 0 ||
           strncmp(header.Msg_type, "IPC_REPAIR_MESSAGE", sizeof header.Msg_type) == 0;
}

Composed compose(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind, const Codec& codec,
                 int outLen, const Supply& supply)
{
    const auto size = static_cast<size_t>(outLen);
    const auto exactHeader = std::make_unique<ZEL_PROTOCOL_HEADER>(header);
    const std::unique_ptr<char[]> buffer(new char[size]);

    startWatching(supply);
    const int status =
        ZelProtocolXMLCompose(exactHeader.get(), record, kind, codec.mode, codec.arg, buffer.get(), outLen);
    const Memory memory = stopWatching();

    require(status > 0 || isStatus(status), "a result is a length or a status of the table");
    require(status != ZEL_ERR_NO_MEMORY || memory.refused, "memory is only missed where it was refused");
    require(memory.live == 0, "composing gives all blocks back");
    require(memory.taken <= (codec.mode < 0 ? 0 : 1), "composing takes no block, or one to encipher");
    require(memory.highest <= (codec.mode < 0 ? 0 : 2 * size), "an enciphering's block goes with the buffer");

    Composed composed{status, {}, {}, 0};
    if (status < 0)
        return composed;
    const auto length = static_cast<size_t>(status);
    composed.bytes.assign(buffer.get(), std::min(length, size));
    if (isBare(header)) {
        composed.text = composed.bytes;
        require(composed.text.find('\0') == std::string::npos, "a composed text holds no NUL");
        const std::string_view behind(buffer.get() + composed.bytes.size(), size - composed.bytes.size());
        require(behind.empty() ||
                    (behind.front() == '\0' && behind.substr(1) == behind.substr(0, behind.size() - 1)),
                "the buffer behind a bare text is cleared");
        return composed;
    }
    require(length < size, "a frame fits its buffer and leaves a byte");
    uint32_t announced = 0;
    for (size_t i = 0; i < 4; ++i)
        announced |= static_cast<uint32_t>(static_cast<uint8_t>(buffer[4 + i])) << (8 * i);
    composed.extra = announced - static_cast<uint32_t>(length - kHeadSize);
    if (codec.mode < 0)
        composed.text = composed.bytes.substr(kHeadSize);
    requireFrame(header, record, codec, composed);
    return composed;
}

uint16_t numberOf(const test::CatalogueEntry& entry)
{
    uint32_t hash = 2166136261U;
    for (const char c : entry.name())
        hash = (hash ^ static_cast<unsigned char>(c)) * 16777619U;
    return static_cast<uint16_t>(hash >> 16 ^ hash);
}

const test::CatalogueEntry& entryOf(uint16_t number)
{
    static const std::map<uint16_t, const test::CatalogueEntry*> all = [] {
        std::map<uint16_t, const test::CatalogueEntry*> made;
        for (const test::CatalogueEntry& entry : test::catalogue())
            require(numberOf(entry) >= kNoEntry && made.emplace(numberOf(entry), &entry).second,
                    "each entry has a number of its own");
        return made;
    }();
    const auto found = all.lower_bound(number);
    return found == all.end() ? *all.begin()->second : *found->second;
}

Record makeRecord(const test::CatalogueEntry& entry, Fill fill, const std::string& content, bool complete)
{
    Record record(new char[entry.size]());
    char* const bytes = record.get();
    entry.init(bytes);
    switch (fill) {
    case Fill::kFresh:
        break;
    case Fill::kFull:
        memset(bytes, '1', entry.size);
        break;
    case Fill::kCompact:
        for (size_t i = 0; i < entry.size; ++i)
            bytes[i] = i % 4 == 0 ? '1' : '\0';
        break;
    case Fill::kZero:
        memset(bytes, 0, entry.size);
        break;
    }
    std::copy_n(content.data(), std::min(content.size(), entry.size), bytes);
    if (entry.pointerAt != 0)
        memset(bytes + entry.pointerAt, 0, sizeof(void*));
    if (complete)
        test::completeRecord(entry, bytes);
    return record;
}

} // namespace fuzz
