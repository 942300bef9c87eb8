#include "secret_names.h"

#include "address_forms.h"

#include <cstdint>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t longestName = 64;

/// A name in small letters: with "_" between its words, and without.
struct Words
{
    char separated[2 * longestName] = {};
    char joined[longestName] = {};
    std::size_t separatedSize = 0;
    std::size_t joinedSize = 0;
    bool hasBlank = false;

    std::string_view all() const { return {joined, joinedSize}; }
    std::string_view words() const { return {separated, separatedSize}; }
    std::string_view last() const { return words().substr(words().rfind('_') + 1); }
};

bool isUpper(char c)
{
    return c >= 'A' && c <= 'Z';
}

bool isLower(char c)
{
    return c >= 'a' && c <= 'z';
}

/// "apiKey", "APIKey"
bool beginsWordInside(std::string_view name, std::size_t at)
{
    if (at == 0 || !isUpper(name[at]))
        return false;
    return !isUpper(name[at - 1]) || (at + 1 < name.size() && isLower(name[at + 1]));
}

void addSeparator(Words &words)
{
    if (words.separatedSize > 0 && words.separated[words.separatedSize - 1] != '_')
        words.separated[words.separatedSize++] = '_';
}

Words wordsOf(std::string_view name)
{
    Words words;
    for (std::size_t i = 0; i < name.size(); ++i) {
        const char c = name[i];
        const bool isLetter = isAlphanumeric(c) || static_cast<unsigned char>(c) >= 0x80;
        if (!isLetter || beginsWordInside(name, i))
            addSeparator(words);
        words.hasBlank |= c == ' ';
        if (!isLetter)
            continue;
        const char small = isUpper(c) ? char(c | 0x20) : c;
        words.separated[words.separatedSize++] = small;
        words.joined[words.joinedSize++] = small;
    }
    return words;
}

/// "password_2", "token1"
std::string_view withoutNumber(std::string_view name)
{
    while (!name.empty() && !isAsciiLetter(name.back()) && static_cast<unsigned char>(name.back()) < 0x80)
        name.remove_suffix(1);
    return name.substr(name.size() > longestName ? name.size() - longestName : 0);
}

bool endsWith(std::string_view text, std::string_view end)
{
    if (text.size() < end.size())
        return false;
    for (std::size_t i = 1; i <= end.size(); ++i) {
        if (text[text.size() - i] != end[end.size() - i])
            return false;
    }
    return true;
}

template <std::size_t size>
bool isOneOf(std::string_view text, const std::string_view (&list)[size])
{
    for (const std::string_view entry : list) {
        if (text == entry)
            return true;
    }
    return false;
}

template <std::size_t size>
bool endsWithOneOf(std::string_view text, const std::string_view (&list)[size])
{
    for (const std::string_view entry : list) {
        if (endsWith(text, entry))
            return true;
    }
    return false;
}

constexpr std::string_view certainEnds[] = {
    "password",
    "passwords",
    "passwd",
    "passcode",
    "passwort",
    "kennwort",
    "motdepasse",
    "contraseña",
    "userpass",
    "dbpass",
    "sshpass",
    "ftppass",
    "smtppass",
    "mysqlpass",
    "rootpass",
    "pgpass",
    "adminpass",
    "secret",
    "secrets",
    "token",
    "tokens",
    "credential",
    "credentials",
    "keymaterial",
    "keybase",
    "connectionpwd",
    "schlüssel",
};

/// Before "key".
constexpr std::string_view kindsOfKey[] = {
    "api",
    "access",
    "account",
    "private",
    "secret",
    "license",
    "licence",
    "product",
    "serial",
    "shared",
    "master",
    "encryption",
    "encrypt",
    "signing",
    "auth",
    "activation",
    "registration",
    "subscription",
    "client",
    "session",
    "storage",
    "service",
    "deploy",
    "cd",
    "recovery",
    "app",
    "application",
    "security",
    "crypto",
    "cipher",
    "aes",
    "hmac",
    "network",
    "wifi",
    "wlan",
    "wep",
    "wpa",
    "primary",
    "secondary",
    "instrumentation",
    "consumer",
    "integration",
    "sharedaccess",
    "admin",
    "unlock",
    "machine",
    "decryption",
};

constexpr std::string_view certainWords[] = {"pass", "pat", "jwt", "creds", "psk", "otp", "senha", "bearer", "passkey"};
constexpr std::string_view probableWords[] = {"auth", "cred", "pin", "license", "licence", "lic", "serialnumber", "keys"};
constexpr std::string_view queryWords[] = {"sig", "signature", "key", "code", "sas", "sid", "sessionid"};
constexpr std::string_view wholeLineEnds[] = {"passphrase", "passphrases", "cookie", "cookies"};

constexpr std::string_view otherEnds[] = {"key", "pwd"};

/// Inside of a name: "TOKEN_PROD".
constexpr std::string_view innerWords[] = {"password", "passwd", "passphrase", "secret", "token", "credential", "apikey", "api_key", "kennwort", "passwort"};

