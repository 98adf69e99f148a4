#include "control/storage_msg.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void storageDevice(Side& side, SYSTEM_CONTROL_STORAGE_INFO& row)
{
    attribute(side, "DevName", row.DevName);
    attribute(side, "Mounted", row.Mounted);
    attribute(side, "Total", row.Total);
    attribute(side, "Used", row.Used);
    attribute(side, "Free", row.Free);
    attribute(side, "Percent", row.Percent);
}

void storageDevices(Side& side, SYSTEM_CONTROL_1014_PARAM& record)
{
    rowElements<storageDevice>(side, "DeviceInfo", record.stDeviceInfo);
}

void deviceName(Side& side, SYSTEM_CONTROL_1017_PARAM& record)
{
    attribute(side, "DevName", record.DevName);
}

void uploadRequest(Side& side, SYSTEM_CONTROL_1022_PARAM& record)
{
    attribute(side, "FileType", record.FileType);
    attribute(side, "FilePath", record.FilePath);
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "FileLength", record.FileLength);
    if (side.writes())
        attributeIfSet(side, "AlarmAudioName", record.AlarmAudioName);
}

void uploadResponse(Side& side, SYSTEM_CONTROL_1022_PARAM& record)
{
    attribute(side, "Port", record.Port);
    attribute(side, "Type", record.FileType);
}

void downloadRequest(Side& side, SYSTEM_CONTROL_1022_PARAM& record)
{
    if (const Element request = elementIf(isSet(record.FilePath), side, "REQUEST_PARAM")) {
        attribute(side, "FileName", record.FilePath);
        if (side.writes())
            attributeIfSet(side, "StartPos", record.StartPos);
    }
}

void downloadResponse(Side& side, SYSTEM_CONTROL_1022_PARAM& record)
{
    const bool isAgreed = isSet(record.Port) && isSet(record.FileType);
    if (const Element response = elementIf(isAgreed, side, "RESPONSE_PARAM")) {
        attribute(side, "Port", record.Port);
        attribute(side, "Type", record.FileType);
        attributeRead(side, "StartPos", record.StartPos);
        attributeIfSet(side, "FileLength", record.FileLength);
    }
}

void disk(Side& side, SYSTEM_CONTROL_DISK_INFO& row)
{
    attribute(side, "DevIndex", row.DevIndex);
    attribute(side, "VerifyMark", row.VerifyMark);
    attribute(side, "DevName", row.DevName);
    attribute(side, "Mounted", row.Mounted);
    attribute(side, "Total", row.Total);
    attribute(side, "Used", row.Used);
    attribute(side, "Status", row.Status);
}

void disks(Side& side, SYSTEM_CONTROL_3500_PARAM& record)
{
    if (const Element response = element(side, "RESPONSE_PARAM", kBoth)) {
        attribute(side, "DiskNum", record.DiskNum);
        attribute(side, "RecordDays", record.RecordDays);
        response.elements();
        rowElements<disk>(side, "DeviceInfo", record.stDisk,
                          boundedRows(side, record.DiskNum, record.stDisk));
    }
}

void diskMark(Side& side, SYSTEM_CONTROL_3501_PARAM& record)
{
    attribute(side, "DevIndex", record.DevIndex);
    attribute(side, "VerifyMark", record.VerifyMark);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kDownloadFile =
    message<SYSTEM_CONTROL_1009_PARAM_init>("SystemControl_DownloadFile_MessageAnalysis",
                                            over<downloadRequest>("REQUEST_PARAM", Kinds::kRequests),
                                            over<downloadResponse>("RESPONSE_PARAM", Kinds::kNotRequests))
        .reporting("REQUEST_PARAM")
        .quiet();
extern constexpr MessageRow kGetIpcStorageCfg =
    message<SYSTEM_CONTROL_1014_PARAM_init>("SystemControl_GetIpcStorageCfg_MessageAnalysis",
                                            response<storageDevices>(Kinds::kNotRequests, kElements))
        .quiet();
extern constexpr MessageRow kStorageDeviceFormat =
    message<SYSTEM_CONTROL_1017_PARAM_init>("SystemControl_StorageDeviceFormat_MessageAnalysis",
                                            request<deviceName>())
        .quiet();
extern constexpr MessageRow kUploadFile =
    message<SYSTEM_CONTROL_1022_PARAM_init>("SystemControl_UploadFile_MessageAnalysis",
                                            response<uploadResponse>(Kinds::kNotRequests, kNoLineFeed),
                                            request<uploadRequest>())
        .quiet();
extern constexpr MessageRow kGetNvrDiskInfo =
    message<SYSTEM_CONTROL_3500_PARAM_init>("SystemControl_GetNvrDiskInfo_MessageAnalysis",
                                            over<disks>("RESPONSE_PARAM", Kinds::kResponses))
        .quiet();
extern constexpr MessageRow kSetNvrDiskFormat =
    message<SYSTEM_CONTROL_3501_PARAM_init>(
        "SystemControl_SetNvrDiskFormat_MessageAnalysis",
        within<diskMark>("FORMAT_PARAM", Kinds::kNotResponses, kBlankBehindName))
        .quiet();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONTROL_1014_PARAM_init(SYSTEM_CONTROL_1014_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& device : record.stDeviceInfo)
            zel::clear(device.DevName);
    });
}

int SYSTEM_CONTROL_1017_PARAM_init(SYSTEM_CONTROL_1017_PARAM* param)
{
    return zel::startAtZero(param);
}

int SYSTEM_CONTROL_1022_PARAM_init(SYSTEM_CONTROL_1022_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.FilePath, record.AlarmAudioName); });
}

ZEL_EXPORT_INIT(SYSTEM_CONTROL_1009_PARAM, SYSTEM_CONTROL_1022_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONTROL_1023_PARAM, SYSTEM_CONTROL_1022_PARAM)
ZEL_EXPORT_INIT(SYSTEM_CONTROL_1024_PARAM, SYSTEM_CONTROL_1022_PARAM)

int SYSTEM_CONTROL_3500_PARAM_init(SYSTEM_CONTROL_3500_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& entry : record.stDisk)
            zel::clear(entry.DevName);
    });
}

int SYSTEM_CONTROL_3501_PARAM_init(SYSTEM_CONTROL_3501_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_ANALYSIS(SystemControl_DownloadFile, kDownloadFile)
ZEL_EXPORT_ANALYSIS(SystemControl_GetIpcStorageCfg, kGetIpcStorageCfg)
ZEL_EXPORT_ANALYSIS(SystemControl_StorageDeviceFormat, kStorageDeviceFormat)
ZEL_EXPORT_ANALYSIS(SystemControl_UploadFile, kUploadFile)
ZEL_EXPORT_ANALYSIS(SystemControl_GetNvrDiskInfo, kGetNvrDiskInfo)
ZEL_EXPORT_ANALYSIS(SystemControl_SetNvrDiskFormat, kSetNvrDiskFormat)
