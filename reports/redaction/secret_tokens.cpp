#include "secret_tokens.h"

#include "address_forms.h"
#include "secret_token_lists.h"
#include "secret_values.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

bool startsWith(std::string_view text, std::size_t at, std::string_view prefix)
{
    if (text.size() - at < prefix.size())
        return false;
    for (std::size_t i = 0; i < prefix.size(); ++i) {
        if (text[at + i] != prefix[i])
            return false;
    }
    return true;
}

bool isIn(char c, Alphabet alphabet)
{
    switch (alphabet) {
    case Alphabet::Capitals:
        return isDecimal(c) || (c >= 'A' && c <= 'Z');
    case Alphabet::Hex:
        return hexValue(c) >= 0;
    case Alphabet::Plain:
        return isAlphanumeric(c);
    case Alphabet::Url:
        return isTokenCharacter(c);
    case Alphabet::Points:
        break;
    }
    return isTokenCharacter(c) || c == '.';
}

/// Digits and letters, so that "sk-" before words is none.
bool isMixed(std::string_view text)
{
    const auto digits = std::count_if(text.begin(), text.end(), isDecimal);
    return digits >= 2 && std::any_of(text.begin(), text.end(), isAsciiLetter);
}

/// Passes over base64 of more than one run: "AAAAB3...+/w==".
std::size_t endOfBase64(std::string_view text, std::size_t at)
{
    while (at < text.size() && (isBase64Character(text[at]) || text[at] == '='))
        ++at;
    return at;
}

bool hasToken(std::string_view text, std::size_t at, SecretPlace &place)
{
    const char first = text[at];
    for (const Token *row = tokens + firstTokens.rows[std::size_t(first)]; row != std::end(tokens) && row->prefix[0] == first; ++row) {
        const Token &token = *row;
        if (!startsWith(text, at, token.prefix))
            continue;
        const std::size_t begin = at + token.prefix.size();
        std::size_t end = begin;
        while (end < text.size() && end - begin < longestChecked && isIn(text[end], token.alphabet))
            ++end;
        if (end - begin < token.least || !isMixed(text.substr(begin, end - begin)))
            continue;
        while (end < text.size() && isIn(text[end], token.alphabet))
            ++end;
        place = {at, first == 'A' ? endOfBase64(text, end) : end};
        return true;
    }
    return false;
}

/// Further parts after points, as JSON web tokens have them.
std::size_t endOfParts(std::string_view text, std::size_t at)
{
    while (characterAt(text, at) == '.' && isTokenCharacter(characterAt(text, at + 1))) {
        ++at;
        while (at < text.size() && isTokenCharacter(text[at]))
            ++at;
    }
    return at;
}

/// A JSON web token
bool hasJsonToken(std::string_view text, std::size_t at, std::size_t runEnd, SecretPlace &place)
{
    if (!startsWith(text, at, "eyJ"))
        return false;
    const std::size_t end = endOfParts(text, runEnd);
    place = {at, end};
    return end > runEnd || isMixed(text.substr(at, std::min(runEnd - at, longestChecked)));
}

bool findKnownToken(std::string_view text, SecretPlace run, SecretPlace &place)
{
    bool begins = true;
    for (std::size_t at = run.begin; at + leastToken <= run.end; ++at) {
        const char c = text[at];
        if (begins && c == 'e' && hasJsonToken(text, at, run.end, place))
            return true;
        if (begins && firstTokens.rows[std::size_t(c)] != noToken && hasToken(text, at, place))
            return true;
        begins = c == '-' || c == '_';
    }
    return false;
}

/// A run after "SG." and the like.
bool findAfterPoint(std::string_view text, SecretPlace run, SecretPlace &place)
{
    if (run.begin == 0 || text[run.begin - 1] != '.')
        return false;
    for (const std::string_view prefix : prefixesWithPoint) {
        const std::size_t size = prefix.size();
        if (run.begin < size || text.compare(run.begin - size, size, prefix) != 0)
            continue;
        if (run.begin > size && isAlphanumeric(text[run.begin - size - 1]))
            continue;
        if (!isMixed(text.substr(run.begin, run.end - run.begin)))
            return false;
        place = {run.begin - size, endOfParts(text, run.end)};
        return true;
    }
    return false;
}

/// "123456789:AA..." of Telegram.
bool findBotToken(std::string_view text, SecretPlace run, SecretPlace &place)
{
    constexpr std::size_t length = 35;
    if (run.end - run.begin < length || run.begin < 9 || text[run.begin - 1] != ':' || !startsWith(text, run.begin, "AA"))
        return false;
    std::size_t begin = run.begin - 1;
    while (begin > 0 && run.begin - begin < 12 && isDecimal(text[begin - 1]))
        --begin;
    place = {begin, run.end};
    return run.begin - 1 - begin >= 8;
}

/// How many characters of a token are at \a at, up to 64.
std::size_t lengthOfPart(std::string_view text, std::size_t at)
{
    std::size_t end = at;
    while (end - at < longestChecked && isTokenCharacter(characterAt(text, end)))
        ++end;
    return end - at;
}

/// Three parts with points, of 23 to 28, 6, and 27 and more characters.
bool findTokenOfThreeParts(std::string_view text, SecretPlace run, SecretPlace &place)
{
    const std::size_t length = run.end - run.begin;
    const std::size_t third = run.end + 8;
    if (length < 23 || length > 28 || characterAt(text, run.end) != '.' || lengthOfPart(text, run.end + 1) != 6)
        return false;
    const std::size_t lengthOfThird = lengthOfPart(text, third);
    place = {run.begin, third + lengthOfThird};
    return characterAt(text, third - 1) == '.' && lengthOfThird >= 27 && looksRandom(text.substr(run.begin, length));
}

/// Within the address of a webhook, which whoever knows it can use.
bool findWebhook(std::string_view text, SecretPlace run, SecretPlace &place)
{
    constexpr std::size_t longestAddress = 256;
    if (run.begin == 0 || (text[run.begin - 1] != '/' && text[run.begin - 1] != '@'))
        return false;
    std::size_t begin = run.begin;
    while (begin > 0 && run.begin - begin<longestAddress &&static_cast<unsigned char>(text[begin - 1])> ' ' && text[begin - 1] != '"')
        --begin;
    const std::string_view address = text.substr(begin, run.begin - begin);
    for (const std::string_view webhook : webhooks) {
        if (address.find(webhook) != std::string_view::npos && address.find("://") != std::string_view::npos) {
            place = run;
            return webhook.find('.') != std::string_view::npos || address.find("/hooks/") != std::string_view::npos;
        }
    }
    return false;
}

bool findKeyInGroups(std::string_view text, SecretPlace run, SecretPlace &place)
{
    place = run;
    return isKeyInGroups(text.substr(run.begin, run.end - run.begin));
}

} // namespace

bool isTokenCharacter(char c)
{
    return isAlphanumeric(c) || c == '_' || c == '-';
}

bool isBase64Character(char c)
{
    return isAlphanumeric(c) || c == '+' || c == '/';
}

bool findToken(std::string_view text, SecretPlace run, SecretPlace &place)
{
    return findKnownToken(text, run, place) || findAfterPoint(text, run, place)
        || findBotToken(text, run, place) || findKeyInGroups(text, run, place) || findTokenOfThreeParts(text, run, place)
        || findWebhook(text, run, place);
}

} // namespace Reports
} // namespace velkor
