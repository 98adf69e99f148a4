// What the messages that carry a face have in common.
#ifndef ZEL_EVENTS_FACE_H
#define ZEL_EVENTS_FACE_H

#include "core/message.h"
#include "zel_protocol/alarm_report.h"

namespace zel {

void faceScores(Side& side, ALARM_REPORT_HUMANFACE_INFO& face);

// The feature block that follows an element with a face's attributes, before there is a record for it: 0, or
// the status of a block that came in part. No block is an empty one.
int findFaceFeatures(const Message& message, const Leaf& leaf, const ElementReader& element,
                     std::string_view& block);
void setFaceFeatures(ALARM_REPORT_HUMANFACE_INFO& face, std::string_view block);

} // namespace zel

#endif
