#include "analytics/face_msg.h"

#include "analytics/smart_rule_list.h"
#include "core/lists.h"
#include "events/face.h"

namespace zel {

namespace {

using Face = SYSTEM_CONFIG_GET_1407_PARAM;
using Import = SYSTEM_CONFIG_GET_1425_PARAM;

// --- Recognition ---------------------------------------------------------------------------------

void detection(Side& side, Face& face, Defaults defaults)
{
    attribute(side, "Enable", face.Enable);
    if (defaults == Defaults::kWith)
        attribute(side, "DefEnable", face.DefEnable);
    attribute(side, "DetectionSens", face.DetectionSens);
    if (defaults == Defaults::kWith)
        attribute(side, "DefDetectionSens", face.DefDetectionSens);
}

void line(Side& side, Face& face)
{
    attribute(side, "ShowAlarmLine", face.ShowAlarmLine);
    resolutionAttribute(side, "VideoResolution", face.VideoResolution);
    attribute(side, "MaxCoordinateCapability", face.MaxCoordinateCapability);
    attribute(side, "LineCoordinatesNum", face.LineCoordinatesNum);
    coordinateListAttribute(side, "LineCoordinates", face.LineCoordinates, face.LineCoordinatesNum);
}

// The count of the analysis periods has another name in a change.
void recognition(Side& side, Face& face, Defaults defaults, Name analysisCount)
{
    detection(side, face, defaults);
    attribute(side, analysisCount, face.AnalysisPeriodNum);
    periodListAttribute(side, "AnalysisPeriod", face.AnalysisPeriod, face.AnalysisPeriodNum);
    attribute(side, "LightAlarmEnable", face.LightAlarmEnable);
    attribute(side, "LightAlarmPeriodNum", face.LightAlarmPeriodNum);
    periodListAttribute(side, "LightAlarmPeriod", face.LightAlarmPeriod, face.LightAlarmPeriodNum);
    attribute(side, "AudioAlarmEnable", face.AudioAlarmEnable);
    attribute(side, "AudioAlarmPeriodNum", face.AudioAlarmPeriodNum);
    periodListAttribute(side, "AudioAlarmPeriod", face.AudioAlarmPeriod, face.AudioAlarmPeriodNum);
    attribute(side, "AlarmTime", face.AlarmTime);
    attribute(side, "ShowFaceBox", face.ShowFaceBox);
    line(side, face);
}

void getRecognition(Side& side, SYSTEM_CONFIG_GET_1407_PARAM& face)
{
    recognition(side, face, Defaults::kWith, "AnalysisPeriodNum");
}

void setRecognition(Side& side, SYSTEM_CONFIG_SET_1408_PARAM& face)
{
    recognition(side, face, Defaults::kWithout, "AnalysisriodNum");
}

void picture(Side& side, SYSTEM_CONFIG_SET_1409_PARAM& record)
{
    attribute(side, "MaxBytesPerPacket", record.MaxBytesPerPacket);
    attribute(side, "HumanFace", record.HumanFace);
    attribute(side, "Timestamp", record.Timestamp);
    attribute(side, "SerialNum", record.SerialNum);
}

void similarity(Side& side, SYSTEM_CONFIG_GET_1410_PARAM& record)
{
    attribute(side, "SimilarityThreshold", record.SimilarityThreshold);
    numbersAttribute(side, "SimilarityRange", kBrackets, record.SimilarityRange);
    attribute(side, "DefaultThreshold", record.DefaultThreshold);
}

// --- Recognition with scenes ---------------------------------------------------------------------

// Each value is read that has a comma behind it.
void defaultScenes(Side& side, Face& face)
{
    constexpr size_t kScenes = std::size(decltype(face.DefEnableScene){});
    if (side.writes()) {
        listAttribute(side, "DefEnableScene", face.DefEnableScene, kScenes,
                      clampCount(face.ucDefEnableSceneNum, kScenes));
        return;
    }
    std::string_view list;
    if (!readValue(side, "DefEnableScene", ZEL_FORM_LIST, face.DefEnableScene, sizeof face.DefEnableScene,
                   list))
        return;
    uint8_t count = 0;
    for (size_t comma; count < kScenes && (comma = list.find(',')) != std::string_view::npos; ++count) {
        face.DefEnableScene[count] = numberOf(list);
        list.remove_prefix(comma + 1);
    }
    face.ucDefEnableSceneNum = count;
}

void sceneAttributes(Side& side, SYSTEM_CONFIG_SCENE_ROW& scene)
{
    attribute(side, "SceneIndex", scene.SceneIndex);
    attribute(side, "SceneAlias", scene.SceneAlias);
    attribute(side, "SceneEnable", scene.SceneEnable);
}

bool isScene(const SYSTEM_CONFIG_SCENE_ROW& scene)
{
    return isSet(scene.SceneIndex);
}

void sceneTags(Side& side, Face& face, size_t most)
{
    const size_t count = rowElements<sceneAttributes>(side, "SceneAlarmTag", face.stScene,
                                                      rowsInUse(side, face.stScene, isScene, most));
    if (!side.writes())
        face.ucSceneTagNum = static_cast<uint8_t>(count);
}

void getScenes(Side& side, SYSTEM_CONFIG_GET_1418_PARAM& face)
{
    if (const Element settings = element(side, "HumanFaceRecognition")) {
        detection(side, face, Defaults::kWith);
        attribute(side, "ShowFaceBox", face.ShowFaceBox);
        if (side.takes(isSet(face.ShowAlarmLine)))
            line(side, face);
        defaultScenes(side, face);
    }
    sceneTags(side, face, countedRows(side, face.ucSceneTagNum, face.stScene));
}

void setScenes(Side& side, SYSTEM_CONFIG_SET_1419_PARAM& face)
{
    if (const Element settings = element(side, "HumanFaceRecognition")) {
        detection(side, face, Defaults::kWithout);
        attributeIfSet(side, "ShowFaceBox", face.ShowFaceBox);
        if (side.takes(isSet(face.ShowAlarmLine)))
            line(side, face);
    }
    sceneTags(side, face, std::size(face.stScene));
}

// --- Databases -----------------------------------------------------------------------------------

void databaseAttributes(Side& side, SYSTEM_CONFIG_FACE_DATABASE_ROW& database)
{
    attribute(side, "ListType", database.ListType);
    attribute(side, "Amount", database.Amount);
    attribute(side, "Capacity", database.Capacity);
    attribute(side, "addAllow", database.addAllow);
}

bool isDatabase(const SYSTEM_CONFIG_FACE_DATABASE_ROW& database)
{
    return isSet(database.ListType);
}

void capacity(Side& side, SYSTEM_CONFIG_GET_1424_PARAM& record)
{
    rowElements<databaseAttributes>(side, "faceDatabase", record.stFaceDatabase,
                                    rowsInUse(side, record.stFaceDatabase, isDatabase));
}

void importedFace(Side& side, Import& record)
{
    ALARM_REPORT_HUMANFACE_INFO& face = record.stFace;
    attribute(side, "uniqueIndex", face.uniqueIndex);
    signedAttribute(side, "absTime", face.absTime);
    attribute(side, "Age", face.Age);
    attribute(side, "Gender", face.Gender);
    attribute(side, "IsMask", face.IsMask);
    attribute(side, "IsGlasses", face.IsGlasses);
    attribute(side, "IsHat", face.IsHat);
    signedAttribute(side, "DataLen", face.DataLen);
    attribute(side, "AlgVer", face.AlgVer);
    faceScores(side, face);
    // Not read under the name that it is written with.
    attributeWritten(side, "Time", record.ErrorMsg);
    attributeRead(side, "ErrorMsg", record.ErrorMsg);
    attributeRead(side, "SerialNum", record.SerialNum);
}

void importResult(Side& side, Import& record)
{
    if (const Element face = element(side, "FACE_FEATURE_RESULT"))
        importedFace(side, record);
    if (const Element load = element(side, "LOAD_FACE_YUV_PARAM")) {
        attribute(side, "ListType", record.ListType);
        attribute(side, "Alias", record.Alias);
        attribute(side, "BatchChanel", record.BatchChanel);
    } else if (!side.writes()) {
        // The face's number only counts beside its database.
        setAbsent(record.SerialNum);
    }
    if (const Element header = element(side, "TRANSPARENT_HEADER")) {
        attribute(side, "Trans_Type", record.Trans_Type);
        attributeWritten(side, "Trans_flag", record.Trans_Result);
        attribute(side, "Session_ID", record.Session_ID);
        attribute(side, "Source_Type", record.Source_Type);
        attribute(side, "Channel_ID", record.Channel_ID);
        attributeRead(side, "Trans_Result", record.Trans_Result);
    }
}

int analyseImport(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    std::string_view block;
    if (const ElementReader face = body.child("FACE_FEATURE_RESULT"))
        if (const int status = findFaceFeatures(message, row.leaf, face, block))
            return status;
    const int status = giveParts(row, message, body, result);
    if (status == 0)
        setFaceFeatures(static_cast<Import*>(*result)->stFace, block);
    return status;
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kGetHumanFaceEvent = message<SYSTEM_CONFIG_GET_1407_PARAM_init>(
    "SystemConfig_getHumanFaceEvent_MessageAnalysis",
    within<getRecognition>("HumanFaceRecognition", Kinds::kNotRequests));
extern constexpr MessageRow kSetHumanFaceEvent = message<SYSTEM_CONFIG_SET_1408_PARAM_init>(
    "SystemConfig_setHumanFaceEvent_MessageAnalysis",
    within<setRecognition>("HumanFaceRecognition", Kinds::kRequests));
extern constexpr MessageRow kGetHumanFaceImage = message<SYSTEM_CONFIG_SET_1409_PARAM_init>(
    "SystemConfig_getHumanFaceImage_MessageAnalysis", within<picture>("HumanFacePicture", Kinds::kRequests));
extern constexpr MessageRow kGetHumanFaceAdvanced = message<SYSTEM_CONFIG_GET_1410_PARAM_init>(
    "SystemConfig_getHumanFaceAdvanced_MessageAnalysis",
    within<similarity>("HumanFaceAdvancedSet", Kinds::kNotRequests));
extern constexpr MessageRow kSetHumanFaceAdvanced =
    message<SYSTEM_CONFIG_SET_1411_PARAM_init>("SystemConfig_setHumanFaceAdvanced_MessageAnalysis",
                                               within<similarity>("HumanFaceAdvancedSet", Kinds::kRequests));
extern constexpr MessageRow kGetHumanFaceV2 = message<SYSTEM_CONFIG_GET_1418_PARAM_init>(
    "SystemConfig_getHumanFaceV2_MessageAnalysis",
    within<getScenes>("HumanFaceParam", Kinds::kNotRequests, kElements));
extern constexpr MessageRow kSetHumanFaceV2 = message<SYSTEM_CONFIG_SET_1419_PARAM_init>(
    "SystemConfig_setHumanFaceV2_MessageAnalysis",
    within<setScenes>("HumanFaceParam", Kinds::kRequests, kElements));
extern constexpr MessageRow kGetHumanFaceCapacity = message<SYSTEM_CONFIG_GET_1424_PARAM_init>(
    "SystemConfig_getHumanFaceCapacity_MessageAnalysis", over<capacity>("faceDatabase", Kinds::kNotRequests));
extern constexpr MessageRow kFaceYuvImportResult =
    message<SYSTEM_CONFIG_GET_1425_PARAM_init>("SystemConfig_FaceYuvImportResult_MessageAnalysis",
                                               over<importResult>("FACE_FEATURE_RESULT", Kinds::kRequests))
        .analysedBy(analyseImport)
        .followedBy(ZEL_BEHIND_FEATURE_BLOCK);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_1407_PARAM_init(SYSTEM_CONFIG_GET_1407_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (SYSTEM_CONFIG_SCENE_ROW& scene : record.stScene)
            zel::clear(scene.SceneAlias);
    });
}

int SYSTEM_CONFIG_SET_1409_PARAM_init(SYSTEM_CONFIG_SET_1409_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.HumanFace); });
}

