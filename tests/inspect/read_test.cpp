#include <algorithm>
#include <array>
#include <cstdio>
#include <cstring>
#include <gtest/gtest.h>
#include <pcap/pcap.h>
#include <string>
#include <tins/tins.h>
#include <unistd.h>
#include <vector>

#include "inspect/capture.h"
#include "inspect/run_zel.h"
#include "inspect/source.h"
#include "zel_platform/default_layer.h"
#include "zel_protocol/zel_protocol.h"

using namespace inspect;
using test::Folder;
using test::Ran;
using test::runZel;

namespace {

std::string text(const std::string& value)
{
    return "<?xml version=\"1.0\" encoding=\"GB2312\" ?>\n<XML_ZELMAR>\n<MESSAGE_HEADER\nMsg_flag=\"" +
           value + "\"\n/>\n</XML_ZELMAR>";
}

std::string framed(const std::string& payload, int type = ZEL_FRAME_PLAIN)
{
    std::string frame(ZEL_FRAME_HEAD_SIZE, '\0');
    ZelProtocolFrameHeadWrite(frame.data(), type, static_cast<std::uint32_t>(payload.size()));
    return frame + payload;
}

// What was found, a line for each: "offset payload" or "offset ! damage".
struct Log
{
    std::vector<std::string> lines;
    std::vector<double> times;
    std::vector<std::string> routes;

