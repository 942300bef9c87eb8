// Copies the registry keys and values that the sections of the report read.
#pragma once

#include "registry_tree.h"

#include <functional>

/// Describes a key that exists and cannot be opened as denied, and passes a line about it
/// to \a note.
machine::Registry captureRegistry(const std::function<void(const QString &)> &note);
