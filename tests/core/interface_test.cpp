// The small functions beside the two entry points.
#include <climits>
#include <set>

#include "support/wire.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

TEST(Interface, EveryStatusHasATextOfItsOwn)
{
    std::set<std::string> texts;
    for (int status = ZEL_ERR_NO_ENVELOPE; status <= ZEL_ERR_UNKNOWN_MSG; ++status)
        texts.insert(ZelProtocolStatusText(status));
    EXPECT_EQ(texts.size(), 11U); // -1008 and -1010 share that of no status
    const std::string unknown = ZelProtocolStatusText(-1008);
    for (const int status : {-1010, -2, -999, -1012, INT_MIN})
        EXPECT_EQ(ZelProtocolStatusText(status), unknown);
    EXPECT_EQ(texts.count(ZelProtocolStatusText(0)) + texts.count(ZelProtocolStatusText(-1)), 0U);
    EXPECT_STREQ(ZelProtocolStatusText(0), ZelProtocolStatusText(INT_MAX));
}

TEST(Interface, VersionOfTheLibrary)
{
    EXPECT_EQ(ZelProtocolVersion(), std::to_string(ZEL_PROTOCOL_VERSION_MAJOR) + "." +
                                        std::to_string(ZEL_PROTOCOL_VERSION_MINOR) + "." +
                                        std::to_string(ZEL_PROTOCOL_VERSION_PATCH));
    EXPECT_STREQ(ZelProtocolVersion(), ZEL_BUILD_VERSION);
}

// What comes back of a value that holds each byte: itself, if it was called writable.
TEST(Interface, WritableTextsComeBack)
{
    std::string refused;
    for (int byte = 1; byte < 256; ++byte) {
        auto heartbeat = fresh(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init);
        const std::string text{'a', static_cast<char>(byte), 'l', 't', ';', 'b'};
        set(heartbeat.Ipcs_stat, text);
        if (!ZelProtocolTextIsWritable(heartbeat.Ipcs_stat, sizeof heartbeat.Ipcs_stat)) {
            refused += static_cast<char>(byte);
            continue;
        }
        const Analysed analysed =
            analyse(compose(headerOf("ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT"), &heartbeat, 0).text);
        ASSERT_EQ(analysed.result, 0) << byte;
        EXPECT_EQ(get(analysed.as<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM>().Ipcs_stat), text);
    }
    std::string expected;
    for (char byte = 1; byte < 32; ++byte)
        expected += byte;
    EXPECT_EQ(refused, expected + "\"&<");

    const char full[4] = {'a', 'b', 'c', 'd'};
    EXPECT_EQ(ZelProtocolTextIsWritable(full, 4), 1);
    EXPECT_EQ(ZelProtocolTextIsWritable("abc\"", 3), 1);
    EXPECT_EQ(ZelProtocolTextIsWritable("abc\"", 4), 0);
    EXPECT_EQ(ZelProtocolTextIsWritable("ab\0\"", 4), 1);
    EXPECT_EQ(ZelProtocolTextIsWritable("", 0), 1);
    EXPECT_EQ(ZelProtocolTextIsWritable("a ChannelId", 99), 1);
    EXPECT_EQ(ZelProtocolTextIsWritable("a ChannelId=", 12), 0);
    EXPECT_EQ(ZelProtocolTextIsWritable("", -1), 0);
    EXPECT_EQ(ZelProtocolTextIsWritable(nullptr, 4), 0);
}

// The size is enough, and a byte less isn't.
void expectSize(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind)
{
    static ZEL_PLATFORM_KEY key{};
    const bool bare = !strcmp(header.Msg_type, "SYSTEM_SEARCHIPC_MESSAGE");
    for (const int mode : {-1, 0, 1}) {
        SCOPED_TRACE(std::string(header.Msg_type) + header.Msg_code + " mode " + std::to_string(mode));
        resetServices();
        const int size = ZelProtocolXMLComposeSize(&header, record, kind, mode);
        EXPECT_EQ(services().blocks, 0);
        EXPECT_TRUE(services().infos.empty() && services().errors.empty());
        ASSERT_GT(size, 0);
        void* const arg = mode > 0 ? &key : nullptr;
        const Composed whole = compose(header, record, kind, size, mode, arg);
        EXPECT_GT(whole.result, 0);
        EXPECT_LE(whole.result, size);
        EXPECT_EQ(whole.bytes.find("</XML_ZELMAR>") != std::string::npos, mode < 0 || bare);
        const int less = compose(header, record, kind, size - 1, mode, arg).result;
        EXPECT_TRUE(less == ZEL_ERR_BUFFER_SMALL || (bare && less > size - 1)) << less;
    }
}

