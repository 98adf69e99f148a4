#include "config/config_message.h"

using namespace test;

namespace {

TEST(GeneralConfig, BothWays)
{
    auto general = fresh(SYSTEM_CONFIG_GET_2500_PARAM_init);
    expectResponse(kConfig, "2500", general,
                   "<GeneralConfig|Language='-1'|LanguageList=''|Transparency='-1'|DevID=''|Resolution=''|"
                   "ResolutionList=''|GuideEnable='-1'|/>|");
    general = {11, 12, 13, "device", "resolution", "resolutions", "languages"};
    const std::string got = "<GeneralConfig|Language='11'|LanguageList='languages'|Transparency='12'|"
                            "DevID='device'|Resolution='resolution'|ResolutionList='resolutions'|"
                            "GuideEnable='13'|/>|";
    expectResponse(kConfig, "2500", general, got);
    expectBodies(kConfig, "2520", &general,
                 "<GeneralConfig|Language='11'|Transparency='12'|DevID='device'|Resolution='resolution'|"
                 "GuideEnable='13'|/>|",
                 "");
    general = {11, 12, 13, "device", "resolution", "", ""};
    expectRead(kConfig, "2520", got, general);
}

TEST(ClockConfig, BothWays)
{
    auto clock = fresh(SYSTEM_CONFIG_SET_2525_PARAM_init);
    const std::string absent =
        "<TimeConfig |Enable='-1'|Timezone='255'|Format='-1'|Time=''|>|<SummerTime |Enable='-1'|OffSet='-1'|"
        "WeekStartTime='-1:-1:-1:-1:-1'|WeekEndTime='-1:-1:-1:-1:-1'|/>|</TimeConfig>|";
    expectResponse(kConfig, "2505", clock, absent);
    expectRead(kConfig, "2505", "<SummerTime Enable='1' WeekStartTime='1:2:3:4:5'/><TimeConfig/>", clock);
    clock.Format = 11;
    clock.Enable = 12;
    clock.Timezone = 13;
    set(clock.Time, "time");
    clock.SummerEnable = 14;
    clock.OffSet = 15;
    countUp(clock.aiWeekStartTime[0], clock.aiWeekStartTime[4], 6);
    countUp(clock.aiWeekEndTime[0], clock.aiWeekEndTime[4], 8);
    const std::string text = "<TimeConfig |Enable='12'|Timezone='13'|Format='11'|Time='time'|>|<SummerTime "
                             "|Enable='14'|OffSet='15'|"
                             "WeekStartTime=' 6: 7: 8: 9:10'|WeekEndTime=' 8: 9:10:11:12'|/>|</TimeConfig>|";
    expectResponse(kConfig, "2505", clock, text);
    expectRequest(kConfig, "2525", clock, text);
}

// The numbers of a week's time end at two digits, or where the text isn't as it should be.
TEST(ClockConfig, PartsOfWeeks)
{
    const std::pair<const char*, std::vector<int32_t>> cases[] = {
        {"11:12", {11, 12}}, {"123:12:13", {12}}, {"11:x:12", {11}}, {"1:2:3:4:567", {1, 2, 3, 4, 56}}};
    for (const auto& [value, numbers] : cases) {
        auto clock = fresh(SYSTEM_CONFIG_GET_2505_PARAM_init);
        std::copy(numbers.begin(), numbers.end(), clock.aiWeekEndTime);
        expectRead(kConfig, "2505",
                   std::string("<TimeConfig><SummerTime WeekEndTime='") + value + "'/></TimeConfig>", clock);
    }
}

TEST(UserConfig, BothWays)
{
    auto users = fresh(SYSTEM_CONFIG_SET_2530_PARAM_init);
    expectResponse(kConfig, "2510", users, "<UserConfig MaxUserNum='-1' UserNum='-1' >|</UserConfig>|");
    expectRequest(kConfig, "2530", users, "<UserConfig>|</UserConfig>|");
    users.UserNum = 2;
    users.MaxUserNum = 12;
    users.stAccount[0] = {"user", "secret", "state", 13, 14, "mail", "local", "remote"};
    const std::string first = "Username='user'|Password='secret'|Status='state'|LoginStat='14'|Email='mail'|"
                              "LocalAuthority='local'|RemoteAuthority='remote'|/>|";
    const std::string second = "Username=''|Password=''|Status=''|LoginStat='-1'|Email=''|LocalAuthority=''|"
                               "RemoteAuthority=''|/>|";
    const std::string head = "<UserConfig MaxUserNum='12' UserNum='2' >|";
    expectBodies(kConfig, "2510", &users, "",
                 head + "<Account |" + first + "<Account |" + second + "</UserConfig>|");
    const std::string rows =
        "<Account |OperationType='13'|" + first + "<Account |OperationType='-1'|" + second + "</UserConfig>|";
    expectBodies(kConfig, "2530", &users, "<UserConfig>|" + rows, "");
    // The number that the peer says is kept; only where there is none the rows are counted.
    users.UserNum = 5;
    expectRead(kConfig, "2530", with(head, "'2'", "'5'") + rows, users);
    users.stAccount[0].OperationType = -1;
    expectRead(kConfig, "2510", with(head, "'2'", "'5'") + rows, users);
    users.UserNum = 2;
    expectRead(kConfig, "2510", with(head, "UserNum='2'", "") + rows, users);
}

TEST(UserConfig, RowLimits)
{
    auto users = fresh(SYSTEM_CONFIG_GET_2510_PARAM_init);
    std::string rows;
    for (int32_t i = 0; i <= 40; ++i) {
        rows += "<Account LoginStat='" + std::to_string(i) + "'/><Other/>";
        if (i < 40)
            users.stAccount[i].LoginStat = i;
    }
    users.UserNum = 40;
    expectRead(kConfig, "2530", "<UserConfig>" + rows + "</UserConfig>", users);
    users.UserNum = 41;
    EXPECT_EQ(valuesOf(bodyOf(kConfig, "2530", &users, 0), "LoginStat").size(), 40u);
}

TEST(PushConfig, BothWays)
{
    auto push = fresh(SYSTEM_CONFIG_SET_2531_PARAM_init);
    const std::string absent = "<PushOffline|ChannelId='-1'|PushOfflineEnable='-1'|/>|";
    expectBodies(kConfig, "2511", &push, "<REQUEST_PARAM|ChannelId='-1'|/>|", absent);
    push.ChannelId = 12;
    expectRead(kConfig, "2511", absent + "<REQUEST_PARAM PushOfflineEnable='14' ChannelId='12'/>", push);
    push.PushOfflineEnable = 15;
    const std::string text = "<PushOffline|ChannelId='12'|PushOfflineEnable='15'|/>|";
    expectRead(kConfig, "2511", text, push);
    expectRequest(kConfig, "2531", push, text);
}

TEST(CloudConfig, BothWays)
{
    SYSTEM_CONFIG_GET_2515_PARAM cloud = fresh(SYSTEM_CONFIG_SET_2535_PARAM_init);
    // The init leaves these alone.
    for (int32_t* const field : {&cloud.bFactoryReset, &cloud.PasswdEncode, &cloud.FactoryResetNotify}) {
        EXPECT_EQ(*field, 0x11111111);
        *field = -1;
    }
    expectResponse(kConfig, "2515", cloud, "<CloudConfig|PasswdEncode='-1'|Passwd=''|/>|");
    expectRead(kConfig, "2515", "<CloudConfig Passwd='' CloudPasswd='x' FactoryResetNotify='x'/>", cloud);
    expectRead(kConfig, "2535", "<CloudConfig CloudPasswd='x' PasswdEncode='1' FactoryResetNotify='1'/>",
               cloud);
    set(cloud.Passwd, "secret");
    expectRequest(kConfig, "2535", cloud, "<CloudConfig|Passwd='secret'/>|");
    cloud.PasswdEncode = 11;
    expectRead(kConfig, "2515", "<CloudConfig PasswdEncode='11' CloudPasswd='secret'/>", cloud);
    cloud.FactoryResetNotify = 12;
    for (const int32_t form : {-1, 0, 2}) {
        cloud.bFactoryReset = form;
        expectBodies(kConfig, "2515", &cloud, "", "<CloudConfig|PasswdEncode='11'|Passwd='secret'|/>|");
    }
    cloud.bFactoryReset = 1;
    const std::string text =
        "<CloudConfig|FactoryResetNotify='12'|PasswdEncode='11'|CloudPasswd='secret'|/>|";
    expectResponse(kConfig, "2515", cloud, text);
    expectRead(kConfig, "2515", with(text, "CloudPasswd='secret'", "CloudPasswd='x'|Passwd='secret'"), cloud);
}

TEST(ChannelStates, BothWays)
{
    auto states = fresh(SYSTEM_CONFIG_GET_2532_PARAM_init);
    expectResponse(kConfig, "2532", states, "");
    states = {"cameras", "streams", "abilities", "protocols", "features", "devices"};
    expectResponse(kConfig, "2532", states,
                   "<Ipcs_stat>cameras</Ipcs_stat>|<streamstat>streams</streamstat>|"
                   "<IpcAbility1>abilities</IpcAbility1>|<IpcProtoCol>protocols</IpcProtoCol>|"
                   "<ChnFeature>features</ChnFeature>|<ChnDevbind>devices</ChnDevbind>|");
}

TEST(GeneralConfig, RequiredElements)
{
    expectRequired({{"2500", "getGeneralConfig", "GeneralConfig"},
                    {"2520", "setGeneralConfig", "GeneralConfig"},
                    {"2505", "getTimeConfig", "TimeConfig"},
                    {"2525", "setTimeConfig", "TimeConfig"},
                    {"2510", "getUserConfig", "UserConfig"},
                    {"2530", "setUserConfig", "UserConfig"},
                    {"2511", "getPushOfflineConfig", "PushOffline"},
                    {"2531", "setPushOfflineConfig", "PushOffline"},
                    {"2515", "getCloudConfig", "CloudConfig"},
                    {"2535", "setCloudConfig", "CloudConfig"}});
}
} // namespace
