#include "value_comparison.h"

#include "catalogue.h"
#include "decoded_text.h"
#include "nearly_full.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>
#include <algorithm>
#include <cstring>

namespace velkor {
namespace Reports {

namespace {

bool isDigit(QChar c)
{
    return c >= QLatin1Char('0') && c <= QLatin1Char('9');
}

int endOfDigits(const QString &text, int begin)
{
    while (begin < text.size() && isDigit(text.at(begin)))
        ++begin;
    return begin;
}

/// Compares the digits in [aBegin, aEnd) with those in [bBegin, bEnd); no digits are 0.
Sign compareDigitRanges(const QString &a, int aBegin, int aEnd, const QString &b, int bBegin, int bEnd)
{
    while (aBegin < aEnd && a.at(aBegin) == QLatin1Char('0'))
        ++aBegin;
    while (bBegin < bEnd && b.at(bBegin) == QLatin1Char('0'))
        ++bBegin;
    if (aEnd - aBegin != bEnd - bBegin)
        return aEnd - aBegin < bEnd - bBegin ? -1 : 1;
    for (; aBegin < aEnd; ++aBegin, ++bBegin) {
        if (a.at(aBegin) != b.at(bBegin))
            return a.at(aBegin) < b.at(bBegin) ? -1 : 1;
    }
    return 0;
}

/// The beginning of the version's next number, after the point; \a end if there is none.
int nextNumber(const QString &text, int end)
{
    const bool hasNext = end + 1 < text.size() && text.at(end) == QLatin1Char('.') && isDigit(text.at(end + 1));
    return hasNext ? end + 1 : end;
}

bool isNumber(const QString &text)
{
    return !text.isEmpty() && endOfDigits(text, 0) == text.size();
}

template <typename T>
Sign sign(const T &a, const T &b)
{
    return a < b ? -1 : b < a ? 1
                              : 0;
}

template <typename T>
std::optional<Sign> signOf(const std::optional<T> &a, const std::optional<T> &b)
{
    if (!a || !b || *a != *a || *b != *b) // not a number
        return std::nullopt;
    return sign(*a, *b);
}

std::optional<Sign> compareNumbers(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact)
{
    const bool isBytes = older.row(oldFact).type == Type::Bytes;
    const auto result = isBytes ? signOf(older.bytes64(oldFact), newer.bytes64(newFact))
                                : signOf(older.integer(oldFact), newer.integer(newFact));
    if (result)
        return result;
    const QString a = older.display(oldFact);
    const QString b = newer.display(newFact);
    if (isNumber(a) && isNumber(b))
        return compareDigits(a, b);
    return std::nullopt;
}

/// Nothing if the type has no order, or a value is not one of the type.
std::optional<Sign> compareByType(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact)
{
    switch (older.row(oldFact).type) {
    case Type::Number:
    case Type::Number64:
    case Type::Bytes:
        return compareNumbers(older, oldFact, newer, newFact);
    case Type::Real:
        return signOf(older.real(oldFact), newer.real(newFact));
    case Type::Version:
        return compareVersions(older.display(oldFact), newer.display(newFact));
    case Type::Date:
        return compareDates(older.isoDate(oldFact), newer.isoDate(newFact));
    case Type::Text:
    case Type::List:
        break;
    }
    return std::nullopt;
}

/// What follows the number at the beginning of \a text: its unit, and the same number in another form.
QString afterNumber(const QString &text)
{
    static const QRegularExpression number(QStringLiteral("^-?(0x[0-9a-f]+|[0-9]+(\\.[0-9]+)?(e[+-][0-9]+)?)"));
    const QRegularExpressionMatch match = number.match(text);
    return text.mid(match.capturedLength()).simplified();
}

/// For values with equal numbers: whether the rest of the texts is equal, too.
bool haveEqualRests(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact)
{
    const Type type = older.row(oldFact).type;
    const bool isNumeric = type == Type::Number || type == Type::Number64 || type == Type::Bytes || type == Type::Real;
    if (!isNumeric)
        return true;
    const QString a = afterNumber(older.display(oldFact));
    const QString b = afterNumber(newer.display(newFact));
    const auto repeatsNumber = [](const QString &rest) { return rest.isEmpty() || rest.startsWith(QLatin1String("= ")); };
    return a == b || ((a.isEmpty() || b.isEmpty()) && repeatsNumber(a) && repeatsNumber(b));
}

/// Whether a report lost the difference between one blank and several.
bool blanksAreUncertain(const Document &older, const Document &newer)
{
    const States uncertain = States(State::BlanksCollapsed) | State::WrappedLines | State::NoBreakSpaces;
    return bool((older.states() | newer.states()) & uncertain);
}

QString withCertainBlanks(const QString &text, bool uncertain)
{
    return uncertain ? text.simplified() : text;
}

QStringList listEntries(const Document &document, const Fact &fact, bool uncertain)
{
    QStringList result;
    const bool isSpaced = document.row(fact).form & (Spaced | Ends);
    for (const QByteArray &value : document.values(fact)) {
        const QString entry = decodedText(value).replace(QChar(QChar::Nbsp), QLatin1Char(' ')).trimmed();
        if (isSpaced) // a no-break space separates as well
            result += entry.split(QLatin1Char(' '), Qt::SkipEmptyParts);
        else
            result += withCertainBlanks(entry, uncertain);
    }
    return result;
}

bool equalLists(const FactRow &row, QStringList a, QStringList b)
{
    if (!orderMatters(row)) {
        a.sort();
        b.sort();
    }
    return a == b;
}

bool equalBytes(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact)
{
    const int size = oldFact.end - oldFact.begin;
    return size == newFact.end - newFact.begin
        && std::memcmp(older.text().constData() + oldFact.begin, newer.text().constData() + newFact.begin, std::size_t(size)) == 0;
}

/// Whether the fact is the value of an environment variable.
bool isVariable(const FactRow &row)
{
    return std::strcmp(row.section, "someEnvironmentVariables") == 0
        || (std::strcmp(row.section, "qtSystemEnvironment") == 0 && std::strcmp(row.key, "value") == 0);
}

/// The entries of a list, or of an environment variable with semicolons. Nothing for other values.
std::optional<QStringList> entriesOf(const Document &document, const Fact &fact, bool uncertain)
{
    const FactRow &row = document.row(fact);
    if (row.type == Type::List)
        return listEntries(document, fact, uncertain);
    if (isVariable(row)) {
        const QString value = withCertainBlanks(document.display(fact), uncertain);
        if (value.contains(QLatin1Char(';')))
            return value.split(QLatin1Char(';'), Qt::SkipEmptyParts);
    }
    return std::nullopt;
}

} // namespace

Sign compareDigits(const QString &a, const QString &b)
{
    return compareDigitRanges(a, 0, a.size(), b, 0, b.size());
}

std::optional<Sign> compareVersions(const QString &a, const QString &b)
{
    int aBegin = 0;
    int bBegin = 0;
    int aEnd = endOfDigits(a, 0);
    int bEnd = endOfDigits(b, 0);
    if (aEnd == 0 || bEnd == 0)
        return std::nullopt;
    while (aBegin < aEnd || bBegin < bEnd) {
        if (const Sign result = compareDigitRanges(a, aBegin, aEnd, b, bBegin, bEnd))
            return result;
        aBegin = nextNumber(a, aEnd);
        bBegin = nextNumber(b, bEnd);
        aEnd = endOfDigits(a, aBegin);
        bEnd = endOfDigits(b, bBegin);
    }
    if (a.mid(aEnd).simplified() == b.mid(bEnd).simplified())
        return 0;
    return std::nullopt;
}

std::optional<Sign> compareDates(const QString &a, const QString &b)
{
    if (a.isEmpty() || b.isEmpty())
        return std::nullopt;
    if (a == b)
        return 0;
    if (a.startsWith(b) || b.startsWith(a))
        return std::nullopt;
    return a < b ? -1 : 1;
}

ValueComparison compareValues(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact,
                              bool ignoreCase)
{
    if (equalBytes(older, oldFact, newer, newFact))
        return {true, Order::Unknown};
    const auto result = compareByType(older, oldFact, newer, newFact);
    if (result && *result == 0 && !haveEqualRests(older, oldFact, newer, newFact))
        return {false, Order::Unknown};
    if (result) {
        const Order order = *result < 0 ? Order::NewIsNewer : Order::OldIsNewer;
        return {*result == 0, *result == 0 ? Order::Unknown : order};
    }
    const FactRow &row = older.row(oldFact);
    const bool uncertain = blanksAreUncertain(older, newer);
    if (row.type == Type::List)
        return {equalLists(row, listEntries(older, oldFact, uncertain), listEntries(newer, newFact, uncertain)), Order::Unknown};
    const QString a = withCertainBlanks(older.display(oldFact), uncertain);
    const QString b = withCertainBlanks(newer.display(newFact), uncertain);
    return {a.compare(b, ignoreCase ? Qt::CaseInsensitive : Qt::CaseSensitive) == 0, Order::Unknown};
}

bool orderMatters(const FactRow &row)
{
    // Sets. In the other lists the first entry is used first, or each place has a meaning.
    static constexpr const char *sets[] = {"activeProcessors", "virtualSiblings", "glExtensions"};
    return std::none_of(std::begin(sets), std::end(sets),
                        [&](const char *key) { return std::strcmp(row.key, key) == 0; });
}

std::optional<EntryChange> entryChange(const Document &older, const Fact &oldFact, const Document &newer, const Fact &newFact)
{
    const bool uncertain = blanksAreUncertain(older, newer);
    const auto oldEntries = entriesOf(older, oldFact, uncertain);
    const auto newEntries = entriesOf(newer, newFact, uncertain);
    if (!oldEntries || !newEntries)
        return std::nullopt;
    return EntryChange {entriesWithout(*newEntries, *oldEntries), entriesWithout(*oldEntries, *newEntries)};
}

QStringList entriesWithout(const QStringList &list, const QStringList &other)
{
    QHash<QString, int> counts;
    for (const QString &entry : other)
        ++counts[entry];
    QStringList result;
    for (const QString &entry : list) {
        if (--counts[entry] < 0)
            result += entry;
    }
    return result;
}

bool isLargeChange(quint64 oldFree, quint64 oldTotal, quint64 newFree, quint64 newTotal)
{
    if (isNearlyFull(oldFree, oldTotal) != isNearlyFull(newFree, newTotal))
        return true;
    const quint64 difference = std::max(oldFree, newFree) - std::min(oldFree, newFree);
    return double(difference) > double(std::max(oldTotal, newTotal)) * largeChangeShare;
}

} // namespace Reports
} // namespace velkor
