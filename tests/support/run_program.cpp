#include "run_program.h"

#include <QtCore/QProcess>

ProgramRun runProgram(const QString &program, const QStringList &arguments, const QProcessEnvironment &environment,
                      const QString &workingDirectory)
{
    constexpr int timeout = 120000; // milliseconds
    QProcess process;
    process.setProcessEnvironment(environment);
    if (!workingDirectory.isEmpty())
        process.setWorkingDirectory(workingDirectory);
    process.start(program, arguments);
    ProgramRun run;
    if (process.waitForFinished(timeout) && process.exitStatus() == QProcess::NormalExit)
        run.exitCode = process.exitCode();
    else
        process.kill();
    run.output = process.readAllStandardOutput();
    run.errors = process.readAllStandardError();
    return run;
}
