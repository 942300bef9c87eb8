#include "requested_parts.h"

#include "part_names.h"

bool requestsSingleParts(const Options &options)
{
    return options.asksForParts() && !options.needsDocument();
}

QStringList requestedParts(const Options &options)
{
    if (!requestsSingleParts(options))
        return {QLatin1String(options.noOpenGL ? PartName::withoutOpenGL : PartName::wholeReport)};
    QStringList names;
    if (options.platformName)
        names += QLatin1String(PartName::platformName);
    if (options.openGLVersion)
        names += QLatin1String(PartName::openGLVersion);
    if (options.bonjour)
        names += QLatin1String(PartName::bonjour);
    return names + options.sections;
}

QByteArray listedSections(const Options &options)
{
    return options.listSections ? exportedSectionNames().join(QLatin1Char('\n')).toUtf8() + '\n' : QByteArray();
}
