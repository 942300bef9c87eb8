#include "section_order.h"

#include "text_runs.h"

#include <cstring>

namespace velkor {
namespace Reports {

int lastSection()
{
    return int(sectionRows().size()) - 1;
}

int lastWindowsSection()
{
    int last = -1;
    for (const SectionRow &row : sectionRows())
        last += row.half == Half::Windows ? 1 : 0;
    return last;
}

int findSectionRow(const char *name)
{
    int row = lastSection();
    while (row >= 0 && !isKind(sectionRows()[std::size_t(row)].name, name))
        --row;
    return row;
}

bool isOptional(int section)
{
    const char *name = sectionRows()[std::size_t(section)].name;
    return isKind(name, "userName") || isKind(name, "someEnvironmentVariables") || isKind(name, "GetOpenGLInfo");
}

States missingSections(const std::vector<Section> &sections, bool hasBeginning)
{
    States states;
    int report = -1;
    int previous = -1;
    const auto endReport = [&] {
        for (int row = previous + 1; report >= 0 && row <= lastSection(); ++row)
            states.setFlag(State::EndMissing, states.testFlag(State::EndMissing) || !isOptional(row));
    };
    for (const Section &section : sections) {
        const bool first = section.report != report;
        if (first)
            endReport();
        if (first && section.row != 0)
            states |= hasBeginning && section.report == 0 ? State::SectionsMissing : State::StartMissing;
        for (int row = previous + 1; !first && row < section.row; ++row)
            states.setFlag(State::SectionsMissing, states.testFlag(State::SectionsMissing) || !isOptional(row));
        report = section.report;
        previous = section.row;
    }
    endReport();
    return states;
}

} // namespace Reports
} // namespace velkor
