#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "NVR_REPLAY_MESSAGE";
const std::string kChannel = "ChannelId='7'|";
const std::string kTime = "Time='2024-05-06'|";

std::string request(const std::string& attributes)
{
    return "<REQUEST_PARAM|" + attributes + "/>|";
}

std::string response(const std::string& attributes)
{
    return "<RESPONSE_PARAM|" + attributes + "/>|";
}

template <class Record>
Record onChannel(int (*init)(Record*))
{
    auto record = fresh(init);
    record.ChannelId = 7;
    return record;
}

template <class Record>
Record atTime(int (*init)(Record*))
{
    auto record = onChannel(init);
    set(record.Time, "2024-05-06");
    return record;
}

TEST(Replay, RecQuery)
{
    auto record = atTime(NVR_REPLAY_3001_PARAM_init);
    expectRead(kType, "3001", request("Stream='1'|" + kChannel + kTime), record);
    set(record.Stream, std::string(1440, '1'));
    const std::string whole = "Stream='" + std::string(1440, '1');
    expectBodies(kType, "3001", &record, request(kChannel + kTime),
                 response(whole + "'|" + kChannel + kTime));
    expectRead(kType, "3001", response(kTime + kChannel + whole + "22'|"), record);
}

TEST(Replay, StreamStart)
{
    for (const char* code : {"3002", "3013"}) {
        auto record = atTime(NVR_REPLAY_3013_PARAM_init);
        expectBodies(kType, code, &record, request(kChannel + kTime), response(kChannel));
        record.RecType = 255;
        record.AudioEnable = 1;
        const std::string whole = request(kChannel + kTime + "RecType='ff'|AudioEnable='1'|");
        expectBodies(kType, code, &record, whole, response(kChannel));
        expectRead(kType, code, whole, record);
        expectRead(kType, code, response("RecType='ff' ChannelId='7' AudioEnable='1' Time='x'"),
                   onChannel(NVR_REPLAY_3013_PARAM_init));
    }
}

TEST(Replay, ControlSpeedAndJump)
{
    const auto control = onChannel(NVR_REPLAY_3015_PARAM_init);
    for (const char* code : {"3003", "3005", "3006", "3009", "3011", "3014", "3015"}) {
        expectBodies(kType, code, &control, request(kChannel), response(kChannel));
        expectRead(kType, code, request(kChannel), control);
    }
    auto speed = onChannel(NVR_REPLAY_3008_PARAM_init);
    EXPECT_EQ(bodyOf(kType, "3004", &speed, 0), wire(request(kChannel)));
    speed.Speed = 4;
    auto answer = speed;
    speed.FrameType = 2;
    for (const char* code : {"3004", "3007", "3008"}) {
        const std::string asked = request("FrameType='2'|" + kChannel + "Speed='4'|");
        expectBodies(kType, code, &speed, asked, response(kChannel + "Speed='4'|"));
        expectRead(kType, code, asked, speed);
        expectRead(kType, code, response("FrameType='2' Speed='4' ChannelId='7'"), answer);
    }
    const auto jump = atTime(NVR_REPLAY_3010_PARAM_init);
    expectBodies(kType, "3010", &jump, request(kTime + kChannel), response(kChannel));
    expectRead(kType, "3010", request(kTime + kChannel), jump);
    expectRead(kType, "3010", response(kTime + kChannel), onChannel(NVR_REPLAY_3010_PARAM_init));
}

TEST(Replay, VedioParamIsAResponseOnly)
{
    auto record = fresh(NVR_REPLAY_3012_PARAM_init);
    set(record.VideoParam, "v");
    set(record.AudioParam, "a");
    expectBodies(kType, "3012", &record, "", response("VideoSeconds='-1'|"));
    record.ChannelId = 7;
    record.VideoSeconds = 60;
    const std::string whole = response(kChannel + "VideoParam='v'|AudioParam='a'|VideoSeconds='60'|");
    expectRead(kType, "3012", whole, record);
    record.iVideoParamSet = 1;
    record.iAudioParamSet = 0;
    expectBodies(kType, "3012", &record, "", response(kChannel + "VideoParam='v'|VideoSeconds='60'|"));
    record.iAudioParamSet = 2;
    expectBodies(kType, "3012", &record, "", whole);
    EXPECT_EQ(analyseBody(kType, "3012", request("")).result, ZEL_ERR_NO_ELEMENT);
}

