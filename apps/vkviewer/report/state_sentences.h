// What happened to the text of a report, for people.
#pragma once

#include "vkReports.h"

/// Those that change what the reader can rely on, or all.
enum class StateWeight {
    Important,
    Any,
};

/// A translated sentence for each state that is set, the most important first.
QStringList stateSentences(velkor::Reports::States states, StateWeight weight);
