// The lines that begin halves and sections, and the line between sections.
#pragma once

#include "line_form.h"

namespace velkor {
namespace Reports {

constexpr int noSection = -1;
constexpr int windowsHalf = -2;
constexpr int qtHalf = -3;
constexpr int longestHeading = 120; ///< in bytes, with some spaces more than the format has

/// What a line begins: an index in sectionRows(), windowsHalf, qtHalf, or noSection. Spaces may have
/// changed; \a alterations says how. A section that begins with a fact begins with that fact's line.
int headingAt(const char *text, int begin, int end, Alterations *alterations);

/// True if the section begins with a line that holds a value.
bool beginsWithFact(int section);

/// True if the line is the 72 hyphens. Spaces may follow.
bool isSeparator(const char *text, int begin, int end);

/// If the line ends with the 72 hyphens and something stands before them, the offset of the
/// hyphens; else -1.
int gluedSeparator(const char *text, int begin, int end);

} // namespace Reports
} // namespace velkor
