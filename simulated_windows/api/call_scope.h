// Counts a simulated call, applies faults to it and records it.
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

    /// The journal entry of this call.
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
