#include "simulated_windows.h"

#include "machine_loader.h"
#include "windows_files.h"

namespace simulated {
namespace {

std::optional<machine::Machine> &current()
{
    static std::optional<machine::Machine> theMachine;
    return theMachine;
}

bool decided = false; // the machine, or none, is determined

void takeFromEnvironment()
{
    decided = true;
    const QString folder = qEnvironmentVariable("VKSYSTEMINFO_MACHINE");
    if (folder.isEmpty())
        return;
    QString error;
    current() = machine::loadMachine(folder, error);
    if (!current())
        qWarning("%s", qPrintable(error));
}

} // namespace

void install(machine::Machine machine)
{
    decided = true;
    current() = std::move(machine);
}

void installNothing()
{
    decided = true;
    current().reset();
}

bool knowsMachine()
{
    if (!decided)
        takeFromEnvironment();
    answerWindowsFiles();
    return current().has_value();
}

machine::Machine &machineInUse()
{
    static machine::Machine nothing;
    if (knowsMachine())
        return *current();
    nothing = machine::Machine();
    return nothing;
}

} // namespace simulated
