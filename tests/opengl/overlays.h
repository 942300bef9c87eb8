// Replaces QGLFormat::hasOpenGLOverlays() in the program that links it.
#pragma once

#include <optional>

namespace overlays {

/// The result of the function. Without a value it calls Qt.
extern std::optional<bool> pretended;

} // namespace overlays
