
#include <random>

#include "ptz/ptz_command.h"
#include "support/wire.h"

using namespace test;
using zel::findPtzCommand;

namespace {

using Record = PTZ_CONTROL_PTZ_CMD_PARAM;
using Speeds = PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM;

const std::string kType = "PTZ_CONTROL_MESSAGE";

const std::string kPlainWords = "DeleteWatchGuard CallWatchGuard StopOrbit StopLocus";
const std::string kScanWords = "ScanBegin ScanEnd ScanOn ScanOff";
const std::string kMotionWords =
    "zoomtele zoomwide FocusNearAutoOff FocusFarAutoOff IrisOpenAutoOff IrisCloseAutoOff up down left right "
    "left_up right_up left_down right_down auto stop ptz_reset";

Record recordOf(const std::string& word, int32_t channel = -1, void* extension = nullptr)
{
    auto record = fresh(PTZ_CONTROL_PTZ_CMD_PARAM_init);
    record.channelid = channel;
    set(record.cmd, word);
    record.pExData = extension;
    return record;
}

// The body, or the status in words.
std::string body(const Record& record, int kind)
{
    char out[512];
    const int status = PtzControlMessageCompose(&record, kind, out, sizeof out);
    return status == 0 ? out : std::to_string(status);
}

Analysed received(const std::string& body)
{
    return analyseBody(kType, "PTZ_CMD", body);
}

const Speeds& speedsOf(const Analysed& analysed)
{
    return *static_cast<const Speeds*>(analysed.as<Record>().pExData);
}

TEST(PtzMotion, PlainCommands)
{
    for (const std::string& word : split(kPlainWords + " " + kScanWords)) {
        const std::string xml = "<xml>\n<cmd>" + word + "</cmd>\n</xml>\n";
        for (const int request : {0, 2}) {
            EXPECT_EQ(body(recordOf(word, 3), request), "<channelid>3</channelid>\n" + xml);
            EXPECT_EQ(body(recordOf(word), request), xml);
            EXPECT_EQ(body(recordOf(word, 3), request + 1), "");
        }
    }
    for (const std::string& word : split(kPlainWords)) {
        const Analysed analysed = received("<xml><cmd>" + word + "</cmd></xml><channelid>3</channelid>");
        ASSERT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.as<Record>().channelid, 3);
        EXPECT_EQ(get(analysed.as<Record>().cmd), word);
        EXPECT_EQ(analysed.as<Record>().pExData, nullptr);
    }
    for (const std::string& word : split(kScanWords)) {
        resetServices();
        EXPECT_EQ(received(body(recordOf(word), 0)).result, ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly("PTZ_CONTROL_MESSAGE deal a unknow cmd \n"));
    }
}

TEST(PtzMotion, MotionCommands)
{
    Speeds speeds{4, -1};
    for (const std::string& word : split(kMotionWords)) {
        for (const int kind : {0, 1, 2, 3}) {
            EXPECT_EQ(body(recordOf(word, 0, &speeds), kind),
                      "<channelid>0</channelid>\n<xml>\n<cmd>" + word +
                          "</cmd><panspeed>4</panspeed><tiltspeed>-1</tiltspeed></xml>");
            EXPECT_EQ(body(recordOf(word), kind), "<xml>\n<cmd>" + word + "</cmd></xml>");
        }
        const Analysed analysed =
            received("<xml><tiltspeed>6</tiltspeed><panspeed>5</panspeed><cmd>" + word + "</cmd></xml>");
        ASSERT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.as<Record>().channelid, -1);
        EXPECT_EQ(get(analysed.as<Record>().cmd), word);
        EXPECT_EQ(speedsOf(analysed).panspeed, 5);
        EXPECT_EQ(speedsOf(analysed).tiltspeed, 6);
    }
}

// The extension lies in the record's own block, also where the message has no speed.
TEST(PtzMotion, ExtensionIsAlwaysThere)
{
    resetServices();
    const Analysed analysed = received(body(recordOf("up", 7), 0));
    ASSERT_EQ(analysed.result, 0);
    EXPECT_EQ(services().blocks, 1);
    EXPECT_EQ(analysed.as<Record>().pExData, &analysed.as<Record>() + 1);
    EXPECT_EQ(analysed.as<Record>().channelid, 7);
    EXPECT_EQ(speedsOf(analysed).panspeed, -1);
    EXPECT_EQ(speedsOf(analysed).tiltspeed, -1);
}

TEST(PtzMotion, CommandIsWhatTheElementSays)
{
    EXPECT_EQ(get(received("<xml><cmd>left_up</cmd></xml>").as<Record>().cmd), "left_up");
    EXPECT_EQ(get(received("<xml/><!-- stop -->").as<Record>().cmd), "");
    const std::string longWord = "up" + std::string(40, 'x');
    EXPECT_EQ(get(received("<xml><cmd>" + longWord + "</cmd></xml>").as<Record>().cmd),
              longWord.substr(0, 31));
}

