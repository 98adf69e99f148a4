#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "NVR_REPLAY_MESSAGE";

template <class Record>
std::string body(const char* code, const Record& record, int kind)
{
    char out[8192];
    EXPECT_EQ(NvrReplayMessageCompose(&record, kind, code, out, sizeof out), 0) << code;
    return kind >= 0 && out[0] != '\0' ? out : "";
}

template <class Record>
Record fresh(int (*init)(Record*))
{
    Record record;
    init(&record);
    return record;
}

const std::string kChannel = "ChannelId=\"7\"\n";
const std::string kTime = "Time=\"2024-05-06\"\n";

std::string request(const std::string& attributes)
{
    return "<REQUEST_PARAM\n" + attributes + "/>\n";
}

std::string response(const std::string& attributes)
{
    return "<RESPONSE_PARAM\n" + attributes + "/>\n";
}

TEST(Replay, RecQuery)
{
    auto record = fresh(NVR_REPLAY_3001_PARAM_init);
    record.ChannelId = 7;
    set(record.Time, "2024-05-06");
    set(record.Stream, "010");
    for (const int kind : {0, 2})
        EXPECT_EQ(body("3001", record, kind), request(kChannel + kTime));
    for (const int kind : {1, 3})
        EXPECT_EQ(body("3001", record, kind), response("Stream=\"010\"\n" + kChannel + kTime));

    const Analysed in = analyse(envelope(kType, "3001",
                                         "<RESPONSE_PARAM Time=\"2024-05-06\" ChannelId=\"7\" Stream=\"" +
                                             std::string(2000, '1') + "\"/>"));
    const auto& read = in.as<NVR_REPLAY_3001_PARAM>();
    EXPECT_EQ(read.ChannelId, 7);
    EXPECT_EQ(get(read.Time), "2024-05-06");
    EXPECT_EQ(get(read.Stream), std::string(1440, '1'));
    const Analysed asked = analyse(envelope(kType, "3001", "<REQUEST_PARAM Stream=\"1\" Time=\"t\"/>"));
    EXPECT_EQ(get(asked.as<NVR_REPLAY_3001_PARAM>().Stream), "");
    EXPECT_EQ(asked.as<NVR_REPLAY_3001_PARAM>().ChannelId, -1);
}

TEST(Replay, StreamStart)
{
    auto record = fresh(NVR_REPLAY_3013_PARAM_init);
    record.ChannelId = 7;
    set(record.Time, "2024-05-06");
    for (const char* code : {"3002", "3013"}) {
        record.RecType = -1;
        record.AudioEnable = -1;
        EXPECT_EQ(body(code, record, 0), request(kChannel + kTime));
        record.RecType = 255;
        record.AudioEnable = 1;
        EXPECT_EQ(body(code, record, 2), request(kChannel + kTime + "RecType=\"ff\"\nAudioEnable=\"1\"\n"));
        EXPECT_EQ(body(code, record, 1), response(kChannel));
        const Analysed in = analyse(envelope(
            kType, code, "<REQUEST_PARAM AudioEnable=\"1\" RecType=\"ff\" Time=\"t\" ChannelId=\"7\"/>"));
        EXPECT_EQ(in.as<NVR_REPLAY_3002_PARAM>().RecType, 255);
        EXPECT_EQ(in.as<NVR_REPLAY_3002_PARAM>().AudioEnable, 1);
        const Analysed answer =
            analyse(envelope(kType, code, "<RESPONSE_PARAM RecType=\"ff\" ChannelId=\"8\"/>"));
        EXPECT_EQ(answer.as<NVR_REPLAY_3002_PARAM>().RecType, -1);
        EXPECT_EQ(answer.as<NVR_REPLAY_3002_PARAM>().ChannelId, 8);
    }
}

TEST(Replay, ControlSpeedAndJump)
{
    auto control = fresh(NVR_REPLAY_3015_PARAM_init);
    control.ChannelId = 7;
    for (const char* code : {"3003", "3005", "3006", "3009", "3011", "3014", "3015"}) {
        EXPECT_EQ(body(code, control, 0), request(kChannel));
        EXPECT_EQ(body(code, control, 3), response(kChannel));
    }
    auto speed = fresh(NVR_REPLAY_3008_PARAM_init);
    speed.ChannelId = 7;
    EXPECT_EQ(body("3004", speed, 0), request(kChannel));
    speed.Speed = 4;
    speed.FrameType = 2;
    for (const char* code : {"3004", "3007", "3008"}) {
        EXPECT_EQ(body(code, speed, 2), request("FrameType=\"2\"\n" + kChannel + "Speed=\"4\"\n"));
        EXPECT_EQ(body(code, speed, 1), response(kChannel + "Speed=\"4\"\n"));
    }
    const Analysed answer = analyse(envelope(kType, "3004", "<RESPONSE_PARAM FrameType=\"2\" Speed=\"4\"/>"));
    EXPECT_EQ(answer.as<NVR_REPLAY_3004_PARAM>().FrameType, -1);
    EXPECT_EQ(answer.as<NVR_REPLAY_3004_PARAM>().Speed, 4);

    auto jump = fresh(NVR_REPLAY_3010_PARAM_init);
    jump.ChannelId = 7;
    set(jump.Time, "2024-05-06");
    EXPECT_EQ(body("3010", jump, 0), request(kTime + kChannel));
    EXPECT_EQ(body("3010", jump, 1), response(kChannel));
    EXPECT_EQ(get(analyse(envelope(kType, "3010", "<RESPONSE_PARAM Time=\"t\"/>"))
                      .as<NVR_REPLAY_3010_PARAM>()
                      .Time),
              "");
}

