#include "inspect/json.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <iterator>
#include <limits>
#include <sstream>

#include <sodium.h>

#include "inspect/secrets.h"
#include "zel_protocol/catalogue.h"

namespace inspect {

namespace {

constexpr std::string_view kKindNames[] = {"request", "response", "other-request", "other-response"};
// A text whose length stands in a field of its own.
constexpr std::string_view kWrapped = "acTransData";
constexpr std::string_view kWrappedLength = "iTransDataLen";
constexpr const char* kHiddenProblem = "*** stands for a secret that wasn't shown; --show-secrets shows it";
constexpr std::size_t kLeastBytes = 16; // a longer array of bytes is base64

[[noreturn]] void fail(const std::string& path, const std::string& problem)
{
    throw JsonError(path + ": " + problem);
}

std::string step(const std::string& path, std::string_view name)
{
    return path.empty() ? std::string(name) : path + "." + std::string(name);
}

std::string step(const std::string& path, std::size_t row)
{
    return path + "[" + std::to_string(row) + "]";
}

bool isBytes(const Field& field)
{
    return field.type == Type::kUint8 && field.rows >= kLeastBytes && field.columns == 0;
}

template <class T>
T valueAt(const char* at)
{
    T value;
    std::memcpy(&value, at, sizeof value);
    return value;
}

std::string_view textAt(const char* at, std::size_t size)
{
    const std::string_view whole(at, size);
    return whole.substr(0, whole.find('\0'));
}

std::string_view wrappedText(const Record& record, const char* at)
{
    const Field& field = *record.find(kWrapped);
    const auto length = valueAt<std::int32_t>(at + record.find(kWrappedLength)->offset);
    return {at + field.offset, std::min(static_cast<std::size_t>(std::max(length, 0)), field.size)};
}

// --- Base64 --------------------------------------------------------------------------------------

constexpr int kBase64 = sodium_base64_VARIANT_ORIGINAL;

std::string toBase64(std::string_view bytes)
{
    std::string text(sodium_base64_ENCODED_LEN(bytes.size(), kBase64), '\0');
    sodium_bin2base64(text.data(), text.size(), reinterpret_cast<const unsigned char*>(bytes.data()),
                      bytes.size(), kBase64);
    text.pop_back(); // the terminator
    return text;
}

Bytes fromBase64(const Json& json, const std::string& path)
{
    if (!json.is_string())
        fail(path, "has to be a text in base64");
    const auto& text = json.get_ref<const std::string&>();
    Bytes bytes(text.size(), '\0');
    std::size_t size = 0;
    if (sodium_base642bin(reinterpret_cast<unsigned char*>(bytes.data()), bytes.size(), text.data(),
                          text.size(), "\r\n", &size, nullptr, kBase64) != 0)
        fail(path, "isn't base64");
    bytes.resize(size);
    return bytes;
}

// --- Records out ---------------------------------------------------------------------------------

// A value that is absent is null.
class Writer
{
public:
    Writer(Charset charset, bool showSecrets) : m_charset(charset), m_showSecrets(showSecrets) {}

    Json record(const Record& record, const char* at, const char* fresh) const
    {
        Json object;
        for (const Field& field : record.fields)
            if (Json value = this->field(record, field, at, fresh); !value.is_null())
                object[std::string(field.name)] = std::move(value);
        return object;
    }

private:
    Json field(const Record& record, const Field& field, const char* at, const char* fresh) const
    {
        const char* const place = at + field.offset;
        if (field.name == kWrapped)
            return valueAt<std::int32_t>(at + record.find(kWrappedLength)->offset) < 0
                       ? Json()
                       : text(wrappedText(record, at));
        if (field.name == kWrappedLength)
            return {};
        if (isBytes(field))
            return bytes(field, place);
        return values(field, place, fresh + field.offset, field.rows, field.columns);
    }

    Json values(const Field& field, const char* at, const char* fresh, std::size_t rows,
                std::size_t columns) const
    {
        if (rows == 0)
            return single(field, at, fresh);
        const std::size_t step = field.size * std::max<std::size_t>(columns, 1);
        Json array;
        for (std::size_t row = 0; row < rows; ++row) {
            Json value = values(field, at + row * step, fresh + row * step, columns, 0);
            if (value.is_null())
                continue;
            for (std::size_t absent = array.size(); absent < row; ++absent)
                array.push_back(absentRow(field, columns));
            array.push_back(std::move(value));
        }
        return array;
    }

