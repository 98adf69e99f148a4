// A camera's clock, accounts and network: rows of the configuration family.
#ifndef ZEL_CONFIG_IPC_SETTINGS_MSG_H
#define ZEL_CONFIG_IPC_SETTINGS_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_ipc.h"

namespace zel {

extern const MessageRow kGetIpcTimeset;
extern const MessageRow kSetIpcTimeset;
extern const MessageRow kGetIpcUserCfg;
extern const MessageRow kSetIpcUserCfg;
extern const MessageRow kGetIpcNetconfig;
extern const MessageRow kGetIpcP2Pconfig;
extern const MessageRow kSetIpcLanconfig;
extern const MessageRow kSetIpcP2Pconfig;

} // namespace zel

#endif
