#include "known_names.h"

#include "report/section_table.h"

#include <algorithm>
#include <windows.h>

using namespace velkor::SystemInfo;
using machine::RegistryRoot;

const int codePages[5] = {1252, 1250, 1251, 932, 65001};
const int specialFolderNumbers[5] = {0x05, 0x02, 0x26, 0x1c, 0x1a};

const char *const libraryNames[2] = {"dnssd.dll", "vkdnssd.dll"};

namespace {

/// The text whose UTF-16LE bytes are \a bytes.
QString nameOfBytes(const QByteArray &bytes)
{
    QString name;
    for (int i = 0; i + 1 < bytes.size(); i += 2)
        name += QChar(uchar(bytes.at(i)) | uchar(bytes.at(i + 1)) << 8);
    return name;
}

RegistryRoot rootOf(HKEY key)
{
    if (key == HKEY_CLASSES_ROOT)
        return RegistryRoot::ClassesRoot;
    return key == HKEY_CURRENT_USER ? RegistryRoot::CurrentUser : RegistryRoot::LocalMachine;
}

/// The reads of all sections, and further ones of the functions for driver classes and ports.
RegistryReads registryReads()
{
    RegistryReads reads;
    for (const Section &section : SectionTable()) {
        if (section.reads) {
            const RegistryReads more = section.reads();
            reads.insert(reads.end(), more.begin(), more.end());
        }
    }
    const QString deviceClass = QStringLiteral("SYSTEM\\CurrentControlSet\\Control\\Class\\0\\");
    const QStringList properties = {"DeviceType", "DeviceCharacteristics"};
    // Quirk: a key counts as "Properties" if the bytes of its name start so.
    for (const QString &name : {QStringLiteral("Properties"), QStringLiteral("?????"), nameOfBytes("Properties")})
        reads.push_back({HKEY_LOCAL_MACHINE, deviceClass + name, properties});
    reads.push_back({HKEY_LOCAL_MACHINE, QStringLiteral("HARDWARE\\DEVICEMAP\\SERIALCOMM"), {"\\Device\\Serial0"}});
    reads.push_back({HKEY_LOCAL_MACHINE, QStringLiteral("SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\SharedDLLs"), {"C:\\Windows\\system32\\vkdnssd.dll"}});
    return reads;
}

QStringList makeKnownValues()
{
    QStringList values;
    for (const RegistryRead &read : registryReads())
        values += read.values;
    values.removeDuplicates();
    return values;
}

std::vector<KnownKey> makeKnownKeys()
{
    std::vector<KnownKey> keys;
    for (const RegistryRead &read : registryReads()) {
        KnownKey key {rootOf(read.root), QString(read.path).replace(QLatin1Char('*'), QLatin1Char('0')), {}};
        const QStringList values = read.values.isEmpty() ? QStringList(knownValues().constFirst()) : read.values;
        for (const QString &value : values)
            key.values.push_back(knownValues().indexOf(value));
        const bool isFirst = std::none_of(keys.begin(), keys.end(), [&](const KnownKey &other) {
            return other.root == key.root && other.path.compare(key.path, Qt::CaseInsensitive) == 0;
        });
        if (isFirst)
            keys.push_back(key);
    }
    return keys;
}

QStringList makeKnownTexts()
{
    QStringList texts;
    for (const char *text : {
             "",
             "A",
             "Disk",
             "0000",
             "0001",
             "Video",
             "Properties",
             "?",
             "?????",
             "100",
             "101",
             "102",
             "103",
             "520",
             "1155",
             "1158",
             "1215",
             "1300",
             "6.1",
             "6.3",
             "10.0",
             "4294967296.0",
             "7601",
             "19045",
             "22000",
             "Linemodel",
             "Linemodel V10",
             "Linemodel V11",
             "Q9",
             "Q9 Beta",
             "Q9 V2",
             "Q9 V3",
             "Q9 V3.1",
             "Q90",
             "M4-M8-vkUpdate",
             "Device Flasher",
             "T-BOX-vkUpdate",
             "%",
             "%%",
             "%1",
             "%2",
             "%3",
             "%L1",
             "%0",
             "%99",
             "%1%2%3",
             "%2%1",
             "%1 %1 %1 %1",
             "%OS%",
             "%PATH%",
             "%TEMP%",
             "C:\\Windows",
             "C:\\Windows\\",
             "\\\\server\\share",
             "/",
             "\\",
             "x86_Microsoft.VC90.CRT_1",
             "Microsoft.VC80.CRT",
             ".",
             "..",
             "*",
             "SP1",
             "A",
             " B",
             " C",
             "\r\n",
             "\t",
             " ",
         })
        texts += QString::fromLatin1(text);
    for (const QString &text : {
             QString(QChar(0)), QString(QChar(0xd800)), QString(QChar(0xdc00)), QString(QChar(0xfeff)),
             QString(QChar(0xfffe)), QString(QChar(0xffff)), QString(QChar(0xfffd)), QString(QChar(0x2028)),
             QString::fromUcs4(U"\U0001f600"),
             QString(QChar(0x8868)), // its second byte in code page 932 is that of a backslash
             QString(QChar(0xff71)), QString(QChar(0x0416)), QString(QChar(0x017d)), QString(QChar(0x20ac)),
             QString(QChar(0x0130)), QString(QChar(0x0131)), QString(QChar(0x00df)), QString(QChar(0x00e9)),
             QString(QChar(0x0085)), QString(QChar(0x00a5)), nameOfBytes("Properties")})
        texts += text;
    return texts;
}

} // namespace

const std::vector<KnownKey> &knownKeys()
{
    static const std::vector<KnownKey> keys = makeKnownKeys();
    return keys;
}

const QStringList &knownValues()
{
    static const QStringList values = makeKnownValues();
    return values;
}

const QStringList &knownTexts()
{
    static const QStringList texts = makeKnownTexts();
    return texts;
}

const std::vector<const char *> &knownCalls()
{
    static const std::vector<const char *> calls = {
        "RegOpenKeyExA", "RegCloseKey", "RegQueryValueExA", "RegQueryValueExW", "RegEnumKeyExA", "RegEnumKeyExW",
        "RegEnumKeyA", "RegEnumValueA", "GetSystemRegistryQuota", "GetVersionExA", "GetVersionExW", "GetSystemMetrics",
        "GlobalMemoryStatusEx", "GetComputerNameExW", "GetUserNameW", "GetSystemWindowsDirectoryW",
        "GetSystemWow64DirectoryW", "ExpandEnvironmentStringsW", "SHGetSpecialFolderPathW", "GetLogicalDrives",
        "GetDriveTypeW", "GetVolumeInformationW", "GetDiskFreeSpaceExW", "SetErrorMode", "GetModuleHandleW",
        "LoadLibraryW", "GetProcAddress", "FreeLibrary", "GetProductInfo", "DNSServiceGetProperty",
        "EnumProcessModules", "GetModuleFileNameExW", "GetAdaptersInfo", "HeapAlloc", "HeapFree", "_localtime32_s",
        "asctime_s"};
    return calls;
}
