// What a section asks of a simulated Windows, as text, and sections under faults.
#pragma once

#ifdef SIMULATED_WINDOWS

#  include "described_windows.h"
#  include "simulated_windows.h"

#  include <windows.h>

/// A call: its name, the key or file it is about, the value in quotation marks, the
/// access mask or the size that the caller set, and optional arguments that are not null.
inline QString callText(const simulated::Call &call)
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

/// A line for each call since the machine was put in place.
inline QString journalText()
{
    QString text;
    for (const simulated::Call &call : simulated::journal())
        text += callText(call) + QLatin1Char('\n');
    return text;
}

/// What is wrong with the handles of the section that ran: open ones, misused ones.
inline QString handleProblems()
{
    QStringList problems;
    for (const QString &handle : simulated::openHandles())
        problems += QStringLiteral("still open: ") + handle;
    return (problems + simulated::handleMisuses()).join(QLatin1Char('\n'));
}

/// The text of \a section on \a machine while one call fails; what goes wrong beside
/// the text is told behind it.
template <typename Section>
QString textWithFailingCall(const machine::Machine &machine, const QByteArray &call, int number, Section section)
{
    const DescribedWindows windows(machine);
    const simulated::Fault fault = simulated::Fault::nthCall(call, std::size_t(number), ERROR_ACCESS_DENIED);
    const QString text = section();
    return text + (fault.hits() == 1 ? QString() : QStringLiteral("(there is no such call)")) + handleProblems();
}

/// Runs \a section once for each of its calls, which then fails. The first problem:
/// another start than \a heading or a handle left open; empty when there is none.
template <typename Section>
QString problemOfAnyFailingCall(const machine::Machine &machine, const QString &heading, Section section)
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

#endif