    Receive receive()
    {
        return [this](const Found& found) {
            const std::string what =
                found.damage.empty() ? std::string(found.payload) : "! " + std::string(found.damage);
            const bool isPlaced = found.offset != Found::kNoOffset;
            lines.push_back((isPlaced ? std::to_string(found.offset) + " " : "") +
                            (found.isEnciphered ? "enciphered " : "") + (found.isBare ? "bare " : "") + what);
            times.push_back(found.time);
            routes.push_back(std::string(found.from) + " > " + std::string(found.to));
        };
    }
};

using Lines = std::vector<std::string>;

std::string line(std::size_t offset, const std::string& what)
{
    return std::to_string(offset) + " " + what;
}

Lines linesOf(std::string_view bytes, Format format = Format::kGuessed)
{
    Log log;
    readBytes(bytes, format, log.receive());
    return log.lines;
}

Lines inChunks(const std::string& bytes, std::size_t size, Gaps gaps = Gaps::kAlways)
{
    Log log;
    FrameSplitter splitter(log.receive(), 1000, gaps);
    for (std::size_t at = 0; at < bytes.size(); at += size)
        splitter.take(std::string_view(bytes).substr(at, size));
    splitter.end();
    return log.lines;
}

TEST(Splitter, GivesTheSameInPiecesOfEverySize)
{
    const std::string first = framed(text("a") + std::string(4, '\0') + "raw");
    const std::string second = text("b");
    const std::string third = framed("ciphertext", ZEL_FRAME_ENCIPHERED);
    const std::string garbage = "X<?xWQ\x58\x91junk";
    const std::string fourth = framed(text("d"));
    const std::string bytes = first + second + "\n" + third + garbage + fourth + "X";
    const std::size_t thirdAt = first.size() + second.size() + 1;
    const std::size_t garbageAt = thirdAt + third.size();
    const Lines expected = {
        line(0, first.substr(8)),
        line(first.size(), "bare " + second),
        line(thirdAt, "enciphered ciphertext"),
        line(garbageAt, "! no message starts here; 12 bytes passed over"),
        line(garbageAt + 12, fourth.substr(8)),
        line(bytes.size() - 1, "! a message breaks off: it ends; 1 bytes passed over"),
    };
    for (std::size_t size = 1; size <= bytes.size(); ++size)
        ASSERT_EQ(inChunks(bytes, size), expected) << size;
}

TEST(Splitter, GoesOnAtTheNextFrameAfterDamage)
{
    const std::string frame = framed(text("a"));
    const std::string next = framed(text("b"));
    const std::size_t size = frame.size();

    std::string long1 = frame; // its length takes in the next one and a part of a third
    long1[4] = static_cast<char>(long1[4] + 100);
    EXPECT_EQ(linesOf(long1 + next + next),
              (Lines{line(0, "! a frame of " + std::to_string(size + 92) +
                                 " bytes, but another starts after " + std::to_string(size - 8)),
                     line(0, text("a")), line(size, text("b")), line(2 * size, text("b"))}));

    std::string cut = frame; // bytes went missing from a file, the next frame follows too early
    cut.erase(size - 20);
    EXPECT_EQ(linesOf(cut + next + next),
              (Lines{line(0, "! a frame of " + std::to_string(size - 8) +
                                 " bytes, but another starts after " + std::to_string(size - 28)),
                     line(size - 20, text("b")), line(2 * size - 20, text("b"))}));

    std::string short1 = frame;
    short1[4] = static_cast<char>(short1[4] - 10);
    EXPECT_EQ(
        linesOf(short1 + next),
        (Lines{line(0, text("a").substr(0, size - 18)),
               line(size - 10, "! no message starts here; 10 bytes passed over"), line(size, text("b"))}));

    std::string huge = frame;
    huge[7] = '\x7f';
    const std::string hugeNumber = std::to_string((0x7fu << 24) + size - 8);
    const Lines others = {line(8, "bare " + text("a")), line(size, text("b"))}; // the text is saved
    EXPECT_EQ(linesOf(huge + next), (Lines{line(0, "! a frame whose length can't be: " + hugeNumber +
                                                       " bytes; 8 bytes passed over"),
                                           others[0], others[1]}));
    huge[7] = '\0';
    huge[6] = '\x01'; // fits, but isn't there
    EXPECT_EQ(linesOf(huge + next),
              (Lines{line(0, "! of a frame of " + std::to_string((1u << 16) + size - 8) +
                                 " bytes there are only " + std::to_string(2 * size - 8) + ": it ends"),
                     others[0], others[1]}));

    for (std::size_t junk = 1; junk < 300; ++junk) // wherever it ends, the search finds the beginning
        EXPECT_EQ(linesOf(frame + std::string(junk, 'x') + next).back(), line(size + junk, text("b")));

    const std::string open = text("c").substr(0, 60);
    EXPECT_EQ(linesOf(open + text("d")),
              (Lines{line(0, "! a text without its closing tag"), line(60, "bare " + text("d"))}));
}

TEST(Splitter, MissingBytesCostNoOtherMessage)
{
    Log log;
    FrameSplitter splitter(log.receive());
    const std::string frame = framed(text("a"));
    splitter.take(frame + frame.substr(0, 50));
    splitter.lose(frame.size() - 50 + 7);
    splitter.take("behind" + frame);
    splitter.end();
    ASSERT_EQ(log.lines.size(), 3u);
    EXPECT_EQ(log.lines[1], line(frame.size(), "! of a frame of " + std::to_string(frame.size() - 8) +
                                                   " bytes there are only 42: bytes are missing"));
    EXPECT_EQ(log.lines[2], line(2 * frame.size() + 13, text("a")));
}

// What was searched of one text is nothing that was searched of the next.
TEST(Splitter, TextsThatBreakOffDontHideTheNext)
{
    Log log;
    FrameSplitter splitter(log.receive());
    const std::string frame = framed(text("a") + std::string(100, '\0'));
    splitter.take(frame.substr(0, 90) + std::string(100, 'x'));
    splitter.lose(1);
    splitter.take(text("b").substr(0, 70) + text("c"));
    EXPECT_EQ(log.lines.back(), line(261, "bare " + text("c")));
}

TEST(Splitter, OtherProtocolsAreNoDamage)
{
    const std::string other = "GET / HTTP/1.1\r\n\r\n<?xml version=\"1.0\"?><Envelope></Envelope>";
    EXPECT_EQ(inChunks(other, 7, Gaps::kOnceFound), Lines());
    EXPECT_EQ(inChunks(other + framed(text("a")), 7, Gaps::kOnceFound).size(), 2u);
    EXPECT_EQ(inChunks(other + framed(text("a")), 7, Gaps::kAfterFirst).size(), 1u);
    EXPECT_EQ(inChunks(other + text("a") + "12:00 a line\n" + text("b"), 7, Gaps::kNever).size(), 2u);
}

TEST(Splitter, HostileBytesCostNeitherMemoryNorTime)
{
    std::size_t most = 0;
    for (const std::string& piece :
         {std::string("\x58\x91\x58\x51\xff\xff\x0f\0<", 9), std::string("<XML_ZELMAR"), std::string("<?xml"),
          std::string("\x57\x81\x59\x52\x01\0\0\0x!", 10)}) {
        FrameSplitter splitter([](const Found&) {}, 1u << 20);
        std::string bytes;
        while (bytes.size() < 4u << 20)
            bytes += piece;
        for (std::size_t at = 0; at < bytes.size(); at += 1400) {
            splitter.take(std::string_view(bytes).substr(at, 1400));
            most = std::max(most, splitter.held());
        }
        splitter.end();
    }
    EXPECT_LT(most, 3u << 20);
}

// Forms of a hex dump of the same bytes, as their programs print them.

std::string hexByte(char c)
{
    std::array<char, 3> digits{};
    std::snprintf(digits.data(), digits.size(), "%02x", static_cast<unsigned>(static_cast<unsigned char>(c)));
    return digits.data();
}

std::string offsetText(int width, std::size_t offset)
{
    std::array<char, 24> digits{};
    std::snprintf(digits.data(), digits.size(), "%0*zx", width, offset);
    return digits.data();
}

std::string printable(std::string_view bytes)
{
    std::string result(bytes);
    for (char& c : result)
        c = c < ' ' || c > '~' ? '.' : c;
    return result;
}

enum class Style
{
    kXxd,
    kCanonical,
    kWords,
    kTcpdump,
    kAnalyser
};

std::string dump(const std::string& bytes, Style style)
{
    std::string result;
    for (std::size_t at = 0; at < bytes.size(); at += 16) {
        const std::string_view row = std::string_view(bytes).substr(at, 16);
        std::string digits;
        for (std::size_t i = 0; i < row.size(); ++i) {
            const bool isPaired = style == Style::kXxd || style == Style::kTcpdump;
            if (style == Style::kWords) {
                const char high = (i | 1) < row.size() ? row[i | 1] : '\0';
                digits += i % 2 == 0 ? " " + hexByte(high) + hexByte(row[i]) : "";
            } else {
                digits += (isPaired && i % 2 == 1 ? "" : " ") + hexByte(row[i]);
                digits += style == Style::kCanonical && i == 7 ? " " : "";
            }
        }
        if (style != Style::kWords)
            digits.resize(style == Style::kXxd || style == Style::kTcpdump ? 40 : 49, ' ');
        switch (style) {
        case Style::kXxd:
            result += offsetText(8, at) + ":" + digits + "  " + printable(row);
            break;
        case Style::kCanonical:
            result += offsetText(8, at) + " " + digits + "  |" + printable(row) + "|";
            break;
        case Style::kWords:
            result += offsetText(7, at) + digits;
            break;
        case Style::kTcpdump:
            result += "\t0x" + offsetText(4, at) + ": " + digits + "  " + printable(row);
            break;
        case Style::kAnalyser:
            result += offsetText(4, at) + " " + digits + "   " + printable(row);
            break;
        }
        result += '\n';
    }
    if (style == Style::kCanonical || style == Style::kWords)
        result += offsetText(style == Style::kWords ? 7 : 8, bytes.size()) + "\n";
    return result;
}

TEST(Hex, EveryFormGivesTheSame)
{
    // Odd in length, with texts of digits where the characters stand.
    const std::string bytes = framed(text("ab cd ef 01  23")) + framed(text("deadbeef deadbeef"));
    const Lines expected = linesOf(bytes);
    ASSERT_EQ(expected.size(), 2u);
    for (const Style style :
         {Style::kXxd, Style::kCanonical, Style::kWords, Style::kTcpdump, Style::kAnalyser})
        EXPECT_EQ(linesOf(dump(bytes, style)), expected) << dump(bytes, style);

    std::string plain;
    std::string source = "static const unsigned char message[] = {\n";
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        plain += hexByte(bytes[i]) + (i % 30 == 29 ? "\n" : "");
        source += "0x" + hexByte(bytes[i]) + (i % 12 == 11 ? ",\n" : ", ");
    }
    EXPECT_EQ(linesOf(plain + "\n"), expected);
    EXPECT_EQ(linesOf(source + "};\n"), expected);
    plain.erase(std::remove(plain.begin(), plain.end(), '\n'), plain.end());
    EXPECT_EQ(linesOf(plain), expected);
}

