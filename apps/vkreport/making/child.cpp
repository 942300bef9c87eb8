#include "child.h"

#include "child/child_main.h"
#include "child/child_protection.h"
#include "child_system.h"

#include <algorithm>
#include <utility>

namespace {

constexpr int progressInterval = 200; // milliseconds
/// A process in a call of a driver may not end when it is told to.
constexpr int timeToEnd = 500;           // milliseconds
constexpr int largestErrors = 64 * 1024; // bytes of standard error

QStringList argumentsOf(const ChildOptions &options)
{
    QStringList arguments {QLatin1String(childArgument), options.module};
    if (!options.platform.isEmpty())
        arguments += {QLatin1String(platformArgument), options.platform};
    return arguments + options.parts;
}

int waitingTime(QDeadlineTimer deadline)
{
    const qint64 remaining = deadline.remainingTime();
    return remaining < 0 ? progressInterval : int(std::min<qint64>(remaining, progressInterval));
}

} // namespace

Child::Child(const ChildOptions &options, std::function<void()> showProgress, std::function<void(const QString &)> passOn)
    : m_process(std::make_unique<ChildProcess>(options.hasLowPriority)), m_showProgress(std::move(showProgress)), m_passOn(std::move(passOn))
{
    keepOutputFromChildren();
    // QProcess waits as long as a driver writes errors, so the deadline is also looked at here.
    QObject::connect(m_process.get(), &QProcess::readyReadStandardError, [this] {
        takeErrors();
        if (m_deadline.hasExpired())
            m_process->kill();
    });
    m_process->startWithParent(programFile(), argumentsOf(options));
}

Child::~Child()
{
    m_process->kill();
    if (m_process->state() != QProcess::NotRunning && !m_process->waitForFinished(timeToEnd))
        static_cast<void>(m_process.release()); // the destructor would wait for it
    else
        takeErrors();
}

std::optional<Frame> Child::next(QDeadlineTimer deadline)
{
    m_deadline = deadline;
    Frame frame;
    for (;;) {
        const bool isLate = deadline.hasExpired(); // before the pipe is read, so that what arrived in time counts
        if (isLate)
            m_process->waitForReadyRead(0);
        switch (take(frame)) {
        case FrameReader::Next::Frame:
            return frame;
        case FrameReader::Next::Invalid:
            m_failure.reason = FailureReason::Crashed;
            m_failure.code = QStringLiteral("invalid data");
            return std::nullopt;
        case FrameReader::Next::Incomplete:
            break;
        }
        if (isLate) {
            m_failure.reason = FailureReason::TimedOut;
            return std::nullopt;
        }
        if (m_process->state() == QProcess::NotRunning && m_process->bytesAvailable() == 0) {
            noteEnd();
            return std::nullopt;
        }
        m_process->waitForReadyRead(waitingTime(deadline));
        m_showProgress();
    }
}

FrameReader::Next Child::take(Frame &frame)
{
    if (m_process->isReadable())
        m_reader.add(m_process->readAllStandardOutput());
    takeErrors();
    return m_reader.take(frame);
}

void Child::showErrors()
{
    m_showsErrors = true;
    takeErrors();
}

/// Of a driver that writes without end, only the beginning is kept.
void Child::takeErrors()
{
    if (m_process->isReadable())
        m_errors += m_process->readAllStandardError().left(largestErrors - m_sizeOfErrors - m_errors.size());
    if (!m_showsErrors || m_errors.isEmpty())
        return;
    m_passOn(QString::fromUtf8(m_errors));
    m_sizeOfErrors += m_errors.size();
    m_errors.clear();
}

void Child::noteEnd()
{
    if (m_process->error() == QProcess::FailedToStart) {
        m_failure.reason = FailureReason::NotStarted;
    } else if (m_process->exitStatus() == QProcess::CrashExit) {
        m_failure.reason = FailureReason::Crashed;
        m_failure.code = crashName(m_process->exitCode());
    } else {
        m_failure.reason = FailureReason::Exited;
        m_failure.code = QString::number(m_process->exitCode());
    }
}
