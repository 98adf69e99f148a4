#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONTROL_MESSAGE";

// The states of a channel: number, flag, and what they are written as.
const struct
{
    int32_t number, flag;
    std::string text;
} kChannels[] = {{-1, -1, ""}, {-1, 1, "ChannelId=''|"}, {12, 1, "ChannelId='12'|"}};

TEST(Update, OrderOfAnUpdate)
{
    for (const auto& [number, flag, channel] : kChannels) {
        auto update = fresh(SYSTEM_CONTROL_1090_PARAM_init);
        update.ChannelId = number;
        update.bChannelIdEmpty = flag;
        const std::string response = "<RESPONSE_PARAM|" + channel + "/>|";
        expectRead(kType, "1090", "<REQUEST_PARAM url='x' md5='x' ChannelId='99'/>" + response, update);
        set(update.url, "url");
        set(update.md5, "md5");
        const std::string request = "<REQUEST_PARAM|url='url'|md5='md5'|" + channel + "/>|";
        expectBodies(kType, "1090", &update, request, response);
        expectRead(kType, "1090", request, update);
    }
}

TEST(Update, Progress)
{
    for (const auto& [number, flag, channel] : kChannels) {
        auto progress = fresh(SYSTEM_CONTROL_1092_PARAM_init);
        progress.ChannelId = number;
        progress.bChannelIdEmpty = flag;
        const std::string request = "<REQUEST_PARAM|" + channel + "/>|";
        expectRead(kType, "1092", "<REQUEST_PARAM Progress='98' State='97'" + request.substr(14), progress);
        progress.Progress = 13;
        progress.State = 14;
        const std::string response = "<RESPONSE_PARAM|Progress='13'|State='14'|" + channel + "/>|";
        expectBodies(kType, "1092", &progress, request, response);
        expectRead(kType, "1092", "<REQUEST_PARAM ChannelId='99'/>" + response, progress);
    }
    // Any flag goes out, and comes back as 1.
    auto progress = fresh(SYSTEM_CONTROL_1092_PARAM_init);
    progress.bChannelIdEmpty = 0;
    EXPECT_EQ(bodyOf(kType, "1092", &progress, 0), wire("<REQUEST_PARAM|ChannelId=''|/>|"));
    progress.ChannelId = 12;
    progress.bChannelIdEmpty = -1;
    EXPECT_EQ(bodyOf(kType, "1092", &progress, 0), wire("<REQUEST_PARAM|ChannelId='12'|/>|"));
}

// An ordinary channel, and nothing else of the record.
TEST(Update, Cancel)
{
    auto cancel = fresh(SYSTEM_CONTROL_1093_PARAM_init);
    const std::string tags[] = {"<REQUEST_PARAM|", "<RESPONSE_PARAM|"};
    expectBodies(kType, "1093", &cancel, tags[0] + "ChannelId='-1'|/>|", tags[1] + "ChannelId='-1'|/>|");
    expectRead(kType, "1093", "<REQUEST_PARAM ChannelId='99'/><RESPONSE_PARAM ChannelId=''/>", cancel);
    cancel = {12, 13, 14, 1};
    expectBodies(kType, "1093", &cancel, tags[0] + "ChannelId='12'|/>|", tags[1] + "ChannelId='12'|/>|");
    cancel = {12, -1, -1, -1};
    for (const std::string& tag : tags)
        expectRead(kType, "1093", tag + "Progress='13' State='14' ChannelId='12'/>", cancel);
}

} // namespace
