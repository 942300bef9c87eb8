#include "word_list.h"

#include "vkReports.h"
#include "word_pattern.h"

#include <algorithm>
#include <optional>

namespace velkor {
namespace Reports {

namespace {

constexpr int longestEntry = 256;
constexpr int longestWholeWord = 3;       // shorter entries are not searched inside words
constexpr std::size_t longestWord = 4096; // that patterns are tried with

bool isSpecial(QChar character)
{
    return character == QLatin1Char('*') || character == QLatin1Char('?') || character == QLatin1Char('[');
}

/// The text that an entry stands for: "[*]" and its like become the character. Nothing if it is a pattern.
std::optional<QString> textOf(const QString &entry)
{
    QString text;
    for (int i = 0; i < entry.size(); ++i) {
        const bool isQuoted = entry.at(i) == QLatin1Char('[') && i + 2 < entry.size() && isSpecial(entry.at(i + 1)) && entry.at(i + 2) == QLatin1Char(']');
        if (!isQuoted && isSpecial(entry.at(i)))
            return std::nullopt;
        text += entry.at(isQuoted ? i + 1 : i);
        i += isQuoted ? 2 : 0;
    }
    return text;
}

bool endsPatternWord(char16_t symbol)
{
    return symbol <= u' ' || std::u16string_view(u"\\/:;,=\"'<>|(){}").find(symbol) != std::u16string_view::npos;
}

bool saysSomething(const QString &entry)
{
    return std::any_of(entry.begin(), entry.end(), [](QChar character) { return !character.isSpace() && character != QLatin1Char('*'); });
}

} // namespace

QString redactionEntryError(const QString &entry)
{
    if (!saysSomething(entry))
        return QStringLiteral("it would match everything");
    if (entry.size() > longestEntry)
        return QStringLiteral("it has more than %1 characters").arg(longestEntry);
    if (entry.contains(QLatin1Char('\n')) || entry.contains(QLatin1Char('\r')) || entry.contains(QChar(QChar::Null)))
        return QStringLiteral("it contains a line break or a null character");
    const std::u16string symbols = folded(entry);
    if (!textOf(entry) && std::any_of(symbols.begin(), symbols.end(), endsPatternWord))
        return QStringLiteral("a pattern describes one word, without blanks and any of \\ / : ; , = \" ' < > | ( ) { }");
    return {};
}

WordList::WordList(const QStringList &entries)
{
    for (const QString &entry : entries) {
        if (!redactionEntryError(entry).isEmpty())
            continue;
        if (const std::optional<QString> text = textOf(entry))
            search.add(folded(*text), 0, text->size() > longestWholeWord ? Boundaries::Substring : Boundaries::Word);
        else
            patterns.push_back(folded(entry));
    }
    search.build();
}

bool WordList::matchesPattern(const std::u16string &word) const
{
    return std::any_of(patterns.begin(), patterns.end(), [&word](const std::u16string &pattern) { return matchesWordPattern(pattern, word); });
}

void WordList::findPatterns(std::string_view text, std::vector<NamePlace> &places) const
{
    SymbolReader reader(text);
    Symbol symbol;
    std::u16string word;
    NamePlace place;
    const auto finish = [&] {
        if (!word.empty() && word.size() <= longestWord && matchesPattern(word))
            places.push_back(place);
        word.clear();
    };
    while (reader.next(symbol)) {
        if (endsPatternWord(symbol.code)) {
            finish();
            continue;
        }
        if (word.empty())
            place.begin = symbol.begin;
        place.end = symbol.end;
        if (word.size() <= longestWord)
            word += symbol.code;
    }
    finish();
}

void WordList::find(std::string_view text, std::vector<NamePlace> &places)
{
    places.clear();
    if (!search.isEmpty())
        search.find(text, places);
    if (patterns.empty())
        return;
    std::vector<NamePlace> words;
    findPatterns(text, words);
    words.insert(words.end(), places.begin(), places.end());
    std::sort(words.begin(), words.end(), [](const NamePlace &left, const NamePlace &right) { return left.begin < right.begin; });
    places.clear();
    for (const NamePlace &place : words) {
        if (!places.empty() && place.begin < places.back().end)
            places.back().end = std::max(places.back().end, place.end);
        else
            places.push_back(place);
    }
}

} // namespace Reports
} // namespace velkor
