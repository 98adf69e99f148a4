#include "discovery/address_change_msg.h"

#include "discovery/search_lists.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void modifyBySerialNumber(Side& side, SYSTEM_SEARCHIPC_2_PARAM& record)
{
    vendorParam(side, record.VendorId);
    if (const Element serial = element(side, "IPC_SERIALNUMBER")) {
        attribute(side, "SerialNumber", record.SerialNumber);
        attributeIfSet(side, "DevID", record.DevID);
    }
    if (const Element lan = elementIf(isSet(record.stLan.IPAddress), side, "LANConfig")) {
        lanAddressesAndNames(side, record.stLan);
        attributeIfSet(side, "AllNetConnectEnable", record.AllNetConnectEnable);
    }
    mediaStreamConfig(side, record.stStream, StreamForm::kPorts);
}

void restoreConfig(Side& side, SYSTEM_SEARCHIPC_4_PARAM& record)
{
    if (const Element serial = element(side, "IPC_SERIALNUMBER"))
        attribute(side, "SerialNumber", record.SerialNumber);
}

void broadcastDeviceInfo(Side& side, SYSTEM_SEARCHIPC_7_PARAM& record)
{
    if (const Element info = element(side, "IPC_DEVINFO")) {
        attribute(side, "SerialNumber", record.SerialNumber);
        attribute(side, "ipaddr", record.ipaddr);
        attribute(side, "randStr", record.randStr);
        attributeIfSet(side, "IPList", record.IPList);
        attributeIfSet(side, "SerialNumberBrother", record.SerialNumberBrother);
        attributeIfSet(side, "ipaddrBrother", record.ipaddrBrother);
        attributeIfSet(side, "randStrBrother", record.randStrBrother);
    }
}

// Closes with a tag although nothing stands in it.
void sendTime(Side& side, SYSTEM_SEARCHIPC_101_PARAM& record)
{
    if (const Element time = element(side, "TimeConfig", kBoth)) {
        attribute(side, "Enable", record.Enable);
        attribute(side, "Timezone", record.Timezone);
        attribute(side, "Format", record.Format);
        attribute(side, "Time", record.Time);
        time.elements();
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kModifyBySerialNumber = message<SYSTEM_SEARCHIPC_2_PARAM_init>(
    "SystemSearchipc_ModifyIpBySn_MessageAnalysis", body<modifyBySerialNumber>());
extern constexpr MessageRow kRestoreConfig = message<SYSTEM_SEARCHIPC_4_PARAM_init>(
    "SystemSearchipc_RestoreConfig_MessageAnalysis", body<restoreConfig>());
extern constexpr MessageRow kBroadcastDeviceInfo = message<SYSTEM_SEARCHIPC_7_PARAM_init>(
    "SystemSearchipc_BroadcastDeviceInfo_MessageAnalysis", body<broadcastDeviceInfo>());
extern constexpr MessageRow kSendTime = message<SYSTEM_SEARCHIPC_101_PARAM_init>(
    "SystemSearchipc_UDPSendTime_MessageAnalysis", over<sendTime>("TimeConfig", Kinds::kAll));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_SEARCHIPC_2_PARAM_init(SYSTEM_SEARCHIPC_2_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.SerialNumber, record.DevID, record.VendorId);
        zel::clearLanTexts(record.stLan);
    });
}

int SYSTEM_SEARCHIPC_4_PARAM_init(SYSTEM_SEARCHIPC_4_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_INIT(SYSTEM_SEARCHIPC_5_PARAM, SYSTEM_SEARCHIPC_2_PARAM)
ZEL_EXPORT_INIT(SYSTEM_SEARCHIPC_6_PARAM, SYSTEM_SEARCHIPC_4_PARAM)

int SYSTEM_SEARCHIPC_7_PARAM_init(SYSTEM_SEARCHIPC_7_PARAM* param)
{
    return zel::startAtZero(param);
}

ZEL_EXPORT_INIT(SYSTEM_SEARCHIPC_8_PARAM, SYSTEM_SEARCHIPC_4_PARAM)

int SYSTEM_SEARCHIPC_101_PARAM_init(SYSTEM_SEARCHIPC_101_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.Format, record.Time); });
}

ZEL_EXPORT_ANALYSIS(SystemSearchipc_ModifyIpBySn, kModifyBySerialNumber)
ZEL_EXPORT_ANALYSIS(SystemSearchipc_RestoreConfig, kRestoreConfig)
ZEL_EXPORT_ANALYSIS(SystemSearchipc_BroadcastDeviceInfo, kBroadcastDeviceInfo)
ZEL_EXPORT_ANALYSIS(SystemSearchipc_UDPSendTime, kSendTime)
