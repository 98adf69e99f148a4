/**
 * From records to frames and back: thin helpers over the two entry points that both example programs use.
 */
#ifndef EXAMPLES_MESSAGE_LINK_H
#define EXAMPLES_MESSAGE_LINK_H

#include "demo_io.h"
#include "frame_stream.h"

#include "zel_platform/default_layer.h"
#include "zel_protocol/zel_protocol.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

constexpr int kRequest = 0;
constexpr int kResponse = 1;

constexpr std::string_view kUserAuth = "USER_AUTH_MESSAGE";
constexpr std::string_view kHeartbeat = "ZEL_HEARTBEAT_MESSAGE";
constexpr std::string_view kTransparent = "TRANSPARENT_CHANNEL_MSG";

/** These programs use Msg_flag for the outcome of a request; the library hands it through unread. */
constexpr std::string_view kOk = "OK";
constexpr std::string_view kFail = "FAIL";

/** How one connection enciphers. */
struct Cipher
{
    int mode = -1; /**< below zero: plain */
    ZEL_PLATFORM_KEY key{};
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

/**
 * Sends back what a peer sent. Values are written without escaping, so one that would spoil the document is
 * left out.
 */
template <std::size_t N, std::size_t M>
void echoField(char (&field)[N], const char (&received)[M])
{
    const std::string_view text = fieldText(received);
    const bool writable = text.find_first_of("\"&<") == std::string_view::npos;
    setField(field, writable ? text : std::string_view());
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
    constexpr std::size_t kFirstTry = 8 * 1024;
    constexpr std::size_t kLastTry = 256 * 1024;

    Composed message{header, 0, {}};
    int result = ZEL_ERR_BUFFER_SMALL;
    for (std::size_t size = kFirstTry; size <= kLastTry && result == ZEL_ERR_BUFFER_SMALL; size *= 2) {
        message.bytes.resize(size);
        result = ZelProtocolXMLCompose(&header, record, kind, cipher.mode, codecArg(cipher),
                                       message.bytes.data(), static_cast<int>(size));
    }
    message.status = std::min(result, 0);
    message.bytes.resize(static_cast<std::size_t>(std::max(result, 0)));
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
    message.bytes += kFrameHeadBytes;
    return message;
}

/** The record; type and code of the message tell which one it is. */
template <class Record>
const Record& recordOf(const Received& message)
{
    return *static_cast<const Record*>(message.record.get());
}

inline bool hasType(const Received& message, std::string_view type)
{
    return fieldText(message.header.Msg_type) == type;
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
    printMessage(who, "<-", fieldText(message.header.Msg_type), fieldText(message.header.Msg_code),
                 message.bytes, std::min(message.result, 0),
                 withNote(fieldText(message.header.Msg_flag), note));
}

inline void printSent(const char* who, const Composed& message, std::string_view note)
{
    printMessage(who, "->", fieldText(message.header.Msg_type), fieldText(message.header.Msg_code),
                 message.bytes.size(), message.status, withNote(fieldText(message.header.Msg_flag), note));
}

} // namespace demo

#endif
