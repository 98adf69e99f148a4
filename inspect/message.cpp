#include "inspect/message.h"

#include <algorithm>
#include <climits>
#include <cstring>
#include <iterator>
#include <mutex>
#include <new>
#include <stdexcept>

#include "zel_platform/codec.h"
#include "zel_protocol/zel_protocol.h"

namespace inspect {

namespace {

constexpr std::string_view kClosingTag = "</XML_ZELMAR>";
constexpr std::string_view kTransparentType = "TRANSPARENT_CHANNEL_MSG";

// --- Names ---------------------------------------------------------------------------------------

const std::vector<ZEL_CATALOGUE_ENTRY>& entries()
{
    static const std::vector<ZEL_CATALOGUE_ENTRY> all = [] {
        std::vector<ZEL_CATALOGUE_ENTRY> made(static_cast<std::size_t>(ZelProtocolCatalogueCount()));
        for (std::size_t i = 0; i < made.size(); ++i)
            ZelProtocolCatalogueEntry(static_cast<int>(i), &made[i]);
        return made;
    }();
    return all;
}

std::string fullName(const ZEL_CATALOGUE_ENTRY& entry)
{
    std::string name = entry.Msg_type;
    if (*entry.Msg_code)
        name.append("/").append(entry.Msg_code);
    if (entry.word)
        name.append("/").append(entry.word);
    if (entry.alarm_code != -1)
        name.append("/").append(std::to_string(entry.alarm_code));
    return name;
}

std::string lower(std::string_view text)
{
    std::string all(text);
    for (char& one : all)
        if (one >= 'A' && one <= 'Z')
            one = static_cast<char>(one - 'A' + 'a');
    return all;
}

bool isNamed(const char* name, const std::string& sought)
{
    return name && lower(name) == sought;
}

// Whether whole parts of a name with slashes are what is sought.
bool hasParts(const std::string& name, const std::string& sought)
{
    return ("/" + name + "/").find("/" + sought + "/") != std::string::npos;
}

// --- Kinds ---------------------------------------------------------------------------------------

struct Parts
{
    std::vector<std::string> elements;   // directly below the body
    std::vector<std::string> attributes; // and elements further down
};

// What tells a request from a response in a message's text.
struct Telling
{
    std::once_flag isMade;
    Parts only[2]; // what nothing but the request has, and the response
};

void seePart(void* context, const ZEL_DESCRIPTION* seen)
{
    if (seen->direction == ZEL_ONLY_READ)
        return;
    auto& parts = *static_cast<Parts*>(context);
    const std::string_view path = seen->path;
    const std::size_t slash = path.rfind('/');
    const std::string_view last = slash == std::string_view::npos ? path : path.substr(slash + 1);
    if (seen->attribute)
        parts.attributes.push_back(" " + std::string(seen->attribute) + "=");
    else
        (slash == std::string_view::npos ? parts.elements : parts.attributes)
            .push_back("<" + std::string(last));
}

void leaveOut(std::vector<std::string>& names, const std::vector<std::string>& others)
{
    const auto isOther = [&](const std::string& name) {
        return std::find(others.begin(), others.end(), name) != others.end();
    };
    names.erase(std::remove_if(names.begin(), names.end(), isOther), names.end());
}

void fillTelling(int index, Telling& telling)
{
    Parts parts[2];
    for (int kind = 0; kind < 2; ++kind)
        ZelProtocolCatalogueDescribe(index, kind, seePart, &parts[kind]);
    for (int kind = 0; kind < 2; ++kind) {
        telling.only[kind] = parts[kind];
        leaveOut(telling.only[kind].elements, parts[1 - kind].elements);
        leaveOut(telling.only[kind].attributes, parts[1 - kind].attributes);
    }
}

const Telling& tellingOf(int index)
{
    static std::vector<Telling> all(entries().size());
    Telling& telling = all[static_cast<std::size_t>(index)];
    std::call_once(telling.isMade, fillTelling, index, std::ref(telling));
    return telling;
}

bool isNameByte(char byte)
{
    return byte > ' ' && byte != '>' && byte != '/' && byte != '=';
}

// A name that is part of another one isn't it; white space is any.
bool stands(std::string_view text, std::string_view name)
{
    const bool isAttribute = name.front() == ' ';
    const std::string_view sought = isAttribute ? name.substr(1) : name;
    for (std::size_t at = text.find(sought); at != std::string_view::npos; at = text.find(sought, at + 1)) {
        const std::size_t end = at + sought.size();
        if (isAttribute ? at > 0 && !isNameByte(text[at - 1]) : end < text.size() && !isNameByte(text[end]))
            return true;
    }
    return false;
}

std::ptrdiff_t countStanding(std::string_view text, const std::vector<std::string>& names)
{
    return std::count_if(names.begin(), names.end(),
                         [text](const std::string& name) { return stands(text, name); });
}

// 0 where nothing tells. What has nothing of its own is told by what the other one lacks.
int betterKind(std::string_view text, const std::vector<std::string>& request,
               const std::vector<std::string>& response)
{
    const std::ptrdiff_t ofRequest = countStanding(text, request);
    const std::ptrdiff_t ofResponse = countStanding(text, response);
    if (ofRequest == ofResponse)
        return ofRequest == 0 && !request.empty() && response.empty() ? 1 : 0;
    return ofRequest < ofResponse ? 1 : 0;
}

// The body's first tag with its name alone, "<REQUEST_PARAM".
std::string_view firstTag(std::string_view body)
{
    const std::size_t start = body.find('<', 1);
    if (start == std::string_view::npos)
        return {};
    std::size_t end = start + 1;
    while (end < body.size() && isNameByte(body[end]))
        ++end;
    return body.substr(start, end - start);
}

bool isOf(const std::vector<std::string>& names, std::string_view name)
{
    return std::find(names.begin(), names.end(), name) != names.end();
}

int kindOf(int index, std::string_view text)
{
    const std::uint32_t kinds = entries()[static_cast<std::size_t>(index)].kinds;
    if ((kinds & 3) != 3)
        return (kinds & 2) != 0 ? ZEL_KIND_RESPONSE : ZEL_KIND_REQUEST;
    const std::size_t start = text.find("<MESSAGE_BODY");
    const std::string_view body = text.substr(std::min(start, text.size()));
    const auto& [request, response] = tellingOf(index).only;
    // Nearly every text is told by its first element.
    const std::string_view first = firstTag(body);
    if (isOf(request.elements, first) != isOf(response.elements, first))
        return isOf(response.elements, first) ? 1 : 0;
    if (!request.elements.empty() || !response.elements.empty())
        return betterKind(body, request.elements, response.elements);
    return betterKind(body, request.attributes, response.attributes);
}

// --- Analysis ------------------------------------------------------------------------------------

template <class Record>
Record& as(const RecordBlock& record)
{
    return *static_cast<Record*>(record.get());
}

int findIndex(const Message& message)
{
    const ZEL_PROTOCOL_HEADER& header = message.header;
    const auto find = [&](const char* word, int alarmCode) {
        return ZelProtocolCatalogueFind(header.Msg_type, header.Msg_code, word, alarmCode);
    };
    const int first = find(nullptr, -1);
    if (first < 0)
        return -1;
    const ZEL_CATALOGUE_ENTRY& entry = entries()[static_cast<std::size_t>(first)];
    if (entry.word && message.record) {
        const std::string word(textOf(as<PTZ_CONTROL_PTZ_CMD_PARAM>(message.record).cmd));
        return std::max(find(word.c_str(), -1), -1);
    }
    if (message.record && entry.record == std::string_view("ALARM_REPORT_CMD_RPEORT_ALARM_PARAM"))
        return std::max(first,
                        find(nullptr, as<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(message.record).Alarm_code));
    return first;
}

int decipher(std::string_view payload, Cipher& cipher, Bytes& plain)
{
    plain.resize(payload.size() + 1);
    const int size = static_cast<int>(payload.size());
    const int length = cipher.argument() ? ZelProtocolDecode(cipher.mode, payload.data(), size, plain.data(),
                                                             size + 1, cipher.argument())
                                         : P2pProtocolDecode(0, payload.data(), size, plain.data(), size + 1);
    plain.resize(static_cast<std::size_t>(std::max(length, 0)));
    return length < 0 ? ZEL_ERR_CODEC : 0;
}

Bytes behindText(std::string_view payload, std::size_t textSize, ZEL_BEHIND behind)
{
    constexpr char kEndCode[ZEL_FRAME_END_CODE_SIZE] = {};
    std::string_view rest = payload.substr(textSize);
    const bool hasEndCode = rest.substr(0, sizeof kEndCode) == std::string_view(kEndCode, sizeof kEndCode);
    // The analysis doesn't look at the value of a face's end code.
    if (hasEndCode || behind == ZEL_BEHIND_FEATURE_BLOCK)
        rest.remove_prefix(std::min(rest.size(), sizeof kEndCode));
    return Bytes(rest);
}

void releaseRecord(void* record)
{
    ZelProtocolMSGAnalysisStop(&record);
}

void analysePlain(Bytes& plain, Analysed& analysed)
{
    Message& message = analysed.message;
    const std::size_t tag = plain.find(kClosingTag);
    const std::size_t textSize = tag == Bytes::npos ? 0 : tag + kClosingTag.size();
    analysed.text.assign(plain, 0, textSize);
    // The analysis writes behind the text.
    const char behind = textSize < plain.size() ? plain[textSize] : '\0';
    void* record = nullptr;
    const int result = ZelProtocolMSGAnalysisStart(plain.data(), static_cast<int>(plain.size()),
                                                   ZEL_CODEC_PLAIN, nullptr, &message.header, &record);
    if (textSize != 0 && textSize < plain.size())
        plain[textSize] = behind;
    message.record = record ? RecordBlock(record, releaseRecord) : nullptr;
    analysed.status = std::min(result, 0);
    if (result > 0) // a transparent message, whose header is that of what it wraps
        kTransparentType.copy(message.header.Msg_type, sizeof message.header.Msg_type - 1);
    message.index = findIndex(message);
    if (message.index >= 0) {
        message.entry = entries()[static_cast<std::size_t>(message.index)];
        message.kind = kindOf(message.index, analysed.text);
    }
    if (textSize != 0 && (message.index < 0 || message.entry.behind != ZEL_BEHIND_NOTHING))
        message.rawData = behindText(plain, textSize, message.entry.behind);
}

// --- Composing -----------------------------------------------------------------------------------

// Frees a made block with the size it was taken with.
RecordBlock takeBlock(std::size_t size)
{
    return {::operator new(size), [](void* block) { ::operator delete(block); }};
}

void putFresh(void* place, const char* name, std::size_t size)
{
    const Record* const record = findRecord(name);
    if (!record || record->size != size)
        throw std::logic_error(std::string("no list of fields for ") + name);
    std::memcpy(place, record->fresh.data(), size);
}

void chooseMessage(Message& message)
{
    const ZEL_CATALOGUE_ENTRY& entry = message.entry;
    if (entry.word) {
        auto& command = as<PTZ_CONTROL_PTZ_CMD_PARAM>(message.record).cmd;
        std::string_view(entry.word).copy(command, sizeof command - 1);
    }
    if (entry.alarm_code != -1)
        as<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(message.record).Alarm_code = entry.alarm_code;
}

// A record's fields may choose another message, whose record is another one.
bool isItself(const Message& message)
{
    return !message.record || (message.index >= 0 && findIndex(message) == message.index);
}

int composePlain(const Message& message, Bytes& bytes)
{
    if (!isItself(message))
        return ZEL_ERR_BAD_CONTENT;
    const void* const record = message.record.get();
    const int size = ZelProtocolXMLComposeSize(&message.header, record, message.kind, ZEL_CODEC_PLAIN);
    if (size < 0)
        return size;
    bytes.resize(static_cast<std::size_t>(size));
    const int result = ZelProtocolXMLCompose(&message.header, record, message.kind, ZEL_CODEC_PLAIN, nullptr,
                                             bytes.data(), size);
    bytes.resize(static_cast<std::size_t>(std::max(result, 0)));
    return std::min(result, 0);
}

Composed refuse(int status, std::string problem = {})
{
    return {status, {}, std::move(problem)};
}

// Bytes that the head of a plain frame announces behind its text; below zero as a record may have it.
int announcedBytes(const Bytes& frame)
{
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < 4; ++i)
        length |= std::uint32_t{static_cast<unsigned char>(frame[4 + i])} << (8 * i);
    return static_cast<int>(length + ZEL_FRAME_HEAD_SIZE - static_cast<std::uint32_t>(frame.size()));
}

void putHead(Bytes& frame, int type)
{
    ZelProtocolFrameHeadWrite(frame.data(), type,
                              static_cast<std::uint32_t>(frame.size() - ZEL_FRAME_HEAD_SIZE));
}

// Puts end code and raw data behind the text of a plain frame, as its record announces them.
Composed addRawData(Bytes frame, const Message& message)
{
    const int announced = announcedBytes(frame);
    const bool isAnnounced = announced >= ZEL_FRAME_END_CODE_SIZE;
    const std::size_t wanted =
        isAnnounced ? static_cast<std::size_t>(announced) - ZEL_FRAME_END_CODE_SIZE : 0;
    const Bytes data = message.rawData.empty() && isAnnounced ? featuresOf(message) : message.rawData;
    if (wanted != data.size())
        return refuse(ZEL_ERR_BAD_CONTENT, "the record announces " + std::to_string(wanted) +
                                               " bytes of raw data, and there are " +
                                               std::to_string(data.size()));
    if (isAnnounced)
        frame.append(ZEL_FRAME_END_CODE_SIZE, '\0').append(data);
    putHead(frame, ZEL_FRAME_PLAIN);
    return {0, std::move(frame), {}};
}

// Text and raw data become one payload.
Composed encipher(const Bytes& plain, Cipher& cipher)
{
    const std::size_t size = plain.size() - ZEL_FRAME_HEAD_SIZE;
    if (size > INT_MAX / 2)
        return refuse(ZEL_ERR_BUFFER_SMALL);
    Bytes frame(ZEL_FRAME_HEAD_SIZE + 2 * size, '\0');
    const char* const source = plain.data() + ZEL_FRAME_HEAD_SIZE;
    char* const payload = frame.data() + ZEL_FRAME_HEAD_SIZE;
    const int room = static_cast<int>(2 * size);
    const int written =
        cipher.argument()
            ? ZelProtocolEncode(cipher.mode, source, static_cast<int>(size), payload, room, cipher.argument())
            : P2pProtocolEncode(cipher.mode, source, static_cast<int>(size), payload, room);
    if (written < 0)
        return refuse(ZEL_ERR_CODEC);
    frame.resize(ZEL_FRAME_HEAD_SIZE + static_cast<std::size_t>(written));
    putHead(frame, ZEL_FRAME_ENCIPHERED);
    return {0, std::move(frame), {}};
}

bool isFrame(const Bytes& bytes)
{
    ZEL_FRAME_HEAD head;
    const int judged = static_cast<int>(std::min<std::size_t>(bytes.size(), 4));
    return ZelProtocolFrameHeadRead(bytes.data(), judged, INT_MAX, &head) >= 0 &&
           head.iType != ZEL_FRAME_UNKNOWN;
}

} // namespace

