#include "zel_protocol/media_data.h"

#include <algorithm>

#include "core/families.h"
#include "core/raw_data.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "MEDIA_DATA_MESSAGE";

// A channel that stands for none: it isn't written.
constexpr int32_t kNoChannel = 255;

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto position = [](auto& side, auto& record) {
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "DataLen", record.DataLen);
};

constexpr auto positionAndXml = [](auto& side, auto& record) {
    position(side, record);
    attributeIfSet(side, "XmlLen", record.XmlLen);
};

constexpr auto xmlAndPosition = [](auto& side, auto& record) {
    attribute(side, "XmlLen", record.XmlLen);
    position(side, record);
};

constexpr auto channel = [](auto& side, auto& record) { attribute(side, "ChannelId", record.ChannelId); };

constexpr auto uploadResponse = [](auto& side, auto& record) { attribute(side, "Type", record.Type); };

constexpr auto downloadResponse = [](auto& side, auto& record) {
    attribute(side, "RemoteFileName", record.RemoteFileName);
    attribute(side, "LocalFileName", record.LocalFileName);
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "ErrorCode", record.ErrorCode);
};

constexpr auto pictureInfo = [](auto& side, auto& record) {
    attribute(side, "DataType", record.DataType);
    attribute(side, "DataTotalLen", record.DataTotalLen);
    attribute(side, "DataName", record.DataName);
    attribute(side, "Timestamp", record.Timestamp);
    attribute(side, "SerialNum", record.SerialNum);
};

constexpr auto face = [](auto& side, auto& record) {
    attribute(side, "SerialNum", record.SerialNum);
    attribute(side, "Alias", record.Alias);
};

constexpr auto numberAndType = [](auto& side, auto& record) {
    attribute(side, "DataNum", record.DataNum);
    attribute(side, "ListType", record.ListType);
};

constexpr auto exportInfo = [](auto& side, auto& record) {
    face(side, record);
    attribute(side, "ListType", record.ListType);
    attribute(side, "DataNum", record.DataNum);
};

constexpr auto faceListInfo = [](auto& side, auto& record) {
    attribute(side, "TotalData", record.TotalData);
    numberAndType(side, record);
};

constexpr auto thumbnailTime = [](auto& side, auto& record) { attribute(side, "Time", record.Time[0]); };

constexpr auto thumbnailPosition = [](auto& side, auto& record) {
    attribute(side, "TotalLen", record.TotalLen);
    position(side, record);
};

// --- Announced data ------------------------------------------------------------------------------

template <size_t N, class Record, class Attributes>
void announcingElement(TextWriter& out, const char (&name)[N], const Record& record, Attributes attributes,
                       int& extraLength)
{
    element(out, name, [&](TextWriter& side) { attributes(side, record); });
    announceRawData(extraLength, record.DataLen);
}

// The record and behind it, in the same block, the data that the element announces, if it is there.
template <class Record, class Fill>
int giveRecordAndData(const Message& message, void** result, const Leaf& leaf, int (*init)(Record*),
                      const ElementReader& announcing, Fill fill)
{
    int32_t dataLength = -1;
    attribute(announcing, "DataLen", dataLength);
    std::string_view data;
    if (const int status = findRawData(message, leaf, dataLength, data))
        return status;
    Record* record = takeRecord(init, data.size());
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    fill(*record);
    // A malformed text may say it twice: the one that was checked counts.
    record->DataLen = dataLength;
    if (!data.empty()) {
        record->pData = reinterpret_cast<char*>(record + 1);
        memcpy(record->pData, data.data(), data.size());
    }
    *result = record;
    return 0;
}

// A response without data, or else a chunk.
template <class Record, class Response>
int analyseResponseOrChunk(Message& message, void** result, const Leaf& leaf, int (*init)(Record*),
                           Response response)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    if (const ElementReader element = body.child("RESPONSE_PARAM"))
        return giveRecord(result, init, [&](Record& record) { response(element, record); });
    const ElementReader chunk = body.child("POS");
    if (!chunk)
        return missingElement(leaf, "POS");
    return giveRecordAndData(message, result, leaf, init, chunk,
                             [&](Record& record) { position(chunk, record); });
}

