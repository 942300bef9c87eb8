// What every simulated call does first and last: count, fail on demand, be recorded.
#pragma once

#include "simulated_windows.h"

#include <windows.h>

namespace simulated {

class CallScope
{
public:
    explicit CallScope(const char *name);
    ~CallScope();
    CallScope(const CallScope &) = delete;
    CallScope &operator=(const CallScope &) = delete;

    /// What goes into the journal.
    Call call;

    /// The error that a fault makes this call fail with before it does anything.
    const std::optional<DWORD> &fault() const { return m_fault; }
    /// The error that a fault makes it fail with after it has written its results;
    /// status() and success() return it.
    const std::optional<DWORD> &lateFault() const { return m_lateFault; }
    /// Either of them, for calls that write no results.
    const std::optional<DWORD> &anyFault() const { return m_fault ? m_fault : m_lateFault; }

    /// For calls that return their error.
    LSTATUS status(DWORD error);
    /// For calls that return zero and set the last error.
    BOOL failure(DWORD error);
    /// For calls that return something else than zero.
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

/// What SetErrorMode() set last.
UINT &errorMode();

} // namespace simulated
