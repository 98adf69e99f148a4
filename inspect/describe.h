/** What a message is made of, by the catalogue and the list of records together. */
#ifndef ZEL_INSPECT_DESCRIBE_H
#define ZEL_INSPECT_DESCRIBE_H

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/fields.h"
#include "zel_protocol/catalogue.h"

namespace inspect {

// An element, or one of its attributes.
struct Described
{
    std::string path;       // elements from the body down: "SmartConfig/RegionDetection"; empty: the body
    bool isElement = false; // else an attribute, or a text
    std::string attribute;  // empty: the element's text
    std::size_t rows = 0;   // of an element: how many there may be side by side; 0: one
    ZEL_DIRECTION direction = ZEL_WRITTEN_AND_READ; // as the rest, of an attribute
    ZEL_FORM form = ZEL_FORM_NUMBER;
    bool inExtension = false;
    bool isSkipped = false; // not written at its absent value
    FieldPlace place;
};

std::vector<Described> describe(int index, int kind);

// What is the same for one kind or more of those that have a body.
struct Form
{
    int kind = 0;
    std::vector<Described> parts;
    std::vector<int> same; // other kinds of this form
};

std::vector<Form> formsOf(int index);

// The text of a message of plausible values.
std::string sampleText(int index, int kind);

bool operator==(const Described& one, const Described& other);

// "number", "hexadecimal number".
std::string_view nameOf(ZEL_FORM form);

// "only written", "only read", or nothing.
std::string_view nameOf(ZEL_DIRECTION direction);

// As in a header: "char Name[32]", "int32_t Year"; of one by its path, "uint8_t stRow[0].Age".
std::string declarationOf(const Field& field);
std::string declarationOf(const Field& field, const std::string& path);

} // namespace inspect

#endif
