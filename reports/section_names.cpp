#include "section_names.h"

#include "vkReports.h"

#include <algorithm>
#include <cstdlib>
#include <set>
#include <utility>

namespace velkor {
namespace Reports {

namespace {

/// Longer texts are not compared letter by letter: the time grows with their length.
constexpr int longestText = 100;
/// Shorter texts are parts of too many names.
constexpr int shortestText = 3;
/// With more than one error in so many letters a text is another word.
constexpr int lettersPerError = 3;

/// Without the signs around it: "#### QGLFormat #### " is "QGLFormat".
QString withoutDecoration(const QString &text)
{
    const auto isDecoration = [](QChar c) { return c.isSpace() || c == QLatin1Char('#') || c == QLatin1Char('>') || c == QLatin1Char(':'); };
    int begin = 0;
    int end = text.size();
    while (begin < end && isDecoration(text.at(begin)))
        ++begin;
    while (begin < end && isDecoration(text.at(end - 1)))
        --end;
    return text.mid(begin, end - begin).simplified();
}

QString nameOf(int section)
{
    return QString::fromUtf8(sectionRows()[std::size_t(section)].name);
}

/// The ways to call a section, in lower case.
QStringList spellings(int section)
{
    const SectionRow &row = sectionRows()[std::size_t(section)];
    const QString name = QString::fromUtf8(row.name);
    return {name.toLower(), name.section(QLatin1Char(':'), 0, 0).toLower(), sectionTitle(section).toLower(),
            QString::fromUtf8(row.heading).simplified().toLower()};
}

/// Counts the letters of \a text to insert, remove, replace, or swap with the next one, so that it
/// becomes a part of \a name.
int errorsAsPart(const QString &text, const QString &name)
{
    std::vector<int> beforeLast;
    std::vector<int> last(std::size_t(name.size()) + 1, 0); // the part can begin anywhere
    for (int i = 1; i <= text.size(); ++i) {
        std::vector<int> current(last.size());
        current[0] = i;
        for (int j = 1; j <= name.size(); ++j) {
            const std::size_t k = std::size_t(j);
            const bool equal = text.at(i - 1) == name.at(j - 1);
            current[k] = std::min({last[k] + 1, current[k - 1] + 1, last[k - 1] + (equal ? 0 : 1)});
            if (i > 1 && j > 1 && text.at(i - 1) == name.at(j - 2) && text.at(i - 2) == name.at(j - 1))
                current[k] = std::min(current[k], beforeLast[k - 2] + 1);
        }
        beforeLast = std::move(last);
        last = std::move(current);
    }
    return *std::min_element(last.begin(), last.end());
}

} // namespace

QString sectionTitle(int section)
{
    const QString title = withoutDecoration(QString::fromUtf8(sectionRows()[std::size_t(section)].heading));
    return title.isEmpty() ? nameOf(section) : title;
}

std::vector<int> resolveSection(const QString &text)
{
    const QString wanted = text.simplified().toLower();
    std::vector<int> found;
    if (wanted.isEmpty())
        return found;
    for (int section = 0; section < int(sectionRows().size()); ++section) {
        if (spellings(section).contains(wanted))
            found.push_back(section);
    }
    return found;
}

QString nearestSection(const QString &text)
{
    const QString wanted = withoutDecoration(text).toLower();
    if (wanted.size() < shortestText || wanted.size() > longestText)
        return {};
    int nearest = -1;
    // First the number of errors, then the difference of the lengths.
    std::pair<int, int> least(wanted.size() / lettersPerError + 1, 0);
    for (int section = 0; section < int(sectionRows().size()); ++section) {
        const QStringList all = spellings(section);
        for (const QString &spelling : all) {
            const std::pair<int, int> found(errorsAsPart(wanted, spelling), std::abs(spelling.size() - wanted.size()));
            if (found < least) {
                least = found;
                nearest = section;
            }
        }
    }
    return nearest < 0 ? QString() : nameOf(nearest);
}

QString noSuchSection(const QString &text)
{
    const QString nearest = nearestSection(text);
    const QString message = QStringLiteral("there is no section '%1'").arg(text.left(longestText));
    return nearest.isEmpty() ? message : message + QStringLiteral("; the nearest name is '%1'").arg(nearest);
}

std::vector<int> resolveSections(const QStringList &texts, QString &error)
{
    std::set<int> sections;
    for (const QString &text : texts) {
        const std::vector<int> found = resolveSection(text);
        if (found.empty()) {
            error = noSuchSection(text);
            return {};
        }
        sections.insert(found.begin(), found.end());
    }
    return {sections.begin(), sections.end()};
}

} // namespace Reports
} // namespace velkor