/// The last word of a name with an inner word that is no secret: "password_file".
constexpr std::string_view harmlessEnds[] = {
    "file",
    "path",
    "dir",
    "directory",
    "folder",
    "url",
    "uri",
    "endpoint",
    "host",
    "name",
    "id",
    "type",
    "kind",
    "length",
    "len",
    "count",
    "size",
    "expires",
    "expiry",
    "expiration",
    "age",
    "min",
    "max",
    "limit",
    "policy",
    "required",
    "enabled",
    "disabled",
    "timeout",
    "ttl",
    "provider",
    "store",
    "manager",
    "helper",
    "hint",
    "prompt",
    "field",
    "label",
    "version",
    "algorithm",
    "method",
    "mode",
    "format",
    "scope",
    "scopes",
    "issuer",
    "audience",
    "changed",
    "date",
    "time",
    "user",
    "username",
    "ring",
    "bucket",
    "region",
    "server",
    "service",
    "plugin",
    "class",
    "command",
    "cmd",
    "ask",
    "askpass",
};

/// A set of the endings of names: three letters in any case. It also has some endings of other names.
class Endings
{
public:
    constexpr Endings()
    {
        addAll(certainEnds);
        addAll(certainWords);
        addAll(probableWords);
        addAll(queryWords);
        addAll(wholeLineEnds);
        addAll(otherEnds);
    }

    constexpr bool contains(char third, char second, char last) const
    {
        const unsigned hash = hashOf(third, second, last);
        return (bits_[hash / 64] >> hash % 64 & 1) != 0;
    }

private:
    template <std::size_t size>
    constexpr void addAll(const std::string_view (&list)[size])
    {
        for (const std::string_view entry : list) {
            const std::size_t length = entry.size();
            const unsigned hash = hashOf(entry[length - 3], entry[length - 2], entry[length - 1]);
            bits_[hash / 64] |= std::uint64_t(1) << hash % 64;
        }
    }

    static constexpr unsigned hashOf(char third, char second, char last)
    {
        return (unsigned(third & 31) * 37 + unsigned(second & 31) * 101 + unsigned(last & 31) * 331) % 2048;
    }

    std::uint64_t bits_[2048 / 64] = {};
};

constexpr Endings endings;

/// Whether the letters at \a at are a part that one of the inner words has and few other words have.
bool isInnerPart(std::string_view text, std::size_t at)
{
    const int first = text[at] | 0x20;
    const int second = text[at + 1] | 0x20;
    const int third = characterAt(text, at + 2) | 0x20;
    switch (second) {
    case 's':
        return first == 's';
    case 'r':
        return first == 'c' && third == 'e';
    case 'k':
        return first == 'o' && third == 'e';
    case 'i':
        return first == 'p' && (third == 'k' || third == ('_' | 0x20) || third == ('-' | 0x20));
    case 'n':
        return first == 'n' && third == 'w';
    default:
        return false;
    }
}

/// Whether the last word before \a end has several words in it, and one of them can be one of the inner words.
bool hasInnerPart(std::string_view text, std::size_t end, std::size_t least)
{
    std::size_t begin = end;
    bool isJoined = false;
    char next = '\0';
    for (; begin > least && static_cast<unsigned char>(text[begin - 1]) > ' '; --begin) {
        const char c = text[begin - 1];
        isJoined |= c == '_' || c == '-' || c == '.' || (isLower(c) && isUpper(next));
        next = c;
    }
    for (; isJoined && begin + 1 < end; ++begin) {
        if (isInnerPart(text, begin))
            return true;
    }
    return false;
}

bool isNumberOrSeparator(char c)
{
    return isDecimal(c) || c == '_' || c == '-' || c == '.';
}

bool isCertain(const Words &words)
{
    const std::string_view all = words.all();
    if (all == "publickeytoken")
        return false;
    if (endsWithOneOf(all, certainEnds) || isOneOf(words.last(), certainWords))
        return true;
    if (endsWith(all, "pwd"))
        return all.size() > 3;
    return endsWith(all, "key") && endsWithOneOf(all.substr(0, all.size() - 3), kindsOfKey);
}

bool isProbable(const Words &words)
{
    if (isOneOf(words.last(), probableWords))
        return true;
    if (words.hasBlank || isOneOf(words.last(), harmlessEnds))
        return false;
    for (const std::string_view word : innerWords) {
        const std::size_t at = words.words().find(word);
        const std::size_t end = at + word.size();
        if (at != std::string_view::npos && end < words.separatedSize && words.separated[end] == '_')
            return true;
    }
    return false;
}

} // namespace

bool canBeSecretName(std::string_view text, std::size_t end, std::size_t first)
{
    const std::size_t least = end > first + longestName ? end - longestName : first;
    while (end > least && isNumberOrSeparator(text[end - 1]))
        --end;
    if (end < least + 3)
        return false;
    if (endings.contains(text[end - 3], text[end - 2], text[end - 1]))
        return true;
    if (end >= least + 13 && (text[end - 1] | 0x20) == 'n' && (text[end - 6] | 0x20) == 'z') // "authorization"
        return true;
    return hasInnerPart(text, end, least);
}

SecretName secretName(std::string_view name)
{
    name = withoutNumber(name);
    if (name.size() < 3)
        return SecretName::None;
    const Words words = wordsOf(name);
    const std::string_view all = words.all();
    if (all == "pwd")
        return SecretName::Directory;
    if (endsWith(all, "authorization"))
        return SecretName::Header;
    if (endsWithOneOf(all, wholeLineEnds))
        return SecretName::WholeLine;
    if (isCertain(words))
        return SecretName::Certain;
    if (isProbable(words))
        return SecretName::Probable;
    return isOneOf(words.last(), queryWords) ? SecretName::Query : SecretName::None;
}

} // namespace Reports
} // namespace velkor
