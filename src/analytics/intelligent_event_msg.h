// The intelligent event's messages, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_INTELLIGENT_EVENT_MSG_H
#define ZEL_ANALYTICS_INTELLIGENT_EVENT_MSG_H

#include "core/rows.h"
#include "core/text_writer.h"
#include "zel_protocol/system_config_intelligent.h"

namespace zel {

extern const MessageRow kGetIntelligentEvent;
extern const MessageRow kSetIntelligentEvent;

} // namespace zel

#endif
