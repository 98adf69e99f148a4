#include "analytics/push_time.h"

#include "core/lists.h"
#include "core/records.h"

namespace zel {

void pushTimeAttributes(Side& side, ALARM_PUSH_TIME_PARAM& push)
{
    attributeIfSet(side, "OfflinePush", push.OfflinePush);
    attributeIfSet(side, "ScheduleMode", push.ScheduleMode);
    periodAttributes(side, "AlarmStartTime", "AlarmEndTime", push.stAlarmTime[0]);
    periodAttributes(side, "AlarmStartTime1", "AlarmEndTime1", push.stAlarmTime[1]);
    periodAttributes(side, "AlarmStartTime2", "AlarmEndTime2", push.stAlarmTime[2]);
    periodAttributes(side, "AlarmStartTime3", "AlarmEndTime3", push.stAlarmTime[3]);
}

} // namespace zel

int ALARM_PUSH_TIME_PARAM_init(ALARM_PUSH_TIME_PARAM* param)
{
    return zel::initRecord(param, [](auto& push) { zel::clear(push.stAlarmTime); });
}
