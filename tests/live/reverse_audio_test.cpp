#include "support/wire.h"

using namespace test;

namespace {

using Start = REVERSE_AUDIO_CMD_RA_START_PARAM;
using Stop = REVERSE_AUDIO_CMD_RA_STOP_PARAM;

const std::string kType = "REVERSE_AUDIO_MESSAGE";

const std::string kRequest = "AudioForamt='codec'|Channels='11'|SampleRate='12'|Bitrate='13'|"
                             "RTPSendPort='14'|ConnectType='15'|/>|";
const std::string kResponse = "RTPRecvPort='14'|AudioCodec='codec'|SampleRate='12'|BitsPerSample='13'|"
                              "Channels='11'|ConnectionType='15'/>|";

TEST(ReverseAudio, Start)
{
    const auto absent = fresh(REVERSE_AUDIO_CMD_RA_START_PARAM_init);
    const Start start = {11, 15, 12, "codec", "session", 13, 14};
    const std::string request = "<RA_START_PARAM|Sessionid='session'|" + kRequest;
    const std::string response = "<RA_START_RESPONSE|Sessionid='session'|" + kResponse;
    for (const char* code : {"CMD_RA_START", "544", " 544x"}) {
        expectBodies(kType, code, &start, request, response);
        expectRead(kType, code, "<RA_START_RESPONSE Channels='99'/>" + request, start);
        expectRead(kType, code, response, start);
    }
    // Neither direction knows the other's names.
    Start shared = absent;
    shared.Channels = 11;
    shared.SampleRate = 12;
    expectRead(kType, "544", "<RA_START_PARAM|" + kResponse, shared);
    expectRead(kType, "544", "<RA_START_RESPONSE|" + kRequest, shared);
    shared = absent;
    set(shared.Sessionid, std::string(63, 's'));
    expectRead(kType, "544", "<RA_START_PARAM Sessionid='" + std::string(99, 's') + "'/>", shared);
}

TEST(ReverseAudio, Stop)
{
    Stop stop = fresh(REVERSE_AUDIO_CMD_RA_STOP_PARAM_init);
    expectBodies(kType, "CMD_RA_STOP", &stop, "", "");
    expectRead(kType, "CMD_RA_STOP", "<RA_STOP_PARAM/>", stop);
    set(stop.Sessionid, std::string(64, 's')); // without a terminator
    const std::string text = "<RA_STOP_PARAM|Sessionid='" + std::string(64, 's') + "'|/>|";
    for (const char* code : {"CMD_RA_STOP", "545"}) {
        expectBodies(kType, code, &stop, text, "");
        expectRead(kType, code, "<RA_STOP_PARAM Sessionid='" + std::string(70, 's') + "'/>", stop);
    }
}

TEST(ReverseAudio, Failures)
{
    const Stop stop{};
    char out[8];
    void* result = nullptr;
    for (const char* code : {"CMD_RA_START", "545"})
        EXPECT_EQ(analyseBody(kType, code, "").result, ZEL_ERR_NO_ELEMENT);
    EXPECT_EQ(analyseBody(kType, "CMD_RA_STOP", "<RA_START_PARAM/>").result, ZEL_ERR_NO_ELEMENT);
    for (const char* code : {"546", "CMD_RA", ""}) {
        EXPECT_EQ(ReverseAudioMessageCompose(&stop, 0, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        resetServices();
        EXPECT_EQ(analyseBody(kType, code, "<RA_STOP_PARAM/>").result, ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(
            loggedOnly("ReverseAudioMessageAnalysis deal a unknow Msg_code:" + std::string(code) + " !!!\n"));
    }

    // The document comes before the code.
    resetServices();
    EXPECT_EQ(ReverseAudioMessageAnalysis("<a", "546", &result), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(ReverseAudioMessageAnalysis("<a/>", "546", &result), ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("ReverseAudioMessageAnalysis get MESSAGE_BODY error\n"));
    EXPECT_EQ(ReverseAudioMessageAnalysis("<a/>", nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("ReverseAudioMessageAnalysis put a empty Param\n"));
    resetServices();
    EXPECT_EQ(ReverseAudioMessageCompose(&stop, 0, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("REVERSE_AUDIO_MESSAGE put a empty Param\n"));
}

} // namespace
