#include "incompleteness.h"

#include "program_output.h"

#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QJsonArray>
#include <QtCore/QJsonDocument>
#include <QtCore/QJsonObject>

namespace {

constexpr char firstLine[] = "This report is incomplete.\n";

struct ReasonText
{
    FailureReason reason;
    const char *name;
    const char *text; ///< %1 is the time in seconds
    const char *code; ///< %1 is the code
};

constexpr ReasonText reasonTexts[] = {
    {FailureReason::TimedOut, "timeout", "did not end within %1 s", ""},
    {FailureReason::Crashed, "crash", "crashed after %1 s", " (%1)"},
    {FailureReason::Exited, "exit", "ended the process after %1 s", " (exit code %1)"},
    {FailureReason::NotStarted, "notStarted", "could not be started", ""},
    {FailureReason::NotTried, "notTried", "not tried, the time limit was reached", ""},
};

const ReasonText &textOf(FailureReason reason)
{
    for (const ReasonText &known : reasonTexts) {
        if (known.reason == reason)
            return known;
    }
    return reasonTexts[0];
}

double seconds(const Failure &failure)
{
    return double(failure.milliseconds) / 1000;
}

QString textOf(const Failure &failure)
{
    const ReasonText &reason = textOf(failure.reason);
    QString text = QString::fromLatin1(reason.text);
    if (text.contains(QLatin1String("%1")))
        text = text.arg(seconds(failure), 0, 'f', 1);
    return failure.code.isEmpty() ? text : text + QString::fromLatin1(reason.code).arg(failure.code);
}

QJsonObject jsonOf(const QString &key, const QString &name, const Failure &failure)
{
    QJsonObject object {{key, name}, {QStringLiteral("reason"), QLatin1String(textOf(failure.reason).name)}};
    if (!failure.code.isEmpty())
        object.insert(QStringLiteral("code"), failure.code);
    if (failure.reason != FailureReason::NotTried)
        object.insert(QStringLiteral("seconds"), seconds(failure));
    return object;
}

/// Whether there is no such file, or this program wrote it. Links and pipes are not opened.
bool isOwnOrMissing(const QString &fileName)
{
    const QFileInfo info(fileName);
    if (!info.exists() && !info.isSymLink())
        return true;
    QFile file(fileName);
    return info.isFile() && !info.isSymLink() && file.open(QIODevice::ReadOnly) && file.readLine(sizeof firstLine) == firstLine;
}

} // namespace

QStringList failureLines(const Incompleteness &incompleteness)
{
    QStringList lines;
    for (const FailedAttempt &attempt : incompleteness.attempts)
        lines += QStringLiteral("%1 %2").arg(attempt.subject, textOf(attempt.failure));
    for (const MissingPart &part : incompleteness.missing)
        lines += QStringLiteral("missing: %1: %2").arg(part.name, textOf(part.failure));
    return lines;
}

QByteArray incompletenessJson(const Incompleteness &incompleteness, double timeLimit)
{
    if (incompleteness.missing.empty())
        return {};
    QJsonArray attempts;
    for (const FailedAttempt &attempt : incompleteness.attempts)
        attempts += jsonOf(QStringLiteral("attempt"), attempt.name, attempt.failure);
    QJsonArray missing;
    for (const MissingPart &part : incompleteness.missing)
        missing += jsonOf(QStringLiteral("section"), part.name, part.failure);
    const QJsonObject object {{QStringLiteral("timeLimit"), timeLimit},
                              {QStringLiteral("attempts"), attempts},
                              {QStringLiteral("missing"), missing}};
    return QJsonDocument(object).toJson();
}

bool writeIncompletenessFile(const Incompleteness &incompleteness, const QString &reportFile, QString &error)
{
    const QString fileName = reportFile + QLatin1String(".incomplete.txt");
    const bool isIncomplete = !incompleteness.missing.empty();
    if (!isOwnOrMissing(fileName)) {
        error = QStringLiteral("cannot write '%1': somebody else wrote this file").arg(fileName);
        return !isIncomplete;
    }
    if (isIncomplete)
        return writeToFile(QLatin1String(firstLine) + failureLines(incompleteness).join(QLatin1Char('\n')) + QLatin1Char('\n'), fileName, error);
    QFile file(fileName);
    if (!file.exists() || file.remove())
        return true;
    error = QStringLiteral("cannot remove '%1': %2").arg(fileName, file.errorString());
    return false;
}
