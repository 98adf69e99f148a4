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
    char TimeMode[32];  /**< how the clock is set */
    char TimeZone[32];  /**< a text */
    char Time[32];      /**< left out when empty */
    char ServerIP[256]; /**< of the time server, as the next two */
    int32_t ServerPort;
    int32_t RefreshInterval;
    int32_t Enable; /**< of daylight saving time, as the rest */
    int32_t Delta;
    char StartTime[64]; /**< of the season */
    char EndTime[64];   /**< of the season */
} SYSTEM_CONFIG_GET_202_PARAM;

/** An account. One without a Username is a free row. */
typedef struct SYSTEM_CONFIG_ACCOUNT_ROW
{
    char Username[32];
    char Password[48];
    char Group[32]; /**< the user's group */
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
    int32_t Enable;   /**< switch */
    int32_t SyncTime; /**< of the clock, by the service */
    char User[32];
    char Passwd[48];
} SYSTEM_CONFIG_GET_315_PARAM;

/** The address of a wired interface. */
typedef struct SYSTEM_CONFIG_LAN_CONFIG
{
    int32_t DHCP; /**< switch */
    int32_t MTU;  /**< bytes */
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256]; /**< address of a name server */
    char DNS2[256]; /**< of another */
} SYSTEM_CONFIG_LAN_CONFIG;

/** The second interface. */
typedef struct SYSTEM_CONFIG_WIRE_CONFIG
{
    int32_t AllNetConnectEnable; /**< switch */
    int32_t DHCP;                /**< switch */
    int32_t MTU;                 /**< bytes */
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256]; /**< address of a name server */
    char DNS2[256]; /**< of another */
} SYSTEM_CONFIG_WIRE_CONFIG;

/** A tunnel. */
typedef struct SYSTEM_CONFIG_PPTP_CONFIG
{
    int32_t Enable;    /**< switch */
    int32_t MTU;       /**< bytes */
    int32_t MPPE;      /**< encryption of the tunnel */
    char Server[256];  /**< address or name */
    char Username[32]; /**< at the server */
    char Password[48]; /**< at the server */
} SYSTEM_CONFIG_PPTP_CONFIG;

/** Registration with a surveillance platform. */
typedef struct SYSTEM_CONFIG_GB28181_CONFIG
{
    int32_t Enable;       /**< switch */
    int32_t DevPort;      /**< the device's own port */
    int32_t ServerPort;   /**< the platform's port */
    int32_t Expires;      /**< s that a registration lasts */
    int32_t KeepAlive;    /**< s between two signs of life */
    int32_t KeepAliveNum; /**< signs of life that may stay unanswered */
    int32_t StreamIdx;    /**< stream that is served */
    char ServerID[256];   /**< the platform's number */
    char ServerName[32];  /**< the platform's domain */
    char ServerIP[256];
    char DevID[256];   /**< the device's number at the platform */
    char DevName[32];  /**< the device's user name at the platform */
    char Passwd[48];   /**< at the platform */
    char AlarmID[256]; /**< number of the device's alarms at the platform */
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
    int32_t AllNetConnectEnable; /**< switch; always written */
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
