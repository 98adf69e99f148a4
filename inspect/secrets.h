/** Passwords, keys and session names: what isn't shown unless somebody asks for it. */
#ifndef ZEL_INSPECT_SECRETS_H
#define ZEL_INSPECT_SECRETS_H

#include <string>
#include <string_view>

namespace inspect {

constexpr std::string_view kHidden = "***";

// Whether a field of a record stands on the reviewed list.
bool isSecret(std::string_view record, std::string_view field);

// Whether an attribute of a text carries such a field.
bool isSecretAttribute(std::string_view name);

// A text in which the values of such attributes are hidden, for messages within messages and for logs.
std::string hideSecrets(std::string_view text);

// Whether a text is such a one.
bool holdsHidden(std::string_view text);

} // namespace inspect

#endif
