// What the programs write, and where: the text alone to standard output or a file,
// everything else to standard error.
#pragma once

#include <QtCore/QString>

enum ExitCode {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
};

/// Writes \a text to standard output as UTF-8, line feeds as they are.
bool writeToStandardOutput(const QString &text);

/// Writes \a text to a file as UTF-8; it is there whole or not at all. On failure
/// \a error is a message for the user.
bool writeToFile(const QString &text, const QString &fileName, QString &error);

/// One line on standard error.
void complain(const QString &message);
