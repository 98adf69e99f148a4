#include "variants.h"

#include <algorithm>
#include <cctype>
#include <cstdio>
#include <cstdlib>
#include <random>

namespace bench {

namespace {

bool isDigit(char c)
{
    return c >= '0' && c <= '9';
}

bool isPartOfWord(char c)
{
    return isalnum(static_cast<unsigned char>(c)) || c == '_';
}

// What follows in an alarm is told by two numbers.
bool decidesLayout(const std::string& text, size_t at)
{
    for (const std::string_view name : {"AlgVer=\"", "Alarm_code=\""})
        if (at >= name.size() && text.compare(at - name.size(), name.size(), name) == 0)
            return true;
    return false;
}

std::string vary(const std::string& text, std::mt19937& random)
{
    // What stands before says which message it is; a heartbeat's values are in the header.
    const size_t begin = std::min(text.find("<MESSAGE_BODY>"), text.find("Ipcs_stat"));
    std::string out = text.substr(0, begin);
    bool inValue = false;
    for (size_t at = begin; at < text.size();) {
        inValue ^= text[at] == '"';
        size_t end = at;
        while (end < text.size() && isDigit(text[end]))
            ++end;
        if (end == at) {
            out += text[at++];
            continue;
        }
        const bool isWhole = !isPartOfWord(text[at - 1]) && !isPartOfWord(text[end]);
        if (!inValue || !isWhole || decidesLayout(text, at)) {
            out.append(text, at, end - at);
        } else if (end - at <= 3) {
            constexpr unsigned int kBelow[] = {10, 100, 250};
            out += std::to_string(random() % kBelow[random() % 3]);
        } else {
            out.append(text, at, 1 + random() % (end - at));
        }
        at = end;
    }
    return out;
}

} // namespace

std::vector<Sample> variantsOf(const Sample& sample, const std::string& payload)
{
    std::mt19937 random(static_cast<unsigned int>(payload.size()));
    const std::string text = payload.substr(0, payload.size() - sample.raw.size());
    std::vector<Sample> all;
    while (all.size() < kVariants) {
        Sample variant = sample;
        std::string other = vary(text, random) + sample.raw;
        void* result = nullptr;
        if (ZelProtocolMSGAnalysisStart(other.data(), static_cast<int>(other.size()), -1, nullptr,
                                        &variant.header, &result) != 0) {
            fprintf(stderr, "%s: a variant isn't analysed:\n%s\n", sample.name.c_str(), other.c_str());
            exit(1);
        }
        // What only the sender's record has.
        if (sample.id == MessageId::kChannels)
            static_cast<SYSTEM_CONFIG_GET_3803_PARAM*>(result)->ChannelCount =
                static_cast<const SYSTEM_CONFIG_GET_3803_PARAM*>(sample.record.get())->ChannelCount;
        variant.record = std::shared_ptr<const void>(result, free);
        all.push_back(variant);
    }
    return all;
}

} // namespace bench
