#include "private_access.h"

#include <QtCore/QFile>
#include <sys/stat.h>

QString whoElseHasRights(const QString &fileName)
{
    struct stat status = {};
    if (stat(QFile::encodeName(fileName).constData(), &status) != 0)
        return QStringLiteral("there is no such file");
    const uint others = status.st_mode & (S_IRWXG | S_IRWXO);
    return others == 0 ? QString() : QStringLiteral("mode 0%1").arg(status.st_mode & 0777, 0, 8);
}

bool shareWithOthers(const QString &fileName)
{
    return chmod(QFile::encodeName(fileName).constData(), 0666) == 0;
}
