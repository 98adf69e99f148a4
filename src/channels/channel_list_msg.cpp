#include "channels/channel_list_msg.h"

#include <algorithm>
#include <iterator>

#include "core/records.h"

namespace zel {

template <>
inline constexpr bool kInitLeavesFields<SYSTEM_CONFIG_GET_3801_PARAM> = true;

namespace {

// Unlike elsewhere kind 2 is a response.
bool isChannelRequest(int kind)
{
    return kind == 0;
}

// --- Attribute lists, for both directions --------------------------------------------------------

constexpr auto foundCamera = [](auto& side, auto& record) {
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
};

// What a listed and an added channel have in common.
constexpr auto channelAccess = [](auto& side, auto& row) {
    // Written with a blank before the equals sign.
    if constexpr (kWrites<decltype(side)>)
        attribute(side, "CtrlPort ", row.CtrlPort);
    else
        attribute(side, "CtrlPort", row.CtrlPort);
    attribute(side, "Username", row.Username);
    attribute(side, "Password", row.Password);
    attribute(side, "RtspDomain", row.RtspDomain);
    attribute(side, "RtspMainResPath", row.RtspMainResPath);
    attribute(side, "RtspMainResPort", row.RtspMainResPort);
    attribute(side, "RtspSubResPath", row.RtspSubResPath);
    attribute(side, "RtspSubResPort", row.RtspSubResPort);
    attributeIfSet(side, "DevSubType", row.DevSubType);
    attributeIfSet(side, "Feature", row.Feature);
};

constexpr auto listedChannel = [](auto& side, auto& row) {
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "IpAddr", row.IpAddr);
    attribute(side, "DevMode", row.DevMode);
    attribute(side, "Protocol", row.Protocol);
    attribute(side, "ChannnelName", row.ChannnelName);
    attribute(side, "Status", row.Status);
    channelAccess(side, row);
};

constexpr auto addedChannel = [](auto& side, auto& row) {
    attribute(side, "ChannelId", row.ChannelId);
    attribute(side, "IPAddress", row.IpAddr);
    attribute(side, "DevMode", row.DevMode);
    attribute(side, "Protocol", row.Protocol);
    channelAccess(side, row);
};

// A request of one attribute, without a body when that is absent.
template <size_t N>
int composeRequest(TextWriter& out, const char (&name)[N], const int32_t& field)
{
    if (isSet(field))
        element(out, "REQUEST_PARAM", [&](TextWriter& side) { attribute(side, name, field); });
    return 0;
}

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

int SystemConfig_NvrChannelStartSearchipc_MessageCompose(TextWriter& out,
                                                         const SYSTEM_CONFIG_GET_3801_PARAM& record, int kind)
{
    if (isChannelRequest(kind))
        return composeRequest(out, "SearchDuration", record.SearchDuration);
    element(out, "IPCINFO", [&](TextWriter& side) { foundCamera(side, record); });
    return 0;
}

int SystemConfig_NvrChannelStartSearchipc_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader request = body.child("REQUEST_PARAM");
    const ElementReader camera = request ? ElementReader() : body.child("IPCINFO");
    if (!request && !camera)
        return missingElement(leaf, "IPCINFO");
    return giveRecord(result, SYSTEM_CONFIG_GET_3801_PARAM_init, [&](auto& record) {
        if (request)
            attribute(request, "SearchDuration", record.SearchDuration);
        else
            foundCamera(camera, record);
    });
}

int SystemConfig_NvrChannelGetChannelList_MessageCompose(TextWriter& out,
                                                         const SYSTEM_CONFIG_GET_3803_PARAM& record, int kind)
{
    if (isChannelRequest(kind))
        return composeRequest(out, "DivideResponse", record.DivideResponse);
    // These two stand bare at the head of the body, but are read as attributes of it.
    attribute(out, "ChannelCount", record.ChannelCount);
    if (record.DivideResponse > 0)
        attribute(out, "EndPackage", record.EndPackage);

    const auto& rows = record.stChannelInfo;
    const size_t longest =
        clampCount(record.DivideResponse > 0 ? record.DivideResponse : record.ChannelCount, std::size(rows));
    const auto first =
        std::find_if(std::begin(rows), std::end(rows), [](auto& row) { return isSet(row.ChannelId); });
    size_t count = 0;
    for (auto row = first; row != std::end(rows) && count < longest && isSet(row->ChannelId); ++row, ++count)
        element(out, "ChannelInfo", [&](TextWriter& side) { listedChannel(side, *row); });
    return 0;
}

int SystemConfig_NvrChannelGetChannelList_MessageAnalysis(Message& message, void** result)
{
    const Leaf leaf{__func__};
    ElementReader body;
    if (const int status = openBody(message, result, leaf, body))
        return status;
    const ElementReader request = body.child("REQUEST_PARAM");
    if (!request && !body.child("ChannelInfo"))
        return missingElement(leaf, "ChannelInfo");
    return giveRecord(result, SYSTEM_CONFIG_GET_3803_PARAM_init, [&](auto& record) {
        if (request) {
            attribute(request, "DivideResponse", record.DivideResponse);
        } else {
            attribute(body, "ChannelCount", record.ChannelCount);
            attribute(body, "EndPackage", record.EndPackage);
            rowElements(body, "ChannelInfo", record.stChannelInfo, listedChannel);
        }
    });
}

int SystemConfig_NvrChannelAddChannel_MessageCompose(TextWriter& out,
                                                     const SYSTEM_CONFIG_SET_3804_PARAM& record, int kind)
{
    const size_t count = clampCount(record.iChannelCount, std::size(record.stChannelInfo));
    for (size_t i = 0; i < count; ++i) {
        const auto& row = record.stChannelInfo[i];
        if (!isChannelRequest(kind))
            element(out, "ChannelInfo", [&](TextWriter& side) {
                attribute(side, "ChannelId", row.ChannelId);
                attribute(side, "IPAddress", row.IpAddr);
                attribute(side, "Result", row.Result);
            });
        else if (isSet(row.ChannelId))
            element(out, "ChannelInfo", [&](TextWriter& side) { addedChannel(side, row); });
    }
    return 0;
}

// Both directions are read as a request, so a response's Result is passed over.
int SystemConfig_NvrChannelAddChannel_MessageAnalysis(Message& message, void** result)
{
    return analyseDocument(message, result, {__func__}, "ChannelInfo", "ChannelInfo",
                           SYSTEM_CONFIG_SET_3804_PARAM_init, [](auto& body, auto& record) {
                               record.iChannelCount = static_cast<int32_t>(
                                   readRows(body, "ChannelInfo", record.stChannelInfo, addedChannel));
                           });
}

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

int SystemConfig_NvrChannelStartSearchipc_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_NvrChannelStartSearchipc_MessageAnalysis>(text, result);
}

int SystemConfig_NvrChannelGetChannelList_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_NvrChannelGetChannelList_MessageAnalysis>(text, result);
}

int SystemConfig_NvrChannelAddChannel_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::SystemConfig_NvrChannelAddChannel_MessageAnalysis>(text, result);
}
