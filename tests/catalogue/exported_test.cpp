// What holds for every exported init and every exported analysis of a text alike.
#include <gtest/gtest.h>

#include <sys/mman.h>

#include <algorithm>
#include <cstddef>
#include <map>
#include <set>

#include "support/catalogue.h"
#include "support/exported.h"
#include "support/wire.h"

using namespace test;

namespace {

// --- Inits ---------------------------------------------------------------------------------------

struct Range
{
    size_t begin;
    size_t end;
};

// What an init leaves as it was, as docs/security.md lists it.
const std::map<std::string, Range>& leftByInits()
{
    using Device = SYSTEM_CONFIG_GET_3801_PARAM;
    static const std::map<std::string, Range> all = {
        {"TRANSPARENT_HEADER",
         {offsetof(TRANSPARENT_HEADER, acTransData), offsetof(TRANSPARENT_HEADER, iTransDataLen)}},
        {"SYSTEM_CONFIG_GET_3801_PARAM", {offsetof(Device, DevSubType), offsetof(Device, Protocol)}}};
    return all;
}

TEST(Exported, InitsSetEveryByteButTheListedOnes)
{
    for (const ExportedInit& entry : kInits) {
        std::vector<char> one(entry.size, '\x11');
        std::vector<char> other(entry.size, '\xEE');
        EXPECT_EQ(entry.init(one.data()), 0) << entry.name;
        EXPECT_EQ(entry.init(other.data()), 0) << entry.name;
        EXPECT_EQ(entry.init(nullptr), -1) << entry.name;
        if (initLeavesFields(entry.name)) {
            EXPECT_NE(one, other) << entry.name;
            continue;
        }
        const auto left = leftByInits().find(entry.name);
        for (size_t at = 0; at < entry.size; ++at) {
            const bool isLeft =
                left != leftByInits().end() && at >= left->second.begin && at < left->second.end;
            ASSERT_EQ(one[at] != other[at], isLeft) << entry.name << ' ' << at;
        }
    }
}

// --- Analyses ------------------------------------------------------------------------------------

// Texts that some leaf reads and the others refuse, whole, cut short, and without what they require.
std::vector<std::string> texts()
{
    std::vector<std::string> all = {"",
                                    "<",
                                    "<XML_ZELMAR/>",
                                    envelope("", "", ""),
                                    envelope("", "", "<REQUEST_PARAM/>"),
                                    envelope("", "", "<RESPONSE_PARAM/>")};
    for (const CatalogueEntry& entry : catalogue())
        for (const int kind : {0, 1}) {
            const Composed composed =
                test::compose(catalogueHeader(entry), fullRecord(entry).data(), kind, 1 << 18);
            const std::string& text = entry.isBare() ? composed.bytes : composed.text;
            all.push_back(text);
            const size_t last = text.find_last_of('<', text.find("</MESSAGE_BODY>") - 1);
            all.push_back(text.substr(0, last) + "</MESSAGE_BODY></XML_ZELMAR>");
            all.push_back(text.substr(0, text.size() - 20));
        }
    return all;
}

// Calls it with all the memory that it wants and with none; returns whether it gave a record.
template <class Call>
bool expectSlotKept(const std::string& name, Call call)
{
    bool isRead = false;
    for (const int blocks : {-1, 0}) {
        int slot = 0;
        void* result = &slot;
        resetServices();
        services().failAfter = blocks;
        const int status = call(&result);
        if (status != 0) {
            EXPECT_LT(status, 0) << name;
            EXPECT_EQ(result, &slot) << name << status;
        } else if (result != &slot) {
            EXPECT_NE(result, nullptr) << name;
            EXPECT_EQ(blocks, -1) << name;
            isRead = true;
            ZelProtocolMSGAnalysisStop(&result);
        }
    }
    resetServices();
    return isRead;
}

TEST(Exported, AFailedAnalysisKeepsItsSlot)
{
    const std::vector<std::string> all = texts();
    for (const ExportedLeaf& leaf : kLeaves) {
        int read = 0;
        for (const std::string& text : all)
            read +=
                expectSlotKept(leaf.name, [&](void** result) { return leaf.analyse(text.c_str(), result); });
        EXPECT_GT(read, 0) << leaf.name;
        EXPECT_LT(read, static_cast<int>(all.size())) << leaf.name;
    }
}

// The same of those that are told a code.
TEST(Exported, AFailedFamilyKeepsItsSlot)
{
    std::set<std::string> codes = {"", "1", "nonsense"};
    for (const CatalogueEntry& entry : catalogue())
        codes.emplace(entry.code);
    const std::vector<std::string> all = texts();
    for (const std::string& code : codes)
        for (const auto family :
             {LiveStreamMessageAnalysis, NvrReplayMessageAnalysis, SystemSearchipcMessageAnalysis,
              SystemConfigMessageAnalysis, SystemControlMessageAnalysis})
            for (const std::string& text : all)
                expectSlotKept(code,
                               [&](void** result) { return family(text.c_str(), code.c_str(), result); });
    for (const std::string& code : codes)
        for (const std::string& text : all)
            expectSlotKept(code, [&](void** result) {
                return MediaDataMessageAnalysis(text.c_str(), code.c_str(), static_cast<int>(text.size()),
                                                result);
            });
}

// --- Bodies alone --------------------------------------------------------------------------------

// What a compose function takes, in one form for all of them.
struct BodyCall
{
    const void* record;
    int kind;
    const char* code;
    char* out;
    int size;
};

using BodyComposer = int (*)(const BodyCall& call);

template <int (*compose)(const void*, int, char*, int)>
int composed(const BodyCall& call)
{
    return compose(call.record, call.kind, call.out, call.size);
}

template <int (*compose)(const void*, int, const char*, char*, int)>
int composed(const BodyCall& call)
{
    return compose(call.record, call.kind, call.code, call.out, call.size);
}

// The header's attributes fit, whatever becomes of the body.
int composedLive(const BodyCall& call)
{
    char head[4096] = "";
    return LiveStreamMessageCompose(call.record, call.kind, call.code, call.out, call.size, head, sizeof head,
                                    0);
}

template <int (*compose)(const void*, int, char*, int, int*)>
int composedCounting(const BodyCall& call)
{
    int extra = 0;
    return compose(call.record, call.kind, call.out, call.size, &extra);
}

int composedMedia(const BodyCall& call)
{
    int extra = 0;
    return MediaDataMessageCompose(call.record, call.kind, call.code, call.out, call.size, &extra);
}

const std::map<std::string_view, BodyComposer>& bodyComposers()
{
    static const std::map<std::string_view, BodyComposer> all = {
        {"ALARM_REPORT_MESSAGE", composedCounting<AlarmReportMessageCompose>},
        {"DEVICE_REPORT_MESSAGE", composed<DeviceReportMessageCompose>},
        {"IOT_CAMERA_MESSAGE", composed<IOTCameraMessageCompose>},
        {"IPC_REPAIR_MESSAGE", composed<IpcRepairMessageCompose>},
        {"LIVE_STREAM_MESSAGE", composedLive},
        {"MEDIA_DATA_MESSAGE", composedMedia},
        {"NVR_INTERNAL_MESSAGES", composed<NvrInternalMessageCompose>},
        {"NVR_PRODUCE_TEST_MESSAGE", composed<NvrProduceTestMessageCompose>},
        {"NVR_REPLAY_MESSAGE", composed<NvrReplayMessageCompose>},
        {"PTZ_CONTROL_MESSAGE", composed<PtzControlMessageCompose>},
        {"REPLAY_CONTROL_MESSAGE", composed<ReplayControlMessageCompose>},
        {"REVERSE_AUDIO_MESSAGE", composed<ReverseAudioMessageCompose>},
        {"SYSTEM_CONFIG_GET_MESSAGE", composed<SystemConfigMessageCompose>},
        {"SYSTEM_CONFIG_SET_MESSAGE", composed<SystemConfigMessageCompose>},
        {"SYSTEM_CONTROL_MESSAGE", composed<SystemControlMessageCompose>},
        {"SYSTEM_ENCRYPT_MESSAGE", composed<SystemEncryptMessageCompose>},
        {"SYSTEM_LOG_MESSAGE", composedCounting<SystemLogMessageCompose>},
        {"SYSTEM_SEARCHIPC_MESSAGE", composed<SystemSearchipcMessageCompose>},
        {"USER_AUTH_MESSAGE", composed<UserAuthMessageCompose>}};
    return all;
}

// What stands between the tags of the body.
std::string bodyOf(const CatalogueEntry& entry, const void* record, int kind)
{
    const std::string text = test::compose(catalogueHeader(entry), record, kind, 1 << 18).bytes;
    const std::string opening = "<MESSAGE_BODY>\n";
    const size_t begin = text.find(opening) + opening.size();
    return text.substr(begin, text.rfind("\n</MESSAGE_BODY>") - begin);
}

// The terminated text needs a byte more than it has; with less there is an error and no byte beyond. Where
// there is nothing to write the buffer stays as it was.
TEST(Exported, ABodyNeedsItsBytesAndOneMore)
{
    constexpr char kUntouched = '\x5A';
    std::set<std::string_view> composedTypes;
    for (const CatalogueEntry& entry : catalogue()) {
        const auto found = bodyComposers().find(entry.type);
        if (found == bodyComposers().end())
            continue;
        composedTypes.insert(entry.type);
        const RecordBytes record = fullRecord(entry);
        const std::string code(entry.code);
        for (const int kind : entry.kinds) {
            const std::string body = bodyOf(entry, record.data(), kind);
            const size_t n = body.size();
            for (const size_t size : {size_t{1}, n - 1, n, n + 1, n + 2}) {
                std::vector<char> out(n + 3, kUntouched);
                const int status =
                    found->second({record.data(), kind, code.c_str(), out.data(), static_cast<int>(size)});
                EXPECT_EQ(status, size > n ? 0 : static_cast<int>(ZEL_ERR_BUFFER_SMALL))
                    << entry.name() << kind << ' ' << size << " of " << n;
                EXPECT_EQ(out[size], kUntouched) << entry.name() << kind << ' ' << size;
                if (size > n) {
                    EXPECT_EQ(out.data(), body) << entry.name() << kind;
                }
            }
            std::vector<char> out(1, kUntouched);
            found->second({nullptr, kind, code.c_str(), out.data(), 1});
            EXPECT_EQ(out[0], kUntouched) << entry.name();
        }
        for (const int kind : {0, 1}) {
            if (std::find(entry.kinds.begin(), entry.kinds.end(), kind) != entry.kinds.end())
                continue;
            std::vector<char> out(8, kUntouched);
            EXPECT_EQ(found->second({record.data(), kind, code.c_str(), out.data(), 8}),
                      code == "CMD_HEARTBEAT" ? static_cast<int>(ZEL_ERR_UNKNOWN_MSG) : 0)
                << entry.name();
            EXPECT_EQ(out[0], kUntouched) << entry.name() << kind;
        }
    }
    EXPECT_EQ(composedTypes.size(), bodyComposers().size());
}

// --- Records that are the caller's ---------------------------------------------------------------

// A copy in pages of its own, which nobody can write to.
class ReadOnly
{
public:
    ReadOnly(const void* bytes, size_t size)
        : size_(size), pages_(mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0))
    {
        memcpy(pages_, bytes, size);
        mprotect(pages_, size, PROT_READ);
    }
    ~ReadOnly()
    {
        munmap(pages_, size_);
    }
    ReadOnly(const ReadOnly&) = delete;
    ReadOnly& operator=(const ReadOnly&) = delete;

    void* get() const
    {
        return pages_;
    }

private:
    size_t size_;
    void* pages_;
};

// Composing writes nothing into a record or what hangs on it, or this test ends here.
TEST(Exported, ComposingLeavesTheRecordAlone)
{
    for (const CatalogueEntry& entry : catalogue()) {
        RecordBytes full = fullRecord(entry);
        const std::string expected = test::compose(catalogueHeader(entry), full.data(), 0, 1 << 18).bytes;
        const std::string hanging(std::max<size_t>(entry.extensionSize, 1), '1');
        const ReadOnly extension(hanging.data(), hanging.size());
        void* const pointer = extension.get();
        if (entry.extensionSize != 0)
            memcpy(reinterpret_cast<char*>(full.data()) + entry.pointerAt, &pointer, sizeof pointer);
        const ReadOnly record(full.data(), entry.size);
        for (const int kind : {0, 1, 2, 3})
            for (const int mode : {-1, 0})
                EXPECT_GT(test::compose(catalogueHeader(entry), record.get(), kind, 1 << 18, mode).result, 0)
                    << entry.name();
        EXPECT_EQ(test::compose(catalogueHeader(entry), record.get(), 0, 1 << 18).bytes, expected)
            << entry.name();
    }
}

} // namespace
