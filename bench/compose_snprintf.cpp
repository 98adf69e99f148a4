// One snprintf for each attribute at a running offset; constant text is copied.
#include <cinttypes>
#include <cstdio>
#include <type_traits>

#include "compose_peers.h"
#include "compose_text.h"

// The formats are constants that the compiler joins, which this warning doesn't see.
#pragma GCC diagnostic ignored "-Wformat-nonliteral"

namespace bench {

namespace {

struct SnprintfFormat
{
    static constexpr std::string_view kSigned = "=\"%d\"\n";
    static constexpr std::string_view kUnsigned = "=\"%u\"\n";
    static constexpr std::string_view kLong = "=\"%" PRIu64 "\"\n";
    static constexpr std::string_view kNumberAfterBlank = " =\"%d\"\n";
    static constexpr std::string_view kReal = "=\"%f\"\n";
    static constexpr std::string_view kText = "=\"%s\"\n";
    static constexpr std::string_view kTime = "=\"%02d:%02d:%02d\"\n";
    static constexpr std::string_view kTriple = "=\"%d,%d,%d\"\n";
    static constexpr std::string_view kRange = "=\"%d,%d\"\n";
    static constexpr std::string_view kResolution = "=\"%d*%d\"\n";
    static constexpr std::string_view kPeriod = "[%02d:%02d:%02d-%02d:%02d:%02d],";
    static constexpr std::string_view kCoordinate = "[%d,%d],";
    static constexpr std::string_view kVendor = "<VENDOR_PARAM VendorId =\"%s\" />\n";

    template <class Number>
    static constexpr const std::string_view& number()
    {
        if constexpr (sizeof(Number) == 8)
            return kLong;
        else if constexpr (std::is_unsigned_v<Number>)
            return kUnsigned;
        else
            return kSigned;
    }
};

struct SnprintfPrinter
{
    using Format = SnprintfFormat;

    SnprintfPrinter(char* buffer, size_t size) : at(buffer), left(size) {}

    bool good() const
    {
        return left != 0;
    }
    void literal(std::string_view text)
    {
        if (text.size() < left) {
            memcpy(at, text.data(), text.size());
            at += text.size();
            left -= text.size();
        } else {
            left = 0;
        }
    }
    template <class Text>
    void literal()
    {
        literal(Text::kText);
    }
    template <class Text, class... Values>
    void print(Values... values)
    {
        const int length = snprintf(at, left, Text::kBytes.data(), values...);
        if (length >= 0 && static_cast<size_t>(length) < left) {
            at += length;
            left -= static_cast<size_t>(length);
        } else {
            left = 0;
        }
    }
    template <class Text>
    void printText(const char* value)
    {
        print<Text>(value);
    }
    void takeBack()
    {
        --at;
        ++left;
    }

    char* at;
    size_t left;
};

} // namespace

int composeWithSnprintf(const Sample& sample, char* out, size_t size)
{
    return composeText<SnprintfPrinter>(sample, out, size);
}

} // namespace bench
