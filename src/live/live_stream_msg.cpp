#include "zel_protocol/live_stream.h"

#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

using StreamStart = LIVE_STREAM_CMD_STREAM_START_PARAM;
using StreamStop = LIVE_STREAM_CMD_STREAM_STOP_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void headerAttributes(Side& side, StreamStart& record)
{
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "StreamID", record.StreamID);
    attribute(side, "ConnectNum", record.ConnectNum);
    attribute(side, "StreamNum", record.StreamNum);
}

void startRequest(Side& side, StreamStart& record)
{
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "VideoStream", record.VideoStream);
    attributeIfSet(side, "AudioEnable", record.AudioEnable);
    attributeIfSet(side, "VideoPort", record.VideoPort);
    attributeIfSet(side, "AudioPort", record.AudioPort);
    attributeIfSet(side, "Multicast", record.Multicast);
    attributeIfSet(side, "UseTcp", record.UseTcp);
    attributeIfSet(side, "FrameType", record.FrameType);
}

// Where a stream without TCP is sent to.
void destination(Side& side, StreamStart& record, bool audio)
{
    attributeIfSet(side, "Multicast", record.Multicast);
    attributeIfSet(side, "MulticastAddress", record.MulticastAddress);
    attribute(side, "VideoPort", record.VideoPort);
    if (audio)
        attribute(side, "AudioPort", record.AudioPort);
}

void transport(Side& side, StreamStart& record)
{
    attributeWritten(side, "ChannelId", record.ChannelId); // is read from the header
    attribute(side, "StreamID", record.StreamID);
    attribute(side, "VideoStream", record.VideoStream);
    if (side.writes()) {
        const bool audio = record.AudioEnable > 0;
        attributeAs(side, "AudioEnable", record.AudioEnable, audio);
        const bool tcp = record.UseTcp != 0 && isSet(record.UseTcp);
        if (side.takes(tcp))
            attribute(side, "UseTcp", record.UseTcp);
        if (side.takes(!tcp))
            destination(side, record, audio);
    } else {
        attribute(side, "AudioEnable", record.AudioEnable);
        attribute(side, "UseTcp", record.UseTcp);
        destination(side, record, true);
    }
    attributeIfSet(side, "EnableChangeStream", record.EnableChangeStream);
}

void videoParam(Side& side, LIVE_STREAM_VIDEO_PARAM& video)
{
    attribute(side, "Encoder", video.Encoder);
    attribute(side, "Width", video.Width);
    attribute(side, "Height", video.Height);
    attribute(side, "Framerate", video.Framerate);
    attribute(side, "Bitrate", video.Bitrate);
    attribute(side, "Config", video.Config);
}

void audioParam(Side& side, LIVE_STREAM_AUDIO_PARAM& audio)
{
    attribute(side, "Encoder", audio.Encoder);
    attribute(side, "SampleRate", audio.SampleRate);
    attribute(side, "SampleWidth", audio.SampleWidth);
    attribute(side, "Channels", audio.Channels);
    attribute(side, "Bitrate", audio.Bitrate);
}

void startResponse(Side& side, StreamStart& record)
{
    if (const Element trans = elementIf(isSet(record.VideoStream), side, "TRANS_PARAM"))
        transport(side, record);
    if (side.takes(isSet(record.VideoStream))) {
        if (const Element video = element(side, "VIDEO_PARAM"))
            videoParam(side, record.stVideo);
        if (const Element audio = elementIf(record.AudioEnable > 0, side, "AUDIO_PARAM"))
            audioParam(side, record.stAudio);
    }
}

void stopAttributes(Side& side, StreamStop& record)
{
    atoiAttributeIfSet(side, "ChannelId", record.ChannelId);
    atoiAttributeIfSet(side, "StreamID", record.StreamID);
    atoiAttributeIfSet(side, "UseTcp", record.UseTcp);
}

void qualityAttributes(Side& side, StreamStop& record)
{
    atoiAttributeIfSet(side, "ChannelId", record.ChannelId);
    atoiAttributeIfSet(side, "StreamID", record.StreamID);
    atoiAttributeIfSet(side, "FrameType", record.FrameType);
}

// --- Messages ------------------------------------------------------------------------------------

// No analysis of the family asks where its result goes to until it has one.
int analyseStream(const MessageRow& row, Message& message, void** result)
{
    if (message.isNull())
        return emptyParam(row.leaf.name);
    if (const int status = findRoot(message, row.leaf))
        return status;
    ElementReader body;
    const int status = findBody(message, row.leaf, body);
    return status != 0 ? status : giveParts(row, message, body, result);
}

