#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

#include <climits>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace {

constexpr int kAdded = 24 + 16;
const std::string kText = "<XML_ZELMAR>\nPassword=\"secret\"\n</XML_ZELMAR>";

ZEL_PLATFORM_KEY keyOf(unsigned char first)
{
    ZEL_PLATFORM_KEY key;
    for (unsigned char& byte : key.bytes)
        byte = first++;
    return key;
}

enum class Pair
{
    kShared,
    kP2p
};

/* Both pairs behind one face; the heap blocks are of exactly the stated size. */
int encode(Pair pair, int mode, const std::string& text, std::vector<char>& out, ZEL_PLATFORM_KEY* key)
{
    const std::vector<char> in(text.begin(), text.end());
    const int length = static_cast<int>(in.size());
    const int capacity = static_cast<int>(out.size());
    return pair == Pair::kShared ? ZelProtocolEncode(mode, in.data(), length, out.data(), capacity, key)
                                 : P2pProtocolEncode(mode, in.data(), length, out.data(), capacity);
}

int decode(Pair pair, int mode, const std::vector<char>& in, std::vector<char>& out, ZEL_PLATFORM_KEY* key)
{
    const int length = static_cast<int>(in.size());
    const int capacity = static_cast<int>(out.size());
    return pair == Pair::kShared ? ZelProtocolDecode(mode, in.data(), length, out.data(), capacity, key)
                                 : P2pProtocolDecode(mode, in.data(), length, out.data(), capacity);
}

std::vector<char> encoded(Pair pair, int mode, ZEL_PLATFORM_KEY key)
{
    std::vector<char> out(kText.size() + kAdded);
    EXPECT_EQ(static_cast<int>(out.size()), encode(pair, mode, kText, out, &key));
    return out;
}

/* A failed decode shows no piece of the text. */
void expectRefused(Pair pair, int mode, const std::vector<char>& in, ZEL_PLATFORM_KEY key)
{
    std::vector<char> out(kText.size() + 1, '#');
    EXPECT_LT(decode(pair, mode, in, out, &key), 0);
    for (const char c : out)
        ASSERT_TRUE(c == '#' || c == '\0');
}

} // namespace

TEST(Codec, UndoesItselfWithinExactCapacities)
{
    ZEL_PLATFORM_KEY key = keyOf(1);
    for (const Pair pair : {Pair::kShared, Pair::kP2p}) {
        const std::vector<char> coded = encoded(pair, 5, key);
        const int decodeMode = pair == Pair::kShared ? 5 : 0;
        for (std::size_t capacity = 1; capacity <= kText.size() + 2; ++capacity) {
            std::vector<char> out(capacity, '#');
            const int length = decode(pair, decodeMode, coded, out, &key);
            if (capacity <= kText.size()) {
                EXPECT_LT(length, 0) << capacity;
                continue;
            }
            ASSERT_EQ(static_cast<int>(kText.size()), length);
            EXPECT_STREQ(kText.c_str(), out.data());
        }
        for (std::size_t capacity = 1; capacity < coded.size(); ++capacity) {
            std::vector<char> out(capacity);
            EXPECT_LT(encode(pair, 5, kText, out, &key), 0) << capacity;
        }
    }
}

TEST(Codec, KeepsItsFormat)
{
    /* What follows the nonce 00 to 17 for the text "hi": computed apart from libsodium, with the key 01 to 20
     * and mode 0x01020304, and with the default P2p key. */
    static const unsigned char kShared[] = {0xfd, 0x4c, 0x9a, 0xb6, 0x55, 0xda, 0x1d, 0xdf, 0xf4,
                                            0x00, 0x1a, 0x90, 0x2a, 0x2d, 0xb8, 0xb9, 0xe4, 0x35};
    static const unsigned char kP2p[] = {0x3d, 0x02, 0x40, 0x48, 0x9e, 0x32, 0xe3, 0x64, 0x5f,
                                         0x1e, 0x36, 0x97, 0xb0, 0x1e, 0x20, 0xe5, 0x7c, 0x95};
    std::vector<char> shared(24);
    for (std::size_t i = 0; i < shared.size(); ++i)
        shared[i] = static_cast<char>(i);
    std::vector<char> p2p = shared;
    shared.insert(shared.end(), kShared, kShared + sizeof kShared);
    p2p.insert(p2p.end(), kP2p, kP2p + sizeof kP2p);

    ZEL_PLATFORM_KEY key = keyOf(1);
    std::vector<char> out(3, '#');
    EXPECT_EQ(2, decode(Pair::kShared, 0x01020304, shared, out, &key));
    EXPECT_STREQ("hi", out.data());
    out.assign(3, '#');
    EXPECT_EQ(2, decode(Pair::kP2p, 0, p2p, out, nullptr));
    EXPECT_STREQ("hi", out.data());
}

/* Of 256 texts under one key no two have a nonce in common, and each byte of it takes many values. */
TEST(Codec, NoncesAreRandomInEveryByte)
{
    constexpr std::size_t kTexts = 256;
    for (const Pair pair : {Pair::kShared, Pair::kP2p}) {
        std::set<std::string> nonces;
        std::set<char> values[24];
        for (std::size_t i = 0; i < kTexts; ++i) {
            const std::vector<char> coded = encoded(pair, 1, keyOf(1));
            nonces.emplace(coded.data(), 24);
            for (std::size_t at = 0; at < 24; ++at)
                values[at].insert(coded[at]);
        }
        EXPECT_EQ(kTexts, nonces.size());
        /* 162 are expected; fewer than 100 don't happen. */
        for (std::size_t at = 0; at < 24; ++at)
            EXPECT_GT(values[at].size(), 100U) << at;
    }
}