// A channel or else a description, and either may announce a chunk.
template <class Record, class Info, class RequestPosition>
int analyseChannelOrInfo(Message& message, void** result, const Leaf& leaf, int (*init)(Record*), Info info,
                         RequestPosition requestPosition)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader response = body.child("RESPONSE_PARAM");
    const ElementReader request = response ? ElementReader() : body.child("DataInfo");
    if (!response && !request)
        return missingElement(leaf, "POS");
    const ElementReader chunk = body.child("POS");
    return giveRecordAndData(message, result, leaf, init, chunk, [&](Record& record) {
        if (response) {
            channel(response, record);
            xmlAndPosition(chunk, record);
        } else {
            info(request, record);
            requestPosition(chunk, record);
        }
    });
}

// --- Face lists ----------------------------------------------------------------------------------

void composeFaces(TextWriter& out, const MEDIA_DATA_6_PARAM& record)
{
    const size_t count = clampCount(record.DataNum, std::size(record.stFaces));
    for (size_t i = 0; i < count && isSet(record.stFaces[i].SerialNum); ++i)
        element(out, "HumanFaceInfo", [&](TextWriter& side) { face(side, record.stFaces[i]); });
}

template <class Info>
int analyseFaceList(Message& message, void** result, const Leaf& leaf, int (*init)(MEDIA_DATA_6_PARAM*),
                    const char* missing, Info info)
{
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader list = body.child("DataInfo");
    if (!list)
        return missingElement(leaf, missing);
    return giveRecord(result, init, [&](MEDIA_DATA_6_PARAM& record) {
        info(list, record);
        rowElements(body, "HumanFaceInfo", record.stFaces, face);
    });
}

// --- Lists of short texts ------------------------------------------------------------------------

using ShortTexts = char[20][16];

void composeTexts(TextWriter& out, const ShortTexts& texts)
{
    for (const auto& text : texts) {
        if (!isSet(text))
            break;
        appendText(out, text);
        out.append(",");
    }
}

// Pieces between commas, empty ones passed over; a long one fills its entry to the last byte.
void readTexts(const ElementReader& in, const char* name, ShortTexts& texts)
{
    const char* rest = in.value(name);
    if (!rest)
        return;
    for (auto& text : texts) {
        rest += strspn(rest, ",");
        const size_t length = strcspn(rest, ",");
        if (length == 0)
            return;
        clear(text);
        memcpy(text, rest, std::min(length, sizeof text));
        rest += length;
    }
}

// --- Messages ------------------------------------------------------------------------------------

int MediaData_UploadData_MessageCompose(TextWriter& out, const MEDIA_DATA_1_PARAM& record, int kind,
                                        int& extraLength)
{
    if (isRequest(kind))
        announcingElement(out, "POS", record, position, extraLength);
    else if (isSet(record.Type))
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { uploadResponse(side, record); });
    return 0;
}

int MediaData_UploadData_MessageAnalysis(Message& message, void** result)
{
    return analyseResponseOrChunk(message, result, {__func__}, MEDIA_DATA_1_PARAM_init, uploadResponse);
}

int MediaData_DownloadData_MessageCompose(TextWriter& out, const MEDIA_DATA_2_PARAM& record, int kind,
                                          int& extraLength)
{
    if (isRequest(kind))
        announcingElement(out, "POS", record, position, extraLength);
    else
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { downloadResponse(side, record); });
    return 0;
}

int MediaData_DownloadData_MessageAnalysis(Message& message, void** result)
{
    return analyseResponseOrChunk(message, result, {__func__}, MEDIA_DATA_2_PARAM_init, downloadResponse);
}

int MediaData_IntercomData_MessageCompose(TextWriter& out, const MEDIA_DATA_3_PARAM& record, int kind,
                                          int& extraLength)
{
    if (isRequest(kind))
        announcingElement(out, "POS", record, positionAndXml, extraLength);
    return 0;
}

