#include "zel_protocol/reverse_audio.h"

#include "core/families.h"

namespace zel {

namespace {

using AudioStart = REVERSE_AUDIO_CMD_RA_START_PARAM;
using AudioStop = REVERSE_AUDIO_CMD_RA_STOP_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void startRequest(Side& side, AudioStart& record)
{
    attributeIfSet(side, "Sessionid", record.Sessionid);
    attribute(side, "AudioForamt", record.AudioForamt);
    attribute(side, "Channels", record.Channels);
    attribute(side, "SampleRate", record.SampleRate);
    attribute(side, "Bitrate", record.Bitrate);
    attribute(side, "RTPSendPort", record.RTPSendPort);
    attribute(side, "ConnectType", record.ConnectType);
}

void startResponse(Side& side, AudioStart& record)
{
    attributeIfSet(side, "Sessionid", record.Sessionid);
    attribute(side, "RTPRecvPort", record.RTPSendPort);
    attribute(side, "AudioCodec", record.AudioForamt);
    attribute(side, "SampleRate", record.SampleRate);
    attribute(side, "BitsPerSample", record.Bitrate);
    attribute(side, "Channels", record.Channels);
    attribute(side, "ConnectionType", record.ConnectType);
}

void stopRequest(Side& side, AudioStop& record)
{
    if (const Element stop = elementIf(isSet(record.Sessionid), side, "RA_STOP_PARAM"))
        wholeFieldAttribute(side, "Sessionid", record.Sessionid);
}

// --- Messages ------------------------------------------------------------------------------------

constexpr char kAnalysis[] = "ReverseAudioMessageAnalysis";

constexpr MessageRow kStart = message<REVERSE_AUDIO_CMD_RA_START_PARAM_init>(
                                  kAnalysis, within<startRequest>("RA_START_PARAM", Kinds::kRequests),
                                  within<startResponse>("RA_START_RESPONSE", Kinds::kNotRequests, kAtQuote))
                                  .reporting("RA_START_RESPONSE")
                                  .quiet();
constexpr MessageRow kStop = message<REVERSE_AUDIO_CMD_RA_STOP_PARAM_init>(
                                 kAnalysis, over<stopRequest>("RA_STOP_PARAM", Kinds::kRequests))
                                 .quiet();

constexpr CodeRow kCodes[] = {
    {0, &kStart, nullptr, 0, "CMD_RA_START"},
    {1, &kStop, nullptr, 0, "CMD_RA_STOP"},
    {544, &kStart},
    {545, &kStop},
};

// --- Dispatch ------------------------------------------------------------------------------------

int unknownAudioCode(const Family& family, std::string_view code)
{
    return unknownWord(family.name, code);
}

// The body is looked for before the code is known, and missed like any other element.
int analyseAudio(const Family& family, Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(family.analysisName);
    if (const int status = findRoot(message, kStart.leaf))
        return status;
    const ElementReader body = message.root.child("MESSAGE_BODY");
    if (!body)
        return missingElement(kStart.leaf, "MESSAGE_BODY");
    const CodeRow* const found = findWord(family, code);
    return found ? giveParts(*found->row, message, body, result) : unknownWord(family.analysisName, code);
}

} // namespace

extern constexpr Family kReverseAudioFamily =
    Family("REVERSE_AUDIO_MESSAGE", kCodes, composeWord, analyseAudio, unknownAudioCode)
        .loggedAs("REVERSE_AUDIO_MESSAGE", kAnalysis);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int REVERSE_AUDIO_CMD_RA_START_PARAM_init(REVERSE_AUDIO_CMD_RA_START_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.AudioForamt, record.Sessionid); });
}

int REVERSE_AUDIO_CMD_RA_STOP_PARAM_init(REVERSE_AUDIO_CMD_RA_STOP_PARAM* param)
{
    return zel::startAtZero(param);
}

int ReverseAudioMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kReverseAudioFamily, record, kind, code, buf, len);
}

int ReverseAudioMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kReverseAudioFamily, text, code, result);
}
