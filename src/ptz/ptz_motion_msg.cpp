#include "core/families.h"
#include "core/records.h"
#include "ptz/ptz_command.h"
#include "zel_platform/log.h"

namespace zel {

namespace {

constexpr char kFamily[] = "PTZ_CONTROL_MESSAGE";

using Speeds = PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM;

// --- Messages ------------------------------------------------------------------------------------

int PtzControlptzCmd_MessageCompose(TextWriter& out, const PtzRecord& record, int kind)
{
    if (isRequest(kind)) {
        ptzChannel(out, record);
        container(out, "xml", [&](TextWriter& xml) { ptzWord(xml, record); });
    }
    return 0;
}

int PtzControlptzCmd_MessageAnalysis(Message& message, void** result)
{
    PtzElements elements;
    if (const int status = openPtzCommand(message, result, {" PtzControlptzCmd_MessageAnalysis"}, elements))
        return status;
    return giveRecord(result, PTZ_CONTROL_PTZ_CMD_PARAM_init, [&](PtzRecord& record) {
        ptzChannel(elements.body, record);
        ptzWord(elements.xml, record);
    });
}

// The one command that has no line of its own for each element.
int PtzControlptzControl_MessageCompose(TextWriter& out, const PtzRecord& record)
{
    ptzChannel(out, record);
    out.append("<xml>\n<cmd>");
    appendText(out, record.cmd);
    out.append("</cmd>");
    if (record.pExData) {
        const auto& speeds = as<Speeds>(record.pExData);
        out.append("<panspeed>");
        appendNumber(out, speeds.panspeed);
        out.append("</panspeed><tiltspeed>");
        appendNumber(out, speeds.tiltspeed);
        out.append("</tiltspeed>");
    }
    out.append("</xml>");
    return 0;
}

int PtzControlptzControl_MessageAnalysis(Message& message, void** result)
{
    return analysePtzCommand(message, result, {" PtzControlptzControl_MessageAnalysis"},
                             PTZ_CONTROL_PTZ_CMD_OUTHERCTRL_PARAM_init,
                             [](const ElementReader& xml, Speeds& speeds) {
                                 textElement(xml, "panspeed", speeds.panspeed);
                                 textElement(xml, "tiltspeed", speeds.tiltspeed);
                             });
}

} // namespace

// --- Dispatch ------------------------------------------------------------------------------------

int PtzControlMessageCompose(TextWriter& out, const void* record, int kind)
{
    const auto& command = as<PtzRecord>(record);
    const std::string_view word = textOf(command.cmd);
    if (word.empty()) {
        ZelProtocolLogError("%s put a empty cmd, Error\n", kFamily);
        return ZEL_ERR_BAD_PARAM;
    }
    // Each group of commands adds its cases here and below.
    switch (ptzCommandOf(word)) {
    case PtzCommand::kPlain:
    case PtzCommand::kScan:
        return PtzControlptzCmd_MessageCompose(out, command, kind);
    case PtzCommand::kMotion:
        return PtzControlptzControl_MessageCompose(out, command);
    default:
        ZelProtocolLogError("%s deal a unknow cmd : %.*s\n", kFamily, printedLength(word), word.data());
        return ZEL_ERR_UNKNOWN_MSG;
    }
}

int PtzControlMessageAnalysis(Message& message, void** result)
{
    if (message.isNull() || !result)
        return emptyParam(kFamily);
    switch (findPtzCommand(message.text)) {
    case PtzCommand::kPlain:
        return PtzControlptzCmd_MessageAnalysis(message, result);
    case PtzCommand::kMotion:
        return PtzControlptzControl_MessageAnalysis(message, result);
    default:
        ZelProtocolLogError("%s deal a unknow cmd \n", kFamily);
        return ZEL_ERR_UNKNOWN_MSG;
    }
}

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
        ZelProtocolLogInfo("%s put a empty Param\n", zel::kFamily);
        return ZEL_ERR_BAD_PARAM;
    }
    return zel::composeOnly<zel::PtzControlMessageCompose>(zel::kFamily, record, kind, buf, len);
}

int PtzControlMessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::PtzControlMessageAnalysis>(text, result);
}

int PtzControlptzCmd_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::PtzControlptzCmd_MessageAnalysis>(text, result);
}

int PtzControlptzControl_MessageAnalysis(const char* text, void** result)
{
    return zel::analyseText<zel::PtzControlptzControl_MessageAnalysis>(text, result);
}
