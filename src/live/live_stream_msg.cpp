#include "zel_protocol/live_stream.h"

#include "core/families.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "LIVE_STREAM_MESSAGE";

using StreamStart = LIVE_STREAM_CMD_STREAM_START_PARAM;
using StreamStop = LIVE_STREAM_CMD_STREAM_STOP_PARAM;
using StreamQuality = LIVE_STREAM_CMD_STREAM_QUALITY_PARAM;

bool isStart(std::string_view code)
{
    return code == "CMD_STREAM_START" || numberOf(code) == 1062;
}

int unknownStreamCode(std::string_view code)
{
    ZelProtocolLogError("%s deal a unknow Msg_code:%.*s !!!\n", kFamily, printedLength(code), code.data());
    return ZEL_ERR_UNKNOWN_MSG;
}

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto headerAttributes = [](auto& side, auto& record) {
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "StreamID", record.StreamID);
    attribute(side, "ConnectNum", record.ConnectNum);
    attribute(side, "StreamNum", record.StreamNum);
};

constexpr auto startRequest = [](auto& side, auto& record) {
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "VideoStream", record.VideoStream);
    attributeIfSet(side, "AudioEnable", record.AudioEnable);
    attributeIfSet(side, "VideoPort", record.VideoPort);
    attributeIfSet(side, "AudioPort", record.AudioPort);
    attributeIfSet(side, "Multicast", record.Multicast);
    attributeIfSet(side, "UseTcp", record.UseTcp);
    attributeIfSet(side, "FrameType", record.FrameType);
};

// Where a stream without TCP is sent to.
constexpr auto destination = [](auto& side, auto& record, bool audio) {
    attributeIfSet(side, "Multicast", record.Multicast);
    attributeIfSet(side, "MulticastAddress", record.MulticastAddress);
    attribute(side, "VideoPort", record.VideoPort);
    if (audio)
        attribute(side, "AudioPort", record.AudioPort);
};

constexpr auto transport = [](auto& side, auto& record) {
    attributeWritten(side, "ChannelId", record.ChannelId); // is read from the header
    attribute(side, "StreamID", record.StreamID);
    attribute(side, "VideoStream", record.VideoStream);
    if constexpr (kWrites<decltype(side)>) {
        const int32_t audio = record.AudioEnable > 0;
        attribute(side, "AudioEnable", audio);
        if (record.UseTcp != 0 && isSet(record.UseTcp))
            attribute(side, "UseTcp", record.UseTcp);
        else
            destination(side, record, audio != 0);
    } else {
        attribute(side, "AudioEnable", record.AudioEnable);
        attribute(side, "UseTcp", record.UseTcp);
        destination(side, record, true);
    }
    attributeIfSet(side, "EnableChangeStream", record.EnableChangeStream);
};

constexpr auto videoParam = [](auto& side, auto& video) {
    attribute(side, "Encoder", video.Encoder);
    attribute(side, "Width", video.Width);
    attribute(side, "Height", video.Height);
    attribute(side, "Framerate", video.Framerate);
    attribute(side, "Bitrate", video.Bitrate);
    attribute(side, "Config", video.Config);
};

constexpr auto audioParam = [](auto& side, auto& audio) {
    attribute(side, "Encoder", audio.Encoder);
    attribute(side, "SampleRate", audio.SampleRate);
    attribute(side, "SampleWidth", audio.SampleWidth);
    attribute(side, "Channels", audio.Channels);
    attribute(side, "Bitrate", audio.Bitrate);
};

constexpr auto mediaParams = [](auto& side, auto& record, bool audio) {
    element(side, "VIDEO_PARAM", [&](auto& video) { videoParam(video, record.stVideo); });
    if (audio)
        element(side, "AUDIO_PARAM", [&](auto& sound) { audioParam(sound, record.stAudio); });
};

constexpr auto stopAttributes = [](auto& side, auto& record) {
    atoiAttributeIfSet(side, "ChannelId", record.ChannelId);
    atoiAttributeIfSet(side, "StreamID", record.StreamID);
    atoiAttributeIfSet(side, "UseTcp", record.UseTcp);
};

constexpr auto qualityAttributes = [](auto& side, auto& record) {
    atoiAttributeIfSet(side, "ChannelId", record.ChannelId);
    atoiAttributeIfSet(side, "StreamID", record.StreamID);
    atoiAttributeIfSet(side, "FrameType", record.FrameType);
};

// --- Messages ------------------------------------------------------------------------------------

bool writesHeader(const void* record, int kind, std::string_view code)
{
    return isStart(code) && !isRequest(kind) && isSet(as<StreamStart>(record).ConnectNum);
}

// No analysis of the family asks where its result goes to until it has one.
int openStreamBody(Message& message, const Leaf& leaf, ElementReader& body)
{
    if (message.isNull())
        return emptyParam(leaf.name);
    if (const int status = findRoot(message, leaf))
        return status;
    return findBody(message, leaf, body);
}

template <class Record, class Fill>
int analyseStream(Message& message, void** result, const Leaf& leaf, const char* name, int (*init)(Record*),
                  Fill fill)
{
    ElementReader body;
    if (const int status = openStreamBody(message, leaf, body))
        return status;
    const ElementReader stream = body.child(name);
    if (!stream)
        return missingElement(leaf, name);
    return giveRecord(result, init, [&](Record& record) { fill(stream, record); });
}

