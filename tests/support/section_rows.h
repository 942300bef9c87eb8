// Tests of a section as rows. A row describes a machine and states the text of the
// section on it, or the calls that the section makes.
//
// Rows of texts run on every platform. With the simulated Windows they also fail if the section
// leaves a handle open or misuses one. Rows of calls and of failing calls exist only with the
// simulated Windows.
#pragma once

#include <windows.h> // must precede machine.h, some of whose members are macros of windows.h

#include "described_windows.h"
#include "registry_values.h"
#include "rows.h"
#include "texts.h"

#include <functional>

#ifdef SIMULATED_WINDOWS
constexpr bool windowsIsSimulated = true;
#else
constexpr bool windowsIsSimulated = false;
#endif

/// The machine of a row.
struct Described
{
    Described(machine::Machine described) : machine(std::move(described)) { }
    /// registry.reg without its first line, and system.json.
    Described(const QByteArray &registry, const QByteArray &system = "{}")
        : machine(DescribedWindows::parse(registry, system))
    { }
    Described(const char *registry, const QByteArray &system = "{}") : Described(QByteArray(registry), system) { }

    machine::Machine machine;
};

/// Adds rows to the current test.
class SectionRows
{
public:
    using Section = std::function<QString()>;

    /// Each text of the section starts with \a heading; rows state the lines after it.
    SectionRows(Section section, const QString &heading) : m_section(std::move(section)), m_heading(heading) { }

    void text(const QString &name, const Described &described, const QString &lines) const;
    /// The text on machines/workstation, compared with \a file of tests/golden/workstation.
    void workstation(const QString &file, const QString &name = QStringLiteral("workstation")) const;
    /// The text if no machine is described: every call fails.
    void withoutMachine(const QString &lines) const;
    /// The calls of the section, compared with \a journal in the form of journalText().
    void calls(const QString &name, const Described &described, const QString &journal) const;
    /// The text if the call \a call with the number \a number, counted from 0, fails with \a error.
    void failure(const QString &name, const Described &described, const QByteArray &call, int number, const QString &lines,
                 DWORD error = ERROR_ACCESS_DENIED) const;
    /// A row for each of \a lines: if the call of the line fails, only the line is missing. The calls
    /// have consecutive numbers from \a first. A row without a name in \a names gets its number.
    void failures(const Described &described, const QByteArray &call, int first, const QStringList &lines,
                  const QStringList &names = {}, const QString &before = {}, const QString &after = {}) const;
    /// Rows for a section that shows the values of one key: texts with and without the key, calls,
    /// and each call failing. \a values are lines of registry.reg. \a queries have the form of
    /// keyCalls(), and \a lines are the lines of the section in the same order.
    void valuesOfKey(const QString &path, const QByteArray &values, const QStringList &queries, const QStringList &lines,
                     const QStringList &failureNames = {}, REGSAM access = KEY_READ) const;
    /// Each call fails in turn: the heading stays, and the section closes every handle.
    void anyFailure(const QString &name, const Described &described) const;

private:
    Section m_section;
    QString m_heading;
};

// Lines of a journal. openCall() opens \a key; keyCalls() also queries values and closes the key.
// A query is "NAME SIZE".
QString openCall(const QString &key, REGSAM access = KEY_READ);
QString keyCalls(const QString &key, const QStringList &queries, REGSAM access = KEY_READ);

#ifdef SIMULATED_WINDOWS
/// A line for each call since the machine was installed: its name, the key or file, the
/// value in quotation marks, the access mask, the size that the caller passed, and the optional
/// arguments that are not null.
QString journalText();
/// The handles that the section left open or misused, one on each line.
QString handleProblems();
#endif
