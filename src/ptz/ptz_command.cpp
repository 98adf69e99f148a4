#include "ptz/ptz_command.h"

#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

// --- Elements ------------------------------------------------------------------------------------

void ptzChannel(Side& side, PtzRecord& record)
{
    if (side.takes(isSet(record.channelid)))
        textElement(side, "channelid", record.channelid);
}

void ptzWord(Side& side, PtzRecord& record)
{
    textElement(side, "cmd", record.cmd);
}

void ptzSetWord(Side& side, PtzRecord& record, Name word)
{
    if (!side.writes())
        memcpy(record.cmd, word.text, word.length + 1);
}

void ptzElement(Side& side, PtzRecord& record, List fields)
{
    if (const Element xml = container(side, "xml")) {
        ptzWord(side, record);
        if (fields)
            fields(side, record.pExData);
    }
}

void ptzPlainCommand(Side& side, PtzRecord& record)
{
    ptzChannel(side, record);
    ptzElement(side, record, nullptr);
}

namespace {

// --- Command words -------------------------------------------------------------------------------

constexpr char kCode[] = "PTZ_CMD";

constexpr CodeRow command(const char* word, const MessageRow& row, int (*initExtension)(void*) = nullptr)
{
    return {0, &row, initExtension, 0, kCode, word};
}

// Commands of one row whose extensions differ by name.
template <auto init>
constexpr CodeRow command(const char* word, const MessageRow& row)
{
    return command(word, row, Erased<init>::call);
}

// In the order in which the words of a received text take precedence.
constexpr CodeRow kCommands[] = {
    command("getCurPos", kGetPosition),
    command("setCurPos", kSetPosition),
    command("GetLocateCfg", kGetLocate),
    command("SetLocateCfg", kSetLocate),
    command("ManualLocate", kManualLocate),
    command("setpreset", kPreset),
    command<PTZ_CONTROL_PTZ_CMD_CLEARPRESET_PARAM_init>("clearpreset", kPreset),
    command<PTZ_CONTROL_PTZ_CMD_CALLPRESET_PARAM_init>("callpreset", kPreset),
    command("GetPresetListEx", kNamedPresetList), // of the two the longer word
    command("GetPresetList", kPresetList),
    command("SetPresetListEx", kNamedPreset),
    command("SetWatchGuard", kWatchGuard),
    command<PTZ_CONTROL_PTZ_CMD_GETWATCHGUARD_PARAM_init>("GetWatchGuard", kWatchGuard),
    command("DeleteWatchGuard", kPtzPlain),
    command("CallWatchGuard", kPtzPlain),
    command("StopOrbit", kPtzPlain),
    command("StopLocus", kPtzPlain),
    command("GetOrbitList", kOrbitList),
    command("AutoOrbit", kAutoOrbit),
    command("AddOrbit", kAddOrbit),
    command("ClearOrbit", kClearOrbit),
    command("GetLocusList", kLocusList),
    command("SetLocus", kSetLocus),
    command("trans", kTransparentData),
    command("RecordLocus", kLocus),
    command<PTZ_CONTROL_PTZ_CMD_STOPRECORDLOCUS_PARAM_init>("StopRecordLocus", kLocus),
    command("StartLocus", kLocus),
    command("zoomtele", kPtzMotion),
    command("zoomwide", kPtzMotion),
    command("FocusNearAutoOff", kPtzMotion),
    command("FocusFarAutoOff", kPtzMotion),
    command("IrisOpenAutoOff", kPtzMotion),
    command("IrisCloseAutoOff", kPtzMotion),
    command("up", kPtzMotion),
    command("down", kPtzMotion),
    command("left", kPtzMotion),
    command("right", kPtzMotion),
    command("left_up", kPtzMotion),
    command("right_up", kPtzMotion),
    command("left_down", kPtzMotion),
    command("right_down", kPtzMotion),
    command("auto", kPtzMotion),
    command("stop", kPtzMotion),
    command("ptz_reset", kPtzMotion),
    command("ScanBegin", kPtzScan), // the rest isn't searched for
    command("ScanEnd", kPtzScan),
    command("ScanOn", kPtzScan),
    command("ScanOff", kPtzScan),
};
constexpr size_t kScanWords = 4;
constexpr size_t kSearchedWords = sizeof kCommands / sizeof kCommands[0] - kScanWords;
static_assert(std::string_view(kCommands[kSearchedWords].word) == "ScanBegin");

// A set of searched words: bit i stands for kCommands[i], so the lowest bit takes precedence.
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
        table.first[indexOf(kCommands[i].word[0])] |= WordSet{1} << i;
        table.second[indexOf(kCommands[i].word[1])] |= WordSet{1} << i;
    }
    return table;
}

constexpr LetterTable kLetters = makeLetterTable();

