#include "settings.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>

namespace demo {

namespace {

bool isBoth(const SampleField& field)
{
    return field.direction == ZEL_WRITTEN_AND_READ;
}

bool has(const std::vector<SampleField>& fields, const SampleField& wanted)
{
    return std::any_of(fields.begin(), fields.end(), [&](const SampleField& field) {
        return isBoth(field) && field.attribute == wanted.attribute && field.offsets == wanted.offsets;
    });
}

bool isPlaceOf(const std::vector<SampleField>& fields, std::size_t offset)
{
    return std::any_of(fields.begin(), fields.end(),
                       [&](const SampleField& field) { return field.offsets.front() == offset; });
}

/** How much of what one message sets another one tells, in hundredths. */
int shareOf(const std::vector<SampleField>& told, const std::vector<SampleField>& set)
{
    const auto all = std::count_if(set.begin(), set.end(), isBoth);
    const auto common = std::count_if(
        set.begin(), set.end(), [&](const SampleField& field) { return isBoth(field) && has(told, field); });
    return all == 0 ? 0 : static_cast<int>(100 * common / all);
}

std::vector<CatalogueMessage> messagesOf(std::string_view type, int kind)
{
    std::vector<CatalogueMessage> all;
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        CatalogueMessage message{index, kind, {}};
        ZelProtocolCatalogueEntry(index, &message.entry);
        if (message.entry.Msg_type == type && (message.entry.kinds >> kind & 1) != 0)
            all.push_back(message);
    }
    return all;
}

int codeOf(const CatalogueMessage& message)
{
    return std::atoi(message.entry.Msg_code);
}

char* bytesOf(Block& block)
{
    return reinterpret_cast<char*>(block.data());
}

/** What the request sets comes from `wanted`; all else stays. */
void take(KeptSettings& kept, const void* wanted)
{
    for (const SampleField& field : fieldsOf(kept.pair.set))
        for (const std::size_t offset : field.offsets)
            std::memcpy(bytesOf(kept.record) + offset, static_cast<const char*>(wanted) + offset, field.size);
}

} // namespace

std::vector<SettingsPair> settingsPairs()
{
    constexpr int kLeastShare = 75;
    std::vector<SettingsPair> pairs;
    const std::vector<CatalogueMessage> setters = messagesOf(kConfigSet, ZEL_KIND_REQUEST);
    for (const CatalogueMessage& get : messagesOf(kConfigGet, ZEL_KIND_RESPONSE)) {
        const std::vector<SampleField> told = fieldsOf(get);
        const CatalogueMessage* best = nullptr;
        int share = kLeastShare - 1;
        // In the order of their codes.
        for (const CatalogueMessage& set : setters) {
            if (set.entry.record_size != get.entry.record_size || codeOf(set) < codeOf(get))
                continue;
            const int found = shareOf(told, fieldsOf(set));
            if (found > share) {
                best = &set;
                share = found;
            }
        }
        if (best)
            pairs.push_back({get, *best});
    }
    return pairs;
}

bool isChangedTo(const SettingsPair& pair, Sample& wanted, const void* before, const void* found)
{
    const std::vector<SampleField> told = fieldsOf(pair.get);
    const std::vector<SampleField> set = fieldsOf(pair.set);
    return std::all_of(told.begin(), told.end(), [&](const SampleField& field) {
        const std::size_t at = field.offsets.front();
        // A field may go by two names, of which the request has one.
        if (!isBoth(field) || (!has(set, field) && isPlaceOf(set, at)))
            return true;
        const char* const expected =
            has(set, field) ? bytesOf(wanted.record) + at : static_cast<const char*>(before) + at;
        return isSame(field, expected, static_cast<const char*>(found) + at);
    });
}

Settings factorySettings()
{
    Settings settings;
    for (const SettingsPair& pair : settingsPairs())
        settings.emplace(pair.get.entry.Msg_code, KeptSettings{pair, makeSample(pair.get, 1).record});
    return settings;
}

const Block* findSettings(const Settings& settings, std::string_view code)
{
    const auto found = settings.find(code);
    return found == settings.end() ? nullptr : &found->second.record;
}

bool changeSettings(Settings& settings, std::string_view code, const void* wanted)
{
    for (auto& [asking, kept] : settings) {
        if (kept.pair.set.entry.Msg_code != code)
            continue;
        for (const SampleField& field : fieldsOf(kept.pair.set))
            for (const std::size_t offset : field.offsets)
                if (field.form == ZEL_FORM_TEXT &&
                    !ZelProtocolTextIsWritable(static_cast<const char*>(wanted) + offset,
                                               static_cast<int>(field.size)))
                    return false;
        take(kept, wanted);
        return true;
    }
    return false;
}

} // namespace demo
