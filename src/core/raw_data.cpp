#include "core/raw_data.h"

#include "core/scan.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

std::string_view behindText(const Message& message)
{
    const size_t length = message.text.size();
    return {message.text.data() + length, message.received - length};
}

bool startsWithEndCode(std::string_view bytes)
{
    constexpr char kEndCode[kEndCodeSize] = {};
    return bytes.size() >= kEndCodeSize && memcmp(bytes.data(), kEndCode, kEndCodeSize) == 0;
}

int refuse(const Leaf& leaf, size_t wanted, size_t received)
{
    ZelProtocolLogError("%s data runs past the received bytes : datalen(%zu) received(%zu)\n", leaf.name,
                        wanted, received);
    return ZEL_ERR_BAD_CONTENT;
}

} // namespace

void announceRawData(int& extraLength, int32_t dataLength)
{
    extraLength = static_cast<int>(static_cast<uint32_t>(extraLength) + static_cast<uint32_t>(kEndCodeSize) +
                                   static_cast<uint32_t>(dataLength));
}

int findRawData(const Message& message, const Leaf& leaf, int32_t dataLength, std::string_view& data)
{
    data = {};
    if (dataLength < 1)
        return 0;
    const auto wanted = static_cast<size_t>(dataLength);
    const std::string_view behind = behindText(message);
    const std::string_view source = startsWithEndCode(behind)
                                        ? partOf(behind, kEndCodeSize)
                                        : std::string_view(message.text.data(), message.received);
    if (source.size() < wanted)
        return refuse(leaf, wanted, source.size());
    data = partOf(source, 0, wanted);
    return 0;
}

size_t featureBlockSize(uint8_t algorithmVersion)
{
    return algorithmVersion == 1 ? 512 : 1024;
}

int findFeatureBlock(const Message& message, const Leaf& leaf, uint8_t algorithmVersion,
                     std::string_view& block)
{
    block = {};
    const std::string_view behind = behindText(message);
    if (behind.empty())
        return 0;
    const size_t wanted = featureBlockSize(algorithmVersion);
    const size_t received = behind.size() > kEndCodeSize ? behind.size() - kEndCodeSize : 0;
    if (received < wanted)
        return refuse(leaf, wanted, received);
    block = partOf(behind, kEndCodeSize, wanted);
    return 0;
}

} // namespace zel
