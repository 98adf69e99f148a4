#include "ptz/ptz_wire.h"

using namespace test;

namespace {

TEST(PtzPosition, CurrentPosition)
{
    auto position = fresh(PTZ_CONTROL_PTZ_CMD_GETCURPOS_PARAM_init);
    const std::string request = xmlOf("getCurPos");
    expectPtzRead(kChannel3 + request, 3, "getCurPos", position);
    EXPECT_EQ(body(recordOf("getCurPos"), 0), wire(request));
    position = {11, 12, 13, 14};
    const std::string response = xmlOf("getCurPos", "<x>11</x>|<y>12</y>|<mul>13</mul>|<maxMul>14</maxMul>|");
    expectPtz(recordOf("getCurPos", 3, &position), kChannel3 + request, response);
    expectPtzRead(response, -1, "getCurPos", position);
    expectPtzRead(response + kChannel3, 3, "getCurPos", position);
}

// Neither the channel nor the largest zoom.
TEST(PtzPosition, GoToPosition)
{
    auto position = fresh(PTZ_CONTROL_PTZ_CMD_SETCURPOS_PARAM_init);
    expectPtzRead(xmlOf("setCurPos"), -1, "setCurPos", position);
    position = {11, 12, 13, 14};
    const std::string elements = "<x>11</x>|<y>12</y>|<mul>13</mul>|";
    expectPtz(recordOf("setCurPos", 3, &position), xmlOf("setCurPos", elements), "");
    position.maxMul = -1;
    expectPtzRead(kChannel3 + xmlOf("setCurPos", elements + "<maxMul>14</maxMul>"), -1, "setCurPos",
                  position);
}

TEST(PtzPosition, LocateConfiguration)
{
    auto config = fresh(PTZ_CONTROL_PTZ_CMD_GETLOCATECFG_PARAM_init);
    const std::string request = xmlOf("GetLocateCfg");
    EXPECT_EQ(body(recordOf("GetLocateCfg"), 0), wire(request));
    expectPtzRead("<GetLocateCfg/>", -1, "GetLocateCfg", config);

    const auto absent = config;
    config = {11, 12, 13, 14, 15, 4000000000U};
    const std::string response = "<GetLocateCfg|status='11'|track_time_enable='12'|time_min='13'|"
                                 "time_max='14'|time_step='15'|time_now='-294967296'|/>|";
    expectPtz(recordOf("GetLocateCfg", 3, &config), kChannel3 + request, response);
    expectPtzRead(kChannel3 + response, 3, "GetLocateCfg", config);
    // With a request beside it the response isn't read.
    expectPtzRead(response + kChannel3 + request, 3, "GetLocateCfg", absent);
    expectPtzRead(response + "<xml/>", -1, "", absent);
}

// Commands that are elements with attributes, and that name the record.
TEST(PtzPosition, CommandsAsAttributes)
{
    auto config = fresh(PTZ_CONTROL_PTZ_CMD_SETLOCATECFG_PARAM_init);
    expectPtz(recordOf("SetLocateCfg", 3, &config),
              "<xml>|<SetLocateCfg|status='255'|time_now='-1'|/>|</xml>|", "");
    expectPtzRead(xmlOf("SetLocateCfg"), -1, "", config);
    config.status = 11;
    config.time_now = 12;
    expectPtzRead(kChannel3 + "<xml><cmd>up</cmd><SetLocateCfg track_time_enable='13' time_now='12' "
                              "time_min='14' time_max='15' time_step='16' status='11'/></xml>",
                  -1, "SetLocateCfg", config);
    config = {11, 13, 14, 15, 16, 12};
    expectPtz(recordOf("SetLocateCfg", 3, &config),
              "<xml>|<SetLocateCfg|status='11'|time_now='12'|/>|</xml>|", "");

    auto manual = fresh(PTZ_CONTROL_PTZ_CMD_MANUALLOCATE_PARAM_init);
    expectPtzRead(xmlOf("ManualLocate"), -1, "", manual);
    manual = {11, 12, 13, 14, 15, 16, 4000000000U};
    const std::string text =
        "<xml>|<ManualLocate|status='11'|left_top_x='12'|left_top_y='13'|right_down_x='14'|"
        "right_down_y='15'|width='16'|height='4000000000'|/>|</xml>|";
    expectPtz(recordOf("ManualLocate", 3, &manual), text, "");
    expectPtzRead(kChannel3 + text, -1, "ManualLocate", manual);
}

// Only the last text has a blank in front of the name.
TEST(PtzPosition, Failures)
{
    expectNeedsExtension("setCurPos SetLocateCfg ManualLocate", 2);
    expectNeedsExtension("getCurPos GetLocateCfg", 3);
    expectLeafFailures(PtzControlgetCurPos_MessageAnalysis, "PtzControlgetCurPos_MessageAnalysis");
    expectLeafFailures(PtzControlsetCurPos_MessageAnalysis, "PtzControlsetCurPos_MessageAnalysis");
    expectLeafFailures(PtzControlGetLocateCfg_MessageAnalysis, "PtzControlGetLocateCfg_MessageAnalysis");
    expectLeafFailures(PtzControlSetLocateCfg_MessageAnalysis, "PtzControlSetLocateCfg_MessageAnalysis");
    expectLeafFailures(PtzControlManualLocate_MessageAnalysis, " PtzControlManualLocate_MessageAnalysis");
}

} // namespace