constexpr MessageRow kStart =
    message<LIVE_STREAM_CMD_STREAM_START_PARAM_init>(
        "LiveStreamCmdStartMessageAnalysis", within<startRequest>("STREAM_START_PARAM", Kinds::kRequests),
        over<startResponse>("TRANS_PARAM", Kinds::kNotRequests))
        .reporting("STREAM_START_PARAM")
        .quiet()
        .headedBy<headerAttributes>(Kinds::kNotRequests)
        .analysedBy(analyseStream);
constexpr MessageRow kStop =
    message<LIVE_STREAM_CMD_STREAM_STOP_PARAM_init>("LiveStreamCmdStopMessageAnalysis",
                                                    within<stopAttributes>("STREAM_STOP_PARAM", Kinds::kAll))
        .analysedBy(analyseStream);
constexpr MessageRow kQuality =
    message<LIVE_STREAM_CMD_STREAM_QUALITY_PARAM_init>(
        "LiveStreamCmdQualityMessageAnalysis", within<qualityAttributes>("STREAM_QUALITY_PARAM", Kinds::kAll))
        .analysedBy(analyseStream);

constexpr CodeRow kCodes[] = {
    {0, &kStart, nullptr, 0, "CMD_STREAM_START"},
    {1, &kStop, nullptr, 0, "CMD_STREAM_STOP"},
    {2, &kQuality, Erased<LIVE_STREAM_CMD_STREAM_QUALITY_PARAM_init>::call, 0, "CMD_STREAM_QUALITY"},
    {1062, &kStart, Erased<LIVE_STREAM_1062_PARAM_init>::call},
};

// --- Dispatch ------------------------------------------------------------------------------------

int unknownStreamCode(const Family& family, std::string_view code)
{
    return unknownWord(family.name, code);
}

int analyseWord(const Family& family, Message& message, std::string_view code, void** result)
{
    if (message.isNull() || !code.data())
        return emptyParam(family.name);
    const CodeRow* const found = findWord(family, code);
    return found ? analyse(*found->row, message, result) : family.unknown(family, code);
}

bool writesHeader(const void* record, int kind, std::string_view code)
{
    const CodeRow* const found = findWord(kLiveStreamFamily, code);
    return found && found->row == &kStart && !isRequest(kind) && isSet(as<StreamStart>(record).ConnectNum);
}

void composeHeader(TextWriter& out, const void* record, int kind, std::string_view code)
{
    if (writesHeader(record, kind, code))
        kStart.header(out, const_cast<void*>(record));
}

} // namespace

extern constexpr Family kLiveStreamFamily =
    Family("LIVE_STREAM_MESSAGE", kCodes, composeWord, analyseWord, unknownStreamCode)
        .withHeader(composeHeader);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int LIVE_STREAM_CMD_STREAM_START_PARAM_init(LIVE_STREAM_CMD_STREAM_START_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.MulticastAddress, record.stVideo.Encoder, record.stVideo.Config,
                   record.stAudio.Encoder);
    });
}

ZEL_EXPORT_INIT(LIVE_STREAM_1062_PARAM, LIVE_STREAM_CMD_STREAM_START_PARAM)

int LIVE_STREAM_CMD_STREAM_STOP_PARAM_init(LIVE_STREAM_CMD_STREAM_STOP_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(LIVE_STREAM_CMD_STREAM_QUALITY_PARAM, LIVE_STREAM_CMD_STREAM_STOP_PARAM)

int LiveStreamMessageCompose(const void* record, int kind, const char* code, char* buf, int len,
                             char* headBuf, int headSize, int headUsed)
{
    const int status = zel::composeBody(zel::kLiveStreamFamily, record, kind, code, buf, len);
    if (status != 0 || !record || !zel::writesHeader(record, kind, code))
        return status;
    if (!headBuf || headSize < 1)
        return zel::emptyParam(zel::kLiveStreamFamily.name);
    if (headUsed < 0 || headUsed >= headSize)
        return ZEL_ERR_BUFFER_SMALL;
    zel::TextWriter out(headBuf + headUsed, static_cast<size_t>(headSize - headUsed) - 1);
    zel::composeHeader(out, record, kind, code);
    return zel::finishBody(out, 0);
}

int LiveStreamMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kLiveStreamFamily, text, code, result);
}

int LiveStreamCmdStartMessageAnalysis(const char* text, void** result)
{
    return zel::analyse(zel::kStart, text, result);
}

int LiveStreamCmdStopMessageAnalysis(const char* text, void** result)
{
    return zel::analyse(zel::kStop, text, result);
}

int LiveStreamCmdQualityMessageAnalysis(const char* text, void** result)
{
    return zel::analyse(zel::kQuality, text, result);
}