    static Json absentRow(const Field& field, std::size_t columns)
    {
        if (columns != 0)
            return Json::array();
        return field.nested ? Json::object() : Json();
    }

    Json single(const Field& field, const char* at, const char* fresh) const
    {
        if (field.type == Type::kStruct)
            return record(*field.nested, at, fresh);
        if (field.type == Type::kPointer)
            return {};
        const bool isText = field.type == Type::kText;
        if (isText ? textAt(at, field.size) == textAt(fresh, field.size)
                   : std::memcmp(at, fresh, field.size) == 0)
            return {};
        if (field.isSecret && !m_showSecrets)
            return kHidden;
        return isText ? text(textAt(at, field.size)) : number(field.type, at);
    }

    Json text(std::string_view bytes) const
    {
        const bool hasAttributes = !m_showSecrets && bytes.find('=') != std::string_view::npos;
        return toUtf8(hasAttributes ? hideSecrets(bytes) : bytes, m_charset);
    }

    static Json bytes(const Field& field, const char* at)
    {
        const std::string_view all(at, field.rows);
        const std::size_t end = all.find_last_not_of('\0');
        return end == std::string_view::npos ? Json() : Json(toBase64(all.substr(0, end + 1)));
    }

    static Json number(Type type, const char* at)
    {
        switch (type) {
        case Type::kInt8:
            return valueAt<std::int8_t>(at);
        case Type::kUint8:
            return valueAt<std::uint8_t>(at);
        case Type::kInt16:
            return valueAt<std::int16_t>(at);
        case Type::kUint16:
            return valueAt<std::uint16_t>(at);
        case Type::kInt32:
            return valueAt<std::int32_t>(at);
        case Type::kUint32:
            return valueAt<std::uint32_t>(at);
        case Type::kInt64:
            return valueAt<std::int64_t>(at);
        case Type::kUint64:
            return valueAt<std::uint64_t>(at);
        case Type::kFloat:
            return real(valueAt<float>(at));
        default:
            return real(valueAt<double>(at));
        }
    }

    // A float's shortest decimal is a double's too.
    template <class T>
    static Json real(T value)
    {
        char digits[64];
        const std::string text(digits, std::to_chars(digits, std::end(digits), value).ptr);
        return std::isfinite(value) ? Json(std::strtod(text.c_str(), nullptr)) : Json(text);
    }

    Charset m_charset;
    bool m_showSecrets;
};

// One charset for all texts of a message: mixtures are rarer than a text that fits both.
void guessRecord(const Record& record, const char* at, Charset& guessed)
{
    for (const Field& field : record.fields) {
        if (field.name == kWrapped) {
            guessed = std::max(guessed, guess(wrappedText(record, at)));
            continue;
        }
        const std::size_t count =
            std::max<std::size_t>(field.rows, 1) * std::max<std::size_t>(field.columns, 1);
        for (std::size_t i = 0; i < count && guessed != Charset::kGb2312; ++i) {
            const char* const place = at + field.offset + i * field.size;
            if (field.type == Type::kStruct)
                guessRecord(*field.nested, place, guessed);
            else if (field.type == Type::kText)
                guessed = std::max(guessed, guess(textAt(place, field.size)));
        }
    }
}

// The parts of a message that are made of fields.
struct Part
{
    const char* name;
    const Record* record;
    char* at;
};

std::vector<Part> partsOf(const Message& message)
{
    std::vector<Part> parts;
    if (message.record)
        parts.push_back(
            {"record", findRecord(message.entry.record), static_cast<char*>(message.record.get())});
    if (void* const extension = message.extension())
        parts.push_back({"extension", findRecord(message.entry.extension), static_cast<char*>(extension)});
    return parts;
}

const Record& headerRecord()
{
    static const Record& record = *findRecord("ZEL_PROTOCOL_HEADER");
    return record;
}

const char* bytesOf(const ZEL_PROTOCOL_HEADER& header)
{
    return reinterpret_cast<const char*>(&header);
}

const char* freshBytes(const Record& record)
{
    return reinterpret_cast<const char*>(record.fresh.data());
}

Charset guessMessage(const Message& message)
{
    Charset guessed = Charset::kGuessed;
    guessRecord(headerRecord(), bytesOf(message.header), guessed);
    for (const Part& part : partsOf(message))
        guessRecord(*part.record, part.at, guessed);
    return guessed;
}

Json orObject(Json value)
{
    return value.is_null() ? Json::object() : value;
}

// --- Records in ----------------------------------------------------------------------------------

bool isSameWord(std::string_view one, std::string_view other)
{
    return std::equal(one.begin(), one.end(), other.begin(), other.end(),
                      [](char a, char b) { return std::tolower(a) == std::tolower(b); });
}

const Field& fieldOf(const Record& record, std::string_view name, const std::string& path)
{
    if (const Field* const field = record.find(name)) {
        if (field->type == Type::kPointer)
            fail(path, "is a pointer; what hangs on it is the message's \"extension\" or \"data\"");
        return *field;
    }
    for (const Field& field : record.fields)
        if (isSameWord(field.name, name))
            fail(path, "there is no such field; it is written " + std::string(field.name));
    fail(path, "there is no such field in " + std::string(record.name));
}

class Reader
{
public:
    explicit Reader(Charset charset) : m_charset(charset) {}

