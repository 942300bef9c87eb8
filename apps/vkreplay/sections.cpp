#include "sections.h"

#include "report/section_table.h"
#include "vkSystemInfo.h"
#include "win/windows_sections.h"

using namespace velkor::SystemInfo;

namespace {

QString openGLDrivers()
{
    QString text;
    ScanOpenGLInfo(nullptr).GetOpenGLDriverInfo(text);
    return text;
}

/// A name of --section and the function that returns its text.
struct Text
{
    const char *name;
    QString (*text)();
};

constexpr Text wholeHalf = {"allWinInfos", WinSysInfo::allWinInfos};
constexpr Text otherTexts[] = {
    {"platformName", platformName},
    {"GetOpenGLDriverInfo", openGLDrivers},
};

struct FunctionWithArgument
{
    const char *name;
    QString (*text)(const QString &argument);
};

constexpr FunctionWithArgument functionsWithArgument[] = {
    {"diskDevicesFromRegistry", WinSysInfo::diskDevicesFromRegistry},
    {"portsFromRegistry", WinSysInfo::portsFromRegistry},
};

std::vector<Text> texts()
{
    std::vector<Text> result = {wholeHalf};
    for (const Section &section : SectionTable()) {
        if (section.part == Part::Windows)
            result.push_back({section.name, section.text});
    }
    result.insert(result.end(), std::begin(otherTexts), std::end(otherTexts));
    return result;
}

} // namespace

std::function<QString()> findSection(const QString &name)
{
    for (const Text &text : texts()) {
        if (name == QLatin1String(text.name))
            return text.text;
    }
    for (const FunctionWithArgument &function : functionsWithArgument) {
        const QString start = QLatin1String(function.name) + QLatin1Char(':');
        if (name.startsWith(start))
            return [&function, argument = name.mid(start.size())] { return function.text(argument); };
    }
    return nullptr;
}

QStringList sectionNames()
{
    QStringList names;
    for (const Text &text : texts())
        names += QString::fromLatin1(text.name);
    for (const FunctionWithArgument &function : functionsWithArgument)
        names += QLatin1String(function.name) + QStringLiteral(":NAME");
    return names;
}
