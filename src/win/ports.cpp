#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

QString deviceMapPath(const QString &deviceMapName)
{
    return QStringLiteral("HARDWARE\\DEVICEMAP\\") + deviceMapName;
}

} // namespace

RegistryReads portReads(const QString &deviceMapName)
{
    return {{HKEY_LOCAL_MACHINE, deviceMapPath(deviceMapName), {QStringLiteral("*")}}};
}

QString portsFromRegistry(const QString &deviceMapName)
{
    QString text;
    appendLine(text, ">> Info about '%1' ports from registry:", deviceMapName);
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, deviceMapPath(deviceMapName));
    if (!key)
        return text;
    TextBuffer name;
    TextBuffer data;
    for (DWORD i = 0; enumerateValue(key.get(), i, name, data); ++i)
        appendLine(text, QStringLiteral("%1   %2").arg(name.text()).arg(data.text()));
    appendLine(text, QString());
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
