#include <algorithm>
#include <array>
#include <utility>

#include "inspect/source.h"
#include "zel_protocol/frame.h"

namespace inspect {

namespace {

constexpr std::string_view kDeclaration = "<?xml";
constexpr std::string_view kOpeningTag = "<XML_ZELMAR";
constexpr std::string_view kClosingTag = "</XML_ZELMAR>";
constexpr std::string_view kRootName = "XML_ZELMAR";
constexpr std::array<std::string_view, 4> kBeginnings = {"\x58\x91\x58\x51", "\x57\x81\x59\x52", kDeclaration,
                                                         kOpeningTag};
constexpr std::size_t kLongestBeginning = kOpeningTag.size();
constexpr std::size_t kLongestDeclaration = 256;
constexpr std::size_t kLongestText = 1u << 20; // without a frame
constexpr std::size_t kKeptRoom = 64u << 10;

bool isBlank(char c)
{
    return c == ' ' || c == '\n' || c == '\r' || c == '\t' || c == '\0';
}

bool isStartOf(std::string_view part, std::string_view whole)
{
    return part.size() < whole.size() && whole.substr(0, part.size()) == part;
}

bool startsWith(std::string_view text, std::string_view start)
{
    return text.substr(0, start.size()) == start;
}

std::size_t pastBlanks(std::string_view bytes, std::size_t at)
{
    while (at < bytes.size() && isBlank(bytes[at]))
        ++at;
    return at;
}

std::uint32_t lengthInHead(std::string_view bytes)
{
    std::uint32_t length = 0;
    for (std::size_t i = ZEL_FRAME_HEAD_SIZE; i > 4; --i)
        length = length << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return length;
}

} // namespace

// What the first bytes of a message say of it.
struct FrameSplitter::Start
{
    enum Kind : std::uint8_t
    {
        kNone,
        kPart, // more bytes are needed to tell
        kFrame,
        kText
    };
    Kind kind = kNone;
    bool isEnciphered = false;
    bool hasBadLength = false;
    std::int32_t length = -1; // of a frame's payload
    std::size_t root = 0;     // where a text's opening tag is