TEST(Hex, RepeatedAndMissingLines)
{
    const std::string bytes =
        framed(text("a") + std::string(4, '\0') + std::string(160, 'z')) + framed(text("b"));
    const std::string whole = dump(bytes, Style::kCanonical);
    const std::string zeds = "|zzzzzzzzzzzzzzzz|";
    std::string starred;
    std::string holed;
    bool wasRow = false;
    for (std::size_t at = 0, end = 0; (end = whole.find('\n', at)) != std::string::npos; at = end + 1) {
        const std::string row = whole.substr(at, end + 1 - at);
        const bool isRow = row.find(zeds) != std::string::npos;
        starred += !isRow || !wasRow ? row : "*\n";
        holed += isRow && !wasRow ? "" : row;
        wasRow = isRow;
    }
    EXPECT_NE(starred.find("*\n"), std::string::npos);
    EXPECT_EQ(linesOf(starred), linesOf(bytes));
    const Lines damaged = linesOf(holed);
    ASSERT_GE(damaged.size(), 2u);
    EXPECT_NE(damaged.front().find(": 16 bytes are missing before it"), std::string::npos);
    EXPECT_EQ(damaged.back(), linesOf(bytes).back());

    EXPECT_EQ(linesOf("58 91 58 51\nnothing\n58 9\n").size(), 3u);
    EXPECT_EQ(linesOf("", Format::kHex), (Lines{"! it is empty"}));
    EXPECT_EQ(linesOf("nothing\n", Format::kHex), (Lines{"! line 1: no hexadecimal digits in it"}));
}

