#include "report_program.h"

#include "neutral_text.h"
#include "program_output.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QElapsedTimer>
#include <QtCore/QFileInfo>
#include <QtCore/QProcess>

namespace {

constexpr int longestText = 256 * 1024 * 1024;
constexpr qint64 longestTime = 300'000; // milliseconds; vkreport itself ends within its time limit
constexpr int incomplete = 3;

QString programName()
{
    return QDir(QCoreApplication::applicationDirPath()).filePath(QStringLiteral("vkreport.exe"));
}

/// Reads both channels until the program ends. False if it takes too long or writes too much.
bool readAll(QProcess &program, QByteArray &text, QByteArray &messages)
{
    constexpr int oneRound = 100; // milliseconds
    QElapsedTimer time;
    time.start();
    for (bool isFinished = false; !isFinished;) {
        isFinished = program.waitForFinished(oneRound) || program.state() == QProcess::NotRunning;
        text += program.readAllStandardOutput();
        messages += program.readAllStandardError();
        if (time.elapsed() > longestTime || text.size() > longestText || messages.size() > longestText)
            return false;
    }
    return true;
}

QStringList linesOf(const QByteArray &messages)
{
    QString text = QString::fromUtf8(messages.constData(), messages.size());
    text.remove(QLatin1Char('\r'));
    return text.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

} // namespace

std::optional<MadeReport> makeReport(QString &error)
{
    const QString name = QDir::toNativeSeparators(programName());
    if (!QFileInfo(name).isFile()) {
        error = QStringLiteral("there is no '%1', which makes the report").arg(name);
        return std::nullopt;
    }
    QProcess program;
    program.setStandardInputFile(QProcess::nullDevice());
    // With an argument it does not take itself for started by a double click.
    program.start(name, {QStringLiteral("--time-limit"), QStringLiteral("60")});
    MadeReport made;
    QByteArray messages;
    const bool isDone = program.waitForStarted() && readAll(program, made.text, messages);
    const QStringList lines = linesOf(messages);
    for (const QString &line : lines)
        tell(velkor::Reports::terminalText(line) + QLatin1Char('\n'));
    if (!isDone) {
        error = program.error() == QProcess::FailedToStart
            ? QStringLiteral("cannot start '%1': %2").arg(name, program.errorString())
            : QStringLiteral("'%1' did not end").arg(name);
        program.kill();
        program.waitForFinished();
        return std::nullopt;
    }
    made.exitCode = program.exitCode();
    if (program.exitStatus() != QProcess::NormalExit || (made.exitCode != 0 && made.exitCode != incomplete)) {
        error = QStringLiteral("'%1' failed with exit code %2").arg(name).arg(made.exitCode);
        return std::nullopt;
    }
    for (const QString &line : lines) {
        if (made.exitCode == incomplete && line.startsWith(QLatin1String("vkreport: ")))
            made.missing += line;
    }
    return made;
}
