#include "support/wire.h"

using namespace test;

namespace {

using Start = LIVE_STREAM_CMD_STREAM_START_PARAM;
using Stop = LIVE_STREAM_CMD_STREAM_STOP_PARAM;

const std::string kType = "LIVE_STREAM_MESSAGE";
const std::string kStart = "CMD_STREAM_START";

const std::string kHeader = wire("ChannelId='1'|StreamID='12'|ConnectNum='3'|StreamNum='5'|");
const std::string kTransport = "<TRANS_PARAM|ChannelId='1'|StreamID='12'|VideoStream='2'|";
const std::string kVideo = "<VIDEO_PARAM|Encoder='H265'|Width='21'|Height='22'|Framerate='23'|Bitrate='24'|"
                           "Config='conf'|/>|";
const std::string kAudio = "<AUDIO_PARAM|Encoder='G711'|SampleRate='31'|SampleWidth='32'|Channels='33'|"
                           "Bitrate='34'|/>|";

constexpr LIVE_STREAM_VIDEO_PARAM kVideoParam = {-1, 21, 22, 23, 24, "H265", "conf"};
constexpr LIVE_STREAM_AUDIO_PARAM kAudioParam = {-1, 31, 32, 33, 34, "G711"};

Start full()
{
    Start start = {1, 2, 3, 4, 5, 6, 7, 8, 0, 10, -1, 12, 13, {}, kVideoParam, kAudioParam};
    set(start.MulticastAddress, "239.0.0.1");
    return start;
}

TEST(LiveStream, StartRequest)
{
    const Start start = full();
    const auto absent = fresh(LIVE_STREAM_CMD_STREAM_START_PARAM_init);
    const std::string text =
        "<STREAM_START_PARAM|ChannelId='1'|VideoStream='2'|AudioEnable='4'|VideoPort='6'|"
        "AudioPort='7'|Multicast='8'|UseTcp='0'|FrameType='10'|/>|";
    for (const int kind : {0, 2}) {
        EXPECT_EQ(bodyOf(kType, kStart, &start, kind), wire(text));
        EXPECT_EQ(bodyOf(kType, kStart, &absent, kind),
                  wire("<STREAM_START_PARAM|ChannelId='-1'|VideoStream='-1'|/>|"));
    }
    const Start expected = {1, 2, -1, 4, -1, 6, 7, 8, 0, 10, -1, -1, -1, {}, absent.stVideo, absent.stAudio};
    expectRead(
        kType, kStart,
        "<TRANS_PARAM EnableChangeStream='1'/><VIDEO_PARAM Width='1'/><STREAM_START_PARAM StreamID='12' " +
            text.substr(20),
        expected);
}

TEST(LiveStream, StartResponse)
{
    Start start = full();
    const std::string stream = kVideo + kAudio;
    for (const int kind : {1, 3})
        for (const std::string code : {"CMD_STREAM_START", "1062"})
            EXPECT_EQ(compose(headerOf(kType, code), &start, kind).text,
                      envelope(kType, code,
                               wire(kTransport +
                                    "AudioEnable='1'|Multicast='8'|MulticastAddress='239.0.0.1'|"
                                    "VideoPort='6'|AudioPort='7'|EnableChangeStream='13'|/>|" +
                                    stream),
                               kHeader));
    start.ConnectNum = -1;
    start.UseTcp = 1;
    EXPECT_EQ(compose(headerOf(kType, kStart), &start, 1).text,
              envelope(kType, kStart,
                       wire(kTransport + "AudioEnable='1'|UseTcp='1'|EnableChangeStream='13'|/>|" + stream)));
    start.UseTcp = start.Multicast = start.VideoPort = start.EnableChangeStream = -1;
    set(start.MulticastAddress, "");
    for (const int32_t silent : {-1, 0, -2}) {
        start.AudioEnable = silent;
        EXPECT_EQ(bodyOf(kType, kStart, &start, 1),
                  wire(kTransport + "AudioEnable='0'|VideoPort='-1'|/>|" + kVideo));
    }
}

TEST(LiveStream, StartResponseIsRead)
{
    Start expected = full();
    expected.FrameType = -1;
    const Analysed analysed = analyse(envelope(
        kType, "1062",
        wire(kAudio + kVideo +
             "<TRANS_PARAM EnableChangeStream='13' AudioPort='7' VideoPort='6' MulticastAddress='239.0.0.1' "
             "Multicast='8' UseTcp='0' AudioEnable='4' VideoStream='2' StreamID='12' ChannelId='99' "
             "FrameType='99'/>"),
        wire("StreamNum='5' ConnectNum='3' StreamID='98' ChannelId='1'")));
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0);

    expected = fresh(LIVE_STREAM_CMD_STREAM_START_PARAM_init);
    expectRead(kType, kStart, "<TRANS_PARAM ChannelId='1'/>", expected);
    const std::string wide(600, 'w');
    set(expected.MulticastAddress, wide.substr(0, 31));
    set(expected.stVideo.Encoder, wide.substr(0, 15));
    set(expected.stVideo.Config, wide.substr(0, 511));
    set(expected.stAudio.Encoder, wide.substr(0, 15));
    expectRead(kType, kStart,
               "<TRANS_PARAM MulticastAddress='" + wide + "'/><VIDEO_PARAM Encoder='" + wide + "' Config='" +
                   wide + "'/><AUDIO_PARAM Encoder='" + wide + "'/>",
               expected);
}

