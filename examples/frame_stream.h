/**
 * Finds frames in a byte stream.
 *
 * A frame is 4 magic bytes (they tell a plain frame from an enciphered one), a little-endian uint32 that
 * counts what follows, and the payload. A stream cuts and joins frames as it likes, so bytes are collected
 * here until a frame is whole. The length counts everything behind the head: the text and, where a message
 * has some, the raw data behind the text.
 *
 * Anything else than a magic where a frame should start is refused at once: after a wrong byte nobody knows
 * where the next frame starts, so the connection has to be closed.
 *
 * This file needs nothing but the standard library.
 */
#ifndef EXAMPLES_FRAME_STREAM_H
#define EXAMPLES_FRAME_STREAM_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace demo {

constexpr std::size_t kFrameHeadBytes = 8;
constexpr std::size_t kMaxPayloadBytes = 1024 * 1024;
constexpr std::array<unsigned char, 4> kPlainMagic = {0x58, 0x91, 0x58, 0x51};
constexpr std::array<unsigned char, 4> kEncipheredMagic = {0x57, 0x81, 0x59, 0x52};

/** One frame inside the reader's bytes. */
struct Frame
{
    bool enciphered = false;
    char* payload = nullptr; /**< may be written to; valid until the next addReceived */
    int payloadBytes = 0;
};

enum class FrameState
{
    Complete, /**< a frame was found */
    NeedMore, /**< the bytes so far are the start of a frame, or none are left */
    Refused   /**< no magic, no payload or too much of it; it stays refused */
};

/** One for each connection. Holds less than a frame of the largest size, and what one receive brought. */
struct FrameReader
{
    std::size_t maxPayload = kMaxPayloadBytes;
    std::vector<char> bytes;
    std::size_t taken = 0; /**< bytes at the front that were handed out as frames */
    bool refused = false;
};

/** Adds received bytes. Call nextFrame until it wants more before adding again. */
inline void addReceived(FrameReader& reader, const char* data, std::size_t count)
{
    reader.bytes.erase(reader.bytes.begin(),
                       reader.bytes.begin() + static_cast<std::ptrdiff_t>(reader.taken));
    reader.taken = 0;
    reader.bytes.insert(reader.bytes.end(), data, data + count);
}

/** Bytes of a frame that isn't whole yet. */
inline std::size_t waitingBytes(const FrameReader& reader)
{
    return reader.bytes.size() - reader.taken;
}

/** Tests as much of the magic as is there. */
inline bool startsWithMagic(const unsigned char* head, std::size_t count,
                            const std::array<unsigned char, 4>& magic)
{
    return std::equal(head, head + std::min(count, magic.size()), magic.begin());
}

/** Bytes behind the head that a frame's head announces. */
inline std::uint32_t announcedBytes(const char* frameHead)
{
    const auto* head = reinterpret_cast<const unsigned char*>(frameHead);
    std::uint32_t length = 0;
    for (int i = 7; i >= 4; --i)
        length = length << 8 | head[i];
    return length;
}

/** Writes a head of kFrameHeadBytes. */
inline void putFrameHead(char* frameHead, bool enciphered, std::uint32_t length)
{
    const std::array<unsigned char, 4>& magic = enciphered ? kEncipheredMagic : kPlainMagic;
    for (std::size_t i = 0; i < magic.size(); ++i) {
        frameHead[i] = static_cast<char>(magic[i]);
        frameHead[4 + i] = static_cast<char>(length >> (8 * i) & 0xff);
    }
}

/** Whether these bytes are a frame of that kind, whole or not. */
inline bool isFrame(const std::vector<char>& bytes, bool enciphered)
{
    return bytes.size() > kFrameHeadBytes &&
           startsWithMagic(reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size(),
                           enciphered ? kEncipheredMagic : kPlainMagic);
}

/** Takes the next frame out of the reader. */
inline FrameState nextFrame(FrameReader& reader, Frame& frame)
{
    const std::size_t count = waitingBytes(reader);
    char* start = reader.bytes.data() + reader.taken;
    const auto* head = reinterpret_cast<const unsigned char*>(start);

    const bool plain = startsWithMagic(head, count, kPlainMagic);
    const bool enciphered = startsWithMagic(head, count, kEncipheredMagic);
    if (reader.refused || (!plain && !enciphered)) {
        reader.refused = true;
        return FrameState::Refused;
    }
    if (count < kFrameHeadBytes)
        return FrameState::NeedMore;

    const std::uint32_t length = announcedBytes(start);
    if (length == 0 || length > reader.maxPayload) {
        reader.refused = true;
        return FrameState::Refused;
    }
    if (count - kFrameHeadBytes < length)
        return FrameState::NeedMore;

    frame.enciphered = enciphered;
    frame.payload = start + kFrameHeadBytes;
    frame.payloadBytes = static_cast<int>(length);
    reader.taken += kFrameHeadBytes + length;
    return FrameState::Complete;
}

} // namespace demo

#endif