// Captures.

using Tins::EthernetII;
using Tins::IP;
using Tins::RawPDU;
using Tins::TCP;

// One direction of a connection.
struct Sender
{
    std::string from = "10.0.0.5", to = "10.0.0.7";
    std::uint16_t fromPort = 8000, toPort = 4000;
    std::uint32_t initial = 0xfffffff0; // goes past the end of the numbers

    IP segment(std::size_t at, const std::string& data, unsigned flags = TCP::ACK) const
    {
        TCP tcp(toPort, fromPort);
        tcp.seq(initial + static_cast<std::uint32_t>(at));
        tcp.flags(static_cast<std::uint16_t>(flags));
        IP packet = IP(to, from) / tcp;
        if (!data.empty())
            packet /= RawPDU(data);
        return packet;
    }
    IP start() const
    {
        Sender before = *this;
        before.initial -= 1;
        return before.segment(0, "", TCP::SYN);
    }
};

struct Taken
{
    Log log;
    double time = 1700000000;
    Capture capture;

    explicit Taken(const CaptureLimits& limits = {}) : capture(log.receive(), limits) {}

    Taken& take(Tins::PDU& packet, int link = DLT_RAW, std::size_t missing = 0)
    {
        const std::vector<std::uint8_t> bytes = packet.serialize();
        time += 0.01;
        capture.take(time, link, {reinterpret_cast<const char*>(bytes.data()), bytes.size() - missing},
                     missing);
        return *this;
    }
    Taken& take(Tins::PDU&& packet, int link = DLT_RAW, std::size_t missing = 0)
    {
        return take(packet, link, missing);
    }
    const Lines& lines()
    {
        capture.end();
        return log.lines;
    }
};

// 50 messages in pieces of 100 bytes that don't heed the frames.
struct Stream
{
    std::string bytes;
    Lines expected;
    std::vector<IP> segments;

    explicit Stream(const Sender& sender = {})
    {
        for (int i = 0; i < 50; ++i) {
            expected.push_back(line(bytes.size(), text(std::to_string(i))));
            bytes += framed(text(std::to_string(i)));
        }
        for (std::size_t at = 0; at < bytes.size(); at += 100)
            segments.push_back(sender.segment(at, bytes.substr(at, 100)));
    }
};

TEST(CaptureReading, SegmentsComeInAnyOrderAndTwice)
{
    const Sender sender;
    Stream stream(sender);
    CaptureLimits limits;
    limits.waiting = 500; // at once, however many there are in all
    Taken taken(limits);
    taken.take(sender.start()).take(sender.start());
    // In turn: four backwards, then overlapping ones that were there already.
    for (std::size_t i = 0; i < stream.segments.size(); i += 4) {
        for (std::size_t k = std::min(i + 4, stream.segments.size()); k > i; --k)
            taken.take(stream.segments[k - 1]);
        taken.take(sender.segment(i * 100 + 50, stream.bytes.substr(i * 100 + 50, 130)));
    }
    taken.take(sender.segment(stream.bytes.size(), "", TCP::FIN | TCP::ACK));
    taken.take(stream.segments.back()); // after the end
    EXPECT_EQ(taken.log.lines, stream.expected);
    EXPECT_EQ(taken.log.routes.front(), "10.0.0.5:8000 > 10.0.0.7:4000");
    EXPECT_GT(taken.log.times.back(), taken.log.times.front());
    EXPECT_EQ(taken.capture.held(), 0u);
}

