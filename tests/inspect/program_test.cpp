// The commands over messages as a user runs them.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>

#include "inspect/json.h"
#include "inspect/message.h"
#include "run_zel.h"
#include "zel_protocol/catalogue.h"
#include "zel_protocol/version.h"

namespace {

using test::Folder;
using test::Ran;
using test::runZel;

constexpr const char* kJump = R"(<?xml version="1.0" encoding="GB2312" ?>
<XML_ZELMAR>
<MESSAGE_HEADER
Msg_type="NVR_REPLAY_MESSAGE"
Msg_code="3010"
Msg_flag=""
/>
<MESSAGE_BODY>
<REQUEST_PARAM
Time="2024-05-06 07:08:09"
ChannelId="2"
/>

</MESSAGE_BODY>
</XML_ZELMAR>
)";

std::string firstLineOf(const std::string& text)
{
    return text.substr(0, text.find('\n'));
}

TEST(Zel, NamesItsVersionCommandsAndMistakes)
{
    const Folder folder;
    EXPECT_EQ(runZel(folder, "--version").out, std::string("zel ") + ZelProtocolVersion() + "\n");
    const std::string help = runZel(folder, "--help").out;
    for (const char* const command :
         {"list", "show", "read", "check", "compose", "search", "call", "serve"}) {
        EXPECT_NE(help.find("\n  " + std::string(command) + " "), std::string::npos) << command;
        EXPECT_EQ(runZel(folder, command + std::string(" --help")).status, 0) << command;
        EXPECT_EQ(runZel(folder, command + std::string(" --nonsense")).status, 2) << command;
    }
    EXPECT_EQ(runZel(folder, "").status, 2);
    const Ran unknown = runZel(folder, "lsit");
    EXPECT_EQ(unknown.status, 2);
    EXPECT_EQ(unknown.err, "zel: lsit is no command; zel --help lists them\n");
    EXPECT_EQ(firstLineOf(runZel(folder, "show").err), "zel: MESSAGE is required");
    EXPECT_EQ(firstLineOf(runZel(folder, "show nothing").err),
              "zel: nothing is no message that the catalogue knows; zel list names them all");
}

TEST(ZelList, NamesAllMessagesOrThoseThatFit)
{
    const Folder folder;
    const std::string all = runZel(folder, "list").out;
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), ZelProtocolCatalogueCount());
    EXPECT_EQ(
        runZel(folder, "list 1").out,
        "MEDIA_DATA_MESSAGE/1        request, response  MediaData_UploadData_MessageAnalysis\n"
        "REPLAY_CONTROL_MESSAGE/1    request, response  ReplayControlMessageAnalysis\n"
        "SYSTEM_SEARCHIPC_MESSAGE/1  request, response  SystemSearchipc_SearchRequest_MessageAnalysis\n");
    const auto json =
        inspect::parseJson(firstLineOf(runZel(folder, "list --json NVR_REPLAY_MESSAGE/3010").out));
    EXPECT_EQ(json["record"], "NVR_REPLAY_3010_PARAM");
    EXPECT_EQ(firstLineOf(runZel(folder, "list playjump").out),
              "NVR_REPLAY_MESSAGE/3010  request, response  NvrReplay_PlayJump_MessageAnalysis");
    EXPECT_EQ(runZel(folder, "list nothing").status, 2);
}

