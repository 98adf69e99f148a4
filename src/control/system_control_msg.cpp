#include "zel_protocol/system_control.h"

#include "control/identity_msg.h"
#include "control/status_msg.h"
#include "control/storage_msg.h"
#include "control/update_msg.h"
#include "core/families.h"

namespace zel {

namespace {

// Codes without a row have neither a body nor a record.
constexpr CodeRow kCodes[] = {
    {828, nullptr},
    {1001, nullptr},
    {1002, nullptr},
    {1004, &kSetRefleshCHBKG},
    {1005, &kSetIpcTime},
    {1006, &kSetNvrChannelAdd},
    {1007, nullptr},
    {1009, &kDownloadFile},
    {1012, &kGetIpcSysVersion},
    {1014, &kGetIpcStorageCfg},
    {1017, &kStorageDeviceFormat},
    {1019, &kGetIpcSN},
    {1020, &kGetSysAbality},
    {1022, &kUploadFile},
    {1023, &kDownloadFile, Erased<SYSTEM_CONTROL_1023_PARAM_init>::call},
    {1024, &kDownloadFile, Erased<SYSTEM_CONTROL_1024_PARAM_init>::call},
    {1025, nullptr},
    {1026, &kGetNetStatus},
    {1027, nullptr},
    {1030, &kGetDeviceType},
    {1031, &kGetMediaAbality},
    {1032, &kGetIpcKeyFrame},
    {1033, &kSetIpcUserdevdata},
    {1034, &kGetIpcUserdevdata},
    {1046, &kSetIpcIrcut},
    {1090, &kSendUpdateCmd},
    {1092, &kGetUpdateStatus},
    {1093, &kCancelUpdate},
    {1096, nullptr},
    {1097, nullptr},
    {1100, nullptr},
    {3000, &kGetNvrSystemConfig},
    {3010, nullptr},
    {3020, &kGetNvrTimedRestartConfig},
    {3021, nullptr},
    {3022, nullptr},
    {3023, &kSetNvrSalesarea},
    {3025, &kSetNvrTimedRestartConfig},
    {3026, &kSetNvrSimpleCustomConfig},
    {3027, &kSetNvrStartNetworkCheck},
    {3300, &kGetNvrDisplayConfig},
    {3320, &kSetNvrDisplayConfig},
    {3500, &kGetNvrDiskInfo},
    {3501, &kSetNvrDiskFormat},
    {5010, nullptr},
    {5011, nullptr},
};
static_assert(isAscending(kCodes));

} // namespace

extern constexpr Family kSystemControlFamily("SYSTEM_CONTROL_MESSAGE", kCodes);

} // namespace zel

// --- Exported ------------------------------------------------------------------------------------

int SystemControlMessageCompose(const void* record, int kind, const char* code, char* buf, int len)
{
    return zel::composeBody(zel::kSystemControlFamily, record, kind, code, buf, len);
}

int SystemControlMessageAnalysis(const char* text, const char* code, void** result)
{
    return zel::analyseText(zel::kSystemControlFamily, text, code, result);
}
