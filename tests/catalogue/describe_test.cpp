// The catalogue as applications see it, and what its descriptions say of all messages at once.
#include <gtest/gtest.h>

#include <cctype>
#include <cstddef>
#include <map>
#include <set>

#include "support/catalogue.h"
#include "support/reviewed.h"
#include "support/wire.h"

using namespace test;

namespace {

std::string bodyOf(const CatalogueEntry& entry, const RecordBytes& record, int kind)
{
    return test::bodyOf(std::string(entry.type), std::string(entry.code), record.data(), kind);
}

// --- Fields of the public headers ----------------------------------------------------------------

struct Field
{
    std::string name;
    size_t offset;
    size_t size;
    std::string row; // the type of a nested block or row; empty: it is neither
    size_t rowSize;
};

using Fields = std::vector<Field>;

template <class Member>
constexpr size_t rowSizeOf()
{
    return sizeof(std::remove_all_extents_t<Member>);
}

const std::map<std::string, Fields>& allFields()
{
    static const std::map<std::string, Fields> all = [] {
        std::map<std::string, Fields> made;
#define ROW_INT8 ""
#define ROW_UINT8 ""
#define ROW_INT16 ""
#define ROW_UINT16 ""
#define ROW_INT32 ""
#define ROW_UINT32 ""
#define ROW_INT64 ""
#define ROW_UINT64 ""
#define ROW_FLOAT ""
#define ROW_DOUBLE ""
#define ROW_TEXT ""
#define ROW_POINTER ""
#define ROW_STRUCT(NAME) #NAME
#define ZEL_FIELD(STRUCT, FIELD, TYPE, DIM1, DIM2, COMMENT)                                      \
    made[#STRUCT].push_back({#FIELD, offsetof(STRUCT, FIELD), sizeof(STRUCT::FIELD), ROW_##TYPE, \
                             rowSizeOf<decltype(STRUCT::FIELD)>()});
#define ZEL_ALIAS(NAME, ORIGINAL) made[#NAME] = made[#ORIGINAL];
#include "catalogue/records.inc"
        return made;
    }();
    return all;
}

// The name of the field at a place of a record, of a nested one with what it is nested in.
std::string fieldAt(const std::string& record, size_t offset, size_t size)
{
    const auto found = allFields().find(record);
    if (found == allFields().end())
        return "(no record)";
    for (const Field& field : found->second) {
        if (offset < field.offset || offset >= field.offset + field.size)
            continue;
        if (field.row.empty() || (offset == field.offset && size == field.size))
            return field.name;
        return field.name + "." + fieldAt(field.row, (offset - field.offset) % field.rowSize, size);
    }
    return "(no field)";
}

std::string lastOf(const std::string& text, char separator)
{
    const size_t at = text.rfind(separator);
    return at == std::string::npos ? text : text.substr(at + 1);
}

// Numbered attributes are one line of the list.
std::string withoutNumber(const std::string& name)
{
    std::string all;
    for (const char c : name)
        if (!isdigit(static_cast<unsigned char>(c)))
            all += c;
        else if (all.empty() || all.back() != '#')
            all += '#';
    return all;
}

// --- Names -------------------------------------------------------------------------------------

// Each attribute and each text of the catalogue, with the name of the record that holds it.
template <class Take>
void forEachAttribute(Take take)
{
    for (const CatalogueEntry& entry : catalogue()) {
        ZEL_CATALOGUE_ENTRY known;
        ASSERT_EQ(ZelProtocolCatalogueEntry(entry.index, &known), 0);
        for (int kind = 0; kind < 2; ++kind)
            describe(entry, kind, [&](const ZEL_DESCRIPTION& seen) {
                if (seen.attribute)
                    take(std::string(seen.in_extension ? known.extension : known.record), seen);
            });
    }
}

std::string lineOf(const std::string& owner, const ZEL_DESCRIPTION& seen)
{
    return owner + " " + seen.path + " " + withoutNumber(seen.attribute);
}

// Each attribute stands at the field of its name, or, where a name occurs twice, of its element and its name.
// What doesn't is the protocol's own oddity, and on the list.
TEST(Descriptions, AttributesStandAtTheFieldOfTheirName)
{
    std::set<std::string> odd;
    forEachAttribute([&](const std::string& owner, const ZEL_DESCRIPTION& seen) {
        const std::string element = lastOf(seen.path, '/');
        // A text is called as its element is.
        const std::string name = *seen.attribute ? seen.attribute : element;
        const std::string field = fieldAt(owner, seen.offset, seen.size);
        const std::string last = lastOf(field, '.');
        if (last != name && last != element + "_" + name)
            odd.insert(owner + " " + seen.path + " " + withoutNumber(name) + " -> " + field);
    });
    expectLines("odd_names.txt", odd);
}

