// Storage and file transfer, as the control family's dispatcher reaches them.
#ifndef ZEL_CONTROL_STORAGE_MSG_H
#define ZEL_CONTROL_STORAGE_MSG_H

#include "core/rows.h"
#include "zel_protocol/system_control_storage.h"

namespace zel {

extern const MessageRow kDownloadFile;
extern const MessageRow kGetIpcStorageCfg;
extern const MessageRow kStorageDeviceFormat;
extern const MessageRow kUploadFile;
extern const MessageRow kGetNvrDiskInfo;
extern const MessageRow kSetNvrDiskFormat;

} // namespace zel

#endif
