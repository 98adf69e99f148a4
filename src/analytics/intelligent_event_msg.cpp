#include "analytics/intelligent_event_msg.h"

#include "analytics/smart_rule_list.h"
#include "core/body.h"
#include "core/records.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

// A list that only goes out with its number; each is read by itself.
template <class Side, size_t C, size_t L, class Count, class Periods>
void countedPeriods(Side& side, const char (&countName)[C], const char (&listName)[L], Count& count,
                    Periods& periods)
{
    if (kWrites<Side> && !isSet(count))
        return;
    attribute(side, countName, count);
    periodListAttribute(side, listName, periods, count);
}

constexpr auto lightAndAudioPeriods = [](auto& side, auto& rule) {
    countedPeriods(side, "LightAlarmPeriodNum", "LightAlarmPeriod", rule.LightAlarmPeriodNum,
                   rule.LightAlarmPeriod);
    countedPeriods(side, "AudioAlarmPeriodNum", "AudioAlarmPeriod", rule.AudioAlarmPeriodNum,
                   rule.AudioAlarmPeriod);
};

constexpr auto linkageTimes = [](auto& side, auto& rule) {
    timeAttribute(side, "LightAudioAlarmStartTime", rule.LightAudioAlarmStartTime);
    timeAttribute(side, "LightAudioAlarmEndTime", rule.LightAudioAlarmEndTime);
};

constexpr auto getAttributes = [](auto& side, auto& rule) {
    constexpr bool kWriting = kWrites<decltype(side)>;
    ruleDetection<kWithDefaults>(side, rule);
    ruleLight<kWithDefaults>(side, rule);
    attribute(side, "EmailAlarmEnable", rule.EmailAlarmEnable);
    attribute(side, "Emailduration", rule.Emailduration);
    rangeAttribute(side, "DefEmaildurationRange", rule.DefEmaildurationRange);
    attribute(side, "EmailScheduleMode", rule.EmailScheduleMode);
    ruleAudio<kWithDefaults>(side, rule);
    linkageTimes(side, rule);
    attributeWritten(side, "AlarmTime", rule.AlarmTime);
    attributeRead(side, "AlarmTime", rule.ucAlarmTimeIn);
    attribute(side, "TrackEnable", rule.TrackEnable);
    attribute(side, "DefTrackEnable", rule.DefTrackEnable);
    if (!kWriting || isSet(rule.CrowdFlowStatEnable)) {
        attribute(side, "CrowdFlowStatEnable", rule.CrowdFlowStatEnable);
        attribute(side, "DefCrowdFlowStatEnable", rule.DefCrowdFlowStatEnable);
    }
    lightAndAudioPeriods(side, rule);
    countedPeriods(side, "EmailAlarmPeriodNum", "EmailAlarmPeriod", rule.EmailAlarmPeriodNum,
                   rule.EmailAlarmPeriod);
};

constexpr auto setAttributes = [](auto& side, auto& rule) {
    constexpr bool kWriting = kWrites<decltype(side)>;
    ruleDetection<kWithoutDefaults>(side, rule);
    ruleLight<kWithoutDefaults>(side, rule);
    ruleAudio<kWithoutDefaults>(side, rule);
    attributeIfSet(side, "CrowdFlowStatEnable", rule.CrowdFlowStatEnable);
    if (!kWriting || isSet(rule.LightAudioAlarmStartTime[0]))
        linkageTimes(side, rule);
    if (isSet(rule.AlarmTime))
        attributeWritten(side, "AlarmTime", rule.AlarmTime);
    attributeRead(side, "AlarmTime", rule.ucAlarmTimeIn);
    attributeIfSet(side, "TrackEnable", rule.TrackEnable);
    attributeRead(side, "DefTrackEnable", rule.DefTrackEnable);
    lightAndAudioPeriods(side, rule);
};

// Both rules, each with its attributes.
template <class Side, class Record, class Attributes>
void rules(Side& side, Record& record, Attributes attributes)
{
    element(side, "RegionDetection", [&](auto& rule) { attributes(rule, record.stRegion); });
    element(side, "CrossBoundaryDetection", [&](auto& rule) { attributes(rule, record.stCrossBoundary); });
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

int SystemConfig_getIntelligentEvent_MessageCompose(TextWriter& out,
                                                    const SYSTEM_CONFIG_GET_1402_PARAM& record, int kind)
{
    if (!isRequest(kind))
        container(out, "SmartConfig", [&](TextWriter& side) { rules(side, record, getAttributes); });
    return 0;
}

int SystemConfig_getIntelligentEvent_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__}, "SmartConfig", SYSTEM_CONFIG_GET_1402_PARAM_init,
                          [](auto& side, auto& record) { rules(side, record, getAttributes); });
}

int SystemConfig_setIntelligentEvent_MessageCompose(TextWriter& out,
                                                    const SYSTEM_CONFIG_SET_1403_PARAM& record, int kind)
{
    if (isRequest(kind))
        container(out, "SmartConfig", [&](TextWriter& side) { rules(side, record, setAttributes); });
    return 0;
}

int SystemConfig_setIntelligentEvent_MessageAnalysis(Message& message, void** result)
{
    return analyseElement(message, result, {__func__}, "SmartConfig", SYSTEM_CONFIG_SET_1403_PARAM_init,
                          [](auto& side, auto& record) { rules(side, record, setAttributes); });
}

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1402_PARAM_init(SYSTEM_CONFIG_GET_1402_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_1403_PARAM_init(SYSTEM_CONFIG_SET_1403_PARAM* param)
{
    return SYSTEM_CONFIG_GET_1402_PARAM_init(param);
}

int SystemConfig_getIntelligentEvent_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_getIntelligentEvent_MessageAnalysis>(text, result);
}

int SystemConfig_setIntelligentEvent_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_setIntelligentEvent_MessageAnalysis>(text, result);
}
