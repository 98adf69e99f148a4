#include "ptz/ptz_command.h"

namespace zel {

namespace {

using Position = PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM;
using Locate = PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM;
using Manual = PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM;

// --- Position ------------------------------------------------------------------------------------

void place(Side& side, Position& position)
{
    textElement(side, "x", position.x);
    textElement(side, "y", position.y);
    textElement(side, "mul", position.mul);
}

void placeAndLimit(Side& side, Position& position)
{
    place(side, position);
    textElement(side, "maxMul", position.maxMul);
}

// --- Locating ------------------------------------------------------------------------------------

void locateResponse(Side& side, PtzRecord& record)
{
    if (!side.writes())
        ptzChannel(side, record);
    if (const Element config = element(side, "GetLocateCfg")) {
        auto& locate = extensionOf<Locate>(record);
        attribute(side, "status", locate.status);
        attribute(side, "track_time_enable", locate.track_time_enable);
        signedAttribute(side, "time_min", locate.time_min);
        signedAttribute(side, "time_max", locate.time_max);
        signedAttribute(side, "time_step", locate.time_step);
        signedAttribute(side, "time_now", locate.time_now);
        ptzSetWord(side, record, "GetLocateCfg");
    }
}

// Commands whose word is the name of an element.
void setLocate(Side& side, PtzRecord& record)
{
    if (const Element xml = container(side, "xml")) {
        if (const Element config = element(side, "SetLocateCfg")) {
            auto& locate = extensionOf<Locate>(record);
            attribute(side, "status", locate.status);
            signedAttribute(side, "time_now", locate.time_now);
            ptzSetWord(side, record, "SetLocateCfg");
        }
    }
}

void manualLocate(Side& side, PtzRecord& record)
{
    if (const Element xml = container(side, "xml")) {
        if (const Element order = element(side, "ManualLocate")) {
            auto& manual = extensionOf<Manual>(record);
            attribute(side, "status", manual.status);
            attribute(side, "left_top_x", manual.left_top_x);
            attribute(side, "left_top_y", manual.left_top_y);
            attribute(side, "right_down_x", manual.right_down_x);
            attribute(side, "right_down_y", manual.right_down_y);
            attribute(side, "width", manual.width);
            attribute(side, "height", manual.height);
            ptzSetWord(side, record, "ManualLocate");
        }
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetPosition = extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM_init>(
    "PtzControlgetCurPos_MessageAnalysis",
    over<ptzQuestion<placeAndLimit>>("xml", Kinds::kRequests).withTail(),
    written<ptzCommand<placeAndLimit>>(Kinds::kNotRequests).needingTail());
extern constexpr MessageRow kSetPosition =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_SETCURPOS_PARAM_init, ptzCommand<place>>(
        "PtzControlsetCurPos_MessageAnalysis");
extern constexpr MessageRow kGetLocate = extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM_init>(
    "PtzControlGetLocateCfg_MessageAnalysis", over<ptzPlainCommand>("xml", Kinds::kRequests).withTail(),
    over<locateResponse>("GetLocateCfg", Kinds::kNotRequests).needingTail());
extern constexpr MessageRow kSetLocate = ptzRequest<PTZ_CONTROL_PTZ_CMD_SETLOCATECFG_PARAM_init, setLocate>(
    "PtzControlSetLocateCfg_MessageAnalysis");
extern constexpr MessageRow kManualLocate =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM_init, manualLocate>(
        " PtzControlManualLocate_MessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM* param)
{
    return zel::initRecord(param);
}

int PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM* param)
{
    return zel::initRecord(param);
}

int PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM_init(PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_SETCURPOS_PARAM, PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_SETLOCATECFG_PARAM, PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM)

ZEL_EXPORT_ANALYSIS(PtzControlgetCurPos, kGetPosition)
ZEL_EXPORT_ANALYSIS(PtzControlsetCurPos, kSetPosition)
ZEL_EXPORT_ANALYSIS(PtzControlGetLocateCfg, kGetLocate)
ZEL_EXPORT_ANALYSIS(PtzControlSetLocateCfg, kSetLocate)
ZEL_EXPORT_ANALYSIS(PtzControlManualLocate, kManualLocate)
