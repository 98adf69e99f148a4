#include "config/media_config_msg.h"

namespace zel {

namespace {

// The get and the set are one document but for two places.
enum class Form
{
    kGet,
    kSet
};

// --- Attribute lists, for both directions --------------------------------------------------------

void lightConfig(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record, Form form)
{
    // Without children, and yet with a closing tag.
    if (const Element light = element(side, "LightConfig", kBoth | kAtQuote)) {
        attribute(side, "LightMode", record.LightMode);
        attribute(side, "LightCtrl", record.LightCtrl);
        attribute(side, "LightVal", record.LightVal);
        // Only the get writes it, both read it.
        if (!side.writes() || form == Form::kGet)
            rangeAttribute(side, "LightModeRange", record.LightModeRange);
        light.elements();
    }
}

void captureAttributes(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record, Form form)
{
    attribute(side, "LightBoardBrigh", record.LightBoardBrigh);
    attribute(side, "LightBoardMode", record.LightBoardMode);
    attribute(side, "Brightness", record.Brightness);
    attribute(side, "Contrast", record.Contrast);
    attribute(side, "Saturation", record.Saturation);
    attribute(side, "Sharpness", record.Sharpness);
    attribute(side, "DayNight", record.DayNight);
    attribute(side, "WhiteBalance", record.WhiteBalance);
    attribute(side, "BackLight", record.BackLight);
    attribute(side, "Switch2A", record.Switch2A);
    attribute(side, "BinningSkip", record.BinningSkip);
    attribute(side, "TVSystem", record.TVSystem);
    attribute(side, "HFlip", record.HFlip);
    attribute(side, "VFlip", record.VFlip);
    attribute(side, "TNF", record.TNF);
    attribute(side, "SNF", record.SNF);
    attribute(side, "VSTAB", record.VSTAB);
    attribute(side, "LDC", record.LDC);
    attribute(side, "FD", record.FD);
    attribute(side, "Rotation", record.Rotation);
    attribute(side, "PreventOverexposure", record.PreventOverexposure);
    attribute(side, "IrcutMode", record.IrcutMode);
    attribute(side, "SoftPhotoresistanceSensitivity", record.SoftPhotoresistanceSensitivity);
    attribute(side, "soft_pr_luma_day_to_night", record.soft_pr_luma_day_to_night);
    attribute(side, "IrcutDelayValue", record.IrcutDelayValue);
    attribute(side, "IrcutSensitivity", record.IrcutSensitivity);
    if (side.writes() || form == Form::kGet) {
        timeAttribute(side, "IrcutNightStartTime", record.IrcutNightStartTime);
        timeAttribute(side, "IrcutNightEndTime", record.IrcutNightEndTime);
    } else {
        // The set isn't read under the names that it is written with.
        timeAttribute(side, "auiIRcutNightStartTime", record.IrcutNightStartTime);
        timeAttribute(side, "auiIRcutNightEndTime", record.IrcutNightEndTime);
    }
    attribute(side, "IrcutLumaList", record.IrcutLumaList);
    attribute(side, "IrcutLuma", record.IrcutLuma);
    attribute(side, "IrcutKeepColor", record.IrcutKeepColor);
}

void encodeAttributes(Side& side, SYSTEM_CONFIG_ENCODE_ROW& row)
{
    attribute(side, "Stream", row.Stream);
    attribute(side, "Resolution", row.Resolution);
    attribute(side, "EncodeFormat", row.EncodeFormat);
    attribute(side, "BitRateControl", row.BitRateControl);
    attribute(side, "Initquant", row.Initquant);
    attribute(side, "BitRate", row.BitRate);
    attribute(side, "FrameRate", row.FrameRate);
}

void advanceEncodeAttributes(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    attribute(side, "EncodeProfile", record.EncodeProfile);
    attribute(side, "WDRMode", record.WDRMode);
    timeAttribute(side, "WDRStartTime", record.WDRStartTime);
    timeAttribute(side, "WDREndTime", record.WDREndTime);
    attribute(side, "DisablePrivateData", record.DisablePrivateData);
    attribute(side, "DefaultDPrivateData", record.DefaultDPrivateData);
    attribute(side, "H265plus", record.H265plus);
    attribute(side, "DefaultH265plus", record.DefaultH265plus);
    attribute(side, "H265subplus", record.H265subplus);
    attribute(side, "DefaultH265subplus", record.DefaultH265subplus);
    attribute(side, "IvpLowBitrate", record.IvpLowBitrate);
    attribute(side, "IvpAdvanceIspNew", record.IvpAdvanceIspNew);
    attribute(side, "IvpAdvanceIsp", record.IvpAdvanceIsp);
}

void advancedElements(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    if (const Element ae = element(side, "AEConfig")) {
        attribute(side, "AEStep", record.AEStep);
        attribute(side, "AETolerance", record.AETolerance);
    }
    if (const Element exposure = element(side, "ExposureConfig")) {
        attribute(side, "ExposureMode", record.ExposureMode);
        attribute(side, "SemiautoMode", record.SemiautoMode);
        attribute(side, "ExposureTime", record.ExposureTime);
        attribute(side, "DaySystemGain", record.DaySystemGain);
        attribute(side, "NightSystemGain", record.NightSystemGain);
    }
    if (const Element awb = element(side, "AWBConfig")) {
        attribute(side, "AWBMode", record.AWBMode);
        attribute(side, "AWBRGain", record.AWBRGain);
        attribute(side, "AWBBGain", record.AWBBGain);
    }
    if (const Element drc = element(side, "DRCConfig")) {
        attribute(side, "Mode", record.Mode);
        attribute(side, "StrenthTarget", record.StrenthTarget);
        timeAttribute(side, "DRCStartTime", record.DRCStartTime);
        timeAttribute(side, "DRCEndTime", record.DRCEndTime);
    }
    if (const Element denoise = element(side, "DenoiseConfig")) {
        attribute(side, "DenoiseMode", record.DenoiseMode);
        attribute(side, "DenoiseDayStrenth", record.DenoiseDayStrenth);
        attribute(side, "DenoiseNightStrenth", record.DenoiseNightStrenth);
    }
    if (const Element color = element(side, "ColorStyle")) {
        attribute(side, "ColorStyleMode", record.ColorStyleMode);
    }
    if (const Element ldc = element(side, "LDCConfig")) {
        attribute(side, "enable", record.LDCConfig_enable);
        attribute(side, "centorX", record.centorX);
        attribute(side, "centorY", record.centorY);
        attribute(side, "ratio", record.ratio);
    }
    if (const Element starlight = element(side, "StarlightConfig")) {
        attribute(side, "enable", record.StarlightConfig_enable);
    }
    if (const Element defog = element(side, "DefogConfig")) {
        attribute(side, "DefogMode", record.DefogMode);
        attribute(side, "DefogValue", record.DefogValue);
    }
    if (const Element light = element(side, "DoubleLight")) {
        attribute(side, "WeightCoefficient", record.WeightCoefficient);
    }
}

void overlayElements(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    if (const Element time = element(side, "TimeOverlay")) {
        attribute(side, "PosX", record.TimeOverlay_PosX);
        attribute(side, "PosY", record.TimeOverlay_PosY);
        attribute(side, "Format", record.Format);
        attribute(side, "WeekDisplayEn", record.WeekDisplayEn);
    }
    if (const Element title = element(side, "TitleOverlay")) {
        attribute(side, "PosX", record.TitleOverlay_PosX);
        attribute(side, "PosY", record.TitleOverlay_PosY);
        attribute(side, "Title", record.Title);
    }
}

void maskAttributes(Side& side, SYSTEM_CONFIG_MASK_ROW& row)
{
    attribute(side, "Area1PosX", row.Area1PosX);
    attribute(side, "Area1PosY", row.Area1PosY);
    signedAttribute(side, "Area1Width", row.Area1Width);
    signedAttribute(side, "Area1Height", row.Area1Height);
    attribute(side, "Area2PosX", row.Area2PosX);
    attribute(side, "Area2PosY", row.Area2PosY);
    signedAttribute(side, "Area2Width", row.Area2Width);
    signedAttribute(side, "Area2Height", row.Area2Height);
    attribute(side, "Area3PosX", row.Area3PosX);
    attribute(side, "Area3PosY", row.Area3PosY);
    signedAttribute(side, "Area3Width", row.Area3Width);
    signedAttribute(side, "Area3Height", row.Area3Height);
    attribute(side, "Area4PosX", row.Area4PosX);
    attribute(side, "Area4PosY", row.Area4PosY);
    signedAttribute(side, "Area4Width", row.Area4Width);
    signedAttribute(side, "Area4Height", row.Area4Height);
}

void maskElements(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    auto& mainRow = record.stMaskRows[0];
    auto& subRow = record.stMaskRows[1];
    // The sub stream is only looked for behind the main stream.
    Siblings streams(side);
    if (streams.next("MainStream")) {
        maskAttributes(side, mainRow);
        if (streams.next("SubStream"))
            maskAttributes(side, subRow);
    }
}

void audioElements(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    if (const Element capture = element(side, "Capture")) {
        attribute(side, "Volume", record.Capture_Volume);
    }
    if (const Element encode = element(side, "Encode")) {
        attribute(side, "Enable", record.Encode_Enable);
        signedAttribute(side, "SampleRate", record.SampleRate);
        attribute(side, "EncodeType", record.EncodeType);
        signedAttribute(side, "BitRate", record.BitRate);
    }
    if (const Element play = element(side, "Play")) {
        attribute(side, "Volume", record.Play_Volume);
    }
}

void mediaConfig(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record, Form form)
{
    if (const Element media = container(side, "MediaConfig")) {
        if (const Element video = container(side, "Video")) {
            lightConfig(side, record, form);
            if (const Element capture = element(side, "Capture")) {
                captureAttributes(side, record, form);
            }
            if (const Element encode = container(side, "Encode")) {
                rowElements<encodeAttributes>(side, "EncodeConfig", record.stEncodeConfig);
                if (const Element advance = element(side, "AdvanceEncodeConfig")) {
                    advanceEncodeAttributes(side, record);
                }
            }
            if (const Element advanced = container(side, "AdvacedMediaConfig")) {
                advancedElements(side, record);
            }
            if (const Element jpeg = element(side, "JpegConfig")) {
                attribute(side, "Enable", record.JpegConfig_Enable);
                attribute(side, "Stream", record.Stream);
                attribute(side, "Quality", record.Quality);
                attribute(side, "Framerate", record.Framerate);
            }
            if (const Element overlay = element(side, "Overlay", kBoth)) {
                attribute(side, "Enable", record.Overlay_Enable);
                attribute(side, "Transparency", record.Transparency);
                overlay.elements();
                overlayElements(side, record);
            }
            if (const Element mask = container(side, "Mask")) {
                maskElements(side, record);
            }
        }
        if (const Element audio = container(side, "Audio")) {
            audioElements(side, record);
        }
    }
}

void getMediaConfig(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    mediaConfig(side, record, Form::kGet);
}

void setMediaConfig(Side& side, SYSTEM_CONFIG_SET_520_PARAM& record)
{
    mediaConfig(side, record, Form::kSet);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetMediaconfig =
    message<SYSTEM_CONFIG_GET_500_PARAM_init>("SystemConfig_getMediaconfig_MessageAnalysis",
                                              over<getMediaConfig>("MediaConfig", Kinds::kResponses))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetMediaconfig =
    message<SYSTEM_CONFIG_SET_520_PARAM_init>("SystemConfig_setMediaconfig_MessageAnalysis",
                                              over<setMediaConfig>("MediaConfig", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_500_PARAM_init(SYSTEM_CONFIG_GET_500_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.IrcutLumaList, record.Format, record.Title, record.EncodeType);
        for (auto& row : record.stEncodeConfig)
            zel::clear(row.Resolution, row.EncodeFormat, row.BitRateControl);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_520_PARAM, SYSTEM_CONFIG_GET_500_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getMediaconfig, kGetMediaconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaconfig, kSetMediaconfig)
