#include "config/config_message.h"

using namespace test;

namespace {

using Motion = SYSTEM_CONFIG_GET_802_PARAM;
using Alarms = SYSTEM_CONFIG_SET_820_PARAM;

template <class Record>
Record freshAlarm(int (*init)(Record*))
{
    auto record = fresh(init);
    // The init leaves these alone.
    for (int32_t* const field : {&record.Alarmtime, &record.SoundAlarm, &record.LightAlarm}) {
        EXPECT_EQ(*field, 0x11111111);
        *field = -1;
    }
    return record;
}

Motion freshMotion()
{
    return freshAlarm(SYSTEM_CONFIG_GET_802_PARAM_init);
}

const std::string kAction =
    "<AlarmAction>|<AlarmOutputAction|Enable='30'|PortIndex='31'|ChannelType='channel'|TriggerType='trigger'|"
    "Duration='32'|/>|</AlarmAction>|</MotionDetectAlarm>|";
const std::string kRows =
    "<EnableTimeList>|<Workday Day='25'>|<TimeSpan StartTime='3:4:26' EndTime='5:6:27'/>|</Workday>|"
    "<Workday Day='28'>|<TimeSpan StartTime='0:0:0' EndTime='7:8:29'/>|</Workday>|</EnableTimeList>|";
const std::string kMotion =
    "<MotionDetectAlarm|Enable='11'|Alarmtime='12'|SoundAlarm='13'|LightAlarm='14'|BlockCount='15'|"
    "BlockConfig='blocks'|Sensitivity='16'|AlarmThreshold='17'|NightSensitivity='18'|"
    "NightAlarmThreshold='19'|NightStartTime='01:20:21'|NightEndTime='02:22:23'|DayNightSwitch='24'|>|" +
    kRows + kAction;
const std::string kAbsent =
    "<MotionDetectAlarm|Enable='-1'|Alarmtime='-1'|SoundAlarm='-1'|LightAlarm='-1'|BlockCount='-1'|"
    "BlockConfig=''|Sensitivity='-1'|AlarmThreshold='-1'|NightSensitivity='-1'|NightAlarmThreshold='-1'|"
    "NightStartTime='-1:-1:-1'|NightEndTime='-1:-1:-1'|DayNightSwitch='-1'|>|<EnableTimeList>|"
    "</EnableTimeList>|<AlarmAction>|<AlarmOutputAction|Enable='-1'|PortIndex='-1'|ChannelType=''|"
    "TriggerType=''|Duration='-1'|/>|</AlarmAction>|</MotionDetectAlarm>|";

// Sets what kMotion says.
template <class Record>
void setMotion(Record& record)
{
    record.MotionDetectAlarm_Enable = 11;
    record.Alarmtime = 12;
    record.SoundAlarm = 13;
    record.LightAlarm = 14;
    record.BlockCount = 15;
    set(record.BlockConfig, "blocks");
    countUp(record.Sensitivity, record.NightAlarmThreshold, 16);
    setTime(record.NightStartTime, 1, 20);
    setTime(record.NightEndTime, 2, 22);
    record.DayNightSwitch = 24;
    record.iWorkdayCount = 2;
    record.stWorkday[0] = {25, {3, 4, 26}, {5, 6, 27}};
    record.stWorkday[1] = {28, {0, 0, 0}, {7, 8, 29}};
    record.AlarmOutputAction_Enable = 30;
    record.PortIndex = 31;
    set(record.ChannelType, "channel");
    set(record.TriggerType, "trigger");
    record.Duration = 32;
}

TEST(MotionConfig, BothWays)
{
    Motion motion = freshMotion();
    expectBodies(kConfig, "802", &motion, "", kAbsent);
    expectBodies(kConfig, "822", &motion, kAbsent, "");
    motion.iWorkdayCount = 0;
    expectRead(kConfig, "802", kAbsent, motion);
    setMotion(motion);
    expectResponse(kConfig, "802", motion, kMotion);
    expectRequest(kConfig, "822", motion, kMotion);
    freshAlarm(SYSTEM_CONFIG_SET_822_PARAM_init);
}

TEST(AlarmConfig, BothWays)
{
    Alarms alarms = freshAlarm(SYSTEM_CONFIG_SET_820_PARAM_init);
    expectBodies(kConfig, "820", &alarms,
                 "<AlarmConfig>|<OFFLINE_MSG_PUSH|Enable='-1'|/>|<IotDriveAway|IotAlarmTime='-1'|"
                 "IotAlarmLightEnable='-1'|IotAlarmSoundEnable='-1'|IotAlarmStart='-1'|/>|<IotDefense|"
                 "DefenseSet='-1'|/>|" +
                     kAbsent +
                     "<EmailConfig|SMTPServer=''|Port='-1'|Username=''|Password=''|Sender=''|"
                     "Authentication='-1'|Title=''|Interval='-1'|Receiver=''|/>|</AlarmConfig>|",
                 "");
    expectRead(kConfig, "820",
               "<AlarmConfig>" + kRows + kAction.substr(0, kAction.rfind("</")) + "</AlarmConfig>", alarms);
    setMotion(alarms);
    alarms.OFFLINE_MSG_PUSH_Enable = 41;
    countUp(alarms.IotAlarmTime, alarms.DefenseSet, 42);
    countUp(alarms.Port, alarms.Interval, 47);
    set(alarms.Username, "user");
    set(alarms.Password, "secret");
    set(alarms.Sender, "sender");
    set(alarms.SMTPServer, "server");
    set(alarms.Title, "title");
    set(alarms.Receiver, "receiver");
    expectRequest(
        kConfig, "820", alarms,
        "<AlarmConfig>|<OFFLINE_MSG_PUSH|Enable='41'|/>|<IotDriveAway|IotAlarmTime='42'|"
        "IotAlarmLightEnable='43'|IotAlarmSoundEnable='44'|IotAlarmStart='45'|/>|<IotDefense|"
        "DefenseSet='46'|/>|" +
            with(with(kMotion, "'01:", "'1:"), "'02:", "'2:") +
            "<EmailConfig|SMTPServer='server'|Port='47'|Username='user'|Password='secret'|"
            "Sender='sender'|Authentication='48'|Title='title'|Interval='49'|Receiver='receiver'|/>|"
            "</AlarmConfig>|");
}

// Free rows within the count are written; the set of motion detection knows no count.
TEST(MotionConfig, RowsOnTheWayOut)
{
    const auto expectDays = [](int32_t count, const std::vector<int32_t>& days, const std::string& byCount,
                               const std::string& byRow) {
        Motion motion = freshMotion();
        Alarms alarms = freshAlarm(SYSTEM_CONFIG_SET_820_PARAM_init);
        motion.iWorkdayCount = alarms.iWorkdayCount = count;
        for (size_t i = 0; i < days.size(); ++i)
            motion.stWorkday[i].Day = alarms.stWorkday[i].Day = days[i];
        EXPECT_EQ(valuesOf(bodyOf(kConfig, "802", &motion, 1), " Day"), split(byCount));
        EXPECT_EQ(valuesOf(bodyOf(kConfig, "820", &alarms, 0), " Day"), split(byCount));
        EXPECT_EQ(valuesOf(bodyOf(kConfig, "822", &motion, 0), " Day"), split(byRow));
    };
    expectDays(-1, {11, 12, -1, 13}, "", "11 12");
    expectDays(4, {11, 12, -1, 13}, "11 12 -1 13", "11 12");
    expectDays(1, {11, 12}, "11", "11 12");
    expectDays(9, {0, 1, 2, 3, 4, 5, 6, 7}, "0 1 2 3 4 5 6 7", "0 1 2 3 4 5 6 7");
}

TEST(MotionConfig, RowsOnTheWayIn)
{
    const auto expectRows = [](const Motion& motion, const std::string& rows) {
        for (const char* code : {"802", "822"})
            expectRead(kConfig, code, "<MotionDetectAlarm>" + rows + "</MotionDetectAlarm>", motion);
    };
    Motion motion = freshMotion();
    expectRows(motion, "<Workday Day='1'/>");
    motion.iWorkdayCount = 3;
    motion.stWorkday[0].Day = 11;
    motion.stWorkday[1] = {12, {13, 0, 0}, {14, 15, -16}};
    motion.stWorkday[2].Day = 17;
    expectRows(motion,
               "<EnableTimeList><Workday Day='11'/><Other/><Workday Day='12'><TimeSpan StartTime='13' "
               "EndTime='14:15:-16'/><TimeSpan Day='1'/></Workday><Workday Day='1'>"
               "<TimeSpan Day='17' StartTime='x'/></Workday></EnableTimeList>");
    std::string rows;
    for (int32_t i = 0; i <= 8; ++i)
        rows += "<Workday Day='" + std::to_string(i) + "'/>";
    motion = freshMotion();
    motion.iWorkdayCount = 8;
    for (int32_t i = 0; i < 8; ++i)
        motion.stWorkday[i].Day = i;
    expectRows(motion, "<EnableTimeList>" + rows + "</EnableTimeList>");
}

TEST(AlarmConfig, RequiredElements)
{
    expectRequired({{"802", "getMotiondetectAlarm", "MotionDetectAlarm"},
                    {"820", "setIpcAlarmConfig", "AlarmConfig"},
                    {"822", "setMotiondetectAlarm", "MotionDetectAlarm"}});
}

} // namespace
