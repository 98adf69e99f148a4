/**
 * What an analysis tolerates in silence: the description of a message, which is a walk of its attribute
 * lists, held against a text with its places, and against what the message would be composed to again.
 */
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
    Finding finding = Finding::kUnknownElement;
    std::size_t line = 0;   // in the text, from 1
    std::size_t column = 0; // in bytes, from 1
    std::string path;       // "MESSAGE_BODY/RESPONSE_PARAM@Bitrate"
    std::string detail;     // for people
};

// The name of a finding in JSON, "unknown-attribute".
std::string_view nameOf(Finding finding);

// What there is to say of a message that was analysed, in the order of its text; nothing of one that the
// catalogue doesn't know. Values of secret fields are hidden.
std::vector<Remark> check(const Analysed& analysed, bool showSecrets);

} // namespace inspect

#endif
