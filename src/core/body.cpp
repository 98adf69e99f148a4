#include "core/body.h"

#include "zel_platform/log.h"

namespace zel {

int emptyParam(const char* family)
{
    ZelProtocolLogError("%s put a empty Param\n", family);
    return ZEL_ERR_BAD_PARAM;
}

int unknownCode(const char* family, int32_t code)
{
    ZelProtocolLogError("%s deal a unknow msg_cdoe : %d\n", family, code);
    return ZEL_ERR_UNKNOWN_MSG;
}

int finishBody(TextWriter& out, int status)
{
    *out.cursor = '\0';
    if (status != 0)
        return status;
    return out.overflowed() ? ZEL_ERR_BUFFER_SMALL : 0;
}

} // namespace zel
