#include "analytics/smart_rule_list.h"

#include "core/lists.h"

namespace zel {

void ruleResolution(Side& side, SMART_RULE_PARAM& rule)
{
    const bool isThere = resolutionAttribute(side, "VideoResolution", rule.VideoResolution);
    if (!side.writes() && !isThere) {
        rule.VideoResolution[0] = 1600;
        rule.VideoResolution[1] = 900;
    }
}

void ruleDetection(Side& side, SMART_RULE_PARAM& rule, Defaults defaults)
{
    attribute(side, "Enable", rule.Enable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefEnable", rule.DefEnable);
    attribute(side, "DetectionAttr", rule.DetectionAttr);
    ruleSensitivity(side, rule, defaults);
    attribute(side, "ShowAlarmCount", rule.ShowAlarmCount);
    attribute(side, "ShowAlarmLine", rule.ShowAlarmLine);
    ruleResolution(side, rule);
    attribute(side, "MaxCoordinateCapability", rule.MaxCoordinateCapability);
    attribute(side, "LineCoordinatesNum", rule.LineCoordinatesNum);
    coordinateListAttribute(side, "LineCoordinates", rule.LineCoordinates, rule.LineCoordinatesNum);
}

} // namespace zel
