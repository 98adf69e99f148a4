#include "config/config_message.h"

using namespace test;

namespace {

using Encoders = SYSTEM_CONFIG_SET_523_PARAM;
using Capture = SYSTEM_CONFIG_SET_524_PARAM;

TEST(EncodeConfig, BothWays)
{
    auto encoders = fresh(SYSTEM_CONFIG_SET_523_PARAM_init);
    expectRequest(kConfig, "523", encoders, "<Encode>|</Encode>|");
    countUp(encoders.EncodeProfile, encoders.IvpAdvanceIspNew, 11);
    countUp(encoders.WDRStartTime[0], encoders.WDRStartTime[2], 8);
    countUp(encoders.WDREndTime[0], encoders.WDREndTime[2], 9);
    encoders.stEncodeConfig[0] = {31, 32, 33, 34, 35, 36, 37, 38, "resolution", "format", "control"};
    encoders.stEncodeConfig[1] = {41, 42, 43, 44, 45, 46, 47, 48, "resolution1", "format1", "control1"};
    const std::string first =
        "<EncodeConfig|Stream='31'|Resolution='resolution'|EncodeFormat='format'|BitRateControl='control'|"
        "Initquant='32'|BitRate='33'|FrameRate='34'|ImageQuality='35'|MotionLevel='36'|NoiseLevel='37'|"
        "Mode='38'|/>|";
    const std::string rest =
        "<EncodeConfig|Stream='41'|Resolution='resolution1'|EncodeFormat='format1'|BitRateControl='control1'|"
        "Initquant='42'|BitRate='43'|FrameRate='44'|ImageQuality='45'|MotionLevel='46'|NoiseLevel='47'|"
        "Mode='48'|/>|<AdvanceEncodeConfig|H265plus='14'|H265subplus='15'|WDRMode='12'|"
        "WDRStartTime='08:09:10'|WDREndTime='09:10:11'|EncodeProfile='11'|DisablePrivateData='13'|"
        "IvpLowBitrate='17'|IvpAdvanceIspNew='18'|IvpAdvanceIsp='16'|/>|</Encode>|";
    expectRequest(kConfig, "523", encoders, "<Encode>|" + first + rest);
    expectRead(kConfig, "523", "<Encode>|" + first + with(rest, "<Adv", "<EncodeConfig Stream='51'/>|<Adv"),
               encoders);

    auto one = fresh(SYSTEM_CONFIG_SET_523_PARAM_init);
    one.stEncodeConfig[0].Stream = 0;
    expectRequest(kConfig, "523", one,
                  "<Encode>|<EncodeConfig|Stream='0'|Resolution=''|EncodeFormat=''|BitRateControl=''|"
                  "Initquant='-1'|BitRate='-1'|FrameRate='-1'|ImageQuality='-1'|MotionLevel='-1'|"
                  "NoiseLevel='-1'|Mode='-1'|/>|</Encode>|");

    // A free row isn't on the wire.
    encoders.stEncodeConfig[0].Stream = -1;
    EXPECT_EQ(bodyOf(kConfig, "523", &encoders, 0), wire("<Encode>|" + rest));
}

TEST(EncodeConfig, AdvancedOnlyWhatIsSet)
{
    // The times go with their mode; alone they are nothing.
    auto encoders = fresh(SYSTEM_CONFIG_SET_523_PARAM_init);
    encoders.WDRStartTime[0] = 12;
    EXPECT_EQ(bodyOf(kConfig, "523", &encoders, 0), wire("<Encode>|</Encode>|"));
    // In record order.
    const char* const names[] = {"EncodeProfile", "WDRMode",       "DisablePrivateData", "H265plus",
                                 "H265subplus",   "IvpAdvanceIsp", "IvpLowBitrate",      "IvpAdvanceIspNew"};
    for (int i = 0; i < 8; ++i) {
        encoders = fresh(SYSTEM_CONFIG_SET_523_PARAM_init);
        (&encoders.EncodeProfile)[i] = 0;
        const std::string times = i == 1 ? "WDRStartTime='-1:-1:-1'|WDREndTime='-1:-1:-1'|" : "";
        expectRequest(kConfig, "523", encoders,
                      "<Encode>|<AdvanceEncodeConfig|" + std::string(names[i]) + "='0'|" + times +
                          "/>|</Encode>|");
    }
}

const std::string kNight = "IrcutNightStartTime='01:12:13'|IrcutNightEndTime='02:14:15'|";
const std::string kNightAbsent = "IrcutNightStartTime='-1:-1:-1'|IrcutNightEndTime='-1:-1:-1'|";
const std::string kCapture = R"(
    IrcutLuma='25' IrcutDelayValue='47' soft_pr_luma_day_to_night='48' SoftPhotoresistanceSensitivity='49'
    PreventOverexposure='21' Brightness='203' Contrast='204' Saturation='205' Sharpness='206' DayNight='11'
    WhiteBalance='12' BackLight='207' Switch2A='13' BinningSkip='14' TVSystem='15' HFlip='16' VFlip='17'
    XOffset='18' YOffset='19' Rotation='20' IrcutSensitivity='24' IrcutKeepColor='26'
    SoftResDelayValue='23')";
