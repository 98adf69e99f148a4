#include <gtest/gtest.h>

#include "support/wire.h"
#include "zel_protocol/system_control.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONTROL_MESSAGE";

template <class Record>
Record fresh(int (*init)(Record*))
{
    Record record;
    EXPECT_EQ(init(nullptr), -1);
    EXPECT_EQ(init(&record), 0);
    return record;
}

std::string body(const char* code, const void* record, int kind)
{
    static char out[16384];
    out[0] = '\0';
    EXPECT_EQ(SystemControlMessageCompose(record, kind, code, out, sizeof out), 0);
    return out;
}

Analysed analyseBody(const std::string& code, const std::string& body)
{
    return analyse(envelope(kType, code, body));
}

template <class Record>
void expectRead(const char* code, const std::string& body, const Record& expected)
{
    const Analysed analysed = analyseBody(code, body);
    ASSERT_EQ(analysed.result, 0) << body;
    EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0) << body;
}

// The text for the kinds that have a body, and none for the others.
void expectWritten(const char* code, const void* record, const std::string& requests,
                   const std::string& responses)
{
    for (const int kind : {0, 2})
        EXPECT_EQ(body(code, record, kind), requests);
    for (const int kind : {1, 3})
        EXPECT_EQ(body(code, record, kind), responses);
}

const SYSTEM_CONTROL_3000_PARAM kRecorder = {1,       2,        3,      4,      "model", "port",
                                             "cloud", "serial", "soft", "hard", "time"};
const std::string kRecorderText =
    "<SystemInfo \nProductModel=\"model\"\nCloudID=\"cloud\"\nChannelNum=\"1\"\nHdNum=\"2\"\n"
    "AlarmIn=\"3\"\nAlarmOut=\"4\"\nSerialNumber=\"serial\"\nSoftwareVersion=\"soft\"\n"
    "HardwareVersion=\"hard\"\nReleaseTime=\"time\"\nTelnetPort=\"port\"\n/>\n";
const std::string kRecorderShuffled = "<SystemInfo TelnetPort=\"port\" AlarmOut=\"4\" HdNum=\"2\" "
                                      "ReleaseTime=\"time\" CloudID=\"cloud\" AlarmIn=\"3\" "
                                      "SoftwareVersion=\"soft\" ProductModel=\"model\" ChannelNum=\"1\" "
                                      "HardwareVersion=\"hard\" SerialNumber=\"serial\"/>";

TEST(Identity, RecorderInformation)
{
    expectWritten("3000", &kRecorder, "", kRecorderText);
    expectRead("3000", kRecorderShuffled, kRecorder);
    const Analysed cut = analyseBody("3000", "<SystemInfo CloudID=\"" + std::string(40, 'c') + "\"/>");
    EXPECT_EQ(get(cut.as<SYSTEM_CONTROL_3000_PARAM>().CloudID), std::string(31, 'c'));
}

TEST(Identity, Versions)
{
    auto record = fresh(SYSTEM_CONTROL_1012_PARAM_init);
    expectWritten("1012", &record, "",
                  "<RESPONSE_PARAM\nKernelVersion=\"\"\nFileSystemVersion=\"\"\nDeviceIdentify=\"\"\n/>\n");
    record = {"kernel", "files", "device", "identity", "hard", 5, 1, -1, record.stSystemInfo};
    expectWritten(
        "1012", &record, "",
        "<RESPONSE_PARAM\nKernelVersion=\"kernel\"\nFileSystemVersion=\"files\"\nDeviceIdentify=\"device\"\n"
        "ChannelId=\"5\"\nFileSystemIdentify=\"identity\"\nHardVersion=\"hard\"\n/>\n");
    expectRead(
        "1012",
        "<SystemInfo HdNum=\"2\"/><REQUEST_PARAM ChannelId=\"2\"/><RESPONSE_PARAM HardVersion=\"hard\" "
        "ChannelId=\"5\" FileSystemIdentify=\"identity\" DeviceIdentify=\"device\" KernelVersion=\"kernel\" "
        "FileSystemVersion=\"files\"/>",
        record);

    // The form of a recorder: what an analysis gives doesn't go out again in that form.
    record.bSystemInfo = 0;
    record.stSystemInfo = kRecorder;
    expectWritten("1012", &record, "", kRecorderText);
    auto again = fresh(SYSTEM_CONTROL_1012_PARAM_init);
    again.stSystemInfo = kRecorder;
    expectRead("1012", kRecorderShuffled, again);
}

