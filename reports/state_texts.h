// What the states of a document mean, for people.
#pragma once

#include "vkReports.h"

namespace velkor {
namespace Reports {

/// A sentence for each state that is set, and where lines are ambiguous.
QStringList stateSentences(const Document &document);

} // namespace Reports
} // namespace velkor
