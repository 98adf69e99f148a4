#include "support/wire.h"

using namespace test;

namespace {

const std::string kType = "SYSTEM_CONTROL_MESSAGE";

TEST(RequiredElements, AreCalledByTheirName)
{
    const char* const all[][3] = {
        {"1004", "SetRefleshCHBKG", "REQUEST_PARAM"},
        {"1005", "SetIpcTime", "REQUEST_PARAM"},
        {"1006", "SetNvrChannelAdd", "REQUEST_PARAM"},
        {"1009", "DownloadFile", "REQUEST_PARAM"},
        {"1014", "GetIpcStorageCfg", "RESPONSE_PARAM"},
        {"1017", "StorageDeviceFormat", "REQUEST_PARAM"},
        {"1022", "UploadFile", "RESPONSE_PARAM"},
        {"1023", "DownloadFile", "REQUEST_PARAM"},
        {"1024", "DownloadFile", "REQUEST_PARAM"},
        {"1026", "GetNetStatus", "RESPONSE_PARAM"},
        {"1046", "SetIpcIrcut", "REQUEST_PARAM"},
        {"1090", "SendUpdateCmd", "REQUEST_PARAM"},
        {"1092", "GetUpdateStatus", "REQUEST_PARAM"},
        {"1093", "CancelUpdate", "REQUEST_PARAM"},
        {"3020", "GetNvrTimedRestartConfig", "REQUEST_PARAM"},
        {"3023", "SetNvrSalesarea", "SalesArea"},
        {"3025", "SetNvrTimedRestartConfig", "REQUEST_PARAM"},
        {"3026", "SetNvrSimpleCustomConfig", "REQUEST_PARAM"},
        {"3027", "SetNvrStartNetworkCheck", "REQUEST_PARAM"},
        {"3300", "GetNvrDisplayConfig", "DisplayConfig"},
        {"3320", "SetNvrDisplayConfig", "DisplayConfig"},
        {"3500", "GetNvrDiskInfo", "RESPONSE_PARAM"},
        {"3501", "SetNvrDiskFormat", "FORMAT_PARAM"},
    };
    resetServices();
    for (const auto& [code, operation, element] : all) {
        EXPECT_EQ(analyseBody(kType, code, "<Other/>").result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(loggedOnly(std::string("SystemControl_") + operation + "_MessageAnalysis get " + element +
                               " error\n"));
    }
    // The response, too, is called a request.
    EXPECT_EQ(analyseBody(kType, "3020", "<RESPONSE_PARAM/>").result, ZEL_ERR_NO_ELEMENT);
}

} // namespace
