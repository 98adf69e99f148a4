/**
 * Data that the camera makes up in place of pictures and faces, such that a receiver can tell every wrong
 * byte.
 */
#ifndef EXAMPLES_DEMO_DATA_H
#define EXAMPLES_DEMO_DATA_H

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace demo {

/** `count` bytes that follow from `seed` alone. */
inline std::vector<char> generatedBytes(std::uint32_t seed, std::size_t count)
{
    std::vector<char> bytes(count);
    std::uint32_t state = seed * 2654435761u + 1;
    for (char& byte : bytes) {
        state = state * 1664525u + 1013904223u;
        byte = static_cast<char>(state >> 24);
    }
    return bytes;
}

/** CRC-32 as in Ethernet and gzip. */
inline std::uint32_t checksum(const char* data, std::size_t count)
{
    std::uint32_t sum = 0xffffffffu;
    for (std::size_t i = 0; i < count; ++i) {
        sum ^= static_cast<unsigned char>(data[i]);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xedb88320u : 0u);
    }
    return ~sum;
}

/** A file starts with this name, then the length and the checksum of its content, both little-endian. */
constexpr std::array<char, 8> kFileMagic = {'D', 'E', 'M', 'O', 'R', 'E', 'C', '1'};
constexpr std::size_t kFileHeadBytes = 16;

inline void putNumber(char* at, std::uint32_t number)
{
    for (int i = 0; i < 4; ++i)
        at[i] = static_cast<char>(number >> (8 * i) & 0xff);
}

inline std::uint32_t numberAt(const char* at)
{
    std::uint32_t number = 0;
    for (int i = 3; i >= 0; --i)
        number = number << 8 | static_cast<unsigned char>(at[i]);
    return number;
}

/** Writes the head of a file over its first kFileHeadBytes bytes. */
inline void sealFile(std::vector<char>& file)
{
    const std::size_t count = file.size() - kFileHeadBytes;
    std::copy(kFileMagic.begin(), kFileMagic.end(), file.begin());
    putNumber(file.data() + 8, static_cast<std::uint32_t>(count));
    putNumber(file.data() + 12, checksum(file.data() + kFileHeadBytes, count));
}

/** Whether all of a file is there and none of it is damaged. */
inline bool isWholeFile(const std::vector<char>& file)
{
    if (file.size() < kFileHeadBytes || !std::equal(kFileMagic.begin(), kFileMagic.end(), file.begin()))
        return false;
    const std::size_t count = file.size() - kFileHeadBytes;
    return numberAt(file.data() + 8) == count &&
           numberAt(file.data() + 12) == checksum(file.data() + kFileHeadBytes, count);
}

} // namespace demo

#endif
