/**
 * The whole public interface of the message codec.
 */
#ifndef ZEL_PROTOCOL_ZEL_PROTOCOL_H
#define ZEL_PROTOCOL_ZEL_PROTOCOL_H

#include "zel_protocol/core.h"
#include "zel_protocol/nvr_replay.h"
#include "zel_protocol/user_auth.h"

#endif
