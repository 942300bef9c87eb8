#include "report/text.h"
#include "win/format_byte_size.h"
#include "win/multi_string.h"
#include "win/registry_key.h"
#include "win/windows_sections.h"

#include <cstring>

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// How the data of a value becomes the text of its line.
using Decode = QString (*)(const WideTextBuffer &buffer);

QString asText(const WideTextBuffer &buffer)
{
    return buffer.text();
}

QString asList(const WideTextBuffer &buffer)
{
    return registryWideMultiStringToList(buffer.data(), buffer.size()).join(QLatin1Char(' '));
}

/// Display drivers store texts as REG_BINARY, with a terminator or without.
QString asBinaryOrText(const WideTextBuffer &buffer)
{
    const DWORD units = buffer.size() / sizeof(wchar_t);
    const bool isTerminated = units > 0 && buffer.data()[units - 1] == 0;
    return buffer.type() == REG_BINARY && !isTerminated ? buffer.text(units) : buffer.text();
}

struct AdapterValue
{
    const wchar_t *name;
    const char *format;
    Decode decode;
};

constexpr AdapterValue valuesBeforeMemory[] = {
    {L"Device Description", "   Device Description: %1", asText},
    {L"InstalledDisplayDrivers", "   Installed Display Drivers: %1", asList},
    {L"HardwareInformation.AdapterString", "   AdapterString: %1", asBinaryOrText},
    {L"HardwareInformation.BiosString", "   BiosString: %1", asBinaryOrText},
    {L"HardwareInformation.ChipType", "   ChipType:  %1", asBinaryOrText},
    {L"HardwareInformation.DacType", "   DacType:  %1", asBinaryOrText},
};

constexpr AdapterValue valuesBehindMemory[] = {
    {L"DriverDesc", "   Driver Description: %1", asText},
    {L"DriverVersion", "   Driver Version: %1", asText},
    {L"DriverDate", "   Driver Date: %1", asText},
    {L"ProviderName", "   Provider Name: %1", asText},
    {L"ReleaseVersion", "   Release Version: %1", asText},
    {L"OpenGLDriverName", "   OpenGL Driver Name: %1", asList},
    {L"OpenGLDriverNameWow", "   OpenGL Driver Name WoW: %1", asList},
};

struct AdapterNumber
{
    const wchar_t *name;
    const char *format;
};

constexpr AdapterNumber numbers[] = {
    {L"OpenGLVersion", "   OpenGL Version: %1 = 0x%2"},
    {L"OpenGLVersionWoW", "   OpenGL Version WoW: %1 = 0x%2"},
    {L"OpenGLFlags", "   OpenGL Flags: %1 = 0x%2"},
    {L"OpenGLFlagsWoW", "   OpenGL Flags WoW: %1 = 0x%2"},
};

void appendValueLine(QString &text, HKEY key, const AdapterValue &value)
{
    WideTextBuffer buffer;
    if (buffer.query(key, value.name))
        appendLine(text, value.format, value.decode(buffer));
}

void appendNumberLine(QString &text, HKEY key, const AdapterNumber &value)
{
    NumberBuffer number;
    if (number.query(key, value.name))
        append(text, QString::fromLatin1(value.format).arg(number.value()).arg(number.value(), 0, 16) + newline);
}

bool memorySize(HKEY key, quint64 &bytes)
{
    DWORD size = sizeof bytes;
    if (RegQueryValueExA(key, "HardwareInformation.qwMemorySize", nullptr, nullptr, reinterpret_cast<LPBYTE>(&bytes),
                         &size)
        == LSTATUS(ERROR_SUCCESS))
        return true;
    NumberBuffer number;
    const bool known = number.query(key, "HardwareInformation.MemorySize");
    bytes = number.value();
    return known;
}

QString memoryLine(HKEY key)
{
    quint64 bytes = 0;
    if (!memorySize(key, bytes))
        return QString();
    return QStringLiteral("   Video Memory: ") + formatByteSize(bytes) + newline;
}

void appendConfigurationBlock(QString &text, HKEY key, const QString &name)
{
    appendLine(text, "%1", name);
    for (const AdapterValue &value : valuesBeforeMemory)
        appendValueLine(text, key, value);
    append(text, memoryLine(key));
    for (const AdapterValue &value : valuesBehindMemory)
        appendValueLine(text, key, value);
    for (const AdapterNumber &number : numbers)
        appendNumberLine(text, key, number);
}

QString serviceLine(const QString &adapterPath)
{
    const RegistryKey key(HKEY_LOCAL_MACHINE, adapterPath + QStringLiteral("\\Video"));
    if (!key)
        return QString();
    WideTextBuffer buffer;
    if (!buffer.query(key.get(), L"Service"))
        return QString();
    return QStringLiteral("### Service: %1").arg(buffer.text()) + newline;
}

/// Appends the numbered keys of an adapter. The walk ends behind its body: the call that
/// finds no more keys leaves the last name in the buffer, and that key is visited
/// again. As "Video" is the last key of most adapters this shows rarely; it is the
/// report's format and must stay.
void appendConfigurationBlocks(QString &text, const RegistryKey &adapter, const QString &adapterPath, TextBuffer &name)
{
    bool found = true;
    for (DWORD i = 0; found; ++i) {
        found = name.enumerateKey(adapter.get(), i);
        const RegistryKey key(HKEY_LOCAL_MACHINE, adapterPath + QStringLiteral("\\") + name.text());
        if (key && qstricmp(name.data(), "Video") != 0)
            appendConfigurationBlock(text, key.get(), name.text());
    }
}

} // namespace

QString videoInfoFromRegistry()
{
    QString text = QStringLiteral(">>> Info about video from registry:") + newline + newline;
    const QString path = QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Video");
    const RegistryKey adapters(HKEY_LOCAL_MACHINE, path);
    if (!adapters)
        return text;
    TextBuffer name; // of adapters and of their keys
    for (DWORD i = 0; name.enumerateKey(adapters.get(), i); ++i) {
        const QString adapterPath = path + QStringLiteral("\\") + name.text();
        const RegistryKey adapter(HKEY_LOCAL_MACHINE, adapterPath);
        if (!adapter)
            continue;
        append(text, serviceLine(adapterPath)); // two steps: Windows is asked in this order
        appendConfigurationBlocks(text, adapter, adapterPath, name);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
