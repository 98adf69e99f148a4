#include "support/fields.h"

using namespace test;

namespace {

using Lock = NVR_INTERNAL_4001_PARAM;
using Channels = NVR_INTERNAL_4002_PARAM;

const std::string kType = "NVR_INTERNAL_MESSAGES";

// --- Locked streams ------------------------------------------------------------------------------

const std::string kOne = "<StreamConfig|Stream='1'|Resolution='first'|EncodeFormat='format1'|"
                         "BitRateControl='control1'|Initquant='11'|BitRate='4000000000'|FrameRate='12'|/>|";
const std::string kTwo = "<StreamConfig|Stream='2'|Resolution='second'|EncodeFormat='format2'|"
                         "BitRateControl='control2'|Initquant='13'|BitRate='14'|FrameRate='15'|/>|";
const std::string kCamera = "<IPCInfo|SN='serial'|IPAddress='10.0.0.2'|MulticularChn='16'|/>|";

void setStream(NVR_INTERNAL_STREAM_CONFIG& stream, uint8_t number, const std::string& resolution,
               uint8_t quantisation, uint32_t bitRate, uint8_t frameRate)
{
    stream.Stream = number;
    stream.Initquant = quantisation;
    stream.BitRate = bitRate;
    stream.FrameRate = frameRate;
    set(stream.Resolution, resolution);
    set(stream.EncodeFormat, "format" + std::to_string(number));
    set(stream.BitRateControl, "control" + std::to_string(number));
}

Lock streams()
{
    Lock lock = fresh(NVR_INTERNAL_4001_PARAM_init);
    setStream(lock.stStream1, 1, "first", 11, 4000000000, 12);
    setStream(lock.stStream2, 2, "second", 13, 14, 15);
    return lock;
}

std::string locked(const std::string& content)
{
    return "<LockParamInfo>|" + content + "</LockParamInfo>|";
}

TEST(LockedStreams, BothWays)
{
    Lock lock = fresh(NVR_INTERNAL_4001_PARAM_init);
    const std::string stream = "<StreamConfig|Stream='255'|Resolution=''|EncodeFormat=''|BitRateControl=''|"
                               "Initquant='255'|BitRate='4294967295'|FrameRate='255'|/>|";
    const std::string least = locked("<IPCInfo|SN=''|IPAddress=''|MulticularChn='-1'|/>|" + stream + stream);
    expectBodies(kType, "4001", &lock, least, least);

    lock = streams();
    expectRead(kType, "4001", locked(kOne + kTwo), lock);
    lock.MulticularChn = 16;
    set(lock.SN, "serial");
    set(lock.IPAddress, "10.0.0.2");
    expectBodies(kType, "4001", &lock, locked(kCamera + kOne + kTwo), locked(kCamera + kOne + kTwo));
    for (const std::string& text :
         {kCamera + kOne + kTwo, kTwo + kOne + kCamera, kCamera + kOne + kTwo + kOne})
        expectRead(kType, "4001", locked(text), lock);
}

// The number counts, not the order; the later of two goes over the earlier.
TEST(LockedStreams, PlacesAndFailures)
{
    Lock lock = fresh(NVR_INTERNAL_4001_PARAM_init);
    setStream(lock.stStream2, 2, "again", 13, 14, 15);
    expectRead(kType, "4001", locked(kTwo + "<StreamConfig Resolution='again' Stream='2'/>" + kOne), lock);

    const struct
    {
        std::string content;
        const char* log;
    } failures[] = {
        {kCamera, "StreamConfig:1 error"},
        {kTwo + "<Other/>", "StreamConfig:2 error"},
        {kOne + "<StreamConfig Resolution='x'/>", "stream"},
        {"<StreamConfig Stream='x'/>" + kOne, "stream"},
        {replaced(kOne, "Stream='1'", "Stream='3'") + kTwo, "Error stream :3"},
        {kOne + replaced(kTwo, "Stream='2'", "Stream='0'"), "Error stream :0"},
    };
    for (const auto& [content, log] : failures) {
        resetServices();
        EXPECT_EQ(analyseBody(kType, "4001", locked(content)).result, ZEL_ERR_BAD_DOCUMENT) << content;
        EXPECT_TRUE(loggedOnly(std::string("NvrInternalMessageAnalysis get ") + log + "\n")) << content;
    }
    EXPECT_EQ(analyseBody(kType, "4001", kOne + kTwo).result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("NvrInternalMessageAnalysis get LockParamInfo error\n"));
}

// --- Addresses of channels -----------------------------------------------------------------------

TEST(ChannelAddresses, BothWays)
{
    Channels channels = fresh(NVR_INTERNAL_4002_PARAM_init);
    set(channels.acSrcIp, "source");
    const std::string request = "<REQUEST_PARAM|SrcIp='source'|/>|";
    EXPECT_EQ(bodyOf(kType, "4002", &channels, 0), wire(request));
    EXPECT_EQ(bodyOf(kType, "4002", &channels, 2), wire(request));
    expectRead(kType, "4002", replaced(request, "SrcIp", "ChannelCount='1' SN='x' SrcIp"), channels);

    // Empty rows count, but aren't written; only those that come are counted.
    channels.iChannelCount = 11;
    set(channels.SN, "serial");
    set(channels.acIpAddr[0], "first");
    set(channels.acIpAddr[2], "second");
    set(channels.acIpAddr[11], "lost");
    const std::string text = "<RESPONSE_PARAM|ChannelCount='11'|SrcIp='source'|SN='serial'|/>|"
                             "<ChannelInfo|IpAddr='first'|/>|<ChannelInfo|IpAddr='second'|/>|";
    expectBodies(kType, "4002", &channels, request, text);
    Channels read = fresh(NVR_INTERNAL_4002_PARAM_init);
    set(read.acSrcIp, "source");
    set(read.SN, "serial");
    read.iChannelCount = 2;
    set(read.acIpAddr[0], "first");
    set(read.acIpAddr[1], "second");
    expectRead(kType, "4002", request + text, read);
    read.iChannelCount = 1;
    set(read.acIpAddr[1], "");
    expectRead(kType, "4002", replaced(text, "'11'", "'1'"), read);
    set(read.acIpAddr[0], "");
    for (const auto& [count, kept] : {std::pair("'0'", 0), std::pair("'-2'", 0), std::pair("''", -1)}) {
        read.iChannelCount = kept;
        expectRead(kType, "4002", replaced(text, "'11'", count), read);
    }
}

TEST(ChannelAddresses, SixtyFour)
{
    Channels channels = fresh(NVR_INTERNAL_4002_PARAM_init);
    std::string rows;
    for (int i = 0; i <= 64; ++i) {
        rows += "<ChannelInfo|IpAddr='" + std::to_string(i) + "'|/>|";
        if (i < 64)
            set(channels.acIpAddr[i], std::to_string(i));
    }
    channels.iChannelCount = 64;
    expectRead(kType, "4002", "<RESPONSE_PARAM ChannelCount='100'/>" + rows, channels);
    set(channels.acSrcIp, "source");
    channels.iChannelCount = 65;
    EXPECT_EQ(bodyOf(kType, "4002", &channels, 1),
              wire("<RESPONSE_PARAM|ChannelCount='65'|SrcIp='source'|SN=''|/>|" +
                   replaced(rows, "<ChannelInfo|IpAddr='64'|/>|")));
}

TEST(ChannelAddresses, Refused)
{
    Channels channels = fresh(NVR_INTERNAL_4002_PARAM_init);
    char out[1024] = "";
    const auto refused = [&](int kind, const std::string& log) {
        resetServices();
        EXPECT_EQ(NvrInternalMessageCompose(&channels, kind, "4002", out, sizeof out), ZEL_ERR_BAD_PARAM);
        EXPECT_TRUE(loggedOnly("NVR_INTERNAL_MESSAGES put a error Param " + log + "\n"));
    };
    refused(1, "iChannelCount: -1 acSrcIp: ");
    refused(0, "acSrcIp: ");
    channels.iChannelCount = 11;
    refused(3, "iChannelCount: 11 acSrcIp: ");
    refused(2, "acSrcIp: ");
    set(channels.acSrcIp, "source");
    channels.iChannelCount = -1;
    refused(1, "iChannelCount: -1 acSrcIp: source");

    resetServices();
    EXPECT_EQ(analyseBody(kType, "4002", "<ChannelInfo/>").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("NvrInternalMessageAnalysis get RESPONSE_PARAM error\n"));
}

// An unknown code is only seen behind the text's own faults.
TEST(NvrInternal, Dispatch)
{
    const Lock lock = streams();
    char out[16] = "";
    void* result = nullptr;
    resetServices();
    const auto failed = [](int status, int expected, const std::string& log) {
        EXPECT_EQ(status, expected) << log;
        EXPECT_TRUE(loggedOnly(log + "\n")) << log;
    };
    for (const char* code : {"4003", "x"}) {
        const std::string rest = " deal a unknow msg_cdoe : " + std::to_string(atoi(code));
        failed(NvrInternalMessageCompose(&lock, 0, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG,
               "NVR_INTERNAL_MESSAGES" + rest);
        failed(NvrInternalMessageAnalysis(envelope(kType, code, "").c_str(), code, &result),
               ZEL_ERR_UNKNOWN_MSG, "NvrInternalMessageAnalysis" + rest);
        failed(NvrInternalMessageAnalysis("<a>", code, &result), ZEL_ERR_BAD_DOCUMENT,
               "NvrInternalMessageAnalysis Parse MsgBuf error");
        failed(NvrInternalMessageAnalysis("<a/>", code, &result), ZEL_ERR_BAD_DOCUMENT,
               "NvrInternalMessageAnalysis get MESSAGE_BODY error");
    }
    failed(NvrInternalMessageCompose(&lock, 0, "4001", nullptr, 16), ZEL_ERR_BAD_PARAM,
           "NVR_INTERNAL_MESSAGES put a empty Param");
    failed(NvrInternalMessageAnalysis(nullptr, "4001", &result), ZEL_ERR_BAD_PARAM,
           "NvrInternalMessageAnalysis put a empty Param");
}

} // namespace
