// What the compose functions share.
#ifndef ZEL_CORE_BODY_H
#define ZEL_CORE_BODY_H

#include <string_view>

#include "core/elements.h"
#include "zel_protocol/core.h"

namespace zel {

inline bool isRequest(int kind)
{
    return kind == 0 || kind == 2;
}
inline bool isResponse(int kind)
{
    return kind == 1 || kind == 3;
}

// A header's text: ends at its terminator or at the field's end.
template <size_t N>
std::string_view textOf(const char (&field)[N])
{
    return {field, textLength(field)};
}

// A text and its length for a printf form's %.*s.
inline int printedLength(std::string_view text)
{
    return static_cast<int>(text.size());
}

int emptyParam(const char* family);
int unknownCode(const char* family, int32_t code);

// Ends a body's text in its buffer; 0, the status so far, or ZEL_ERR_BUFFER_SMALL.
int finishBody(TextWriter& out, int status);

// A dispatcher's record as the type that its code stands for.
template <class Record>
const Record& as(const void* record)
{
    return *static_cast<const Record*>(record);
}

// The exported form of a dispatcher whose type alone selects the message.
template <int (*dispatcher)(TextWriter&, const void*, int)>
int composeOnly(const char* family, const void* record, int kind, char* buf, int len)
{
    if (!buf || len < 1)
        return emptyParam(family);
    if (!record)
        return 0;
    TextWriter out(buf, static_cast<size_t>(len) - 1);
    return finishBody(out, dispatcher(out, record, kind));
}

// The exported form of a dispatcher by code.
template <int (*dispatcher)(TextWriter&, const void*, int, std::string_view)>
int composeCode(const char* family, const void* record, int kind, const char* code, char* buf, int len)
{
    if (!buf || len < 1 || !code)
        return emptyParam(family);
    if (!record)
        return 0;
    TextWriter out(buf, static_cast<size_t>(len) - 1);
    return finishBody(out, dispatcher(out, record, kind, code));
}

// A leaf that has a form for each direction.
template <class Record, class Request, class Response>
int composeEither(TextWriter& out, const Record& record, int kind, Request request, Response response)
{
    if (isRequest(kind))
        element(out, "REQUEST_PARAM", [&](TextWriter& side) { request(side, record); });
    else
        element(out, "RESPONSE_PARAM", [&](TextWriter& side) { response(side, record); });
    return 0;
}

} // namespace zel

#endif
