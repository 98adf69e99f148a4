// A camera's clock, accounts and network: the leaves that the configuration family's dispatchers call.
#ifndef ZEL_CONFIG_IPC_SETTINGS_MSG_H
#define ZEL_CONFIG_IPC_SETTINGS_MSG_H

#include "core/body.h"
#include "core/message.h"
#include "zel_protocol/system_config_ipc.h"

namespace zel {

int SystemConfig_getIpcTimeset_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_202_PARAM& record,
                                              int kind);
int SystemConfig_getIpcTimeset_MessageAnalysis(Message& message, void** result);
int SystemConfig_setIpcTimeset_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_222_PARAM& record,
                                              int kind);
int SystemConfig_setIpcTimeset_MessageAnalysis(Message& message, void** result);
int SystemConfig_getIpcUserCfg_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_203_PARAM& record,
                                              int kind);
int SystemConfig_getIpcUserCfg_MessageAnalysis(Message& message, void** result);
int SystemConfig_setIpcUserCfg_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_223_PARAM& record,
                                              int kind);
int SystemConfig_setIpcUserCfg_MessageAnalysis(Message& message, void** result);
int SystemConfig_getIpcNetconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_300_PARAM& record,
                                                int kind);
int SystemConfig_getIpcNetconfig_MessageAnalysis(Message& message, void** result);
int SystemConfig_getIpcP2Pconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_GET_315_PARAM& record,
                                                int kind);
int SystemConfig_getIpcP2Pconfig_MessageAnalysis(Message& message, void** result);
int SystemConfig_setIpcP2Pconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_335_PARAM& record,
                                                int kind);
int SystemConfig_setIpcP2Pconfig_MessageAnalysis(Message& message, void** result);
int SystemConfig_setIpcLanconfig_MessageCompose(TextWriter& out, const SYSTEM_CONFIG_SET_325_PARAM& record,
                                                int kind);
int SystemConfig_setIpcLanconfig_MessageAnalysis(Message& message, void** result);

} // namespace zel

#endif
