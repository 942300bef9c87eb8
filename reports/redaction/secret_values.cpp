#include "secret_values.h"

#include "address_forms.h"

#include <algorithm>
#include <iterator>

namespace velkor {
namespace Reports {

namespace {

constexpr std::size_t longestNameAfter = 32;

constexpr std::string_view schemes[] = {"bearer", "basic", "token", "digest", "negotiate", "ntlm", "apikey", "sharedaccesssignature"};

bool isBlank(char c)
{
    return c == ' ' || c == '\t';
}

bool isNameCharacter(char c)
{
    return isAlphanumeric(c) || c == '_' || c == '-' || c == '.';
}

/// "&name=" or ", name:" at \a at: another assignment follows.
bool beginsAssignment(std::string_view text, std::size_t at)
{
    if (continuesWith(text, at, "amp;"))
        at += 4;
    const std::size_t begin = passBlanks(text, at);
    std::size_t end = begin;
    while (end - begin < longestNameAfter && (isNameCharacter(characterAt(text, end)) || characterAt(text, end) == '"'))
        ++end;
    end = passBlanks(text, end);
    return end > begin && (characterAt(text, end) == '=' || characterAt(text, end) == ':');
}

bool endsPlainValue(std::string_view text, std::size_t at)
{
    const char next = characterAt(text, at + 1);
    switch (text[at]) {
    case ' ':
    case '\t':
    case '\n':
    case '\r':
    case '\v':
    case '\f':
    case '\0':
    case '"':
    case '`':
    case ';':
        return true;
    case '\'':
        return !isAlphanumeric(next);
    case '<':
        return next == '/';
    case '&':
        return beginsAssignment(text, at + 1);
    case ',':
        return isBlank(next) || next == '\r' || next == '\n' || beginsAssignment(text, at + 1);
    case '%':
        return continuesWith(text, at + 1, "26") || continuesWith(text, at + 1, "20") || continuesWith(text, at + 1, "22");
    default:
        return false;
    }
}

char openerOf(char closer)
{
    return closer == ')' ? '(' : closer == ']' ? '['
        : closer == '}'                        ? '{'
        : closer == '>'                        ? '<'
                                               : '\0';
}

/// What ends a sentence or closes a bracket that began before the value.
std::size_t withoutPunctuation(std::string_view text, std::size_t begin, std::size_t end)
{
    constexpr std::size_t most = 4;
    const std::size_t least = std::max(begin + 1, end > most ? end - most : 0);
    while (end > least) {
        const char last = text[end - 1];
        const char opener = openerOf(last);
        const std::string_view rest = text.substr(begin, end - begin - 1);
        if (last != ',' && last != '.' && last != '\\' && (opener == '\0' || rest.find(opener) != std::string_view::npos))
            break;
        --end;
    }
    return end;
}

/// The place between quotes; \a escaped if the quotes have a backslash each.
SecretPlace quotedPlace(std::string_view text, std::size_t begin, char quote, bool escaped)
{
    std::size_t at = begin;
    for (; at < text.size() && text[at] != '\n'; ++at) {
        if (text[at] == '\\' && escaped && characterAt(text, at + 1) == quote)
            return {begin, at};
        if (text[at] == quote && !escaped)
            return {begin, at};
        if (text[at] == '\\' && !escaped && (characterAt(text, at + 1) == '\\' || characterAt(text, at + 1) == quote))
            ++at;
    }
    at = std::min(at, text.size());
    while (at > begin && (text[at - 1] == '\r' || isBlank(text[at - 1])))
        --at;
    return {begin, at};
}

bool isQuote(char c)
{
    return c == '"' || c == '\'' || c == '`';
}

/// "{...}" of ODBC.
bool readBraced(std::string_view text, std::size_t begin, SecretPlace &place)
{
    if (characterAt(text, begin) != '{' || characterAt(text, begin + 1) == '{')
        return false;
    std::size_t at = begin + 1;
    while (at < text.size() && text[at] != '\n' && at - begin < longestOfNoSecret && (text[at] != '}' || characterAt(text, at + 1) == '}'))
        at += text[at] == '}' ? 2 : 1;
    const bool found = characterAt(text, at) == '}' && at > begin + 1;
    place = {begin + 1, at};
    return found;
}

bool isPath(std::string_view value)
{
    const char first = characterAt(value, 0);
    return first == '/' || first == '~' || first == '\\' || (characterAt(value, 1) == ':' && isAsciiLetter(first));
}

bool isScheme(std::string_view word)
{
    return std::any_of(std::begin(schemes), std::end(schemes), [word](std::string_view scheme) {
        return word.size() == scheme.size() && continuesWith(word, 0, scheme);
    });
}

/// "Bearer x" after "Authorization:".
void passScheme(std::string_view text, SecretPlace &place)
{
    if (!isScheme(text.substr(place.begin, place.end - place.begin)) || characterAt(text, place.end) != ' ')
        return;
    const bool isDigest = continuesWith(text, place.begin, "digest");
    place.begin = passBlanks(text, place.end);
    place.end = isDigest ? endOfLine(text, place.begin) : endOfPlainValue(text, place.begin);
}

bool mustBePlausible(SecretName name)
{
    return name == SecretName::Directory || name == SecretName::Probable || name == SecretName::Query;
}

bool isPlausible(std::string_view text, const Assignment &assignment, std::string_view value)
{
    switch (assignment.name) {
    case SecretName::Directory:
        return !isPath(value);
    case SecretName::Probable:
        return value.size() >= 4 && !isPath(value);
    case SecretName::Query: {
        const char before = assignment.nameBegin > 0 ? text[assignment.nameBegin - 1] : '\0';
        const bool isSignature = continuesWith(text, assignment.nameBegin, "sig") || continuesWith(text, assignment.nameBegin, "sid");
        return (before == '?' || before == '&') && (isSignature || looksGenerated(value));
    }
    default:
        return true;
    }
}

} // namespace

std::size_t endOfLine(std::string_view text, std::size_t at)
{
    while (at < text.size() && text[at] != '\n' && text[at] != '\r')
        ++at;
    return at;
}

std::size_t passBlanks(std::string_view text, std::size_t at)
{
    constexpr std::size_t mostBlanks = 32;
    const std::size_t begin = at;
    while (at - begin < mostBlanks && isBlank(characterAt(text, at)))
        ++at;
    return at;
}

std::size_t endOfPlainValue(std::string_view text, std::size_t begin)
{
    std::size_t end = begin;
    while (end < text.size() && !endsPlainValue(text, end))
        ++end;
    return withoutPunctuation(text, begin, end);
}

bool readValue(std::string_view text, std::size_t begin, SecretPlace &place)
{
    const char first = characterAt(text, begin);
    const char second = characterAt(text, begin + 1);
    if (isQuote(first))
        place = quotedPlace(text, begin + 1, first, false);
    else if (first == '\\' && isQuote(second))
        place = quotedPlace(text, begin + 2, second, true);
    else if (!readBraced(text, begin, place))
        place = {begin, endOfPlainValue(text, begin)};
    return place.end > place.begin;
}

bool readSecretValue(std::string_view text, const Assignment &assignment, SecretPlace &place)
{
    const std::size_t begin = passBlanks(text, assignment.valueBegin);
    if (mustBePlausible(assignment.name)) {
        const std::string_view start = text.substr(0, std::min(text.size(), begin + longestOfNoSecret));
        if (!readValue(start, begin, place) || !isPlausible(text, assignment, start.substr(place.begin, place.end - place.begin)))
            return false;
    }
    if (!readValue(text, begin, place))
        return false;
    if (place.begin == begin && assignment.around != '\0') {
        place = quotedPlace(text, begin, assignment.around, false);
    } else if (place.begin == begin && assignment.name == SecretName::WholeLine) {
        const std::size_t end = endOfLine(text, begin);
        place.end = std::max(place.end, std::min(end, text.substr(0, end).find('"', begin)));
    } else if (assignment.name == SecretName::Header) {
        passScheme(text, place);
    }
    return !isNoSecret(text.substr(place.begin, place.end - place.begin));
}

} // namespace Reports
} // namespace velkor