TEST(ZelShow, PrintsElementsFieldsAndASampleOfEachKind)
{
    const Folder folder;
    const std::string page = runZel(folder, "show NVR_REPLAY_MESSAGE/3010").out;
    EXPECT_EQ(page.substr(0, page.find("<?xml")), R"(NVR_REPLAY_MESSAGE/3010
operation  NvrReplay_PlayJump_MessageAnalysis
record     NVR_REPLAY_3010_PARAM, 36 bytes
           3010: jump to a time. The response carries ChannelId alone.

request, other-request
  <REQUEST_PARAM>
    Time                          text                char Time[32]                       where to go on; request
    ChannelId                     number              int32_t ChannelId                   both directions

)");
    EXPECT_NE(page.find("\nresponse, other-response\n  <RESPONSE_PARAM>\n"), std::string::npos);

    const std::string rows = runZel(folder, "show SYSTEM_CONFIG_GET_MESSAGE/1420").out;
    EXPECT_EQ(rows.substr(rows.find("\n  <")).erase(rows.find("\n<?xml") - rows.find("\n  <")), R"(
  <SceneAudio>
    <AlarmAudio>  up to 6
      AlarmAudioIndex             number              int32_t stAlarmAudio[0].AlarmAudioIndex
      AlarmAudioName              text                char stAlarmAudio[0].AlarmAudioName[256]
      AlarmAudioEnable            number              int32_t stAlarmAudio[0].AlarmAudioEnable 0 or 1; -1: a free row
)");
    EXPECT_EQ(rows.substr(rows.find("\nFields")), R"(
Fields of SYSTEM_CONFIG_GET_1420_PARAM beside these
  int32_t AlarmAudioIndex                             1421 only, as the next: the sound
  int32_t AlarmAudioOperation                         and what is to be done with it
)");
    const auto elements = inspect::parseJson(
        runZel(folder, "show --json SYSTEM_CONFIG_GET_MESSAGE/1420").out)["forms"][0]["parts"];
    EXPECT_EQ(elements[0].dump(), R"({"path":"SceneAudio"})");
    EXPECT_EQ(elements[1].dump(), R"({"path":"SceneAudio/AlarmAudio","rows":6})");

    const auto json = inspect::parseJson(runZel(folder, "show --json USER_AUTH").out);
    const auto& parts = json["forms"][0]["parts"];
    const auto password = std::find_if(
        parts.begin(), parts.end(), [](const auto& part) { return part.value("field", "") == "Password"; });
    ASSERT_NE(password, parts.end());
    EXPECT_TRUE((*password)["secret"].template get<bool>());
    EXPECT_NE(json["forms"][0]["sample"].template get<std::string>().find("<MESSAGE_HEADER"),
              std::string::npos);
}

TEST(ZelShow, SamplesAreMessages)
{
    const Folder folder;
    constexpr int kStep = 20; // a program for each of them all takes too long
    for (int index = 0; index < ZelProtocolCatalogueCount(); index += kStep) {
        const std::string name = inspect::nameOf(index);
        const Ran composed = runZel(folder, "compose --sample -o frame '" + name + "'");
        ASSERT_EQ(composed.status, 0) << name << composed.err;
        const Ran read = runZel(folder, "read --json frame");
        EXPECT_EQ(read.status, 0) << name << read.err;
        EXPECT_EQ(runZel(folder, "show '" + name + "'").status, 0) << name;
    }
}

