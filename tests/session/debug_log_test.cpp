#include "support/wire.h"

using namespace test;

namespace {

using Log = SYSTEM_LOG_PARAM;

const std::string kDebug = "DBG_CMD_MESSAGE";
const std::string kLog = "SYSTEM_LOG_MESSAGE";
const std::string kEndCode(4, '\0');

std::string received(const std::string& body)
{
    const Analysed analysed = analyse(envelope(kDebug, "", body));
    return analysed.result == 0 ? get(analysed.as<DBG_CMD_PARAM>().acText) : std::to_string(analysed.result);
}

TEST(DebugLog, DebugTextIsTheBody)
{
    auto debug = fresh(DBG_CMD_PARAM_init);
    EXPECT_EQ(compose(headerOf(kDebug, "c"), &debug, 0).text, envelope(kDebug, "c", ""));
    EXPECT_EQ(received(""), "\n");
    set(debug.acText, "ls -l &amp; 1");
    for (const int kind : {0, 1, 2, 3})
        EXPECT_EQ(compose(headerOf(kDebug, ""), &debug, kind).text, envelope(kDebug, "", "ls -l &amp; 1"));
    EXPECT_EQ(received("ls -l &amp; 1"), "\nls -l &amp; 1\n");

    // A text without a terminator ends with its field.
    set(debug.acText, std::string(8192, 'x'));
    const std::string longest = bodyOf(kDebug, "", &debug, 0);
    EXPECT_EQ(longest, std::string(8192, 'x'));
    EXPECT_EQ(received(std::string(8189, 'x')).size(), 8191U);
    EXPECT_EQ(received(std::string(8190, 'x')), std::to_string(ZEL_ERR_BUFFER_SMALL));
}

TEST(DebugLog, DebugAnalysisDoesNotParse)
{
    void* result = nullptr;
    resetServices();
    ASSERT_EQ(DebugLogMessageAnalysis("<MESSAGE_BODY>a<b</MESSAGE_BODY></MESSAGE_BODY>", 3, &result), 0);
    EXPECT_STREQ(static_cast<DBG_CMD_PARAM*>(result)->acText, "a<b");
    ZelProtocolMSGAnalysisStop(&result);
    for (const char* text :
         {"MESSAGE_BODY></MESSAGE_BODY>", "<MESSAGE_BODY>", "</MESSAGE_BODY><MESSAGE_BODY>"})
        EXPECT_EQ(DebugLogMessageAnalysis(text, 99, &result), ZEL_ERR_BAD_DOCUMENT) << text;
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(DebugLogMessageAnalysis("<MESSAGE_BODY>abc</MESSAGE_BODY>", 2, &result), ZEL_ERR_BUFFER_SMALL);
    EXPECT_TRUE(loggedOnly("Error: iBufLen(2) small than len(3)\n"));
    EXPECT_EQ(DebugLogMessageAnalysis("<MESSAGE_BODY></MESSAGE_BODY>", 0, &result), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(DebugLogMessageAnalysis(nullptr, 9, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(DebugLogMessageAnalysis("<MESSAGE_BODY></MESSAGE_BODY>", 9, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(result, nullptr);
}

// The body, and what is announced behind the text.
void expectBody(const Log& log, int kind, const std::string& body, int extra)
{
    for (const char* type : {"SYSTEM_LOG_MESSAGE", "SYSTEM_LOG_DATA"}) {
        const Composed composed = compose(headerOf(type, "any"), &log, kind);
        EXPECT_EQ(composed.text, envelope(type, "any", wire(body))) << kind;
        EXPECT_EQ(static_cast<int>(composed.announced - composed.text.size()), extra) << kind;
    }
}

TEST(DebugLog, LogRequests)
{
    auto log = fresh(SYSTEM_LOG_PARAM_init);
    log.StartPos = 11;
    for (const int kind : {0, 2}) {
        set(log.Filename, "");
        set(log.acCmd, "");
        expectBody(log, kind, "", 0);
        set(log.acCmd, "tail");
        expectBody(log, kind, "<cmd>tail</cmd>", 0);
        set(log.Filename, "file");
        log.DataLen = -1;
        expectBody(log, kind, "<POS |Filename='file'|XmlLen='-1'|StartPos='11'|DataLen='-1'|/>|", 3);
        log.XmlLen = 12;
        log.DataLen = 13;
        expectBody(log, kind, "<POS |Filename='file'|XmlLen='12'|StartPos='11'|DataLen='13'|/>|", 17);
        log.XmlLen = -1;
    }
}

TEST(DebugLog, LogResponses)
{
    auto log = fresh(SYSTEM_LOG_PARAM_init);
    set(log.Filename, "file");
    log.DataLen = 99;
    for (const int kind : {1, 3}) {
        expectBody(log, kind, "", 0);
        set(log.acData, "data");
        expectBody(log, kind, "data", 0);
        set(log.RespStr, "ok");
        expectBody(log, kind, "<RESPONSE_PARAM>|RespStr='ok'|</RESPONSE_PARAM>|", 0);
        log.iRespDataLen = 0;
        const std::string length = "<RESPONSE_DATA_LEN>|0|</RESPONSE_DATA_LEN>|";
        expectBody(log, kind, "<RESPONSE_PARAM></RESPONSE_PARAM>|" + length, 4);
        set(log.acCmd, "done");
        log.iRespDataLen = 20;
        expectBody(log, kind,
                   "<RESPONSE_PARAM>done</RESPONSE_PARAM>|<RESPONSE_DATA_LEN>|20|</RESPONSE_DATA_LEN>|", 24);
        log.iRespDataLen = -1;
        set(log.acCmd, "");
        set(log.RespStr, "");
        set(log.acData, "");
    }
    set(log.acData, std::string(40960, 'd'));
    expectBody(log, 1, std::string(40960, 'd'), 0);
}

// A text that is read into these fields and no others.
void expectLog(const std::string& body, const Log& expected, const std::string& behind = "")
{
    for (const char* type : {"SYSTEM_LOG_MESSAGE", "SYSTEM_LOG_DATA"}) {
        const Analysed analysed = analyse(envelope(type, "any", wire(body)) + behind);
        ASSERT_EQ(analysed.result, 0) << body;
        EXPECT_EQ(memcmp(analysed.record.get(), &expected, sizeof expected), 0) << body;
    }
}

TEST(DebugLog, LogAnalysisTakesTheFirstThatApplies)
{
    const auto fields = [](const std::string& cmd, const std::string& data, int32_t length) {
        auto log = fresh(SYSTEM_LOG_PARAM_init);
        set(log.acCmd, cmd);
        set(log.acData, data);
        log.iRespDataLen = length;
        return log;
    };
    const std::string pos = "<POS |Filename='file'|XmlLen='12'|StartPos='11'|DataLen='-3'|/>|";
    const std::string response = "<RESPONSE_PARAM>done</RESPONSE_PARAM>|";
    const std::string length = "<RESPONSE_DATA_LEN>|20|</RESPONSE_DATA_LEN>|";
    const std::string command = "<cmd>tail</cmd>";
    auto piece = fields("", "", -1);
    set(piece.Filename, "file");
    piece.XmlLen = 12;
    piece.StartPos = 11;
    piece.DataLen = -3;
    expectLog(command + length + response + pos, piece);
    expectLog(command + response, fields("", "done", -1));
    // The response's data isn't copied.
    expectLog(command + length + response, fields("", "done", 20), kEndCode + std::string(20, 'r'));
    expectLog("<RESPONSE_PARAM/><RESPONSE_DATA_LEN/>" + command, fields("", "", -1));
    expectLog("<RESPONSE_DATA_LEN>x</RESPONSE_DATA_LEN><RESPONSE_PARAM/>", fields("", "", 0));
    expectLog("<RESPONSE_PARAM>|RespStr='ok'|</RESPONSE_PARAM>|", fields("", "\nRespStr=\"ok\"\n", -1));
    expectLog(command + length, fields("tail", "", -1));
    expectLog("<cmd/>text", fields("", "", -1));
    expectLog("bare", fields("", "\nbare\n", -1));

    const std::string many(41000, 'd');
    expectLog("<RESPONSE_PARAM>" + many + "</RESPONSE_PARAM>", fields("", many.substr(0, 40959), -1));
    expectLog(many, fields("", "\n" + many.substr(0, 40958), -1));
    expectLog("<cmd>" + many + "</cmd>", fields(many.substr(0, 255), "", -1));
    for (const std::string& body : {std::string(), length, std::string("<Other>text</Other>")})
        EXPECT_EQ(analyseBody(kLog, "", body).result, ZEL_ERR_NO_ELEMENT) << body;
}

TEST(DebugLog, LogDataStaysWithinWhatWasReceived)
{
    const auto announced = [](size_t length, const std::string& behind) {
        return analyse(envelope(kLog, "", "<POS DataLen=\"" + std::to_string(length) + "\"/>") + behind);
    };
    const auto dataOf = [](const Analysed& analysed) { return get(analysed.as<Log>().acData); };
    const Analysed whole = announced(5, kEndCode + "12345678");
    ASSERT_EQ(whole.result, 0);
    EXPECT_EQ(dataOf(whole), "12345");
    EXPECT_EQ(whole.as<Log>().DataLen, 5);
    EXPECT_EQ(announced(6, kEndCode + "12345").result, ZEL_ERR_BAD_CONTENT);
    // Without an end code the data is sought in the text.
    EXPECT_EQ(dataOf(announced(5, "")), "<?xml");
    EXPECT_EQ(dataOf(announced(5, std::string("\0\0\0x12345", 9))), "<?xml");
    EXPECT_EQ(announced(9999, "").result, ZEL_ERR_BAD_CONTENT);
    for (const char* none : {"0", "-1"})
        EXPECT_EQ(dataOf(analyse(envelope(kLog, "", "<POS DataLen=\"" + std::string(none) + "\"/>") +
                                 kEndCode + "12345")),
                  "");
    const std::string full(40961, 'r');
    EXPECT_EQ(dataOf(announced(40960, kEndCode + full)), full.substr(1));
    EXPECT_EQ(announced(40961, kEndCode + full).result, ZEL_ERR_BUFFER_SMALL);

    // A text alone has nothing behind it.
    void* result = nullptr;
    const std::string text = envelope(kLog, "", "<POS DataLen=\"5\"/>") + std::string(5, '\0') + "12345";
    ASSERT_EQ(SystemLogMessageAnalysis(text.c_str(), &result), 0);
    EXPECT_EQ(static_cast<Log*>(result)->DataLen, 5);
    EXPECT_STREQ(static_cast<Log*>(result)->acData, "");
    ZelProtocolMSGAnalysisStop(&result);
}

TEST(DebugLog, ExportedPair)
{
    auto log = fresh(SYSTEM_LOG_PARAM_init);
    set(log.Filename, "f");
    char out[128];
    int extra = 100;
    EXPECT_EQ(SystemLogMessageCompose(&log, 2, out, sizeof out, &extra), 0);
    EXPECT_EQ(extra, 103);
    resetServices();
    EXPECT_EQ(SystemLogMessageCompose(&log, 0, out, sizeof out, nullptr), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("SYSTEM_LOG_PARAM put a empty Param\n"));
    void* result = nullptr;
    EXPECT_EQ(SystemLogMessageAnalysis(nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("SystemLogMessageAnalysis put a empty Param\n"));
}

} // namespace
