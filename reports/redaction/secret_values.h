// Where the value after a name ends, and which values are no secrets.
#pragma once

#include "secret_names.h"
#include "secrets.h"

namespace velkor {
namespace Reports {

/// A longer value is always a secret, so that no part of a text is read again and again.
constexpr std::size_t longestOfNoSecret = 200;

/// Whether \a text is an alias of the redaction: "secret-1", "host-482193756012", "length-19".
bool isAlias(std::string_view text);
/// Whether \a value is a reference ("%NAME%", "${NAME}"), a mask ("***"), an alias or a word such as "true".
bool isNoSecret(std::string_view value);
/// Whether letters and digits are mixed as in a generated key of at least 16 characters.
bool looksGenerated(std::string_view value);

/// An assignment in a text.
struct Assignment
{
    SecretName name = SecretName::None;
    std::size_t nameBegin = 0;
    std::size_t valueBegin = 0; ///< after the delimiter, perhaps at blanks
    char around = '\0';         ///< the quote before the name that is not closed after it
};

/// The value of the assignment, without its quotes. False if it is no secret.
bool readSecretValue(std::string_view text, const Assignment &assignment, SecretPlace &place);
/// The end of a value without quotes.
std::size_t endOfPlainValue(std::string_view text, std::size_t begin);
/// The value at \a begin, with or without quotes. False if there is none.
bool readValue(std::string_view text, std::size_t begin, SecretPlace &place);
std::size_t endOfLine(std::string_view text, std::size_t at);
std::size_t passBlanks(std::string_view text, std::size_t at);

} // namespace Reports
} // namespace velkor
