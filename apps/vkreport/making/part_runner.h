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
};

class PartRunner
{
public:
    PartRunner(Progress &progress, bool hasLowPriority);

    /// Makes \a parts by \a module. Returns when \a deadline has passed. A part may take its share of the time that
    /// remains: a third while there are three and more parts.
    MadeParts run(const char *module, const QStringList &parts, QDeadlineTimer deadline);

private:
    struct StoppedChild;

    std::optional<StoppedChild> follow(Child &child, QStringList &parts, QDeadlineTimer deadline, MadeParts &made);
    void prepare();
    void useMinimalPlatform();
    void say(const QString &message);

    Progress &m_progress;
    bool m_hasLowPriority;
    bool m_isPrepared = false;
    QString m_platform; ///< empty: Qt chooses it
};
