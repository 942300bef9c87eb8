#include "secret_marks.h"

#include "address_forms.h"
#include "secret_address.h"
#include "secret_tokens.h"
#include "secret_values.h"

#include <QtCore/QByteArray>
#include <algorithm>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t longestName = 48;

bool isQuote(char c)
{
    return c == '"' || c == '\'' || c == '`';
}

bool isNameCharacter(char c)
{
    return isAlphanumeric(c) || c == '_' || c == '-' || c == '.' || static_cast<unsigned char>(c) >= 0x80;
}

/// A name that ends at \a end, which is moved to its first character.
std::string_view nameBefore(std::string_view text, std::size_t &end, std::size_t first, bool withBlanks)
{
    std::size_t begin = end;
    while (begin > first && end - begin < longestName) {
        const char c = text[begin - 1];
        const bool isBlank = withBlanks && c == ' ' && begin >= first + 2 && isAlphanumeric(text[begin - 2]) && begin < end;
        if (!isNameCharacter(c) && !isBlank)
            break;
        --begin;
    }
    const std::string_view name = text.substr(begin, end - begin);
    end = begin;
    return name;
}

bool isAliasName(std::string_view name)
{
    return isAlias(name.substr(name.rfind(' ') + 1));
}

/// Moves \a end before the blanks, quotes and brackets between a name and its delimiter. Returns whether there
/// was a quote.
bool passBeforeDelimiter(std::string_view text, std::size_t &end, std::size_t first)
{
    constexpr std::size_t most = 40;
    const std::size_t least = end > first + most ? end - most : first;
    while (end > least && (text[end - 1] == ' ' || text[end - 1] == '\t'))
        --end;
    if (end > least && text[end - 1] == ']')
        --end;
    const bool isQuoted = end > least && isQuote(text[end - 1]);
    if (isQuoted)
        --end;
    if (isQuoted && end > least && text[end - 1] == '\\')
        --end;
    return isQuoted;
}

/// `key="Password" value=`: the name is another attribute's value.
std::string_view nameOfAttribute(std::string_view text, std::size_t end, std::size_t first)
{
    if (!passBeforeDelimiter(text, end, first))
        return {};
    return nameBefore(text, end, first, true);
}

bool readAssignment(std::string_view text, std::size_t at, std::size_t valueBegin, std::size_t first, SecretPlace &place)
{
    std::size_t end = at;
    const bool isQuoted = passBeforeDelimiter(text, end, first);
    const bool isAttribute = text[at] == '=' && end >= first + 5 && text.compare(end - 5, 5, "value") == 0;
    if (!isAttribute && !canBeSecretName(text, end, first))
        return false;
    std::string_view name = nameBefore(text, end, first, true);
    Assignment assignment;
    assignment.nameBegin = end;
    assignment.valueBegin = valueBegin;
    if (!isQuoted && end > first && isQuote(text[end - 1]))
        assignment.around = text[end - 1];
    if (isAttribute && name == "value")
        name = nameOfAttribute(text, end, first);
    assignment.name = secretName(name);
    return assignment.name != SecretName::None && !isAliasName(name) && readSecretValue(text, assignment, place);
}

bool readEquals(std::string_view text, std::size_t at, std::size_t first, SecretPlace &place)
{
    const char previous = at > first ? text[at - 1] : '\0';
    if (previous == '=' || previous == '!' || previous == '<')
        return false;
    std::size_t value = at + 1;
    if (characterAt(text, value) == '=' || characterAt(text, value) == '>')
        ++value;
    return readAssignment(text, previous == ':' ? at - 1 : at, value, first, place);
}

bool readColon(std::string_view text, std::size_t at, std::size_t first, SecretPlace &place)
{
    const char next = characterAt(text, at + 1);
    if (next == '\\' && at >= first + 2 && isAsciiLetter(text[at - 1]) && !isAlphanumeric(text[at - 2]))
        return false; // a drive
    if (next == '/' && characterAt(text, at + 2) == '/')
        return readPasswordInAddress(text, at + 3, place);
    if (next == ':' || next == '=' || (at > first && text[at - 1] == ':'))
        return false;
    return readAssignment(text, at, at + 1, first, place) || readOracleLogin(text, at, place);
}

/// `<password>x</password>`
bool readElement(std::string_view text, std::size_t at, std::size_t first, SecretPlace &place)
{
    std::size_t begin = at;
    if (!canBeSecretName(text, at, first))
        return false;
    const std::string_view name = nameBefore(text, begin, first, false);
    if (begin == first || text[begin - 1] != '<')
        return false;
    const SecretName kind = secretName(name);
    if (kind == SecretName::None || kind == SecretName::Query || kind == SecretName::Directory)
        return false;
    std::size_t end = at + 1;
    while (end < text.size() && text[end] != '<' && text[end] != '\n' && text[end] != '\r')
        ++end;
    place = {at + 1, end};
    return !isNoSecret(text.substr(place.begin, place.end - place.begin));
}

