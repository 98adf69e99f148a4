#include "config/config_message.h"

using namespace test;

namespace {

// The text of a request, with % for its channel.
template <class Record>
void expectChannelRequest(const char* code, int (*init)(Record*), const std::string& text)
{
    Record record = fresh(init);
    const std::pair<int32_t, const char*> written[] = {{255, "0xff"}, {-1, "-1"}, {12, "12"}};
    for (const auto& [channel, value] : written) {
        record.ChannelId = channel;
        for (const int kind : {0, 2})
            EXPECT_EQ(bodyOf(kConfig, code, &record, kind), wire(with(text, "%", value)));
    }
    const std::pair<const char*, int32_t> read[] = {
        {"ChannelId='0xff'", 255}, {"ChannelId='255'", 255}, {"ChannelId='0xFF'", 0},
        {"ChannelId=' 12x'", 12},  {"ChannelId=''", 0},      {"ChannelCount='12'", -1},
    };
    for (const auto& [attribute, channel] : read) {
        record.ChannelId = channel;
        expectRead(kConfig, code,
                   std::string("<Overlay Enable='1'/><Encode LockPara='1'/><ChannelInfo ChannelId='1'/>"
                               "<REQUEST_PARAM ") +
                       attribute + "/>",
                   record);
    }
}

TEST(OsdConfig, Requests)
{
    expectChannelRequest("2550", SYSTEM_CONFIG_GET_2550_PARAM_init, "<REQUEST_PARAM|ChannelId='%'/>|");
    expectChannelRequest("2560", SYSTEM_CONFIG_GET_2560_PARAM_init, "<REQUEST_PARAM|ChannelId='%'|/>|");
    expectChannelRequest("2561", SYSTEM_CONFIG_GET_2561_PARAM_init, "<REQUEST_PARAM|ChannelId='%'|/>|");
}

TEST(OsdConfig, Overlays)
{
    auto overlays = fresh(SYSTEM_CONFIG_SET_2555_PARAM_init);
    overlays.stOsdChannel[0] = {255, 12, 13, 14, 15, 16, "format", 17, 18, "title", "default"};
    overlays.stOsdChannel[1].ChannelId = 0;
    const std::string first =
        "<Overlay|ChannelId='255'|Enable='12'|Transparency='13'|>|<TimeOverlay|PosX='14'|PosY='15'|"
        "Format='format'|WeekDisplayEn='16'|/>|<TitleOverlay|PosX='17'|PosY='18'|OsdTitle='title'|";
    const std::string second =
        "/>|</Overlay>|<Overlay|ChannelId='0'|Enable='-1'|Transparency='-1'|>|<TimeOverlay|PosX='-1'|"
        "PosY='-1'|Format=''|WeekDisplayEn='-1'|/>|<TitleOverlay|PosX='-1'|PosY='-1'|OsdTitle=''|";
    const std::string end = "/>|</Overlay>|";
    const std::string got = first + "DefaultOsdTitle='default'|" + second + "DefaultOsdTitle=''|" + end;
    expectBodies(kConfig, "2550", &overlays, "<REQUEST_PARAM|ChannelId='-1'/>|", got);
    expectRead(kConfig, "2550", "ChannelCount='12'|" + got, overlays);
    expectBodies(kConfig, "2555", &overlays, first + second + end, "");
    overlays.ChannelCount = 0;
    const std::string set = "ChannelCount='0'|" + first + second + end;
    expectBodies(kConfig, "2555", &overlays, set, "");

    // The set doesn't read the defaults; its count goes out as a bare line, but is read from the body's tag.
    overlays.ChannelCount = -1;
    memset(overlays.stOsdChannel[0].DefaultOsdTitle, 0, sizeof overlays.stOsdChannel[0].DefaultOsdTitle);
    expectRead(kConfig, "2555", "<REQUEST_PARAM ChannelId='12'/>ChannelCount='0'|" + got, overlays);
    for (const char* code : {"2550", "2555"}) {
        const Analysed analysed = analyse(
            with(envelope(kConfig, code, wire(got)), "<MESSAGE_BODY", "<MESSAGE_BODY ChannelCount=\"12\""));
        ASSERT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.as<SYSTEM_CONFIG_GET_2550_PARAM>().ChannelCount, code[3] == '0' ? -1 : 12);
    }
}

