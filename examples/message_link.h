/**
 * From records to frames and back: thin helpers over the two entry points that both example programs use.
 */
#ifndef EXAMPLES_MESSAGE_LINK_H
#define EXAMPLES_MESSAGE_LINK_H

#include "demo_io.h"
#include "frame_stream.h"

#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"
#include "zel_protocol/zel_protocol.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace demo {

constexpr std::string_view kUserAuth = "USER_AUTH_MESSAGE";
constexpr std::string_view kHeartbeat = "ZEL_HEARTBEAT_MESSAGE";
constexpr std::string_view kTransparent = "TRANSPARENT_CHANNEL_MSG";
constexpr std::string_view kSearch = "SYSTEM_SEARCHIPC_MESSAGE";
constexpr std::string_view kControl = "SYSTEM_CONTROL_MESSAGE";
constexpr std::string_view kConfigGet = "SYSTEM_CONFIG_GET_MESSAGE";
constexpr std::string_view kConfigSet = "SYSTEM_CONFIG_SET_MESSAGE";
constexpr std::string_view kLive = "LIVE_STREAM_MESSAGE";
constexpr std::string_view kPtz = "PTZ_CONTROL_MESSAGE";
constexpr std::string_view kReplay = "NVR_REPLAY_MESSAGE";
constexpr std::string_view kAlarm = "ALARM_REPORT_MESSAGE";
constexpr std::string_view kMediaData = "MEDIA_DATA_MESSAGE";

/** These programs use Msg_flag for the outcome of a request; the library hands it through unread. */
constexpr std::string_view kOk = "OK";
constexpr std::string_view kFail = "FAIL";

/** How one connection enciphers. The key doesn't outlive it. */
struct Cipher
{
    int mode = ZEL_CODEC_PLAIN;
    ZEL_PLATFORM_KEY key{};

    Cipher() = default;
    Cipher(const Cipher&) = default;
    Cipher& operator=(const Cipher&) = default;
    ~Cipher()
    {
        volatile unsigned char* const bytes = key.bytes;
        for (std::size_t i = 0; i < sizeof key.bytes; ++i)
            bytes[i] = 0;
    }
};

inline void* codecArg(Cipher& cipher)
{
    return cipher.mode < 0 ? nullptr : &cipher.key;
}

/**
 * A cipher with a key that stands in a public source and so protects nothing. A product makes its key when it
 * is set up (random bytes, or a key derivation), keeps it where only this program reads it, and brings it to
 * the peer on another way than this connection.
 */
inline Cipher exampleCipher()
{
    Cipher cipher;
    cipher.mode = 1;
    for (std::size_t i = 0; i < sizeof cipher.key.bytes; ++i)
        cipher.key.bytes[i] = static_cast<unsigned char>(0x3b + 7 * i);
    return cipher;
}

/** A text field of a record. A value that fills its field has no terminator. */
template <std::size_t N>
std::string_view fieldText(const char (&field)[N])
{
    return std::string_view(field, static_cast<std::size_t>(std::find(field, field + N, '\0') - field));
}

/** Cuts a text that is too long for the field. */
template <std::size_t N>
void setField(char (&field)[N], std::string_view text)
{
    const std::size_t count = std::min(text.size(), N - 1);
    std::fill(std::copy_n(text.begin(), count, field), field + N, '\0');
}

/** Sends back what a peer sent, but for what would spoil the document. */
template <std::size_t N, std::size_t M>
void echoField(char (&field)[N], const char (&received)[M])
{
    const bool writable = ZelProtocolTextIsWritable(received, static_cast<int>(M)) != 0;
    setField(field, writable ? fieldText(received) : std::string_view());
}

inline ZEL_PROTOCOL_HEADER makeHeader(std::string_view type, std::string_view code)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    setField(header.Msg_type, type);
    setField(header.Msg_code, code);
    return header;
}

