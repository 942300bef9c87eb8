// Names of sections and items for people.
#pragma once

#include "vkReports.h"

/// The heading without decoration and without words that many headings share: "Memory Information", "Drivers". Sections with
/// equal headings have their argument after it. No two sections have the same title.
/// \a row is an index in sectionRows().
QString shownSectionTitle(int row);

/// What identifies the item, with its kind if that is only a number or a letter: "qt5core.dll", "drive C".
QString shownItemTitle(const velkor::Reports::Document &document, int item);
