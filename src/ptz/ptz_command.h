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

// The word of a record that was read from a text without one.
void ptzSetWord(Side& side, PtzRecord& record, Name word);

// The command's element, with its word and what a list has of the extension; null: nothing.
void ptzElement(Side& side, PtzRecord& record, List fields);

// A command that is its word alone.
void ptzPlainCommand(Side& side, PtzRecord& record);

// A command with fields of its extension.
template <auto fields>
void ptzCommand(Side& side, PtzRecord& record)
{
    ptzElement(side, record, Erased<fields>::call);
}

// The same for a channel.
template <auto fields>
void ptzChannelCommand(Side& side, PtzRecord& record)
{
    ptzChannel(side, record);
    ptzCommand<fields>(side, record);
}

// A question, which is written plainly, and read as its answer is.
template <auto fields>
void ptzQuestion(Side& side, PtzRecord& record)
{
    ptzChannel(side, record);
    ptzElement(side, record, side.writes() ? nullptr : Erased<fields>::call);
}

// --- Rows ----------------------------------------------------------------------------------------

int composePtz(const MessageRow& row, Outbound& outbound);
int analysePtz(const MessageRow& row, Message& message, void** result);

// The steps of an analysis behind openBody.
int givePtz(const MessageRow& row, Message& message, const ElementReader& body, void** result);

void reportNoExtension(const PtzRecord& record);

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

// A command that only goes out as a request.
template <auto init, auto list>
constexpr MessageRow ptzRequest(const char* name)
{
    return extendedPtzMessage<init>(name, over<list>("xml", Kinds::kRequests).needingTail());
}

extern const MessageRow kPtzPlain;
extern const MessageRow kPtzScan;
extern const MessageRow kPtzMotion;

extern const MessageRow kGetPosition;
extern const MessageRow kSetPosition;
extern const MessageRow kGetLocate;
extern const MessageRow kSetLocate;
extern const MessageRow kManualLocate;

extern const MessageRow kPreset;
extern const MessageRow kPresetList;
extern const MessageRow kNamedPresetList;
extern const MessageRow kNamedPreset;
extern const MessageRow kWatchGuard;

extern const MessageRow kOrbitList;
extern const MessageRow kAutoOrbit;
extern const MessageRow kAddOrbit;
extern const MessageRow kClearOrbit;
extern const MessageRow kLocusList;
extern const MessageRow kSetLocus;
extern const MessageRow kTransparentData;
extern const MessageRow kLocus;

} // namespace zel

#endif