int SYSTEM_CONFIG_GET_1410_PARAM_init(SYSTEM_CONFIG_GET_1410_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_1424_PARAM_init(SYSTEM_CONFIG_GET_1424_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_GET_1425_PARAM_init(SYSTEM_CONFIG_GET_1425_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record);
        zel::setAbsent(record.ListType, record.SerialNum);
    });
}

ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1408_PARAM, SYSTEM_CONFIG_GET_1407_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1411_PARAM, SYSTEM_CONFIG_GET_1410_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_GET_1418_PARAM, SYSTEM_CONFIG_GET_1407_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONFIG_SET_1419_PARAM, SYSTEM_CONFIG_GET_1407_PARAM)

ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanFaceEvent, kGetHumanFaceEvent)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanFaceEvent, kSetHumanFaceEvent)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanFaceImage, kGetHumanFaceImage)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanFaceAdvanced, kGetHumanFaceAdvanced)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanFaceAdvanced, kSetHumanFaceAdvanced)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanFaceV2, kGetHumanFaceV2)
ZEL_EXPORT_ANALYSIS(SystemConfig_setHumanFaceV2, kSetHumanFaceV2)
ZEL_EXPORT_ANALYSIS(SystemConfig_getHumanFaceCapacity, kGetHumanFaceCapacity)
ZEL_EXPORT_ANALYSIS(SystemConfig_FaceYuvImportResult, kFaceYuvImportResult)
