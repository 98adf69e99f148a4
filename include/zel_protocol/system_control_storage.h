/**
 * Storage and file transfer: messages of the family "SYSTEM_CONTROL_MESSAGE". A transfer is only agreed upon
 * here: the file itself travels elsewhere.
 */
#ifndef ZEL_PROTOCOL_SYSTEM_CONTROL_STORAGE_H
#define ZEL_PROTOCOL_SYSTEM_CONTROL_STORAGE_H

#include "zel_protocol/core.h"

#ifdef __cplusplus
extern "C" {
#endif

/** A storage device of a camera. */
typedef struct SYSTEM_CONTROL_STORAGE_INFO
{
    char DevName[64]; /**< its name in the system */
    int32_t Mounted;  /**< 0 no, 1 yes */
    int32_t Total;    /**< size, and how much of it is used and free */
    int32_t Used;
    int32_t Free;
    int32_t Percent; /**< used, in percent */
} SYSTEM_CONTROL_STORAGE_INFO;

/** 1014: storage of a camera, a response without a request body. All three rows are written, used or not. */
typedef struct SYSTEM_CONTROL_1014_PARAM
{
    SYSTEM_CONTROL_STORAGE_INFO stDeviceInfo[3]; /**< further ones that come in are passed over */
} SYSTEM_CONTROL_1014_PARAM;

/** 1017: formats a storage device; a request. */
typedef struct SYSTEM_CONTROL_1017_PARAM
{
    char DevName[64]; /**< as in 1014 */
} SYSTEM_CONTROL_1017_PARAM;

/**
 * 1022: upload of a file. The request carries all but Port, absent or not; AlarmAudioName only if it isn't
 * empty. The response carries Port and FileType. A text with both is read as the response.
 */
typedef struct SYSTEM_CONTROL_1022_PARAM
{
    int32_t FileType;         /**< Type in a response */
    int32_t StartPos;         /**< where in the file, in bytes */
    uint32_t FileLength;      /**< bytes */
    int32_t Port;             /**< response: where the transfer takes place */
    char FilePath[256];       /**< FileName in a download */
    char AlarmAudioName[256]; /**< upload; written, never read */
} SYSTEM_CONTROL_1022_PARAM;

/**
 * 1009, 1023, 1024: download of a file. The request carries FilePath, and StartPos unless it is -1; without a
 * FilePath it has no body. The response carries Port, FileType, and FileLength unless it is absent; without a
 * Port or a FileType it has no body. StartPos is read in a response alone, where it isn't written. A text
 * with both is read as the request.
 */
typedef SYSTEM_CONTROL_1022_PARAM SYSTEM_CONTROL_1009_PARAM;
typedef SYSTEM_CONTROL_1022_PARAM SYSTEM_CONTROL_1023_PARAM;
typedef SYSTEM_CONTROL_1022_PARAM SYSTEM_CONTROL_1024_PARAM;

/** A disk of a recorder. */
typedef struct SYSTEM_CONTROL_DISK_INFO
{
    uint32_t DevIndex;   /**< number of the disk */
    uint32_t VerifyMark; /**< 3501 names the disk by this and DevIndex */
    char DevName[32];
    uint32_t Total; /**< size, and how much of it is used */
    uint32_t Used;
    int32_t Status;
    int32_t Mounted; /**< 0 no, 1 yes */
} SYSTEM_CONTROL_DISK_INFO;

/** 3500: disks of a recorder, a response without a request body. */
typedef struct SYSTEM_CONTROL_3500_PARAM
{
    int32_t DiskNum; /**< disks to write, at most 11; as received, whatever the number of disks that came */
    int32_t RecordDays; /**< days of recordings */
    SYSTEM_CONTROL_DISK_INFO stDisk[11];
} SYSTEM_CONTROL_3500_PARAM;

/** 3501: formats a disk of a recorder; a request. */
typedef struct SYSTEM_CONTROL_3501_PARAM
{
    uint32_t DevIndex; /**< both as in 3500 */
    uint32_t VerifyMark;
} SYSTEM_CONTROL_3501_PARAM;

ZEL_API int SYSTEM_CONTROL_1009_PARAM_init(SYSTEM_CONTROL_1009_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1014_PARAM_init(SYSTEM_CONTROL_1014_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1017_PARAM_init(SYSTEM_CONTROL_1017_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1022_PARAM_init(SYSTEM_CONTROL_1022_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1023_PARAM_init(SYSTEM_CONTROL_1023_PARAM* param);
ZEL_API int SYSTEM_CONTROL_1024_PARAM_init(SYSTEM_CONTROL_1024_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3500_PARAM_init(SYSTEM_CONTROL_3500_PARAM* param);
ZEL_API int SYSTEM_CONTROL_3501_PARAM_init(SYSTEM_CONTROL_3501_PARAM* param);

/* Each analyses a text into the record of its codes. */
ZEL_API int SystemControl_DownloadFile_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetIpcStorageCfg_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_StorageDeviceFormat_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_UploadFile_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_GetNvrDiskInfo_MessageAnalysis(const char* text, void** result);
ZEL_API int SystemControl_SetNvrDiskFormat_MessageAnalysis(const char* text, void** result);

#ifdef __cplusplus
}
#endif

#endif
