#include "config/recorder_config_msg.h"

#include <iterator>

#include "core/lists.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void logRequest(Side& side, SYSTEM_CONFIG_GET_3028_PARAM& record)
{
    attribute(side, "LogMode", record.LogMode);
    attribute(side, "UserType", record.UserType);
    attribute(side, "QueryDate", record.QueryDate);
    attribute(side, "LogId", record.LogId);
    attribute(side, "PageSize", record.PageSize);
}

void logEntry(Side& side, SYSTEM_CONFIG_LOG_ROW& row)
{
    attribute(side, "LogMode", row.LogMode);
    attribute(side, "RecordTimeStamp", row.RecordTimeStamp);
    attribute(side, "LogId", row.LogId);
    attribute(side, "UserName", row.UserName);
    attribute(side, "UserType", row.UserType);
    attribute(side, "Detail", row.Detail);
}

void logResponse(Side& side, SYSTEM_CONFIG_GET_3028_PARAM& record)
{
    if (const Element response = element(side, "RESPONSE_PARAM", kBlankBehindName))
        attribute(side, "LogCount", record.LogCount);
    auto& rows = record.stLogInfo;
    // Entries beyond the count aren't read either.
    const size_t count = side.writes() ? countedRows(side, record.LogCount, rows)
                                       : clampCount(record.LogCount, std::size(rows));
    if (const Element list = container(side, "LogList"))
        rowElements<logEntry>(side, "LogInfo", rows, count);
}

void storagePolicy(Side& side, SYSTEM_CONFIG_SET_3503_PARAM& record)
{
    attribute(side, "StoragePolicy", record.StoragePolicy);
}

void strategy(Side& side, SYSTEM_CONFIG_GET_3502_PARAM& record)
{
    auto& set = record.StorageCapSet;
    listAttribute(side, "StorageCapSet", set, std::size(set),
                  clampCount(record.iStorageCapCount, std::size(set)));
    storagePolicy(side, record);
}

void channelDetail(Side& side, SYSTEM_CONFIG_CHANNEL_DETAIL& row)
{
    attribute(side, "ID", row.ID);
    attribute(side, "Schedule", row.Schedule);
}

void recordConfig(Side& side, SYSTEM_CONFIG_GET_3600_PARAM& record)
{
    if (const Element schedules = element(side, "RecordConfig", kBoth)) {
        attribute(side, "ChannelNum", record.ChannelNum);
        schedules.elements();
        auto& rows = record.stChannelDetail;
        rowElements<channelDetail>(side, "ChannelDetail", rows, countedRows(side, record.ChannelNum, rows));
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetNvrSystemLog =
    message<SYSTEM_CONFIG_GET_3028_PARAM_init>("SystemConfig_getNvrSystemLog_MessageAnalysis",
                                               request<logRequest>(Kinds::kNotResponses, kBlankBehindName),
                                               over<logResponse>("RESPONSE_PARAM", Kinds::kResponses));
extern constexpr MessageRow kGetStrategyConfig = message<SYSTEM_CONFIG_GET_3502_PARAM_init>(
    "SystemConfig_getStrategyConfig_MessageAnalysis", within<strategy>("StrategyConfig", Kinds::kResponses));
extern constexpr MessageRow kSetStrategyConfig =
    message<SYSTEM_CONFIG_SET_3503_PARAM_init>("SystemConfig_setStrategyConfig_MessageAnalysis",
                                               within<storagePolicy>("StrategyConfig", Kinds::kRequests));
extern constexpr MessageRow kGetRecoedConfig = message<SYSTEM_CONFIG_GET_3600_PARAM_init>(
    "SystemConfig_getRecoedConfig_MessageAnalysis", over<recordConfig>("RecordConfig", Kinds::kResponses));
extern constexpr MessageRow kSetRecoedConfig = message<SYSTEM_CONFIG_SET_3601_PARAM_init>(
    "SystemConfig_setRecoedConfig_MessageAnalysis", over<recordConfig>("RecordConfig", Kinds::kRequests));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_3028_PARAM_init(SYSTEM_CONFIG_GET_3028_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.QueryDate);
        for (auto& row : record.stLogInfo)
            zel::clear(row.RecordTimeStamp, row.UserName, row.Detail);
    });
}

int SYSTEM_CONFIG_GET_3502_PARAM_init(SYSTEM_CONFIG_GET_3502_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_3503_PARAM, SYSTEM_CONFIG_GET_3502_PARAM)

int SYSTEM_CONFIG_GET_3600_PARAM_init(SYSTEM_CONFIG_GET_3600_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& row : record.stChannelDetail)
            zel::clear(row.Schedule);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_3601_PARAM, SYSTEM_CONFIG_GET_3600_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getNvrSystemLog, kGetNvrSystemLog)
ZEL_EXPORT_ANALYSIS(SystemConfig_getStrategyConfig, kGetStrategyConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setStrategyConfig, kSetStrategyConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getRecoedConfig, kGetRecoedConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setRecoedConfig, kSetRecoedConfig)
