#include "zel_protocol/nvr_replay.h"

#include "core/families.h"
#include "core/records.h"

namespace zel {

namespace {

constexpr char kFamily[] = "NVR_REPLAY_MESSAGE";

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto channel = [](auto& side, auto& record) { attribute(side, "ChannelId", record.ChannelId); };

constexpr auto channelAndTime = [](auto& side, auto& record) {
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "Time", record.Time);
};

constexpr auto recQueryResponse = [](auto& side, auto& record) {
    attribute(side, "Stream", record.Stream);
    channelAndTime(side, record);
};

constexpr auto streamStartRequest = [](auto& side, auto& record) {
    channelAndTime(side, record);
    hexAttributeIfSet(side, "RecType", record.RecType);
    attributeIfSet(side, "AudioEnable", record.AudioEnable);
};

constexpr auto speedControlResponse = [](auto& side, auto& record) {
    attribute(side, "ChannelId", record.ChannelId);
    attributeIfSet(side, "Speed", record.Speed);
};

constexpr auto speedControlRequest = [](auto& side, auto& record) {
    attributeIfSet(side, "FrameType", record.FrameType);
    speedControlResponse(side, record);
};

constexpr auto playJumpRequest = [](auto& side, auto& record) {
    attribute(side, "Time", record.Time);
    attribute(side, "ChannelId", record.ChannelId);
};

constexpr auto queryByMonthResponse = [](auto& side, auto& record) {
    attribute(side, "RecordData", record.RecordData);
    channelAndTime(side, record);
};

constexpr auto queryBySencondRequest = [](auto& side, auto& record) {
    channelAndTime(side, record);
    attribute(side, "SequenceNumber", record.SequenceNumber);
};

constexpr auto queryBySencondResponse = [](auto& side, auto& record) {
    channelAndTime(side, record);
    attribute(side, "TotalPacketNum", record.TotalPacketNum);
    attribute(side, "CurrentPacket", record.CurrentPacket);
    attribute(side, "SequenceNumber", record.SequenceNumber);
};

constexpr auto timeSlices = [](auto& side, auto& record) {
    element(side, "TIMECLICE_PARAM",
            [&](auto& slices) { attribute(slices, "TimeSliceInfo", record.TimeSliceInfo); });
};

// --- Messages ------------------------------------------------------------------------------------

int NvrReplay_RecQuery_MessageCompose(TextWriter& out, const NVR_REPLAY_3001_PARAM& record, int kind)
{
    return composeEither(out, record, kind, channelAndTime, recQueryResponse);
}

int NvrReplay_RecQuery_MessageAnalysis(Message& message, void** result)
{
    return analyseEither(message, result, {__func__}, NVR_REPLAY_3001_PARAM_init, channelAndTime,
                         recQueryResponse);
}

int NvrReplay_StreamStart_MessageCompose(TextWriter& out, const NVR_REPLAY_3002_PARAM& record, int kind)
{
    return composeEither(out, record, kind, streamStartRequest, channel);
}

int NvrReplay_StreamStart_MessageAnalysis(Message& message, void** result)
{
    return analyseEither(message, result, {__func__}, NVR_REPLAY_3002_PARAM_init, streamStartRequest,
                         channel);
}

int NvrReplay_StreamControl_MessageCompose(TextWriter& out, const NVR_REPLAY_3003_PARAM& record, int kind)
{
    return composeEither(out, record, kind, channel, channel);
}

int NvrReplay_StreamControl_MessageAnalysis(Message& message, void** result)
{
    return analyseEither(message, result, {__func__}, NVR_REPLAY_3003_PARAM_init, channel, channel);
}

int NvrReplay_SpeedControl_MessageCompose(TextWriter& out, const NVR_REPLAY_3004_PARAM& record, int kind)
{
    return composeEither(out, record, kind, speedControlRequest, speedControlResponse);
}

int NvrReplay_SpeedControl_MessageAnalysis(Message& message, void** result)
{
    return analyseEither(message, result, {__func__}, NVR_REPLAY_3004_PARAM_init, speedControlRequest,
                         speedControlResponse);
}

int NvrReplay_PlayJump_MessageCompose(TextWriter& out, const NVR_REPLAY_3010_PARAM& record, int kind)
{
    return composeEither(out, record, kind, playJumpRequest, channel);
}

int NvrReplay_PlayJump_MessageAnalysis(Message& message, void** result)
{
    return analyseEither(message, result, {__func__}, NVR_REPLAY_3010_PARAM_init, playJumpRequest, channel);
}

// The two flags aren't on the wire: they say what a response carries, and a received one leaves them alone.
int NvrReplay_VedioParam_MessageCompose(TextWriter& out, const NVR_REPLAY_3012_PARAM& record, int kind)
{
    if (isRequest(kind))
        return 0;
    element(out, "RESPONSE_PARAM", [&](TextWriter& side) {
        attributeIfSet(side, "ChannelId", record.ChannelId);
        if (record.iVideoParamSet != 0 && isSet(record.iVideoParamSet))
            attribute(side, "VideoParam", record.VideoParam);
        if (record.iAudioParamSet != 0 && isSet(record.iAudioParamSet))
            attribute(side, "AudioParam", record.AudioParam);
        attribute(side, "VideoSeconds", record.VideoSeconds);
    });
    return 0;
}

int NvrReplay_VedioParam_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__}, "RESPONSE_PARAM", NVR_REPLAY_3012_PARAM_init,
                          [](auto& side, auto& record) {
                              attribute(side, "ChannelId", record.ChannelId);
                              attribute(side, "VideoParam", record.VideoParam);
                              attribute(side, "AudioParam", record.AudioParam);
                              attribute(side, "VideoSeconds", record.VideoSeconds);
                          });
}

