// What holds for every message alike, as loops over the catalogue.
#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <set>
#include <sstream>

#include "support/catalogue.h"
#include "support/reviewed.h"
#include "support/wire.h"

using namespace test;

namespace {

// Long texts are cut and buffers sized at this many places, spread evenly.
constexpr size_t kMostSteps = 400;

struct Sample
{
    const CatalogueEntry& entry;
    int kind;
    std::string text;
    std::string raw; // end code and data that the message announces
};

Sample sampleOf(const CatalogueEntry& entry, const void* record, int kind)
{
    const Composed composed = test::compose(catalogueHeader(entry), record, kind, 1 << 18);
    EXPECT_GT(composed.result, 0) << entry.name();
    if (entry.isBare())
        return {entry, kind, composed.bytes, ""};
    const size_t announced = composed.announced - composed.text.size();
    return {entry, kind, composed.text,
            announced > 4 ? std::string(4, '\0') + std::string(announced - 4, 'r') : ""};
}

// Each message with everything in it, in each of its directions.
const std::vector<Sample>& samples()
{
    static const std::vector<Sample> all = [] {
        std::vector<Sample> made;
        for (const CatalogueEntry& entry : catalogue())
            for (const int kind : {0, 1})
                made.push_back(sampleOf(entry, fullRecord(entry).data(), kind));
        return made;
    }();
    return all;
}

bool hasBody(const Sample& sample)
{
    return std::count(sample.entry.kinds.begin(), sample.entry.kinds.end(), sample.kind) != 0;
}

// The words of a scan are composed, but not among those that an analysis looks for; nor are the rows of one
// answer.
bool isAnalysed(const Sample& sample)
{
    return hasBody(sample) && sample.entry.word.rfind("Scan", 0) != 0 &&
           (sample.entry.code != "3810" || sample.kind == 0);
}

// A debug text is whatever stands between the tags.
bool isParsed(const Sample& sample)
{
    return sample.entry.record != "DBG_CMD_PARAM";
}

size_t stepOf(size_t length)
{
    return length / kMostSteps + 1;
}

// The record's bytes and those of its extension, without the pointer between them.
std::string contentOf(const CatalogueEntry& entry, const Analysed& analysed)
{
    const auto* bytes = static_cast<const char*>(analysed.record.get());
    if (!bytes)
        return "";
    std::string content(bytes, entry.size);
    if (entry.pointerAt != 0) {
        const void* pointer = nullptr;
        memcpy(&pointer, bytes + entry.pointerAt, sizeof pointer);
        content.replace(entry.pointerAt, sizeof pointer, sizeof pointer, pointer ? '1' : '0');
    }
    return content;
}

// Reads a text that says the same as the sample's, and must read the same.
void expectSame(const Sample& sample, std::string text)
{
    text.resize(text.rfind('>') + 1);
    text += sample.raw;
    const Analysed original = analyse(sample.text + sample.raw);
    const Analysed changed = analyse(text);
    EXPECT_EQ(changed.result, original.result) << sample.entry.name() << sample.kind << text;
    EXPECT_EQ(contentOf(sample.entry, changed), contentOf(sample.entry, original))
        << sample.entry.name() << text;
}

std::vector<std::string> linesOf(const std::string& text)
{
    std::vector<std::string> lines;
    std::istringstream in(text);
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    return lines;
}

bool isAttribute(const std::string& line)
{
    return !line.empty() && line.front() != '<' && line.back() == '"' &&
           line.find("=\"") != std::string::npos;
}

std::string joined(const std::vector<std::string>& lines)
{
    std::string text;
    for (const std::string& line : lines)
        text += line + "\n";
    return text;
}

TEST(Catalogue, BodiesByKind)
{
    for (const Sample& sample : samples()) {
        const bool empty = sample.text.find("<MESSAGE_BODY>\n</MESSAGE_BODY>") != std::string::npos;
        EXPECT_EQ(empty, !hasBody(sample)) << sample.entry.name() << sample.kind << sample.text;
        // Only the recorder's channel messages tell 0 from 2.
        const std::string_view code = sample.entry.code;
        const bool zeroAlone = (code == "3801" || code == "3803" || code == "3804") && sample.kind == 0;
        EXPECT_EQ(sampleOf(sample.entry, fullRecord(sample.entry).data(), sample.kind + 2).text ==
                      sample.text,
                  !zeroAlone)
            << sample.entry.name();
    }
}

// A fresh record composes in every direction, and what comes out can be analysed or is refused.
TEST(Catalogue, FreshRecords)
{
    for (const CatalogueEntry& entry : catalogue()) {
        if (!entry.word.empty() || entry.type == "NVR_INTERNAL_MESSAGES")
            continue; // needs a command word, the streams' numbers, a source
        for (const int kind : {0, 1}) {
            const Analysed analysed = analyse(sampleOf(entry, freshRecord(entry).data(), kind).text);
            EXPECT_TRUE(analysed.result == 0 || analysed.result == ZEL_ERR_NO_ELEMENT ||
                        analysed.result == ZEL_ERR_BAD_CONTENT)
                << entry.name();
            EXPECT_EQ(analysed.record != nullptr, analysed.result == 0) << entry.name();
        }
    }
}

// An analysis of a full message takes one block and reads it into a record; or it has no body to be read.
TEST(Catalogue, FullRecords)
{
    for (const Sample& sample : samples()) {
        resetServices();
        const Analysed analysed = analyse(sample.text + sample.raw);
        if (isAnalysed(sample)) {
            EXPECT_EQ(analysed.result, 0) << sample.entry.name() << sample.kind << sample.text;
        }
        EXPECT_EQ(services().blocks, analysed.result == 0 ? 1 : 0) << sample.entry.name();
        EXPECT_EQ(services().errors.empty(), analysed.result == 0) << sample.entry.name();
    }
}

// Cut anywhere and closed again, a text is refused or read, within its bytes.
TEST(Catalogue, EveryCut)
{
    const std::set<int> expected = {0,
                                    ZEL_ERR_NO_HEADER,
                                    ZEL_ERR_BAD_DOCUMENT,
                                    ZEL_ERR_NO_ELEMENT,
                                    ZEL_ERR_BAD_CONTENT,
                                    ZEL_ERR_UNKNOWN_MSG};
    for (const Sample& sample : samples()) {
        for (size_t length = 1; length < sample.text.size(); length += stepOf(sample.text.size())) {
            const std::string cut = sample.text.substr(0, length);
            EXPECT_EQ(analyse(cut).result, ZEL_ERR_NO_ENVELOPE);
            const Analysed closed = analyse(cut + "</MESSAGE_BODY></XML_ZELMAR>" + sample.raw);
            EXPECT_EQ(expected.count(closed.result), 1U) << sample.entry.name() << closed.result;
            EXPECT_EQ(closed.record != nullptr, closed.result == 0);
        }
    }
}

TEST(Catalogue, EveryOutputLength)
{
    for (const Sample& sample : samples()) {
        const RecordBytes record = fullRecord(sample.entry);
        const ZEL_PROTOCOL_HEADER header = catalogueHeader(sample.entry);
        const size_t n = sample.text.size();
        const auto check = [&](size_t outLen) {
            const Composed composed =
                test::compose(header, record.data(), sample.kind, static_cast<int>(outLen));
            if (sample.entry.isBare()) {
                EXPECT_EQ(composed.result, n < std::max<size_t>(outLen, 8192)
                                               ? static_cast<int>(n)
                                               : static_cast<int>(ZEL_ERR_BUFFER_SMALL))
                    << sample.entry.name();
                EXPECT_EQ(composed.bytes, sample.text.substr(0, composed.bytes.size()));
            } else {
                EXPECT_EQ(composed.result,
                          outLen > n + 8 ? static_cast<int>(n) + 8 : static_cast<int>(ZEL_ERR_BUFFER_SMALL))
                    << sample.entry.name() << outLen;
            }
        };
        for (size_t outLen = 1; outLen < n; outLen += stepOf(n))
            check(outLen);
        for (size_t outLen = n; outLen < n + 12; ++outLen)
            check(outLen);
    }
}

// --- Texts that say the same ---------------------------------------------------------------------

TEST(Catalogue, ShuffledAttributes)
{
    std::mt19937 random(1);
    for (const Sample& sample : samples()) {
        std::vector<std::string> lines = linesOf(sample.text);
        for (auto begin = lines.begin(); begin != lines.end();) {
            begin = std::find_if(begin, lines.end(), isAttribute);
            const auto end = std::find_if_not(begin, lines.end(), isAttribute);
            std::shuffle(begin, end, random);
            begin = end;
        }
        expectSame(sample, joined(lines));
    }
}

TEST(Catalogue, UnknownAttributesAndElements)
{
    for (const Sample& sample : samples()) {
        if (!isParsed(sample))
            continue;
        std::vector<std::string> attributes;
        std::vector<std::string> elements;
        int number = 0;
        for (const std::string& line : linesOf(sample.text)) {
            if (isAttribute(line))
                attributes.push_back("Vendor" + std::to_string(++number) + "=\"9\"");
            attributes.push_back(line);
            elements.push_back(line);
            if (line == "/>" || line == "<MESSAGE_BODY>")
                elements.push_back("<Vendor a=\"9\"><b c=\"9\"/></Vendor>");
        }
        expectSame(sample, joined(attributes));
        expectSame(sample, joined(elements));
    }
}

// An attribute that stands twice is malformed: either value may be read, nothing else may happen.
TEST(Catalogue, RepeatedAttributes)
{
    for (const Sample& sample : samples()) {
        std::vector<std::string> lines;
        for (const std::string& line : linesOf(sample.text)) {
            lines.push_back(line);
            if (isAttribute(line))
                lines.push_back(line);
        }
        expectSame(sample, joined(lines));
    }
}

// --- There and back ------------------------------------------------------------------------------

// The text with all values and the texts of all elements emptied.
std::string shapeOf(const std::string& text)
{
    std::string shape;
    bool inTag = false;
    bool inValue = false;
    for (const char c : text) {
        inTag |= c == '<';
        if ((inTag && !inValue) || c == '"' || c == '\n')
            shape += c;
        inValue ^= inTag && c == '"';
        inTag &= c != '>';
    }
    return shape;
}

// What was read composes to the same message again, but for those whose directions differ.
TEST(Catalogue, ComposeAnalyseCompose)
{
    std::set<std::string> differing;
    for (const Sample& sample : samples()) {
        if (!isAnalysed(sample))
            continue;
        const Analysed analysed = analyse(sample.text + sample.raw);
        const Sample again = sampleOf(sample.entry, analysed.record.get(), sample.kind);
        const Analysed second = analyse(again.text + again.raw);
        if (shapeOf(again.text) != shapeOf(sample.text))
            differing.insert(sample.entry.name() + (sample.kind == 0 ? " request" : " response"));
        else
            EXPECT_EQ(sampleOf(sample.entry, second.record.get(), sample.kind).text, again.text);
    }
    expectLines("directions_differ.txt", differing);
}

// --- Failing memory ------------------------------------------------------------------------------

TEST(Catalogue, EveryAllocationFails)
{
    for (const Sample& sample : samples()) {
        resetServices();
        const std::string bytes = sample.text + sample.raw;
        const int good = analyse(bytes).result;
        resetServices();
        services().failAfter = 0;
        EXPECT_EQ(analyse(bytes).result, good == 0 ? static_cast<int>(ZEL_ERR_NO_MEMORY) : good)
            << sample.entry.name();
        resetServices();
        services().readerFailAfter = 0;
        const Analysed analysed = analyse(bytes);
        EXPECT_EQ(analysed.result, ZEL_ERR_NO_HEADER) << sample.entry.name();
        EXPECT_EQ(analysed.record, nullptr);
        // The reader makes do with one block, and gives it back.
        services().readerFailAfter = 1;
        EXPECT_EQ(analyse(bytes).result, good) << sample.entry.name();
        EXPECT_EQ(services().readerBlocks, 0);
    }
    resetServices();
}

} // namespace
