#include "report/text.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

// "HardwareID" is a multi-string, of which the first string is shown.
constexpr TextValue instanceValues[] = {
    {"Class", "   Class:               %1"},
    {"DeviceDesc", "   Device Description:  %1"},
    {"FriendlyName", "   Friendly Name:       %1"},
    {"LocationInformation", "   LocationInformation: %1"},
    {"HardwareID", "   Hardware ID:         %1"},
    {"Service", "   Service:             %1"},
};

/// The instances of a device. Names and values share \a buffer.
QString instanceBlocks(const RegistryKey &device, const QString &devicePath, TextBuffer &buffer)
{
    QString text;
    for (DWORD i = 0; buffer.enumerateKey(device.get(), i); ++i) {
        const RegistryKey instance(HKEY_LOCAL_MACHINE, devicePath + QStringLiteral("\\") + buffer.text());
        if (instance)
            text += textLines(instance.get(), instanceValues, buffer) + newline;
    }
    return text;
}

} // namespace

QString diskDevicesFromRegistry(const QString &enumeratorName)
{
    QString text = QStringLiteral(">>> Info about '%1' disk devices from registry:").arg(enumeratorName) + newline;
    const QString path = QStringLiteral("SYSTEM\\CurrentControlSet\\Enum\\") + enumeratorName;
    const RegistryKey enumerator(HKEY_LOCAL_MACHINE, path);
    if (!enumerator)
        return text;
    TextBuffer buffer;
    for (DWORD i = 0; buffer.enumerateKey(enumerator.get(), i); ++i) {
        const QString name = buffer.text();
        text += name + newline;
        const QString devicePath = path + QStringLiteral("\\") + name;
        const RegistryKey device(HKEY_LOCAL_MACHINE, devicePath);
        if (device)
            text += instanceBlocks(device, devicePath, buffer) + newline;
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
