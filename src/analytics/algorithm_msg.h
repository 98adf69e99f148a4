// The messages of the installable algorithms and of the license plates, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_ALGORITHM_MSG_H
#define ZEL_ANALYTICS_ALGORITHM_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_plate.h"

namespace zel {

extern const MessageRow kGetLicensePlateEvent;
extern const MessageRow kSetLicensePlateEvent;
extern const MessageRow kGetLicensePlateImage;
extern const MessageRow kGetAlgorithmicList;
extern const MessageRow kGetAlgorithmicConfig;
extern const MessageRow kSetAlgorithmicConfig;

} // namespace zel

#endif
