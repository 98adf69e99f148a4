/**
 * Device identity and abilities: messages of the family "SYSTEM_CONTROL_MESSAGE".
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONTROL_IDENTITY_H
#define ZEL_PROTOCOL_SYSTEM_CONTROL_IDENTITY_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 3000: system information of a recorder, a response without a request body. */
typedef struct SYSTEM_CONTROL_3000_PARAM
{
    int32_t ChannelNum; /**< channels */
    int32_t HdNum;      /**< disks */
    int32_t AlarmIn;    /**< inputs for alarms */
    int32_t AlarmOut;   /**< outputs for alarms */
    char ProductModel[32];
    char TelnetPort[32]; /**< a text */
    char CloudID[32];    /**< name at the cloud service */
    char SerialNumber[32];
    char SoftwareVersion[32];
    char HardwareVersion[32];
    char ReleaseTime[32];
} SYSTEM_CONTROL_3000_PARAM;

/**
 * 1012: versions of the device, a response. A request is read from a peer, with ChannelId alone, but never
 * written.
 */
typedef struct SYSTEM_CONTROL_1012_PARAM
{
    char KernelVersion[64];
    char FileSystemVersion[256];
    char DeviceIdentify[64];
    char FileSystemIdentify[64]; /**< not written when empty */
    char HardVersion[32];        /**< not written when empty */
    int32_t ChannelId;           /**< the only field of a request */
    int32_t bChannelIdEmpty;     /**< not -1: there is a ChannelId, even without a number; read as 1 */
    int32_t bSystemInfo;         /**< not -1: stSystemInfo alone is written; stays -1 in an analysed record */
    SYSTEM_CONTROL_3000_PARAM stSystemInfo; /**< of a recorder */
} SYSTEM_CONTROL_1012_PARAM;

/** 1019: serial number, a response without a request body. */
typedef struct SYSTEM_CONTROL_1019_PARAM
{
    char SerialNumber[32];
} SYSTEM_CONTROL_1019_PARAM;

/**
 * 1020: abilities of the device, a response without a request body. A bare text in place of the body's
 * elements is read as SystemConfigString.
 */
typedef struct SYSTEM_CONTROL_1020_PARAM
{
    int32_t bRemoteAuthority; /**< 0: the seven authorities are written; stays -1 in an analysed record */
    int32_t vaSeviceId;       /**< not written when -1 */
    char SystemConfigString[4096]; /**< abilities of the device, as its makers agreed */
    char RemotePreview[72];        /**< an authority, as the next two */
    char PTZControl[72];
    char RemotePlayback[72];
    int32_t SystemSettings; /**< an authority, as the next three */
    int32_t RemoteUpgrade;
    int32_t TalkingEnble;
    int32_t ShutDownSystem;
    int32_t iReserved;     /**< not on the wire */
    char algorithmId[128]; /**< not written when empty */
} SYSTEM_CONTROL_1020_PARAM;

/** 1030: type of the device, a response without a request body. */
typedef struct SYSTEM_CONTROL_1030_PARAM
{
    int32_t IPC_Type;
    int32_t DevMType;
    int32_t DevType;
    int32_t SdkType;
    uint64_t Feature; /**< a bit for each feature */
} SYSTEM_CONTROL_1030_PARAM;

/** 1031: media capabilities, a response without a request body. The lists aren't looked into. */
typedef struct SYSTEM_CONTROL_1031_PARAM
{
    char VideoCapList[4096];          /**< what the encoders can do */
    char VideoCapListV2[4096];        /**< not written when empty */
    char AudioCapList[256];           /**< what the audio can do */
    char VideoBestParameterList[256]; /**< what the device advises */
} SYSTEM_CONTROL_1031_PARAM;

/**
 * 1032: request of a key frame; there is no response body. An analysed record has bSendIpc 1 if either of the
 * first names was missing, else -1, which isn't written again.
 */
typedef struct SYSTEM_CONTROL_1032_PARAM
{
    int32_t bSendIpc;  /**< 0: named ChannelId and StreamIndex; 1: Camera and Stream; else there is no body */
    int32_t ChannelId; /**< of the device */
    int32_t StreamIndex; /**< which stream of the channel */
} SYSTEM_CONTROL_1032_PARAM;

/** 1033: user data to be kept by the device, a request. */
typedef struct SYSTEM_CONTROL_1033_PARAM
{
    char UserDevData[256]; /**< the application's */
} SYSTEM_CONTROL_1033_PARAM;

/** 1034: user data kept by the device, a response. */
typedef SYSTEM_CONTROL_1033_PARAM SYSTEM_CONTROL_1034_PARAM;

ZEL_API int SYSTEM_CONTROL_1012_PARAM_init(SYSTEM_CONTROL_1012_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1019_PARAM_init(SYSTEM_CONTROL_1019_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1020_PARAM_init(SYSTEM_CONTROL_1020_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1030_PARAM_init(SYSTEM_CONTROL_1030_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1031_PARAM_init(SYSTEM_CONTROL_1031_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1032_PARAM_init(SYSTEM_CONTROL_1032_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1033_PARAM_init(SYSTEM_CONTROL_1033_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1034_PARAM_init(SYSTEM_CONTROL_1034_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3000_PARAM_init(SYSTEM_CONTROL_3000_PARAM* param);

/**
 * Composes the body of 1020 alone, here and in the configuration family.
 *
 * @param record  must not be NULL.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemControl_GetSysAbality_MessageCompose(const SYSTEM_CONTROL_1020_PARAM* record, int kind,
                                                       char* buf, int len);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemControl_GetIpcSysVersion_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetIpcSN_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetSysAbality_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetDeviceType_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetMediaAbality_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetIpcKeyFrame_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetIpcUserdevdata_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetIpcUserdevdata_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetNvrSystemConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
