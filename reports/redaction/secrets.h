// Finds keys, tokens and passwords by their form.
#pragma once

#include <string_view>
#include <vector>

namespace velkor {
namespace Reports {

struct SecretPlace
{
    std::size_t begin = 0;
    std::size_t end = 0;
};

/// What a text is, which decides how much of it can look like a secret by chance.
enum class SecretContext {
    Fact, ///< the value of a fact: versions, hashes of builds and paths are usual
    Free, ///< text that no fact explains: long runs of digits and letters are suspicious
};

/// Places of \a text, in ascending order, that look like a secret: passwords in addresses, options and
/// connection strings, tokens of known services, key blocks, licence keys, keys of high entropy. Of an
/// assignment only the value is a place, of an address only the password. \a text can have any bytes;
/// lines are separated by line feeds, and no place spans one. Takes time in proportion to the text.
std::vector<SecretPlace> findSecrets(std::string_view text, SecretContext context);

} // namespace Reports
} // namespace velkor
