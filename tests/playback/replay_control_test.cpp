#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "REPLAY_CONTROL_MESSAGE";

TEST(ReplayControl, EveryCodeHasOneForm)
{
    auto control = fresh(REPLAY_CONTROL_PARAM_init);
    expectRead(kType, "0", "<REQUEST_PARAM/>", control);
    control = {"file", 11, 12};
    const std::string text = "<REQUEST_PARAM|FileName='file'|StartPos='11'|PlayParam='12'|/>|";
    for (const char* code : {"0", "7", "12", "no number"}) {
        expectBodies(kType, code, &control, text, text);
        expectRead(kType, code, "<RESPONSE_PARAM StartPos='99'/>" + text, control);
    }
    EXPECT_EQ(analyseBody(kType, "1", "<RESPONSE_PARAM/>").result, ZEL_ERR_NO_ELEMENT);
}

TEST(ReplayControl, Failures)
{
    const REPLAY_CONTROL_PARAM control{};
    char out[8];
    void* result = nullptr;
    for (const char* code : {"13", "-1"}) {
        resetServices();
        EXPECT_EQ(ReplayControlMessageCompose(&control, 1, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(
            loggedOnly("REPLAY_CONTROL_MESSAGE deal a unknow msg_cdoe : " + std::string(code) + "\n"));
        EXPECT_EQ(analyseBody(kType, code, "").result, ZEL_ERR_UNKNOWN_MSG);
        // The document comes before the code.
        EXPECT_EQ(ReplayControlMessageAnalysis("<a/>", code, &result), ZEL_ERR_BAD_DOCUMENT);
    }
    resetServices();
    EXPECT_EQ(ReplayControlMessageCompose(&control, 0, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("REPLAY_CONTROL_MESSAGE put a empty Param\n"));
    EXPECT_EQ(ReplayControlMessageAnalysis("<a/>", nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("ReplayControlMessageAnalysis put a empty Param\n"));
    EXPECT_EQ(ReplayControlMessageAnalysis("<a", "1", &result), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(loggedOnly("ReplayControlMessageAnalysis Parse MsgBuf error\n"));
}

} // namespace