bool beginsWith(const char* text, size_t length, const char* word)
{
    const size_t size = strlen(word);
    return size <= length && memcmp(text, word, size) == 0;
}

} // namespace

// One pass: only words that take precedence over the best so far are still looked for.
const CodeRow* findPtzCommand(std::string_view text)
{
    const CodeRow* found = nullptr;
    WordSet wanted = ~WordSet{0};
    for (size_t at = 0; at + 1 < text.size(); ++at) {
        WordSet here = kLetters.first[indexOf(text[at])] & kLetters.second[indexOf(text[at + 1])] & wanted;
        for (; here != 0; here &= here - 1) {
            const CodeRow& candidate = kCommands[__builtin_ctzll(here)];
            if (beginsWith(text.data() + at, text.size() - at, candidate.word)) {
                found = &candidate;
                wanted = (here & (0 - here)) - 1;
                break;
            }
        }
    }
    return found;
}

namespace {

// Of all words, those of a scan too; null: it is none.
const CodeRow* commandOf(std::string_view word)
{
    for (const CodeRow& known : kCommands)
        if (word == known.word)
            return &known;
    return nullptr;
}

// --- Dispatch ------------------------------------------------------------------------------------

int composeCommand(const Family& family, Outbound& outbound)
{
    if (outbound.code != kCode) {
        ZelProtocolLogError("%s deal a unknow Msg_code:%.*s !!!\n", family.name, printedLength(outbound.code),
                            outbound.code.data());
        return ZEL_ERR_UNKNOWN_MSG;
    }
    const std::string_view word = textOf(as<PtzRecord>(outbound.record).cmd);
    if (word.empty()) {
        ZelProtocolLogError("%s put a empty cmd, Error\n", family.name);
        return ZEL_ERR_BAD_PARAM;
    }
    if (const CodeRow* const known = commandOf(word))
        return compose(*known->row, outbound);
    ZelProtocolLogError("%s deal a unknow cmd : %.*s\n", family.name, printedLength(word), word.data());
    return ZEL_ERR_UNKNOWN_MSG;
}

int analyseCommand(const Family& family, Message& message, std::string_view, void** result)
{
    if (message.isNull() || !result)
        return emptyParam(family.name);
    if (const CodeRow* const found = findPtzCommand(message.text))
        return analyse(*found->row, message, result);
    // The one list that names no command.
    if (message.text.find('^') != std::string_view::npos)
        return analyse(kPresetList, message, result);
    ZelProtocolLogError("%s deal a unknow cmd \n", family.name);
    return ZEL_ERR_UNKNOWN_MSG;
}

} // namespace

extern constexpr Family kPtzControlFamily("PTZ_CONTROL_MESSAGE", kCommands, composeCommand, analyseCommand);

// --- Rows ----------------------------------------------------------------------------------------

namespace {

// The room behind an analysed record: for its own extension, and for that of the command which the message's
// own word names. The two differ where a peer sends one command under the name of another.
size_t roomOf(const MessageRow& row, const ElementReader& body)
{
    const size_t own = row.extension.size;
    const ElementReader xml = body.child("xml");
    if (!xml)
        return own;
    TreeReader side(xml);
    PtzRecord record = {};
    ptzWord(side, record);
    const CodeRow* const named = commandOf(textOf(record.cmd));
    return named && named->row->extension.size > own ? named->row->extension.size : own;
}

} // namespace

void reportNoExtension(const PtzRecord& record)
{
    const std::string_view word = textOf(record.cmd);
    ZelProtocolLogError("PTZ_CONTROL_MESSAGE deal cmd : %.*s get the pExData is NULL\n", printedLength(word),
                        word.data());
}

int composePtz(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<PtzRecord>(outbound.record);
    for (const Part& part : row.parts) {
        if (!includes(part.kinds, outbound.kind))
            continue;
        if (part.tail == Tail::kNeeded && !record.pExData) {
            reportNoExtension(record);
            return ZEL_ERR_BAD_PARAM;
        }
        writePart(part, outbound);
        break;
    }
    return 0;
}

int analysePtz(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    const int status = openBody(message, result, row.leaf, body);
    return status != 0 ? status : givePtz(row, message, body, result);
}

int givePtz(const MessageRow& row, Message& message, const ElementReader& body, void** result)
{
    for (const Part& part : row.parts) {
        if (!findPart(part, body))
            continue;
        if (part.tail == Tail::kNone)
            return givePart(row, part, message, body, result);
        void* const record = takeExtended(row.record, row.extension, roomOf(row, body));
        if (!record)
            return ZEL_ERR_NO_MEMORY;
        TreeReader side(body);
        part.list(side, record);
        *result = record;
        return 0;
    }
    return missingElement(row.leaf, row.missing);
}

} // namespace zel
