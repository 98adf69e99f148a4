/**
 * Messages as JSON and back. An object holds fields by the names of the public headers, rows are arrays,
 * absent values are left out. Texts are UTF-8; bytes that were neither GB2312 nor UTF-8 survive the way there
 * and back.
 */
#ifndef ZEL_INSPECT_JSON_H
#define ZEL_INSPECT_JSON_H

#include <nlohmann/json.hpp>
#include <stdexcept>
#include <string>
#include <string_view>

#include "inspect/charset.h"
#include "inspect/message.h"

namespace inspect {

using Json = nlohmann::ordered_json;

struct JsonOptions
{
    Charset charset = Charset::kGuessed;
    bool showSecrets = false; // else passwords, keys and session names are "***"
};

// What can't be put into a record: the message names the field's path, "MediaStreamInfo[3].Bitrate".
struct JsonError : std::runtime_error
{
    using std::runtime_error::runtime_error;
};

// {"type", "code", "word" or "alarm", "kind", "header": {...}, "record": {...}, "extension": {...}, "data":
// base64}, each only where there is one.
Json toJson(const Message& message, const JsonOptions& options);

// A record alone.
Json recordToJson(const Record& record, const void* block, const JsonOptions& options);

// The other way. Texts are put in as GB2312 if the charset says so, else as UTF-8. Throws a JsonError.
Message fromJson(const Json& json, const JsonOptions& options);
void recordFromJson(const Json& json, const Record& record, void* block, const JsonOptions& options);

// Sets one field by its path, from a text as a user writes it: "Rows[2].Name=door". Throws a JsonError.
void setField(Message& message, std::string_view path, std::string_view value, const JsonOptions& options);

} // namespace inspect

#endif
