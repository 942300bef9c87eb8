#include "opengl/opengl_sections.h"
#include "report/text.h"
#include "vkSystemInfo.h"
#include "win/registry_key.h"

namespace velkor {
namespace SystemInfo {
namespace {

using namespace WinSysInfo;

constexpr const char *dllValue = "dll";

QString driversPath()
{
    return QStringLiteral("SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\OpenGLDrivers");
}

} // namespace

RegistryReads openGLDriverReads()
{
    return {{HKEY_LOCAL_MACHINE, driversPath(), {}},
            {HKEY_LOCAL_MACHINE, driversPath() + QStringLiteral("\\*"), {QString::fromLatin1(dllValue)}}};
}

QString ScanOpenGLInfo::GetOpenGLDriverInfo(QString &info)
{
    appendLine(info, QStringLiteral("#### Info about the OpenGL driver DLL's from registry ###"));
    const QString path = driversPath();
    const RegistryKey drivers = openKey(HKEY_LOCAL_MACHINE, path);
    if (!drivers)
        return QString();
    TextBuffer name;
    for (DWORD i = 0; name.enumerateKeyByRegEnumKeyA(drivers.get(), i); ++i) {
        QString line = QStringLiteral("%1   ").arg(name.text());
        const RegistryKey driver = openKey(HKEY_LOCAL_MACHINE, QStringLiteral("%1\\%2").arg(path).arg(name.text()));
        TextBuffer dll;
        if (driver && dll.query(driver.get(), dllValue))
            line += QStringLiteral("%1.dll").arg(dll.text());
        appendLine(info, line);
    }
    return newline; // not appended: the section must not end with an empty line
}

} // namespace SystemInfo
} // namespace velkor
