// Changes all texts of a machine description.
#pragma once

#include "machine.h"
#include "text_change.h"

/// The description with changed texts: values of the registry, names of keys and values, answers of calls. What the
/// report looks up by its name keeps that name.
machine::Registry changedRegistry(const machine::Registry &registry, TextChange &change);
machine::SystemAnswers changedSystem(const machine::SystemAnswers &system, TextChange &change);
