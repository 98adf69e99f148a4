#include <climits>
#include <cstdlib>
#include <cstring>

#include "core/families.h"
#include "core/header.h"
#include "core/scan.h"
#include "core/scratch.h"
#include "core/search.h"
#include "zel_platform/codec.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

// One payload on its way in, deciphered.
struct Inbound
{
    char* bytes;
    size_t size;
    int sourceLength; // as it was received
    ZEL_PROTOCOL_HEADER& header;
    void** result;
};

int analyseFamily(Message& message, std::string_view type, std::string_view code, void** result)
{
    const Family* const family = findFamily(type, code);
    if (family && family->analyse)
        return family->analyse(*family, message, code, result);
    ZelProtocolLogError("ZelProtocolMSGAnalysisStart deal a unknow Msg_type:%.*s Msg_code:%.*s !!!\n",
                        printedLength(type), type.data(), printedLength(code), code.data());
    return ZEL_ERR_UNKNOWN_MSG;
}

// The wrapped message goes from its header on to the last byte, whatever lies behind its closing tag
// included.
int giveTransparent(const Message& message, const Inbound& inbound, const ElementReader& element)
{
    TRANSPARENT_HEADER* record = nullptr;
    memset(inbound.header.Msg_type, 0, sizeof inbound.header.Msg_type);
    TreeReader side(element);
    attribute(side, "Trans_Type", inbound.header.Msg_type);
    const size_t start = find(message.text, kMessageHeaderTag);
    if (start == std::string_view::npos)
        return ZEL_ERR_NO_ENVELOPE;
    const size_t length = message.received - start;
    if (length > sizeof record->acTransData)
        return ZEL_ERR_BUFFER_SMALL;
    if (!inbound.result)
        return ZEL_ERR_BAD_PARAM;
    record = static_cast<TRANSPARENT_HEADER*>(takeRecord(kTransparent.record));
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    readTransparentHeader(element, *record);
    memcpy(record->acTransData, message.text.data() + start, length);
    record->iTransDataLen = static_cast<int32_t>(length);
    *inbound.result = record;
    return static_cast<int>(length);
}

int analyseMessage(Message& message, const Inbound& inbound)
{
    ElementReader transparent;
    if (findTransparentHeader(message, transparent) == 0)
        return giveTransparent(message, inbound, transparent);
    const int status = GetMessageHeader(message, inbound.header);
    if (status < 0) {
        ZelProtocolLogError("GetMessageHeader failed! nRet:%d \n", status);
        return ZEL_ERR_NO_HEADER;
    }
    return analyseFamily(message, textOf(inbound.header.Msg_type), textOf(inbound.header.Msg_code),
                         inbound.result);
}

void logText(std::string_view text)
{
    ZelProtocolLogInfo("ZelProtocolMSGAnalysisStart get msgbuf:%.*s\n", printedLength(text), text.data());
}

// Some recorders ask for a channel's media without quotes: ChannelId=3/>. The value's place, or an empty
// range.
struct Unquoted
{
    size_t begin = 0;
    size_t end = 0;
};

Unquoted findUnquotedChannel(std::string_view text)
{
    if (find(text, kConfigGetType) == std::string_view::npos)
        return {};
    const size_t name = find(text, kChannelIdName);
    if (name == std::string_view::npos)
        return {};
    const size_t begin = name + kChannelIdName.text.size();
    const size_t end = text.find('/', begin);
    if (end == std::string_view::npos || text[begin] == '"')
        return {};
    for (const std::string_view code : {"501", "2511", "2560", "2561"})
        if (text.find(code) != std::string_view::npos)
            return {begin, end};
    return {};
}

// All received bytes are copied, so that what lies behind the text stays behind it.
int analyseRepaired(size_t textSize, const Unquoted& channel, const Inbound& inbound)
{
    const size_t size = inbound.size + 2;
    const Scratch scratch(size);
    if (!scratch.bytes)
        return ZEL_ERR_NO_MEMORY;
    TextWriter out(scratch.bytes, size);
    out.append(inbound.bytes, channel.begin);
    out.append("\"");
    out.append(inbound.bytes + channel.begin, channel.end - channel.begin);
    out.append("\"");
    out.append(inbound.bytes + channel.end, inbound.size - channel.end);
    Message message({scratch.bytes, textSize + 2}, size, inbound.sourceLength);
    logText(message.text);
    return analyseMessage(message, inbound);
}

int analyseBytes(const Inbound& inbound)
{
    const std::string_view received(inbound.bytes, inbound.size);
    const size_t tag = find(received, kClosingTag);
    if (tag == std::string_view::npos)
        return ZEL_ERR_NO_ENVELOPE;
    const std::string_view text = partOf(received, 0, tag + kClosingTag.text.size());
    Message message(text, inbound.size, inbound.sourceLength);
    // A text that parses has no NUL, and most have nothing to repair.
    const bool isGood = parse(message);
    if (!isGood && memchr(inbound.bytes, 0, tag))
        return ZEL_ERR_NO_ENVELOPE;
    if (text.size() < inbound.size)
        inbound.bytes[text.size()] = '\0';
    logText(text);
    if (!isGood || !message.parser.IsQuoted()) {
        const Unquoted channel = findUnquotedChannel(text);
        if (channel.end != 0) {
            message.parser = {};
            return analyseRepaired(text.size(), channel, inbound);
        }
    }
    return analyseMessage(message, inbound);
}

int decipher(const Inbound& inbound, int mode, void* arg, const Scratch& scratch)
{
    const int capacity = scratch.size < INT_MAX ? static_cast<int>(scratch.size) : INT_MAX;
    const int length =
        mode == 0
            ? P2pProtocolDecode(0, inbound.bytes, inbound.sourceLength, scratch.bytes, capacity)
            : ZelProtocolDecode(mode, inbound.bytes, inbound.sourceLength, scratch.bytes, capacity, arg);
    return length < 0 || length > capacity ? ZEL_ERR_CODEC : length;
}

int analyseEnciphered(const Inbound& inbound, int mode, void* arg)
{
    const Scratch scratch(2 * inbound.size);
    if (!scratch.bytes)
        return ZEL_ERR_NO_MEMORY;
    const int length = decipher(inbound, mode, arg, scratch);
    if (length < 0)
        return length;
    return analyseBytes(
        {scratch.bytes, static_cast<size_t>(length), inbound.sourceLength, inbound.header, inbound.result});
}

} // namespace

} // namespace zel

int ZelProtocolMSGAnalysisStart(char* payload, int srcLen, int iCodecMode, void* iCodecArg,
                                ZEL_PROTOCOL_HEADER* header, void** result)
{
    if (!payload || !header || srcLen < 1) {
        ZelProtocolLogError("ZelProtocolXMLAnalysis Invaild Input Param\n");
        return ZEL_ERR_BAD_PARAM;
    }
    const zel::Inbound inbound{payload, static_cast<size_t>(srcLen), srcLen, *header, result};
    return iCodecMode < 0 ? zel::analyseBytes(inbound)
                          : zel::analyseEnciphered(inbound, iCodecMode, iCodecArg);
}

int ZelProtocolMSGAnalysisStop(void** result)
{
    if (result && *result) {
        free(*result);
        *result = nullptr;
    }
    return 0;
}
