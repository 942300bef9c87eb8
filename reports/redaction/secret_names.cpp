#include "secret_names.h"

#include "address_forms.h"
#include "secret_name_lists.h"

namespace velkor {
namespace Reports {

namespace {

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

constexpr bool isUpper(char c)
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
