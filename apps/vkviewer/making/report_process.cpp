#include "report_process.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

namespace {

constexpr int largestReport = 512 * 1024 * 1024; // bytes
/// A process in a call of a driver may not end when it is told to.
constexpr int timeToEnd = 500; // milliseconds
constexpr int mostLinesOfMessage = 5;

constexpr int exitComplete = 0;
constexpr int exitIncomplete = 3;

QString defaultProgram()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("vkreport"));
}

QStringList argumentsOf(bool noOpenGL, double timeLimit)
{
    QStringList arguments {QStringLiteral("--progress"), QStringLiteral("--time-limit"), QString::number(timeLimit, 'g', 10),
                           QStringLiteral("--format"), QStringLiteral("json")};
    if (noOpenGL)
        arguments += QStringLiteral("--no-opengl");
    return arguments;
}

} // namespace

ReportProcess::ReportProcess(QObject *parent)
    : QObject(parent), m_program(defaultProgram())
{
}

ReportProcess::~ReportProcess()
{
    if (!m_process)
        return;
    m_process->disconnect(this);
    m_process->endJob();
    if (m_process->state() != QProcess::NotRunning && !m_process->waitForFinished(timeToEnd))
        static_cast<void>(m_process.release()); // the destructor would wait for it
}

void ReportProcess::start(bool noOpenGL)
{
    if (m_process)
        return;
    m_messages = ReportMessages();
    m_report.clear();
    m_process = std::make_unique<JobProcess>();
    m_process->setStandardInputFile(QProcess::nullDevice());
    connect(m_process.get(), &QProcess::readyReadStandardOutput, this, &ReportProcess::takeOutput);
    connect(m_process.get(), &QProcess::readyReadStandardError, this, &ReportProcess::takeErrors);
    connect(m_process.get(), QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &ReportProcess::takeEnd);
    // queued: the process may fail to start while start() runs
    connect(m_process.get(), &QProcess::errorOccurred, this, &ReportProcess::takeError, Qt::QueuedConnection);
    Q_EMIT started();
    m_process->startJob(m_program, argumentsOf(noOpenGL, m_timeLimit));
}

void ReportProcess::takeOutput()
{
    m_report += m_process->readAllStandardOutput();
    if (m_report.size() <= largestReport)
        return;
    abandon();
    fail(tr("The report has more than 512 MByte."));
}

void ReportProcess::takeErrors()
{
    m_messages.add(m_process->readAllStandardError());
    if (const auto progress = m_messages.takeProgress())
        Q_EMIT progressed(progress->work, progress->seconds, progress->limit);
}

void ReportProcess::takeEnd(int exitCode, QProcess::ExitStatus status)
{
    m_report += m_process->readAllStandardOutput();
    m_messages.add(m_process->readAllStandardError());
    m_messages.finish();
    m_process->endJob(); // what a crash left
    m_process.release()->deleteLater();
    const bool hasReport = status == QProcess::NormalExit && (exitCode == exitComplete || exitCode == exitIncomplete) && !m_report.isEmpty();
    if (status != QProcess::NormalExit) {
        fail(tr("vkreport crashed. No report could be made."));
    } else if (!hasReport) {
        const QStringList lines = QStringList(tr("No report could be made.")) + m_messages.others().mid(0, mostLinesOfMessage);
        fail(lines.join(QLatin1Char('\n')));
    } else {
        QStringList missing = m_messages.missing();
        if (exitCode == exitIncomplete && missing.isEmpty())
            missing += tr("Parts of the report are missing.");
        const QByteArray report = std::move(m_report);
        m_report.clear();
        Q_EMIT finished(report, missing);
    }
}

void ReportProcess::takeError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart || !m_process) // finished() follows the others
        return;
    const QString reason = m_process->errorString();
    m_process.release()->deleteLater();
    fail(tr("'%1' could not be started: %2").arg(QDir::toNativeSeparators(m_program), reason));
}

void ReportProcess::cancel()
{
    if (!m_process)
        return;
    abandon();
    fail(QString());
}

/// The process ends when the system lets it, without this object.
void ReportProcess::abandon()
{
    JobProcess *process = m_process.release();
    process->disconnect(this);
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            process->deleteLater();
    });
    process->endJob();
    m_messages.finish();
}

void ReportProcess::fail(const QString &message)
{
    m_report.clear();
    Q_EMIT failed(message);
}
