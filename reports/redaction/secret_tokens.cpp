#include "secret_tokens.h"

#include "address_forms.h"
#include "secret_values.h"

#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

enum class Alphabet {
    Capitals, ///< and digits
    Hex,
    Plain,  ///< letters and digits
    Url,    ///< and "-", "_"
    Points, ///< and "."
};

/// So many characters decide whether it is a token, so that no part of a text is read again and again.
constexpr std::size_t longestChecked = 64;

struct Token
{
    const char *prefix;
    std::size_t least; ///< characters after the prefix
    Alphabet alphabet;
};

/// Sorted by the first character, which find() relies on only for speed.
const Token tokens[] = {
    {"A3T", 17, Alphabet::Capitals},
    {"AAAAB3NzaC1", 32, Alphabet::Url}, // keys of SSH
    {"AAAAC3NzaC1", 32, Alphabet::Url},
    {"AAAAE2VjZHNh", 32, Alphabet::Url},
    {"AAAAGnNrL", 32, Alphabet::Url},
    {"AAAAInNrL", 32, Alphabet::Url},
    {"ABIA", 16, Alphabet::Capitals},
    {"ACCA", 16, Alphabet::Capitals},
    {"AGE-SECRET-KEY-", 40, Alphabet::Url},
    {"AKIA", 16, Alphabet::Capitals},
    {"ASIA", 16, Alphabet::Capitals},
    {"ATATT3", 40, Alphabet::Url},
    {"ATCTT3", 40, Alphabet::Url},
    {"AIza", 30, Alphabet::Url},
    {"CFPAT-", 30, Alphabet::Url},
    {"GOCSPX-", 20, Alphabet::Url},
    {"NRAK-", 20, Alphabet::Plain},
    {"PMAK-", 20, Alphabet::Url},
    {"SK", 32, Alphabet::Hex},
    {"atlasv1", 20, Alphabet::Url},
    {"dapi", 32, Alphabet::Hex},
    {"dckr_pat_", 20, Alphabet::Url},
    {"doo_v1_", 32, Alphabet::Hex},
    {"dop_v1_", 32, Alphabet::Hex},
    {"dor_v1_", 32, Alphabet::Hex},
    {"dp.pt.", 30, Alphabet::Plain},
    {"figd_", 20, Alphabet::Url},
    {"gho_", 20, Alphabet::Plain},
    {"ghp_", 20, Alphabet::Plain},
    {"ghr_", 20, Alphabet::Plain},
    {"ghs_", 20, Alphabet::Plain},
    {"ghu_", 20, Alphabet::Plain},
    {"github_pat_", 20, Alphabet::Url},
    {"glagent-", 20, Alphabet::Url},
    {"glc_", 20, Alphabet::Plain},
    {"glcbt-", 20, Alphabet::Url},
    {"gldt-", 20, Alphabet::Url},
    {"glft-", 20, Alphabet::Url},
    {"glimt-", 20, Alphabet::Url},
    {"glpat-", 16, Alphabet::Url},
    {"glptt-", 20, Alphabet::Url},
    {"glrt-", 16, Alphabet::Url},
    {"glsa_", 20, Alphabet::Url},
    {"glsoat-", 16, Alphabet::Url},
    {"gsk_", 20, Alphabet::Plain},
    {"hf_", 30, Alphabet::Plain},
    {"key-", 32, Alphabet::Hex},
    {"lin_api_", 30, Alphabet::Plain},
    {"npm_", 30, Alphabet::Plain},
    {"ntn_", 30, Alphabet::Plain},
    {"ops_eyJ", 30, Alphabet::Url},
    {"pat-na1-", 30, Alphabet::Url},
    {"phc_", 30, Alphabet::Plain},
    {"pscale_", 30, Alphabet::Points},
    {"pypi-A", 30, Alphabet::Url},
    {"rk_live_", 16, Alphabet::Plain},
    {"rk_test_", 16, Alphabet::Plain},
    {"rubygems_", 32, Alphabet::Hex},
    {"sbp_", 32, Alphabet::Hex},
    {"secret_", 40, Alphabet::Plain},
    {"shpat_", 32, Alphabet::Hex},
    {"shpca_", 32, Alphabet::Hex},
    {"shppa_", 32, Alphabet::Hex},
    {"shpss_", 32, Alphabet::Hex},
    {"sk-", 20, Alphabet::Url},
    {"sk_live_", 16, Alphabet::Plain},
    {"sk_test_", 16, Alphabet::Plain},
    {"sntrys_", 30, Alphabet::Url},
    {"sq0atp-", 20, Alphabet::Url},
    {"sq0csp-", 30, Alphabet::Url},
    {"tfp_", 30, Alphabet::Url},
    {"whsec_", 24, Alphabet::Plain},
    {"xai-", 30, Alphabet::Plain},
    {"xapp-", 20, Alphabet::Url},
    {"xoxa-", 16, Alphabet::Url},
    {"xoxb-", 16, Alphabet::Url},
    {"xoxc-", 16, Alphabet::Url},
    {"xoxd-", 16, Alphabet::Url},
    {"xoxe-", 16, Alphabet::Url},
    {"xoxo-", 16, Alphabet::Url},
    {"xoxp-", 16, Alphabet::Url},
    {"xoxr-", 16, Alphabet::Url},
    {"xoxs-", 16, Alphabet::Url},
};

