#include "inspect/command.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdio>
#include <cstring>
#include <ctime>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <system_error>

#include "inspect/sample.h"

namespace inspect {

namespace {

// Names that are listed where several messages fit.
constexpr std::size_t kMostNamed = 8;

int digitOf(char digit)
{
    if (digit >= '0' && digit <= '9')
        return digit - '0';
    if (digit >= 'a' && digit <= 'f')
        return digit - 'a' + 10;
    return digit >= 'A' && digit <= 'F' ? digit - 'A' + 10 : -1;
}

bool readDigits(const std::string& text, ZEL_PLATFORM_KEY& key)
{
    const std::size_t end = std::min(text.find_last_not_of(" \r\n\t") + 1, text.size());
    if (end != 2 * sizeof key.bytes)
        return false;
    for (std::size_t i = 0; i < sizeof key.bytes; ++i) {
        const int high = digitOf(text[2 * i]);
        const int low = digitOf(text[2 * i + 1]);
        if (high < 0 || low < 0)
            return false;
        key.bytes[i] = static_cast<unsigned char>(16 * high + low);
    }
    return true;
}

ZEL_PLATFORM_KEY readKey(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        throw CLI::ValidationError("--key-file", path + " can't be read");
    std::string text(3 * ZEL_PLATFORM_KEY_BYTES, '\0');
    file.read(text.data(), static_cast<std::streamsize>(text.size()));
    text.resize(static_cast<std::size_t>(file.gcount()));
    ZEL_PLATFORM_KEY key{};
    if (text.size() == sizeof key.bytes)
        std::memcpy(key.bytes, text.data(), sizeof key.bytes);
    else if (!readDigits(text, key))
        throw CLI::ValidationError("--key-file", path + " holds neither 32 bytes nor 64 hexadecimal digits");
    return key;
}

// --- Names ---------------------------------------------------------------------------------------

std::string namesOf(const std::vector<int>& messages)
{
    std::string names;
    for (std::size_t i = 0; i < std::min(messages.size(), kMostNamed); ++i)
        names += "\n  " + nameOf(messages[i]);
    return messages.size() > kMostNamed ? names + "\n  ..." : names;
}

bool hasPart(std::string_view whole, std::string_view part)
{
    const auto isSame = [](unsigned char one, unsigned char other) {
        return std::toupper(one) == std::toupper(other);
    };
    return std::search(whole.begin(), whole.end(), part.begin(), part.end(), isSame) != whole.end();
}

// --- Messages from arguments ---------------------------------------------------------------------

void setFields(Message& message, const std::vector<std::string>& fields, const JsonOptions& options)
{
    for (const std::string& field : fields) {
        const std::size_t sign = field.find('=');
        if (sign == std::string::npos)
            throw JsonError(field + ": has to be field=value");
        setField(message, field.substr(0, sign), field.substr(sign + 1), options);
    }
}

// A record that doesn't tell how long its raw data is gets the length, and any record where `isSure`.
void countData(Message& message, bool isSure)
{
    if (message.rawData.empty() || !message.record || announcedData(message) == message.rawData.size())
        return;
    const Json record = toJson(message, {})["record"];
    for (const char* const length : {"DataLen", "iRespDataLen"})
        if (findRecord(message.entry.record)->find(length) && (isSure || !record.contains(length)))
            setField(message, length, std::to_string(message.rawData.size()), {});
}

// Texts that stand for themselves, whatever is in them.
bool isWholeText(const std::string& field)
{
    return field == "acTransData" || field == "acText" || field == "acData";
}

void testTexts(const Json& json, const std::string& path)
{
    if (json.is_string()) {
        const auto& text = json.get_ref<const std::string&>();
        if (ZelProtocolTextIsWritable(text.c_str(), static_cast<int>(text.size())) == 0)
            throw JsonError(path + ": a quotation mark, &, <, a control character or ChannelId= spoils the "
                                   "document; --force writes it");
    } else if (json.is_array()) {
        for (std::size_t row = 0; row < json.size(); ++row)
            testTexts(json[row], path + "[" + std::to_string(row) + "]");
    } else if (json.is_object()) {
        for (const auto& [name, value] : json.items())
            if (!isWholeText(name))
                testTexts(value, path.empty() ? name : path + "." + name);
    }
}

int defaultKind(int index)
{
    ZEL_CATALOGUE_ENTRY entry{};
    ZelProtocolCatalogueEntry(index, &entry);
    return (entry.kinds & 3) == 2 ? ZEL_KIND_RESPONSE : ZEL_KIND_REQUEST;
}

// What is told apart from fields and data.
std::vector<Message> startsOf(const MessageOptions& options, const JsonOptions& jsonOptions, int index)
{
    const int kind = options.kind.empty() ? -1 : kindFromName(options.kind);
    std::vector<Message> starts;
    if (options.file.empty()) {
        const int chosen = kind < 0 ? defaultKind(index) : kind;
        starts.push_back(options.sample ? sampleMessage(index, chosen) : makeMessage(index, chosen));
        return starts;
    }
    for (Json& json : parseAllJson(readWhole(options.file))) {
        if (json.is_object() && kind >= 0)
            json["kind"] = nameOfKind(kind);
        else if (json.is_object() && index >= 0 && !json.contains("kind"))
            json["kind"] = nameOfKind(defaultKind(index));
        starts.push_back(fromJson(json, jsonOptions, index));
    }
    if (starts.empty())
        throw JsonError(options.file + " holds no message");
    return starts;
}

void printValues(std::ostream& out, const Json& json, const std::string& path)
{
    if (json.is_object()) {
        for (const auto& [name, value] : json.items())
            printValues(out, value, path.empty() ? name : path + "." + name);
    } else if (json.is_array()) {
        for (std::size_t row = 0; row < json.size(); ++row)
            printValues(out, json[row], path + "[" + std::to_string(row) + "]");
    } else if (!json.is_null()) {
        out << "  " << path << " = " << (json.is_string() ? quotedText(json.get<std::string>()) : json.dump())
            << '\n';
    }
}

} // namespace

std::string timeText(double time)
{
    const auto seconds = static_cast<std::time_t>(time);
    std::tm parts{};
    gmtime_r(&seconds, &parts);
    std::array<char, 64> text{};
    const std::size_t size = std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%S", &parts);
    const double rest = std::min((time - static_cast<double>(seconds)) * 1e6, 999999.0);
    std::snprintf(text.data() + size, text.size() - size, ".%06ldZ", static_cast<long>(rest));
    return text.data();
}

JsonOptions Common::jsonOptions() const
{
    JsonOptions options;
    options.showSecrets = showSecrets;
    if (!charset.empty())
        options.charset = charset == "utf-8" ? Charset::kUtf8 : Charset::kGb2312;
    return options;
}

Cipher Common::cipher() const
{
    Cipher cipher;
    cipher.mode = mode;
    if (!keyFile.empty())
        cipher.key = readKey(keyFile);
    return cipher;
}

void addJsonOption(CLI::App& command, Common& common)
{
    command.add_flag("--json", common.json, "Print one JSON object a line");
}

void addSecretsOption(CLI::App& command, Common& common)
{
    command.add_flag("--show-secrets", common.showSecrets,
                     "Show passwords, keys and session names instead of ***");
}

void addCharsetOption(CLI::App& command, Common& common)
{
    command.add_option("--charset", common.charset, "Of texts: utf-8, gb2312 (with GB18030), else guessed")
        ->check(CLI::IsMember({"utf-8", "gb2312"}, CLI::ignore_case));
}

void addOutputOptions(CLI::App& command, Common& common)
{
    addJsonOption(command, common);
    addSecretsOption(command, common);
    addCharsetOption(command, common);
}

void addCipherOptions(CLI::App& command, Common& common)
{
    command.add_option("--key-file", common.keyFile, "Key of enciphered frames: 32 bytes or 64 hex digits")
        ->type_name("FILE");
    command.add_option("--mode", common.mode, "The codec's mode, for both ends the same")
        ->check(CLI::NonNegativeNumber)
        ->capture_default_str();
}

void addFileOptions(CLI::App& command, FileOptions& options)
{
    const std::vector<std::pair<std::string, Format>> formats = {{"frames", Format::kFrames},
                                                                 {"text", Format::kText},
                                                                 {"hex", Format::kHex},
                                                                 {"capture", Format::kCapture}};
    command
        .add_option("FILE", options.files, "pcap, pcapng, frames, texts or a hex dump; - is standard input")
        ->type_name("")
        ->required();
    command
        .add_option("--format", options.format,
                    "frames, text, hex or capture, where that isn't seen from a file's beginning")
        ->transform(CLI::CheckedTransformer(formats).description(""))
        ->type_name("FORMAT");
}

int readOrTell(const std::string& file, Format format, const Receive& receive, const Progress& progress,
               std::string& why)
{
    try {
        readFile(file, format, receive, progress);
        return kFine;
    } catch (const std::system_error& error) {
        why = std::string("zel: ") + error.what() + '\n';
        return kMisused;
    } catch (const std::runtime_error& error) {
        why = "zel: " + file + ": " + error.what() + '\n';
        return kFound;
    }
}

std::string placeOf(const std::string& file, const Found& found)
{
    std::string place = file;
    if (!found.from.empty())
        place.append(": ").append(found.from).append(" > ").append(found.to);
    if (found.offset != Found::kNoOffset)
        place.append(": byte ").append(std::to_string(found.offset));
    return place;
}

void addPlace(Json& json, const std::string& file, const Found& found)
{
    if (!file.empty())
        json["file"] = toUtf8(file, Charset::kGuessed);
    if (found.time > 0)
        json["time"] = timeText(found.time);
    if (!found.from.empty()) {
        json["from"] = found.from;
        json["to"] = found.to;
    }
    if (found.offset != Found::kNoOffset)
        json["offset"] = found.offset;
}

std::vector<int> similarMessages(const std::string& part)
{
    std::vector<int> similar;
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        ZEL_CATALOGUE_ENTRY entry{};
        ZelProtocolCatalogueEntry(index, &entry);
        bool isSimilar = hasPart(nameOf(index), part);
        for (const char* const name : {entry.operation, entry.record, entry.extension})
            isSimilar = isSimilar || (name && hasPart(name, part));
        if (isSimilar)
            similar.push_back(index);
    }
    return similar;
}

