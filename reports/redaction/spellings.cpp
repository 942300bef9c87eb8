#include "spellings.h"

#include "ordinary_words.h"

#include <algorithm>
#include <iterator>

namespace velkor {
namespace Reports {

namespace {

constexpr int netBiosLength = 15;
constexpr int longestName = 256; // of which variants are made

bool isAscii(const QString &name)
{
    return std::all_of(name.begin(), name.end(), [](QChar character) { return character.unicode() < 0x80; });
}

QString replacedLetters(const QString &name, const QString &other)
{
    QString result;
    for (const QChar character : name) {
        if (character.unicode() < 0x80)
            result += character;
        else if (!character.isLowSurrogate())
            result += other;
    }
    return result;
}

/// "Joern" for "Jörn".
QString transliterated(const QString &name)
{
    struct Letter
    {
        char16_t code;
        const char *latin;
    };
    static constexpr Letter letters[] = {
        {0xe4, "ae"},
        {0xf6, "oe"},
        {0xfc, "ue"},
        {0xc4, "Ae"},
        {0xd6, "Oe"},
        {0xdc, "Ue"},
        {0xe5, "aa"},
        {0xc5, "Aa"},
        {0xe6, "ae"},
        {0xf8, "oe"},
        {0xd8, "Oe"},
        {0xc6, "Ae"},
        {0xfe, "th"},
        {0xf0, "d"},
        {0x153, "oe"},
    };
    QString result;
    for (const QChar character : name) {
        const auto *found = std::find_if(std::begin(letters), std::end(letters), [character](const Letter &letter) {
            return letter.code == character.unicode();
        });
        if (found != std::end(letters))
            result += QLatin1String(found->latin);
        else
            result += character;
    }
    return result;
}

/// UTF-8 that somebody read as Windows-1252.
QString misread(const QString &name)
{
    static constexpr char16_t special[] = {0x20ac, 0x81, 0x201a, 0x192, 0x201e, 0x2026, 0x2020, 0x2021, 0x2c6, 0x2030, 0x160,
                                           0x2039, 0x152, 0x8d, 0x17d, 0x8f, 0x90, 0x2018, 0x2019, 0x201c, 0x201d, 0x2022,
                                           0x2013, 0x2014, 0x2dc, 0x2122, 0x161, 0x203a, 0x153, 0x9d, 0x17e, 0x178};
    constexpr unsigned firstSpecial = 0x80;
    QString result;
    for (const char byte : name.toUtf8()) {
        const auto code = static_cast<unsigned char>(byte);
        result += QChar(code >= firstSpecial && code < firstSpecial + std::size(special) ? special[code - firstSpecial] : char16_t(code));
    }
    return result;
}

/// \a name and what becomes of its letters on the way through programs that know ASCII only.
QStringList variantsOf(const QString &name)
{
    if (isAscii(name) || name.size() > longestName)
        return {name};
    return {name,
            transliterated(name),
            misread(name),
            replacedLetters(name, QString(QChar(QChar::ReplacementCharacter))),
            replacedLetters(name, QStringLiteral("?")),
            replacedLetters(name, QStringLiteral("_"))};
}

Boundaries boundariesOf(Distinction distinction)
{
    return distinction == Distinction::Clear ? Boundaries::Anywhere : Boundaries::Word;
}

void addSpelling(std::vector<Spelling> &spellings, const QString &name)
{
    const std::u16string symbols = folded(name);
    const Distinction distinction = distinctionOf(symbols);
    if (distinction != Distinction::None)
        spellings.push_back({symbols, boundariesOf(distinction)});
}

void addVariants(std::vector<Spelling> &spellings, const QString &name)
{
    for (const QString &variant : variantsOf(name))
        addSpelling(spellings, variant);
}

/// \a name where it stands between punctuation and blanks.
void addWhole(std::vector<Spelling> &spellings, const QString &name)
{
    for (const QString &variant : variantsOf(name)) {
        const std::u16string symbols = folded(variant);
        if (distinctionOf(symbols) != Distinction::None)
            spellings.push_back({symbols, Boundaries::Whole});
    }
}

/// An organisation's name in a script without blanks, without the words for "company".
QString withoutLegalForm(QString name)
{
    for (const char *form : {"股份有限公司", "有限责任公司", "有限公司", "株式会社", "公司", "주식회사"})
        name.remove(QString::fromUtf8(form));
    return name.trimmed();
}

/// What precedes "~" in a short name: six characters without blanks and points; Windows replaces what short names cannot have.
QString shortBase(const QString &name)
{
    constexpr int length = 6;
    QString base;
    for (const QChar character : name) {
        if (QStringLiteral("+,;=[]").contains(character))
            base += QLatin1Char('_');
        else if (character.unicode() > 0x20 && !QStringLiteral(".\"/\\:|<>*?").contains(character))
            base += character;
    }
    return base.left(length);
}

/// What can precede "~" in the short name, as symbols.
std::vector<std::u16string> shortBases(const QString &name)
{
    constexpr std::size_t length = 6;
    std::vector<std::u16string> bases;
    const int point = name.lastIndexOf(QLatin1Char('.')); // what follows is the extension
    for (const QString &variant : {name, replacedLetters(name, QStringLiteral("_")), replacedLetters(name, QString()), name.left(point)}) {
        const std::u16string symbols = folded(shortBase(variant)).substr(0, length);
        if (std::find(bases.begin(), bases.end(), symbols) == bases.end())
            bases.push_back(symbols);
    }
    return bases;
}

/// "LINDMO~": the digit after it differs.
void addShortNames(std::vector<Spelling> &spellings, const QString &name)
{
    constexpr std::size_t shortest = 4;
    if (name.size() > longestName)
        return;
    for (const std::u16string &symbols : shortBases(name)) {
        if (symbols.size() < shortest || isOrdinaryWord(symbols))
            continue;
        for (const char16_t digit : {u'1', u'2', u'3', u'4'})
            spellings.push_back({symbols + u'~' + digit, Boundaries::Word});
    }
}

/// The words of a name, which blanks, punctuation or capital letters begin: "Jörn Lindmoor", "JornLindmoor".
QStringList splitWords(const QString &name)
{
    QString separated;
    for (const QChar character : name) {
        const bool isPart = character.isLetterOrNumber() || character == QLatin1Char('-') || character.isSurrogate()
            || character == QChar(QChar::ReplacementCharacter) || character.isMark();
        if (character.isUpper() && !separated.isEmpty() && separated.back().isLower())
            separated += QLatin1Char(' ');
        separated += isPart ? character : QLatin1Char(' ');
    }
    return separated.split(QLatin1Char(' '), Qt::SkipEmptyParts);
}

/// Whether words can be those of a name: not "1" and "000".
bool areNames(const QStringList &words)
{
    constexpr int shortest = 3;
    const auto hasLetter = [](const QString &word) {
        return std::any_of(word.begin(), word.end(), [](QChar character) { return character.isLetter(); });
    };
    return words.size() > 1 && std::all_of(words.begin(), words.end(), hasLetter)
        && std::any_of(words.begin(), words.end(), [](const QString &word) { return word.size() >= shortest; });
}

using Symbols = std::u16string;

void addForm(std::vector<Spelling> &spellings, const Symbols &form, Boundaries boundaries)
{
    constexpr std::size_t shortest = 4;
    if (form.size() >= shortest)
        spellings.push_back({form, boundaries});
}

/// Forms that accounts and mail addresses are made of: "jorn.lindmoor", "jlindmoor", "lindmoorj".
void addAccountNames(std::vector<Spelling> &spellings, const Symbols &first, const Symbols &last)
{
    const Symbols initial = first.substr(0, 1);
    for (const char16_t *separator : {u"", u".", u"_", u"-", u" ", u", "}) {
        for (const Symbols &form : {first + separator + last, last + separator + first, initial + separator + last, last + separator + initial})
            addForm(spellings, form, Boundaries::Word);
    }
    addForm(spellings, first + u'.' + last.substr(0, 1), Boundaries::Word);
}

/// A name of several words without blanks, or with other characters for them.
void addJoined(std::vector<Spelling> &spellings, const std::vector<Symbols> &words)
{
    constexpr std::size_t clear = 6;
    for (const char16_t *separator : {u"", u"_", u"-", u".", u" "}) {
        Symbols joined = words.front();
        for (std::size_t i = 1; i < words.size(); ++i)
            joined += separator + words[i];
        addForm(spellings, joined, joined.size() < clear ? Boundaries::Word : Boundaries::Anywhere);
    }
}

/// What names of several words are written as.
void addCompositions(std::vector<Spelling> &spellings, const QString &name, bool isPerson)
{
    constexpr std::size_t mostWordsOfPerson = 4;
    QStringList forms {name};
    if (!isAscii(name) && name.size() <= longestName)
        forms += transliterated(name);
    for (const QString &form : forms) {
        const QStringList parts = splitWords(form);
        if (!areNames(parts))
            return;
        std::vector<Symbols> words;
        for (const QString &part : parts)
            words.push_back(folded(part));
        addJoined(spellings, words);
        if (isPerson && words.size() <= mostWordsOfPerson)
            addAccountNames(spellings, words.front(), words.back());
    }
}

/// A component of a path, if its name is distinct.
void addComponent(std::vector<Spelling> &spellings, const QString &name)
{
    constexpr std::size_t shortest = 5;
    for (const QString &variant : variantsOf(name)) {
        const std::u16string symbols = folded(variant);
        if (symbols.size() >= shortest && distinctionOf(symbols) != Distinction::None)
            spellings.push_back({symbols, Boundaries::Component});
    }
    if (spellings.empty())
        return;
    const std::size_t names = spellings.size();
    addShortNames(spellings, name);
    for (std::size_t i = names; i < spellings.size(); ++i)
        spellings[i].boundaries = Boundaries::Component;
}

/// Whether a domain belongs to nobody: "co.uk".
bool isPublicSuffix(const QStringList &labels)
{
    static const QStringList suffixes {QStringLiteral("co"), QStringLiteral("com"), QStringLiteral("ac"), QStringLiteral("org"),
                                       QStringLiteral("net"), QStringLiteral("gov"), QStringLiteral("edu"), QStringLiteral("or")};
    return labels.size() < 2 || (labels.size() == 2 && labels.last().size() == 2 && suffixes.contains(labels.first().toLower()));
}

/// The domain, those above it, and the labels that can stand for it: "BIRKENTAL" of "corp.birkental.example".
void addDomain(std::vector<Spelling> &spellings, const QString &name, bool isStated)
{
    constexpr int mostLabels = 10;
    addVariants(spellings, name);
    QStringList labels = name.split(QLatin1Char('.'), Qt::SkipEmptyParts);
    if (labels.size() < 2 || labels.size() > mostLabels || !isStated)
        return;
    addWhole(spellings, labels.first());
    while (!isPublicSuffix(labels)) {
        addVariants(spellings, labels.join(QLatin1Char('.')));
        const QString owner = labels.takeFirst();
        if (isPublicSuffix(labels))
            addWhole(spellings, owner);
    }
}

} // namespace

std::u16string wordsAsOne(const QString &name)
{
    const QStringList words = name.size() <= longestName ? splitWords(name) : QStringList();
    return areNames(words) ? folded(words.join(QLatin1Char(' '))) : folded(name);
}

QStringList wordsOf(AliasKind kind, const QString &name)
{
    constexpr int shortest = 4;
    constexpr int shortestOfPerson = 3;
    QStringList words;
    if (name.size() > longestName)
        return words;
    const int length = kind == AliasKind::User ? shortestOfPerson : shortest;
    for (const QString &word : splitWords(name)) {
        const bool isWord = distinctionOf(folded(word)) != Distinction::None;
        if (isWord && (word.size() >= length || !isAscii(word)))
            words += word;
    }
    return words;
}

bool isShortName(const std::u16string &component)
{
    constexpr std::size_t longest = 8;
    const std::size_t tilde = component.find(u'~');
    const std::size_t end = std::min(component.find(u'.'), component.size());
    if (tilde == std::u16string::npos || tilde == 0 || end > longest || tilde + 1 >= end)
        return false;
    const std::size_t notDigit = component.find_first_not_of(u"0123456789", tilde + 1);
    return (notDigit == std::u16string::npos || notDigit == end) && component.find(u' ') == std::u16string::npos;
}

std::u16string shortNameBase(const std::u16string &shortName)
{
    constexpr std::size_t withChecksum = 6;
    const std::u16string base = shortName.substr(0, shortName.find(u'~'));
    const bool hasChecksum = base.size() == withChecksum && base.find_first_not_of(u"0123456789abcdef", 2) == std::u16string::npos
        && base.find_first_of(u"0123456789", 2) != std::u16string::npos;
    return hasChecksum ? base.substr(0, 2) : base;
}

std::vector<std::u16string> shortNameBases(const QString &name)
{
    std::vector<std::u16string> bases;
    if (name.size() > longestName || name.contains(QLatin1Char('~')))
        return bases;
    for (const std::u16string &symbols : shortBases(name)) {
        if (symbols.size() < 2)
            continue;
        bases.push_back(symbols);
        bases.push_back(symbols.substr(0, 2));
    }
    return bases;
}

std::vector<std::u16string> variantsOfName(const QString &name)
{
    std::vector<std::u16string> variants;
    for (const QString &variant : variantsOf(name))
        variants.push_back(folded(variant));
    return variants;
}

std::vector<Spelling> spellingsOf(AliasKind kind, const QString &name, bool isStated)
{
    std::vector<Spelling> spellings;
    switch (kind) {
    case AliasKind::User:
        addVariants(spellings, name);
        addCompositions(spellings, name, true);
        for (const QString &word : wordsOf(kind, name)) {
            addVariants(spellings, word);
            addShortNames(spellings, word);
        }
        if (distinctionOf(folded(name)) != Distinction::None)
            addShortNames(spellings, name);
        break;
    case AliasKind::Organisation:
        addVariants(spellings, name);
        addCompositions(spellings, name, false);
        for (const QString &word : wordsOf(kind, name))
            addWhole(spellings, word);
        addWhole(spellings, withoutLegalForm(name));
        addShortNames(spellings, name);
        break;
    case AliasKind::Host:
        addVariants(spellings, name);
        for (const char *separator : {"_", ""})
            addWhole(spellings, QString(name).replace(QLatin1Char('-'), QLatin1String(separator)));
        if (name.size() > netBiosLength)
            addWhole(spellings, name.left(netBiosLength));
        addShortNames(spellings, name);
        break;
    case AliasKind::Domain:
        addDomain(spellings, name, isStated);
        break;
    case AliasKind::Share:
    case AliasKind::Folder:
        addComponent(spellings, name);
        break;
    case AliasKind::Label:
        for (const QString &variant : variantsOf(name)) {
            const std::u16string symbols = folded(variant);
            if (symbols.size() >= 4 && distinctionOf(symbols) != Distinction::None)
                spellings.push_back({symbols, Boundaries::Word});
        }
        break;
    case AliasKind::Mac:
    case AliasKind::Ip:
        break; // found as addresses
    case AliasKind::Word: {
        const std::u16string symbols = folded(name);
        spellings.push_back({symbols, symbols.size() > 3 ? Boundaries::Anywhere : Boundaries::Word});
        break;
    }
    default:
        addVariants(spellings, name);
        break;
    }
    return spellings;
}

} // namespace Reports
} // namespace velkor
