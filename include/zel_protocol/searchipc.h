/**
 * Device search, change of addresses, time: family "SYSTEM_SEARCHIPC_MESSAGE". The code is decimal text. All
 * its messages go out as bare text, without a frame and never enciphered, and have one form for all kinds:
 * the code tells who asks and who answers, and no field belongs to one kind alone.
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
    int32_t RTPOverRTSP; /**< switch */
    int32_t PTZPort;
    int32_t WEBPort;
    int32_t RTSPClientNumber; /**< clients at most; not written when absent */
    int32_t RTPPacketSize;    /**< bytes; not written when absent */
} SYSTEM_SEARCHIPC_STREAM_ACCESS;

/** Network settings of one interface; addresses are texts. */
typedef struct SYSTEM_SEARCHIPC_LAN_CONFIG
{
    int32_t DHCP; /**< switch */
    int32_t MTU;  /**< bytes */
    char MacAddress[32];
    char IPAddress[32];
    char Netmask[32];
    char Gateway[32];
    char DNS1[256]; /**< address of a name server */
    char DNS2[256]; /**< of another */
    char DEV[32];   /**< the interface; written, never read */
} SYSTEM_SEARCHIPC_LAN_CONFIG;

/** What a device says of itself. */
typedef struct SYSTEM_SEARCHIPC_DEVICE_INFO
{
    char SerialNumber[32];
    char DeviceType[32];   /**< a text here */
    char DeviceModule[32]; /**< model */
    char DevID[32];
    char OsdStr[256];              /**< the title on the camera's picture */
    char FileSystemVersion[128];   /**< of the firmware */
    char Name[128];                /**< the manufacturer's name */
    int32_t iConnectionCountValid; /**< -1: no connection counts; 1 in an analysed record that has them */
    int16_t Count[12];             /**< connection counts; 0 is the initial value */
    uint64_t Feature;              /**< a bit for each feature */
    char SalesArea[8];             /**< where the device is sold */
    int32_t DevSubType;
    int32_t BindMode; /**< how it is bound to an account */
} SYSTEM_SEARCHIPC_DEVICE_INFO;

/** A user's account. */
typedef struct SYSTEM_SEARCHIPC_ACCOUNT
{
    char Username[40]; /**< empty: neither this nor the password is written */
    char Password[40];
    char Group[32]; /**< the user's group */
    char Status[8]; /**< a text */
} SYSTEM_SEARCHIPC_ACCOUNT;

/** 1: search request. */
typedef struct SYSTEM_SEARCHIPC_1_PARAM
{
    char VendorId[40]; /**< empty: the message has no body */
} SYSTEM_SEARCHIPC_1_PARAM;

/** 3: search response. */
typedef struct SYSTEM_SEARCHIPC_3_PARAM
{
    char VendorId[40];           /**< not written when empty */
    char IPAddressVirtual[32];   /**< not written when empty */
    int32_t AllNetConnectEnable; /**< switch; not written when absent */
    SYSTEM_SEARCHIPC_DEVICE_INFO stDevice;
    int32_t
        iAccountNum; /**< accounts in use; -1: no list of accounts, which isn't the same as an empty one */
    int32_t iReserved;
    SYSTEM_SEARCHIPC_ACCOUNT stAccounts[40]; /**< the first iAccountNum */
    SYSTEM_SEARCHIPC_STREAM_ACCESS stStream; /**< left out as a whole by its Auth */
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan;
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan1; /**< addresses and DHCP alone; written if it has an IPAddress */
} SYSTEM_SEARCHIPC_3_PARAM;

/**
 * 21: search response of an IoT device. DeviceType and DevSubType are read under other names than they are
 * written under, so a message of this library leaves them absent when it is analysed here.
 */
typedef struct SYSTEM_SEARCHIPC_21_PARAM
{
    int32_t DeviceType; /**< a number here */
    int32_t BindStatus; /**< whether it is bound to an account; not written when absent */
    int32_t DevSubType;
    int32_t RegStatus;                     /**< not written when absent */
    char DeviceModule[32];                 /**< model; not written when empty */
    SYSTEM_SEARCHIPC_DEVICE_INFO stDevice; /**< SerialNumber and DevID alone */
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan;     /**< without DEV */
} SYSTEM_SEARCHIPC_21_PARAM;

