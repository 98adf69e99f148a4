#include "inspect/source.h"

#include <algorithm>
#include <array>
#include <vector>

#include "inspect/capture.h"
#include "inspect/hex.h"
#include "inspect/input.h"
#include "zel_protocol/frame.h"

namespace inspect {

namespace {

constexpr std::size_t kMagicSize = 4;
constexpr std::size_t kGuessedFrom = 4096;
constexpr std::size_t kChunk = 256u << 10;

bool isCapture(std::string_view bytes)
{
    // In both byte orders: pcap, pcap with nanoseconds, an older one with longer heads, pcapng.
    constexpr std::array<std::string_view, 7> kMagics = {
        "\xa1\xb2\xc3\xd4", "\xd4\xc3\xb2\xa1", "\xa1\xb2\x3c\x4d", "\x4d\x3c\xb2\xa1",
        "\xa1\xb2\xcd\x34", "\x34\xcd\xb2\xa1", "\x0a\x0d\x0d\x0a"};
    return std::find(kMagics.begin(), kMagics.end(), bytes.substr(0, kMagicSize)) != kMagics.end();
}

bool isFrame(std::string_view bytes)
{
    ZEL_FRAME_HEAD head;
    return bytes.size() >= kMagicSize && ZelProtocolFrameHeadRead(bytes.data(), kMagicSize, 1, &head) == 0;
}

bool isText(std::string_view bytes)
{
    return bytes.find('\0') == std::string_view::npos &&
           (bytes.find("<?xml") != std::string_view::npos ||
            bytes.find("<XML_ZELMAR") != std::string_view::npos);
}

// Asks for no more than tells: what comes through a pipe may pause.
Format guess(Input& input)
{
    const std::string_view magic = input.peek(kMagicSize);
    if (isCapture(magic))
        return Format::kCapture;
    if (isFrame(magic))
        return Format::kFrames;
    const std::string_view beginning = input.peek(kGuessedFrom);
    if (isHexDump(beginning))
        return Format::kHex;
    return isText(beginning) ? Format::kText : Format::kFrames;
}

void readStream(Input& input, Gaps gaps, const Receive& receive)
{
    bool isSilent = true;
    const auto listen = [&](const Found& found) {
        isSilent = false;
        receive(found);
    };
    FrameSplitter splitter(listen, 16u << 20, gaps);
    std::vector<char> chunk(kChunk);
    while (const std::size_t count = input.read(chunk.data(), chunk.size()))
        splitter.take({chunk.data(), count});
    splitter.end();
    if (isSilent)
        reportDamage(receive, "no message in it");
}

void read(Input& input, Format format, const Receive& receive)
{
    if (input.peek(1).empty())
        return reportDamage(receive, "it is empty");
    switch (format == Format::kGuessed ? guess(input) : format) {
    case Format::kCapture:
        return readCapture(input, receive);
    case Format::kHex:
        return readHex(input, receive);
    case Format::kText:
        return readStream(input, Gaps::kNever, receive);
    case Format::kFrames:
    case Format::kGuessed:
        return readStream(input, Gaps::kAlways, receive);
    }
}

} // namespace

void reportDamage(const Receive& receive, std::string_view damage)
{
    Found found;
    found.offset = Found::kNoOffset;
    found.damage = damage;
    receive(found);
}

void readFile(const std::string& path, Format format, const Receive& receive, const Progress& progress)
{
    Input input(path, progress);
    read(input, format, receive);
}

void readBytes(std::string_view bytes, Format format, const Receive& receive)
{
    Input input(bytes);
    read(input, format, receive);
}

} // namespace inspect
