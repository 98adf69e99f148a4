// The intelligent event's messages, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_INTELLIGENT_EVENT_MSG_H
#define ZEL_ANALYTICS_INTELLIGENT_EVENT_MSG_H

#include "core/message.h"
#include "core/text_writer.h"
#include "zel_protocol/system_config_intelligent.h"

namespace zel {

// 1402
int SystemConfig_getIntelligentEvent_MessageCompose(TextWriter& out,
                                                    const SYSTEM_CONFIG_GET_1402_PARAM& record, int kind);
int SystemConfig_getIntelligentEvent_MessageAnalysis(Message& message, void** result);

// 1403
int SystemConfig_setIntelligentEvent_MessageCompose(TextWriter& out,
                                                    const SYSTEM_CONFIG_SET_1403_PARAM& record, int kind);
int SystemConfig_setIntelligentEvent_MessageAnalysis(Message& message, void** result);

} // namespace zel

#endif
