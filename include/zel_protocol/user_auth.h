/**
 * Login: family "USER_AUTH_MESSAGE". The code isn't looked at.
 */
#ifndef ZEL_PROTOCOL_USER_AUTH_H
#define ZEL_PROTOCOL_USER_AUTH_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * The login request and its response. A text of an analysed record may fill its field without a terminator.
 *
 * Both directions carry Capbility, Version and KeyTypeVer; in a response they and its other fields go out
 * only where they are set.
 */
typedef struct USER_AUTH_CMD_USER_AUTH_PARAM
{
    int32_t AuthMethod;  /**< request; not written when absent */
    int32_t KeyTypeVer;  /**< 0 in a record that was read from a message without a body */
    int32_t Version;     /**< of the encryption; both directions, as KeyTypeVer and Capbility */
    int32_t MAXChannels; /**< response; channels of the device */
    char Username[32];   /**< request */
    char Password[48];   /**< request */
    char VendorId[48];   /**< request; written, never read */
    char Capbility[32];  /**< of the encryption */
    char Sessionid[128]; /**< response */
    char Group[32];      /**< response; the user's group */
} USER_AUTH_CMD_USER_AUTH_PARAM;

ZEL_API int USER_AUTH_CMD_USER_AUTH_PARAM_init(USER_AUTH_CMD_USER_AUTH_PARAM* param);

/**
 * Composes the body alone.
 *
 * @param record  a USER_AUTH_CMD_USER_AUTH_PARAM; NULL gives an empty body.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int UserAuthMessageCompose(const void* record, int kind, char* buf, int len);

/** Analyses a text into a USER_AUTH_CMD_USER_AUTH_PARAM; an envelope without a body is a success. */
ZEL_API int UserAuthMessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
