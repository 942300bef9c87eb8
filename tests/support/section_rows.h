// Tests of a section as a table: a row describes a machine and states the text of the
// section there, or the calls that the section makes.
//
// Rows of texts run on every platform. Away from Windows they also fail when the section
// leaves a handle open or misuses one. Rows of calls and of failing calls need the
// simulated Windows and are not added elsewhere.
#pragma once

#include <windows.h> // before machine.h, whose members have names of its macros

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

/// Adds rows to the test that is about to run.
class SectionRows
{
public:
    using Section = std::function<QString()>;

    /// \a title starts each text of the section; rows state what follows it.
    SectionRows(Section section, const QString &title) : m_section(std::move(section)), m_title(title) { }

    void text(const QString &name, const Described &described, const QString &lines) const;
    /// The text of the folder machines/workstation, as tests/golden has it in \a file.
    void workstation(const QString &file) const;
    /// The text when no machine is described: every call fails.
    void withoutMachine(const QString &lines) const;
    /// \a journal has a line for each call, as journalText().
    void calls(const QString &name, const Described &described, const QString &journal) const;
    /// The text while the call \a name of that \a number, from 0, fails with \a error.
    void failure(const QString &name, const Described &described, const QByteArray &call, int number, const QString &lines,
                 DWORD error = ERROR_ACCESS_DENIED) const;
    /// A row for each of \a lines: its call fails, and it alone is missing. The calls follow
    /// each other, from \a first on; \a names are those of the rows, where not their number.
    void failures(const Described &described, const QByteArray &call, int first, const QStringList &lines,
                  const QStringList &names = {}, const QString &before = {}, const QString &behind = {}) const;
    /// What holds for a section that shows values of one key: texts with and without the
    /// key, calls, and each call failing. \a values are in the description, \a queries as for
    /// keyCalls(), and \a lines show them in the same order.
    void valuesOfKey(const QString &path, const QByteArray &values, const QStringList &queries, const QStringList &lines,
                     const QStringList &failureNames = {}, REGSAM access = KEY_READ) const;
    /// Each call fails in turn: the title stays, and every handle is closed.
    void anyFailure(const QString &name, const Described &described) const;

private:
    Section m_section;
    QString m_title;
};

// Lines of a journal: opening \a key; also querying values and closing it. A query is
// "NAME SIZE".
QString openCall(const QString &key, REGSAM access = KEY_READ);
QString keyCalls(const QString &key, const QStringList &queries, REGSAM access = KEY_READ);

#ifdef SIMULATED_WINDOWS
/// A line for each call since the machine was put in place: its name, the key or file, the
/// value in quotation marks, the access mask, the size that the caller set, and optional
/// arguments that are not null.
QString journalText();
/// What is wrong with the handles of the section that ran: open ones, misused ones.
QString handleProblems();
#endif
