#include "section_process.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QProcess>

namespace {

QString sectionProgram()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/section_child");
}

bool finishes(QProcess &process)
{
    constexpr int milliseconds = 60000;
    return process.waitForFinished(milliseconds) && process.exitStatus() == QProcess::NormalExit
        && process.exitCode() == 0;
}

QString output(QProcess &process)
{
    process.closeWriteChannel();
    if (finishes(process))
        return QString::fromUtf8(process.readAllStandardOutput());
    const QString failure = QStringLiteral("%1 failed: %2\n")
                                .arg(process.program(), process.errorString())
        + QString::fromLocal8Bit(process.readAllStandardError());
    process.kill();
    process.waitForFinished();
    return failure;
}

#ifdef Q_OS_WIN

void setEnvironment(QProcess &process, const QStringList &entries)
{
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    for (const QString &entry : entries)
        environment.insert(entry.section(QLatin1Char('='), 0, 0), entry.section(QLatin1Char('='), 1));
    process.setProcessEnvironment(environment);
}

#else

const QString env = QStringLiteral("/usr/bin/env");

// Sanitizers read their options from the environment.
QStringList sanitizerOptions()
{
    QStringList entries;
    for (const char *name : {"ASAN_OPTIONS", "LSAN_OPTIONS", "UBSAN_OPTIONS"}) {
        if (qEnvironmentVariableIsSet(name))
            entries += QLatin1String(name) + QLatin1Char('=') + qEnvironmentVariable(name);
    }
    return entries;
}

// With "env -i": QProcess passes the environment of the parent if it gets an empty one.
QStringList envArguments(const QString &section, const QStringList &entries)
{
    const QStringList start(QStringLiteral("-i"));
    const bool showsAll = section == QStringLiteral("qtSystemEnvironment");
    return (showsAll ? start : start + sanitizerOptions()) + entries;
}

bool succeeds(const QString &program, const QStringList &arguments)
{
    QProcess process;
    process.start(program, arguments);
    return finishes(process);
}

#endif

} // namespace

namespace qt_environment {

#ifdef Q_OS_WIN

QString sectionText(const QString &section, const QStringList &environment, const QStringList &arguments)
{
    QProcess process;
    setEnvironment(process, environment);
    process.start(sectionProgram(), QStringList(section) + arguments);
    return output(process);
}

#else

QString sectionText(const QString &section, const QStringList &environment, const QStringList &arguments)
{
    QProcess process;
    process.start(env, envArguments(section, environment) + QStringList({sectionProgram(), section}) + arguments);
    return output(process);
}

QString sectionTextOnHost(const QString &hostName, const QString &section, const QStringList &environment)
{
    const QString unshare = QStringLiteral("/usr/bin/unshare");
    const QStringList rename = {QStringLiteral("--user"), QStringLiteral("--map-root-user"), QStringLiteral("--uts"),
                                QStringLiteral("/bin/sh"), QStringLiteral("-c"),
                                QStringLiteral("printf %s \"$0\" > /proc/sys/kernel/hostname && exec \"$@\""), hostName};
    if (!succeeds(unshare, rename + QStringList(QStringLiteral("/bin/true"))))
        return QString();
    QProcess process;
    process.start(unshare,
                  rename + QStringList(env) + envArguments(section, environment)
                      + QStringList({sectionProgram(), section}));
    return output(process);
}

#endif

} // namespace qt_environment
