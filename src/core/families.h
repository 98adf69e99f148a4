// The families' dispatchers as the entry points know them, each beside the exported function of its name.
//
// A new family gets its two lines here, its rows in composeFamily (compose.cpp) and analyseFamily
// (analysis.cpp), and its exported pair in a header of its own.
#ifndef ZEL_CORE_FAMILIES_H
#define ZEL_CORE_FAMILIES_H

#include "core/body.h"
#include "core/message.h"

namespace zel {

// Composing: appends the body; the record is there. 0 or a status, which has been logged. What doesn't fit is
// the caller's to see in `out`.
int AlarmReportMessageCompose(TextWriter& out, const void* record, int kind, int& extraLength);
int LiveStreamMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code);
int MediaDataMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code,
                            int& extraLength);
int NvrReplayMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code);
int PtzControlMessageCompose(TextWriter& out, const void* record, int kind);
int SystemConfigMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code);
int SystemControlMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code);
int SystemSearchipcMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code);
int UserAuthMessageCompose(TextWriter& out, const void* record, int kind);

// Analysis: tests its arguments, then selects the leaf. 0 or a status, which has been logged.
int AlarmReportMessageAnalysis(Message& message, void** result);
int GetMessageHeaderEx(Message& message, void** result);
int LiveStreamMessageAnalysis(Message& message, std::string_view code, void** result);
int MediaDataMessageAnalysis(Message& message, std::string_view code, void** result);
int NvrReplayMessageAnalysis(Message& message, std::string_view code, void** result);
int PtzControlMessageAnalysis(Message& message, void** result);
int SystemConfigMessageAnalysis(Message& message, std::string_view code, void** result);
int SystemControlMessageAnalysis(Message& message, std::string_view code, void** result);
int SystemSearchipcMessageAnalysis(Message& message, std::string_view code, void** result);
int UserAuthMessageAnalysis(Message& message, void** result);

// Families that write into MESSAGE_HEADER append their attributes before the body is begun.
bool isHeartbeat(std::string_view type, std::string_view code);
void heartbeatHeader(TextWriter& out, const void* record);
void liveStreamHeader(TextWriter& out, const void* record, int kind, std::string_view code);

} // namespace zel

#endif