TEST(ZelCompose, MakesTextsFramesAndDumps)
{
    const Folder folder;
    const std::string jump = "compose NVR_REPLAY_MESSAGE/3010 ChannelId=2 'Time=2024-05-06 07:08:09'";
    EXPECT_EQ(runZel(folder, jump).out, kJump);
    EXPECT_EQ(runZel(folder, jump + " -o frame").out, "");
    const std::string frame = folder.read("frame");
    EXPECT_EQ(frame.size(), 8 + std::string(kJump).size() - 1);
    EXPECT_EQ(runZel(folder, jump + " -o -").out, frame);
    EXPECT_EQ(firstLineOf(runZel(folder, jump + " --hex").out),
              "00000000 58 91 58 51 eb 00 00 00  3c 3f 78 6d 6c 20 76 65  |X.XQ....<?xml ve|");

    // What reading a message prints makes it again.
    folder.write("json", runZel(folder, "read --json frame").out);
    EXPECT_EQ(runZel(folder, "compose --json json -o again").status, 0);
    EXPECT_EQ(folder.read("again"), frame);
    folder.write("stream", frame + frame);
    folder.write("json", runZel(folder, "read --json stream").out);
    EXPECT_EQ(runZel(folder, "compose --json json -o -").out, frame + frame);
    EXPECT_EQ(runZel(folder, "compose --json json").out, std::string(kJump) + kJump);

    // The raw data that is told is announced, not a sample's.
    for (const char* const start : {"", " --sample"})
        EXPECT_EQ(
            runZel(folder, std::string("compose MEDIA_DATA_MESSAGE/1 --data frame -o data") + start).status,
            0);
    EXPECT_NE(runZel(folder, "read data").out.find(std::to_string(frame.size()) + " of raw data"),
              std::string::npos);

    EXPECT_EQ(runZel(folder, jump + " --encipher -o enciphered").status, 0);
    EXPECT_EQ(folder.read("enciphered").find("XML_ZELMAR"), std::string::npos);
    // Mode 0 has a key of its own.
    folder.write("key", std::string(64, 'a'));
    EXPECT_EQ(runZel(folder, jump + " --mode 0 --key-file key -o enciphered").status, 0);
    EXPECT_NE(runZel(folder, "read --mode 0 enciphered").out.find("ChannelId = 2"), std::string::npos);
}

TEST(ZelCompose, TextsGoOutInTheCharsetThatIsAskedFor)
{
    const Folder folder;
    EXPECT_NE(runZel(folder, "compose 500 Title=\xE9\x97\xA8").out.find("Title=\"\xE9\x97\xA8\""),
              std::string::npos);
    EXPECT_NE(
        runZel(folder, "compose 500 --charset gb2312 Title=\xE9\x97\xA8").out.find("Title=\"\xC3\xC5\""),
        std::string::npos);
}

TEST(ZelCompose, SaysWhatCannotBe)
{
    const Folder folder;
    const auto fails = [&](const std::string& arguments, const std::string& why) {
        const Ran ran = runZel(folder, "compose " + arguments);
        EXPECT_EQ(ran.status, 2) << arguments;
        EXPECT_NE(ran.err.find(why), std::string::npos) << arguments << ": " << ran.err;
        EXPECT_EQ(ran.out, "") << arguments;
    };
    fails("1", "may be any of 3 messages");
    fails("LIVE_STREAM", "perhaps:\n  LIVE_STREAM_MESSAGE/CMD_STREAM_START");
    fails("NVR_REPLAY_MESSAGE/3010 Chanel=1", "Chanel: there is no such field");
    fails("NVR_REPLAY_MESSAGE/3010 ChannelId=door", "ChannelId: door isn't a whole number");
    fails("NVR_REPLAY_MESSAGE/3010 ChannelId", "has to be field=value");
    fails("500 'stEncodeConfig[7].Stream=1'", "row 7, and there are 2");
    fails("500 'Title=a\"b'", "--force writes it");
    fails("NVR_REPLAY_MESSAGE/3010 --kind perhaps", "isn't request, response");
    fails("--json nothing.json", "nothing.json can't be read");
    folder.write("empty", " \n");
    fails("--json empty", "empty holds no message");
    folder.write("second", "{\"type\":\"NVR_REPLAY_MESSAGE\",\"code\":\"3010\"}\n{]");
    fails("--json second", "value 2: parse error at line 1, column 2");
    fails("NVR_REPLAY_MESSAGE/3010 --key-file nothing", "nothing can't be read");
    folder.write("data", "raw");
    fails("SYSTEM_SEARCHIPC_MESSAGE/1 --data data", "nothing follows a bare text");
    folder.write("short.key", "abc");
    fails("NVR_REPLAY_MESSAGE/3010 --key-file short.key", "holds neither 32 bytes nor 64 hexadecimal digits");
    fails("NVR_REPLAY_MESSAGE/3010 -o /no/such/folder/frame", "can't be written");
}

} // namespace
