#include "support/wire.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

const std::string kClosing = "</XML_ZELMAR>";
const std::string kLogin = envelope("USER_AUTH_MESSAGE", "c", "<USER_AUTH_RESPONSE\nSessionid=\"s\"\n/>\n",
                                    "Msg_uuid=\"u\"\nMsg_chn=\"n\"\n");

class Analysis : public testing::Test
{
protected:
    void SetUp() override
    {
        resetServices();
    }
};

TEST_F(Analysis, ReadsHeaderAndRecord)
{
    const Analysed login = analyse(kLogin);
    ASSERT_EQ(login.result, 0);
    EXPECT_EQ(get(login.header.Msg_type), "USER_AUTH_MESSAGE");
    EXPECT_EQ(get(login.header.Msg_code), "c");
    EXPECT_EQ(get(login.header.Msg_flag), "flag");
    EXPECT_EQ(get(login.header.Msg_uuid), "u");
    EXPECT_EQ(get(login.header.Msg_chn), "n");
    EXPECT_EQ(get(login.as<USER_AUTH_CMD_USER_AUTH_PARAM>().Sessionid), "s");
    EXPECT_EQ(services().blocks, 1);
    EXPECT_EQ(services().infos,
              std::vector<std::string>{"ZelProtocolMSGAnalysisStart get msgbuf:" + kLogin + "\n"});
}

TEST_F(Analysis, RefusesMissingArguments)
{
    char bytes[] = "x";
    ZEL_PROTOCOL_HEADER header{};
    void* record = nullptr;
    EXPECT_EQ(ZelProtocolMSGAnalysisStart(nullptr, 1, -1, nullptr, &header, &record), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("ZelProtocolXMLAnalysis Invaild Input Param\n"));
    EXPECT_EQ(ZelProtocolMSGAnalysisStart(bytes, 0, -1, nullptr, &header, &record), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolMSGAnalysisStart(bytes, 1, -1, nullptr, nullptr, &record), ZEL_ERR_BAD_PARAM);
    std::string login = kLogin;
    EXPECT_EQ(ZelProtocolMSGAnalysisStart(login.data(), static_cast<int>(login.size()), -1, nullptr, &header,
                                          nullptr),
              ZEL_ERR_BAD_PARAM);
}

// The whole of a text up to its closing tag is a message, whatever follows.
TEST_F(Analysis, CutsAtTheFirstClosingTag)
{
    EXPECT_EQ(analyse(kLogin + kClosing).result, 0);
    EXPECT_EQ(analyse(kLogin.substr(0, kLogin.size() - 1)).result, ZEL_ERR_NO_ENVELOPE);
    const Analysed trailed = analyse(kLogin + "<trailing");
    EXPECT_EQ(trailed.result, 0);
    EXPECT_EQ(trailed.payload, kLogin + '\0' + "trailing");
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(analyse("<XML_ZELMAR>" + kClosing + kLogin).result, ZEL_ERR_NO_HEADER);
    std::string hidden = kLogin;
    hidden[20] = '\0';
    EXPECT_EQ(analyse(hidden).result, ZEL_ERR_NO_ENVELOPE);
}

TEST_F(Analysis, UnusableHeaders)
{
    const auto fails = [](const std::string& text, int status, const std::string& log) {
        resetServices();
        const Analysed analysed = analyse(text);
        EXPECT_EQ(analysed.result, status) << text;
        EXPECT_EQ(services().errors.back(), log);
        EXPECT_EQ(services().blocks, 0);
    };
    fails("<broken" + kClosing, ZEL_ERR_NO_HEADER, "GetMessageHeader failed! nRet:-1003 \n");
    EXPECT_EQ(services().errors.front(), "GetMessageHeader Parse xml error\n");
    fails("<XML_ZELMAR><MESSAGE_BODY/>" + kClosing, ZEL_ERR_NO_HEADER,
          "GetMessageHeader failed! nRet:-1004 \n");
    EXPECT_EQ(services().errors.front(), "GetMessageHeader get MESSAGE_HEADER error\n");
    fails(envelope("NO_SUCH", "9", ""), ZEL_ERR_UNKNOWN_MSG,
          "ZelProtocolMSGAnalysisStart deal a unknow Msg_type:NO_SUCH Msg_code:9 !!!\n");
    fails(envelope("ZEL_HEARTBEAT_MESSAGE", "OTHER", ""), ZEL_ERR_UNKNOWN_MSG,
          "ZelProtocolMSGAnalysisStart deal a unknow Msg_type:ZEL_HEARTBEAT_MESSAGE Msg_code:OTHER !!!\n");
    services().failAfter = 0;
    EXPECT_EQ(analyse(kLogin).result, ZEL_ERR_NO_MEMORY);
    EXPECT_EQ(services().errors.back(), "Malloc Memory failed!\n");
    for (const char* type : {"OPEN_DBG_MESSAGE", "CLOSE_DBG_MESSAGE"}) {
        const Analysed analysed = analyse(envelope(type, "", ""));
        EXPECT_EQ(analysed.result, 0);
        EXPECT_EQ(analysed.record, nullptr);
    }
}

