#include "support/fields.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

TEST(AddMode, BothWays)
{
    auto mode = fresh(SYSTEM_CONFIG_SET_3814_PARAM_init);
    expectResponse(kType, "3813", mode, "<SearchIPCCfg|SearchModeList=''|SearchMode='-1'|/>|");
    expectRequest(kType, "3814", mode, "<SearchIPCCfg|SearchMode='-1'|/>|");
    mode.SearchMode = 11;
    expectRequest(kType, "3814", mode, "<SearchIPCCfg|SearchMode='11'|/>|");
    expectRead(kType, "3814", "<SearchIPCCfg SearchModeList='12,13' SearchMode='11'/>", mode);
    mode.SearchModeList[0] = 0;
    mode.SearchModeList[1] = 13;
    const std::string text = "<SearchIPCCfg|SearchModeList='0,13'|SearchMode='11'|/>|";
    expectResponse(kType, "3813", mode, text);
    // What stands behind the end of the list isn't in it.
    mode.SearchModeList[3] = 14;
    EXPECT_EQ(bodyOf(kType, "3813", &mode, 1), wire(text));
    mode.SearchModeList[0] = -1;
    EXPECT_EQ(bodyOf(kType, "3813", &mode, 1), wire("<SearchIPCCfg|SearchModeList=''|SearchMode='11'|/>|"));
}

TEST(AddMode, Lists)
{
    auto mode = fresh(SYSTEM_CONFIG_GET_3813_PARAM_init);
    std::string list;
    for (int32_t i = 0; i < 15; ++i) {
        mode.SearchModeList[i] = INT32_MIN + i;
        list += std::to_string(INT32_MIN + i) + (i < 14 ? "," : "");
    }
    expectResponse(kType, "3813", mode, "<SearchIPCCfg|SearchModeList='" + list + "'|SearchMode='-1'|/>|");
    expectRead(kType, "3813", "<SearchIPCCfg SearchModeList='" + list + ",16,17'/>", mode);

    // Pieces that are empty don't count, and others are what they begin with.
    const std::pair<const char*, std::vector<int32_t>> cases[] = {
        {",11,,12,", {11, 12}}, {" +11x, x,-13", {11, 0, -13}}, {",,", {}}, {"11, ,12", {11, 0, 12}}};
    for (const auto& [text, modes] : cases) {
        mode = fresh(SYSTEM_CONFIG_GET_3813_PARAM_init);
        std::copy(modes.begin(), modes.end(), mode.SearchModeList);
        expectRead(kType, "3813", std::string("<SearchIPCCfg SearchModeList='") + text + "'/>", mode);
    }
}

TEST(GlobalSwitches, BothWays)
{
    auto smart = fresh(SYSTEM_CONFIG_SET_3821_PARAM_init);
    expectResponse(kType, "3820", smart, "<AdvancedSetCfg|OffAllSmartModify='-1'|/>|");
    smart.OffAllSmartModify = 11;
    expectRequest(kType, "3821", smart, "<AdvancedSetCfg|OffAllSmartModify='11'|/>|");

    auto alarm = fresh(SYSTEM_CONFIG_SET_3823_PARAM_init);
    expectResponse(kType, "3822", alarm, "<AlarmSetCfg|OffAllAlarm='-1'|/>|");
    alarm.OffAllAlarm = 11;
    expectRequest(kType, "3823", alarm, "<AlarmSetCfg|OffAllAlarm='11'|/>|");
}

// What the switches miss isn't what they say.
TEST(GlobalSwitches, RequiredElements)
{
    const char* const all[][3] = {
        {"3813", "NvrChannelGetAddMode", "SearchIPCCfg"}, {"3814", "NvrChannelSetAddMode", "SearchIPCCfg"},
        {"3820", "NvrGetOffAllSmartChanges", "param"},    {"3821", "NvrSetOffAllSmartChanges", "param"},
        {"3822", "NvrGetOffAllAlarm", "REQUEST_PARAM"},   {"3823", "NvrSetOffAllAlarm", "REQUEST_PARAM"},
    };
    for (const auto& [code, leaf, element] : all)
        expectMissing(kType, code, std::string("SystemConfig_") + leaf, element, "<REQUEST_PARAM/><param/>");
}

} // namespace
