// The attributes that detection rules have in common, for both directions.
#ifndef ZEL_ANALYTICS_SMART_RULE_LIST_H
#define ZEL_ANALYTICS_SMART_RULE_LIST_H

#include "core/side.h"
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
void ruleLight(Side& side, SMART_RULE_PARAM& rule, Defaults defaults);
void ruleAudio(Side& side, SMART_RULE_PARAM& rule, Defaults defaults);

} // namespace zel

#endif
