// The font in which the characters of a report stand below one another.
#pragma once

class QFont;

/// The fixed font of the system, or another one if that is not fixed.
QFont fixedFont();