TEST(Codec, AForgottenP2pKeyIsNoKey)
{
    const std::vector<char> coded = encoded(Pair::kP2p, 0, keyOf(1));
    ZelPlatformForgetP2pKey();
    std::vector<char> out(256);
    EXPECT_LT(encode(Pair::kP2p, 0, kText, out, nullptr), 0);
    expectRefused(Pair::kP2p, 0, coded, keyOf(1));

    ZEL_PLATFORM_KEY usual;
    std::memcpy(usual.bytes, "zel platform default p2p key v01", sizeof usual.bytes);
    ZelPlatformSetP2pKey(&usual);
    EXPECT_EQ(static_cast<int>(kText.size()), decode(Pair::kP2p, 0, coded, out, nullptr));
}

TEST(Codec, TextIsHiddenAndNeverTheSameTwice)
{
    for (const Pair pair : {Pair::kShared, Pair::kP2p}) {
        const std::vector<char> one = encoded(pair, 1, keyOf(1));
        const std::vector<char> two = encoded(pair, 1, keyOf(1));
        EXPECT_NE(0, std::memcmp(one.data(), two.data(), 24));
        EXPECT_NE(0, std::memcmp(one.data() + 24, two.data() + 24, kText.size()));
        EXPECT_EQ(std::string::npos, std::string(one.begin(), one.end()).find("secret"));
    }
}

TEST(Codec, RefusesEveryAlteredByteAndEveryCut)
{
    for (const Pair pair : {Pair::kShared, Pair::kP2p}) {
        const std::vector<char> coded = encoded(pair, 1, keyOf(1));
        const int mode = pair == Pair::kShared ? 1 : 0;
        for (std::size_t i = 0; i < coded.size(); ++i) {
            std::vector<char> altered = coded;
            altered[i] = static_cast<char>(altered[i] ^ 1);
            expectRefused(pair, mode, altered, keyOf(1));
            expectRefused(pair, mode, std::vector<char>(coded.begin(), coded.begin() + static_cast<long>(i)),
                          keyOf(1));
        }
    }
}

TEST(Codec, RefusesAnotherModeKeyOrPair)
{
    const std::vector<char> shared = encoded(Pair::kShared, 1, keyOf(1));
    for (const int mode : {0, 2, 0x101, -1, INT_MIN, 1 << 24})
        expectRefused(Pair::kShared, mode, shared, keyOf(1));
    expectRefused(Pair::kShared, 1, shared, keyOf(2));

    const ZEL_PLATFORM_KEY key = keyOf(1);
    ASSERT_EQ(-1, ZelPlatformSetP2pKey(nullptr));
    const std::vector<char> withDefault = encoded(Pair::kP2p, 0, key);
    ASSERT_EQ(0, ZelPlatformSetP2pKey(&key));
    expectRefused(Pair::kP2p, 0, withDefault, key);
    expectRefused(Pair::kP2p, 0, encoded(Pair::kShared, 0, key), key);
    expectRefused(Pair::kShared, 0, encoded(Pair::kP2p, 0, key), key);
    std::vector<char> out(kText.size() + 1);
    EXPECT_EQ(static_cast<int>(kText.size()),
              decode(Pair::kP2p, 0, encoded(Pair::kP2p, 3, key), out, nullptr));
    EXPECT_STREQ(kText.c_str(), out.data());

    ZEL_PLATFORM_KEY usual;
    std::memcpy(usual.bytes, "zel platform default p2p key v01", sizeof usual.bytes);
    ZelPlatformSetP2pKey(&usual);
}

TEST(Codec, RefusesNullsAndImpossibleLengths)
{
    ZEL_PLATFORM_KEY key = keyOf(1);
    const std::vector<char> coded = encoded(Pair::kShared, 1, key);
    const int length = static_cast<int>(coded.size());
    char out[128];
    std::memset(out, '#', sizeof out);
    EXPECT_EQ(-1, ZelProtocolEncode(1, "a", 1, out, 128, nullptr));
    EXPECT_EQ(-1, ZelProtocolDecode(1, coded.data(), length, out, 128, nullptr));
    EXPECT_LT(ZelProtocolEncode(1, nullptr, 1, out, 128, &key), 0);
    EXPECT_LT(ZelProtocolEncode(1, "a", 1, nullptr, 128, &key), 0);
    EXPECT_LT(ZelProtocolDecode(1, nullptr, length, out, 128, &key), 0);
    EXPECT_LT(ZelProtocolDecode(1, coded.data(), length, nullptr, 128, &key), 0);
    for (const int bad : {-1, INT_MIN}) {
        EXPECT_LT(ZelProtocolEncode(1, "a", bad, out, 128, &key), 0);
        EXPECT_LT(ZelProtocolEncode(1, "a", 1, out, bad, &key), 0);
        EXPECT_LT(ZelProtocolDecode(1, coded.data(), bad, out, 128, &key), 0);
        EXPECT_LT(ZelProtocolDecode(1, coded.data(), length, out, bad, &key), 0);
    }
    EXPECT_LT(ZelProtocolEncode(1, "a", INT_MAX, out, 128, &key), 0);
    EXPECT_LT(ZelProtocolDecode(1, coded.data(), INT_MAX, out, 128, &key), 0);
    EXPECT_LT(ZelProtocolDecode(1, coded.data(), length, out, 0, &key), 0);
    EXPECT_EQ(std::string(128, '#'), std::string(out, 128));
}
