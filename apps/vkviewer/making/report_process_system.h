// What ReportProcess needs of the system.
#pragma once

#include <QtCore/QProcess>

/// A process that is ended together with its children, and with this process. It opens no console.
///
/// vkreport can be ended while it starts a child. That child waits for ever for its parent: on Windows to be resumed, on
/// Linux in QProcess, which tells it its process id.
class JobProcess : public QProcess
{
public:
    JobProcess();
    ~JobProcess() override;
    Q_DISABLE_COPY(JobProcess)

    /// Must be called on the main thread: on Linux the process ends with the thread.
    void startJob(const QString &program, const QStringList &arguments);
    /// Ends the process and its children.
    void endJob();

protected:
#ifdef Q_OS_UNIX
    void setupChildProcess() override;
#endif

private:
    quintptr m_job = 0; ///< Linux: process id of this process, for the child. Windows: job object
};