/**
 * 2: changes the network settings of the device with that serial number. stLan goes without MTU and DEV, and
 * stStream without RTSPClientNumber and RTPPacketSize; neither are those read.
 */
typedef struct SYSTEM_SEARCHIPC_2_PARAM
{
    int32_t AllNetConnectEnable; /**< 0 off, 1 on; goes with stLan, and not without it */
    char SerialNumber[32];       /**< written even when empty */
    char DevID[32];              /**< not written when empty */
    char VendorId[40];           /**< not written when empty */
    SYSTEM_SEARCHIPC_STREAM_ACCESS stStream;
    SYSTEM_SEARCHIPC_LAN_CONFIG stLan; /**< written if it has an IPAddress */
} SYSTEM_SEARCHIPC_2_PARAM;

/** 5: as 2. */
typedef SYSTEM_SEARCHIPC_2_PARAM SYSTEM_SEARCHIPC_5_PARAM;

/** 4: restores the configuration of the device with that serial number. */
typedef struct SYSTEM_SEARCHIPC_4_PARAM
{
    char SerialNumber[32]; /**< written even when empty */
} SYSTEM_SEARCHIPC_4_PARAM;

/* 6, 8: as 4. */
typedef SYSTEM_SEARCHIPC_4_PARAM SYSTEM_SEARCHIPC_6_PARAM;
typedef SYSTEM_SEARCHIPC_4_PARAM SYSTEM_SEARCHIPC_8_PARAM;

/** 7: a device tells of itself to everybody. */
typedef struct SYSTEM_SEARCHIPC_7_PARAM
{
    char SerialNumber[32]; /**< this and the next two are written even when empty, the rest not */
    char ipaddr[32];
    char randStr[32]; /**< a random text of the device's */
    char IPList[256];
    char SerialNumberBrother[32]; /**< of another device that belongs to it, as what follows */
    char ipaddrBrother[32];
    char randStrBrother[32];
} SYSTEM_SEARCHIPC_7_PARAM;

/** 101: the time. All of it is written absent or not, and TimeConfig has to be there on the way in. */
typedef struct SYSTEM_SEARCHIPC_101_PARAM
{
    int32_t Enable; /**< 0 off, 1 on */
    int32_t Timezone;
    char Format[256]; /**< form of the time */
    char Time[256];
} SYSTEM_SEARCHIPC_101_PARAM;

ZEL_API int SYSTEM_SEARCHIPC_1_PARAM_init(SYSTEM_SEARCHIPC_1_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_2_PARAM_init(SYSTEM_SEARCHIPC_2_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_3_PARAM_init(SYSTEM_SEARCHIPC_3_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_4_PARAM_init(SYSTEM_SEARCHIPC_4_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_5_PARAM_init(SYSTEM_SEARCHIPC_5_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_6_PARAM_init(SYSTEM_SEARCHIPC_6_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_7_PARAM_init(SYSTEM_SEARCHIPC_7_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_8_PARAM_init(SYSTEM_SEARCHIPC_8_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_21_PARAM_init(SYSTEM_SEARCHIPC_21_PARAM* param);
ZEL_API int SYSTEM_SEARCHIPC_101_PARAM_init(SYSTEM_SEARCHIPC_101_PARAM* param);

/**
 * Composes the body alone, of the message that `code` names.
 *
 * @param record  the record of that code; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int SystemSearchipcMessageCompose(const void* record, int kind, const char* code, char* buf, int len);

/** Analyses a text into the record of `code`; a code without a record leaves the result as it was. */
ZEL_API int SystemSearchipcMessageAnalysis(const char* text, const char* code, void** result);

/* Each analyses a text into the record of its codes. */
ZEL_API int SystemSearchipc_SearchRequest_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_ModifyIpBySn_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_SearchResponse_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_RestoreConfig_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_BroadcastDeviceInfo_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_SearchIotResponse_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemSearchipc_UDPSendTime_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