TEST(Interface, ComposeSizeIsTheLeastBuffer)
{
    const auto login = fresh(USER_AUTH_CMD_USER_AUTH_PARAM_init);
    expectSize(headerOf("USER_AUTH_MESSAGE", ""), nullptr, 0);
    expectSize(headerOf("USER_AUTH_MESSAGE", ""), &login, 0);
    auto heartbeat = fresh(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init);
    set(heartbeat.Ipcs_stat, "in the header");
    expectSize(headerOf("ZEL_HEARTBEAT_MESSAGE", "CMD_HEARTBEAT"), &heartbeat, 0);
    auto upload = fresh(MEDIA_DATA_1_PARAM_init);
    upload.DataLen = 1 << 20;
    expectSize(headerOf("MEDIA_DATA_MESSAGE", "1"), &upload, 0);
    const auto media = fresh(SYSTEM_CONFIG_GET_500_PARAM_init);
    expectSize(headerOf("SYSTEM_CONFIG_GET_MESSAGE", "500"), &media, 1);
    auto wrapped = std::make_unique<TRANSPARENT_HEADER>();
    TRANSPARENT_HEADER_init(wrapped.get());
    memset(wrapped->acTransData, 'x', sizeof wrapped->acTransData);
    memcpy(wrapped->acTransData, "</XML_ZELMAR>", 13);
    for (const int32_t length : {13, 8192}) {
        wrapped->iTransDataLen = length;
        expectSize(headerOf("TRANSPARENT_CHANNEL_MSG", ""), wrapped.get(), 0);
    }

    // A bare text, then some around the length from which on it needs a byte more.
    auto found = std::make_unique<SYSTEM_SEARCHIPC_3_PARAM>(fresh(SYSTEM_SEARCHIPC_3_PARAM_init));
    const auto header = headerOf("SYSTEM_SEARCHIPC_MESSAGE", "3");
    expectSize(header, found.get(), 1);
    found->iAccountNum = 40;
    for (auto& account : found->stAccounts)
        memset(&account, 'x', sizeof account);
    memset(found->stDevice.OsdStr, 'x', sizeof found->stDevice.OsdStr);
    memset(found->stLan.DNS1, 'x', sizeof found->stLan.DNS1);
    const int start = ZelProtocolXMLComposeSize(&header, found.get(), 1, -1);
    ASSERT_LT(start, 8190);
    ASSERT_GT(start, 8190 - 256 - 32);
    const auto missing = static_cast<size_t>(8190 - start);
    set(found->stLan.DNS2, std::string(std::min(missing, size_t{256}), 'x'));
    set(found->stLan.Gateway, std::string(missing - std::min(missing, size_t{256}), 'x'));
    std::set<int> sizes;
    for (size_t more = 0; more < 4; ++more) {
        set(found->stLan.MacAddress, std::string(more, 'x'));
        sizes.insert(ZelProtocolXMLComposeSize(&header, found.get(), 1, -1));
        expectSize(header, found.get(), 1);
    }
    EXPECT_EQ(sizes, (std::set<int>{8190, 8191, 8193, 8194}));
}

TEST(Interface, ComposeSizeOfWhatCannotBeComposed)
{
    resetServices();
    const auto unknown = headerOf("NO_SUCH_MESSAGE", "12");
    EXPECT_EQ(ZelProtocolXMLComposeSize(nullptr, &unknown, 0, -1), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolXMLComposeSize(&unknown, &unknown, 0, -1), ZEL_ERR_UNKNOWN_MSG);
    EXPECT_EQ(services().errors.size(), 2U);
    TRANSPARENT_HEADER wrapped;
    TRANSPARENT_HEADER_init(&wrapped);
    const auto header = headerOf("TRANSPARENT_CHANNEL_MSG", "");
    for (const int32_t length : {-1, 8193}) {
        wrapped.iTransDataLen = length;
        EXPECT_EQ(ZelProtocolXMLComposeSize(&header, &wrapped, 0, -1), ZEL_ERR_BUFFER_SMALL);
    }
}

} // namespace
