// Stands in for QGLFormat::openGLVersionFlags() in the program that it is linked into.
#pragma once

#include <optional>

namespace version_flags {

/// What the function answers instead of the truth; without a value it asks Qt.
extern std::optional<int> pretended;

/// How often the function was called in this process.
extern int calls;

} // namespace version_flags
