/** The bytes of a file, of the standard input or of a block in memory, from front to back. */
#ifndef ZEL_INSPECT_INPUT_H
#define ZEL_INSPECT_INPUT_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "inspect/source.h"

namespace inspect {

class Input
{
public:
    explicit Input(const std::string& path, Progress progress = {}); // throws a std::system_error
    explicit Input(std::string_view bytes);
    Input(const Input&) = delete;
    Input& operator=(const Input&) = delete;
    ~Input();

    // The next bytes, which read gives once more; fewer only at the end.
    std::string_view peek(std::size_t count);
    // 0 at the end. Throws a std::system_error.
    std::size_t read(char* to, std::size_t room);

private:
    std::size_t readOn(char* to, std::size_t room);

    std::string m_path;
    int m_file = -1;
    Progress m_progress;
    std::uint64_t m_done = 0;
    std::uint64_t m_total = 0;
    std::string m_peeked;
    std::string_view m_bytes; // in memory
};

} // namespace inspect

#endif