    void record(const Json& json, const Record& record, char* at, const std::string& path) const
    {
        if (!json.is_object())
            fail(path, "has to be an object");
        for (const auto& [name, value] : json.items()) {
            const std::string below = step(path, name);
            const Field& field = fieldOf(record, name, below);
            if (field.name == kWrapped)
                wrapped(value, record, at, below);
            else
                this->field(value, field, at + field.offset, field.rows, field.columns, below);
        }
    }

    void field(const Json& json, const Field& field, char* at, std::size_t rows, std::size_t columns,
               const std::string& path) const
    {
        if (json.is_null())
            return;
        if (isBytes(field) && rows != 0 && json.is_string())
            return bytes(json, field, at, path);
        if (rows == 0)
            return single(json, field, at, path);
        if (!json.is_array())
            fail(path, "has to be an array");
        if (json.size() > rows)
            fail(path, std::to_string(json.size()) + " rows, and there is room for " + std::to_string(rows));
        const std::size_t size = field.size * std::max<std::size_t>(columns, 1);
        for (std::size_t row = 0; row < json.size(); ++row)
            this->field(json[row], field, at + row * size, columns, 0, step(path, row));
    }

private:
    void single(const Json& json, const Field& field, char* at, const std::string& path) const
    {
        if (field.type == Type::kStruct)
            return record(json, *field.nested, at, path);
        if (field.isSecret && json == kHidden)
            fail(path, kHiddenProblem);
        if (field.type == Type::kText) {
            const Bytes bytes = text(json, path);
            if (bytes.find('\0') != Bytes::npos)
                fail(path, "has a zero byte, which would end it");
            return putText(bytes, field, at, path);
        }
        number(json, field, at, path);
    }

    Bytes text(const Json& json, const std::string& path) const
    {
        if (!json.is_string())
            fail(path, "has to be a text");
        const std::optional<std::string> bytes = fromUtf8(json.get_ref<const std::string&>(), m_charset);
        if (!bytes)
            fail(path, m_charset == Charset::kGb2312 ? "has a character that GB2312 and GB18030 lack"
                                                     : "isn't UTF-8");
        if (holdsHidden(*bytes))
            fail(path, kHiddenProblem);
        return *bytes;
    }

    static void putText(const Bytes& bytes, const Field& field, char* at, const std::string& path)
    {
        if (bytes.size() > field.size)
            fail(path,
                 std::to_string(bytes.size()) + " bytes, and the field holds " + std::to_string(field.size));
        std::memset(at, 0, field.size);
        bytes.copy(at, bytes.size());
    }

    void wrapped(const Json& json, const Record& record, char* at, const std::string& path) const
    {
        if (json.is_null())
            return;
        const Bytes bytes = text(json, path);
        putText(bytes, *record.find(kWrapped), at + record.find(kWrapped)->offset, path);
        const auto length = static_cast<std::int32_t>(bytes.size());
        std::memcpy(at + record.find(kWrappedLength)->offset, &length, sizeof length);
    }

