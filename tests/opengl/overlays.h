// Stands in for QGLFormat::hasOpenGLOverlays() in the program that it is linked into.
#pragma once

#include <optional>

namespace overlays {

/// What the function answers instead of the truth; without a value it asks Qt.
extern std::optional<bool> pretended;

} // namespace overlays
