// The schedule of alarm pushes, for both directions.
#ifndef ZEL_ANALYTICS_PUSH_TIME_H
#define ZEL_ANALYTICS_PUSH_TIME_H

#include "core/side.h"
#include "zel_protocol/smart_rule.h"

namespace zel {

void pushTimeAttributes(Side& side, ALARM_PUSH_TIME_PARAM& push);

} // namespace zel

#endif
