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

    /// The error that a fault wants this call to fail with.
    const std::optional<DWORD> &fault() const { return m_fault; }

    /// For calls that return their error.
    LSTATUS status(DWORD error);
    /// For calls that return zero and set the last error.
    BOOL failure(DWORD error);
    /// For calls that return something else than zero.
    template <typename T>
    T success(T result)
    {
        call.result = static_cast<qint64>(result);
        return result;
    }

private:
    std::optional<DWORD> m_fault;
};

/// What SetErrorMode() set last.
UINT &errorMode();

} // namespace simulated
