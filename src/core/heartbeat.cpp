#include "core/families.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

void heartbeat(Side& side, ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM& record)
{
    attributeIfSet(side, "Ipcs_stat", record.Ipcs_stat);
    attributeIfSet(side, "streamstat", record.streamstat);
    attributeIfSet(side, "IpcAbility1", record.IpcAbility1);
    attributeIfSet(side, "IpcProtoCol", record.IpcProtoCol);
}

// Its parameters ride in the message's header: the body stays empty.
void composeHeader(TextWriter& out, const void* record, int, std::string_view)
{
    Erased<heartbeat>::call(out, const_cast<void*>(record));
}

int analyseHeartbeat(const MessageRow& row, Message& message, void** result)
{
    if (message.isNull())
        return emptyParam(row.leaf.name);
    if (const int status = findRoot(message, row.leaf))
        return status;
    if (!message.root.child("MESSAGE_HEADER"))
        return missingElement(row.leaf, "MESSAGE_HEADER");
    return givePart(row, row.parts[0], message, {}, result);
}

void emptyBody(Side&, ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM&) {}

constexpr MessageRow kHeartbeat =
    message<ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init>("GetMessageHeaderEx", body<emptyBody>(Kinds::kNone))
        .quiet()
        .headedBy<heartbeat>(Kinds::kAll)
        .analysedBy(analyseHeartbeat);

constexpr char kCode[] = "CMD_HEARTBEAT";

constexpr CodeRow kCodes[] = {
    {0, &kHeartbeat, nullptr, 0, kCode},
    {1, &kHeartbeat, Erased<AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM_init>::call, 1, kCode},
    {2, &kHeartbeat, nullptr, 2, kCode},
};

int analyseAny(const Family&, Message& message, std::string_view, void** result)
{
    return analyseHeartbeat(kHeartbeat, message, result);
}

} // namespace

extern constexpr Family kHeartbeatFamily =
    Family("ZEL_HEARTBEAT_MESSAGE", kCodes, composeOnly, analyseAny)
        .alsoNamed("AUXPTZ_HEARTBEAT_MESSAGE", "NVR_PRODUCE_TEST_MESSAGE")
        .withHeader(composeHeader)
        .ofCode(kCode);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM_init(ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record); });
}

ZEL_EXPORT_INIT(AUXPTZ_HEARTBEAT_CMD_HEARTBEAT_PARAM, ZEL_HEARTBEAT_CMD_HEARTBEAT_PARAM)

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
    zel::composeHeader(out, record, 0, {});
    return zel::finishBody(out, 0);
}

int GetMessageHeaderEx(const char* text, void** result)
{
    return zel::analyse(zel::kHeartbeat, text, result);
}
