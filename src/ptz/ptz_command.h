// What all groups of PTZ commands share: the command words, the record with its extension, the elements
// around a command.
#ifndef ZEL_PTZ_PTZ_COMMAND_H
#define ZEL_PTZ_PTZ_COMMAND_H

#include "core/body.h"
#include "core/message.h"
#include "zel_protocol/ptz_control.h"

namespace zel {

using PtzRecord = PTZ_CONTROL_PTZ_CMD_PARAM;

// --- Command words -------------------------------------------------------------------------------

// One for each pair of leaves; several words may share a pair.
enum class PtzCommand
{
    kUnknown,
    kGetCurPos,
    kSetCurPos,
    kGetLocateCfg,
    kSetLocateCfg,
    kManualLocate,
    kPreset,
    kGetPresetListEx,
    kGetPresetList,
    kSetPresetListEx,
    kWatchGuard,
    kPlain,
    kGetOrbitList,
    kAutoOrbit,
    kAddOrbit,
    kClearOrbit,
    kGetLocusList,
    kSetLocus,
    kTrans,
    kLocus,
    kMotion,
    kScan // only composed
};

// The command of exactly this word.
PtzCommand ptzCommandOf(std::string_view word);

// The command whose word takes precedence among all that stand anywhere in a text.
PtzCommand findPtzCommand(std::string_view text);

// --- The record and its extension ----------------------------------------------------------------

// Of the largest extension: each group of commands that brings a larger one raises it.
constexpr size_t kPtzExtensionRoom = sizeof(PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM);

// Reports that a command has no extension although its form needs one.
int missingExtension(const PtzRecord& record);

// --- Elements ------------------------------------------------------------------------------------

constexpr auto ptzChannel = [](auto& body, auto& record) {
    if (!kWrites<decltype(body)> || isSet(record.channelid))
        textElement(body, "channelid", record.channelid);
};

constexpr auto ptzWord = [](auto& xml, auto& record) { textElement(xml, "cmd", record.cmd); };

// The body, and in it the element that holds the command.
struct PtzElements
{
    ElementReader body;
    ElementReader xml;
};

// Opens both; 0 or the status, which has been logged.
int openPtzCommand(Message& message, void** result, const Leaf& leaf, PtzElements& elements);

// A leaf whose extension is always there, and whose message has a channel: fill(xml, extension).
template <class Extension, class Fill>
int analysePtzCommand(Message& message, void** result, const Leaf& leaf, int (*initExtension)(Extension*),
                      Fill fill)
{
    PtzElements elements;
    if (const int status = openPtzCommand(message, result, leaf, elements))
        return status;
    return giveExtended<kPtzExtensionRoom>(result, PTZ_CONTROL_PTZ_CMD_PARAM_init, initExtension,
                                           [&](PtzRecord& record, Extension& extension) {
                                               ptzChannel(elements.body, record);
                                               ptzWord(elements.xml, record);
                                               fill(elements.xml, extension);
                                           });
}

} // namespace zel

#endif
