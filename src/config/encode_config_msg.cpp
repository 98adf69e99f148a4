#include "config/encode_config_msg.h"

#include "config/media_list.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void streamAttributes(Side& side, SYSTEM_CONFIG_STREAM_ROW& row)
{
    encodeAttributes(side, row);
    attribute(side, "ImageQuality", row.ImageQuality);
    attribute(side, "MotionLevel", row.MotionLevel);
    attribute(side, "NoiseLevel", row.NoiseLevel);
    attribute(side, "Mode", row.Mode);
}

bool isInUse(const SYSTEM_CONFIG_STREAM_ROW& row)
{
    return isSet(row.Stream);
}

void setEncoders(Side& side, SYSTEM_CONFIG_SET_523_PARAM& record)
{
    if (const Element encode = container(side, "Encode")) {
        usedRowElements<streamAttributes, isInUse>(side, "EncodeConfig", record.stEncodeConfig);
        const bool hasAdvanced = isAnySet(
            record.H265plus, record.H265subplus, record.WDRMode, record.EncodeProfile,
            record.DisablePrivateData, record.IvpLowBitrate, record.IvpAdvanceIspNew, record.IvpAdvanceIsp);
        if (const Element advance = elementIf(hasAdvanced, side, "AdvanceEncodeConfig")) {
            attributeIfSet(side, "H265plus", record.H265plus);
            attributeIfSet(side, "H265subplus", record.H265subplus);
            attributeIfSet(side, "WDRMode", record.WDRMode);
            if (side.takes(isSet(record.WDRMode))) {
                timeAttribute(side, "WDRStartTime", record.WDRStartTime);
                timeAttribute(side, "WDREndTime", record.WDREndTime);
            }
            attributeIfSet(side, "EncodeProfile", record.EncodeProfile);
            attributeIfSet(side, "DisablePrivateData", record.DisablePrivateData);
            attributeIfSet(side, "IvpLowBitrate", record.IvpLowBitrate);
            attributeIfSet(side, "IvpAdvanceIspNew", record.IvpAdvanceIspNew);
            attributeIfSet(side, "IvpAdvanceIsp", record.IvpAdvanceIsp);
        }
    }
}

void captureAttributesIfSet(Side& side, SYSTEM_CONFIG_SET_524_PARAM& record)
{
    attribute(side, "IrcutMode", record.IrcutMode);
    setNightTimes(side, record);
    attributeIfSet(side, "IrcutLuma", record.IrcutLuma);
    attributeIfSet(side, "IrcutDelayValue", record.IrcutDelayValue);
    attributeIfSet(side, "soft_pr_luma_day_to_night", record.soft_pr_luma_day_to_night);
    attributeIfSet(side, "SoftPhotoresistanceSensitivity", record.SoftPhotoresistanceSensitivity);
    attributeIfSet(side, "PreventOverexposure", record.PreventOverexposure);
    attributeIfSet(side, "Brightness", record.Brightness);
    attributeIfSet(side, "Contrast", record.Contrast);
    attributeIfSet(side, "Saturation", record.Saturation);
    attributeIfSet(side, "Sharpness", record.Sharpness);
    attributeIfSet(side, "DayNight", record.DayNight);
    attributeIfSet(side, "WhiteBalance", record.WhiteBalance);
    attributeIfSet(side, "BackLight", record.BackLight);
    attributeIfSet(side, "Switch2A", record.Switch2A);
    attributeIfSet(side, "BinningSkip", record.BinningSkip);
    attributeIfSet(side, "TVSystem", record.TVSystem);
    attributeIfSet(side, "HFlip", record.HFlip);
    attributeIfSet(side, "VFlip", record.VFlip);
    attributeIfSet(side, "XOffset", record.XOffset);
    attributeIfSet(side, "YOffset", record.YOffset);
    attributeIfSet(side, "Rotation", record.Rotation);
    attributeIfSet(side, "IrcutSensitivity", record.IrcutSensitivity);
    attributeIfSet(side, "IrcutKeepColor", record.IrcutKeepColor);
    attributeIfSet(side, "SoftResDelayValue", record.SoftResDelayValue);
}

void setCapture(Side& side, SYSTEM_CONFIG_SET_524_PARAM& record)
{
    if (const Element video = container(side, "Video")) {
        if (const Element capture = element(side, "Capture"))
            captureAttributesIfSet(side, record);
        // Only with one of its blocks.
        const bool hasAdvanced =
            isAnySet(record.AEStep, record.ExposureMode, record.AWBMode, record.Mode, record.DenoiseMode,
                     record.ColorStyleMode, record.LDCConfig_enable, record.StarlightConfig_enable,
                     record.WeightCoefficient, record.DefogMode);
        if (const Element advanced = elementIf(hasAdvanced, side, "AdvacedMediaConfig", kElements)) {
            advancedBlocks(side, record, Blocks::kSet, kPlainClock);
            doubleLightBlock(side, record, Blocks::kSet);
            defogBlock(side, record, Blocks::kSet);
        }
    }
}

void setOverlay(Side& side, SYSTEM_CONFIG_SET_525_PARAM& record)
{
    if (const Element overlay = element(side, "Overlay", kBoth)) {
        attribute(side, "Enable", record.Enable);
        attribute(side, "Transparency", record.Transparency);
        attributeIfSet(side, "ChanID", record.ChanID);
        overlay.elements();
        if (const Element time = element(side, "TimeOverlay")) {
            timeOverlay(side, record);
            attributeIfSet(side, "WeekDisplayEn", record.WeekDisplayEn);
        }
        if (const Element title = element(side, "TitleOverlay")) {
            titleOverlay(side, record);
        }
    }
}

void setDrop(Side& side, SYSTEM_CONFIG_SET_542_PARAM& record)
{
    if (const Element encode = container(side, "Encode")) {
        // The switch stands on its tag's line.
        endAtQuote(side);
        if (const Element drop = element(side, "DropFrameSwitch", kOnLine))
            attribute(side, "Switch", record.Switch);
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kSetMediaVideoencode =
    message<SYSTEM_CONFIG_SET_523_PARAM_init>("SystemConfig_setMediaVideoencode_MessageAnalysis",
                                              over<setEncoders>("Encode", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetMediaCapture =
    message<SYSTEM_CONFIG_SET_524_PARAM_init>("SystemConfig_setMediaCapture_MessageAnalysis",
                                              over<setCapture>("Video", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetMediaVideoOsd =
    message<SYSTEM_CONFIG_SET_525_PARAM_init>("SystemConfig_setMediaVideoOsd_MessageAnalysis",
                                              over<setOverlay>("Overlay", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetMediaDrop = message<SYSTEM_CONFIG_SET_542_PARAM_init>(
    "SystemConfig_setMediaDrop_MessageAnalysis", over<setDrop>("Encode", Kinds::kRequests));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_SET_523_PARAM_init(SYSTEM_CONFIG_SET_523_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& row : record.stEncodeConfig)
            zel::clear(row.Resolution, row.EncodeFormat, row.BitRateControl);
    });
}

int SYSTEM_CONFIG_SET_524_PARAM_init(SYSTEM_CONFIG_SET_524_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_525_PARAM_init(SYSTEM_CONFIG_SET_525_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Format, record.Title); });
}

int SYSTEM_CONFIG_SET_542_PARAM_init(SYSTEM_CONFIG_SET_542_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaVideoencode, kSetMediaVideoencode)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaCapture, kSetMediaCapture)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaVideoOsd, kSetMediaVideoOsd)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaDrop, kSetMediaDrop)
