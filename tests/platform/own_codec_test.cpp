/* An application's own codec, whose results are as long as the argument tells. */
#include <algorithm>
#include <cstring>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "zel_platform/codec.h"
#include "zel_protocol/zel_protocol.h"

namespace {

int fill(char* destination, int capacity, int told)
{
    std::memset(destination, 'c', static_cast<std::size_t>(std::clamp(told, 0, capacity)));
    return told;
}

} // namespace

int ZelProtocolEncode(int, const char*, int, char* destination, int capacity, void* arg)
{
    return fill(destination, capacity, *static_cast<const int*>(arg));
}

int ZelProtocolDecode(int, const char*, int, char* destination, int capacity, void* arg)
{
    return fill(destination, capacity, *static_cast<const int*>(arg));
}

int P2pProtocolEncode(int, const char*, int, char* destination, int capacity)
{
    return fill(destination, capacity, capacity);
}

int P2pProtocolDecode(int, const char*, int, char* destination, int capacity)
{
    return fill(destination, capacity, capacity);
}

namespace {

constexpr int kSize = 2000;

TEST(OwnCodec, ItsPayloadMayFillTheBufferAndNoMore)
{
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    std::strcpy(header.Msg_type, "SYSTEM_CONTROL_MESSAGE");
    std::strcpy(header.Msg_code, "1012");
    const auto compose = [&](int told, std::string& frame) {
        std::vector<char> out(kSize, '#');
        const int size =
            ZelProtocolXMLCompose(&header, nullptr, ZEL_KIND_REQUEST, 1, &told, out.data(), kSize);
        frame.assign(out.begin(), out.end());
        return size;
    };
    constexpr int kPayload = kSize - ZEL_FRAME_HEAD_SIZE;
    std::string frame;
    EXPECT_EQ(compose(kPayload, frame), kSize);
    EXPECT_EQ(frame.substr(ZEL_FRAME_HEAD_SIZE), std::string(kPayload, 'c'));
    EXPECT_EQ(compose(kPayload - 1, frame), kSize - 1);
    EXPECT_EQ(frame.back(), '#');
    EXPECT_EQ(compose(kPayload + 1, frame), ZEL_ERR_BUFFER_SMALL);
    EXPECT_EQ(compose(-3, frame), ZEL_ERR_CODEC);
}

TEST(OwnCodec, MoreThanItsRoomIsNotRead)
{
    constexpr int kReceived = 20000;
    ZEL_PROTOCOL_HEADER header;
    const auto analyse = [&](int told) {
        std::string payload(kReceived, 'x');
        void* result = nullptr;
        return ZelProtocolMSGAnalysisStart(payload.data(), kReceived, 1, &told, &header, &result);
    };
    EXPECT_EQ(analyse(2 * kReceived), ZEL_ERR_NO_ENVELOPE);
    EXPECT_EQ(analyse(2 * kReceived + 1), ZEL_ERR_CODEC);
    EXPECT_EQ(analyse(-1), ZEL_ERR_CODEC);
}

} // namespace
