#include "installed_machine.h"

#include "simulated_windows.h"
#include "win/windows_sections.h"

namespace {

constexpr std::size_t mostCalls = 60000; // after that many, every enumeration ends

simulated::Fault faultOf(const CallFault &fault)
{
    if (fault.call.isEmpty())
        return simulated::Fault::nthOfAll(fault.number, fault.error);
    if (fault.every)
        return simulated::Fault::everyCall(fault.call, fault.error);
    return simulated::Fault::nthCall(fault.call, fault.number, fault.error);
}

} // namespace

InstalledMachine::InstalledMachine(HostileMachine hostile) : m_changes(std::move(hostile.changes))
{
    simulated::reset();
    simulated::install(std::move(hostile.machine));
    for (const CallFault &fault : hostile.faults)
        m_faults.push_back(faultOf(fault));
    simulated::setBeforeCall([this](std::size_t number, const QByteArray &) { beforeCall(number); });
}

InstalledMachine::~InstalledMachine()
{
    m_faults.clear();
    simulated::reset();
    simulated::installNothing();
}

void InstalledMachine::beforeCall(std::size_t number)
{
    for (const Change &change : m_changes) {
        if (change.beforeCall == number)
            takeSteps(change.steps, simulated::machineInUse());
    }
    if (number < mostCalls || m_limitedAt != 0)
        return;
    m_limitedAt = number;
    constexpr quint32 noMoreItems = 259; // ERROR_NO_MORE_ITEMS
    for (const char *call : {"RegEnumKeyExA", "RegEnumKeyExW", "RegEnumKeyA", "RegEnumValueA"})
        m_faults.push_back(simulated::Fault::everyCall(call, noMoreItems));
}

QString windowsHalfOf(const QByteArray &bytes)
{
    const InstalledMachine installed(hostileMachine(bytes));
    return velkor::SystemInfo::WinSysInfo::allWinInfos();
}
