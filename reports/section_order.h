// The order of the sections of a report.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// Index in sectionRows() of the last section, and of the last one of the Windows half.
int lastSection();
int lastWindowsSection();

/// Index of the section with that name, or -1.
int findSectionRow(const char *name);

/// A section that the report leaves out if a call fails, or that the host can leave out.
bool isOptional(int section);

/// Which sections of the reports are missing. \a hasBeginning: the first report has the heading of
/// the Windows half.
States missingSections(const std::vector<Section> &sections, bool hasBeginning);

} // namespace Reports
} // namespace velkor
