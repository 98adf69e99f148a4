#include "config/osd_config_msg.h"

#include "config/media_list.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

// A number that goes out as a word; it is read in either form.
constexpr int32_t kWordChannel = 255;
constexpr char kChannelWord[] = "0xff";

char* printChannel(char* at, const void* items, size_t)
{
    const int32_t channel = *static_cast<const int32_t*>(items);
    return channel == kWordChannel ? putName(at, kChannelWord) : printNumber(at, channel);
}

void scanChannel(std::string_view value, void* items, size_t)
{
    *static_cast<int32_t*>(items) = value == kChannelWord ? kWordChannel : numberOf(value);
}

constexpr ValueForm kChannel = {ZEL_FORM_OWN, kLongestNumber, printChannel, scanChannel};

template <class Record>
void channelRequest(Side& side, Record& record)
{
    valueAttribute(side, "ChannelId", kChannel, &record.ChannelId, sizeof record.ChannelId, 1);
}

void overlay(Side& side, SYSTEM_CONFIG_OSD_CHANNEL& row, Form form)
{
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "Enable", row.Enable);
    attribute(side, "Transparency", row.Transparency);
    appendRaw(side, ">\n");
    if (const Element time = element(side, "TimeOverlay")) {
        attribute(side, "PosX", row.TimeOverlay_PosX);
        attribute(side, "PosY", row.TimeOverlay_PosY);
        attribute(side, "Format", row.Format);
        attribute(side, "WeekDisplayEn", row.WeekDisplayEn);
    }
    if (const Element title = element(side, "TitleOverlay")) {
        attribute(side, "PosX", row.TitleOverlay_PosX);
        attribute(side, "PosY", row.TitleOverlay_PosY);
        attribute(side, "OsdTitle", row.OsdTitle);
        if (form == Form::kGet)
            attribute(side, "DefaultOsdTitle", row.DefaultOsdTitle);
    }
}

void getOverlay(Side& side, SYSTEM_CONFIG_OSD_CHANNEL& row)
{
    overlay(side, row, Form::kGet);
}

void setOverlay(Side& side, SYSTEM_CONFIG_OSD_CHANNEL& row)
{
    overlay(side, row, Form::kSet);
}

void encode(Side& side, SYSTEM_CONFIG_ENCODE_CHANNEL& row, Form form)
{
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "LockPara", row.LockPara);
    if (form == Form::kSet)
        endAtQuote(side);
    appendRaw(side, ">\n");
    rowElements<encodeAttributes<SYSTEM_CONFIG_ENCODE_ROW>>(side, "EncodeConfig", row.stEncodeConfig);
}

void getEncode(Side& side, SYSTEM_CONFIG_ENCODE_CHANNEL& row)
{
    encode(side, row, Form::kGet);
}

void setEncode(Side& side, SYSTEM_CONFIG_ENCODE_CHANNEL& row)
{
    encode(side, row, Form::kSet);
}

template <class Row>
bool isInUse(const Row& row)
{
    return isSet(row.ChannelId);
}

// The channels up to the first free row.
template <auto list, class Row, size_t N>
void channelElements(Side& side, Name name, Row (&rows)[N])
{
    rowElements<list>(side, name, rows, rowsInUse(side, rows, isInUse<Row>), kBoth);
}

void getOverlays(Side& side, SYSTEM_CONFIG_GET_2550_PARAM& record)
{
    channelElements<getOverlay>(side, "Overlay", record.stOsdChannel);
}

void setOverlays(Side& side, SYSTEM_CONFIG_SET_2555_PARAM& record)
{
    // It stands bare at the head of the body, but is read as an attribute of it.
    attributeIfSet(side, "ChannelCount", record.ChannelCount);
    channelElements<setOverlay>(side, "Overlay", record.stOsdChannel);
}

void getEncoders(Side& side, SYSTEM_CONFIG_GET_2560_PARAM& record)
{
    channelElements<getEncode>(side, "Encode", record.stEncodeChannel);
}

void setEncoders(Side& side, SYSTEM_CONFIG_SET_2565_PARAM& record)
{
    channelElements<setEncode>(side, "Encode", record.stEncodeChannel);
}

void abilities(Side& side, SYSTEM_CONFIG_GET_2561_PARAM& record)
{
    if (const Element channel = element(side, "ChannelInfo", kBoth)) {
        attribute(side, "ChannelId", record.ChannelId);
        channel.elements();
        if (const Element video = element(side, "VideoCap", kAtQuote))
            attribute(side, "CapList", record.VideoCap_CapList);
        if (const Element best = element(side, "VideoBestParameter", kOnLine))
            attribute(side, "CapList", record.VideoBestParameter_CapList);
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetVideoOsdConfig =
    message<SYSTEM_CONFIG_GET_2550_PARAM_init>(
        "SystemConfig_getVideoOsdConfig_MessageAnalysis",
        request<channelRequest<SYSTEM_CONFIG_GET_2550_PARAM>>(Kinds::kRequests, kAtQuote),
        over<getOverlays>("Overlay", Kinds::kNotRequests))
        .reporting("Overlay");
extern constexpr MessageRow kSetVideoOsdConfig = message<SYSTEM_CONFIG_SET_2555_PARAM_init>(
    "SystemConfig_setVideoOsdConfig_MessageAnalysis", over<setOverlays>("Overlay", Kinds::kRequests));
extern constexpr MessageRow kGetMediaVideoConfig =
    message<SYSTEM_CONFIG_GET_2560_PARAM_init>("SystemConfig_getMediaVideoConfig_MessageAnalysis",
                                               request<channelRequest<SYSTEM_CONFIG_GET_2560_PARAM>>(),
                                               over<getEncoders>("Encode", Kinds::kNotRequests))
        .reporting("Encode");
extern constexpr MessageRow kSetMediaVideoConfig = message<SYSTEM_CONFIG_SET_2565_PARAM_init>(
    "SystemConfig_setMediaVideoConfig_MessageAnalysis", over<setEncoders>("Encode", Kinds::kRequests));
extern constexpr MessageRow kGetMediaCapability =
    message<SYSTEM_CONFIG_GET_2561_PARAM_init>("SystemConfig_getMediaCapability_MessageAnalysis",
                                               request<channelRequest<SYSTEM_CONFIG_GET_2561_PARAM>>(),
                                               over<abilities>("ChannelInfo", Kinds::kNotRequests))
        .reporting("ChannelInfo");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_2550_PARAM_init(SYSTEM_CONFIG_GET_2550_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& row : record.stOsdChannel)
            zel::clear(row.Format, row.OsdTitle, row.DefaultOsdTitle);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2555_PARAM, SYSTEM_CONFIG_GET_2550_PARAM)

int SYSTEM_CONFIG_GET_2560_PARAM_init(SYSTEM_CONFIG_GET_2560_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& channel : record.stEncodeChannel)
            for (auto& row : channel.stEncodeConfig)
                zel::clear(row.Resolution, row.EncodeFormat, row.BitRateControl);
    });
}

int SYSTEM_CONFIG_GET_2561_PARAM_init(SYSTEM_CONFIG_GET_2561_PARAM* param)
{
    return zel::initRecord(
        param, [](auto& record) { zel::clear(record.VideoCap_CapList, record.VideoBestParameter_CapList); });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2565_PARAM, SYSTEM_CONFIG_GET_2560_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getVideoOsdConfig, kGetVideoOsdConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setVideoOsdConfig, kSetVideoOsdConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getMediaVideoConfig, kGetMediaVideoConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getMediaCapability, kGetMediaCapability)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaVideoConfig, kSetMediaVideoConfig)
