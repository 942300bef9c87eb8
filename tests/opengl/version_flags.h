// Replaces QGLFormat::openGLVersionFlags() in the program that links it.
#pragma once

#include <optional>

namespace version_flags {

/// The result of the function. Without a value it calls Qt.
extern std::optional<int> pretended;

/// How often the function was called in this process.
extern int calls;

} // namespace version_flags
