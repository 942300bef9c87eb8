// What the options request, in terms of parts.
#pragma once

#include "options.h"

/// Whether single parts are requested, which the library makes one by one, and not the whole report.
bool requestsSingleParts(const Options &options);

/// The parts that the library is to make, in the order in which they are written: single parts, or the whole report.
QStringList requestedParts(const Options &options);

/// The text of Options::listSections, which needs no library; empty without that option.
QByteArray listedSections(const Options &options);
