// The texts that the library makes.
#pragma once

#include "options.h"

/// The text that the options request.
QString requestedText(const Options &options);
