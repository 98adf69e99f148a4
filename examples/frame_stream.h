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
 * This file needs frame.h of the library and nothing else of it.
 */
#ifndef EXAMPLES_FRAME_STREAM_H
#define EXAMPLES_FRAME_STREAM_H

#include "zel_protocol/frame.h"

#include <algorithm>
#include <climits>
#include <cstddef>
#include <vector>

namespace demo {

constexpr int kMaxPayloadBytes = 1024 * 1024;

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
    int maxPayload = kMaxPayloadBytes;
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

/** Whether these bytes are a frame of that kind, whole or not. */
inline bool isFrame(const std::vector<char>& bytes, bool enciphered)
{
    ZEL_FRAME_HEAD head;
    return bytes.size() > ZEL_FRAME_HEAD_SIZE &&
           ZelProtocolFrameHeadRead(bytes.data(), ZEL_FRAME_HEAD_SIZE, INT_MAX, &head) > 0 &&
           head.iType == (enciphered ? ZEL_FRAME_ENCIPHERED : ZEL_FRAME_PLAIN);
}

/** Takes the next frame out of the reader. */
inline FrameState nextFrame(FrameReader& reader, Frame& frame)
{
    const std::size_t count = waitingBytes(reader);
    char* start = reader.bytes.data() + reader.taken;
    if (count == 0 && !reader.refused)
        return FrameState::NeedMore;

    ZEL_FRAME_HEAD head;
    const int judged = static_cast<int>(std::min<std::size_t>(count, ZEL_FRAME_HEAD_SIZE));
    const int found = ZelProtocolFrameHeadRead(start, judged, reader.maxPayload, &head);
    if (found < 0 || reader.refused) {
        reader.refused = true;
        return FrameState::Refused;
    }
    const auto length = static_cast<std::size_t>(std::max(head.iLength, 0));
    if (found == 0 || count - ZEL_FRAME_HEAD_SIZE < length)
        return FrameState::NeedMore;

    frame.enciphered = head.iType == ZEL_FRAME_ENCIPHERED;
    frame.payload = start + ZEL_FRAME_HEAD_SIZE;
    frame.payloadBytes = head.iLength;
    reader.taken += ZEL_FRAME_HEAD_SIZE + length;
    return FrameState::Complete;
}

} // namespace demo

#endif
