#include "channels/channel_list_msg.h"

#include <algorithm>
#include <iterator>

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

void foundCamera(Side& side, SYSTEM_CONFIG_GET_3801_PARAM& record)
{
    attribute(side, "Protocol", record.Protocol);
    attribute(side, "IPAddress", record.IPAddress);
    attribute(side, "Username", record.Username);
    attribute(side, "Password", record.Password);
    attribute(side, "CtrlPort", record.CtrlPort);
    attribute(side, "SN", record.SN);
    attribute(side, "OsdName", record.OsdName);
    attribute(side, "IpcVer", record.IpcVer);
    attribute(side, "MacAddress", record.MacAddress);
    attribute(side, "Netmask", record.Netmask);
    attribute(side, "Gateway", record.Gateway);
    attributeIfSet(side, "DevSubType", record.DevSubType);
    attributeIfSet(side, "Feature", record.Feature);
}

// What a listed and an added channel have in common.
void channelAccess(Side& side, SYSTEM_CONFIG_CHANNEL_INFO& row)
{
    attributeBehindBlank(side, "CtrlPort", row.CtrlPort);
    attribute(side, "Username", row.Username);
    attribute(side, "Password", row.Password);
    attribute(side, "RtspDomain", row.RtspDomain);
    attribute(side, "RtspMainResPath", row.RtspMainResPath);
    attribute(side, "RtspMainResPort", row.RtspMainResPort);
    attribute(side, "RtspSubResPath", row.RtspSubResPath);
    attribute(side, "RtspSubResPort", row.RtspSubResPort);
    attributeIfSet(side, "DevSubType", row.DevSubType);
    attributeIfSet(side, "Feature", row.Feature);
}

void listedChannel(Side& side, SYSTEM_CONFIG_CHANNEL_INFO& row)
{
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "IpAddr", row.IpAddr);
    attribute(side, "DevMode", row.DevMode);
    attribute(side, "Protocol", row.Protocol);
    attribute(side, "ChannnelName", row.ChannnelName);
    attribute(side, "Status", row.Status);
    channelAccess(side, row);
}

void addedChannel(Side& side, SYSTEM_CONFIG_CHANNEL_INFO& row)
{
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "IPAddress", row.IpAddr);
    attribute(side, "DevMode", row.DevMode);
    attribute(side, "Protocol", row.Protocol);
    channelAccess(side, row);
}

// A request of one attribute has no body when that is absent.
void searchRequest(Side& side, SYSTEM_CONFIG_GET_3801_PARAM& record)
{
    if (const Element request = elementIf(isSet(record.SearchDuration), side, "REQUEST_PARAM"))
        attribute(side, "SearchDuration", record.SearchDuration);
}

void listRequest(Side& side, SYSTEM_CONFIG_GET_3803_PARAM& record)
{
    if (const Element request = elementIf(isSet(record.DivideResponse), side, "REQUEST_PARAM"))
        attribute(side, "DivideResponse", record.DivideResponse);
}

bool isInUse(const SYSTEM_CONFIG_CHANNEL_INFO& row)
{
    return isSet(row.ChannelId);
}

void listResponse(Side& side, SYSTEM_CONFIG_GET_3803_PARAM& record)
{
    // These two stand bare at the head of the body, but are read as attributes of it.
    attribute(side, "ChannelCount", record.ChannelCount);
    const bool isDivided = record.DivideResponse > 0;
    if (side.takes(isDivided))
        attribute(side, "EndPackage", record.EndPackage);

    auto& rows = record.stChannelInfo;
    if (side.takes(false)) {
        rowElements<listedChannel>(side, "ChannelInfo", rows);
        return;
    }
    // What goes out begins with the first row in use and ends before the next one that isn't.
    const size_t first = static_cast<size_t>(std::find_if(std::begin(rows), std::end(rows), isInUse) - rows);
    const size_t longest =
        clampCount(isDivided ? record.DivideResponse : record.ChannelCount, std::size(rows));
    for (size_t i = first; i < std::size(rows) && i - first < longest && isInUse(rows[i]); ++i)
        if (const Element info = element(side, "ChannelInfo"))
            listedChannel(side, rows[i]);
}

