/*
 * An application with an allocator and a log of its own: it defines the five functions, and the linker leaves
 * the default ones out. The XML reading and the codecs stay those of the default layer.
 */
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include "zel_platform/log.h"
#include "zel_platform/memory.h"
#include "zel_protocol/zel_protocol.h"

namespace {

std::atomic<int> blocksTaken{0};
std::atomic<int> blocksGivenBack{0};
std::atomic<int> progressLines{0};
std::atomic<int> errorLines{0};

} // namespace

/* Results go back to the system with `free`, so every block must come from its allocator. */
void* ZelProtocolMalloc(size_t size)
{
    ++blocksTaken;
    return std::malloc(size);
}

void ZelProtocolFree(void* block)
{
    if (block)
        ++blocksGivenBack;
    std::free(block);
}

/* This log only counts: the arguments of some forms are whole messages, passwords included. */
void ZelProtocolLogDebug(const char* /*format*/, ...)
{
    ++progressLines;
}

void ZelProtocolLogInfo(const char* /*format*/, ...)
{
    ++progressLines;
}

void ZelProtocolLogError(const char* /*format*/, ...)
{
    ++errorLines;
}

int main()
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    std::strcpy(header.Msg_type, "USER_AUTH_MESSAGE");
    std::strcpy(header.Msg_code, "CMD_USER_AUTH");
    std::strcpy(header.Msg_flag, "0");

    USER_AUTH_CMD_USER_AUTH_PARAM login;
    USER_AUTH_CMD_USER_AUTH_PARAM_init(&login);
    std::strcpy(login.Username, "admin");
    std::strcpy(login.Password, "not-a-real-one");
    login.Version = 2;

    char frame[1024];
    const int frameBytes = ZelProtocolXMLCompose(&header, &login, ZEL_KIND_REQUEST, ZEL_CODEC_PLAIN, nullptr,
                                                 frame, sizeof frame);
    if (frameBytes <= ZEL_FRAME_HEAD_SIZE) {
        std::fprintf(stderr, "compose failed: %d\n", frameBytes);
        return 1;
    }

    ZEL_PROTOCOL_HEADER received;
    ZEL_PROTOCOL_HEADER_init(&received);
    void* result = nullptr;
    const int status =
        ZelProtocolMSGAnalysisStart(frame + ZEL_FRAME_HEAD_SIZE, frameBytes - ZEL_FRAME_HEAD_SIZE,
                                    ZEL_CODEC_PLAIN, nullptr, &received, &result);
    if (status != 0 || !result) {
        std::fprintf(stderr, "analysis failed: %d\n", status);
        return 1;
    }
    const auto* const record = static_cast<const USER_AUTH_CMD_USER_AUTH_PARAM*>(result);
    const bool same = std::strcmp(received.Msg_type, header.Msg_type) == 0 &&
                      std::strcmp(record->Username, login.Username) == 0 &&
                      std::strcmp(record->Password, login.Password) == 0 && record->Version == login.Version;
    ZelProtocolMSGAnalysisStop(&result);
    const bool quiet = errorLines == 0;

    /* No family has this name: the library says so to the log. */
    std::strcpy(header.Msg_type, "NO_SUCH_MESSAGE");
    const int unknown = ZelProtocolXMLCompose(&header, &login, ZEL_KIND_REQUEST, ZEL_CODEC_PLAIN, nullptr,
                                              frame, sizeof frame);

    std::printf("blocks taken: %d, given back by the library: %d, progress lines: %d, error lines: %d\n",
                blocksTaken.load(), blocksGivenBack.load(), progressLines.load(), errorLines.load());

    /* The one block is the analysed record, which ZelProtocolMSGAnalysisStop released with `free`. */
    const bool asExpected = same && quiet && unknown == ZEL_ERR_UNKNOWN_MSG && blocksTaken == 1 &&
                            blocksGivenBack == 0 && progressLines > 0 && errorLines > 0;
    return asExpected ? 0 : 1;
}
