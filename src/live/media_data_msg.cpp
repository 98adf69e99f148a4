#include "zel_protocol/media_data.h"

#include <algorithm>
#include <cstddef>

#include "core/families.h"
#include "core/raw_data.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

// A channel that stands for none: it isn't written.
constexpr int32_t kNoChannel = 255;

// --- Attribute lists, for both directions --------------------------------------------------------

template <class Record>
void position(Side& side, Record& record)
{
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "DataLen", record.DataLen);
}

void positionAndXml(Side& side, MEDIA_DATA_3_PARAM& record)
{
    position(side, record);
    attributeIfSet(side, "XmlLen", record.XmlLen);
}

template <class Record>
void xmlAndPosition(Side& side, Record& record)
{
    attribute(side, "XmlLen", record.XmlLen);
    position(side, record);
}

void uploadResponse(Side& side, MEDIA_DATA_1_PARAM& record)
{
    if (const Element response = elementIf(isSet(record.Type), side, "RESPONSE_PARAM"))
        attribute(side, "Type", record.Type);
}

void downloadResponse(Side& side, MEDIA_DATA_2_PARAM& record)
{
    attribute(side, "RemoteFileName", record.RemoteFileName);
    attribute(side, "LocalFileName", record.LocalFileName);
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "ErrorCode", record.ErrorCode);
}

void pictureInfo(Side& side, MEDIA_DATA_4_PARAM& record)
{
    if (const Element info = element(side, "DataInfo")) {
        attribute(side, "DataType", record.DataType);
        attribute(side, "DataTotalLen", record.DataTotalLen);
        attribute(side, "DataName", record.DataName);
        attribute(side, "Timestamp", record.Timestamp);
        attribute(side, "SerialNum", record.SerialNum);
    }
}

// Unlike that of the face list, a request's XmlLen is read although it isn't written.
void pictureRequest(Side& side, MEDIA_DATA_4_PARAM& record)
{
    if (const Element chunk = element(side, "POS")) {
        attributeRead(side, "XmlLen", record.XmlLen);
        position(side, record);
    }
    pictureInfo(side, record);
}

void pictureResponse(Side& side, MEDIA_DATA_4_PARAM& record)
{
    if (side.writes() && side.takes(!isSet(record.ChannelId)))
        pictureInfo(side, record);
    if (side.takes(isSet(record.ChannelId))) {
        if (const Element response = elementIf(record.ChannelId != kNoChannel, side, "RESPONSE_PARAM"))
            attribute(side, "ChannelId", record.ChannelId);
        if (const Element chunk = element(side, "POS"))
            xmlAndPosition(side, record);
    }
}

void exportRequest(Side& side, MEDIA_DATA_5_PARAM& record)
{
    if (const Element info = element(side, "DataInfo")) {
        attribute(side, "SerialNum", record.SerialNum);
        attribute(side, "Alias", record.Alias);
        attribute(side, "ListType", record.ListType);
        attribute(side, "DataNum", record.DataNum);
    }
    if (const Element chunk = element(side, "POS"))
        position(side, record);
}

void exportResponse(Side& side, MEDIA_DATA_5_PARAM& record)
{
    if (const Element response = elementIf(isSet(record.ChannelId), side, "RESPONSE_PARAM"))
        attribute(side, "ChannelId", record.ChannelId);
    if (const Element chunk = elementIf(isSet(record.DataLen), side, "POS"))
        xmlAndPosition(side, record);
}

void face(Side& side, stHumanFaceInfo& row)
{
    attribute(side, "SerialNum", row.SerialNum);
    attribute(side, "Alias", row.Alias);
}

bool hasNumber(const stHumanFaceInfo& row)
{
    return isSet(row.SerialNum);
}

void faces(Side& side, MEDIA_DATA_6_PARAM& record)
{
    const size_t counted = countedRows(side, record.DataNum, record.stFaces);
    rowElements<face>(side, "HumanFaceInfo", record.stFaces,
                      rowsInUse(side, record.stFaces, hasNumber, counted));
}

