#include <algorithm>

#include "core/scan.h"
#include "ptz/ptz_command.h"

namespace zel {

namespace {

using Point = PTZ_CONTROL_ORBIT_POINT;
using OrbitLine = PTZ_CONTROL_ORBIT_LINE;
using OrbitList = PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM;
using Orbit = PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM;
using LocusLine = PTZ_CONTROL_LOCUS_LINE;
using LocusList = PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM;
using Locus = PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM;
using Transparent = PTZ_CONTROL_PTZ_CMD_TRANS_PARAM;

constexpr size_t kLines = 16;

NumberedName lineName(size_t index)
{
    return {"line_", index};
}

// --- Lines of orbits -----------------------------------------------------------------------------

// A line may be far longer than any other value.
void writeLine(TextWriter& out, Name name, const OrbitLine& line)
{
    out.append(name.text, name.length);
    out.append("=\"");
    appendNumber(out, line.iLineId);
    for (const Point& point : line.stPoint) {
        if (!isSet(point.preset_id))
            break;
        out.append("[");
        appendText(out, point.preset_id);
        out.append(":");
        appendNumber(out, point.time);
        out.append("],");
    }
    out.append("\"\n");
}

// What stands between the next brackets, cut; takes the text up to behind them.
bool takePoint(std::string_view& text, std::string_view& point)
{
    constexpr size_t kLongestPoint = 11;
    const size_t open = text.find('[');
    const size_t close = open == std::string_view::npos ? open : text.find(']', open);
    if (close == std::string_view::npos)
        return false;
    point = partOf(text, open + 1, std::min(close - open - 1, kLongestPoint));
    text.remove_prefix(close + 1);
    return true;
}

void readLine(std::string_view text, OrbitLine& line, int32_t (&numbers)[2])
{
    line.iLineId = numberOf(text);
    std::string_view piece;
    for (Point& point : line.stPoint) {
        if (!takePoint(text, piece))
            break;
        scanNumbers(piece, ':', numbers, 2);
        *printNumber(point.preset_id, numbers[0]) = '\0';
        memcpy(point.name, point.preset_id, sizeof point.name);
        point.time = numbers[1];
    }
}

bool isInUse(const OrbitLine& line)
{
    return isSet(line.iLineId);
}

void orbitLines(Side& side, Name name, OrbitLine (&lines)[kLines])
{
    const Element data = element(side, name);
    if (!data)
        return;
    if (isText(side)) {
        const size_t count = rowsInUse(side, lines, isInUse);
        for (size_t i = 0; i < count; ++i)
            writeLine(writerOf(side), lineName(i), lines[i]);
    } else if (side.writes()) {
        Visitor& visitor = visitorOf(side);
        visitor.see(visitor, {lineName(0), ZEL_FORM_OWN, false, lines, sizeof *lines});
    } else {
        // What can't be read of a point is that of the point before it, from line to line.
        int32_t numbers[2] = {};
        std::string_view text;
        for (size_t i = 0; i < kLines; ++i) {
            if (!readValue(side, lineName(i), ZEL_FORM_OWN, lines + i, sizeof *lines, text))
                break;
            readLine(text, lines[i], numbers);
        }
    }
}

void orbitList(Side& side, PtzRecord& record)
{
    if (!side.writes())
        ptzChannel(side, record);
    auto& list = extensionOf<OrbitList>(record);
    if (const Element limits = element(side, "GetOrbitList")) {
        signedAttribute(side, "time_min", list.time_min);
        signedAttribute(side, "time_max", list.time_max);
        signedAttribute(side, "preset_max", list.preset_max);
        signedAttribute(side, "normal_line_max", list.normal_line_max);
        signedAttribute(side, "track_time_min", list.track_time_min);
        signedAttribute(side, "track_time_max", list.track_time_max);
        signedAttribute(side, "tarck_time_step", list.tarck_time_step);
        signedAttribute(side, "track_line_max", list.track_line_max);
        ptzSetWord(side, record, "GetOrbitList");
    }
    orbitLines(side, "normal_line_data", list.stNormalLine);
    orbitLines(side, "track_line_data", list.stTrackLine);
}

// --- Orbits --------------------------------------------------------------------------------------

void autoOrbit(Side& side, Orbit& orbit)
{
    textElement(side, "orbit_id", orbit.orbit_id);
    textElement(side, "orbit_type", orbit.orbit_type);
}

void addOrbit(Side& side, Orbit& orbit)
{
    autoOrbit(side, orbit);
    textElement(side, "preset_id", orbit.preset_id);
    textElement(side, "time", orbit.time);
}

void clearOrbit(Side& side, Orbit& orbit)
{
    autoOrbit(side, orbit);
    textElement(side, "preset_index", orbit.preset_index);
}

// --- Loci ----------------------------------------------------------------------------------------

char* printLocus(char* at, const void* items, size_t)
{
    const auto& line = *static_cast<const LocusLine*>(items);
    at = printNumber(at, line.iLocusValue0);
    *at++ = ',';
    at = printNumber(at, uint32_t{line.ucLocusValue1});
    *at++ = ',';
    return printNumber(at, uint32_t{line.ucLocusValue2});
}

void scanLocus(std::string_view text, void* items, size_t)
{
    auto& line = *static_cast<LocusLine*>(items);
    int32_t numbers[] = {line.iLocusValue0, line.ucLocusValue1, line.ucLocusValue2};
    scanNumbers(text, ',', numbers, 3);
    line.iLocusValue0 = numbers[0];
    line.ucLocusValue1 = static_cast<uint8_t>(numbers[1]);
    line.ucLocusValue2 = static_cast<uint8_t>(numbers[2]);
}

constexpr ValueForm kLocusForm = {ZEL_FORM_OWN, 3 * (kLongestNumber + 1), printLocus, scanLocus};

void locusQuestion(Side& side, PtzRecord& record)
{
    ptzElement(side, record, nullptr);
}

void locusList(Side& side, PtzRecord& record)
{
    auto& list = extensionOf<LocusList>(record);
    const size_t count = countedRows(side, list.line_max, list.stLine);
    if (const Element limit = element(side, "GetLocusList", kAtQuote)) {
        auto written = static_cast<uint32_t>(count);
        signedAttribute(side, "line_max", isText(side) ? written : list.line_max);
        ptzSetWord(side, record, "GetLocusList");
    }
    if (const Element data = element(side, "line_data")) {
        for (size_t i = 0; i < count; ++i) {
            LocusLine& line = list.stLine[i];
            if (!valueAttribute(side, lineName(i), kLocusForm, &line, sizeof line, 1) && !isText(side))
                break;
        }
    }
}

void locusId(Side& side, Locus& locus)
{
    textElement(side, "locus_id", locus.locus_id);
}

void setLocus(Side& side, Locus& locus)
{
    locusId(side, locus);
    textElement(side, "locus_type", locus.locus_type);
}

void transparentData(Side& side, Transparent& transparent)
{
    textElement(side, "data", transparent.data);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kOrbitList =
    extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM_init>(
        " PtzControlGetOrbitList_MessageAnalysis", over<ptzPlainCommand>("xml", Kinds::kRequests),
        over<orbitList>("GetOrbitList", Kinds::kNotRequests).needingTail())
        .reporting("GetOrbitList");
extern constexpr MessageRow kAutoOrbit =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM_init, ptzCommand<autoOrbit>>(
        " PtzControlAutoOrbit_MessageAnalysis");
extern constexpr MessageRow kAddOrbit =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_ADDORBIT_PARAM_init, ptzCommand<addOrbit>>(
        " PtzControlAddOrbit_MessageAnalysis");
extern constexpr MessageRow kClearOrbit =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_CLEARORBIT_PARAM_init, ptzCommand<clearOrbit>>(
        " PtzControlClearOrbit_MessageAnalysis");
extern constexpr MessageRow kLocusList = extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM_init>(
    " PtzControlGetLocusList_MessageAnalysis", over<locusQuestion>("xml", Kinds::kRequests),
    over<locusList>("GetLocusList", Kinds::kNotRequests).needingTail());
extern constexpr MessageRow kSetLocus =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM_init, ptzCommand<setLocus>>(
        " PtzControlSetLocus_MessageAnalysis");
extern constexpr MessageRow kTransparentData =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_TRANS_PARAM_init, ptzCommand<transparentData>>(
        " PtzControlTrans_MessageAnalysis");
extern constexpr MessageRow kLocus =
    ptzRequest<PTZ_CONTROL_PTZ_CMD_RECORDLOCUS_PARAM_init, ptzChannelCommand<locusId>>(
        " PtzControlLocusCmd_MessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM* param)
{
    return zel::initRecord(param, [](auto& list) {
        for (auto* const lines : {&list.stNormalLine, &list.stTrackLine})
            for (auto& line : *lines)
                for (auto& point : line.stPoint)
                    zel::clear(point.name, point.preset_id);
    });
}

int PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM_init(PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM* param)
{
    return zel::initRecord(param);
}

int PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM_init(PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM* param)
{
    return zel::initRecord(param);
}

int PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM_init(PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM* param)
{
    return zel::initRecord(param);
}

int PTZ_CONTROL_PTZ_CMD_TRANS_PARAM_init(PTZ_CONTROL_PTZ_CMD_TRANS_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_ADDORBIT_PARAM, PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_CLEARORBIT_PARAM, PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_RECORDLOCUS_PARAM, PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM)
ZEL_EXPORT_INIT(PTZ_CONTROL_PTZ_CMD_STOPRECORDLOCUS_PARAM, PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM)

ZEL_EXPORT_ANALYSIS(PtzControlGetOrbitList, kOrbitList)
ZEL_EXPORT_ANALYSIS(PtzControlAutoOrbit, kAutoOrbit)
ZEL_EXPORT_ANALYSIS(PtzControlAddOrbit, kAddOrbit)
ZEL_EXPORT_ANALYSIS(PtzControlClearOrbit, kClearOrbit)
ZEL_EXPORT_ANALYSIS(PtzControlGetLocusList, kLocusList)
ZEL_EXPORT_ANALYSIS(PtzControlSetLocus, kSetLocus)
ZEL_EXPORT_ANALYSIS(PtzControlTrans, kTransparentData)
ZEL_EXPORT_ANALYSIS(PtzControlLocusCmd, kLocus)
