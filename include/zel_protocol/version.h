/**
 * The library's version. It stands here alone: the build reads it from this file.
 */
#ifndef ZEL_PROTOCOL_VERSION_H
#define ZEL_PROTOCOL_VERSION_H

#include "zel_protocol/core.h"

/* Of the headers that a program is compiled with. */
#define ZEL_PROTOCOL_VERSION_MAJOR 1
#define ZEL_PROTOCOL_VERSION_MINOR 0
#define ZEL_PROTOCOL_VERSION_PATCH 0

#ifdef __cplusplus
extern "C" {
#endif

/** The version of the library that the program runs with, "1.0.0" say. */
ZEL_API const char* ZelProtocolVersion(void);

#ifdef __cplusplus
}
#endif

#endif