void deleteRequest(Side& side, MEDIA_DATA_6_PARAM& record)
{
    if (const Element info = element(side, "DataInfo")) {
        attribute(side, "DataNum", record.DataNum);
        attribute(side, "ListType", record.ListType);
    }
    faces(side, record);
}

void faceListRequest(Side& side, MEDIA_DATA_7_PARAM& record)
{
    if (const Element info = element(side, "DataInfo")) {
        attribute(side, "TotalData", record.TotalData);
        attribute(side, "DataNum", record.DataNum);
        attribute(side, "ListType", record.ListType);
    }
}

void faceListResponse(Side& side, MEDIA_DATA_7_PARAM& record)
{
    faceListRequest(side, record);
    faces(side, record);
}

// --- Lists of short texts ------------------------------------------------------------------------

using ShortText = char[16];

// Up to the first empty one, each with a comma behind it.
char* printTexts(char* at, const void* items, size_t count)
{
    const auto* const texts = static_cast<const ShortText*>(items);
    for (size_t i = 0; i < count && isSet(texts[i]); ++i) {
        const size_t length = textLength(texts[i]);
        memcpy(at, texts[i], length);
        at += length;
        *at++ = ',';
    }
    return at;
}

// Pieces between commas, empty ones passed over; a long one fills its entry to the last byte.
void scanTexts(std::string_view value, void* items, size_t count)
{
    auto* const texts = static_cast<ShortText*>(items);
    for (size_t i = 0; i < count; ++i) {
        value.remove_prefix(std::min(value.find_first_not_of(','), value.size()));
        const std::string_view piece = partOf(value, 0, value.find(','));
        if (piece.empty())
            return;
        clear(texts[i]);
        memcpy(texts[i], piece.data(), std::min(piece.size(), sizeof texts[i]));
        value.remove_prefix(piece.size());
    }
}

constexpr ValueForm kTexts = {ZEL_FORM_TEXT_LIST, sizeof(ShortText) + 1, printTexts, scanTexts};

template <size_t Count>
void textsAttribute(Side& side, Name name, ShortText (&texts)[Count])
{
    valueAttribute(side, name, kTexts, texts, sizeof texts, Count);
}

void thumbnailRequest(Side& side, MEDIA_DATA_8_PARAM& record)
{
    textsAttribute(side, "TimeList", record.Time);
    if (!side.writes()) {
        textsAttribute(side, "DurationList", record.Duration);
        textsAttribute(side, "EventTypeList", record.EventType);
    }
}

void thumbnailResponse(Side& side, MEDIA_DATA_8_PARAM& record)
{
    if (const Element response = element(side, "RESPONSE_PARAM"))
        attribute(side, "Time", record.Time[0]);
    if (const Element image = element(side, "ImageInfo")) {
        attribute(side, "TotalLen", record.TotalLen);
        position(side, record);
    }
}

// --- Announced data ------------------------------------------------------------------------------

// Whether a message goes out with an element that announces data.
template <class Record>
bool inRequest(const Record&, int kind)
{
    return isRequest(kind);
}

bool withPicture(const MEDIA_DATA_4_PARAM& record, int kind)
{
    return isRequest(kind) || isSet(record.ChannelId);
}

bool withExport(const MEDIA_DATA_5_PARAM& record, int kind)
{
    return isRequest(kind) || isSet(record.DataLen);
}

bool withThumbnail(const MEDIA_DATA_8_PARAM&, int kind)
{
    return !isRequest(kind);
}

template <class Record, bool (*announces)(const Record&, int)>
int composeData(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<Record>(outbound.record);
    if (announces(record, outbound.kind))
        announceRawData(outbound.extraLength, record.DataLen);
    return composeParts(row, outbound);
}

// What the element that announces says; -1 if it isn't there.
int32_t announcedLength(const ElementReader& body)
{
    const ElementReader chunk = body.child("POS");
    TreeReader side(chunk ? chunk : body.child("ImageInfo"));
    int32_t length = -1;
    attribute(side, "DataLen", length);
    return length;
}

