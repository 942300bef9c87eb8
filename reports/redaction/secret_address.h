// Passwords in addresses of services.
#pragma once

#include "secrets.h"

namespace velkor {
namespace Reports {

/// The password of "user:password@host", or a generated user; \a begin is after "://".
bool readPasswordInAddress(std::string_view text, std::size_t begin, SecretPlace &place);
/// The same if the address is percent-coded.
bool readPasswordInCodedAddress(std::string_view text, std::size_t begin, SecretPlace &place);
/// The password of "jdbc:oracle:thin:user/password@"; \a colon is the one before the user.
bool readOracleLogin(std::string_view text, std::size_t colon, SecretPlace &place);

} // namespace Reports
} // namespace velkor
