#include "network/general_config_msg.h"

#include "events/device_report_msg.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void generalAttributes(Side& side, SYSTEM_CONFIG_GET_2500_PARAM& record, Form form)
{
    attribute(side, "Language", record.Language);
    if (form == Form::kGet)
        attribute(side, "LanguageList", record.LanguageList);
    attribute(side, "Transparency", record.Transparency);
    attribute(side, "DevID", record.DevID);
    attribute(side, "Resolution", record.Resolution);
    if (form == Form::kGet)
        attribute(side, "ResolutionList", record.ResolutionList);
    attribute(side, "GuideEnable", record.GuideEnable);
}

void getGeneral(Side& side, SYSTEM_CONFIG_GET_2500_PARAM& record)
{
    generalAttributes(side, record, Form::kGet);
}

void setGeneral(Side& side, SYSTEM_CONFIG_SET_2520_PARAM& record)
{
    generalAttributes(side, record, Form::kSet);
}

void timeConfig(Side& side, SYSTEM_CONFIG_GET_2505_PARAM& record)
{
    if (const Element time = element(side, "TimeConfig", kBoth | kBlankBehindName)) {
        attribute(side, "Enable", record.Enable);
        attribute(side, "Timezone", record.Timezone);
        attribute(side, "Format", record.Format);
        attribute(side, "Time", record.Time);
        time.elements();
        if (const Element summer = element(side, "SummerTime", kBlankBehindName)) {
            attribute(side, "Enable", record.SummerEnable);
            attribute(side, "OffSet", record.OffSet);
            numbersAttribute(side, "WeekStartTime", kWeekClock, record.aiWeekStartTime);
            numbersAttribute(side, "WeekEndTime", kWeekClock, record.aiWeekEndTime);
        }
    }
}

void listedAccount(Side& side, SYSTEM_CONFIG_ACCOUNT& row)
{
    attribute(side, "Username", row.Username);
    attribute(side, "Password", row.Password);
    attribute(side, "Status", row.Status);
    attribute(side, "LoginStat", row.LoginStat);
    attribute(side, "Email", row.Email);
    attribute(side, "LocalAuthority", row.LocalAuthority);
    attribute(side, "RemoteAuthority", row.RemoteAuthority);
}

void changedAccount(Side& side, SYSTEM_CONFIG_ACCOUNT& row)
{
    attribute(side, "OperationType", row.OperationType);
    listedAccount(side, row);
}

template <auto account>
void accounts(Side& side, SYSTEM_CONFIG_GET_2510_PARAM& record)
{
    auto& rows = record.stAccount;
    const size_t count = rowElements<account>(side, "Account", rows, countedRows(side, record.UserNum, rows),
                                              kBlankBehindName);
    if (!side.writes() && !isSet(record.UserNum) && count > 0)
        record.UserNum = static_cast<int32_t>(count);
}

void getUsers(Side& side, SYSTEM_CONFIG_GET_2510_PARAM& record)
{
    if (const Element users = element(side, "UserConfig", kBoth | kOnLine | kBlankAtEnd)) {
        attribute(side, "MaxUserNum", record.MaxUserNum);
        onSameLine(side);
        attribute(side, "UserNum", record.UserNum);
        users.elements();
        accounts<listedAccount>(side, record);
    }
}

void setUsers(Side& side, SYSTEM_CONFIG_SET_2530_PARAM& record)
{
    if (const Element users = container(side, "UserConfig")) {
        attributeRead(side, "MaxUserNum", record.MaxUserNum);
        attributeRead(side, "UserNum", record.UserNum);
        accounts<changedAccount>(side, record);
    }
}

void pushRequest(Side& side, SYSTEM_CONFIG_GET_2511_PARAM& record)
{
    attribute(side, "ChannelId", record.ChannelId);
}

void pushOffline(Side& side, SYSTEM_CONFIG_GET_2511_PARAM& record)
{
    attribute(side, "ChannelId", record.ChannelId);
    attribute(side, "PushOfflineEnable", record.PushOfflineEnable);
}

void cloudPassword(Side& side, SYSTEM_CONFIG_SET_2535_PARAM& record)
{
    attribute(side, "Passwd", record.Passwd);
}