TEST(Replay, VedioParamIsAResponseOnly)
{
    auto record = fresh(NVR_REPLAY_3012_PARAM_init);
    set(record.VideoParam, "v");
    set(record.AudioParam, "a");
    EXPECT_EQ(body("3012", record, 0), "");
    EXPECT_EQ(body("3012", record, 1), response("VideoSeconds=\"-1\"\n"));
    record.ChannelId = 7;
    record.iVideoParamSet = 1;
    record.iAudioParamSet = 0;
    record.VideoSeconds = 60;
    EXPECT_EQ(body("3012", record, 3), response(kChannel + "VideoParam=\"v\"\nVideoSeconds=\"60\"\n"));
    record.iAudioParamSet = 2;
    EXPECT_EQ(body("3012", record, 1),
              response(kChannel + "VideoParam=\"v\"\nAudioParam=\"a\"\nVideoSeconds=\"60\"\n"));

    const Analysed in = analyse(envelope(kType, "3012", response("VideoSeconds=\"60\"\nAudioParam=\"a\"\n")));
    EXPECT_EQ(get(in.as<NVR_REPLAY_3012_PARAM>().AudioParam), "a");
    EXPECT_EQ(in.as<NVR_REPLAY_3012_PARAM>().VideoSeconds, 60);
    EXPECT_EQ(in.as<NVR_REPLAY_3012_PARAM>().iAudioParamSet, -1);
    EXPECT_EQ(analyse(envelope(kType, "3012", request(""))).result, ZEL_ERR_NO_ELEMENT);
}

TEST(Replay, Queries)
{
    auto month = fresh(NVR_REPLAY_3016_PARAM_init);
    month.ChannelId = 7;
    set(month.Time, "2024-05-06");
    set(month.RecordData, "0110");
    EXPECT_EQ(body("3016", month, 0), request(kChannel + kTime));
    EXPECT_EQ(body("3016", month, 1), response("RecordData=\"0110\"\n" + kChannel + kTime));

    auto second = fresh(NVR_REPLAY_3017_PARAM_init);
    second.ChannelId = 7;
    set(second.Time, "2024-05-06");
    second.TotalPacketNum = 3;
    second.CurrentPacket = 2;
    second.SequenceNumber = 9;
    set(second.TimeSliceInfo, "slices");
    const std::string sequence = "SequenceNumber=\"9\"\n";
    const std::string answer =
        response(kChannel + kTime + "TotalPacketNum=\"3\"\nCurrentPacket=\"2\"\n" + sequence) +
        "<TIMECLICE_PARAM\nTimeSliceInfo=\"slices\"\n/>\n";
    EXPECT_EQ(body("3017", second, 0), request(kChannel + kTime + sequence));
    EXPECT_EQ(body("3017", second, 1), answer);
    EXPECT_EQ(memcmp(analyse(envelope(kType, "3017", answer)).record.get(), &second, sizeof second), 0);

    // A text with both elements: this form reads the request, the others the response.
    const std::string both =
        request("ChannelId=\"1\"\nTotalPacketNum=\"5\"\n") + response("ChannelId=\"2\"\n");
    const Analysed seconds = analyse(envelope(kType, "3017", both));
    EXPECT_EQ(seconds.as<NVR_REPLAY_3017_PARAM>().ChannelId, 1);
    EXPECT_EQ(seconds.as<NVR_REPLAY_3017_PARAM>().TotalPacketNum, -1);
    EXPECT_EQ(analyse(envelope(kType, "3016", both)).as<NVR_REPLAY_3016_PARAM>().ChannelId, 2);
}

TEST(Replay, Dispatch)
{
    const NVR_REPLAY_3003_PARAM record{1};
    char out[64];
    void* result = nullptr;
    for (const char* code : {"3000", "3018", "", "x"}) {
        resetServices();
        EXPECT_EQ(NvrReplayMessageCompose(&record, 0, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_EQ(NvrReplayMessageAnalysis("<", code, &result), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_EQ(services().errors.size(), 2U);
    }
    resetServices();
    EXPECT_EQ(NvrReplayMessageCompose(&record, 0, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("NVR_REPLAY_MESSAGE put a empty Param\n"));
    EXPECT_EQ(NvrReplayMessageCompose(&record, 0, "3003", nullptr, 1), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(NvrReplayMessageCompose(nullptr, 0, "9999", out, 1), 0);
    EXPECT_EQ(NvrReplayMessageAnalysis(nullptr, "3003", &result), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(NvrReplayMessageAnalysis("<a/>", nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(NvrReplayMessageAnalysis("<a/>", "3003", nullptr), ZEL_ERR_BAD_PARAM);

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

} // namespace
