// Texts that hurt other readers of such messages. A figure stands with each: how time and memory grow with
// the length, and what the analysis says.
#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "examples/frame_stream.h"
#include "security/cost.h"
#include "security/painted_stack.h"
#include "support/catalogue.h"
#include "support/wire.h"
#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

class Attack : public testing::Test
{
protected:
    static void SetUpTestSuite()
    {
        keepMemory();
        ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    }
    static void TearDownTestSuite()
    {
        ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
    }
    void SetUp() override
    {
        memory() = {};
    }
};

constexpr size_t kMegabyte = 1 << 20;

std::string repeated(const std::string& piece, size_t count)
{
    std::string text;
    text.reserve(piece.size() * count);
    for (size_t i = 0; i < count; ++i)
        text += piece;
    return text;
}

// A login whose body begins with that.
std::string login(const std::string& before, const std::string& password = "secret")
{
    return envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH",
                    before + "<USER_AUTH_PARAM Username=\"admin\" Password=\"" + password + "\" />");
}

std::string channelRows(size_t count)
{
    std::string body = "<LIST>";
    for (size_t i = 0; i < count; ++i)
        body += "<ChannelInfo ChannelId=\"" + std::to_string(i % 1000) + "\"/>";
    return envelope("SYSTEM_CONFIG_GET_MESSAGE", "3803", body.substr(6));
}

std::string deviceAnswer(const std::string& element)
{
    return envelope("SYSTEM_SEARCHIPC_MESSAGE", "3", element);
}

// --- Shape of the document -----------------------------------------------------------------------

TEST_F(Attack, NestingOf200000Levels)
{
    const auto closed = [](size_t n) { return login(repeated("<a>", n) + repeated("</a>", n)); };
    const auto open = [](size_t n) { return login(repeated("<a>", n)); };
    const auto withText = [](size_t n) { return login(repeated("<a>x", n)); };
    EXPECT_EQ(expectLinear(closed, 50000), ZEL_ERR_NO_HEADER);
    EXPECT_EQ(expectLinear(open, 50000), ZEL_ERR_NO_HEADER);
    EXPECT_EQ(expectLinear(withText, 50000), ZEL_ERR_NO_HEADER);
    // The root is the first level and the body the second.
    EXPECT_EQ(analyse(closed(62)).result, 0);
    EXPECT_EQ(analyse(closed(63)).result, ZEL_ERR_NO_HEADER);
}

TEST_F(Attack, OneElementWith100000Attributes)
{
    const auto attributes = [](size_t n) {
        std::string text;
        for (size_t i = 0; i < n; ++i)
            text += "a" + std::to_string(i) + "=\"\"\n";
        return text;
    };
    const auto ofLogin = [&](size_t n) {
        return envelope("USER_AUTH_MESSAGE", "1", "<USER_AUTH_PARAM\n" + attributes(n) + "Username=\"x\"/>");
    };
    const auto ofHeader = [&](size_t n) { return envelope("USER_AUTH_MESSAGE", "1", "", attributes(n)); };
    const auto ofRule = [&](size_t n) {
        return envelope("SYSTEM_CONFIG_GET_MESSAGE", "1402",
                        "<SmartConfig><RegionDetection\n" + attributes(n) + "/></SmartConfig>");
    };
    const auto ofAddresses = [&](size_t n) { return deviceAnswer("<LANConfig\n" + attributes(n) + "/>"); };
    EXPECT_EQ(expectLinear(ofLogin, 25000), 0);
    EXPECT_EQ(expectLinear(ofHeader, 25000), 0);
    EXPECT_EQ(expectLinear(ofRule, 25000), 0);
    EXPECT_EQ(expectLinear(ofAddresses, 25000), 0);
    EXPECT_STREQ(analyse(ofLogin(1000)).as<USER_AUTH_CMD_USER_AUTH_PARAM>().Username, "x");
}

