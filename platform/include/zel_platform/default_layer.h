/**
 * Settings of the default platform layer. The codec library itself doesn't know them.
 */
#ifndef ZEL_PLATFORM_DEFAULT_LAYER_H
#define ZEL_PLATFORM_DEFAULT_LAYER_H

#ifdef __cplusplus
extern "C" {
#endif

#define ZEL_PLATFORM_KEY_BYTES 32

/**
 * A key of the default codecs, XChaCha20-Poly1305. `iCodecArg` of ZelProtocolXMLCompose and
 * ZelProtocolMSGAnalysisStart points at one. Fill it with random bytes or with the output of a key
 * derivation; never with the bytes of a password.
 */
typedef struct ZEL_PLATFORM_KEY
{
    unsigned char bytes[ZEL_PLATFORM_KEY_BYTES];
} ZEL_PLATFORM_KEY;

/** What the default log prints to standard error. */
typedef enum ZEL_PLATFORM_LOG_LEVEL
{
    ZEL_PLATFORM_LOG_NONE = 0,
    ZEL_PLATFORM_LOG_ERRORS = 1, /**< the level at the start */
    ZEL_PLATFORM_LOG_INFO = 2,
    ZEL_PLATFORM_LOG_DEBUG = 3
} ZEL_PLATFORM_LOG_LEVEL;

/**
 * Sets the key of the P2p pair for the whole process. Call it once, before any other thread enciphers.
 *
 * Until then the pair works with a key that is printed in this library's source. Such text is scrambled, not
 * secret: it keeps nothing from anybody who has this library.
 *
 * @return 0, or -1 for a null pointer.
 */
int ZelPlatformSetP2pKey(const ZEL_PLATFORM_KEY* key);

/**
 * Wipes the key of the P2p pair. From then on the pair fails, until a key is set again. Call it when no other
 * thread enciphers any more, before the program ends say.
 */
void ZelPlatformForgetP2pKey(void);

/** Sets what the default log prints. May be called at any time. Whole messages are never printed. */
void ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_LEVEL level);

/**
 * Sets how many lines the default log prints in a second, for all threads together: 100 at the start, any
 * number for 0 or less. The first line of a later second is preceded by one that says how many were left out.
 * May be called at any time.
 */
void ZelPlatformSetLogLimit(int linesInASecond);

#ifdef __cplusplus
}
#endif

#endif
