#include "channels/channel_change_msg.h"

namespace zel {

namespace {

using AddressChange = SYSTEM_CONFIG_SET_3809_PARAM;

// --- Attribute lists, for both directions --------------------------------------------------------

void deletedChannel(Side& side, SYSTEM_CONFIG_SET_3805_PARAM& record)
{
    attribute(side, "ChannelId", record.ChannelId);
}

void switchedChannels(Side& side, SYSTEM_CONFIG_SET_3806_PARAM& record)
{
    attribute(side, "ChannelId1", record.ChannelId1);
    attribute(side, "ChannelId2", record.ChannelId2);
}

void pictures(Side& side, SYSTEM_CONFIG_SET_3807_PARAM& record)
{
    attribute(side, "PicNum", record.PicNum);
}

void picturePage(Side& side, SYSTEM_CONFIG_SET_3808_PARAM& record)
{
    attribute(side, "PrevOrNext", record.PrevOrNext);
}

// Of whichever direction, all is read.
void addressChange(Side& side, AddressChange& change)
{
    attributeRead(side, "IsChangIP", change.IsChangIP);
    attribute(side, "Protocol", change.Protocol);
    attribute(side, "IPAddressOld", change.IPAddressOld);
    attribute(side, "IPAddressNew", change.IPAddressNew);
    attribute(side, "Username", change.Username);
    attribute(side, "Password", change.Password);
    attribute(side, "SN", change.SN);
    attribute(side, "MacAddress", change.MacAddress);
    attribute(side, "Netmask", change.Netmask);
    attribute(side, "Gateway", change.Gateway);
    attribute(side, "DNS1", change.DNS1);
    attribute(side, "DNS2", change.DNS2);
    attribute(side, "CtrlPort", change.CtrlPort);
}

void changeResult(Side& side, AddressChange& change)
{
    attribute(side, "IsChangIP", change.IsChangIP);
    attribute(side, "IPAddressOld", change.IPAddressOld);
    attribute(side, "IPAddressNew", change.IPAddressNew);
    attribute(side, "Netmask", change.Netmask);
    attribute(side, "Gateway", change.Gateway);
}

// A result bears the request's name too.
void changeResponse(Side& side, AddressChange& change)
{
    if (const Element result = element(side, "REQUEST_PARAM"))
        changeResult(side, change);
}

bool hasProtocol(const AddressChange& row)
{
    return isSet(row.Protocol);
}

bool hasOldAddress(const AddressChange& row)
{
    return isSet(row.IPAddressOld);
}

void batchRequest(Side& side, SYSTEM_CONFIG_SET_3810_PARAM& record)
{
    usedRowElements<addressChange, hasProtocol>(side, "ChannelInfo", record.stIpc,
                                                countedRows(side, record.iChannelCount, record.stIpc));
}

// It isn't read: a peer's results are passed over.
void batchResponse(Side& side, SYSTEM_CONFIG_SET_3810_PARAM& record)
{
    usedRowElements<changeResult, hasOldAddress>(side, "REQUEST_PARAM", record.stIpc,
                                                 countedRows(side, record.iChannelCount, record.stIpc));
}

void channelId(Side& side, int32_t& id)
{
    attribute(side, "ChannelId", id);
}

void deletedChannels(Side& side, SYSTEM_CONFIG_SET_3811_PARAM& record)
{
    // It stands bare at the head of the body, but is read as an attribute of it.
    attribute(side, "ChannelCount", record.ChannelCount);
    const size_t count = rowElements<channelId>(side, "ChannelInfo", record.ChannelId,
                                                countedRows(side, record.ChannelCount, record.ChannelId));
    if (!side.writes() && !isSet(record.ChannelCount))
        record.ChannelCount = static_cast<int32_t>(count);
}

void numberedCamera(Side& side, SYSTEM_CONFIG_IPC_ADDRESS_ROW& row)
{
    attribute(side, "Protocol", row.Protocol);
    attribute(side, "IPAddress", row.IPAddress);
    attribute(side, "SN", row.SN);
    attribute(side, "Netmask", row.Netmask);
    attribute(side, "Gateway", row.Gateway);
    attribute(side, "CtrlPort", row.CtrlPort);
}

void numberingRequest(Side& side, SYSTEM_CONFIG_SET_3812_PARAM& record)
{
    if (const Element request = element(side, "REQUEST_PARAM")) {
        attribute(side, "Username", record.Username);
        attribute(side, "Password", record.Password);
        attribute(side, "IPAddressStart", record.IPAddressStart);
        attribute(side, "Netmask", record.Netmask);
        attribute(side, "Gateway", record.Gateway);
    }
    const size_t count =
        rowElements<numberedCamera>(side, "ChannelInfo", record.stIpcAddress,
                                    countedRows(side, record.iChannelCount, record.stIpcAddress));
    if (!side.writes())
        record.iChannelCount = static_cast<int32_t>(count);
}

// --- Absent values -------------------------------------------------------------------------------

void clearTexts(AddressChange& change)
{
    clear(change);
    setAbsent(change.CtrlPort, change.IsChangIP);
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kNvrChannelDelChannel = message<SYSTEM_CONFIG_SET_3805_PARAM_init>(
    "SystemConfig_NvrChannelDelChannel_MessageAnalysis", request<deletedChannel>());
extern constexpr MessageRow kNvrChannelSwitchChannel = message<SYSTEM_CONFIG_SET_3806_PARAM_init>(
    "SystemConfig_NvrChannelSwitchChannel_MessageAnalysis", request<switchedChannels>());
extern constexpr MessageRow kNvrChannelPicsSelect = message<SYSTEM_CONFIG_SET_3807_PARAM_init>(
    "SystemConfig_NvrChannelPicsSelect_MessageAnalysis", request<pictures>());
extern constexpr MessageRow kNvrChannelPicsPageChange = message<SYSTEM_CONFIG_SET_3808_PARAM_init>(
    "SystemConfig_NvrChannelPicsPageChange_MessageAnalysis", request<picturePage>());
extern constexpr MessageRow kNvrChannelModifyIpcIp = message<SYSTEM_CONFIG_SET_3809_PARAM_init>(
    "SystemConfig_NvrChannelModifyIpcIp_MessageAnalysis", request<addressChange>(),
    written<changeResponse>(Kinds::kNotRequests));
extern constexpr MessageRow kNvrChannelBatchModifyIpcIp = message<SYSTEM_CONFIG_SET_3810_PARAM_init>(
    "SystemConfig_NvrChannelBatchModifyIpcIp_MessageAnalysis",
    over<batchRequest>("ChannelInfo", Kinds::kRequests), written<batchResponse>(Kinds::kNotRequests));
extern constexpr MessageRow kNvrChannelBatchDelIpc =
    message<SYSTEM_CONFIG_SET_3811_PARAM_init>("SystemConfig_NvrChannelBatchDelIpc_MessageAnalysis",
                                               over<deletedChannels>("ChannelInfo", Kinds::kRequests));
extern constexpr MessageRow kNvrChannelBatchModifyIpcIpV2 =
    message<SYSTEM_CONFIG_SET_3812_PARAM_init>("SystemConfig_NvrChannelBatchModifyIpcIpV2_MessageAnalysis",
                                               over<numberingRequest>("REQUEST_PARAM", Kinds::kRequests));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_SET_3805_PARAM_init(SYSTEM_CONFIG_SET_3805_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_3806_PARAM_init(SYSTEM_CONFIG_SET_3806_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_3807_PARAM_init(SYSTEM_CONFIG_SET_3807_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_3808_PARAM_init(SYSTEM_CONFIG_SET_3808_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_3809_PARAM_init(SYSTEM_CONFIG_SET_3809_PARAM* param)
{
    return zel::initRecord(param, zel::clearTexts);
}

int SYSTEM_CONFIG_SET_3810_PARAM_init(SYSTEM_CONFIG_SET_3810_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        for (auto& row : record.stIpc)
            zel::clearTexts(row);
    });
}

int SYSTEM_CONFIG_SET_3811_PARAM_init(SYSTEM_CONFIG_SET_3811_PARAM* param)
{
    return zel::initRecord(param);
}

int SYSTEM_CONFIG_SET_3812_PARAM_init(SYSTEM_CONFIG_SET_3812_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.IPAddressStart, record.Username, record.Password, record.Netmask, record.Gateway,
                   record.stIpcAddress);
        for (auto& row : record.stIpcAddress)
            zel::setAbsent(row.CtrlPort);
    });
}

ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelDelChannel, kNvrChannelDelChannel)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelSwitchChannel, kNvrChannelSwitchChannel)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelPicsSelect, kNvrChannelPicsSelect)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelPicsPageChange, kNvrChannelPicsPageChange)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelModifyIpcIp, kNvrChannelModifyIpcIp)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelBatchModifyIpcIp, kNvrChannelBatchModifyIpcIp)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelBatchDelIpc, kNvrChannelBatchDelIpc)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelBatchModifyIpcIpV2, kNvrChannelBatchModifyIpcIpV2)
