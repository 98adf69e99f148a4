#include "support/wire.h"
#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

class Compose : public testing::Test
{
protected:
    void SetUp() override
    {
        resetServices();
    }
};

TEST_F(Compose, FourEnvelopes)
{
    ZEL_PROTOCOL_HEADER header = headerOf("USER_AUTH_MESSAGE", "CMD_USER_AUTH");
    const auto login = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    const std::string body = "<USER_AUTH_PARAM\nUsername=\"\"\nPassword=\"\"\n/>\n"
                             "<ENCRYPT\nCapbility=\"\"\nVersion=\"-1\"\n/>\n";
    EXPECT_EQ(compose(header, nullptr, 0).text, envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH", ""));
    EXPECT_EQ(compose(header, &login, 0).text, envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH", body));

    set(header.Msg_uuid, "u-1");
    EXPECT_EQ(compose(header, &login, 2).text,
              envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH", body, "Msg_uuid=\"u-1\"\n"));
    set(header.Msg_chn, "7");
    EXPECT_EQ(compose(header, nullptr, 0).text,
              envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH", "", "Msg_uuid=\"u-1\"\nMsg_chn=\"7\"\n"));
    set(header.Msg_uuid, "");
    EXPECT_EQ(compose(header, &login, 1).text,
              envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH", "", "Msg_chn=\"7\"\n"));
}

TEST_F(Compose, FrameHeadCountsThePayload)
{
    const auto header = headerOf("USER_AUTH_MESSAGE", "CMD_USER_AUTH");
    const Composed composed = compose(header, nullptr, 0);
    EXPECT_EQ(composed.bytes.substr(0, 4), std::string("\x58\x91\x58\x51"));
    EXPECT_EQ(composed.announced, composed.text.size());
    EXPECT_EQ(composed.result, static_cast<int>(composed.text.size()) + 8);
    EXPECT_EQ(services().blocks, 0);
    // A buffer may be far larger: none of it but the frame is touched.
    std::vector<char> out(1 << 20, 'x');
    ZelProtocolXMLCompose(&header, nullptr, 0, -1, nullptr, out.data(), 1 << 20);
    EXPECT_EQ(out.end(),
              std::find_if(out.begin() + composed.result, out.end(), [](char c) { return c != 'x'; }));
    services().infos.resize(4);
    EXPECT_EQ(services().infos,
              (std::vector<std::string>{
                  "ZelProtocolMessageBufCompose put msglen:" + std::to_string(composed.text.size()) +
                      " msgbuf:" + composed.text + " \n",
                  "ZelProtocolMessageBufCompose done, msglen:" + std::to_string(composed.text.size()) +
                      " DataLen:0\n",
                  "put buf len : " + std::to_string(composed.result) + "\n",
                  "Msg HeadInfo len : " + std::to_string(composed.text.size()) + "\n"}));
}

// What a frame needs, with and without a body; twice of it to be enciphered.
TEST_F(Compose, OutputLengths)
{
    const auto header = headerOf("USER_AUTH_MESSAGE", "CMD_USER_AUTH");
    const auto login = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    ZEL_PLATFORM_KEY key{};
    for (const void* record : {static_cast<const void*>(nullptr), static_cast<const void*>(&login)}) {
        const int n = static_cast<int>(compose(header, record, 0).text.size());
        EXPECT_EQ(compose(header, record, 0, n + 9).result, n + 8);
        EXPECT_EQ(compose(header, record, 0, n + 8).result, ZEL_ERR_BUFFER_SMALL);
        resetServices();
        for (int outLen = 2 * n; outLen <= 2 * n + 12; ++outLen)
            EXPECT_EQ(compose(header, record, 0, outLen, 1, &key).result > 0, outLen > 2 * (n + 4)) << outLen;
        EXPECT_EQ(services().errors.front(), "ZelProtocolMessageEncryption failed , ret : -1007\n");
    }
}