TEST(Replay, Queries)
{
    auto month = atTime(NVR_REPLAY_3016_PARAM_init);
    set(month.RecordData, "0110");
    const std::string months = response("RecordData='0110'|" + kChannel + kTime);
    expectBodies(kType, "3016", &month, request(kChannel + kTime), months);
    expectRead(kType, "3016", request("") + months, month);

    auto second = atTime(NVR_REPLAY_3017_PARAM_init);
    second.SequenceNumber = 9;
    const std::string asked = request(kChannel + kTime + "SequenceNumber='9'|");
    const std::string packets = "TotalPacketNum='3'|CurrentPacket='2'|";
    // A text with both elements: this form reads the request, the others the response.
    expectRead(kType, "3017", response(packets) + request(packets + kChannel + kTime + "SequenceNumber='9'"),
               second);
    second.TotalPacketNum = 3;
    second.CurrentPacket = 2;
    set(second.TimeSliceInfo, "slices");
    const std::string answer = response(kChannel + kTime + packets + "SequenceNumber='9'|") +
                               "<TIMECLICE_PARAM|TimeSliceInfo='slices'|/>|";
    expectBodies(kType, "3017", &second, asked, answer);
    expectRead(kType, "3017", answer, second);
}

TEST(Replay, Dispatch)
{
    const NVR_REPLAY_3003_PARAM record{1};
    void* result = nullptr;
    for (const char* code : {"3000", "3018", "", "x"}) {
        EXPECT_EQ(compose(headerOf(kType, code), &record, 0).result, ZEL_ERR_UNKNOWN_MSG);
        EXPECT_EQ(NvrReplayMessageAnalysis("<", code, &result), ZEL_ERR_UNKNOWN_MSG);
    }
    // The generic failures of a leaf, each with its own name.
    const auto fails = [&](const char* text, int status, const char* log) {
        resetServices();
        EXPECT_EQ(NvrReplay_SpeedControl_MessageAnalysis(text, &result), status);
        EXPECT_TRUE(loggedOnly(std::string("NvrReplay_SpeedControl_MessageAnalysis") + log));
    };
    fails(nullptr, ZEL_ERR_BAD_PARAM, " put a empty Param\n");
    fails("<a>", ZEL_ERR_BAD_DOCUMENT, " Parse MsgBuf error\n");
    fails("<a/>", ZEL_ERR_BAD_DOCUMENT, " get MESSAGE_BODY error\n");
    fails("<a><MESSAGE_BODY/></a>", ZEL_ERR_NO_ELEMENT, " get RESPONSE_PARAM error\n");
    EXPECT_EQ(result, nullptr);
}

// What every family's exported pair says of missing arguments and of a code that it doesn't know.
TEST(Replay, ExportedPair)
{
    const NVR_REPLAY_3003_PARAM record{1};
    char out[64];
    void* result = nullptr;
    resetServices();
    EXPECT_EQ(NvrReplayMessageCompose(&record, 0, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("NVR_REPLAY_MESSAGE put a empty Param\n"));
    EXPECT_EQ(NvrReplayMessageCompose(&record, 0, "3003", nullptr, 1), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(NvrReplayMessageCompose(nullptr, 0, "9999", out, 1), 0);
    EXPECT_EQ(NvrReplayMessageAnalysis(nullptr, "3003", &result), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(NvrReplayMessageAnalysis("<a/>", nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(NvrReplayMessageAnalysis("<a/>", "3003", nullptr), ZEL_ERR_BAD_PARAM);
}

} // namespace
