#include "inspect/device.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <memory>
#include <string_view>

#include <sodium.h>

#include "inspect/fields.h"
#include "inspect/json.h"
#include "inspect/sample.h"
#include "zel_protocol/zel_protocol.h"

namespace inspect {

namespace {

constexpr const char* kOk = "OK";
constexpr const char* kFail = "FAIL";

template <std::size_t N>
void setText(char (&field)[N], std::string_view text)
{
    const std::size_t size = std::min(text.size(), N - 1);
    std::memcpy(field, text.data(), size);
    std::memset(field + size, 0, N - size);
}

// What a peer sent goes back but for what would spoil the document.
template <std::size_t N>
void echo(char (&field)[N], const char (&received)[N])
{
    if (ZelProtocolTextIsWritable(received, static_cast<int>(N)) != 0)
        std::memcpy(field, received, N);
}

bool isOf(const Message& message, std::string_view type)
{
    return textOf(message.header.Msg_type) == type;
}

// Takes the same time wherever they differ.
bool isSameSecret(const std::string& expected, std::string_view given)
{
    unsigned char one[crypto_generichash_BYTES];
    unsigned char other[crypto_generichash_BYTES];
    const auto digest = [](unsigned char(&into)[crypto_generichash_BYTES], std::string_view text) {
        crypto_generichash(into, sizeof into, reinterpret_cast<const unsigned char*>(text.data()),
                           text.size(), nullptr, 0);
    };
    digest(one, expected);
    digest(other, given);
    return sodium_memcmp(one, other, sizeof one) == 0;
}

RecordBlock copyOf(const Message& message)
{
    const std::size_t size = message.entry.record_size;
    const std::shared_ptr<char> copy(new char[size], std::default_delete<char[]>());
    std::memcpy(copy.get(), message.record.get(), size);
    return copy;
}

// Lays the values of a record that aren't absent over another's. Behind the last row that has one there are
// no more. `fresh` is the record without values.
class Overlay
{
public:
    Overlay(const std::uint8_t* fresh, const char* from, char* to) : m_fresh(fresh), m_from(from), m_to(to) {}

    // Tells whether there were any.
    bool record(const Record& record, std::size_t at) const
    {
        bool isTold = false;
        for (const Field& field : record.fields)
            isTold |= values(field, at + field.offset);
        return isTold;
    }

private:
    bool values(const Field& field, std::size_t at) const
    {
        const std::size_t count =
            std::max<std::size_t>(field.rows, 1) * std::max<std::size_t>(field.columns, 1);
        if (field.type == Type::kPointer)
            return false;
        if (!field.nested && field.type != Type::kText)
            return bytes(at, count * field.size,
                         std::memcmp(m_from + at, m_fresh + at, count * field.size) != 0);
        std::size_t told = 0;
        for (std::size_t row = 0; row < count; ++row)
            if (value(field, at + row * field.size))
                told = row + 1;
        if (told != 0)
            std::memcpy(m_to + at + told * field.size, m_fresh + at + told * field.size,
                        (count - told) * field.size);
        return told != 0;
    }

    bool value(const Field& field, std::size_t at) const
    {
        return field.nested ? record(*field.nested, at) : bytes(at, field.size, m_from[at] != '\0');
    }

    bool bytes(std::size_t at, std::size_t size, bool isTold) const
    {
        if (isTold)
            std::memcpy(m_to + at, m_from + at, size);
        return isTold;
    }

