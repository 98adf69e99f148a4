#include "config/light_config_msg.h"

#include "config/media_list.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void lightConfig(Side& side, SYSTEM_CONFIG_GET_1300_PARAM& record, Form form)
{
    // Without children, and yet with a closing tag.
    if (const Element light = element(side, "LightConfig", kBoth | kAtQuote)) {
        attribute(side, "LightMode", record.LightMode);
        attribute(side, "LightCtrl", record.LightCtrl);
        attribute(side, "LightVal", record.LightVal);
        if (form == Form::kGet) {
            rangeAttribute(side, "LightModeRange", record.LightModeRange);
            attribute(side, "DefLightMode", record.DefLightMode);
        }
        light.elements();
    }
}

void getLightConfig(Side& side, SYSTEM_CONFIG_GET_1300_PARAM& record)
{
    lightConfig(side, record, Form::kGet);
}

void setLightConfig(Side& side, SYSTEM_CONFIG_SET_1301_PARAM& record)
{
    lightConfig(side, record, Form::kSet);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetLightConfig = message<SYSTEM_CONFIG_GET_1300_PARAM_init>(
    "SystemConfig_getLightConfig_MessageAnalysis", over<getLightConfig>("LightConfig", Kinds::kResponses));
extern constexpr MessageRow kSetLightConfig = message<SYSTEM_CONFIG_SET_1301_PARAM_init>(
    "SystemConfig_setLightConfig_MessageAnalysis", over<setLightConfig>("LightConfig", Kinds::kRequests));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1300_PARAM_init(SYSTEM_CONFIG_GET_1300_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1301_PARAM, SYSTEM_CONFIG_GET_1300_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getLightConfig, kGetLightConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setLightConfig, kSetLightConfig)
