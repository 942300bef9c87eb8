#include "exported_sections.h"

#include "part_names.h"

#include <vkSystemInfo.h>

using namespace velkor::SystemInfo;

namespace {

// Not a constant expression on Windows, where the functions are imported.
#define SECTION(function) {#function, function},
const Section sections[] = {EXPORTED_SECTIONS(SECTION)};
#undef SECTION

} // namespace

const Section *findSection(const QString &name)
{
    for (const Section &section : sections) {
        if (name == QLatin1String(section.name))
            return &section;
    }
    return nullptr;
}
