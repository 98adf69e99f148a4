/**
 * Messages as JSON and back. An object holds fields by the names of the public headers; rows are arrays, of
 * arrays where there are two dimensions; texts are UTF-8.
 *
 * What is absent is left out: a field whose value is the one that its record's init gives it. In an array the
 * rows behind the last one that isn't absent are left out, and an absent row before it is {}, or null where a
 * row is a single value. Reading the same way, what isn't named keeps its value, and so does null.
 *
 * Numbers are exact: 64 bits as whole numbers, a float as the shortest decimal that gives it again, and
 * "inf", "-inf", "nan" and "-nan" where it is none. Longer arrays of bytes are base64 without the zeros at
 * their end. Pointers aren't fields: what hangs on them is beside the record.
 */
#ifndef ZEL_INSPECT_JSON_H
#define ZEL_INSPECT_JSON_H

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/charset.h"
#include "inspect/message.h"

namespace inspect {

using Json = nlohmann::ordered_json;

struct JsonOptions
{
    // Guessed for the texts of a whole message, and the other way that of the JSON, or else UTF-8.
    Charset charset = Charset::kGuessed;
    bool showSecrets = false; // else passwords, keys and session names are "***", which can't be put back
    bool rawData = true;      // else its length alone: {"dataLength": 512}
};

// What can't be put into a record: the message names the field's path, "record.MediaStreamInfo[3].Bitrate".
struct JsonError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// {"type", "code", "word" or "alarm", "kind": "request", "charset", "header": {"Msg_flag", ...}, "record":
// {...}, "extension": {...}, "data": base64}, each only where there is one: without "record" a message has
// none, and without "extension" its record has none. A face's features stand in its extension, not in "data".
Json toJson(const Message& message, const JsonOptions& options);

// A record alone.
Json recordToJson(const Record& record, const void* block, const JsonOptions& options);

// The other way. The message is that of the index; below 0 the one that the JSON names. Throws a JsonError.
Message fromJson(const Json& json, const JsonOptions& options, int index = -1);
void recordFromJson(const Json& json, const Record& record, void* block, const JsonOptions& options);

// The whole of a JSON text; throws a JsonError that says where it isn't one.
Json parseJson(std::string_view text);

// The same of values that stand one behind the other, as many as there are.
std::vector<Json> parseAllJson(const std::string& text);

// Sets one field of the record, its extension or the header by its path, from a text as a user writes it:
// "Rows[2].Name" and "door", "ChannelId" and "0x10", "Rows" and "[{...}]". "record.", "extension." and
// "header." in front tell which is meant; without one it is the first that has the field. Throws a JsonError.
void setField(Message& message, std::string_view path, std::string_view value, const JsonOptions& options);

// A text from elsewhere, in quotes and with nothing in it that a terminal obeys.
std::string quotedText(std::string_view text);

// 0 to 3 for "request" and so on, or the number itself; throws a JsonError.
int kindFromName(std::string_view name);
std::string_view nameOfKind(int kind);

} // namespace inspect

#endif
