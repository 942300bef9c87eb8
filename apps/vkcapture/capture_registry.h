// The registry keys that the report reads, and no other.
#pragma once

#include "registry_tree.h"

#include <functional>

/// Reads them into a registry of their own. A key that may not be read is skipped and
/// told to \a note.
machine::Registry captureRegistry(const QString &windowsDirectory, const std::function<void(const QString &)> &note);
