#include "failure_list.h"

#include <QtCore/QFile>
#include <QtCore/QSet>
#include <QtCore/QtDebug>

namespace {

constexpr std::size_t shown = 30;

QString place(const Failure &failure)
{
    return failure.line > 0 ? QStringLiteral("%1 line %2").arg(failure.report).arg(failure.line) : failure.report;
}

} // namespace

/// The first failure of each kind, and then the others.
std::vector<const Failure *> FailureList::inOrder() const
{
    std::vector<const Failure *> firsts;
    std::vector<const Failure *> others;
    QSet<QString> kinds;
    for (const Failure &failure : m_failures) {
        (kinds.contains(failure.kind) ? others : firsts).push_back(&failure);
        kinds += failure.kind;
    }
    firsts.insert(firsts.end(), others.begin(), others.end());
    return firsts;
}

void FailureList::add(const QString &report, int line, const QString &kind, const QString &what)
{
    m_failures.push_back({report, line, kind, what});
}

void FailureList::show(const char *name, const QMap<QString, int> &of) const
{
    if (qEnvironmentVariableIsSet("PLANTED_OUTPUT"))
        write(qEnvironmentVariable("PLANTED_OUTPUT") + QLatin1Char('/') + QLatin1String(name) + QStringLiteral(".tsv"));
    QMap<QString, int> failures;
    QMap<QString, QSet<QString>> reports;
    std::size_t number = 0;
    for (const Failure *one : inOrder()) {
        const Failure &failure = *one;
        if (number++ < shown)
            qInfo("%s: %s: %s: %s", name, qPrintable(place(failure)), qPrintable(failure.kind),
                  qUtf8Printable(failure.what));
        ++failures[failure.kind];
        reports[failure.kind] += failure.report;
    }
    if (m_failures.size() > shown)
        qInfo("%s: and %d more", name, int(m_failures.size() - shown));
    for (auto kind = failures.cbegin(); kind != failures.cend(); ++kind) {
        const QString total = of.contains(kind.key()) ? QStringLiteral(" of %1").arg(of.value(kind.key())) : QString();
        qInfo("%s: %5d  %s, in %d%s reports", name, kind.value(), qPrintable(kind.key()), reports[kind.key()].size(),
              qPrintable(total));
    }
}

void FailureList::write(const QString &fileName) const
{
    QFile file(fileName);
    if (!file.open(QIODevice::WriteOnly))
        return;
    for (const Failure &failure : m_failures) {
        const QString what = QString(failure.what).replace(QLatin1Char('\n'), QStringLiteral("\\n"));
        file.write(QStringList {failure.report, QString::number(failure.line), failure.kind, what}
                       .join(QLatin1Char('\t'))
                       .toUtf8()
                   + '\n');
    }
}
