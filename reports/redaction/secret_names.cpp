#include "secret_names.h"

#include "address_forms.h"

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
    return text.size() >= end.size() && text.substr(text.size() - end.size()) == end;
}

template <std::size_t size>
bool isOneOf(std::string_view text, const char *const (&list)[size])
{
    for (const char *entry : list) {
        if (text == entry)
            return true;
    }
    return false;
}

template <std::size_t size>
bool endsWithOneOf(std::string_view text, const char *const (&list)[size])
{
    for (const char *entry : list) {
        if (endsWith(text, entry))
            return true;
    }
    return false;
}

const char *const certainEnds[] = {
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
const char *const kindsOfKey[] = {
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

const char *const certainWords[] = {"pass", "pat", "jwt", "creds", "psk", "otp", "senha", "bearer", "passkey"};
const char *const probableWords[] = {"auth", "cred", "pin", "license", "licence", "lic", "serialnumber", "keys"};
const char *const queryWords[] = {"sig", "signature", "key", "code", "sas", "sid", "session", "sessionid", "hash", "nonce", "apikeys"};
const char *const wholeLineEnds[] = {"passphrase", "passphrases", "cookie", "cookies"};

/// Inside of a name: "TOKEN_PROD".
const char *const innerWords[] = {"password", "passwd", "passphrase", "secret", "token", "credential", "apikey", "api_key", "kennwort", "passwort"};

/// The last word of a name with an inner word that is no secret: "password_file".
const char *const harmlessEnds[] = {
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
    for (const char *word : innerWords) {
        const std::size_t at = words.words().find(word);
        const std::size_t end = at + std::string_view(word).size();
        if (at != std::string_view::npos && end < words.separatedSize && words.separated[end] == '_')
            return true;
    }
    return false;
}

} // namespace

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
