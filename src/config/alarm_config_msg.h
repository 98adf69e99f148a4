// A camera's motion detection and alarms: rows of the configuration family.
#ifndef ZEL_CONFIG_ALARM_CONFIG_MSG_H
#define ZEL_CONFIG_ALARM_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_alarm.h"

namespace zel {

extern const MessageRow kGetMotiondetectAlarm;
extern const MessageRow kSetIpcAlarmConfig;
extern const MessageRow kSetMotiondetectAlarm;

} // namespace zel

#endif