TEST(CaptureReading, ALostSegmentCostsItsMessagesOnly)
{
    const Sender sender;
    Stream stream(sender);
    Taken taken;
    taken.take(sender.start());
    for (std::size_t i = 0; i < stream.segments.size(); ++i)
        if (i != 20)
            taken.take(stream.segments[i]);
    Lines lines = taken.lines();
    const auto isDamage = [](const std::string& one) { return one.find(" ! ") != std::string::npos; };
    EXPECT_EQ(std::count_if(lines.begin(), lines.end(), isDamage), 1);
    lines.erase(std::remove_if(lines.begin(), lines.end(), isDamage), lines.end());
    EXPECT_GE(lines.size(), stream.expected.size() - 2);
    for (const std::string& one : lines)
        EXPECT_NE(std::find(stream.expected.begin(), stream.expected.end(), one), stream.expected.end())
            << one;

    // It isn't waited for beyond some time or some bytes.
    CaptureLimits limits;
    limits.segments = 3;
    Taken bounded(limits);
    bounded.take(stream.segments[0]);
    for (std::size_t i = 2; i < 12; ++i)
        bounded.take(stream.segments[i]);
    EXPECT_GE(bounded.log.lines.size(), 5u);
}

TEST(CaptureReading, JoinedMidwayAndBothDirections)
{
    const Sender there;
    const Sender back{"10.0.0.7", "10.0.0.5", 4000, 8000, 77};
    Stream stream(there);
    Stream answers(back);
    Taken taken;
    for (std::size_t i = 3; i < stream.segments.size(); ++i)
        taken.take(stream.segments[i]).take(answers.segments[i]);
    const Lines lines = taken.lines();
    EXPECT_GT(lines.size(), 90u);
    for (const std::string& one : lines)
        EXPECT_EQ(one.find(" ! "), std::string::npos) << one;
    EXPECT_EQ(std::count(taken.log.routes.begin(), taken.log.routes.end(), "10.0.0.7:4000 > 10.0.0.5:8000"),
              static_cast<std::ptrdiff_t>(lines.size() / 2));
}

TEST(CaptureReading, CutPacketsAreHolesAtOnce)
{
    const Sender sender;
    const std::string frame = framed(text("a"));
    Taken taken;
    taken.take(sender.start())
        .take(sender.segment(0, frame + frame), DLT_RAW, 10)
        .take(sender.segment(2 * frame.size(), frame));
    ASSERT_EQ(taken.log.lines.size(), 3u);
    EXPECT_EQ(taken.log.lines.back(), line(2 * frame.size(), text("a")));
}

