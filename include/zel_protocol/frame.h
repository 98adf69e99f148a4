/**
 * The frame that messages travel in, and names for the kinds and the plain codec mode.
 *
 * | offset | bytes | content                                                                             |
 * |-------:|------:|-------------------------------------------------------------------------------------|
 * |      0 |     4 | magic: 58 91 58 51 for a plain payload, 57 81 59 52 for an enciphered one            |
 * |      4 |     4 | bytes that follow the head, as a little-endian number                               |
 * |      8 |       | the payload: the text or the codec's output for it, then raw data if there is some |
 *
 * The head doesn't tell which codec enciphered the payload: the two ends agree on that. The messages of
 * "SYSTEM_SEARCHIPC_MESSAGE" and "IPC_REPAIR_MESSAGE" have no frame.
 *
 * Raw data. A message that announces some (`DataLen` of media_data.h, the feature block of alarm_report.h)
 * counts it in the head, with an end code of four zero bytes in front, but ZelProtocolXMLCompose writes
 * neither: the application sends both directly behind the frame. The bytes that it has to send are
 *
 *     the head's length + ZEL_FRAME_HEAD_SIZE - the result of ZelProtocolXMLCompose
 *
 * which is 0 for all other messages. The receiver passes everything behind the head to the analysis at once.
 *
 * Raw data and a cipher. Data behind an enciphered frame can't be read: the receiver's codec takes it for a
 * part of the text and refuses both with ZEL_ERR_CODEC. What works is to encipher text and data as one:
 * compose with ZEL_CODEC_PLAIN, put end code and data behind the text, encipher all that follows the head
 * with the codec, and give the result a head of its own with ZelProtocolFrameHeadWrite. The receiver needs
 * nothing special, but for code 3 of "MEDIA_DATA_MESSAGE", which counts the bytes as they came: decipher that
 * payload first and analyse the outcome with ZEL_CODEC_PLAIN.
 */
#ifndef ZEL_PROTOCOL_FRAME_H
#define ZEL_PROTOCOL_FRAME_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

enum
{
    ZEL_FRAME_HEAD_SIZE = 8,                 /**< bytes */
    ZEL_FRAME_MAGIC_PLAIN = 0x51589158,      /**< the first four bytes, as a little-endian number */
    ZEL_FRAME_MAGIC_ENCIPHERED = 0x52598157, /**< the same */
    ZEL_FRAME_END_CODE_SIZE = 4              /**< zero bytes between a text and its raw data */
};

/** The direction of a message that is composed. No message tells RESPONSE from OTHER_RESPONSE. */
typedef enum ZEL_KIND
{
    ZEL_KIND_REQUEST = 0,
    ZEL_KIND_RESPONSE = 1,
    ZEL_KIND_OTHER_REQUEST = 2, /**< as REQUEST; a response to the messages whose header says so */
    ZEL_KIND_OTHER_RESPONSE = 3
} ZEL_KIND;

/** Values of iCodecMode. What isn't below zero goes through a codec, as core.h tells. */
typedef enum ZEL_CODEC
{
    ZEL_CODEC_PLAIN = -1 /**< as every mode below zero */
} ZEL_CODEC;

/** What the first bytes of a frame say of its payload. */
typedef enum ZEL_FRAME_TYPE
{
    ZEL_FRAME_UNKNOWN = 0, /**< no frame, or not a byte to tell from */
    ZEL_FRAME_PLAIN = 1,
    ZEL_FRAME_ENCIPHERED = 2
} ZEL_FRAME_TYPE;

/** A frame's head. */
typedef struct ZEL_FRAME_HEAD
{
    int32_t iType;   /**< of ZEL_FRAME_TYPE */
    int32_t iLength; /**< bytes that follow the head; -1 while that isn't known */
} ZEL_FRAME_HEAD;

/**
 * Reads the head of a frame from the bytes that have come so far. It keeps nothing: call it again with more.
 *
 * After a refusal nobody knows where the next frame starts, so a stream has to be closed. A length is the
 * peer's word: nothing needs to be taken for it before the bytes are there.
 *
 * @param bytes      where a frame should start.
 * @param count      bytes there; fewer than a head are judged too, as far as they go. 0 is a count.
 * @param maxLength  most bytes behind a head that the caller wants; above 0.
 * @param head       receives what is known.
 * @return ZEL_FRAME_HEAD_SIZE: the head is whole. 0: more bytes are needed to tell. ZEL_ERR_NO_HEADER: no
 * frame starts with these bytes. ZEL_ERR_BAD_CONTENT: its length is 0 or above maxLength. ZEL_ERR_BAD_PARAM.
 */
ZEL_API int ZelProtocolFrameHeadRead(const char* bytes, int count, int maxLength, ZEL_FRAME_HEAD* head);

/**
 * Writes a head, for an application that puts a frame's payload together itself.
 *
 * @param bytes   receives ZEL_FRAME_HEAD_SIZE bytes.
 * @param type    ZEL_FRAME_PLAIN or ZEL_FRAME_ENCIPHERED.
 * @param length  bytes that will follow the head.
 * @return ZEL_FRAME_HEAD_SIZE or ZEL_ERR_BAD_PARAM.
 */
ZEL_API int ZelProtocolFrameHeadWrite(char* bytes, int type, uint32_t length);

#ifdef __cplusplus
}
#endif

#endif