    const std::uint8_t* m_fresh;
    const char* m_from;
    char* m_to;
};

bool isAnswered(const ZEL_CATALOGUE_ENTRY& entry)
{
    return (entry.kinds >> ZEL_KIND_RESPONSE & 1) != 0 || entry.kinds == 0;
}

} // namespace

void Device::keep(Message message)
{
    message.kind = ZEL_KIND_RESPONSE;
    const int index = message.index;
    m_kept.insert_or_assign(index, std::move(message));
}

Message& Device::kept(int index)
{
    const auto found = m_kept.find(index);
    if (found != m_kept.end())
        return found->second;
    return m_kept
        .emplace(index,
                 hasSamples ? sampleMessage(index, ZEL_KIND_RESPONSE) : makeMessage(index, ZEL_KIND_RESPONSE))
        .first->second;
}

// Type and code are the question's, and so is what tells an answer from others.
Message Device::header(const Message& question, const char* flag) const
{
    Message message;
    message.index = question.index;
    message.entry = question.entry;
    message.kind = ZEL_KIND_RESPONSE;
    ZEL_PROTOCOL_HEADER_init(&message.header);
    echo(message.header.Msg_type, question.header.Msg_type);
    echo(message.header.Msg_code, question.header.Msg_code);
    echo(message.header.Msg_uuid, question.header.Msg_uuid);
    echo(message.header.Msg_chn, question.header.Msg_chn);
    setText(message.header.Msg_flag, flag);
    return message;
}

Message Device::answerTo(const Message& question, int index)
{
    Message message = header(question, kOk);
    const Message& own = kept(index);
    message.index = index;
    message.entry = own.entry;
    message.record = own.record;
    message.rawData = own.rawData;
    return message;
}

// A setting's values go into the records of its kind that queries are answered with.
void Device::takeOver(const Message& setting)
{
    if (!setting.record || !setting.entry.record)
        return;
    const Record& told = *findRecord(setting.entry.record);
    for (int index = 0; index < ZelProtocolCatalogueCount(); ++index) {
        ZEL_CATALOGUE_ENTRY entry{};
        ZelProtocolCatalogueEntry(index, &entry);
        if (entry.record && std::string_view(entry.Msg_type) == "SYSTEM_CONFIG_GET_MESSAGE" &&
            findRecord(entry.record)->original == told.original)
            Overlay(told.fresh.data(), static_cast<const char*>(setting.record.get()),
                    static_cast<char*>(kept(index).record.get()))
                .record(told, 0);
    }
}

std::optional<Message> Device::answer(const Analysed& question, Session& session)
{
    const Message& message = question.message;
    if (message.isTransparent())
        return unwrap(message, session);
    if (question.status != 0 && !question.isHeaderAlone())
        return question.status == ZEL_ERR_UNKNOWN_MSG ? std::optional(header(message, kFail)) : std::nullopt;
    if (isOf(message, "SYSTEM_SEARCHIPC_MESSAGE"))
        return foundBy(message);
    if (isOf(message, "USER_AUTH_MESSAGE"))
        return logIn(message, session);
    if (!user.empty() && !session.isLoggedIn)
        return header(message, kFail);
    if (isOf(message, "SYSTEM_CONFIG_SET_MESSAGE"))
        takeOver(message);
    if (message.index < 0 || !message.entry.record || !isAnswered(message.entry))
        return header(message, kOk);
    return answerTo(message, message.index);
}

std::optional<Message> Device::logIn(const Message& question, Session& session)
{
    const auto* const login = static_cast<const USER_AUTH_CMD_USER_AUTH_PARAM*>(question.record.get());
    const bool isUser = login && textOf(login->Username) == user;
    const bool isPassword = login && isSameSecret(password, textOf(login->Password));
    if (!user.empty() && !(isUser && isPassword))
        return header(question, kFail);
    session.isLoggedIn = true;
    Message message = answerTo(question, question.index);
    message.record = copyOf(message);
    auto& record = *static_cast<USER_AUTH_CMD_USER_AUTH_PARAM*>(message.record.get());
    if (record.Sessionid[0] == '\0') {
        unsigned char random[12];
        char digits[2 * sizeof random + 1];
        randombytes_buf(random, sizeof random);
        setText(record.Sessionid, sodium_bin2hex(digits, sizeof digits, random, sizeof random));
    }
    return message;
}

// Answers the message within and wraps the answer likewise; one that is wrapped again isn't looked into.
std::optional<Message> Device::unwrap(const Message& question, Session& session)
{
    constexpr std::string_view kOpening = "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n";
    const auto& outer = *static_cast<const TRANSPARENT_HEADER*>(question.record.get());
    const auto size = static_cast<std::size_t>(
        std::clamp<int>(outer.iTransDataLen, 0, static_cast<int>(sizeof outer.acTransData)));
    Cipher plain;
    const Analysed inner = analyse(std::string(kOpening).append(outer.acTransData, size), plain);
    if (inner.message.isTransparent() || isOf(inner.message, "SYSTEM_SEARCHIPC_MESSAGE"))
        return header(question, kFail);
    const std::optional<Message> answered = answer(inner, session);
    const Composed composed = answered ? compose(*answered, plain) : Composed{ZEL_ERR_BAD_CONTENT, {}, {}};
    const std::size_t start = composed.bytes.find("<MESSAGE_HEADER");
    Message message = question;
    message.kind = ZEL_KIND_RESPONSE;
    message.record = copyOf(question);
    auto& record = *static_cast<TRANSPARENT_HEADER*>(message.record.get());
    if (composed.status != 0 || start == Bytes::npos ||
        composed.bytes.size() - start > sizeof record.acTransData)
        return header(question, kFail);
    record.iTransDataLen =
        static_cast<std::int32_t>(composed.bytes.copy(record.acTransData, sizeof record.acTransData, start));
    setText(record.Trans_Result, textOf(answered->header.Msg_flag));
    return message;
}

// A search is answered by a message of another code, which says where the device is; such answers have none.
std::optional<Message> Device::foundBy(const Message& question)
{
    const std::string_view code = textOf(question.header.Msg_code);
    if (code == "3" || code == "21")
        return std::nullopt;
    if (code != "1")
        return header(question, kOk);
    const int index = ZelProtocolCatalogueFind("SYSTEM_SEARCHIPC_MESSAGE", "3", nullptr, -1);
    const auto& own = *static_cast<const SYSTEM_SEARCHIPC_3_PARAM*>(kept(index).record.get());
    const auto* const search = static_cast<const SYSTEM_SEARCHIPC_1_PARAM*>(question.record.get());
    const std::string_view wanted = search ? textOf(search->VendorId) : std::string_view();
    if (!wanted.empty() && own.VendorId[0] != '\0' && wanted != textOf(own.VendorId))
        return std::nullopt;
    Message message = answerTo(question, index);
    setText(message.header.Msg_code, "3");
    message.record = copyOf(message);
    auto& record = *static_cast<SYSTEM_SEARCHIPC_3_PARAM*>(message.record.get());
    record.stStream.Auth = 1;
    record.stStream.PTZPort = port;
    setText(record.stLan.IPAddress, address);
    if (record.stDevice.Name[0] == '\0')
        setText(record.stDevice.Name, "zel");
    return message;
}

} // namespace inspect
