#include "camera_answers.h"

#include <algorithm>
#include <cstddef>
#include <ctime>
#include <string>
#include <vector>

namespace demo {

namespace {

constexpr std::size_t kMaxStreams = 4;
constexpr std::size_t kChunkBytes = 64 * 1024;
constexpr int kFaceAlarm = 38;
constexpr std::int32_t kNoSuchFile = 1;

/** Describes a stream as the encoder is set. */
void describeStream(LIVE_STREAM_CMD_STREAM_START_PARAM& record, const MediaConfig& config)
{
    const SYSTEM_CONFIG_ENCODE_ROW& row = config.stEncodeConfig[record.VideoStream];
    int width = 0;
    int height = 0;
    readResolution(fieldText(row.Resolution), width, height);
    record.stVideo.Width = width;
    record.stVideo.Height = height;
    record.stVideo.Framerate = row.FrameRate;
    record.stVideo.Bitrate = row.BitRate;
    setField(record.stVideo.Encoder, fieldText(row.EncodeFormat));
    if (record.AudioEnable <= 0)
        return;
    record.stAudio.SampleRate = static_cast<std::int32_t>(config.SampleRate);
    record.stAudio.SampleWidth = 16;
    record.stAudio.Channels = 1;
    record.stAudio.Bitrate = static_cast<std::int32_t>(config.BitRate);
    setField(record.stAudio.Encoder, fieldText(config.EncodeType));
}

/** This camera only keeps count of its streams: their pictures aren't messages and travel another way. */
Composed onStreamStart(const Exchange& exchange)
{
    const auto* wanted = recordIn<LIVE_STREAM_CMD_STREAM_START_PARAM>(exchange.request);
    Device& device = exchange.service.device;
    std::vector<int>& streams = exchange.session.streams;
    if (!wanted || wanted->ChannelId < 0 || wanted->ChannelId >= device.identity.channels ||
        wanted->VideoStream < 0 || wanted->VideoStream > 1 || streams.size() >= kMaxStreams)
        return refuse(exchange);
    streams.push_back(++device.streamsStarted);

    LIVE_STREAM_CMD_STREAM_START_PARAM record;
    LIVE_STREAM_CMD_STREAM_START_PARAM_init(&record);
    record.ChannelId = wanted->ChannelId;
    record.VideoStream = wanted->VideoStream;
    record.AudioEnable = device.config.Encode_Enable == 1 ? wanted->AudioEnable : 0;
    record.UseTcp = wanted->UseTcp;
    record.VideoPort = wanted->VideoPort;
    record.AudioPort = wanted->AudioPort;
    record.StreamID = streams.back();
    record.StreamNum = static_cast<std::int32_t>(streams.size());
    record.ConnectNum = static_cast<std::int32_t>(exchange.service.connections);
    describeStream(record, device.config);
    return answer(exchange, &record);
}

Composed onStreamStop(const Exchange& exchange)
{
    const auto* wanted = recordIn<LIVE_STREAM_CMD_STREAM_STOP_PARAM>(exchange.request);
    std::vector<int>& streams = exchange.session.streams;
    const auto found = wanted ? std::find(streams.begin(), streams.end(), wanted->StreamID) : streams.end();
    if (found == streams.end())
        return refuse(exchange);
    streams.erase(found);
    return answer(exchange, wanted);
}

Composed onMonth(const Exchange& exchange)
{
    const auto* query = recordIn<NVR_REPLAY_3016_PARAM>(exchange.request);
    const std::string days =
        query ? recordedDays(exchange.service.device, fieldText(query->Time)) : std::string();
    if (days.empty())
        return refuse(exchange);
    NVR_REPLAY_3016_PARAM record = *query;
    setField(record.RecordData, days);
    return answer(exchange, &record);
}

Composed onDay(const Exchange& exchange)
{
    const auto* query = recordIn<NVR_REPLAY_3001_PARAM>(exchange.request);
    const std::string minutes =
        query ? recordedMinutes(exchange.service.device, fieldText(query->Time)) : std::string();
    if (minutes.empty())
        return refuse(exchange);
    NVR_REPLAY_3001_PARAM record = *query;
    setField(record.Stream, minutes);
    return answer(exchange, &record);
}

} // namespace

Composed onLive(const Exchange& exchange)
{
    if (hasCode(exchange.request, "CMD_STREAM_START"))
        return onStreamStart(exchange);
    if (hasCode(exchange.request, "CMD_STREAM_STOP"))
        return onStreamStop(exchange);
    return refuse(exchange);
}

/**
 * The answer repeats the command.
 *
 * The analysis takes a message for the first command word that it finds anywhere in the text, and `cmd` need
 * not hold the same one. So `cmd` alone is no proof of what pExData points at, and only a peer that has
 * logged in gets this far.
 */
Composed onPtz(const Exchange& exchange)
{
    const auto* wanted = recordIn<PTZ_CONTROL_PTZ_CMD_PARAM>(exchange.request);
    if (!wanted || !wanted->pExData)
        return refuse(exchange);
    const auto& speeds = *static_cast<const PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM*>(wanted->pExData);
    if (!move(exchange.service.device, fieldText(wanted->cmd), speeds.panspeed, speeds.tiltspeed,
              Clock::now()))
        return refuse(exchange);
    return answer(exchange, wanted);
}

Composed onReplay(const Exchange& exchange)
{
    if (hasCode(exchange.request, "3016"))
        return onMonth(exchange);
    if (hasCode(exchange.request, "3001"))
        return onDay(exchange);
    return refuse(exchange);
}

/**
 * Downloading. The side that has the file sends its chunks in the message's request form, the side that wants
 * it speaks in the response form: the file's names, the position up to which it has the file, and an error.
 * So each of these asks for the next chunk, and a chunk of no bytes is the end.
 */
Composed onDownload(const Exchange& exchange)
{
    const auto* wanted = recordIn<MEDIA_DATA_2_PARAM>(exchange.request);
    if (!wanted)
        return refuse(exchange);
    const Recording* recording = findFile(exchange.service.device, fieldText(wanted->RemoteFileName));
    const std::size_t size = recording ? recording->file.size() : 0;
    MEDIA_DATA_2_PARAM record;
    MEDIA_DATA_2_PARAM_init(&record);
    record.StartPos = wanted->StartPos;
    if (!recording || wanted->StartPos < 0 || static_cast<std::size_t>(wanted->StartPos) > size ||
        wanted->ErrorCode != 0) {
        echoField(record.RemoteFileName, wanted->RemoteFileName);
        echoField(record.LocalFileName, wanted->LocalFileName);
        record.ErrorCode = kNoSuchFile;
        return composeMessage(answerHeader(exchange.request, kFail), &record, ZEL_KIND_RESPONSE,
                              exchange.cipher);
    }
    const auto start = static_cast<std::size_t>(wanted->StartPos);
    const std::size_t count = std::min(kChunkBytes, size - start);
    record.DataLen = static_cast<std::int32_t>(count);
    return composeWithData(answerHeader(exchange.request, kOk), &record, ZEL_KIND_REQUEST,
                           recording->file.data() + start, count, exchange.cipher);
}

Composed faceAlarm(const Face& face, Cipher& cipher)
{
    ALARM_REPORT_HUMANFACE_INFO info{};
    info.AlgVer = face.algorithm;
    info.SerialNum = face.serial;
    info.DataLen = static_cast<std::uint32_t>(face.features.size());
    info.faceQualityScore = 0.75f;
    setField(info.uniqueIndex, "face-" + std::to_string(face.serial));

    ALARM_REPORT_CMD_RPEORT_ALARM_PARAM record;
    ALARM_REPORT_CMD_RPEORT_ALARM_PARAM_init(&record);
    const std::time_t now = std::time(nullptr);
    std::tm time{};
    ::gmtime_r(&now, &time);
    record.Year = time.tm_year + 1900;
    record.Month = time.tm_mon + 1;
    record.Day = time.tm_mday;
    record.WDay = time.tm_wday;
    record.Hour = time.tm_hour;
    record.Minute = time.tm_min;
    record.Second = time.tm_sec;
    info.absTime = static_cast<std::uint32_t>(now);
    record.Alarm_code = kFaceAlarm;
    record.Alarm_flag = 1;
    record.Alarm_level = 2;
    record.Src = 0;
    record.ChannelId = 0;
    setField(record.Alarm_data,
             "pan " + std::to_string(face.seenAt.pan) + " tilt " + std::to_string(face.seenAt.tilt));
    record.pExData = &info;
    return composeWithData(makeHeader(kAlarm, "CMD_REPORT_ALARM"), &record, ZEL_KIND_REQUEST,
                           face.features.data(), face.features.size(), cipher);
}

} // namespace demo
