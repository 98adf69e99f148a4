#include "zel_protocol/debug_log.h"

#include "core/families.h"
#include "core/raw_data.h"
#include "core/scan.h"
#include "core/search.h"
#include "zel_platform/log.h"
#include "zel_platform/memory.h"

namespace zel {

namespace {

using Debug = DBG_CMD_PARAM;
using Log = SYSTEM_LOG_PARAM;

// --- Debug text ----------------------------------------------------------------------------------

void debugText(Side& side, Debug& record)
{
    ownText(side, record.acText, sizeof record.acText);
}

// The text isn't parsed: it need not even be well-formed. `length` is what an application says of it.
int readDebugText(const Message& message, int length, const MessageRow& row, void** result)
{
    constexpr Needle kOpening("<MESSAGE_BODY>", 'Y');
    constexpr Needle kClosing("</MESSAGE_BODY>", 'Y');
    if (const int status = testArguments(message, result, row.leaf))
        return status;
    const size_t opening = find(message.text, kOpening);
    const size_t closing = find(message.text, kClosing);
    if (opening == std::string_view::npos || closing == std::string_view::npos || closing < opening)
        return ZEL_ERR_BAD_DOCUMENT;
    const size_t begin = opening + kOpening.text.size();
    const std::string_view text = partOf(message.text, begin, closing - begin);
    if (length < 1 || static_cast<size_t>(length) < text.size()) {
        ZelProtocolLogError("Error: iBufLen(%d) small than len(%d)\n", length, printedLength(text));
        return ZEL_ERR_BUFFER_SMALL;
    }
    if (text.size() >= sizeof(Debug::acText)) {
        ZelProtocolLogError("%s text doesn't fit its record : len(%d)\n", row.leaf.name, printedLength(text));
        return ZEL_ERR_BUFFER_SMALL;
    }
    auto* const record = static_cast<Debug*>(takeRecord(row.record));
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    memcpy(record->acText, text.data(), text.size());
    *result = record;
    return 0;
}

int analyseDebug(const MessageRow& row, Message& message, void** result)
{
    return readDebugText(message, static_cast<int>(message.received), row, result);
}

constexpr MessageRow kDebug =
    message<DBG_CMD_PARAM_init>("DebugLogMessageAnalysis", body<debugText>()).analysedBy(analyseDebug);

constexpr CodeRow kDebugCodes[] = {{0, &kDebug, nullptr, 0, ""}};

// --- Attribute lists of a log, for both directions -----------------------------------------------

void piece(Side& side, Log& record)
{
    attribute(side, "Filename", record.Filename);
    attribute(side, "XmlLen", record.XmlLen);
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "DataLen", record.DataLen);
}

void command(Side& side, Log& record)
{
    textElement(side, "cmd", record.acCmd, kNoLineFeed);
}

// The number has a line of its own.
void responseLength(Side& side, Log& record)
{
    int32_t& length = record.iRespDataLen;
    if (const Element around = container(side, "RESPONSE_DATA_LEN")) {
        if (isText(side)) {
            appendNumber(writerOf(side), length);
            writerOf(side).append("\n");
        } else if (isTree(side)) {
            const char* const text = readerOf(side).at.text();
            if (text && *text)
                length = numberOf(text);
        } else {
            Visitor& visitor = visitorOf(side);
            visitor.see(visitor, {"", ZEL_FORM_ATOI, false, &length, sizeof length});
        }
    }
}

void writeResponse(Side& side, Log& record)
{
    const bool hasLength = isSet(record.iRespDataLen);
    const bool hasText = isSet(record.RespStr);
    if (side.takes(hasLength)) {
        textElement(side, "RESPONSE_PARAM", record.acCmd);
        responseLength(side, record);
    }
    if (side.takes(!hasLength && hasText))
        if (const Element status = container(side, "RESPONSE_PARAM"))
            attribute(side, "RespStr", record.RespStr);
    if (side.takes(!hasLength && !hasText))
        ownText(side, record.acData, sizeof record.acData);
}

// Whatever the status text is, it takes the place of a bare one.
void readResponse(Side& side, Log& record)
{
    bool hasStatus = false;
    ownText(side, record.acData, sizeof record.acData);
    if (const Element status = element(side, "RESPONSE_PARAM")) {
        hasStatus = true;
        clear(record.acData);
        ownText(side, record.acData, sizeof record.acData);
    }
    if (hasStatus)
        responseLength(side, record);
}

void response(Side& side, Log& record)
{
    if (side.writes())
        writeResponse(side, record);
    else
        readResponse(side, record);
}

// --- Log -----------------------------------------------------------------------------------------

enum LogPart
{
    kPiece,
    kCommand,
    kResponse
};

int composeLog(const MessageRow& row, Outbound& outbound)
{
    const auto& record = as<Log>(outbound.record);
    if (!isRequest(outbound.kind)) {
        if (isSet(record.iRespDataLen))
            announceRawData(outbound.extraLength, record.iRespDataLen);
        writePart(row.parts[kResponse], outbound);
    } else if (isSet(record.Filename)) {
        announceRawData(outbound.extraLength, record.DataLen);
        writePart(row.parts[kPiece], outbound);
    } else if (isSet(record.acCmd)) {
        writePart(row.parts[kCommand], outbound);
    }
    return 0;
}

// Behind a text of unknown surroundings there is none.
int copyData(const Message& message, const Leaf& leaf, Log& record)
{
    if (message.sourceLength < 0 || record.DataLen < 1)
        return 0;
    if (static_cast<size_t>(record.DataLen) > sizeof record.acData) {
        ZelProtocolLogError("%s data doesn't fit its record : datalen(%d)\n", leaf.name, record.DataLen);
        return ZEL_ERR_BUFFER_SMALL;
    }
    std::string_view data;
    if (const int status = findRawData(message, leaf, record.DataLen, data))
        return status;
    memcpy(record.acData, data.data(), data.size());
    return 0;
}

int givePiece(const MessageRow& row, const Message& message, const ElementReader& place, void** result)
{
    auto* const record = static_cast<Log*>(takeRecord(row.record));
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    TreeReader side(place);
    piece(side, *record);
    if (const int status = copyData(message, row.leaf, *record)) {
        ZelProtocolFree(record);
        return status;
    }
    *result = record;
    return 0;
}

int analyseLog(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    if (const int status = openBody(message, result, row.leaf, body))
        return status;
    if (const ElementReader place = findPart(row.parts[kPiece], body))
        return givePiece(row, message, place, result);
    if (findPart(row.parts[kResponse], body))
        return givePart(row, row.parts[kResponse], message, body, result);
    if (findPart(row.parts[kCommand], body))
        return givePart(row, row.parts[kCommand], message, body, result);
    const char* const bare = body.text();
    if (!bare || !*bare)
        return missingElement(row.leaf, row.parts[kResponse].elementText);
    return givePart(row, row.parts[kResponse], message, body, result);
}

constexpr MessageRow kLog =
    message<SYSTEM_LOG_PARAM_init>(
        "SystemLogMessageAnalysis", within<piece>("POS", Kinds::kRequests, kBlankBehindName),
        over<command>("cmd", Kinds::kRequests), over<response>("RESPONSE_PARAM", Kinds::kNotRequests))
        .followedBy(ZEL_BEHIND_RAW_DATA)
        .composedBy(composeLog)
        .analysedBy(analyseLog);

constexpr CodeRow kLogCodes[] = {{0, &kLog, nullptr, 0, ""}, {1, &kLog, nullptr, 1, ""}};

} // namespace

extern constexpr Family kDebugFamily("DBG_CMD_MESSAGE", kDebugCodes, composeOnly, analyseOnly);

extern constexpr Family kSystemLogFamily = Family("SYSTEM_LOG_MESSAGE", kLogCodes, composeOnly, analyseOnly)
                                               .alsoNamed("SYSTEM_LOG_DATA")
                                               .loggedAs("SYSTEM_LOG_PARAM", "SystemLogMessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int DBG_CMD_PARAM_init(DBG_CMD_PARAM* param)
{
    return zel::startAtZero(param);
}

int SYSTEM_LOG_PARAM_init(SYSTEM_LOG_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.Filename, record.acCmd, record.RespStr, record.acData);
    });
}

int DebugLogMessageAnalysis(const char* text, int iBufLen, void** result)
{
    return zel::readDebugText(zel::Message(text), iBufLen, zel::kDebug, result);
}

int SystemLogMessageCompose(const void* record, int kind, char* buf, int len, int* iExtraLen)
{
    return zel::composeAnnouncing(zel::kSystemLogFamily, record, kind, "", buf, len, iExtraLen);
}

int SystemLogMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText(zel::kSystemLogFamily, text, "", result);
}
