// Measures the library beside code that writes and reads the same messages by hand, and how its cost grows.
//
//   zel_bench [--json=FILE] [options of Google Benchmark]
//
// Before anything is timed, all peers must agree with the library: frames to the byte (those of a saved tree
// by their values), analysed blocks and headers to the byte.
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <map>
#include <string>
#include <vector>

#include <benchmark/benchmark.h>

#include "analyse_peers.h"
#include "compose_peers.h"
#include "samples.h"
#include "threads.h"
#include "variants.h"

namespace bench {

bool fillNewBlocks = false;

namespace {

constexpr size_t kHeadSize = 8;
constexpr size_t kOutSize = 128 * 1024;

int composeWithLibrary(const Sample& sample, char* out, size_t size)
{
    return ZelProtocolXMLCompose(&sample.header, sample.record.get(), sample.kind, -1, nullptr, out,
                                 static_cast<int>(size));
}

int analyseWithLibrary(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result)
{
    return ZelProtocolMSGAnalysisStart(payload, static_cast<int>(size), -1, nullptr, &header, result);
}

struct Composer
{
    const char* name;
    int (*compose)(const Sample& sample, char* out, size_t size);
    double target; // how many times as fast the library is to be; 0: no such aim
};

struct Analyser
{
    const char* name;
    int (*analyse)(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header, void** result);
    double target;
};

// The library is the first of each.
constexpr Composer kComposers[] = {{"library", composeWithLibrary, 0},
                                   {"snprintf", composeWithSnprintf, 8},
                                   {"fmt", composeWithFmt, 3},
                                   {"fmt compiled", composeWithCompiledFmt, 2.5},
                                   {"pugixml tree", composeWithPugixml, 0}};
constexpr Analyser kAnalysers[] = {{"library", analyseWithLibrary, 0},
                                   {"pugixml", analyseWithPugixml, 1.6},
                                   {"tinyxml2", analyseWithTinyxml2, 8},
                                   {"RapidXML", analyseWithRapidxml, 1.2},
                                   {"libxml2", analyseWithLibxml2, 12}};

[[noreturn]] void giveUp(const std::string& message, const char* peer, const char* what)
{
    fprintf(stderr, "%s, %s: %s\n", message.c_str(), peer, what);
    exit(1);
}

std::string frameOf(const Sample& sample, const Composer& composer)
{
    std::string out(kOutSize, '\0');
    const int length = composer.compose(sample, out.data(), out.size());
    if (length <= static_cast<int>(kHeadSize))
        giveUp(sample.name, composer.name, "doesn't compose");
    out.resize(static_cast<size_t>(length));
    return out;
}

std::string payloadOf(const Sample& sample, const Composer& composer)
{
    return frameOf(sample, composer).substr(kHeadSize) + sample.raw;
}

struct Analysed
{
    ZEL_PROTOCOL_HEADER header;
    std::string block;
};

Analysed analysed(const Sample& sample, std::string payload, const Analyser& analyser)
{
    Analysed all;
    ZEL_PROTOCOL_HEADER_init(&all.header);
    void* result = nullptr;
    fillNewBlocks = true;
    const int status = analyser.analyse(payload.data(), payload.size(), all.header, &result);
    fillNewBlocks = false;
    if (status != 0 || !result)
        giveUp(sample.name, analyser.name, "doesn't analyse");
    size_t size = sample.recordSize;
    if (sample.id == MessageId::kAlarm) {
        auto& alarm = *static_cast<ALARM_REPORT_CMD_RPEORT_ALARM_PARAM*>(result);
        if (alarm.pExData != &alarm + 1)
            giveUp(sample.name, analyser.name, "the face isn't in the record's block");
        alarm.pExData = nullptr;
        size += sizeof(ALARM_REPORT_HUMANFACE_INFO);
    }
    all.block.assign(static_cast<const char*>(result), size);
    ZelProtocolMSGAnalysisStop(&result);
    return all;
}

bool isSame(const Analysed& a, const Analysed& b)
{
    return a.block == b.block && memcmp(&a.header, &b.header, sizeof a.header) == 0;
}

void testPeers(const Sample& sample)
{
    const std::string frame = frameOf(sample, kComposers[0]);
    const Analysed expected = analysed(sample, payloadOf(sample, kComposers[0]), kAnalysers[0]);
    if (memcmp(&expected.header, &sample.header, sizeof sample.header) != 0)
        giveUp(sample.name, "library", "another header");
    for (const Composer& composer : kComposers) {
        const std::string other = frameOf(sample, composer);
        if (composer.compose == composeWithPugixml) {
            const uint32_t announced = static_cast<uint32_t>(other.size() - kHeadSize + sample.raw.size());
            if (memcmp(other.data(), frame.data(), 4) != 0 || memcmp(other.data() + 4, &announced, 4) != 0)
                giveUp(sample.name, composer.name, "another head");
            if (!isSame(analysed(sample, payloadOf(sample, composer), kAnalysers[0]), expected))
                giveUp(sample.name, composer.name, "other values");
        } else if (other != frame) {
            giveUp(sample.name, composer.name, ("another frame:\n" + other + "\n---\n" + frame).c_str());
        }
    }
    for (const Analyser& analyser : kAnalysers)
        if (!isSame(analysed(sample, payloadOf(sample, kComposers[0]), analyser), expected))
            giveUp(sample.name, analyser.name, "another record or header");
}

// --- Measuring
// -------------------------------------------------------------------------------------------------------

// A message once, or with other values in turn.
using Turns = std::vector<Sample>;

void measureCompose(benchmark::State& state, const Turns& turns, const Composer& composer, size_t size)
{
    std::vector<char> out(size);
    size_t turn = 0;
    for (auto _ : state) {
        benchmark::DoNotOptimize(composer.compose(turns[turn], out.data(), out.size()));
        benchmark::ClobberMemory();
        turn = turn + 1 < turns.size() ? turn + 1 : 0;
    }
}

void measureAnalysis(benchmark::State& state, const Turns& turns, const Analyser& analyser)
{
    std::vector<std::string> payloads;
    for (const Sample& sample : turns)
        payloads.push_back(payloadOf(sample, kComposers[0]));
    size_t turn = 0;
    for (auto _ : state) {
        std::string& payload = payloads[turn];
        ZEL_PROTOCOL_HEADER header;
        ZEL_PROTOCOL_HEADER_init(&header);
        void* result = nullptr;
        benchmark::DoNotOptimize(analyser.analyse(payload.data(), payload.size(), header, &result));
        benchmark::ClobberMemory();
        ZelProtocolMSGAnalysisStop(&result);
        turn = turn + 1 < payloads.size() ? turn + 1 : 0;
    }
}

// Keeps the medians, in nanoseconds, by the names that the benchmarks were registered with.
class Medians : public benchmark::BenchmarkReporter
{
public:
    bool ReportContext(const Context&) override
    {
        return true;
    }
    void ReportRuns(const std::vector<Run>& runs) override
    {
        for (const Run& run : runs)
            if (run.run_type == Run::RT_Aggregate && run.aggregate_name == "median")
                all[run.run_name.function_name] = run.GetAdjustedCPUTime();
    }