int MediaData_IntercomData_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader chunk = body.child("POS");
    if (!chunk)
        return missingElement(leaf, "POS");
    int32_t dataLength = -1;
    attribute(chunk, "DataLen", dataLength);
    const auto textSize = static_cast<int>(message.text.size());
    const auto endCode = static_cast<int>(kEndCodeSize);
    if (int64_t{textSize} + endCode + dataLength != message.sourceLength) {
        ZelProtocolLogError("%s date size error : xmllen(%d) datalen(%d) endcode(%d) all(%d)\n", leaf.name,
                            textSize, dataLength, endCode, message.sourceLength);
        return ZEL_ERR_BAD_CONTENT;
    }
    return giveRecordAndData(message, result, leaf, MEDIA_DATA_3_PARAM_init, chunk,
                             [&](auto& record) { positionAndXml(chunk, record); });
}

int MediaData_IntelligentPicData_MessageCompose(TextWriter& out, const MEDIA_DATA_4_PARAM& record, int kind,
                                                int& extraLength)
{
    const auto info = [&] { element(out, "DataInfo", [&](TextWriter& side) { pictureInfo(side, record); }); };
    if (isRequest(kind)) {
        announcingElement(out, "POS", record, position, extraLength);
        info();
    } else if (!isSet(record.ChannelId)) {
        info();
    } else {
        if (record.ChannelId != kNoChannel)
            element(out, "RESPONSE_PARAM", [&](TextWriter& side) { channel(side, record); });
        announcingElement(out, "POS", record, xmlAndPosition, extraLength);
    }
    return 0;
}

// Unlike that of the face list, a request's XmlLen is read although it isn't written.
int MediaData_IntelligentPicData_MessageAnalysis(Message& message, void** result)
{
    return analyseChannelOrInfo(message, result, {__func__}, MEDIA_DATA_4_PARAM_init, pictureInfo,
                                xmlAndPosition);
}

int MediaData_ExportFaceListData_MessageCompose(TextWriter& out, const MEDIA_DATA_5_PARAM& record, int kind,
                                                int& extraLength)
{
    if (isRequest(kind)) {
        element(out, "DataInfo", [&](TextWriter& side) { exportInfo(side, record); });
        announcingElement(out, "POS", record, position, extraLength);
        return 0;
    }
    if (isSet(record.ChannelId))
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { channel(side, record); });
    if (isSet(record.DataLen))
        announcingElement(out, "POS", record, xmlAndPosition, extraLength);
    return 0;
}

int MediaData_ExportFaceListData_MessageAnalysis(Message& message, void** result)
{
    return analyseChannelOrInfo(message, result, {__func__}, MEDIA_DATA_5_PARAM_init, exportInfo, position);
}

int MediaData_DeleteFaceData_MessageCompose(TextWriter& out, const MEDIA_DATA_6_PARAM& record, int kind)
{
    if (!isRequest(kind))
        return 0;
    element(out, "DataInfo", [&](TextWriter& side) { numberAndType(side, record); });
    composeFaces(out, record);
    return 0;
}

int MediaData_DeleteFaceData_MessageAnalysis(Message& message, void** result)
{
    return analyseFaceList(message, result, {__func__}, MEDIA_DATA_6_PARAM_init, "DataInfo", numberAndType);
}

int MediaData_GetFaceListData_MessageCompose(TextWriter& out, const MEDIA_DATA_7_PARAM& record, int kind)
{
    element(out, "DataInfo", [&](TextWriter& side) { faceListInfo(side, record); });
    if (!isRequest(kind))
        composeFaces(out, record);
    return 0;
}

int MediaData_GetFaceListData_MessageAnalysis(Message& message, void** result)
{
    return analyseFaceList(message, result, {__func__}, MEDIA_DATA_7_PARAM_init, "POS", faceListInfo);
}

int MediaData_GetAlarmThumbail_MessageCompose(TextWriter& out, const MEDIA_DATA_8_PARAM& record, int kind,
                                              int& extraLength)
{
    if (isRequest(kind)) {
        element(out, "REQUEST_PARAM", [&](TextWriter& side) {
            side.append("TimeList=\"");
            composeTexts(side, record.Time);
            side.append("\"\n");
        });
    } else {
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { thumbnailTime(side, record); });
        announcingElement(out, "ImageInfo", record, thumbnailPosition, extraLength);
    }
    return 0;
}