/** A message on its way out. */
struct Composed
{
    ZEL_PROTOCOL_HEADER header;
    int status = 0; /**< 0, or why there are no bytes */
    std::vector<char> bytes;
};

inline Composed composeMessage(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind,
                               Cipher& cipher)
{
    Composed message{header, 0, {}};
    int result = ZelProtocolXMLComposeSize(&header, record, kind, cipher.mode);
    if (result > 0) {
        message.bytes.resize(static_cast<std::size_t>(result));
        result = ZelProtocolXMLCompose(&header, record, kind, cipher.mode, codecArg(cipher),
                                       message.bytes.data(), result);
    }
    message.status = std::min(result, 0);
    message.bytes.resize(static_cast<std::size_t>(std::max(result, 0)));
    return message;
}

/** Enciphers the payload of a plain frame as one. */
inline void encipherFrame(Composed& message, Cipher& cipher)
{
    const std::size_t count = message.bytes.size() - ZEL_FRAME_HEAD_SIZE;
    std::vector<char> frame(ZEL_FRAME_HEAD_SIZE + 2 * count);
    const int written =
        ZelProtocolEncode(cipher.mode, message.bytes.data() + ZEL_FRAME_HEAD_SIZE, static_cast<int>(count),
                          frame.data() + ZEL_FRAME_HEAD_SIZE, static_cast<int>(2 * count), codecArg(cipher));
    message.status = written < 0 ? ZEL_ERR_CODEC : 0;
    frame.resize(written < 0 ? 0 : ZEL_FRAME_HEAD_SIZE + static_cast<std::size_t>(written));
    if (written >= 0)
        ZelProtocolFrameHeadWrite(frame.data(), ZEL_FRAME_ENCIPHERED, static_cast<std::uint32_t>(written));
    message.bytes = std::move(frame);
}

/**
 * Composes a message that announces raw data, and puts the end code and the data behind its text. The record
 * says how many bytes there are; a number that differs from `count` is refused here, because the peer would
 * take the rest for the next frame.
 *
 * If the library enciphered the text, the data would follow it in the clear, with nothing to tell the
 * receiver where the cipher's text ends and nothing to show that the data was tampered with. So the message
 * is composed plain and then enciphered with its data as one payload. The receiver needs nothing special: the
 * analysis deciphers the whole payload and finds the data behind the text. Both ends must do so. (It doesn't
 * serve code 3 of MEDIA_DATA_MESSAGE, which counts the bytes as they were before deciphering.)
 */
inline Composed composeWithData(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind,
                                const char* data, std::size_t count, Cipher& cipher)
{
    Cipher plain;
    Composed message = composeMessage(header, record, kind, plain);
    if (message.status != 0)
        return message;
    message.bytes.insert(message.bytes.end(), ZEL_FRAME_END_CODE_SIZE, '\0');
    message.bytes.insert(message.bytes.end(), data, data + count);
    ZEL_FRAME_HEAD head;
    ZelProtocolFrameHeadRead(message.bytes.data(), ZEL_FRAME_HEAD_SIZE, INT_MAX, &head);
    if (static_cast<std::size_t>(head.iLength) != message.bytes.size() - ZEL_FRAME_HEAD_SIZE) {
        message.status = ZEL_ERR_BAD_CONTENT;
        message.bytes.clear();
    } else if (cipher.mode >= 0) {
        encipherFrame(message, cipher);
    }
    return message;
}

struct ReleaseRecord
{
    void operator()(void* record) const
    {
        ZelProtocolMSGAnalysisStop(&record);
    }
};

/** A message that came in. */
struct Received
{
    ZEL_PROTOCOL_HEADER header;
    int result = 0; /**< above zero: the record is a TRANSPARENT_HEADER */
    std::unique_ptr<void, ReleaseRecord> record;
    std::size_t bytes = 0; /**< of the frame; of the text if there was no frame */
};

