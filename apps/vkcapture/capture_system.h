// The answers of every Windows call of the report that is not a registry read.
#pragma once

#include "machine.h"

#include <functional>

/// Asks Windows now. What a machine description cannot say is told to \a note.
machine::SystemAnswers captureSystem(const std::function<void(const QString &)> &note);