int findMessage(const std::string& name)
{
    const std::vector<int> found = findMessages(name);
    if (found.size() == 1)
        return found.front();
    if (!found.empty())
        throw CLI::ValidationError(name + " may be any of " + std::to_string(found.size()) +
                                   " messages:" + namesOf(found));
    const std::vector<int> similar = similarMessages(name);
    if (similar.size() == 1)
        return similar.front();
    throw CLI::ValidationError(name + " is no message that the catalogue knows; " +
                               (similar.empty() ? "zel list names them all" : "perhaps:" + namesOf(similar)));
}

void addMessageOptions(CLI::App& command, MessageOptions& options, const std::string& fileOption)
{
    command.add_option("MESSAGE", options.name, "Its name, or a part that no other message has")
        ->type_name("");
    command
        .add_option("FIELD", options.fields,
                    "Values of fields: ChannelId=2 stRow[1].Name=door header.Msg_flag=0")
        ->type_name("");
    command.add_option(fileOption, options.file, "Take the message from JSON, - for the standard input")
        ->type_name("FILE");
    command.add_option("--kind", options.kind, "request, response, other-request, other-response or 0 to 3");
    command.add_option("--data", options.dataFile, "Raw data that follows the text")->type_name("FILE");
    command.add_flag("--sample", options.sample, "Start with plausible values instead of absent ones");
    command.add_flag("--force", options.force, "Write texts that spoil the document too");
}

