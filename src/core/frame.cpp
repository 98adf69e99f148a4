#include "core/frame.h"

#include <cstring>

namespace zel {

namespace {

bool startsAs(const char* bytes, int count, uint32_t magic)
{
    char expected[4];
    putLittleEndian(expected, magic);
    return memcmp(bytes, expected, static_cast<size_t>(count < 4 ? count : 4)) == 0;
}

uint32_t littleEndian(const char* at)
{
    uint32_t number = 0;
    for (int i = 3; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(at[i]);
    return number;
}

} // namespace

} // namespace zel

int ZelProtocolFrameHeadRead(const char* bytes, int count, int maxLength, ZEL_FRAME_HEAD* head)
{
    using namespace zel;
    if (!bytes || count < 0 || maxLength < 1 || !head)
        return ZEL_ERR_BAD_PARAM;
    *head = {ZEL_FRAME_UNKNOWN, -1};
    if (count == 0)
        return 0;
    if (startsAs(bytes, count, ZEL_FRAME_MAGIC_PLAIN))
        head->iType = ZEL_FRAME_PLAIN;
    else if (startsAs(bytes, count, ZEL_FRAME_MAGIC_ENCIPHERED))
        head->iType = ZEL_FRAME_ENCIPHERED;
    else
        return ZEL_ERR_NO_HEADER;
    if (count < ZEL_FRAME_HEAD_SIZE)
        return 0;
    const uint32_t length = littleEndian(bytes + 4);
    if (length == 0 || length > static_cast<uint32_t>(maxLength))
        return ZEL_ERR_BAD_CONTENT;
    head->iLength = static_cast<int32_t>(length);
    return ZEL_FRAME_HEAD_SIZE;
}

int ZelProtocolFrameHeadWrite(char* bytes, int type, uint32_t length)
{
    if (!bytes || (type != ZEL_FRAME_PLAIN && type != ZEL_FRAME_ENCIPHERED))
        return ZEL_ERR_BAD_PARAM;
    zel::putHead(bytes, type == ZEL_FRAME_ENCIPHERED, length);
    return ZEL_FRAME_HEAD_SIZE;
}
