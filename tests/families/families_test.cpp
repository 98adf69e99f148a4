// What a build knows of each family that ZEL_FAMILIES chose or left out.
#include "support/wire.h"
#include "zel_protocol/catalogue.h"

using namespace test;

namespace {

struct OneOf
{
    const char* family;
    const char* type;
    const char* code;
};

// One message of each type, and of each part of the configuration.
constexpr OneOf kMessages[] = {
    {"", "ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT"},
    {"session", "USER_AUTH_MESSAGE", "CMD_USER_AUTH"},
    {"session", "SYSTEM_ENCRYPT_MESSAGE", ""},
    {"discovery", "SYSTEM_SEARCHIPC_MESSAGE", "1"},
    {"live", "LIVE_STREAM_MESSAGE", "CMD_STREAM_START"},
    {"live", "MEDIA_DATA_MESSAGE", "1"},
    {"live", "REVERSE_AUDIO_MESSAGE", "544"},
    {"playback", "NVR_REPLAY_MESSAGE", "3010"},
    {"playback", "REPLAY_CONTROL_MESSAGE", "1"},
    {"ptz", "PTZ_CONTROL_MESSAGE", "PTZ_CMD"},
    {"events", "ALARM_REPORT_MESSAGE", "CMD_REPORT_ALARM"},
    {"events", "DEVICE_REPORT_MESSAGE", "3900"},
    {"control", "SYSTEM_CONTROL_MESSAGE", "1012"},
    {"config", "SYSTEM_CONFIG_GET_MESSAGE", "500"},
    {"config", "SYSTEM_CONFIG_GET_MESSAGE", "1020"},
    {"analytics", "SYSTEM_CONFIG_GET_MESSAGE", "1402"},
    {"network", "SYSTEM_CONFIG_SET_MESSAGE", "2020"},
    {"channels", "SYSTEM_CONFIG_GET_MESSAGE", "3803"},
    {"iot", "IOT_CAMERA_MESSAGE", "1205"},
    {"factory", "NVR_INTERNAL_MESSAGES", "4001"},
};

bool isLeftOut(const char* family)
{
    const std::vector<std::string> names = split(ZEL_TEST_LEFT_OUT);
    return std::find(names.begin(), names.end(), family) != names.end();
}

} // namespace

TEST(Families, WhatIsLeftOutIsUnknown)
{
    const std::vector<long double> zeros(100000);
    for (const OneOf& message : kMessages) {
        SCOPED_TRACE(std::string(message.type) + " " + message.code);
        const bool leftOut = isLeftOut(message.family);
        const int index = ZelProtocolCatalogueFind(message.type, message.code, nullptr, -1);
        EXPECT_EQ(leftOut, index == ZEL_ERR_UNKNOWN_MSG) << index;
        const std::string payload = envelope(message.type, message.code, "");
        const auto composed =
            compose(headerOf(message.type, message.code), zeros.data(), ZEL_KIND_REQUEST, 1 << 20);
        if (leftOut) {
            EXPECT_EQ(ZEL_ERR_UNKNOWN_MSG, analyse(payload).result);
            EXPECT_EQ(ZEL_ERR_UNKNOWN_MSG, composed.result);
        } else if (std::string(message.family) != "ptz") { // whose words decide
            EXPECT_NE(ZEL_ERR_UNKNOWN_MSG, analyse(payload).result);
            EXPECT_NE(ZEL_ERR_UNKNOWN_MSG, composed.result);
        }
    }
}

// Its names come from a list of all records.
TEST(Families, EveryMessageOfTheCatalogueHasItsName)
{
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        ZEL_CATALOGUE_ENTRY entry;
        ASSERT_EQ(0, ZelProtocolCatalogueEntry(index, &entry));
        EXPECT_EQ(entry.record_size != 0, entry.record != nullptr) << entry.Msg_type << " " << entry.Msg_code;
    }
}
