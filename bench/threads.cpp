#include "threads.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <thread>

namespace bench {

namespace {

using Analyse = int (*)(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result);

constexpr std::chrono::milliseconds kTime(100);
constexpr int kRepetitions = 5;

// Messages a second of one run, of all threads together.
double run(unsigned int threads, const std::vector<std::string>& payloads, Analyse analyse)
{
    std::atomic<bool> stop{false};
    std::atomic<uint64_t> done{0};
    const auto work = [&] {
        std::vector<std::string> own = payloads;
        uint64_t count = 0;
        while (!stop.load(std::memory_order_relaxed)) {
            for (std::string& payload : own) {
                ZEL_PROTOCOL_HEADER header;
                ZEL_PROTOCOL_HEADER_init(&header);
                void* result = nullptr;
                analyse(payload.data(), payload.size(), header, &result);
                ZelProtocolMSGAnalysisStop(&result);
            }
            count += own.size();
        }
        done += count;
    };
    const auto begin = std::chrono::steady_clock::now();
    std::vector<std::thread> all;
    for (unsigned int i = 0; i < threads; ++i)
        all.emplace_back(work);
    std::this_thread::sleep_for(kTime);
    stop = true;
    for (std::thread& thread : all)
        thread.join();
    const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
    return static_cast<double>(done.load()) / time.count();
}

double medianOf(std::vector<double> values)
{
    std::sort(values.begin(), values.end());
    return values[values.size() / 2];
}

} // namespace

Throughput throughputOf(const std::string& message, const std::vector<std::string>& payloads, Analyse analyse)
{
    const unsigned int threads = std::max(1U, std::thread::hardware_concurrency());
    std::vector<double> single;
    std::vector<double> all;
    for (int i = 0; i < kRepetitions; ++i) {
        single.push_back(run(1, payloads, analyse));
        all.push_back(run(threads, payloads, analyse));
    }
    return {message, threads, medianOf(single), medianOf(all)};
}

void printThroughputs(const std::vector<Throughput>& all)
{
    printf("\n%-24s %16s %16s %6s\n", "messages a second", "one thread", "all cores", "ratio");
    for (const Throughput& one : all)
        printf("%-24s %16.0f %13.0f/%-2u %6.2f\n", one.message.c_str(), one.single, one.all, one.threads,
               one.all / one.single);
}

} // namespace bench