TEST_F(Attack, EmptyElements100000)
{
    const auto inBody = [](size_t n) { return login(repeated("<a/>", n)); };
    const auto withText = [](size_t n) { return login(repeated("<a/>x", n)); };
    const auto inRoot = [](size_t n) {
        std::string text = login("");
        return text.insert(text.find("<MESSAGE_HEADER"), repeated("<a/>", n));
    };
    const auto beforeRule = [](size_t n) {
        return envelope("SYSTEM_CONFIG_GET_MESSAGE", "1402",
                        "<SmartConfig>" + repeated("<a/>", n) +
                            "<RegionDetection Enable=\"1\"/></SmartConfig>");
    };
    EXPECT_EQ(expectLinear(inBody, 25000), 0);
    EXPECT_EQ(expectLinear(withText, 25000), 0);
    EXPECT_EQ(expectLinear(inRoot, 25000), 0);
    EXPECT_EQ(expectLinear(beforeRule, 25000), 0);
}

TEST_F(Attack, Rows100000WhereSixtyFourFit)
{
    EXPECT_EQ(expectLinear(channelRows, 25000), 0);
    const Analysed analysed = analyse(channelRows(1000));
    const auto& rows = analysed.as<SYSTEM_CONFIG_GET_3803_PARAM>().stChannelInfo;
    const int count = static_cast<int>(sizeof rows / sizeof rows[0]);
    EXPECT_EQ(rows[count - 1].ChannelId, count - 1);

    const auto faces = [](size_t n) {
        return envelope("MEDIA_DATA_MESSAGE", "7",
                        "<DataInfo TotalData=\"1\" DataNum=\"2147483647\"/>" +
                            repeated("<HumanFaceInfo SerialNum=\"1\"/>", n));
    };
    const auto accounts = [](size_t n) {
        return deviceAnswer("<UserConfig>" + repeated("<Account Username=\"x\"/>", n) + "</UserConfig>");
    };
    EXPECT_EQ(expectLinear(faces, 25000), 0);
    EXPECT_EQ(expectLinear(accounts, 25000), 0);
}

TEST_F(Attack, OneMegabyteInOneValue)
{
    const auto password = [](size_t n) { return login("", std::string(n, 'p')); };
    const auto headerText = [](size_t n) {
        return envelope("USER_AUTH_MESSAGE", "1", "", "Msg_uuid=\"" + std::string(n, 'u') + "\"");
    };
    const auto digits = [](size_t n) {
        return envelope("NVR_REPLAY_MESSAGE", "3003",
                        "<REQUEST_PARAM ChannelId=\"" + std::string(n, '1') + "\"/>");
    };
    const auto blanks = [](size_t n) {
        return envelope("NVR_REPLAY_MESSAGE", "3003",
                        "<REQUEST_PARAM ChannelId=\"" + std::string(n, ' ') + "7\"/>");
    };
    EXPECT_EQ(expectLinear(password, kMegabyte / 4), 0);
    EXPECT_EQ(expectLinear(headerText, kMegabyte / 4), 0);
    EXPECT_EQ(expectLinear(digits, kMegabyte / 4), 0);
    EXPECT_EQ(expectLinear(blanks, kMegabyte / 4), 0);
    EXPECT_EQ(get(analyse(password(kMegabyte)).as<USER_AUTH_CMD_USER_AUTH_PARAM>().Password),
              std::string(48, 'p'));
    EXPECT_EQ(analyse(digits(kMegabyte)).as<NVR_REPLAY_3003_PARAM>().ChannelId, -1);
    EXPECT_EQ(analyse(blanks(kMegabyte)).as<NVR_REPLAY_3003_PARAM>().ChannelId, 7);
}

