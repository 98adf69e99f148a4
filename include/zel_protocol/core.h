/**
 * The message codec's core: header records, status codes, the two entry points, the heartbeat.
 *
 * Contract of everything in this library:
 *
 * - Every function is a pure function of its arguments, keeps nothing between calls and may run in any number
 *   of threads at once, each call with its own buffers and records.
 * - A length is in bytes. A text is NUL-terminated; a text field of a record whose value fills it to the last
 *   byte may lack the terminator where its record says so, and composing stops at the field's end everywhere.
 * - A record that is passed in stays the caller's. A record that comes out of an analysis is one block, the
 *   caller's until ZelProtocolMSGAnalysisStop. A failure leaves nothing to release and the result pointer as
 *   it was.
 * - Every record has an `..._PARAM_init` that gives each field its absent value: all bits set in numbers (-1,
 *   255), zero bytes in texts, unless the record says otherwise. It returns 0, or -1 for a null pointer.
 *   Always call it before filling a record.
 * - Values are written as they are, without XML escaping, and text is never converted. A double quote
 *   ends the value, and what stands behind it makes attributes of its own. An ampersand usually comes
 *   back intact, but where it starts a reference ("&lt;", "&#65;") another character comes back, or the
 *   text is refused. "<" and control bytes come back from the default XML reader; others refuse them or
 *   make blanks of them. Test what comes from users or other peers with ZelProtocolTextIsWritable before
 *   it is put into a record.
 * - Units and ranges are those that a field's comment names. Where it names none, the protocol doesn't
 *   fix them: number or text go through as they are, and their meaning is between the device and its
 *   client. As a rule a field named ...Enable is a switch, 0 off and 1 on, and one named ...Port a
 *   network port.
 * - The frame, and names for kinds and codec mode, are in frame.h.
 */
#ifndef ZEL_PROTOCOL_CORE_H
#define ZEL_PROTOCOL_CORE_H

#include <stdint.h>

#if defined(__GNUC__)
#define ZEL_API __attribute__((visibility("default")))
#else
#define ZEL_API
#endif

#ifdef __cplusplus
extern "C" {
#endif

/** Results below zero. Zero and above is success. */
typedef enum ZEL_STATUS
{
    ZEL_ERR_UNKNOWN_MSG = -1000,  /**< unknown Msg_type or Msg_code */
    ZEL_ERR_BAD_PARAM = -1001,    /**< a required argument is null, or a length is below 1 */
    ZEL_ERR_NO_MEMORY = -1002,    /**< ZelProtocolMalloc gave no block */
    ZEL_ERR_BAD_DOCUMENT = -1003, /**< the text doesn't parse, or has no root or no MESSAGE_BODY */
    ZEL_ERR_NO_ELEMENT = -1004,   /**< a required element is missing */
    ZEL_ERR_NO_HEADER = -1005,    /**< the message header can't be read or has no room */
    ZEL_ERR_BAD_CONTENT = -1006,  /**< the parts of a well-formed message don't agree */
    ZEL_ERR_BUFFER_SMALL = -1007, /**< the output doesn't fit its buffer */
    ZEL_ERR_CODEC = -1009,        /**< enciphering or deciphering failed */
    ZEL_ERR_NO_ENVELOPE = -1011   /**< no closing root tag, or no message inside a transparent one */
} ZEL_STATUS;

/** What a result means, in a few words. Never NULL, whatever the number. */
ZEL_API const char* ZelProtocolStatusText(int status);

/** Header of every message. An empty text is absent. */
typedef struct ZEL_PROTOCOL_HEADER
{
    char Msg_type[32]; /**< the family, "LIVE_STREAM_MESSAGE" say */
    char Msg_code[32]; /**< the message within the family: a decimal number or a symbolic word */
    char Msg_flag[32]; /**< the application's own text; handed through unread */
    char Msg_uuid[64]; /**< optional: not written when empty */
    char Msg_chn[32];  /**< optional: not written when empty */
} ZEL_PROTOCOL_HEADER;

/** Message "TRANSPARENT_CHANNEL_MSG": wraps another message as raw bytes. */
typedef struct TRANSPARENT_HEADER
{
    char Trans_Type[32];
    char Channel_ID[32];
    char Source_Type[32];
    char Session_ID[32];
    char Trans_Result[32];
    char acTransData[8192]; /**< the wrapped message from its MESSAGE_HEADER on, not terminated */
    int32_t iTransDataLen;  /**< bytes used of acTransData; -1 means none */
} TRANSPARENT_HEADER;

/** Messages "ZEL_HEARTBEAT_MESSAGE" and "NVR_PRODUCE_TEST_MESSAGE" with code "CMD_HEARTBEAT". */
typedef struct ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM
{
    char Ipcs_stat[65]; /**< all four are free texts, not written when empty */
    char streamstat[65];
    char IpcAbility1[65];
    char IpcProtoCol[65];
} ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM;

/** Message "AUXPTZ_HEARTBEAT_MESSAGE" with code "CMD_HEARTBEAT". */
typedef ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM;

/** Clears all five texts. Returns 0, or -1 for a null pointer. */
ZEL_API int ZEL_PROTOCOL_HEADER_init(ZEL_PROTOCOL_HEADER* header);

/** Clears the five texts and sets iTransDataLen to -1; acTransData stays as it was. */
ZEL_API int TRANSPARENT_HEADER_init(TRANSPARENT_HEADER* header);

ZEL_API int ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM* param);
ZEL_API int AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM* param);

