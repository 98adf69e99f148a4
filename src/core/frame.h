// A frame's head as bytes.
#ifndef ZEL_CORE_FRAME_H
#define ZEL_CORE_FRAME_H

#include <cstddef>

#include "zel_protocol/frame.h"

namespace zel {

constexpr size_t kHeadSize = ZEL_FRAME_HEAD_SIZE;

inline void putLittleEndian(char* at, uint32_t number)
{
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<char>(number >> (8 * i) & 0xFF);
}

inline void putHead(char* head, bool enciphered, uint32_t length)
{
    putLittleEndian(head, enciphered ? ZEL_FRAME_MAGIC_ENCIPHERED : ZEL_FRAME_MAGIC_PLAIN);
    putLittleEndian(head + 4, length);
}

} // namespace zel

#endif
