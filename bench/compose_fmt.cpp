// fmt in two forms: format_to_n, its counterpart of snprintf, and with formats compiled by FMT_COMPILE
// straight into the buffer, its fastest, where the room is tested beforehand.
#include <fmt/compile.h>
#include <fmt/format.h>

#include "compose_peers.h"
#include "compose_text.h"

namespace bench {

namespace {

struct FmtFormat
{
    static constexpr std::string_view kNumber = "=\"{}\"\n";
    static constexpr std::string_view kNumberAfterBlank = " =\"{}\"\n";
    static constexpr std::string_view kReal = "=\"{:f}\"\n";
    static constexpr std::string_view kText = "=\"{}\"\n";
    static constexpr std::string_view kTime = "=\"{:02}:{:02}:{:02}\"\n";
    static constexpr std::string_view kTriple = "=\"{},{},{}\"\n";
    static constexpr std::string_view kRange = "=\"{},{}\"\n";
    static constexpr std::string_view kResolution = "=\"{}*{}\"\n";
    static constexpr std::string_view kPeriod = "[{:02}:{:02}:{:02}-{:02}:{:02}:{:02}],";
    static constexpr std::string_view kCoordinate = "[{},{}],";
    static constexpr std::string_view kVendor = "<VENDOR_PARAM VendorId =\"{}\" />\n";

    template <class Number>
    static constexpr const std::string_view& number()
    {
        return kNumber;
    }
};

// What both have in common.
struct FmtBuffer
{
    using Format = FmtFormat;

    FmtBuffer(char* buffer, size_t size) : at(buffer), end(buffer + size) {}

    bool good() const
    {
        return !full;
    }
    bool hasRoom(size_t size)
    {
        if (static_cast<size_t>(end - at) > size)
            return true;
        full = true;
        return false;
    }
    void literal(std::string_view text)
    {
        if (hasRoom(text.size())) {
            memcpy(at, text.data(), text.size());
            at += text.size();
        }
    }
    template <class Text>
    void literal()
    {
        literal(Text::kText);
    }
    void takeBack()
    {
        --at;
    }

    char* at;
    char* end;
    bool full = false;
};

struct PlainFmtPrinter : FmtBuffer
{
    using FmtBuffer::FmtBuffer;

    template <class Text, class... Values>
    void print(const Values&... values)
    {
        const auto left = static_cast<size_t>(end - at);
        const auto printed = fmt::format_to_n(at, left, FMT_STRING(Text::kText), values...);
        if (printed.size < left)
            at = printed.out;
        else
            full = true;
    }
    template <class Text, size_t N>
    void printText(const char (&value)[N])
    {
        print<Text>(std::string_view(value, strnlen(value, N)));
    }
};

struct CompiledFmtPrinter : FmtBuffer
{
    using FmtBuffer::FmtBuffer;

    template <class Text, class... Values>
    void print(Values... values)
    {
        constexpr size_t kLongest = 48; // of a number, a float included
        if (hasRoom(Text::kText.size() + kLongest * sizeof...(values)))
            at = fmt::format_to(at, FMT_COMPILE(Text::kText), values...);
    }
    template <class Text, size_t N>
    void printText(const char (&value)[N])
    {
        const std::string_view text(value, strnlen(value, N));
        if (hasRoom(Text::kText.size() + text.size()))
            at = fmt::format_to(at, FMT_COMPILE(Text::kText), text);
    }
};

} // namespace

int composeWithFmt(const Sample& sample, char* out, size_t size)
{
    return composeText<PlainFmtPrinter>(sample, out, size);
}

int composeWithCompiledFmt(const Sample& sample, char* out, size_t size)
{
    return composeText<CompiledFmtPrinter>(sample, out, size);
}

} // namespace bench
