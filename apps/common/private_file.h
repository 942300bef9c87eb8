// Files that nobody but their owner can read.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

enum class FileResult {
    Done,
    Missing, ///< there is no such file
    Exists,  ///< there is such a file already
    Failed,
};

/// Reads at most \a limit bytes of a file. On Unix, fails if the group or others can read or change the file. On
/// failure \a error is a message for the user.
FileResult readPrivateFile(const QString &fileName, int limit, QByteArray &bytes, QString &error);

/// Makes a file with \a bytes. At no moment can others read it, and at no moment does it lack some of its bytes: of
/// several programs that make it at the same time one succeeds, and the others get Exists and can read it. A file
/// that exists does not change. On failure \a error is a message for the user.
FileResult makePrivateFile(const QString &fileName, const QByteArray &bytes, QString &error);

/// Makes such a file or puts it in the place of one, whatever the rights of that were. Writes to a device or a pipe
/// without replacing it. On failure no partial file remains, and \a error is a message for the user.
bool writePrivateFile(const QString &fileName, const QByteArray &bytes, QString &error);
