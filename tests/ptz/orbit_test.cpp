#include "ptz/ptz_wire.h"

using namespace test;

namespace {

using Orbits = PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM;
using Orbit = PTZ_CONTROL_PTZ_CMD_AUTOORBIT_PARAM;
using Loci = PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM;
using Locus = PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM;

PTZ_CONTROL_ORBIT_POINT pointOf(const std::string& id, int32_t time)
{
    PTZ_CONTROL_ORBIT_POINT point = {time, {}, {}};
    set(point.name, id);
    set(point.preset_id, id);
    return point;
}

TEST(PtzOrbit, List)
{
    auto orbits = fresh(PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM_init);
    const std::string request = xmlOf("GetOrbitList");
    const std::string least =
        "<GetOrbitList|time_min='-1'|time_max='-1'|preset_max='-1'|normal_line_max='-1'|"
        "track_time_min='-1'|track_time_max='-1'|tarck_time_step='-1'|track_line_max='-1'|/>|"
        "<normal_line_data|/>|<track_line_data|/>|";
    expectPtz(recordOf("GetOrbitList", -1, &orbits), request, least);
    expectPtzRead(least, -1, "GetOrbitList", orbits);
    expectPtzRead("<GetOrbitList/>", -1, "GetOrbitList", orbits);
    EXPECT_EQ(body(recordOf("GetOrbitList", 3), 0), wire(kChannel3 + request));

    orbits.time_min = 11;
    orbits.time_max = 12;
    orbits.normal_line_max = 13;
    orbits.preset_max = 14;
    orbits.track_line_max = 15;
    orbits.track_time_min = 16;
    orbits.track_time_max = 17;
    orbits.tarck_time_step = 4000000000U;
    orbits.stNormalLine[0].iLineId = 7;
    orbits.stNormalLine[0].stPoint[0] = pointOf("3", 10);
    orbits.stNormalLine[0].stPoint[1] = pointOf("4", 20);
    orbits.stNormalLine[1].iLineId = 8;
    orbits.stTrackLine[0].iLineId = 21;
    orbits.stTrackLine[0].stPoint[0] = pointOf("7", -5);
    const std::string response =
        "<GetOrbitList|time_min='11'|time_max='12'|preset_max='14'|normal_line_max='13'|"
        "track_time_min='16'|track_time_max='17'|tarck_time_step='-294967296'|track_line_max='15'|/>|"
        "<normal_line_data|line_0='7[3:10],[4:20],'|line_1='8'|/>|"
        "<track_line_data|line_0='21[007:-5],'|/>|";
    expectPtzRead(kChannel3 + response, 3, "GetOrbitList", orbits);
    expectPtzRead(response + request + kChannel3, 3, "GetOrbitList");
    // Behind the last line and the last point nothing counts, and names aren't sent.
    orbits.stNormalLine[0].stPoint[3] = pointOf("5", 30);
    orbits.stNormalLine[3].iLineId = 9;
    orbits.stTrackLine[0].stPoint[0] = pointOf("007", -5);
    set(orbits.stTrackLine[0].stPoint[0].name, "name");
    expectPtz(recordOf("GetOrbitList", 3, &orbits), kChannel3 + request, response);
}

// A scan that fails keeps the numbers of the one before it, from line to line but not from list to list.
TEST(PtzOrbit, PointsThatCannotBeRead)
{
    auto orbits = fresh(PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM_init);
    auto& lines = orbits.stNormalLine;
    lines[0].iLineId = 5;
    lines[0].stPoint[0] = pointOf("3", 10);
    lines[0].stPoint[1] = pointOf("3", 10);
    lines[0].stPoint[2] = pointOf("6", 10);
    lines[1].iLineId = 16;
    lines[1].stPoint[0] = pointOf("6", 10);
    lines[1].stPoint[1] = pointOf("12345678", 90);
    orbits.stTrackLine[0].iLineId = 0;
    orbits.stTrackLine[0].stPoint[0] = pointOf("0", 0);
    expectPtzRead("<GetOrbitList/><normal_line_data line_0='5[3:10],[x],[6],' "
                  "line_1='16[:7]between[12345678:90123][8' line_3='9'/><track_line_data line_0='a[]'/>",
                  -1, "GetOrbitList", orbits);
}

TEST(PtzOrbit, ListsEndWithTheirArrays)
{
    auto orbits = fresh(PTZ_CONTROL_PTZ_CMD_GETORBITLIST_PARAM_init);
    std::string points;
    for (int i = 0; i < 25; ++i)
        points += "[" + std::to_string(i + 10) + ":" + std::to_string(i) + "],";
    std::string attributes, written;
    for (size_t line = 0; line < 17; ++line) {
        const std::string start = "line_" + std::to_string(line) + "='" + std::to_string(line + 11);
        attributes += start + points + "' ";
        if (line == 16)
            break;
        written += start + points.substr(0, points.find("[34:")) + "'|";
        for (auto* row : {&orbits.stNormalLine[line], &orbits.stTrackLine[line]}) {
            row->iLineId = static_cast<int32_t>(line) + 11;
            for (int i = 0; i < 24; ++i)
                row->stPoint[i] = pointOf(std::to_string(i + 10), i);
        }
    }
    expectPtzRead("<track_line_data " + attributes + "/><normal_line_data " + attributes +
                      "/><GetOrbitList/>",
                  -1, "GetOrbitList", orbits);
    const std::string response = body(recordOf("GetOrbitList", 3, &orbits), 1);
    EXPECT_EQ(response.substr(response.find("<normal_line_data")),
              wire("<normal_line_data|" + written + "/>|<track_line_data|" + written + "/>|"));
}

TEST(PtzOrbit, StartAddAndClear)
{
    const std::string orbit = "<orbit_id>11</orbit_id>|<orbit_type>12</orbit_type>|";
    const std::string added = "<preset_id>13</preset_id>|<time>4000000000</time>|";
    const std::string cleared = "<preset_index>14</preset_index>|";
    const struct
    {
        std::string word, text;
        Orbit read;
    } cases[] = {
        {"AutoOrbit", orbit, {11, 12, 255, 255, UINT32_MAX}},
        {"AddOrbit", orbit + added, {11, 12, 13, 255, 4000000000U}},
        {"ClearOrbit", orbit + cleared, {11, 12, 255, 14, UINT32_MAX}},
    };
    const auto absent = fresh(PTZ_CONTROL_PTZ_CMD_CLEARORBIT_PARAM_init);
    Orbit all = {11, 12, 13, 14, 4000000000U};
    for (const auto& [word, text, read] : cases) {
        expectPtz(recordOf(word, 3, &all), xmlOf(word, text), "");
        expectPtzRead(xmlOf(word), -1, word, absent);
        expectPtzRead(kChannel3 + xmlOf(word, cleared + added + orbit), -1, word, read);
    }
    expectPtzRead(xmlOf("AddOrbit", "<orbit_id>300</orbit_id><orbit_type>-2</orbit_type><time>-2</time>"
                                    "<preset_id>256</preset_id>"),
                  -1, "AddOrbit", Orbit{44, 254, 0, 255, UINT32_MAX - 1});
}

TEST(PtzOrbit, LocusList)
{
    auto loci = fresh(PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM_init);
    const std::string word = "GetLocusList";
    expectPtzRead("<GetLocusList/>", -1, word, loci);
    loci.line_max = 0;
    loci.stLine[0] = {11, 12, 13};
    loci.stLine[1] = {-14, 0, 255};
    expectPtz(recordOf(word, 3, &loci), xmlOf(word), "<GetLocusList|line_max='0'/>|<line_data|/>|");
    expectPtzRead(kChannel3 + "<GetLocusList line_max='1'/>" + xmlOf(word), -1, word);
    loci.line_max = 2;
    const std::string response =
        "<GetLocusList|line_max='2'/>|<line_data|line_0='11,12,13'|line_1='-14,0,255'|/>|";
    expectPtz(recordOf(word, 3, &loci), xmlOf(word), response);
    expectPtzRead(kChannel3 + response, -1, word, loci);

    // What the lines are is said by their names alone.
    auto read = fresh(PTZ_CONTROL_PTZ_CMD_GETLOCUSLIST_PARAM_init);
    expectPtzRead("<GetLocusList/><line_data line_1='1,2,3'/>", -1, word, read);
    std::string attributes, written;
    for (int32_t i = 0; i < 17; ++i) {
        const std::string start = "line_" + std::to_string(i) + "='" + std::to_string(i + 11);
        attributes += start + ", 300,-2' ";
        if (i == 16)
            break;
        written += start + ",44,254'|";
        read.stLine[i] = {i + 11, 44, 254};
    }
    read.line_max = 1;
    expectPtzRead("<line_data " + attributes + "/><GetLocusList line_max='1'/>", -1, word, read);
    for (const uint32_t most : {16U, 17U}) {
        read.line_max = most;
        EXPECT_EQ(body(recordOf(word, 3, &read), 1),
                  wire("<GetLocusList|line_max='16'/>|<line_data|" + written + "/>|"));
    }
}

TEST(PtzOrbit, LocusCommandsAndTransparentData)
{
    auto locus = fresh(PTZ_CONTROL_PTZ_CMD_SETLOCUS_PARAM_init);
    expectPtzRead(xmlOf("SetLocus"), -1, "SetLocus", locus);
    locus = {11, 12};
    const std::string id = "<locus_id>11</locus_id>|";
    const std::string set12 = xmlOf("SetLocus", id + "<locus_type>12</locus_type>|");
    expectPtz(recordOf("SetLocus", 3, &locus), set12, "");
    expectPtzRead(kChannel3 + set12, -1, "SetLocus", locus);
    for (const std::string& word : split("RecordLocus StopRecordLocus StartLocus")) {
        expectPtz(recordOf(word, 3, &locus), kChannel3 + xmlOf(word, id), "");
        expectPtz(recordOf(word, -1, &locus), xmlOf(word, id), "");
        expectPtzRead(kChannel3 + xmlOf(word, "<locus_type>12</locus_type>" + id), 3, word, Locus{11, -1});
    }

    auto trans = fresh(PTZ_CONTROL_PTZ_CMD_TRANS_PARAM_init);
    expectPtzRead(kChannel3 + xmlOf("trans"), -1, "trans", trans);
    set(trans.data, std::string(2047, 'd'));
    expectPtz(recordOf("trans", 3, &trans), xmlOf("trans", "<data>" + std::string(2047, 'd') + "</data>|"),
              "");
    expectPtzRead(xmlOf("trans", "<data>" + std::string(2050, 'd') + "</data>"), -1, "trans", trans);
}

TEST(PtzOrbit, Failures)
{
    expectNeedsExtension(
        "AutoOrbit AddOrbit ClearOrbit SetLocus trans RecordLocus StopRecordLocus StartLocus", 2);
    expectNeedsExtension("GetOrbitList GetLocusList", 3);
    expectLeafFailures(PtzControlGetOrbitList_MessageAnalysis, " PtzControlGetOrbitList_MessageAnalysis",
                       "GetOrbitList");
    expectLeafFailures(PtzControlAutoOrbit_MessageAnalysis, " PtzControlAutoOrbit_MessageAnalysis");
    expectLeafFailures(PtzControlAddOrbit_MessageAnalysis, " PtzControlAddOrbit_MessageAnalysis");
    expectLeafFailures(PtzControlClearOrbit_MessageAnalysis, " PtzControlClearOrbit_MessageAnalysis");
    expectLeafFailures(PtzControlGetLocusList_MessageAnalysis, " PtzControlGetLocusList_MessageAnalysis");
    expectLeafFailures(PtzControlSetLocus_MessageAnalysis, " PtzControlSetLocus_MessageAnalysis");
    expectLeafFailures(PtzControlTrans_MessageAnalysis, " PtzControlTrans_MessageAnalysis");
    expectLeafFailures(PtzControlLocusCmd_MessageAnalysis, " PtzControlLocusCmd_MessageAnalysis");
}

} // namespace
