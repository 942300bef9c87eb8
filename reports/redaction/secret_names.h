// Which names of options, variables and fields say that their value is a secret.
#pragma once

#include <string_view>

namespace velkor {
namespace Reports {

enum class SecretName {
    None,
    Certain,   ///< "password"; any value
    Probable,  ///< "token_prod", "auth"; a value that is no ordinary word
    Query,     ///< "sig"; any value in a query, otherwise one that looks random
    Header,    ///< "Authorization"; a scheme can precede the value
    WholeLine, ///< "passphrase", "Cookie"; the value can have blanks
    Directory, ///< "PWD", which is a password or the current folder
};

/// \a name as it stands before "=" or ":", with hyphens, underscores, points or blanks between its words.
SecretName secretName(std::string_view name);

} // namespace Reports
} // namespace velkor
