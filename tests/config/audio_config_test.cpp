#include "config/config_message.h"

using namespace test;

namespace {

SYSTEM_CONFIG_GET_502_PARAM counted()
{
    auto audio = fresh(SYSTEM_CONFIG_GET_502_PARAM_init);
    countUp(audio.Enable, audio.Play_DefVolume, 11);
    audio.Channels = 16;
    audio.SampleRate = 8000;
    audio.BitRate = UINT32_MAX - 1;
    audio.BitsPerSample = 17;
    set(audio.EncodeType, "type");
    return audio;
}

const std::string kEncode = "<Encode|Enable='11'|SampleRate='8000'|EncodeType='type'|BitRate='-2'|/>|";

TEST(AudioConfig, Get)
{
    const auto absent = fresh(SYSTEM_CONFIG_GET_502_PARAM_init);
    expectResponse(kConfig, "502", absent,
                   "<Audio>|<Capture|Volume='255'|DefVolume='255'|/>|<Encode|Enable='255'|SampleRate='-1'|"
                   "EncodeType=''|BitRate='-1'|/>|<Play|Volume='255'|DefVolume='255'|/>|</Audio>|");
    auto audio = counted();
    const std::string text = "<Audio>|<Capture|Volume='12'|DefVolume='13'|/>|" + kEncode +
                             "<Play|Volume='14'|DefVolume='15'|/>|</Audio>|";
    expectBodies(kConfig, "502", &audio, "", text);
    audio.Channels = -1;
    audio.BitsPerSample = UINT32_MAX;
    expectRead(kConfig, "502",
               with(text, "<Capture|", "<Capture|BitsPerSample='18'|SampleRate='19'|Channels='20'|"), audio);
    expectRead(kConfig, "502", "<Audio/>", absent);
}

TEST(AudioConfig, SetUnderTwoCodes)
{
    for (const char* code : {"522", "527"}) {
        auto audio = fresh(SYSTEM_CONFIG_SET_527_PARAM_init);
        const std::string absent = "<Audio>|<Capture|Volume='255'|/>|<Encode|Enable='255'|SampleRate='-1'|"
                                   "EncodeType=''|BitRate='-1'|/>|<Play|Volume='255'|/>|</Audio>|";
        expectRequest(kConfig, code, audio, absent);
        audio.SampleRate = 0;
        expectRequest(kConfig, code, audio,
                      with(with(absent, "'-1'", "'0'"), "<Capture|Volume='255'|",
                           "<Capture|Volume='255'|SampleRate='0'|"));
        // The encoder's rate wins, wherever it stands.
        expectRead(kConfig, code, "<Audio><Encode SampleRate='0'/><Capture SampleRate='12'/></Audio>", audio);
        expectRead(kConfig, code, "<Audio><Capture SampleRate='0'/></Audio>", audio);

        audio = counted();
        const std::string text =
            "<Audio>|<Capture|Volume='12'|BitsPerSample='17'|SampleRate='8000'|Channels='16'|/>|" + kEncode +
            "<Play|Volume='14'|/>|</Audio>|";
        expectBodies(kConfig, code, &audio, text, "");
        audio.Capture_DefVolume = audio.Play_DefVolume = 255;
        expectRead(
            kConfig, code,
            with(with(text, "<Capture|", "<Capture|DefVolume='18'|"), "<Play|", "<Play|DefVolume='19'|"),
            audio);
    }
}

TEST(AudioConfig, RequiredElements)
{
    expectRequired({{"502", "getMediaAudioconfig", "RESPONSE_PARAM"},
                    {"522", "setMediaAudioconfig", "RESPONSE_PARAM"},
                    {"527", "setMediaAudioconfig", "RESPONSE_PARAM"}});
}

} // namespace
