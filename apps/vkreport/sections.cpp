#include "sections.h"

#include <vkSystemInfo.h>

using namespace velkor::SystemInfo;

namespace {

// Not a constant expression on Windows, where the functions are imported.
const Section sections[] = {
    {"qtDateTime", qtDateTime},
    {"qtGlobal", qtGlobal},
    {"qtCoreApplication", qtCoreApplication},
    {"qtLocale", qtLocale},
    {"qtScreens", qtScreens},
    {"qtDesktop", qtDesktop},
    {"qtDesktopServices", qtDesktopServices},
    {"qtAccessibility", qtAccessibility},
    {"qtPrinterInfo", qtPrinterInfo},
    {"qtHostInfo", qtHostInfo},
    {"qtSystemEnvironment", qtSystemEnvironment},
};

} // namespace

const Section *findSection(const QString &name)
{
    for (const Section &section : sections) {
        if (name == QLatin1String(section.name))
            return &section;
    }
    return nullptr;
}

QStringList sectionNames()
{
    QStringList names;
    for (const Section &section : sections)
        names += QString::fromLatin1(section.name);
    return names;
}