// Everything that isn't a plain number or text.
TEST(Descriptions, FormsOfTheirOwn)
{
    static constexpr std::string_view kNames[] = {
        "",        "signed",      "hex",        "atoi",        "float",
        "",        "whole text",  "clock",      "plain clock", "week clock",
        "numbers", "brackets",    "resolution", "periods",     "coordinates",
        "list",    "joined list", "text list",  "own"};
    std::set<std::string> odd;
    forEachAttribute([&](const std::string& owner, const ZEL_DESCRIPTION& seen) {
        const std::string_view form = kNames[seen.form];
        if (!form.empty())
            odd.insert(lineOf(owner, seen) + ": " + std::string(form));
    });
    expectLines("odd_forms.txt", odd);
}

// What isn't written at its absent value, in rows too.
TEST(Descriptions, SkippedAtTheirAbsentValue)
{
    std::set<std::string> skipped;
    forEachAttribute([&](const std::string& owner, const ZEL_DESCRIPTION& seen) {
        if (seen.is_skipped)
            skipped.insert(lineOf(owner, seen));
    });
    expectLines("skipped.txt", skipped);
}

// The names in a body, in order, once each.
std::vector<std::string> namesIn(const std::string& text)
{
    std::vector<std::string> names;
    for (size_t at = text.find("=\""); at != std::string::npos; at = text.find("=\"", at + 1)) {
        const size_t begin = text.find_last_of(" \n\"", at - (text[at - 1] == ' ' ? 2 : 1)) + 1;
        const std::string name = text.substr(begin, at - begin);
        if (std::find(names.begin(), names.end(), name) == names.end())
            names.push_back(name);
    }
    return names;
}

// The attributes that a fresh record loses against a full one. An attribute that must always be written can't
// become one that is skipped, nor the other way round, without a line of this list.
TEST(Descriptions, WhatAFreshRecordLoses)
{
    std::set<std::string> lost;
    for (const CatalogueEntry& entry : catalogue()) {
        for (const int kind : entry.kinds) {
            RecordBytes fresh = freshRecord(entry);
            if (!entry.word.empty())
                completeRecord(entry, fresh.data());
            const std::string full = bodyOf(entry, fullRecord(entry), kind);
            const std::string bare = bodyOf(entry, fresh, kind);
            const std::vector<std::string> kept = namesIn(bare);
            std::string line;
            for (const std::string& name : namesIn(full))
                if (std::find(kept.begin(), kept.end(), name) == kept.end())
                    line += " " + name;
            if (!line.empty())
                lost.insert(entry.name() + (kind == 0 ? " request:" : " response:") + line);
        }
    }
    expectLines("fresh_losses.txt", lost);
}

// A description agrees with what is written: each attribute of a full record's text is described, and
// is_skipped with what a fresh one leaves out.
TEST(Descriptions, AgreeWithTheText)
{
    for (const CatalogueEntry& entry : catalogue()) {
        for (const int kind : entry.kinds) {
            std::set<std::string> written;
            describe(entry, kind, [&](const ZEL_DESCRIPTION& seen) {
                if (seen.attribute && *seen.attribute && seen.direction != ZEL_ONLY_READ)
                    written.insert(seen.attribute);
            });
            for (const std::string& name : namesIn(bodyOf(entry, fullRecord(entry), kind)))
                EXPECT_TRUE(written.count(name) || written.count(name.substr(0, name.find(' '))) ||
                            isdigit(static_cast<unsigned char>(name.back())))
                    << entry.name() << kind << " " << name;
        }
    }
}

// --- The catalogue's own functions ---------------------------------------------------------------

TEST(CatalogueFunctions, EveryEntryIsFoundAgain)
{
    const int count = ZelProtocolCatalogueCount();
    ASSERT_GT(count, 100);
    for (int i = 0; i < count; ++i) {
        ZEL_CATALOGUE_ENTRY entry;
        ASSERT_EQ(ZelProtocolCatalogueEntry(i, &entry), 0);
        EXPECT_EQ(ZelProtocolCatalogueFind(entry.Msg_type, entry.Msg_code, entry.word, entry.alarm_code), i)
            << entry.Msg_type << " " << entry.Msg_code;
        EXPECT_EQ(entry.record == nullptr, entry.record_size == 0);
        EXPECT_EQ(entry.record == nullptr, entry.init == nullptr) << entry.Msg_code;
        EXPECT_EQ(entry.record == nullptr, entry.operation == nullptr);
        EXPECT_EQ(entry.extension == nullptr, entry.extension_size == 0) << entry.Msg_code;
    }
}

