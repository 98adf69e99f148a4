#include <iterator>

#include "core/families.h"
#include "discovery/address_change_msg.h"
#include "discovery/search_lists.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

using DeviceInfo = SYSTEM_SEARCHIPC_DEVICE_INFO;
using Account = SYSTEM_SEARCHIPC_ACCOUNT;
using SearchRequest = SYSTEM_SEARCHIPC_1_PARAM;
using SearchResponse = SYSTEM_SEARCHIPC_3_PARAM;
using SearchIotResponse = SYSTEM_SEARCHIPC_21_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void deviceType(Side& side, DeviceInfo& device)
{
    attribute(side, "DeviceType", device.DeviceType);
    attributeIfSet(side, "SalesArea", device.SalesArea);
    attributeIfSet(side, "DeviceModule", device.DeviceModule);
    attributeIfSet(side, "BindMode", device.BindMode);
    attributeIfSet(side, "DevSubType", device.DevSubType);
    signedAttributeIfSet(side, "Feature", device.Feature);
}

void serialNumber(Side& side, DeviceInfo& device)
{
    if (const Element serial = element(side, "IPC_SERIALNUMBER")) {
        attribute(side, "SerialNumber", device.SerialNumber);
        attribute(side, "DevID", device.DevID);
    }
}

void lanConfig(Side& side, SearchResponse& record)
{
    lanAddressesAndNames(side, record.stLan);
    attributeIfSet(side, "AllNetConnectEnable", record.AllNetConnectEnable);
    attributeIfSet(side, "IPAddressVirtual", record.IPAddressVirtual);
    attributeIfSet(side, "MTU", record.stLan.MTU);
    if (side.writes())
        attributeIfSet(side, "DEV", record.stLan.DEV);
}

void accountAttributes(Side& side, Account& account)
{
    attribute(side, "Group", account.Group);
    attribute(side, "Status", account.Status);
    if (side.takes(isSet(account.Username))) {
        attribute(side, "Username", account.Username);
        attribute(side, "Password", account.Password);
    }
}

void userConfig(Side& side, SearchResponse& record)
{
    if (const Element users = elementIf(isSet(record.iAccountNum), side, "UserConfig", kElements)) {
        const size_t count = rowElements<accountAttributes>(
            side, "Account", record.stAccounts, countedRows(side, record.iAccountNum, record.stAccounts));
        if (!side.writes())
            record.iAccountNum = static_cast<int32_t>(count);
    }
}

// Two attributes are read under other names than they are written under.
void iotInfo(Side& side, SearchIotResponse& record)
{
    attributeWritten(side, "DeviceType", record.DeviceType);
    attributeRead(side, "DevType", record.DeviceType);
    attributeIfSet(side, "DeviceModule", record.DeviceModule);
    attributeIfSet(side, "BindStatus", record.BindStatus);
    if (side.writes())
        attributeIfSet(side, "DevSubType", record.DevSubType);
    else
        attribute(side, "BindNetType", record.DevSubType);
    attributeIfSet(side, "RegStatus", record.RegStatus);
}

// --- Connection counts ---------------------------------------------------------------------------

char* printCounts(char* at, const void* items, size_t count)
{
    const auto* const counts = static_cast<const int16_t*>(items);
    for (size_t i = 0; i < count; ++i) {
        at = printNumber(at, int32_t{counts[i]});
        *at++ = ',';
    }
    return at;
}

// Only a number with a comma behind it counts, of the first 1023 bytes.
void scanCounts(std::string_view value, void* items, size_t count)
{
    constexpr size_t kLongest = 1023;
    auto* const counts = static_cast<int16_t*>(items);
    value = partOf(value, 0, kLongest);
    for (size_t i = 0; i < count; ++i) {
        const size_t comma = value.find(',');
        if (comma == std::string_view::npos)
            return;
        counts[i] = static_cast<int16_t>(numberOf(partOf(value, 0, comma)));
        value.remove_prefix(comma + 1);
    }
}

constexpr ValueForm kCounts = {ZEL_FORM_LIST, kLongestNumber + 1, printCounts, scanCounts};

void connectionCount(Side& side, DeviceInfo& device)
{
    if (const Element counts = elementIf(isSet(device.iConnectionCountValid), side, "ConnectionCount")) {
        if (!side.writes())
            device.iConnectionCountValid = 1;
        valueAttribute(side, "Count", kCounts, device.Count, sizeof device.Count, std::size(device.Count));
    }
}

// --- Bodies --------------------------------------------------------------------------------------

void searchRequest(Side& side, SearchRequest& record)
{
    vendorParam(side, record.VendorId);
}

