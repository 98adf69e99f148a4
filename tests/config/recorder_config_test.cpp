#include "config/config_message.h"

using namespace test;

namespace {

TEST(SystemLog, BothWays)
{
    auto log = fresh(SYSTEM_CONFIG_GET_3028_PARAM_init);
    expectBodies(kConfig, "3028", &log,
                 "<REQUEST_PARAM |LogMode='-1'|UserType='-1'|QueryDate=''|LogId='-1'|PageSize='-1'|/>|",
                 "<RESPONSE_PARAM |LogCount='-1'|/>|<LogList>|</LogList>|");
    expectRead(kConfig, "3028", "<RESPONSE_PARAM PageSize='2'/><LogList><LogInfo LogId='1'/></LogList>", log);
    log = {11, 12, 13, 14, -1, "date", {}};
    memcpy(log.stLogInfo, fresh(SYSTEM_CONFIG_GET_3028_PARAM_init).stLogInfo, sizeof log.stLogInfo);
    const std::string request =
        "<REQUEST_PARAM |LogMode='11'|UserType='12'|QueryDate='date'|LogId='13'|PageSize='14'|/>|";
    expectRead(kConfig, "3028",
               "<RESPONSE_PARAM LogCount='1'/><LogList><LogInfo LogId='1'/></LogList>" +
                   with(request, "|/>", "|LogCount='1'/>"),
               log);

    log.LogCount = 2;
    log.stLogInfo[0] = {21, 22, 23, "stamp", "user", "detail"};
    log.stLogInfo[1].LogId = UINT32_MAX - 1;
    const std::string response =
        "<RESPONSE_PARAM |LogCount='2'|/>|<LogList>|<LogInfo|LogMode='21'|RecordTimeStamp='stamp'|LogId='23'|"
        "UserName='user'|UserType='22'|Detail='detail'|/>|<LogInfo|LogMode='4294967295'|RecordTimeStamp=''|"
        "LogId='4294967294'|UserName=''|UserType='4294967295'|Detail=''|/>|</LogList>|";
    expectBodies(kConfig, "3028", &log, request, response);
    auto read = fresh(SYSTEM_CONFIG_GET_3028_PARAM_init);
    read.LogCount = 2;
    memcpy(read.stLogInfo, log.stLogInfo, sizeof log.stLogInfo);
    expectRead(kConfig, "3028", with(response, "</LogList>", "<LogInfo LogId='24'/></LogList>"), read);
}

TEST(SystemLog, RowLimits)
{
    auto log = fresh(SYSTEM_CONFIG_GET_3028_PARAM_init);
    log.LogCount = 11;
    std::string rows;
    for (uint32_t i = 0; i <= 10; ++i) {
        rows += "<LogInfo LogId='" + std::to_string(i) + "'/><Other/>";
        if (i < 10)
            log.stLogInfo[i].LogId = i;
    }
    expectRead(kConfig, "3028", "<LogList>" + rows + "</LogList><RESPONSE_PARAM LogCount='11'/>", log);
    EXPECT_EQ(valuesOf(bodyOf(kConfig, "3028", &log, 3), "LogId"), split("0 1 2 3 4 5 6 7 8 9"));
}

TEST(StrategyConfig, BothWays)
{
    auto strategy = fresh(SYSTEM_CONFIG_SET_3503_PARAM_init);
    expectResponse(kConfig, "3502", strategy, "<StrategyConfig|StorageCapSet=''|StoragePolicy='-1'|/>|");
    expectBodies(kConfig, "3503", &strategy, "<StrategyConfig|StoragePolicy='-1'|/>|", "");
    strategy.StoragePolicy = 11;
    const std::string text = "<StrategyConfig|StorageCapSet='12,-13,'|StoragePolicy='11'|/>|";
    expectRead(kConfig, "3503", text, strategy);
    strategy.StorageCapSet[0] = 12;
    strategy.StorageCapSet[1] = -13;
    expectRead(kConfig, "3502", text, strategy);
    strategy.iStorageCapCount = 2;
    expectBodies(kConfig, "3502", &strategy, "", text);

    // Surplus numbers are dropped, in both directions.
    strategy.iStorageCapCount = 17;
    std::string list;
    for (int32_t i = 0; i < 16; ++i) {
        strategy.StorageCapSet[i] = INT32_MIN + i;
        list += std::to_string(INT32_MIN + i) + ",";
    }
    EXPECT_EQ(valuesOf(bodyOf(kConfig, "3502", &strategy, 3), "StorageCapSet"), split(list));
    strategy.iStorageCapCount = -1;
    expectRead(kConfig, "3502", "<StrategyConfig StoragePolicy='11' StorageCapSet='" + list + "17'/>",
               strategy);
}

TEST(RecordConfig, BothWays)
{
    auto schedules = fresh(SYSTEM_CONFIG_SET_3601_PARAM_init);
    expectResponse(kConfig, "3600", schedules, "<RecordConfig|ChannelNum='-1'|>|</RecordConfig>|");
    schedules.ChannelNum = 2;
    schedules.stChannelDetail[1] = {12, "schedule"};
    const std::string text = "<RecordConfig|ChannelNum='2'|>|<ChannelDetail|ID='-1'|Schedule=''|/>|"
                             "<ChannelDetail|ID='12'|Schedule='schedule'|/>|</RecordConfig>|";
    expectResponse(kConfig, "3600", schedules, text);
    expectRequest(kConfig, "3601", schedules, text);

    // The number is what the peer said; the rows are those that came.
    std::string rows;
    for (int32_t i = 0; i <= 64; ++i) {
        rows += "<ChannelDetail ID='" + std::to_string(i) + "'/><Other/>";
        if (i < 64)
            schedules.stChannelDetail[i] = {i, ""};
    }
    for (const int32_t number : {1, 65}) {
        schedules.ChannelNum = number;
        expectRead(kConfig, "3601",
                   "<RecordConfig ChannelNum='" + std::to_string(number) + "'>" + rows + "</RecordConfig>",
                   schedules);
    }
    EXPECT_EQ(valuesOf(bodyOf(kConfig, "3601", &schedules, 0), "\nID").size(), 64u);
}

TEST(RecorderConfig, RequiredElements)
{
    expectRequired({{"3028", "getNvrSystemLog", "RESPONSE_PARAM"},
                    {"3502", "getStrategyConfig", "StrategyConfig"},
                    {"3503", "setStrategyConfig", "StrategyConfig"},
                    {"3600", "getRecoedConfig", "RecordConfig"},
                    {"3601", "setRecoedConfig", "RecordConfig"}});
}
} // namespace