TEST(OsdConfig, Encoders)
{
    auto encoders = fresh(SYSTEM_CONFIG_SET_2565_PARAM_init);
    const SYSTEM_CONFIG_ENCODE_CHANNEL first = {255, 12, {{13, 14, 15, 16, "size", "format", "control"}, {}}};
    encoders.stEncodeChannel[0] = first;
    encoders.stEncodeChannel[0].stEncodeConfig[1] = encoders.stEncodeChannel[2].stEncodeConfig[0];
    encoders.stEncodeChannel[0].stEncodeConfig[1].Stream = 17;
    const std::string rows =
        "<EncodeConfig|Stream='13'|Resolution='size'|EncodeFormat='format'|BitRateControl='control'|"
        "Initquant='14'|BitRate='15'|FrameRate='16'|/>|<EncodeConfig|Stream='17'|Resolution=''|"
        "EncodeFormat=''|BitRateControl=''|Initquant='-1'|BitRate='-1'|FrameRate='-1'|/>|</Encode>|";
    const std::string got = "<Encode|ChannelId='255'|LockPara='12'|>|" + rows;
    expectBodies(kConfig, "2560", &encoders, "<REQUEST_PARAM|ChannelId='-1'|/>|", got);
    expectRead(kConfig, "2560", got, encoders);
    const std::string set = "<Encode|ChannelId='255'|LockPara='12'>|" + rows;
    expectRequest(kConfig, "2565", encoders, set);
    expectRead(kConfig, "2565", "<REQUEST_PARAM ChannelId='12'/>" + set, encoders);

    encoders = fresh(SYSTEM_CONFIG_GET_2560_PARAM_init);
    encoders.stEncodeChannel[0].stEncodeConfig[0].Stream = 13;
    encoders.stEncodeChannel[1].stEncodeConfig[1].Stream = 14;
    expectRead(kConfig, "2560",
               "<Encode><EncodeConfig Stream='13'/></Encode><Other/><Encode><EncodeConfig/><Other/>"
               "<EncodeConfig Stream='14'/><EncodeConfig Stream='15'/></Encode>",
               encoders);
}

TEST(OsdConfig, Abilities)
{
    auto abilities = fresh(SYSTEM_CONFIG_GET_2561_PARAM_init);
    const std::string absent = "<ChannelInfo|ChannelId='-1'|>|<VideoCap|CapList=''/>|"
                               "<VideoBestParameter CapList=''/>|</ChannelInfo>|";
    expectBodies(kConfig, "2561", &abilities, "<REQUEST_PARAM|ChannelId='-1'|/>|", absent);
    expectRead(kConfig, "2561", "<ChannelInfo/>", abilities);
    abilities = {255, "abilities", "best"};
    const std::string text = "<ChannelInfo|ChannelId='255'|>|<VideoCap|CapList='abilities'/>|"
                             "<VideoBestParameter CapList='best'/>|</ChannelInfo>|";
    expectBodies(kConfig, "2561", &abilities, "<REQUEST_PARAM|ChannelId='0xff'|/>|", text);
    expectRead(kConfig, "2561", text, abilities);
}

TEST(OsdConfig, RowLimits)
{
    auto overlays = fresh(SYSTEM_CONFIG_GET_2550_PARAM_init);
    auto encoders = fresh(SYSTEM_CONFIG_GET_2560_PARAM_init);
    std::string text;
    for (int32_t i = 0; i <= 64; ++i) {
        const std::string channel = " ChannelId='" + std::to_string(i) + "'/>";
        text += "<Overlay" + channel + "<Encode" + channel;
        if (i < 64)
            overlays.stOsdChannel[i].ChannelId = encoders.stEncodeChannel[i].ChannelId = i;
    }
    expectRead(kConfig, "2550", text, overlays);
    expectRead(kConfig, "2560", text, encoders);
    // The first free row ends them.
    for (const int rows : {64, 40, 0}) {
        if (rows < 64)
            overlays.stOsdChannel[rows].ChannelId = encoders.stEncodeChannel[rows].ChannelId = -1;
        const auto expected = static_cast<size_t>(rows);
        EXPECT_EQ(valuesOf(bodyOf(kConfig, "2555", &overlays, 0), "ChannelId").size(), expected);
        EXPECT_EQ(valuesOf(bodyOf(kConfig, "2565", &encoders, 0), "ChannelId").size(), expected);
    }
}

TEST(OsdConfig, RequiredElements)
{
    expectRequired({{"2550", "getVideoOsdConfig", "Overlay"},
                    {"2555", "setVideoOsdConfig", "Overlay"},
                    {"2560", "getMediaVideoConfig", "Encode"},
                    {"2561", "getMediaCapability", "ChannelInfo"},
                    {"2565", "setMediaVideoConfig", "Encode"}});
    for (const char* code : {"2555", "2565"})
        EXPECT_EQ(analyseBody(kConfig, code, "<REQUEST_PARAM ChannelId='12'/>").result, ZEL_ERR_NO_ELEMENT);
}
} // namespace
