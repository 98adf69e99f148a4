/**
 * Search and list of a recorder's channels: codes 3801, 3803 and 3804 of the configuration family.
 *
 * Kind 0 alone is the request here; every other kind is the response.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_CHANNEL_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_CHANNEL_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A channel of a recorder. The fields of a row that its message doesn't carry keep their initial value. */
typedef struct SYSTEM_CONFIG_CHANNEL_INFO
{
    int32_t ChannelId;         /**< -1: a free row */
    int32_t CtrlPort;          /**< the camera's port */
    int32_t DevMode;           /**< kind of device, as the recorder numbers it */
    int32_t Status;            /**< 3803; as the recorder numbers it */
    int32_t DevSubType;        /**< left out when -1; a fresh row holds 0 */
    uint64_t Feature;          /**< left out when all bits are set; a fresh row holds 0 */
    char Protocol[16];         /**< name of the protocol that the camera speaks */
    char IpAddr[32];           /**< the camera's address */
    char Username[32];         /**< at the camera */
    char Password[32];         /**< at the camera */
    char ChannnelName[256];    /**< 3803 */
    int32_t Result;            /**< 3804, response: the outcome for this channel; written, never read */
    int32_t RtspMainResPort;   /**< port of the main stream */
    int32_t RtspSubResPort;    /**< port of the sub stream */
    char RtspMainResPath[128]; /**< path of the main stream */
    char RtspSubResPath[128];  /**< path of the sub stream */
    char RtspDomain[128];      /**< host of both */
} SYSTEM_CONFIG_CHANNEL_INFO;

/** 3801: search for cameras. The request carries SearchDuration alone, a response the rest, for one camera.
 */
typedef struct SYSTEM_CONFIG_GET_3801_PARAM
{
    int32_t SearchDuration; /**< left out when absent */
    int32_t CtrlPort;       /**< the camera's port */
    int32_t DevSubType;     /**< left out when absent; the init leaves this and the next as they were */
    uint64_t Feature;       /**< left out when absent */
    char Protocol[16];      /**< name of the protocol that the camera speaks */
    char IPAddress[32];     /**< the camera's */
    char Username[32];      /**< at the camera */
    char Password[32];      /**< at the camera */
    char SN[32];            /**< serial number */
    char OsdName[512];      /**< title on the picture */
    char IpcVer[128];       /**< version of the camera's firmware */
    char MacAddress[32];
    char Netmask[32];
    char Gateway[32];
} SYSTEM_CONFIG_GET_3801_PARAM;

/**
 * 3803: the configured channels. The request carries DivideResponse alone.
 *
 * A response carries the rows from the first that isn't free up to the next free one, ChannelCount at most,
 * or DivideResponse at most if that is above 0. What it writes of ChannelCount and EndPackage isn't read
 * back.
 */
typedef struct SYSTEM_CONFIG_GET_3803_PARAM
{
    int32_t DivideResponse;                       /**< rows in one response; left out when absent */
    int32_t ChannelCount;                         /**< rows to write; response */
    int32_t EndPackage;                           /**< written only if DivideResponse is above 0 */
    SYSTEM_CONFIG_CHANNEL_INFO stChannelInfo[64]; /**< response */
} SYSTEM_CONFIG_GET_3803_PARAM;

/** 3804: adds channels. Free rows are left out of the request, not of the response. */
typedef struct SYSTEM_CONFIG_SET_3804_PARAM
{
    int32_t iChannelCount; /**< rows in use; of an analysed record, rows that were read */
    SYSTEM_CONFIG_CHANNEL_INFO stChannelInfo[64]; /**< of a response ChannelId, IpAddr and Result alone */
} SYSTEM_CONFIG_SET_3804_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_3801_PARAM_init(SYSTEM_CONFIG_GET_3801_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3803_PARAM_init(SYSTEM_CONFIG_GET_3803_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3804_PARAM_init(SYSTEM_CONFIG_SET_3804_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_NvrChannelStartSearchipc_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelGetChannelList_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelAddChannel_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