void searchResponse(Side& side, SearchResponse& record)
{
    auto& device = record.stDevice;
    vendorParam(side, record.VendorId);
    if (const Element type = element(side, "DEVICE_TYPE"))
        deviceType(side, device);
    serialNumber(side, device);
    if (const Element lan = element(side, "LANConfig"))
        lanConfig(side, record);
    if (const Element lan = elementIf(isSet(record.stLan1.IPAddress), side, "LAN1Config"))
        lanAddresses(side, record.stLan1);
    userConfig(side, record);
    mediaStreamConfig(side, record.stStream, StreamForm::kWithClients);
    if (const Element osd = elementIf(isSet(device.OsdStr), side, "OSD"))
        attribute(side, "OsdStr", device.OsdStr);
    if (const Element version = elementIf(isSet(device.FileSystemVersion), side, "VERSION"))
        attribute(side, "FileSystemVersion", device.FileSystemVersion);
    if (const Element manufacturer = elementIf(isSet(device.Name), side, "Manufacturer"))
        attribute(side, "Name", device.Name);
    connectionCount(side, device);
}

void searchIotResponse(Side& side, SearchIotResponse& record)
{
    if (const Element info = element(side, "IOTInfo"))
        iotInfo(side, record);
    serialNumber(side, record.stDevice);
    if (const Element lan = element(side, "LANConfig")) {
        lanAddressesAndNames(side, record.stLan);
        attribute(side, "MTU", record.stLan.MTU);
    }
}

// --- Absent values -------------------------------------------------------------------------------

void clearTexts(DeviceInfo& device)
{
    clear(device.SerialNumber, device.DeviceType, device.DeviceModule, device.DevID, device.OsdStr,
          device.FileSystemVersion, device.Name, device.Count, device.SalesArea);
}

// --- Messages ------------------------------------------------------------------------------------

// Each code has one form, whatever the kind.
constexpr MessageRow kSearchRequest = message<SYSTEM_SEARCHIPC_1_PARAM_init>(
    "SystemSearchipc_SearchRequest_MessageAnalysis", body<searchRequest>());
constexpr MessageRow kSearchResponse = message<SYSTEM_SEARCHIPC_3_PARAM_init>(
    "SystemSearchipc_SearchResponse_MessageAnalysis", body<searchResponse>());
constexpr MessageRow kSearchIotResponse = message<SYSTEM_SEARCHIPC_21_PARAM_init>(
    "SystemSearchipc_SearchIotResponse_MessageAnalysis", body<searchIotResponse>());

// Codes without a row have neither a body nor a record.
constexpr CodeRow kCodes[] = {
    {1, &kSearchRequest},
    {2, &kModifyBySerialNumber},
    {3, &kSearchResponse},
    {4, &kRestoreConfig},
    {5, &kModifyBySerialNumber, Erased<SYSTEM_SEARCHIPC_5_PARAM_init>::call},
    {6, &kRestoreConfig, Erased<SYSTEM_SEARCHIPC_6_PARAM_init>::call},
    {7, &kBroadcastDeviceInfo},
    {8, &kRestoreConfig, Erased<SYSTEM_SEARCHIPC_8_PARAM_init>::call},
    {9, nullptr},
    {10, nullptr},
    {11, nullptr},
    {20, nullptr},
    {21, &kSearchIotResponse},
    {101, &kSendTime},
};
static_assert(isAscending(kCodes));

int unknownSearchCode(const Family& family, std::string_view code)
{
    ZelProtocolLogError("%s deal a unknow msg_code:%d \n", family.name, numberOf(code));
    return ZEL_ERR_UNKNOWN_MSG;
}

} // namespace

extern constexpr Family kSearchFamily =
    Family("SYSTEM_SEARCHIPC_MESSAGE", kCodes, composeCode, analyseCode, unknownSearchCode).bare();

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_SEARCHIPC_1_PARAM_init(SYSTEM_SEARCHIPC_1_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.VendorId); });
}

int SYSTEM_SEARCHIPC_3_PARAM_init(SYSTEM_SEARCHIPC_3_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.VendorId, record.IPAddressVirtual, record.stAccounts);
        zel::clearTexts(record.stDevice);
        zel::clearLanTexts(record.stLan);
        zel::clearLanTexts(record.stLan1);
    });
}

int SYSTEM_SEARCHIPC_21_PARAM_init(SYSTEM_SEARCHIPC_21_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.DeviceModule);
        zel::clearTexts(record.stDevice);
        zel::clearLanTexts(record.stLan);
    });
}

int SystemSearchipcMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kSearchFamily, record, kind, code, buf, len);
}

int SystemSearchipcMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kSearchFamily, text, code, result);
}

ZEL_EXPORT_ANALYSIS(SystemSearchipc_SearchRequest, kSearchRequest)
ZEL_EXPORT_ANALYSIS(SystemSearchipc_SearchResponse, kSearchResponse)
ZEL_EXPORT_ANALYSIS(SystemSearchipc_SearchIotResponse, kSearchIotResponse)
