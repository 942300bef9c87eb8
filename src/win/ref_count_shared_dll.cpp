#include "report/text.h"
#include "win/directory_buffer.h"
#include "win/windows_sections.h"

#include <QtCore/QMessageLogger>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

void warn(const QString &message)
{
    QMessageLogger().warning("%s", (message + newline).toLocal8Bit().constData());
}

QString functionName()
{
    return QStringLiteral("velkor::SystemInfo::WinSysInfo::refCountSharedDll");
}

QString reportedDll()
{
    return QStringLiteral("vkdnssd.dll");
}

QString keyPath()
{
    return QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs");
}

QString valueName(const QString &windowsDirectory, const QString &dllName)
{
    return QStringLiteral("%1\\system32\\%2").arg(windowsDirectory).arg(dllName);
}

} // namespace

bool refCountSharedDll(const QString &dllName, unsigned int &refCount)
{
    DirectoryBuffer directory;
    const UINT length = directory.read(GetSystemWindowsDirectoryW);
    if (directory.isTooSmall()) {
        warn(QStringLiteral("%1 buffer for sysDir too small, need %2").arg(functionName()).arg(length));
        return false;
    }
    if (length == 0) {
        warn(QStringLiteral("%1 GetSystemWindowsDirectory returned a 0 len string").arg(functionName()));
        return false;
    }
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, keyPath());
    if (!key)
        return false;
    NumberBuffer count;
    if (!count.query(key.get(), valueName(directory.text(), dllName).toLatin1().constData()))
        return false;
    refCount = count.value();
    return true;
}

RegistryReads sharedDllReads()
{
    DirectoryBuffer directory;
    directory.read(GetSystemWindowsDirectoryW);
    return {{HKEY_LOCAL_MACHINE, keyPath(), {valueName(directory.text(), reportedDll())}}};
}

QString refCountSharedDllText()
{
    unsigned int refCount = 0;
    const bool known = refCountSharedDll(reportedDll(), refCount);
    const QString count = known ? QString::number(refCount) : QStringLiteral("failed to get refCount!");
    QString text;
    appendLine(text, QStringLiteral("RefCount for %1: ").arg(reportedDll()) + count);
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
