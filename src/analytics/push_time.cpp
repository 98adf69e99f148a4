#include "core/records.h"
#include "zel_protocol/smart_rule.h"

int ALARM_PUSH_TIME_PARAM_init(ALARM_PUSH_TIME_PARAM* param)
{
    return zel::initRecord(param, [](auto& push) { zel::clear(push.stAlarmTime); });
}
