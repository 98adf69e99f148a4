// Any bytes as a record, into buffers of any size. What comes out is analysed again.
#include <cstring>

#include "promises.h"

namespace {

using namespace fuzz;

// Types whose message has no record, or that the library doesn't know.
constexpr const char* kBareTypes[] = {"OPEN_DBG_MESSAGE", "CLOSE_DBG_MESSAGE", "IPC_REPAIR_MESSAGE",
                                      "SYSTEM_CONFIG_SET_MESSAGE", "UNKNOWN_MESSAGE"};

constexpr size_t kHeadSize = 8;
constexpr size_t kLeastBodyBuffer = 8192;

struct Job
{
    ZEL_PROTOCOL_HEADER header;
    Record record;
    size_t recordSize;
    int kind;
    Codec codec;
    int outLen;
};

template <size_t N>
void fillText(char (&field)[N], Input& input)
{
    const std::string text = input.bytes(input.byte() % (N + 1));
    memset(field, 0, N);
    memcpy(field, text.data(), text.size());
}

Job readJob(Input& input)
{
    const uint16_t number = input.word();
    const test::CatalogueEntry* const entry = number <= std::size(kBareTypes) ? nullptr : &entryOf(number);
    Job job{};
    job.kind = input.byte() % 8 - 2;
    const uint8_t form = input.byte();
    job.codec = codecOf(form & 3);
    job.outLen = input.word();
    ZEL_PROTOCOL_HEADER_init(&job.header);
    if (entry)
        job.header = test::catalogueHeader(*entry);
    if (form & 0x80) {
        fillText(job.header.Msg_flag, input);
        fillText(job.header.Msg_uuid, input);
        fillText(job.header.Msg_chn, input);
    }
    const bool isEmpty = (form & 0x40) != 0;
    const std::string content = input.rest();
    if (entry) {
        job.recordSize = isEmpty ? 0 : entry->size;
        if (!isEmpty)
            job.record = makeRecord(*entry, static_cast<Fill>(form >> 4 & 3), content, (form & 0x08) != 0);
    } else if (number == 0) {
        strcpy(job.header.Msg_type, "TRANSPARENT_CHANNEL_MSG");
        job.recordSize = sizeof(TRANSPARENT_HEADER);
        job.record.reset(new char[job.recordSize]());
        TRANSPARENT_HEADER& transparent = *reinterpret_cast<TRANSPARENT_HEADER*>(job.record.get());
        memcpy(job.record.get(), content.data(), std::min(content.size(), job.recordSize));
        transparent.iTransDataLen = job.outLen % 3 == 0 ? job.outLen : static_cast<int>(content.size());
    } else {
        strcpy(job.header.Msg_type, kBareTypes[number - 1]);
        strcpy(job.header.Msg_code, "1");
    }
    return job;
}

std::string bodyOf(const std::string& text)
{
    static const std::string kOpening = "<MESSAGE_BODY>\n";
    static const std::string kClosing = "</MESSAGE_BODY>\n</XML_ZELMAR>";
    const size_t begin = text.find("/>\n" + kOpening) + 3 + kOpening.size();
    const size_t end = text.size() - kClosing.size();
    return text.substr(begin, end > begin ? end - begin - 1 : 0);
}

// The exported functions that compose a body alone, by what they are told.
template <class Compose>
struct OfType
{
    const char* type;
    Compose compose;
};

constexpr OfType<int (*)(const void*, int, char*, int)> kByRecord[] = {
    {"IPC_REPAIR_MESSAGE", IpcRepairMessageCompose},
    {"PTZ_CONTROL_MESSAGE", PtzControlMessageCompose},
    {"SYSTEM_ENCRYPT_MESSAGE", SystemEncryptMessageCompose},
    {"USER_AUTH_MESSAGE", UserAuthMessageCompose},
};

constexpr OfType<int (*)(const void*, int, const char*, char*, int)> kByCode[] = {
    {"DEVICE_REPORT_MESSAGE", DeviceReportMessageCompose},
    {"IOT_CAMERA_MESSAGE", IOTCameraMessageCompose},
    {"NVR_INTERNAL_MESSAGES", NvrInternalMessageCompose},
    {"NVR_PRODUCE_TEST_MESSAGE", NvrProduceTestMessageCompose},
    {"NVR_REPLAY_MESSAGE", NvrReplayMessageCompose},
    {"REPLAY_CONTROL_MESSAGE", ReplayControlMessageCompose},
    {"REVERSE_AUDIO_MESSAGE", ReverseAudioMessageCompose},
    {"SYSTEM_CONFIG_GET_MESSAGE", SystemConfigMessageCompose},
    {"SYSTEM_CONFIG_SET_MESSAGE", SystemConfigMessageCompose},
    {"SYSTEM_CONTROL_MESSAGE", SystemControlMessageCompose},
    {"SYSTEM_SEARCHIPC_MESSAGE", SystemSearchipcMessageCompose},
};

constexpr OfType<int (*)(const void*, int, char*, int, int*)> kWithDataBehind[] = {
    {"ALARM_REPORT_MESSAGE", AlarmReportMessageCompose},
    {"SYSTEM_LOG_DATA", SystemLogMessageCompose},
    {"SYSTEM_LOG_MESSAGE", SystemLogMessageCompose},
};

// 1 for a type without such a function.
int composeBody(const Job& job, const std::string& type, char* buffer, int size, int& extra)
{
    const void* const record = job.record.get();
    const char* const code = job.header.Msg_code;
    for (const auto& one : kByRecord)
        if (type == one.type)
            return one.compose(record, job.kind, buffer, size);
    for (const auto& one : kByCode)
        if (type == one.type)
            return one.compose(record, job.kind, code, buffer, size);
    for (const auto& one : kWithDataBehind)
        if (type == one.type)
            return one.compose(record, job.kind, buffer, size, &extra);
    if (type == "LIVE_STREAM_MESSAGE") {
        char header[512];
        return LiveStreamMessageCompose(record, job.kind, code, buffer, size, header, sizeof header, 0);
    }
    if (type == "MEDIA_DATA_MESSAGE")
        return MediaDataMessageCompose(record, job.kind, code, buffer, size, &extra);
    return 1;
}

void requireBody(const Job& job, int size, const Composed& whole)
{
    constexpr char kUntouched = '\x7F';
    const std::unique_ptr<char[]> buffer(new char[static_cast<size_t>(size)]);
    *buffer.get() = kUntouched;
    int extra = 0;
    const std::string type = job.header.Msg_type;
    startWatching({});
    const int status = composeBody(job, type, buffer.get(), size, extra);
    require(stopWatching().highest == 0, "composing a body takes no memory");
    require(status <= 0 || status == 1, "composing a body gives 0 or a status");
    if (status != 0 || whole.status < 0 || !job.record)
        return;
    require(static_cast<uint32_t>(extra) == whole.extra || isBare(job.header),
            "a body alone announces what the message does");
    const std::string expected = bodyOf(whole.text);
    if (expected.empty()) {
        require(*buffer.get() == kUntouched, "where there is no body the buffer is left alone");
        return;
    }
    const std::string body(buffer.get(), strnlen(buffer.get(), static_cast<size_t>(size)));
    require(body.size() < static_cast<size_t>(size), "a composed body is terminated");
    require(body == expected, "a body alone is the message's body");
}

// Functions that compose less than a body, or one body for two families.
void requireParts(const Job& job, int size)
{
    const auto room = static_cast<size_t>(size);
    const std::unique_ptr<char[]> buffer(new char[room]());
    const std::string type = job.header.Msg_type;
    const int used = job.outLen % 97;
    if (strcmp(job.header.Msg_code, "CMD_HEARTBEAT") == 0) {
        const int status = HeartbeatMessageCompose(&job.header, job.record.get(), buffer.get(), size, used);
        require(status == 0 || status == ZEL_ERR_BUFFER_SMALL, "a heartbeat's header fits or doesn't");
        require(status != 0 || !job.record ||
                    memchr(buffer.get() + used, 0, room - static_cast<size_t>(used)),
                "a heartbeat's header is terminated");
    }
    if (job.recordSize == sizeof(SYSTEM_CONTROL_1020_PARAM) && strcmp(job.header.Msg_code, "1020") == 0) {
        const auto& abilities = *reinterpret_cast<const SYSTEM_CONTROL_1020_PARAM*>(job.record.get());
        const int status =
            SystemControl_GetSysAbality_MessageCompose(&abilities, job.kind, buffer.get(), size);
        require(status == 0 || status == ZEL_ERR_BUFFER_SMALL, "a body fits or doesn't");
    }
}

// What an application may forget.
void requireArguments(const Job& job)
{
    char buffer[64];
    int extra = 0;
    const void* const record = job.record.get();
    const auto isRefused = [&](int status) { return status == ZEL_ERR_BAD_PARAM; };
    require(isRefused(ZelProtocolXMLCompose(nullptr, record, 0, -1, nullptr, buffer, 64)) &&
                isRefused(ZelProtocolXMLCompose(&job.header, record, 0, -1, nullptr, nullptr, 64)) &&
                isRefused(ZelProtocolXMLCompose(&job.header, record, 0, -1, nullptr, buffer, -job.outLen)),
            "a missing argument is told");
    require(MediaDataMessageCompose(record, 0, nullptr, buffer, 64, &extra) < 0 &&
                MediaDataMessageCompose(record, 0, "1", buffer, 0, &extra) < 0 &&
                AlarmReportMessageCompose(record, 0, nullptr, 64, &extra) < 0 &&
                HeartbeatMessageCompose(nullptr, record, buffer, 64, 0) == ZEL_ERR_NO_HEADER &&
                SystemControl_GetSysAbality_MessageCompose(nullptr, 1, buffer, 64) < 0,
            "a missing argument of a part is told");
    for (const test::CatalogueEntry& entry : test::catalogue())
        require(entry.init(nullptr) == -1, "no init without a record");
}

void requireSameAt(const Job& job, const Composed& whole, int outLen)
{
    const Composed small = compose(job.header, job.record.get(), job.kind, plainCodec(), outLen);
    const auto size = static_cast<size_t>(outLen);
    if (whole.status < 0) {
        require(small.status < 0, "what fails in a large buffer fails in a small one");
    } else if (isBare(job.header)) {
        const auto length = static_cast<size_t>(whole.status);
        require(small.status ==
                    (length < std::max(size, kLeastBodyBuffer) ? whole.status : ZEL_ERR_BUFFER_SMALL),
                "a bare text's length is told, whatever the buffer");
        require(whole.bytes.compare(0, small.bytes.size(), small.bytes) == 0,
                "a bare text is cut, not changed");
    } else {
        const bool fits = size > static_cast<size_t>(whole.status);
        require(small.status == (fits ? whole.status : ZEL_ERR_BUFFER_SMALL),
                "a frame is composed exactly where it fits");
        require(!fits || small.bytes == whole.bytes, "the same record gives the same bytes");
    }
}

void requireEnciphered(const Job& job, const Composed& whole, int outLen)
{
    Supply supply;
    if (job.kind == 3)
        supply.library = 0;
    const Composed frame = compose(job.header, job.record.get(), job.kind, job.codec, outLen, supply);
    if (frame.status < 0 || isBare(job.header))
        return;
    require(whole.status > 0, "what can be enciphered can be composed");
    require(frame.status > whole.status, "nonce and tag come on top");
    const Analysed plain = analyse(whole.text, plainCodec());
    const Analysed deciphered = analyse(frame.bytes.substr(kHeadSize), job.codec);
    require(plain.status == deciphered.status || strcmp(job.header.Msg_type, "MEDIA_DATA_MESSAGE") == 0,
            "an enciphered frame reads like the plain one");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Input input{data, size};
    const Job job = readJob(input);
    const std::string before(job.record.get(), job.record ? job.recordSize : 0);

    const Composed whole = compose(job.header, job.record.get(), job.kind, plainCodec(), kAmple);
    const int exact = std::max(whole.status, 0);
    // Around the size that just fits, or anywhere.
    const int outLen = std::max(job.outLen % 2 ? exact + job.outLen / 2 % 32 - 16 : job.outLen / 2, 1);
    requireSameAt(job, whole, outLen);
    if (job.record)
        requireBody(job, outLen, whole);
    requireParts(job, outLen);
    requireArguments(job);
    if (job.codec.mode >= 0)
        requireEnciphered(job, whole, job.outLen % 2 ? 2 * outLen + 24 : outLen);
    if (whole.status > 0)
        analyse(whole.text, plainCodec());

    require(before == std::string(job.record.get(), before.size()), "composing leaves the record as it was");
    return 0;
}
