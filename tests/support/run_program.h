// Runs a program and collects its output.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QStringList>

struct ProgramRun
{
    int exitCode = -1; // -1 if the program did not start, crashed or timed out
    QByteArray output;
    QByteArray errors;
};

ProgramRun runProgram(const QString &program, const QStringList &arguments,
                      const QProcessEnvironment &environment = QProcessEnvironment::systemEnvironment(),
                      const QString &workingDirectory = QString());
