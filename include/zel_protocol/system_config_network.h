/**
 * Configuration of a device's network and of its registration with a platform: codes 2000 to 2035 of the
 * configuration family.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONFIG_NETWORK_H
#define ZEL_PROTOCOL_SYSTEM_CONFIG_NETWORK_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * 2000: the network, with one or two ports. Response only; the first port is written whole, the second only
 * if it has an address. What the peer sends of either is read.
 */
typedef struct SYSTEM_CONFIG_GET_2000_PARAM
{
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256];
    char DNS2[256];
    char CloundID[256]; /**< the device's name in the cloud */
    int32_t Login;
    int32_t DHCP;                /**< 0/1 */
    int32_t Enable;              /**< of NetworkServerConfig: 0/1; 2000 and 2020 only */
    int32_t MTU;                 /**< bytes */
    int32_t ConflictSelfAda;     /**< 0/1: on a conflict the device takes another address */
    int32_t Lan1ConflictSelfAda; /**< ConflictSelfAda of LAN1Config */
    int32_t DefaultGateWayIndex; /**< the port whose gateway is used; goes with the second port */
    int32_t Mode;                /**< how the ports work together; goes with the second port */
    int32_t Lan1DHCP;            /**< DHCP of LAN1Config: 0/1 */
    char Lan1IPAddress[32];      /**< IPAddress of LAN1Config; empty: nothing is written of the second port */
    char Lan1Netmask[32];        /**< Netmask of LAN1Config */
    char Lan1Gateway[32];        /**< Gateway of LAN1Config */
    char Lan1MacAddress[32];     /**< MacAddress of LAN1Config */
} SYSTEM_CONFIG_GET_2000_PARAM;

/* 2005: the same without Enable. Response only. */
typedef SYSTEM_CONFIG_GET_2000_PARAM SYSTEM_CONFIG_GET_2005_PARAM;

/* 2020, 2025: set what 2000 and 2005 get. Requests only. */
typedef SYSTEM_CONFIG_GET_2000_PARAM SYSTEM_CONFIG_SET_2020_PARAM;
typedef SYSTEM_CONFIG_GET_2000_PARAM SYSTEM_CONFIG_SET_2025_PARAM;

/** 2010: the network server. Response only. */
typedef struct SYSTEM_CONFIG_GET_2010_PARAM
{
    int32_t Enable; /**< 0/1 */
} SYSTEM_CONFIG_GET_2010_PARAM;

/* 2030: sets what 2010 gets. Request only. */
typedef SYSTEM_CONFIG_GET_2010_PARAM SYSTEM_CONFIG_SET_2030_PARAM;

/** A channel or alarm input at the platform. */
typedef struct SYSTEM_CONFIG_SIP_DEVICE
{
    char SipDeviceID[32];
    /** 0/1: reports. Its lowest hexadecimal digit goes out, -1 as f; 1 comes in as 1, all else as 0. */
    int32_t iReport;
} SYSTEM_CONFIG_SIP_DEVICE;

/**
 * 2015: registration with a GB28181 platform. Response only.
 *
 * Of either list as many entries go out as its count says, each under an attribute of its own, numbered from
 * 1. Their reports are one more attribute, written unless the first entry's is -1; when it comes in, every
 * entry of the list gets a 0 or a 1. All 64 entries are looked for on the way in, whatever the count.
 */
typedef struct SYSTEM_CONFIG_GET_2015_PARAM
{
    int32_t Enable;          /**< 0/1 */
    int32_t DefaultLanIndex; /**< port that is used; left out when absent */
    int32_t ProtoCol;        /**< transport; left out when absent */
    int32_t StreamType;      /**< stream that is sent */
    int32_t iChannelNum; /**< entries of stChannel; -1 in an analysed record: set it to write them again */
    int32_t AlarmInputIDNum; /**< entries of stAlarmIn; when absent, nothing is written of them */
    char SipServerPort[8];   /**< a text, as all the numbers below */
    char SipServerID[32];
    char SipServerDomain[128];
    char SipServerIP[16];
    char LocalPort[8];
    char SipUserID[32];
    char SipHeartBeatCycle[8];      /**< s */
    char SipHeartBeatTimeOutNum[8]; /**< heartbeats that may be lost */
    char SipRegExpires[8];          /**< s */
    char SipUserPassword[32];
    SYSTEM_CONFIG_SIP_DEVICE stChannel[64]; /**< ch1_SipDeviceID and on; reports: ch_SipDeviceReport */
    SYSTEM_CONFIG_SIP_DEVICE stAlarmIn[64]; /**< AlarmIn_1 and on; reports: AlarmIn_SipDeviceReport */
} SYSTEM_CONFIG_GET_2015_PARAM;

/* 2035: sets what 2015 gets. Request only. */
typedef SYSTEM_CONFIG_GET_2015_PARAM SYSTEM_CONFIG_SET_2035_PARAM;

ZEL_API int SYSTEM_CONFIG_GET_2000_PARAM_init(SYSTEM_CONFIG_GET_2000_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2005_PARAM_init(SYSTEM_CONFIG_GET_2005_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2010_PARAM_init(SYSTEM_CONFIG_GET_2010_PARAM* param);
ZEL_API int SYSTEM_CONFIG_GET_2015_PARAM_init(SYSTEM_CONFIG_GET_2015_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2020_PARAM_init(SYSTEM_CONFIG_SET_2020_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2025_PARAM_init(SYSTEM_CONFIG_SET_2025_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2030_PARAM_init(SYSTEM_CONFIG_SET_2030_PARAM* param);
ZEL_API int SYSTEM_CONFIG_SET_2035_PARAM_init(SYSTEM_CONFIG_SET_2035_PARAM* param);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemConfig_getNetconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getNetLanconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getNetServerconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_getNetGB28181Config_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setNetconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setNetLanconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setNetServerconfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemConfig_setNetGB28181Config_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
