
#include <random>

#include "ptz/ptz_command.h"
#include "ptz/ptz_wire.h"

using namespace test;
using zel::findPtzCommand;

namespace {

using Record = PtzRecord;
using Speeds = PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM;

const std::string kPlainWords = "DeleteWatchGuard CallWatchGuard StopOrbit StopLocus";
const std::string kScanWords = "ScanBegin ScanEnd ScanOn ScanOff";
const std::string kMotionWords =
    "zoomtele zoomwide FocusNearAutoOff FocusFarAutoOff IrisOpenAutoOff IrisCloseAutoOff up down left right "
    "left_up right_up left_down right_down auto stop ptz_reset";

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
    expectPtzRead(kChannel3 + xmlOf("up"), 3, "up", Speeds{-1, -1});
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
    expectLeafFailures(PtzControlptzCmd_MessageAnalysis, " PtzControlptzCmd_MessageAnalysis");
    expectLeafFailures(PtzControlptzControl_MessageAnalysis, " PtzControlptzControl_MessageAnalysis");
}

// All words in the order in which they take precedence, but for those of a scan, which aren't searched for.
const std::string kSearchedWords =
    "getCurPos setCurPos GetLocateCfg SetLocateCfg ManualLocate setpreset clearpreset callpreset "
    "GetPresetListEx GetPresetList SetPresetListEx SetWatchGuard GetWatchGuard " +
    kPlainWords +
    " GetOrbitList AutoOrbit AddOrbit ClearOrbit GetLocusList SetLocus trans RecordLocus StopRecordLocus "
    "StartLocus " +
    kMotionWords;

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

size_t extensionSizeOf(const std::string& word)
{
    ZEL_CATALOGUE_ENTRY entry = {};
    ZelProtocolCatalogueEntry(ZelProtocolCatalogueFind(kPtz.c_str(), "PTZ_CMD", word.c_str(), -1), &entry);
    return entry.extension_size;
}

// The text's first command decides what is read, its element what the record says: whoever follows that finds
// the extension, and zero bytes where nothing was read.
TEST(PtzMotion, ExtensionOfAnotherCommand)
{
    const std::vector<std::string> searched = split(kSearchedWords);
    for (const std::string& word : searched) {
        for (const std::string& said : split(kSearchedWords + " " + kScanWords)) {
            const Analysed analysed = received(xmlOf(said) + "<!-- " + word + " -->");
            ASSERT_EQ(analysed.result, 0) << word << said;
            const auto& record = analysed.as<Record>();
            const size_t own = extensionSizeOf(plainSearch(searched, word + " " + said));
            if (!record.pExData || !record.cmd[0])
                continue;
            EXPECT_EQ(get(record.cmd), said);
            const auto* const bytes = static_cast<const char*>(record.pExData);
            for (size_t at = own; at < extensionSizeOf(said); ++at)
                ASSERT_EQ(bytes[at], 0) << word << said << at;
            for (const int kind : {0, 1})
                EXPECT_NE(body(record, kind).rfind("-10", 0), 0U) << word << said;
        }
    }
}

} // namespace
