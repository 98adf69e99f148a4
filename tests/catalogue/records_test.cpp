// The list of all records and their fields against the records themselves, and what the inits leave in them.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <iterator>
#include <set>
#include <string>
#include <type_traits>
#include <vector>

#include "support/reviewed.h"
#include "zel_protocol/zel_protocol.h"

namespace {

struct Field
{
    const char* name;
    size_t offset;
    size_t size;
    size_t alignment;
    size_t elementSize;
    bool isNumber;
    const Field* rowFields; // of an element that is a struct
    size_t rowFieldCount;
};

template <class Struct>
struct Layout;

// A field as the list has it; doesn't compile if the header has it otherwise. Type is void* for any pointer.
template <class Declared, class Type, size_t dim1, size_t dim2>
constexpr Field makeField(const char* name, size_t offset)
{
    using Element = std::remove_all_extents_t<Declared>;
    static_assert(std::is_same_v<Element, Type> ||
                  (std::is_pointer_v<Element> && std::is_same_v<Type, void*>));
    static_assert(std::is_same_v<Type, char> ? dim2 != 0 : dim1 != 0 || dim2 == 0);
    static_assert(std::rank_v<Declared> == (dim1 != 0) + (dim2 != 0));
    static_assert(std::extent_v<Declared, 0> == (dim1 != 0 ? dim1 : dim2));
    static_assert(std::extent_v<Declared, 1> == (dim1 != 0 ? dim2 : 0));
    constexpr bool isNumber = std::is_arithmetic_v<Element> && !std::is_same_v<Element, char>;
    Field field = {name, offset, sizeof(Declared), alignof(Declared), sizeof(Element), isNumber, nullptr, 0};
    if constexpr (std::is_class_v<Element>) {
        field.rowFields = Layout<Element>::fields;
        field.rowFieldCount = std::size(Layout<Element>::fields);
    }
    return field;
}

#define TYPE_INT8 int8_t
#define TYPE_UINT8 uint8_t
#define TYPE_INT16 int16_t
#define TYPE_UINT16 uint16_t
#define TYPE_INT32 int32_t
#define TYPE_UINT32 uint32_t
#define TYPE_INT64 int64_t
#define TYPE_UINT64 uint64_t
#define TYPE_FLOAT float
#define TYPE_DOUBLE double
#define TYPE_TEXT char
#define TYPE_POINTER void*
#define TYPE_STRUCT(NAME) NAME

#define ZEL_STRUCT(NAME) \
    template <>          \
    struct Layout<NAME>  \
    {                    \
        static constexpr Field fields[] = {
#define ZEL_FIELD(STRUCT, FIELD, TYPE, DIM1, DIM2, COMMENT) \
    makeField<decltype(STRUCT::FIELD), TYPE_##TYPE, DIM1, DIM2>(#FIELD, offsetof(STRUCT, FIELD)),
#define ZEL_END(NAME) \
    }                 \
    ;                 \
    }                 \
    ;
#define ZEL_ALIAS(NAME, ORIGINAL) static_assert(std::is_same_v<NAME, ORIGINAL>);
#include "catalogue/records.inc"

struct Struct
{
    const char* name;
    size_t size;
    size_t alignment;
    const Field* fields;
    size_t fieldCount;
};

template <class Type>
constexpr Struct structOf(const char* name)
{
    return {name, sizeof(Type), alignof(Type), Layout<Type>::fields, std::size(Layout<Type>::fields)};
}

constexpr Struct kStructs[] = {
#define ZEL_STRUCT(NAME) structOf<NAME>(#NAME),
#include "catalogue/records.inc"
};

struct Record
{
    Struct layout;
    int (*init)(void* record);
};

template <class Type, int (*init)(Type*)>
int initOf(void* record)
{
    return init(static_cast<Type*>(record));
}

constexpr Record kRecords[] = {
#define ZEL_RECORD(NAME) {structOf<NAME>(#NAME), initOf<NAME, NAME##_init>},
#define ZEL_ALIAS(NAME, ORIGINAL) ZEL_RECORD(NAME)
#include "catalogue/records.inc"
};

size_t alignedUp(size_t offset, size_t alignment)
{
    return (offset + alignment - 1) / alignment * alignment;
}

TEST(Records, FieldsFillTheStruct)
{
    for (const Struct& structure : kStructs) {
        size_t end = 0;
        for (size_t i = 0; i < structure.fieldCount; ++i) {
            const Field& field = structure.fields[i];
            EXPECT_EQ(field.offset, alignedUp(end, field.alignment)) << structure.name << '.' << field.name;
            end = field.offset + field.size;
        }
        EXPECT_EQ(structure.size, alignedUp(end, structure.alignment)) << structure.name;
    }
}

constexpr unsigned char kFill = 0x11;

struct Findings
{
    std::set<std::string> untouched;
    std::set<std::string> odd; // neither untouched nor an absent value
};

void look(const std::string& path, const Field* fields, size_t count, const unsigned char* bytes,
          Findings& findings)
{
    for (const Field* field = fields; field != fields + count; ++field) {
        const std::string name = path + "." + field->name;
        for (size_t at = 0; at < field->size; at += field->elementSize) {
            const unsigned char* element = bytes + field->offset + at;
            const unsigned char first = *element;
            if (field->rowFields)
                look(name, field->rowFields, field->rowFieldCount, element, findings);
            else if (std::count(element, element + field->elementSize, first) !=
                     static_cast<std::ptrdiff_t>(field->elementSize))
                findings.odd.insert(name);
            else if (first == kFill)
                findings.untouched.insert(name);
            else if (first != 0 && !(first == 0xFF && field->isNumber))
                findings.odd.insert(name);
        }
    }
}

// Ones or zeros in numbers, zeros in texts and pointers, but for what an init is said to leave alone.
TEST(Records, InitsGiveAbsentValues)
{
    Findings findings;
    for (const Record& record : kRecords) {
        const Struct& layout = record.layout;
        EXPECT_EQ(record.init(nullptr), -1) << layout.name;
        std::vector<long double> block(layout.size / sizeof(long double) + 2);
        auto* bytes = reinterpret_cast<unsigned char*>(block.data());
        const size_t size = block.size() * sizeof(long double);
        memset(bytes, kFill, size);
        EXPECT_EQ(record.init(bytes), 0) << layout.name;
        look(layout.name, layout.fields, layout.fieldCount, bytes, findings);
        EXPECT_TRUE(std::all_of(bytes + layout.size, bytes + size, [](int byte) { return byte == kFill; }))
            << layout.name;
    }
    EXPECT_EQ(findings.odd, (std::set<std::string>{
                                // -1.0
                                "SYSTEM_CONTROL_3027_PARAM.AveTime",
                                "SYSTEM_CONTROL_3027_PARAM.MaxTime",
                                "SYSTEM_CONTROL_3027_PARAM.MinTime",
                                "SYSTEM_CONTROL_3027_PARAM.SkipPacketRatio",
                            }));
    test::expectLines("untouched_fields.txt", findings.untouched);
}

} // namespace