int NvrReplay_QueryByMonth_MessageCompose(TextWriter& out, const NVR_REPLAY_3016_PARAM& record, int kind)
{
    return composeEither(out, record, kind, channelAndTime, queryByMonthResponse);
}

int NvrReplay_QueryByMonth_MessageAnalysis(Message& message, void** result)
{
    return analyseEither(message, result, {__func__}, NVR_REPLAY_3016_PARAM_init, channelAndTime,
                         queryByMonthResponse);
}

int NvrReplay_QueryBySencond_MessageCompose(TextWriter& out, const NVR_REPLAY_3017_PARAM& record, int kind)
{
    composeEither(out, record, kind, queryBySencondRequest, queryBySencondResponse);
    if (!isRequest(kind))
        timeSlices(out, record);
    return 0;
}

// The one form that looks for the request first.
int NvrReplay_QueryBySencond_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader request = body.child("REQUEST_PARAM");
    const ElementReader response = request ? ElementReader() : body.child("RESPONSE_PARAM");
    if (!request && !response)
        return missingElement(leaf, "RESPONSE_PARAM");
    return giveRecord(result, NVR_REPLAY_3017_PARAM_init, [&](auto& record) {
        if (request) {
            queryBySencondRequest(request, record);
        } else {
            queryBySencondResponse(response, record);
            timeSlices(body, record);
        }
    });
}

} // namespace

// --- Dispatch ------------------------------------------------------------------------------------

int NvrReplayMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code)
{
    switch (const int32_t number = numberOf(code)) {
    case 3001:
        return NvrReplay_RecQuery_MessageCompose(out, as<NVR_REPLAY_3001_PARAM>(record), kind);
    case 3002:
    case 3013:
        return NvrReplay_StreamStart_MessageCompose(out, as<NVR_REPLAY_3002_PARAM>(record), kind);
    case 3003:
    case 3005:
    case 3006:
    case 3009:
    case 3011:
    case 3014:
    case 3015:
        return NvrReplay_StreamControl_MessageCompose(out, as<NVR_REPLAY_3003_PARAM>(record), kind);
    case 3004:
    case 3007:
    case 3008:
        return NvrReplay_SpeedControl_MessageCompose(out, as<NVR_REPLAY_3004_PARAM>(record), kind);
    case 3010:
        return NvrReplay_PlayJump_MessageCompose(out, as<NVR_REPLAY_3010_PARAM>(record), kind);
    case 3012:
        return NvrReplay_VedioParam_MessageCompose(out, as<NVR_REPLAY_3012_PARAM>(record), kind);
    case 3016:
        return NvrReplay_QueryByMonth_MessageCompose(out, as<NVR_REPLAY_3016_PARAM>(record), kind);
    case 3017:
        return NvrReplay_QueryBySencond_MessageCompose(out, as<NVR_REPLAY_3017_PARAM>(record), kind);
    default:
        return unknownCode(kFamily, number);
    }
}

