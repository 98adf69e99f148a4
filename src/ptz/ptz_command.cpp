#include "ptz/ptz_command.h"

#include "zel_platform/log.h"

namespace zel {

namespace {

struct Word
{
    std::string_view text;
    PtzCommand command;
};

// In the order in which the words of a received text take precedence.
constexpr Word kWords[] = {
    {"getCurPos", PtzCommand::kGetCurPos},
    {"setCurPos", PtzCommand::kSetCurPos},
    {"GetLocateCfg", PtzCommand::kGetLocateCfg},
    {"SetLocateCfg", PtzCommand::kSetLocateCfg},
    {"ManualLocate", PtzCommand::kManualLocate},
    {"setpreset", PtzCommand::kPreset},
    {"clearpreset", PtzCommand::kPreset},
    {"callpreset", PtzCommand::kPreset},
    {"GetPresetListEx", PtzCommand::kGetPresetListEx}, // before the word that it begins with
    {"GetPresetList", PtzCommand::kGetPresetList},
    {"SetPresetListEx", PtzCommand::kSetPresetListEx},
    {"SetWatchGuard", PtzCommand::kWatchGuard},
    {"GetWatchGuard", PtzCommand::kWatchGuard},
    {"DeleteWatchGuard", PtzCommand::kPlain},
    {"CallWatchGuard", PtzCommand::kPlain},
    {"StopOrbit", PtzCommand::kPlain},
    {"StopLocus", PtzCommand::kPlain},
    {"GetOrbitList", PtzCommand::kGetOrbitList},
    {"AutoOrbit", PtzCommand::kAutoOrbit},
    {"AddOrbit", PtzCommand::kAddOrbit},
    {"ClearOrbit", PtzCommand::kClearOrbit},
    {"GetLocusList", PtzCommand::kGetLocusList},
    {"SetLocus", PtzCommand::kSetLocus},
    {"trans", PtzCommand::kTrans},
    {"RecordLocus", PtzCommand::kLocus},
    {"StopRecordLocus", PtzCommand::kLocus},
    {"StartLocus", PtzCommand::kLocus},
    {"zoomtele", PtzCommand::kMotion},
    {"zoomwide", PtzCommand::kMotion},
    {"FocusNearAutoOff", PtzCommand::kMotion},
    {"FocusFarAutoOff", PtzCommand::kMotion},
    {"IrisOpenAutoOff", PtzCommand::kMotion},
    {"IrisCloseAutoOff", PtzCommand::kMotion},
    {"up", PtzCommand::kMotion},
    {"down", PtzCommand::kMotion},
    {"left", PtzCommand::kMotion},
    {"right", PtzCommand::kMotion},
    {"left_up", PtzCommand::kMotion},
    {"right_up", PtzCommand::kMotion},
    {"left_down", PtzCommand::kMotion},
    {"right_down", PtzCommand::kMotion},
    {"auto", PtzCommand::kMotion},
    {"stop", PtzCommand::kMotion},
    {"ptz_reset", PtzCommand::kMotion},
    {"ScanBegin", PtzCommand::kScan}, // the rest isn't searched for
    {"ScanEnd", PtzCommand::kScan},
    {"ScanOn", PtzCommand::kScan},
    {"ScanOff", PtzCommand::kScan},
};
constexpr size_t kScanWords = 4;
constexpr size_t kSearchedWords = sizeof kWords / sizeof kWords[0] - kScanWords;
static_assert(kWords[kSearchedWords].command == PtzCommand::kScan);
static_assert(kWords[kSearchedWords - 1].command != PtzCommand::kScan);

// A set of searched words: bit i stands for kWords[i], so the lowest bit takes precedence.
using WordSet = uint64_t;
static_assert(kSearchedWords < 64);

// For each letter the words that have it in first and in second place. Bytes beyond ASCII pass for some
// letter and cost a comparison.
constexpr size_t kLetterCount = 128;

struct LetterTable
{
    WordSet first[kLetterCount];
    WordSet second[kLetterCount];
};

constexpr size_t indexOf(char letter)
{
    return static_cast<unsigned char>(letter) % kLetterCount;
}

constexpr LetterTable makeLetterTable()
{
    LetterTable table{};
    for (size_t i = 0; i < kSearchedWords; ++i) {
        table.first[indexOf(kWords[i].text[0])] |= WordSet{1} << i;
        table.second[indexOf(kWords[i].text[1])] |= WordSet{1} << i;
    }
    return table;
}

constexpr LetterTable kLetters = makeLetterTable();

} // namespace

PtzCommand ptzCommandOf(std::string_view word)
{
    for (const Word& known : kWords)
        if (known.text == word)
            return known.command;
    return PtzCommand::kUnknown;
}

PtzCommand findPtzCommand(std::string_view text)
{
    // One pass; only words that take precedence over the best so far are still looked for.
    PtzCommand found = PtzCommand::kUnknown;
    WordSet wanted = ~WordSet{0};
    for (size_t at = 0; at + 1 < text.size(); ++at) {
        WordSet here = kLetters.first[indexOf(text[at])] & kLetters.second[indexOf(text[at + 1])] & wanted;
        for (; here != 0; here &= here - 1) {
            const Word& word = kWords[__builtin_ctzll(here)];
            if (text.compare(at, word.text.size(), word.text) == 0) {
                found = word.command;
                wanted = (here & (0 - here)) - 1;
                break;
            }
        }
    }
    if (found != PtzCommand::kUnknown)
        return found;
    // The list of presets comes as a bare text without any word.
    return text.find('^') != std::string_view::npos ? PtzCommand::kGetPresetList : PtzCommand::kUnknown;
}

int missingExtension(const PtzRecord& record)
{
    const std::string_view word = textOf(record.cmd);
    ZelProtocolLogError("PTZ_CONTROL_MESSAGE deal cmd : %.*s get the pExData is NULL\n", printedLength(word),
                        word.data());
    return ZEL_ERR_BAD_PARAM;
}

int openPtzCommand(Message& message, void** result, const Leaf& leaf, PtzElements& elements)
{
    if (const int status = openBody(message, result, leaf, elements.body))
        return status;
    elements.xml = elements.body.child("xml");
    return elements.xml ? 0 : missingElement(leaf, "RESPONSE_PARAM");
}

} // namespace zel
