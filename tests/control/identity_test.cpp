#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONTROL_MESSAGE";

void expectAnswer(const char* code, const void* record, const std::string& text)
{
    expectBodies(kType, code, record, "", text);
}

// One text, out and in.
template <class Record>
void expectBoth(const char* code, const Record& record, const std::string& text)
{
    expectAnswer(code, &record, text);
    expectRead(kType, code, text, record);
}

const SYSTEM_CONTROL_3000_PARAM kRecorder = {1,       2,        3,      4,      "model", "port",
                                             "cloud", "serial", "soft", "hard", "time"};
const std::string kRecorderText =
    "<SystemInfo |ProductModel='model'|CloudID='cloud'|ChannelNum='1'|HdNum='2'|AlarmIn='3'|AlarmOut='4'|"
    "SerialNumber='serial'|SoftwareVersion='soft'|HardwareVersion='hard'|ReleaseTime='time'|"
    "TelnetPort='port'|/>|";

TEST(Identity, RecorderInformation)
{
    expectBoth("3000", kRecorder, kRecorderText);
    const Analysed cut = analyseBody(kType, "3000", "<SystemInfo CloudID='" + std::string(40, 'c') + "'/>");
    EXPECT_EQ(get(cut.as<SYSTEM_CONTROL_3000_PARAM>().CloudID), std::string(31, 'c'));
}

TEST(Identity, Versions)
{
    auto record = fresh(SYSTEM_CONTROL_1012_PARAM_init);
    expectAnswer("1012", &record,
                 "<RESPONSE_PARAM|KernelVersion=''|FileSystemVersion=''|DeviceIdentify=''|/>|");
    record = {"kernel", "files", "device", "identity", "hard", 5, 1, -1, record.stSystemInfo};
    const std::string text =
        "<RESPONSE_PARAM|KernelVersion='kernel'|FileSystemVersion='files'|DeviceIdentify='device'|"
        "ChannelId='5'|FileSystemIdentify='identity'|HardVersion='hard'|/>|";
    expectAnswer("1012", &record, text);
    expectRead(kType, "1012", "<SystemInfo HdNum='2'/><REQUEST_PARAM ChannelId='2'/>" + text, record);

    // The form of a recorder: what an analysis gives doesn't go out again in that form.
    record.bSystemInfo = 0;
    record.stSystemInfo = kRecorder;
    expectAnswer("1012", &record, kRecorderText);
    auto again = fresh(SYSTEM_CONTROL_1012_PARAM_init);
    again.stSystemInfo = kRecorder;
    expectRead(kType, "1012", kRecorderText, again);
}

TEST(Identity, ChannelHasThreeStates)
{
    auto record = fresh(SYSTEM_CONTROL_1012_PARAM_init);
    expectRead(kType, "1012", "<REQUEST_PARAM/>", record);
    record.bChannelIdEmpty = 0;
    EXPECT_NE(bodyOf(kType, "1012", &record, 1).find("\"\nChannelId=\"\"\n/>"), std::string::npos);
    record.bChannelIdEmpty = 1;
    for (const char* element : {"REQUEST_PARAM", "RESPONSE_PARAM"})
        expectRead(kType, "1012", std::string("<") + element + " ChannelId=''/>", record);
    record.ChannelId = 0;
    expectRead(kType, "1012", "<SystemInfo/><REQUEST_PARAM ChannelId='x'/>", record);
    record.ChannelId = 12;
    expectRead(kType, "1012", "<REQUEST_PARAM KernelVersion='k' ChannelId=' 12'/>", record);
}