TEST(PtzMotion, UnknownCommandsAndSizes)
{
    resetServices();
    EXPECT_EQ(body(recordOf(""), 0), "-1001");
    EXPECT_TRUE(loggedOnly("PTZ_CONTROL_MESSAGE put a empty cmd, Error\n"));
    for (const std::string& word : {std::string("Up"), std::string("upx"), std::string(32, 'x')}) {
        EXPECT_EQ(body(recordOf(word), 0), "-1000");
        EXPECT_TRUE(loggedOnly("PTZ_CONTROL_MESSAGE deal a unknow cmd : " + word + "\n"));
    }
    const Record record = recordOf("up");
    char out[26];
    EXPECT_EQ(PtzControlMessageCompose(&record, 0, out, 25), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(PtzControlMessageCompose(&record, 0, out, 26), 0);
    EXPECT_STREQ(out, "<xml>\n<cmd>up</cmd></xml>");

    // A missing buffer is no error to this one.
    resetServices();
    EXPECT_EQ(PtzControlMessageCompose(&record, 0, nullptr, 5), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(services().infos, std::vector<std::string>{"PTZ_CONTROL_MESSAGE put a empty Param\n"});
    void* block = nullptr;
    EXPECT_EQ(PtzControlMessageAnalysis(nullptr, &block), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("PTZ_CONTROL_MESSAGE put a empty Param\n"));
    EXPECT_EQ(PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM_init(nullptr), -1);
}

// All texts have a blank in front of the name.
TEST(PtzMotion, FailuresOfTheLeaves)
{
    const struct
    {
        int (*analysis)(const char*, void**);
        std::string name;
    } leaves[] = {{PtzControlptzCmd_MessageAnalysis, " PtzControlptzCmd_MessageAnalysis"},
                  {PtzControlptzControl_MessageAnalysis, " PtzControlptzControl_MessageAnalysis"}};
    const std::string noXml = envelope(kType, "PTZ_CMD", "<cmd>up</cmd>");
    for (const auto& [analysis, name] : leaves) {
        void* block = nullptr;
        resetServices();
        EXPECT_EQ(analysis(nullptr, &block), ZEL_ERR_BAD_PARAM);
        EXPECT_EQ(analysis("<up", &block), ZEL_ERR_BAD_DOCUMENT);
        EXPECT_EQ(analysis("<up/>", &block), ZEL_ERR_BAD_DOCUMENT);
        EXPECT_EQ(analysis(noXml.c_str(), &block), ZEL_ERR_NO_ELEMENT);
        EXPECT_EQ(services().errors,
                  (std::vector<std::string>{name + " put a empty Param\n", name + " Parse MsgBuf error\n",
                                            name + " get MESSAGE_BODY error\n",
                                            name + " get RESPONSE_PARAM error\n"}));
    }
}

// All words in the order in which they take precedence, but for those of a scan, which aren't searched for.
const std::string kSearchedWords = kPlainWords + " " + kMotionWords;

// The first word of the order that stands anywhere in the text.
std::string plainSearch(const std::vector<std::string>& words, const std::string& text)
{
    for (const std::string& word : words)
        if (text.find(word) != std::string::npos)
            return word;
    return "";
}

std::string searchExact(const std::string& text)
{
    const std::unique_ptr<char[]> bytes(new char[text.size()]);
    memcpy(bytes.get(), text.data(), text.size());
    const zel::CodeRow* const found = findPtzCommand({bytes.get(), text.size()});
    return found ? found->word : "";
}

TEST(PtzMotion, SearchIsThePlainOne)
{
    const std::vector<std::string> words = split(kSearchedWords);

    // Whole words, parts of words, and bytes that pass for a letter of one.
    std::vector<std::string> pieces = {"Ex", "_", " ", "5", "0", "\xE7\xE5"};
    for (const std::string& word : words) {
        for (size_t cut = 0; cut < word.size(); ++cut)
            for (const std::string& piece : {word.substr(cut), word.substr(0, cut)})
                EXPECT_EQ(searchExact(piece), plainSearch(words, piece)) << piece;
        for (const size_t cut : {size_t{0}, size_t{1}, word.size() / 2}) {
            pieces.push_back(word.substr(cut));
            pieces.push_back(word.substr(0, word.size() - cut));
        }
    }
    std::mt19937 random(1);
    for (int round = 0; round < 100000; ++round) {
        std::string text;
        for (size_t count = random() % 8; count > 0; --count)
            text += pieces[random() % pieces.size()];
        ASSERT_EQ(searchExact(text), plainSearch(words, text)) << text;
    }
}

} // namespace
