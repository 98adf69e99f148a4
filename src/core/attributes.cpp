#include "core/attributes.h"

namespace zel {

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

void readNumbers(const ElementReader& in, const char* name, char separator, int32_t* numbers, size_t count)
{
    if (const char* value = in.value(name)) {
        std::string_view text = value;
        scanNumbers(text, separator, numbers, count);
    }
}

} // namespace zel
