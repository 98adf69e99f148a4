#include "config/alarm_config_msg.h"

#include <cstddef>

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void workday(Side& side, SYSTEM_CONFIG_WORKDAY_ROW& row)
{
    attribute(side, "Day", row.Day);
    endAtQuote(side);
    appendRaw(side, ">\n");
    if (const Element span = element(side, "TimeSpan", kOnLine)) {
        // A day of its own wins.
        attributeRead(side, "Day", row.Day);
        plainTimeAttribute(side, "StartTime", row.StartTime);
        onSameLine(side);
        plainTimeAttribute(side, "EndTime", row.EndTime);
    }
}

bool isInUse(const SYSTEM_CONFIG_WORKDAY_ROW& row)
{
    return isSet(row.Day);
}

template <class Record>
void motionDetection(Side& side, Record& record, const ValueForm& nightClock, size_t workdays)
{
    if (const Element motion = element(side, "MotionDetectAlarm", kBoth)) {
        attribute(side, "Enable", record.MotionDetectAlarm_Enable);
        attribute(side, "Alarmtime", record.Alarmtime);
        attribute(side, "SoundAlarm", record.SoundAlarm);
        attribute(side, "LightAlarm", record.LightAlarm);
        attribute(side, "BlockCount", record.BlockCount);
        attribute(side, "BlockConfig", record.BlockConfig);
        attribute(side, "Sensitivity", record.Sensitivity);
        attribute(side, "AlarmThreshold", record.AlarmThreshold);
        attribute(side, "NightSensitivity", record.NightSensitivity);
        attribute(side, "NightAlarmThreshold", record.NightAlarmThreshold);
        numbersAttribute(side, "NightStartTime", nightClock, record.NightStartTime);
        numbersAttribute(side, "NightEndTime", nightClock, record.NightEndTime);
        attribute(side, "DayNightSwitch", record.DayNightSwitch);
        motion.elements();
        if (const Element schedule = container(side, "EnableTimeList")) {
            const size_t count =
                rowElements<workday>(side, "Workday", record.stWorkday, workdays, kBoth | kOnLine);
            if (!side.writes())
                record.iWorkdayCount = static_cast<int32_t>(count);
        }
        if (const Element action = container(side, "AlarmAction")) {
            if (const Element output = element(side, "AlarmOutputAction")) {
                attribute(side, "Enable", record.AlarmOutputAction_Enable);
                attribute(side, "PortIndex", record.PortIndex);
                attribute(side, "ChannelType", record.ChannelType);
                attribute(side, "TriggerType", record.TriggerType);
                attribute(side, "Duration", record.Duration);
            }
        }
    }
}

void getMotion(Side& side, SYSTEM_CONFIG_GET_802_PARAM& record)
{
    motionDetection(side, record, kClock, countedRows(side, record.iWorkdayCount, record.stWorkday));
}

void setMotion(Side& side, SYSTEM_CONFIG_SET_822_PARAM& record)
{
    motionDetection(side, record, kClock, rowsInUse(side, record.stWorkday, isInUse));
}

void emailAttributes(Side& side, SYSTEM_CONFIG_SET_820_PARAM& record)
{
    attribute(side, "SMTPServer", record.SMTPServer);
    attribute(side, "Port", record.Port);
    attribute(side, "Username", record.Username);
    attribute(side, "Password", record.Password);
    attribute(side, "Sender", record.Sender);
    attribute(side, "Authentication", record.Authentication);
    attribute(side, "Title", record.Title);
    attribute(side, "Interval", record.Interval);
    attribute(side, "Receiver", record.Receiver);
}

void setAlarms(Side& side, SYSTEM_CONFIG_SET_820_PARAM& record)
{
    if (const Element alarms = container(side, "AlarmConfig")) {
        if (const Element push = element(side, "OFFLINE_MSG_PUSH")) {
            attribute(side, "Enable", record.OFFLINE_MSG_PUSH_Enable);
        }
        if (const Element away = element(side, "IotDriveAway")) {
            attribute(side, "IotAlarmTime", record.IotAlarmTime);
            attribute(side, "IotAlarmLightEnable", record.IotAlarmLightEnable);
            attribute(side, "IotAlarmSoundEnable", record.IotAlarmSoundEnable);
            attribute(side, "IotAlarmStart", record.IotAlarmStart);
        }
        if (const Element defense = element(side, "IotDefense")) {
            attribute(side, "DefenseSet", record.DefenseSet);
        }
        motionDetection(side, record, kPlainClock, countedRows(side, record.iWorkdayCount, record.stWorkday));
        if (const Element email = element(side, "EmailConfig")) {
            emailAttributes(side, record);
        }
    }
}

// --- Absent values -------------------------------------------------------------------------------

// All but three numbers that lie side by side, and stay as they were.
template <class Record>
int initAlarm(Record* record)
{
    if (!record)
        return -1;
    constexpr size_t kFirst = offsetof(Record, Alarmtime);
    constexpr size_t kBehind = offsetof(Record, LightAlarm) + sizeof record->LightAlarm;
    static_assert(kBehind - kFirst == 3 * sizeof(int32_t));
    auto* const bytes = reinterpret_cast<char*>(record);
    memset(bytes, 0xFF, kFirst);
    memset(bytes + kBehind, 0xFF, sizeof *record - kBehind);
    clear(record->BlockConfig, record->ChannelType, record->TriggerType);
    for (SYSTEM_CONFIG_WORKDAY_ROW& row : record->stWorkday)
        clear(row.StartTime, row.EndTime);
    return 0;
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetMotiondetectAlarm =
    message<SYSTEM_CONFIG_GET_802_PARAM_init>("SystemConfig_getMotiondetectAlarm_MessageAnalysis",
                                              over<getMotion>("MotionDetectAlarm", Kinds::kResponses))
        .leavingFields();
extern constexpr MessageRow kSetIpcAlarmConfig =
    message<SYSTEM_CONFIG_SET_820_PARAM_init>("SystemConfig_setIpcAlarmConfig_MessageAnalysis",
                                              over<setAlarms>("AlarmConfig", Kinds::kRequests))
        .leavingFields();
extern constexpr MessageRow kSetMotiondetectAlarm =
    message<SYSTEM_CONFIG_SET_822_PARAM_init>("SystemConfig_setMotiondetectAlarm_MessageAnalysis",
                                              over<setMotion>("MotionDetectAlarm", Kinds::kRequests))
        .leavingFields();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_802_PARAM_init(SYSTEM_CONFIG_GET_802_PARAM* param)
{
    return zel::initAlarm(param);
}

int SYSTEM_CONFIG_SET_820_PARAM_init(SYSTEM_CONFIG_SET_820_PARAM* param)
{
    const int status = zel::initAlarm(param);
    if (status == 0)
        zel::clear(param->Username, param->Password, param->Sender, param->SMTPServer, param->Title,
                   param->Receiver);
    return status;
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_822_PARAM, SYSTEM_CONFIG_GET_802_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getMotiondetectAlarm, kGetMotiondetectAlarm)
ZEL_EXPORT_ANALYSIS(SystemConfig_setIpcAlarmConfig, kSetIpcAlarmConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setMotiondetectAlarm, kSetMotiondetectAlarm)