// A response without a stream is all header, and has no element that its analysis could take.
TEST(LiveStream, StartResponseWithoutStream)
{
    Start start = full();
    start.VideoStream = -1;
    ZEL_PROTOCOL_HEADER header = headerOf(kType, kStart);
    set(header.Msg_uuid, "uuid");
    const std::string text = compose(header, &start, 1).text;
    EXPECT_EQ(text, envelope(kType, kStart, "", "Msg_uuid=\"uuid\"\n" + kHeader));
    resetServices();
    EXPECT_EQ(analyse(text).result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("LiveStreamCmdStartMessageAnalysis get STREAM_START_PARAM error\n"));
}

TEST(LiveStream, StopAndQuality)
{
    const Stop all = {1, 2, 3, 4};
    const Stop absent = {-1, -1, -1, -1};
    const Stop zeros = {0, -1, -1, -1};
    const struct
    {
        std::string code, element, last, leaf;
        Stop read;
    } cases[] = {
        {"CMD_STREAM_STOP", "STREAM_STOP_PARAM", "UseTcp='4'", "LiveStreamCmdStop", {1, 2, -1, 4}},
        {"CMD_STREAM_QUALITY",
         "STREAM_QUALITY_PARAM",
         "FrameType='3'",
         "LiveStreamCmdQuality",
         {1, 2, 3, -1}},
    };
    for (const auto& each : cases) {
        const std::string tag = "<" + each.element;
        const std::string text = tag + "|ChannelId='1'|StreamID='2'|" + each.last + "|/>|";
        expectBodies(kType, each.code, &all, text, text);
        expectBodies(kType, each.code, &absent, tag + "|/>|", tag + "|/>|");
        expectRead(kType, each.code, tag + " UseTcp='4' FrameType='3' StreamID='2' ChannelId='1'/>",
                   each.read);
        expectRead(kType, each.code, tag + " ChannelId='x'/>", zeros);
        resetServices();
        EXPECT_EQ(analyse(envelope(kType, each.code, "<STREAM_START_PARAM/>")).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(each.leaf + "MessageAnalysis get " + each.element + " error\n"));
    }
}

TEST(LiveStream, WhereTheHeaderGoes)
{
    Start start = full();
    start.VideoStream = -1;
    char body[256];
    const auto composeInto = [&](char* head, int size, int used, int kind = 1, const char* code = "1062") {
        return LiveStreamMessageCompose(&start, kind, code, body, sizeof body, head, size, used);
    };
    const int enough = static_cast<int>(kHeader.size()) + 4;
    for (int size = 4; size <= enough; ++size) {
        const auto head = std::make_unique<char[]>(static_cast<size_t>(size));
        memcpy(head.get(), "abc", 4);
        EXPECT_EQ(composeInto(head.get(), size, 3), size == enough ? 0 : ZEL_ERR_BUFFER_SMALL);
        EXPECT_EQ(head.get(), ("abc" + kHeader).substr(0, static_cast<size_t>(size) - 1));
        EXPECT_EQ(composeInto(head.get(), size, size), ZEL_ERR_BUFFER_SMALL);
    }
    EXPECT_EQ(composeInto(body, 4, -1), ZEL_ERR_BUFFER_SMALL);
    resetServices();
    EXPECT_EQ(composeInto(nullptr, 0, 0), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("LIVE_STREAM_MESSAGE put a empty Param\n"));
    EXPECT_EQ(composeInto(nullptr, 0, 0, 0), 0);
    EXPECT_EQ(composeInto(nullptr, 0, 0, 1, "CMD_STREAM_STOP"), 0);
    start.ConnectNum = -1;
    strcpy(body, "before");
    EXPECT_EQ(composeInto(nullptr, 0, 0), 0);
    EXPECT_STREQ(body, "before");
}

TEST(LiveStream, Failures)
{
    void* record = nullptr;
    resetServices();
    EXPECT_EQ(LiveStreamMessageAnalysis("<a/>", "CMD_STREAM", &record), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly("LIVE_STREAM_MESSAGE deal a unknow Msg_code:CMD_STREAM !!!\n"));
    EXPECT_EQ(compose(headerOf(kType, "1063"), &record, 1).result, ZEL_ERR_UNKNOWN_MSG);

    // The start says nothing of a text that doesn't parse.
    resetServices();
    EXPECT_EQ(LiveStreamCmdStartMessageAnalysis("<a>", &record), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(LiveStreamCmdStopMessageAnalysis("<a>", &record), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(loggedOnly("LiveStreamCmdStopMessageAnalysis Parse MsgBuf error\n"));

    // A missing place for the result is only found out in the end.
    EXPECT_EQ(LiveStreamMessageAnalysis("<a/>", "1062", nullptr), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_EQ(
        LiveStreamCmdStopMessageAnalysis("<a><MESSAGE_BODY><STREAM_STOP_PARAM/></MESSAGE_BODY></a>", nullptr),
        ZEL_ERR_BAD_PARAM);
}

} // namespace
