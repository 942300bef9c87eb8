#include "work_text.h"

#include "section_names.h"
#include "vkReports.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QRegularExpression>
#include <algorithm>

using namespace velkor::Reports;

namespace {

struct WorkRow
{
    const char *name;
    const char *text;
};

constexpr WorkRow workRows[] = {
    {"start", QT_TRANSLATE_NOOP("Making", "Starting")},
    {"application", QT_TRANSLATE_NOOP("Making", "Starting")},
    {"allInfos", QT_TRANSLATE_NOOP("Making", "The whole report")},
    {"allInfosWithoutOpenGL", QT_TRANSLATE_NOOP("Making", "The report without OpenGL")},
};

struct ReasonRow
{
    const char *form; ///< expression for the whole text of vkreport
    const char *text; ///< %1 is the section, the others are the captures of the form
};

constexpr ReasonRow reasonRows[] = {
    {"did not end within ([0-9.]+) s", QT_TRANSLATE_NOOP("Making", "%1 is missing: it did not end within %2 s.")},
    {"crashed after ([0-9.]+) s(?: \\((.*)\\))?", QT_TRANSLATE_NOOP("Making", "%1 is missing: it crashed after %2 s.")},
    {"ended the process after ([0-9.]+) s(?: \\((.*)\\))?", QT_TRANSLATE_NOOP("Making", "%1 is missing: it ended the process after %2 s.")},
    {"could not be started", QT_TRANSLATE_NOOP("Making", "%1 is missing: it could not be started.")},
    {"not tried, .*", QT_TRANSLATE_NOOP("Making", "%1 is missing: the time limit was reached before.")},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("Making", text);
}

QString titleOf(const QString &section)
{
    const std::vector<SectionRow> &rows = sectionRows();
    const auto found = std::find_if(rows.begin(), rows.end(), [&section](const SectionRow &row) { return section == QLatin1String(row.name); });
    return found == rows.end() ? section : sectionTitle(int(found - rows.begin()));
}

} // namespace

QString workText(const QString &work)
{
    for (const WorkRow &row : workRows) {
        if (work == QLatin1String(row.name))
            return translated(row.text);
    }
    return titleOf(work);
}

QString missingText(const QString &section, const QString &reason)
{
    const QString title = titleOf(section);
    for (const ReasonRow &row : reasonRows) {
        const QRegularExpression form(QRegularExpression::anchoredPattern(QString::fromLatin1(row.form)));
        const QRegularExpressionMatch match = form.match(reason);
        if (!match.hasMatch())
            continue;
        const QString text = translated(row.text);
        return match.captured(1).isEmpty() ? text.arg(title) : text.arg(title, match.captured(1));
    }
    return translated(QT_TRANSLATE_NOOP("Making", "%1 is missing: %2.")).arg(title, reason);
}
