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

/// Appends the instances of a device. Names and values share \a buffer.
void appendInstanceBlocks(QString &text, const RegistryKey &device, const QString &devicePath, TextBuffer &buffer)
{
    for (DWORD i = 0; buffer.enumerateKey(device.get(), i); ++i) {
        const RegistryKey instance(HKEY_LOCAL_MACHINE, devicePath + QStringLiteral("\\") + buffer.text());
        if (!instance)
            continue;
        appendTextLines(text, instance.get(), instanceValues, buffer);
        append(text, newline);
    }
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
        appendLine(text, "%1", name);
        const QString devicePath = path + QStringLiteral("\\") + name;
        const RegistryKey device(HKEY_LOCAL_MACHINE, devicePath);
        if (!device)
            continue;
        appendInstanceBlocks(text, device, devicePath, buffer);
        append(text, newline);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
