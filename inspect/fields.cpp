#include "inspect/fields.h"

#include <algorithm>
#include <iterator>

#include "inspect/secrets.h"
#include "zel_protocol/zel_protocol.h"

namespace inspect {

namespace {

using Init = int (*)(void* record);

template <class T, int (*init)(T*)>
int initAny(void* record)
{
    return init(static_cast<T*>(record));
}

enum class Line : std::uint8_t
{
    kRecord,
    kAlias,
    kNote,
    kField
};

// One line of the list of records, of which those of a record stand behind one another.
struct ListLine
{
    Line kind;
    const char* name;
    const char* other;   // of a struct field its type, of an alias its original
    const char* comment; // of a field, or of a record
    Type type;
    std::size_t offset;
    std::size_t size; // of a record, or of one value
    std::size_t rows;
    std::size_t columns;
    Init init;
};

#define AS_INT8 Type::kInt8, sizeof(std::int8_t), nullptr
#define AS_UINT8 Type::kUint8, sizeof(std::uint8_t), nullptr
#define AS_INT16 Type::kInt16, sizeof(std::int16_t), nullptr
#define AS_UINT16 Type::kUint16, sizeof(std::uint16_t), nullptr
#define AS_INT32 Type::kInt32, sizeof(std::int32_t), nullptr
#define AS_UINT32 Type::kUint32, sizeof(std::uint32_t), nullptr
#define AS_INT64 Type::kInt64, sizeof(std::int64_t), nullptr
#define AS_UINT64 Type::kUint64, sizeof(std::uint64_t), nullptr
#define AS_FLOAT Type::kFloat, sizeof(float), nullptr
#define AS_DOUBLE Type::kDouble, sizeof(double), nullptr
#define AS_TEXT Type::kText, 0, nullptr
#define AS_POINTER Type::kPointer, sizeof(void*), nullptr
#define AS_STRUCT(NAME) Type::kStruct, sizeof(NAME), #NAME

constexpr ListLine fieldLine(const char* name, const char* comment, std::size_t offset, std::size_t first,
                             std::size_t second, Type type, std::size_t size, const char* nested)
{
    return type == Type::kText
               ? ListLine{Line::kField, name, nested, comment, type, offset, second, first, 0, nullptr}
               : ListLine{Line::kField, name, nested, comment, type, offset, size, first, second, nullptr};
}

constexpr ListLine kLines[] = {
#define ZEL_RECORD(NAME) \
    {Line::kRecord, #NAME, nullptr, "", Type::kStruct, 0, sizeof(NAME), 0, 0, initAny<NAME, NAME##_init>},
#define ZEL_STRUCT(NAME) {Line::kRecord, #NAME, nullptr, "", Type::kStruct, 0, sizeof(NAME), 0, 0, nullptr},
#define ZEL_ALIAS(NAME, ORIGINAL) \
    {Line::kAlias, #NAME, #ORIGINAL, "", Type::kStruct, 0, sizeof(NAME), 0, 0, initAny<NAME, NAME##_init>},
#define ZEL_NOTE(NAME, COMMENT) {Line::kNote, #NAME, nullptr, COMMENT, Type::kStruct, 0, 0, 0, 0, nullptr},
#define ZEL_FIELD(STRUCT, FIELD, TYPE, DIM1, DIM2, COMMENT) \
    fieldLine(#FIELD, COMMENT, offsetof(STRUCT, FIELD), DIM1, DIM2, AS_##TYPE),
#include "catalogue/records.inc"
};

const Record* findIn(const std::vector<Record>& all, std::string_view name)
{
    const auto found =
        std::find_if(all.begin(), all.end(), [name](const Record& record) { return record.name == name; });
    return found == all.end() ? nullptr : &*found;
}

Record begin(const ListLine& line, const std::vector<Record>& all)
{
    Record record{line.name, line.name, "", line.size, {}, line.init, std::vector<std::uint8_t>(line.size)};
    if (line.kind == Line::kAlias) {
        record.original = line.other;
        record.comment = findIn(all, line.other)->comment;
        record.fields = findIn(all, line.other)->fields;
    }
    if (line.init)
        line.init(record.fresh.data());
    return record;
}

std::vector<Record> makeRecords()
{
    std::vector<Record> all;
    // Fields point at the records of nested structs, so these never move.
    all.reserve(std::size(kLines));
    for (const ListLine& line : kLines) {
        if (line.kind == Line::kRecord || line.kind == Line::kAlias) {
            all.push_back(begin(line, all));
            continue;
        }
        if (line.kind == Line::kNote) {
            all.back().comment = line.comment;
            continue;
        }
        Record& record = all.back();
        record.fields.push_back({line.name, line.comment, line.type,
                                 line.other ? findIn(all, line.other) : nullptr, line.offset, line.size,
                                 line.rows, line.columns, isSecret(record.name, line.name)});
    }
    return all;
}

} // namespace

const Field* Record::find(std::string_view field) const
{
    const auto found =
        std::find_if(fields.begin(), fields.end(), [field](const Field& one) { return one.name == field; });
    return found == fields.end() ? nullptr : &*found;
}

const std::vector<Record>& records()
{
    static const std::vector<Record> all = makeRecords();
    return all;
}

const Record* findRecord(std::string_view name)
{
    return findIn(records(), name);
}

FieldPlace fieldAt(const Record& record, std::size_t offset)
{
    for (const Field& field : record.fields) {
        const std::size_t row = field.size * std::max<std::size_t>(field.columns, 1);
        const std::size_t size = row * std::max<std::size_t>(field.rows, 1);
        if (offset < field.offset || offset >= field.offset + size)
            continue;
        const std::size_t within = offset - field.offset;
        std::string path(field.name);
        if (field.rows != 0)
            path += "[" + std::to_string(within / row) + "]";
        if (field.columns != 0)
            path += "[" + std::to_string(within % row / field.size) + "]";
        const std::size_t rest = within % field.size;
        if (!field.nested)
            return rest == 0 ? FieldPlace{&field, path} : FieldPlace{};
        FieldPlace inner = fieldAt(*field.nested, rest);
        return {inner.field, path + "." + inner.path};
    }
    return {};
}

} // namespace inspect
