#include "zel_protocol/nvr_internal.h"

#include <iterator>

#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

using LockedStreams = NVR_INTERNAL_4001_PARAM;
using StreamConfig = NVR_INTERNAL_STREAM_CONFIG;
using ChannelAddresses = NVR_INTERNAL_4002_PARAM;

constexpr char kAnalysis[] = "NvrInternalMessageAnalysis";

// --- Attribute lists, for both directions --------------------------------------------------------

void cameraInfo(Side& side, LockedStreams& record)
{
    if (const Element info = element(side, "IPCInfo")) {
        attribute(side, "SN", record.SN);
        attribute(side, "IPAddress", record.IPAddress);
        attribute(side, "MulticularChn", record.MulticularChn);
    }
}

void streamConfig(Side& side, StreamConfig& stream)
{
    attribute(side, "Stream", stream.Stream);
    attribute(side, "Resolution", stream.Resolution);
    attribute(side, "EncodeFormat", stream.EncodeFormat);
    attribute(side, "BitRateControl", stream.BitRateControl);
    attribute(side, "Initquant", stream.Initquant);
    attribute(side, "BitRate", stream.BitRate);
    attribute(side, "FrameRate", stream.FrameRate);
}

// How it goes out; what is received goes by the numbers of its streams.
void lockedStreams(Side& side, LockedStreams& record)
{
    cameraInfo(side, record);
    Siblings streams(side);
    for (StreamConfig* const stream : {&record.stStream1, &record.stStream2})
        if (streams.next("StreamConfig"))
            streamConfig(side, *stream);
}

void addressesRequest(Side& side, ChannelAddresses& record)
{
    attribute(side, "SrcIp", record.acSrcIp);
}

using Address = char[32];

void channelAddress(Side& side, Address& address)
{
    attribute(side, "IpAddr", address);
}

bool isAddress(const Address& address)
{
    return isSet(address);
}

void addressesResponse(Side& side, ChannelAddresses& record)
{
    if (const Element response = element(side, "RESPONSE_PARAM")) {
        attribute(side, "ChannelCount", record.iChannelCount);
        attribute(side, "SrcIp", record.acSrcIp);
        attribute(side, "SN", record.SN);
    }
    // A received count bounds the rows too; a description shows them all.
    auto& rows = record.acIpAddr;
    const size_t most = isTree(side) ? clampCount(record.iChannelCount, std::size(rows))
                                     : countedRows(side, record.iChannelCount, rows);
    const size_t count = usedRowElements<channelAddress, isAddress>(side, "ChannelInfo", rows, most);
    if (!side.writes() && isSet(record.iChannelCount))
        record.iChannelCount = static_cast<int32_t>(count);
}

// --- Leaves --------------------------------------------------------------------------------------

// A stream's element, and which of the two streams it is.
struct FoundStream
{
    ElementReader element;
    uint8_t number;
};

// 0, or the status of a stream that is missing or none of the two.
int findStreams(const ElementReader& lock, FoundStream (&streams)[2])
{
    ElementReader element = lock.child("StreamConfig");
    for (FoundStream& stream : streams) {
        if (!element) {
            ZelProtocolLogError("%s get StreamConfig:%d error\n", kAnalysis,
                                static_cast<int>(&stream - streams) + 1);
            return ZEL_ERR_BAD_DOCUMENT;
        }
        TreeReader side(element);
        if (!readAttribute(side, "Stream", stream.number)) {
            ZelProtocolLogError("%s get stream\n", kAnalysis);
            return ZEL_ERR_BAD_DOCUMENT;
        }
        if (stream.number != 1 && stream.number != 2) {
            ZelProtocolLogError("%s get Error stream :%d\n", kAnalysis, stream.number);
            return ZEL_ERR_BAD_DOCUMENT;
        }
        stream.element = element;
        element = element.next("StreamConfig");
    }
    return 0;
}

// Each stream says itself where it belongs.
int analyseStreams(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    const ElementReader lock = findPart(row.parts[0], body);
    if (!lock)
        return missingElement(row.leaf, row.parts[0].elementText);
    FoundStream streams[2];
    if (const int status = findStreams(lock, streams))
        return status;
    auto* const record = static_cast<LockedStreams*>(takeRecord(row.record));
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    TreeReader camera(lock);
    cameraInfo(camera, *record);
    for (const FoundStream& stream : streams) {
        TreeReader side(stream.element);
        streamConfig(side, stream.number == 1 ? record->stStream1 : record->stStream2);
    }
    *result = record;
    return 0;
}

int composeAddresses(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<ChannelAddresses>(outbound.record);
    const std::string_view source = textOf(record.acSrcIp);
    if (isResponse(outbound.kind)) {
        if (!isSet(record.iChannelCount) || source.empty()) {
            ZelProtocolLogError("NVR_INTERNAL_MESSAGES put a error Param iChannelCount: %d acSrcIp: %.*s\n",
                                record.iChannelCount, printedLength(source), source.data());
            return ZEL_ERR_BAD_PARAM;
        }
    } else if (source.empty()) {
        ZelProtocolLogError("NVR_INTERNAL_MESSAGES put a error Param acSrcIp: %.*s\n", printedLength(source),
                            source.data());
        return ZEL_ERR_BAD_PARAM;
    }
    return composeParts(row, outbound);
}

// --- Messages ------------------------------------------------------------------------------------

constexpr MessageRow kLockedStreams =
    message<NVR_INTERNAL_4001_PARAM_init>(kAnalysis,
                                          within<lockedStreams>("LockParamInfo", Kinds::kAll, kElements))
        .analysedBy(analyseStreams);
constexpr MessageRow kChannelAddresses =
    message<NVR_INTERNAL_4002_PARAM_init>(kAnalysis,
                                          over<addressesResponse>("RESPONSE_PARAM", Kinds::kResponses),
                                          request<addressesRequest>(Kinds::kNotResponses))
        .composedBy(composeAddresses);

constexpr CodeRow kCodes[] = {{4001, &kLockedStreams}, {4002, &kChannelAddresses}};
static_assert(isAscending(kCodes));

// --- Dispatch ------------------------------------------------------------------------------------

// The text's own faults come before an unknown code.
int analyseInternal(const Family& family, Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(family.analysisName);
    ElementReader body;
    if (const int status = openBody(message, result, {family.analysisName}, body))
        return status;
    if (const CodeRow* const found = findCode(family, numberOf(code)))
        return analyse(*found->row, message, result);
    ZelProtocolLogError("%s deal a unknow msg_cdoe : %d\n", family.analysisName, numberOf(code));
    return ZEL_ERR_UNKNOWN_MSG;
}

} // namespace

extern constexpr Family kNvrInternalFamily =
    Family("NVR_INTERNAL_MESSAGES", kCodes, composeCode, analyseInternal)
        .loggedAs("NVR_INTERNAL_MESSAGES", kAnalysis);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int NVR_INTERNAL_4001_PARAM_init(NVR_INTERNAL_4001_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.SN, record.IPAddress);
        for (auto* const stream : {&record.stStream1, &record.stStream2})
            zel::clear(stream->Resolution, stream->BitRateControl, stream->EncodeFormat);
    });
}

int NVR_INTERNAL_4002_PARAM_init(NVR_INTERNAL_4002_PARAM* param)
{
    return zel::initRecord(param,
                           [](auto& record) { zel::clear(record.acSrcIp, record.SN, record.acIpAddr); });
}

int NvrInternalMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kNvrInternalFamily, record, kind, code, buf, len);
}

int NvrInternalMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kNvrInternalFamily, text, code, result);
}
