#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_ENCRYPT_MESSAGE";

TEST(SystemEncrypt, BothWays)
{
    auto key = fresh(SYSTEM_ENCRYPT_150_PARAM_init);
    expectRead(kType, "150", "", key);
    key = {16, "key"};
    const std::string text = "<KeyConfig|KeyLen='16'|KeyValue='key'|/>|";
    expectBodies(kType, "any", &key, text, text);
    expectRead(kType, "", text, key);

    // A number that is none, and a text that fills its field.
    key.KeyLen = 0;
    set(key.KeyValue, std::string(256, 'k'));
    expectRead(kType, "150", "<KeyConfig KeyLen='x' KeyValue='" + std::string(300, 'k') + "'/>", key);
    EXPECT_EQ(bodyOf(kType, "150", &key, 0),
              wire("<KeyConfig|KeyLen='0'|KeyValue='" + std::string(256, 'k') + "'|/>|"));
}

TEST(SystemEncrypt, Failures)
{
    const SYSTEM_ENCRYPT_150_PARAM key{};
    char out[64];
    void* result = nullptr;
    resetServices();
    EXPECT_EQ(SystemEncryptMessageCompose(&key, 0, nullptr, 1), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("SYSTEM_ENCRYPT_MESSAGE put a empty Param\n"));
    EXPECT_EQ(SystemEncryptMessageCompose(&key, 0, out, 0), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(SystemEncryptMessageCompose(nullptr, 0, out, sizeof out), 0);
    resetServices();
    EXPECT_EQ(SystemEncryptMessageAnalysis(nullptr, &result), ZEL_ERR_BAD_PARAM);
    EXPECT_TRUE(loggedOnly("SystemEncryptMessageAnalysis put a empty Param\n"));
    EXPECT_EQ(SystemEncryptMessageAnalysis("<a", &result), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(services().errors.empty());
    EXPECT_EQ(SystemEncryptMessageAnalysis("<a/>", &result), ZEL_ERR_BAD_DOCUMENT);
    EXPECT_TRUE(loggedOnly("SystemEncryptMessageAnalysis get MESSAGE_BODY error\n"));
}

} // namespace
