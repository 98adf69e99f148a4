/**
 * Device search: family "SYSTEM_SEARCHIPC_MESSAGE". The code is decimal text. All its messages go out as bare
 * text, without a frame and never enciphered, and have one form for all kinds.
 *
 * Codes 9, 10, 11 and 20 have neither a body nor a record.
 */
#ifndef ZEL_PROTOCOL_SEARCHIPC_H
#define ZEL_PROTOCOL_SEARCHIPC_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** How a device serves its streams. */
typedef struct SYSTEM_SEARCHIPC_STREAM_ACCESS
{
    int32_t Auth; /**< -1: nothing of this block is written */
    int32_t VideoPort;
    int32_t RTPOverRTSP;
    int32_t PTZPort;
    int32_t WEBPort;
    int32_t RTSPClientNumber;
    int32_t RTPPacketSize;
} SYSTEM_SEARCHIPC_STREAM_ACCESS;

/** Network settings of one interface; addresses are texts. */
typedef struct SYSTEM_SEARCHIPC_LAN_CONFIG
{
    int32_t DHCP;
    int32_t MTU;
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256];
    char DNS2[256];
    char DEV[32]; /**< the interface; written, never read */
} SYSTEM_SEARCHIPC_LAN_CONFIG;

/** What a device says of itself. */
typedef struct SYSTEM_SEARCHIPC_DEVICE_INFO
{
    char SerialNumber[32];
    char DeviceType[32];
    char DeviceModule[32];
    char DevID[32];
    char OsdStr[256];
    char FileSystemVersion[128];
    char Name[128];                /**< the manufacturer's name */
    int32_t iConnectionCountValid; /**< -1: no connection counts; 1 in an analysed record that has them */
    int16_t Count[12];             /**< connection counts; 0 is the initial value */
    uint64_t Feature;
    char SalesArea[8];
    int32_t DevSubType;
    int32_t BindMode;
} SYSTEM_SEARCHIPC_DEVICE_INFO;

/** A user's account. */
typedef struct SYSTEM_SEARCHIPC_ACCOUNT
{
    char Username[40]; /**< empty: neither this nor the password is written */
    char Password[40];
    char Group[32];
    char Status[8];
} SYSTEM_SEARCHIPC_ACCOUNT;

/** 1: search request. */
typedef struct SYSTEM_SEARCHIPC_1_PARAM
{
    char VendorId[40]; /**< empty: the message has no body */
} SYSTEM_SEARCHIPC_1_PARAM;

/** 3: search response. */
typedef struct SYSTEM_SEARCHIPC_3_PARAM
{
    char VendorId[40];
    char IPAddressVirtual[32];
    int32_t AllNetConnectEnable;
    SYSTEM_SEARCHIPC_DEVICE_INFO stDevice;
    int32_t
        iAccountNum; /**< accounts in use; -1: no list of accounts, which isn't the same as an empty one */
    int32_t iReserved;
    SYSTEM_SEARCHIPC_ACCOUNT stAccounts[40];
    SYSTEM_SEARCHIPC_STREAM_ACCESS stStream;
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan;
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan1; /**< addresses and DHCP alone; written if it has an IPAddress */
} SYSTEM_SEARCHIPC_3_PARAM;

/**
 * 21: search response of an IoT device. DeviceType and DevSubType are read under other names than they are
 * written under, so a message of this library leaves them absent when it is analysed here.
 */
typedef struct SYSTEM_SEARCHIPC_21_PARAM
{
    int32_t DeviceType;
    int32_t BindStatus;
    int32_t DevSubType;
    int32_t RegStatus;
    char DeviceModule[32];
    SYSTEM_SEARCHIPC_DEVICE_INFO stDevice; /**< SerialNumber and DevID alone */
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan;     /**< without DEV */
} SYSTEM_SEARCHIPC_21_PARAM;

ZEL_API int SYSTEM_SEARCHIPC_1_PARAM_init(SYSTEM_SEARCHIPC_1_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_3_PARAM_init(SYSTEM_SEARCHIPC_3_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_21_PARAM_init(SYSTEM_SEARCHIPC_21_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemSearchipcMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`; a code without a record leaves the result as it was. */
ZEL_API int SystemSearchipcMessageAnalysis(const char* text, const char* code, void** result);

/* Each analyses a text into the record of its code. */
ZEL_API int SystemSearchipc_SearchRequest_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_SearchResponse_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_SearchIotResponse_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