std::vector<Message> describedMessages(const MessageOptions& options, const JsonOptions& jsonOptions)
{
    std::string name = options.name;
    std::vector<std::string> fields = options.fields;
    if (!options.file.empty() && name.find('=') != std::string::npos) {
        fields.insert(fields.begin(), name); // the file tells which message it is
        name.clear();
    }
    if (name.empty() && options.file.empty())
        throw CLI::RequiredError("MESSAGE");
    std::vector<Message> messages = startsOf(options, jsonOptions, name.empty() ? -1 : findMessage(name));
    Bytes data;
    if (!options.dataFile.empty())
        data = readWhole(options.dataFile);
    JsonOptions openly = jsonOptions;
    openly.showSecrets = true;
    for (Message& message : messages) {
        if (!options.dataFile.empty())
            message.rawData = data;
        if (options.sample)
            countData(message, true);
        setFields(message, fields, jsonOptions);
        countData(message, false);
        if (!options.force)
            testTexts(toJson(message, openly), "");
    }
    return messages;
}

Json entryToJson(int index)
{
    ZEL_CATALOGUE_ENTRY entry;
    ZelProtocolCatalogueEntry(index, &entry);
    Json object = {{"message", nameOf(index)}, {"type", entry.Msg_type}};
    if (*entry.Msg_code)
        object["code"] = entry.Msg_code;
    if (entry.word)
        object["word"] = entry.word;
    if (entry.alarm_code != -1)
        object["alarm"] = entry.alarm_code;
    if (entry.operation)
        object["operation"] = entry.operation;
    if (entry.record)
        object["record"] = entry.record;
    if (entry.extension)
        object["extension"] = entry.extension;
    object["kinds"] = Json::array();
    for (int kind = 0; kind < 4; ++kind)
        if ((entry.kinds >> kind & 1) != 0)
            object["kinds"].push_back(kind);
    object["rawData"] = entry.behind != ZEL_BEHIND_NOTHING;
    object["frame"] = entry.is_bare == 0;
    return object;
}

Bytes readWhole(const std::string& path)
{
    constexpr std::size_t kMost = 256u << 20;
    std::ifstream file;
    if (path != "-")
        file.open(path, std::ios::binary);
    std::istream& in = path == "-" ? std::cin : file;
    Bytes all;
    char piece[1 << 16];
    while (in && all.size() <= kMost) {
        in.read(piece, sizeof piece);
        all.append(piece, static_cast<std::size_t>(in.gcount()));
    }
    if (in.bad() || !in.eof())
        throw std::runtime_error(path + (all.size() > kMost ? " is too large" : " can't be read"));
    return all;
}

std::string headline(const Message& message)
{
    std::string line;
    if (message.index >= 0)
        line = nameOf(message.index);
    else
        line =
            quotedText(textOf(message.header.Msg_type)) + "/" + quotedText(textOf(message.header.Msg_code));
    return line + (message.record ? " " + std::string(nameOfKind(message.kind)) : ", no parameters");
}

void print(std::ostream& out, const Message& message, const JsonOptions& options)
{
    out << headline(message) << '\n';
    JsonOptions brief = options;
    brief.rawData = false;
    const Json json = toJson(message, brief);
    for (const char* const part : {"header", "record", "extension"})
        if (json.contains(part))
            printValues(out, json[part], "");
    if (!message.rawData.empty())
        out << "  (" << message.rawData.size() << " bytes of raw data)\n";
}

} // namespace inspect
