// Raw data that travels behind an envelope: an end code of four zero bytes, then the data. The library
// neither writes nor sends them; it announces them on the way out and finds them on the way in.
#ifndef ZEL_CORE_RAW_DATA_H
#define ZEL_CORE_RAW_DATA_H

#include "core/rows.h"

namespace zel {

constexpr size_t kEndCodeSize = 4;

// Adds end code and data to what the frame's head counts. The length counts with whatever value it has.
void announceRawData(int& extraLength, int32_t dataLength);

// The `dataLength` bytes behind the end code, or from the text's start if there is no end code; none for a
// length below 1. Data that runs past the received bytes is refused: 0, or ZEL_ERR_BAD_CONTENT, which has
// been logged.
int findRawData(const Message& message, const Leaf& leaf, int32_t dataLength, std::string_view& data);

// A face's feature block behind the end code, whose value isn't looked at. Without a byte behind the text the
// block is empty. Anything shorter than end code and block is refused as above.
size_t featureBlockSize(uint8_t algorithmVersion);
int findFeatureBlock(const Message& message, const Leaf& leaf, uint8_t algorithmVersion,
                     std::string_view& block);

} // namespace zel

#endif