/// Before a run, with the point between them.
const char *const prefixesWithPoint[] = {"SG.", "hvs.", "hvb.", "ya29.", "xoxe.", "hvr."};
const char *const webhooks[] = {
    "hooks.slack.com/",
    "discord.com/api/webhooks/",
    "discordapp.com/api/webhooks/",
    "outlook.office.com/webhook",
    "webhook.office.com/",
    "hooks.zapier.com/",
    "api.telegram.org/",
    "hooks.office.com/",
    "chat.googleapis.com/",
    "mattermost",
};

bool startsWith(std::string_view text, std::size_t at, std::string_view prefix)
{
    return text.size() - at >= prefix.size() && text.compare(at, prefix.size(), prefix) == 0;
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
    for (const Token &token : tokens) {
        if (token.prefix[0] != text[at] || !startsWith(text, at, token.prefix))
            continue;
        const std::size_t begin = at + std::string_view(token.prefix).size();
        std::size_t end = begin;
        while (end < text.size() && end - begin < longestChecked && isIn(text[end], token.alphabet))
            ++end;
        if (end - begin < token.least || !isMixed(text.substr(begin, end - begin)))
            continue;
        while (end < text.size() && isIn(text[end], token.alphabet))
            ++end;
        place = {at, token.prefix[0] == 'A' ? endOfBase64(text, end) : end};
        return true;
    }
    return false;
}

bool canBeginToken(char c)
{
    constexpr std::string_view first = "ACGNPSadfghklnoprstwx";
    return first.find(c) != std::string_view::npos;
}

bool findKnownToken(std::string_view text, SecretPlace run, SecretPlace &place)
{
    for (std::size_t at = run.begin; at + 16 <= run.end; ++at) {
        const bool begins = at == run.begin || text[at - 1] == '-' || text[at - 1] == '_';
        if (begins && canBeginToken(text[at]) && hasToken(text, at, place))
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

bool findJsonToken(std::string_view text, SecretPlace run, SecretPlace &place)
{
    for (std::size_t at = run.begin; at + 16 <= run.end; ++at) {
        if (!startsWith(text, at, "eyJ") || (at > run.begin && isAlphanumeric(text[at - 1])))
            continue;
        place = {at, endOfParts(text, run.end)};
        return place.end > run.end || isMixed(text.substr(at, run.end - at));
    }
    return false;
}

/// A run after "SG." and the like.
bool findAfterPoint(std::string_view text, SecretPlace run, SecretPlace &place)
{
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

bool isUpperOrDigit(char c)
{
    return isDecimal(c) || (c >= 'A' && c <= 'Z');
}

bool isLowerOrDigit(char c)
{
    return isDecimal(c) || (c >= 'a' && c <= 'z');
}

/// "ABCDE-12345-...": groups of equal length, in capitals or small letters.
bool isKeyInGroups(std::string_view run)
{
    const std::size_t length = run.find('-');
    if (length == std::string_view::npos || length < 4 || length > 8 || (run.size() + 1) % (length + 1) != 0)
        return false;
    const std::size_t groups = (run.size() + 1) / (length + 1);
    std::size_t letters = 0;
    std::size_t mixed = 0;
    for (std::size_t at = 0; at < run.size(); at += length + 1) {
        const std::string_view group = run.substr(at, length);
        const bool isUniform = std::all_of(group.begin(), group.end(), isUpperOrDigit) || std::all_of(group.begin(), group.end(), isLowerOrDigit);
        if (!isUniform || (at > 0 && run[at - 1] != '-'))
            return false;
        const auto digits = std::size_t(std::count_if(group.begin(), group.end(), isDecimal));
        letters += length - digits;
        mixed += digits > 0 && digits < length;
    }
    if (letters == 0) // of BitLocker, or a long number
        return (length == 6 && groups == 8) || (groups >= 5 && length >= 4);
    const bool isCapitals = std::all_of(run.begin(), run.end(), [](char c) { return c == '-' || isUpperOrDigit(c); });
    return (length == 5 && groups == 5 && (isCapitals || mixed >= 2)) || (groups >= 4 && groups <= 10 && mixed >= 2);
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
    return findKnownToken(text, run, place) || findJsonToken(text, run, place) || findAfterPoint(text, run, place)
        || findBotToken(text, run, place) || findKeyInGroups(text, run, place) || findTokenOfThreeParts(text, run, place)
        || findWebhook(text, run, place);
}

bool looksRandom(std::string_view text)
{
    constexpr std::size_t leastHex = 32;
    std::size_t digits = 0;
    std::size_t upper = 0;
    std::size_t lower = 0;
    std::size_t changes = 0;
    int previous = 0;
    bool isHex = true;
    for (const char c : text) {
        const int kind = isDecimal(c) ? 1 : c >= 'A' && c <= 'Z' ? 2
            : isAsciiLetter(c)                                   ? 3
                                                                 : 4;
        digits += kind == 1;
        upper += kind == 2;
        lower += kind == 3;
        changes += previous != 0 && kind != previous;
        previous = kind;
        isHex = isHex && hexValue(c) >= 0;
    }
    if (isHex)
        return text.size() >= leastHex && digits >= 4 && digits + 4 <= text.size() && (upper == 0 || lower == 0 || changes * 3 >= text.size());
    const bool isOneCase = (upper == 0 || lower == 0) && digits + upper + lower == text.size();
    if (isOneCase)
        return text.size() >= 24 && digits >= 5 && upper + lower >= 5 && changes * 10 >= text.size() * 3;
    return text.size() >= 20 && digits >= 2 && upper >= 2 && lower >= 2 && changes * 10 >= text.size() * 4;
}

} // namespace Reports
} // namespace velkor