    std::map<std::string, double> all;
};

std::string keyOf(const char* direction, const std::string& message, const char* side, size_t texts = 1)
{
    const std::string key = std::string(direction) + ", " + message + ", " + side;
    return texts == 1 ? key : key + ", " + std::to_string(texts) + " in turn";
}

// One line of the result.
struct Line
{
    const char* direction;
    std::string message;
    size_t bytes;                  // of text
    size_t texts;                  // that take turns
    size_t buffer;                 // size of the output buffer, where that is what varies
    std::vector<std::string> keys; // the library first
};

template <class Peer, size_t N>
Line lineOf(const char* direction, const Turns& turns, const Peer (&peers)[N])
{
    size_t bytes = 0;
    for (const Sample& sample : turns)
        bytes += frameOf(sample, kComposers[0]).size() - kHeadSize;
    Line line{direction, turns[0].name, bytes / turns.size(), turns.size(), 0, {}};
    for (const Peer& peer : peers)
        line.keys.push_back(keyOf(direction, turns[0].name, peer.name, turns.size()));
    return line;
}

std::vector<Line> registerMessages(const std::vector<Turns>& messages)
{
    std::vector<Line> lines;
    for (const Turns& turns : messages) {
        lines.push_back(lineOf("compose", turns, kComposers));
        for (size_t i = 0; i < std::size(kComposers); ++i)
            benchmark::RegisterBenchmark(lines.back().keys[i].c_str(), [&turns, i](benchmark::State& state) {
                measureCompose(state, turns, kComposers[i], kOutSize);
            });
    }
    for (const Turns& turns : messages) {
        lines.push_back(lineOf("analyse", turns, kAnalysers));
        for (size_t i = 0; i < std::size(kAnalysers); ++i)
            benchmark::RegisterBenchmark(lines.back().keys[i].c_str(), [&turns, i](benchmark::State& state) {
                measureAnalysis(state, turns, kAnalysers[i]);
            });
    }
    return lines;
}

// The whole list is measured with the messages already.
std::vector<Line> registerRows(const std::vector<Turns>& growing)
{
    std::vector<Line> lines;
    const Composer(&composer)[1] = {kComposers[0]};
    for (const Turns& turns : growing) {
        lines.push_back(lineOf("compose", turns, composer));
        benchmark::RegisterBenchmark(lines.back().keys[0].c_str(), [&](benchmark::State& state) {
            measureCompose(state, turns, kComposers[0], kOutSize);
        });
    }
    const Analyser(&analyser)[1] = {kAnalysers[0]};
    for (const Turns& turns : growing) {
        lines.push_back(lineOf("analyse", turns, analyser));
        benchmark::RegisterBenchmark(lines.back().keys[0].c_str(), [&](benchmark::State& state) {
            measureAnalysis(state, turns, kAnalysers[0]);
        });
    }
    return lines;
}

std::vector<Line> registerBuffers(const Turns& turns)
{
    std::vector<Line> lines;
    const Sample& sample = turns[0];
    for (const size_t size : {size_t{1} << 10, size_t{1} << 16, size_t{1} << 20, size_t{1} << 24}) {
        const std::string name = sample.name + " into " + std::to_string(size >> 10) + " KiB";
        const std::string key = keyOf("compose", name, "library");
        benchmark::RegisterBenchmark(key.c_str(), [&turns, size](benchmark::State& state) {
            measureCompose(state, turns, kComposers[0], size);
        });
        lines.push_back({"compose", name, frameOf(sample, kComposers[0]).size() - kHeadSize, 1, size, {key}});
    }
    return lines;
}

// --- Reporting
// -------------------------------------------------------------------------------------------------------

template <class Peer, size_t N>
void printMessages(const char* direction, const std::vector<Line>& lines, const Peer (&peers)[N],
                   Medians& medians)
{
    printf("\n%-24s %5s %7s %6s %9s", direction, "texts", "bytes", "GB/s", "library");
    for (size_t i = 1; i < N; ++i)
        printf(" %12s %7s", peers[i].name, "ratio");
    printf("\n");
    for (const Line& line : lines) {
        if (strcmp(line.direction, direction) != 0)
            continue;
        const double own = medians.all[line.keys[0]];
        printf("%-24s %5zu %7zu %6.2f %9.0f", line.message.c_str(), line.texts, line.bytes,
               static_cast<double>(line.bytes) / own, own);
        for (size_t i = 1; i < N; ++i) {
            const double ratio = medians.all[line.keys[i]] / own;
            printf(" %12.0f %6.1f%c", medians.all[line.keys[i]], ratio, ratio < peers[i].target ? '!' : ' ');
        }
        printf("\n");
    }
    printf("%-24s %5s %7s %6s %9s", "  aim", "", "", "", "");
    for (size_t i = 1; i < N; ++i)
        peers[i].target > 0 ? printf(" %12s %6.1f ", "", peers[i].target) : printf(" %12s %6s ", "", "");
    printf("\n");
}

void printGrowth(const std::vector<Line>& lines, Medians& medians)
{
    printf("\n%-36s %7s %6s %9s %9s\n", "growth", "bytes", "GB/s", "library", "ns/byte");
    for (const Line& line : lines) {
        const double own = medians.all[line.keys[0]];
        const auto bytes = static_cast<double>(line.bytes);
        printf("%-36s %7zu %6.2f %9.0f %9.3f\n", (std::string(line.direction) + " " + line.message).c_str(),
               line.bytes, bytes / own, own, own / bytes);
    }
}

template <class Peer, size_t N>
void writePeers(FILE* file, const Line& line, const Peer (&peers)[N], Medians& medians)
{
    const double own = medians.all[line.keys[0]];
    fprintf(file, ", \"peers\": {");
    for (size_t i = 1; i < line.keys.size(); ++i) {
        const double time = medians.all[line.keys[i]];
        fprintf(file, "%s\"%s\": {\"ns\": %.1f, \"ratio\": %.3f", i > 1 ? ", " : "", peers[i].name, time,
                time / own);
        if (peers[i].target > 0)
            fprintf(file, ", \"aim\": %.1f", peers[i].target);
        fprintf(file, "}");
    }
    fprintf(file, "}");
}

void writeLines(FILE* file, const char* name, const std::vector<Line>& lines, Medians& medians)
{
    fprintf(file, "  \"%s\": [", name);
    for (const Line& line : lines) {
        const double own = medians.all[line.keys[0]];
        fprintf(file, "%s\n    {\"direction\": \"%s\", \"message\": \"%s\", \"texts\": %zu, \"bytes\": %zu",
                &line == &lines[0] ? "" : ",", line.direction, line.message.c_str(), line.texts, line.bytes);
        if (line.buffer != 0)
            fprintf(file, ", \"buffer\": %zu", line.buffer);
        fprintf(file, ", \"ns\": %.1f, \"gigabytes_per_second\": %.4f", own,
                static_cast<double>(line.bytes) / own);
        if (line.keys.size() > 1) {
            if (strcmp(line.direction, "compose") == 0)
                writePeers(file, line, kComposers, medians);
            else
                writePeers(file, line, kAnalysers, medians);
        }
        fprintf(file, "}");
    }
    fprintf(file, "\n  ]");
}

bool writeJson(const char* path, const std::vector<Line>& messages, const std::vector<Line>& growth,
               const std::vector<Throughput>& throughputs, Medians& medians)
{
    FILE* file = fopen(path, "w");
    if (!file)
        return false;
    fprintf(file, "{\n  \"unit\": \"median nanoseconds of processor time for one message\",\n");
    writeLines(file, "messages", messages, medians);
    fprintf(file, ",\n");
    writeLines(file, "growth", growth, medians);
    fprintf(file, ",\n  \"threads\": [");
    for (const Throughput& one : throughputs)
        fprintf(
            file,
            "%s\n    {\"message\": \"%s\", \"threads\": %u, \"messages_per_second\": %.0f, \"of_one\": %.0f}",
            &one == &throughputs[0] ? "" : ",", one.message.c_str(), one.threads, one.all, one.single);
    fprintf(file, "\n  ]\n}\n");
    return fclose(file) == 0;
}

// What the command line doesn't say otherwise. Repetitions of different benchmarks take turns, so that a busy
// moment of the machine meets all alike.
std::vector<char*> withDefaults(int argc, char** argv)
{
    static char repetitions[] = "--benchmark_repetitions=11";
    static char time[] = "--benchmark_min_time=0.05";
    static char turns[] = "--benchmark_enable_random_interleaving=true";
    std::vector<char*> all = {argv[0], repetitions, time, turns};
    all.insert(all.end(), argv + 1, argv + argc);
    all.push_back(nullptr);
    return all;
}

} // namespace

} // namespace bench

