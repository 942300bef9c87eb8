#include "call_scope.h"

#include "handle_table.h"

#include <algorithm>

namespace simulated {
namespace {

struct ArmedFault
{
    int id;
    QByteArray name; // empty: any
    std::optional<std::size_t> number;
    quint32 error;
    BeforeFailing before;
    std::size_t seen = 0;
    std::size_t hits = 0;
};

struct State
{
    std::vector<Call> journal;
    std::vector<ArmedFault> faults;
    std::function<void(std::size_t, const QByteArray &)> beforeCall;
    std::size_t calls = 0;
    int lastFaultId = 0;
    UINT errorMode = 0;
    bool recording = false;
};

State &state()
{
    static State theState;
    return theState;
}

thread_local DWORD lastError = ERROR_SUCCESS;

/// Counts the call for each fault and returns the first that applies to it, or null.
const ArmedFault *faultFor(const QByteArray &name)
{
    const ArmedFault *result = nullptr;
    for (ArmedFault &fault : state().faults) {
        if (!fault.name.isEmpty() && fault.name != name)
            continue;
        const std::size_t number = fault.seen++;
        if (result || (fault.number && *fault.number != number))
            continue;
        ++fault.hits;
        result = &fault;
    }
    return result;
}

int arm(const QByteArray &name, std::optional<std::size_t> number, quint32 error, BeforeFailing before)
{
    const int id = ++state().lastFaultId;
    state().faults.push_back({id, name, number, error, before});
    return id;
}

} // namespace

CallScope::CallScope(const char *name)
{
    call.name = name;
    const std::size_t number = state().calls++;
    if (state().beforeCall)
        state().beforeCall(number, call.name);
    if (const ArmedFault *fault = faultFor(call.name))
        (fault->before == BeforeFailing::Nothing ? m_fault : m_lateFault) = fault->error;
}

CallScope::~CallScope()
{
    if (state().recording)
        state().journal.push_back(std::move(call));
}

LSTATUS CallScope::status(DWORD error)
{
    if (error == ERROR_SUCCESS && m_lateFault)
        error = *m_lateFault;
    call.result = LSTATUS(error);
    return LSTATUS(error);
}

BOOL CallScope::failure(DWORD error)
{
    call.result = 0;
    lastError = error;
    return FALSE;
}

UINT &errorMode()
{
    return state().errorMode;
}

void reset()
{
    State fresh;
    fresh.lastFaultId = state().lastFaultId;
    fresh.recording = true;
    state() = std::move(fresh);
    handles().clear();
    lastError = ERROR_SUCCESS;
}

void stopRecording()
{
    state().recording = false;
}

const std::vector<Call> &journal()
{
    return state().journal;
}

std::size_t callCount()
{
    return state().calls;
}

void setBeforeCall(std::function<void(std::size_t, const QByteArray &)> hook)
{
    state().beforeCall = std::move(hook);
}

Fault Fault::everyCall(const QByteArray &name, quint32 error, BeforeFailing before)
{
    return Fault(arm(name, std::nullopt, error, before));
}

Fault Fault::nthCall(const QByteArray &name, std::size_t number, quint32 error, BeforeFailing before)
{
    return Fault(arm(name, number, error, before));
}

Fault Fault::nthOfAll(std::size_t number, quint32 error, BeforeFailing before)
{
    return Fault(arm(QByteArray(), number, error, before));
}

Fault::Fault(Fault &&other) noexcept
    : m_id(other.m_id)
{
    other.m_id = 0;
}

Fault::~Fault()
{
    auto &faults = state().faults;
    faults.erase(std::remove_if(faults.begin(), faults.end(), [&](const ArmedFault &fault) { return fault.id == m_id; }),
                 faults.end());
}

std::size_t Fault::hits() const
{
    for (const ArmedFault &fault : state().faults) {
        if (fault.id == m_id)
            return fault.hits;
    }
    return 0;
}

} // namespace simulated

// These two calls cannot fail and are not recorded.
DWORD GetLastError()
{
    return simulated::lastError;
}

void SetLastError(DWORD error)
{
    simulated::lastError = error;
}
