// Values that are no secrets.

#include "secret_values.h"

#include "address_forms.h"
#include "alias_text.h"

#include <algorithm>
#include <iterator>

namespace velkor {
namespace Reports {

namespace {

constexpr std::string_view ordinaryWords[] = {
    "true",
    "false",
    "yes",
    "no",
    "on",
    "off",
    "none",
    "null",
    "nil",
    "undefined",
    "empty",
    "unset",
    "not",
    "set",
    "(null)",
    "(none)",
    "required",
    "optional",
    "enabled",
    "disabled",
    "default",
    "basic",
    "plain",
    "login",
    "ntlm",
    "digest",
    "kerberos",
    "negotiate",
    "anonymous",
    "windows",
    "integrated",
    "oauth",
    "oauth2",
    "xoauth2",
    "bearer",
    "any",
    "auto",
    "unknown",
    "prompt",
    "ask",
    "stdin",
    "n/a",
    "-",
    "0",
    "1",
};

template <std::size_t size>
bool isOneOf(std::string_view text, const std::string_view (&list)[size])
{
    return std::any_of(list, list + size, [text](std::string_view entry) {
        return text.size() == entry.size() && continuesWith(text, 0, entry);
    });
}

bool isNameCharacter(char c)
{
    return isAlphanumeric(c) || c == '_' || c == '-' || c == '.';
}

bool isReference(std::string_view value)
{
    const std::string_view inner = value.size() > 2 ? value.substr(1, value.size() - 2) : std::string_view();
    const char first = value.front();
    const char second = characterAt(value, 1);
    if (first == '%' && value.back() == '%')
        return !inner.empty() && std::all_of(inner.begin(), inner.end(), [](char c) { return isNameCharacter(c) || c == '(' || c == ')'; });
    if (first == '$' && (second == '{' || second == '(' || continuesWith(value, 1, "env:")))
        return true;
    if (first == '$')
        return value.size() > 2 && std::all_of(value.begin() + 1, value.end(), [](char c) { return (c >= 'A' && c <= 'Z') || c == '_'; });
    return (first == '{' && second == '{') || (first == '<' && value.back() == '>');
}

bool isMask(std::string_view value)
{
    const char first = value.front();
    return value.size() >= 3 && (first == '*' || first == 'x' || first == 'X' || first == '.' || first == '#')
        && value.find_first_not_of(first) == std::string_view::npos;
}

} // namespace

bool isAlias(std::string_view text)
{
    return !text.empty() && aliasLength(text) == text.size();
}

bool isNoSecret(std::string_view value)
{
    if (value.size() > longestOfNoSecret)
        return false;
    return value.empty() || isOneOf(value, ordinaryWords) || isReference(value) || isMask(value) || isAlias(value);
}

bool looksGenerated(std::string_view value)
{
    int digits = 0;
    int letters = 0;
    int changes = 0;
    for (std::size_t i = 0; i < value.size(); ++i) {
        digits += isDecimal(value[i]);
        letters += isAsciiLetter(value[i]);
        changes += i > 0 && isDecimal(value[i]) != isDecimal(value[i - 1]);
    }
    return value.size() >= 16 && digits >= 2 && letters >= 2 && changes >= 3 && std::size_t(digits + letters) * 10 >= value.size() * 8;
}

} // namespace Reports
} // namespace velkor