TEST(Identity, Abilities)
{
    auto record = fresh(SYSTEM_CONTROL_1020_PARAM_init);
    expectAnswer("1020", &record, "<RESPONSE_PARAM|SystemConfigString=''|/>|");
    record = {-1, 5, "config", "preview", "ptz", "playback", 1, 2, 3, 4, -1, "algorithm"};
    const std::string first = "<RESPONSE_PARAM|SystemConfigString='config'|/>|";
    const std::string authority =
        "<REMOTE_AUTHORITY|RemotePreview='preview'|RemotePlayback='playback'|PTZControl='ptz'|"
        "SystemSettings='1'|RemoteUpgrade='2'|TalkingEnble='3'|ShutDownSystem='4'|/>|";
    const std::string last = "<AvailableAlId algorithmId='algorithm'/>|<va_service vaSeviceId='5' />|";
    expectRead(kType, "1020", last + authority + first, record);
    record.bRemoteAuthority = 1;
    expectAnswer("1020", &record, first + last);
    record.bRemoteAuthority = 0;
    expectAnswer("1020", &record, first + authority + last);

    // The missing record is no error to this leaf.
    char out[64];
    resetServices();
    EXPECT_EQ(SystemControl_GetSysAbality_MessageCompose(nullptr, 1, out, 64), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(services().infos,
              std::vector<std::string>{"SystemControl_GetSysAbality_MessageCompose put a empty Param\n"});
    EXPECT_TRUE(services().errors.empty());
}

TEST(Identity, AbilitiesAsBareText)
{
    auto record = fresh(SYSTEM_CONTROL_1020_PARAM_init);
    set(record.SystemConfigString, "\n abilities \n\n");
    expectRead(kType, "1020", " abilities \n", record);
    set(record.SystemConfigString, "\n" + std::string(4094, 'a'));
    expectRead(kType, "1020", std::string(5000, 'a'), record);
    resetServices();
    for (const char* none : {"", "\n \n", "<REQUEST_PARAM SystemConfigString='s'/>"}) {
        EXPECT_EQ(analyseBody(kType, "1020", none).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly("SystemControl_GetSysAbality_MessageAnalysis get RESPONSE_PARAM error\n"));
    }
}

TEST(Identity, DeviceTypeAndMediaAbilities)
{
    const auto absent = fresh(SYSTEM_CONTROL_1030_PARAM_init);
    expectAnswer("1030", &absent,
                 "<RESPONSE_PARAM|IPC_Type='-1'|DevMType='-1'|DevType='-1'|SdkType='-1'|"
                 "Feature='18446744073709551615'|/>|");
    const SYSTEM_CONTROL_1030_PARAM device = {1, 2, 3, 4, 5000000000};
    expectBoth("1030", device,
               "<RESPONSE_PARAM|IPC_Type='1'|DevMType='2'|DevType='3'|SdkType='4'|Feature='5000000000'|/>|");

    auto media = fresh(SYSTEM_CONTROL_1031_PARAM_init);
    media = {"v1", "", "a", "b"};
    const std::string rest = "<AudioCap|CapList='a'/>|<VideoBestParameter|CapList='b'/>|</RESPONSE_PARAM>|";
    expectBoth("1031", media, "<RESPONSE_PARAM>|<VideoCap|CapList='v1'/>|" + rest);
    set(media.VideoCapListV2, "v2");
    expectBoth("1031", media, "<RESPONSE_PARAM>|<VideoCap|CapList='v1'|CapListV2='v2'/>|" + rest);
}

TEST(Identity, KeyFrame)
{
    const std::pair<const char*, SYSTEM_CONTROL_1032_PARAM> read[] = {
        {"ChannelId='2' StreamIndex='3' Camera='8' Stream='9'", {-1, 2, 3}},
        {"Stream='3' Camera='2'", {1, 2, 3}},
        {"ChannelId='2' Stream='3'", {1, 2, 3}},
        {"StreamIndex='3' Camera='2'", {1, 2, 3}},
        {"", {1, -1, -1}},
    };
    for (const auto& [attributes, record] : read)
        expectRead(kType, "1032", "<REQUEST_PARAM " + std::string(attributes) + "/>", record);

    auto record = read[0].second;
    record.bSendIpc = 0;
    expectBodies(kType, "1032", &record, "<REQUEST_PARAM|ChannelId='2'|StreamIndex='3'|/>|", "");
    record.bSendIpc = 1;
    expectBodies(kType, "1032", &record, "<REQUEST_PARAM|Camera='2'|Stream='3'|/>|", "");
    record.bSendIpc = -1;
    resetServices();
    EXPECT_EQ(bodyOf(kType, "1032", &record, 0), "");
    EXPECT_EQ(services().infos.front(), "SystemControl_GetIpcKeyFrame_MessageCompose unknow bSendIpc:-1\n");
}

TEST(Identity, OneText)
{
    auto serial = fresh(SYSTEM_CONTROL_1019_PARAM_init);
    set(serial.SerialNumber, "serial");
    expectBoth("1019", serial, "<RESPONSE_PARAM|SerialNumber='serial'|/>|");

    auto data = fresh(SYSTEM_CONTROL_1034_PARAM_init);
    set(data.UserDevData, std::string(255, 'd'));
    const std::string attribute = "UserDevData='" + std::string(255, 'd');
    expectBodies(kType, "1033", &data, "<REQUEST_PARAM|" + attribute + "'|/>|", "");
    expectBoth("1034", data, "<RESPONSE_PARAM|" + attribute + "'|/>|");
    expectRead(kType, "1033", "<REQUEST_PARAM " + attribute + "d'/>", data);
}

// A text that doesn't parse isn't logged.
TEST(Identity, RequiredElements)
{
    const char* const all[][3] = {
        {"1012", "GetIpcSysVersion", "RESPONSE_PARAM"},  {"1019", "GetIpcSN", "RESPONSE_PARAM"},
        {"1030", "GetDeviceType", "RESPONSE_PARAM"},     {"1031", "GetMediaAbality", "RESPONSE_PARAM"},
        {"1032", "GetIpcKeyFrame", "REQUEST_PARAM"},     {"1033", "SetIpcUserdevdata", "REQUEST_PARAM"},
        {"1034", "GetIpcUserdevdata", "RESPONSE_PARAM"}, {"3000", "GetNvrSystemConfig", "SystemInfo"},
    };
    resetServices();
    for (const auto& [code, operation, element] : all) {
        void* block = nullptr;
        EXPECT_EQ(SystemControlMessageAnalysis("<a", code, &block), ZEL_ERR_BAD_DOCUMENT);
        EXPECT_EQ(analyseBody(kType, code, "<VideoCap/>").result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(std::string("SystemControl_") + operation + "_MessageAnalysis get " + element +
                               " error\n"));
    }
}

TEST(Identity, Dispatch)
{
    const int any = 0;
    for (const std::string& code :
         split("828 1001 1002 1007 1025 1027 1096 1097 1100 3010 3021 3022 5010 5011")) {
        expectAnswer(code.c_str(), &any, "");
        const Analysed analysed = analyseBody(kType, code, "<RESPONSE_PARAM/>");
        EXPECT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.record, nullptr);
    }
    char out[8] = "";
    resetServices();
    for (const char* code : {"1003", "3024", "", "x"}) {
        const std::string log =
            "SYSTEM_CONTROL_MESSAGE deal a unknow msg_cdoe : " + std::to_string(atoi(code)) + "\n";
        EXPECT_EQ(SystemControlMessageCompose(&any, 0, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        EXPECT_EQ(analyseBody(kType, code, "").result, ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
    }
}

} // namespace
