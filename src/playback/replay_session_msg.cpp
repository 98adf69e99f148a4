#include "zel_protocol/nvr_replay.h"

#include "core/families.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

template <class Record>
void channel(Side& side, Record& record)
{
    attribute(side, "ChannelId", record.ChannelId);
}

template <class Record>
void channelAndTime(Side& side, Record& record)
{
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "Time", record.Time);
}

void recQueryResponse(Side& side, NVR_REPLAY_3001_PARAM& record)
{
    attribute(side, "Stream", record.Stream);
    channelAndTime(side, record);
}

void streamStartRequest(Side& side, NVR_REPLAY_3002_PARAM& record)
{
    channelAndTime(side, record);
    hexAttributeIfSet(side, "RecType", record.RecType);
    attributeIfSet(side, "AudioEnable", record.AudioEnable);
}

void speedControlResponse(Side& side, NVR_REPLAY_3004_PARAM& record)
{
    attribute(side, "ChannelId", record.ChannelId);
    attributeIfSet(side, "Speed", record.Speed);
}

void speedControlRequest(Side& side, NVR_REPLAY_3004_PARAM& record)
{
    attributeIfSet(side, "FrameType", record.FrameType);
    speedControlResponse(side, record);
}

void playJumpRequest(Side& side, NVR_REPLAY_3010_PARAM& record)
{
    attribute(side, "Time", record.Time);
    attribute(side, "ChannelId", record.ChannelId);
}

bool isOn(int32_t flag)
{
    return flag != 0 && isSet(flag);
}

// The two flags aren't on the wire: they say what a response carries, and a received one leaves them alone.
void videoParam(Side& side, NVR_REPLAY_3012_PARAM& record)
{
    attributeIfSet(side, "ChannelId", record.ChannelId);
    if (side.takes(isOn(record.iVideoParamSet)))
        attribute(side, "VideoParam", record.VideoParam);
    if (side.takes(isOn(record.iAudioParamSet)))
        attribute(side, "AudioParam", record.AudioParam);
    attribute(side, "VideoSeconds", record.VideoSeconds);
}

void queryByMonthResponse(Side& side, NVR_REPLAY_3016_PARAM& record)
{
    attribute(side, "RecordData", record.RecordData);
    channelAndTime(side, record);
}

void queryBySencondRequest(Side& side, NVR_REPLAY_3017_PARAM& record)
{
    channelAndTime(side, record);
    attribute(side, "SequenceNumber", record.SequenceNumber);
}

void queryBySencondResponse(Side& side, NVR_REPLAY_3017_PARAM& record)
{
    if (const Element response = element(side, "RESPONSE_PARAM")) {
        channelAndTime(side, record);
        attribute(side, "TotalPacketNum", record.TotalPacketNum);
        attribute(side, "CurrentPacket", record.CurrentPacket);
        attribute(side, "SequenceNumber", record.SequenceNumber);
    }
    if (const Element slices = element(side, "TIMECLICE_PARAM"))
        attribute(side, "TimeSliceInfo", record.TimeSliceInfo);
}

// --- Messages ------------------------------------------------------------------------------------

constexpr MessageRow kRecQuery =
    either<NVR_REPLAY_3001_PARAM_init, channelAndTime<NVR_REPLAY_3001_PARAM>, recQueryResponse>(
        "NvrReplay_RecQuery_MessageAnalysis");
constexpr MessageRow kStreamStart =
    either<NVR_REPLAY_3002_PARAM_init, streamStartRequest, channel<NVR_REPLAY_3002_PARAM>>(
        "NvrReplay_StreamStart_MessageAnalysis");
constexpr MessageRow kStreamControl =
    either<NVR_REPLAY_3003_PARAM_init, channel<NVR_REPLAY_3003_PARAM>, channel<NVR_REPLAY_3003_PARAM>>(
        "NvrReplay_StreamControl_MessageAnalysis");
constexpr MessageRow kSpeedControl =
    either<NVR_REPLAY_3004_PARAM_init, speedControlRequest, speedControlResponse>(
        "NvrReplay_SpeedControl_MessageAnalysis");
constexpr MessageRow kPlayJump =
    either<NVR_REPLAY_3010_PARAM_init, playJumpRequest, channel<NVR_REPLAY_3010_PARAM>>(
        "NvrReplay_PlayJump_MessageAnalysis");
constexpr MessageRow kVedioParam = message<NVR_REPLAY_3012_PARAM_init>(
    "NvrReplay_VedioParam_MessageAnalysis", response<videoParam>(Kinds::kNotRequests));
constexpr MessageRow kQueryByMonth =
    either<NVR_REPLAY_3016_PARAM_init, channelAndTime<NVR_REPLAY_3016_PARAM>, queryByMonthResponse>(
        "NvrReplay_QueryByMonth_MessageAnalysis");
