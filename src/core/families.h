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
int NvrReplayMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code);
int UserAuthMessageCompose(TextWriter& out, const void* record, int kind);

// Analysis: tests its arguments, then selects the leaf. 0 or a status, which has been logged.
int GetMessageHeaderEx(Message& message, void** result);
int NvrReplayMessageAnalysis(Message& message, std::string_view code, void** result);
int UserAuthMessageAnalysis(Message& message, void** result);

// Families that write into MESSAGE_HEADER append their attributes before the body is begun.
bool isHeartbeat(std::string_view type, std::string_view code);
void heartbeatHeader(TextWriter& out, const void* record);

} // namespace zel

#endif
