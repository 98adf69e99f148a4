#include "config/audio_config_msg.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void encodeElement(Side& side, SYSTEM_CONFIG_GET_502_PARAM& record)
{
    if (const Element encode = element(side, "Encode")) {
        attribute(side, "Enable", record.Enable);
        signedAttribute(side, "SampleRate", record.SampleRate);
        attribute(side, "EncodeType", record.EncodeType);
        signedAttribute(side, "BitRate", record.BitRate);
    }
}

void getAudio(Side& side, SYSTEM_CONFIG_GET_502_PARAM& record)
{
    if (const Element audio = container(side, "Audio")) {
        if (const Element capture = element(side, "Capture")) {
            attribute(side, "Volume", record.Capture_Volume);
            attribute(side, "DefVolume", record.Capture_DefVolume);
        }
        encodeElement(side, record);
        if (const Element play = element(side, "Play")) {
            attribute(side, "Volume", record.Play_Volume);
            attribute(side, "DefVolume", record.Play_DefVolume);
        }
    }
}

void setAudio(Side& side, SYSTEM_CONFIG_SET_522_PARAM& record)
{
    if (const Element audio = container(side, "Audio")) {
        // Its rate is read before the encoder's, which wins.
        if (const Element capture = element(side, "Capture")) {
            attribute(side, "Volume", record.Capture_Volume);
            signedAttributeIfSet(side, "BitsPerSample", record.BitsPerSample);
            signedAttributeIfSet(side, "SampleRate", record.SampleRate);
            attributeIfSet(side, "Channels", record.Channels);
        }
        encodeElement(side, record);
        if (const Element play = element(side, "Play")) {
            attribute(side, "Volume", record.Play_Volume);
        }
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetMediaAudioconfig =
    message<SYSTEM_CONFIG_GET_502_PARAM_init>("SystemConfig_getMediaAudioconfig_MessageAnalysis",
                                              over<getAudio>("Audio", Kinds::kResponses))
        .reporting("RESPONSE_PARAM");
extern constexpr MessageRow kSetMediaAudioconfig =
    message<SYSTEM_CONFIG_SET_522_PARAM_init>("SystemConfig_setMediaAudioconfig_MessageAnalysis",
                                              over<setAudio>("Audio", Kinds::kRequests))
        .reporting("RESPONSE_PARAM");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_502_PARAM_init(SYSTEM_CONFIG_GET_502_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.EncodeType); });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_522_PARAM, SYSTEM_CONFIG_GET_502_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_527_PARAM, SYSTEM_CONFIG_GET_502_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getMediaAudioconfig, kGetMediaAudioconfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMediaAudioconfig, kSetMediaAudioconfig)
