// The device's identity and abilities, as the dispatchers of the control and configuration families reach
// them.
#ifndef ZEL_CONTROL_IDENTITY_MSG_H
#define ZEL_CONTROL_IDENTITY_MSG_H

#include "core/body.h"
#include "core/message.h"
#include "zel_protocol/system_control_identity.h"

namespace zel {

int SystemControl_GetIpcSysVersion_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1012_PARAM& record,
                                                  int kind);
int SystemControl_GetIpcSN_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1019_PARAM& record, int kind);
int SystemControl_GetSysAbality_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1020_PARAM& record,
                                               int kind);
int SystemControl_GetDeviceType_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1030_PARAM& record,
                                               int kind);
int SystemControl_GetMediaAbality_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1031_PARAM& record,
                                                 int kind);
int SystemControl_GetIpcKeyFrame_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1032_PARAM& record,
                                                int kind);
int SystemControl_SetIpcUserdevdata_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1033_PARAM& record,
                                                   int kind);
int SystemControl_GetIpcUserdevdata_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_1034_PARAM& record,
                                                   int kind);
int SystemControl_GetNvrSystemConfig_MessageCompose(TextWriter& out, const SYSTEM_CONTROL_3000_PARAM& record,
                                                    int kind);

int SystemControl_GetIpcSysVersion_MessageAnalysis(Message& message, void** result);
int SystemControl_GetIpcSN_MessageAnalysis(Message& message, void** result);
int SystemControl_GetSysAbality_MessageAnalysis(Message& message, void** result);
int SystemControl_GetDeviceType_MessageAnalysis(Message& message, void** result);
int SystemControl_GetMediaAbality_MessageAnalysis(Message& message, void** result);
int SystemControl_GetIpcKeyFrame_MessageAnalysis(Message& message, void** result);
int SystemControl_SetIpcUserdevdata_MessageAnalysis(Message& message, void** result);
int SystemControl_GetIpcUserdevdata_MessageAnalysis(Message& message, void** result);
int SystemControl_GetNvrSystemConfig_MessageAnalysis(Message& message, void** result);

} // namespace zel

#endif
