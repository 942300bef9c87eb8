#include "report/text.h"
#include "win/format_byte_size.h"
#include "win/multi_string.h"
#include "win/value_lines.h"
#include "win/windows_sections.h"

namespace velkor {
namespace SystemInfo {
namespace WinSysInfo {
namespace {

/// Decodes the data of a value.
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

struct AdapterValue : WideValue
{
    Decode decode;
};

constexpr AdapterValue valuesBeforeMemory[] = {
    {{L"Device Description", "   Device Description: %1"}, asText},
    {{L"InstalledDisplayDrivers", "   Installed Display Drivers: %1"}, asList},
    {{L"HardwareInformation.AdapterString", "   AdapterString: %1"}, asBinaryOrText},
    {{L"HardwareInformation.BiosString", "   BiosString: %1"}, asBinaryOrText},
    {{L"HardwareInformation.ChipType", "   ChipType:  %1"}, asBinaryOrText},
    {{L"HardwareInformation.DacType", "   DacType:  %1"}, asBinaryOrText},
};

constexpr AdapterValue valuesAfterMemory[] = {
    {{L"DriverDesc", "   Driver Description: %1"}, asText},
    {{L"DriverVersion", "   Driver Version: %1"}, asText},
    {{L"DriverDate", "   Driver Date: %1"}, asText},
    {{L"ProviderName", "   Provider Name: %1"}, asText},
    {{L"ReleaseVersion", "   Release Version: %1"}, asText},
    {{L"OpenGLDriverName", "   OpenGL Driver Name: %1"}, asList},
    {{L"OpenGLDriverNameWow", "   OpenGL Driver Name WoW: %1"}, asList},
};

constexpr const char *memory64Value = "HardwareInformation.qwMemorySize";
constexpr const char *memory32Value = "HardwareInformation.MemorySize";

constexpr WideValue numbers[] = {
    {L"OpenGLVersion", "   OpenGL Version: %1 = 0x%2"},
    {L"OpenGLVersionWoW", "   OpenGL Version WoW: %1 = 0x%2"},
    {L"OpenGLFlags", "   OpenGL Flags: %1 = 0x%2"},
    {L"OpenGLFlagsWoW", "   OpenGL Flags WoW: %1 = 0x%2"},
};

constexpr WideValue service = {L"Service", "### Service: %1"};

QString adaptersPath()
{
    return QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Video");
}

QString serviceSubKey()
{
    return QStringLiteral("\\Video");
}

void appendValueLine(QString &text, HKEY key, const AdapterValue &value)
{
    WideTextBuffer buffer;
    if (buffer.query(key, value.name))
        appendLine(text, value.format, value.decode(buffer));
}

bool memorySize(HKEY key, quint64 &bytes)
{
    if (queryNumber64(key, memory64Value, bytes))
        return true;
    NumberBuffer number;
    const bool known = number.query(key, memory32Value);
    bytes = number.value();
    return known;
}

void appendMemoryLine(QString &text, HKEY key)
{
    quint64 bytes = 0;
    if (memorySize(key, bytes))
        appendLine(text, "   Video Memory: %1", formatByteSize(bytes));
}

void appendConfigurationBlock(QString &text, HKEY key, const QString &name)
{
    appendLine(text, name);
    for (const AdapterValue &value : valuesBeforeMemory)
        appendValueLine(text, key, value);
    appendMemoryLine(text, key);
    for (const AdapterValue &value : valuesAfterMemory)
        appendValueLine(text, key, value);
    for (const WideValue &value : numbers) {
        NumberBuffer number;
        appendNumberLine(text, key, value, number);
    }
}

void appendServiceLine(QString &text, const QString &adapterPath)
{
    const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, adapterPath + serviceSubKey());
    WideTextBuffer buffer;
    if (key && buffer.query(key.get(), service.name))
        appendLine(text, service.format, buffer.view());
}

/// Appends the numbered keys of an adapter. Quirk: the body runs once more after the
/// enumeration fails. The buffer then still holds the last name, so that key appears
/// twice, unless it is "Video", as on most machines.
void appendConfigurationBlocks(QString &text, HKEY adapter, const QString &adapterPath, TextBuffer &name)
{
    bool found = true;
    for (DWORD i = 0; found; ++i) {
        found = name.enumerateKey(adapter, i);
        const RegistryKey key = openKey(HKEY_LOCAL_MACHINE, adapterPath + QStringLiteral("\\") + name.text());
        if (key && qstricmp(name.data(), "Video") != 0)
            appendConfigurationBlock(text, key.get(), name.text());
    }
}

} // namespace

RegistryReads videoReads()
{
    const QString adapter = adaptersPath() + QStringLiteral("\\*");
    const QStringList values = valueNames(valuesBeforeMemory) + valueNames(valuesAfterMemory) + valueNames(numbers)
        + QStringList {QString::fromLatin1(memory64Value), QString::fromLatin1(memory32Value)};
    return {{HKEY_LOCAL_MACHINE, adaptersPath(), {}},
            {HKEY_LOCAL_MACHINE, adapter, {}},
            {HKEY_LOCAL_MACHINE, adapter + QStringLiteral("\\*"), values},
            {HKEY_LOCAL_MACHINE, adapter + serviceSubKey(), {QString::fromWCharArray(service.name)}}};
}

QString videoInfoFromRegistry()
{
    QString text;
    appendLine(text, QStringLiteral(">>> Info about video from registry:"));
    appendLine(text, QString());
    const QString path = adaptersPath();
    const RegistryKey adapters = openKey(HKEY_LOCAL_MACHINE, path);
    if (!adapters)
        return text;
    TextBuffer name; // of adapters and of their keys
    for (DWORD i = 0; name.enumerateKey(adapters.get(), i); ++i) {
        const QString adapterPath = path + QStringLiteral("\\") + name.text();
        const RegistryKey adapter = openKey(HKEY_LOCAL_MACHINE, adapterPath);
        if (!adapter)
            continue;
        appendServiceLine(text, adapterPath);
        appendConfigurationBlocks(text, adapter.get(), adapterPath, name);
    }
    return text;
}

} // namespace WinSysInfo
} // namespace SystemInfo
} // namespace velkor
