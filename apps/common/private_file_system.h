// What private_file.cpp needs of the system. On failure \a error is the system's text for the reason.
#pragma once

#include "private_file.h"

#include <QtCore/QFile>

/// Opens \a file for reading, and fails as readPrivateFile() does.
FileResult openPrivateFile(QFile &file, const QString &fileName, QString &error);

/// Makes a file with a new name in the folder of \a fileName, which its owner alone can read from the first moment.
/// Returns its name; an empty one on failure.
QString makeFileBeside(const QString &fileName, const QByteArray &bytes, QString &error);

enum class Existing {
    Keep,
    Replace,
};

/// Gives the file the name \a newName in one step. Exists if that name is in use and \a existing is Keep.
FileResult renameFile(const QString &name, const QString &newName, Existing existing, QString &error);
