#include "inspect/input.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace inspect {

namespace {

[[noreturn]] void fail(const std::string& path)
{
    throw std::system_error(errno, std::generic_category(), path);
}

} // namespace

Input::Input(const std::string& path, Progress progress)
    : m_path(path == "-" ? "standard input" : path),
      m_file(path == "-" ? STDIN_FILENO : open(path.c_str(), O_RDONLY | O_CLOEXEC)),
      m_progress(std::move(progress))
{
    struct stat status = {};
    if (m_file < 0 || fstat(m_file, &status) != 0)
        fail(m_path);
    if (S_ISREG(status.st_mode))
        m_total = static_cast<std::uint64_t>(status.st_size);
}

Input::Input(std::string_view bytes) : m_bytes(bytes) {}

Input::~Input()
{
    if (m_file > STDIN_FILENO)
        close(m_file);
}

std::string_view Input::peek(std::size_t count)
{
    while (m_peeked.size() < count) {
        const std::size_t old = m_peeked.size();
        m_peeked.resize(count);
        const std::size_t more = readOn(m_peeked.data() + old, count - old);
        m_peeked.resize(old + more);
        if (more == 0)
            break;
    }
    return m_peeked;
}

std::size_t Input::read(char* to, std::size_t room)
{
    if (m_peeked.empty())
        return readOn(to, room);
    const std::size_t count = m_peeked.copy(to, room);
    m_peeked.erase(0, count);
    return count;
}

std::size_t Input::readOn(char* to, std::size_t room)
{
    if (m_file < 0) {
        const std::size_t count = m_bytes.copy(to, room);
        m_bytes.remove_prefix(count);
        return count;
    }
    ssize_t count = -1;
    do
        count = ::read(m_file, to, room);
    while (count < 0 && errno == EINTR);
    if (count < 0)
        fail(m_path);
    m_done += static_cast<std::uint64_t>(count);
    if (m_progress)
        m_progress(m_done, m_total);
    return static_cast<std::size_t>(count);
}

} // namespace inspect
