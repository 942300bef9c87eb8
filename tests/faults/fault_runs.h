// Runs of a whole report on described machines of which calls fail or which change,
// by the library and as the format has it.
#pragma once

#include "described_calls.h"
#include "simulated_windows.h"

#include <QtCore/QStringList>

/// A copy that shares no key with \a machine.
machine::Machine copyOf(const machine::Machine &machine);

/// The key of a full path, which begins with the name of its root.
std::shared_ptr<machine::RegistryKey> keyAt(machine::Machine &machine, const QString &path);

/// The machines that everything here is run on: those of machines/ and a small one
/// that has what they have not.
QStringList machineNames();
machine::Machine machineNamed(const QString &name);

/// What happens to a run.
struct Disturbance
{
    std::map<std::size_t, quint32> failures; // errors by the number of the call
    std::function<void(std::size_t number, machine::Machine &machine)> beforeCall = nullptr;
    bool failuresWriteResults = false; // a call that fails does everything else as if it succeeded
};

/// What a run leaves behind. The text is the Windows half, the details of each adapter
/// and of one that there is not, and the OpenGL drivers.
struct Outcome
{
    QString text;
    QStringList calls; // each with what it is about
    QStringList openHandles;
    QStringList warnings;
    QString problem; // of handles and memory; only of the library's runs
};

/// By the library. The journal of the simulated Windows is that of this run.
/// \a machine is changed where the disturbance changes it.
Outcome libraryRun(machine::Machine &machine, const Disturbance &disturbance = {});
/// By the format.
Outcome expectedRun(machine::Machine &machine, const Disturbance &disturbance = {});

/// Empty when both are the same, the text first.
QString difference(const Outcome &actual, const Outcome &expected);

/// What no failure explains in \a text, of which \a faultless is what it is without
/// any: a heading or separator that is missing or out of place, a line that is neither
/// one of the faultless text nor one that a failure leaves. Empty when all is explained.
QString unexplained(const QString &text, const QString &faultless);

/// The errors that a call of that name can give.
std::vector<quint32> errorsOf(const QByteArray &call);

/// Sanitizers make everything some ten times slower: less of the same then.
#if defined(__SANITIZE_ADDRESS__)
constexpr bool sanitized = true;
#else
constexpr bool sanitized = false;
#endif
