// What every message costs, as lines for scripts/costs.sh to put together:
//
//   row <direction> <message> <text> <record> <blocks> <bytes> <reader's blocks> <reader's bytes> <stack>
//   none <message>     a text that we only send
//
// separated by tabs. Under callgrind, each row's instructions go into a dump of the row's name.
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <set>
#include <string>
#include <vector>

#include <pthread.h>
#include <valgrind/callgrind.h>

#include "support/catalogue.h"
#include "zel_platform/memory.h"
#include "zel_platform/xml_memory.h"

namespace {

constexpr size_t kStackSize = 512 * 1024;
constexpr size_t kPainted = 256 * 1024;
constexpr unsigned char kPaint = 0xA7;

struct Taken
{
    size_t blocks = 0;
    size_t bytes = 0;
};

// The counters of the services below, which know nothing of a caller.
Taken byLibrary;
Taken byReader;

// Between a caller's frame and the paint: the return address and what paintBelow itself keeps.
constexpr size_t kUnpainted = 64;

// Paints the stack below its caller's frame. Returns where the paint begins; it goes down from there.
[[gnu::noinline]] unsigned char* paintBelow()
{
    auto* const top =
        static_cast<unsigned char*>(__builtin_frame_address(0)) - kUnpainted + 2 * sizeof(void*);
    for (size_t i = 1; i <= kPainted; ++i)
        static_cast<volatile unsigned char*>(top)[-static_cast<std::ptrdiff_t>(i)] = kPaint;
    return top;
}

size_t paintGone(const unsigned char* top)
{
    const unsigned char* lowest = top - kPainted;
    while (lowest < top && *lowest == kPaint)
        ++lowest;
    return static_cast<size_t>(top - lowest);
}

template <class Call>
[[gnu::noinline]] int inOwnFrame(const Call& call)
{
    return call();
}

struct Cost
{
    int result;
    Taken library;
    Taken reader;
    size_t stack;
};

// One call, after another that made everything warm.
template <class Call>
[[gnu::noinline]] Cost costOf(const std::string& name, const Call& call)
{
    inOwnFrame(call);
    const unsigned char* const paint = paintBelow();
    byLibrary = byReader = {};
    CALLGRIND_ZERO_STATS;
    CALLGRIND_TOGGLE_COLLECT;
    const int result = inOwnFrame(call);
    CALLGRIND_TOGGLE_COLLECT;
    const Cost cost{result, byLibrary, byReader, paintGone(paint) + kUnpainted};
    CALLGRIND_DUMP_STATS_AT(name.c_str());
    return cost;
}

void printRow(const std::string& name, size_t text, size_t record, const Cost& cost)
{
    printf("row\t%s\t%zu\t%zu\t%zu\t%zu\t%zu\t%zu\t%zu\n", name.c_str(), text, record, cost.library.blocks,
           cost.library.bytes, cost.reader.blocks, cost.reader.bytes, cost.stack);
}

[[noreturn]] void giveUp(const std::string& message, int result)
{
    fprintf(stderr, "%s: result %d\n", message.c_str(), result);
    exit(1);
}

void measure(const test::CatalogueEntry& entry, int kind, const std::string& message)
{
    const ZEL_PROTOCOL_HEADER header = test::catalogueHeader(entry);
    const test::RecordBytes record = test::fullRecord(entry);
    static std::vector<char> out(4U << 20);

    // A bare text clears the rest of its buffer, so the buffer is no larger than the message needs.
    const auto compose = [&](size_t size) {
        return ZelProtocolXMLCompose(&header, record.data(), kind, -1, nullptr, out.data(),
                                     static_cast<int>(size));
    };
    const int length = compose(out.size());
    if (length <= 0)
        giveUp(message, length);
    const size_t head = entry.isBare() ? 0 : 8;
    const size_t text = static_cast<size_t>(length) - head;
    const std::string composing = "compose\t" + message;
    const Cost composed = costOf(composing, [&] { return compose(static_cast<size_t>(length) + 16); });
    if (composed.result != length)
        giveUp(message, composed.result);
    printRow(composing, text, entry.size, composed);

    // What the frame announces behind its text follows it.
    std::string payload(out.data() + head, text);
    if (!entry.isBare()) {
        uint32_t announced = 0;
        for (int i = 3; i >= 0; --i)
            announced = announced << 8 | static_cast<unsigned char>(out[4 + static_cast<size_t>(i)]);
        payload.resize(announced, '\0');
    }
    ZEL_PROTOCOL_HEADER received;
    ZEL_PROTOCOL_HEADER_init(&received);
    const auto analyse = [&](void** result) {
        return ZelProtocolMSGAnalysisStart(payload.data(), static_cast<int>(payload.size()), -1, nullptr,
                                           &received, result);
    };
    void* result = nullptr;
    const int status = analyse(&result);
    const bool hasRecord = result != nullptr;
    ZelProtocolMSGAnalysisStop(&result);
    if (status != 0 || !hasRecord) {
        printf("none\t%s\n", message.c_str());
        return;
    }
    const std::string analysing = "analyse\t" + message;
    const Cost analysed = costOf(analysing, [&] {
        const int again = analyse(&result);
        ZelProtocolMSGAnalysisStop(&result);
        return again;
    });
    printRow(analysing, text, entry.size, analysed);
}

void* measureAll(void*)
{
    std::set<std::string> seen;
    for (const test::CatalogueEntry& entry : test::catalogue()) {
        const std::vector<int> kinds = entry.kinds.empty() ? std::vector<int>{0} : entry.kinds;
        for (const int kind : kinds) {
            std::string name = entry.name() + (kind == 0 ? " request" : " response");
            for (int number = 2; !seen.insert(name).second; ++number)
                name = entry.name() + (kind == 0 ? " request " : " response ") + std::to_string(number);
            measure(entry, kind, name);
        }
    }
    return nullptr;
}

} // namespace

void* ZelProtocolMalloc(size_t size)
{
    ++byLibrary.blocks;
    byLibrary.bytes += size;
    return malloc(size);
}

void ZelProtocolFree(void* block)
{
    free(block);
}

void* ZelXMLMalloc(size_t size)
{
    ++byReader.blocks;
    byReader.bytes += size;
    return malloc(size);
}

void ZelXMLFree(void* block)
{
    free(block);
}

int main()
{
    pthread_attr_t attributes;
    pthread_t thread;
    if (pthread_attr_init(&attributes) != 0 || pthread_attr_setstacksize(&attributes, kStackSize) != 0 ||
        pthread_create(&thread, &attributes, measureAll, nullptr) != 0)
        return 1;
    pthread_join(thread, nullptr);
    return 0;
}
