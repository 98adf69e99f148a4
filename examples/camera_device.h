/**
 * What the camera is, keeps and does. It knows the messages' records where they are the natural form of what
 * it keeps, but neither messages nor connections.
 */
#ifndef EXAMPLES_CAMERA_DEVICE_H
#define EXAMPLES_CAMERA_DEVICE_H

#include "demo_io.h"

#include "zel_protocol/zel_protocol.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace demo {

using MediaConfig = SYSTEM_CONFIG_GET_500_PARAM;

/** What doesn't change while the camera runs. */
struct Identity
{
    std::string vendor = "DemoWorks";
    std::string model = "DW-PTZ-2";
    std::string serial = "DW2026-000417";
    std::string kernel = "6.1.0-dw";
    std::string firmware = "1.4.2";
    std::string hardware = "rev C";
    std::int32_t type = 3;
    std::int32_t subType = 7;
    std::uint64_t features = 0x8000000000000005; /**< bit mask */
    int channels = 1;
};

/** Where the camera looks, in hundredths of a degree. */
struct Position
{
    int pan = 0;
    int tilt = 0;
};

struct Motion
{
    bool running = false;
    int panSpeed = 0; /**< degrees in a second; below zero to the left */
    int tiltSpeed = 0;
    Position start;
    Clock::time_point since;
};

/** A face that came into view. */
struct Face
{
    std::uint32_t serial = 0;
    std::uint8_t algorithm = 0; /**< of the feature block */
    Position seenAt;
    std::vector<char> features;
};

/** One recording and its file. */
struct Recording
{
    std::string day;     /**< year-month-day */
    int firstMinute = 0; /**< of the day */
    int endMinute = 0;   /**< behind the last */
    std::string fileName;
    std::vector<char> file;
};

struct Device
{
    Identity identity;
    MediaConfig config;
    Motion motion;
    Position position; /**< while no motion is running */
    std::vector<Recording> recordings;
    std::vector<Face> newFaces; /**< not reported yet */
    std::uint32_t facesSeen = 0;
    int streamsStarted = 0;
};

Device makeDevice();

/** What an encoder can do. */
const std::vector<std::string>& resolutions();
const std::vector<std::string>& encodings();

/** Width and height of "1280x720"; false for anything else. */
bool readResolution(std::string_view text, int& width, int& height);

/**
 * Changes the settings that this camera has and `wanted` holds; what is absent there stays as it is, and so
 * does what this camera doesn't have.
 *
 * @return false, with nothing changed, if a value is out of range.
 */
bool changeConfig(Device& device, const MediaConfig& wanted);

/**
 * Starts a motion ("up", "right_down" and so on), or ends the one under way ("stop"). Speeds are in degrees
 * in a second; one that is absent or too large is replaced by what the camera can do. Where a motion ends the
 * camera finds a face.
 *
 * @return false for a command that the camera doesn't know.
 */
bool move(Device& device, std::string_view command, int panSpeed, int tiltSpeed, Clock::time_point now);

Position positionAt(const Device& device, Clock::time_point now);

/** 31 characters for "2026-03", '1' for a day with recordings; empty if that isn't a month. */
std::string recordedDays(const Device& device, std::string_view month);

/** 1440 characters for "2026-03-18", '1' for a recorded minute; empty if that isn't a day. */
std::string recordedMinutes(const Device& device, std::string_view day);

/** Null if there is none of that name. */
const Recording* findFile(const Device& device, std::string_view fileName);

} // namespace demo

#endif