const std::string kAdvanced = inLines(R"(
<AdvacedMediaConfig>
  <AEConfig AEStep='201' AETolerance='202' />
  <ExposureConfig ExposureMode='27' SemiautoMode='28' ExposureTime='29' DaySystemGain='30'
      NightSystemGain='31' />
  <AWBConfig AWBMode='32' AWBRGain='33' AWBBGain='34' />
  <DRCConfig Mode='35' StrenthTarget='36' DRCStartTime='3:16:17' DRCEndTime='4:18:19' />
  <DenoiseConfig DenoiseMode='37' DenoiseDayStrenth='38' DenoiseNightStrenth='39' />
  <ColorStyle ColorStyleMode='40' />
  <LDCConfig enable='41' centorX='42' centorY='43' ratio='44' />
  <StarlightConfig enable='45' />
  <DoubleLight WeightCoefficient='46' />
  <DefogConfig DefogMode='50' DefogValue='51' />
</AdvacedMediaConfig>)");

// Numbers count up in record order, so that a text tells which field each of its values came from.
Capture counted()
{
    auto capture = fresh(SYSTEM_CONFIG_SET_524_PARAM_init);
    countUp(capture.DayNight, capture.DefogValue, 11);
    countUp(capture.AEStep, capture.BackLight, 201);
    setTime(capture.IrcutNightStartTime, 1, 12);
    setTime(capture.IrcutNightEndTime, 2, 14);
    setTime(capture.DRCStartTime, 3, 16);
    setTime(capture.DRCEndTime, 4, 18);
    return capture;
}

// The night times are read under names that nobody here writes.
TEST(CaptureConfig, BothWays)
{
    Capture capture = counted();
    const std::string text =
        "<Video>|<Capture|IrcutMode='22'|" + kNight + inLines(kCapture) + "/>|" + kAdvanced + "</Video>|";
    expectBodies(kConfig, "524", &capture, text, "");
    expectRead(kConfig, "524",
               with(with(text, "IrcutNightStart", "auiIRcutNightStart"), "IrcutNightEnd", "auiIRcutNightEnd"),
               capture);
    memset(capture.IrcutNightStartTime, 0xFF, sizeof capture.IrcutNightStartTime);
    memset(capture.IrcutNightEndTime, 0xFF, sizeof capture.IrcutNightEndTime);
    expectRead(kConfig, "524", text, capture);

    capture = fresh(SYSTEM_CONFIG_SET_524_PARAM_init);
    expectRequest(kConfig, "524", capture,
                  "<Video>|<Capture|IrcutMode='255'|" + kNightAbsent + "/>|</Video>|");
    expectRead(kConfig, "524", "<Video/>", capture);
}

