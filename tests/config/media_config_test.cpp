#include "support/wire.h"

using namespace test;

namespace {

using Media = SYSTEM_CONFIG_GET_500_PARAM;

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

// The record of counted() on the wire; each blank stands for a line feed.
const char kDocument[] = R"(<MediaConfig>
  <Video>
    <LightConfig LightMode="11" LightCtrl="12" LightVal="13" LightModeRange="209,210,211"> </LightConfig>
    <Capture LightBoardBrigh="14" LightBoardMode="15" Brightness="204" Contrast="205" Saturation="206"
        Sharpness="207" DayNight="16" WhiteBalance="17" BackLight="202" Switch2A="18" BinningSkip="19"
        TVSystem="20" HFlip="21" VFlip="22" TNF="23" SNF="24" VSTAB="25" LDC="26" FD="27" Rotation="28"
        PreventOverexposure="29" IrcutMode="30" SoftPhotoresistanceSensitivity="31"
        soft_pr_luma_day_to_night="32" IrcutDelayValue="33" IrcutSensitivity="34"
        IrcutNightStartTime="12:13:14" IrcutNightEndTime="15:16:17" IrcutLumaList="luma" IrcutLuma="35"
        IrcutKeepColor="36" />
    <Encode>
      <EncodeConfig Stream="301" Resolution="resolution0" EncodeFormat="encodeformat0"
          BitRateControl="bitratecontrol0" Initquant="302" BitRate="303" FrameRate="304" />
      <EncodeConfig Stream="311" Resolution="resolution1" EncodeFormat="encodeformat1"
          BitRateControl="bitratecontrol1" Initquant="312" BitRate="313" FrameRate="314" />
      <AdvanceEncodeConfig EncodeProfile="1" WDRMode="4" WDRStartTime="06:07:08" WDREndTime="09:10:11"
          DisablePrivateData="2" DefaultDPrivateData="3" H265plus="7" DefaultH265plus="8" H265subplus="9"
          DefaultH265subplus="10" IvpLowBitrate="6" IvpAdvanceIspNew="208" IvpAdvanceIsp="5" />
    </Encode>
    <AdvacedMediaConfig>
      <AEConfig AEStep="201" AETolerance="203" />
      <ExposureConfig ExposureMode="39" SemiautoMode="40" ExposureTime="41" DaySystemGain="42"
          NightSystemGain="43" />
      <AWBConfig AWBMode="44" AWBRGain="45" AWBBGain="46" />
      <DRCConfig Mode="47" StrenthTarget="48" DRCStartTime="00:01:02" DRCEndTime="03:04:05" />
      <DenoiseConfig DenoiseMode="49" DenoiseDayStrenth="50" DenoiseNightStrenth="51" />
      <ColorStyle ColorStyleMode="52" />
      <LDCConfig enable="53" centorX="54" centorY="55" ratio="56" />
      <StarlightConfig enable="57" />
      <DefogConfig DefogMode="58" DefogValue="59" />
      <DoubleLight WeightCoefficient="60" />
    </AdvacedMediaConfig>
    <JpegConfig Enable="61" Stream="62" Quality="63" Framerate="64" />
    <Overlay Enable="65" Transparency="66" >
      <TimeOverlay PosX="67" PosY="68" Format="format" WeekDisplayEn="69" />
      <TitleOverlay PosX="37" PosY="38" Title="title" />
    </Overlay>
    <Mask>
      <MainStream Area1PosX="111" Area1PosY="112" Area1Width="1001" Area1Height="1002" Area2PosX="113"
          Area2PosY="114" Area2Width="1003" Area2Height="1004" Area3PosX="115" Area3PosY="116"
          Area3Width="1005" Area3Height="1006" Area4PosX="117" Area4PosY="118" Area4Width="1007"
          Area4Height="1008" />
      <SubStream Area1PosX="121" Area1PosY="122" Area1Width="1011" Area1Height="1012" Area2PosX="123"
          Area2PosY="124" Area2Width="1013" Area2Height="1014" Area3PosX="125" Area3PosY="126"
          Area3Width="1015" Area3Height="1016" Area4PosX="127" Area4PosY="128" Area4Width="1017"
          Area4Height="1018" />
    </Mask>
  </Video>
  <Audio>
    <Capture Volume="102" />
    <Encode Enable="101" SampleRate="8000" EncodeType="type" BitRate="-2" />
    <Play Volume="103" />
  </Audio>
</MediaConfig>)";

std::string textOf(const std::string& document)
{
    std::string text;
    for (const std::string& line : split(document))
        text += line + "\n";
    return text;
}

std::string without(std::string text, const std::string& part, const std::string& instead = "")
{
    const size_t at = text.find(part);
    EXPECT_NE(at, std::string::npos) << part;
    return at == std::string::npos ? text : text.replace(at, part.size(), instead);
}

Media freshMedia()
{
    return fresh(SYSTEM_CONFIG_GET_500_PARAM_init);
}