// The record and behind it, in the same block, the announced data. lengthAt is the place of its DataLen.
int giveRecordAndData(const MessageRow& row, const Part& part, const Message& message,
                      const ElementReader& body, const ElementReader& place, size_t lengthAt, void** result)
{
    const int32_t dataLength = announcedLength(body);
    std::string_view data;
    if (const int status = findRawData(message, row.leaf, dataLength, data))
        return status;
    auto* const record = static_cast<char*>(takeRecord(row.record, data.size()));
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    TreeReader side(place);
    part.list(side, record);
    // A malformed text may say it twice: the one that was checked counts.
    memcpy(record + lengthAt, &dataLength, sizeof dataLength);
    if (!data.empty()) {
        char* const behind = record + row.record.size;
        memcpy(behind, data.data(), data.size());
        memcpy(record + row.record.pointerAt, &behind, sizeof behind);
    }
    *result = record;
    return 0;
}

int analyseWithData(const MessageRow& row, Message& message, size_t lengthAt, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    for (const Part& part : row.parts) {
        if (const ElementReader found = findPart(part, body)) {
            const ElementReader& place = part.isWithin ? found : body;
            return part.tail != Tail::kNone
                       ? giveRecordAndData(row, part, message, body, place, lengthAt, result)
                       : givePart(row, part, message, place, result);
        }
    }
    return missingElement(row.leaf, row.missing);
}

// A part with a tail has the announced data behind its record.
template <class Record>
int analyseData(const MessageRow& row, Message& message, void** result)
{
    return analyseWithData(row, message, offsetof(Record, DataLen), result);
}

int analyseIntercom(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    if (!body.child("POS"))
        return missingElement(row.leaf, "POS");
    const int32_t dataLength = announcedLength(body);
    const auto textSize = static_cast<int>(message.text.size());
    const auto endCode = static_cast<int>(kEndCodeSize);
    if (message.sourceLength < 0 || int64_t{textSize} + endCode + dataLength != message.sourceLength) {
        ZelProtocolLogError("%s date size error : xmllen(%d) datalen(%d) endcode(%d) all(%d)\n",
                            row.leaf.name, textSize, dataLength, endCode, message.sourceLength);
        return ZEL_ERR_BAD_CONTENT;
    }
    return analyseData<MEDIA_DATA_3_PARAM>(row, message, result);
}

// --- Messages ------------------------------------------------------------------------------------

template <auto init, auto announces, class Record = typename Erased<init>::Type>
constexpr MessageRow dataMessage(const char* name, Part first, Part second = {})
{
    return message<init>(name, first, second)
        .reporting("POS")
        .followedBy(ZEL_BEHIND_RAW_DATA, offsetof(Record, pData))
        .composedBy(composeData<Record, announces>)
        .analysedBy(analyseData<Record>);
}

constexpr MessageRow kUpload = dataMessage<MEDIA_DATA_1_PARAM_init, inRequest<MEDIA_DATA_1_PARAM>>(
    "MediaData_UploadData_MessageAnalysis", over<uploadResponse>("RESPONSE_PARAM", Kinds::kNotRequests),
    within<position<MEDIA_DATA_1_PARAM>>("POS", Kinds::kRequests).withTail());
constexpr MessageRow kDownload = dataMessage<MEDIA_DATA_2_PARAM_init, inRequest<MEDIA_DATA_2_PARAM>>(
    "MediaData_DownloadData_MessageAnalysis", response<downloadResponse>(Kinds::kNotRequests),
    within<position<MEDIA_DATA_2_PARAM>>("POS", Kinds::kRequests).withTail());
constexpr MessageRow kIntercom =
    dataMessage<MEDIA_DATA_3_PARAM_init, inRequest<MEDIA_DATA_3_PARAM>>(
        "MediaData_IntercomData_MessageAnalysis", within<positionAndXml>("POS", Kinds::kRequests).withTail())
        .analysedBy(analyseIntercom);
