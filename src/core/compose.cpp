#include <climits>

#include "core/families.h"
#include "core/frame.h"
#include "core/header.h"
#include "core/scratch.h"
#include "zel_platform/codec.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

// A body has this much room even where the caller's buffer is smaller.
constexpr size_t kLeastBodyBuffer = 8192;

struct Frame
{
    int mode;
    void* arg;
    char* buffer;
    size_t size;

    bool enciphered() const
    {
        return mode >= 0;
    }
    // The text is put together where a plain frame wants it, one byte short of what a frame may hold.
    TextWriter text() const
    {
        return size > kHeadSize ? TextWriter(buffer + kHeadSize, size - kHeadSize - 1)
                                : TextWriter(buffer, 0);
    }
};

int encipherInto(const Frame& frame, const char* text, size_t length, char* scratch)
{
    const size_t room = 2 * frame.size - kHeadSize;
    const int capacity = room < INT_MAX ? static_cast<int>(room) : INT_MAX;
    const int source = static_cast<int>(length);
    const int written = frame.arg ? ZelProtocolEncode(frame.mode, text, source, scratch, capacity, frame.arg)
                                  : P2pProtocolEncode(frame.mode, text, source, scratch, capacity);
    ZelProtocolLogInfo("ZelProtocolEncode done, ret:%d\n", written);
    if (written < 0) {
        ZelProtocolLogError("ZelProtocolEncode faile!!, ret:%d\n", written);
        return ZEL_ERR_CODEC;
    }
    if (static_cast<size_t>(written) > frame.size - kHeadSize)
        return ZEL_ERR_BUFFER_SMALL;
    memcpy(frame.buffer + kHeadSize, scratch, static_cast<size_t>(written));
    return written;
}

int encipherOnScratch(const Frame& frame, const char* text, size_t length)
{
    if ((length + 4) * 2 >= frame.size)
        return ZEL_ERR_BUFFER_SMALL;
    const Scratch scratch(2 * frame.size);
    if (!scratch.bytes)
        return ZEL_ERR_NO_MEMORY;
    return encipherInto(frame, text, length, scratch.bytes + kHeadSize);
}

int encipher(const Frame& frame, const TextWriter& text)
{
    const size_t length = text.kept();
    const int written = encipherOnScratch(frame, text.begin, length);
    // The text lies where the frame's payload goes: nothing of it may be left in the clear.
    const size_t covered = written > 0 ? static_cast<size_t>(written) : 0;
    if (covered < length)
        memset(text.begin + covered, 0, length - covered);
    return written;
}

// Turns the text that frame.text() holds into the frame's payload; returns its length.
int makePayload(const Frame& frame, const TextWriter& text)
{
    if (text.kept() < 1) {
        ZelProtocolLogError("ZelProtocolMessageEncryption faile!!\n");
        return ZEL_ERR_CODEC;
    }
    return frame.enciphered() ? encipher(frame, text) : static_cast<int>(text.kept());
}

// The same, with the head before it; returns the frame's length. `extraLength` bytes more are announced.
int finishFrame(const Frame& frame, const TextWriter& text, uint32_t extraLength)
{
    const int payload = makePayload(frame, text);
    if (payload < 0) {
        ZelProtocolLogError("ZelProtocolMessageEncryption failed , ret : %d\n", payload);
        return payload;
    }
    putHead(frame.buffer, frame.enciphered(), static_cast<uint32_t>(payload) + extraLength);
    return payload + static_cast<int>(kHeadSize);
}

// Appends a transparent document; 0, or why it can't be.
int transparentText(TextWriter& out, TRANSPARENT_HEADER& header)
{
    out.append("<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n");
    if (const Element wrapper = element(out, "TRANSPARENT_HEADER"))
        transparentHeader(out, header);
    if (header.iTransDataLen < 0 || static_cast<size_t>(header.iTransDataLen) > sizeof header.acTransData)
        return ZEL_ERR_BUFFER_SMALL;
    out.append(header.acTransData, static_cast<size_t>(header.iTransDataLen));
    return 0;
}

int composeTransparent(const Frame& frame, TRANSPARENT_HEADER& header)
{
    TextWriter out = frame.text();
    if (const int status = transparentText(out, header))
        return status;
    return out.overflowed() ? ZEL_ERR_BUFFER_SMALL : finishFrame(frame, out, 0);
}