TEST_F(Attack, EntitiesAndDocumentTypes)
{
    const auto withReference = [](const std::string& reference) {
        const Analysed analysed = analyse(login("", "a" + reference + "b"));
        return analysed.result == 0 ? get(analysed.as<USER_AUTH_CMD_USER_AUTH_PARAM>().Password)
                                    : std::to_string(analysed.result);
    };
    const std::string refused = std::to_string(ZEL_ERR_NO_HEADER);
    EXPECT_EQ(withReference("&amp;&lt;&quot;&#65;&#x42;"), "a&<\"ABb");
    for (const char* bad : {"&#0;", "&#00000000;", "&#x0;", "&#1114112;", "&#x110000;", "&#4294967296;",
                            "&#4294967361;", "&#x100000041;", "&#99999999999999999999999;"})
        EXPECT_EQ(withReference(bad), refused) << bad;
    for (const char* plain : {"&none;", "&", "&#;", "&#x;", "&#-1;", "&#65"})
        EXPECT_EQ(withReference(plain), "a" + std::string(plain) + "b");

    const auto withType = [](const std::string& type) {
        std::string text = login("", "&lol9;");
        return analyse(text.insert(text.find("<XML_ZELMAR>"), type)).result;
    };
    std::string laughs = "<!DOCTYPE lolz [<!ENTITY lol0 \"lol\">";
    for (int i = 1; i < 10; ++i)
        laughs += "<!ENTITY lol" + std::to_string(i) + " \"" +
                  repeated("&lol" + std::to_string(i - 1) + ";", 10) + "\">";
    EXPECT_EQ(withType(laughs + "]>"), ZEL_ERR_NO_HEADER);
    EXPECT_EQ(withType("<!DOCTYPE a SYSTEM \"file:///etc/passwd\">"), ZEL_ERR_NO_HEADER);
    EXPECT_EQ(withType("<!ENTITY a \"b\">"), ZEL_ERR_NO_HEADER);

    const auto references = [](size_t n) { return login("", repeated("&lt;", n)); };
    const auto unfinished = [](size_t n) { return login("", repeated("&#6", n)); };
    const auto types = [](size_t n) {
        std::string text = login("");
        return text.insert(text.find("<XML_ZELMAR>"), "<!DOCTYPE a " + repeated("[<!a", n) + ">");
    };
    EXPECT_EQ(expectLinear(references, 50000), 0);
    EXPECT_EQ(expectLinear(unfinished, 50000), 0);
    EXPECT_EQ(expectLinear(types, 50000), ZEL_ERR_NO_HEADER);
}

TEST_F(Attack, NulInsideTheText)
{
    const std::string good = login("");
    for (size_t at = 0; at < good.size(); ++at) {
        std::string text = good;
        text[at] = '\0';
        EXPECT_EQ(analyse(text).result, ZEL_ERR_NO_ENVELOPE) << at;
    }
    EXPECT_EQ(analyse(good + std::string(100, '\0')).result, 0);
}

TEST_F(Attack, UnclosedAndCrossedTags)
{
    for (const char* body : {"<a>", "</a>", "<a><b></a></b>", "<a b=\"1>", "<a b=1/>", "<a b=\"1\"c=\"2\"/>",
                             "<a", "<", "<!--", "<![CDATA[", "<?a", "</MESSAGE_BODY>", "<a/ >", "<a></a b>"})
        EXPECT_EQ(analyse(login(body)).result, ZEL_ERR_NO_HEADER) << body;

    const auto crossed = [](size_t n) { return login(repeated("<a><b></a></b>", n)); };
    const auto quotes = [](size_t n) { return login("<a b=\"" + repeated("<", n)); };
    EXPECT_EQ(expectLinear(crossed, 25000), ZEL_ERR_NO_HEADER);
    EXPECT_EQ(expectLinear(quotes, 100000), ZEL_ERR_NO_HEADER);
}

// A scratch of twice the length comes on top, and a hostile text is no better for being genuine.
TEST_F(Attack, EncipheredTexts)
{
    ZEL_PLATFORM_KEY key;
    memset(key.bytes, 0x5A, sizeof key.bytes);
    const auto enciphered = [&](size_t n) {
        const std::string text = login(repeated("<a>x", n));
        std::string hidden(text.size() + 64, '\0');
        const int length = ZelProtocolEncode(1, text.data(), static_cast<int>(text.size()), hidden.data(),
                                             static_cast<int>(hidden.size()), &key);
        hidden.resize(static_cast<size_t>(std::max(length, 0)));
        return hidden;
    };
    EXPECT_EQ(expectLinear(enciphered, 50000, 1, &key), ZEL_ERR_NO_HEADER);
    const auto foreign = [](size_t n) { return std::string(n, 'x'); };
    EXPECT_EQ(expectLinear(foreign, kMegabyte / 4, 1, &key), ZEL_ERR_CODEC);
    EXPECT_EQ(expectLinear(foreign, kMegabyte / 4, 0), ZEL_ERR_CODEC);
}

// --- Searches and lists --------------------------------------------------------------------------