inline Received analyseMessage(char* payload, int count, Cipher& cipher)
{
    Received message;
    ZEL_PROTOCOL_HEADER_init(&message.header);
    void* record = nullptr;
    message.result =
        ZelProtocolMSGAnalysisStart(payload, count, cipher.mode, codecArg(cipher), &message.header, &record);
    message.record.reset(record);
    message.bytes = static_cast<std::size_t>(count);
    return message;
}

inline Received analyseFrame(const Frame& frame, Cipher& cipher)
{
    Received message = analyseMessage(frame.payload, frame.payloadBytes, cipher);
    message.bytes += ZEL_FRAME_HEAD_SIZE;
    return message;
}

/**
 * Whether the header could be read but the message has no parameters. Most queries and many answers are like
 * that: the analysis then misses an element, and the header tells all there is.
 */
inline bool isHeaderAlone(const Received& message)
{
    return message.result == ZEL_ERR_NO_ELEMENT;
}

/** The record; type and code of the message tell which one it is. */
template <class Record>
const Record& recordOf(const Received& message)
{
    return *static_cast<const Record*>(message.record.get());
}

/** The same where a message may lack its record: null then. */
template <class Record>
const Record* recordIn(const Received& message)
{
    return message.result == 0 ? static_cast<const Record*>(message.record.get()) : nullptr;
}

/** Messages of these two types are bare text for datagrams: nothing ever frames or enciphers them. */
inline bool isBare(const ZEL_PROTOCOL_HEADER& header)
{
    const std::string_view type = fieldText(header.Msg_type);
    return type == kSearch || type == "IPC_REPAIR_MESSAGE";
}

inline bool hasType(const Received& message, std::string_view type)
{
    return fieldText(message.header.Msg_type) == type;
}

inline bool hasCode(const Received& message, std::string_view code)
{
    return fieldText(message.header.Msg_code) == code;
}

inline bool hasFlag(const Received& message, std::string_view flag)
{
    return fieldText(message.header.Msg_flag) == flag;
}

/**
 * Puts a message into a transparent one: its text from the message header on. `inner` must be plain.
 *
 * @return whether it fits.
 */
inline bool wrapMessage(TRANSPARENT_HEADER& outer, const Composed& inner)
{
    const std::string_view frame(inner.bytes.data(), inner.bytes.size());
    const std::size_t start = frame.find("<MESSAGE_HEADER");
    if (start == std::string_view::npos || frame.size() - start > sizeof outer.acTransData)
        return false;
    const std::string_view data = frame.substr(start);
    std::copy(data.begin(), data.end(), outer.acTransData);
    outer.iTransDataLen = static_cast<std::int32_t>(data.size());
    return true;
}

/** Analyses the message inside a transparent one: with an envelope's head before it, it is a text again. */
inline Received unwrapMessage(const TRANSPARENT_HEADER& outer)
{
    std::string text = "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n";
    text.append(outer.acTransData, static_cast<std::size_t>(std::max(outer.iTransDataLen, 0)));
    Cipher plain;
    return analyseMessage(text.data(), static_cast<int>(text.size()), plain);
}

inline std::string withNote(std::string_view flag, std::string_view note)
{
    std::string text(flag);
    if (!text.empty() && !note.empty())
        text += ", ";
    return text.append(note);
}

inline void printReceived(const char* who, const Received& message, std::string_view note)
{
    printMessage(
        who, "<-", fieldText(message.header.Msg_type), fieldText(message.header.Msg_code), message.bytes,
        std::min(message.result, 0),
        withNote(withNote(fieldText(message.header.Msg_flag), isHeaderAlone(message) ? "no parameters" : ""),
                 note));
}

inline void printSent(const char* who, const Composed& message, std::string_view note)
{
    printMessage(who, "->", fieldText(message.header.Msg_type), fieldText(message.header.Msg_code),
                 message.bytes.size(), message.status, withNote(fieldText(message.header.Msg_flag), note));
}

} // namespace demo

#endif
