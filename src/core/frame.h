// A frame's head as bytes.
#ifndef ZEL_CORE_FRAME_H
#define ZEL_CORE_FRAME_H

#include <cstddef>
#include <cstring>

#include "zel_protocol/frame.h"

namespace zel {

constexpr size_t kHeadSize = ZEL_FRAME_HEAD_SIZE;

inline void putLittleEndian(char* at, uint32_t number)
{
#if __BYTE_ORDER__ == __ORDER_BIG_ENDIAN__
    number = __builtin_bswap32(number);
#endif
    memcpy(at, &number, sizeof number);
}

inline void putHead(char* head, bool enciphered, uint32_t length)
{
    putLittleEndian(head, enciphered ? ZEL_FRAME_MAGIC_ENCIPHERED : ZEL_FRAME_MAGIC_PLAIN);
    putLittleEndian(head + 4, length);
}

} // namespace zel

#endif