TEST_F(Attack, TextsThatNearlyHaveWhatIsSearchedFor)
{
    const auto closingTags = [](const char* piece) {
        return [piece](size_t n) { return login("<!--" + repeated(piece, n) + "-->"); };
    };
    EXPECT_EQ(expectLinear(closingTags("Z"), 200000), 0);
    EXPECT_EQ(expectLinear(closingTags("</XML_ZELMA"), 50000), 0);
    EXPECT_EQ(expectLinear([](size_t n) { return repeated("</XML_ZELMA", n); }, 50000), ZEL_ERR_NO_ENVELOPE);

    const auto unquoted = [](const char* piece) {
        return [piece](size_t n) {
            return envelope("SYSTEM_CONFIG_GET_MESSAGE", "77777", "<!--" + repeated(piece, n) + "-->");
        };
    };
    for (const char* piece : {"ChannelId=", "ChannelId", "SYSTEM_CONFIG_GET_MESSAG", "IIII", "YYYY", "5025",
                              "ChannelId=3/", "2511", "ChannelId=\"/"})
        EXPECT_EQ(expectLinear(unquoted(piece), 25000), ZEL_ERR_UNKNOWN_MSG) << piece;

    const auto commands = [](const char* piece) {
        return [piece](size_t n) {
            return envelope("PTZ_CONTROL_MESSAGE", "PTZ_CMD", "<!--" + repeated(piece, n) + "-->");
        };
    };
    for (const char* piece : {"GetPresetListE", "Getprese", "left_u", "righ", "StopRecordLocu",
                              "FocusNearAutoOf", "getCurPo", "ssssss", "GGGGG", "au", "\xE7\xF0"}) {
        const int result = expectLinear(commands(piece), 25000);
        EXPECT_TRUE(result == ZEL_ERR_UNKNOWN_MSG || result == ZEL_ERR_BAD_DOCUMENT ||
                    result == ZEL_ERR_NO_ELEMENT)
            << piece << result;
    }
    EXPECT_EQ(expectLinear(commands("^"), 25000), 0);

    const auto wrapped = [](size_t n) {
        return "<XML_ZELMAR><TRANSPARENT_HEADER Trans_Type=\"a\"/>" + repeated("<MESSAGE_HEADE/>", n) +
               "</XML_ZELMAR>";
    };
    EXPECT_EQ(expectLinear(wrapped, 25000), ZEL_ERR_NO_ENVELOPE);
}

TEST_F(Attack, ListsWithoutEnd)
{
    const auto rule = [](const char* attribute, const char* piece) {
        return [attribute, piece](size_t n) {
            return envelope("SYSTEM_CONFIG_GET_MESSAGE", "1402",
                            "<SmartConfig><RegionDetection " + std::string(attribute) + "=\"" +
                                repeated(piece, n) + "\"/></SmartConfig>");
        };
    };
    const char* const periods = "LightAlarmPeriodNum=\"255\" LightAlarmPeriod";
    const char* const coordinates = "LineCoordinatesNum=\"255\" LineCoordinates";
    for (const char* piece : {"[", "]", "[]", "[1", ",", "[1,1],", "[00:00:00-23:59:59],", "9"}) {
        EXPECT_EQ(expectLinear(rule(periods, piece), 200000), 0) << piece;
        EXPECT_EQ(expectLinear(rule(coordinates, piece), 200000), 0) << piece;
    }
    const auto times = [](const char* piece) {
        return [piece](size_t n) {
            return envelope("MEDIA_DATA_MESSAGE", "8",
                            "<REQUEST_PARAM TimeList=\"" + repeated(piece, n) + "\"/>");
        };
    };
    for (const char* piece : {",", "a,", "a"})
        EXPECT_EQ(expectLinear(times(piece), 200000), 0) << piece;
    const auto counts = [](size_t n) {
        return deviceAnswer("<ConnectionCount Count=\"" + repeated("9,", n) + "\"/>");
    };
    EXPECT_EQ(expectLinear(counts, 200000), 0);
    const auto orbits = [](const char* piece) {
        return [piece](size_t n) {
            return envelope("PTZ_CONTROL_MESSAGE", "PTZ_CMD",
                            "<GetOrbitList/><track_line_data line_0=\"" + repeated(piece, n) + "\"/>");
        };
    };
    for (const char* piece : {"[", "]", "[]", "[1:1],", "9"})
        EXPECT_EQ(expectLinear(orbits(piece), 200000), 0) << piece;
    const auto presets = [](size_t n) {
        return envelope("PTZ_CONTROL_MESSAGE", "PTZ_CMD", repeated("1^", n));
    };
    EXPECT_EQ(expectLinear(presets, 200000), 0);
}