// The one message that looks for the request first.
constexpr MessageRow kQueryBySencond = message<NVR_REPLAY_3017_PARAM_init>(
    "NvrReplay_QueryBySencond_MessageAnalysis", request<queryBySencondRequest>(),
    over<queryBySencondResponse>("RESPONSE_PARAM", Kinds::kNotRequests));

constexpr CodeRow kCodes[] = {
    {3001, &kRecQuery},
    {3002, &kStreamStart},
    {3003, &kStreamControl},
    {3004, &kSpeedControl},
    {3005, &kStreamControl, Erased<NVR_REPLAY_3005_PARAM_init>::call},
    {3006, &kStreamControl, Erased<NVR_REPLAY_3006_PARAM_init>::call},
    {3007, &kSpeedControl, Erased<NVR_REPLAY_3007_PARAM_init>::call},
    {3008, &kSpeedControl, Erased<NVR_REPLAY_3008_PARAM_init>::call},
    {3009, &kStreamControl, Erased<NVR_REPLAY_3009_PARAM_init>::call},
    {3010, &kPlayJump},
    {3011, &kStreamControl, Erased<NVR_REPLAY_3011_PARAM_init>::call},
    {3012, &kVedioParam},
    {3013, &kStreamStart, Erased<NVR_REPLAY_3013_PARAM_init>::call},
    {3014, &kStreamControl, Erased<NVR_REPLAY_3014_PARAM_init>::call},
    {3015, &kStreamControl, Erased<NVR_REPLAY_3015_PARAM_init>::call},
    {3016, &kQueryByMonth},
    {3017, &kQueryBySencond},
};
static_assert(isAscending(kCodes));

} // namespace

extern constexpr Family kNvrReplayFamily("NVR_REPLAY_MESSAGE", kCodes);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int NVR_REPLAY_3001_PARAM_init(NVR_REPLAY_3001_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time, record.Stream); });
}

int NVR_REPLAY_3002_PARAM_init(NVR_REPLAY_3002_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time); });
}

int NVR_REPLAY_3003_PARAM_init(NVR_REPLAY_3003_PARAM* param)
{
    return zel::initRecord(param);
}

int NVR_REPLAY_3004_PARAM_init(NVR_REPLAY_3004_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(NVR_REPLAY_3005_PARAM, NVR_REPLAY_3003_PARAM)
ZEL_EXPORT_INIT(NVR_REPLAY_3006_PARAM, NVR_REPLAY_3003_PARAM)
ZEL_EXPORT_INIT(NVR_REPLAY_3007_PARAM, NVR_REPLAY_3004_PARAM)
ZEL_EXPORT_INIT(NVR_REPLAY_3008_PARAM, NVR_REPLAY_3004_PARAM)
ZEL_EXPORT_INIT(NVR_REPLAY_3009_PARAM, NVR_REPLAY_3003_PARAM)
int NVR_REPLAY_3010_PARAM_init(NVR_REPLAY_3010_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time); });
}

ZEL_EXPORT_INIT(NVR_REPLAY_3011_PARAM, NVR_REPLAY_3003_PARAM)
int NVR_REPLAY_3012_PARAM_init(NVR_REPLAY_3012_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.VideoParam, record.AudioParam); });
}

ZEL_EXPORT_INIT(NVR_REPLAY_3013_PARAM, NVR_REPLAY_3002_PARAM)
ZEL_EXPORT_INIT(NVR_REPLAY_3014_PARAM, NVR_REPLAY_3003_PARAM)
ZEL_EXPORT_INIT(NVR_REPLAY_3015_PARAM, NVR_REPLAY_3003_PARAM)
int NVR_REPLAY_3016_PARAM_init(NVR_REPLAY_3016_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time, record.RecordData); });
}

int NVR_REPLAY_3017_PARAM_init(NVR_REPLAY_3017_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time, record.TimeSliceInfo); });
}

int NvrReplayMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kNvrReplayFamily, record, kind, code, buf, len);
}

int NvrReplayMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kNvrReplayFamily, text, code, result);
}

ZEL_EXPORT_ANALYSIS(NvrReplay_RecQuery, kRecQuery)
ZEL_EXPORT_ANALYSIS(NvrReplay_StreamStart, kStreamStart)
ZEL_EXPORT_ANALYSIS(NvrReplay_StreamControl, kStreamControl)
ZEL_EXPORT_ANALYSIS(NvrReplay_SpeedControl, kSpeedControl)
ZEL_EXPORT_ANALYSIS(NvrReplay_PlayJump, kPlayJump)
ZEL_EXPORT_ANALYSIS(NvrReplay_VedioParam, kVedioParam)
ZEL_EXPORT_ANALYSIS(NvrReplay_QueryByMonth, kQueryByMonth)
ZEL_EXPORT_ANALYSIS(NvrReplay_QueryBySencond, kQueryBySencond)
