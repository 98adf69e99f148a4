// What the documents of a camera's media have in common, for both directions. Their records bear the same
// names at other places.
#ifndef ZEL_CONFIG_MEDIA_LIST_H
#define ZEL_CONFIG_MEDIA_LIST_H

#include "core/elements.h"
#include "zel_protocol/system_config_media.h"

namespace zel {

// --- Capture -------------------------------------------------------------------------------------

// Up to where the documents go on in an order of their own.
template <class Record>
void captureAttributes(Side& side, Record& record)
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
}

// A set isn't read under the names that it is written with.
template <class Record>
void setNightTimes(Side& side, Record& record)
{
    const bool writes = side.writes();
    timeAttribute(side, writes ? Name("IrcutNightStartTime") : Name("auiIRcutNightStartTime"),
                  record.IrcutNightStartTime);
    timeAttribute(side, writes ? Name("IrcutNightEndTime") : Name("auiIRcutNightEndTime"),
                  record.IrcutNightEndTime);
}

// --- Encoders ------------------------------------------------------------------------------------

template <class Row>
void encodeAttributes(Side& side, Row& row)
{
    attribute(side, "Stream", row.Stream);
    attribute(side, "Resolution", row.Resolution);
    attribute(side, "EncodeFormat", row.EncodeFormat);
    attribute(side, "BitRateControl", row.BitRateControl);
    attribute(side, "Initquant", row.Initquant);
    attribute(side, "BitRate", row.BitRate);
    attribute(side, "FrameRate", row.FrameRate);
}

template <class Record>
void encodeElement(Side& side, Record& record)
{
    if (const Element encode = container(side, "Encode")) {
        rowElements<encodeAttributes<SYSTEM_CONFIG_ENCODE_ROW>>(side, "EncodeConfig", record.stEncodeConfig);
        if (const Element advance = element(side, "AdvanceEncodeConfig")) {
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
    }
}

// --- Advanced processing -------------------------------------------------------------------------

// Which blocks are written: all of them, or those whose first value is set.
enum class Blocks
{
    kAll,
    kSet
};

template <class Field>
Element block(Side& side, Name name, const Field& first, Blocks blocks)
{
    return elementIf(blocks == Blocks::kAll || isSet(first), side, name);
}

template <class Record>
void advancedBlocks(Side& side, Record& record, Blocks blocks, const ValueForm& clock)
{
    if (const Element ae = block(side, "AEConfig", record.AEStep, blocks)) {
        attribute(side, "AEStep", record.AEStep);
        attribute(side, "AETolerance", record.AETolerance);
    }
    if (const Element exposure = block(side, "ExposureConfig", record.ExposureMode, blocks)) {
        attribute(side, "ExposureMode", record.ExposureMode);
        attribute(side, "SemiautoMode", record.SemiautoMode);
        attribute(side, "ExposureTime", record.ExposureTime);
        attribute(side, "DaySystemGain", record.DaySystemGain);
        attribute(side, "NightSystemGain", record.NightSystemGain);
    }
    if (const Element awb = block(side, "AWBConfig", record.AWBMode, blocks)) {
        attribute(side, "AWBMode", record.AWBMode);
        attribute(side, "AWBRGain", record.AWBRGain);
        attribute(side, "AWBBGain", record.AWBBGain);
    }
    if (const Element drc = block(side, "DRCConfig", record.Mode, blocks)) {
        attribute(side, "Mode", record.Mode);
        attribute(side, "StrenthTarget", record.StrenthTarget);
        numbersAttribute(side, "DRCStartTime", clock, record.DRCStartTime);
        numbersAttribute(side, "DRCEndTime", clock, record.DRCEndTime);
    }
    if (const Element denoise = block(side, "DenoiseConfig", record.DenoiseMode, blocks)) {
        attribute(side, "DenoiseMode", record.DenoiseMode);
        attribute(side, "DenoiseDayStrenth", record.DenoiseDayStrenth);
        attribute(side, "DenoiseNightStrenth", record.DenoiseNightStrenth);
    }
    if (const Element color = block(side, "ColorStyle", record.ColorStyleMode, blocks)) {
        attribute(side, "ColorStyleMode", record.ColorStyleMode);
    }
    if (const Element ldc = block(side, "LDCConfig", record.LDCConfig_enable, blocks)) {
        attribute(side, "enable", record.LDCConfig_enable);
        attribute(side, "centorX", record.centorX);
        attribute(side, "centorY", record.centorY);
        attribute(side, "ratio", record.ratio);
    }
    if (const Element starlight = block(side, "StarlightConfig", record.StarlightConfig_enable, blocks)) {
        attribute(side, "enable", record.StarlightConfig_enable);
    }
}

// The last two, in either order.
template <class Record>
void defogBlock(Side& side, Record& record, Blocks blocks)
{
    if (const Element defog = block(side, "DefogConfig", record.DefogMode, blocks)) {
        attribute(side, "DefogMode", record.DefogMode);
        attribute(side, "DefogValue", record.DefogValue);
    }
}

template <class Record>
void doubleLightBlock(Side& side, Record& record, Blocks blocks)
{
    if (const Element light = block(side, "DoubleLight", record.WeightCoefficient, blocks)) {
        attribute(side, "WeightCoefficient", record.WeightCoefficient);
    }
}

// --- Snapshots, texts in the picture, masks ------------------------------------------------------

template <class Record>
void jpegElement(Side& side, Record& record)
{
    if (const Element jpeg = element(side, "JpegConfig")) {
        attribute(side, "Enable", record.JpegConfig_Enable);
        attribute(side, "Stream", record.Stream);
        attribute(side, "Quality", record.Quality);
        attribute(side, "Framerate", record.Framerate);
    }
}

template <class Record>
void timeOverlay(Side& side, Record& record)
{
    attribute(side, "PosX", record.TimeOverlay_PosX);
    attribute(side, "PosY", record.TimeOverlay_PosY);
    attribute(side, "Format", record.Format);
}

template <class Record>
void titleOverlay(Side& side, Record& record)
{
    attribute(side, "PosX", record.TitleOverlay_PosX);
    attribute(side, "PosY", record.TitleOverlay_PosY);
    attribute(side, "Title", record.Title);
}

// The main and the sub stream.
void maskElements(Side& side, SYSTEM_CONFIG_MASK_ROW (&rows)[2]);

} // namespace zel

#endif
