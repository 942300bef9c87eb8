// Output of the programs: only the requested text goes to standard output or to a file.
// Messages go to standard error.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

enum ExitCode {
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    Incomplete = 3,
};

/// Writes \a text to standard output as UTF-8, without converting line feeds; to a console of Windows as characters.
bool writeToStandardOutput(const QString &text);

/// Writes \a text to a file as UTF-8; to a device or a pipe without replacing it. On failure no partial file remains, and \a error is
/// a message for the user.
bool writeToFile(const QString &text, const QString &fileName, QString &error);

/// The same for bytes, which are written as they are. A console of Windows shows them as UTF-8.
bool writeToStandardOutput(const QByteArray &bytes);
bool writeToFile(const QByteArray &bytes, const QString &fileName, QString &error);

/// Whether writeToFile() can be expected to succeed. Changes nothing. On failure \a error is a message for the user.
bool canWriteFile(const QString &fileName, QString &error);

/// Whether the name belongs to a device or a pipe, which must not be replaced by a file.
bool isDevice(const QString &fileName);

/// Writes lines to standard error.
void tell(const QString &lines);

/// Writes one line to standard error.
void complain(const QString &message);
