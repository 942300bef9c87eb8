// Running a program as a user would.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QStringList>

struct ProgramRun
{
    int exitCode = -1; // -1 when it did not start, crashed or took too long
    QByteArray output;
    QByteArray errors;
};

ProgramRun runProgram(const QString &program, const QStringList &arguments,
                      const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
                      const QString &workingDirectory = QString());
