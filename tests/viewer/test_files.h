// Files that several tests of the window read.
#pragma once

#include <QtCore/QFile>

/// Nothing if it cannot be read.
inline QByteArray contentOf(const QString &fileName)
{
    QFile file(fileName);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The same for a file that the test needs.
inline QByteArray neededContentOf(const QString &fileName)
{
    QFile file(fileName);
    if (!file.open(QIODevice::ReadOnly))
        qFatal("cannot read %s", qPrintable(fileName));
    return file.readAll();
}

/// The report of the machine "workstation".
inline QByteArray workstation()
{
    return neededContentOf(QStringLiteral(REPORTS_DATA_DIR "/workstation.txt"));
}

/// A file of the pairs of reports, such as "full-disk/OLD.txt".
inline QString pairFile(const QString &name)
{
    return QStringLiteral(PAIRS_DIR "/") + name;
}
inline QString pairFile(const char *name)
{
    return pairFile(QString::fromLatin1(name));
}
