#include <set>
#include <thread>

#include "support/catalogue.h"
#include "support/wire.h"
#include "zel_platform/default_layer.h"

using namespace test;

namespace {

// One message of the catalogue in one direction, with what one thread alone makes of it.
struct Task
{
    ZEL_PROTOCOL_HEADER header;
    RecordBytes record;
    int kind;
    int mode;
    std::string text; // plain
    int result;
    std::string again; // the text of what was read
};

std::string textOf(const Composed& composed)
{
    return composed.announced != 0 && composed.bytes[0] == 0x58 ? composed.text : composed.bytes;
}

std::string readAndComposed(const Task& task, const Analysed& analysed)
{
    return analysed.record ? textOf(compose(task.header, analysed.record.get(), task.kind, 1 << 18)) : "";
}

std::vector<Task> makeTasks()
{
    std::vector<Task> tasks;
    for (const CatalogueEntry& entry : catalogue())
        for (const int kind : {0, 1}) {
            const int mode = entry.isBare() ? -1 : static_cast<int>(tasks.size() % 3) - 1;
            Task task{catalogueHeader(entry), fullRecord(entry), kind, mode, "", 0, ""};
            task.text = textOf(compose(task.header, task.record.data(), kind, 1 << 18));
            const Analysed analysed = analyse(task.text);
            task.result = analysed.result;
            task.again = readAndComposed(task, analysed);
            tasks.push_back(std::move(task));
        }
    return tasks;
}

void run(const Task& task, ZEL_PLATFORM_KEY& key)
{
    void* const arg = task.mode > 0 ? &key : nullptr;
    const Composed composed = compose(task.header, task.record.data(), task.kind, 1 << 18, task.mode, arg);
    ASSERT_GT(composed.result, 0);
    if (task.mode < 0) {
        EXPECT_EQ(textOf(composed), task.text);
    }
    const Analysed analysed =
        analyse(task.mode < 0 ? task.text : composed.text, task.mode, task.mode > 0 ? arg : nullptr);
    // The intercom's message compares with what was received, so ciphertext doesn't read like plain text.
    if (task.mode >= 0 && strcmp(task.header.Msg_type, "MEDIA_DATA_MESSAGE") == 0)
        return;
    EXPECT_EQ(analysed.result, task.result) << task.text;
    EXPECT_EQ(readAndComposed(task, analysed), task.again);
}

// Calls share nothing, whatever they do: at any time the threads are at different messages. Run under the
// thread sanitizer, this shows it.
TEST(Threads, EightAtOnceEachWithAnotherMessage)
{
    const std::vector<Task> tasks = makeTasks();
    std::set<int> modes;
    for (const Task& task : tasks)
        modes.insert(task.mode);
    ASSERT_EQ(modes, (std::set<int>{-1, 0, 1}));
    ZEL_PLATFORM_KEY key{{9}};
    std::vector<std::thread> threads;
    for (size_t t = 0; t < 8; ++t)
        threads.emplace_back([&, t] {
            for (size_t i = 0; i < 2 * tasks.size(); ++i)
                run(tasks[(i * (2 * t + 1) + t * tasks.size() / 8) % tasks.size()], key);
            resetServices();
        });
    for (std::thread& thread : threads)
        thread.join();
}

} // namespace
