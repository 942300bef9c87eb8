#include "part_runner.h"

#include "child_system.h"
#include "part_names.h"

#include <algorithm>

namespace {

constexpr int sharesOfParts = 3;
constexpr int sharesOfBeginning = 2; ///< the beginning of a child, or the application object, may take half of the time
constexpr qint64 shortestTime = 200; // milliseconds, for a part

QDeadlineTimer shareOf(QDeadlineTimer deadline, int shares)
{
    if (deadline.isForever())
        return deadline;
    const qint64 remaining = deadline.remainingTime();
    return QDeadlineTimer(std::min(remaining, std::max(remaining / shares, shortestTime)));
}

void addMissing(MadeParts &made, const QStringList &parts, const Failure &failure)
{
    for (const QString &part : parts)
        made.missing.push_back({part, failure});
}

QString noDisplay()
{
    return QStringLiteral("no display");
}

} // namespace

/// A child that did not make all of its parts.
struct PartRunner::StoppedChild
{
    QString step; ///< what it did last: a part, PartName::application, or nothing if it had not begun
    Failure failure;
};

PartRunner::PartRunner(MessageWriter &writer, Progress &progress, bool hasLowPriority)
    : m_writer(writer), m_progress(progress), m_hasLowPriority(hasLowPriority)
{
}

MadeParts PartRunner::run(const char *module, const QStringList &parts, QDeadlineTimer deadline, PartTime partTime)
{
    const int shares = partTime == PartTime::All ? 1 : sharesOfParts;
    MadeParts made;
    QStringList rest = parts;
    while (!rest.isEmpty()) {
        prepare();
        if (deadline.hasExpired()) {
            addMissing(made, rest, {});
            break;
        }
        Child child(
            {QLatin1String(module), m_platform, rest, m_hasLowPriority}, [this] { m_progress.show(); },
            [this](const QString &lines) { passOn(lines); });
        const int before = rest.size();
        const auto stopped = follow(child, rest, deadline, shares, made);
        if (!stopped)
            break;
        if (stopped->step == QLatin1String(PartName::application) && m_platform.isEmpty()) {
            noteFailedPlatform(child, stopped->failure, made);
            continue;
        }
        child.showErrors();
        if (rest.contains(stopped->step)) {
            addMissing(made, {rest.takeFirst()}, stopped->failure);
        } else if (rest.size() == before) {
            // It did not begin. The same would happen to a later one, unless only the time was too short.
            addMissing(made, rest, deadline.hasExpired() ? Failure() : stopped->failure);
            break;
        }
    }
    return made;
}

/// Takes the texts of \a child and removes their names from \a parts, until it has no more parts or stops.
std::optional<PartRunner::StoppedChild> PartRunner::follow(Child &child, QStringList &parts, QDeadlineTimer deadline, int shares, MadeParts &made)
{
    StoppedChild stopped;
    QElapsedTimer time;
    time.start();
    QDeadlineTimer end = shareOf(deadline, sharesOfBeginning);
    while (!parts.isEmpty()) {
        const auto frame = child.next(end);
        if (!frame) {
            m_progress.erase();
            stopped.failure = child.failure();
            stopped.failure.milliseconds = time.elapsed();
            return stopped;
        }
        if (frame->name == FrameName::begin) {
            stopped.step = QString::fromUtf8(frame->content);
            m_progress.setWork(stopped.step);
            time.restart();
            const bool isApplication = stopped.step == QLatin1String(PartName::application);
            end = shareOf(deadline, isApplication ? sharesOfBeginning : shares);
            if (!isApplication)
                child.showErrors();
        } else if (frame->name == FrameName::text && stopped.step == parts.constFirst()) {
            made.texts[parts.takeFirst()] = frame->content;
        }
    }
    return std::nullopt;
}

/// Says once, before the first child, what the user should know.
void PartRunner::prepare()
{
    if (m_isPrepared)
        return;
    m_isPrepared = true;
    sayIfNoMachine();
    if (!hasDisplay())
        useMinimalPlatform(noDisplay());
}

/// Without a display, Qt ends the process in an orderly way; its message adds nothing.
void PartRunner::noteFailedPlatform(Child &child, const Failure &failure, MadeParts &made)
{
    if (isEndWithoutDisplay(failure)) {
        useMinimalPlatform(noDisplay());
        return;
    }
    child.showErrors();
    made.attempts.push_back({QLatin1String(PartName::application), QStringLiteral("Qt's platform plug-in"), failure});
    useMinimalPlatform(QStringLiteral("Qt's platform plug-in failed"));
}

void PartRunner::useMinimalPlatform(const QString &reason)
{
    m_platform = QStringLiteral("minimal");
    passOn(QStringLiteral("vkreport: %1: Qt's platform \"minimal\" is used; screens and OpenGL are not those of this machine\n")
               .arg(reason));
}

void PartRunner::passOn(const QString &lines)
{
    m_progress.erase();
    m_writer.write(lines);
}
