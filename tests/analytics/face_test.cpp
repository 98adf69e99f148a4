#include "support/fields.h"

using namespace test;

namespace {

using Face = SYSTEM_CONFIG_GET_1407_PARAM;
using Import = SYSTEM_CONFIG_GET_1425_PARAM;

const std::string kType = "SYSTEM_CONFIG_GET_MESSAGE";

// --- Recognition ---------------------------------------------------------------------------------

const std::string kLine = "ShowAlarmLine='11'|VideoResolution='12*13'|MaxCoordinateCapability='14'|"
                          "LineCoordinatesNum='2'|LineCoordinates='" +
                          kPoints + "'|";

Face withLine()
{
    Face face = fresh(SYSTEM_CONFIG_SET_1408_PARAM_init);
    number(11, face.ShowAlarmLine, face.VideoResolution[0], face.VideoResolution[1],
           face.MaxCoordinateCapability, face.Enable, face.DetectionSens, face.ShowFaceBox);
    setPoints(face.LineCoordinatesNum, face.LineCoordinates);
    return face;
}

TEST(FaceEvent, BothWays)
{
    Face face = withLine();
    number(18, face.LightAlarmEnable, face.AudioAlarmEnable, face.AlarmTime);
    setPeriods(face.AnalysisPeriodNum, face.AnalysisPeriod, 1);
    setPeriods(face.LightAlarmPeriodNum, face.LightAlarmPeriod, 2);
    setPeriods(face.AudioAlarmPeriodNum, face.AudioAlarmPeriod, 3);
    const std::string rest = "AnalysisPeriod='" + kPeriods1 +
                             "'|LightAlarmEnable='18'|LightAlarmPeriodNum='2'|LightAlarmPeriod='" +
                             kPeriods2 +
                             "'|AudioAlarmEnable='19'|AudioAlarmPeriodNum='3'|AudioAlarmPeriod='" +
                             kPeriods3 + "'|AlarmTime='20'|ShowFaceBox='17'|" + kLine + "/>|";
    expectRequest(kType, "1408", face,
                  "<HumanFaceRecognition|Enable='15'|DetectionSens='16'|AnalysisriodNum='1'|" + rest);
    number(21, face.DefEnable, face.DefDetectionSens);
    const std::string answer = "<HumanFaceRecognition|Enable='15'|DefEnable='21'|DetectionSens='16'|"
                               "DefDetectionSens='22'|AnalysisPeriodNum='1'|" +
                               rest;
    expectResponse(kType, "1407", face, answer);

    // The count under the other message's name isn't found; the list then runs to its end.
    face.AnalysisPeriodNum = 255;
    expectRead(kType, "1407", replaced(answer, "AnalysisPeriodNum", "AnalysisriodNum"), face);
    face.DefEnable = face.DefDetectionSens = 255;
    expectRead(kType, "1408", answer, face);
}

TEST(FaceEvent, PictureAndThreshold)
{
    auto picture = fresh(SYSTEM_CONFIG_SET_1409_PARAM_init);
    picture = {11, 4000000000, 4000000001, "face"};
    expectRequest(kType, "1409", picture,
                  "<HumanFacePicture|MaxBytesPerPacket='11'|HumanFace='face'|Timestamp='4000000000'|"
                  "SerialNum='4000000001'|/>|");

    auto advanced = fresh(SYSTEM_CONFIG_SET_1411_PARAM_init);
    for (const char* code : {"1410", "1411"})
        expectRead(kType, code, "<HumanFaceAdvancedSet SimilarityRange='12,13'/>", advanced);
    advanced = {11, 14, {12, 13}};
    const std::string text =
        "<HumanFaceAdvancedSet|SimilarityThreshold='11'|SimilarityRange='[12,13]'|DefaultThreshold='14'|/>|";
    expectResponse(kType, "1410", advanced, text);
    expectRequest(kType, "1411", advanced, text);
}

// --- Recognition with scenes ---------------------------------------------------------------------

const std::string kScenes =
    "<SceneAlarmTag|SceneIndex='31'|SceneAlias='first'|SceneEnable='32'|/>|<SceneAlarmTag|SceneIndex='33'|"
    "SceneAlias='second'|SceneEnable='34'|/>|";

// The body, from the attributes and the tags.
std::string sceneText(const std::string& attributes, const std::string& tags)
{
    return "<HumanFaceParam>|<HumanFaceRecognition|" + attributes + "/>|" + tags + "</HumanFaceParam>|";
}

TEST(FaceScenes, BothWays)
{
    Face face = withLine();
    face.ucSceneTagNum = 2;
    face.stScene[0] = {31, 32, "first"};
    face.stScene[1] = {33, 34, "second"};
    const Face change = face;
    const std::string changeText =
        sceneText("Enable='15'|DetectionSens='16'|ShowFaceBox='17'|" + kLine, kScenes);
    expectRequest(kType, "1419", change, changeText);
    number(21, face.DefEnable, face.DefDetectionSens, face.DefEnableScene[0], face.DefEnableScene[1]);
    face.ucDefEnableSceneNum = 2;
    const std::string answer =
        sceneText("Enable='15'|DefEnable='21'|DetectionSens='16'|DefDetectionSens='22'|ShowFaceBox='17'|" +
                      kLine + "DefEnableScene='23,24,'|",
                  kScenes);
    expectResponse(kType, "1418", face, answer);
    expectRead(kType, "1419", answer, change);

    // The line goes as one, but comes attribute by attribute.
    face.ShowAlarmLine = 255;
    EXPECT_EQ(bodyOf(kType, "1418", &face, 1), wire(replaced(answer, kLine)));
    EXPECT_EQ(bodyOf(kType, "1419", &face, 0), wire(replaced(changeText, kLine)));
    expectRead(kType, "1418", replaced(answer, "ShowAlarmLine='11'|"), face);
}

TEST(FaceScenes, FreshRecord)
{
    Face face = fresh(SYSTEM_CONFIG_SET_1419_PARAM_init);
    expectBodies(kType, "1418", &face, "",
                 sceneText("Enable='255'|DefEnable='255'|DetectionSens='255'|DefDetectionSens='255'|"
                           "ShowFaceBox='255'|DefEnableScene='-1,-1,-1,-1,-1,'|",
                           ""));
    expectBodies(kType, "1419", &face, sceneText("Enable='255'|DetectionSens='255'|", ""), "");
    // Tags stand beside the recognition, not inside it.
    face.ucSceneTagNum = 0;
    expectRead(kType, "1418",
               "<HumanFaceParam><HumanFaceRecognition>" + kScenes +
                   "</HumanFaceRecognition></HumanFaceParam>",
               face);
}

// Only the answer has a count of scenes.
TEST(FaceScenes, TagsOutAndIn)
{
    std::string six;
    Face face = fresh(SYSTEM_CONFIG_GET_1418_PARAM_init);
    for (uint8_t i = 0; i <= 5; ++i) {
        six += "<SceneAlarmTag SceneIndex='" + std::to_string(i + 11) + "'/><Other/>";
        if (i < 5)
            face.stScene[i].SceneIndex = static_cast<uint8_t>(i + 11);
    }
    face.ucSceneTagNum = 5;
    for (const char* code : {"1418", "1419"})
        expectRead(kType, code, "<HumanFaceParam>" + six + "</HumanFaceParam>", face);

    const auto tags = [&](const char* code, int kind) {
        const auto words = split(bodyOf(kType, code, &face, kind));
        return std::count(words.begin(), words.end(), "<SceneAlarmTag");
    };
    for (const int count : {0, 2, 5, 6}) {
        face.ucSceneTagNum = static_cast<uint8_t>(count);
        EXPECT_EQ(tags("1418", 1), std::min(count, 5));
        EXPECT_EQ(tags("1419", 0), 5);
    }
    face.stScene[3].SceneIndex = 255;
    EXPECT_EQ(tags("1418", 1), 3);
    EXPECT_EQ(tags("1419", 0), 3);
}

// A value counts if a comma stands behind it.
TEST(FaceScenes, DefaultScenes)
{
    const std::pair<const char*, std::vector<int32_t>> cases[] = {
        {"", {}},
        {"12,13,14", {12, 13}},
        {" 12x,,-13,", {12, 0, -13}},
        {"12,13,14,15,16,17,", {12, 13, 14, 15, 16}},
    };
    for (const auto& [list, values] : cases) {
        Face face = fresh(SYSTEM_CONFIG_GET_1418_PARAM_init);
        face.ucSceneTagNum = 0;
        face.ucDefEnableSceneNum = static_cast<uint8_t>(values.size());
        std::copy(values.begin(), values.end(), face.DefEnableScene);
        expectRead(kType, "1418", sceneText(std::string("DefEnableScene='") + list + "'", ""), face);
    }
}

// --- Databases -----------------------------------------------------------------------------------

TEST(FaceDatabases, Capacity)
{
    auto capacity = fresh(SYSTEM_CONFIG_GET_1424_PARAM_init);
    expectBodies(kType, "1424", &capacity, "", "");
    capacity.stFaceDatabase[0] = {11, 12, 13, 14};
    capacity.stFaceDatabase[2] = {15, 16, 17, 18};
    const std::string first = "<faceDatabase|ListType='11'|Amount='12'|Capacity='13'|addAllow='14'|/>|";
    expectBodies(kType, "1424", &capacity, "", first);
    expectRead(kType, "1424",
               first + "<faceDatabase/><Other/><faceDatabase ListType='15' Amount='16' Capacity='17' "
                       "addAllow='18'/><faceDatabase ListType='19'/>",
               capacity);
}

const std::string kResult =
    "<FACE_FEATURE_RESULT|uniqueIndex='index'|absTime='-294967296'|Age='11'|Gender='12'|IsMask='13'|"
    "IsGlasses='14'|IsHat='15'|DataLen='-294967295'|AlgVer='2'|faceQualityScore='0.500000'|"
    "HsvAreaScore='-1.250000'|BlurSMD='2.000000'|ErrorCode='-16'|";
const std::string kLoad = "<LOAD_FACE_YUV_PARAM|ListType='17'|Alias='alias'|BatchChanel='batch'|/>|";
const std::string kTrans = "<TRANSPARENT_HEADER|Trans_Type='type'|Trans_flag='flag'|Session_ID='session'|"
                           "Source_Type='source'|Channel_ID='channel'|/>|";

// Two texts and the face's number are read under names that aren't written.
TEST(FaceImport, BothWays)
{
    auto result = fresh(SYSTEM_CONFIG_GET_1425_PARAM_init);
    auto& face = result.stFace;
    result.ListType = 17;
    number(11, face.Age, face.Gender, face.IsMask, face.IsGlasses, face.IsHat);
    face.absTime = 4000000000;
    face.DataLen = 4000000001;
    face.AlgVer = 2;
    face.faceQualityScore = 0.5F;
    face.HsvAreaScore = -1.25F;
    face.BlurSMD = 2;
    face.ErrorCode = -16;
    set(face.uniqueIndex, "index");
    set(result.Alias, "alias");
    set(result.BatchChanel, "batch");
    set(result.Trans_Type, "type");
    set(result.Channel_ID, "channel");
    set(result.Source_Type, "source");
    set(result.Session_ID, "session");
    const std::string text = kResult + "Time='error'|/>|" + kLoad + kTrans;
    expectRead(kType, "1425", text, result);

    set(result.ErrorMsg, "error");
    set(result.Trans_Result, "flag");
    result.SerialNum = 4000000002;
    face.SerialNum = face.SimilarityThreshold = 99;
    expectBodies(kType, "1425", &result, text, "");
    face.SerialNum = face.SimilarityThreshold = 0;
    expectRead(kType, "1425",
               kResult + "ErrorMsg='error'|Time='x'|SerialNum='4000000002'|SimilarityThreshold='99'|/>|" +
                   kLoad + replaced(kTrans, "Trans_flag='flag'", "Trans_flag='x' Trans_Result='flag'"),
               result);

    result = fresh(SYSTEM_CONFIG_GET_1425_PARAM_init);
    expectRead(kType, "1425", "<FACE_FEATURE_RESULT SerialNum='11'/>", result);
    result.SerialNum = 11;
    expectRead(kType, "1425", "<FACE_FEATURE_RESULT SerialNum='11'/><LOAD_FACE_YUV_PARAM SerialNum='12'/>",
               result);
}

// The block behind the envelope, when all of it came; nothing announces one.
TEST(FaceImport, FeatureBlock)
{
    const auto result = fresh(SYSTEM_CONFIG_GET_1425_PARAM_init);
    const Composed composed = compose(headerOf(kType, "1425"), &result, 0);
    EXPECT_EQ(composed.announced, composed.text.size());
    for (const size_t length : {size_t{512}, size_t{1024}}) {
        const std::string text =
            envelope(kType, "1425",
                     wire(length == 512 ? "<FACE_FEATURE_RESULT AlgVer='1'/>" : "<FACE_FEATURE_RESULT/>"));
        const std::string block(length, 'b');
        EXPECT_EQ(analyse(text + "1234" + block.substr(1)).result, ZEL_ERR_BAD_CONTENT);
        for (const std::string& behind : {std::string(), "1234" + block + "more"}) {
            const Analysed analysed = analyse(text + behind);
            ASSERT_EQ(analysed.result, 0);
            std::string expected = behind.empty() ? "" : block;
            expected.resize(1024);
            EXPECT_EQ(memcmp(analysed.as<Import>().stFace.aucFeatureData, expected.data(), expected.size()),
                      0);
        }
    }
}

TEST(Faces, RequiredElements)
{
    const char* const all[][3] = {
        {"1407", "getHumanFaceEvent", "HumanFaceRecognition"},
        {"1408", "setHumanFaceEvent", "HumanFaceRecognition"},
        {"1409", "getHumanFaceImage", "HumanFacePicture"},
        {"1410", "getHumanFaceAdvanced", "HumanFaceAdvancedSet"},
        {"1411", "setHumanFaceAdvanced", "HumanFaceAdvancedSet"},
        {"1418", "getHumanFaceV2", "HumanFaceParam"},
        {"1419", "setHumanFaceV2", "HumanFaceParam"},
        {"1424", "getHumanFaceCapacity", "faceDatabase"},
        {"1425", "FaceYuvImportResult", "FACE_FEATURE_RESULT"},
    };
    for (const auto& [code, leaf, element] : all)
        expectMissing(kType, code, std::string("SystemConfig_") + leaf, element,
                      "<LOAD_FACE_YUV_PARAM/><SceneAlarmTag/>");
}

} // namespace