    static Start ofText(std::string_view bytes)
    {
        if (isStartOf(bytes, kDeclaration) || isStartOf(bytes, kOpeningTag))
            return {kPart};
        std::size_t root = 0;
        if (startsWith(bytes, kDeclaration)) {
            const std::string_view head = bytes.substr(0, kLongestDeclaration);
            const std::size_t end = head.find_first_of("<>", kDeclaration.size());
            if (end == std::string_view::npos)
                return {bytes.size() < kLongestDeclaration ? kPart : kNone};
            root = pastBlanks(head, end + 1);
            if (head[end] == '<' || (root == head.size() && root == kLongestDeclaration))
                return {};
        }
        const std::string_view tag = bytes.substr(root);
        if (startsWith(tag, kOpeningTag))
            return {kText, false, false, -1, root};
        return {isStartOf(tag, kOpeningTag) ? kPart : kNone};
    }
};

FrameSplitter::FrameSplitter(Receive receive, std::size_t longest, Gaps gaps)
    : m_receive(std::move(receive)), m_longest(std::min<std::size_t>(longest, INT32_MAX)), m_gaps(gaps)
{}

// Behind a gap a plain frame has to begin like a text too: its four bytes may be a part of anything there.
FrameSplitter::Start FrameSplitter::startOf(std::string_view bytes) const
{
    if (bytes.front() == '<')
        return Start::ofText(bytes);
    ZEL_FRAME_HEAD head;
    const int count = static_cast<int>(std::min<std::size_t>(bytes.size(), ZEL_FRAME_HEAD_SIZE));
    const int found = ZelProtocolFrameHeadRead(bytes.data(), count, static_cast<int>(m_longest), &head);
    Start start{Start::kPart, head.iType == ZEL_FRAME_ENCIPHERED, found == ZEL_ERR_BAD_CONTENT, head.iLength,
                0};
    if (found < 0)
        start.kind = Start::kNone;
    else if (found > 0 && (!m_isInGap || start.isEnciphered))
        start.kind = Start::kFrame;
    else if (found > 0 && bytes.size() > ZEL_FRAME_HEAD_SIZE)
        start.kind = bytes[ZEL_FRAME_HEAD_SIZE] == '<' ? Start::kFrame : Start::kNone;
    return start;
}

// The next place that may be a message's start; the end where there is none. Goes by windows that grow, so
// that one beginning that is nowhere isn't looked for far beyond another that is near.
std::size_t FrameSplitter::findStart(std::string_view bytes, std::size_t from) const
{
    constexpr std::size_t kWidest = 4096;
    std::size_t width = 64;
    const std::size_t first = from;
    while (from < bytes.size()) {
        const std::size_t windowEnd = std::min(bytes.size(), from + width);
        const std::string_view window =
            bytes.substr(0, std::min(bytes.size(), windowEnd + kLongestBeginning - 1));
        std::size_t next = windowEnd;
        for (const std::string_view beginning : kBeginnings)
            next = std::min(next, window.substr(0, next + beginning.size() - 1).find(beginning, from));
        if (next < windowEnd && startOf(bytes.substr(next)).kind != Start::kNone)
            return next;
        from = next < windowEnd ? next + 1 : windowEnd;
        width = std::min(2 * width, kWidest);
    }
    // The last bytes may be the start of a beginning.
    const std::size_t tail = bytes.size() - std::min(bytes.size(), kLongestBeginning - 1);
    for (std::size_t at = std::max(tail, first); at < bytes.size(); ++at)
        if (startOf(bytes.substr(at)).kind == Start::kPart)
            return at;
    return bytes.size();
}

void FrameSplitter::take(std::string_view bytes)
{
    if (m_rest.empty()) {
        const std::size_t done = split(bytes);
        m_rest.assign(bytes.substr(done));
        return;
    }
    m_rest.append(bytes);
    m_done += split(std::string_view(m_rest).substr(m_done));
    // Moving the rest to the front for every message would cost too much where there are many in it.
    if (m_done < m_rest.size() / 2)
        return;
    m_rest.erase(0, std::exchange(m_done, 0));
    if (m_rest.capacity() > kKeptRoom && m_rest.size() < kKeptRoom)
        m_rest.shrink_to_fit();
}

// Gives what is whole. The result is the number of bytes that are done with.
std::size_t FrameSplitter::split(std::string_view bytes)
{
    std::size_t at = 0;
    while (at < bytes.size()) {
        const std::string_view rest = bytes.substr(at);
        const Start start = startOf(rest);
        std::size_t count = 0;
        if (start.kind == Start::kNone)
            count = skip(rest);
        else if (start.kind == Start::kFrame)
            count = splitFrame(rest, start);
        else if (start.kind == Start::kText)
            count = splitText(rest, start);
        if (count == 0)
            break;
        at += count;
        m_offset += count;
    }
    return at;
}

std::size_t FrameSplitter::splitFrame(std::string_view bytes, const Start& start)
{
    const std::size_t size = ZEL_FRAME_HEAD_SIZE + static_cast<std::size_t>(start.length);
    if (bytes.size() < size)
        return 0;
    std::string_view payload = bytes.substr(ZEL_FRAME_HEAD_SIZE, size - ZEL_FRAME_HEAD_SIZE);
    std::size_t taken = size;
    // Where no message starts behind it, but one within it, its length is wrong.
    if (bytes.size() > size && startOf(bytes.substr(size)).kind == Start::kNone) {
        const bool wasInGap = std::exchange(m_isInGap, true);
        const std::string_view within = bytes.substr(0, size + ZEL_FRAME_HEAD_SIZE);
        std::size_t inner = findStart(within, ZEL_FRAME_HEAD_SIZE + 1);
        while (inner < size && startOf(within.substr(inner)).kind != Start::kFrame)
            inner = findStart(within, inner + 1);
        m_isInGap = wasInGap;
        taken = std::min(inner, size);
    }
    if (taken < size) {
        payload = payload.substr(0, taken - ZEL_FRAME_HEAD_SIZE);
        giveBroken("a frame of " + std::to_string(start.length) + " bytes, but another starts after " +
                   std::to_string(payload.size()));
        if (start.isEnciphered || payload.find(kClosingTag) == std::string_view::npos)
            return taken;
    }
    give(payload, start.isEnciphered, false);
    return taken;
}

// A text names its root twice: as it opens and as it closes.
std::size_t FrameSplitter::splitText(std::string_view bytes, const Start& start)
{
    const std::string_view searched = bytes.substr(0, kLongestText);
    std::size_t name = searched.find(kRootName, std::max(start.root + kOpeningTag.size(), m_searched));
    while (name != std::string_view::npos && bytes[name - 1] != '<' && bytes[name - 1] != '/')
        name = searched.find(kRootName, name + 1);
    const std::size_t size = name == std::string_view::npos ? name : name + kRootName.size() + 1;
    // The name, or the bracket behind it, may still come.
    if (size > bytes.size() && bytes.size() < kLongestText) {
        m_searched = bytes.size() - std::min(bytes.size(), kRootName.size());
        return 0;
    }
    m_searched = 0;
    if (size <= bytes.size() && bytes.substr(name - 2, kClosingTag.size()) == kClosingTag) {
        give(bytes.substr(0, size), false, true);
        return size;
    }
    if (!isSaid())
        giveBroken("a text without its closing tag");
    openGap({}, true);
    return skip(bytes);
}

// Passes over bytes that no message starts with.
std::size_t FrameSplitter::skip(std::string_view bytes)
{
    if (!m_isInGap) {
        openGap(startOf(bytes).hasBadLength
                    ? "a frame whose length can't be: " + std::to_string(lengthInHead(bytes)) + " bytes"
                    : "no message starts here");
    }
    m_searched = 0;
    const std::size_t count = findStart(bytes, 1);
    if (m_gap.isBlank)
        m_gap.isBlank = pastBlanks(bytes.substr(0, count), 0) == count;
    m_gap.size += count;
    return count;
}

void FrameSplitter::lose(std::uint64_t count)
{
    breakOff("bytes are missing");
    openGap(std::to_string(count) + " bytes are missing");
    m_gap.isBlank = false;
    m_gap.size += count;
    m_offset += count;
}

void FrameSplitter::end()
{
    breakOff("it ends");
    closeGap(false);
}

// What waits for its rest won't get it. Whole messages within it are still given; others that are broken
// aren't worth a line.
void FrameSplitter::breakOff(const char* why)
{
    const std::string rest = std::exchange(m_rest, {});
    for (std::size_t at = std::exchange(m_done, 0); at < rest.size();) {
        const std::string_view bytes = std::string_view(rest).substr(at);
        const Start start = startOf(bytes);
        if (!isSaid() && start.kind == Start::kFrame)
            giveBroken("of a frame of " + std::to_string(start.length) + " bytes there are only " +
                       std::to_string(bytes.size() - ZEL_FRAME_HEAD_SIZE) + ": " + why);
        else if (!isSaid() && start.kind == Start::kText)
            giveBroken(std::string("a text without its closing tag: ") + why);
        else if (start.kind == Start::kPart)
            openGap(std::string("a message breaks off: ") + why);
        openGap({}, true);
        const std::size_t skipped = skip(bytes);
        m_offset += skipped;
        at += skipped + split(bytes.substr(skipped));
    }
}

bool FrameSplitter::isSaid() const
{
    return m_isInGap && m_gap.isQuiet;
}

void FrameSplitter::openGap(std::string reason, bool isQuiet)
{
    if (m_isInGap)
        return;
    m_isInGap = true;
    m_gap = {m_offset, 0, true, isQuiet, std::move(reason)};
}

void FrameSplitter::closeGap(bool forMessage)
{
    if (!std::exchange(m_isInGap, false) || m_gap.isBlank || m_gap.isQuiet)
        return;
    if (m_gaps == Gaps::kAlways || (m_gaps == Gaps::kOnceFound && (m_hasFound || forMessage)) ||
        (m_gaps == Gaps::kAfterFirst && m_hasFound))
        report(m_gap.offset, m_gap.reason + "; " + std::to_string(m_gap.size) + " bytes passed over");
}

void FrameSplitter::give(std::string_view payload, bool isEnciphered, bool isBare)
{
    closeGap(true);
    m_hasFound = true;
    Found found = context;
    found.payload = payload;
    found.isEnciphered = isEnciphered;
    found.isBare = isBare;
    found.offset = m_offset;
    m_receive(found);
}

void FrameSplitter::giveBroken(const std::string& damage)
{
    closeGap(true);
    m_hasFound = true;
    report(m_offset, damage);
}

void FrameSplitter::report(std::uint64_t offset, std::string_view damage)
{
    Found found = context;
    found.offset = offset;
    found.damage = damage;
    m_receive(found);
}

std::size_t FrameSplitter::held() const
{
    return m_rest.capacity();
}

bool FrameSplitter::isAstray() const
{
    return m_isInGap;
}

bool FrameSplitter::isWithin() const
{
    return m_rest.size() > m_done;
}

bool FrameSplitter::hasFound() const
{
    return m_hasFound;
}

} // namespace inspect
