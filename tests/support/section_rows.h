// Table-driven tests of a section. A row has a machine and the expected text or the expected calls.
//
// Rows of texts run on every platform. With the simulated Windows they also fail if the section
// leaves a handle open, closes one twice or uses an invalid one. Rows of calls and of failing calls
// exist only with the simulated Windows.
#pragma once

#include <windows.h> // must precede machine.h: some of its identifiers (GetVersionEx) are macros of windows.h

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

/// A machine, or the contents of its two files. Converts implicitly.
struct Described
{
    Described(machine::Machine described) : machine(std::move(described)) { }
    /// \a registry: registry.reg without its first line. \a system: system.json.
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

    /// Each text of the section starts with \a heading. Rows have only the lines after it.
    SectionRows(Section section, const QString &heading) : m_section(std::move(section)), m_heading(heading) { }

    /// Adds a row: the expected text on \a described is the heading followed by \a lines.
    void text(const QString &name, const Described &described, const QString &lines) const;
    /// Adds a row: the text on machines/workstation, compared with \a file of tests/golden/workstation.
    void workstation(const QString &file, const QString &name = QStringLiteral("workstation")) const;
    /// Adds a row: the text if no machine is described, so every call fails.
    void withoutMachine(const QString &lines) const;
    /// Adds a row: the calls of the section, in the form of journalText(), compared with \a journal.
    void calls(const QString &name, const Described &described, const QString &journal) const;
    /// Adds a row: the text if call \a number (from 0) of the function \a call fails with \a error.
    void failure(const QString &name, const Described &described, const QByteArray &call, int number, const QString &lines,
                 DWORD error = ERROR_ACCESS_DENIED) const;
    /// Adds one row for each element of \a lines. In row i, call \a first + i of \a call fails. The text
    /// is \a before, all lines except line i, and \a after. The default row name contains i.
    void failures(const Described &described, const QByteArray &call, int first, const QStringList &lines,
                  const QStringList &names = {}, const QString &before = {}, const QString &after = {}) const;
    /// Adds the rows of a section that shows the values of one key. There are rows for: all values, an
    /// empty key, no key, the calls, and the failure of each call. \a values are lines of registry.reg.
    /// \a queries have the form of keyCalls(). \a lines are the lines of the section in the same order.
    void valuesOfKey(const QString &path, const QByteArray &values, const QStringList &queries, const QStringList &lines,
                     const QStringList &failureNames = {}, REGSAM access = KEY_READ) const;
    /// Adds a row in which each call fails in turn: the heading stays, and the section closes every handle.
    void anyFailure(const QString &name, const Described &described) const;

private:
    Section m_section;
    QString m_heading;
};

// Lines of a journal. openCall() returns the line of RegOpenKeyExA. keyCalls() returns this line, the
// lines of the queries, and the line of RegCloseKey. An element of \a queries is "VALUE_NAME SIZE".
QString openCall(const QString &key, REGSAM access = KEY_READ);
QString keyCalls(const QString &key, const QStringList &queries, REGSAM access = KEY_READ);

#ifdef SIMULATED_WINDOWS
/// A line for each call since the machine was installed. Each line has the function name, the key or
/// file, the value in quotation marks, the access mask, the size that the caller passed, and the
/// optional arguments that are not null.
QString journalText();
/// The handles that the section left open, closed twice or used although they are invalid, one on
/// each line.
QString handleProblems();
#endif
