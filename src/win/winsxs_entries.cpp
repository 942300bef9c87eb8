#include "report/text.h"
#include "win/directory_buffer.h"
#include "win/windows_sections.h"

#include <QtCore/QDir>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString winSxSDirectoryEntries()
{
    QString text = QStringLiteral("WinSxS directory entries") + newline;
    DirectoryBuffer buffer;
    const UINT length = buffer.read(GetSystemWindowsDirectoryW);
    if (length == 0)
        return text;
    if (buffer.isTooSmall())
        text += QStringLiteral("buffer for sysDir too small, need %1").arg(length) + newline;

    const QDir directory(buffer.text() + QStringLiteral("\\WinSxS"));
    if (!directory.exists()) // the line is not ended: the report's format
        return text + QStringLiteral("Directory '%1' does not exist.").arg(directory.absolutePath());
    const QStringList filter(QStringLiteral("*Microsoft.VC*CRT*")); // "." and ".." do not pass it
    const QStringList names = directory.entryList(filter, QDir::Dirs, QDir::Name);
    for (const QString &name : names)
        text += name + newline;
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
