#include "config/video_config_msg.h"

#include <algorithm>
#include <string_view>

#include "config/media_list.h"

namespace zel {

namespace {

using Video = SYSTEM_CONFIG_GET_501_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void settings(Side& side, Video& record)
{
    if (const Element capture = element(side, "Capture")) {
        captureAttributes(side, record);
        attribute(side, "IrcutLuma", record.IrcutLuma);
        attribute(side, "IrcutSensitivity", record.IrcutSensitivity);
        timeAttribute(side, "auiIRcutNightStartTime", record.auiIRcutNightStartTime);
        timeAttribute(side, "auiIRcutNightEndTime", record.auiIRcutNightEndTime);
        attribute(side, "IrcutKeepColor", record.IrcutKeepColor);
        attribute(side, "IrcutLumaList", record.IrcutLumaList);
    }
    encodeElement(side, record);
    if (const Element advanced = container(side, "AdvacedMediaConfig")) {
        advancedBlocks(side, record, Blocks::kAll, kPlainClock);
        doubleLightBlock(side, record, Blocks::kAll);
    }
    jpegElement(side, record);
}

void maskElement(Side& side, Video& record)
{
    if (const Element mask = container(side, "Mask"))
        maskElements(side, record.stMaskRows);
}

void overlayElement(Side& side, Video& record, Form form)
{
    if (const Element overlay = element(side, "Overlay", kBoth)) {
        attribute(side, "Enable", record.Overlay_Enable);
        attribute(side, "Transparency", record.Transparency);
        // The channel once more: this one wins.
        if (form == Form::kGet)
            attributeIfSet(side, "ChanID", record.ChannelId);
        overlay.elements();
        if (const Element time = element(side, "TimeOverlay")) {
            timeOverlay(side, record);
            attribute(side, "WeekDisplayEn", record.WeekDisplayEn);
        }
        if (const Element title = element(side, "TitleOverlay")) {
            titleOverlay(side, record);
            attribute(side, "DefaultTitle", record.DefaultTitle);
        }
    }
}

// An element whose attributes, with blanks between their names, are all empty. It only goes out.
void blankElement(Side& side, Name name, std::string_view attributes)
{
    if (const Element blank = element(side, name)) {
        while (!attributes.empty()) {
            const size_t length = std::min(attributes.find(' '), attributes.size());
            appendRaw(side, {attributes.data(), length});
            appendRaw(side, "=\"\"\n");
            attributes.remove_prefix(std::min(length + 1, attributes.size()));
        }
    }
}

void blankSettings(Side& side)
{
    blankElement(side, "Capture",
                 "Brightness Contrast Saturation Sharpness DayNight WhiteBalance BackLight Switch2A "
                 "BinningSkip TVSystem HFlip VFlip TNF SNF VSTAB LDC FD IrcutMode IrcutSensitivity "
                 "IrcutNightStartTime IrcutNightEndTime");
    if (const Element encode = container(side, "Encode"))
        for (int row = 0; row < 2; ++row)
            blankElement(side, "EncodeConfig",
                         "Stream Resolution EncodeFormat BitRateControl Initquant BitRate FrameRate");
    blankElement(side, "JpegConfig", "Enable Stream Quality Framerate");
}

void getRequest(Side& side, Video& record)
{
    if (const Element request = elementIf(isSet(record.ChannelId), side, "REQUEST_PARAM"))
        attribute(side, "ChannelId", record.ChannelId);
}

void getResponse(Side& side, Video& record)
{
    if (const Element video = element(side, "Video", kBoth | kOnLine)) {
        attribute(side, "ChannelId", record.ChannelId);
        video.elements();
        if (side.takes(!isSet(record.iBlankForm))) {
            settings(side, record);
            maskElement(side, record);
        } else {
            blankSettings(side);
        }
        overlayElement(side, record, Form::kGet);
    }
}

// Whole whatever the form, and the masks come last.
void setRequest(Side& side, SYSTEM_CONFIG_SET_521_PARAM& record)
{
    if (const Element video = container(side, "Video")) {
        settings(side, record);
        overlayElement(side, record, Form::kSet);
        maskElement(side, record);
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetMediaVideoconfig = message<SYSTEM_CONFIG_GET_501_PARAM_init>(
    "SystemConfig_getMediaVideoconfig_MessageAnalysis", over<getResponse>("Video", Kinds::kNotRequests),
    over<getRequest>("REQUEST_PARAM", Kinds::kRequests));
extern constexpr MessageRow kSetMediaVideoconfig =
    message<SYSTEM_CONFIG_SET_521_PARAM_init>("SystemConfig_setMediaVideoconfig_MessageAnalysis",
                                              over<setRequest>("Video", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_501_PARAM_init(SYSTEM_CONFIG_GET_501_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Format, record.Title, record.DefaultTitle, record.IrcutLumaList);
        for (auto& row : record.stEncodeConfig)
            zel::clear(row.Resolution, row.EncodeFormat, row.BitRateControl);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_521_PARAM, SYSTEM_CONFIG_GET_501_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getMediaVideoconfig, kGetMediaVideoconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaVideoconfig, kSetMediaVideoconfig)
