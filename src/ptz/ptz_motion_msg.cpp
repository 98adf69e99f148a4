#include "core/families.h"
#include "ptz/ptz_command.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

using Speeds = PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM;

// The one command without a line for each element.
void motion(Side& side, PtzRecord& record)
{
    ptzChannel(side, record);
    if (const Element xml = element(side, "xml", kElements | kNoLineFeed)) {
        textElement(side, "cmd", record.cmd, kNoLineFeed);
        if (side.takes(record.pExData != nullptr)) {
            auto& speeds = extensionOf<Speeds>(record);
            textElement(side, "panspeed", speeds.panspeed, kNoLineFeed);
            textElement(side, "tiltspeed", speeds.tiltspeed, kNoLineFeed);
        }
    }
}

} // namespace

// --- Messages ------------------------------------------------------------------------------------

extern constexpr MessageRow kPtzPlain =
    ptzMessage(" PtzControlptzCmd_MessageAnalysis", over<ptzPlainCommand>("xml", Kinds::kRequests));
extern constexpr MessageRow kPtzScan =
    ptzMessage(" PtzControlptzCmd_MessageAnalysis", written<ptzPlainCommand>(Kinds::kRequests));
extern constexpr MessageRow kPtzMotion = extendedPtzMessage<PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM_init>(
    " PtzControlptzControl_MessageAnalysis", over<motion>("xml", Kinds::kAll).withTail());

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int PTZ_CONTROL_PTZ_CMD_PARAM_init(PTZ_CONTROL_PTZ_CMD_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) {
        zel::clear(record.cmd);
        record.pExData = nullptr;
    });
}

int PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM_init(PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM* param)
{
    return zel::initRecord(param);
}

// This family's compose functions report an empty parameter as information.
int PtzControlMessageCompose(const void* record, int kind, char* buf, int len)
{
    if (!buf || len < 1) {
        ZelProtocolLogInfo("%s put a empty Param\n", zel::kPtzControlFamily.name);
        return ZEL_ERR_BAD_PARAM;
    }
    return zel::composeBody(zel::kPtzControlFamily, record, kind, "PTZ_CMD", buf, len);
}

int PtzControlMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText(zel::kPtzControlFamily, text, "PTZ_CMD", result);
}

ZEL_EXPORT_ANALYSIS(PtzControlptzCmd, kPtzPlain)
ZEL_EXPORT_ANALYSIS(PtzControlptzControl, kPtzMotion)
