#include "making.h"

#include "sections.h"

#include <vkSystemInfo.h>

using namespace velkor;

namespace {

QString openGLVersionLine()
{
    const SystemInfo::COpenGLVersionInfo info = SystemInfo::ScanOpenGLInfo::GetOpenGLVersion();
    return QStringLiteral("%1 (flags 0x%2)\n").arg(info.strVersion).arg(info.nVersionFlags, 0, 16);
}

QString bonjourLine(const char *library, bool (*check)(int &, QString &))
{
    int errorCode = 0;
    QString version;
    const QString name = QString::fromLatin1(library);
    if (!check(errorCode, version))
        return QStringLiteral("%1: not installed\n").arg(name);
    if (errorCode != 0)
        return QStringLiteral("%1: installed, its service does not answer (error %2)\n").arg(name).arg(errorCode);
    return QStringLiteral("%1: installed, version %2\n").arg(name, version.isEmpty() ? QStringLiteral("unknown") : version);
}

QString bonjourLines()
{
    return bonjourLine("dnssd.dll", SystemInfo::WinSysInfo::checkStandardBonjour)
        + bonjourLine("vkdnssd.dll", SystemInfo::WinSysInfo::checkVelkorBonjour);
}

} // namespace

QString requestedText(const Options &options)
{
    if (!options.asksForParts() || options.needsDocument())
        return SystemInfo::allInfos(options.noOpenGL);
    QString text;
    if (options.listSections)
        text += sectionNames().join(QLatin1Char('\n')) + QLatin1Char('\n');
    if (options.platformName)
        text += SystemInfo::platformName() + QLatin1Char('\n');
    if (options.openGLVersion)
        text += openGLVersionLine();
    if (options.bonjour)
        text += bonjourLines();
    for (const QString &name : options.sections)
        text += findSection(name)->text();
    return text;
}