// --- Lengths and numbers -------------------------------------------------------------------------

const char* const kNumbersAtTheLimit[] = {"-1",
                                          "2147483647",
                                          "2147483648",
                                          "4294967295",
                                          "4294967296",
                                          "-2147483648",
                                          "-2147483649",
                                          "65536",
                                          "18446744073709551615",
                                          "18446744073709551616",
                                          "1e39",
                                          "-9223372036854775809",
                                          "2147483647:2147483648:-1",
                                          "0x7fffffff",
                                          "ffffffffffffffffff",
                                          "[-2147483649,4294967296],",
                                          ""};

std::string mediaData(int code, const std::string& length)
{
    const std::string element = code == 8 ? "<RESPONSE_PARAM Time=\"1\"/><ImageInfo" : "<DataInfo/><POS";
    return envelope("MEDIA_DATA_MESSAGE", std::to_string(code),
                    element + " StartPos=\"0\" DataLen=\"" + length + "\"/>");
}

TEST_F(Attack, AnnouncedLengthsAtTheLimits)
{
    const std::string behind = std::string(4, '\0') + "data";
    for (const int code : {1, 2, 3, 4, 5, 8}) {
        for (const char* length : {"5", "2147483647", "2147483643", "2000000000"}) {
            const std::string payload = mediaData(code, length) + behind;
            memory() = {};
            EXPECT_EQ(analyse(payload).result, ZEL_ERR_BAD_CONTENT) << code << ' ' << length;
            EXPECT_EQ(memory().blocks, 0);
            EXPECT_TRUE(isWithinMultiple(memory().bytes, payload.size()));
        }
        for (const char* length :
             {"-1", "-2147483648", "2147483648", "4294967295", "4294967296", "99999999999"}) {
            const Analysed analysed = analyse(mediaData(code, length) + behind);
            EXPECT_EQ(analysed.result, code == 3 ? static_cast<int>(ZEL_ERR_BAD_CONTENT) : 0)
                << code << length;
        }
    }
}

template <class Record>
void expectLengthOfTheBlock(int code)
{
    const std::string first = mediaData(code, "4");
    const std::string behind = std::string(4, '\0') + "data";
    // Wherever the second length stands, the record's own must be that of its data.
    for (const char* place : {" StartPos=", " DataLen=", "/>"}) {
        std::string text = first;
        text.insert(text.rfind(place, text.find("</MESSAGE_BODY>")), " DataLen=\"2000000000\"");
        if (std::string(place) == "/>")
            text.replace(text.find(" StartPos=\"0\""), 13, "")
                .insert(text.find(" DataLen=\"2000"), " StartPos=\"0\"");
        const Analysed analysed = analyse(text + behind);
        if (analysed.result != 0) {
            EXPECT_EQ(analysed.result, ZEL_ERR_BAD_CONTENT) << text;
            continue;
        }
        const auto& record = analysed.as<Record>();
        ASSERT_EQ(record.DataLen, 4) << text;
        EXPECT_EQ(std::string(record.pData, 4), "data");
    }
}

// An application reads DataLen bytes of pData.
TEST_F(Attack, LengthsThatStandTwice)
{
    expectLengthOfTheBlock<MEDIA_DATA_1_PARAM>(1);
    expectLengthOfTheBlock<MEDIA_DATA_2_PARAM>(2);
    expectLengthOfTheBlock<MEDIA_DATA_4_PARAM>(4);
    expectLengthOfTheBlock<MEDIA_DATA_5_PARAM>(5);
    expectLengthOfTheBlock<MEDIA_DATA_8_PARAM>(8);
}