// One message on its way out.
struct Envelope
{
    const ZEL_PROTOCOL_HEADER& header;
    std::string_view type;
    std::string_view code;
    const Family* family; // null: unknown
    const void* record;
    int kind;
    int extraLength; // raw bytes that the family announces
};

int composeFamily(Envelope& message, TextWriter& out)
{
    if (!message.family || !message.family->compose) {
        ZelProtocolLogError("ZelProtocolXMLCompose deal a unknow Msg_type:%.*s Msg_code:%.*s !!!\n",
                            printedLength(message.type), message.type.data(), printedLength(message.code),
                            message.code.data());
        return ZEL_ERR_UNKNOWN_MSG;
    }
    Outbound outbound{out, message.record, message.kind, message.code};
    const int status = message.family->compose(*message.family, outbound);
    message.extraLength = outbound.extraLength;
    return status;
}

constexpr char kBeforeType[] =
    "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<MESSAGE_HEADER\nMsg_type=\"";
constexpr char kBeforeCode[] = "\"\nMsg_code=\"";
constexpr char kBehindCode[] = "\"\n";

// A field is moved whole, and counted as far as its text goes: that takes no call and waits for nothing.
template <size_t N>
char* putField(char* at, const char (&field)[N], size_t length)
{
    memcpy(at, field, N);
    return at + length;
}
template <size_t N>
char* putLiteral(char* at, const char (&text)[N])
{
    return putField(at, text, N - 1);
}

// Appends the envelope up to its code.
void openEnvelope(const Envelope& message, TextWriter& out)
{
    const ZEL_PROTOCOL_HEADER& header = message.header;
    constexpr size_t kMost = sizeof kBeforeType + sizeof header.Msg_type + sizeof kBeforeCode +
                             sizeof header.Msg_code + sizeof kBehindCode;
    if (likely(out.left() >= kMost)) {
        char* at = putLiteral(out.cursor, kBeforeType);
        at = putField(at, header.Msg_type, message.type.size());
        at = putLiteral(at, kBeforeCode);
        at = putField(at, header.Msg_code, message.code.size());
        out.cursor = putLiteral(at, kBehindCode);
    } else {
        out.append(kBeforeType);
        out.append(message.type.data(), message.type.size());
        out.append(kBeforeCode);
        out.append(message.code.data(), message.code.size());
        out.append(kBehindCode);
    }
}

// Appends the envelope, header and body in one go, and tells how it went.
int ZelProtocolMessageBufCompose(Envelope& message, TextWriter& out, size_t bodyBuffer)
{
    const ZEL_PROTOCOL_HEADER& header = message.header;
    openEnvelope(message, out);
    // The library only reads a header that it writes out.
    auto& fields = const_cast<ZEL_PROTOCOL_HEADER&>(header);
    attribute(out, "Msg_flag", fields.Msg_flag);

    const size_t headerStart = out.length();
    attributeIfSet(out, "Msg_uuid", fields.Msg_uuid);
    attributeIfSet(out, "Msg_chn", fields.Msg_chn);
    if (message.record && message.family && message.family->composeHeader)
        message.family->composeHeader(out, message.record, message.kind, message.code);
    if (out.length() != headerStart)
        out.append("\n");
    out.append("/>\n<MESSAGE_BODY>\n");

    const size_t bodyStart = out.length();
    int status = message.record ? composeFamily(message, out) : 0;
    const size_t bodyLength = out.length() - bodyStart;
    if (status == 0 && bodyLength >= bodyBuffer)
        status = ZEL_ERR_BUFFER_SMALL;
    if (bodyLength != 0)
        out.append("\n");
    out.append("</MESSAGE_BODY>\n</XML_ZELMAR>");
    return status;
}

// Appends the text; 0, or the status of the family, which is logged.
int appendText(Envelope& message, TextWriter& out, size_t bodyBuffer)
{
    const int status = ZelProtocolMessageBufCompose(message, out, bodyBuffer);
    if (status != 0) {
        const std::string_view flag = textOf(message.header.Msg_flag);
        ZelProtocolLogError("Msgtype:%.*s Msg_code:%.*s Msg_flag:%.*s Compose failed, nRet : %d\n",
                            printedLength(message.type), message.type.data(), printedLength(message.code),
                            message.code.data(), printedLength(flag), flag.data(), status);
    }
    return status;
}

