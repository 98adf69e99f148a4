#include "zel_protocol/replay_control.h"

#include "core/families.h"

namespace zel {

namespace {

// --- Attribute list, for both directions ---------------------------------------------------------

void control(Side& side, REPLAY_CONTROL_PARAM& record)
{
    attribute(side, "FileName", record.FileName);
    attribute(side, "StartPos", record.StartPos);
    attribute(side, "PlayParam", record.PlayParam);
}

// --- Message -------------------------------------------------------------------------------------

constexpr MessageRow kControl =
    message<REPLAY_CONTROL_PARAM_init>("ReplayControlMessageAnalysis", request<control>(Kinds::kAll));

// What is done is the code alone.
constexpr CodeRow kCodes[] = {
    {0, &kControl},  {1, &kControl},  {2, &kControl},  {3, &kControl}, {4, &kControl},
    {5, &kControl},  {6, &kControl},  {7, &kControl},  {8, &kControl}, {9, &kControl},
    {10, &kControl}, {11, &kControl}, {12, &kControl},
};
static_assert(isAscending(kCodes));

} // namespace

extern constexpr Family kReplayControlFamily =
    Family("REPLAY_CONTROL_MESSAGE", kCodes, composeCode, analyseBodyFirst)
        .loggedAs("REPLAY_CONTROL_MESSAGE", "ReplayControlMessageAnalysis");

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int REPLAY_CONTROL_PARAM_init(REPLAY_CONTROL_PARAM* param)
{
    return zel::initRecord(param, [](auto& record) { zel::clear(record.FileName); });
}

int ReplayControlMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kReplayControlFamily, record, kind, code, buf, len);
}

int ReplayControlMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kReplayControlFamily, text, code, result);
}
