// Controls the simulated Windows: the machine in use, the journal of calls, and faults.
//
// windows.h declares the calls. The state is global and for use by one thread, like the
// library.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace simulated {

/// One call: its arguments and its result.
struct Call
{
    QByteArray name;
    QString key;         // registry calls: the full path; others: the object of the call, such as a drive
    QString value;       // registry calls: the value's name, or the index of an enumeration
    quint32 access = 0;  // RegOpenKeyEx: the access mask; others: flags, or 0
    quint64 sizeIn = 0;  // the in/out size before the call
    quint64 sizeOut = 0; // and after the call
    qint64 result = 0;
    QStringList given; // names of optional arguments that are not null; sections pass null for all of them
};

/// Uses \a machine from now on. Open handles stay open.
void install(machine::Machine machine);

/// Uses no machine from now on: every call fails.
void installNothing();

/// The machine in use. A test may change it while a section runs. If neither install() nor
/// installNothing() was called, the first use loads the folder that VKSYSTEMINFO_MACHINE names.
machine::Machine &machineInUse();
/// Returns whether there is a machine, and loads it like machineInUse().
bool knowsMachine();

/// Clears handles, journal, faults and error state, and starts recording.
void reset();

/// Stops recording. The journal keeps its calls.
void stopRecording();

/// The calls recorded since reset().
const std::vector<Call> &journal();

/// The number of calls since reset() or the start of the process, recorded or not.
std::size_t callCount();

/// The key or library of each open handle.
QStringList openHandles();

/// Uses of handles that never existed or are closed.
QStringList handleMisuses();

/// \a hook is called before every call, with the number of the call (from 0, since reset())
/// and its name.
void setBeforeCall(std::function<void(std::size_t number, const QByteArray &name)> hook);

/// What a call does before it fails.
enum class BeforeFailing {
    Nothing,
    WritesResults, ///< As if it succeeded; RegOpenKeyEx stores a handle that is not open.
};

/// Makes calls fail while it exists.
class Fault
{
public:
    /// Every call of that name.
    static Fault everyCall(const QByteArray &name, quint32 error, BeforeFailing before = BeforeFailing::Nothing);
    /// The call of that name with that number, counted from 0 from now on.
    static Fault nthCall(const QByteArray &name, std::size_t number, quint32 error,
                         BeforeFailing before = BeforeFailing::Nothing);
    /// The call with that number, whatever its name, counted from 0 from now on.
    static Fault nthOfAll(std::size_t number, quint32 error, BeforeFailing before = BeforeFailing::Nothing);

    Fault(Fault &&other) noexcept;
    Fault &operator=(Fault &&) = delete;
    ~Fault();

    /// The number of calls that it made fail.
    std::size_t hits() const;

private:
    explicit Fault(int id) : m_id(id) { }
    int m_id;
};

} // namespace simulated
