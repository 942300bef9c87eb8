// What ReportProcess needs of the system.
#pragma once

#include <QtCore/QProcess>

/// The program starts without a window of a console.
void startWithoutConsole(QProcess &process);

/// Ends vkreport together with its children.
class ProcessJob
{
public:
    ProcessJob() = default;
    ~ProcessJob() { end(); }
    Q_DISABLE_COPY(ProcessJob)

    /// Takes the process, which has just been started. On Windows vkreport can be ended while it creates a child, which would
    /// wait for ever to be resumed. On Unix a child notices the end of vkreport.
    void take(const QProcess &process);
    /// On Windows ends what still runs.
    void end();

private:
    [[maybe_unused]] quintptr m_job = 0; ///< job object of Windows
};
