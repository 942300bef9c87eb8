// Secrets that something before them announces: a name, an option, a scheme.
#pragma once

#include "secrets.h"

namespace velkor {
namespace Reports {

/// Looks around one character: "=", ":", ">", "%", "-", "/", or the first letter of a word. Does not look before
/// \a first. Adds the places, and sets \a end to where to continue. False if nothing is there.
bool readMark(std::string_view text, std::size_t at, std::size_t first, std::vector<SecretPlace> &places, std::size_t &end);

} // namespace Reports
} // namespace velkor
