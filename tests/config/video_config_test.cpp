#include "config/config_message.h"

using namespace test;

namespace {

using Video = SYSTEM_CONFIG_GET_501_PARAM;

// The record of counted() on the wire.
const std::string kSettings = inLines(R"(
<Capture LightBoardBrigh='64' LightBoardMode='65' Brightness='203' Contrast='204' Saturation='205'
    Sharpness='206' DayNight='15' WhiteBalance='16' BackLight='207' Switch2A='17' BinningSkip='18'
    TVSystem='19' HFlip='20' VFlip='21' TNF='22' SNF='23' VSTAB='24' LDC='25' FD='26' Rotation='27'
    PreventOverexposure='28' IrcutMode='29' SoftPhotoresistanceSensitivity='66' soft_pr_luma_day_to_night='67'
    IrcutDelayValue='30' IrcutLuma='32' IrcutSensitivity='31' auiIRcutNightStartTime='03:16:17'
    auiIRcutNightEndTime='04:18:19' IrcutKeepColor='33' IrcutLumaList='luma' />
<Encode>
  <EncodeConfig Stream='301' Resolution='resolution0' EncodeFormat='format0' BitRateControl='control0'
      Initquant='302' BitRate='303' FrameRate='304' />
  <EncodeConfig Stream='311' Resolution='resolution1' EncodeFormat='format1' BitRateControl='control1'
      Initquant='312' BitRate='313' FrameRate='314' />
  <AdvanceEncodeConfig EncodeProfile='11' WDRMode='14' WDRStartTime='01:12:13' WDREndTime='02:14:15'
      DisablePrivateData='12' DefaultDPrivateData='13' H265plus='71' DefaultH265plus='72' H265subplus='73'
      DefaultH265subplus='74' IvpLowBitrate='70' IvpAdvanceIspNew='75' IvpAdvanceIsp='69' />
</Encode>
<AdvacedMediaConfig>
  <AEConfig AEStep='201' AETolerance='202' />
  <ExposureConfig ExposureMode='34' SemiautoMode='35' ExposureTime='36' DaySystemGain='37'
      NightSystemGain='38' />
  <AWBConfig AWBMode='39' AWBRGain='40' AWBBGain='41' />
  <DRCConfig Mode='42' StrenthTarget='43' DRCStartTime='5:20:21' DRCEndTime='6:22:23' />
  <DenoiseConfig DenoiseMode='44' DenoiseDayStrenth='45' DenoiseNightStrenth='46' />
  <ColorStyle ColorStyleMode='47' />
  <LDCConfig enable='48' centorX='49' centorY='50' ratio='51' />
  <StarlightConfig enable='52' />
  <DoubleLight WeightCoefficient='53' />
</AdvacedMediaConfig>
<JpegConfig Enable='54' Stream='55' Quality='56' Framerate='57' />)");
const std::string kMask = inLines(R"(
<Mask>
  <MainStream Area1PosX='111' Area1PosY='112' Area1Width='1001' Area1Height='1002' Area2PosX='113'
      Area2PosY='114' Area2Width='1003' Area2Height='1004' Area3PosX='115' Area3PosY='116' Area3Width='1005'
      Area3Height='1006' Area4PosX='117' Area4PosY='118' Area4Width='1007' Area4Height='-2' />
  <SubStream Area1PosX='121' Area1PosY='122' Area1Width='1011' Area1Height='1012' Area2PosX='123'
      Area2PosY='124' Area2Width='1013' Area2Height='1014' Area3PosX='125' Area3PosY='126' Area3Width='1015'
      Area3Height='1016' Area4PosX='127' Area4PosY='128' Area4Width='1017' Area4Height='1018' />
</Mask>)");
const std::string kOverlay = inLines(R"(
<Overlay Enable='58' Transparency='59' ChanID='208' >
  <TimeOverlay PosX='60' PosY='61' Format='format' WeekDisplayEn='68' />
  <TitleOverlay PosX='62' PosY='63' Title='title' DefaultTitle='default' />
</Overlay>)");

Video freshVideo()
{
    return fresh(SYSTEM_CONFIG_GET_501_PARAM_init);
}

void setOverlay(Video& video)
{
    video.ChannelId = 208;
    countUp(video.Overlay_Enable, video.TitleOverlay_PosY, 58);
    video.WeekDisplayEn = 68;
    set(video.Format, "format");
    set(video.Title, "title");
    set(video.DefaultTitle, "default");
}

// Numbers count up in record order, so that a text tells which field each of its values came from.
Video counted()
{
    Video video = freshVideo();
    countUp(video.EncodeProfile, video.IvpAdvanceIspNew, 11);
    countUp(video.AEStep, video.BackLight, 201);
    setTime(video.WDRStartTime, 1, 12);
    setTime(video.WDREndTime, 2, 14);
    setTime(video.auiIRcutNightStartTime, 3, 16);
    setTime(video.auiIRcutNightEndTime, 4, 18);
    setTime(video.DRCStartTime, 5, 20);
    setTime(video.DRCEndTime, 6, 22);
    set(video.IrcutLumaList, "luma");
    video.stEncodeConfig[0] = {301, 302, 303, 304, "resolution0", "format0", "control0"};
    video.stEncodeConfig[1] = {311, 312, 313, 314, "resolution1", "format1", "control1"};
    for (int row = 0; row < 2; ++row) {
        auto& mask = video.stMaskRows[row];
        countUp(mask.Area1PosX, mask.Area4PosY, 111 + 10 * row);
        countUp(mask.Area1Width, mask.Area4Height, 1001 + 10 * row);
    }
    video.stMaskRows[0].Area4Height = UINT32_MAX - 1;
    setOverlay(video);
    return video;
}

// The get has a channel, twice, and its masks come first; the set is whole whatever the form.
TEST(VideoConfig, Whole)
{
    Video video = counted();
    const std::string whole = "<Video ChannelId='208'>|" + kSettings + kMask + kOverlay + "</Video>|";
    expectBodies(kConfig, "501", &video, "<REQUEST_PARAM|ChannelId='208'|/>|", whole);
    expectRead(kConfig, "501", whole, video);

    video.iBlankForm = 0;
    expectBodies(kConfig, "521", &video,
                 "<Video>|" + kSettings + with(kOverlay, "ChanID='208'|", "") + kMask + "</Video>|", "");
    video.iBlankForm = video.ChannelId = -1;
    expectRead(kConfig, "521", whole, video);
}

TEST(VideoConfig, BlankForm)
{
    Video video = counted();
    const std::string encoder = inLines("<EncodeConfig Stream='' Resolution='' EncodeFormat='' "
                                        "BitRateControl='' Initquant='' BitRate='' FrameRate='' />");
    const std::string blank =
        "<Video ChannelId='208'>|" +
        inLines(
            "<Capture Brightness='' Contrast='' Saturation='' Sharpness='' DayNight='' WhiteBalance='' "
            "BackLight='' Switch2A='' BinningSkip='' TVSystem='' HFlip='' VFlip='' TNF='' SNF='' VSTAB='' "
            "LDC='' FD='' IrcutMode='' IrcutSensitivity='' IrcutNightStartTime='' IrcutNightEndTime='' />"
            "\n<Encode>") +
        encoder + encoder + inLines("</Encode> <JpegConfig Enable='' Stream='' Quality='' Framerate='' />") +
        kOverlay + "</Video>|";
    for (const int32_t form : {0, 1}) {
        video.iBlankForm = form;
        expectBodies(kConfig, "501", &video, "<REQUEST_PARAM|ChannelId='208'|/>|", blank);
    }
    video = freshVideo();
    setOverlay(video);
    expectRead(kConfig, "501", with(blank, "StartTime=''", "StartTime='10:11:12'"), video);
}

TEST(VideoConfig, WrittenWholeWhenFresh)
{
    const Video video = freshVideo();
    const Video full = counted();
    EXPECT_EQ(bodyOf(kConfig, "501", &video, 0), "");
    const auto lines = [](const std::string& text) { return std::count(text.begin(), text.end(), '\n'); };
    const std::string text = bodyOf(kConfig, "501", &video, 1);
    EXPECT_EQ(lines(text), lines(bodyOf(kConfig, "501", &full, 1)) - 1);
    EXPECT_EQ(lines(bodyOf(kConfig, "521", &video, 0)), lines(bodyOf(kConfig, "521", &full, 0)));
    EXPECT_EQ(valuesOf(text, "ChanID"), split(""));
    expectRead(kConfig, "501", text, video);
    expectRead(kConfig, "501", "<REQUEST_PARAM/>", video);
    expectRead(kConfig, "521", "<Video/>", fresh(SYSTEM_CONFIG_SET_521_PARAM_init));
}

TEST(VideoConfig, Channel)
{
    Video video = freshVideo();
    video.ChannelId = 12;
    for (const char* text :
         {"<REQUEST_PARAM ChannelId='12' iBlankForm='13'><Capture TNF='14'/></REQUEST_PARAM>",
          "<REQUEST_PARAM ChannelId='13'/><Video ChannelId='12'/>", "<Video><Overlay ChanID='12'/></Video>",
          "<Video ChannelId='13'><Overlay ChannelId='14' ChanID='12'/></Video>"})
        expectRead(kConfig, "501", text, video);
    video.ChannelId = 0;
    EXPECT_EQ(bodyOf(kConfig, "501", &video, 2), wire("<REQUEST_PARAM|ChannelId='0'|/>|"));
}

TEST(VideoConfig, RequiredElements)
{
    expectRequired(
        {{"501", "getMediaVideoconfig", "RESPONSE_PARAM"}, {"521", "setMediaVideoconfig", "RESPONSE_PARAM"}});
}

} // namespace
