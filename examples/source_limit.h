/**
 * How much is done for each address in a second, and for how many addresses: what is beyond is dropped.
 */
#ifndef EXAMPLES_SOURCE_LIMIT_H
#define EXAMPLES_SOURCE_LIMIT_H

#include "demo_io.h"

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace demo {

struct SourceLimit
{
    struct Source
    {
        in_addr_t address;
        int count;
    };

    int forEach;         /**< in a second */
    std::size_t sources; /**< in a second */
    Clock::time_point since;
    std::vector<Source> seen;
    int dropped = 0; /**< in this second */
};

/** Starts a new second when the last is over. @return how many were dropped in the last one. */
inline int renewLimit(SourceLimit& limit, Clock::time_point now)
{
    if (now - limit.since < std::chrono::seconds(1))
        return 0;
    const int dropped = limit.dropped;
    limit.since = now;
    limit.seen.clear();
    limit.dropped = 0;
    return dropped;
}

/** Whether one more is within the limit. */
inline bool takeShare(SourceLimit& limit, in_addr_t address)
{
    auto source = std::find_if(limit.seen.begin(), limit.seen.end(),
                               [&](const SourceLimit::Source& one) { return one.address == address; });
    if (source == limit.seen.end() && limit.seen.size() < limit.sources)
        source = limit.seen.insert(source, {address, 0});
    if (source != limit.seen.end() && source->count < limit.forEach) {
        ++source->count;
        return true;
    }
    ++limit.dropped;
    return false;
}

} // namespace demo

#endif
