/**
 * A message of the catalogue in the memory of a program at a desk: what it is, its header, its record, its
 * raw data; and the two ways between that and bytes. The codec does the work, this keeps what it needs in
 * order.
 */
#ifndef ZEL_INSPECT_MESSAGE_H
#define ZEL_INSPECT_MESSAGE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/fields.h"
#include "zel_platform/default_layer.h"
#include "zel_protocol/catalogue.h"
#include "zel_protocol/frame.h"

namespace inspect {

using Bytes = std::string; // any bytes, zeros too

// How payloads are enciphered. Wipes its key.
struct Cipher
{
    int mode = ZEL_CODEC_PLAIN;
    std::optional<ZEL_PLATFORM_KEY> key; // without one the codec's own choice

    Cipher() = default;
    Cipher(const Cipher&) = default;
    Cipher& operator=(const Cipher&) = default;
    ~Cipher();

    void* argument()
    {
        return key ? &*key : nullptr;
    }
};

// A block that a record and what hangs on it lie in: analysed ones are the codec's, made ones our own.
using RecordBlock = std::shared_ptr<void>;

struct Message
{
    int index = -1;              // in the catalogue; -1: the catalogue doesn't know it
    ZEL_CATALOGUE_ENTRY entry{}; // of that index
    ZEL_PROTOCOL_HEADER header{};
    int kind = ZEL_KIND_REQUEST; // of what was analysed: which one the elements in the text speak for
    RecordBlock record;          // null: a message without one. Its extension hangs on it
    Bytes rawData;               // behind the text: of media data, or a face's features; without the end code
    bool isTransparent =
        false; // the record is a TRANSPARENT_HEADER and entry that of the transparent message

    // Null without one.
    void* extension() const;
};

// The names that a user may say: "LIVE_STREAM_MESSAGE/CMD_START", "500", "SYSTEM_CONFIG_GET_MESSAGE/500",
// "PTZ_CONTROL_MESSAGE/CMD_X/word", an operation's name, a record's name. All messages that fit, in the
// catalogue's order.
std::vector<int> findMessages(std::string_view name);

// The shortest name that findMessages knows this one message by.
std::string nameOf(int index);

// A fresh message of the catalogue, all fields absent: its record, and its extension where it has one.
Message makeMessage(int index, int kind);

struct Analysed
{
    int status = 0; // of ZEL_STATUS; the header may be filled although it is below zero
    Message message;
    std::string text; // deciphered, from the XML declaration to the closing root tag
};

// Analyses a payload: what follows a frame's head, or a bare text.
Analysed analyse(std::string_view payload, Cipher& cipher);

struct Composed
{
    int status = 0; // of ZEL_STATUS
    Bytes bytes;    // frame, text and raw data, or a bare text
};

Composed compose(const Message& message, Cipher& cipher);

// The text of a message that was composed without a cipher, without frame and raw data.
std::string_view textOf(const Composed& composed);

} // namespace inspect

#endif
