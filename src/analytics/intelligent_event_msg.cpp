#include "analytics/intelligent_event_msg.h"

#include "analytics/smart_rule_list.h"
#include "core/lists.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

// A list that only goes out with its number; each is read by itself.
void countedPeriods(Side& side, Name countName, Name listName, uint8_t& count,
                    TIME_PERIOD (&periods)[kPeriods])
{
    if (side.takes(isSet(count))) {
        attribute(side, countName, count);
        periodListAttribute(side, listName, periods, count);
    }
}

void lightAndAudioPeriods(Side& side, SMART_RULE_PARAM& rule)
{
    countedPeriods(side, "LightAlarmPeriodNum", "LightAlarmPeriod", rule.LightAlarmPeriodNum,
                   rule.LightAlarmPeriod);
    countedPeriods(side, "AudioAlarmPeriodNum", "AudioAlarmPeriod", rule.AudioAlarmPeriodNum,
                   rule.AudioAlarmPeriod);
}

void linkageTimes(Side& side, SMART_RULE_PARAM& rule)
{
    timeAttribute(side, "LightAudioAlarmStartTime", rule.LightAudioAlarmStartTime);
    timeAttribute(side, "LightAudioAlarmEndTime", rule.LightAudioAlarmEndTime);
}

void getAttributes(Side& side, SMART_RULE_PARAM& rule)
{
    ruleDetection(side, rule, Defaults::kWith);
    ruleLight(side, rule, Defaults::kWith);
    attribute(side, "EmailAlarmEnable", rule.EmailAlarmEnable);
    attribute(side, "Emailduration", rule.Emailduration);
    rangeAttribute(side, "DefEmaildurationRange", rule.DefEmaildurationRange);
    attribute(side, "EmailScheduleMode", rule.EmailScheduleMode);
    ruleAudio(side, rule, Defaults::kWith);
    linkageTimes(side, rule);
    attributeWritten(side, "AlarmTime", rule.AlarmTime);
    attributeRead(side, "AlarmTime", rule.ucAlarmTimeIn);
    attribute(side, "TrackEnable", rule.TrackEnable);
    attribute(side, "DefTrackEnable", rule.DefTrackEnable);
    if (side.takes(isSet(rule.CrowdFlowStatEnable))) {
        attribute(side, "CrowdFlowStatEnable", rule.CrowdFlowStatEnable);
        attribute(side, "DefCrowdFlowStatEnable", rule.DefCrowdFlowStatEnable);
    }
    lightAndAudioPeriods(side, rule);
    countedPeriods(side, "EmailAlarmPeriodNum", "EmailAlarmPeriod", rule.EmailAlarmPeriodNum,
                   rule.EmailAlarmPeriod);
}

void setAttributes(Side& side, SMART_RULE_PARAM& rule)
{
    ruleDetection(side, rule, Defaults::kWithout);
    ruleLight(side, rule, Defaults::kWithout);
    ruleAudio(side, rule, Defaults::kWithout);
    attributeIfSet(side, "CrowdFlowStatEnable", rule.CrowdFlowStatEnable);
    if (side.takes(isSet(rule.LightAudioAlarmStartTime[0])))
        linkageTimes(side, rule);
    if (side.writes())
        attributeIfSet(side, "AlarmTime", rule.AlarmTime);
    attributeRead(side, "AlarmTime", rule.ucAlarmTimeIn);
    attributeIfSet(side, "TrackEnable", rule.TrackEnable);
    attributeRead(side, "DefTrackEnable", rule.DefTrackEnable);
    lightAndAudioPeriods(side, rule);
}

// Both rules, each with its attributes.
void rules(Side& side, SYSTEM_CONFIG_GET_1402_PARAM& record, void attributes(Side&, SMART_RULE_PARAM&))
{
    if (const Element region = element(side, "RegionDetection"))
        attributes(side, record.stRegion);
    if (const Element boundary = element(side, "CrossBoundaryDetection"))
        attributes(side, record.stCrossBoundary);
}

void getRules(Side& side, SYSTEM_CONFIG_GET_1402_PARAM& record)
{
    rules(side, record, getAttributes);
}

void setRules(Side& side, SYSTEM_CONFIG_SET_1403_PARAM& record)
{
    rules(side, record, setAttributes);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetIntelligentEvent = message<SYSTEM_CONFIG_GET_1402_PARAM_init>(
    "SystemConfig_getIntelligentEvent_MessageAnalysis",
    within<getRules>("SmartConfig", Kinds::kNotRequests, kElements));
extern constexpr MessageRow kSetIntelligentEvent =
    message<SYSTEM_CONFIG_SET_1403_PARAM_init>("SystemConfig_setIntelligentEvent_MessageAnalysis",
                                               within<setRules>("SmartConfig", Kinds::kRequests, kElements));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1402_PARAM_init(SYSTEM_CONFIG_GET_1402_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1403_PARAM, SYSTEM_CONFIG_GET_1402_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getIntelligentEvent, kGetIntelligentEvent)
ZEL_EXPORT_ANALYSIS(SystemConfig_setIntelligentEvent, kSetIntelligentEvent)