template <class Make>
void expectMessage(int link, Make make)
{
    SCOPED_TRACE(pcap_datalink_val_to_name(link));
    const Sender sender;
    Taken taken;
    const auto packet = make(sender.segment(0, framed(text("a"))));
    std::vector<std::uint8_t> bytes = packet;
    taken.capture.take(1, link, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    EXPECT_EQ(taken.lines(), (Lines{line(0, text("a"))}));
    EXPECT_TRUE(Capture::knows(link));
}

TEST(CaptureReading, LinkTypes)
{
    using Bytes = std::vector<std::uint8_t>;
    const auto behind = [](Bytes head) {
        return [head](IP ip) {
            Bytes bytes = head;
            const Bytes rest = ip.serialize();
            bytes.insert(bytes.end(), rest.begin(), rest.end());
            return bytes;
        };
    };
    expectMessage(DLT_RAW, behind({}));
    expectMessage(DLT_EN10MB, [](const IP& ip) { return (EthernetII() / ip).serialize(); });
    expectMessage(DLT_EN10MB, [](const IP& ip) { return (EthernetII() / Tins::Dot1Q(7) / ip).serialize(); });
    expectMessage(DLT_NULL, behind({2, 0, 0, 0}));
    expectMessage(DLT_LOOP, behind({0, 0, 0, 2}));
    expectMessage(DLT_LINUX_SLL, [](const IP& ip) { return (Tins::SLL() / ip).serialize(); });
    expectMessage(DLT_LINUX_SLL2, behind({8, 0, 0, 0, 0, 0, 0, 1, 0, 1, 0, 6, 0, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_FALSE(Capture::knows(DLT_USB_LINUX));

    Taken six;
    Tins::IPv6 packet = Tins::IPv6("fe80::2", "fe80::1") / TCP(1, 2) / RawPDU(framed(text("a")));
    EXPECT_EQ(six.take(packet).lines(), (Lines{line(0, text("a"))}));
    EXPECT_EQ(six.log.routes.front(), "[fe80::1]:2 > [fe80::2]:1");
}

TEST(CaptureReading, DatagramsWholeAndInFragments)
{
    Taken taken;
    const auto datagram = [](const std::string& data) {
        return IP("239.0.0.1", "10.0.0.5") / Tins::UDP(9000, 9001) / RawPDU(data);
    };
    taken.take(datagram(text("a"))).take(datagram(framed(text("b")))).take(datagram("other"));
    taken.take(datagram("<?xml version=\"1.0\"?><Probe/>"));
    IP whole = datagram(text("c"));
    const std::vector<std::uint8_t> bytes = whole.serialize();
    for (const std::size_t at : {64u, 0u}) { // the second first
        IP fragment("239.0.0.1", "10.0.0.5");
        fragment.id(5);
        fragment.protocol(17);
        fragment.fragment_offset(static_cast<std::uint16_t>(at / 8));
        fragment.flags(at == 0 ? IP::MORE_FRAGMENTS : static_cast<IP::Flags>(0));
        const std::string payload(bytes.begin() + 20, bytes.end());
        taken.take(fragment / RawPDU(payload.substr(at, at == 0 ? 64 : std::string::npos)));
    }
    EXPECT_EQ(taken.lines(), (Lines{"0 bare " + text("a"), line(0, text("b")), "0 bare " + text("c")}));
}

TEST(CaptureReading, MemoryIsBounded)
{
    CaptureLimits limits;
    limits.flows = 10;
    limits.bytes = 100000;
    limits.idle = 5;
    Taken taken(limits);
    const std::string half = framed(std::string(60000, 'x')).substr(0, 30000);
    std::size_t most = 0;
    for (std::uint16_t port = 1; port < 100; ++port) {
        Sender sender;
        sender.fromPort = port;
        taken.take(sender.segment(0, half)).take(sender.segment(90000, half));
        most = std::max(most, taken.capture.held());
        EXPECT_LE(taken.capture.flows(), 10u);
    }
    EXPECT_LE(most, 100000u);
    EXPECT_GT(most, 50000u);
    taken.time += 60;
    taken.take(Sender().segment(0, "x"));
    EXPECT_EQ(taken.capture.flows(), 1u);
}

// pcapng: a section, an interface, the packets. The same file cut is damage behind the last whole packet.
TEST(CaptureReading, Files)
{
    const auto number = [](std::uint32_t value) {
        std::string bytes(4, '\0');
        std::memcpy(bytes.data(), &value, 4);
        return bytes;
    };
    const auto block = [&](std::uint32_t type, std::string body) {
        body.resize((body.size() + 3) / 4 * 4);
        const std::string size = number(static_cast<std::uint32_t>(body.size() + 12));
        return number(type) + size + body + size;
    };
    std::string file = block(0x0a0d0d0a, number(0x1a2b3c4d) + number(1) + std::string(8, '\xff')) +
                       block(1, number(DLT_RAW) + number(0));
    const Sender sender;
    const std::string frame = framed(text("a"));
    for (std::size_t i = 0; i < 3; ++i) {
        const std::vector<std::uint8_t> bytes = sender.segment(i * frame.size(), frame).serialize();
        const std::string size = number(static_cast<std::uint32_t>(bytes.size()));
        file += block(6, number(0) + number(0) + number(1500000) + size + size +
                             std::string(bytes.begin(), bytes.end()));
    }
    Log log;
    readBytes(file, Format::kGuessed, log.receive());
    EXPECT_EQ(log.lines.size(), 3u);
    EXPECT_DOUBLE_EQ(log.times.front(), 1.5);
    const Lines cut = linesOf(file.substr(0, file.size() - 9));
    ASSERT_EQ(cut.size(), 3u);
    EXPECT_EQ(cut.back().substr(0, 18), "! behind packet 2:");
    EXPECT_THROW(linesOf(file.substr(0, 20)), std::runtime_error);
    EXPECT_THROW(linesOf("nothing", Format::kCapture), std::runtime_error);

    // What tcpdump prints of packets.
    std::string printed;
    for (std::size_t i = 0; i < 2; ++i) {
        const std::vector<std::uint8_t> bytes = sender.segment(i * frame.size(), frame).serialize();
        printed += std::to_string(1700000000 + i) +
                   ".250000 IP 10.0.0.5.8000 > 10.0.0.7.4000: Flags [.], length 99\n" +
                   dump(std::string(bytes.begin(), bytes.end()), Style::kTcpdump);
    }
    Log second;
    readBytes(printed, Format::kGuessed, second.receive());
    EXPECT_EQ(second.lines, (Lines{line(0, text("a")), line(frame.size(), text("a"))}));
    EXPECT_EQ(second.times, (std::vector<double>{1700000000.25, 1700000001.25}));
}

// Whoever waits at a pipe is shown what came: here it ends only when a message was found.
TEST(Reading, APipeThatPausesIsShown)
{
    const auto found = [](const std::string& bytes, Format format) {
        int ends[2];
        EXPECT_EQ(pipe(ends), 0);
        EXPECT_EQ(write(ends[1], bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
        Lines lines;
        readFile("/dev/fd/" + std::to_string(ends[0]), format,
                 [&](const Found& one) {
                     lines.emplace_back(one.payload);
                     close(ends[1]);
                 },
                 {});
        close(ends[0]);
        return lines;
    };
    EXPECT_EQ(found(framed(text("a")), Format::kGuessed), Lines{text("a")});
    EXPECT_EQ(found(text("a") + "\n", Format::kText), Lines{text("a")});
}

// The program.

std::string message(const char* type, const char* code, const void* record, ZEL_PLATFORM_KEY* key = nullptr)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    std::strcpy(header.Msg_type, type);
    std::strcpy(header.Msg_code, code);
    std::string bytes(4096, '\0');
    const int size = ZelProtocolXMLCompose(&header, record, ZEL_KIND_REQUEST, key ? 1 : ZEL_CODEC_PLAIN, key,
                                           bytes.data(), static_cast<int>(bytes.size()));
    EXPECT_GT(size, 0);
    bytes.resize(static_cast<std::size_t>(std::max(size, 0)));
    return bytes;
}

std::string jump(ZEL_PLATFORM_KEY* key = nullptr)
{
    NVR_REPLAY_3010_PARAM record;
    NVR_REPLAY_3010_PARAM_init(&record);
    record.ChannelId = 2;
    return message("NVR_REPLAY_MESSAGE", "3010", &record, key);
}

std::string login()
{
    USER_AUTH_CMD_USER_AUTH_PARAM record;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&record);
    std::strcpy(record.Password, "correct horse");
    return message("USER_AUTH_MESSAGE", "CMD_USER_AUTH", &record);
}

const std::string kJump =
    R"("type":"NVR_REPLAY_MESSAGE","code":"3010","kind":"request","record":{"ChannelId":2}})";

std::string sized(std::size_t offset, const std::string& frame)
{
    return R"({"offset":)" + std::to_string(offset) + R"(,"size":)" + std::to_string(frame.size() - 8) + ",";
}

TEST(ReadCommand, MessagesGoOutAndDamageBeside)
{
    const Folder folder;
    const std::string frame = jump();
    const std::string chunk = [] {
        MEDIA_DATA_1_PARAM record;
        MEDIA_DATA_1_PARAM_init(&record);
        record.DataLen = 5;
        return message("MEDIA_DATA_MESSAGE", "1", &record) + std::string("\0\0\0\0bytes", 9);
    }();
    folder.write("stream", frame + "junk" + chunk);
    const Ran read = runZel(folder, "read --json stream");
    EXPECT_EQ(read.status, 1);
    EXPECT_EQ(read.err, "zel: stream: byte " + std::to_string(frame.size()) +
                            ": no message starts here; 4 bytes passed over\n");
    EXPECT_EQ(read.out,
              sized(0, frame) + kJump + "\n" + sized(frame.size() + 4, chunk) +
                  R"("type":"MEDIA_DATA_MESSAGE","code":"1","kind":"request","record":{"DataLen":5},)" +
                  R"("dataLength":5})" + "\n");

    folder.write("good", frame);
    EXPECT_EQ(runZel(folder, "read good").status, 0);
    const Ran two = runZel(folder, "read --json good nothing good");
    EXPECT_EQ(two.status, 2);
    EXPECT_EQ(two.err, "zel: nothing: No such file or directory\n");
    EXPECT_EQ(std::count(two.out.begin(), two.out.end(), '\n'), 2);
    EXPECT_EQ(two.out.substr(0, 15), R"({"file":"good",)");
    EXPECT_EQ(runZel(folder, "read").status, 2);
    EXPECT_EQ(runZel(folder, "read --format nonsense good").status, 2);

    folder.write("dump", dump(frame, Style::kXxd));
    EXPECT_EQ(runZel(folder, "read --json - <dump").out, sized(0, frame) + kJump + "\n");
}

TEST(ReadCommand, ManyMessagesStayInOrder)
{
    const Folder folder;
    const std::string frame = jump();
    std::string stream;
    std::string expected;
    for (int i = 0; i < 10000; ++i) {
        expected += sized(stream.size(), frame) + kJump + "\n";
        stream += frame;
    }
    folder.write("stream", stream);
    EXPECT_EQ(runZel(folder, "read --json stream").out, expected);
}

TEST(ReadCommand, SecretsAndCiphers)
{
    const Folder folder;
    folder.write("login", login());
    for (const std::string form : {"--json", ""}) {
        const Ran hidden = runZel(folder, "read login " + form);
        EXPECT_EQ(hidden.out.find("horse"), std::string::npos);
        EXPECT_NE(hidden.out.find("***"), std::string::npos);
        EXPECT_NE(runZel(folder, "read login --show-secrets " + form).out.find("correct horse"),
                  std::string::npos);
    }

    ZEL_PLATFORM_KEY key = {{1, 2, 3}};
    folder.write("key", std::string(reinterpret_cast<const char*>(key.bytes), sizeof key.bytes));
    folder.write("other", std::string(32, 'x'));
    folder.write("enciphered", jump(&key));
    const Ran opened = runZel(folder, "read --json --key-file key enciphered");
    EXPECT_EQ(opened.status, 0);
    EXPECT_NE(opened.out.find(R"("enciphered":true,)" + kJump), std::string::npos) << opened.out;
    const Ran closed = runZel(folder, "read enciphered");
    EXPECT_EQ(closed.status, 0);
    EXPECT_NE(closed.out.find("enciphered: no key"), std::string::npos);
    const Ran wrong = runZel(folder, "read --key-file other enciphered");
    EXPECT_EQ(wrong.status, 1);
    EXPECT_NE(wrong.err.find("enciphered: byte 0: "), std::string::npos);
    EXPECT_EQ(runZel(folder, "read --key-file nothing enciphered").status, 2);
}

TEST(ReadCommand, Filters)
{
    const Folder folder;
    const Sender sender;
    {
        Tins::PacketWriter writer((folder.path / "capture").string(), Tins::DataLinkType<EthernetII>());
        EthernetII first = EthernetII() / sender.segment(0, jump() + login());
        EthernetII second =
            EthernetII() / Tins::IPv6("fe80::7", "fe80::5") / TCP(4000, 8000) / RawPDU(jump());
        writer.write(first);
        writer.write(second);
    }
    const auto count = [&](const std::string& filter) {
        const Ran read = runZel(folder, "read --json capture " + filter);
        EXPECT_EQ(read.status, 0);
        return std::count(read.out.begin(), read.out.end(), '\n');
    };
    EXPECT_EQ(count(""), 3);
    EXPECT_EQ(count("--type NVR_REPLAY_MESSAGE"), 2);
    EXPECT_EQ(count("--code 3010 --code CMD_USER_AUTH"), 3);
    EXPECT_EQ(count("--type NVR_REPLAY_MESSAGE --code CMD_USER_AUTH"), 0);
    EXPECT_EQ(count("--address 10.0.0.5"), 2);
    EXPECT_EQ(count("--address 10.0.0.7:4000"), 2);
    EXPECT_EQ(count("--address 10.0.0.7:8000"), 0);
    EXPECT_EQ(count("--address fe80::7"), 1);
    EXPECT_EQ(count("--address 10.0.0"), 0);
}

} // namespace
