#include <climits>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kPlainHead("\x58\x91\x58\x51\x03\x02\x01\x00", 8);
const std::string kEncipheredHead("\x57\x81\x59\x52\x03\x02\x01\x00", 8);
constexpr int kLength = 0x010203;

// From bytes of exactly that many.
int read(const std::string& bytes, ZEL_FRAME_HEAD& head, int maxLength = INT_MAX)
{
    const std::vector<char> exact(bytes.begin(), bytes.end());
    const char none = 0;
    memset(&head, 0x11, sizeof head);
    return ZelProtocolFrameHeadRead(exact.empty() ? &none : exact.data(), static_cast<int>(exact.size()),
                                    maxLength, &head);
}

TEST(Frame, HeadsAreJudgedAsFarAsTheyGo)
{
    ZEL_FRAME_HEAD head;
    EXPECT_EQ(read("", head), 0);
    EXPECT_EQ(head.iType, ZEL_FRAME_UNKNOWN);
    for (const auto& [whole, type] :
         {std::pair{kPlainHead, ZEL_FRAME_PLAIN}, std::pair{kEncipheredHead, ZEL_FRAME_ENCIPHERED}}) {
        for (size_t count = 1; count < 12; ++count) {
            EXPECT_EQ(read((whole + "text").substr(0, count), head), count < 8 ? 0 : 8) << count;
            EXPECT_EQ(head.iType, type);
            EXPECT_EQ(head.iLength, count < 8 ? -1 : kLength);
        }
        for (size_t wrong = 0; wrong < 4; ++wrong) {
            std::string other = whole;
            other[wrong] ^= 0x40;
            for (size_t count = wrong + 1; count <= 8; ++count)
                EXPECT_EQ(read(other.substr(0, count), head), ZEL_ERR_NO_HEADER) << wrong << " " << count;
            EXPECT_EQ(head.iType, ZEL_FRAME_UNKNOWN);
        }
    }
}

TEST(Frame, LengthsAreBounded)
{
    ZEL_FRAME_HEAD head;
    EXPECT_EQ(read(kPlainHead, head, kLength), 8);
    EXPECT_EQ(read(kPlainHead, head, kLength - 1), ZEL_ERR_BAD_CONTENT);
    EXPECT_EQ(head.iLength, -1);
    for (const uint32_t length : {0U, 0x80000000U, 0xFFFFFFFFU}) {
        char bytes[8];
        EXPECT_EQ(ZelProtocolFrameHeadWrite(bytes, ZEL_FRAME_PLAIN, length), 8);
        EXPECT_EQ(ZelProtocolFrameHeadRead(bytes, 8, INT_MAX, &head), ZEL_ERR_BAD_CONTENT) << length;
    }
    EXPECT_EQ(ZelProtocolFrameHeadRead(nullptr, 8, 1, &head), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolFrameHeadRead("", -1, 1, &head), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolFrameHeadRead("", 0, 0, &head), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolFrameHeadRead("", 0, 1, nullptr), ZEL_ERR_BAD_PARAM);
}

TEST(Frame, WritesBothHeads)
{
    std::string bytes(8, '\0');
    EXPECT_EQ(ZelProtocolFrameHeadWrite(bytes.data(), ZEL_FRAME_PLAIN, kLength), 8);
    EXPECT_EQ(bytes, kPlainHead);
    EXPECT_EQ(ZelProtocolFrameHeadWrite(bytes.data(), ZEL_FRAME_ENCIPHERED, kLength), 8);
    EXPECT_EQ(bytes, kEncipheredHead);
    EXPECT_EQ(ZelProtocolFrameHeadWrite(bytes.data(), ZEL_FRAME_UNKNOWN, 1), ZEL_ERR_BAD_PARAM);
    EXPECT_EQ(ZelProtocolFrameHeadWrite(nullptr, ZEL_FRAME_PLAIN, 1), ZEL_ERR_BAD_PARAM);
}

// What a head announces beyond the text is what the application has to send behind it.
TEST(Frame, RawDataIsTheHeadsLengthLessTheResult)
{
    auto upload = fresh(MEDIA_DATA_1_PARAM_init);
    upload.DataLen = 1000;
    for (const bool enciphered : {false, true}) {
        const Composed composed = compose(headerOf("MEDIA_DATA_MESSAGE", "1"), &upload, ZEL_KIND_REQUEST,
                                          4096, enciphered ? 0 : ZEL_CODEC_PLAIN);
        ZEL_FRAME_HEAD head;
        ASSERT_EQ(read(composed.bytes, head), ZEL_FRAME_HEAD_SIZE);
        EXPECT_EQ(head.iType, enciphered ? ZEL_FRAME_ENCIPHERED : ZEL_FRAME_PLAIN);
        EXPECT_EQ(head.iLength + ZEL_FRAME_HEAD_SIZE - composed.result, ZEL_FRAME_END_CODE_SIZE + 1000);
    }
}

} // namespace