Cipher::~Cipher()
{
    if (!key)
        return;
    volatile unsigned char* const bytes = key->bytes;
    for (std::size_t i = 0; i < sizeof key->bytes; ++i)
        bytes[i] = 0;
}

void* Message::extension() const
{
    if (!record || !entry.extension)
        return nullptr;
    void* hanging = nullptr;
    std::memcpy(&hanging, static_cast<const char*>(record.get()) + entry.pointer_at, sizeof hanging);
    return hanging;
}

bool Message::isTransparent() const
{
    return record && entry.record && entry.record == std::string_view("TRANSPARENT_HEADER");
}

std::vector<int> findMessages(std::string_view name)
{
    const std::string sought = lower(name);
    std::vector<int> found;
    for (std::size_t i = 0; i < entries().size(); ++i) {
        const ZEL_CATALOGUE_ENTRY& entry = entries()[i];
        const std::string full = lower(fullName(entry));
        if (full == sought)
            return {static_cast<int>(i)};
        if (hasParts(full, sought) || isNamed(entry.operation, sought) || isNamed(entry.record, sought) ||
            isNamed(entry.extension, sought))
            found.push_back(static_cast<int>(i));
    }
    return found;
}

std::string nameOf(int index)
{
    return fullName(entries().at(static_cast<std::size_t>(index)));
}

