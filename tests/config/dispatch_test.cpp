#include <gtest/gtest.h>

#include "support/wire.h"

using namespace test;

namespace {

const std::string kGet = "SYSTEM_CONFIG_GET_MESSAGE";
const std::string kSet = "SYSTEM_CONFIG_SET_MESSAGE";

template <class Record>
std::vector<char> fresh(int (*init)(Record*))
{
    std::vector<char> bytes(sizeof(Record));
    init(reinterpret_cast<Record*>(bytes.data()));
    return bytes;
}

std::string body(const std::string& type, const std::string& code, const void* record, int kind)
{
    const std::string text = compose(headerOf(type, code), record, kind).text;
    const size_t start = text.find("<MESSAGE_BODY>\n") + sizeof("<MESSAGE_BODY>\n") - 1;
    return text.substr(start, text.find("</MESSAGE_BODY>") - start);
}

struct Row
{
    const char* code;
    std::vector<char> record;
    std::string kinds;   // which have a body
    std::string start;   // of that body
    std::string leaf;    // that reads the code
    std::string missing; // what it misses in a body of another message
    int (*exported)(const char* text, void** result);
};

// Each code reaches its own leaf in both directions, under either type.
TEST(ConfigDispatch, EveryCode)
{
    const std::vector<Row> rows = {
        {"202", fresh(SYSTEM_CONFIG_GET_202_PARAM_init), "13", "<TimeConfig\n", "getIpcTimeset",
         "RESPONSE_PARAM", SystemConfig_getIpcTimeset_MessageAnalysis},
        {"5007", fresh(SYSTEM_CONFIG_GET_202_PARAM_init), "13", "<TimeConfig\n", "getIpcTimeset",
         "RESPONSE_PARAM", SystemConfig_getIpcTimeset_MessageAnalysis},
        {"203", fresh(SYSTEM_CONFIG_GET_203_PARAM_init), "13", "<UserConfig>\n", "getIpcUserCfg",
         "RESPONSE_PARAM", SystemConfig_getIpcUserCfg_MessageAnalysis},
        {"222", fresh(SYSTEM_CONFIG_SET_222_PARAM_init), "02", "<TimeConfig\n", "setIpcTimeset",
         "RESPONSE_PARAM", SystemConfig_setIpcTimeset_MessageAnalysis},
        {"223", fresh(SYSTEM_CONFIG_SET_223_PARAM_init), "02", "<UserConfig>\n", "setIpcUserCfg",
         "RESPONSE_PARAM", SystemConfig_setIpcUserCfg_MessageAnalysis},
        {"300", fresh(SYSTEM_CONFIG_GET_300_PARAM_init), "13", "<NetworkConfig>\n", "getIpcNetconfig",
         "NetworkConfig", SystemConfig_getIpcNetconfig_MessageAnalysis},
        {"315", fresh(SYSTEM_CONFIG_GET_315_PARAM_init), "13", "<P2PConfig\n", "getIpcP2Pconfig",
         "RESPONSE_PARAM", SystemConfig_getIpcP2Pconfig_MessageAnalysis},
        {"325", fresh(SYSTEM_CONFIG_SET_325_PARAM_init), "02", "<LANConfig\n", "setIpcLanconfig",
         "RESPONSE_PARAM", SystemConfig_setIpcLanconfig_MessageAnalysis},
        {"335", fresh(SYSTEM_CONFIG_SET_335_PARAM_init), "02", "<P2PConfig\n", "setIpcP2Pconfig",
         "RESPONSE_PARAM", SystemConfig_setIpcP2Pconfig_MessageAnalysis},
        {"500", fresh(SYSTEM_CONFIG_GET_500_PARAM_init), "13", "<MediaConfig>\n", "getMediaconfig",
         "RESPONSE_PARAM", SystemConfig_getMediaconfig_MessageAnalysis},
        {"520", fresh(SYSTEM_CONFIG_SET_520_PARAM_init), "02", "<MediaConfig>\n", "setMediaconfig",
         "RESPONSE_PARAM", SystemConfig_setMediaconfig_MessageAnalysis},
        {"3801", fresh(SYSTEM_CONFIG_GET_3801_PARAM_init), "123", "<IPCINFO\n", "NvrChannelStartSearchipc",
         "IPCINFO", SystemConfig_NvrChannelStartSearchipc_MessageAnalysis},
        {"3803", fresh(SYSTEM_CONFIG_GET_3803_PARAM_init), "123", "ChannelCount=\"-1\"\n",
         "NvrChannelGetChannelList", "ChannelInfo", SystemConfig_NvrChannelGetChannelList_MessageAnalysis},
        {"3804", fresh(SYSTEM_CONFIG_SET_3804_PARAM_init), "", "", "NvrChannelAddChannel", "ChannelInfo",
         SystemConfig_NvrChannelAddChannel_MessageAnalysis},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.code);
        for (const std::string& type : {kGet, kSet})
            for (const char kind : std::string("0123")) {
                const std::string text = body(type, row.code, row.record.data(), kind - '0');
                if (row.kinds.find(kind) == std::string::npos)
                    EXPECT_EQ(text, "");
                else
                    EXPECT_EQ(text.substr(0, row.start.size()), row.start);
            }
        resetServices();
        EXPECT_EQ(analyse(envelope(kSet, row.code, "<RESPONSE_PARAM/>")).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(
            loggedOnly("SystemConfig_" + row.leaf + "_MessageAnalysis get " + row.missing + " error\n"));
        resetServices();
        void* result = nullptr;
        EXPECT_EQ(row.exported(nullptr, &result), ZEL_ERR_BAD_PARAM);
        EXPECT_TRUE(loggedOnly("SystemConfig_" + row.leaf + "_MessageAnalysis put a empty Param\n"));
    }
}

// The messages that other folders hold.
TEST(ConfigDispatch, LeavesElsewhere)
{
    const auto abilities = fresh(SYSTEM_CONTROL_1020_PARAM_init);
    for (const int kind : {0, 1})
        EXPECT_EQ(body(kGet, "1020", abilities.data(), kind),
                  body("SYSTEM_CONTROL_MESSAGE", "1020", abilities.data(), kind));
    const std::pair<const char*, const char*> leaves[] = {{"1020", "SystemControl_GetSysAbality_"},
                                                          {"1402", "SystemConfig_getIntelligentEvent_"},
                                                          {"1403", "SystemConfig_setIntelligentEvent_"}};
    for (const auto& [code, leaf] : leaves) {
        resetServices();
        std::string text = envelope(kGet, code, "");
        EXPECT_EQ(analyse(text.replace(text.find("<MESSAGE_BODY>"), 31, "")).result, ZEL_ERR_BAD_DOCUMENT);
        ASSERT_FALSE(services().errors.empty());
        EXPECT_EQ(services().errors[0].find(leaf), 0u) << services().errors[0];
    }
}

TEST(ConfigDispatch, CodeWithoutAFunction)
{
    char record = 1;
    EXPECT_EQ(body(kGet, "3802", &record, 1), "");
    const Analysed analysed = analyse(envelope(kGet, "3802", ""));
    EXPECT_EQ(analysed.result, 0);
    EXPECT_EQ(analysed.record, nullptr);
}

TEST(ConfigDispatch, UnknownCodes)
{
    char record = 1;
    char out[16] = "";
    const std::pair<const char*, const char*> codes[] = {{"0", "0"},     {"abc", "0"},      {"", "0"},
                                                         {"305", "305"}, {" 0320x", "320"}, {"-202", "-202"}};
    for (const auto& [code, number] : codes) {
        const std::string log =
            std::string("SYSTEM_CONFIG_MESSAGE deal a unknow msg_cdoe : ") + number + "\n";
        resetServices();
        EXPECT_EQ(SystemConfigMessageCompose(&record, 1, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        EXPECT_EQ(SystemConfigMessageCompose(nullptr, 1, code, out, sizeof out), 0);
        resetServices();
        void* result = &record;
        EXPECT_EQ(SystemConfigMessageAnalysis("<a/>", code, &result), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        EXPECT_EQ(result, &record);
    }
    // As atoi takes them, white space, zeros and a tail are no matter.
    SYSTEM_CONFIG_GET_3801_PARAM search;
    SYSTEM_CONFIG_GET_3801_PARAM_init(&search);
    EXPECT_EQ(SystemConfigMessageCompose(&search, 0, " \n03801x", out, sizeof out), 0);
}

TEST(ConfigDispatch, MissingArguments)
{
    const auto p2p = fresh(SYSTEM_CONFIG_GET_315_PARAM_init);
    char out[16];
    void* result = nullptr;
    const auto refused = [](const char* function, const char* code, auto call) {
        resetServices();
        EXPECT_EQ(call(), ZEL_ERR_BAD_PARAM);
        EXPECT_TRUE(loggedOnly(std::string(function) + " deal Msg_code:" + code + ", put a empty Param\n"));
    };
    const char* const compose = "SystemConfigMessageCompose";
    refused(compose, "315", [&] { return SystemConfigMessageCompose(p2p.data(), 1, "315", nullptr, 16); });
    refused(compose, "9", [&] { return SystemConfigMessageCompose(nullptr, 1, "9", out, 0); });
    refused(compose, "(null)", [&] { return SystemConfigMessageCompose(p2p.data(), 1, nullptr, out, 16); });
    const char* const analysis = "SystemConfigMessageAnalysis";
    refused(analysis, "315", [&] { return SystemConfigMessageAnalysis(nullptr, "315", &result); });
    refused(analysis, "315", [&] { return SystemConfigMessageAnalysis("<a/>", "315", nullptr); });
    refused(analysis, "(null)", [&] { return SystemConfigMessageAnalysis("<a/>", nullptr, &result); });
}

} // namespace
