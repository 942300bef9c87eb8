// Records the results of the report's Windows calls, except registry reads.
#pragma once

#include "machine.h"

#include <functional>

/// \a note receives a line about each result that a machine description cannot hold.
machine::SystemAnswers captureSystem(const std::function<void(const QString &)> &note);
