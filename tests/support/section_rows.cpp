#include "section_rows.h"

#include <QtCore/QFile>

#ifdef SIMULATED_WINDOWS
#  include "simulated_windows.h"
#endif

namespace {

#ifdef SIMULATED_WINDOWS

QString callText(const simulated::Call &call)
{
    QString text = QString::fromLatin1(call.name);
    if (!call.key.isEmpty())
        text += QLatin1Char(' ') + call.key;
    if (!call.value.isEmpty() || call.name.startsWith("RegQueryValue"))
        text += QStringLiteral(" \"") + call.value + QLatin1Char('"');
    if (call.access)
        text += QStringLiteral(" 0x") + QString::number(call.access, 16);
    if (call.sizeIn)
        text += QLatin1Char(' ') + QString::number(call.sizeIn);
    for (const QString &argument : call.given)
        text += QStringLiteral(" with ") + argument;
    return text;
}

/// Runs the section once for each of its calls, which fails. Returns the first problem.
QString problemOfAnyFailure(const machine::Machine &machine, const QString &heading, const SectionRows::Section &section)
{
    for (std::size_t number = 0;; ++number) {
        const DescribedWindows windows(machine);
        const simulated::Fault fault = simulated::Fault::nthOfAll(number, ERROR_ACCESS_DENIED);
        const QString text = section();
        if (fault.hits() == 0)
            return number > 0 ? QString() : QStringLiteral("no call at all");
        if (!text.startsWith(heading) || !handleProblems().isEmpty())
            return QStringLiteral("call %1 fails: ").arg(number) + handleProblems() + QLatin1Char('\n') + text;
    }
}

#else

QString handleProblems()
{
    return QString();
}

#endif

} // namespace

void SectionRows::text(const QString &name, const Described &described, const QString &lines) const
{
    addTestRow(name, [=, rows = *this] {
        const DescribedWindows windows(described.machine);
        const QString text = rows.m_section();
        COMPARE_TEXT(text + handleProblems(), rows.m_heading + lines);
    });
}

void SectionRows::workstation(const QString &file, const QString &name) const
{
    addTestRow(name, [=, section = m_section] {
        QFile golden(QStringLiteral(GOLDEN_DIR "/workstation/") + file);
        QVERIFY(golden.open(QIODevice::ReadOnly));
        const DescribedWindows windows(DescribedWindows::load(QStringLiteral("workstation")));
        COMPARE_TEXT(section(), QString::fromUtf8(golden.readAll()));
    });
}

#ifdef SIMULATED_WINDOWS

void SectionRows::withoutMachine(const QString &lines) const
{
    addTestRow(QStringLiteral("without a machine"), [=, rows = *this] {
        simulated::installNothing();
        COMPARE_TEXT(rows.m_section(), rows.m_heading + lines);
    });
}

void SectionRows::calls(const QString &name, const Described &described, const QString &journal) const
{
    addTestRow(name, [=, section = m_section] {
        const DescribedWindows windows(described.machine);
        section();
        COMPARE_TEXT(journalText() + handleProblems(), journal);
    });
}

void SectionRows::failure(const QString &name, const Described &described, const QByteArray &call, int number,
                          const QString &lines, DWORD error) const
{
    addTestRow(name, [=, rows = *this] {
        const DescribedWindows windows(described.machine);
        const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), error);
        const QString text = rows.m_section();
        COMPARE_TEXT(text + handleProblems(), rows.m_heading + lines);
        QCOMPARE(fault.hits(), std::size_t(1));
    });
}

void SectionRows::anyFailure(const QString &name, const Described &described) const
{
    addTestRow(name, [=, rows = *this] {
        QCOMPARE(problemOfAnyFailure(described.machine, rows.m_heading, rows.m_section), QString());
    });
}

QString journalText()
{
    QString text;
    for (const simulated::Call &call : simulated::journal())
        text += callText(call) + QLatin1Char('\n');
    return text;
}

QString handleProblems()
{
    QStringList problems;
    for (const QString &handle : simulated::openHandles())
        problems += QStringLiteral("still open: ") + handle;
    return (problems + simulated::handleMisuses()).join(QLatin1Char('\n'));
}

#else

void SectionRows::withoutMachine(const QString &) const
{ }

void SectionRows::calls(const QString &, const Described &, const QString &) const
{ }

void SectionRows::failure(const QString &, const Described &, const QByteArray &, int, const QString &, DWORD) const
{ }

void SectionRows::anyFailure(const QString &, const Described &) const
{ }

#endif

void SectionRows::failures(const Described &described, const QByteArray &call, int first, const QStringList &lines,
                           const QStringList &names, const QString &before, const QString &after) const
{
    for (int i = 0; i < lines.size(); ++i) {
        QStringList others = lines;
        others.removeAt(i);
        failure(names.value(i, QStringLiteral("call %1 fails: only its line is missing").arg(i)), described, call, first + i,
                before + others.join(QString()) + after);
    }
}

void SectionRows::valuesOfKey(const QString &path, const QByteArray &values, const QStringList &queries,
                              const QStringList &lines, const QStringList &failureNames, REGSAM access) const
{
    const QByteArray key = '[' + path.toLatin1() + "]\n";
    const Described full = key + values;
    text(QStringLiteral("no key: only the heading"), "", {});
    text(QStringLiteral("an empty key: only the heading"), key, {});
    text(QStringLiteral("everything, in the order of the report"), full, lines.join(QString()));
    calls(QStringLiteral("calls of a full machine"), full, keyCalls(path, queries, access));
    calls(QStringLiteral("calls without the key"), "", openCall(path, access));
    failure(QStringLiteral("the key cannot be opened"), full, "RegOpenKeyExA", 0, {});
    failures(full, "RegQueryValueExA", 0, lines, failureNames);
    failure(QStringLiteral("the key cannot be closed: the text is unchanged"), full, "RegCloseKey", 0, lines.join(QString()));
}

QString openCall(const QString &key, REGSAM access)
{
    return QStringLiteral("RegOpenKeyExA %1 0x%2\n").arg(key).arg(access, 0, 16);
}

QString keyCalls(const QString &key, const QStringList &queries, REGSAM access)
{
    QString text = openCall(key, access);
    for (const QString &query : queries) {
        const int blank = query.lastIndexOf(QLatin1Char(' '));
        text += QStringLiteral("RegQueryValueExA %1 \"%2\"%3\n").arg(key, query.left(blank), query.mid(blank));
    }
    return text + QStringLiteral("RegCloseKey %1\n").arg(key);
}