// Every number of every message at the limits of its width: it is read or refused, and what was read can be
// composed into a buffer of exactly its size.
TEST_F(Attack, NumbersAtTheLimitsInEveryMessage)
{
    const std::set<int> expected = {0,
                                    ZEL_ERR_NO_ELEMENT,
                                    ZEL_ERR_BAD_CONTENT,
                                    ZEL_ERR_BAD_DOCUMENT,
                                    ZEL_ERR_BUFFER_SMALL,
                                    ZEL_ERR_UNKNOWN_MSG};
    for (const CatalogueEntry& entry : catalogue()) {
        for (const int kind : {0, 1}) {
            const ZEL_PROTOCOL_HEADER header = catalogueHeader(entry);
            const Composed composed = test::compose(header, fullRecord(entry).data(), kind, 1 << 18);
            ASSERT_GT(composed.result, 0) << entry.name();
            const std::string& text = entry.isBare() ? composed.bytes : composed.text;
            const size_t body = text.find("<MESSAGE_BODY>");
            for (const char* number : kNumbersAtTheLimit) {
                std::string changed = text.substr(0, body);
                for (size_t at = body; at < text.size();) {
                    const size_t open = text.find('"', at);
                    const size_t close = open == std::string::npos ? open : text.find('"', open + 1);
                    if (close == std::string::npos) {
                        changed += text.substr(at);
                        break;
                    }
                    changed += text.substr(at, open + 1 - at) + number + "\"";
                    at = close + 1;
                }
                const Analysed analysed = analyse(changed);
                EXPECT_EQ(expected.count(analysed.result), 1U) << entry.name() << analysed.result;
                if (analysed.result != 0 || !analysed.record)
                    continue;
                const int again = test::compose(header, analysed.record.get(), kind, 1 << 18).result;
                // Of this one an empty source is read, but not written.
                const bool isRefused =
                    entry.record == "NVR_INTERNAL_4002_PARAM" && again == ZEL_ERR_BAD_PARAM;
                EXPECT_TRUE(again > 0 || isRefused) << entry.name() << changed;
            }
        }
    }
}

TEST_F(Attack, CountsOfARecordAreNotBelieved)
{
    for (const int32_t count : {INT32_MIN, -2, 65, 1000000, INT32_MAX}) {
        SYSTEM_CONFIG_GET_3803_PARAM channels;
        SYSTEM_CONFIG_GET_3803_PARAM_init(&channels);
        for (auto& row : channels.stChannelInfo)
            row.ChannelId = 1;
        channels.ChannelCount = count;
        EXPECT_GT(test::compose(headerOf("SYSTEM_CONFIG_GET_MESSAGE", "3803"), &channels, 1, 1 << 18).result,
                  0);

        SYSTEM_SEARCHIPC_3_PARAM device;
        SYSTEM_SEARCHIPC_3_PARAM_init(&device);
        device.iAccountNum = count;
        EXPECT_GT(test::compose(headerOf("SYSTEM_SEARCHIPC_MESSAGE", "3"), &device, 1, 1 << 18).result, 0);

        auto wrapped = std::make_unique<TRANSPARENT_HEADER>();
        TRANSPARENT_HEADER_init(wrapped.get());
        wrapped->iTransDataLen = count == 65 ? 8193 : count;
        EXPECT_EQ(test::compose(headerOf("TRANSPARENT_CHANNEL_MSG", "1"), wrapped.get(), 0, 1 << 18).result,
                  ZEL_ERR_BUFFER_SMALL);
    }
}

// --- A transparent message in itself -------------------------------------------------------------

// Unwrapping gives the same bytes again: an application that unwraps until nothing is wrapped never ends.
TEST_F(Attack, TransparentForEver)
{
    std::string text =
        "<MESSAGE_HEADER><TRANSPARENT_HEADER Trans_Type=\"a\"/></MESSAGE_HEADER><XML_ZELMAR></XML_ZELMAR>";
    for (int i = 0; i < 100; ++i) {
        const Analysed analysed = analyse(text);
        ASSERT_EQ(analysed.result, static_cast<int>(text.size()));
        const auto& wrapped = analysed.as<TRANSPARENT_HEADER>();
        ASSERT_EQ(wrapped.iTransDataLen, analysed.result);
        EXPECT_EQ(std::string(wrapped.acTransData, text.size()), text);
        text.assign(wrapped.acTransData, text.size());
    }
    const auto large = [](size_t n) {
        return "<XML_ZELMAR><TRANSPARENT_HEADER/><MESSAGE_HEADER/></XML_ZELMAR>" + std::string(n, 'x');
    };
    EXPECT_EQ(expectLinear(large, 250000), ZEL_ERR_BUFFER_SMALL);
}

// --- Stack ---------------------------------------------------------------------------------------

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__) || !defined(NDEBUG)
constexpr size_t kMostStack = 256 * 1024;
#else
constexpr size_t kMostStack = 24 * 1024;
#endif

// Bytes of stack that `work` reached on a thread of its own.
template <class Work>
size_t stackOf(Work work)
{
    return PaintedStack(work).used();
}

