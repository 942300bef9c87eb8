// Copies the registry keys and values that the sections of the report read.
#pragma once

#include "registry_tree.h"

#include <functional>

/// A key that exists but cannot be opened is described as denied; \a note receives a line
/// about it.
machine::Registry captureRegistry(const std::function<void(const QString &)> &note);
