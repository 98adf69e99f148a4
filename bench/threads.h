// How many messages a second, by one thread and by as many as the machine has cores.
#ifndef ZEL_BENCH_THREADS_H
#define ZEL_BENCH_THREADS_H

#include <string>
#include <vector>

#include "zel_protocol/zel_protocol.h"

namespace bench {

struct Throughput
{
    std::string message;
    unsigned int threads;
    double single; // messages a second
    double all;
};

// Analyses the payloads in turn, in each thread copies of its own.
Throughput throughputOf(const std::string& message, const std::vector<std::string>& payloads,
                        int (*analyse)(char* payload, size_t size, ZEL_PROTOCOL_HEADER& header,
                                       void** result));

void printThroughputs(const std::vector<Throughput>& all);

} // namespace bench

#endif