Message makeMessage(int index, int kind)
{
    Message message;
    message.index = index;
    message.entry = entries().at(static_cast<std::size_t>(index));
    message.kind = kind;
    const ZEL_CATALOGUE_ENTRY& entry = message.entry;
    std::string_view(entry.Msg_type).copy(message.header.Msg_type, sizeof message.header.Msg_type - 1);
    std::memcpy(message.header.Msg_code, entry.Msg_code, sizeof entry.Msg_code);
    if (!entry.record)
        return message;
    constexpr std::size_t kAlign = alignof(std::max_align_t);
    const std::size_t extensionAt = (entry.record_size + kAlign - 1) / kAlign * kAlign;
    message.record = takeBlock(extensionAt + entry.extension_size);
    auto* const block = static_cast<char*>(message.record.get());
    putFresh(block, entry.record, entry.record_size);
    if (entry.extension) {
        void* const extension = block + extensionAt;
        putFresh(extension, entry.extension, entry.extension_size);
        std::memcpy(block + entry.pointer_at, &extension, sizeof extension);
    }
    chooseMessage(message);
    return message;
}

void dropExtension(Message& message)
{
    void* const none = nullptr;
    if (message.extension())
        std::memcpy(static_cast<char*>(message.record.get()) + message.entry.pointer_at, &none, sizeof none);
}