// The same, and tells of it.
int composeText(Envelope& message, TextWriter& out, size_t bodyBuffer)
{
    if (const int status = appendText(message, out, bodyBuffer))
        return status;
    const int length = static_cast<int>(out.length());
    ZelProtocolLogInfo("ZelProtocolMessageBufCompose put msglen:%d msgbuf:%.*s \n", length,
                       static_cast<int>(out.kept()), out.begin);
    ZelProtocolLogInfo("ZelProtocolMessageBufCompose done, msglen:%d DataLen:%d\n", length,
                       message.extraLength);
    return 0;
}

int composeBare(Envelope& message, char* buffer, size_t size, size_t bodyBuffer)
{
    TextWriter out(buffer, size);
    if (const int status = composeText(message, out, bodyBuffer))
        return status;
    if (out.length() >= bodyBuffer)
        return ZEL_ERR_BUFFER_SMALL;
    memset(out.cursor, 0, out.left());
    return static_cast<int>(out.length());
}

int composeFramed(Envelope& message, const Frame& frame, size_t bodyBuffer)
{
    TextWriter out = frame.text();
    if (const int status = composeText(message, out, bodyBuffer))
        return status;
    if (out.overflowed())
        return ZEL_ERR_BUFFER_SMALL;
    const auto extraLength = static_cast<uint32_t>(message.extraLength);
    const int result = finishFrame(frame, out, extraLength);
    if (result < 0)
        return result;
    ZelProtocolLogInfo("put buf len : %d\n", result);
    ZelProtocolLogInfo("Msg HeadInfo len : %d\n",
                       static_cast<int>(static_cast<uint32_t>(result) - kHeadSize + extraLength));
    return result;
}

inline Envelope envelope(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind)
{
    const std::string_view type = textOf(header.Msg_type);
    const std::string_view code = textOf(header.Msg_code);
    return {header, type, code, findFamily(type, code), record, kind, 0};
}

inline bool isTransparent(const Envelope& message)
{
    return message.type == "TRANSPARENT_CHANNEL_MSG" && message.record;
}

// The library only reads a record that it writes out.
TRANSPARENT_HEADER& transparentRecord(const Envelope& message)
{
    return *static_cast<TRANSPARENT_HEADER*>(const_cast<void*>(message.record));
}

bool isBare(const Envelope& message)
{
    return message.family && message.family->isBare;
}

// The least buffer for a text of `length` bytes.
size_t leastBuffer(size_t length, bool bare, bool enciphered)
{
    if (bare)
        return length < kLeastBodyBuffer ? length : length + 1;
    return enciphered ? 2 * (length + 4) + 1 : length + kHeadSize + 1;
}

} // namespace

} // namespace zel

int ZelProtocolXMLCompose(const ZEL_PROTOCOL_HEADER* header, const void* record, int kind, int iCodecMode,
                          void* iCodecArg, char* outBuf, int outLen)
{
    using namespace zel;
    if (!outBuf || !header || outLen < 1)
        return ZEL_ERR_BAD_PARAM;
    const auto size = static_cast<size_t>(outLen);
    const Frame frame{iCodecMode, iCodecArg, outBuf, size};
    Envelope message = envelope(*header, record, kind);
    if (isTransparent(message))
        return composeTransparent(frame, transparentRecord(message));

    const size_t bodyBuffer = size > kLeastBodyBuffer ? size : kLeastBodyBuffer;
    return isBare(message) ? composeBare(message, outBuf, size, bodyBuffer)
                           : composeFramed(message, frame, bodyBuffer);
}

int ZelProtocolXMLComposeSize(const ZEL_PROTOCOL_HEADER* header, const void* record, int kind, int iCodecMode)
{
    using namespace zel;
    if (!header)
        return ZEL_ERR_BAD_PARAM;
    Envelope message = envelope(*header, record, kind);
    char none;
    TextWriter out(&none, 0);
    const int status = isTransparent(message) ? transparentText(out, transparentRecord(message))
                                              : appendText(message, out, SIZE_MAX);
    if (status != 0)
        return status;
    const size_t size = leastBuffer(out.length(), isBare(message), iCodecMode >= 0);
    return size <= INT_MAX ? static_cast<int>(size) : ZEL_ERR_BUFFER_SMALL;
}
