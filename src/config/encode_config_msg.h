// A camera's media in slices: rows of the configuration family.
#ifndef ZEL_CONFIG_ENCODE_CONFIG_MSG_H
#define ZEL_CONFIG_ENCODE_CONFIG_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_config_encode.h"

namespace zel {

extern const MessageRow kSetMediaVideoencode;
extern const MessageRow kSetMediaCapture;
extern const MessageRow kSetMediaVideoOsd;
extern const MessageRow kSetMediaDrop;

} // namespace zel

#endif
