#include "library_texts.h"

#include "exported_sections.h"
#include "part_names.h"
#include "timings.h"

#include <algorithm>
#include <utility>
#include <vkSystemInfo.h>

using namespace velkor;

namespace {

QString openGLVersionLine()
{
    const SystemInfo::COpenGLVersionInfo info = SystemInfo::ScanOpenGLInfo::GetOpenGLVersion();
    return QStringLiteral("%1 (flags 0x%2)\n").arg(info.strVersion).arg(info.nVersionFlags, 0, 16);
}

QString platformNameLine()
{
    return SystemInfo::platformName() + QLatin1Char('\n');
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

struct LinePart
{
    const char *name;
    QString (*text)();
};

constexpr LinePart lineParts[] = {
    {PartName::platformName, platformNameLine},
    {PartName::openGLVersion, openGLVersionLine},
    {PartName::bonjour, bonjourLines},
};

const LinePart *findLinePart(const QString &part)
{
    const auto *found = std::find_if(std::begin(lineParts), std::end(lineParts),
                                     [&part](const LinePart &known) { return part == QLatin1String(known.name); });
    return found == std::end(lineParts) ? nullptr : found;
}

bool isWholeReport(const QString &part)
{
    return part == QLatin1String(PartName::wholeReport) || part == QLatin1String(PartName::withoutOpenGL);
}

} // namespace

bool isLibraryPart(const QString &part)
{
    return isWholeReport(part) || part == QLatin1String(PartName::timings) || findLinePart(part) || findSection(part);
}

LibraryTexts::LibraryTexts(QStringList parts)
    : m_parts(std::move(parts))
{
}

QString LibraryTexts::text(const QString &part)
{
    if (isWholeReport(part))
        return report(part == QLatin1String(PartName::withoutOpenGL));
    if (part == QLatin1String(PartName::timings))
        return timings();
    if (const LinePart *line = findLinePart(part))
        return line->text();
    return findSection(part)->text();
}

QString LibraryTexts::report(bool noOpenGL)
{
    QString text;
    m_firstReport = milliseconds([&] { text = SystemInfo::allInfos(noOpenGL); });
    return text;
}

QString LibraryTexts::timings() const
{
    const auto whole = std::find_if(m_parts.cbegin(), m_parts.cend(), isWholeReport);
    if (whole != m_parts.cend())
        return reportTimings(*whole == QLatin1String(PartName::withoutOpenGL), m_firstReport);
    QStringList sections;
    std::copy_if(m_parts.cbegin(), m_parts.cend(), std::back_inserter(sections),
                 [](const QString &part) { return findSection(part) != nullptr; });
    return sectionTimings(sections);
}
