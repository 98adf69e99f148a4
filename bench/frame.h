// The frame around a text, and the body of each message.
#ifndef ZEL_BENCH_FRAME_H
#define ZEL_BENCH_FRAME_H

#include <cstring>

#include "lists.h"
#include "samples.h"

namespace bench {

constexpr size_t kHeadSize = 8;

// Puts the head before the text that ends at `end`.
inline int finishFrame(const Sample& sample, char* out, const char* end)
{
    static constexpr unsigned char kMagic[4] = {0x58, 0x91, 0x58, 0x51};
    const auto length = static_cast<uint32_t>(end - out - static_cast<std::ptrdiff_t>(kHeadSize));
    uint32_t announced = length;
    if (sample.id == MessageId::kAlarm) {
        const auto& alarm = *static_cast<const ALARM_REPORT_CMD_RPEORT_ALARM_PARAM*>(sample.record.get());
        const auto& face = *static_cast<const ALARM_REPORT_HUMANFACE_INFO*>(alarm.pExData);
        announced += 4 + static_cast<uint32_t>(face.AlgVer == 1 ? kShortFaceBlock : kFaceBlock);
    }
    memcpy(out, kMagic, sizeof kMagic);
    for (int i = 0; i < 4; ++i)
        out[4 + i] = static_cast<char>(announced >> (8 * i));
    return static_cast<int>(length + kHeadSize);
}

template <class Side>
void composeBody(const Sample& sample, Side& body)
{
    const void* const record = sample.record.get();
    switch (sample.id) {
    case MessageId::kHeartbeat:
        break;
    case MessageId::kLogin:
        loginList(body, *static_cast<const USER_AUTH_CMD_USER_AUTH_PARAM*>(record));
        break;
    case MessageId::kMedia:
        mediaList(body, *static_cast<const SYSTEM_CONFIG_GET_500_PARAM*>(record));
        break;
    case MessageId::kChannels:
        channelsList(body, *static_cast<const SYSTEM_CONFIG_GET_3803_PARAM*>(record));
        break;
    case MessageId::kEvent:
        eventList(body, *static_cast<const SYSTEM_CONFIG_GET_1402_PARAM*>(record));
        break;
    case MessageId::kAlarm: {
        const auto& alarm = *static_cast<const ALARM_REPORT_CMD_RPEORT_ALARM_PARAM*>(record);
        alarmList(
            body, alarm, [&]() -> const auto& {
                return *static_cast<const ALARM_REPORT_HUMANFACE_INFO*>(alarm.pExData);
            });
        break;
    }
    }
}

} // namespace bench

#endif
