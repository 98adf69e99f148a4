// The messages of face recognition, for the configuration's dispatcher.
#ifndef ZEL_ANALYTICS_FACE_MSG_H
#define ZEL_ANALYTICS_FACE_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_face.h"

namespace zel {

extern const MessageRow kGetHumanFaceEvent;
extern const MessageRow kSetHumanFaceEvent;
extern const MessageRow kGetHumanFaceImage;
extern const MessageRow kGetHumanFaceAdvanced;
extern const MessageRow kSetHumanFaceAdvanced;
extern const MessageRow kGetHumanFaceV2;
extern const MessageRow kSetHumanFaceV2;
extern const MessageRow kGetHumanFaceCapacity;
extern const MessageRow kFaceYuvImportResult;

} // namespace zel

#endif
