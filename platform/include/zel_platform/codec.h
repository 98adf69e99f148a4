/**
 * Codec service: the two pairs of functions that encipher and decipher a message's text.
 *
 * An application replaces them by defining all four functions itself. They may be called from several threads
 * at once. `mode` and `arg` come unchanged from the application's call of ZelProtocolXMLCompose or
 * ZelProtocolMSGAnalysisStart. Lengths are in bytes.
 *
 * Each function returns the number of bytes that it wrote, or a negative value on failure. The result of a
 * decode doesn't count the NUL that the function must put behind the text, within the capacity.
 */
#ifndef ZEL_PLATFORM_CODEC_H
#define ZEL_PLATFORM_CODEC_H

#ifdef __cplusplus
extern "C" {
#endif

/** Enciphers `source` for `mode` with the key that `arg` stands for. */
int ZelProtocolEncode(int mode, const char* source, int sourceLength, char* destination, int capacity,
                      void* arg);

/** Undoes ZelProtocolEncode. The destination ends in a NUL. */
int ZelProtocolDecode(int mode, const char* source, int sourceLength, char* destination, int capacity,
                      void* arg);

/** Enciphers `source` for a peer that shares no key of its own. */
int P2pProtocolEncode(int mode, const char* source, int sourceLength, char* destination, int capacity);

/** Undoes P2pProtocolEncode of any mode; `mode` is 0 here. The destination ends in a NUL. */
int P2pProtocolDecode(int mode, const char* source, int sourceLength, char* destination, int capacity);

#ifdef __cplusplus
}
#endif

#endif