int MediaData_GetAlarmThumbail_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    if (const ElementReader response = body.child("RESPONSE_PARAM")) {
        const ElementReader image = body.child("ImageInfo");
        return giveRecordAndData(message, result, leaf, MEDIA_DATA_8_PARAM_init, image, [&](auto& record) {
            thumbnailTime(response, record);
            thumbnailPosition(image, record);
        });
    }
    const ElementReader request = body.child("REQUEST_PARAM");
    if (!request)
        return missingElement(leaf, "POS");
    return giveRecord(result, MEDIA_DATA_8_PARAM_init, [&](MEDIA_DATA_8_PARAM& record) {
        readTexts(request, "TimeList", record.Time);
        readTexts(request, "DurationList", record.Duration);
        readTexts(request, "EventTypeList", record.EventType);
    });
}

} // namespace

// --- Dispatch ------------------------------------------------------------------------------------

int MediaDataMessageCompose(TextWriter& out, const void* record, int kind, std::string_view code,
                            int& extraLength)
{
    switch (const int32_t number = numberOf(code)) {
    case 1:
        return MediaData_UploadData_MessageCompose(out, as<MEDIA_DATA_1_PARAM>(record), kind, extraLength);
    case 2:
        return MediaData_DownloadData_MessageCompose(out, as<MEDIA_DATA_2_PARAM>(record), kind, extraLength);
    case 3:
        return MediaData_IntercomData_MessageCompose(out, as<MEDIA_DATA_3_PARAM>(record), kind, extraLength);
    case 4:
        return MediaData_IntelligentPicData_MessageCompose(out, as<MEDIA_DATA_4_PARAM>(record), kind,
                                                           extraLength);
    case 5:
        return MediaData_ExportFaceListData_MessageCompose(out, as<MEDIA_DATA_5_PARAM>(record), kind,
                                                           extraLength);
    case 6:
        return MediaData_DeleteFaceData_MessageCompose(out, as<MEDIA_DATA_6_PARAM>(record), kind);
    case 7:
        return MediaData_GetFaceListData_MessageCompose(out, as<MEDIA_DATA_7_PARAM>(record), kind);
    case 8:
        return MediaData_GetAlarmThumbail_MessageCompose(out, as<MEDIA_DATA_8_PARAM>(record), kind,
                                                         extraLength);
    default:
        return unknownCode(kFamily, number);
    }
}

int MediaDataMessageAnalysis(Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(kFamily);
    switch (const int32_t number = numberOf(code)) {
    case 1:
        return MediaData_UploadData_MessageAnalysis(message, result);
    case 2:
        return MediaData_DownloadData_MessageAnalysis(message, result);
    case 3:
        return MediaData_IntercomData_MessageAnalysis(message, result);
    case 4:
        return MediaData_IntelligentPicData_MessageAnalysis(message, result);
    case 5:
        return MediaData_ExportFaceListData_MessageAnalysis(message, result);
    case 6:
        return MediaData_DeleteFaceData_MessageAnalysis(message, result);
    case 7:
        return MediaData_GetFaceListData_MessageAnalysis(message, result);
    case 8:
        return MediaData_GetAlarmThumbail_MessageAnalysis(message, result);
    default:
        return unknownCode(kFamily, number);
    }
}

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

int MEDIA_DATA_7_PARAM_init(MEDIA_DATA_7_PARAM* param)
{
    return MEDIA_DATA_6_PARAM_init(param);
}

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
    if (!code)
        return zel::emptyParam(zel::kFamily);
    return zel::composeAnnouncing(
        zel::kFamily, record, buf, len, iExtraLen, [&](zel::TextWriter& out, int& extraLength) {
            return zel::MediaDataMessageCompose(out, record, kind, code, extraLength);
        });
}

int MediaDataMessageAnalysis(const char* text, const char* code, int srcLen, void** result)
{
    if (!text || !code)
        return zel::emptyParam(zel::kFamily);
    const auto received = static_cast<size_t>(srcLen);
    const size_t length = srcLen > 0 ? strnlen(text, received) : strlen(text);
    zel::Message message({text, length}, srcLen > 0 ? received : length, srcLen);
    return zel::MediaDataMessageAnalysis(message, code, result);
}
