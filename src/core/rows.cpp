#include "core/rows.h"

#include "zel_platform/log.h"

namespace zel {

// --- One message ---------------------------------------------------------------------------------

namespace {

const char* missingOf(const MessageRow& row)
{
    if (row.missing)
        return row.missing;
    return row.parts[1].list && row.parts[1].isRead ? "RESPONSE_PARAM" : row.parts[0].elementText;
}

} // namespace

void runPart(const Part& part, Side& side, void* record)
{
    if (!part.isWithin) {
        part.list(side, record);
    } else if (const Element within = element(side, part.element(), part.tags)) {
        part.list(side, record);
    }
}

void writePart(const Part& part, Outbound& outbound)
{
    // A list only reads a record that it writes out.
    runPart(part, outbound.out, const_cast<void*>(outbound.record));
}

int composeParts(const MessageRow& row, Outbound& outbound)
{
    for (const Part& part : row.parts) {
        if (includes(part.kinds, outbound.kind)) {
            writePart(part, outbound);
            break;
        }
    }
    return 0;
}

// What a part is looked for; none if it isn't there.
ElementReader findPart(const Part& part, const ElementReader& body)
{
    if (!part.list || !part.isRead)
        return {};
    return part.elementText ? body.child(part.element()) : body;
}

int givePart(const MessageRow& row, const Part& part, Message& message, const ElementReader& place,
             void** result)
{
    if (!result)
        return ZEL_ERR_BAD_PARAM;
    void* const record = takeRecord(row.record);
    if (!record)
        return ZEL_ERR_NO_MEMORY;
    if (row.header) {
        TreeReader header(message.root.child("MESSAGE_HEADER"));
        row.header(header, record);
    }
    TreeReader side(place);
    part.list(side, record);
    *result = record;
    return 0;
}

int giveParts(const MessageRow& row, Message& message, const ElementReader& body, void** result)
{
    for (const Part& part : row.parts)
        if (const ElementReader found = findPart(part, body))
            return givePart(row, part, message, part.isWithin ? found : body, result);
    return missingElement(row.leaf, missingOf(row));
}

int analyseParts(const MessageRow& row, Message& message, void** result)
{
    ElementReader body;
    const int status = openBody(message, result, row.leaf, body);
    return status != 0 ? status : giveParts(row, message, body, result);
}

int analyse(const MessageRow& row, const char* text, void** result)
{
    Message message(text);
    return analyse(row, message, result);
}

// --- Families ------------------------------------------------------------------------------------

const CodeRow* findCode(const Family& family, int32_t code)
{
    const CodeRow* first = family.codes;
    size_t count = family.count;
    while (count > 0) {
        const size_t half = count / 2;
        if (first[half].code == code)
            return first + half;
        if (first[half].code < code) {
            first += half + 1;
            count -= half + 1;
        } else {
            count = half;
        }
    }
    return nullptr;
}

int emptyParam(const char* name)
{
    ZelProtocolLogError("%s put a empty Param\n", name);
    return ZEL_ERR_BAD_PARAM;
}

int unknownCode(const Family& family, std::string_view code)
{
    ZelProtocolLogError("%s deal a unknow msg_cdoe : %d\n", family.name, numberOf(code));
    return ZEL_ERR_UNKNOWN_MSG;
}

int composeCode(const Family& family, Outbound& outbound)
{
    const CodeRow* const found = findCode(family, numberOf(outbound.code));
    if (!found)
        return family.unknown(family, outbound.code);
    return found->row ? compose(*found->row, outbound) : 0;
}

int analyseCode(const Family& family, Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(family.analysisName);
    const CodeRow* const found = findCode(family, numberOf(code));
    if (!found)
        return family.unknown(family, code);
    return found->row ? analyse(*found->row, message, result) : 0;
}

int analyseBodyFirst(const Family& family, Message& message, std::string_view code, void** result)
{
    if (lacksArgument(message, code, result))
        return emptyParam(family.analysisName);
    const Leaf leaf = {family.analysisName};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const CodeRow* const found = findCode(family, numberOf(code));
    return found ? giveParts(*found->row, message, body, result) : family.unknown(family, code);
}

const CodeRow* findWord(const Family& family, std::string_view code)
{
    const int32_t number = numberOf(code);
    for (size_t i = 0; i < family.count; ++i) {
        const CodeRow& row = family.codes[i];
        if (row.text ? code == row.text : number == row.code)
            return &row;
    }
    return nullptr;
}

int unknownWord(const char* name, std::string_view code)
{
    ZelProtocolLogError("%s deal a unknow Msg_code:%.*s !!!\n", name, printedLength(code), code.data());
    return ZEL_ERR_UNKNOWN_MSG;
}

int composeWord(const Family& family, Outbound& outbound)
{
    const CodeRow* const found = findWord(family, outbound.code);
    return found ? compose(*found->row, outbound) : family.unknown(family, outbound.code);
}

int composeOnly(const Family& family, Outbound& outbound)
{
    return compose(*family.codes->row, outbound);
}

int analyseOnly(const Family& family, Message& message, std::string_view, void** result)
{
    if (message.isNull() || !result)
        return emptyParam(family.analysisName);
    return analyse(*family.codes->row, message, result);
}

int finishBody(TextWriter& out, int status)
{
    if (out.length() != 0)
        *out.cursor = '\0';
    if (status != 0)
        return status;
    return out.overflowed() ? ZEL_ERR_BUFFER_SMALL : 0;
}

int composeAnnouncing(const Family& family, const void* record, int kind, const char* code, char* buf,
                      int len, int* iExtraLen)
{
    if (!buf || len < 1 || !code || !iExtraLen)
        return emptyParam(family.name);
    if (!record)
        return 0;
    TextWriter out(buf, static_cast<size_t>(len) - 1);
    Outbound outbound{out, record, kind, code, *iExtraLen};
    const int status = family.compose(family, outbound);
    *iExtraLen = outbound.extraLength;
    return finishBody(out, status);
}

int composeBody(const Family& family, const void* record, int kind, const char* code, char* buf, int len)
{
    int extraLength = 0;
    return composeAnnouncing(family, record, kind, code, buf, len, &extraLength);
}

int analyseText(const Family& family, const char* text, const char* code, void** result)
{
    Message message(text);
    return family.analyse(family, message, code ? std::string_view(code) : std::string_view(), result);
}

} // namespace zel
