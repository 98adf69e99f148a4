// What is left of a secret when a call that had it is over.
#include <gtest/gtest.h>

#include "security/cost.h"
#include "security/painted_stack.h"
#include "support/wire.h"
#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

const std::string kSecret = "opensesame-opensesame";
const std::string kKeyText = "0123456789abcdefKEYKEYKEYKEYKEY!";

std::string encipheredFor(int mode, const std::string& text, ZEL_PLATFORM_KEY& key)
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

class Wiping : public testing::Test
{
protected:
    void SetUp() override
    {
        ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
        memcpy(key_.bytes, kKeyText.data(), sizeof key_.bytes);
    }
    void TearDown() override
    {
        ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
        memory() = {};
    }

    // The blocks are this thread's, so the work counts its own. It is done once before: where a function is
    // called for the first time, the dynamic linker saves all registers on the stack, with whatever was
    // copied last.
    template <class Work>
    void expectNothingLeft(Work work)
    {
        memory().secret = kSecret.c_str();
        work();
        int revealed = -1;
        const PaintedStack stack([&] {
            memory() = {};
            memory().secret = kSecret.c_str();
            work();
            revealed = memory().revealed;
        });
        EXPECT_EQ(revealed, 0);
        EXPECT_FALSE(stack.holds(kSecret));
        EXPECT_FALSE(stack.holds(kKeyText));
        EXPECT_FALSE(stack.holds(kKeyText.substr(16)));
    }

    ZEL_PLATFORM_KEY key_{};
};

class WipingOfText : public Wiping, public testing::WithParamInterface<size_t>
{
};

// Deciphered and repaired texts, on the stack and in blocks; read, unknown and cut.
TEST_P(WipingOfText, WorkMemoryOfAnAnalysis)
{
    const std::string blanks(GetParam(), ' ');
    const std::string login =
        envelope("USER_AUTH_MESSAGE", "CMD_USER_AUTH",
                 blanks + "<USER_AUTH_PARAM Username=\"admin\" Password=\"" + kSecret + "\" />");
    const std::string repaired =
        envelope("SYSTEM_CONFIG_GET_MESSAGE", "3803",
                 "<!--501 " + kSecret + "-->" + blanks + "<ChannelInfo ChannelId=3/>");
    const std::string unknown = envelope("NO_SUCH_MESSAGE", "1", kSecret + blanks);
    for (const std::string& text : {login, repaired, unknown, login.substr(0, login.size() - 3)})
        for (const int mode : {-1, 0, 1}) {
            std::string payload = mode < 0 ? text : encipheredFor(mode, text, key_);
            expectNothingLeft([&] {
                ZEL_PROTOCOL_HEADER header;
                void* record = nullptr;
                ZelProtocolMSGAnalysisStart(payload.data(), static_cast<int>(payload.size()), mode, &key_,
                                            &header, &record);
                ZelProtocolMSGAnalysisStop(&record);
            });
        }
}

TEST_P(WipingOfText, WorkMemoryOfComposing)
{
    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    set(login.Password, kSecret);
    const ZEL_PROTOCOL_HEADER header = headerOf("USER_AUTH_MESSAGE", "CMD_USER_AUTH");
    std::string buffer(GetParam() + 2048, '\0');
    for (const int mode : {-1, 0, 1})
        expectNothingLeft([&] {
            ZelProtocolXMLCompose(&header, &login, 0, mode, mode > 0 ? &key_ : nullptr, buffer.data(),
                                  static_cast<int>(buffer.size()));
        });
}

// Wherever the secret lies in the cipher's last block.
TEST_F(Wiping, StackOfTheCodec)
{
    for (size_t behind = 0; behind < 70; ++behind) {
        const std::string text = kSecret + std::string(behind, '-');
        std::string hidden(text.size() + 40, '\0');
        std::string found(text.size() + 1, '\0');
        const int length = static_cast<int>(text.size());
        const int hiddenLength = static_cast<int>(hidden.size());
        for (const bool isShared : {true, false})
            expectNothingLeft([&] {
                if (isShared) {
                    ZelProtocolEncode(1, text.data(), length, hidden.data(), hiddenLength, &key_);
                    ZelProtocolDecode(1, hidden.data(), hiddenLength, found.data(), length + 1, &key_);
                } else {
                    P2pProtocolEncode(0, text.data(), length, hidden.data(), hiddenLength);
                    P2pProtocolDecode(0, hidden.data(), hiddenLength, found.data(), length + 1);
                }
            });
        EXPECT_EQ(found, text + std::string(1, '\0'));
    }
}

INSTANTIATE_TEST_SUITE_P(ShortAndLong, WipingOfText, testing::Values(10, 20000));

} // namespace