TEST(Identity, ChannelHasThreeStates)
{
    auto record = fresh(SYSTEM_CONTROL_1012_PARAM_init);
    expectRead("1012", "<REQUEST_PARAM/>", record);
    record.bChannelIdEmpty = 0;
    EXPECT_NE(body("1012", &record, 1).find("\"\nChannelId=\"\"\n/>"), std::string::npos);
    record.bChannelIdEmpty = 1;
    for (const char* element : {"REQUEST_PARAM", "RESPONSE_PARAM"})
        expectRead("1012", std::string("<") + element + " ChannelId=\"\"/>", record);
    record.ChannelId = 0;
    expectRead("1012", "<SystemInfo/><REQUEST_PARAM ChannelId=\"x\"/>", record);
    record.ChannelId = 12;
    expectRead("1012", "<REQUEST_PARAM KernelVersion=\"k\" ChannelId=\" 12\"/>", record);
}

TEST(Identity, Abilities)
{
    auto record = fresh(SYSTEM_CONTROL_1020_PARAM_init);
    expectWritten("1020", &record, "", "<RESPONSE_PARAM\nSystemConfigString=\"\"\n/>\n");
    record = {-1, 5, "config", "preview", "ptz", "playback", 1, 2, 3, 4, -1, "algorithm"};
    expectRead("1020",
               "<va_service vaSeviceId=\"5\"/><AvailableAlId algorithmId=\"algorithm\"/><REMOTE_AUTHORITY "
               "ShutDownSystem=\"4\" RemotePlayback=\"playback\" TalkingEnble=\"3\" PTZControl=\"ptz\" "
               "SystemSettings=\"1\" RemoteUpgrade=\"2\" RemotePreview=\"preview\"/>"
               "<RESPONSE_PARAM SystemConfigString=\"config\"/>",
               record);
    const std::string first = "<RESPONSE_PARAM\nSystemConfigString=\"config\"\n/>\n";
    const std::string last = "<AvailableAlId algorithmId=\"algorithm\"/>\n<va_service vaSeviceId=\"5\" />\n";
    record.bRemoteAuthority = 1;
    expectWritten("1020", &record, "", first + last);
    record.bRemoteAuthority = 0;
    expectWritten(
        "1020", &record, "",
        first +
            "<REMOTE_AUTHORITY\nRemotePreview=\"preview\"\nRemotePlayback=\"playback\"\nPTZControl=\"ptz\"\n"
            "SystemSettings=\"1\"\nRemoteUpgrade=\"2\"\nTalkingEnble=\"3\"\nShutDownSystem=\"4\"\n/>\n" +
            last);

    char out[64];
    auto plain = fresh(SYSTEM_CONTROL_1020_PARAM_init);
    EXPECT_EQ(SystemControl_GetSysAbality_MessageCompose(&plain, 1, out, 41), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(SystemControl_GetSysAbality_MessageCompose(&plain, 1, out, 42), 0);
    EXPECT_STREQ(out, "<RESPONSE_PARAM\nSystemConfigString=\"\"\n/>\n");
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
    expectRead("1020", " abilities \n", record);
    set(record.SystemConfigString, "\n" + std::string(4094, 'a'));
    expectRead("1020", std::string(5000, 'a'), record);
    for (const char* none : {"", "\n \n", "<REQUEST_PARAM SystemConfigString=\"s\"/>"}) {
        resetServices();
        EXPECT_EQ(analyseBody("1020", none).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly("SystemControl_GetSysAbality_MessageAnalysis get RESPONSE_PARAM error\n"));
    }
}

TEST(Identity, DeviceType)
{
    auto record = fresh(SYSTEM_CONTROL_1030_PARAM_init);
    expectWritten("1030", &record, "",
                  "<RESPONSE_PARAM\nIPC_Type=\"-1\"\nDevMType=\"-1\"\nDevType=\"-1\"\nSdkType=\"-1\"\n"
                  "Feature=\"18446744073709551615\"\n/>\n");
    record = {1, 2, 3, 4, 5000000000};
    expectRead(
        "1030",
        "<RESPONSE_PARAM Feature=\"5000000000\" SdkType=\"4\" DevMType=\"2\" IPC_Type=\"1\" DevType=\"3\"/>",
        record);
}

TEST(Identity, MediaAbilities)
{
    auto record = fresh(SYSTEM_CONTROL_1031_PARAM_init);
    record = {"v1", "", "a", "b"};
    const std::string rest =
        "<AudioCap\nCapList=\"a\"/>\n<VideoBestParameter\nCapList=\"b\"/>\n</RESPONSE_PARAM>\n";
    expectWritten("1031", &record, "", "<RESPONSE_PARAM>\n<VideoCap\nCapList=\"v1\"/>\n" + rest);
    set(record.VideoCapListV2, "v2");
    expectWritten("1031", &record, "",
                  "<RESPONSE_PARAM>\n<VideoCap\nCapList=\"v1\"\nCapListV2=\"v2\"/>\n" + rest);
    expectRead("1031",
               "<RESPONSE_PARAM><VideoBestParameter CapList=\"b\"/><AudioCap CapListV2=\"x\" CapList=\"a\"/>"
               "<VideoCap CapListV2=\"v2\" CapList=\"v1\"/></RESPONSE_PARAM>",
               record);
}

TEST(Identity, KeyFrame)
{
    const std::pair<const char*, SYSTEM_CONTROL_1032_PARAM> read[] = {
        {"ChannelId=\"2\" StreamIndex=\"3\" Camera=\"8\" Stream=\"9\"", {-1, 2, 3}},
        {"Stream=\"3\" Camera=\"2\"", {1, 2, 3}},
        {"ChannelId=\"2\" Stream=\"3\"", {1, 2, 3}},
        {"StreamIndex=\"3\" Camera=\"2\"", {1, 2, 3}},
        {"", {1, -1, -1}},
    };
    for (const auto& [attributes, record] : read)
        expectRead("1032", "<REQUEST_PARAM " + std::string(attributes) + "/>", record);

    auto record = read[0].second;
    record.bSendIpc = 0;
    expectWritten("1032", &record, "<REQUEST_PARAM\nChannelId=\"2\"\nStreamIndex=\"3\"\n/>\n", "");
    record.bSendIpc = 1;
    expectWritten("1032", &record, "<REQUEST_PARAM\nCamera=\"2\"\nStream=\"3\"\n/>\n", "");
    record.bSendIpc = -1;
    resetServices();
    EXPECT_EQ(body("1032", &record, 0), "");
    EXPECT_EQ(services().infos,
              std::vector<std::string>{"SystemControl_GetIpcKeyFrame_MessageCompose unknow bSendIpc:-1\n"});
}

TEST(Identity, OneText)
{
    auto serial = fresh(SYSTEM_CONTROL_1019_PARAM_init);
    set(serial.SerialNumber, "serial");
    expectWritten("1019", &serial, "", "<RESPONSE_PARAM\nSerialNumber=\"serial\"\n/>\n");
    expectRead("1019", "<RESPONSE_PARAM SerialNumber=\"serial\"/>", serial);

    auto data = fresh(SYSTEM_CONTROL_1034_PARAM_init);
    set(data.UserDevData, std::string(255, 'd'));
    const std::string attribute = "UserDevData=\"" + std::string(255, 'd') + "\"";
    expectWritten("1033", &data, "<REQUEST_PARAM\n" + attribute + "\n/>\n", "");
    expectWritten("1034", &data, "", "<RESPONSE_PARAM\n" + attribute + "\n/>\n");
    expectRead("1033", "<REQUEST_PARAM UserDevData=\"" + std::string(256, 'd') + "\"/>", data);
    expectRead("1034", "<RESPONSE_PARAM " + attribute + "/>", data);
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
    for (const auto& [code, operation, element] : all) {
        void* block = nullptr;
        resetServices();
        EXPECT_EQ(SystemControlMessageAnalysis("<a", code, &block), ZEL_ERR_BAD_DOCUMENT);
        EXPECT_EQ(analyseBody(code, "<VideoCap/>").result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(std::string("SystemControl_") + operation + "_MessageAnalysis get " + element +
                               " error\n"));
    }
}

TEST(Identity, Dispatch)
{
    const int any = 0;
    for (const char* code : {"828", "1001", "1002", "1007", "1025", "1027", "1096", "1097", "1100", "3010",
                             "3021", "3022", "5010", "5011"}) {
        expectWritten(code, &any, "", "");
        const Analysed analysed = analyseBody(code, "<RESPONSE_PARAM/>");
        EXPECT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.record, nullptr);
    }
    char out[8] = "";
    for (const char* code : {"1003", "3024", "", "x"}) {
        const std::string log =
            "SYSTEM_CONTROL_MESSAGE deal a unknow msg_cdoe : " + std::to_string(atoi(code)) + "\n";
        resetServices();
        EXPECT_EQ(SystemControlMessageCompose(&any, 0, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        resetServices();
        EXPECT_EQ(analyseBody(code, "").result, ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
    }
    EXPECT_EQ(SystemControlMessageCompose(nullptr, 0, "1003", out, sizeof out), 0);
    resetServices();
    EXPECT_EQ(SystemControlMessageCompose(&any, 0, nullptr, out, sizeof out), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("SYSTEM_CONTROL_MESSAGE put a empty Param\n"));
    resetServices();
    EXPECT_EQ(SystemControlMessageAnalysis("<a/>", "1001", nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("SYSTEM_CONTROL_MESSAGE put a empty Param\n"));
}

} // namespace
