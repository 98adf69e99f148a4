/**
 * Configuration of a camera's clock, accounts and network: codes 202 to 335 of the configuration family, and
 * 5007.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_IPC_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_IPC_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** 202, 5007: clock, time server and daylight saving time. Response only. */
typedef struct SYSTEM_CONFIG_GET_202_PARAM
{
    char TimeMode[32];
    char TimeZone[32];
    char Time[32];      /**< left out when empty */
    char ServerIP[256]; /**< of the time server, as the next two */
    int32_t ServerPort;
    int32_t RefreshInterval;
    int32_t Enable; /**< of daylight saving time, as the rest */
    int32_t Delta;
    char StartTime[64];
    char EndTime[64];
} SYSTEM_CONFIG_GET_202_PARAM;

/** An account. One without a Username is a free row. */
typedef struct SYSTEM_CONFIG_ACCOUNT_ROW
{
    char Username[32];
    char Password[48];
    char Group[32];
    char Status[8]; /**< a text, not a number */
} SYSTEM_CONFIG_ACCOUNT_ROW;

/**
 * 203: accounts. Response only. Free rows aren't on the wire: what follows them moves up in the peer's
 * record. Accounts beyond the last row are passed over.
 */
typedef struct SYSTEM_CONFIG_GET_203_PARAM
{
    SYSTEM_CONFIG_ACCOUNT_ROW stAccount[40];
} SYSTEM_CONFIG_GET_203_PARAM;

/** 315: service for access from afar. Response only; absent values are left out. */
typedef struct SYSTEM_CONFIG_GET_315_PARAM
{
    int32_t Enable;
    int32_t SyncTime;
    char User[32];
    char Passwd[48];
} SYSTEM_CONFIG_GET_315_PARAM;

/** The address of a wired interface. */
typedef struct SYSTEM_CONFIG_LAN_CONFIG
{
    int32_t DHCP;
    int32_t MTU; /**< bytes */
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256];
    char DNS2[256];
} SYSTEM_CONFIG_LAN_CONFIG;

/** The second interface. */
typedef struct SYSTEM_CONFIG_WIRE_CONFIG
{
    int32_t AllNetConnectEnable;
    int32_t DHCP;
    int32_t MTU; /**< bytes */
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256];
    char DNS2[256];
} SYSTEM_CONFIG_WIRE_CONFIG;

/** A tunnel. */
typedef struct SYSTEM_CONFIG_PPTP_CONFIG
{
    int32_t Enable;
    int32_t MTU;  /**< bytes */
    int32_t MPPE; /**< encryption of the tunnel */
    char Server[256];
    char Username[32];
    char Password[48];
} SYSTEM_CONFIG_PPTP_CONFIG;

/** Registration with a surveillance platform. */
typedef struct SYSTEM_CONFIG_GB28181_CONFIG
{
    int32_t Enable;
    int32_t DevPort;
    int32_t ServerPort;
    int32_t Expires;
    int32_t KeepAlive;
    int32_t KeepAliveNum;
    int32_t StreamIdx;
    char ServerID[256];
    char ServerName[32];
    char ServerIP[256];
    char DevID[256];
    char DevName[32];
    char Passwd[48];
    char AlarmID[256];
} SYSTEM_CONFIG_GB28181_CONFIG;

/** 300: the whole network. Response only; it is written whole, whatever is absent. */
typedef struct SYSTEM_CONFIG_GET_300_PARAM
{
    int32_t AllNetConnectEnable; /**< goes with stLanConfig */
    SYSTEM_CONFIG_GET_315_PARAM stP2pConfig;
    SYSTEM_CONFIG_LAN_CONFIG stLanConfig;
    SYSTEM_CONFIG_WIRE_CONFIG stWireConfig;
    SYSTEM_CONFIG_PPTP_CONFIG stPptpConfig;
    SYSTEM_CONFIG_GB28181_CONFIG stGb28181Config;
} SYSTEM_CONFIG_GET_300_PARAM;

/** 325: sets the wired interface. Request only; with an empty IPAddress only AllNetConnectEnable is written.
 */
typedef struct SYSTEM_CONFIG_SET_325_PARAM
{
    int32_t AllNetConnectEnable;
    SYSTEM_CONFIG_LAN_CONFIG stLanConfig;
} SYSTEM_CONFIG_SET_325_PARAM;

/* 222, 223, 335: set what 202, 203 and 315 get. Requests only; 335 is written whole. */
typedef SYSTEM_CONFIG_GET_202_PARAM SYSTEM_CONFIG_SET_222_PARAM;
typedef SYSTEM_CONFIG_GET_203_PARAM SYSTEM_CONFIG_SET_223_PARAM;
typedef SYSTEM_CONFIG_GET_315_PARAM SYSTEM_CONFIG_SET_335_PARAM;

/* No message carries these two. */
typedef SYSTEM_CONFIG_GET_300_PARAM SYSTEM_CONFIG_SET_320_PARAM;
typedef SYSTEM_CONFIG_SET_325_PARAM SYSTEM_CONFIG_GET_305_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_202_PARAM_init(SYSTEM_CONFIG_GET_202_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_203_PARAM_init(SYSTEM_CONFIG_GET_203_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_222_PARAM_init(SYSTEM_CONFIG_SET_222_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_223_PARAM_init(SYSTEM_CONFIG_SET_223_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_300_PARAM_init(SYSTEM_CONFIG_GET_300_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_305_PARAM_init(SYSTEM_CONFIG_GET_305_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_315_PARAM_init(SYSTEM_CONFIG_GET_315_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_320_PARAM_init(SYSTEM_CONFIG_SET_320_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_325_PARAM_init(SYSTEM_CONFIG_SET_325_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_335_PARAM_init(SYSTEM_CONFIG_SET_335_PARAM* param);

/* Each analyses a text into the record of its codes. */
ZEL_API int SystemConfig_getIpcTimeset_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setIpcTimeset_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getIpcUserCfg_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setIpcUserCfg_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getIpcNetconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getIpcP2Pconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setIpcP2Pconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setIpcLanconfig_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
