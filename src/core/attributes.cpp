#include "core/attributes.h"

namespace zel {

void appendLine(TextWriter& out, const char* name, size_t nameLength, const char* value, size_t length)
{
    out.append(name, nameLength);
    out.append("=\"");
    out.append(value, length);
    out.append("\"\n");
}

void hexAttribute(const ElementReader& in, const char* name, int32_t& field)
{
    if (const char* value = in.value(name))
        scanHex(value, field);
}

void atoiAttribute(const ElementReader& in, const char* name, int32_t& field)
{
    if (const char* value = in.value(name))
        field = numberOf(value);
}

void readWholeField(const ElementReader& in, const char* name, char* field, size_t size)
{
    const char* value = in.value(name);
    if (!value)
        return;
    const size_t length = strnlen(value, size);
    memcpy(field, value, length);
    memset(field + length, 0, size - length);
}

char* printNumbers(char* at, Digits digits, char separator, const int32_t* numbers, size_t count)
{
    for (size_t i = 0; i < count; ++i) {
        if (i > 0)
            *at++ = separator;
        at = digits == Digits::kTwo ? printTwoDigits(at, numbers[i]) : printNumber(at, numbers[i]);
    }
    return at;
}

bool readNumbers(const ElementReader& in, const char* name, char separator, int32_t* numbers, size_t count)
{
    const char* value = in.value(name);
    if (!value)
        return false;
    std::string_view text = value;
    scanNumbers(text, separator, numbers, count);
    return true;
}

} // namespace zel
