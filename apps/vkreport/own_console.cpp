#include "own_console.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>

namespace {

QString asPartOfFileName(QString text)
{
    for (QChar &character : text) {
        if (character < QLatin1Char(' ') || QStringLiteral("<>:\"/\\|?*").contains(character))
            character = QLatin1Char('_');
    }
    return text;
}

/// exists() alone is false for a link to a missing file, which writing would replace.
bool isInUse(const QString &fileName)
{
    const QFileInfo file(fileName);
    return file.exists() || file.isSymLink();
}

} // namespace

QString ownReportFileName(const QString &folder, const QString &computer, const QDate &date)
{
    const QString name = QStringLiteral("vkreport-%1-%2").arg(asPartOfFileName(computer), date.toString(Qt::ISODate));
    const QString start = QDir(folder).filePath(name);
    QString fileName = start + QLatin1String(".txt");
    for (int number = 2; isInUse(fileName); ++number)
        fileName = QStringLiteral("%1-%2.txt").arg(start, QString::number(number));
    return fileName;
}
