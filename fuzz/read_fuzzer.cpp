// What `zel read` reads: files of every format, and what is made of the messages in them.
#include <ostream>
#include <sstream>
#include <string>
#include <vector>

#include "inspect/json.h"
#include "inspect/source.h"
#include "require.h"

namespace {

using namespace fuzz;
using namespace inspect;

struct Piece
{
    std::string bytes;
    bool isDamage;
    uint64_t offset;

    bool operator==(const Piece& other) const
    {
        return bytes == other.bytes && isDamage == other.isDamage && offset == other.offset;
    }
};

std::vector<Piece> splitIn(const std::string& bytes, size_t size, size_t lostAt, size_t lost)
{
    std::vector<Piece> pieces;
    FrameSplitter splitter([&](const Found& found) {
        const bool isDamage = !found.damage.empty();
        pieces.push_back({std::string(isDamage ? found.damage : found.payload), isDamage, found.offset});
    });
    for (size_t at = 0; at < bytes.size();) {
        const size_t next = std::min(at < lostAt ? lostAt : bytes.size(), at + size);
        splitter.take(std::string_view(bytes).substr(at, next - at));
        at = next;
        if (at == lostAt)
            splitter.lose(lost);
    }
    splitter.end();
    return pieces;
}

// Where a length is doubted depends on what is there already.
bool isDoubted(const std::vector<Piece>& pieces)
{
    return std::any_of(pieces.begin(), pieces.end(), [](const Piece& piece) {
        return piece.isDamage && piece.bytes.find("another starts") != std::string::npos;
    });
}

void splitAlike(const std::string& bytes, Input& choice)
{
    const size_t lostAt = std::min<size_t>(choice.word(), bytes.size());
    const size_t lost = choice.byte();
    const std::vector<Piece> whole = splitIn(bytes, bytes.size() + 1, lostAt, lost);
    require(isDoubted(whole) || splitIn(bytes, choice.byte() + 1u, lostAt, lost) == whole,
            "pieces of any size give the same messages");
    uint64_t end = 0;
    for (const Piece& piece : whole) {
        if (piece.isDamage)
            continue;
        require(piece.offset >= end, "messages don't overlap");
        end = piece.offset + piece.bytes.size();
    }
    require(end <= bytes.size() + lost, "messages lie in the stream");
}

void readAll(const std::string& bytes, Format format)
{
    size_t found = 0;
    Cipher plain;
    const auto receive = [&](const Found& one) {
        ++found;
        require(one.damage.empty() || one.payload.empty(), "what is found is a message or damage");
        if (one.damage.empty() && !one.isEnciphered) {
            const Analysed analysed = analyse(one.payload, plain);
            require(
                !toJson(analysed.message, {}).dump(-1, ' ', false, Json::error_handler_t::replace).empty(),
                "every message has its JSON");
        }
    };
    try {
        readBytes(bytes, format, receive);
    } catch (const std::runtime_error&) {
        require(format == Format::kCapture || format == Format::kGuessed, "only a capture may be none");
    }
    // A dump may say that a line is there often.
    require(found <= bytes.size() + 1 || format == Format::kHex || format == Format::kGuessed,
            "nothing is found twice");
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    ZelPlatformSetLogLevel(ZEL_PLATFORM_LOG_NONE);
    Input input{data, size};
    const auto format = static_cast<Format>(input.byte() % (static_cast<int>(Format::kCapture) + 1));
    Input choice{input.data, std::min<size_t>(input.size, 4)};
    const std::string bytes = input.rest();
    readAll(bytes, format);
    if (format == Format::kFrames)
        splitAlike(bytes, choice);
    return 0;
}