    static void bytes(const Json& json, const Field& field, char* at, const std::string& path)
    {
        const Bytes bytes = fromBase64(json, path);
        if (bytes.size() > field.rows)
            fail(path, std::to_string(bytes.size()) + " bytes, and there is room for " +
                           std::to_string(field.rows));
        std::memset(at, 0, field.rows);
        bytes.copy(at, bytes.size());
    }

    static void number(const Json& json, const Field& field, char* at, const std::string& path)
    {
        switch (field.type) {
        case Type::kInt8:
            return whole<std::int8_t>(json, at, path);
        case Type::kUint8:
            return whole<std::uint8_t>(json, at, path);
        case Type::kInt16:
            return whole<std::int16_t>(json, at, path);
        case Type::kUint16:
            return whole<std::uint16_t>(json, at, path);
        case Type::kInt32:
            return whole<std::int32_t>(json, at, path);
        case Type::kUint32:
            return whole<std::uint32_t>(json, at, path);
        case Type::kInt64:
            return whole<std::int64_t>(json, at, path);
        case Type::kUint64:
            return whole<std::uint64_t>(json, at, path);
        case Type::kFloat:
            return real<float>(json, at, path);
        default:
            return real<double>(json, at, path);
        }
    }

    template <class T>
    static void whole(const Json& json, char* at, const std::string& path)
    {
        using Limits = std::numeric_limits<T>;
        if (!json.is_number_integer())
            fail(path, "has to be a whole number");
        const bool isNegative = !json.is_number_unsigned() && json.get<std::int64_t>() < 0;
        const bool fits = isNegative ? json.get<std::int64_t>() >= static_cast<std::int64_t>(Limits::min())
                                     : json.get<std::uint64_t>() <= static_cast<std::uint64_t>(Limits::max());
        if (!fits)
            fail(path, json.dump() + " doesn't fit: " + std::to_string(Limits::min()) + " to " +
                           std::to_string(Limits::max()));
        const T value = json.get<T>();
        std::memcpy(at, &value, sizeof value);
    }

    template <class T>
    static void real(const Json& json, char* at, const std::string& path)
    {
        double number = 0;
        if (json.is_number())
            number = json.get<double>();
        else if (json == "inf" || json == "-inf" || json == "nan" || json == "-nan")
            number = std::strtod(json.get_ref<const std::string&>().c_str(), nullptr);
        else
            fail(path, "has to be a number");
        if (std::isfinite(number) && std::abs(number) > static_cast<double>(std::numeric_limits<T>::max()))
            fail(path, json.dump() + " doesn't fit");
        const T value = static_cast<T>(number);
        std::memcpy(at, &value, sizeof value);
    }

