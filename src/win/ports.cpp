#include "report/text.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

bool enumerateValue(HKEY key, DWORD index, TextBuffer &name, TextBuffer &data)
{
    DWORD nameSize = valueBufferSize;
    DWORD dataSize = valueBufferSize;
    DWORD type = 0;
    return RegEnumValueA(key, index, name.data(), &nameSize, nullptr, &type, reinterpret_cast<LPBYTE>(data.data()),
                         &dataSize)
        == LSTATUS(ERROR_SUCCESS);
}

} // namespace

QString portsFromRegistry(const QString &deviceMapName)
{
    QString text = QStringLiteral(">> Info about '%1' ports from registry:").arg(deviceMapName) + newline;
    const RegistryKey key(HKEY_LOCAL_MACHINE, QStringLiteral("HARDWARE\\DEVICEMAP\\") + deviceMapName);
    if (!key)
        return text;
    TextBuffer name;
    TextBuffer data;
    for (DWORD i = 0; enumerateValue(key.get(), i, name, data); ++i)
        text += QStringLiteral("%1   %2").arg(name.text()).arg(data.text()) + newline;
    return text + newline;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
