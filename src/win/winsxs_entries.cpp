#include "report/text.h"
#include "win/directory_buffer.h"
#include "win/windows_sections.h"

#include <QtCore/QDir>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {

QString winSxSDirectoryEntries()
{
    QString text;
    appendLine(text, QStringLiteral("WinSxS directory entries"));
    DirectoryBuffer buffer;
    const UINT length = buffer.read(GetSystemWindowsDirectoryW);
    if (length == 0)
        return text;
    if (buffer.isTooSmall())
        appendLine(text, QStringLiteral("buffer for sysDir too small, need %1").arg(length));

    const QDir directory(buffer.text() + QStringLiteral("\\WinSxS"));
    if (!directory.exists()) {
        // Quirk: the line does not end.
        append(text, QStringLiteral("Directory '%1' does not exist.").arg(directory.absolutePath()));
        return text;
    }
    const QStringList filter(QStringLiteral("*Microsoft.VC*CRT*")); // excludes "." and ".."
    const QStringList names = directory.entryList(filter, QDir::Dirs, QDir::Name);
    for (const QString &name : names)
        appendLine(text, name);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