// Fields count up in record order, so that a text tells which field each of its values came from.
Media counted()
{
    Media media = freshMedia();
    auto* const bytes = reinterpret_cast<uint8_t*>(&media);
    for (uint8_t i = 0; &bytes[i] <= &media.WeekDisplayEn; ++i)
        bytes[i] = static_cast<uint8_t>(i + 1);
    uint8_t* place = bytes + offsetof(Media, AEStep);
    for (int32_t i = 0; i < 29; ++i, place += sizeof i) {
        const int32_t value = i < 11 ? 201 + i : i - 11;
        memcpy(place, &value, sizeof value);
    }
    set(media.IrcutLumaList, "luma");
    set(media.Format, "format");
    set(media.Title, "title");
    for (int32_t row = 0; row < 2; ++row) {
        const int32_t base = 301 + 10 * row;
        const std::string number = std::to_string(row);
        auto& encode = media.stEncodeConfig[row];
        encode = {base, base + 1, base + 2, base + 3, "", "", ""};
        set(encode.Resolution, "resolution" + number);
        set(encode.EncodeFormat, "encodeformat" + number);
        set(encode.BitRateControl, "bitratecontrol" + number);
        auto& mask = media.stMaskRows[row];
        for (uint8_t i = 0; i < 8; ++i) {
            (&mask.Area1PosX)[i] = static_cast<uint8_t>(111 + 10 * row + i);
            (&mask.Area1Width)[i] = static_cast<uint32_t>(1001 + 10 * row + i);
        }
    }
    media.Encode_Enable = 101;
    media.Capture_Volume = 102;
    media.Play_Volume = 103;
    media.SampleRate = 8000;
    media.BitRate = UINT32_MAX - 1;
    set(media.EncodeType, "type");
    return media;
}

// The messages differ in the light's range, and in the names that they read of the night times.
TEST(MediaConfig, BothWays)
{
    const Media media = counted();
    const std::string whole = textOf(kDocument);
    expectBodies(kType, "500", &media, "", whole);
    expectBodies(kType, "520", &media,
                 without(whole, "LightVal=\"13\"\nLightModeRange=\"209,210,211\">", "LightVal=\"13\">"), "");

    Media noNight = media;
    memset(noNight.IrcutNightStartTime, 0xFF, sizeof noNight.IrcutNightStartTime);
    memset(noNight.IrcutNightEndTime, 0xFF, sizeof noNight.IrcutNightEndTime);
    const std::string other = without(without(whole, "IrcutNightStartTime", "auiIRcutNightStartTime"),
                                      "IrcutNightEndTime", "auiIRcutNightEndTime");
    expectRead(kType, "500", whole, media);
    expectRead(kType, "500", other, noNight);
    expectRead(kType, "520", other, media);
    expectRead(kType, "520", whole, noNight);
}

TEST(MediaConfig, WrittenWholeWhenFresh)
{
    const Media media = freshMedia();
    const std::string text = bodyOf(kType, "500", &media, 1);
    for (const char* part :
         {"LightModeRange='-1,-1,-1'>|</LightConfig>", "HFlip='255'", "AEStep='-1'", "Area4Width='-1'",
          "SampleRate='-1'", "WDRStartTime='-1:-1:-1'", "Resolution=''", "IrcutLumaList=''", "Title=''"})
        EXPECT_NE(text.find(wire(part)), std::string::npos) << part;
    expectRead(kType, "500", text, media);
    expectRead(kType, "520", "<MediaConfig/>", media);
}

TEST(MediaConfig, PartsOfValues)
{
    Media expected = freshMedia();
    expected.LightModeRange[0] = 7;
    expected.LightModeRange[1] = 8;
    expected.IrcutNightStartTime[0] = 21;
    expected.IrcutNightStartTime[1] = 30;
    expectRead(kType, "500",
               "<MediaConfig><Video><LightConfig LightModeRange='7, 8;9'/><Capture "
               "IrcutNightStartTime='21:30' IrcutNightEndTime='x'/></Video></MediaConfig>",
               expected);
}

TEST(MediaConfig, Rows)
{
    Media expected = freshMedia();
    expected.stEncodeConfig[0].Stream = 9;
    expected.stEncodeConfig[1].Stream = 0;
    expectRead(kType, "500",
               "<MediaConfig><Video><Encode><EncodeConfig Stream='9'/><Other/><EncodeConfig Stream='0'/>"
               "<EncodeConfig Stream='5'/></Encode></Video></MediaConfig>",
               expected);

    const std::string mainRow = "<MainStream Area1PosX='1'/>";
    const std::string subRow = "<SubStream Area1PosX='2'/>";
    const auto expectMasks = [&](const std::string& rows) {
        expectRead(kType, "520", "<MediaConfig><Video><Mask>" + rows + "</Mask></Video></MediaConfig>",
                   expected);
    };
    expected = freshMedia();
    expectMasks(subRow);
    expected.stMaskRows[0].Area1PosX = 1;
    expectMasks(subRow + mainRow);
    expected.stMaskRows[1].Area1PosX = 2;
    expectMasks(mainRow + "<Other/>" + subRow + "<SubStream Area1PosX='3'/>");
}

} // namespace
