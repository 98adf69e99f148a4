// The messages of vehicles, human forms and animals, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_DETECTION_MSG_H
#define ZEL_ANALYTICS_DETECTION_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_detection.h"

namespace zel {

extern const MessageRow kGetVehicleFormIntelligent;
extern const MessageRow kSetVehicleFormIntelligent;
extern const MessageRow kSetVehicleDetection;
extern const MessageRow kGetVehicleDetection;
extern const MessageRow kSetHumanDetection;
extern const MessageRow kGetHumanDetection;
extern const MessageRow kGetAnimaldetecIntelligent;
extern const MessageRow kSetAnimaldetecIntelligent;

} // namespace zel

#endif
