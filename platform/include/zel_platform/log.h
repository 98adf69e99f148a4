/**
 * Log service: printf forms with their arguments. Logging never changes what the library does.
 *
 * An application replaces it by defining all three functions itself. They may be called from several threads
 * at once. The texts of the "msgbuf:" forms contain whole messages, passwords and keys included: a log that
 * other people read must not keep them.
 */
#ifndef ZEL_PLATFORM_LOG_H
#define ZEL_PLATFORM_LOG_H

#ifdef __cplusplus
extern "C" {
#endif

#if defined(__GNUC__)
#define ZEL_PRINTF_FORM __attribute__((format(printf, 1, 2)))
#else
#define ZEL_PRINTF_FORM
#endif

/** Details that help while developing. */
void ZelProtocolLogDebug(const char* format, ...) ZEL_PRINTF_FORM;

/** Progress of a call that goes well. */
void ZelProtocolLogInfo(const char* format, ...) ZEL_PRINTF_FORM;

/** One text for each failure. */
void ZelProtocolLogError(const char* format, ...) ZEL_PRINTF_FORM;

#ifdef __cplusplus
}
#endif

#endif
