#include "events/device_report_msg.h"

#include "core/families.h"

namespace zel {

// --- Attribute lists, for both directions --------------------------------------------------------

// Texts that nobody here looks into, each an element of the body.
void channelStates(Side& side, DEVICE_REPORT_3900_PARAM& record)
{
    textElementIfSet(side, "Ipcs_stat", record.Ipcs_stat);
    textElementIfSet(side, "streamstat", record.streamstat);
    textElementIfSet(side, "IpcAbility1", record.IpcAbility1);
    textElementIfSet(side, "IpcProtoCol", record.IpcProtoCol);
    textElementIfSet(side, "ChnFeature", record.ChnFeature);
    textElementIfSet(side, "ChnDevbind", record.ChnDevbind);
}

namespace {

void position(Side& side, DEVICE_REPORT_3901_PARAM& record)
{
    appendRaw(side, "<cmd>getCurPos</cmd>\n");
    textElement(side, "x", record.x);
    textElement(side, "y", record.y);
    textElement(side, "mul", record.mul);
    textElement(side, "maxMul", record.maxMul);
    textElement(side, "linkage", record.linkage);
}

// --- Messages ------------------------------------------------------------------------------------

constexpr char kAnalysis[] = "DeviceReportMessageAnalysis";

constexpr MessageRow kChannels = message<DEVICE_REPORT_3900_PARAM_init>(kAnalysis, body<channelStates>());
constexpr MessageRow kPosition =
    message<DEVICE_REPORT_3901_PARAM_init>(kAnalysis, within<position>("xml", Kinds::kAll, kElements));

constexpr CodeRow kCodes[] = {{3900, &kChannels}, {3901, &kPosition}};
static_assert(isAscending(kCodes));

} // namespace

extern constexpr Family kDeviceReportFamily =
    Family("DEVICE_REPORT_MESSAGE", kCodes, composeCode, analyseBodyFirst)
        .loggedAs("DEVICE_REPORT_MESSAGE", kAnalysis);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int DEVICE_REPORT_3900_PARAM_init(DEVICE_REPORT_3900_PARAM* param)
{
    return zel::startAtZero(param);
}

int DEVICE_REPORT_3901_PARAM_init(DEVICE_REPORT_3901_PARAM* param)
{
    return zel::initRecord(param);
}

int DeviceReportMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kDeviceReportFamily, record, kind, code, buf, len);
}

int DeviceReportMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kDeviceReportFamily, text, code, result);
}
