#include "ptz/ptz_wire.h"

using namespace test;

namespace {

using List = PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM;
using Named = PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM;

TEST(PtzPreset, SetClearAndCall)
{
    for (const std::string& word : split("setpreset clearpreset callpreset")) {
        auto preset = fresh(PTZ_CONTROL_PTZ_CMD_CALLPRESET_PARAM_init);
        expectPtzRead(xmlOf(word), -1, word, preset);
        preset = {11, 12};
        const std::string text = kChannel3 + xmlOf(word, "<preset>11</preset>|<flag>12</flag>|");
        expectPtz(recordOf(word, 3, &preset), text, "");
        expectPtzRead(text, 3, word, preset);
    }
}

// A list with these identifiers, each its own name.
List listOf(int32_t count, const std::vector<std::string>& ids)
{
    auto list = fresh(PTZ_CONTROL_PTZ_CMD_GETPRESETLIST_PARAM_init);
    list.iPresetCount = count;
    for (size_t i = 0; i < ids.size(); ++i) {
        set(list.stPreset[i].preset_id, ids[i]);
        set(list.stPreset[i].name, ids[i]);
    }
    return list;
}

std::string repeated(const std::string& item, size_t count)
{
    std::string text;
    for (size_t i = 0; i < count; ++i)
        text += item;
    return text;
}

TEST(PtzPreset, PlainListIsBareText)
{
    List list = listOf(-1, {"1", "2", "5", "6"});
    resetServices();
    EXPECT_EQ(body(recordOf("GetPresetList", 3, &list), 1), "");
    EXPECT_TRUE(loggedOnly("PTZ_CONTROL_MESSAGE deal cmd : GetPresetList get the pExData is NULL\n"));
    set(list.acPresetList, "ready");
    const std::string request = xmlOf("GetPresetList");
    expectPtz(recordOf("GetPresetList", 3, &list), kChannel3 + request, "ready");
    list.iPresetCount = 3;
    expectPtz(recordOf("GetPresetList", -1, &list), request, "3^1^2^5^");
    list.iPresetCount = 0;
    EXPECT_EQ(body(recordOf("GetPresetList", 3, &list), 3), "0^");
    list = listOf(256, std::vector<std::string>(256, "17"));
    const std::string most = "256^" + repeated("17^", 256);
    EXPECT_EQ(body(recordOf("GetPresetList", 3, &list), 1), most);
    list.iPresetCount = 300;
    EXPECT_EQ(body(recordOf("GetPresetList", 3, &list), 1), most);
}

TEST(PtzPreset, PlainListIsReadWithoutItsWord)
{
    expectPtzRead(kChannel3 + xmlOf("GetPresetList") + "3^1^", 3, "GetPresetList");
    const std::pair<const char*, List> cases[] = {
        {"3^1^2^5^", listOf(3, {"1", "2", "5"})},
        {"3^1^2^5", listOf(3, {"1", "2"})},
        {"0^", listOf(0, {})},
        {"x^^007^x^ -4^", listOf(0, {"0", "7", "0", "-4"})},
        {"<Other>2^1^</Other>", listOf(-1, {})},
    };
    for (const auto& [text, list] : cases)
        expectPtzRead(text, -1, "GetPresetList", list);
    expectPtzRead("300^" + repeated("17^", 257), -1, "GetPresetList",
                  listOf(300, std::vector<std::string>(256, "17")));
    // The sign that makes it a list may stand anywhere.
    const Analysed elsewhere = analyse(envelope(kPtz, "PTZ_CMD", "12", "Msg_chn=\"^\"\n"));
    ASSERT_EQ(elsewhere.result, 0);
    EXPECT_TRUE(isSame(*static_cast<List*>(elsewhere.as<PtzRecord>().pExData), listOf(-1, {})));
    EXPECT_EQ(received("<cmd>GetPresetList</cmd>").result, ZEL_ERR_NO_ELEMENT);
}

TEST(PtzPreset, ListWithNames)
{
    const std::string word = "GetPresetListEx";
    auto list = fresh(PTZ_CONTROL_PTZ_CMD_GETPRESETLISTEX_PARAM_init);
    expectPtzRead(kChannel3 + xmlOf(word), 3, word, list);
    set(list.acPresetList, "ready");
    expectPtz(recordOf(word, 3, &list), kChannel3 + xmlOf(word),
              xmlOf(word, "<preset_id>-1^</preset_id>|<name></name>|<guard>-1</guard>|"));
    list = listOf(2, {"007", "x", "lost"});
    set(list.stPreset[1].name, "");
    list.guard = 13;
    const std::string response =
        xmlOf(word, "<preset_id>2^007^x^</preset_id>|<name>007^^</name>|<guard>13</guard>|");
    expectPtz(recordOf(word, -1, &list), xmlOf(word), response);

    // An identifier is a number on the way in, a name never is.
    list = listOf(2, {"7", "0"});
    set(list.stPreset[0].name, "007");
    set(list.stPreset[1].name, "");
    list.guard = 13;
    expectPtzRead(kChannel3 + response, 3, word, list);
    list = listOf(-1, {});
    set(list.stPreset[0].name, std::string(31, 'n'));
    set(list.stPreset[2].name, "c");
    for (const char* ids : {"", "<preset_id/>", "<preset_id>12</preset_id>"})
        expectPtzRead(xmlOf(word, ids + ("<name>" + std::string(40, 'n') + "^^c^d</name>")), -1, word, list);
    list = listOf(300, std::vector<std::string>(256, "17"));
    const std::string many = repeated("17^", 257);
    expectPtzRead(xmlOf(word, "<name>" + many + "</name><preset_id>300^" + many + "</preset_id>"), -1, word,
                  list);
    const std::string most = repeated("17^", 256);
    EXPECT_EQ(body(recordOf(word, 3, &list), 1),
              wire(xmlOf(word, "<preset_id>256^" + most + "</preset_id>|<name>" + most +
                                   "</name>|<guard>-1</guard>|")));
}

TEST(PtzPreset, NamedPresetAndWatchGuard)
{
    const std::string word = "SetPresetListEx";
    auto named = fresh(PTZ_CONTROL_PTZ_CMD_SETPRESETLISTEX_PARAM_init);
    expectPtzRead(xmlOf(word), -1, word, named);
    named = {"name", "id"};
    const std::string text = xmlOf(word, "<preset_id>id</preset_id>|<name>name</name>|");
    expectPtz(recordOf(word, 3, &named), text, "");
    expectPtzRead(kChannel3 + text, -1, word, named);
    set(named.name, std::string(31, 'n'));
    set(named.preset_id, std::string(63, 'i'));
    expectPtzRead(xmlOf(word, "<name>" + std::string(70, 'n') + "</name><preset_id>" + std::string(70, 'i') +
                                  "</preset_id>"),
                  -1, word, named);

    for (const std::string& command : split("SetWatchGuard GetWatchGuard")) {
        auto guard = fresh(PTZ_CONTROL_PTZ_CMD_GETWATCHGUARD_PARAM_init);
        expectPtzRead(xmlOf(command), -1, command, guard);
        set(guard.guard, std::string(63, 'g'));
        const std::string cut = kChannel3 + xmlOf(command, "<guard>" + std::string(63, 'g') + "</guard>|");
        expectPtzRead(kChannel3 + xmlOf(command, "<guard>" + std::string(70, 'g') + "</guard>"), 3, command,
                      guard);
        set(guard.acReserved, "lost");
        expectPtz(recordOf(command, 3, &guard), cut, "");
    }
}

TEST(PtzPreset, Failures)
{
    expectNeedsExtension("setpreset clearpreset callpreset SetPresetListEx SetWatchGuard GetWatchGuard", 0);
    expectNeedsExtension("GetPresetList GetPresetListEx", 1);
    expectLeafFailures(PtzControlpresetCmd_MessageAnalysis, " PtzControlpresetCmd_MessageAnalysis");
    expectLeafFailures(PtzControlGetPresetList_MessageAnalysis, " PtzControlGetPresetList_MessageAnalysis");
    expectLeafFailures(PtzControlGetPresetListEx_MessageAnalysis,
                       " PtzControlGetPresetListEx_MessageAnalysis");
    expectLeafFailures(PtzControlSetPresetListEx_MessageAnalysis,
                       " PtzControlSetPresetListEx_MessageAnalysis");
    expectLeafFailures(PtzControlWatchGuard_MessageAnalysis, " PtzControlWatchGuard_MessageAnalysis");
}

} // namespace
