#include "core/scan.h"
#include "ptz/ptz_command.h"

namespace zel {

namespace {

using Preset = PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM;
using NamedPreset = PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM;
using PresetList = PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM;
using WatchGuard = PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM;

void preset(Side& side, Preset& preset)
{
    textElement(side, "preset", preset.preset);
    textElement(side, "flag", preset.flag);
}

void namedPreset(Side& side, NamedPreset& preset)
{
    textElement(side, "preset_id", preset.preset_id);
    textElement(side, "name", preset.name);
}

void watchGuard(Side& side, WatchGuard& watch)
{
    textElement(side, "guard", watch.guard);
}

// --- Lists: each item with a sign behind it ------------------------------------------------------

constexpr size_t kPresets = std::extent_v<decltype(PresetList::stPreset)>;

template <size_t N>
void appendItem(TextWriter& out, const char (&item)[N])
{
    appendText(out, item);
    out.append("^");
}

// Takes the next item; there is none without a sign behind it.
bool takeItem(std::string_view& text, std::string_view& item)
{
    const size_t length = text.find('^');
    if (length == std::string_view::npos)
        return false;
    item = partOf(text, 0, length);
    text.remove_prefix(length + 1);
    return true;
}

const PresetList& listOf(const void* record)
{
    return *static_cast<const PresetList*>(record);
}

void writeIds(TextWriter& out, const void* record)
{
    const PresetList& list = listOf(record);
    const auto most = static_cast<int32_t>(kPresets);
    appendNumber(out, list.iPresetCount < most ? list.iPresetCount : most);
    out.append("^");
    for (size_t i = 0; i < clampCount(list.iPresetCount, kPresets); ++i)
        appendItem(out, list.stPreset[i].preset_id);
}

void readId(std::string_view item, NamedPreset& preset)
{
    *printNumber(preset.preset_id, numberOf(item)) = '\0';
}

// In a list without names the number serves as one too.
void readIdAsName(std::string_view item, NamedPreset& preset)
{
    readId(item, preset);
    memcpy(preset.name, preset.preset_id, sizeof preset.name);
}

void readName(std::string_view item, NamedPreset& preset)
{
    item.copy(preset.name, sizeof preset.name - 1);
}

void readItems(std::string_view text, PresetList& list,
               void (*read)(std::string_view item, NamedPreset& preset))
{
    std::string_view item;
    for (size_t i = 0; i < kPresets && takeItem(text, item); ++i)
        read(item, list.stPreset[i]);
}

// The count stands in front.
template <void (*read)(std::string_view item, NamedPreset& preset)>
void readIds(std::string_view text, void* record)
{
    auto& list = *static_cast<PresetList*>(record);
    std::string_view count;
    if (!takeItem(text, count))
        return;
    list.iPresetCount = numberOf(count);
    readItems(text, list, read);
}

void writeNames(TextWriter& out, const void* record)
{
    const PresetList& list = listOf(record);
    for (size_t i = 0; i < clampCount(list.iPresetCount, kPresets); ++i)
        appendItem(out, list.stPreset[i].name);
}

void readNames(std::string_view text, void* record)
{
    readItems(text, *static_cast<PresetList*>(record), readName);
}

constexpr TextForm kIds = {writeIds, readIds<readId>};
constexpr TextForm kIdsAsNames = {writeIds, readIds<readIdAsName>};
constexpr TextForm kNames = {writeNames, readNames};

void namedPresetList(Side& side, PresetList& list)
{
    textElement(side, "preset_id", kIds, &list, list.stPreset, sizeof list.stPreset);
    textElement(side, "name", kNames, &list, list.stPreset, sizeof list.stPreset);
    textElement(side, "guard", list.guard);
}

// --- The list that is a bare text ----------------------------------------------------------------

void presetList(Side& side, PtzRecord& record)
{
    auto& list = extensionOf<PresetList>(record);
    if (side.takes(isSet(list.iPresetCount)))
        ownText(side, kIdsAsNames, &list, list.stPreset, sizeof list.stPreset);
    if (side.writes() && side.takes(!isSet(list.iPresetCount)))
        ownText(side, list.acPresetList, sizeof list.acPresetList);
    ptzSetWord(side, record, "GetPresetList");
}

int composePresetList(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<PtzRecord>(outbound.record);
    if (record.pExData && !isRequest(outbound.kind)) {
        const auto& list = extensionOf<PresetList>(record);
        if (!isAnySet(list.iPresetCount, list.acPresetList)) {
            reportNoExtension(record);
            return 0;
        }
    }
    return composePtz(row, outbound);
}

// Without the sign that ends an item a text is no list, wherever the sign stands.
int analysePresetList(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    if (!body.child("xml") && message.text.find('^') == std::string_view::npos)
        return missingElement(row.leaf, row.missing);
    return givePtz(row, message, body, result);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kPreset =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM_init, ptzChannelCommand<preset>>(
        " PtzControlpresetCmd_MessageAnalysis");
extern constexpr MessageRow kPresetList =
    extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM_init>(
        " PtzControlGetPresetList_MessageAnalysis", over<ptzPlainCommand>("xml", Kinds::kRequests),
        body<presetList>(Kinds::kNotRequests).needingTail())
        .composedBy(composePresetList)
        .analysedBy(analysePresetList);
extern constexpr MessageRow kNamedPresetList =
    extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_GETPRESETLISTEX_PARAM_init>(
        " PtzControlGetPresetListEx_MessageAnalysis",
        over<ptzQuestion<namedPresetList>>("xml", Kinds::kRequests).withTail(),
        written<ptzCommand<namedPresetList>>(Kinds::kNotRequests).needingTail());
extern constexpr MessageRow kNamedPreset =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM_init, ptzCommand<namedPreset>>(
        " PtzControlSetPresetListEx_MessageAnalysis");
extern constexpr MessageRow kWatchGuard =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM_init, ptzChannelCommand<watchGuard>>(
        " PtzControlWatchGuard_MessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM* param)
{
    return zel::initRecord(param);
}

int PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM* param)
{
    return zel::initRecord(param, [](auto& list) { zel::clear(list.stPreset, list.acPresetList); });
}

int PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM* param)
{
    return zel::startAtZero(param);
}

int PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_CLEARPRESET_PARAM, PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_CALLPRESET_PARAM, PTZ_CONTROL_PTZ_CMD_SETPRESET_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_GETPRESETLISTEX_PARAM, PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_GETWATCHGUARD_PARAM, PTZ_CONTROL_PTZ_CMD_SETWATCHGUARD_PARAM)

ZEL_EXPORT_ANALYSIS(PtzControlpresetCmd, kPreset)
ZEL_EXPORT_ANALYSIS(PtzControlGetPresetList, kPresetList)
ZEL_EXPORT_ANALYSIS(PtzControlGetPresetListEx, kNamedPresetList)
ZEL_EXPORT_ANALYSIS(PtzControlSetPresetListEx, kNamedPreset)
ZEL_EXPORT_ANALYSIS(PtzControlWatchGuard, kWatchGuard)
