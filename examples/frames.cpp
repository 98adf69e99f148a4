/**
 * Splits a recorded byte stream into its frames and prints what each of them is.
 *
 *   frames [FILE]
 *
 * Reads FILE or standard input: one direction of a connection, from the start of a frame on. Every frame
 * gives a line: where it starts, how many bytes follow its head, type, code and flag of its message and how
 * the analysis ended. Without the key an enciphered one stays closed. Ends with 1 where bytes are no frame,
 * or the last one isn't whole.
 */
#include "frame_stream.h"

#include "zel_platform/default_layer.h"
#include "zel_protocol/zel_protocol.h"

#include <array>
#include <cstddef>
#include <cstdio>

namespace {

/** What comes from a peer may hold anything; a terminal gets none of it. */
void printText(const char* text, std::size_t size)
{
    for (std::size_t i = 0; i < size && text[i] != '\0'; ++i)
        std::putchar(text[i] < ' ' || text[i] > '~' ? '?' : text[i]);
    std::putchar(' ');
}

void printFrame(unsigned long long offset, const demo::Frame& frame)
{
    std::printf("%10llu %8d  ", offset, frame.payloadBytes);
    if (frame.enciphered) {
        std::puts("enciphered");
        return;
    }
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    void* record = nullptr;
    const int status = ZelProtocolMSGAnalysisStart(frame.payload, frame.payloadBytes, ZEL_CODEC_PLAIN,
                                                   nullptr, &header, &record);
    ZelProtocolMSGAnalysisStop(&record);
    printText(header.Msg_type, sizeof header.Msg_type);
    printText(header.Msg_code, sizeof header.Msg_code);
    printText(header.Msg_flag, sizeof header.Msg_flag);
    std::printf("(%s)\n", status > 0 ? "transparent" : ZelProtocolStatusText(status));
}

} // namespace

int main(int argc, char** argv)
{
    std::FILE* const file = argc == 2 ? std::fopen(argv[1], "rb") : stdin;
    if (argc > 2 || !file) {
        std::fprintf(stderr, "usage: frames [FILE]\n");
        return 2;
    }
    // The status of each message is printed already.
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);

    demo::FrameReader reader;
    demo::FrameState state = demo::FrameState::NeedMore;
    unsigned long long offset = 0;
    std::array<char, 64 * 1024> buffer;
    while (state == demo::FrameState::NeedMore) {
        const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), file);
        if (count == 0)
            break;
        demo::addReceived(reader, buffer.data(), count);
        demo::Frame frame;
        while ((state = demo::nextFrame(reader, frame)) == demo::FrameState::Complete) {
            printFrame(offset, frame);
            offset += ZEL_FRAME_HEAD_SIZE + static_cast<unsigned long long>(frame.payloadBytes);
        }
    }
    const std::size_t left = demo::waitingBytes(reader);
    if (left != 0)
        std::fprintf(stderr, "frames: %s at byte %llu\n",
                     state == demo::FrameState::Refused ? "no frame, or too large a one,"
                                                        : "an unfinished frame",
                     offset);
    return left == 0 ? 0 : 1;
}
