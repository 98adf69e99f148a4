/**
 * A recorder's channels and the settings that go for all of them: codes 3801 to 3823 of the configuration
 * family.
 *
 * In 3801, 3803 and 3804 kind 0 alone is the request; every other kind is the response.
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

/** 3805: deletes a channel. Request only. */
typedef struct SYSTEM_CONFIG_SET_3805_PARAM
{
    int32_t ChannelId;
} SYSTEM_CONFIG_SET_3805_PARAM;

/** 3806: lets two channels change places. Request only. */
typedef struct SYSTEM_CONFIG_SET_3806_PARAM
{
    int32_t ChannelId1;
    int32_t ChannelId2;
} SYSTEM_CONFIG_SET_3806_PARAM;

/** 3807: how many pictures the screen shows. Request only. */
typedef struct SYSTEM_CONFIG_SET_3807_PARAM
{
    int32_t PicNum;
} SYSTEM_CONFIG_SET_3807_PARAM;

/** 3808: turns the page of pictures. Request only. */
typedef struct SYSTEM_CONFIG_SET_3808_PARAM
{
    int32_t PrevOrNext; /**< which way */
} SYSTEM_CONFIG_SET_3808_PARAM;

/**
 * 3809: changes the address of a camera. The request carries all but IsChangIP, the response IsChangIP, both
 * addresses, Netmask and Gateway. An analysis reads all of them from either.
 */
typedef struct SYSTEM_CONFIG_SET_3809_PARAM
{
    int32_t CtrlPort;
    int32_t IsChangIP; /**< whether the address was changed */
    char Protocol[16];
    char IPAddressNew[32];
    char IPAddressOld[32];
    char Username[32];
    char Password[32];
    char SN[32]; /**< serial number */
    char MacAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256];
    char DNS2[256];
} SYSTEM_CONFIG_SET_3809_PARAM;

/**
 * 3810: changes the addresses of cameras. The rows of each direction carry what that direction of 3809 does.
 * Rows without a Protocol are left out of the request, rows without an IPAddressOld out of the response. An
 * analysis reads IsChangIP too, and doesn't find the rows of a response.
 */
typedef struct SYSTEM_CONFIG_SET_3810_PARAM
{
    int32_t iChannelCount; /**< rows in use; not set by an analysis */
    SYSTEM_CONFIG_SET_3809_PARAM stIpc[64];
} SYSTEM_CONFIG_SET_3810_PARAM;

/** 3811: deletes channels. Request only. */
typedef struct SYSTEM_CONFIG_SET_3811_PARAM
{
    /** Channels to delete. What is written isn't read back: an analysed record counts the channels that were
        read, unless the body has an attribute of this name. */
    int32_t ChannelCount;
    int32_t ChannelId[64];
} SYSTEM_CONFIG_SET_3811_PARAM;

/** A camera whose address is to be changed. */
typedef struct SYSTEM_CONFIG_IPC_ADDRESS_ROW
{
    int32_t CtrlPort;
    char Protocol[16];
    char IPAddress[32];
    char SN[32]; /**< serial number */
    char Netmask[32];
    char Gateway[32];
} SYSTEM_CONFIG_IPC_ADDRESS_ROW;

/** 3812: numbers the addresses of cameras from a first one on. Request only. */
typedef struct SYSTEM_CONFIG_SET_3812_PARAM
{
    int32_t
        iChannelCount; /**< rows in use, empty ones included; of an analysed record, rows that were read */
    char IPAddressStart[32];
    char Username[32];
    char Password[32];
    char Netmask[32];
    char Gateway[32];
    SYSTEM_CONFIG_IPC_ADDRESS_ROW stIpcAddress[64];
} SYSTEM_CONFIG_SET_3812_PARAM;

/** 3813: how cameras are added, a response without a parameter in its request. */
typedef struct SYSTEM_CONFIG_GET_3813_PARAM
{
    int32_t SearchMode;
    int32_t SearchModeList[15]; /**< the modes that there are; -1 ends it */
} SYSTEM_CONFIG_GET_3813_PARAM;

/** 3814: sets SearchMode, which is all that it carries. Request only. */
typedef SYSTEM_CONFIG_GET_3813_PARAM SYSTEM_CONFIG_SET_3814_PARAM;

/** 3820: whether all smart changes are off, a response without a parameter in its request. */
typedef struct SYSTEM_CONFIG_GET_3820_PARAM
{
    int32_t OffAllSmartModify; /**< 0 or 1 */
} SYSTEM_CONFIG_GET_3820_PARAM;

/** 3822: whether all alarms are off, a response without a parameter in its request. */
typedef struct SYSTEM_CONFIG_GET_3822_PARAM
{
    int32_t OffAllAlarm; /**< 0 or 1 */
} SYSTEM_CONFIG_GET_3822_PARAM;

/* 3821, 3823: set what 3820 and 3822 get. Requests only. */
typedef SYSTEM_CONFIG_GET_3820_PARAM SYSTEM_CONFIG_SET_3821_PARAM;
typedef SYSTEM_CONFIG_GET_3822_PARAM SYSTEM_CONFIG_SET_3823_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_3801_PARAM_init(SYSTEM_CONFIG_GET_3801_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3803_PARAM_init(SYSTEM_CONFIG_GET_3803_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3804_PARAM_init(SYSTEM_CONFIG_SET_3804_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3805_PARAM_init(SYSTEM_CONFIG_SET_3805_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3806_PARAM_init(SYSTEM_CONFIG_SET_3806_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3807_PARAM_init(SYSTEM_CONFIG_SET_3807_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3808_PARAM_init(SYSTEM_CONFIG_SET_3808_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3809_PARAM_init(SYSTEM_CONFIG_SET_3809_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3810_PARAM_init(SYSTEM_CONFIG_SET_3810_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3811_PARAM_init(SYSTEM_CONFIG_SET_3811_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3812_PARAM_init(SYSTEM_CONFIG_SET_3812_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3813_PARAM_init(SYSTEM_CONFIG_GET_3813_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3814_PARAM_init(SYSTEM_CONFIG_SET_3814_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3820_PARAM_init(SYSTEM_CONFIG_GET_3820_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3821_PARAM_init(SYSTEM_CONFIG_SET_3821_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_3822_PARAM_init(SYSTEM_CONFIG_GET_3822_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_3823_PARAM_init(SYSTEM_CONFIG_SET_3823_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_NvrChannelStartSearchipc_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelGetChannelList_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelAddChannel_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelDelChannel_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelSwitchChannel_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelPicsSelect_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelPicsPageChange_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelModifyIpcIp_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelBatchModifyIpcIp_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelBatchDelIpc_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelBatchModifyIpcIpV2_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelGetAddMode_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrChannelSetAddMode_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrGetOffAllSmartChanges_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrSetOffAllSmartChanges_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrGetOffAllAlarm_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_NvrSetOffAllAlarm_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