// A notice of a reset goes out with another name for the password; either is read, with or without a notice.
void cloudConfig(Side& side, SYSTEM_CONFIG_GET_2515_PARAM& record)
{
    if (side.writes()) {
        const bool isReset = record.bFactoryReset == 1;
        if (side.takes(isReset))
            attribute(side, "FactoryResetNotify", record.FactoryResetNotify);
        attribute(side, "PasswdEncode", record.PasswdEncode);
        if (side.takes(isReset))
            attribute(side, "CloudPasswd", record.Passwd);
        if (side.takes(!isReset))
            attribute(side, "Passwd", record.Passwd);
        return;
    }
    if (!readAttribute(side, "Passwd", record.Passwd))
        attribute(side, "CloudPasswd", record.Passwd);
    attribute(side, "PasswdEncode", record.PasswdEncode);
    if (readAttribute(side, "FactoryResetNotify", record.FactoryResetNotify))
        record.bFactoryReset = 1;
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetGeneralConfig =
    message<SYSTEM_CONFIG_GET_2500_PARAM_init>("SystemConfig_getGeneralConfig_MessageAnalysis",
                                               within<getGeneral>("GeneralConfig", Kinds::kNotRequests));
extern constexpr MessageRow kSetGeneralConfig = message<SYSTEM_CONFIG_SET_2520_PARAM_init>(
    "SystemConfig_setGeneralConfig_MessageAnalysis", within<setGeneral>("GeneralConfig", Kinds::kRequests));
extern constexpr MessageRow kGetTimeConfig = message<SYSTEM_CONFIG_GET_2505_PARAM_init>(
    "SystemConfig_getTimeConfig_MessageAnalysis", over<timeConfig>("TimeConfig", Kinds::kResponses));
extern constexpr MessageRow kSetTimeConfig = message<SYSTEM_CONFIG_SET_2525_PARAM_init>(
    "SystemConfig_setTimeConfig_MessageAnalysis", over<timeConfig>("TimeConfig", Kinds::kRequests));
extern constexpr MessageRow kGetUserConfig = message<SYSTEM_CONFIG_GET_2510_PARAM_init>(
    "SystemConfig_getUserConfig_MessageAnalysis", over<getUsers>("UserConfig", Kinds::kNotRequests));
extern constexpr MessageRow kSetUserConfig = message<SYSTEM_CONFIG_SET_2530_PARAM_init>(
    "SystemConfig_setUserConfig_MessageAnalysis", over<setUsers>("UserConfig", Kinds::kRequests));
extern constexpr MessageRow kGetPushOfflineConfig =
    message<SYSTEM_CONFIG_GET_2511_PARAM_init>("SystemConfig_getPushOfflineConfig_MessageAnalysis",
                                               request<pushRequest>(),
                                               within<pushOffline>("PushOffline", Kinds::kNotRequests))
        .reporting("PushOffline");
extern constexpr MessageRow kSetPushOfflineConfig =
    message<SYSTEM_CONFIG_SET_2531_PARAM_init>("SystemConfig_setPushOfflineConfig_MessageAnalysis",
                                               within<pushOffline>("PushOffline", Kinds::kRequests));
extern constexpr MessageRow kGetAllChannelInfo = message<SYSTEM_CONFIG_GET_2532_PARAM_init>(
    "SystemConfig_getAllChannelInfo_MessageAnalysis", body<channelStates>(Kinds::kNotRequests));
extern constexpr MessageRow kGetCloudConfig =
    message<SYSTEM_CONFIG_GET_2515_PARAM_init>("SystemConfig_getCloudConfig_MessageAnalysis",
                                               within<cloudConfig>("CloudConfig", Kinds::kNotRequests))
        .leavingFields();
extern constexpr MessageRow kSetCloudConfig =
    message<SYSTEM_CONFIG_SET_2535_PARAM_init>(
        "SystemConfig_setCloudConfig_MessageAnalysis",
        within<cloudPassword>("CloudConfig", Kinds::kRequests, kAtQuote))
        .leavingFields();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_2500_PARAM_init(SYSTEM_CONFIG_GET_2500_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.DevID, record.Resolution, record.ResolutionList, record.LanguageList);
    });
}

int SYSTEM_CONFIG_GET_2505_PARAM_init(SYSTEM_CONFIG_GET_2505_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Time); });
}

int SYSTEM_CONFIG_GET_2510_PARAM_init(SYSTEM_CONFIG_GET_2510_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.stAccount);
        for (auto& row : record.stAccount)
            zel::setAbsent(row.OperationType, row.LoginStat);
    });
}

int SYSTEM_CONFIG_GET_2511_PARAM_init(SYSTEM_CONFIG_GET_2511_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_2515_PARAM_init(SYSTEM_CONFIG_GET_2515_PARAM* param)
{
    if (!param)
        return -1;
    zel::clear(param->Passwd);
    return 0;
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2520_PARAM, SYSTEM_CONFIG_GET_2500_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2525_PARAM, SYSTEM_CONFIG_GET_2505_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2530_PARAM, SYSTEM_CONFIG_GET_2510_PARAM)

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2531_PARAM, SYSTEM_CONFIG_GET_2511_PARAM)

int SYSTEM_CONFIG_GET_2532_PARAM_init(SYSTEM_CONFIG_GET_2532_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_2535_PARAM, SYSTEM_CONFIG_GET_2515_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getGeneralConfig, kGetGeneralConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getTimeConfig, kGetTimeConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getUserConfig, kGetUserConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getPushOfflineConfig, kGetPushOfflineConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getCloudConfig, kGetCloudConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setGeneralConfig, kSetGeneralConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setTimeConfig, kSetTimeConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setUserConfig, kSetUserConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setPushOfflineConfig, kSetPushOfflineConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getAllChannelInfo, kGetAllChannelInfo)
ZEL_EXPORT_ANALYSIS(SystemConfig_setCloudConfig, kSetCloudConfig)
