#include "analytics/smart_msg.h"

#include "analytics/smart_rule_list.h"
#include "core/lists.h"

namespace zel {

namespace {

using Human = SYSTEM_CONFIG_GET_1494_PARAM;
using Switches = SYSTEM_CONFIG_GET_1498_PARAM;

// --- Switches ------------------------------------------------------------------------------------

void lightAudioAlarm(Side& side, SYSTEM_CONFIG_GET_1492_PARAM& record)
{
    attribute(side, "LightAudioAlarmEnable", record.LightAudioAlarmEnable);
}

void smartDetection(Side& side, Switches& record)
{
    attribute(side, "RegionDetectionEnable", record.RegionDetectionEnable);
    attribute(side, "CrossBoundaryDetectionEnable", record.CrossBoundaryDetectionEnable);
}

// The record names the element that goes out.
int composeSmartDetection(const MessageRow& row, Outbound& outbound)
{
    const Part& part = row.parts[as<Switches>(outbound.record).iElementForm == 1 ? 1 : 0];
    if (includes(part.kinds, outbound.kind))
        writePart(part, outbound);
    return 0;
}

// --- Human alarm ---------------------------------------------------------------------------------

void schedule(Side& side, uint8_t& mode, uint32_t& count, TIME_PERIOD (&periods)[kPeriods])
{
    attribute(side, "ScheduleMode", mode);
    signedAttribute(side, "AlarmPeriodNum", count);
    cutPeriodListAttribute(side, "AlarmPeriod", periods, count);
}

void humanAlarm(Side& side, Human& record, Defaults defaults)
{
    const bool hasDefaults = defaults == Defaults::kWith;
    if (const Element detection = element(side, "HumanAlarm")) {
        attribute(side, "Enable", record.Enable);
        attribute(side, "DetectionSens", record.DetectionSens);
        if (hasDefaults)
            rangeAttribute(side, "DefDetectionSensRange", record.DefDetectionSensRange);
    }
    if (const Element light = element(side, "LightAlarm")) {
        attribute(side, "Enable", record.LightEnable);
        attribute(side, "duration", record.Lightduration);
        if (hasDefaults)
            rangeAttribute(side, "DefLightdurationRange", record.DefLightdurationRange);
        schedule(side, record.LightScheduleMode, record.LightAlarmPeriodNum, record.LightAlarmPeriod);
    }
    if (const Element audio = element(side, "AudioAlarm")) {
        attribute(side, "Enable", record.AudioEnable);
        attribute(side, "AlarmTimes", record.AudioAlarmTimes);
        if (hasDefaults)
            rangeAttribute(side, "DefLightdurationRange", record.DefAudioRange);
        schedule(side, record.AudioScheduleMode, record.AudioAlarmPeriodNum, record.AudioAlarmPeriod);
    }
    if (const Element line = element(side, "DrawLine")) {
        attribute(side, "ShowAlarmCount", record.ShowAlarmCount);
        attribute(side, "ShowAlarmLine", record.ShowAlarmLine);
        resolutionAttribute(side, "VideoResolution", record.VideoResolution);
        if (hasDefaults)
            attribute(side, "MaxCoordinateCapability", record.MaxCoordinateCapability);
        attribute(side, "LineCoordinatesNum", record.LineCoordinatesNum);
        coordinateListAttribute(side, "LineCoordinates", record.LineCoordinates, record.LineCoordinatesNum);
    }
}

void getHumanAlarm(Side& side, SYSTEM_CONFIG_GET_1494_PARAM& record)
{
    humanAlarm(side, record, Defaults::kWith);
}

void setHumanAlarm(Side& side, SYSTEM_CONFIG_SET_1495_PARAM& record)
{
    humanAlarm(side, record, Defaults::kWithout);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetLightAudioAlarmConfig = message<SYSTEM_CONFIG_GET_1492_PARAM_init>(
    "SystemConfig_getLightAudioAlarmConfig_MessageAnalysis",
    within<lightAudioAlarm>("LightAudioAlarm", Kinds::kNotRequests));
extern constexpr MessageRow kSetLightAudioAlarmConfig =
    message<SYSTEM_CONFIG_SET_1493_PARAM_init>("SystemConfig_setLightAudioAlarmConfig_MessageAnalysis",
                                               within<lightAudioAlarm>("LightAudioAlarm", Kinds::kRequests));
extern constexpr MessageRow kGetHumanAlarmConfig = message<SYSTEM_CONFIG_GET_1494_PARAM_init>(
    "SystemConfig_getHumanAlarmConfig_MessageAnalysis",
    within<getHumanAlarm>("HumanAlarmConfig", Kinds::kNotRequests, kElements));
extern constexpr MessageRow kSetHumanAlarmConfig = message<SYSTEM_CONFIG_SET_1495_PARAM_init>(
    "SystemConfig_setHumanAlarmConfig_MessageAnalysis",
    within<setHumanAlarm>("HumanAlarmConfig", Kinds::kRequests, kElements));
extern constexpr MessageRow kGetSmartDetectionConfig =
    message<SYSTEM_CONFIG_GET_1498_PARAM_init>("SystemConfig_getSmartDetectionConfig_MessageAnalysis",
                                               within<smartDetection>("SmartDetection", Kinds::kNotRequests),
                                               within<smartDetection>("SmartDetection1", Kinds::kNotRequests))
        .reporting("SmartDetection")
        .composedBy(composeSmartDetection);
extern constexpr MessageRow kSetSmartDetectionConfig =
    message<SYSTEM_CONFIG_SET_1499_PARAM_init>("SystemConfig_setSmartDetectionConfig_MessageAnalysis",
                                               within<smartDetection>("SmartDetection", Kinds::kRequests),
                                               within<smartDetection>("SmartDetection1", Kinds::kRequests))
        .reporting("SmartDetection")
        .composedBy(composeSmartDetection);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1492_PARAM_init(SYSTEM_CONFIG_GET_1492_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_1494_PARAM_init(SYSTEM_CONFIG_GET_1494_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_1498_PARAM_init(SYSTEM_CONFIG_GET_1498_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1493_PARAM, SYSTEM_CONFIG_GET_1492_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1495_PARAM, SYSTEM_CONFIG_GET_1494_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_1496_PARAM, SYSTEM_CONFIG_GET_1494_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1497_PARAM, SYSTEM_CONFIG_GET_1494_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1499_PARAM, SYSTEM_CONFIG_GET_1498_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getLightAudioAlarmConfig, kGetLightAudioAlarmConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setLightAudioAlarmConfig, kSetLightAudioAlarmConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanAlarmConfig, kGetHumanAlarmConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanAlarmConfig, kSetHumanAlarmConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_getSmartDetectionConfig, kGetSmartDetectionConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setSmartDetectionConfig, kSetSmartDetectionConfig)
