// Which names of options, variables and fields say that their value is a secret.
#pragma once

#include <cstddef>
#include <string_view>

namespace velkor {
namespace Reports {

enum class SecretName {
    None,
    Certain,   ///< "password"; any value
    Probable,  ///< "token_prod", "auth"; a value that is no ordinary word
    Query,     ///< "sig"; in a query only
    Header,    ///< "Authorization"; a scheme can precede the value
    WholeLine, ///< "passphrase", "Cookie"; the value can have blanks
    Directory, ///< "PWD", which is a password or the current folder
};

/// \a name as it stands before "=" or ":", with hyphens, underscores, points or blanks between its words.
SecretName secretName(std::string_view name);

/// Whether a name that ends at \a end can be one of a secret. Most names cannot, which this shows quickly. It does
/// not look before \a first.
bool canBeSecretName(std::string_view text, std::size_t end, std::size_t first);

} // namespace Reports
} // namespace velkor
