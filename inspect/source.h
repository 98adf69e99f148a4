/**
 * Where messages come from: files of frames, bare texts, hex dumps and captures, read in bounded memory. What
 * is damaged is reported with its place, and reading goes on at the next frame.
 */
#ifndef ZEL_INSPECT_SOURCE_H
#define ZEL_INSPECT_SOURCE_H

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

#include "inspect/message.h"

namespace inspect {

// One frame's payload or one bare text, as it came.
struct Found
{
    std::string_view payload; // valid while the receiver runs
    bool isEnciphered = false;
    bool isBare = false;
    std::uint64_t offset = 0;  // in the file, or in the bytes that one end of a connection sent
    double time = 0;           // seconds since 1970; 0 where the source doesn't say
    std::string_view from, to; // "10.0.0.5:8000"; empty where the source doesn't say
    std::string_view damage;   // not empty: no message but what is wrong at this place
};

using Receive = std::function<void(const Found& found)>;

// Frames out of bytes that come in pieces: one for each direction of a connection, and for a file.
class FrameSplitter
{
public:
    explicit FrameSplitter(Receive receive, std::size_t longest = 16u << 20);

    void take(std::string_view bytes); // the next ones
    void lose(std::uint64_t count);    // bytes that are missing
    void end();                        // reports what is left over

    Found context; // time, from and to of what is found

private:
    Receive m_receive;
    std::size_t m_longest; // bytes of a payload that is kept
    std::string m_rest;
    std::uint64_t m_offset = 0; // of m_rest
};

enum class Format
{
    kGuessed,
    kFrames,
    kText,
    kHex,
    kCapture
};

// Reads a file, "-" for the standard input. Throws a std::runtime_error if it can't be read at all.
void readFile(const std::string& path, Format format, const Receive& receive);

} // namespace inspect

#endif