TEST(CaptureConfig, OnlyWhatIsSet)
{
    const auto expectAlone = [](const Capture& capture, const std::string& text) {
        expectRequest(kConfig, "524", capture,
                      "<Video>|<Capture|IrcutMode='255'|" + kNightAbsent +
                          (text[0] == '<'
                               ? "/>|<AdvacedMediaConfig>|" + inLines(text) + "</AdvacedMediaConfig>|"
                               : text + "='0'|/>|") +
                          "</Video>|");
    };
    const Capture absent = fresh(SYSTEM_CONFIG_SET_524_PARAM_init);
    for (const std::string& attribute : split(kCapture)) {
        const size_t end = attribute.find('=');
        const int counted = std::stoi(attribute.substr(end + 2));
        Capture capture = absent;
        if (counted > 200)
            (&capture.AEStep)[counted - 201] = 0;
        else
            (&capture.DayNight)[counted - 11] = 0;
        expectAlone(capture, attribute.substr(0, end));
    }
    Capture capture = absent;
    capture.AEStep = 0;
    expectAlone(capture, "<AEConfig AEStep='0' AETolerance='-1' />");

    // Blocks without their first field aren't there.
    capture = counted();
    capture.AEStep = -1;
    const std::pair<uint8_t Capture::*, const char*> blocks[] = {
        {&Capture::ExposureMode, "<ExposureConfig ExposureMode='0' SemiautoMode='255' ExposureTime='255' "
                                 "DaySystemGain='255' NightSystemGain='255' />"},
        {&Capture::AWBMode, "<AWBConfig AWBMode='0' AWBRGain='255' AWBBGain='255' />"},
        {&Capture::Mode, "<DRCConfig Mode='0' StrenthTarget='255' DRCStartTime='-1:-1:-1' "
                         "DRCEndTime='-1:-1:-1' />"},
        {&Capture::DenoiseMode,
         "<DenoiseConfig DenoiseMode='0' DenoiseDayStrenth='255' DenoiseNightStrenth='255' />"},
        {&Capture::ColorStyleMode, "<ColorStyle ColorStyleMode='0' />"},
        {&Capture::LDCConfig_enable, "<LDCConfig enable='0' centorX='255' centorY='255' ratio='255' />"},
        {&Capture::StarlightConfig_enable, "<StarlightConfig enable='0' />"},
        {&Capture::WeightCoefficient, "<DoubleLight WeightCoefficient='0' />"},
        {&Capture::DefogMode, "<DefogConfig DefogMode='0' DefogValue='255' />"},
    };
    for (const auto& [field, text] : blocks) {
        Capture one = absent;
        one.*field = 0;
        expectAlone(one, text);
        capture.*field = 255;
    }
    EXPECT_EQ(bodyOf(kConfig, "524", &capture, 0),
              wire("<Video>|<Capture|IrcutMode='22'|" + kNight + inLines(kCapture) + "/>|</Video>|"));
}

TEST(OverlayConfig, BothWays)
{
    auto overlay = fresh(SYSTEM_CONFIG_SET_525_PARAM_init);
    expectRequest(
        kConfig, "525", overlay,
        "<Overlay|Enable='255'|Transparency='255'|>|<TimeOverlay|PosX='255'|PosY='255'|Format=''|/>|"
        "<TitleOverlay|PosX='255'|PosY='255'|Title=''|/>|</Overlay>|");
    expectRead(kConfig, "525", "<Overlay/>", overlay);
    countUp(overlay.Enable, overlay.WeekDisplayEn, 11);
    overlay.ChanID = 255;
    set(overlay.Format, "format");
    set(overlay.Title, "title");
    expectRequest(kConfig, "525", overlay,
                  "<Overlay|Enable='11'|Transparency='12'|ChanID='255'|>|<TimeOverlay|PosX='13'|PosY='14'|"
                  "Format='format'|WeekDisplayEn='17'|/>|<TitleOverlay|PosX='15'|PosY='16'|Title='title'|/>|"
                  "</Overlay>|");
    overlay.ChanID = overlay.WeekDisplayEn = 0;
    const std::string text = bodyOf(kConfig, "525", &overlay, 2);
    EXPECT_EQ(valuesOf(text, "ChanID"), split("0"));
    EXPECT_EQ(valuesOf(text, "WeekDisplayEn"), split("0"));
}

TEST(DropConfig, BothWays)
{
    auto drop = fresh(SYSTEM_CONFIG_SET_542_PARAM_init);
    expectRequest(kConfig, "542", drop, "<Encode><DropFrameSwitch Switch=''/>|</Encode>|");
    expectRead(kConfig, "542", "<Encode Switch='x'/>", drop);
    set(drop.Switch, "on");
    expectRequest(kConfig, "542", drop, "<Encode><DropFrameSwitch Switch='on'/>|</Encode>|");
}

TEST(EncodeConfig, RequiredElements)
{
    expectRequired({{"523", "setMediaVideoencode", "RESPONSE_PARAM"},
                    {"524", "setMediaCapture", "RESPONSE_PARAM"},
                    {"525", "setMediaVideoOsd", "RESPONSE_PARAM"},
                    {"542", "setMediaDrop", "Encode"}});
}

} // namespace
