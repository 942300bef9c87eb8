#include "section_titles.h"

#include "labels.h"
#include "section_names.h"
#include "shown_text.h"

#include <QtCore/QRegularExpression>
#include <algorithm>

using namespace velkor;

namespace {

/// The name in words for a section without heading.
QString baseTitle(int row)
{
    const QString name = QString::fromLatin1(Reports::sectionRows()[std::size_t(row)].name);
    QString title = Reports::sectionTitle(row);
    if (title != name)
        return title;
    QString words = Reports::words(name.section(QLatin1Char(':'), 0, 0));
    words[0] = words.at(0).toUpper();
    return words;
}

/// Without words that many headings share: "Info about drivers from registry" is "Drivers".
QString shortened(const QString &title)
{
    static const QRegularExpression begin(QStringLiteral("^Info about "));
    static const QRegularExpression end(QStringLiteral(" from [Rr]egistry$| \\(\\w+::\\w+\\(\\)\\)$"));
    QString text = title;
    text.remove(begin).remove(end).remove(QLatin1Char('\''));
    if (text.isEmpty())
        return title;
    text[0] = text.at(0).toUpper();
    return text;
}

std::vector<QString> makeTitles()
{
    const int count = int(Reports::sectionRows().size());
    std::vector<QString> bases;
    bases.reserve(std::size_t(count));
    for (int row = 0; row < count; ++row)
        bases.push_back(baseTitle(row));
    std::vector<QString> titles;
    titles.reserve(bases.size());
    for (const QString &base : bases)
        titles.push_back(shortened(base));
    const std::vector<QString> allShort = titles;
    for (std::size_t row = 0; row < titles.size(); ++row) {
        if (std::count(allShort.begin(), allShort.end(), titles[row]) > 1)
            titles[row] = bases[row];
    }
    for (int row = 0; row < count; ++row) {
        const QString argument = QString::fromLatin1(Reports::sectionRows()[std::size_t(row)].name).section(QLatin1Char(':'), 1);
        if (!argument.isEmpty() && std::count(bases.begin(), bases.end(), bases[std::size_t(row)]) > 1)
            titles[std::size_t(row)] += QStringLiteral(" (%1)").arg(argument);
    }
    return titles;
}

/// A number or a letter says nothing without its kind.
bool needsKind(const QString &text)
{
    return text.size() == 1 || std::all_of(text.begin(), text.end(), [](QChar c) { return c.isDigit(); });
}

} // namespace

QString shownSectionTitle(int row)
{
    static const std::vector<QString> titles = makeTitles();
    return titles[std::size_t(row)];
}

QString shownItemTitle(const Reports::Document &document, int item)
{
    const Reports::Item &place = document.items()[std::size_t(item)];
    QString kind = Reports::words(QString::fromLatin1(Reports::itemRows()[std::size_t(place.kind)].kind));
    const QString identity = lineText(document.identity(item));
    if (identity.isEmpty())
        return kind;
    return needsKind(identity) ? QStringLiteral("%1 %2").arg(kind, identity) : identity;
}