/**
 * Composes one message, frame and all.
 *
 * The frame is 4 magic bytes, a little-endian uint32 that counts what follows the head, and the text, plain
 * or enciphered. A message that announces raw data counts that data and its end code of four zero bytes in
 * the head, but they are the caller's to send behind the frame. "SYSTEM_SEARCHIPC_MESSAGE" and
 * "IPC_REPAIR_MESSAGE" go out as bare text without a frame, never enciphered: at most `outLen` bytes of it
 * are written, the rest of the buffer is cleared, and the result is the text's whole length, which must be
 * below outLen or 8192, whichever is more. So the result of such a message may be larger than outLen although
 * it is a success: the text was cut then.
 *
 * Of a message that announces raw data, frame.h says how many bytes follow and what works with a cipher.
 *
 * @param header      type, code, flag and the optional texts of the message.
 * @param record      the record of that type and code; NULL gives a message without parameters, for any type.
 * @param kind        0 or 2 for a request, 1 or 3 for a response.
 * @param iCodecMode  below zero for a plain frame; otherwise the frame is enciphered.
 * @param iCodecArg   handed to the codec; NULL selects the P2p codec.
 * @param outBuf      receives the frame. After a failure its content is of no use.
 * @param outLen      size of outBuf. A plain frame needs more than its text and 8 bytes, an enciphered one
 * more than twice its text and 8 bytes. ZelProtocolXMLComposeSize tells it.
 * @return bytes of the message, or a status of ZEL_STATUS. Of a bare text the bytes in outBuf are this many
 * or outLen, whichever is less: compare before you write them out.
 */
ZEL_API int ZelProtocolXMLCompose(const ZEL_PROTOCOL_HEADER* header, const void* record, int kind,
                                  int iCodecMode, void* iCodecArg, char* outBuf, int outLen);

/**
 * The least outLen with which ZelProtocolXMLCompose gives the whole of a message, its arguments being the
 * same.
 *
 * The size for an enciphered message suffices for a codec that makes at most twice as many bytes as it gets,
 * as those of the default layer do. Raw data that the message announces isn't counted: composing doesn't
 * write it. It takes no memory and about the time of composing a plain message.
 *
 * @return bytes, or a status of ZEL_STATUS as ZelProtocolXMLCompose would give it.
 */
ZEL_API int ZelProtocolXMLComposeSize(const ZEL_PROTOCOL_HEADER* header, const void* record, int kind,
                                      int iCodecMode);

/**
 * Whether a text can be put into a record: written as a value, it changes nothing of the document around it.
 *
 * That is a text without a double quote, an ampersand, "<", bytes below 0x20 (line ends and tabs too), and
 * without "ChannelId=", which an analysis may take for a channel that lacks its quotes. Other bytes are fine,
 * also those of GB2312 and UTF-8. The separators of a list inside a value, and whether the text fits its
 * field, are the caller's to see.
 *
 * @param text  ends at its terminator or after `size` bytes, whichever comes first.
 * @return 1, or 0 if it can't be written; 0 for a null pointer too.
 */
ZEL_API int ZelProtocolTextIsWritable(const char* text, int size);

/**
 * Analyses one payload: what follows the 8 bytes of a frame's head, or a bare text.
 *
 * @param payload     the received bytes. A plain payload gets a NUL behind its closing root tag, if that lies
 *                    within srcLen; nothing else is written, and nothing beyond srcLen is looked at.
 * @param srcLen      bytes in payload, raw data behind the text included.
 * @param iCodecMode  below zero for a plain payload, 0 for the P2p codec, above for the other.
 * @param iCodecArg   handed to the codec.
 * @param header      receives the header; initialise it first. It may be filled although the result is
 *                    negative. Of a transparent message only Msg_type is set, to its Trans_Type.
 * @param result      receives the record; set it to NULL first. Its type follows from Msg_type and Msg_code;
 * it is a TRANSPARENT_HEADER when the function's result is above zero.
 * @return 0; the number of bytes in acTransData for a transparent message; or a status of ZEL_STATUS.
 */
ZEL_API int ZelProtocolMSGAnalysisStart(char* payload, int srcLen, int iCodecMode, void* iCodecArg,
                                        ZEL_PROTOCOL_HEADER* header, void** result);

/** Releases an analysed record, if there is one, and sets the pointer to NULL. Returns 0. */
ZEL_API int ZelProtocolMSGAnalysisStop(void** result);

/**
 * Reads the MESSAGE_HEADER of a text. What the text lacks stays as it was.
 *
 * @return 0, ZEL_ERR_BAD_DOCUMENT, ZEL_ERR_NO_ELEMENT, or -1 for a null argument.
 */
ZEL_API int GetMessageHeader(const char* text, ZEL_PROTOCOL_HEADER* header);

/**
 * Reads the TRANSPARENT_HEADER of a text; acTransData and iTransDataLen stay as they were.
 *
 * @return 0, ZEL_ERR_BAD_DOCUMENT (for a null argument too), or ZEL_ERR_NO_ELEMENT: not a transparent
 * message.
 */
ZEL_API int GetTransparentHeader(const char* text, TRANSPARENT_HEADER* header);

/** Analyses a heartbeat's text into a ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM. */
ZEL_API int GetMessageHeaderEx(const char* text, void** result);

/**
 * Appends a heartbeat's attributes to the text in headBuf.
 *
 * @param header   must not be NULL; not read.
 * @param record   a ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM; NULL adds nothing.
 * @param headBuf  holds `used` bytes of text already.
 * @param size     of headBuf, the terminator included.
 * @return 0, ZEL_ERR_NO_HEADER, or ZEL_ERR_BUFFER_SMALL.
 */
ZEL_API int HeartbeatMessageCompose(const ZEL_PROTOCOL_HEADER* header, const void* record, char* headBuf,
                                    int size, int used);

#ifdef __cplusplus
}
#endif

#endif
