// Secrets that their own form shows: tokens of known services, licence keys, random digits and letters.
#pragma once

#include "secrets.h"

namespace velkor {
namespace Reports {

/// The secret in or around a run of at least 16 letters, digits, "_" and "-" of \a text. False if there is none.
bool findToken(std::string_view text, SecretPlace run, SecretPlace &place);
/// "BEGIN" of a key block at \a at: the lines of the key block, and where it ends. False if none begins there.
bool readKeyBlock(std::string_view text, std::size_t at, std::vector<SecretPlace> &places, std::size_t &end);
/// Whether the characters of \a text, of base64 or hexadecimal, look random.
bool looksRandom(std::string_view text);
/// "ABCDE-12345-...": groups of equal length, in capitals or small letters.
bool isKeyInGroups(std::string_view run);
bool isTokenCharacter(char c);
bool isBase64Character(char c);

} // namespace Reports
} // namespace velkor
