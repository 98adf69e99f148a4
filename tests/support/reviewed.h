// What holds for all messages but a few, as a reviewed list of those few: a file of lines beside the tests.
#ifndef ZEL_TESTS_SUPPORT_REVIEWED_H
#define ZEL_TESTS_SUPPORT_REVIEWED_H

#include <cstdlib>
#include <fstream>
#include <set>
#include <string>

#include <gtest/gtest.h>

namespace test {

// Compares with the file of that name in tests/catalogue. With ZEL_RENEW_LISTS set it is written anew, to be
// reviewed as a change.
inline void expectLines(const std::string& file, const std::set<std::string>& lines)
{
    const std::string path = std::string(ZEL_TEST_LISTS) + "/" + file;
    if (getenv("ZEL_RENEW_LISTS")) {
        std::ofstream out(path);
        for (const std::string& line : lines)
            out << line << "\n";
    }
    std::set<std::string> reviewed;
    std::ifstream in(path);
    for (std::string line; std::getline(in, line);)
        reviewed.insert(line);
    EXPECT_FALSE(reviewed.empty()) << path;
    for (const std::string& line : lines)
        EXPECT_EQ(reviewed.count(line), 1U) << "new: " << line;
    for (const std::string& line : reviewed)
        EXPECT_EQ(lines.count(line), 1U) << "gone: " << line;
}

} // namespace test

#endif
