#include <gtest/gtest.h>

#include <algorithm>

#include "support/wire.h"

using namespace test;

namespace {

using Start = LIVE_STREAM_CMD_STREAM_START_PARAM;
using Stop = LIVE_STREAM_CMD_STREAM_STOP_PARAM;

const std::string kType = "LIVE_STREAM_MESSAGE";
const std::string kStart = "CMD_STREAM_START";

// Wire text with ' for a double quote and | for a line feed.
std::string wire(std::string text)
{
    std::replace(text.begin(), text.end(), '\'', '"');
    std::replace(text.begin(), text.end(), '|', '\n');
    return text;
}

const std::string kHeader = wire("ChannelId='1'|StreamID='12'|ConnectNum='3'|StreamNum='5'|");
const std::string kTransport = "<TRANS_PARAM|ChannelId='1'|StreamID='12'|VideoStream='2'|";
const std::string kVideo = "<VIDEO_PARAM|Encoder='H265'|Width='21'|Height='22'|Framerate='23'|Bitrate='24'|"
                           "Config='conf'|/>|";
const std::string kAudio = "<AUDIO_PARAM|Encoder='G711'|SampleRate='31'|SampleWidth='32'|Channels='33'|"
                           "Bitrate='34'|/>|";

Start fresh()
{
    Start start;
    LIVE_STREAM_CMD_STREAM_START_PARAM_init(&start);
    return start;
}

constexpr LIVE_STREAM_VIDEO_PARAM kVideoParam = {-1, 21, 22, 23, 24, "H265", "conf"};
constexpr LIVE_STREAM_AUDIO_PARAM kAudioParam = {-1, 31, 32, 33, 34, "G711"};

Start full()
{
    Start start = {1, 2, 3, 4, 5, 6, 7, 8, 0, 10, -1, 12, 13, {}, kVideoParam, kAudioParam};
    set(start.MulticastAddress, "239.0.0.1");
    return start;
}

std::string message(const void* record, const std::string& code, int kind)
{
    return compose(headerOf(kType, code), record, kind).text;
}

bool readsAs(const std::string& code, const std::string& body, const std::string& header,
             const void* expected, size_t size)
{
    const Analysed analysed = analyse(envelope(kType, code, wire(body), wire(header)));
    return analysed.result == 0 && memcmp(analysed.record.get(), expected, size) == 0;
}

TEST(LiveStream, StartRequest)
{
    const Start start = full();
    const Start absent = fresh();
    for (const int kind : {0, 2}) {
        EXPECT_EQ(
            message(&start, kStart, kind),
            envelope(kType, kStart,
                     wire("<STREAM_START_PARAM|ChannelId='1'|VideoStream='2'|AudioEnable='4'|VideoPort='6'|"
                          "AudioPort='7'|Multicast='8'|UseTcp='0'|FrameType='10'|/>|")));
        EXPECT_EQ(message(&absent, kStart, kind),
                  envelope(kType, kStart, wire("<STREAM_START_PARAM|ChannelId='-1'|VideoStream='-1'|/>|")));
    }
    const Start expected = {1, 2, -1, 4, -1, 6, 7, 8, 0, 10, -1, -1, -1, {}, absent.stVideo, absent.stAudio};
    EXPECT_TRUE(readsAs(kStart,
                        "<TRANS_PARAM EnableChangeStream='1'/><VIDEO_PARAM Width='1'/><STREAM_START_PARAM "
                        "FrameType='10' UseTcp='0' Multicast='8' AudioPort='7' VideoPort='6' AudioEnable='4' "
                        "VideoStream='2' ChannelId='1' StreamID='12'/>",
                        "", &expected, sizeof expected));
}

TEST(LiveStream, StartResponse)
{
    Start start = full();
    for (const int kind : {1, 3})
        for (const std::string code : {"CMD_STREAM_START", "1062"})
            EXPECT_EQ(message(&start, code, kind),
                      envelope(kType, code,
                               wire(kTransport +
                                    "AudioEnable='1'|Multicast='8'|MulticastAddress='239.0.0.1'|"
                                    "VideoPort='6'|AudioPort='7'|EnableChangeStream='13'|/>|" +
                                    kVideo + kAudio),
                               kHeader));
    start.ConnectNum = -1;
    start.UseTcp = 1;
    EXPECT_EQ(message(&start, kStart, 1),
              envelope(kType, kStart,
                       wire(kTransport + "AudioEnable='1'|UseTcp='1'|EnableChangeStream='13'|/>|" + kVideo +
                            kAudio)));
    start.UseTcp = start.Multicast = start.VideoPort = start.EnableChangeStream = -1;
    set(start.MulticastAddress, "");
    for (const int32_t silent : {-1, 0, -2}) {
        start.AudioEnable = silent;
        EXPECT_EQ(message(&start, kStart, 1),
                  envelope(kType, kStart, wire(kTransport + "AudioEnable='0'|VideoPort='-1'|/>|" + kVideo)));
    }
}

TEST(LiveStream, StartResponseIsReadInAnyOrder)
{
    Start expected = full();
    expected.FrameType = -1;
    EXPECT_TRUE(readsAs(
        "1062",
        "<AUDIO_PARAM Bitrate='34' Channels='33' SampleWidth='32' SampleRate='31' Encoder='G711'/>"
        "<VIDEO_PARAM Config='conf' Bitrate='24' Framerate='23' Height='22' Width='21' Encoder='H265'/>"
        "<TRANS_PARAM EnableChangeStream='13' AudioPort='7' VideoPort='6' MulticastAddress='239.0.0.1' "
        "Multicast='8' UseTcp='0' AudioEnable='4' VideoStream='2' StreamID='12' ChannelId='99' "
        "FrameType='99'/>",
        "StreamNum='5' ConnectNum='3' StreamID='98' ChannelId='1'", &expected, sizeof expected));
    const Start absent = fresh();
    EXPECT_TRUE(readsAs(kStart, "<TRANS_PARAM ChannelId='1'/>", "", &absent, sizeof absent));

    const std::string wide(600, 'w');
    const Analysed cut =
        analyse(envelope(kType, kStart,
                         wire("<TRANS_PARAM MulticastAddress='" + wide + "'/><VIDEO_PARAM Encoder='" + wide +
                              "' Config='" + wide + "'/><AUDIO_PARAM Encoder='" + wide + "'/>")));
    EXPECT_EQ(get(cut.as<Start>().MulticastAddress), wide.substr(0, 31));
    EXPECT_EQ(get(cut.as<Start>().stVideo.Encoder), wide.substr(0, 15));
    EXPECT_EQ(get(cut.as<Start>().stVideo.Config), wide.substr(0, 511));
    EXPECT_EQ(get(cut.as<Start>().stAudio.Encoder), wide.substr(0, 15));
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
        for (const int kind : {0, 1, 2, 3}) {
            EXPECT_EQ(
                message(&all, each.code, kind),
                envelope(kType, each.code, wire(tag + "|ChannelId='1'|StreamID='2'|" + each.last + "|/>|")));
            EXPECT_EQ(message(&absent, each.code, kind), envelope(kType, each.code, wire(tag + "|/>|")));
        }
        EXPECT_TRUE(readsAs(each.code, tag + " UseTcp='4' FrameType='3' StreamID='2' ChannelId='1'/>", "",
                            &each.read, sizeof each.read));
        EXPECT_TRUE(readsAs(each.code, tag + " ChannelId='x'/>", "", &zeros, sizeof zeros));
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
    EXPECT_EQ(composeInto(nullptr, 0, 0), 0);
    EXPECT_STREQ(body, "");
}

TEST(LiveStream, Failures)
{
    const Start start = full();
    void* record = nullptr;
    resetServices();
    EXPECT_EQ(LiveStreamMessageAnalysis("<a/>", "CMD_STREAM", &record), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_TRUE(loggedOnly("LIVE_STREAM_MESSAGE deal a unknow Msg_code:CMD_STREAM !!!\n"));
    EXPECT_EQ(compose(headerOf(kType, "1063"), &start, 1).result, ZEL_ERR_UNKNOWN_MSG);

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
    resetServices();
    EXPECT_EQ(LiveStreamCmdQualityMessageAnalysis(nullptr, &record), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("LiveStreamCmdQualityMessageAnalysis put a empty Param\n"));
}

} // namespace