std::string enciphered(int mode, const std::string& text, ZEL_PLATFORM_KEY& key)
{
    std::string hidden(text.size() + 64, '\0');
    const int source = static_cast<int>(text.size());
    const int capacity = static_cast<int>(hidden.size());
    const int length = mode == 0
                           ? P2pProtocolEncode(0, text.data(), source, hidden.data(), capacity)
                           : ZelProtocolEncode(mode, text.data(), source, hidden.data(), capacity, &key);
    hidden.resize(static_cast<size_t>(std::max(length, 0)));
    return hidden;
}

// Its channel lacks the quotes; the repaired text has that size.
std::string unquotedChannel(size_t size)
{
    const auto withBlanks = [](size_t blanks) {
        return envelope("SYSTEM_CONFIG_GET_MESSAGE", "3803",
                        "<!--501-->" + std::string(blanks, ' ') + "<ChannelInfo ChannelId=3/>");
    };
    return withBlanks(size - 2 - withBlanks(0).size());
}

TEST_F(Attack, StackOfAnyCall)
{
    ZEL_PLATFORM_KEY key;
    memset(key.bytes, 0x5A, sizeof key.bytes);
    // The log takes its part of the stack too.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_DEBUG);
    ZelPlatformSetLogLimit(0);
    testing::internal::CaptureStderr();
    const size_t nothing = stackOf([] {});
    const auto expectLittle = [&](const std::string& text, const std::string& what) {
        for (const int mode : {-1, 0, 1}) {
            std::string payload = mode < 0 ? text : enciphered(mode, text, key);
            const size_t used = stackOf([&] {
                ZEL_PROTOCOL_HEADER header;
                ZEL_PROTOCOL_HEADER_init(&header);
                void* record = nullptr;
                ZelProtocolMSGAnalysisStart(payload.data(), static_cast<int>(payload.size()), mode, &key,
                                            &header, &record);
                ZelProtocolMSGAnalysisStop(&record);
            });
            EXPECT_LE(used - nothing, kMostStack) << what << mode;
        }
    };
    for (const std::string& text : {login(repeated("<a>", 200000)), login(repeated("<a>x</a>", 100000)),
                                    login(repeated("[<!a", 1000)), channelRows(1000)})
        expectLittle(text, "long");
    // Deciphering and the repair each have work memory on the stack, up to a size.
    for (const size_t size : {500U, 3000U, 4000U, 5000U, 8192U})
        expectLittle(unquotedChannel(size), std::to_string(size));

    std::vector<char> buffer(1 << 18);
    for (const CatalogueEntry& entry : catalogue()) {
        const ZEL_PROTOCOL_HEADER header = catalogueHeader(entry);
        const RecordBytes record = fullRecord(entry);
        int length = 0;
        const auto composeAt = [&](int mode, int outLen) {
            return stackOf([&] {
                length =
                    ZelProtocolXMLCompose(&header, record.data(), 1, mode, nullptr, buffer.data(), outLen);
            });
        };
        EXPECT_LE(composeAt(0, 4096) - nothing, kMostStack) << entry.name();
        EXPECT_LE(composeAt(-1, 1 << 18) - nothing, kMostStack) << entry.name();
        ASSERT_GT(length, 8) << entry.name();
        const int head = entry.isBare() ? 0 : 8;
        expectLittle(std::string(buffer.data() + head, static_cast<size_t>(length - head)), entry.name());
    }
    ZelPlatformSetLogLimit(100);
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    EXPECT_FALSE(testing::internal::GetCapturedStderr().empty());
}

// Everything at once: long enough that the fixed part doesn't matter, deciphered, repaired and dense.
TEST_F(Attack, MemoryAtItsMost)
{
    ZEL_PLATFORM_KEY key;
    memset(key.bytes, 0x5A, sizeof key.bytes);
    const auto unquotedBefore = [](const std::string& body) {
        return envelope("SYSTEM_CONFIG_GET_MESSAGE", "3803", "<!--501--><ChannelInfo ChannelId=3/>" + body);
    };
    std::vector<std::string> bodies = {"<a " + repeated("a='' ", kMegabyte) + "/>"};
    for (const char* piece : {"<a/>", "<a>", "<a a=\"\"/>", "<a>x</a>"})
        bodies.push_back(repeated(piece, 4 * kMegabyte / strlen(piece)));
    for (const std::string& body : bodies) {
        const std::string payload = enciphered(1, unquotedBefore(body), key);
        const Cost cost = costOf(payload, 1, &key, 1);
        EXPECT_LE(cost.bytes, 16 * payload.size()) << body.substr(0, 20);
    }
}

