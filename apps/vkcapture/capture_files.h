// The files of a capture.
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QDir>
#include <vector>

struct CapturedFile
{
    const char *name;
    QByteArray contents;
};

/// Writes all files, or none of them: what was in the folder stays as it was then. On failure \a error is a message
/// for the user.
bool writeFiles(const QDir &folder, const std::vector<CapturedFile> &files, QString &error);