TEST_F(Compose, MissingArgumentsAndUnknownTypes)
{
    char out[16];
    const auto header = headerOf("USER_AUTH_MESSAGE", "");
    EXPECT_EQ(ZelProtocolXMLCompose(nullptr, nullptr, 0, -1, nullptr, out, 16), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolXMLCompose(&header, nullptr, 0, -1, nullptr, nullptr, 16), ZEL_ERR_BAD_PARAM);
    for (const int outLen : {0, -5})
        EXPECT_EQ(ZelProtocolXMLCompose(&header, nullptr, 0, -1, nullptr, out, outLen), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(services().errors.empty());
    const auto unknown = headerOf("NO_SUCH_MESSAGE", "12");
    EXPECT_EQ(compose(unknown, nullptr, 0).text, envelope("NO_SUCH_MESSAGE", "12", ""));
    EXPECT_EQ(compose(unknown, &unknown, 0).result, ZEL_ERR_UNKNOWN_MSG);
    EXPECT_EQ(services().errors,
              (std::vector<std::string>{
                  "ZelProtocolXMLCompose deal a unknow Msg_type:NO_SUCH_MESSAGE Msg_code:12 !!!\n",
                  "Msgtype:NO_SUCH_MESSAGE Msg_code:12 Msg_flag:flag Compose failed, nRet : -1000\n"}));
    for (const char* type : {"ZEL_HEARTBEAT_MESSAGE", "AUXPTZ_HEARTBEAT_MESSAGE"})
        EXPECT_EQ(compose(headerOf(type, "CMD_OTHER"), &unknown, 0).result, ZEL_ERR_UNKNOWN_MSG);
    for (const char* type : {"OPEN_DBG_MESSAGE", "CLOSE_DBG_MESSAGE"})
        EXPECT_EQ(compose(headerOf(type, ""), &unknown, 0).text, envelope(type, "", ""));
}

// A bare text has no head and no cipher; the buffer takes what it holds and the rest of it is cleared.
TEST_F(Compose, BareText)
{
    const auto header = headerOf("SYSTEM_SEARCHIPC_MESSAGE", "9");
    const std::string text = envelope("SYSTEM_SEARCHIPC_MESSAGE", "9", "");
    const int n = static_cast<int>(text.size());
    for (const int outLen : {1, n - 1, n, n + 1, n + 100}) {
        std::vector<char> out(static_cast<size_t>(outLen), 'x');
        EXPECT_EQ(ZelProtocolXMLCompose(&header, nullptr, 0, 1, nullptr, out.data(), outLen), n);
        std::string expected = text;
        expected.resize(out.size(), '\0');
        EXPECT_EQ(std::string(out.begin(), out.end()), expected) << outLen;
    }
    EXPECT_EQ(compose(headerOf("IPC_REPAIR_MESSAGE", "9"), nullptr, 0).bytes,
              envelope("IPC_REPAIR_MESSAGE", "9", ""));
}

TEST_F(Compose, Transparent)
{
    auto wrapped = std::make_unique<TRANSPARENT_HEADER>();
    TRANSPARENT_HEADER_init(wrapped.get());
    EXPECT_EQ(wrapped->iTransDataLen, -1);
    set(wrapped->Trans_Type, "T");
    set(wrapped->Channel_ID, "C");
    set(wrapped->Source_Type, "S");
    set(wrapped->Session_ID, "I");
    set(wrapped->Trans_Result, "R");
    const auto header = headerOf("TRANSPARENT_CHANNEL_MSG", "x");
    EXPECT_EQ(compose(header, wrapped.get(), 0).result, ZEL_ERR_BUFFER_SMALL);

    const std::string inner("<MESSAGE_HEADER/>\0raw</XML_ZELMAR>", 35);
    memcpy(wrapped->acTransData, inner.data(), inner.size());
    wrapped->iTransDataLen = static_cast<int32_t>(inner.size());
    const std::string text =
        "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<TRANSPARENT_HEADER\n"
        "Trans_Type=\"T\"\nChannel_ID=\"C\"\nSource_Type=\"S\"\nSession_ID=\"I\"\n"
        "Trans_Result=\"R\"\n/>\n" +
        inner;
    const Composed composed = compose(header, wrapped.get(), 1);
    EXPECT_EQ(composed.text, text);
    EXPECT_EQ(composed.announced, text.size());
    const int n = static_cast<int>(text.size());
    EXPECT_EQ(compose(header, wrapped.get(), 1, n + 8).result, ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(compose(header, wrapped.get(), 1, n + 9).result, n + 8);

    wrapped->iTransDataLen = 8193;
    EXPECT_EQ(compose(header, wrapped.get(), 0).result, ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(compose(header, nullptr, 0).text, envelope("TRANSPARENT_CHANNEL_MSG", "x", ""));
}

// The argument selects the codec on the way out, whatever the mode; the frame's head tells of neither.
TEST_F(Compose, EncipheredFrames)
{
    ZEL_PLATFORM_KEY key{};
    const auto header = headerOf("USER_AUTH_MESSAGE", "");
    const std::string text = envelope("USER_AUTH_MESSAGE", "", "");
    for (const int mode : {0, 3})
        for (void* arg : {static_cast<void*>(nullptr), static_cast<void*>(&key)}) {
            const Composed composed = compose(header, nullptr, 0, 4096, mode, arg);
            EXPECT_EQ(composed.bytes.substr(0, 4), std::string("\x57\x81\x59\x52"));
            EXPECT_EQ(composed.announced, composed.text.size());
            const int size = static_cast<int>(composed.text.size());
            char out[4096];
            const int length = arg ? ZelProtocolDecode(mode, composed.text.data(), size, out, 4096, &key)
                                   : P2pProtocolDecode(0, composed.text.data(), size, out, 4096);
            EXPECT_EQ(std::string(out, static_cast<size_t>(std::max(length, 0))), text);
        }
}

// What can't be enciphered isn't left in the clear either.
TEST_F(Compose, NoPlainTextBehindAFailedCodec)
{
    const auto header = headerOf("USER_AUTH_MESSAGE", "");
    auto login = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    set(login.Password, "open sesame");
    std::vector<char> out(16384, 0);
    services().failAfter = 0;
    EXPECT_EQ(ZelProtocolXMLCompose(&header, &login, 0, 1, out.data(), out.data(), 16384), ZEL_ERR_NO_MEMORY);
    EXPECT_EQ(std::count(out.begin(), out.end(), '\0'), 16384);
}

// A type or code that fills its field lacks a terminator.
TEST_F(Compose, HeaderTextsEndWithTheirFields)
{
    ZEL_PROTOCOL_HEADER header;
    memset(&header, 'h', sizeof header);
    const std::string text = compose(header, nullptr, 0).text;
    EXPECT_NE(text.find("Msg_code=\"" + std::string(32, 'h') + "\"\n"), std::string::npos);
    EXPECT_NE(text.find("Msg_uuid=\"" + std::string(64, 'h') + "\"\n"), std::string::npos);
    EXPECT_EQ(compose(header, &header, 0).result, ZEL_ERR_UNKNOWN_MSG);
}

} // namespace
