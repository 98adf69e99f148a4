/*
 * Codec service on libsodium: nonce, XChaCha20-Poly1305 text, tag.
 */
#include "zel_platform/codec.h"
#include "zel_platform/default_layer.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

#include <sodium.h>

namespace {

constexpr std::size_t kNonceBytes = crypto_aead_xchacha20poly1305_ietf_NPUBBYTES;
constexpr std::size_t kTagBytes = crypto_aead_xchacha20poly1305_ietf_ABYTES;
constexpr std::size_t kAddedBytes = kNonceBytes + kTagBytes;

static_assert(ZEL_PLATFORM_KEY_BYTES == crypto_aead_xchacha20poly1305_ietf_KEYBYTES,
              "a key is a cipher's key");
static_assert(sizeof(ZEL_PLATFORM_KEY) == ZEL_PLATFORM_KEY_BYTES, "a key has no padding");

struct P2pKey
{
    ZEL_PLATFORM_KEY key;
    bool isThere;
};

/* Known to everybody, so it protects nothing. It only lets two fresh installations talk to each other. */
P2pKey p2pKey = {{{'z', 'e', 'l', ' ', 'p', 'l', 'a', 't', 'f', 'o', 'r', 'm', ' ', 'd', 'e', 'f',
                   'a', 'u', 'l', 't', ' ', 'p', '2', 'p', ' ', 'k', 'e', 'y', ' ', 'v', '0', '1'}},
                 true};

/* Authenticated with each text but not sent: text of one pair or mode never passes for that of another. */
struct Context
{
    unsigned char bytes[8];
};

Context sharedKeyContext(int mode) noexcept
{
    const auto bits = static_cast<std::uint32_t>(mode);
    return {{'z', 'e', 'l', 'S', static_cast<unsigned char>(bits), static_cast<unsigned char>(bits >> 8),
             static_cast<unsigned char>(bits >> 16), static_cast<unsigned char>(bits >> 24)}};
}

/* The peer deciphers without knowing the mode. */
Context p2pContext() noexcept
{
    return {{'z', 'e', 'l', 'P', 0, 0, 0, 0}};
}

/* The cipher leaves its last block there, on some processors, below what its calls keep for their own
 * callers. */
void wipeStackOfCipher() noexcept
{
    sodium_stackzero(2048);
}

unsigned char* bytesOf(char* text) noexcept
{
    return reinterpret_cast<unsigned char*>(text);
}

const unsigned char* bytesOf(const char* text) noexcept
{
    return reinterpret_cast<const unsigned char*>(text);
}

int encode(const ZEL_PLATFORM_KEY& key, const Context& context, const char* source, int sourceLength,
           char* destination, int capacity) noexcept
{
    if (!source || !destination || sourceLength < 0 || capacity < 0)
        return -1;
    const auto length = static_cast<std::size_t>(sourceLength);
    const auto room = static_cast<std::size_t>(capacity);
    if (room < kAddedBytes || room - kAddedBytes < length || sodium_init() < 0)
        return -1;

    unsigned char* const nonce = bytesOf(destination);
    randombytes_buf(nonce, kNonceBytes);
    unsigned long long written = 0;
    const int status = crypto_aead_xchacha20poly1305_ietf_encrypt(
        nonce + kNonceBytes, &written, bytesOf(source), length, context.bytes, sizeof context.bytes, nullptr,
        nonce, key.bytes);
    wipeStackOfCipher();
    if (status != 0)
        return -1;
    return static_cast<int>(kNonceBytes + written);
}

int decode(const ZEL_PLATFORM_KEY& key, const Context& context, const char* source, int sourceLength,
           char* destination, int capacity) noexcept
{
    if (!source || !destination || sourceLength < 0 || capacity < 1)
        return -1;
    const auto length = static_cast<std::size_t>(sourceLength);
    const auto room = static_cast<std::size_t>(capacity);
    if (length < kAddedBytes || length - kAddedBytes > room - 1 || sodium_init() < 0)
        return -1;

    /* Checks the tag before it deciphers. */
    const unsigned char* const nonce = bytesOf(source);
    unsigned long long written = 0;
    const int status = crypto_aead_xchacha20poly1305_ietf_decrypt(
        bytesOf(destination), &written, nullptr, nonce + kNonceBytes, length - kNonceBytes, context.bytes,
        sizeof context.bytes, nonce, key.bytes);
    wipeStackOfCipher();
    if (status != 0) {
        std::memset(destination, 0, length - kAddedBytes + 1);
        return -1;
    }
    destination[written] = '\0';
    return static_cast<int>(written);
}

} // namespace

int ZelPlatformSetP2pKey(const ZEL_PLATFORM_KEY* key)
{
    if (!key)
        return -1;
    p2pKey.key = *key;
    p2pKey.isThere = true;
    return 0;
}

void ZelPlatformForgetP2pKey()
{
    p2pKey.isThere = false;
    sodium_memzero(&p2pKey.key, sizeof p2pKey.key);
}

int ZelProtocolEncode(int mode, const char* source, int sourceLength, char* destination, int capacity,
                      void* arg)
{
    if (!arg)
        return -1;
    return encode(*static_cast<const ZEL_PLATFORM_KEY*>(arg), sharedKeyContext(mode), source, sourceLength,
                  destination, capacity);
}

int ZelProtocolDecode(int mode, const char* source, int sourceLength, char* destination, int capacity,
                      void* arg)
{
    if (!arg)
        return -1;
    return decode(*static_cast<const ZEL_PLATFORM_KEY*>(arg), sharedKeyContext(mode), source, sourceLength,
                  destination, capacity);
}

int P2pProtocolEncode(int /*mode*/, const char* source, int sourceLength, char* destination, int capacity)
{
    if (!p2pKey.isThere)
        return -1;
    return encode(p2pKey.key, p2pContext(), source, sourceLength, destination, capacity);
}

int P2pProtocolDecode(int /*mode*/, const char* source, int sourceLength, char* destination, int capacity)
{
    if (!p2pKey.isThere)
        return -1;
    return decode(p2pKey.key, p2pContext(), source, sourceLength, destination, capacity);
}
