/**
 * The records of the public headers by name: what `make records` took from them, with the offsets and absent
 * values of this machine.
 */
#ifndef ZEL_INSPECT_FIELDS_H
#define ZEL_INSPECT_FIELDS_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace inspect {

enum class Type : std::uint8_t
{
    kInt8,
    kUint8,
    kInt16,
    kUint16,
    kInt32,
    kUint32,
    kInt64,
    kUint64,
    kFloat,
    kDouble,
    kText,
    kPointer,
    kStruct
};

struct Record;

struct Field
{
    std::string_view name;
    std::string_view comment; // the header's; empty without one
    Type type = Type::kInt32;
    const Record* nested = nullptr; // of a kStruct
    std::size_t offset = 0;         // in its own record
    std::size_t size = 0;           // bytes of one value; of a text all that it may fill
    // How many of them there are, in each dimension; 0 where there is none. A text's own size isn't one.
    std::size_t rows = 0;
    std::size_t columns = 0;
    bool isSecret = false; // a password, a key or a session's name
};

struct Record
{
    std::string_view name;
    std::string_view original; // the struct that it is another name of; mostly its own name
    std::string_view comment;  // the header's; empty without one
    std::size_t size = 0;
    std::vector<Field> fields;
    int (*init)(void* record) = nullptr; // null: it starts at zero
    // The record as its init leaves it; bytes that the init doesn't touch are zero.
    std::vector<std::uint8_t> fresh;

    const Field* find(std::string_view field) const; // null: there is none
};

// In the order of the headers. Made once, at the first call; safe in any number of threads.
const std::vector<Record>& records();

const Record* findRecord(std::string_view name); // null: there is none

// A field by its place in a record, as the catalogue describes it.
struct FieldPlace
{
    const Field* field = nullptr; // null: no field begins there
    std::string path;             // "stDisk[0].Size"
};

FieldPlace fieldAt(const Record& record, std::size_t offset);

} // namespace inspect

#endif
