#include "zel_protocol/core.h"

const char* ZelProtocolStatusText(int status)
{
    switch (status) {
    case -1:
        return "null pointer";
    case ZEL_ERR_UNKNOWN_MSG:
        return "unknown message type or code";
    case ZEL_ERR_BAD_PARAM:
        return "missing argument, or a length below 1";
    case ZEL_ERR_NO_MEMORY:
        return "no memory";
    case ZEL_ERR_BAD_DOCUMENT:
        return "not a document of the protocol";
    case ZEL_ERR_NO_ELEMENT:
        return "required element is missing";
    case ZEL_ERR_NO_HEADER:
        return "no readable header, or no room for it";
    case ZEL_ERR_BAD_CONTENT:
        return "parts of the message don't agree";
    case ZEL_ERR_BUFFER_SMALL:
        return "buffer is too small";
    case ZEL_ERR_CODEC:
        return "enciphering or deciphering failed";
    case ZEL_ERR_NO_ENVELOPE:
        return "no closing root tag, or no message inside";
    default:
        return status < 0 ? "unknown status" : "success";
    }
}
