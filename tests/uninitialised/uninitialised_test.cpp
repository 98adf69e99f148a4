// Every message composed and analysed, good, broken and enciphered, under the memory sanitizer: the library
// decides nothing by bytes that nobody wrote, and hands none out.
#include <sanitizer/common_interface_defs.h>
#include <sanitizer/msan_interface.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>

#include <fcntl.h>
#include <unistd.h>

#include "support/catalogue.h"
#include "support/exported.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

constexpr int kFrameSize = 1 << 18;
constexpr int kHeadSize = 8;
constexpr int kVariants = 300; // of each text

int texts = 0;
int records = 0;

// A block that counts as unwritten.
struct Block
{
    explicit Block(size_t size) : bytes(static_cast<char*>(malloc(size)))
    {
        __msan_allocated_memory(bytes, size);
    }
    ~Block()
    {
        free(bytes);
    }
    Block(const Block&) = delete;
    Block& operator=(const Block&) = delete;

    char* const bytes;
};

struct Codec
{
    int mode;
    ZEL_PLATFORM_KEY* key;
};

unsigned chance(unsigned limit)
{
    static uint64_t state = 1;
    state = state * 6364136223846793005U + 1442695040888963407U;
    return static_cast<unsigned>(state >> 33) % limit;
}

// `size` is that of the record, or 0 if the message may have another one.
void analyse(const char* payload, int length, const Codec& codec, size_t size)
{
    const Block received(static_cast<size_t>(length));
    memcpy(received.bytes, payload, static_cast<size_t>(length));
    ZEL_PROTOCOL_HEADER header;
    ZEL_PROTOCOL_HEADER_init(&header);
    void* record = nullptr;
    const int status =
        ZelProtocolMSGAnalysisStart(received.bytes, length, codec.mode, codec.key, &header, &record);
    __msan_check_mem_is_initialized(&status, sizeof status);
    __msan_check_mem_is_initialized(&header, sizeof header);
    __msan_check_mem_is_initialized(received.bytes, static_cast<size_t>(length));
    ++texts;
    if (status == 0 && record && size != 0) {
        __msan_check_mem_is_initialized(record, size);
        ++records;
    }
    ZelProtocolMSGAnalysisStop(&record);
}

// Cuts, changed bytes, pieces that stand twice, digits where none were.
void analyseVariants(const char* text, int length, const Codec& codec)
{
    const Block changed(2 * static_cast<size_t>(length) + 64);
    constexpr char kEnd[] = "</XML_ZELMAR>";
    for (int i = 0; i < kVariants; ++i) {
        memcpy(changed.bytes, text, static_cast<size_t>(length));
        int size = length;
        const auto at = [&] { return chance(static_cast<unsigned>(length)); };
        switch (i % 4) {
        case 0:
            size = static_cast<int>(at());
            memcpy(changed.bytes + size, kEnd, sizeof kEnd - 1);
            size += static_cast<int>(sizeof kEnd - 1);
            break;
        case 1:
            for (int n = 0; n < 3; ++n)
                changed.bytes[at()] ^= static_cast<char>(1 << chance(8));
            break;
        case 2: {
            const unsigned from = at();
            const unsigned count = chance(static_cast<unsigned>(length) - from);
            memmove(changed.bytes + from + count, changed.bytes + from, static_cast<size_t>(length) - from);
            size += static_cast<int>(count);
            break;
        }
        default:
            for (int n = 0; n < 5; ++n)
                changed.bytes[at()] = static_cast<char>("0123456789\"'<>=&/:-[],"[chance(22)]);
        }
        analyse(changed.bytes, size, codec, 0);
    }
}

void readWithLeaves(const char* text, int length)
{
    const Block terminated(static_cast<size_t>(length) + 1);
    memcpy(terminated.bytes, text, static_cast<size_t>(length));
    terminated.bytes[length] = '\0';
    for (const ExportedLeaf& leaf : kLeaves) {
        void* record = nullptr;
        const int status = leaf.analyse(terminated.bytes, &record);
        __msan_check_mem_is_initialized(&status, sizeof status);
        ZelProtocolMSGAnalysisStop(&record);
    }
}

// `record` holds nothing but what its init or the test wrote.
void goRound(const CatalogueEntry& entry, const void* record, int kind, const Codec& codec)
{
    const ZEL_PROTOCOL_HEADER header = catalogueHeader(entry);
    const Block buffer(kFrameSize);
    const int result =
        ZelProtocolXMLCompose(&header, record, kind, codec.mode, codec.key, buffer.bytes, kFrameSize);
    __msan_check_mem_is_initialized(&result, sizeof result);
    const int head = entry.isBare() ? 0 : kHeadSize;
    if (result <= head)
        return;
    __msan_check_mem_is_initialized(buffer.bytes, static_cast<size_t>(result));
    analyse(buffer.bytes + head, result - head, codec, entry.size);
    analyseVariants(buffer.bytes + head, result - head, codec);
    if (codec.mode < 0)
        readWithLeaves(buffer.bytes + head, result - head);
}

// A record after its init alone; what an init is known to leave is set here.
void initRecord(const CatalogueEntry& entry, void* record)
{
    if (initLeavesFields(entry.record))
        memset(record, 0, entry.size);
    entry.init(record);
    if (entry.code == "3801") {
        auto* const device = static_cast<SYSTEM_CONFIG_GET_3801_PARAM*>(record);
        device->DevSubType = -1;
        device->Feature = UINT64_MAX;
    }
    completeRecord(entry, record);
}

// The log reads its arguments too; the reports go where they can be read.
void hideLog()
{
    const int reports = dup(STDERR_FILENO);
    __sanitizer_set_report_fd(reinterpret_cast<void*>(static_cast<intptr_t>(reports)));
    dup2(open("/dev/null", O_WRONLY), STDERR_FILENO);
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_DEBUG);
    ZelPlatformSetLogLimit(0);
}

} // namespace

int main()
{
    hideLog();
    ZEL_PLATFORM_KEY key;
    memset(key.bytes, 0x5A, sizeof key.bytes);
    const Codec codecs[] = {{-1, nullptr}, {0, nullptr}, {1, &key}};
    for (const CatalogueEntry& entry : catalogue())
        for (const int kind : {0, 1})
            for (const Codec& codec : codecs) {
                const Block fresh(entry.size);
                initRecord(entry, fresh.bytes);
                goRound(entry, fresh.bytes, kind, codec);
                const RecordBytes full = fullRecord(entry);
                goRound(entry, full.data(), kind, codec);
            }
    printf("%d texts, %d records read\n", texts, records);
    return records > 0 ? 0 : 1;
}