Analysed analyse(std::string_view payload, Cipher& cipher)
{
    Analysed analysed;
    ZEL_PROTOCOL_HEADER_init(&analysed.message.header);
    Bytes plain;
    if (payload.empty() || payload.size() >= INT_MAX)
        analysed.status = ZEL_ERR_BAD_PARAM;
    else if (cipher.mode < 0)
        plain = payload;
    else
        analysed.status = decipher(payload, cipher, plain);
    if (analysed.status == 0)
        analysePlain(plain, analysed);
    return analysed;
}

Composed compose(const Message& message, Cipher& cipher)
{
    Bytes bytes;
    if (!isItself(message))
        return refuse(ZEL_ERR_BAD_CONTENT, "type, code, command word or alarm code are another message's");
    if (const int status = composePlain(message, bytes))
        return refuse(status);
    if (!isFrame(bytes))
        return message.rawData.empty() ? Composed{0, std::move(bytes), {}}
                                       : refuse(ZEL_ERR_BAD_CONTENT, "nothing follows a bare text");
    Composed composed = addRawData(std::move(bytes), message);
    return composed.status == 0 && cipher.mode >= 0 ? encipher(composed.bytes, cipher) : composed;
}

std::size_t announcedData(const Message& message)
{
    Bytes bytes;
    if (composePlain(message, bytes) != 0 || !isFrame(bytes))
        return 0;
    return static_cast<std::size_t>(std::max(announcedBytes(bytes) - ZEL_FRAME_END_CODE_SIZE, 0));
}

Bytes featuresOf(const Message& message)
{
    const auto* const face = message.entry.behind == ZEL_BEHIND_FEATURE_BLOCK
                                 ? static_cast<const ALARM_REPORT_HUMANFACE_INFO*>(message.extension())
                                 : nullptr;
    if (!face)
        return {};
    const std::size_t size =
        face->AlgVer == 1 ? sizeof face->aucFeatureData / 2 : sizeof face->aucFeatureData;
    return {std::begin(face->aucFeatureData), std::begin(face->aucFeatureData) + size};
}

std::string_view textOf(const Composed& composed)
{
    std::string_view text = composed.bytes;
    if (isFrame(composed.bytes))
        text.remove_prefix(std::min<std::size_t>(text.size(), ZEL_FRAME_HEAD_SIZE));
    const std::size_t tag = text.find(kClosingTag);
    return text.substr(0, tag == std::string_view::npos ? 0 : tag + kClosingTag.size());
}

} // namespace inspect
