#include "analytics/algorithm_msg.h"

#include "analytics/smart_rule_list.h"
#include "core/lists.h"

namespace zel {

namespace {

using Algorithm = SYSTEM_CONFIG_GET_1429_PARAM;

// --- License plates ------------------------------------------------------------------------------

void plateSettings(Side& side, Algorithm& record)
{
    attribute(side, "Enable", record.Enable);
    attribute(side, "VirtualLoopEnable", record.VirtualLoopEnable);
    attribute(side, "AnalysisPeriodNum", record.AnalysisPeriodNum);
    attribute(side, "LightAlarmEnable", record.LightAlarmEnable);
    attribute(side, "LightAlarmPeriodNum", record.LightAlarmPeriodNum);
    attribute(side, "AudioAlarmEnable", record.AudioAlarmEnable);
    attribute(side, "AudioAlarmPeriodNum", record.AudioAlarmPeriodNum);
    resolutionAttribute(side, "VideoResolution", record.VideoResolution);
    attribute(side, "AlarmTime", record.AlarmTime);
    attribute(side, "ShowAlarmLine", record.ShowAlarmLine);
    // Stands behind the list that it bounds.
    attributeRead(side, "LineCoordinatesNum", record.LineCoordinatesNum);
    coordinateListAttribute(side, "LineCoordinates", record.LineCoordinates, record.LineCoordinatesNum);
    attribute(side, "MaxCoordinateCapability", record.MaxCoordinateCapability);
    attributeWritten(side, "LineCoordinatesNum", record.LineCoordinatesNum);
    attribute(side, "StrongLightSupprSens", record.StrongLightSupprSens);
}

void plateDefaults(Side& side, Algorithm& record)
{
    attribute(side, "DefEnable", record.DefEnable);
    attribute(side, "DefLightAlarmEnable", record.DefLightAlarmEnable);
    attribute(side, "DefAudioAlarmEnable", record.DefAudioAlarmEnable);
    attribute(side, "DefAlarmTime", record.DefAlarmTime);
    attribute(side, "DefVirtualLoopEnable", record.DefVirtualLoopEnable);
}

void platePeriods(Side& side, Algorithm& record)
{
    periodListAttribute(side, "AnalysisPeriod", record.AnalysisPeriod, record.AnalysisPeriodNum);
    periodListAttribute(side, "LightAlarmPeriod", record.LightAlarmPeriod, record.LightAlarmPeriodNum);
    periodListAttribute(side, "AudioAlarmPeriod", record.AudioAlarmPeriod, record.AudioAlarmPeriodNum);
}

// A range of two bytes, which go through int32_t as any other range's bounds.
char* printByteRange(char* at, const void* items, size_t)
{
    const auto* const bounds = static_cast<const uint8_t*>(items);
    at = printNumber(at, uint32_t{bounds[0]});
    *at++ = ',';
    return printNumber(at, uint32_t{bounds[1]});
}

void scanByteRange(std::string_view value, void* items, size_t)
{
    auto* const bounds = static_cast<uint8_t*>(items);
    int32_t numbers[] = {bounds[0], bounds[1]};
    scanNumbers(value, ',', numbers, 2);
    bounds[0] = static_cast<uint8_t>(numbers[0]);
    bounds[1] = static_cast<uint8_t>(numbers[1]);
}

constexpr ValueForm kByteRange = {ZEL_FORM_OWN, kLongestNumber + 1, printByteRange, scanByteRange};

void getPlateEvent(Side& side, SYSTEM_CONFIG_GET_1404_PARAM& record)
{
    static_assert(offsetof(Algorithm, ucStrongLightSupprSensMax) ==
                  offsetof(Algorithm, ucStrongLightSupprSensMin) + 1);
    plateSettings(side, record);
    attribute(side, "DefStrongLightSupprSens", record.DefStrongLightSupprSens);
    valueAttribute(side, "StrongLightSupprSensRange", kByteRange, &record.ucStrongLightSupprSensMin, 2, 2);
    attribute(side, "strongLightDebug", record.strongLightDebug);
    plateDefaults(side, record);
    platePeriods(side, record);
}

void setPlateEvent(Side& side, SYSTEM_CONFIG_SET_1405_PARAM& record)
{
    plateSettings(side, record);
    attributeIfSet(side, "strongLightDebug", record.strongLightDebug);
    platePeriods(side, record);
}

void platePicture(Side& side, SYSTEM_CONFIG_SET_1406_PARAM& record)
{
    attribute(side, "MaxBytesPerPacket", record.MaxBytesPerPacket);
    attribute(side, "LicensePlate", record.LicensePlate);
    attribute(side, "Timestamp", record.Timestamp);
}

// --- Algorithms ----------------------------------------------------------------------------------

void listedAlgorithm(Side& side, SYSTEM_CONFIG_ALGORITHM_ROW& row)
{
    textElement(side, "algorithmId", row.algorithmId);
    textElement(side, "install", row.install);
    textElement(side, "useStatus", row.useStatus);
    textElement(side, "version", row.version);
    textElement(side, "isBuildIn", row.isBuildIn);
}

bool isInUse(const SYSTEM_CONFIG_ALGORITHM_ROW& row)
{
    return isSet(row.algorithmId);
}

void algorithms(Side& side, SYSTEM_CONFIG_GET_1428_PARAM& record)
{
    textElement(side, "DevSn", record.DevSn);
    textElement(side, "FirmwareVersion", record.FirmwareVersion);
    textElement(side, "AvailableSize", record.AvailableSize);
    if (const Element all = container(side, "Algorithms"))
        rowElements<listedAlgorithm>(side, "ls", record.stAlgorithm,
                                     rowsInUse(side, record.stAlgorithm, isInUse), kElements);
}

void highAltitudeParabolic(Side& side, Algorithm& record, Defaults defaults)
{
    attribute(side, "Enable", record.Enable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefEnable", record.DefEnable);
    ruleSensitivity(side, record, defaults);
    attribute(side, "ShowTrackLine", record.ShowTrackLine);
    attribute(side, "ShowAlarmLine", record.ShowAlarmLine);
    resolutionAttribute(side, "VideoResolution", record.VideoResolution);
    attribute(side, "MaxCoordinateCapability", record.MaxCoordinateCapability);
    attribute(side, "LineCoordinatesNum", record.LineCoordinatesNum);
    coordinateListAttribute(side, "LineCoordinates", record.LineCoordinates, record.LineCoordinatesNum);
}

// Two attributes of an answer are read of a change too.
void licensePlateRecognition(Side& side, Algorithm& record, Defaults defaults)
{
    plateSettings(side, record);
    if (!side.writes() || defaults == Defaults::kWith) {
        rangeAttribute(side, "StrongLightSupprSensRange", record.StrongLightSupprSensRange);
        attribute(side, "strongLightDebug", record.strongLightDebug);
    }
    if (defaults == Defaults::kWith) {
        plateDefaults(side, record);
        attribute(side, "DefStrongLightSupprSens", record.DefStrongLightSupprSens);
    }
    platePeriods(side, record);
}

// The name selects what goes out; an analysis takes what is there.
void config(Side& side, Algorithm& record, Defaults defaults)
{
    const Element config = element(side, "config", kBoth | kOnLine);
    if (!config)
        return;
    attribute(side, "algorithmId", record.algorithmId);
    config.elements();
    const std::string_view name = textOf(record.algorithmId);
    if (const Element parabolic = elementIf(name == "HA", side, "highAltitudeParabolic"))
        highAltitudeParabolic(side, record, defaults);
    if (const Element plate = elementIf(name == "LP", side, "licensePlateRecognition"))
        licensePlateRecognition(side, record, defaults);
}

void algorithmRequest(Side& side, Algorithm& record)
{
    attribute(side, "algorithmId", record.algorithmId);
}

void getConfig(Side& side, SYSTEM_CONFIG_GET_1429_PARAM& record)
{
    config(side, record, Defaults::kWith);
}

void setConfig(Side& side, SYSTEM_CONFIG_SET_1430_PARAM& record)
{
    config(side, record, Defaults::kWithout);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetLicensePlateEvent =
    message<SYSTEM_CONFIG_GET_1404_PARAM_init>("SystemConfig_getLicensePlateEvent_MessageAnalysis",
                                               within<getPlateEvent>("VehicleAnalysis", Kinds::kNotRequests));
extern constexpr MessageRow kSetLicensePlateEvent =
    message<SYSTEM_CONFIG_SET_1405_PARAM_init>("SystemConfig_setLicensePlateEvent_MessageAnalysis",
                                               within<setPlateEvent>("VehicleAnalysis", Kinds::kRequests));
extern constexpr MessageRow kGetLicensePlateImage =
    message<SYSTEM_CONFIG_SET_1406_PARAM_init>("SystemConfig_getLicensePlateImage_MessageAnalysis",
                                               within<platePicture>("LicensePlatePicture", Kinds::kRequests));
extern constexpr MessageRow kGetAlgorithmicList =
    message<SYSTEM_CONFIG_GET_1428_PARAM_init>("SystemConfig_getAlgorithmicList_MessageAnalysis",
                                               over<algorithms>("DevSn", Kinds::kNotRequests))
        .reporting("Algorithms");
extern constexpr MessageRow kGetAlgorithmicConfig =
    message<SYSTEM_CONFIG_GET_1429_PARAM_init>("SystemConfig_getAlgorithmicConfig_MessageAnalysis",
                                               over<getConfig>("config", Kinds::kNotRequests),
                                               request<algorithmRequest>(Kinds::kRequests, kOnLine))
        .reporting("config");
extern constexpr MessageRow kSetAlgorithmicConfig = message<SYSTEM_CONFIG_SET_1430_PARAM_init>(
    "SystemConfig_setAlgorithmicConfig_MessageAnalysis", over<setConfig>("config", Kinds::kRequests));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_SET_1406_PARAM_init(SYSTEM_CONFIG_SET_1406_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.LicensePlate); });
}

int SYSTEM_CONFIG_GET_1428_PARAM_init(SYSTEM_CONFIG_GET_1428_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.DevSn, record.FirmwareVersion);
        for (SYSTEM_CONFIG_ALGORITHM_ROW& row : record.stAlgorithm)
            zel::clear(row.algorithmId, row.version);
    });
}

int SYSTEM_CONFIG_GET_1429_PARAM_init(SYSTEM_CONFIG_GET_1429_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.algorithmId); });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1430_PARAM, SYSTEM_CONFIG_GET_1429_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_1404_PARAM, SYSTEM_CONFIG_GET_1429_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1405_PARAM, SYSTEM_CONFIG_GET_1429_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getLicensePlateEvent, kGetLicensePlateEvent)
ZEL_EXPORT_ANALYSIS(SystemConfig_setLicensePlateEvent, kSetLicensePlateEvent)
ZEL_EXPORT_ANALYSIS(SystemConfig_getLicensePlateImage, kGetLicensePlateImage)
ZEL_EXPORT_ANALYSIS(SystemConfig_getAlgorithmicList, kGetAlgorithmicList)
ZEL_EXPORT_ANALYSIS(SystemConfig_getAlgorithmicConfig, kGetAlgorithmicConfig)
ZEL_EXPORT_ANALYSIS(SystemConfig_setAlgorithmicConfig, kSetAlgorithmicConfig)
