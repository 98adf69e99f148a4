// What the default log prints of messages that carry passwords, at every level.
#include <gtest/gtest.h>

#include <cstring>

#include "support/catalogue.h"
#include "support/wire.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

const std::string kSecret = "opensesame";
const std::string kKeyText = "0123456789abcdefKEYKEYKEYKEYKEY!";

ZEL_PLATFORM_KEY keyOf(const std::string& text)
{
    ZEL_PLATFORM_KEY key;
    memcpy(key.bytes, text.data(), sizeof key.bytes);
    return key;
}

// What is printed at a level while `calls` runs.
template <class Calls>
std::string printedAt(ZEL_PLATFORM_LOG_LEVEL level, Calls calls)
{
    ZelPlatformSetLogLevel(level);
    ZelPlatformSetLogLimit(0);
    testing::internal::CaptureStderr();
    calls();
    const std::string printed = testing::internal::GetCapturedStderr();
    ZelPlatformSetLogLimit(100);
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_ERRORS);
    return printed;
}

// Good and broken in many ways, both directions, plain and enciphered.
void exchange(const ZEL_PROTOCOL_HEADER& header, const void* record, int kind)
{
    ZEL_PLATFORM_KEY key = keyOf(kKeyText);
    ZEL_PLATFORM_KEY otherKey = keyOf(std::string(32, 'x'));
    const bool bare = strcmp(header.Msg_type, "SYSTEM_SEARCHIPC_MESSAGE") == 0;

    const Composed plain = test::compose(header, record, kind, 1 << 18);
    ASSERT_GT(plain.result, 0);
    const std::string text = bare ? plain.bytes : plain.text;
    ASSERT_NE(text.find(kSecret), std::string::npos) << text;
    const int size = static_cast<int>(text.size());
    for (const int outLen : {1, 8, 9, 100, size / 2, size, size + 8})
        for (const int mode : {-1, 0, 1})
            test::compose(header, record, kind, outLen, mode, &key);
    ZEL_PROTOCOL_HEADER unknown = header;
    set(unknown.Msg_code, "1000000");
    test::compose(unknown, record, kind, 65536);
    set(unknown.Msg_type, "NO_SUCH_MESSAGE");
    test::compose(unknown, record, kind, 65536);

    analyse(text);
    const size_t step = text.size() / 300 + 1;
    for (size_t at = 0; at < text.size(); at += step) {
        analyse(text.substr(0, at + 1));
        analyse(text.substr(0, at) + "</XML_ZELMAR>");
        analyse(text.substr(0, at) + "\" /></MESSAGE_BODY></XML_ZELMAR>");
        std::string changed = text;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        analyse(changed);
    }
    for (const char* element : {"<MESSAGE_HEADER", "<MESSAGE_BODY", "Msg_type", "Msg_code"}) {
        std::string changed = text;
        changed[changed.find(element) + 2] = '_';
        analyse(changed);
    }
    if (bare)
        return;
    for (const int mode : {0, 1}) {
        const std::string hidden =
            test::compose(header, record, kind, 1 << 18, mode, mode ? &key : nullptr).text;
        analyse(hidden, mode, &key);
        analyse(hidden, mode, &otherKey);
        analyse(hidden, 1 - mode, &key);
        analyse(hidden.substr(1), mode, &key);
        analyse(hidden);
    }
}

void expectNothingSecret(const std::string& printed)
{
    for (const std::string& secret : {kSecret, kKeyText, kKeyText.substr(16)})
        EXPECT_EQ(printed.find(secret), std::string::npos) << printed.substr(0, 2000);
}

constexpr ZEL_PLATFORM_LOG_LEVEL kLevels[] = {ZEL_PLATFORM_LOG_NONE, ZEL_PLATFORM_LOG_ERRORS,
                                              ZEL_PLATFORM_LOG_INFO, ZEL_PLATFORM_LOG_DEBUG};

TEST(LogSecrets, LoginAtEveryLevel)
{
    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    set(login.Username, "admin");
    set(login.Password, kSecret);
    USER_AUTH_CMD_USER_AUTH_PARAM answer;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&answer);
    set(answer.Sessionid, kSecret);
    for (const ZEL_PLATFORM_LOG_LEVEL level : kLevels) {
        const std::string printed = printedAt(level, [&] {
            exchange(headerOf("USER_AUTH_MESSAGE", "CMD_USER_AUTH"), &login, 0);
            exchange(headerOf("USER_AUTH_MESSAGE", "CMD_USER_AUTH"), &answer, 1);
        });
        expectNothingSecret(printed);
        EXPECT_EQ(printed.empty(), level == ZEL_PLATFORM_LOG_NONE);
        EXPECT_EQ(printed.find("message text withheld") != std::string::npos, level >= ZEL_PLATFORM_LOG_INFO);
    }
}

bool hasSecret(const std::string& text)
{
    for (const char* secret : {"Password=\"", "Passwd=\"", "Pwd=\"", "KeyValue=\""})
        if (text.find(secret) != std::string::npos)
            return true;
    return false;
}

// All messages with a password or a key in them, each text of the record being that password.
TEST(LogSecrets, EveryPasswordOfTheCatalogue)
{
    int messages = 0;
    for (const CatalogueEntry& entry : catalogue())
        for (const int kind : entry.kinds) {
            const Composed probe =
                test::compose(catalogueHeader(entry), fullRecord(entry).data(), kind, 1 << 18);
            if (!hasSecret(entry.isBare() ? probe.bytes : probe.text))
                continue;
            // Wherever a text field begins, the secret comes within its first bytes.
            RecordBytes bytes = freshRecord(entry);
            auto* const record = reinterpret_cast<char*>(bytes.data());
            for (size_t i = 0; i < entry.size; ++i)
                record[i] = kSecret[i % kSecret.size()];
            completeRecord(entry, record);
            ++messages;
            for (const ZEL_PLATFORM_LOG_LEVEL level : kLevels)
                expectNothingSecret(
                    printedAt(level, [&] { exchange(catalogueHeader(entry), record, kind); }));
        }
    EXPECT_GT(messages, 20);
}

} // namespace
