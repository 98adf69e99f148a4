// The attributes of TRANSPARENT_HEADER, for both directions.
#ifndef ZEL_CORE_TRANSPARENT_LIST_H
#define ZEL_CORE_TRANSPARENT_LIST_H

#include "core/attributes.h"

namespace zel {

constexpr auto transparentAttributes = [](auto& side, auto& header) {
    attribute(side, "Trans_Type", header.Trans_Type);
    attribute(side, "Channel_ID", header.Channel_ID);
    attribute(side, "Source_Type", header.Source_Type);
    attribute(side, "Session_ID", header.Session_ID);
    attribute(side, "Trans_Result", header.Trans_Result);
};

} // namespace zel

#endif
