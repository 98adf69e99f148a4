#include "analytics/detection_msg.h"

#include "analytics/push_time.h"
#include "analytics/smart_rule_list.h"
#include "core/lists.h"

namespace zel {

namespace {

using VehicleForm = SYSTEM_CONFIG_GET_1412_PARAM;
using Animals = SYSTEM_CONFIG_GET_1426_PARAM;
using Detection = SYSTEM_CONFIG_GET_1417_PARAM;

// --- Alarms --------------------------------------------------------------------------------------

template <class Rule>
void lightAndAudio(Side& side, Rule& rule, Defaults defaults)
{
    ruleLight(side, rule, defaults);
    attribute(side, "LightAlarmPeriodNum", rule.LightAlarmPeriodNum);
    ruleAudio(side, rule, defaults);
    attribute(side, "AudioAlarmPeriodNum", rule.AudioAlarmPeriodNum);
}

template <class Rule>
void lightAndAudioPeriods(Side& side, Rule& rule)
{
    periodListAttribute(side, "LightAlarmPeriod", rule.LightAlarmPeriod, rule.LightAlarmPeriodNum);
    periodListAttribute(side, "AudioAlarmPeriod", rule.AudioAlarmPeriod, rule.AudioAlarmPeriodNum);
}

void pushTime(Side& side, Name name, ALARM_PUSH_TIME_PARAM& push)
{
    if (const Element times = element(side, name))
        pushTimeAttributes(side, push);
}

// --- Two rules -----------------------------------------------------------------------------------

void ruleAttributes(Side& side, SMART_RULE_PARAM& rule, Defaults defaults)
{
    ruleDetection(side, rule, defaults);
    lightAndAudio(side, rule, defaults);
    lightAndAudioPeriods(side, rule);
}

void vehicleForm(Side& side, VehicleForm& record, Defaults defaults)
{
    if (const Element region = element(side, "VehicleRegion"))
        ruleAttributes(side, record.stRegion, defaults);
    if (const Element boundary = element(side, "VehicleCrossBoundary")) {
        ruleAttributes(side, record.stCrossBoundary, defaults);
        if (defaults == Defaults::kWith) {
            attributeRead(side, "CrowdFlowStatEnable", record.stCrossBoundary.CrowdFlowStatEnable);
            attributeRead(side, "DefCrowdFlowStatEnable", record.stCrossBoundary.DefCrowdFlowStatEnable);
        }
    }
    pushTime(side, "VehicleShapeAlarmPushTime", record.stPushTime);
}

void getVehicleForm(Side& side, SYSTEM_CONFIG_GET_1412_PARAM& record)
{
    vehicleForm(side, record, Defaults::kWith);
}

void setVehicleForm(Side& side, SYSTEM_CONFIG_SET_1413_PARAM& record)
{
    vehicleForm(side, record, Defaults::kWithout);
}

void animals(Side& side, Animals& record, Defaults defaults)
{
    if (const Element region = element(side, "AnimalRegion"))
        ruleAttributes(side, record.stRegion, defaults);
    if (const Element boundary = element(side, "AnimalCrossBoundary"))
        ruleAttributes(side, record.stCrossBoundary, defaults);
}

void getAnimals(Side& side, SYSTEM_CONFIG_GET_1426_PARAM& record)
{
    animals(side, record, Defaults::kWith);
}

void setAnimals(Side& side, SYSTEM_CONFIG_SET_1427_PARAM& record)
{
    animals(side, record, Defaults::kWithout);
}

void animalResult(Side& side, SYSTEM_CONFIG_GET_1426_PARAM& record)
{
    attribute(side, "ErrorCode", record.ErrorCode);
    if (!side.writes())
        record.iResultFlag = 1;
}

// The record says which of its two responses it is.
int composeAnimals(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<Animals>(outbound.record);
    if (!isRequest(outbound.kind))
        writePart(row.parts[isSet(record.iResultFlag) ? 1 : 0], outbound);
    return 0;
}

// --- Vehicles and human forms --------------------------------------------------------------------

enum class Target
{
    kVehicle,
    kHuman
};

void detectionAttributes(Side& side, Detection& record, Defaults defaults, Target target)
{
    attribute(side, "Enable", record.Enable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefEnable", record.DefEnable);
    if (target == Target::kVehicle)
        attribute(side, "ShowAlarmCount", record.ShowAlarmCount);
    ruleSensitivity(side, record, defaults);
    lightAndAudio(side, record, defaults);
    if (target == Target::kHuman)
        attribute(side, "ShowAlarmCount", record.ShowAlarmCount);
    if (defaults == Defaults::kWith)
        attributeIfSet(side, "AudioAlarmFileSize", record.AudioAlarmFileSize);
    lightAndAudioPeriods(side, record);
}

void vehicleDetection(Side& side, Detection& record, Defaults defaults)
{
    if (const Element vehicle = element(side, "VehicleDetection"))
        detectionAttributes(side, record, defaults, Target::kVehicle);
    pushTime(side, "VehicleShapeAlarmPushTime", record.stPushTime);
}

void humanDetection(Side& side, Detection& record, Defaults defaults)
{
    if (const Element human = element(side, "HumanFormDetection"))
        detectionAttributes(side, record, defaults, Target::kHuman);
    else
        return; // without the detection nobody looks for its pushes
    pushTime(side, "HumanDetectAlarmPushTime", record.stPushTime);
}

void setVehicleDetection(Side& side, SYSTEM_CONFIG_SET_1414_PARAM& record)
{
    vehicleDetection(side, record, Defaults::kWithout);
}

void getVehicleDetection(Side& side, SYSTEM_CONFIG_GET_1415_PARAM& record)
{
    vehicleDetection(side, record, Defaults::kWith);
}

void setHumanDetection(Side& side, SYSTEM_CONFIG_SET_1416_PARAM& record)
{
    humanDetection(side, record, Defaults::kWithout);
}

void getHumanDetection(Side& side, SYSTEM_CONFIG_GET_1417_PARAM& record)
{
    humanDetection(side, record, Defaults::kWith);
}

// --- Absent values -------------------------------------------------------------------------------

// All but what belongs to the e-mail alarm, and the received AlarmTime.
void setRuleAbsent(SMART_RULE_PARAM& rule)
{
    setAbsent(rule.Enable, rule.DefEnable, rule.DetectionAttr, rule.CrowdFlowStatEnable,
              rule.DefCrowdFlowStatEnable, rule.DetectionSens, rule.DefDetectionSens,
              rule.DefDetectionSensRange, rule.LightAudioAlarmStartTime, rule.LightAudioAlarmEndTime,
              rule.AlarmTime, rule.ShowAlarmCount, rule.ShowAlarmLine, rule.MaxCoordinateCapability,
              rule.LineCoordinatesNum, rule.LineCoordinates, rule.VideoResolution, rule.DefTrackEnable,
              rule.TrackEnable);
    setAbsent(rule.LightAlarmEnable, rule.DefLightAlarmEnable, rule.Lightduration, rule.DefLightduration,
              rule.DefLightdurationRange, rule.LightScheduleMode, rule.DefLightScheduleMode,
              rule.LightAlarmPeriodNum, rule.LightAlarmPeriod);
    setAbsent(rule.AudioAlarmEnable, rule.DefAudioAlarmEnable, rule.AudioAlarmTimes, rule.DefAudioAlarmTimes,
              rule.DefAudioAlarmTimesRange, rule.AudioScheduleMode, rule.DefAudioScheduleMode,
              rule.AudioAlarmPeriodNum, rule.AudioAlarmPeriod);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetVehicleFormIntelligent =
    message<SYSTEM_CONFIG_GET_1412_PARAM_init>(
        "SystemConfig_getVehicleFormIntelligent_MessageAnalysis",
        within<getVehicleForm>("SmartConfig", Kinds::kNotRequests, kElements))
        .leavingFields();
extern constexpr MessageRow kSetVehicleFormIntelligent =
    message<SYSTEM_CONFIG_SET_1413_PARAM_init>(
        "SystemConfig_setVehicleFormIntelligent_MessageAnalysis",
        within<setVehicleForm>("SmartConfig", Kinds::kRequests, kElements))
        .leavingFields();
extern constexpr MessageRow kSetVehicleDetection = message<SYSTEM_CONFIG_SET_1414_PARAM_init>(
    "SystemConfig_setVehicleDetection_MessageAnalysis",
    within<setVehicleDetection>("SmartConfig", Kinds::kRequests, kElements));
extern constexpr MessageRow kGetVehicleDetection = message<SYSTEM_CONFIG_GET_1415_PARAM_init>(
    "SystemConfig_getVehicleDetection_MessageAnalysis",
    within<getVehicleDetection>("SmartConfig", Kinds::kNotRequests, kElements));
extern constexpr MessageRow kSetHumanDetection = message<SYSTEM_CONFIG_SET_1416_PARAM_init>(
    "SystemConfig_setHumanDetection_MessageAnalysis",
    within<setHumanDetection>("SmartConfig", Kinds::kRequests, kElements));
extern constexpr MessageRow kGetHumanDetection = message<SYSTEM_CONFIG_GET_1417_PARAM_init>(
    "SystemConfig_getHumanDetection_MessageAnalysis",
    within<getHumanDetection>("SmartConfig", Kinds::kNotRequests, kElements));
extern constexpr MessageRow kGetAnimaldetecIntelligent =
    message<SYSTEM_CONFIG_GET_1426_PARAM_init>(
        "SystemConfig_getAnimaldetecIntelligent_MessageAnalysis",
        within<getAnimals>("SmartConfig", Kinds::kNotRequests, kElements),
        within<animalResult>("FACE_FEATURE_RESULT", Kinds::kNotRequests))
        .reporting("SmartConfig")
        .composedBy(composeAnimals);
extern constexpr MessageRow kSetAnimaldetecIntelligent = message<SYSTEM_CONFIG_SET_1427_PARAM_init>(
    "SystemConfig_setAnimaldetecIntelligent_MessageAnalysis",
    within<setAnimals>("SmartConfig", Kinds::kRequests, kElements));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1412_PARAM_init(SYSTEM_CONFIG_GET_1412_PARAM* param)
{
    if (!param)
        return -1;
    zel::setRuleAbsent(param->stRegion);
    zel::setRuleAbsent(param->stCrossBoundary);
    return ALARM_PUSH_TIME_PARAM_init(&param->stPushTime);
}

int SYSTEM_CONFIG_GET_1417_PARAM_init(SYSTEM_CONFIG_GET_1417_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { ALARM_PUSH_TIME_PARAM_init(&record.stPushTime); });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1413_PARAM, SYSTEM_CONFIG_GET_1412_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1416_PARAM, SYSTEM_CONFIG_GET_1417_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_1415_PARAM, SYSTEM_CONFIG_GET_1417_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1414_PARAM, SYSTEM_CONFIG_GET_1415_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_1426_PARAM, SYSTEM_CONFIG_GET_1402_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1427_PARAM, SYSTEM_CONFIG_GET_1402_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getVehicleFormIntelligent, kGetVehicleFormIntelligent)
ZEL_EXPORT_ANALYSIS(SystemConfig_setVehicleFormIntelligent, kSetVehicleFormIntelligent)
ZEL_EXPORT_ANALYSIS(SystemConfig_setVehicleDetection, kSetVehicleDetection)
ZEL_EXPORT_ANALYSIS(SystemConfig_getVehicleDetection, kGetVehicleDetection)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanDetection, kSetHumanDetection)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanDetection, kGetHumanDetection)
ZEL_EXPORT_ANALYSIS(SystemConfig_getAnimaldetecIntelligent, kGetAnimaldetecIntelligent)
ZEL_EXPORT_ANALYSIS(SystemConfig_setAnimaldetecIntelligent, kSetAnimaldetecIntelligent)
