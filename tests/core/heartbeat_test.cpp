#include "support/wire.h"

using namespace test;

namespace {

TEST(Heartbeat, RidesInTheHeader)
{
    auto beat = fresh(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init);
    set(beat.Ipcs_stat, "1,1");
    set(beat.IpcAbility1, std::string(64, 'a'));
    set(beat.IpcProtoCol, "p");
    for (const char* type :
         {"ZEL_HEARTBEAT_MESSAGE", "AUXPTZ_HEARTBEAT_MESSAGE", "NVR_PRODUCE_TEST_MESSAGE"}) {
        ZEL_PROTOCOL_HEADER header = headerOf(type, "CMD_HEARTBEAT");
        set(header.Msg_chn, "2");
        const std::string text = envelope(type, "CMD_HEARTBEAT", "",
                                          "Msg_chn=\"2\"\nIpcs_stat=\"1,1\"\nIpcAbility1=\"" +
                                              std::string(64, 'a') + "\"\nIpcProtoCol=\"p\"\n");
        EXPECT_EQ(compose(header, &beat, 0).text, text);
        EXPECT_EQ(compose(header, &beat, 3).text, text);

        const Analysed analysed = analyse(text);
        ASSERT_EQ(analysed.result, 0);
        EXPECT_EQ(memcmp(analysed.record.get(), &beat, sizeof beat), 0);
    }
}

TEST(Heartbeat, WithoutAttributes)
{
    const auto header = headerOf("ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT");
    const std::string text = envelope("ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT", "");
    EXPECT_EQ(compose(header, nullptr, 0).text, text);
    EXPECT_EQ(get(analyse(text).as<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM>().streamstat), "");
    const Analysed noBody = analyse("<XML_ZELMAR><MESSAGE_HEADER Msg_type=\"AUXPTZ_HEARTBEAT_MESSAGE\" "
                                    "Msg_code=\"CMD_HEARTBEAT\" streamstat=\"" +
                                    std::string(70, 's') + "\"/></XML_ZELMAR>");
    EXPECT_EQ(get(noBody.as<AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM>().streamstat), std::string(64, 's'));
}

TEST(Heartbeat, ExportedPair)
{
    const auto header = headerOf("", "");
    auto beat = fresh(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init);
    set(beat.streamstat, "s");
    char out[24] = "Msg_chn";
    EXPECT_EQ(HeartbeatMessageCompose(&header, &beat, out, sizeof out, 7), 0);
    EXPECT_STREQ(out, "Msg_chnstreamstat=\"s\"\n");
    EXPECT_EQ(HeartbeatMessageCompose(&header, &beat, out, 22, 7), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(HeartbeatMessageCompose(&header, &beat, out, 22, 22), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(HeartbeatMessageCompose(&header, nullptr, out, 22, 7), 0);
    EXPECT_EQ(HeartbeatMessageCompose(&header, &beat, out, 1, 0), ZEL_ERR_BUFFER_SMALL);
    EXPECT_STREQ(out, "");
    resetServices();
    EXPECT_EQ(HeartbeatMessageCompose(nullptr, &beat, out, 22, 7), ZEL_ERR_NO_HEADER);
    EXPECT_TRUE(loggedOnly("HeartbeatMessageCompose put a empty msghead\n"));

    void* record = nullptr;
    EXPECT_EQ(GetMessageHeaderEx(nullptr, &record), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("GetMessageHeaderEx put a empty Param\n"));
    EXPECT_EQ(GetMessageHeaderEx("<", &record), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(GetMessageHeaderEx("<a/>", &record), ZEL_ERR_NO_ELEMENT);
    EXPECT_TRUE(loggedOnly("GetMessageHeaderEx get MESSAGE_HEADER error\n"));
    EXPECT_EQ(record, nullptr);
}

} // namespace
