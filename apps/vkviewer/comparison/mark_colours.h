// Colours of differences, for light and dark palettes.
#pragma once

#include "aligned_text.h"

#include <QtGui/QPalette>

/// The background of a line or, stronger, of the part of it that differs. The palette's text can be read on it.
QColor markColour(const QPalette &palette, LineChange change, bool isStrong);
