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

namespace inspect {

// One frame's payload or one bare text, as it came.
struct Found
{
    std::string_view payload; // valid while the receiver runs
    bool isEnciphered = false;
    bool isBare = false;
    // In the file, or in the bytes that one end of a connection sent.
    static constexpr std::uint64_t kNoOffset = UINT64_MAX; // damage that names its place itself
    std::uint64_t offset = 0;
    double time = 0;           // seconds since 1970; 0 where the source doesn't say
    std::string_view from, to; // "10.0.0.5:8000"; empty where the source doesn't say
    std::string_view damage;   // not empty: no message but what is wrong at this place
};

using Receive = std::function<void(const Found& found)>;

// Damage that names its place itself, or has none.
void reportDamage(const Receive& receive, std::string_view damage);

// When the bytes between messages are damage.
enum class Gaps : std::uint8_t
{
    kAlways,     // a file of messages
    kOnceFound,  // a connection from its start: it may be somebody else's until a message is found
    kAfterFirst, // a connection that was joined midway
    kNever       // a log that messages stand in
};

// Frames and bare texts out of bytes that come in pieces: one for each direction of a connection, and for a
// file. A message is given as soon as its last byte is there.
class FrameSplitter
{
public:
    explicit FrameSplitter(Receive receive, std::size_t longest = 16u << 20, Gaps gaps = Gaps::kAlways);

    void take(std::string_view bytes); // the next ones
    void lose(std::uint64_t count);    // bytes that are missing
    void end();                        // reports what is left over; what comes then stands for itself

    std::size_t held() const; // bytes of memory that wait for the rest of a message
    bool isWithin() const;    // whether the rest of a message is awaited
    bool isAstray() const;    // whether no message starts where the last one ended
    bool hasFound() const;    // a message, whole or not

    Found context; // time, from and to of what is found

private:
    struct Start;

    Start startOf(std::string_view bytes) const;
    std::size_t findStart(std::string_view bytes, std::size_t from) const;
    std::size_t split(std::string_view bytes);
    std::size_t splitFrame(std::string_view bytes, const Start& start);
    std::size_t splitText(std::string_view bytes, const Start& start);
    std::size_t skip(std::string_view bytes);
    void breakOff(const char* why);
    bool isSaid() const; // that something is wrong here
    void openGap(std::string reason, bool isQuiet = false);
    void closeGap(bool forMessage);
    void give(std::string_view payload, bool isEnciphered, bool isBare);
    void giveBroken(const std::string& damage);
    void report(std::uint64_t offset, std::string_view damage);

    struct Gap
    {
        std::uint64_t offset = 0;
        std::uint64_t size = 0;
        bool isBlank = true;  // white space and zeros
        bool isQuiet = false; // what is wrong has been said
        std::string reason;
    };

    Receive m_receive;
    std::size_t m_longest; // bytes of a payload that is kept
    Gaps m_gaps;
    std::string m_rest;
    std::size_t m_done = 0;     // bytes at its front that are done with
    std::uint64_t m_offset = 0; // of what comes behind them
    std::size_t m_searched = 0; // bytes of a bare text whose end isn't there
    bool m_hasFound = false;
    bool m_isInGap = false;
    Gap m_gap;
};

enum class Format
{
    kGuessed,
    kFrames,
    kText, // bare texts, with anything between them
    kHex,
    kCapture
};

// Bytes that have been read, and those of the whole file; 0 where nobody knows.
using Progress = std::function<void(std::uint64_t done, std::uint64_t total)>;

// Reads a file, "-" for the standard input. Throws a std::system_error if it can't be read, another
// std::runtime_error if it isn't what it should be.
void readFile(const std::string& path, Format format, const Receive& receive, const Progress& progress = {});

// The same of bytes in memory.
void readBytes(std::string_view bytes, Format format, const Receive& receive);

} // namespace inspect

#endif
