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

void ptzPlainCommand(Side& side, PtzRecord& record)
{
    ptzChannel(side, record);
    if (const Element xml = container(side, "xml"))
        ptzWord(side, record);
}

namespace {

// --- Command words -------------------------------------------------------------------------------

constexpr char kCode[] = "PTZ_CMD";

constexpr CodeRow command(const char* word, const MessageRow& row, int (*initExtension)(void*) = nullptr)
{
    return {0, &row, initExtension, 0, kCode, word};
}

// In the order in which the words of a received text take precedence. Each group of commands adds its own.
constexpr CodeRow kCommands[] = {
    command("DeleteWatchGuard", kPtzPlain),
    command("CallWatchGuard", kPtzPlain),
    command("StopOrbit", kPtzPlain),
    command("StopLocus", kPtzPlain),
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
    command("ScanBegin", kPtzPlain), // the rest isn't searched for
    command("ScanEnd", kPtzPlain),
    command("ScanOn", kPtzPlain),
    command("ScanOff", kPtzPlain),
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

bool beginsWith(std::string_view text, const char* word)
{
    return text.compare(0, strlen(word), word) == 0;
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
            if (beginsWith(text.substr(at), candidate.word)) {
                found = &candidate;
                wanted = (here & (0 - here)) - 1;
                break;
            }
        }
    }
    return found;
}

namespace {

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
    for (const CodeRow& known : kCommands)
        if (word == known.word)
            return compose(*known.row, outbound);
    ZelProtocolLogError("%s deal a unknow cmd : %.*s\n", family.name, printedLength(word), word.data());
    return ZEL_ERR_UNKNOWN_MSG;
}

int analyseCommand(const Family& family, Message& message, std::string_view, void** result)
{
    if (message.isNull() || !result)
        return emptyParam(family.name);
    if (const CodeRow* const found = findPtzCommand(message.text))
        return analyse(*found->row, message, result);
    ZelProtocolLogError("%s deal a unknow cmd \n", family.name);
    return ZEL_ERR_UNKNOWN_MSG;
}

} // namespace

extern constexpr Family kPtzControlFamily("PTZ_CONTROL_MESSAGE", kCommands, composeCommand, analyseCommand);

// --- Rows ----------------------------------------------------------------------------------------

namespace {

// Of the largest extension: each group of commands that brings a larger one raises it.
constexpr size_t kExtensionRoom = sizeof(PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM);

} // namespace

int composePtz(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<PtzRecord>(outbound.record);
    for (const Part& part : row.parts) {
        if (!includes(part.kinds, outbound.kind))
            continue;
        if (part.tail == Tail::kNeeded && !record.pExData) {
            const std::string_view word = textOf(record.cmd);
            ZelProtocolLogError("PTZ_CONTROL_MESSAGE deal cmd : %.*s get the pExData is NULL\n",
                                printedLength(word), word.data());
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
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    for (const Part& part : row.parts) {
        if (!findPart(part, body))
            continue;
        if (part.tail == Tail::kNone)
            return givePart(row, part, message, body, result);
        void* const record = takeExtended(row.record, row.extension, kExtensionRoom);
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
