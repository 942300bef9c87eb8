// Steers the simulated Windows: which machine it is, what it is asked, what fails.
//
// The calls themselves are those of windows.h. All state is one per process and is
// meant for one thread, as the library is.
#pragma once

#include "machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>
#include <functional>
#include <optional>
#include <vector>

namespace simulated {

/// One call as the caller made it and as it was answered.
struct Call
{
    QByteArray name;
    QString key;         // registry calls: the full path; others: what they are asked about
    QString value;       // registry calls: the value's name, or the index of an enumeration
    quint32 access = 0;  // RegOpenKeyEx: the access mask; others: flags, 0 where there are none
    quint64 sizeIn = 0;  // the in/out size as the caller set it
    quint64 sizeOut = 0; // and as the call left it
    qint64 result = 0;
    QStringList given; // optional arguments that are not null, by name; where sections pass null
};

/// Makes \a machine the one that answers. Handles that are still open stay so.
void install(machine::Machine machine);

/// Knows nothing from now on: every call fails.
void installNothing();

/// The machine in use; a test may change it under a running section. Without one,
/// the first use takes the folder that VKSYSTEMINFO_MACHINE names.
machine::Machine &machineInUse();
bool knowsMachine();

/// Forgets handles, journal, faults and error state, and records from now on.
void reset();

/// Records no more. What was recorded stays.
void stopRecording();

/// Every call since reset().
const std::vector<Call> &journal();

/// How many calls were made in this process.
std::size_t callCount();

/// One line for each handle that is open, what it was opened for.
QStringList openHandles();

/// Uses of a handle that was never given out or is closed already.
QStringList handleMisuses();

/// Called before every call with its number (from 0, since reset()) and its name.
void setBeforeCall(std::function<void(std::size_t number, const QByteArray &name)> hook);

/// What a call does before it fails.
enum class BeforeFailing {
    Nothing,
    WritesResults, ///< As if it succeeded; RegOpenKeyEx stores a handle that is not open.
};

/// Makes calls fail for as long as it lives.
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

    /// How many calls it made fail.
    std::size_t hits() const;

private:
    explicit Fault(int id) : m_id(id) { }
    int m_id;
};

} // namespace simulated
