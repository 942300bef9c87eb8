// What is missing in a report that was made, and why.
#pragma once

#include "failure.h"

#include <QtCore/QStringList>
#include <vector>

/// A way to make the report that failed.
struct FailedAttempt
{
    QString name;    ///< for programs: "allInfos"
    QString subject; ///< for people: "the whole report"
    Failure failure;
};

struct MissingPart
{
    QString name;
    Failure failure;
};

struct Incompleteness
{
    std::vector<FailedAttempt> attempts;
    std::vector<MissingPart> missing;
};

/// The lines for the user, without line feeds; empty if nothing failed.
QStringList failureLines(const Incompleteness &incompleteness);

/// An object of JSON; empty if nothing is missing. \a timeLimit in seconds, 0 for none.
QByteArray incompletenessJson(const Incompleteness &incompleteness, double timeLimit);

/// Writes FILE.incomplete.txt beside the report FILE if something is missing; otherwise removes the one of an earlier
/// report. Returns false, and a message for the user, if it cannot.
bool writeIncompletenessFile(const Incompleteness &incompleteness, const QString &reportFile, QString &error);
