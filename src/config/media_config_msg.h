// A camera's media: the leaves that the configuration family's dispatchers call.
#ifndef ZEL_CONFIG_MEDIA_CONFIG_MSG_H
#define ZEL_CONFIG_MEDIA_CONFIG_MSG_H

#include "core/body.h"
#include "core/message.h"
#include "zel_protocol/system_config_media.h"

namespace zel {

int SystemConfig_getMediaconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_500_PARAM& record,
                                               int kind);
int SystemConfig_getMediaconfig_MessageAnalysis(Message& message, void** result);
int SystemConfig_setMediaconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_520_PARAM& record,
                                               int kind);
int SystemConfig_setMediaconfig_MessageAnalysis(Message& message, void** result);

} // namespace zel

#endif