TEST(CatalogueFunctions, OneEntryInFull)
{
    ZEL_CATALOGUE_ENTRY entry;
    ASSERT_EQ(ZelProtocolCatalogueEntry(
                  ZelProtocolCatalogueFind("PTZ_CONTROL_MESSAGE", "PTZ_CMD", "left_up", -1), &entry),
              0);
    EXPECT_STREQ(entry.operation, "PtzControlptzControl_MessageAnalysis");
    EXPECT_STREQ(entry.record, "PTZ_CONTROL_PTZ_CMD_PARAM");
    EXPECT_STREQ(entry.extension, "PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM");
    EXPECT_EQ(entry.extension_size, sizeof(PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM));
    EXPECT_EQ(entry.pointer_at, offsetof(PTZ_CONTROL_PTZ_CMD_PARAM, pExData));
    EXPECT_EQ(entry.kinds, 0xFU);

    ASSERT_EQ(ZelProtocolCatalogueEntry(
                  ZelProtocolCatalogueFind("ALARM_REPORT_MESSAGE", "CMD_REPORT_ALARM", nullptr, 39), &entry),
              0);
    EXPECT_STREQ(entry.extension, "ALARM_REPORT_HUMANFACE_INFO");
    EXPECT_EQ(entry.behind, ZEL_BEHIND_FEATURE_BLOCK);
    EXPECT_EQ(entry.kinds, 0x5U);

    // A code in any form, and under the other type of its family.
    const int media = ZelProtocolCatalogueFind("SYSTEM_CONFIG_SET_MESSAGE", " 0500x", nullptr, -1);
    ASSERT_EQ(ZelProtocolCatalogueEntry(media, &entry), 0);
    EXPECT_STREQ(entry.Msg_type, "SYSTEM_CONFIG_GET_MESSAGE");
    EXPECT_STREQ(entry.Msg_code, "500");
    EXPECT_STREQ(entry.record, "SYSTEM_CONFIG_GET_500_PARAM");
    EXPECT_EQ(entry.kinds, 0xAU);
}

TEST(CatalogueFunctions, BadArguments)
{
    ZEL_CATALOGUE_ENTRY entry;
    const auto ignore = [](void*, const ZEL_DESCRIPTION*) {};
    const int count = ZelProtocolCatalogueCount();
    for (const int index : {-1, count}) {
        EXPECT_EQ(ZelProtocolCatalogueEntry(index, &entry), ZEL_ERR_BAD_PARAM);
        EXPECT_EQ(ZelProtocolCatalogueDescribe(index, 0, ignore, nullptr), ZEL_ERR_BAD_PARAM);
    }
    EXPECT_EQ(ZelProtocolCatalogueEntry(0, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolCatalogueDescribe(0, 4, ignore, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolCatalogueDescribe(0, -1, ignore, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolCatalogueDescribe(0, 0, nullptr, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolCatalogueFind(nullptr, "1", nullptr, -1), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolCatalogueFind("NVR_REPLAY_MESSAGE", nullptr, nullptr, -1), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolCatalogueFind("NVR_REPLAY_MESSAGE", "3000", nullptr, -1), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_EQ(ZelProtocolCatalogueFind("NVR_REPLAY_MESSAG", "3001", nullptr, -1), ZEL_ERR_UNKNOWN_MSG);

    resetServices();
    services().failAfter = 0;
    EXPECT_EQ(ZelProtocolCatalogueDescribe(0, 0, ignore, nullptr), ZEL_ERR_NO_MEMORY);
    resetServices();
}

// Paths, forms, places and rows of one message, as a list.
TEST(CatalogueFunctions, DescriptionOfAccounts)
{
    std::vector<std::string> lines;
    for (const CatalogueEntry& entry : catalogue())
        if (entry.code == "3" && entry.type == "SYSTEM_SEARCHIPC_MESSAGE")
            describe(entry, 0, [&](const ZEL_DESCRIPTION& seen) {
                if (strncmp(seen.path, "UserConfig", 10) == 0 ||
                    (seen.attribute && !strcmp(seen.attribute, "DEV")))
                    lines.push_back(std::string(seen.path) + "|" +
                                    (seen.attribute ? seen.attribute : "(element)") + "|" +
                                    std::to_string(seen.direction) + "|" + std::to_string(seen.form) + "|" +
                                    std::to_string(seen.is_skipped) + "|" + std::to_string(seen.rows));
            });
    EXPECT_EQ(lines, (std::vector<std::string>{
                         "LANConfig|DEV|1|5|1|0", "UserConfig|(element)|0|0|0|0",
                         "UserConfig/Account|(element)|0|0|0|40", "UserConfig/Account|Group|0|5|0|0",
                         "UserConfig/Account|Status|0|5|0|0", "UserConfig/Account|Username|0|5|0|0",
                         "UserConfig/Account|Password|0|5|0|0"}));
}

} // namespace
