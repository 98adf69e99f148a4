// The messages that are measured.
#ifndef ZEL_BENCH_SAMPLES_H
#define ZEL_BENCH_SAMPLES_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "zel_protocol/zel_protocol.h"

namespace bench {

enum class MessageId
{
    kHeartbeat,
    kLogin,
    kMedia,
    kChannels,
    kEvent,
    kAlarm
};

struct Sample
{
    std::string name;
    MessageId id;
    ZEL_PROTOCOL_HEADER header;
    int kind;
    std::shared_ptr<const void> record;
    size_t recordSize;
    std::string raw; // follows the text of the payload, end code first
};

Sample heartbeatSample();
Sample loginSample();
Sample mediaSample();
Sample channelsSample(int rows);
Sample eventSample();
Sample alarmSample();

std::vector<Sample> allSamples();

constexpr size_t kFaceBlock = 1024;
constexpr size_t kShortFaceBlock = 512;

} // namespace bench

#endif