void addRequest(Side& side, SYSTEM_CONFIG_SET_3804_PARAM& record)
{
    const size_t count =
        usedRowElements<addedChannel, isInUse>(side, "ChannelInfo", record.stChannelInfo,
                                               countedRows(side, record.iChannelCount, record.stChannelInfo));
    if (!side.writes())
        record.iChannelCount = static_cast<int32_t>(count);
}

void addResult(Side& side, SYSTEM_CONFIG_CHANNEL_INFO& row)
{
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "IPAddress", row.IpAddr);
    attribute(side, "Result", row.Result);
}

// It is read as a request is: its results are passed over.
void addResponse(Side& side, SYSTEM_CONFIG_SET_3804_PARAM& record)
{
    rowElements<addResult>(side, "ChannelInfo", record.stChannelInfo,
                           countedRows(side, record.iChannelCount, record.stChannelInfo));
}

// --- Absent values -------------------------------------------------------------------------------

// The rows are the record's end, and most of it.
template <class Record>
int initChannels(Record* record)
{
    if (!record)
        return -1;
    auto& rows = record->stChannelInfo;
    memset(record, 0xFF, sizeof *record - sizeof rows);
    clear(rows);
    for (SYSTEM_CONFIG_CHANNEL_INFO& row : rows)
        setAbsent(row.ChannelId, row.CtrlPort, row.DevMode, row.Status, row.Result, row.RtspMainResPort,
                  row.RtspSubResPort);
    return 0;
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

// Unlike elsewhere kind 2 is a response.
extern constexpr MessageRow kNvrChannelStartSearchipc =
    message<SYSTEM_CONFIG_GET_3801_PARAM_init>("SystemConfig_NvrChannelStartSearchipc_MessageAnalysis",
                                               over<searchRequest>("REQUEST_PARAM", Kinds::kZero),
                                               within<foundCamera>("IPCINFO", Kinds::kNotZero))
        .reporting("IPCINFO")
        .leavingFields();
extern constexpr MessageRow kNvrChannelGetChannelList =
    message<SYSTEM_CONFIG_GET_3803_PARAM_init>("SystemConfig_NvrChannelGetChannelList_MessageAnalysis",
                                               over<listRequest>("REQUEST_PARAM", Kinds::kZero),
                                               over<listResponse>("ChannelInfo", Kinds::kNotZero))
        .reporting("ChannelInfo");
extern constexpr MessageRow kNvrChannelAddChannel = message<SYSTEM_CONFIG_SET_3804_PARAM_init>(
    "SystemConfig_NvrChannelAddChannel_MessageAnalysis", over<addRequest>("ChannelInfo", Kinds::kZero),
    written<addResponse>(Kinds::kNotZero));

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONFIG_GET_3801_PARAM_init(SYSTEM_CONFIG_GET_3801_PARAM* param)
{
    if (!param)
        return -1;
    zel::setAbsent(param->SearchDuration, param->CtrlPort);
    zel::clear(param->Protocol, param->IPAddress, param->Username, param->Password, param->SN, param->OsdName,
               param->IpcVer, param->MacAddress, param->Netmask, param->Gateway);
    return 0;
}

int SYSTEM_CONFIG_GET_3803_PARAM_init(SYSTEM_CONFIG_GET_3803_PARAM* param)
{
    return zel::initChannels(param);
}

int SYSTEM_CONFIG_SET_3804_PARAM_init(SYSTEM_CONFIG_SET_3804_PARAM* param)
{
    return zel::initChannels(param);
}

ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelStartSearchipc, kNvrChannelStartSearchipc)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelGetChannelList, kNvrChannelGetChannelList)
ZEL_EXPORT_ANALYSIS(SystemConfig_NvrChannelAddChannel, kNvrChannelAddChannel)