// Work memory is on the stack up to 8192 bytes, and no further.
TEST_F(Attack, WorkMemoryOnTheStackHasItsSize)
{
    ZEL_PLATFORM_KEY key;
    memset(key.bytes, 0x5A, sizeof key.bytes);
    const auto blocksOf = [&](const std::string& payload, int mode) {
        memory() = {};
        EXPECT_EQ(analyse(payload, mode, &key).result, 0);
        return memory().blocks - 1; // the record's
    };
    EXPECT_EQ(blocksOf(unquotedChannel(8192), -1), 0);
    EXPECT_EQ(blocksOf(unquotedChannel(8193), -1), 1);
    // Twice what was received is taken for the deciphered text.
    for (const size_t size : {4096U, 4097U}) {
        const std::string text = login(std::string(size - 40 - login("").size(), ' '));
        for (const int mode : {0, 1})
            EXPECT_EQ(blocksOf(enciphered(mode, text, key), mode), size == 4096 ? 0 : 1);
    }

    // Twice the buffer is taken to encipher into it.
    USER_AUTH_CMD_USER_AUTH_PARAM record;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&record);
    for (const int outLen : {4096, 4097, 1 << 20})
        for (const int mode : {0, 1}) {
            memory() = {};
            EXPECT_GT(test::compose(headerOf("USER_AUTH_MESSAGE", ""), &record, 0, outLen, mode,
                                    mode > 0 ? &key : nullptr)
                          .result,
                      0);
            EXPECT_EQ(memory().requested, outLen == 4096 ? 0U : 2U * static_cast<size_t>(outLen));
        }
}

// --- Frames --------------------------------------------------------------------------------------

std::string frameOf(uint32_t length, const std::string& payload)
{
    std::string frame(ZEL_FRAME_HEAD_SIZE, '\0');
    ZelProtocolFrameHeadWrite(frame.data(), ZEL_FRAME_PLAIN, length);
    return frame + payload;
}

TEST_F(Attack, FramesWhoseLengthLies)
{
    for (const uint32_t length :
         {0U, 1024U * 1024U + 1, 0x7FFFFFFFU, 0x80000000U, 0xFFFFFFF7U, 0xFFFFFFF8U, 0xFFFFFFFFU}) {
        demo::FrameReader reader;
        demo::Frame frame;
        const std::string bytes = frameOf(length, "payload");
        demo::addReceived(reader, bytes.data(), bytes.size());
        EXPECT_EQ(demo::nextFrame(reader, frame), demo::FrameState::Refused) << length;
        const std::string good = frameOf(1, "x");
        demo::addReceived(reader, good.data(), good.size());
        EXPECT_EQ(demo::nextFrame(reader, frame), demo::FrameState::Refused) << length;
    }

    // The largest that is allowed: nothing is taken for what was only announced.
    demo::FrameReader reader;
    demo::Frame frame;
    const std::string begun = frameOf(demo::kMaxPayloadBytes, "payload");
    for (const char byte : begun) {
        EXPECT_EQ(demo::nextFrame(reader, frame), demo::FrameState::NeedMore);
        demo::addReceived(reader, &byte, 1);
    }
    EXPECT_LE(reader.bytes.capacity(), 2 * begun.size());
    const std::string rest(demo::kMaxPayloadBytes, 'x');
    demo::addReceived(reader, rest.data(), rest.size());
    EXPECT_EQ(demo::nextFrame(reader, frame), demo::FrameState::Complete);
    EXPECT_EQ(frame.payloadBytes, demo::kMaxPayloadBytes);
    EXPECT_EQ(demo::waitingBytes(reader), strlen("payload"));

    // A length that cuts the text short, or reaches into the next frame, makes no valid message.
    const std::string text = login("");
    for (uint32_t length = 1; length < text.size(); ++length)
        EXPECT_EQ(analyse(text.substr(0, length)).result, ZEL_ERR_NO_ENVELOPE);
    EXPECT_EQ(analyse(text + frameOf(5, "other")).result, 0);
}

} // namespace
