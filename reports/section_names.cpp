#include "section_names.h"

#include "vkReports.h"

#include <algorithm>
#include <numeric>
#include <set>

namespace velkor {
namespace Reports {

namespace {

/// Longer texts are not compared letter by letter: the time grows with their length.
constexpr int longestText = 100;

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

/// Counts the letters to insert, remove, replace, or swap with the next one.
int editDistance(const QString &a, const QString &b)
{
    std::vector<int> beforeLast;
    std::vector<int> last(std::size_t(b.size()) + 1);
    std::iota(last.begin(), last.end(), 0);
    for (int i = 1; i <= a.size(); ++i) {
        std::vector<int> current(last.size());
        current[0] = i;
        for (int j = 1; j <= b.size(); ++j) {
            const std::size_t k = std::size_t(j);
            const bool equal = a.at(i - 1) == b.at(j - 1);
            current[k] = std::min({last[k] + 1, current[k - 1] + 1, last[k - 1] + (equal ? 0 : 1)});
            if (i > 1 && j > 1 && a.at(i - 1) == b.at(j - 2) && a.at(i - 2) == b.at(j - 1))
                current[k] = std::min(current[k], beforeLast[k - 2] + 1);
        }
        beforeLast = std::move(last);
        last = std::move(current);
    }
    return last.back();
}

/// Smaller is more similar. A part of the name, "memory", is more similar than any typo.
int distance(const QString &text, const QString &spelling)
{
    if (text.size() >= 3 && spelling.contains(text))
        return -longestText + spelling.indexOf(text);
    return editDistance(text, spelling);
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
    if (wanted.isEmpty() || wanted.size() > longestText)
        return {};
    int nearest = -1;
    int least = std::max(1, wanted.size() / 2); // with more errors than that the text is another word
    for (int section = 0; section < int(sectionRows().size()); ++section) {
        const QStringList all = spellings(section);
        for (const QString &spelling : all) {
            const int errors = spelling.isEmpty() ? longestText : distance(wanted, spelling);
            if (errors < least || (errors == least && nearest < 0)) {
                least = errors;
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
