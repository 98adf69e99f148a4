// The schedule of alarm pushes, for both directions.
#ifndef ZEL_ANALYTICS_PUSH_TIME_H
#define ZEL_ANALYTICS_PUSH_TIME_H

#include "core/lists.h"

namespace zel {

constexpr auto pushTimeAttributes = [](auto& side, auto& push) {
    attributeIfSet(side, "OfflinePush", push.OfflinePush);
    attributeIfSet(side, "ScheduleMode", push.ScheduleMode);
    periodAttributes(side, "AlarmStartTime", "AlarmEndTime", push.stAlarmTime[0]);
    periodAttributes(side, "AlarmStartTime1", "AlarmEndTime1", push.stAlarmTime[1]);
    periodAttributes(side, "AlarmStartTime2", "AlarmEndTime2", push.stAlarmTime[2]);
    periodAttributes(side, "AlarmStartTime3", "AlarmEndTime3", push.stAlarmTime[3]);
};

} // namespace zel

#endif
