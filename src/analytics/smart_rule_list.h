// The attributes that detection rules have in common, for both directions.
#ifndef ZEL_ANALYTICS_SMART_RULE_LIST_H
#define ZEL_ANALYTICS_SMART_RULE_LIST_H

#include "core/lists.h"

namespace zel {

// A device's answer tells its defaults beside the settings; a change carries the settings alone.
constexpr bool kWithDefaults = true;
constexpr bool kWithoutDefaults = false;

// A received rule that doesn't name the resolution of its coordinates has this one.
template <class Side, class Rule>
void ruleResolution(Side& side, Rule& rule)
{
    if constexpr (kWrites<Side>) {
        resolutionAttribute(side, "VideoResolution", rule.VideoResolution);
    } else if (!readNumbers(side, "VideoResolution", '*', rule.VideoResolution, 2)) {
        rule.VideoResolution[0] = 1600;
        rule.VideoResolution[1] = 900;
    }
}

template <bool kDefaults, class Side, class Rule>
void ruleDetection(Side& side, Rule& rule)
{
    attribute(side, "Enable", rule.Enable);
    if constexpr (kDefaults)
        attribute(side, "DefEnable", rule.DefEnable);
    attribute(side, "DetectionAttr", rule.DetectionAttr);
    attribute(side, "DetectionSens", rule.DetectionSens);
    if constexpr (kDefaults) {
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

template <bool kDefaults, class Side, class Rule>
void ruleLight(Side& side, Rule& rule)
{
    attribute(side, "LightAlarmEnable", rule.LightAlarmEnable);
    if constexpr (kDefaults)
        attribute(side, "DefLightAlarmEnable", rule.DefLightAlarmEnable);
    attribute(side, "Lightduration", rule.Lightduration);
    if constexpr (kDefaults) {
        attribute(side, "DefLightduration", rule.DefLightduration);
        rangeAttribute(side, "DefLightdurationRange", rule.DefLightdurationRange);
    }
    attribute(side, "LightScheduleMode", rule.LightScheduleMode);
    if constexpr (kDefaults)
        attribute(side, "DefLightScheduleMode", rule.DefLightScheduleMode);
}

template <bool kDefaults, class Side, class Rule>
void ruleAudio(Side& side, Rule& rule)
{
    attribute(side, "AudioAlarmEnable", rule.AudioAlarmEnable);
    if constexpr (kDefaults)
        attribute(side, "DefAudioAlarmEnable", rule.DefAudioAlarmEnable);
    attribute(side, "AudioAlarmTimes", rule.AudioAlarmTimes);
    if constexpr (kDefaults) {
        attribute(side, "DefAudioAlarmTimes", rule.DefAudioAlarmTimes);
        rangeAttribute(side, "DefAudioAlarmTimesRange", rule.DefAudioAlarmTimesRange);
    }
    attribute(side, "AudioScheduleMode", rule.AudioScheduleMode);
    if constexpr (kDefaults)
        attribute(side, "DefAudioScheduleMode", rule.DefAudioScheduleMode);
}

} // namespace zel

#endif
