// Controls the simulated Windows: the machine in use, the journal of calls, faults and trouble.
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

/// Clears handles, journal, faults, trouble and error state, and starts recording. The trouble of
/// VKSYSTEMINFO_TROUBLE stays.
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

/// Something that a call does before anything else, like a driver or a library with a defect.
struct TroubleKind
{
    enum Event {
        Sleep, ///< For that many milliseconds; then the call goes on as usual.
        Hang,  ///< Never returns and uses no processor time.
        Crash, ///< SIGSEGV with its default action, also if the process handles the signal.
        Abort, ///< SIGABRT, in the same way.
        Exit,  ///< Ends the process with that code, at once: no destructor runs, no stream is flushed.
    };

    static TroubleKind sleep(quint32 milliseconds) { return {Sleep, milliseconds}; }
    static TroubleKind hang() { return {Hang, 0}; }
    static TroubleKind crash() { return {Crash, 0}; }
    static TroubleKind abort() { return {Abort, 0}; }
    static TroubleKind exit(quint8 code) { return {Exit, code}; }

    Event event;
    quint32 number; // milliseconds or exit code
};

/// Calls with this name, key and value, which are those of the journal. What is not given matches
/// every call.
struct CallPattern
{
    std::optional<QByteArray> name = std::nullopt;
    std::optional<QString> key = std::nullopt;
    std::optional<QString> value = std::nullopt;
};

/// Makes calls sleep, hang, crash or end the process while it exists. If several objects match a
/// call, the first applies. A call that sleeps may also have a fault.
///
/// The file that VKSYSTEMINFO_TROUBLE names causes trouble in the whole process (trouble_file.h).
class Trouble
{
public:
    /// Every call of that name.
    static Trouble everyCall(const QByteArray &name, TroubleKind kind);
    /// Every call that matches.
    static Trouble everyCall(const CallPattern &calls, TroubleKind kind);
    /// The call of that name with that number, counted from 0 from now on.
    static Trouble nthCall(const QByteArray &name, std::size_t number, TroubleKind kind);
    /// The call with that number, whatever its name, counted from 0 from now on.
    static Trouble nthOfAll(std::size_t number, TroubleKind kind);

    Trouble(Trouble &&other) noexcept;
    Trouble &operator=(Trouble &&) = delete;
    ~Trouble();

    /// The number of calls that it applied to.
    std::size_t hits() const;

private:
    explicit Trouble(int id) : m_id(id) { }
    int m_id;
};

} // namespace simulated
