#include "client_steps.h"
#include "demo_data.h"
#include "settings.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstddef>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace demo {

namespace {

using MediaConfig = SYSTEM_CONFIG_GET_500_PARAM;

constexpr std::chrono::milliseconds kMoment{60};
constexpr std::size_t kMaxFileBytes = 64 * 1024 * 1024;

bool readConfig(Client& client, MediaConfig& config)
{
    Received answer;
    if (!ask(client, kConfigGet, "500", nullptr, answer))
        return false;
    config = recordOf<MediaConfig>(answer);
    return true;
}

/** Whether the camera answers a change with `flag`; such an answer has a header alone. */
bool changeIsAnswered(Client& client, const MediaConfig& wanted, std::string_view flag)
{
    Received answer;
    return exchange(client, composeRequest(client, kConfigSet, "520", &wanted), answer) &&
           isHeaderAlone(answer) && hasFlag(answer, flag);
}

/** Whether both would be the same text; what they have in memory behind a text's end doesn't count. */
bool isSame(const MediaConfig& one, const MediaConfig& other)
{
    Cipher plain;
    const ZEL_PROTOCOL_HEADER header = makeHeader(kConfigGet, "500");
    const Composed first = composeMessage(header, &one, ZEL_KIND_RESPONSE, plain);
    const Composed second = composeMessage(header, &other, ZEL_KIND_RESPONSE, plain);
    return first.status == 0 && first.bytes == second.bytes;
}

bool configIs(Client& client, const MediaConfig& expected)
{
    MediaConfig config;
    return readConfig(client, config) && isSame(config, expected);
}

/** The values of "name=value,value;name=value". */
std::vector<std::string> listIn(std::string_view text, std::string_view name)
{
    std::vector<std::string> values;
    const std::size_t start = text.find(std::string(name) + "=");
    if (start == std::string_view::npos)
        return values;
    text = text.substr(start + name.size() + 1);
    text = text.substr(0, text.find(';'));
    while (!text.empty()) {
        const std::size_t end = std::min(text.find(','), text.size());
        values.emplace_back(text.substr(0, end));
        text.remove_prefix(std::min(end + 1, text.size()));
    }
    return values;
}

/** What the camera's heartbeat tells of itself. */
struct CameraState
{
    std::string streams;
    std::string look; /**< "pan,tilt" */
    int pan = 0;
    int tilt = 0;
};

bool readState(Client& client, CameraState& state)
{
    Received answer;
    const Composed request = composeHeartbeat(client, client.cipher);
    if (!exchange(client, request, answer) || !isHeartbeatAnswer(answer, request))
        return false;
    const auto& record = recordOf<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM>(answer);
    state.streams = fieldText(record.streamstat);
    state.look = fieldText(record.IpcAbility1);
    const char* const end = state.look.data() + state.look.size();
    const auto pan = std::from_chars(state.look.data(), end, state.pan);
    if (pan.ec != std::errc() || pan.ptr == end || *pan.ptr != ',')
        return false;
    const auto tilt = std::from_chars(pan.ptr + 1, end, state.tilt);
    return tilt.ec == std::errc() && tilt.ptr == end;
}

bool startStream(Client& client, LIVE_STREAM_CMD_STREAM_START_PARAM& stream)
{
    Received answer;
    if (!ask(client, kLive, "CMD_STREAM_START", &stream, answer))
        return false;
    stream = recordOf<LIVE_STREAM_CMD_STREAM_START_PARAM>(answer);
    return true;
}

bool stopStream(Client& client, int streamId)
{
    LIVE_STREAM_CMD_STREAM_STOP_PARAM stop;
    LIVE_STREAM_CMD_STREAM_STOP_PARAM_init(&stop);
    stop.ChannelId = 0;
    stop.StreamID = streamId;
    Received answer;
    return ask(client, kLive, "CMD_STREAM_STOP", &stop, answer);
}

bool isDescribedBy(const LIVE_STREAM_VIDEO_PARAM& video, const SYSTEM_CONFIG_ENCODE_ROW& row)
{
    return std::to_string(video.Width) + "x" + std::to_string(video.Height) == fieldText(row.Resolution) &&
           video.Framerate == row.FrameRate && video.Bitrate == row.BitRate &&
           fieldText(video.Encoder) == fieldText(row.EncodeFormat);
}

/** Whether the camera repeats the command and its speeds. */
bool command(Client& client, std::string_view word, int panSpeed, int tiltSpeed)
{
    PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM speeds;
    PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM_init(&speeds);
    speeds.panspeed = panSpeed;
    speeds.tiltspeed = tiltSpeed;
    PTZ_CONTROL_PTZ_CMD_PARAM record;
    PTZ_CONTROL_PTZ_CMD_PARAM_init(&record);
    record.channelid = 0;
    setField(record.cmd, word);
    record.pExData = &speeds;

    Received answer;
    if (!ask(client, kPtz, "PTZ_CMD", &record, answer))
        return false;
    const auto& repeated = recordOf<PTZ_CONTROL_PTZ_CMD_PARAM>(answer);
    if (repeated.channelid != 0 || fieldText(repeated.cmd) != word || !repeated.pExData)
        return false;
    const auto& received = *static_cast<const PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM*>(repeated.pExData);
    return received.panspeed == panSpeed && received.tiltspeed == tiltSpeed;
}

/** Moves for a moment; the camera moves until it is told to stop, and not longer. */
bool moveAMoment(Client& client, std::string_view word, CameraState& state)
{
    CameraState moving;
    CameraState later;
    if (!command(client, word, 20, 30))
        return false;
    std::this_thread::sleep_for(kMoment);
    if (!readState(client, moving))
        return false;
    std::this_thread::sleep_for(kMoment);
    if (!command(client, "stop", 0, 0) || !readState(client, state))
        return false;
    std::this_thread::sleep_for(kMoment);
    return moving.look != state.look && readState(client, later) && later.look == state.look;
}

/** Checks an alarm and every byte of the block behind it. */
bool isFaceAlarm(const Received& alarm, std::uint32_t& serial, std::size_t& featureBytes)
{
    const auto& record = recordOf<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(alarm);
    if (!hasCode(alarm, "CMD_REPORT_ALARM") || record.Alarm_code != 38 || record.iExDataType != 38 ||
        !record.pExData || record.Year < 2026 || record.Src != 0 || record.ChannelId != 0)
        return false;
    const auto& face = *static_cast<const ALARM_REPORT_HUMANFACE_INFO*>(record.pExData);
    featureBytes = face.AlgVer == 1 ? 512 : 1024;
    std::vector<char> expected = generatedBytes(face.SerialNum, featureBytes);
    expected.resize(sizeof face.aucFeatureData);
    serial = face.SerialNum;
    return face.DataLen == featureBytes &&
           fieldText(face.uniqueIndex) == "face-" + std::to_string(face.SerialNum) &&
           std::equal(expected.begin(), expected.end(), face.aucFeatureData,
                      [](char one, std::uint8_t other) { return static_cast<std::uint8_t>(one) == other; });
}

bool queryMonth(Client& client, const std::string& month, std::string& days)
{
    NVR_REPLAY_3016_PARAM query;
    NVR_REPLAY_3016_PARAM_init(&query);
    query.ChannelId = 0;
    setField(query.Time, month);
    Received answer;
    if (!ask(client, kReplay, "3016", &query, answer))
        return false;
    const auto& record = recordOf<NVR_REPLAY_3016_PARAM>(answer);
    days = fieldText(record.RecordData);
    return days.size() == 31 && fieldText(record.Time) == month;
}

bool queryDay(Client& client, const std::string& day, std::string& minutes)
{
    NVR_REPLAY_3001_PARAM query;
    NVR_REPLAY_3001_PARAM_init(&query);
    query.ChannelId = 0;
    setField(query.Time, day);
    Received answer;
    if (!ask(client, kReplay, "3001", &query, answer))
        return false;
    const auto& record = recordOf<NVR_REPLAY_3001_PARAM>(answer);
    minutes = fieldText(record.Stream);
    return minutes.size() == 24 * 60 && fieldText(record.Time) == day;
}

std::string twoDigits(std::size_t number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

std::string dayOf(const std::string& month, std::size_t index)
{
    return month + "-" + twoDigits(index + 1);
}

/** Says that the client has a file up to `position`, and takes what the camera answers. */
bool askForChunk(Client& client, const std::string& name, std::size_t position, Received& answer)
{
    MEDIA_DATA_2_PARAM wanted;
    MEDIA_DATA_2_PARAM_init(&wanted);
    setField(wanted.RemoteFileName, name);
    setField(wanted.LocalFileName, name.substr(name.rfind('/') + 1));
    wanted.StartPos = static_cast<std::int32_t>(position);
    wanted.ErrorCode = 0;
    const ZEL_PROTOCOL_HEADER header = requestHeader(client, kMediaData, "2");
    return exchange(client, composeMessage(header, &wanted, ZEL_KIND_RESPONSE, client.cipher), answer) &&
           recordIn<MEDIA_DATA_2_PARAM>(answer);
}

/** Appends the chunk that follows what is there; `count` is 0 at the end of the file. */
bool takeChunk(Client& client, const std::string& name, std::vector<char>& file, std::size_t& count)
{
    Received answer;
    if (!askForChunk(client, name, file.size(), answer) || !hasFlag(answer, kOk))
        return false;
    const auto& chunk = recordOf<MEDIA_DATA_2_PARAM>(answer);
    if (chunk.DataLen < 0 || chunk.StartPos != static_cast<std::int32_t>(file.size()) ||
        (chunk.DataLen > 0 && !chunk.pData))
        return false;
    count = static_cast<std::size_t>(chunk.DataLen);
    if (count > 0)
        file.insert(file.end(), chunk.pData, chunk.pData + count);
    return file.size() <= kMaxFileBytes;
}

bool download(Client& client, const std::string& name)
{
    std::vector<char> file;
    std::size_t count = 0;
    int chunks = 0;
    do {
        if (!takeChunk(client, name, file, count))
            return false;
        chunks += count > 0 ? 1 : 0;
    } while (count > 0);
    printNote(kClientName, name + ": " + std::to_string(file.size()) + " bytes in " + std::to_string(chunks) +
                               " chunks" + (isWholeFile(file) ? ", the checksum is right" : ", damaged"));

    // A download may go on anywhere, after a lost connection say.
    std::vector<char> part(file.begin(), file.begin() + static_cast<std::ptrdiff_t>(file.size() / 2));
    return isWholeFile(file) && chunks > 2 && takeChunk(client, name, part, count) && count > 0 &&
           part.size() <= file.size() && std::equal(part.begin(), part.end(), file.begin());
}

bool missingFileIsRefused(Client& client)
{
    Received answer;
    if (!askForChunk(client, "/recordings/none.rec", 0, answer))
        return false;
    const auto& record = recordOf<MEDIA_DATA_2_PARAM>(answer);
    return hasFlag(answer, kFail) && record.ErrorCode > 0 && !record.pData;
}

bool settingsAreKept(Client& client, const SettingsPair& pair)
{
    const char* const getCode = pair.get.entry.Msg_code;
    Received first;
    Received changed;
    Received second;
    if (!ask(client, kConfigGet, getCode, nullptr, first) || !first.record)
        return false;
    // Whatever an earlier visit left there, one of these is something else.
    Sample wanted = makeSample(pair.set, 40);
    if (isChangedTo(pair, wanted, first.record.get(), first.record.get()))
        wanted = makeSample(pair.set, 60);
    return !isChangedTo(pair, wanted, first.record.get(), first.record.get()) &&
           exchange(client, composeRequest(client, kConfigSet, pair.set.entry.Msg_code, wanted.get()),
                    changed) &&
           hasFlag(changed, kOk) && ask(client, kConfigGet, getCode, nullptr, second) && second.record &&
           isChangedTo(pair, wanted, first.record.get(), second.record.get());
}

} // namespace

bool identityIsRead(Client& client)
{
    Received version;
    Received serial;
    Received type;
    return ask(client, kControl, "1012", nullptr, version) &&
           fieldText(recordOf<SYSTEM_CONTROL_1012_PARAM>(version).DeviceIdentify) == client.camera.model &&
           fieldText(recordOf<SYSTEM_CONTROL_1012_PARAM>(version).FileSystemVersion) ==
               client.camera.firmware &&
           ask(client, kControl, "1019", nullptr, serial) &&
           fieldText(recordOf<SYSTEM_CONTROL_1019_PARAM>(serial).SerialNumber) == client.camera.serial &&
           ask(client, kControl, "1030", nullptr, type) &&
           recordOf<SYSTEM_CONTROL_1030_PARAM>(type).Feature == client.camera.features;
}

bool abilitiesAreRead(Client& client)
{
    Received answer;
    if (!ask(client, kControl, "1020", nullptr, answer))
        return false;
    const auto& record = recordOf<SYSTEM_CONTROL_1020_PARAM>(answer);
    client.resolutions = listIn(fieldText(record.SystemConfigString), "Resolution");
    return client.resolutions.size() > 1 && record.SystemSettings == 1 && fieldText(record.PTZControl) == "1";
}

/** A change of several settings, then one of a single setting that leaves the rest alone. */
bool configIsChanged(Client& client)
{
    MediaConfig wanted;
    if (!readConfig(client, wanted))
        return false;
    wanted.Brightness = (wanted.Brightness + 17) % 101;
    setField(wanted.Title, "Gate, brightness " + std::to_string(wanted.Brightness));
    SYSTEM_CONFIG_ENCODE_ROW& row = wanted.stEncodeConfig[1];
    const auto current =
        std::find(client.resolutions.begin(), client.resolutions.end(), fieldText(row.Resolution));
    if (current == client.resolutions.end())
        return false;
    setField(row.Resolution,
             current + 1 == client.resolutions.end() ? client.resolutions.front() : current[1]);
    row.FrameRate = row.FrameRate % 30 + 1;
    if (configIs(client, wanted) || !changeIsAnswered(client, wanted, kOk) || !configIs(client, wanted))
        return false;

    MediaConfig single;
    SYSTEM_CONFIG_SET_520_PARAM_init(&single);
    single.Sharpness = wanted.Sharpness = (wanted.Sharpness + 29) % 101;
    return changeIsAnswered(client, single, kOk) && configIs(client, wanted);
}

/** One wrong value, and the good ones beside it are not taken over either. */
bool wrongConfigIsRefused(Client& client)
{
    MediaConfig config;
    if (!readConfig(client, config))
        return false;
    MediaConfig wanted = config;
    wanted.Brightness = (wanted.Brightness + 1) % 101;
    wanted.stEncodeConfig[0].FrameRate = 1000;
    return changeIsAnswered(client, wanted, kFail) && configIs(client, config);
}

bool guestMayNotChangeConfig(Client& client)
{
    Client guest;
    guest.camera = client.camera;
    guest.cipher = client.cipher;
    guest.link.socket = connectTo(client.camera.port);
    Received answer;
    MediaConfig config;
    if (!guest.link.socket.isOpen() || !logIn(guest, "guest", "battery staple", answer) ||
        !hasFlag(answer, kOk) || !readConfig(guest, config))
        return false;
    MediaConfig wanted = config;
    wanted.Brightness = (wanted.Brightness + 1) % 101;
    return changeIsAnswered(guest, wanted, kFail) && configIs(guest, config);
}

/** Every setting that the catalogue has a question and a change for. One line of the transcript tells of all.
 */
bool allSettingsAreKept(Client& client)
{
    int kept = 0;
    client.link.isQuiet = true;
    bool good = true;
    for (const SettingsPair& pair : settingsPairs()) {
        // The camera acts on these, and they have steps of their own.
        if (std::string_view(pair.get.entry.Msg_code) == "500")
            continue;
        const bool isKept = settingsAreKept(client, pair);
        if (!isKept)
            printNote(kClientName, std::string("not kept: ") + pair.get.entry.Msg_code);
        kept += isKept;
        good = good && isKept;
    }
    client.link.isQuiet = false;
    printNote(kClientName, std::to_string(kept) + " kinds of settings changed and read back");
    return good && kept > 0;
}

/** The stream must be as the configuration says. Its numbers come in the message's header. */
bool streamStartsAndStops(Client& client)
{
    MediaConfig config;
    LIVE_STREAM_CMD_STREAM_START_PARAM overTcp;
    LIVE_STREAM_CMD_STREAM_START_PARAM_init(&overTcp);
    overTcp.ChannelId = 0;
    overTcp.VideoStream = 1;
    overTcp.AudioEnable = 1;
    overTcp.UseTcp = 1;
    LIVE_STREAM_CMD_STREAM_START_PARAM overUdp;
    LIVE_STREAM_CMD_STREAM_START_PARAM_init(&overUdp);
    overUdp.ChannelId = 0;
    overUdp.VideoStream = 0;
    overUdp.VideoPort = 40000;
    overUdp.UseTcp = 0;
    if (!readConfig(client, config) || !startStream(client, overTcp) || !startStream(client, overUdp))
        return false;

    CameraState running;
    CameraState stopped;
    return overTcp.ChannelId == 0 && overTcp.StreamNum == 1 && overTcp.ConnectNum > 0 &&
           overTcp.UseTcp == 1 && overTcp.VideoPort == -1 &&
           isDescribedBy(overTcp.stVideo, config.stEncodeConfig[1]) &&
           overTcp.stAudio.SampleRate == static_cast<std::int32_t>(config.SampleRate) &&
           overUdp.StreamNum == 2 && overUdp.StreamID != overTcp.StreamID && overUdp.VideoPort == 40000 &&
           isDescribedBy(overUdp.stVideo, config.stEncodeConfig[0]) && overUdp.stAudio.SampleRate == -1 &&
           readState(client, running) && running.streams == "2" && stopStream(client, overTcp.StreamID) &&
           !stopStream(client, overTcp.StreamID) && stopStream(client, overUdp.StreamID) &&
           readState(client, stopped) && stopped.streams == "0";
}

bool cameraMoves(Client& client)
{
    CameraState start;
    CameraState tilted;
    CameraState turned;
    if (!readState(client, start))
        return false;
    const bool up = start.tilt < 4000;
    const bool right = start.pan < 4000;
    return moveAMoment(client, up ? "up" : "down", tilted) && (tilted.tilt > start.tilt) == up &&
           tilted.pan == start.pan && moveAMoment(client, right ? "right" : "left", turned) &&
           (turned.pan > tilted.pan) == right && turned.tilt == tilted.tilt;
}

/** One for each of the moves; they came between requests and answers. */
bool alarmsAreReceived(Client& client)
{
    Received first;
    Received second;
    std::uint32_t serials[2] = {0, 0};
    std::size_t sizes[2] = {0, 0};
    CameraState state;
    return receiveAlarm(client, first) && isFaceAlarm(first, serials[0], sizes[0]) &&
           receiveAlarm(client, second) && isFaceAlarm(second, serials[1], sizes[1]) &&
           serials[1] == serials[0] + 1 && sizes[0] + sizes[1] == 512 + 1024 && readState(client, state) &&
           fieldText(recordOf<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(second).Alarm_data) ==
               "pan " + std::to_string(state.pan) + " tilt " + std::to_string(state.tilt);
}

/** Finds the last day of a month with recordings and the first recording of that day. */
bool recordingIsFoundAndDownloaded(Client& client)
{
    const std::string month = "2026-03";
    std::string days;
    std::string minutes;
    std::string others;
    if (!queryMonth(client, month, days))
        return false;
    const std::size_t day = days.rfind('1');
    const std::size_t other = days.find('0');
    if (day == std::string::npos || other == std::string::npos ||
        !queryDay(client, dayOf(month, day), minutes) || !queryDay(client, dayOf(month, other), others))
        return false;
    const std::size_t minute = minutes.find('1');
    if (minute == std::string::npos || others.find('1') != std::string::npos)
        return false;
    const std::string name =
        "/recordings/" + dayOf(month, day) + "-" + twoDigits(minute / 60) + twoDigits(minute % 60) + ".rec";
    return download(client, name) && missingFileIsRefused(client);
}

} // namespace demo
