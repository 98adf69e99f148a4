#include "config/media_config_msg.h"

#include "core/records.h"

namespace zel {

namespace {

// The get and the set are one document but for two places.
enum class Form
{
    kGet,
    kSet
};

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto lightConfig = [](auto& side, auto& record, Form form) {
    const auto attributes = [&](auto& light) {
        attribute(light, "LightMode", record.LightMode);
        attribute(light, "LightCtrl", record.LightCtrl);
        attribute(light, "LightVal", record.LightVal);
        // Only the get writes it, both read it.
        if (!kWrites<decltype(light)> || form == Form::kGet)
            rangeAttribute(light, "LightModeRange", record.LightModeRange);
    };
    if constexpr (kWrites<decltype(side)>) {
        // Without children, and yet with a closing tag; the open tag ends directly behind the last quote.
        openElement(side, "LightConfig");
        attributes(side);
        side.takeBack();
        side.append(">\n");
        closeTag(side, "LightConfig");
    } else {
        element(side, "LightConfig", attributes);
    }
};

constexpr auto captureAttributes = [](auto& side, auto& record, Form form) {
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
    if (kWrites<decltype(side)> || form == Form::kGet) {
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
};

constexpr auto encodeAttributes = [](auto& side, auto& row) {
    attribute(side, "Stream", row.Stream);
    attribute(side, "Resolution", row.Resolution);
    attribute(side, "EncodeFormat", row.EncodeFormat);
    attribute(side, "BitRateControl", row.BitRateControl);
    attribute(side, "Initquant", row.Initquant);
    attribute(side, "BitRate", row.BitRate);
    attribute(side, "FrameRate", row.FrameRate);
};

constexpr auto advanceEncodeAttributes = [](auto& side, auto& record) {
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
};

constexpr auto advancedElements = [](auto& side, auto& record) {
    element(side, "AEConfig", [&](auto& ae) {
        attribute(ae, "AEStep", record.AEStep);
        attribute(ae, "AETolerance", record.AETolerance);
    });
    element(side, "ExposureConfig", [&](auto& exposure) {
        attribute(exposure, "ExposureMode", record.ExposureMode);
        attribute(exposure, "SemiautoMode", record.SemiautoMode);
        attribute(exposure, "ExposureTime", record.ExposureTime);
        attribute(exposure, "DaySystemGain", record.DaySystemGain);
        attribute(exposure, "NightSystemGain", record.NightSystemGain);
    });
    element(side, "AWBConfig", [&](auto& awb) {
        attribute(awb, "AWBMode", record.AWBMode);
        attribute(awb, "AWBRGain", record.AWBRGain);
        attribute(awb, "AWBBGain", record.AWBBGain);
    });
    element(side, "DRCConfig", [&](auto& drc) {
        attribute(drc, "Mode", record.Mode);
        attribute(drc, "StrenthTarget", record.StrenthTarget);
        timeAttribute(drc, "DRCStartTime", record.DRCStartTime);
        timeAttribute(drc, "DRCEndTime", record.DRCEndTime);
    });
    element(side, "DenoiseConfig", [&](auto& denoise) {
        attribute(denoise, "DenoiseMode", record.DenoiseMode);
        attribute(denoise, "DenoiseDayStrenth", record.DenoiseDayStrenth);
        attribute(denoise, "DenoiseNightStrenth", record.DenoiseNightStrenth);
    });
    element(side, "ColorStyle",
            [&](auto& color) { attribute(color, "ColorStyleMode", record.ColorStyleMode); });
    element(side, "LDCConfig", [&](auto& ldc) {
        attribute(ldc, "enable", record.LDCConfig_enable);
        attribute(ldc, "centorX", record.centorX);
        attribute(ldc, "centorY", record.centorY);
        attribute(ldc, "ratio", record.ratio);
    });
    element(side, "StarlightConfig",
            [&](auto& starlight) { attribute(starlight, "enable", record.StarlightConfig_enable); });
    element(side, "DefogConfig", [&](auto& defog) {
        attribute(defog, "DefogMode", record.DefogMode);
        attribute(defog, "DefogValue", record.DefogValue);
    });
    element(side, "DoubleLight",
            [&](auto& light) { attribute(light, "WeightCoefficient", record.WeightCoefficient); });
};

constexpr auto overlayElements = [](auto& side, auto& record) {
    element(side, "TimeOverlay", [&](auto& time) {
        attribute(time, "PosX", record.TimeOverlay_PosX);
        attribute(time, "PosY", record.TimeOverlay_PosY);
        attribute(time, "Format", record.Format);
        attribute(time, "WeekDisplayEn", record.WeekDisplayEn);
    });
    element(side, "TitleOverlay", [&](auto& title) {
        attribute(title, "PosX", record.TitleOverlay_PosX);
        attribute(title, "PosY", record.TitleOverlay_PosY);
        attribute(title, "Title", record.Title);
    });
};

constexpr auto maskAttributes = [](auto& side, auto& row) {
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
};

constexpr auto maskElements = [](auto& side, auto& record) {
    auto& mainRow = record.stMaskRows[0];
    auto& subRow = record.stMaskRows[1];
    if constexpr (kWrites<decltype(side)>) {
        element(side, "MainStream", [&](auto& stream) { maskAttributes(stream, mainRow); });
        element(side, "SubStream", [&](auto& stream) { maskAttributes(stream, subRow); });
    } else if (const ElementReader mainStream = side.child("MainStream")) {
        maskAttributes(mainStream, mainRow);
        // The sub stream is only looked for behind the main stream.
        if (const ElementReader subStream = mainStream.next("SubStream"))
            maskAttributes(subStream, subRow);
    }
};

constexpr auto audioElements = [](auto& side, auto& record) {
    element(side, "Capture", [&](auto& capture) { attribute(capture, "Volume", record.Capture_Volume); });
    element(side, "Encode", [&](auto& encode) {
        attribute(encode, "Enable", record.Encode_Enable);
        signedAttribute(encode, "SampleRate", record.SampleRate);
        attribute(encode, "EncodeType", record.EncodeType);
        signedAttribute(encode, "BitRate", record.BitRate);
    });
    element(side, "Play", [&](auto& play) { attribute(play, "Volume", record.Play_Volume); });
};

constexpr auto mediaConfig = [](auto& side, auto& record, Form form) {
    container(side, "MediaConfig", [&](auto& media) {
        container(media, "Video", [&](auto& video) {
            lightConfig(video, record, form);
            element(video, "Capture", [&](auto& capture) { captureAttributes(capture, record, form); });
            container(video, "Encode", [&](auto& encode) {
                rowElements(encode, "EncodeConfig", record.stEncodeConfig, encodeAttributes);
                element(encode, "AdvanceEncodeConfig",
                        [&](auto& advance) { advanceEncodeAttributes(advance, record); });
            });
            container(video, "AdvacedMediaConfig",
                      [&](auto& advanced) { advancedElements(advanced, record); });
            element(video, "JpegConfig", [&](auto& jpeg) {
                attribute(jpeg, "Enable", record.JpegConfig_Enable);
                attribute(jpeg, "Stream", record.Stream);
                attribute(jpeg, "Quality", record.Quality);
                attribute(jpeg, "Framerate", record.Framerate);
            });
            containerWithAttributes(
                video, "Overlay",
                [&](auto& overlay) {
                    attribute(overlay, "Enable", record.Overlay_Enable);
                    attribute(overlay, "Transparency", record.Transparency);
                },
                [&](auto& overlay) { overlayElements(overlay, record); });
            container(video, "Mask", [&](auto& mask) { maskElements(mask, record); });
        });
        container(media, "Audio", [&](auto& audio) { audioElements(audio, record); });
    });
};

} // namespace

// --- Messages ------------------------------------------------------------------------------------

int SystemConfig_getMediaconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_500_PARAM& record,
                                               int kind)
{
    if (isResponse(kind))
        mediaConfig(out, record, Form::kGet);
    return 0;
}

int SystemConfig_getMediaconfig_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "MediaConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_GET_500_PARAM_init,
                           [](auto& body, auto& record) { mediaConfig(body, record, Form::kGet); });
}

int SystemConfig_setMediaconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_520_PARAM& record,
                                               int kind)
{
    if (isRequest(kind))
        mediaConfig(out, record, Form::kSet);
    return 0;
}

int SystemConfig_setMediaconfig_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "MediaConfig", "RESPONSE_PARAM",
                           SYSTEM_CONFIG_SET_520_PARAM_init,
                           [](auto& body, auto& record) { mediaConfig(body, record, Form::kSet); });
}

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

int SYSTEM_CONFIG_SET_520_PARAM_init(SYSTEM_CONFIG_SET_520_PARAM* param)
{
    return SYSTEM_CONFIG_GET_500_PARAM_init(param);
}

int SystemConfig_getMediaconfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_getMediaconfig_MessageAnalysis>(text, result);
}

int SystemConfig_setMediaconfig_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_setMediaconfig_MessageAnalysis>(text, result);
}
