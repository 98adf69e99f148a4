/**
 * State of a device, commands to it, and settings of a recorder: messages of the family
 * "SYSTEM_CONTROL_MESSAGE".
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONTROL_STATUS_H
#define ZEL_PROTOCOL_SYSTEM_CONTROL_STATUS_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 1004: refreshes a channel's background; a request. */
typedef struct SYSTEM_CONTROL_1004_PARAM
{
    int32_t FileType;
} SYSTEM_CONTROL_1004_PARAM;

/** 1005: sets a camera's clock; a request. Both are texts of the application's. */
typedef struct SYSTEM_CONTROL_1005_PARAM
{
    char Time[32];
    char TimeZone[32];
} SYSTEM_CONTROL_1005_PARAM;

/** 1006: adding of a recorder's channels; a request. */
typedef struct SYSTEM_CONTROL_1006_PARAM
{
    int32_t CrtlEnable; /**< 0 off, 1 on */
    int32_t ChnAddCfg;  /**< how channels are added */
} SYSTEM_CONTROL_1006_PARAM;

/**
 * 1026: state of the network, a response without a request body. The wired network, the cloud and the address
 * are always written, the wireless network only if it has a WirelessIPAddress. None of the four is required.
 */
typedef struct SYSTEM_CONTROL_1026_PARAM
{
    int32_t iReserved; /**< not on the wire, like the others of this name */
    int32_t iReserved1;
    char MacAddress[256]; /**< of the wired network, as the next six */
    char IPType[256];     /**< kind of address */
    char IPAddress[256];
    char Gateway[256];
    char Netmask[256];
    char Dns1[256];
    char Dns2[256];
    int32_t iReserved2;
    int32_t MTU; /**< bytes; of the wired network */
    int32_t iReserved3;
    int32_t SignalLevel; /**< of the wireless network, as the next one */
    int32_t Noise;
    int32_t LoginStatus;         /**< at the cloud */
    uint8_t LinkQuality;         /**< of the wireless network, as the next ten */
    char WirelessIPAddress[256]; /**< IPAddress of its element, and likewise the next three */
    char WirelessGateway[256];
    char WirelessNetmask[256];
    char WirelessMacAddress[256];
    char ESSID[256]; /**< name of the network */
    char OperationMode[256];
    char Bitrate[256];
    char Frequency[256];
    char AccessPoint[256]; /**< MAC address of the access point */
    char EncrptType[256];  /**< cipher of the network */
    char ID[128];          /**< of the device at the cloud */
    char Url[256];         /**< what the device's QR code says */
} SYSTEM_CONTROL_1026_PARAM;

/** 1046: switches a camera's infrared cut filter; a request. */
typedef struct SYSTEM_CONTROL_1046_PARAM
{
    char Mode[256];
} SYSTEM_CONTROL_1046_PARAM;

/** 3020: timed restart of a recorder, a response without a request body. Its element is REQUEST_PARAM. */
typedef struct SYSTEM_CONTROL_3020_PARAM
{
    int32_t Enable; /**< 0 off, 1 on */
    int32_t Day;    /**< which day */
    char Time[32];  /**< of the day, as a text */
} SYSTEM_CONTROL_3020_PARAM;

/** 3025: sets what 3020 gets; a request. */
typedef SYSTEM_CONTROL_3020_PARAM SYSTEM_CONTROL_3025_PARAM;

/** 3023: sets a recorder's sales area; a request. */
typedef struct SYSTEM_CONTROL_3023_PARAM
{
    char SalesArea[32];
} SYSTEM_CONTROL_3023_PARAM;

/** 3026: small settings of a recorder; a request. Absent values are left out. */
typedef struct SYSTEM_CONTROL_3026_PARAM
{
    int32_t CtrlBuzzerEnable; /**< 0 off, 1 on */
    int32_t Language;         /**< which language */
    int32_t AsDefLanguage;    /**< the default language */
    int32_t LanguageNum;      /**< languages that there are */
    char InProjectPwd[32];    /**< a password */
} SYSTEM_CONTROL_3026_PARAM;

/**
 * 3027: a recorder's check of the network. The request carries DiagnosticType, TotalPackets, DomainName and
 * ChannelId; the response carries the rest. All of them are written absent or not. A text with both is read
 * as the request.
 */
typedef struct SYSTEM_CONTROL_3027_PARAM
{
    int32_t DiagnosticType; /**< request, as the next two */
    int32_t TotalPackets;   /**< packets to send */
    int32_t ChannelId;
    int32_t Result;        /**< response, as what follows */
    int32_t SumPacket;     /**< packets that were sent */
    int32_t SkipPacket;    /**< packets that were lost */
    float SkipPacketRatio; /**< share of the lost packets; this and the next three: -1 when absent */
    float MinTime;         /**< shortest, mean and longest time of an answer */
    float AveTime;
    float MaxTime;
    char DomainName[32]; /**< request: who is to answer */
    char IPAddress[32];  /**< response: who answered */
} SYSTEM_CONTROL_3027_PARAM;

/** 3300: picture of a recorder's screen, a response without a request body. */
typedef struct SYSTEM_CONTROL_3300_PARAM
{
    int32_t Brightness;
    int32_t Contrast;
    int32_t Saturation;
    int32_t Chroma;
} SYSTEM_CONTROL_3300_PARAM;

/** 3320: sets what 3300 gets; a request. */
typedef SYSTEM_CONTROL_3300_PARAM SYSTEM_CONTROL_3320_PARAM;

ZEL_API int SYSTEM_CONTROL_1004_PARAM_init(SYSTEM_CONTROL_1004_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1005_PARAM_init(SYSTEM_CONTROL_1005_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1006_PARAM_init(SYSTEM_CONTROL_1006_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1026_PARAM_init(SYSTEM_CONTROL_1026_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1046_PARAM_init(SYSTEM_CONTROL_1046_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3020_PARAM_init(SYSTEM_CONTROL_3020_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3023_PARAM_init(SYSTEM_CONTROL_3023_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3025_PARAM_init(SYSTEM_CONTROL_3025_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3026_PARAM_init(SYSTEM_CONTROL_3026_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3027_PARAM_init(SYSTEM_CONTROL_3027_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3300_PARAM_init(SYSTEM_CONTROL_3300_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3320_PARAM_init(SYSTEM_CONTROL_3320_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemControl_SetRefleshCHBKG_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetIpcTime_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrChannelAdd_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetNetStatus_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetIpcIrcut_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetNvrTimedRestartConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrSalesarea_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrTimedRestartConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrSimpleCustomConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrStartNetworkCheck_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetNvrDisplayConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrDisplayConfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
