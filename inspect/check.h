/** What an analysis tolerates in silence, found by one more side over the attribute lists. */
#ifndef ZEL_INSPECT_CHECK_H
#define ZEL_INSPECT_CHECK_H

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "inspect/message.h"

namespace inspect {

enum class Finding : std::uint8_t
{
    kUnknownElement,
    kUnknownAttribute,
    kMissingAttribute,
    kRepeatedAttribute,
    kNoNumber,
    kBeyondRange,
    kTextCut,
    kRowsBeyondArray,
    kNotTheSameBytes // the message would not be composed as it came
};

struct Remark
{
    Finding finding;
    std::size_t line = 0;   // in the text, from 1
    std::size_t column = 0; // in bytes, from 1
    std::string path;       // "MESSAGE_BODY/RESPONSE_PARAM@Bitrate"
    std::string detail;     // for people
};

// The name of a finding in JSON: "unknown-attribute".
std::string_view nameOf(Finding finding);

// What there is to say of a message that was analysed from this text, in the order of the text.
std::vector<Remark> check(const Message& message, std::string_view text);

} // namespace inspect

#endif
