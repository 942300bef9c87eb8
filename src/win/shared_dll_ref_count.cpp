#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <QtCore/QMessageLogger>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

constexpr UINT directoryBufferSize = 1024; // in units

void warn(const QString &message)
{
    QMessageLogger().warning("%s", (message + newline).toLocal8Bit().constData());
}

QString functionName()
{
    return QStringLiteral("velkor::SystemInfo::WinSysInfo::refCountSharedDll");
}

} // namespace

bool refCountSharedDll(const QString &dllName, unsigned int &refCount)
{
    wchar_t directory[directoryBufferSize] = {};
    const UINT length = GetSystemWindowsDirectoryW(directory, directoryBufferSize);
    if (length > directoryBufferSize) {
        warn(QStringLiteral("%1 buffer for sysDir too small, need %2").arg(functionName()).arg(length));
        return false;
    }
    if (length == 0) {
        warn(QStringLiteral("%1 GetSystemWindowsDirectory returned a 0 len string").arg(functionName()));
        return false;
    }
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs"));
    if (!key)
        return false;
    const QString valueName = QStringLiteral("%1\\system32\\%2").arg(wideUnits(directory, length)).arg(dllName);
    NumberBuffer count;
    if (!count.query(key.get(), valueName.toLatin1().constData()))
        return false;
    refCount = count.value();
    return true;
}

QString sharedDllRefCount()
{
    const QString dllName = QStringLiteral("vkdnssd.dll");
    unsigned int refCount = 0;
    const bool known = refCountSharedDll(dllName, refCount);
    return QStringLiteral("RefCount for %1: ").arg(dllName)
        + (known ? QString::number(refCount) : QStringLiteral("failed to get refCount!")) + newline;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
