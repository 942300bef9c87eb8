// The registry keys that the report reads, and no other.
#pragma once

#include "registry_tree.h"

#include <functional>

/// Reads them into a registry of their own. A key that exists and cannot be opened is a
/// denied one there, and \a note gets a line about it.
machine::Registry captureRegistry(const QString &windowsDirectory, const std::function<void(const QString &)> &note);
