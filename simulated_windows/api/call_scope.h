// Counts a simulated call, applies faults and trouble to it and records it.
#pragma once

#include "simulated_windows.h"

#include <windows.h>

namespace simulated {

/// The key and the value that the journal records for a call.
struct CallObject
{
    QString key;
    QString value;
};

/// Counts a call and runs the function of setBeforeCall(). This function may change the machine,
/// so a call whose object depends on the machine begins before it determines the object.
class BegunCall
{
public:
    explicit BegunCall(const char *name);
    BegunCall(const BegunCall &) = delete;
    BegunCall &operator=(const BegunCall &) = delete;

    const QByteArray &name() const { return m_name; }

private:
    QByteArray m_name;
};

/// Faults and trouble apply when the scope begins, so it needs the object. The call does nothing
/// before.
class CallScope
{
public:
    CallScope(const BegunCall &begun, CallObject object);
    CallScope(const char *name, CallObject object) : CallScope(BegunCall(name), std::move(object)) { }
    ~CallScope();
    CallScope(const CallScope &) = delete;
    CallScope &operator=(const CallScope &) = delete;

    /// The journal entry of this call. Name, key and value stay as they are.
    Call call;

    /// The error of a fault. The call must return it before it does anything.
    const std::optional<DWORD> &fault() const { return m_fault; }
    /// The error of a fault that applies after the call has written its results; status()
    /// and success() return it.
    const std::optional<DWORD> &lateFault() const { return m_lateFault; }
    /// Either of them, for calls that write no results.
    const std::optional<DWORD> &anyFault() const { return m_fault ? m_fault : m_lateFault; }

    /// For calls that return their error.
    LSTATUS status(DWORD error);
    /// For calls that return zero and set the last error.
    BOOL failure(DWORD error);
    /// For calls that return a nonzero result.
    template <typename T>
    T success(T result)
    {
        if (m_lateFault)
            return T(failure(*m_lateFault));
        call.result = static_cast<qint64>(result);
        return result;
    }

private:
    std::optional<DWORD> m_fault;
    std::optional<DWORD> m_lateFault;
};

/// The mode that SetErrorMode() set last.
UINT &errorMode();

} // namespace simulated