    Charset m_charset;
};

void putHeader(const Json& json, ZEL_PROTOCOL_HEADER& header, const Reader& reader)
{
    reader.record(json, headerRecord(), reinterpret_cast<char*>(&header), "header");
}

// --- Messages in ---------------------------------------------------------------------------------

// What commands put beside a message's own parts.
constexpr std::string_view kBeside[] = {"message", "time", "from",       "to",     "file",  "offset", "size",
                                        "note",    "bare", "enciphered", "status", "error", "text"};
constexpr std::string_view kParts[] = {"type",   "code",   "word",      "alarm", "kind",      "charset",
                                       "header", "record", "extension", "data",  "dataLength"};

template <std::size_t N>
bool isOneOf(const std::string_view (&names)[N], std::string_view name)
{
    return std::find(std::begin(names), std::end(names), name) != std::end(names);
}

void testParts(const Json& json)
{
    if (!json.is_object())
        throw JsonError("a message has to be an object");
    for (const auto& [name, value] : json.items())
        if (!isOneOf(kParts, name) && !isOneOf(kBeside, name))
            fail(name, "there is no such part of a message; fields stand in \"record\"");
}

const Json* partOf(const Json& json, const char* name)
{
    const auto found = json.find(name);
    return found == json.end() || found->is_null() ? nullptr : &*found;
}

std::string textPart(const Json& json, const char* name)
{
    const Json* const part = partOf(json, name);
    if (part && !part->is_string())
        fail(name, "has to be a text");
    return part ? part->get<std::string>() : std::string();
}

Charset charsetOf(const Json& json, const JsonOptions& options)
{
    const std::string name = textPart(json, "charset");
    if (options.charset != Charset::kGuessed || name.empty())
        return options.charset;
    if (name != "utf-8" && name != "gb2312")
        fail("charset", "has to be utf-8 or gb2312");
    return name == "gb2312" ? Charset::kGb2312 : Charset::kUtf8;
}

int kindOf(const Json& json)
{
    const Json* const kind = partOf(json, "kind");
    if (!kind)
        return ZEL_KIND_REQUEST;
    return kindFromName(kind->is_string() ? kind->get<std::string>() : kind->dump());
}

// A word of the message or, where it isn't told, of its record.
const Json* choiceOf(const Json& json, const char* part, const char* field)
{
    const Json* const record = partOf(json, "record");
    if (const Json* const told = partOf(json, part))
        return told;
    return record && record->is_object() ? partOf(*record, field) : nullptr;
}

int findMessage(const Json& json)
{
    const std::string type = textPart(json, "type");
    const std::string code = textPart(json, "code");
    if (type.empty())
        fail("type", "is missing");
    const int first = ZelProtocolCatalogueFind(type.c_str(), code.c_str(), nullptr, -1);
    ZEL_CATALOGUE_ENTRY entry{};
    if (ZelProtocolCatalogueEntry(first, &entry) != 0)
        return -1;
    if (const Json* const word = choiceOf(json, "word", "cmd"); entry.word && word && word->is_string())
        return ZelProtocolCatalogueFind(type.c_str(), code.c_str(), word->get<std::string>().c_str(), -1);
    const Json* const alarm = choiceOf(json, "alarm", "Alarm_code");
    const int alarmCode = alarm && alarm->is_number_integer() ? alarm->get<int>() : -1;
    return std::max(first, ZelProtocolCatalogueFind(type.c_str(), code.c_str(), nullptr, alarmCode));
}

int indexOf(const Json& json, int wanted)
{
    if (wanted >= 0 && !json.contains("type"))
        return wanted;
    const int named = findMessage(json);
    if (wanted >= 0 && named != wanted)
        fail("type", "names another message than " + nameOf(wanted));
    if (named < 0 && partOf(json, "record"))
        fail("type",
             "the catalogue knows no message " + textPart(json, "type") + "/" + textPart(json, "code"));
    return std::max(named, -1);
}

// --- One field -----------------------------------------------------------------------------------

// A part of a record that a path leads to; rows and columns are those that the path leaves open.
struct Target
{
    const Field* field = nullptr;
    char* at = nullptr;
    std::size_t rows = 0;
    std::size_t columns = 0;
};

std::size_t takeNumber(std::string_view& rest, const std::string& path)
{
    const std::size_t end = rest.find(']');
    std::size_t number = 0;
    const char* const last = rest.data() + std::min(end, rest.size());
    const auto [stop, error] = std::from_chars(rest.data() + 1, last, number);
    if (end == std::string_view::npos || error != std::errc() || stop != last)
        fail(path, "a row is written [0]");
    rest.remove_prefix(end + 1);
    return number;
}

void takeRow(Target& target, std::size_t row, const std::string& path)
{
    if (target.rows == 0)
        fail(path, "has no rows");
    if (row >= target.rows)
        fail(path, "row " + std::to_string(row) + ", and there are " + std::to_string(target.rows) +
                       ", counted from 0");
    target.at += row * target.field->size * std::max<std::size_t>(target.columns, 1);
    target.rows = target.columns;
    target.columns = 0;
}

Target follow(const Record& record, char* at, std::string_view rest, const std::string& path)
{
    const std::size_t end = std::min(rest.find_first_of(".["), rest.size());
    const Field& field = fieldOf(record, rest.substr(0, end), path);
    Target target{&field, at + field.offset, field.rows, field.columns};
    rest.remove_prefix(end);
    while (!rest.empty() && rest.front() == '[')
        takeRow(target, takeNumber(rest, path), path);
    if (rest.empty())
        return target;
    if (!field.nested || target.rows != 0 || rest.front() != '.')
        fail(path, field.nested ? "which row of " + std::string(field.name) + "?"
                                : std::string(field.name) + " has no fields");
    return follow(*field.nested, target.at, rest.substr(1), path);
}

Json numberFrom(std::string_view value, Type type, const std::string& path)
{
    const bool isReal = type == Type::kFloat || type == Type::kDouble;
    const bool isHex = value.substr(0, 2) == "0x";
    if (!isReal && isHex) {
        std::uint64_t number = 0;
        const char* const end = value.data() + value.size();
        if (std::from_chars(value.data() + 2, end, number, 16).ptr == end && value.size() > 2)
            return number;
    }
    Json number = Json::parse(value, nullptr, false);
    if (number.is_number())
        return number;
    if (isReal)
        return std::string(value); // "inf", or what isn't a number
    fail(path, std::string(value) + " isn't a whole number");
}

Json jsonFrom(const Target& target, std::string_view value, const std::string& path)
{
    const bool isText = target.field->type == Type::kText;
    if (target.rows != 0 && isBytes(*target.field))
        return std::string(value);
    if (target.rows != 0 || target.field->type == Type::kStruct) {
        Json json = Json::parse(value, nullptr, false);
        if (json.is_discarded())
            fail(path, target.rows != 0 ? "has rows: name one, or give all as JSON"
                                        : "is a group: name a field, or give all as JSON");
        return json;
    }
    return isText ? Json(std::string(value)) : numberFrom(value, target.field->type, path);
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

std::string partNames(const std::vector<Part>& parts)
{
    std::string names;
    for (const Part& part : parts)
        names.append(names.empty() ? "" : ", ").append(part.record->name);
    return names;
}

// The part whose name stands in front of the path, which loses it, or the first that has the field.
const Part& choosePart(const std::vector<Part>& parts, std::string_view& path)
{
    for (const Part& part : parts)
        if (startsWith(path, std::string(part.name) + ".")) {
            path.remove_prefix(std::strlen(part.name) + 1);
            return part;
        }
    const std::string_view name = path.substr(0, path.find_first_of(".["));
    for (const Part& part : parts)
        if (part.record->find(name))
            return part;
    for (const Part& part : parts)
        for (const Field& field : part.record->fields)
            if (isSameWord(field.name, name))
                return part; // which says how it is written
    fail(std::string(path), "there is no such field in " + partNames(parts));
}

// "[json.exception.parse_error.101] parse error at line 1, column 2: ..."
std::string reasonOf(const Json::exception& error)
{
    const std::string_view what = error.what();
    return std::string(what.substr(std::min(what.find(']') + 2, what.size())));
}

} // namespace

Json toJson(const Message& message, const JsonOptions& options)
{
    const bool isGuessed = options.charset == Charset::kGuessed;
    const Charset charset = isGuessed ? guessMessage(message) : options.charset;
    const Writer writer(charset, options.showSecrets);
    Json json;
    json["type"] = toUtf8(textOf(message.header.Msg_type), charset);
    json["code"] = toUtf8(textOf(message.header.Msg_code), charset);
    if (message.record) {
        if (message.entry.word)
            json["word"] = message.entry.word;
        if (message.entry.alarm_code != -1)
            json["alarm"] = message.entry.alarm_code;
        json["kind"] = nameOfKind(message.kind);
    }
    if (charset == Charset::kGb2312)
        json["charset"] = "gb2312";
    Json header =
        orObject(writer.record(headerRecord(), bytesOf(message.header), freshBytes(headerRecord())));
    header.erase("Msg_type");
    header.erase("Msg_code");
    if (!header.empty())
        json["header"] = std::move(header);
    for (const Part& part : partsOf(message))
        json[part.name] = orObject(writer.record(*part.record, part.at, freshBytes(*part.record)));
    if (message.rawData.empty() || message.rawData == featuresOf(message))
        return json;
    if (options.rawData)
        json["data"] = toBase64(message.rawData);
    else
        json["dataLength"] = message.rawData.size();
    return json;
}

Json recordToJson(const Record& record, const void* block, const JsonOptions& options)
{
    const auto* const at = static_cast<const char*>(block);
    Charset charset = options.charset;
    if (charset == Charset::kGuessed)
        guessRecord(record, at, charset);
    return orObject(Writer(charset, options.showSecrets).record(record, at, freshBytes(record)));
}

Message fromJson(const Json& json, const JsonOptions& options, int index)
{
    testParts(json);
    const Reader reader(charsetOf(json, options));
    const int kind = kindOf(json);
    const int known = indexOf(json, index);
    Message message;
    message.kind = kind;
    if (known >= 0)
        message = makeMessage(known, kind);
    if (json.contains("type")) {
        const Json names = {{"Msg_type", textPart(json, "type")}, {"Msg_code", textPart(json, "code")}};
        putHeader(names, message.header, reader);
    }
    if (const Json* const header = partOf(json, "header"))
        putHeader(*header, message.header, reader);
    for (const char* const name : {"record", "extension"}) {
        const Json* const part = partOf(json, name);
        const std::vector<Part> parts = partsOf(message);
        const auto found = std::find_if(parts.begin(), parts.end(),
                                        [&](const Part& one) { return one.name == std::string_view(name); });
        if (part && found == parts.end())
            fail(name, "this message has none");
        if (part)
            reader.record(*part, *found->record, found->at, name);
    }
    if (!partOf(json, "record"))
        message.record = nullptr;
    else if (!partOf(json, "extension"))
        dropExtension(message);
    if (const Json* const data = partOf(json, "data"))
        message.rawData = fromBase64(*data, "data");
    return message;
}

void recordFromJson(const Json& json, const Record& record, void* block, const JsonOptions& options)
{
    Reader(options.charset).record(json, record, static_cast<char*>(block), "");
}

Json parseJson(std::string_view text)
{
    try {
        return Json::parse(text);
    } catch (const Json::exception& error) {
        throw JsonError(reasonOf(error));
    }
}

std::vector<Json> parseAllJson(const std::string& text)
{
    std::vector<Json> all;
    std::istringstream in(text);
    try {
        while (!(in >> std::ws).eof())
            in >> all.emplace_back();
    } catch (const Json::exception& error) {
        throw JsonError((all.size() > 1 ? "value " + std::to_string(all.size()) + ": " : "") +
                        reasonOf(error));
    }
    return all;
}

void setField(Message& message, std::string_view path, std::string_view value, const JsonOptions& options)
{
    std::vector<Part> parts = partsOf(message);
    parts.push_back({"header", &headerRecord(), reinterpret_cast<char*>(&message.header)});
    const std::string whole(path);
    const Part& part = choosePart(parts, path);
    const Reader reader(options.charset);
    if (path == kWrapped)
        return reader.record({{path, value}}, *part.record, part.at, part.name);
    const Target target = follow(*part.record, part.at, path, whole);
    reader.field(jsonFrom(target, value, whole), *target.field, target.at, target.rows, target.columns,
                 whole);
}

std::string quotedText(std::string_view text)
{
    const std::string escaped = Json(toUtf8(text, Charset::kUtf8)).dump();
    std::string shown;
    for (std::size_t i = 0; i < escaped.size(); ++i) {
        // JSON leaves the control characters above ASCII as they are: two bytes that begin with C2.
        const bool isControl = escaped[i] == '\xC2' && static_cast<unsigned char>(escaped[i + 1]) < 0xA0;
        if (isControl || escaped[i] == '\x7F') {
            char code[8];
            std::snprintf(code, sizeof code, "\\u%04x",
                          static_cast<unsigned char>(escaped[isControl ? ++i : i]));
            shown += code;
        } else {
            shown += escaped[i];
        }
    }
    return shown;
}

int kindFromName(std::string_view name)
{
    for (std::size_t kind = 0; kind < std::size(kKindNames); ++kind)
        if (name == kKindNames[kind] || name == std::to_string(kind))
            return static_cast<int>(kind);
    throw JsonError("kind: " + std::string(name) +
                    " isn't request, response, other-request, other-response or 0 to 3");
}

std::string_view nameOfKind(int kind)
{
    return kKindNames[static_cast<std::size_t>(kind) % std::size(kKindNames)];
}

} // namespace inspect
