#include "camera_device.h"

#include "demo_data.h"
#include "demo_io.h"
#include "message_link.h"

#include <algorithm>
#include <array>
#include <utility>

namespace demo {

namespace {

constexpr int kMinutesOfDay = 24 * 60;
constexpr std::size_t kDaysOfMonth = 31;
constexpr std::size_t kFileBytesOfMinute = 9000;

constexpr int kDefaultSpeed = 20;
constexpr int kMaxSpeed = 60;
constexpr Position kLeast = {-17000, -3000};
constexpr Position kMost = {17000, 9000};

struct Direction
{
    std::string_view command;
    int pan;
    int tilt;
};

constexpr std::array<Direction, 8> kDirections = {{{"up", 0, 1},
                                                   {"down", 0, -1},
                                                   {"left", -1, 0},
                                                   {"right", 1, 0},
                                                   {"left_up", -1, 1},
                                                   {"right_up", 1, 1},
                                                   {"left_down", -1, -1},
                                                   {"right_down", 1, -1}}};

std::string twoDigits(int number)
{
    return (number < 10 ? "0" : "") + std::to_string(number);
}

Recording makeRecording(std::string day, int firstMinute, int endMinute)
{
    Recording recording;
    recording.fileName =
        "/recordings/" + day + "-" + twoDigits(firstMinute / 60) + twoDigits(firstMinute % 60) + ".rec";
    recording.day = std::move(day);
    recording.firstMinute = firstMinute;
    recording.endMinute = endMinute;
    const auto minutes = static_cast<std::size_t>(endMinute - firstMinute);
    recording.file = generatedBytes(checksum(recording.fileName.data(), recording.fileName.size()),
                                    kFileHeadBytes + minutes * kFileBytesOfMinute);
    sealFile(recording.file);
    return recording;
}

SYSTEM_CONFIG_ENCODE_ROW encoderRow(int stream, const std::string& resolution, int bitRate, int frameRate)
{
    SYSTEM_CONFIG_ENCODE_ROW row{};
    row.Stream = stream;
    row.Initquant = 30;
    row.BitRate = bitRate;
    row.FrameRate = frameRate;
    setField(row.Resolution, resolution);
    setField(row.EncodeFormat, encodings().front());
    setField(row.BitRateControl, "VBR");
    return row;
}

void setClock(std::int32_t (&field)[3], int hours, int minutes)
{
    field[0] = hours;
    field[1] = minutes;
    field[2] = 0;
}

/** The settings of a camera that comes out of its box. What it doesn't have stays absent. */
MediaConfig factoryConfig()
{
    MediaConfig config;
    SYSTEM_CONFIG_GET_500_PARAM_init(&config);
    config.LightMode = 2;
    config.LightCtrl = 1;
    config.LightVal = 80;
    config.LightModeRange[0] = 0;
    config.LightModeRange[1] = 1;
    config.LightModeRange[2] = 2;
    config.Brightness = 50;
    config.Contrast = 50;
    config.Saturation = 50;
    config.Sharpness = 50;
    config.HFlip = 0;
    config.VFlip = 0;
    setClock(config.IrcutNightStartTime, 19, 30);
    setClock(config.IrcutNightEndTime, 6, 45);
    config.stEncodeConfig[0] = encoderRow(0, resolutions().front(), 4096, 25);
    config.stEncodeConfig[1] = encoderRow(1, resolutions().back(), 512, 15);
    config.Overlay_Enable = 1;
    config.Transparency = 0;
    config.TimeOverlay_PosX = 2;
    config.TimeOverlay_PosY = 2;
    setField(config.Format, "YYYY-MM-DD hh:mm:ss");
    config.TitleOverlay_PosX = 2;
    config.TitleOverlay_PosY = 90;
    setField(config.Title, "Gate");
    config.Encode_Enable = 1;
    config.Capture_Volume = 70;
    config.Play_Volume = 60;
    config.SampleRate = 8000;
    config.BitRate = 64;
    setField(config.EncodeType, "G711A");
    return config;
}

bool takeNumber(std::int32_t& kept, std::int32_t wanted, int least, int most)
{
    if (wanted != -1)
        kept = wanted;
    return wanted == -1 || (wanted >= least && wanted <= most);
}

bool takeNumber(std::uint8_t& kept, std::uint8_t wanted, int least, int most)
{
    if (wanted != 255)
        kept = wanted;
    return wanted == 255 || (wanted >= least && wanted <= most);
}

template <std::size_t N>
bool takeText(char (&kept)[N], const char (&wanted)[N])
{
    const std::string_view text = fieldText(wanted);
    if (!text.empty())
        setField(kept, text);
    return ZelProtocolTextIsWritable(wanted, static_cast<int>(N)) != 0;
}

template <std::size_t N>
bool takeChoice(char (&kept)[N], const char (&wanted)[N], const std::vector<std::string>& choices)
{
    const std::string_view text = fieldText(wanted);
    return takeText(kept, wanted) &&
           (text.empty() || std::find(choices.begin(), choices.end(), text) != choices.end());
}

bool takeEncoder(SYSTEM_CONFIG_ENCODE_ROW& kept, const SYSTEM_CONFIG_ENCODE_ROW& wanted)
{
    return takeNumber(kept.Stream, wanted.Stream, kept.Stream, kept.Stream) &&
           takeNumber(kept.Initquant, wanted.Initquant, 1, 51) &&
           takeNumber(kept.BitRate, wanted.BitRate, 32, 16384) &&
           takeNumber(kept.FrameRate, wanted.FrameRate, 1, 30) &&
           takeChoice(kept.Resolution, wanted.Resolution, resolutions()) &&
           takeChoice(kept.EncodeFormat, wanted.EncodeFormat, encodings()) &&
           takeChoice(kept.BitRateControl, wanted.BitRateControl, {"CBR", "VBR"});
}

bool takePicture(MediaConfig& kept, const MediaConfig& wanted)
{
    return takeNumber(kept.LightMode, wanted.LightMode, 0, 2) &&
           takeNumber(kept.LightCtrl, wanted.LightCtrl, 0, 1) &&
           takeNumber(kept.LightVal, wanted.LightVal, 0, 100) &&
           takeNumber(kept.Brightness, wanted.Brightness, 0, 100) &&
           takeNumber(kept.Contrast, wanted.Contrast, 0, 100) &&
           takeNumber(kept.Saturation, wanted.Saturation, 0, 100) &&
           takeNumber(kept.Sharpness, wanted.Sharpness, 0, 100) &&
           takeNumber(kept.HFlip, wanted.HFlip, 0, 1) && takeNumber(kept.VFlip, wanted.VFlip, 0, 1);
}

bool takeOverlay(MediaConfig& kept, const MediaConfig& wanted)
{
    return takeNumber(kept.Overlay_Enable, wanted.Overlay_Enable, 0, 1) &&
           takeNumber(kept.Transparency, wanted.Transparency, 0, 100) &&
           takeNumber(kept.TimeOverlay_PosX, wanted.TimeOverlay_PosX, 0, 100) &&
           takeNumber(kept.TimeOverlay_PosY, wanted.TimeOverlay_PosY, 0, 100) &&
           takeNumber(kept.TitleOverlay_PosX, wanted.TitleOverlay_PosX, 0, 100) &&
           takeNumber(kept.TitleOverlay_PosY, wanted.TitleOverlay_PosY, 0, 100) &&
           takeText(kept.Title, wanted.Title);
}

bool takeAudio(MediaConfig& kept, const MediaConfig& wanted)
{
    return takeNumber(kept.Encode_Enable, wanted.Encode_Enable, 0, 1) &&
           takeNumber(kept.Capture_Volume, wanted.Capture_Volume, 0, 100) &&
           takeNumber(kept.Play_Volume, wanted.Play_Volume, 0, 100);
}

/** The two algorithms take turns; their feature blocks differ in size. */
void findFace(Device& device)
{
    Face face;
    face.serial = ++device.facesSeen;
    face.algorithm = face.serial % 2 == 1 ? 1 : 2;
    face.seenAt = device.position;
    face.features = generatedBytes(face.serial, face.algorithm == 1 ? 512 : 1024);
    device.newFaces.push_back(std::move(face));
}

void endMotion(Device& device, Clock::time_point now)
{
    device.position = positionAt(device, now);
    device.motion = Motion();
}

int speedOf(int wanted)
{
    return wanted < 0 ? kDefaultSpeed : std::min(wanted, kMaxSpeed);
}

bool readDay(std::string_view text, int& year, int& month, int& day)
{
    return text.size() == 10 && text[4] == '-' && text[7] == '-' &&
           readNumber(text.substr(0, 4), 9999, year) && readNumber(text.substr(5, 2), 12, month) &&
           readNumber(text.substr(8, 2), static_cast<int>(kDaysOfMonth), day) && month > 0 && day > 0;
}

} // namespace

Device makeDevice()
{
    Device device;
    device.config = factoryConfig();
    device.recordings.push_back(makeRecording("2026-03-02", 22 * 60 + 10, 22 * 60 + 16));
    device.recordings.push_back(makeRecording("2026-03-18", 9 * 60 + 30, 10 * 60 + 5));
    device.recordings.push_back(makeRecording("2026-03-18", 17 * 60, 17 * 60 + 12));
    return device;
}

const std::vector<std::string>& resolutions()
{
    static const std::vector<std::string> all = {"1920x1080", "1280x720", "704x576", "640x360"};
    return all;
}

const std::vector<std::string>& encodings()
{
    static const std::vector<std::string> all = {"H264", "H265"};
    return all;
}

bool readResolution(std::string_view text, int& width, int& height)
{
    const std::size_t cross = text.find('x');
    return cross != std::string_view::npos && readNumber(text.substr(0, cross), 16384, width) &&
           readNumber(text.substr(cross + 1), 16384, height);
}

bool changeConfig(Device& device, const MediaConfig& wanted)
{
    MediaConfig changed = device.config;
    if (!takePicture(changed, wanted) || !takeOverlay(changed, wanted) || !takeAudio(changed, wanted) ||
        !takeEncoder(changed.stEncodeConfig[0], wanted.stEncodeConfig[0]) ||
        !takeEncoder(changed.stEncodeConfig[1], wanted.stEncodeConfig[1]))
        return false;
    device.config = changed;
    return true;
}

bool move(Device& device, std::string_view command, int panSpeed, int tiltSpeed, Clock::time_point now)
{
    if (command == "stop") {
        if (device.motion.running) {
            endMotion(device, now);
            findFace(device);
        }
        return true;
    }
    const auto* const direction = std::find_if(kDirections.begin(), kDirections.end(),
                                               [&](const Direction& d) { return d.command == command; });
    if (direction == kDirections.end())
        return false;
    endMotion(device, now);
    device.motion = {true, direction->pan * speedOf(panSpeed), direction->tilt * speedOf(tiltSpeed),
                     device.position, now};
    return true;
}

Position positionAt(const Device& device, Clock::time_point now)
{
    if (!device.motion.running)
        return device.position;
    using std::chrono::milliseconds;
    // Whatever the speed, the camera has reached an end by then.
    const milliseconds moved = std::min(std::chrono::duration_cast<milliseconds>(now - device.motion.since),
                                        milliseconds(60 * 60 * 1000));
    const auto elapsed = static_cast<int>(moved.count());
    const Motion& motion = device.motion;
    return {std::clamp(motion.start.pan + motion.panSpeed * (elapsed / 10), kLeast.pan, kMost.pan),
            std::clamp(motion.start.tilt + motion.tiltSpeed * (elapsed / 10), kLeast.tilt, kMost.tilt)};
}

std::string recordedDays(const Device& device, std::string_view month)
{
    int year = 0;
    int monthNumber = 0;
    int day = 0;
    if (!readDay(std::string(month) + "-01", year, monthNumber, day))
        return {};
    std::string days(kDaysOfMonth, '0');
    for (const Recording& recording : device.recordings)
        if (recording.day.compare(0, month.size(), month) == 0 &&
            readDay(recording.day, year, monthNumber, day))
            days[static_cast<std::size_t>(day - 1)] = '1';
    return days;
}

std::string recordedMinutes(const Device& device, std::string_view day)
{
    int year = 0;
    int month = 0;
    int dayNumber = 0;
    if (!readDay(day, year, month, dayNumber))
        return {};
    std::string minutes(kMinutesOfDay, '0');
    for (const Recording& recording : device.recordings)
        if (recording.day == day)
            std::fill(minutes.begin() + recording.firstMinute, minutes.begin() + recording.endMinute, '1');
    return minutes;
}

const Recording* findFile(const Device& device, std::string_view fileName)
{
    for (const Recording& recording : device.recordings)
        if (recording.fileName == fileName)
            return &recording;
    return nullptr;
}

} // namespace demo
