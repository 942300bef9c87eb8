#include "call_scope.h"

#include "armed_effects.h"
#include "handle_table.h"
#include "trouble.h"
#include "trouble_file.h"

#include <utility>

namespace simulated {
namespace {

struct Failure
{
    quint32 error;
    BeforeFailing before;
};

struct State
{
    std::vector<Call> journal;
    ArmedEffects<Failure> faults;
    ArmedEffects<TroubleKind> troubles;
    std::function<void(std::size_t, const QByteArray &)> beforeCall;
    std::size_t calls = 0;
    UINT errorMode = 0;
    bool recording = false;
};

State &state()
{
    static State theState;
    return theState;
}

thread_local DWORD lastError = ERROR_SUCCESS;

/// Read at the first call of the process.
ArmedEffects<TroubleKind> &troublesOfEnvironment()
{
    static ArmedEffects<TroubleKind> theTroubles = [] {
        ArmedEffects<TroubleKind> result;
        for (const TroubleLine &line : troubleLinesOfEnvironment())
            result.add(line.calls, std::nullopt, line.kind);
        return result;
    }();
    return theTroubles;
}

void applyTrouble(const Call &call)
{
    const std::optional<TroubleKind> armed = state().troubles.apply(call);
    const std::optional<TroubleKind> ofEnvironment = troublesOfEnvironment().apply(call);
    if (armed)
        happen(*armed);
    else if (ofEnvironment)
        happen(*ofEnvironment);
}

} // namespace

BegunCall::BegunCall(const char *name)
    : m_name(name)
{
    const std::size_t number = state().calls++;
    if (state().beforeCall)
        state().beforeCall(number, m_name);
}

CallScope::CallScope(const BegunCall &begun, CallObject object)
{
    call.name = begun.name();
    call.key = std::move(object.key);
    call.value = std::move(object.value);
    if (const auto failure = state().faults.apply(call))
        (failure->before == BeforeFailing::Nothing ? m_fault : m_lateFault) = failure->error;
    applyTrouble(call);
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
    return Fault(state().faults.add({name}, std::nullopt, {error, before}));
}

Fault Fault::nthCall(const QByteArray &name, std::size_t number, quint32 error, BeforeFailing before)
{
    return Fault(state().faults.add({name}, number, {error, before}));
}

Fault Fault::nthOfAll(std::size_t number, quint32 error, BeforeFailing before)
{
    return Fault(state().faults.add({}, number, {error, before}));
}

Fault::Fault(Fault &&other) noexcept
    : m_id(std::exchange(other.m_id, 0))
{
}

Fault::~Fault()
{
    state().faults.remove(m_id);
}

std::size_t Fault::hits() const
{
    return state().faults.hits(m_id);
}

Trouble Trouble::everyCall(const QByteArray &name, TroubleKind kind)
{
    return everyCall(CallPattern {name}, kind);
}

Trouble Trouble::everyCall(const CallPattern &calls, TroubleKind kind)
{
    return Trouble(state().troubles.add(calls, std::nullopt, kind));
}

Trouble Trouble::nthCall(const QByteArray &name, std::size_t number, TroubleKind kind)
{
    return Trouble(state().troubles.add({name}, number, kind));
}

Trouble Trouble::nthOfAll(std::size_t number, TroubleKind kind)
{
    return Trouble(state().troubles.add({}, number, kind));
}

Trouble::Trouble(Trouble &&other) noexcept
    : m_id(std::exchange(other.m_id, 0))
{
}

Trouble::~Trouble()
{
    state().troubles.remove(m_id);
}

std::size_t Trouble::hits() const
{
    return state().troubles.hits(m_id);
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
