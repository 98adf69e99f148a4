// The attributes that detection rules have in common, for both directions.
#ifndef ZEL_ANALYTICS_SMART_RULE_LIST_H
#define ZEL_ANALYTICS_SMART_RULE_LIST_H

#include "core/attributes.h"
#include "zel_protocol/smart_rule.h"

namespace zel {

// A device's answer tells its defaults beside the settings; a change carries the settings alone.
enum class Defaults
{
    kWith,
    kWithout
};

// A received rule that doesn't name the resolution of its coordinates has 1600 by 900.
void ruleResolution(Side& side, SMART_RULE_PARAM& rule);

void ruleDetection(Side& side, SMART_RULE_PARAM& rule, Defaults defaults);

// Other records have some of the fields too.
template <class Rule>
void ruleSensitivity(Side& side, Rule& rule, Defaults defaults)
{
    attribute(side, "DetectionSens", rule.DetectionSens);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefDetectionSens", rule.DefDetectionSens);
        rangeAttribute(side, "DefDetectionSensRange", rule.DefDetectionSensRange);
    }
}

template <class Rule>
void lightSchedule(Side& side, Rule& rule, Defaults defaults)
{
    attribute(side, "Lightduration", rule.Lightduration);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefLightduration", rule.DefLightduration);
        rangeAttribute(side, "DefLightdurationRange", rule.DefLightdurationRange);
    }
    attribute(side, "LightScheduleMode", rule.LightScheduleMode);
    if (defaults == Defaults::kWith)
        attribute(side, "DefLightScheduleMode", rule.DefLightScheduleMode);
}

template <class Rule>
void ruleLight(Side& side, Rule& rule, Defaults defaults)
{
    attribute(side, "LightAlarmEnable", rule.LightAlarmEnable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefLightAlarmEnable", rule.DefLightAlarmEnable);
    lightSchedule(side, rule, defaults);
}

template <class Rule>
void audioSchedule(Side& side, Rule& rule, Defaults defaults)
{
    attribute(side, "AudioAlarmTimes", rule.AudioAlarmTimes);
    if (defaults == Defaults::kWith) {
        attribute(side, "DefAudioAlarmTimes", rule.DefAudioAlarmTimes);
        rangeAttribute(side, "DefAudioAlarmTimesRange", rule.DefAudioAlarmTimesRange);
    }
    attribute(side, "AudioScheduleMode", rule.AudioScheduleMode);
    if (defaults == Defaults::kWith)
        attribute(side, "DefAudioScheduleMode", rule.DefAudioScheduleMode);
}

template <class Rule>
void ruleAudio(Side& side, Rule& rule, Defaults defaults)
{
    attribute(side, "AudioAlarmEnable", rule.AudioAlarmEnable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefAudioAlarmEnable", rule.DefAudioAlarmEnable);
    audioSchedule(side, rule, defaults);
}

} // namespace zel

#endif
