#include "sample.h"

#include "demo_data.h"

#include <algorithm>
#include <cstring>

namespace demo {

namespace {

constexpr std::int32_t kRawBytes = 24;

/** Rows that what follows lies in: the path of their element, and where each begins behind the first. */
struct Rows
{
    std::string path;
    std::vector<std::size_t> starts;
};

bool isWithin(const std::string& path, const std::string& outer)
{
    return path.compare(0, outer.size(), outer) == 0 &&
           (path.size() == outer.size() || path[outer.size()] == '/');
}

std::size_t blocksFor(std::size_t bytes)
{
    return bytes / sizeof(std::max_align_t) + 1;
}

char* at(Sample& sample, const SampleField& field, std::size_t offset)
{
    Block& block = field.inExtension ? sample.extension : sample.record;
    return reinterpret_cast<char*>(block.data()) + offset;
}

void setNumber(char* place, std::size_t size, std::uint64_t value)
{
    if (size == sizeof(std::uint8_t)) {
        *place = static_cast<char>(value);
    } else if (size == sizeof(std::int16_t)) {
        const auto narrow = static_cast<std::int16_t>(value);
        std::memcpy(place, &narrow, sizeof narrow);
    } else if (size == sizeof(std::int32_t)) {
        const auto narrow = static_cast<std::int32_t>(value);
        std::memcpy(place, &narrow, sizeof narrow);
    } else if (size == sizeof value) {
        std::memcpy(place, &value, sizeof value);
    }
}

void setText(char* place, std::size_t size, int value)
{
    std::string text = "t" + std::to_string(value);
    text.resize(std::min(text.size(), size - 1));
    std::memset(place, 0, size);
    text.copy(place, text.size());
}

void setValue(const SampleField& field, char* place, int value)
{
    switch (field.form) {
    case ZEL_FORM_TEXT:
    case ZEL_FORM_WHOLE_TEXT:
        return setText(place, field.size, value);
    case ZEL_FORM_FLOAT: {
        const float number = static_cast<float>(value) / 4;
        std::memcpy(place, &number, sizeof number);
        return;
    }
    case ZEL_FORM_NUMBER:
    case ZEL_FORM_SIGNED:
    case ZEL_FORM_HEX:
    case ZEL_FORM_ATOI:
        return setNumber(place, field.size, static_cast<std::uint64_t>(value));
    case ZEL_FORM_TEXT_LIST:
        std::memset(place, 0, field.size);
        return;
    default:
        // Small numbers, whether each has one byte or four.
        for (std::size_t i = 0; i < field.size; ++i)
            place[i] = static_cast<char>(i % 4 == 0 ? 1 + (static_cast<std::size_t>(value) + i / 4) % 9 : 0);
    }
}

bool isText(const SampleField& field)
{
    return field.form == ZEL_FORM_TEXT || field.form == ZEL_FORM_WHOLE_TEXT;
}

/** A text that stands between tags brings the line feeds around it along. */
std::string_view textIn(const char* field, std::size_t size)
{
    std::string_view text(field, strnlen(field, size));
    text.remove_prefix(std::min(text.find_first_not_of('\n'), text.size()));
    return text.substr(0, text.find('\n'));
}

template <class Record>
Record& as(Sample& sample)
{
    return *reinterpret_cast<Record*>(sample.record.data());
}

/** What counts rows has no more than there are, and what counts bytes as many as are sent. */
int valueFor(const ZEL_CATALOGUE_ENTRY& entry, const std::string& attribute, int value)
{
    if (attribute == "DataLen" && entry.behind == ZEL_BEHIND_RAW_DATA)
        return kRawBytes;
    for (const std::string_view count : {"Num", "Number", "Count"})
        if (attribute.size() >= count.size() &&
            attribute.compare(attribute.size() - count.size(), count.size(), count) == 0)
            return 1;
    return value;
}

/** The fields that choose a form, or what another message's form goes by. */
void chooseForm(const CatalogueMessage& message, Sample& sample)
{
    const std::string_view record = message.entry.record;
    if (record == "NVR_INTERNAL_4001_PARAM") {
        as<NVR_INTERNAL_4001_PARAM>(sample).stStream1.Stream = 1;
        as<NVR_INTERNAL_4001_PARAM>(sample).stStream2.Stream = 2;
    } else if (record == "SYSTEM_CONFIG_GET_501_PARAM") {
        as<SYSTEM_CONFIG_GET_501_PARAM>(sample).iBlankForm = -1;
    } else if (record == "SYSTEM_CONFIG_GET_1426_PARAM") {
        as<SYSTEM_CONFIG_GET_1426_PARAM>(sample).iResultFlag = -1;
    } else if (record == "SYSTEM_CONFIG_GET_2515_PARAM") {
        as<SYSTEM_CONFIG_GET_2515_PARAM>(sample).bFactoryReset = 0;
    } else if (record == "SYSTEM_CONTROL_1020_PARAM") {
        as<SYSTEM_CONTROL_1020_PARAM>(sample).bRemoteAuthority = 0;
    } else if (record == "SYSTEM_CONTROL_1032_PARAM") {
        as<SYSTEM_CONTROL_1032_PARAM>(sample).bSendIpc = 1;
    } else if (record == "SYSTEM_LOG_PARAM") {
        // The status text is read as the data.
        auto& log = as<SYSTEM_LOG_PARAM>(sample);
        log.iRespDataLen = kRawBytes;
        setField(log.acData, fieldText(log.acCmd));
    } else if (record == "TRANSPARENT_HEADER") {
        auto& transparent = as<TRANSPARENT_HEADER>(sample);
        const std::string_view inside = "<MESSAGE_HEADER\n/>\n<MESSAGE_BODY>\n</MESSAGE_BODY>\n</XML_ZELMAR>";
        transparent.iTransDataLen =
            static_cast<std::int32_t>(inside.copy(transparent.acTransData, inside.size()));
        setField(transparent.Trans_Type, kTransparent);
    }
    if (message.entry.word)
        setField(as<PTZ_CONTROL_PTZ_CMD_PARAM>(sample).cmd, message.entry.word);
    if (std::string_view(message.entry.Msg_type) == kAlarm)
        as<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM>(sample).Alarm_code = std::max(message.entry.alarm_code, 12);
}

void setPointer(const CatalogueMessage& message, Sample& sample)
{
    void* const behind = sample.extension.empty() ? nullptr : sample.extension.data();
    if (message.entry.pointer_at != 0)
        std::memcpy(reinterpret_cast<char*>(sample.record.data()) + message.entry.pointer_at, &behind,
                    sizeof behind);
}

std::vector<char> composedBytes(const CatalogueMessage& message, const void* record)
{
    Cipher plain;
    return composeMessage(makeHeader(message.entry.Msg_type, message.entry.Msg_code), record, message.kind,
                          plain)
        .bytes;
}

} // namespace

std::vector<SampleField> fieldsOf(const CatalogueMessage& message)
{
    struct Context
    {
        std::vector<SampleField> fields;
        std::vector<Rows> rows;
    } all;
    const auto see = [](void* context, const ZEL_DESCRIPTION* seen) {
        auto& [fields, rows] = *static_cast<Context*>(context);
        const std::string path = seen->path;
        while (!rows.empty() && (!isWithin(path, rows.back().path) ||
                                 (!seen->attribute && path.size() == rows.back().path.size())))
            rows.pop_back();
        const std::vector<std::size_t> outer =
            rows.empty() ? std::vector<std::size_t>{0} : rows.back().starts;
        if (!seen->attribute) {
            Rows inner{path, {}};
            for (const std::size_t start : outer)
                for (std::size_t row = 0; row < std::max<std::size_t>(seen->rows, 1); ++row)
                    inner.starts.push_back(start + row * seen->row_size);
            rows.push_back(std::move(inner));
            return;
        }
        SampleField field{seen->form, seen->direction, seen->in_extension != 0,
                          seen->size, seen->attribute, {}};
        for (const std::size_t start : outer)
            field.offsets.push_back(seen->offset + start);
        fields.push_back(std::move(field));
    };
    ZelProtocolCatalogueDescribe(message.index, message.kind, see, &all);
    return all.fields;
}

Sample makeSample(const CatalogueMessage& message, int seed)
{
    Sample sample;
    const ZEL_CATALOGUE_ENTRY& entry = message.entry;
    if (!entry.record)
        return sample;
    // What isn't on the wire says how many rows there are, or which: more than there is room for.
    sample.record.resize(blocksFor(entry.record_size));
    std::memset(sample.record.data(), 1, entry.record_size);
    if (entry.extension_size != 0) {
        sample.extension.resize(blocksFor(entry.extension_size));
        std::memset(sample.extension.data(), 1, entry.extension_size);
    }
    setPointer(message, sample);
    int value = seed;
    const std::vector<SampleField> fields = fieldsOf(message);
    // The form of one message may cover a whole row, with fields that are attributes of their own.
    for (const bool isOwn : {true, false})
        for (const SampleField& field : fields)
            for (const std::size_t offset : field.offsets)
                if ((field.form == ZEL_FORM_OWN) == isOwn) {
                    value = value % 97 + 1;
                    setValue(field, at(sample, field, offset), valueFor(entry, field.attribute, value));
                }
    chooseForm(message, sample);
    return sample;
}

Composed composeSample(const ZEL_PROTOCOL_HEADER& header, const CatalogueMessage& message, Sample& sample,
                       Cipher& cipher)
{
    Cipher plain;
    const Composed alone = composeMessage(header, sample.get(), message.kind, plain);
    ZEL_FRAME_HEAD head;
    if (alone.status != 0 || message.entry.is_bare ||
        ZelProtocolFrameHeadRead(alone.bytes.data(), ZEL_FRAME_HEAD_SIZE, INT_MAX, &head) <= 0)
        return alone;
    const std::size_t announced = static_cast<std::size_t>(head.iLength) + ZEL_FRAME_HEAD_SIZE;
    if (announced <= alone.bytes.size())
        return composeMessage(header, sample.get(), message.kind, cipher);
    const std::vector<char> data = generatedBytes(static_cast<std::uint32_t>(message.index),
                                                  announced - alone.bytes.size() - ZEL_FRAME_END_CODE_SIZE);
    return composeWithData(header, sample.get(), message.kind, data.data(), data.size(), cipher);
}

bool isSame(const SampleField& field, const char* expected, const char* found)
{
    if (isText(field))
        return *found == '\0' || textIn(expected, field.size) == textIn(found, field.size);
    return field.form == ZEL_FORM_OWN ||
           std::equal(found, found + field.size, expected,
                      [](char one, char other) { return one == other || one == '\xFF'; });
}

bool equals(const CatalogueMessage& message, Sample& sample, const Received& received)
{
    if (!message.entry.record)
        return received.result == 0 || isHeaderAlone(received);
    const std::vector<SampleField> fields = fieldsOf(message);
    const bool isCarried = std::any_of(fields.begin(), fields.end(), [](const SampleField& field) {
        return field.direction == ZEL_WRITTEN_AND_READ;
    });
    if (!received.record)
        return !isCarried;
    if (composedBytes(message, sample.get()) == composedBytes(message, received.record.get()))
        return true;
    // One direction has what the other one hasn't: nothing else than what was sent came in, but it may lack.
    const char* const found = static_cast<const char*>(received.record.get());
    return std::all_of(fields.begin(), fields.end(), [&](const SampleField& field) {
        return field.direction != ZEL_WRITTEN_AND_READ || field.inExtension ||
               std::all_of(field.offsets.begin(), field.offsets.end(), [&](std::size_t offset) {
                   return isSame(field, at(sample, field, offset), found + offset);
               });
    });
}

} // namespace demo
