// What all groups of PTZ commands share: the record with its extension, and the elements around a command.
#ifndef ZEL_PTZ_PTZ_COMMAND_H
#define ZEL_PTZ_PTZ_COMMAND_H

#include <cstddef>

#include "core/rows.h"
#include "zel_protocol/ptz_control.h"

namespace zel {

using PtzRecord = PTZ_CONTROL_PTZ_CMD_PARAM;

// --- The record and its extension ----------------------------------------------------------------

// A command's extension. It is there wherever a part with a tail runs.
template <class Extension>
Extension& extensionOf(const PtzRecord& record)
{
    return *static_cast<Extension*>(record.pExData);
}

// The command whose word takes precedence among all that stand anywhere in a text, or null.
const CodeRow* findPtzCommand(std::string_view text);

// --- Elements ------------------------------------------------------------------------------------

void ptzChannel(Side& side, PtzRecord& record);
void ptzWord(Side& side, PtzRecord& record);

// A command that is its word alone.
void ptzPlainCommand(Side& side, PtzRecord& record);

// --- Rows ----------------------------------------------------------------------------------------

int composePtz(const MessageRow& row, Outbound& outbound);
int analysePtz(const MessageRow& row, Message& message, void** result);

constexpr MessageRow ptzMessage(const char* name, Part first, Part second = {})
{
    return message<PTZ_CONTROL_PTZ_CMD_PARAM_init>(name, first, second)
        .reporting("RESPONSE_PARAM")
        .composedBy(composePtz)
        .analysedBy(analysePtz);
}

template <auto init>
constexpr MessageRow extendedPtzMessage(const char* name, Part first, Part second = {})
{
    return ptzMessage(name, first, second).template extendedBy<init>(offsetof(PtzRecord, pExData));
}

extern const MessageRow kPtzPlain;
extern const MessageRow kPtzMotion;

} // namespace zel

#endif
