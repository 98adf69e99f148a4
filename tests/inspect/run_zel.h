// The program as a user runs it.
#ifndef TESTS_INSPECT_RUN_ZEL_H
#define TESTS_INSPECT_RUN_ZEL_H

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace test {

// A directory that is gone with its test.
struct Folder
{
    std::filesystem::path path;

    Folder()
    {
        std::string name = (std::filesystem::temp_directory_path() / "zel-XXXXXX").string();
        path = mkdtemp(name.data()) ? name : "";
    }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    ~Folder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path, ignored);
    }

    std::string write(const std::string& name, const std::string& bytes) const
    {
        std::ofstream(path / name, std::ios::binary) << bytes;
        return (path / name).string();
    }
    std::string read(const std::string& name) const
    {
        std::ostringstream bytes;
        bytes << std::ifstream(path / name, std::ios::binary).rdbuf();
        return bytes.str();
    }
};

struct Ran
{
    int status = -1;
    std::string out;
    std::string err;
};

// Runs zel in the folder, with arguments as a shell takes them.
inline Ran runZel(const Folder& folder, const std::string& arguments)
{
    const std::string command =
        "cd '" + folder.path.string() + "' && '" ZEL_PROGRAM "' " + arguments + " >.out 2>.err";
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, folder.read(".out"), folder.read(".err")};
}

} // namespace test

#endif