TEST_F(Analysis, HeaderReadersTakeATextOfTheirOwn)
{
    ZEL_PROTOCOL_HEADER header = headerOf("", "");
    TRANSPARENT_HEADER transparent;
    EXPECT_EQ(GetMessageHeader(kLogin.c_str(), &header), 0);
    EXPECT_EQ(get(header.Msg_type), "USER_AUTH_MESSAGE");
    EXPECT_EQ(GetMessageHeader("<a/>", &header), ZEL_ERR_NO_ELEMENT);
    EXPECT_EQ(get(header.Msg_type), "USER_AUTH_MESSAGE");
    EXPECT_EQ(GetMessageHeader("", &header), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_EQ(GetMessageHeader(nullptr, &header), -1);
    EXPECT_EQ(services().errors.back().rfind("Invalid input data ", 0), 0U);
    resetServices();
    EXPECT_EQ(GetTransparentHeader(kLogin.c_str(), &transparent), ZEL_ERR_NO_ELEMENT);
    EXPECT_EQ(GetTransparentHeader("<", &transparent), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(GetTransparentHeader(kLogin.c_str(), nullptr), ZEL_ERR_BAD_DOCUMENT);
}

// --- Transparent messages ------------------------------------------------------------------------

const std::string kOuter = "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<TRANSPARENT_HEADER\n"
                           "Trans_Type=\"NVR\"\nChannel_ID=\"3\"\nTrans_Result=\"ok\"\n/>\n";
const std::string kInner = "<MESSAGE_HEADER Msg_type=\"X\"/>\n<MESSAGE_BODY>\n</MESSAGE_BODY>\n" + kClosing;

TEST_F(Analysis, Transparent)
{
    for (const std::string& trailing : {std::string(), std::string("\0raw", 4)}) {
        const Analysed analysed = analyse(kOuter + kInner + trailing);
        EXPECT_EQ(analysed.result, static_cast<int>((kInner + trailing).size()));
        EXPECT_EQ(get(analysed.header.Msg_type), "NVR");
        EXPECT_EQ(get(analysed.header.Msg_code), "");
        const auto& wrapped = analysed.as<TRANSPARENT_HEADER>();
        EXPECT_EQ(get(wrapped.Channel_ID), "3");
        EXPECT_EQ(get(wrapped.Source_Type), "");
        EXPECT_EQ(get(wrapped.Trans_Result), "ok");
        EXPECT_EQ(wrapped.iTransDataLen, analysed.result);
        EXPECT_EQ(std::string(wrapped.acTransData, static_cast<size_t>(wrapped.iTransDataLen)),
                  kInner + trailing);
    }
    EXPECT_EQ(analyse(kOuter + kClosing).result, ZEL_ERR_NO_ENVELOPE);
    const std::string end = "\"/>" + kClosing;
    std::string largest = "<MESSAGE_HEADER a=\"";
    largest.append(8192 - largest.size() - end.size(), 'x');
    EXPECT_EQ(analyse(kOuter + largest + end).result, 8192);
    EXPECT_EQ(analyse(kOuter + largest + "x" + end).result, ZEL_ERR_BUFFER_SMALL);
    services().failAfter = 0;
    EXPECT_EQ(analyse(kOuter + kInner).result, ZEL_ERR_NO_MEMORY);
}

// --- The repair of an unquoted channel -----------------------------------------------------------

// The repair shows in a login's text too: what counts is what stands in it.
std::string unquoted(const std::string& type, const std::string& code, const std::string& channel)
{
    return "<XML_ZELMAR><MESSAGE_HEADER Msg_type=\"USER_AUTH_MESSAGE\" Msg_code=\"" + code +
           "\" Msg_flag=\"" + type + "\"/>\n<MESSAGE_BODY><USER_AUTH_RESPONSE ChannelId=" + channel +
           "><ENCRYPT Version=\"4\"/></MESSAGE_BODY>" + kClosing;
}

TEST_F(Analysis, RepairsAnUnquotedChannel)
{
    for (const char* code : {"501", "2511", "2560", "2561", "x15010"}) {
        const std::string text = unquoted("SYSTEM_CONFIG_GET_MESSAGE", code, "12/");
        resetServices();
        const Analysed analysed = analyse(text);
        EXPECT_EQ(analysed.result, 0) << code;
        EXPECT_EQ(analysed.as<USER_AUTH_CMD_USER_AUTH_PARAM>().Version, 4);
        EXPECT_EQ(analysed.payload, text);
        EXPECT_EQ(services().blocks, 1);
        EXPECT_NE(services().infos.back().find("ChannelId=\"12\"/>"), std::string::npos);
    }
    analyse(unquoted("SYSTEM_CONFIG_GET_MESSAGE", "501", "12\n/"));
    EXPECT_NE(services().infos.back().find("ChannelId=\"12\n\"/>"), std::string::npos);
    EXPECT_EQ(analyse(unquoted("SYSTEM_CONFIG_GET_MESSAGE", "501", "\"3\"/")).result, 0);
    EXPECT_EQ(services().infos.back().find("ChannelId=\"\""), std::string::npos);
    EXPECT_EQ(analyse(unquoted("SYSTEM_CONFIG_SET_MESSAGE", "501", "3/")).result, ZEL_ERR_NO_HEADER);
    EXPECT_EQ(analyse(unquoted("SYSTEM_CONFIG_GET_MESSAGE", "502", "3/")).result, ZEL_ERR_NO_HEADER);
}

// A long text is repaired on the heap; a wrapped one is repaired too, and keeps all of its bytes.
TEST_F(Analysis, RepairsLongAndWrappedTexts)
{
    const std::string text = unquoted("SYSTEM_CONFIG_GET_MESSAGE", "501", "3" + std::string(9000, ' ') + "/");
    for (const int blocks : {0, 1, 2}) {
        services().failAfter = blocks;
        EXPECT_EQ(analyse(text).result, blocks == 2 ? 0 : static_cast<int>(ZEL_ERR_NO_MEMORY));
    }
    services().failAfter = -1;

    const auto inner = [](const std::string& channel, const std::string& trailing) {
        return "<MESSAGE_HEADER Msg_type=\"SYSTEM_CONFIG_GET_MESSAGE\" Msg_code=\"501\"/>"
               "<MESSAGE_BODY><REQUEST_PARAM ChannelId=" +
               channel + "/></MESSAGE_BODY>" + kClosing + trailing;
    };
    for (const std::string& trailing : {std::string(), std::string("\0ail", 4)}) {
        const std::string expected = inner("\"3\"", trailing);
        const Analysed analysed = analyse(kOuter + inner("3", trailing));
        ASSERT_EQ(analysed.result, static_cast<int>(expected.size()));
        EXPECT_EQ(std::string(analysed.as<TRANSPARENT_HEADER>().acTransData, expected.size()), expected);
    }
}

// --- Enciphered payloads -------------------------------------------------------------------------

std::string enciphered(const std::string& flag, int mode, void* arg)
{
    ZEL_PROTOCOL_HEADER header = headerOf("USER_AUTH_MESSAGE", "c");
    set(header.Msg_flag, flag);
    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    return compose(header, &login, 0, 65536, mode, arg).text;
}

TEST_F(Analysis, Deciphers)
{
    ZEL_PLATFORM_KEY key{{1, 2, 3}};
    ZEL_PLATFORM_KEY other{{2}};
    const std::string p2p = enciphered("p2p", 2, nullptr);
    const std::string keyed = enciphered("keyed", 2, &key);
    // Outbound the argument chooses the codec, inbound the mode.
    EXPECT_EQ(get(analyse(p2p, 0, nullptr).header.Msg_flag), "p2p");
    EXPECT_EQ(get(analyse(keyed, 2, &key).header.Msg_flag), "keyed");
    resetServices();
    EXPECT_EQ(analyse(p2p, 2, nullptr).result, ZEL_ERR_CODEC);
    EXPECT_EQ(analyse(keyed, 2, &other).result, ZEL_ERR_CODEC);
    EXPECT_EQ(analyse(keyed, 1, &key).result, ZEL_ERR_CODEC);
    EXPECT_EQ(analyse(keyed, 0, &key).result, ZEL_ERR_CODEC);
    EXPECT_EQ(analyse(keyed + "x", 2, &key).result, ZEL_ERR_CODEC);
    EXPECT_EQ(analyse(keyed, -1, &key).result, ZEL_ERR_NO_ENVELOPE);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(services().blocks, 0);
}

// More than fits the stack is deciphered in one block, which is given back.
TEST_F(Analysis, DeciphersLongPayloads)
{
    auto wrapped = std::make_unique<TRANSPARENT_HEADER>();
    TRANSPARENT_HEADER_init(wrapped.get());
    const std::string inner = "<MESSAGE_HEADER a=\"" + std::string(7000, 'x') + "\"/>" + kClosing;
    memcpy(wrapped->acTransData, inner.data(), inner.size());
    wrapped->iTransDataLen = static_cast<int32_t>(inner.size());
    const std::string payload =
        compose(headerOf("TRANSPARENT_CHANNEL_MSG", ""), wrapped.get(), 0, 65536, 0).text;
    resetServices();
    for (const int blocks : {2, 1, 0}) {
        services().failAfter = blocks;
        EXPECT_EQ(analyse(payload, 0).result,
                  blocks == 2 ? static_cast<int>(inner.size()) : static_cast<int>(ZEL_ERR_NO_MEMORY));
    }
    EXPECT_EQ(services().errors.back(), "ZelProtocolMalloc faile!!\n");
    EXPECT_EQ(services().held, 1); // the record of the first
}

} // namespace
