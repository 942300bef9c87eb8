#include "subjects.h"

#include "vkSystemInfo.h"
#include "win/windows_sections.h"

#include <algorithm>

using namespace velkor::SystemInfo;

namespace bench {
namespace {

std::vector<Section> sectionsOf(const std::vector<Part> &parts)
{
    std::vector<Section> result;
    std::copy_if(SectionTable().begin(), SectionTable().end(), std::back_inserter(result), [&](const Section &section) {
        return std::find(parts.begin(), parts.end(), section.part) != parts.end();
    });
    return result;
}

} // namespace

std::vector<Subject> subjects(bool withOpenGL, const QStringList &names)
{
    std::vector<Subject> all = {
        {"allInfos(false)", [] { return allInfos(false); }, sectionsOf({Part::Windows, Part::Qt, Part::OpenGL})},
        {"allInfos(true)", [] { return allInfos(true); }, sectionsOf({Part::Windows, Part::Qt})},
        {"allWinInfos", WinSysInfo::allWinInfos, sectionsOf({Part::Windows})},
    };
    for (const Section &section : SectionTable())
        all.push_back({section.name, section.text, {section}});

    std::vector<Subject> result;
    std::copy_if(all.begin(), all.end(), std::back_inserter(result), [&](const Subject &subject) {
        const bool hasOpenGL = subject.sections.back().part == Part::OpenGL;
        return (withOpenGL || !hasOpenGL) && (names.isEmpty() || names.contains(QLatin1String(subject.name)));
    });
    return result;
}

} // namespace bench
