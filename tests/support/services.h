// The memory and log services of the test programs: they count, fail on demand and keep what was logged.
#ifndef ZEL_TESTS_SUPPORT_SERVICES_H
#define ZEL_TESTS_SUPPORT_SERVICES_H

#include <string>
#include <vector>

namespace test {

// What this thread's calls did since the last reset.
struct Services
{
    int blocks = 0;           // taken with ZelProtocolMalloc
    int held = 0;             // of them, not given back with ZelProtocolFree
    int failAfter = -1;       // blocks that still succeed; below zero: all
    int readerFailAfter = -1; // the same for the XML reader's memory
    int readerBlocks = 0;     // of it, now in use
    std::vector<std::string> errors;
    std::vector<std::string> infos;
    std::vector<std::string> debugs;
};

Services& services();
void resetServices();

// True if exactly this one text was logged as an error since the last reset or the last such question.
bool loggedOnly(const std::string& text);

} // namespace test

#endif
