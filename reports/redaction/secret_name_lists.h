// The words of names whose values are secrets, in small letters.
#pragma once

#include <cstddef>
#include <string_view>

namespace velkor {
namespace Reports {

constexpr std::size_t longestName = 64;

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

} // namespace Reports
} // namespace velkor
