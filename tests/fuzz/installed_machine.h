// Installs a hostile machine, so that the report can be made on it.
#pragma once

#include "hostile_machine.h"

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <cstddef>
#include <vector>

namespace simulated {
class Fault;
}

/// The machine with its faults and changes, in use until the end of the object's life. One at a time.
class InstalledMachine
{
public:
    explicit InstalledMachine(HostileMachine hostile);
    ~InstalledMachine();
    InstalledMachine(const InstalledMachine &) = delete;
    InstalledMachine &operator=(const InstalledMachine &) = delete;

    /// The number of calls after which every enumeration was ended, or 0. If keys are opened by
    /// other names than their own, the number of calls grows with the square of the number of keys.
    std::size_t limitedAt() const { return m_limitedAt; }

private:
    void beforeCall(std::size_t number);

    std::vector<Change> m_changes;
    std::vector<simulated::Fault> m_faults;
    std::size_t m_limitedAt = 0;
};

/// The Windows half of the report on the machine that \a bytes describe.
QString windowsHalfOf(const QByteArray &bytes);
