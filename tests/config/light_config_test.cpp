#include "config/config_message.h"

using namespace test;

namespace {

TEST(LightConfig, BothWays)
{
    auto light = fresh(SYSTEM_CONFIG_GET_1300_PARAM_init);
    expectResponse(kConfig, "1300", light,
                   "<LightConfig|LightMode='-1'|LightCtrl='-1'|LightVal='-1'|LightModeRange='-1,-1,-1'|"
                   "DefLightMode='-1'>|</LightConfig>|");
    light = {11, 12, 13, 14, {15, 16, 17}};
    const std::string text = "<LightConfig|LightMode='11'|LightCtrl='12'|LightVal='13'|"
                             "LightModeRange='15,16,17'|DefLightMode='14'>|</LightConfig>|";
    expectResponse(kConfig, "1300", light, text);
    expectBodies(kConfig, "1301", &light,
                 "<LightConfig|LightMode='11'|LightCtrl='12'|LightVal='13'>|</LightConfig>|", "");
    expectRead<SYSTEM_CONFIG_SET_1301_PARAM>(kConfig, "1301", text, {11, 12, 13, -1, {-1, -1, -1}});
    expectRead(kConfig, "1301", "<LightConfig/>", fresh(SYSTEM_CONFIG_SET_1301_PARAM_init));
    for (const char* range : {"15, 16", "15,16;17"})
        expectRead<SYSTEM_CONFIG_GET_1300_PARAM>(kConfig, "1300",
                                                 std::string("<LightConfig LightModeRange='") + range + "'/>",
                                                 {-1, -1, -1, -1, {15, 16, -1}});
}

TEST(LightConfig, RequiredElements)
{
    expectRequired({{"1300", "getLightConfig", "LightConfig"}, {"1301", "setLightConfig", "LightConfig"}});
}

} // namespace
