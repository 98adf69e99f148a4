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
    attribute(side, "DetectionSens", rule.DetectionSens);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefDetectionSens", rule.DefDetectionSens);
        rangeAttribute(side, "DefDetectionSensRange", rule.DefDetectionSensRange);
    }
    attribute(side, "ShowAlarmCount", rule.ShowAlarmCount);
    attribute(side, "ShowAlarmLine", rule.ShowAlarmLine);
    ruleResolution(side, rule);
    attribute(side, "MaxCoordinateCapability", rule.MaxCoordinateCapability);
    attribute(side, "LineCoordinatesNum", rule.LineCoordinatesNum);
    coordinateListAttribute(side, "LineCoordinates", rule.LineCoordinates, rule.LineCoordinatesNum);
}

void ruleLight(Side& side, SMART_RULE_PARAM& rule, Defaults defaults)
{
    attribute(side, "LightAlarmEnable", rule.LightAlarmEnable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefLightAlarmEnable", rule.DefLightAlarmEnable);
    attribute(side, "Lightduration", rule.Lightduration);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefLightduration", rule.DefLightduration);
        rangeAttribute(side, "DefLightdurationRange", rule.DefLightdurationRange);
    }
    attribute(side, "LightScheduleMode", rule.LightScheduleMode);
    if (defaults == Defaults::kWith)
        attribute(side, "DefLightScheduleMode", rule.DefLightScheduleMode);
}

void ruleAudio(Side& side, SMART_RULE_PARAM& rule, Defaults defaults)
{
    attribute(side, "AudioAlarmEnable", rule.AudioAlarmEnable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefAudioAlarmEnable", rule.DefAudioAlarmEnable);
    attribute(side, "AudioAlarmTimes", rule.AudioAlarmTimes);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefAudioAlarmTimes", rule.DefAudioAlarmTimes);
        rangeAttribute(side, "DefAudioAlarmTimesRange", rule.DefAudioAlarmTimesRange);
    }
    attribute(side, "AudioScheduleMode", rule.AudioScheduleMode);
    if (defaults == Defaults::kWith)
        attribute(side, "DefAudioScheduleMode", rule.DefAudioScheduleMode);
}

} // namespace zel
