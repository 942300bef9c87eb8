// Makes parts of a report in children, and goes on after a part that failed.
#pragma once

#include "child.h"
#include "incompleteness.h"
#include "progress.h"

#include <map>

/// The parts that were made, as UTF-8, and those that were not, in their order.
struct MadeParts
{
    std::map<QString, QByteArray> texts;
    std::vector<MissingPart> missing;
    std::vector<FailedAttempt> attempts; ///< to use the display
};

/// How much of the remaining time a part may take.
enum class PartTime {
    All,
    AThird, ///< so that there is time for the parts after it
};

class PartRunner
{
public:
    PartRunner(MessageWriter &writer, Progress &progress, bool hasLowPriority);

    /// Makes \a parts by \a module. Returns when \a deadline has passed.
    MadeParts run(const char *module, const QStringList &parts, QDeadlineTimer deadline, PartTime partTime);

private:
    struct StoppedChild;

    std::optional<StoppedChild> follow(Child &child, QStringList &parts, QDeadlineTimer deadline, int shares, MadeParts &made);
    void prepare();
    void noteFailedPlatform(Child &child, const Failure &failure, MadeParts &made);
    void useMinimalPlatform(const QString &reason);
    void passOn(const QString &lines);

    MessageWriter &m_writer;
    Progress &m_progress;
    bool m_hasLowPriority;
    bool m_isPrepared = false;
    QString m_platform; ///< empty: Qt chooses it
};
