/**
 * Repair of a camera: family "IPC_REPAIR_MESSAGE", any code. Its messages go out as bare text, without a
 * frame and never enciphered.
 */
#ifndef ZEL_PROTOCOL_IPC_REPAIR_H
#define ZEL_PROTOCOL_IPC_REPAIR_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/**
 * The request names a camera, the response a server. Alm selects the form: empty the plain one, otherwise
 * that of an algorithm. Nothing that belongs to the form and direction is left out, but for the client of the
 * algorithm's response.
 *
 * Plain, the request carries IPCMac and RepairVer, the response ServerMac, ServerIP, ServerPort, Ipaddr,
 * ClientMac and RepairVer. For an algorithm the request carries IPCMac, RepairVer, ReqAddr, SN, Alm and
 * DomainName, the response ServerMac, ServerIP, ServerPort, FilePath, RepairVer, SN, Alm, and Ipaddr and
 * ClientMac if ClientMac isn't empty. An analysis can't tell the directions apart and reads all that its form
 * has.
 */
typedef struct IPC_REPAIR_PARAM
{
    char IPCMac[32]; /**< "Mac" for an algorithm; the plain analysis puts "IPCMac" here and into ClientMac */
    char ReqAddr[256];
    char DomainName[256];
    char ServerMac[32];
    char ServerIP[32];
    int32_t ServerPort;
    char Ipaddr[32];     /**< the client's address: "Ipaddr", "ClientIP" for an algorithm */
    char ClientMac[32];  /**< "IPCMac" in the plain response, "ClientMac" for an algorithm */
    char FilePath[128];  /**< file on the server */
    char RepairVer[128]; /**< "IpcIdentify" in the plain request, "RepairVer" in its response, else "BuildVer"
                          */
    char SN[32];         /**< the camera's serial number */
    char Alm[32];        /**< the algorithm */
} IPC_REPAIR_PARAM;

ZEL_API int IPC_REPAIR_PARAM_init(IPC_REPAIR_PARAM* param);

/**
 * Composes the body alone.
 *
 * @param record  an IPC_REPAIR_PARAM; NULL leaves the buffer alone.
 * @param buf     receives the terminated text; stays as it was where there is nothing to write.
 * @return 0 or a status of ZEL_STATUS.
 */
ZEL_API int IpcRepairMessageCompose(const void* record, int kind, char* buf, int len);

/** Analyses a text into an IPC_REPAIR_PARAM. */
ZEL_API int IpcRepairMessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
