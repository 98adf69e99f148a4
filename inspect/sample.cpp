#include "inspect/sample.h"

#include <algorithm>
#include <cctype>
#include <cstring>

#include "zel_protocol/zel_protocol.h"

namespace inspect {

namespace {

constexpr int kRawBytes = 24;

struct SampleText
{
    std::string_view part; // of the field's name, in small letters
    std::string_view text;
};

// The first that fits.
constexpr SampleText kTexts[] = {
    {"mac", "00:1B:44:11:3A:B7"},
    {"mask", "255.255.255.0"},
    {"gateway", "192.168.1.1"},
    {"dns", "192.168.1.1"},
    {"multicast", "239.0.0.1"},
    {"domain", "example.com"},
    {"email", "desk@example.com"},
    {"url", "http://192.168.1.64/"},
    {"password", "secret"},
    {"passwd", "secret"},
    {"pwd", "secret"},
    {"session", "a1b2c3d4"},
    {"keyvalue", "00112233445566778899aabbccddeeff"},
    {"username", "admin"},
    {"filename", "/rec/20240506/070809.mp4"},
    {"file", "/rec/20240506/070809.mp4"},
    {"path", "/rec/20240506"},
    {"version", "V1.4.2"},
    {"serial", "SN20240042"},
    {"devicetype", "IPC"},
    {"resolution", "1920*1080"},
    {"md5", "9e107d9d372bb6826bd81d3542a419d6"},
    {"time", "2024-05-06 07:08:09"},
    {"date", "2024-05-06"},
    {"port", "8000"},
    {"user", "admin"},
    {"name", "Front door"},
    {"alias", "Front door"},
    {"plate", "AB 1234"},
    {"cmd", "status"},
    {"srcip", "192.168.1.64"},
    {"ipaddr", "192.168.1.64"},
    {"_ip", "192.168.1.64"},
};

struct SampleNumber
{
    std::string_view part;
    std::uint64_t number;
};

constexpr SampleNumber kNumbers[] = {
    {"timestamp", 1714979289},
    {"abstime", 1714979289},
    {"port", 8000},
    {"enable", 1},
    {"channel", 1},
    {"chn", 1},
    {"year", 2024},
    {"month", 5},
    {"wday", 1},
    {"hour", 7},
    {"minute", 8},
    {"second", 9},
    {"bitrate", 2048},
    {"framerate", 25},
    {"width", 1920},
    {"height", 1080},
    {"brightness", 50},
    {"contrast", 50},
    {"saturation", 50},
    {"hue", 50},
    {"sharpness", 50},
    {"volume", 50},
    {"startpos", 0},
    {"day", 6},
};

std::string lower(std::string_view name)
{
    std::string small(name);
    std::transform(small.begin(), small.end(), small.begin(),
                   [](unsigned char byte) { return static_cast<char>(std::tolower(byte)); });
    return small;
}

bool endsWith(std::string_view text, std::string_view end)
{
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

bool isAddress(std::string_view name)
{
    return endsWith(name, "IP") || endsWith(name, "Ip") || name.substr(0, 2) == "IP" ||
           name.find("IPAddr") != std::string_view::npos;
}

std::string_view textFor(std::string_view name)
{
    if (isAddress(name))
        return "192.168.1.64";
    const std::string small = lower(name);
    for (const SampleText& sample : kTexts)
        if (small.find(sample.part) != std::string::npos)
            return sample.text;
    return "text";
}

// What counts rows: only the first ones are filled.
bool isCount(std::string_view name)
{
    return endsWith(name, "Num") || endsWith(name, "Number") || endsWith(name, "Count");
}

std::uint64_t numberFor(const Field& field, std::uint64_t other)
{
    if (isCount(field.name))
        return 1;
    const std::string small = lower(field.name);
    for (const SampleNumber& sample : kNumbers)
        if (small.find(sample.part) != std::string::npos)
            return field.size == 1 ? std::min<std::uint64_t>(sample.number, 100) : sample.number;
    return other;
}

void putText(char* place, std::size_t size, std::string_view text)
{
    // A date alone where the clock has no room, rather than a piece of it.
    if (text.size() >= size && text.find(' ') < size)
        text = text.substr(0, text.find(' '));
    std::memset(place, 0, size);
    text.copy(place, size - 1);
}

template <class T>
void put(char* place, T value)
{
    std::memcpy(place, &value, sizeof value);
}

void putWhole(char* place, std::size_t size, std::uint64_t number)
{
    if (size == 1)
        put(place, static_cast<std::uint8_t>(number));
    else if (size == 2)
        put(place, static_cast<std::uint16_t>(number));
    else if (size == 4)
        put(place, static_cast<std::uint32_t>(number));
    else
        put(place, number);
}

// Fills a message's fields where its descriptions say that they are on the wire.
class Filler
{
public:
    explicit Filler(Message& message) : m_message(message) {}

    void operator()(const ZEL_DESCRIPTION& seen)
    {
        if (!seen.attribute)
            return;
        const char* const name = seen.in_extension ? m_message.entry.extension : m_message.entry.record;
        void* const block = seen.in_extension ? m_message.extension() : m_message.record.get();
        const Record* const record = name ? findRecord(name) : nullptr;
        if (record && block)
            fill(*record, static_cast<char*>(block), seen.offset, seen.offset + seen.size);
    }

private:
    // All fields of a record that lie within a range of its bytes.
    void fill(const Record& record, char* at, std::size_t begin, std::size_t end)
    {
        for (const Field& field : record.fields) {
            const std::size_t count =
                std::max<std::size_t>(field.rows, 1) * std::max<std::size_t>(field.columns, 1);
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t from = field.offset + i * field.size;
                if (from >= end || from + field.size <= begin)
                    continue;
                if (field.nested)
                    fill(*field.nested, at + from, begin > from ? begin - from : 0, end - from);
                else if (from >= begin)
                    fillOne(field, at + from, i);
            }
        }
    }

    void fillOne(const Field& field, char* place, std::size_t row)
    {
        if (field.type == Type::kPointer)
            return;
        m_number = m_number % 60 + 1;
        if (field.type == Type::kText) {
            if (row == 0)
                putText(place, field.size, textFor(field.name));
        } else if (field.type == Type::kFloat) {
            put(place, static_cast<float>(m_number) / 4);
        } else if (field.type == Type::kDouble) {
            put(place, static_cast<double>(m_number) / 4);
        } else {
            putWhole(place, field.size, numberFor(field, m_number));
        }
    }

    Message& m_message;
    std::uint64_t m_number = 0;
};

// Counts of rows that aren't on the wire themselves.
void countRows(const Message& message)
{
    const Record& record = *findRecord(message.entry.record);
    auto* const block = static_cast<char*>(message.record.get());
    for (const Field& field : record.fields)
        if (field.type == Type::kInt32 && field.rows == 0 && isCount(field.name))
            put(block + field.offset, std::int32_t{1});
}

template <class T>
T& as(const Message& message)
{
    return *static_cast<T*>(message.record.get());
}

// The fields that choose a form, or that go by another field.
void chooseForm(Message& message)
{
    const std::string_view record = message.entry.record;
    if (record == "NVR_INTERNAL_4001_PARAM") {
        as<NVR_INTERNAL_4001_PARAM>(message).stStream1.Stream = 1;
        as<NVR_INTERNAL_4001_PARAM>(message).stStream2.Stream = 2;
    } else if (record == "SYSTEM_CONFIG_GET_501_PARAM") {
        as<SYSTEM_CONFIG_GET_501_PARAM>(message).iBlankForm = -1;
    } else if (record == "SYSTEM_CONFIG_GET_1426_PARAM") {
        as<SYSTEM_CONFIG_GET_1426_PARAM>(message).iResultFlag = -1;
    } else if (record == "SYSTEM_CONFIG_GET_2515_PARAM") {
        as<SYSTEM_CONFIG_GET_2515_PARAM>(message).bFactoryReset = 0;
    } else if (record == "SYSTEM_CONTROL_1020_PARAM") {
        as<SYSTEM_CONTROL_1020_PARAM>(message).bRemoteAuthority = 0;
    } else if (record == "SYSTEM_CONTROL_1032_PARAM") {
        as<SYSTEM_CONTROL_1032_PARAM>(message).bSendIpc = 1;
    } else if (record == "SYSTEM_LOG_PARAM") {
        as<SYSTEM_LOG_PARAM>(message).iRespDataLen = kRawBytes;
        as<SYSTEM_LOG_PARAM>(message).DataLen = kRawBytes;
    } else if (record == "SYSTEM_ENCRYPT_150_PARAM") {
        auto& key = as<SYSTEM_ENCRYPT_150_PARAM>(message);
        key.KeyLen = static_cast<std::int32_t>(std::strlen(key.KeyValue));
    } else if (record == "TRANSPARENT_HEADER") {
        auto& transparent = as<TRANSPARENT_HEADER>(message);
        constexpr std::string_view kInside = "<MESSAGE_HEADER\nMsg_type=\"SYSTEM_CONTROL_MESSAGE\"\n"
                                             "Msg_code=\"1000\"\nMsg_flag=\"0\"\n/>\n"
                                             "<MESSAGE_BODY>\n</MESSAGE_BODY>\n</XML_ZELMAR>";
        transparent.iTransDataLen =
            static_cast<std::int32_t>(kInside.copy(transparent.acTransData, kInside.size()));
        putText(transparent.Trans_Type, sizeof transparent.Trans_Type, "TRANSPARENT_CHANNEL_MSG");
        putText(transparent.Channel_ID, sizeof transparent.Channel_ID, "1");
    }
    if (message.entry.word)
        putText(as<PTZ_CONTROL_PTZ_CMD_PARAM>(message).cmd, sizeof PTZ_CONTROL_PTZ_CMD_PARAM::cmd,
                message.entry.word);
    if (record == "ALARM_REPORT_CMD_RPEORT_ALARM_PARAM")
        as<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(message).Alarm_code =
            message.entry.alarm_code == -1 ? 1 : message.entry.alarm_code;
}

// Bytes of raw data, as many as the record announces.
void addRawData(Message& message)
{
    if (message.entry.behind == ZEL_BEHIND_NOTHING)
        return;
    const Record& record = *findRecord(message.entry.record);
    if (const Field* const length = record.find("DataLen"))
        put(static_cast<char*>(message.record.get()) + length->offset, std::int32_t{kRawBytes});
    for (std::size_t i = announcedData(message); i > 0; --i)
        message.rawData += static_cast<char>('A' + i % 26);
}

} // namespace

Message sampleMessage(int index, int kind)
{
    Message message = makeMessage(index, kind);
    std::string_view("0").copy(message.header.Msg_flag, 1);
    if (!message.record)
        return message;
    countRows(message);
    Filler filler(message);
    const auto see = [](void* context, const ZEL_DESCRIPTION* seen) {
        (*static_cast<Filler*>(context))(*seen);
    };
    ZelProtocolCatalogueDescribe(index, kind, see, &filler);
    chooseForm(message);
    addRawData(message);
    return message;
}

} // namespace inspect