constexpr MessageRow kPicture = dataMessage<MEDIA_DATA_4_PARAM_init, withPicture>(
    "MediaData_IntelligentPicData_MessageAnalysis",
    over<pictureResponse>("RESPONSE_PARAM", Kinds::kNotRequests).withTail(),
    over<pictureRequest>("DataInfo", Kinds::kRequests).withTail());
constexpr MessageRow kExport = dataMessage<MEDIA_DATA_5_PARAM_init, withExport>(
    "MediaData_ExportFaceListData_MessageAnalysis",
    over<exportResponse>("RESPONSE_PARAM", Kinds::kNotRequests).withTail(),
    over<exportRequest>("DataInfo", Kinds::kRequests).withTail());
constexpr MessageRow kDelete = message<MEDIA_DATA_6_PARAM_init>(
    "MediaData_DeleteFaceData_MessageAnalysis", over<deleteRequest>("DataInfo", Kinds::kRequests));
constexpr MessageRow kFaceList =
    message<MEDIA_DATA_7_PARAM_init>("MediaData_GetFaceListData_MessageAnalysis",
                                     over<faceListResponse>("DataInfo", Kinds::kNotRequests),
                                     written<faceListRequest>(Kinds::kRequests))
        .reporting("POS");
constexpr MessageRow kThumbnail = dataMessage<MEDIA_DATA_8_PARAM_init, withThumbnail>(
    "MediaData_GetAlarmThumbail_MessageAnalysis",
    over<thumbnailResponse>("RESPONSE_PARAM", Kinds::kNotRequests).withTail(), request<thumbnailRequest>());

constexpr CodeRow kCodes[] = {
    {1, &kUpload}, {2, &kDownload}, {3, &kIntercom}, {4, &kPicture},
    {5, &kExport}, {6, &kDelete},   {7, &kFaceList}, {8, &kThumbnail},
};
static_assert(isAscending(kCodes));

} // namespace

extern constexpr Family kMediaDataFamily("MEDIA_DATA_MESSAGE", kCodes);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int MEDIA_DATA_1_PARAM_init(MEDIA_DATA_1_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { record.pData = nullptr; });
}

int MEDIA_DATA_2_PARAM_init(MEDIA_DATA_2_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.RemoteFileName, record.LocalFileName);
        record.pData = nullptr;
    });
}

int MEDIA_DATA_3_PARAM_init(MEDIA_DATA_3_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { record.pData = nullptr; });
}

int MEDIA_DATA_4_PARAM_init(MEDIA_DATA_4_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.DataName);
        record.pData = nullptr;
    });
}

int MEDIA_DATA_5_PARAM_init(MEDIA_DATA_5_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Alias);
        record.pData = nullptr;
    });
}

int MEDIA_DATA_6_PARAM_init(MEDIA_DATA_6_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& entry : record.stFaces)
            zel::clear(entry.Alias);
    });
}

ZEL_EXPORT_INIT(MEDIA_DATA_7_PARAM, MEDIA_DATA_6_PARAM)

int MEDIA_DATA_8_PARAM_init(MEDIA_DATA_8_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Time, record.Duration, record.EventType);
        record.pData = nullptr;
    });
}

int MediaDataMessageCompose(const void* record, int kind, const char* code, char* buf, int len,
                            int* iExtraLen)
{
    return zel::composeAnnouncing(zel::kMediaDataFamily, record, kind, code, buf, len, iExtraLen);
}

int MediaDataMessageAnalysis(const char* text, const char* code, int srcLen, void** result)
{
    if (!text || !code)
        return zel::emptyParam(zel::kMediaDataFamily.name);
    const auto received = static_cast<size_t>(srcLen);
    const size_t length = srcLen > 0 ? strnlen(text, received) : strlen(text);
    zel::Message message({text, length}, srcLen > 0 ? received : length, srcLen > 0 ? srcLen : -1);
    return zel::kMediaDataFamily.analyse(zel::kMediaDataFamily, message, code, result);
}
