#include "zel_protocol/version.h"

#define ZEL_TEXT(number) #number
#define ZEL_DOTTED(major, minor, patch) ZEL_TEXT(major) "." ZEL_TEXT(minor) "." ZEL_TEXT(patch)

const char* ZelProtocolVersion()
{
    return ZEL_DOTTED(ZEL_PROTOCOL_VERSION_MAJOR, ZEL_PROTOCOL_VERSION_MINOR, ZEL_PROTOCOL_VERSION_PATCH);
}