int main(int argc, char** argv)
{
    using namespace bench;
    const char* json = nullptr;
    if (argc > 1 && strncmp(argv[1], "--json=", 7) == 0) {
        json = argv[1] + 7;
        argv[1] = argv[0];
        ++argv;
        --argc;
    }
    std::vector<char*> arguments = withDefaults(argc, argv);
    int count = static_cast<int>(arguments.size()) - 1;
    benchmark::Initialize(&count, arguments.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.data()))
        return 2;

    std::vector<Turns> messages;
    for (const Sample& sample : allSamples()) {
        messages.push_back({sample});
        messages.push_back(variantsOf(sample, payloadOf(sample, kComposers[0])));
    }
    const std::vector<Turns> growing = {{channelsSample(1)}, {channelsSample(4)}, {channelsSample(16)}};
    for (const auto& list : {messages, growing})
        for (const Turns& turns : list)
            for (const Sample& sample : turns)
                testPeers(sample);
    printf("All peers agree with the library.\n");
    fflush(stdout);

    const Turns small = {loginSample()};
    const std::vector<Line> lines = registerMessages(messages);
    std::vector<Line> growth = registerRows(growing);
    for (const Line& line : lines)
        if (line.message == channelsSample(64).name && line.texts == 1)
            growth.push_back({line.direction, line.message, line.bytes, 1, 0, {line.keys[0]}});
    std::stable_sort(growth.begin(), growth.end(), [](const Line& a, const Line& b) {
        return strcmp(a.direction, b.direction) > 0; // compose first
    });
    const std::vector<Line> buffers = registerBuffers(small);
    growth.insert(growth.end(), buffers.begin(), buffers.end());

    Medians medians;
    benchmark::RunSpecifiedBenchmarks(&medians);
    benchmark::Shutdown();

    printf("\nMedians, nanoseconds of processor time for one message; ratio: how many times as long as the "
           "library's.\n");
    printMessages("compose", lines, kComposers, medians);
    printMessages("analyse", lines, kAnalysers, medians);
    printGrowth(growth, medians);

    std::vector<Throughput> throughputs;
    for (const Turns& turns : messages) {
        if (turns.size() == 1)
            continue;
        std::vector<std::string> payloads;
        for (const Sample& sample : turns)
            payloads.push_back(payloadOf(sample, kComposers[0]));
        throughputs.push_back(throughputOf(turns[0].name, payloads, analyseWithLibrary));
    }
    printThroughputs(throughputs);
    if (json && !writeJson(json, lines, growth, throughputs, medians)) {
        fprintf(stderr, "can't write %s\n", json);
        return 1;
    }
    return 0;
}
