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
    std::optional<ZEL_PLATFORM_KEY> key; // without one the P2p codec, whose key the process has

    Cipher() = default;
    Cipher(const Cipher&) = default;
    Cipher& operator=(const Cipher&) = default;
    ~Cipher();

    // For the codec; null selects the P2p pair, which mode 0 stands for too.
    void* argument()
    {
        return key && mode > 0 ? &*key : nullptr;
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
    // Behind the text, without the end code: of media data, a log or a face's features; and whatever stands
    // behind a message that the catalogue doesn't know.
    Bytes rawData;

    // Null without one.
    void* extension() const;
    bool isTransparent() const; // its record is a TRANSPARENT_HEADER
};

// All messages that a user may mean, in the catalogue's order: "LIVE_STREAM_MESSAGE/CMD_STREAM_START",
// "LIVE_STREAM_MESSAGE", "501", "SYSTEM_CONFIG_GET_MESSAGE/501", "PTZ_CONTROL_MESSAGE/PTZ_CMD/up", "up",
// "ALARM_REPORT_MESSAGE/CMD_REPORT_ALARM/38", or the name of an operation, a record or an extension. Capitals
// don't matter. A full name finds that message alone.
std::vector<int> findMessages(std::string_view name);

// The full name: type, code, and the command word or the alarm's code, with slashes between them.
std::string nameOf(int index);

// A fresh message of the catalogue, all fields absent but those that choose the message: its record, and its
// extension where it has one. Throws a std::out_of_range for an index that there isn't.
Message makeMessage(int index, int kind);

// Leaves the record without its extension, as many a query comes.
void dropExtension(Message& message);

struct Analysed
{
    int status = 0; // 0 or of ZEL_STATUS; the header may be filled although it is below zero
    Message message;
    std::string text; // deciphered, from the XML declaration to the closing root tag; empty without that tag

    // A message whose header tells all there is: most queries and many answers.
    bool isHeaderAlone() const
    {
        return status == ZEL_ERR_NO_ELEMENT && message.header.Msg_type[0] != '\0';
    }
};

// Analyses a payload: what follows a frame's head, or a bare text.
Analysed analyse(std::string_view payload, Cipher& cipher);

struct Composed
{
    int status = 0;      // 0 or of ZEL_STATUS
    Bytes bytes;         // frame, text and raw data, or a bare text
    std::string problem; // why the status is below zero, where there is more to say than its own text
};

// Raw data has to be as long as the record announces it; that of a face may stand in its record alone. A
// record that announces a negative length goes out without any.
Composed compose(const Message& message, Cipher& cipher);

// Bytes of raw data that the record announces; 0 where it announces none or can't be composed.
std::size_t announcedData(const Message& message);

// The feature block that stands in a face's record; empty for all other messages.
Bytes featuresOf(const Message& message);

// The text of a message that was composed without a cipher, without frame and raw data.
std::string_view textOf(const Composed& composed);

// A text field's value: up to its terminator, or all of it.
template <std::size_t N>
std::string_view textOf(const char (&field)[N])
{
    const std::string_view whole(field, N);
    return whole.substr(0, whole.find('\0'));
}

} // namespace inspect

#endif
