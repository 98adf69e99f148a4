#include "support/wire.h"

using namespace test;

namespace {

const std::string kGet = "SYSTEM_CONFIG_GET_MESSAGE";
const std::string kSet = "SYSTEM_CONFIG_SET_MESSAGE";

template <class Record>
std::vector<char> bytesOf(int (*init)(Record*))
{
    const auto record = std::make_unique<Record>();
    init(record.get());
    const auto* const bytes = reinterpret_cast<const char*>(record.get());
    return {bytes, bytes + sizeof(Record)};
}

struct Row
{
    const char* code;
    std::vector<char> record;
    std::string kinds;   // which have a body
    std::string start;   // of that body
    std::string leaf;    // that reads the code
    std::string missing; // what it misses in a body of another message
};

// Each code reaches its own leaf in both directions, under either type.
TEST(ConfigDispatch, EveryCode)
{
    const auto times = bytesOf(SYSTEM_CONFIG_GET_202_PARAM_init);
    const auto users = bytesOf(SYSTEM_CONFIG_GET_203_PARAM_init);
    const auto p2p = bytesOf(SYSTEM_CONFIG_GET_315_PARAM_init);
    const auto media = bytesOf(SYSTEM_CONFIG_GET_500_PARAM_init);
    const std::string response = "RESPONSE_PARAM";
    const std::vector<Row> rows = {
        {"202", times, "13", "<TimeConfig\n", "getIpcTimeset", response},
        {"5007", times, "13", "<TimeConfig\n", "getIpcTimeset", response},
        {"203", users, "13", "<UserConfig>\n", "getIpcUserCfg", response},
        {"222", times, "02", "<TimeConfig\n", "setIpcTimeset", response},
        {"223", users, "02", "<UserConfig>\n", "setIpcUserCfg", response},
        {"300", bytesOf(SYSTEM_CONFIG_GET_300_PARAM_init), "13", "<NetworkConfig>\n", "getIpcNetconfig",
         "NetworkConfig"},
        {"315", p2p, "13", "<P2PConfig\n", "getIpcP2Pconfig", response},
        {"325", bytesOf(SYSTEM_CONFIG_SET_325_PARAM_init), "02", "<LANConfig\n", "setIpcLanconfig", response},
        {"335", p2p, "02", "<P2PConfig\n", "setIpcP2Pconfig", response},
        {"500", media, "13", "<MediaConfig>\n", "getMediaconfig", response},
        {"520", media, "02", "<MediaConfig>\n", "setMediaconfig", response},
        {"3801", bytesOf(SYSTEM_CONFIG_GET_3801_PARAM_init), "123", "<IPCINFO\n", "NvrChannelStartSearchipc",
         "IPCINFO"},
        {"3803", bytesOf(SYSTEM_CONFIG_GET_3803_PARAM_init), "123", "ChannelCount=\"-1\"",
         "NvrChannelGetChannelList", "ChannelInfo"},
        {"3804", bytesOf(SYSTEM_CONFIG_SET_3804_PARAM_init), "", "", "NvrChannelAddChannel", "ChannelInfo"},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.code);
        for (const std::string& type : {kGet, kSet})
            for (const char kind : std::string("0123")) {
                const std::string text = bodyOf(type, row.code, row.record.data(), kind - '0');
                const bool hasBody = row.kinds.find(kind) != std::string::npos;
                EXPECT_EQ(hasBody ? text.substr(0, row.start.size()) : text, hasBody ? row.start : "");
            }
        resetServices();
        EXPECT_EQ(analyse(envelope(kSet, row.code, "<RESPONSE_PARAM/>")).result, ZEL_ERR_NO_ELEMENT);
        EXPECT_TRUE(
            loggedOnly("SystemConfig_" + row.leaf + "_MessageAnalysis get " + row.missing + " error\n"));
    }
}

// The messages that other folders hold.
TEST(ConfigDispatch, LeavesElsewhere)
{
    const auto abilities = bytesOf(SYSTEM_CONTROL_1020_PARAM_init);
    for (const int kind : {0, 1})
        EXPECT_EQ(bodyOf(kGet, "1020", abilities.data(), kind),
                  bodyOf("SYSTEM_CONTROL_MESSAGE", "1020", abilities.data(), kind));
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
    // A code that is known, but has nothing behind it.
    EXPECT_EQ(bodyOf(kGet, "3802", abilities.data(), 1), "");
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
    resetServices();
    for (const auto& [code, number] : codes) {
        const std::string log =
            std::string("SYSTEM_CONFIG_MESSAGE deal a unknow msg_cdoe : ") + number + "\n";
        EXPECT_EQ(SystemConfigMessageCompose(&record, 1, code, out, sizeof out), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        EXPECT_EQ(SystemConfigMessageCompose(nullptr, 1, code, out, sizeof out), 0);
        void* result = &record;
        EXPECT_EQ(SystemConfigMessageAnalysis("<a/>", code, &result), ZEL_ERR_UNKNOWN_MSG);
        EXPECT_TRUE(loggedOnly(log));
        EXPECT_EQ(result, &record);
    }
    // As atoi takes them, white space, zeros and a tail are no matter.
    auto search = fresh(SYSTEM_CONFIG_GET_3801_PARAM_init);
    EXPECT_EQ(SystemConfigMessageCompose(&search, 0, " \n03801x", out, sizeof out), 0);
}

// This family's texts tell the code.
TEST(ConfigDispatch, MissingArguments)
{
    const auto p2p = bytesOf(SYSTEM_CONFIG_GET_315_PARAM_init);
    char out[16];
    void* result = nullptr;
    const auto refused = [](int status, const char* rest) {
        EXPECT_EQ(status, ZEL_ERR_BAD_PARAM);
        EXPECT_TRUE(loggedOnly(std::string("SystemConfigMessage") + rest + ", put a empty Param\n"));
    };
    resetServices();
    refused(SystemConfigMessageCompose(p2p.data(), 1, "315", nullptr, 16), "Compose deal Msg_code:315");
    refused(SystemConfigMessageCompose(nullptr, 1, "9", out, 0), "Compose deal Msg_code:9");
    refused(SystemConfigMessageCompose(p2p.data(), 1, nullptr, out, 16), "Compose deal Msg_code:(null)");
    refused(SystemConfigMessageAnalysis(nullptr, "315", &result), "Analysis deal Msg_code:315");
    refused(SystemConfigMessageAnalysis("<a/>", "315", nullptr), "Analysis deal Msg_code:315");
    refused(SystemConfigMessageAnalysis("<a/>", nullptr, &result), "Analysis deal Msg_code:(null)");
}

} // namespace
