// What holds for every exported init and every exported analysis of a text alike.
#include <gtest/gtest.h>

#include <cstddef>
#include <map>
#include <set>

#include "support/catalogue.h"
#include "support/exported.h"
#include "support/wire.h"

using namespace test;

namespace {

// --- Inits ---------------------------------------------------------------------------------------

struct Range
{
    size_t begin;
    size_t end;
};

// What an init leaves as it was, as docs/security.md lists it.
const std::map<std::string, Range>& leftByInits()
{
    using Device = SYSTEM_CONFIG_GET_3801_PARAM;
    static const std::map<std::string, Range> all = {
        {"TRANSPARENT_HEADER",
         {offsetof(TRANSPARENT_HEADER, acTransData), offsetof(TRANSPARENT_HEADER, iTransDataLen)}},
        {"SYSTEM_CONFIG_GET_3801_PARAM", {offsetof(Device, DevSubType), offsetof(Device, Protocol)}}};
    return all;
}

TEST(Exported, InitsSetEveryByteButTheListedOnes)
{
    for (const ExportedInit& entry : kInits) {
        std::vector<char> one(entry.size, '\x11');
        std::vector<char> other(entry.size, '\xEE');
        EXPECT_EQ(entry.init(one.data()), 0) << entry.name;
        EXPECT_EQ(entry.init(other.data()), 0) << entry.name;
        EXPECT_EQ(entry.init(nullptr), -1) << entry.name;
        if (initLeavesFields(entry.name)) {
            EXPECT_NE(one, other) << entry.name;
            continue;
        }
        const auto left = leftByInits().find(entry.name);
        for (size_t at = 0; at < entry.size; ++at) {
            const bool isLeft =
                left != leftByInits().end() && at >= left->second.begin && at < left->second.end;
            ASSERT_EQ(one[at] != other[at], isLeft) << entry.name << ' ' << at;
        }
    }
}

// --- Analyses ------------------------------------------------------------------------------------

// Texts that some leaf reads and the others refuse, whole, cut short, and without what they require.
std::vector<std::string> texts()
{
    std::vector<std::string> all = {"",
                                    "<",
                                    "<XML_ZELMAR/>",
                                    envelope("", "", ""),
                                    envelope("", "", "<REQUEST_PARAM/>"),
                                    envelope("", "", "<RESPONSE_PARAM/>")};
    for (const CatalogueEntry& entry : catalogue())
        for (const int kind : {0, 1}) {
            const Composed composed =
                test::compose(catalogueHeader(entry), fullRecord(entry).data(), kind, 1 << 18);
            const std::string& text = entry.isBare() ? composed.bytes : composed.text;
            all.push_back(text);
            const size_t last = text.find_last_of('<', text.find("</MESSAGE_BODY>") - 1);
            all.push_back(text.substr(0, last) + "</MESSAGE_BODY></XML_ZELMAR>");
            all.push_back(text.substr(0, text.size() - 20));
        }
    return all;
}

// Calls it with all the memory that it wants and with none; returns whether it gave a record.
template <class Call>
bool expectSlotKept(const std::string& name, Call call)
{
    bool isRead = false;
    for (const int blocks : {-1, 0}) {
        int slot = 0;
        void* result = &slot;
        resetServices();
        services().failAfter = blocks;
        const int status = call(&result);
        if (status != 0) {
            EXPECT_LT(status, 0) << name;
            EXPECT_EQ(result, &slot) << name << status;
        } else if (result != &slot) {
            EXPECT_NE(result, nullptr) << name;
            EXPECT_EQ(blocks, -1) << name;
            isRead = true;
            ZelProtocolMSGAnalysisStop(&result);
        }
    }
    resetServices();
    return isRead;
}

TEST(Exported, AFailedAnalysisKeepsItsSlot)
{
    const std::vector<std::string> all = texts();
    for (const ExportedLeaf& leaf : kLeaves) {
        int read = 0;
        for (const std::string& text : all)
            read +=
                expectSlotKept(leaf.name, [&](void** result) { return leaf.analyse(text.c_str(), result); });
        EXPECT_GT(read, 0) << leaf.name;
        EXPECT_LT(read, static_cast<int>(all.size())) << leaf.name;
    }
}

// The same of those that are told a code.
TEST(Exported, AFailedFamilyKeepsItsSlot)
{
    std::set<std::string> codes = {"", "1", "nonsense"};
    for (const CatalogueEntry& entry : catalogue())
        codes.emplace(entry.code);
    const std::vector<std::string> all = texts();
    for (const std::string& code : codes)
        for (const auto family :
             {LiveStreamMessageAnalysis, NvrReplayMessageAnalysis, SystemSearchipcMessageAnalysis,
              SystemConfigMessageAnalysis, SystemControlMessageAnalysis})
            for (const std::string& text : all)
                expectSlotKept(code,
                               [&](void** result) { return family(text.c_str(), code.c_str(), result); });
    for (const std::string& code : codes)
        for (const std::string& text : all)
            expectSlotKept(code, [&](void** result) {
                return MediaDataMessageAnalysis(text.c_str(), code.c_str(), static_cast<int>(text.size()),
                                                result);
            });
}

} // namespace
