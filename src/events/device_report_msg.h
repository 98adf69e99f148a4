// The state of a recorder's channels, which is reported and asked for in one form.
#ifndef ZEL_EVENTS_DEVICE_REPORT_MSG_H
#define ZEL_EVENTS_DEVICE_REPORT_MSG_H

#include "core/elements.h"
#include "zel_protocol/device_report.h"

namespace zel {

void channelStates(Side& side, DEVICE_REPORT_3900_PARAM& record);

} // namespace zel

#endif