int LiveStreamCmdStartMessageCompose(TextWriter& out, const StreamStart& record, int kind)
{
    if (isRequest(kind)) {
        element(out, "STREAM_START_PARAM", [&](TextWriter& side) { startRequest(side, record); });
    } else if (isSet(record.VideoStream)) {
        element(out, "TRANS_PARAM", [&](TextWriter& side) { transport(side, record); });
        mediaParams(out, record, record.AudioEnable > 0);
    }
    return 0;
}

int LiveStreamCmdStartMessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__, true};
    ElementReader body;
    if (const int status = openStreamBody(message, leaf, body))
        return status;
    const ElementReader request = body.child("STREAM_START_PARAM");
    const ElementReader response = request ? ElementReader() : body.child("TRANS_PARAM");
    if (!request && !response)
        return missingElement(leaf, "STREAM_START_PARAM");
    return giveRecord(result, LIVE_STREAM_CMD_STREAM_START_PARAM_init, [&](StreamStart& record) {
        element(message.root, "MESSAGE_HEADER", [&](auto& header) { headerAttributes(header, record); });
        if (request) {
            startRequest(request, record);
        } else {
            transport(response, record);
            mediaParams(body, record, true);
        }
    });
}

int LiveStreamCmdStopMessageCompose(TextWriter& out, const StreamStop& record, int)
{
    element(out, "STREAM_STOP_PARAM", [&](TextWriter& side) { stopAttributes(side, record); });
    return 0;
}

int LiveStreamCmdStopMessageAnalysis(Message& message, void** result)
{
    return analyseStream(message, result, {__func__}, "STREAM_STOP_PARAM",
                         LIVE_STREAM_CMD_STREAM_STOP_PARAM_init, stopAttributes);
}

int LiveStreamCmdQualityMessageCompose(TextWriter& out, const StreamQuality& record, int)
{
    element(out, "STREAM_QUALITY_PARAM", [&](TextWriter& side) { qualityAttributes(side, record); });
    return 0;
}

int LiveStreamCmdQualityMessageAnalysis(Message& message, void** result)
{
    return analyseStream(message, result, {__func__}, "STREAM_QUALITY_PARAM",
                         LIVE_STREAM_CMD_STREAM_QUALITY_PARAM_init, qualityAttributes);
}

} // namespace

// --- Dispatch ------------------------------------------------------------------------------------

void liveStreamHeader(TextWriter& out, const void* record, int kind, std::string_view code)
{
    if (writesHeader(record, kind, code))
        headerAttributes(out, as<StreamStart>(record));
}

int LiveStreamMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code)
{
    if (isStart(code))
        return LiveStreamCmdStartMessageCompose(out, as<StreamStart>(record), kind);
    if (code == "CMD_STREAM_STOP")
        return LiveStreamCmdStopMessageCompose(out, as<StreamStop>(record), kind);
    if (code == "CMD_STREAM_QUALITY")
        return LiveStreamCmdQualityMessageCompose(out, as<StreamQuality>(record), kind);
    return unknownStreamCode(code);
}

int LiveStreamMessageAnalysis(Message& message, std::string_view code, void** result)
{
    if (message.isNull() || !code.data())
        return emptyParam(kFamily);
    if (isStart(code))
        return LiveStreamCmdStartMessageAnalysis(message, result);
    if (code == "CMD_STREAM_STOP")
        return LiveStreamCmdStopMessageAnalysis(message, result);
    if (code == "CMD_STREAM_QUALITY")
        return LiveStreamCmdQualityMessageAnalysis(message, result);
    return unknownStreamCode(code);
}

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int LIVE_STREAM_CMD_STREAM_START_PARAM_init(LIVE_STREAM_CMD_STREAM_START_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.MulticastAddress, record.stVideo.Encoder, record.stVideo.Config,
                   record.stAudio.Encoder);
    });
}

int LIVE_STREAM_1062_PARAM_init(LIVE_STREAM_1062_PARAM* param)
{
    return LIVE_STREAM_CMD_STREAM_START_PARAM_init(param);
}

int LIVE_STREAM_CMD_STREAM_STOP_PARAM_init(LIVE_STREAM_CMD_STREAM_STOP_PARAM* param)
{
    return zel::initRecord(param);
}

int LIVE_STREAM_CMD_STREAM_QUALITY_PARAM_init(LIVE_STREAM_CMD_STREAM_QUALITY_PARAM* param)
{
    return LIVE_STREAM_CMD_STREAM_STOP_PARAM_init(param);
}

int LiveStreamMessageCompose(const void* record, int kind, const char* code, char* buf, int len,
                             char* headBuf, int headSize, int headUsed)
{
    const int status =
        zel::composeCode<zel::LiveStreamMessageCompose>(zel::kFamily, record, kind, code, buf, len);
    if (status != 0 || !record || !zel::writesHeader(record, kind, code))
        return status;
    if (!headBuf || headSize < 1)
        return zel::emptyParam(zel::kFamily);
    if (headUsed < 0 || headUsed >= headSize)
        return ZEL_ERR_BUFFER_SMALL;
    zel::TextWriter out(headBuf + headUsed, static_cast<size_t>(headSize - headUsed) - 1);
    zel::liveStreamHeader(out, record, kind, code);
    return zel::finishBody(out, 0);
}

int LiveStreamMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseCode<zel::LiveStreamMessageAnalysis>(text, code, result);
}

int LiveStreamCmdStartMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::LiveStreamCmdStartMessageAnalysis>(text, result);
}

int LiveStreamCmdStopMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::LiveStreamCmdStopMessageAnalysis>(text, result);
}

int LiveStreamCmdQualityMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::LiveStreamCmdQualityMessageAnalysis>(text, result);
}
