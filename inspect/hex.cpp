#include "inspect/hex.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <pcap/pcap.h>
#include <string>
#include <utility>
#include <vector>

#include "inspect/capture.h"

namespace inspect {

namespace {

constexpr std::string_view kBlanks = " \t\r";
constexpr std::string_view kSeparators = " \t\r,:;-{}()\"'";
constexpr std::size_t kLongestLine = 64u << 10; // longer ones come in parts
constexpr std::size_t kMostInDumpLine = 256;
constexpr std::size_t kLongestPacket = 256u << 10;
constexpr std::uint64_t kMostRepeated = 4u << 20; // bytes that stars stand for in a file

int digit(char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    const char lower = static_cast<char>(c | 0x20);
    return lower >= 'a' && lower <= 'f' ? lower - 'a' + 10 : -1;
}

// The digits at the front.
std::string_view digitsOf(std::string_view text)
{
    const auto end = std::find_if(text.begin(), text.end(), [](char c) { return digit(c) < 0; });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

bool dropPrefix(std::string_view& text)
{
    const bool isPrefixed = text.size() > 2 && (text[0] == '0' || text[0] == '\\') && (text[1] | 0x20) == 'x';
    if (isPrefixed)
        text.remove_prefix(2);
    return isPrefixed;
}

char byteOf(char high, char low)
{
    return static_cast<char>(digit(high) << 4 | digit(low));
}

// A line of a dump: an offset, then bytes.
struct DumpLine
{
    std::uint64_t offset = 0;
    std::string bytes;
    bool isSure = false; // nothing but a dump's line looks like this
};

std::optional<DumpLine> dumpLine(std::string_view line)
{
    DumpLine result;
    line.remove_prefix(std::min(line.size(), line.find_first_not_of(kBlanks)));
    const bool isPrefixed = dropPrefix(line);
    const std::string_view offset = digitsOf(line);
    line.remove_prefix(offset.size());
    const bool hasColon = !line.empty() && line.front() == ':';
    const bool isSpaced = line.empty() || kBlanks.find(line.front()) != std::string_view::npos;
    if (offset.size() < 4 || offset.size() > (hasColon ? 16u : 8u) || (!hasColon && !isSpaced))
        return std::nullopt;
    for (const char c : offset)
        result.offset = result.offset << 4 | static_cast<std::uint64_t>(digit(c));
    if (hasColon)
        line.remove_prefix(1);

    // Of words the two bytes are in the machine's order.
    bool areWords = (offset.size() == 6 || offset.size() == 7) && !hasColon;
    std::size_t firstGap = 0;
    while (result.bytes.size() < kMostInDumpLine) {
        const std::size_t gap = std::min(line.size(), line.find_first_not_of(kBlanks));
        const bool isWide = gap > 1 || (gap == 1 && line.front() == '\t');
        // Two blanks stand before the characters, and in some dumps in the middle of the bytes.
        if (result.bytes.empty())
            firstGap = gap;
        else if (isWide && (hasColon || gap > 2 || result.bytes.size() != 8))
            break;
        line.remove_prefix(gap);
        const std::string_view digits = digitsOf(line);
        line.remove_prefix(digits.size());
        if (digits.empty() || digits.size() % 2 != 0 || digits.size() > 32 ||
            (!line.empty() && kBlanks.find(line.front()) == std::string_view::npos))
            break;
        areWords = areWords && digits.size() == 4;
        for (std::size_t i = 0; i < digits.size(); i += 2)
            result.bytes += byteOf(digits[i], digits[i + 1]);
    }
    for (std::size_t i = 1; areWords && i < result.bytes.size(); i += 2)
        std::swap(result.bytes[i - 1], result.bytes[i]);
    result.isSure = !result.bytes.empty() && (hasColon || isPrefixed || result.offset == 0 || firstGap > 1);
    return result;
}

// Bytes of a line of nothing but digits. A digit that waits for its second is kept between a line's parts.
std::optional<std::string> plainBytes(std::string_view line, char& half)
{
    std::string bytes;
    while (!line.empty()) {
        if (kSeparators.find(line.front()) != std::string_view::npos) {
            line.remove_prefix(1);
            continue;
        }
        if (half == '\0')
            dropPrefix(line);
        if (digit(line.front()) < 0)
            return std::nullopt;
        if (half == '\0')
            half = line.front();
        else
            bytes += byteOf(std::exchange(half, '\0'), line.front());
        line.remove_prefix(1);
    }
    return bytes;
}

bool isPlain(std::string_view line)
{
    char half = '\0';
    const std::optional<std::string> bytes = plainBytes(line, half);
    return bytes && bytes->size() >= 4 && half == '\0';
}

// The link that a block of bytes was taken from, if it is a packet.
std::optional<int> packetLink(std::string_view bytes)
{
    const auto at = [&](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const auto number = [&](std::size_t i) { return static_cast<std::size_t>(at(i) << 8 | at(i + 1)); };
    if (bytes.size() >= 20 && at(0) >= 0x45 && at(0) <= 0x4f && number(2) >= 20)
        return DLT_RAW;
    if (bytes.size() >= 40 && at(0) >> 4 == 6 && number(4) <= bytes.size() - 40)
        return DLT_RAW;
    if (bytes.size() >= 34 && (number(12) == 0x0800 || number(12) == 0x86dd || number(12) == 0x8100))
        return DLT_EN10MB;
    return std::nullopt;
}

class HexReader
{
public:
    explicit HexReader(const Receive& receive) : m_receive(receive), m_splitter(receive), m_capture(receive)
    {}

    // A line, or a part of one that goes on.
    void take(std::string_view line, bool goesOn)
    {
        m_line += m_isNewLine ? 1 : 0;
        m_isNewLine = !goesOn;
        if (m_form == Form::kUnknown) {
            const std::optional<DumpLine> dump = dumpLine(line);
            if (dump && dump->isSure)
                m_form = Form::kDump;
            else if (isPlain(line) || goesOn)
                m_form = Form::kPlain;
            else
                describe(line);
        }
        if (m_form == Form::kDump)
            takeDump(line);
        else if (m_form == Form::kPlain)
            takePlain(line, goesOn);
    }

    void end()
    {
        endBlock();
        m_capture.end();
        if (m_form == Form::kUnknown)
            report("no hexadecimal digits in it");
    }

private:
    enum class Form
    {
        kUnknown,
        kDump,
        kPlain
    };

    void takePlain(std::string_view line, bool goesOn)
    {
        if (line.find('=') != std::string_view::npos) // a source's declaration
            return;
        const std::optional<std::string> bytes = plainBytes(line, m_half);
        if (!bytes || (!goesOn && m_half != '\0')) {
            m_half = '\0';
            report("no pairs of hexadecimal digits");
            return;
        }
        m_splitter.take(*bytes);
    }

    // What isn't a dump's line may be the description of a packet.
    void takeDump(std::string_view line)
    {
        if (line.substr(0, line.find_last_not_of(kBlanks) + 1) == "*") {
            m_isRepeated = true;
            return;
        }
        const std::optional<DumpLine> dump = dumpLine(line);
        if (!dump) {
            describe(line);
            return;
        }
        if (m_isFirst || (dump->offset == 0 && !dump->bytes.empty())) {
            endBlock();
            m_expected = dump->offset;
        }
        m_isFirst = false;
        if (dump->offset != m_expected)
            close(dump->offset);
        m_isRepeated = false;
        m_expected = dump->offset + dump->bytes.size();
        add(dump->bytes);
        if (!dump->bytes.empty())
            m_last = dump->bytes;
    }

    // Bytes between the last line and this offset: the last line again and again, or they are missing.
    void close(std::uint64_t offset)
    {
        const std::uint64_t count = offset - m_expected;
        if (offset < m_expected) {
            // The last word of a dump in words may be half there.
            if (m_expected - offset > 1)
                report("an offset below those before");
            return;
        }
        if (m_isRepeated && !m_last.empty() && count <= m_mayRepeat) {
            m_mayRepeat -= count;
            std::string bytes;
            while (bytes.size() < count)
                bytes += m_last;
            bytes.resize(static_cast<std::size_t>(count));
            add(bytes);
            return;
        }
        report(std::to_string(count) + " bytes are missing before it");
        m_isBroken = true;
        if (!m_isPacket)
            m_splitter.lose(count);
    }

    void add(std::string_view bytes)
    {
        if (m_isDecided && !m_isPacket) {
            m_splitter.take(bytes);
            return;
        }
        m_block += bytes;
        if (!m_isDecided && m_block.size() >= 64)
            decide();
        if (m_block.size() > kLongestPacket)
            m_block.resize(kLongestPacket);
    }

    void decide()
    {
        m_isDecided = true;
        m_isPacket = packetLink(m_block).has_value();
        if (!m_isPacket) {
            m_splitter.take(m_block);
            m_block.clear();
        }
    }

    void endBlock()
    {
        if (!m_isDecided && !m_block.empty())
            decide();
        if (!m_isPacket)
            m_splitter.end();
        else if (!m_isBroken)
            m_capture.take(m_time, *packetLink(m_block), m_block);
        m_block.clear();
        m_last.clear();
        m_isDecided = m_isPacket = m_isBroken = m_isRepeated = false;
        m_time = m_nextTime;
    }

    // Its time is of use where it counts the seconds since 1970.
    void describe(std::string_view line)
    {
        char* end = nullptr;
        const std::string text(line.substr(0, 32));
        const double time = std::strtod(text.c_str(), &end);
        if (time < 1e8 || time > 1e11 || *end != ' ')
            return;
        m_nextTime = time;
    }

    void report(const std::string& damage)
    {
        reportDamage(m_receive, "line " + std::to_string(m_line) + ": " + damage);
    }

    const Receive& m_receive;
    FrameSplitter m_splitter;
    Capture m_capture;
    Form m_form = Form::kUnknown;
    std::uint64_t m_line = 0;
    bool m_isNewLine = true;
    char m_half = '\0';
    bool m_isFirst = true;
    std::uint64_t m_expected = 0; // the next line's offset
    bool m_isRepeated = false;
    std::uint64_t m_mayRepeat = kMostRepeated;
    std::string m_last;
    // The bytes from one offset 0 to the next: a packet, or a part of a stream.
    std::string m_block;
    bool m_isDecided = false;
    bool m_isPacket = false;
    bool m_isBroken = false;
    double m_time = 0;
    double m_nextTime = 0;
};

} // namespace

bool isHexDump(std::string_view beginning)
{
    constexpr int kLooksAt = 8; // lines
    for (int i = 0; i < kLooksAt && !beginning.empty(); ++i) {
        const std::size_t end = beginning.find('\n');
        const std::string_view line = beginning.substr(0, end);
        const std::optional<DumpLine> dump = dumpLine(line);
        // Of a line that goes on half a byte may be seen.
        const std::string_view pairs =
            end == std::string_view::npos ? line.substr(0, line.size() & ~1u) : line;
        if ((dump && dump->isSure) || isPlain(pairs))
            return true;
        beginning.remove_prefix(end == std::string_view::npos ? beginning.size() : end + 1);
    }
    return false;
}

void readHex(Input& input, const Receive& receive)
{
    HexReader reader(receive);
    std::vector<char> chunk(kLongestLine);
    std::string line;
    while (const std::size_t count = input.read(chunk.data(), chunk.size())) {
        std::string_view bytes(chunk.data(), count);
        for (std::size_t end = bytes.find('\n'); end != std::string_view::npos; end = bytes.find('\n')) {
            line += bytes.substr(0, end);
            reader.take(line, false);
            line.clear();
            bytes.remove_prefix(end + 1);
        }
        line += bytes;
        if (line.size() >= kLongestLine) {
            reader.take(line, true);
            line.clear();
        }
    }
    if (!line.empty())
        reader.take(line, false);
    reader.end();
}

} // namespace inspect