/// "%3D" instead of "=", "%3A%2F%2F" instead of "://".
bool readPercentCode(std::string_view text, std::size_t at, std::size_t first, SecretPlace &place)
{
    if (continuesWith(text, at, "%3d"))
        return readAssignment(text, at, at + 3, first, place);
    return continuesWith(text, at, "%3a%2f%2f") && readPasswordInCodedAddress(text, at + 9, place);
}

bool canPrecedeOption(char c)
{
    return static_cast<unsigned char>(c) <= ' ' || isQuote(c) || c == '(' || c == '-' || c == '[' || c == ',';
}

/// "user:password" after "--user"
bool readLogin(std::string_view text, SecretPlace value, SecretPlace &place)
{
    const std::size_t colon = text.substr(0, value.end).find(':', value.begin);
    if (colon == std::string_view::npos || colon < value.begin + 2 || characterAt(text, colon + 1) == '\\' || characterAt(text, colon + 1) == '/')
        return false;
    place = {colon + 1, value.end};
    return !isNoSecret(text.substr(place.begin, place.end - place.begin));
}

/// "--password x"; "--password=x" has another mark.
bool readOption(std::string_view text, std::size_t at, std::size_t first, SecretPlace &place)
{
    if ((at > 0 && !canPrecedeOption(text[at - 1])) || !isAsciiLetter(characterAt(text, at + 1)))
        return false;
    std::size_t end = at + 1;
    while (end - at < longestName && isNameCharacter(characterAt(text, end)))
        ++end;
    if (characterAt(text, end) != ' ' && characterAt(text, end) != '\t')
        return false;
    const std::string_view name = text.substr(at + 1, end - at - 1);
    const bool isLogin = name == "u" || name == "user" || name == "proxy-user";
    const SecretName kind = isLogin ? SecretName::Certain : secretName(name);
    if (kind == SecretName::None || kind == SecretName::Query || isAlias(name))
        return false;
    const std::size_t begin = passBlanks(text, end);
    const char start = characterAt(text, begin);
    if (begin < first || start == '-' || start == '/' || !readValue(text, begin, place))
        return false;
    if (isLogin)
        return readLogin(text, place, place);
    const std::string_view value = text.substr(place.begin, place.end - place.begin);
    return !isNoSecret(value) && (kind != SecretName::Probable || looksGenerated(value));
}

bool isGeneratedBearer(std::string_view value)
{
    const bool hasDigit = std::any_of(value.begin(), value.end(), isDecimal);
    return value.size() >= 8 && (hasDigit || value.size() >= 20) && !isNoSecret(value);
}

/// "user:password" in base64
bool isBasicLogin(std::string_view value)
{
    constexpr std::size_t longest = 1024;
    if (value.size() < 4 || value.size() > longest || !std::all_of(value.begin(), value.end(), [](char c) { return isBase64Character(c) || c == '='; }))
        return false;
    const QByteArray login = QByteArray::fromBase64(QByteArray(value.data(), int(value.size())));
    return login.contains(':') && std::all_of(login.begin(), login.end(), [](char c) { return static_cast<unsigned char>(c) >= ' '; });
}

bool readScheme(std::string_view text, std::size_t at, SecretPlace &place)
{
    constexpr std::size_t longestShown = 256;
    const bool isBearer = continuesWith(text, at, "bearer ");
    if (!isBearer && !continuesWith(text, at, "basic "))
        return false;
    const std::size_t begin = passBlanks(text, at + 5 + (isBearer ? 1 : 0));
    std::size_t end = endOfPlainValue(text, begin);
    const std::string_view value = text.substr(begin, end - begin);
    place = {begin, end};
    return isBearer ? isGeneratedBearer(value.substr(0, longestShown)) : isBasicLogin(value);
}

bool readOne(std::string_view text, std::size_t at, std::size_t first, SecretPlace &place)
{
    switch (text[at]) {
    case '=':
        return readEquals(text, at, first, place);
    case ':':
        return readColon(text, at, first, place);
    case '>':
        return readElement(text, at, first, place);
    case '%':
        return readPercentCode(text, at, first, place);
    case '-':
    case '/':
        return readOption(text, at, first, place);
    default:
        return readScheme(text, at, place);
    }
}

} // namespace

bool readMark(std::string_view text, std::size_t at, std::size_t first, std::vector<SecretPlace> &places, std::size_t &end)
{
    const int second = characterAt(text, at + 1) | 0x20;
    if (isAsciiLetter(text[at]) && second != 'e' && second != 'a')
        return false;
    if (isAsciiLetter(text[at]) && at >= 5 && continuesWith(text, at - 1 - (text[at - 1] == ' ' ? 3 : 2), "---"))
        return readKeyBlock(text, at, places, end);
    SecretPlace place;
    if (!readOne(text, at, first, place) || place.begin < first)
        return false;
    places.push_back(place);
    end = place.end;
    return true;
}

} // namespace Reports
} // namespace velkor
