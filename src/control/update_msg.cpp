#include "control/update_msg.h"

#include "control/channel_state.h"

namespace zel {

namespace {

// --- Attribute lists, for both directions --------------------------------------------------------

template <class Record>
void channelState(Side& side, Record& record)
{
    channelStateAttribute(side, record.ChannelId, record.bChannelIdEmpty);
}

void updateOrder(Side& side, SYSTEM_CONTROL_1090_PARAM& record)
{
    attribute(side, "url", record.url);
    attribute(side, "md5", record.md5);
    channelState(side, record);
}

void updateStatus(Side& side, SYSTEM_CONTROL_1092_PARAM& record)
{
    attribute(side, "Progress", record.Progress);
    attribute(side, "State", record.State);
    channelState(side, record);
}

void channel(Side& side, SYSTEM_CONTROL_1093_PARAM& record)
{
    attribute(side, "ChannelId", record.ChannelId);
}

template <auto init, auto requestList, auto responseList>
constexpr MessageRow updateMessage(const char* name)
{
    return message<init>(name, response<responseList>(), request<requestList>(Kinds::kNotResponses))
        .reporting("REQUEST_PARAM")
        .quiet();
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kSendUpdateCmd =
    updateMessage<SYSTEM_CONTROL_1090_PARAM_init, updateOrder, channelState<SYSTEM_CONTROL_1090_PARAM>>(
        "SystemControl_SendUpdateCmd_MessageAnalysis");
extern constexpr MessageRow kGetUpdateStatus =
    updateMessage<SYSTEM_CONTROL_1092_PARAM_init, channelState<SYSTEM_CONTROL_1092_PARAM>, updateStatus>(
        "SystemControl_GetUpdateStatus_MessageAnalysis");
extern constexpr MessageRow kCancelUpdate = updateMessage<SYSTEM_CONTROL_1093_PARAM_init, channel, channel>(
    "SystemControl_CancelUpdate_MessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SYSTEM_CONTROL_1090_PARAM_init(SYSTEM_CONTROL_1090_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.url, record.md5); });
}

int SYSTEM_CONTROL_1092_PARAM_init(SYSTEM_CONTROL_1092_PARAM* param)
{
    return zel::initRecord(param);
}

ZEL_EXPORT_INIT(SYSTEM_CONTROL_1093_PARAM, SYSTEM_CONTROL_1092_PARAM)

ZEL_EXPORT_ANALYSIS(SystemControl_SendUpdateCmd, kSendUpdateCmd)
ZEL_EXPORT_ANALYSIS(SystemControl_GetUpdateStatus, kGetUpdateStatus)
ZEL_EXPORT_ANALYSIS(SystemControl_CancelUpdate, kCancelUpdate)
