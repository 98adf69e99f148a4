#include "core/families.h"
#include "core/records.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr auto heartbeatAttributes = [](auto& side, auto& record) {
    attributeIfSet(side, "Ipcs_stat", record.Ipcs_stat);
    attributeIfSet(side, "streamstat", record.streamstat);
    attributeIfSet(side, "IpcAbility1", record.IpcAbility1);
    attributeIfSet(side, "IpcProtoCol", record.IpcProtoCol);
};

} // namespace

bool isHeartbeat(std::string_view type, std::string_view code)
{
    return code == "CMD_HEARTBEAT" &&
           (type == "ZEL_HEARTBEAT_MESSAGE" || type == "AUXPTZ_HEARTBEAT_MESSAGE" ||
            type == "NVR_PRODUCE_TEST_MESSAGE");
}

void heartbeatHeader(TextWriter& out, const void* record)
{
    heartbeatAttributes(out, *static_cast<const ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM*>(record));
}

int GetMessageHeaderEx(Message& message, void** result)
{
    const Leaf leaf{"GetMessageHeaderEx", true};
    if (message.isNull())
        return emptyParam(leaf.name);
    if (const int status = findRoot(message, leaf))
        return status;
    const ElementReader header = message.root.child("MESSAGE_HEADER");
    if (!header)
        return missingElement(leaf, "MESSAGE_HEADER");
    return giveRecord(result, ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init,
                      [&](auto& record) { heartbeatAttributes(header, record); });
}

} // namespace zel

int ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record); });
}

int AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM* param)
{
    return ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(param);
}

int HeartbeatMessageCompose(const ZEL_PROTOCOL_HEADER* header, const void* record, char* headBuf, int size,
                            int used)
{
    if (!headBuf || !header || size < 1) {
        ZelProtocolLogError("HeartbeatMessageCompose put a empty msghead\n");
        return ZEL_ERR_NO_HEADER;
    }
    if (!record)
        return 0;
    if (used < 0 || used >= size)
        return ZEL_ERR_BUFFER_SMALL;
    zel::TextWriter out(headBuf + used, static_cast<size_t>(size - used) - 1);
    zel::heartbeatHeader(out, record);
    return zel::finishBody(out, 0);
}

int GetMessageHeaderEx(const char* text, void** result)
{
    return zel::analyseText<zel::GetMessageHeaderEx>(text, result);
}
