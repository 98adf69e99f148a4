#include "config/media_config_msg.h"

#include "config/media_list.h"

namespace zel {

namespace {

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

void captureElement(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record, Form form)
{
    if (const Element capture = element(side, "Capture")) {
        captureAttributes(side, record);
        attribute(side, "IrcutSensitivity", record.IrcutSensitivity);
        if (form == Form::kGet) {
            timeAttribute(side, "IrcutNightStartTime", record.IrcutNightStartTime);
            timeAttribute(side, "IrcutNightEndTime", record.IrcutNightEndTime);
        } else {
            setNightTimes(side, record);
        }
        attribute(side, "IrcutLumaList", record.IrcutLumaList);
        attribute(side, "IrcutLuma", record.IrcutLuma);
        attribute(side, "IrcutKeepColor", record.IrcutKeepColor);
    }
}

void overlayElements(Side& side, SYSTEM_CONFIG_GET_500_PARAM& record)
{
    if (const Element time = element(side, "TimeOverlay")) {
        timeOverlay(side, record);
        attribute(side, "WeekDisplayEn", record.WeekDisplayEn);
    }
    if (const Element title = element(side, "TitleOverlay")) {
        titleOverlay(side, record);
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
            captureElement(side, record, form);
            encodeElement(side, record);
            if (const Element advanced = container(side, "AdvacedMediaConfig")) {
                advancedBlocks(side, record, Blocks::kAll, kClock);
                defogBlock(side, record, Blocks::kAll);
                doubleLightBlock(side, record, Blocks::kAll);
            }
            jpegElement(side, record);
            if (const Element overlay = element(side, "Overlay", kBoth)) {
                attribute(side, "Enable", record.Overlay_Enable);
                attribute(side, "Transparency", record.Transparency);
                overlay.elements();
                overlayElements(side, record);
            }
            if (const Element mask = container(side, "Mask")) {
                maskElements(side, record.stMaskRows);
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