int NvrReplayMessageAnalysis(Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(kFamily);
    switch (const int32_t number = numberOf(code)) {
    case 3001:
        return NvrReplay_RecQuery_MessageAnalysis(message, result);
    case 3002:
    case 3013:
        return NvrReplay_StreamStart_MessageAnalysis(message, result);
    case 3003:
    case 3005:
    case 3006:
    case 3009:
    case 3011:
    case 3014:
    case 3015:
        return NvrReplay_StreamControl_MessageAnalysis(message, result);
    case 3004:
    case 3007:
    case 3008:
        return NvrReplay_SpeedControl_MessageAnalysis(message, result);
    case 3010:
        return NvrReplay_PlayJump_MessageAnalysis(message, result);
    case 3012:
        return NvrReplay_VedioParam_MessageAnalysis(message, result);
    case 3016:
        return NvrReplay_QueryByMonth_MessageAnalysis(message, result);
    case 3017:
        return NvrReplay_QueryBySencond_MessageAnalysis(message, result);
    default:
        return unknownCode(kFamily, number);
    }
}

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

int NVR_REPLAY_3005_PARAM_init(NVR_REPLAY_3005_PARAM* param)
{
    return NVR_REPLAY_3003_PARAM_init(param);
}

int NVR_REPLAY_3006_PARAM_init(NVR_REPLAY_3006_PARAM* param)
{
    return NVR_REPLAY_3003_PARAM_init(param);
}

int NVR_REPLAY_3007_PARAM_init(NVR_REPLAY_3007_PARAM* param)
{
    return NVR_REPLAY_3004_PARAM_init(param);
}

int NVR_REPLAY_3008_PARAM_init(NVR_REPLAY_3008_PARAM* param)
{
    return NVR_REPLAY_3004_PARAM_init(param);
}

int NVR_REPLAY_3009_PARAM_init(NVR_REPLAY_3009_PARAM* param)
{
    return NVR_REPLAY_3003_PARAM_init(param);
}

int NVR_REPLAY_3010_PARAM_init(NVR_REPLAY_3010_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time); });
}

int NVR_REPLAY_3011_PARAM_init(NVR_REPLAY_3011_PARAM* param)
{
    return NVR_REPLAY_3003_PARAM_init(param);
}

int NVR_REPLAY_3012_PARAM_init(NVR_REPLAY_3012_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.VideoParam, record.AudioParam); });
}

int NVR_REPLAY_3013_PARAM_init(NVR_REPLAY_3013_PARAM* param)
{
    return NVR_REPLAY_3002_PARAM_init(param);
}

int NVR_REPLAY_3014_PARAM_init(NVR_REPLAY_3014_PARAM* param)
{
    return NVR_REPLAY_3003_PARAM_init(param);
}

int NVR_REPLAY_3015_PARAM_init(NVR_REPLAY_3015_PARAM* param)
{
    return NVR_REPLAY_3003_PARAM_init(param);
}

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
    return zel::composeCode<zel::NvrReplayMessageCompose>(zel::kFamily, record, kind, code, buf, len);
}

int NvrReplayMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseCode<zel::NvrReplayMessageAnalysis>(text, code, result);
}

int NvrReplay_RecQuery_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_RecQuery_MessageAnalysis>(text, result);
}

int NvrReplay_StreamStart_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_StreamStart_MessageAnalysis>(text, result);
}

int NvrReplay_StreamControl_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_StreamControl_MessageAnalysis>(text, result);
}

int NvrReplay_SpeedControl_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_SpeedControl_MessageAnalysis>(text, result);
}

int NvrReplay_PlayJump_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_PlayJump_MessageAnalysis>(text, result);
}

int NvrReplay_VedioParam_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_VedioParam_MessageAnalysis>(text, result);
}

int NvrReplay_QueryByMonth_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_QueryByMonth_MessageAnalysis>(text, result);
}

int NvrReplay_QueryBySencond_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::NvrReplay_QueryBySencond_MessageAnalysis>(text, result);
}
