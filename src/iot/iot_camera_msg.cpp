#include "zel_protocol/iot_camera.h"

#include "core/families.h"

namespace zel {

namespace {

using LightConfig = IOT_CAMERA_1520_PARAM;
using HumanDetection = IOT_CAMERA_1522_PARAM;
using AlarmPeriod = IOT_CAMERA_ALARM_PERIOD;

// --- Attribute lists, for both directions --------------------------------------------------------

void ageing(Side& side, IOT_CAMERA_1205_PARAM& record)
{
    attribute(side, "MaxUptimeConfig", record.MaxUptimeConfig);
}

void lightSettings(Side& side, LightConfig& light)
{
    attribute(side, "IotLightMode", light.IotLightMode);
    timeAttribute(side, "IotTimingStart", light.stIotTimingStart);
    timeAttribute(side, "IotTimingEnd", light.stIotTimingEnd);
    attribute(side, "IotLightOnSensitivity", light.IotLightOnSensitivity);
    attribute(side, "IotLightOffSensitivity", light.IotLightOffSensitivity);
}

void getLight(Side& side, LightConfig& light)
{
    lightSettings(side, light);
    attribute(side, "NetworkIndicatorEnable", light.NetworkIndicatorEnable);
    attribute(side, "DefIotLightMode", light.DefIotLightMode);
    attribute(side, "DefIotLightOnSensitivity", light.DefIotLightOnSensitivity);
    attribute(side, "DefIotLightOffSensitivity", light.DefIotLightOffSensitivity);
}

void setLight(Side& side, IOT_CAMERA_1521_PARAM& light)
{
    lightSettings(side, light);
    attributeIfSet(side, "NetworkIndicatorEnable", light.NetworkIndicatorEnable);
}

// What a get carries alone.
void defaultAttribute(Side& side, Form form, Name name, uint8_t& field)
{
    if (form == Form::kGet)
        attribute(side, name, field);
}

void defaultRange(Side& side, Form form, Name name, int32_t (&range)[2])
{
    if (form == Form::kGet)
        rangeAttribute(side, name, range);
}

void periodTimes(Side& side, Name startName, Name endName, AlarmPeriod& period)
{
    timeAttribute(side, startName, period.stStart);
    timeAttribute(side, endName, period.stEnd);
}

void laterPeriods(Side& side, AlarmPeriod (&periods)[4])
{
    periodTimes(side, "AlarmStartTime1", "AlarmEndTime1", periods[1]);
    periodTimes(side, "AlarmStartTime2", "AlarmEndTime2", periods[2]);
    periodTimes(side, "AlarmStartTime3", "AlarmEndTime3", periods[3]);
}

// All four go out, whatever the element's AlarmPeriodNum says.
void indexedPeriods(Side& side, AlarmPeriod (&periods)[4])
{
    periodTimes(side, "AlarmStartTime0", "AlarmEndTime0", periods[0]);
    laterPeriods(side, periods);
}

// The same; the first pair has no number.
void mixedPeriods(Side& side, AlarmPeriod (&periods)[4])
{
    periodTimes(side, "AlarmStartTime", "AlarmEndTime", periods[0]);
    laterPeriods(side, periods);
}

void humanAlarm(Side& side, HumanDetection& human, Form form)
{
    attribute(side, "Enable", human.HumanAlarm_Enable);
    defaultAttribute(side, form, "DefEnable", human.HumanAlarm_DefEnable);
    attribute(side, "DetectionSens", human.DetectionSens);
    defaultAttribute(side, form, "DefDetectionSens", human.DefDetectionSens);
    defaultRange(side, form, "DefDetectionSensRange", human.DefDetectionSensRange);
    attribute(side, "OfflinePush", human.OfflinePush);
    defaultAttribute(side, form, "DefOfflinePush", human.DefOfflinePush);
    attribute(side, "AlarmShow", human.AlarmShow);
    defaultAttribute(side, form, "DefAlarmShow", human.DefAlarmShow);
}

void lightAlarm(Side& side, HumanDetection& human, Form form)
{
    attribute(side, "Enable", human.LightAlarm_Enable);
    defaultAttribute(side, form, "DefEnable", human.LightAlarm_DefEnable);
    attribute(side, "duration", human.duration);
    defaultAttribute(side, form, "DefDuration", human.DefDuration);
    defaultRange(side, form, "DefDurationRange", human.DefDurationRange);
    attribute(side, "ScheduleMode", human.LightAlarm_ScheduleMode);
    defaultAttribute(side, form, "DefScheduleMode", human.LightAlarm_DefScheduleMode);
    defaultAttribute(side, form, "AlarmPeriodNum", human.LightAlarm_AlarmPeriodNum);
    indexedPeriods(side, human.stLightPeriods);
}

void audioAlarm(Side& side, HumanDetection& human, Form form)
{
    attribute(side, "Enable", human.AudioAlarm_Enable);
    defaultAttribute(side, form, "DefEnable", human.AudioAlarm_DefEnable);
    attribute(side, "AlarmTimes", human.AlarmTimes);
    defaultAttribute(side, form, "DefAlarmTimes", human.DefAlarmTimes);
    defaultRange(side, form, "DefAlarmTimesRange", human.DefAlarmTimesRange);
    attribute(side, "ScheduleMode", human.AudioAlarm_ScheduleMode);
    defaultAttribute(side, form, "DefScheduleMode", human.AudioAlarm_DefScheduleMode);
    defaultAttribute(side, form, "AlarmPeriodNum", human.AudioAlarm_AlarmPeriodNum);
    indexedPeriods(side, human.stAudioPeriods);
}

void trackAlarm(Side& side, HumanDetection& human, Form form)
{
    // A set leaves the defaults out, but reads them.
    const Form defaults = side.writes() ? form : Form::kGet;
    attribute(side, "Enable", human.TrackAlarm_Enable);
    defaultAttribute(side, defaults, "DefEnable", human.TrackAlarm_DefEnable);
    attribute(side, "Time", human.Time);
    attribute(side, "TrackMode", human.TrackMode);
    attribute(side, "CenterMode", human.CenterMode);
    attribute(side, "showPtzTrack", human.showPtzTrack);
    attribute(side, "ScheduleMode", human.TrackAlarm_ScheduleMode);
    defaultAttribute(side, defaults, "DefScheduleMode", human.TrackAlarm_DefScheduleMode);
    attribute(side, "AlarmPeriodNum", human.TrackAlarm_AlarmPeriodNum);
    if (form == Form::kGet || side.takes(isSet(human.TrackAlarm_ScheduleMode)))
        mixedPeriods(side, human.stTrackPeriods);
}

void pushTime(Side& side, HumanDetection& human, Form form)
{
    attribute(side, "ScheduleMode", human.AlarmPushTime_ScheduleMode);
    defaultAttribute(side, form, "DefScheduleMode", human.AlarmPushTime_DefScheduleMode);
    defaultAttribute(side, form, "AlarmPeriodNum", human.AlarmPushTime_AlarmPeriodNum);
    mixedPeriods(side, human.stPushPeriods);
}

void humanDetection(Side& side, HumanDetection& record, Form form)
{
    if (const Element human = element(side, "HumanAlarm"))
        humanAlarm(side, record, form);
    if (const Element light = element(side, "LightAlarm"))
        lightAlarm(side, record, form);
    if (const Element audio = element(side, "AudioAlarm"))
        audioAlarm(side, record, form);
    if (const Element track = element(side, "TrackAlarm"))
        trackAlarm(side, record, form);
    if (const Element push = element(side, "AlarmPushTime"))
        pushTime(side, record, form);
}

void getHumanDetection(Side& side, HumanDetection& record)
{
    humanDetection(side, record, Form::kGet);
}

void setHumanDetection(Side& side, IOT_CAMERA_1523_PARAM& record)
{
    humanDetection(side, record, Form::kSet);
}

// --- Messages ------------------------------------------------------------------------------------

constexpr MessageRow kSetIpcDeviceToAge =
    message<IOT_CAMERA_1205_PARAM_init>("IOTCamera_SetIpcDeviceToAge_MessageAnalysis", request<ageing>());
constexpr MessageRow kGetIpcLightConfig =
    message<IOT_CAMERA_1520_PARAM_init>("IOTCamera_GetIpcLightConfig_MessageAnalysis", response<getLight>());
constexpr MessageRow kSetIpcLightConfig = message<IOT_CAMERA_1521_PARAM_init>(
    "IOTCamera_SetIpcLightConfig_MessageAnalysis", within<setLight>("IotLightControl", Kinds::kRequests));
constexpr MessageRow kGetHumanDetectionConfig = message<IOT_CAMERA_1522_PARAM_init>(
    "IOTCamera_GetHumanDetectionConfig_MessageAnalysis",
    within<getHumanDetection>("HumanAlarmConfig", Kinds::kResponses, kElements));
constexpr MessageRow kSetHumanDetectionConfig = message<IOT_CAMERA_1523_PARAM_init>(
    "IOTCamera_SetHumanDetectionConfig_MessageAnalysis",
    within<setHumanDetection>("HumanAlarmConfig", Kinds::kRequests, kElements));

constexpr CodeRow kCodes[] = {
    {1205, &kSetIpcDeviceToAge},       {1520, &kGetIpcLightConfig},       {1521, &kSetIpcLightConfig},
    {1522, &kGetHumanDetectionConfig}, {1523, &kSetHumanDetectionConfig},
};
static_assert(isAscending(kCodes));

} // namespace

extern constexpr Family kIotCameraFamily("IOT_CAMERA_MESSAGE", kCodes);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int IOT_CAMERA_1205_PARAM_init(IOT_CAMERA_1205_PARAM* param)
{
    return zel::initRecord(param);
}

int IOT_CAMERA_1520_PARAM_init(IOT_CAMERA_1520_PARAM* param)
{
    return zel::initRecord(param,
                           [](auto& record) { zel::clear(record.stIotTimingStart, record.stIotTimingEnd); });
}

int IOT_CAMERA_1522_PARAM_init(IOT_CAMERA_1522_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.stAudioPeriods, record.stLightPeriods, record.stTrackPeriods, record.stPushPeriods);
    });
}

ZEL_EXPORT_INIT(IOT_CAMERA_1521_PARAM, IOT_CAMERA_1520_PARAM)
ZEL_EXPORT_INIT(IOT_CAMERA_1523_PARAM, IOT_CAMERA_1522_PARAM)

int IOTCameraMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kIotCameraFamily, record, kind, code, buf, len);
}

int IOTCameraMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kIotCameraFamily, text, code, result);
}

ZEL_EXPORT_ANALYSIS(IOTCamera_SetIpcDeviceToAge, kSetIpcDeviceToAge)
ZEL_EXPORT_ANALYSIS(IOTCamera_GetIpcLightConfig, kGetIpcLightConfig)
ZEL_EXPORT_ANALYSIS(IOTCamera_SetIpcLightConfig, kSetIpcLightConfig)
ZEL_EXPORT_ANALYSIS(IOTCamera_GetHumanDetectionConfig, kGetHumanDetectionConfig)
ZEL_EXPORT_ANALYSIS(IOTCamera_SetHumanDetectionConfig, kSetHumanDetectionConfig)
