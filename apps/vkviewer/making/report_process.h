// Makes a report of this machine with vkreport, which is in the folder of this program. Whatever a driver does there, this
// process goes on.
#pragma once

#include "report_messages.h"
#include "report_process_system.h"

#include <QtCore/QObject>
#include <memory>

class ReportProcess : public QObject
{
    Q_OBJECT

public:
    explicit ReportProcess(QObject *parent = nullptr);
    /// Ends what is running.
    ~ReportProcess() override;

    /// Another program than vkreport in the folder of this program.
    void setProgram(const QString &fileName) { m_program = fileName; }
    /// Seconds after which vkreport returns with what could be had; 60 if it is not set. 0 for no limit.
    void setTimeLimit(double seconds) { m_timeLimit = seconds; }
    double timeLimit() const { return m_timeLimit; }

    /// Starts vkreport, unless it is running. One of finished() and failed() follows, not before this function returns.
    void start(bool noOpenGL);
    /// Ends vkreport and its child at once, and emits failed() without a message. Does nothing if nothing is running.
    void cancel();
    bool isRunning() const { return m_process != nullptr; }

    /// Other lines of vkreport and of drivers in the last run, as they were written.
    const QStringList &messages() const { return m_messages.others(); }

Q_SIGNALS:
    void started();
    /// \a work is for people. \a limit is 0 if there is none.
    void progressed(const QString &work, double seconds, double limit);
    /// \a report is what vkreport wrote: JSON, which also says what is missing. \a missing has a sentence for each section that is missing, and for what is not as usual.
    void finished(const QByteArray &report, const QStringList &missing);
    /// There is no report. \a message is for the user, empty after cancel().
    void failed(const QString &message);

private:
    void takeOutput();
    void takeErrors();
    void takeEnd(int exitCode, QProcess::ExitStatus status);
    void takeError(QProcess::ProcessError error);
    void abandon();
    void fail(const QString &message);

    QString m_program;
    std::unique_ptr<JobProcess> m_process;
    ReportMessages m_messages;
    QByteArray m_report;
    double m_timeLimit = 60;
};
